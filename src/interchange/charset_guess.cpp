#include "charset_guess.h"

#include "utf8_mending.h"

#include <QString>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace lineara {
namespace {

constexpr std::size_t enoughBytes = std::size_t{4} * 1024 * 1024;
constexpr QChar apostrophe = u'\u2019';

bool isHigh(char byte)
{
    return (static_cast<unsigned char>(byte) & 0x80u) != 0;
}

bool composes(QChar letter, QChar mark)
{
    const QChar both[] = {letter, mark};
    return QString(both, 2).normalized(QString::NormalizationForm_C).size() == 1;
}

/// Greek letters, arithmetic and the parts of boxes, which the sets of DOS have where others have letters.
bool isForeignToWords(QChar character)
{
    constexpr char16_t firstOfBoxes = 0x2500;
    constexpr char16_t lastOfBoxes = 0x259F;
    constexpr char16_t raisedN = 0x207F;
    if (character.isLetter())
        return character.script() != QChar::Script_Latin || character == raisedN;
    const bool isBox = character >= QChar(firstOfBoxes) && character <= QChar(lastOfBoxes);
    return isBox || character.category() == QChar::Symbol_Math;
}

std::int64_t fitOfCharacter(CodePage page, std::string_view text, std::size_t at, std::int64_t weightOfMisfit)
{
    const QChar character = unicodeOf(page, text[at]);
    const QChar before = at > 0 ? unicodeOf(page, text[at - 1]) : u'\n';
    const QChar after = at + 1 < text.size() ? unicodeOf(page, text[at + 1]) : u'\n';
    if (character.isNull())
        return -weightOfMisfit;
    // In ANSEL the letters of other scripts are signs of transliteration, which do stand in words.
    if (page != CodePage::Ansel && isForeignToWords(character) && (before.isLetter() || after.isLetter()))
        return -weightOfMisfit;
    if (!character.isLetter() && before.isLetter() && after.isLetter())
        return character == apostrophe ? 1 : -weightOfMisfit;
    if (!character.isLetter())
        return 0;
    if (character.isUpper() && before.isLower())
        return -weightOfMisfit;
    return before.isLetter() || after.isLetter() ? 1 : 0;
}

/// Marks of ANSEL by what follows them. Nobody writes a mark without a letter; with a letter that is never written with
/// it, only lists of all marks do, which hold the usual ones as well.
struct MarkCounts
{
    std::int64_t usual = 0;
    std::int64_t unusual = 0;
    std::int64_t impossible = 0;

    void count(std::string_view text, std::size_t at)
    {
        const auto next = at + 1;
        if (next < text.size() && isAnselMark(text[next]))
            return;
        const QChar letter = next < text.size() ? unicodeOf(CodePage::Ansel, text[next]) : u'\n';
        if (!letter.isLetter())
            ++impossible;
        else if (composes(letter, unicodeOf(CodePage::Ansel, text[at])))
            ++usual;
        else
            ++unusual;
    }

    std::int64_t fit() const
    {
        constexpr std::int64_t weightOfImpossible = 8;
        return usual - weightOfImpossible * impossible - (usual == 0 ? unusual : 0);
    }
};

/// Of the letters of Windows some are letters in the sets of DOS and Macintosh as well, if others. Against these each
/// of the many that are not weighs the more.
bool isBelievable(CodePage declared, std::string_view text)
{
    const bool hasItsOwnPlaces = declared == CodePage::Ansel || declared == CodePage::Windows1252;
    constexpr std::int64_t weightOfMisfit = 2;
    return fitOf(declared, text, hasItsOwnPlaces ? 1 : weightOfMisfit) >= 0;
}

} // namespace

std::int64_t fitOf(CodePage page, std::string_view text, std::int64_t weightOfMisfit)
{
    text = text.substr(0, enoughBytes);
    std::int64_t fit = 0;
    MarkCounts marks;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!isHigh(text[at]))
            continue;
        if (page == CodePage::Ansel && !unicodeOf(page, text[at]))
            ++marks.impossible;
        else if (page == CodePage::Ansel && isAnselMark(text[at]))
            marks.count(text, at);
        else
            fit += fitOfCharacter(page, text, at, weightOfMisfit);
    }
    return fit + marks.fit();
}

bool isInWord(CodePage page, std::string_view text, std::size_t at)
{
    return fitOfCharacter(page, text, at, 1) > 0;
}

std::int64_t fitOfUtf8(std::string_view text)
{
    text = text.substr(0, enoughBytes);
    std::int64_t fit = 0;
    while (!text.empty()) {
        const auto length = isHigh(text.front()) ? utf8Length(text) : 1;
        if (isHigh(text.front()))
            fit += length > 0 ? 1 : -1;
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return fit;
}

std::optional<CodePage> declaredPage(std::string_view declaration)
{
    std::string name;
    for (const char c : declaration) {
        if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'))
            name += static_cast<char>(c >= 'a' ? c - 'a' + 'A' : c);
    }
    static constexpr std::array<std::pair<std::string_view, CodePage>, 18> names = {{
        {"ANSEL", CodePage::Ansel},
        {"ANSI", CodePage::Windows1252},
        {"WINDOWS", CodePage::Windows1252},
        {"IBMWINDOWS", CodePage::Windows1252},
        {"CP1252", CodePage::Windows1252},
        {"WINDOWS1252", CodePage::Windows1252},
        {"LATIN1", CodePage::Windows1252},
        {"ISO88591", CodePage::Windows1252},
        {"ISO8859", CodePage::Windows1252},
        {"IBMPC", CodePage::Dos437},
        {"IBMDOS", CodePage::Dos437},
        {"IBM", CodePage::Dos437},
        {"MSDOS", CodePage::Dos437},
        {"CP437", CodePage::Dos437},
        {"CP850", CodePage::Dos850},
        {"IBM850", CodePage::Dos850},
        {"MACINTOSH", CodePage::Macintosh},
        {"MAC", CodePage::Macintosh},
    }};
    const auto found = std::find_if(names.begin(), names.end(), [&](const auto& entry) { return entry.first == name; });
    return found == names.end() ? std::nullopt : std::optional(found->second);
}

CodePage bestPage(std::optional<CodePage> declared, std::string_view text)
{
    if (declared && isBelievable(*declared, text))
        return *declared;
    // Only those that genealogies are often written in without saying so; the first one wins a tie.
    static constexpr std::array likely = {CodePage::Windows1252, CodePage::Ansel, CodePage::Dos437};
    std::array<std::int64_t, likely.size()> fits{};
    std::transform(likely.begin(), likely.end(), fits.begin(), [&](CodePage page) { return fitOf(page, text); });
    const auto best = std::max_element(fits.begin(), fits.end());
    if (declared && *best <= 0)
        return *declared;
    return likely[static_cast<std::size_t>(best - fits.begin())];
}

} // namespace lineara
