#include "gedcom_export_dialect.h"

#include "gedcom_line.h"
#include "gedcom_tree.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <optional>

namespace lineara {
namespace {

struct Renaming
{
    std::u16string_view five;
    std::u16string_view seven;
};

constexpr std::array<Renaming, 6> calendars = {{{u"@#DGREGORIAN@", u"GREGORIAN"},
                                                {u"@#DJULIAN@", u"JULIAN"},
                                                {u"@#DHEBREW@", u"HEBREW"},
                                                {u"@#DFRENCH R@", u"FRENCH_R"},
                                                {u"@#DROMAN@", u"_ROMAN"},
                                                {u"@#DUNKNOWN@", u"_UNKNOWN"}}};
constexpr std::array<std::u16string_view, 3> eras = {u"B.C.", u"BC", u"B.C"};

QString textOf(std::u16string_view view)
{
    return QString::fromUtf16(view.data(), static_cast<qsizetype>(view.size()));
}

QString dateInSeven(QString date)
{
    for (const Renaming& calendar : calendars)
        date.replace(textOf(calendar.five), textOf(calendar.seven), Qt::CaseInsensitive);
    QStringList words = date.split(u' ');
    for (QString& word : words) {
        if (std::ranges::any_of(eras, [&](auto era) { return word.compare(textOf(era), Qt::CaseInsensitive) == 0; }))
            word = QStringLiteral("BCE");
    }
    return words.join(u' ');
}

QString dateInFive(const QString& date)
{
    QStringList words = date.split(u' ');
    for (QString& word : words) {
        const auto calendar =
            std::ranges::find_if(calendars, [&](const auto& one) { return word == textOf(one.seven); });
        if (calendar != calendars.end())
            word = textOf(calendar->five);
        else if (word == u"BCE")
            word = textOf(eras.front());
    }
    return words.join(u' ');
}

/// Reads lines, joins what belongs together, and writes it again.
class LineConversion
{
public:
    LineConversion(GedcomDialect from, GedcomDialect to) : from_(from), to_(to) {}

    void add(std::string_view raw)
    {
        const auto line = GedcomLineReader(raw).next();
        if (!line)
            return;
        if (line->defect != LineDefect::None) {
            flush();
            out_ += raw;
            out_ += '\n';
        } else if (pending_ && line->tag == "CONC" && *line->level == textLevel_ + 1) {
            goOn(*line);
        } else {
            flush();
            begin(*line);
        }
    }

    std::string result() &&
    {
        flush();
        return std::move(out_);
    }

private:
    struct Pending
    {
        int level;
        std::string_view xref;
        std::string_view tag;
        bool isPointer;
        std::string value;
    };

    /// A continuation is never a pointer.
    static std::string_view valueOf(const GedcomLine& line)
    {
        const bool isText = isContinuation(line.tag) && line.isPointer;
        return isText ? std::string_view(line.value.data() - 1, line.value.size() + 2) : line.value;
    }

    /// Words below a pointer are no part of it. 7.0 has no CONC that could hold them.
    void goOn(const GedcomLine& line)
    {
        if (!pending_->isPointer) {
            pending_->value += valueOf(line);
            return;
        }
        flush();
        begin(line);
        if (to_ == GedcomDialect::Seven)
            pending_->tag = "CONT";
    }

    void begin(const GedcomLine& line)
    {
        const bool isText = isContinuation(line.tag);
        textLevel_ = *line.level - (isText ? 1 : 0);
        pending_ = Pending{*line.level, line.xref, line.tag, line.isPointer && !isText, std::string(valueOf(line))};
    }

    void flush()
    {
        if (!pending_)
            return;
        const Pending line = *std::exchange(pending_, std::nullopt);
        std::string tag(tagOf(line));
        if (!line.xref.empty())
            tag = std::string(1, '@').append(line.xref).append("@ ").append(tag);
        if (line.isPointer)
            out_ += gedcomPointer(line.level, tag, line.value);
        else
            writeText(line, tag);
    }

    std::string_view tagOf(const Pending& line) const
    {
        const bool isShared = line.isPointer || (line.level == 0 && !line.xref.empty());
        if (!isShared)
            return line.tag;
        if (to_ == GedcomDialect::Seven && line.tag == "NOTE")
            return "SNOTE";
        return to_ == GedcomDialect::Five && line.tag == "SNOTE" ? "NOTE" : line.tag;
    }

    void writeText(const Pending& line, const std::string& tag)
    {
        QString text = QString::fromUtf8(line.value.data(), static_cast<qsizetype>(line.value.size()));
        QString phrase;
        if (line.tag == "DATE") {
            text = to_ == GedcomDialect::Seven ? dateInSeven(text) : dateInFive(text);
            if (to_ == GedcomDialect::Seven)
                phrase = takePhrase(text);
        }
        const bool hasCalendar = line.tag == "DATE" && text.contains(QStringView(u"@#"));
        if (from_ == GedcomDialect::Five)
            text = withSingleAts(text);
        else if (text.startsWith(QStringView(u"@@")))
            text.remove(0, 1);
        // An escape of a date is no text.
        out_ += hasCalendar ? std::to_string(line.level) + ' ' + tag + ' ' + text.toStdString() + '\n'
                            : linesOf(line, tag, text);
        if (!phrase.isEmpty())
            out_ += gedcomLines(line.level + 1, "PHRASE", phrase, to_);
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

    /// "(said to be old)" and "INT 1850 (said to be)": the words in brackets are a line of their own in 7.0.
    static QString takePhrase(QString& date)
    {
        const auto open = date.indexOf(u'(');
        const QString trimmed = date.trimmed();
        const bool isInterpreted = trimmed.startsWith(QStringView(u"INT "), Qt::CaseInsensitive);
        if (open < 0 || !trimmed.endsWith(u')') || !(trimmed.startsWith(u'(') || isInterpreted))
            return {};
        const auto close = date.lastIndexOf(u')');
        QString phrase = date.sliced(open + 1, close - open - 1);
        date = isInterpreted ? date.first(open).trimmed().sliced(4).trimmed() : QString();
        return phrase;
    }

    GedcomDialect from_;
    GedcomDialect to_;
    std::optional<Pending> pending_;
    int textLevel_ = 0; ///< of the line whose text is being joined
    std::string out_;
};

} // namespace

std::string convertedLines(std::string_view text, GedcomDialect from, GedcomDialect to)
{
    LineConversion conversion(from, to);
    while (!text.empty()) {
        const auto length = std::min(text.find('\n'), text.size());
        conversion.add(text.substr(0, length));
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return std::move(conversion).result();
}

} // namespace lineara
