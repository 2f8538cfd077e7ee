#include "gedcom_charset.h"

#include "charset_guess.h"
#include "gedcom_decoding.h"
#include "gedcom_line.h"
#include "import_failure.h"
#include "import_notes.h"
#include "import_texts.h"
#include "utf8_mending.h"

#include <QStringBuilder>

#include <algorithm>
#include <optional>
#include <vector>

namespace lineara {
namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// Bytes of the byte order marks that the text begins with: programs that add one to what has one already leave
/// several.
std::size_t sizeOfMarks(std::string_view text)
{
    std::size_t size = 0;
    while (text.substr(size).starts_with(utf8Mark))
        size += utf8Mark.size();
    return size;
}

enum class Utf16 : std::uint8_t
{
    No,
    LittleEndian,
    BigEndian
};

/// A GEDCOM text starts with an ASCII character, so that in UTF-16 one of the first two bytes is 0.
Utf16 utf16Of(std::string_view bytes)
{
    if (bytes.starts_with("\xFF\xFE"))
        return Utf16::LittleEndian;
    if (bytes.starts_with("\xFE\xFF"))
        return Utf16::BigEndian;
    if (bytes.size() < 2 || (bytes[0] == '\0') == (bytes[1] == '\0'))
        return Utf16::No;
    return bytes[0] == '\0' ? Utf16::BigEndian : Utf16::LittleEndian;
}

bool isAscii(std::string_view text)
{
    return std::none_of(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0x80u) != 0; });
}

/// The character set that the header record names, read from any ASCII-compatible text; empty if none.
std::string_view declarationIn(std::string_view text)
{
    // A header is short; a file without one need not be searched for it.
    constexpr std::size_t longestHeader = std::size_t{256} * 1024;
    GedcomLineReader lines(text.substr(0, longestHeader));
    bool isInHeader = false;
    while (const auto line = lines.next()) {
        if (line->level == 0 && isInHeader)
            break;
        isInHeader = isInHeader || (line->level == 0 && line->tag == "HEAD");
        if (isInHeader && line->level == 1 && line->tag == "CHAR")
            return line->value;
    }
    return {};
}

QString pageName(CodePage page)
{
    switch (page) {
    case CodePage::Ansel:
        return QStringLiteral("ANSEL");
    case CodePage::Dos437:
        return QStringLiteral("CP437");
    case CodePage::Dos850:
        return QStringLiteral("CP850");
    case CodePage::Macintosh:
        return QStringLiteral("MACINTOSH");
    case CodePage::Windows1252:
        break;
    }
    return QStringLiteral("Windows-1252");
}

bool isUtf8Name(std::string_view declaration)
{
    return declaration.starts_with("UTF-8") || declaration.starts_with("UTF8") || declaration.starts_with("utf-8");
}

struct Decoded
{
    GedcomText text;
    bool mayHaveLost = false;                  ///< what was no character is U+FFFD now
    std::vector<std::uint32_t> linesOfWindows; ///< of a text in UTF-8, with some bytes of Windows-1252
};

/// A text that is UTF-8 but for some bytes.
Decoded readFaultyUtf8(std::string_view text)
{
    Decoded decoded{{{}, QStringLiteral("UTF-8"), {}}, true, {}};
    const auto lines = withPlainLineEnds({text.data(), static_cast<qsizetype>(text.size())});
    decoded.text.utf8 = mendedUtf8(viewOf(lines), decoded.linesOfWindows);
    return decoded;
}

/// A text of bytes that stand for themselves, or for parts of UTF-8.
Decoded readBytes(QByteArray bytes, std::string_view text, const Progress& progress)
{
    const auto removeMark = [&] { return bytes.remove(0, static_cast<qsizetype>(viewOf(bytes).size() - text.size())); };
    if (isAscii(text))
        return {{removeMark(), QStringLiteral("ASCII"), {}}, false, {}};
    if (bytes.isValidUtf8())
        return {{removeMark(), QStringLiteral("UTF-8"), {}}, false, {}};
    const auto whole = withWholeCharacters(text);
    if (whole && whole->isValidUtf8())
        return {{*whole, QStringLiteral("UTF-8"), {}}, false, {}};
    const auto asUtf8 = whole ? viewOf(*whole) : text;
    const auto declaration = declarationIn(text);
    const bool isMarked = text.size() != viewOf(bytes).size();
    if ((isMarked || !declaredPage(declaration)) && fitOfUtf8(asUtf8) > 0)
        return readFaultyUtf8(asUtf8);
    const CodePage page = bestPage(declaredPage(declaration), text);
    return {{utf8FromPage(page, text, progress), pageName(page), {}}, true, {}};
}

bool agrees(const QString& charset, std::string_view declaration)
{
    if (declaration.empty() || charset == QStringLiteral("ASCII"))
        return true;
    if (charset == QStringLiteral("UTF-8"))
        return isUtf8Name(declaration);
    if (charset == QStringLiteral("UTF-16"))
        return declaration == "UNICODE" || declaration.starts_with("UTF-16") || declaration.starts_with("UTF16");
    const auto page = declaredPage(declaration);
    return page && pageName(*page) == charset;
}

/// Tells what was believed and what was lost, where that is not as the file says.
void account(GedcomText& text, bool mayHaveLost, ImportNotes& notes)
{
    text.isDeclaredWrongly = !agrees(text.charset, viewOf(text.declared.toUtf8()));
    if (text.isDeclaredWrongly)
        notes.aboutFile(ImportTexts::tr("The file declares the character set %1, but is in %2 and was read so.")
                            .arg(inQuotes(viewOf(text.declared.toUtf8())), text.charset));
    const auto replaced = mayHaveLost ? text.utf8.count("\xEF\xBF\xBD") : 0;
    if (replaced > 0)
        notes.aboutFile(ImportTexts::tr("%n bytes are no characters of %1; they were replaced.", nullptr,
                                        static_cast<int>(replaced))
                            .arg(text.charset));
}

} // namespace

Outcome<GedcomText> gedcomText(QByteArray bytes, const QString& name, ImportNotes& notes, const Progress& progress)
{
    constexpr double decodedPart = 0.7;
    const Progress decoding = progress.stage(0, decodedPart);
    const Utf16 utf16 = utf16Of(viewOf(bytes));
    Decoded decoded;
    if (utf16 != Utf16::No) {
        decoded.text.utf8 = utf8FromUtf16(viewOf(bytes), utf16 == Utf16::BigEndian, decoding);
        decoded.text.utf8.remove(0, static_cast<qsizetype>(sizeOfMarks(decoded.text.view())));
        decoded.text.charset = QStringLiteral("UTF-16");
        decoded.mayHaveLost = true;
        bytes.clear();
    } else {
        auto plain = viewOf(bytes);
        plain.remove_prefix(sizeOfMarks(plain));
        decoded = readBytes(std::move(bytes), plain, decoding);
    }
    if (!progress.goesOn(decodedPart))
        return stoppedImport(name);
    GedcomText& text = decoded.text;
    if (text.utf8.isEmpty())
        return importFailure(name, ImportTexts::tr("the file is empty."));
    text.utf8 = withPlainLineEnds(std::move(text.utf8));
    const auto declaration = declarationIn(text.view());
    text.declared = QString::fromUtf8(declaration.data(), static_cast<qsizetype>(declaration.size())).trimmed();
    account(text, decoded.mayHaveLost, notes);
    for (const std::uint32_t line : decoded.linesOfWindows)
        notes.remark(line, ImportTexts::tr("held bytes that are no UTF-8; they were read as Windows-1252"));
    if (!progress.goesOn((1 + decodedPart) / 2))
        return stoppedImport(name);

    std::vector<std::uint32_t> changed;
    text.utf8 = withoutUnwritable(std::move(text.utf8), changed);
    for (const std::uint32_t line : changed)
        notes.remark(line, ImportTexts::tr("held characters that can't be written to a file; they were replaced"));
    return std::move(text);
}

} // namespace lineara
