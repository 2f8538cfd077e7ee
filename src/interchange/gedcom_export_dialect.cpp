#include "gedcom_export_dialect.h"

#include "gedcom_export_ages.h"
#include "gedcom_export_dates.h"
#include "gedcom_export_enums.h"
#include "gedcom_export_languages.h"
#include "gedcom_line.h"
#include "gedcom_pointer.h"
#include "gedcom_tree.h"
#include "own_tags.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace lineara {
namespace {

/// Lines that say when something was written. They may have no phrase.
bool isExactDate(std::string_view parent, std::string_view tag)
{
    return tag == "DATE" && (parent == "HEAD" || parent == "CHAN" || parent == "CREA");
}

bool isTagOfOthers(std::string_view tag)
{
    return tag.starts_with('_') && !isKeptTag(tag);
}

/// Lines of persons and families that can say nothing but whom they mean.
bool isMemberLine(std::string_view record, std::string_view tag)
{
    static constexpr std::array<std::string_view, 3> ofFamilies = {"HUSB", "WIFE", "CHIL"};
    static constexpr std::array<std::string_view, 7> ofPersons = {"FAMC", "FAMS", "ALIA", "ASSO",
                                                                  "ANCI", "DESI", "SUBM"};
    if (record == "FAM")
        return std::ranges::find(ofFamilies, tag) != ofFamilies.end();
    return record == "INDI" && std::ranges::find(ofPersons, tag) != ofPersons.end();
}

/// Reads lines, joins what belongs together, and writes it again.
class LineConversion
{
public:
    LineConversion(std::string_view text, GedcomDialect to) : to_(to)
    {
        while (!text.empty()) {
            const auto length = std::min(text.find('\n'), text.size());
            if (const auto line = GedcomLineReader(text.substr(0, length)).next())
                lines_.push_back({text.substr(0, length), *line});
            text.remove_prefix(std::min(length + 1, text.size()));
        }
    }

    std::string result() &&
    {
        for (std::size_t at = 0; at < lines_.size(); ++at)
            add(at);
        flush();
        return std::move(out_);
    }

private:
    struct Entry
    {
        std::string_view raw;
        GedcomLine read;
    };

    struct Pending
    {
        std::size_t at; ///< of the first of its lines
        int level;
        std::string_view xref;
        std::string_view tag;
        std::string_view parent; ///< tag of the line that it stands below
        bool isPointer;
        bool isOfOthers; ///< it, or one that it stands below, has a tag of another program
        std::string value;
    };

    void add(std::size_t at)
    {
        const GedcomLine& line = lines_[at].read;
        if (line.defect != LineDefect::None) {
            flush();
            out_ += lines_[at].raw;
            out_ += '\n';
        } else if (pending_ && line.tag == "CONC" && *line.level == textLevel_ + 1) {
            goOn(at);
        } else {
            flush();
            begin(at);
        }
    }

    /// A continuation is never a pointer.
    static std::string_view valueOf(const GedcomLine& line)
    {
        const bool isText = isContinuation(line.tag) && line.isPointer;
        return isText ? std::string_view(line.value.data() - 1, line.value.size() + 2) : line.value;
    }

    /// Words below a pointer are no part of it. 7.0 has no CONC that could hold them.
    void goOn(std::size_t at)
    {
        if (!pending_->isPointer) {
            pending_->value += valueOf(lines_[at].read);
            return;
        }
        flush();
        begin(at);
        if (to_ == GedcomDialect::Seven)
            pending_->tag = "CONT";
    }

    void begin(std::size_t at)
    {
        const GedcomLine& line = lines_[at].read;
        const std::size_t level = *line.level;
        above_.resize(level + 1);
        above_[level] = line.tag;
        if (at == saidAbove_)
            return;
        const bool isText = isContinuation(line.tag);
        textLevel_ = *line.level - (isText ? 1 : 0);
        pending_ = Pending{at,
                           *line.level,
                           line.xref,
                           line.tag,
                           level > 0 ? above_[level - 1] : std::string_view(),
                           line.isPointer && !isText,
                           std::ranges::any_of(above_, isTagOfOthers),
                           std::string(valueOf(line))};
    }

    void flush()
    {
        if (!pending_)
            return;
        const Pending line = *std::exchange(pending_, std::nullopt);
        std::string tag(tagOf(line));
        if (!line.xref.empty())
            tag = std::string(1, '@').append(line.xref).append("@ ").append(tag);
        if (isEmptyPointer(line))
            out_ += gedcomPointer(line.level, tag, pointsAtNobody);
        else if (line.isPointer && isNoPointerInFive(line))
            out_ += hasLinesBelow(line) ? gedcomLines(line.level, tag, {}, to_) : std::string();
        else if (line.isPointer)
            out_ += gedcomPointer(line.level, tag, line.value);
        else
            writeText(line, tag);
    }

    /// 7.0 wants a pointer where 5.5.1 may leave one out.
    bool isEmptyPointer(const Pending& line) const
    {
        const bool mayBe = to_ == GedcomDialect::Seven && line.level == 1 && line.value.empty();
        return mayBe && isMemberLine(line.parent, line.tag) && !goesOn(line);
    }

    /// 5.5.1 has no pointer at nobody. The tags of other programs mean by it what they want.
    bool isNoPointerInFive(const Pending& line) const
    {
        return to_ == GedcomDialect::Five && line.value == pointsAtNobody && !line.isOfOthers;
    }

    bool hasLinesBelow(const Pending& line) const
    {
        const auto isRead = [](const Entry& next) { return next.read.defect == LineDefect::None; };
        const auto rest = std::span(lines_).subspan(line.at + 1);
        const auto next = std::ranges::find_if(rest, isRead);
        return next != rest.end() && *next->read.level > line.level;
    }

    std::string_view tagOf(const Pending& line) const
    {
        const bool isShared = line.isPointer || (line.level == 0 && !line.xref.empty());
        if (to_ == GedcomDialect::Seven) {
            const bool isRole = line.tag == "RELA" && line.parent == "ASSO";
            if (isLanguage(line) && !languageOf(line))
                return keptLanguageTag;
            if (line.tag == "FILE" && isOfHeader(line))
                return keptFileTag;
            return isShared && line.tag == "NOTE" ? "SNOTE" : isRole ? "ROLE" : line.tag;
        }
        if (line.tag == keptLanguageTag)
            return "LANG";
        if (line.tag == keptFileTag && isOfHeader(line))
            return "FILE";
        const bool isRole = line.tag == "ROLE" && line.parent == "ASSO";
        return isShared && line.tag == "SNOTE" ? "NOTE" : isRole ? "RELA" : line.tag;
    }

    static bool isOfHeader(const Pending& line) { return line.parent == "HEAD" && line.level == 1; }

    /// Other programs mean by theirs what they want.
    static bool isLanguage(const Pending& line) { return line.tag == "LANG" && !line.isPointer && !line.isOfOthers; }

    std::optional<QString> languageOf(const Pending& line) const
    {
        return goesOn(line) ? std::nullopt : languageInSeven(utf16(line.value));
    }

    void writeText(const Pending& line, const std::string& tag)
    {
        const QString text = QString::fromUtf8(line.value.data(), static_cast<qsizetype>(line.value.size()));
        const PhrasedValue said = to_ == GedcomDialect::Seven ? inSeven(line, text) : inFive(line, text);
        const bool hasCalendar = line.tag == "DATE" && said.value.contains(QStringView(u"@#"));
        // An escape of a date is no text.
        out_ += hasCalendar ? std::to_string(line.level) + ' ' + tag + ' ' + said.value.toStdString() + '\n'
                            : linesOf(line, tag, said.value);
        if (!said.phrase.isEmpty())
            out_ += gedcomLines(line.level + 1, "PHRASE", said.phrase, to_);
    }

    static bool mayHaveWords(const Pending& line)
    {
        return line.tag == "DATE" || line.tag == "AGE" || isEnumeration(line.parent, line.tag);
    }

    PhrasedValue inSeven(const Pending& line, const QString& text) const
    {
        const QString plain = withSingleAts(text);
        if (isLanguage(line))
            return {languageOf(line).value_or(plain), {}};
        if (!mayHaveWords(line))
            return {plain, {}};
        const PhrasedValue said = wordsInSeven(line, plain);
        const bool mayHavePhrase = !isExactDate(line.parent, line.tag) && !childOf(line, "PHRASE");
        return goesOn(line) || (!said.phrase.isEmpty() && !mayHavePhrase) ? PhrasedValue{plain, {}} : said;
    }

    static PhrasedValue wordsInSeven(const Pending& line, const QString& plain)
    {
        if (line.tag == "DATE")
            return dateInSeven(plain);
        if (line.tag == "AGE")
            return ageInSeven(plain);
        return enumerationInSeven(line.parent, line.tag, plain).value_or(PhrasedValue{plain, {}});
    }

    /// A phrase that the value says now is not said again.
    PhrasedValue inFive(const Pending& line, const QString& text)
    {
        const QString plain = withoutEscape(text);
        if (isLanguage(line))
            return {languageInFive(plain), {}};
        if (!mayHaveWords(line) || goesOn(line))
            return {plain, {}};
        const auto phraseAt = phraseBelow(line);
        const PhrasedValue said{plain, phraseAt ? withoutEscape(utf16(lines_[*phraseAt].read.value)) : QString()};
        const PhrasedValue five = wordsInFive(line, said);
        if (phraseAt && five.phrase.isEmpty())
            saidAbove_ = *phraseAt;
        return {five.value, {}};
    }

    static PhrasedValue wordsInFive(const Pending& line, const PhrasedValue& said)
    {
        if (line.tag == "DATE")
            return dateInFive(said);
        return line.tag == "AGE" ? ageInFive(said) : enumerationInFive(line.parent, line.tag, said);
    }

    static QString utf16(std::string_view text)
    {
        return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    }

    /// 7.0 doubles an @ that a value begins with.
    static QString withoutEscape(const QString& text)
    {
        return text.startsWith(QStringView(u"@@")) ? text.sliced(1) : text;
    }

    /// Whether the text of the line has further lines.
    bool goesOn(const Pending& line) const { return childOf(line, "CONT").has_value(); }

    /// The only line that its text stands in.
    std::optional<std::size_t> phraseBelow(const Pending& line) const
    {
        const auto phrase = childOf(line, "PHRASE");
        if (!phrase || lines_[*phrase].read.isPointer)
            return std::nullopt;
        const bool isLast = *phrase + 1 == lines_.size();
        const bool isAlone = isLast || lines_[*phrase + 1].read.level.value_or(0) <= line.level + 1;
        return isAlone ? phrase : std::nullopt;
    }

    std::optional<std::size_t> childOf(const Pending& line, std::string_view tag) const
    {
        for (std::size_t at = line.at + 1; at < lines_.size(); ++at) {
            const GedcomLine& read = lines_[at].read;
            if (read.defect != LineDefect::None)
                continue;
            if (*read.level <= line.level)
                break;
            if (*read.level == line.level + 1 && read.tag == tag)
                return at;
        }
        return std::nullopt;
    }

    /// A CONT goes on by CONC lines beside it, any other line by such below it.
    std::string linesOf(const Pending& line, const std::string& tag, const QString& text) const
    {
        std::string lines = gedcomLines(line.level, tag, text, to_);
        if (line.tag != "CONT")
            return lines;
        const std::string below = '\n' + std::to_string(line.level + 1) + " CONC";
        const std::string beside = '\n' + std::to_string(line.level) + " CONC";
        for (auto at = lines.find(below); at != std::string::npos; at = lines.find(below, at + 1))
            lines.replace(at, below.size(), beside);
        return lines;
    }

    GedcomDialect to_;
    std::vector<Entry> lines_;
    std::optional<Pending> pending_;
    std::vector<std::string_view> above_;  ///< by level: the tags that lead to the line
    std::optional<std::size_t> saidAbove_; ///< a line whose words stand in another one already
    int textLevel_ = 0;                    ///< of the line whose text is being joined
    std::string out_;
};

} // namespace

std::string convertedLines(std::string_view text, GedcomDialect to)
{
    return LineConversion(text, to).result();
}

} // namespace lineara
