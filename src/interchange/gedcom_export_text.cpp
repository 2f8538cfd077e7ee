#include "gedcom_export_text.h"

#include "date_words.h"
#include "gedcom_name.h"

#include <QStringBuilder>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace lineara {
namespace {

constexpr std::array<QStringView, 12> monthNames = {u"JAN", u"FEB", u"MAR", u"APR", u"MAY", u"JUN",
                                                    u"JUL", u"AUG", u"SEP", u"OCT", u"NOV", u"DEC"};
constexpr qsizetype longestLine = 255;

void appendUtf8(std::string& out, QStringView text)
{
    const QByteArray bytes = text.toUtf8();
    out.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

std::string lineStart(int level, std::string_view tag)
{
    std::string start = std::to_string(level);
    start += ' ';
    start += tag;
    return start;
}

/// Other programs drop blanks at the ends of lines, and know nothing of halves of characters.
bool mayBeCut(QStringView text, qsizetype at)
{
    const QChar before = text[at - 1];
    const QChar after = text[at];
    return !before.isSpace() && !after.isSpace() && !before.isHighSurrogate() && !(before == u'@' && after == u'@');
}

/// Where to cut a text that is longer than `room`: as far behind as it may be.
qsizetype cutOf(QStringView text, qsizetype room)
{
    for (qsizetype at = room; at > 0; --at) {
        if (mayBeCut(text, at))
            return at;
    }
    return text[room - 1].isHighSurrogate() ? room - 1 : room;
}

/// One line, and the CONC lines that take what it has no room for.
void appendCut(std::string& out, int level, std::string_view tag, int concLevel, QStringView text, bool hasLimit)
{
    std::string start = lineStart(level, tag);
    for (;;) {
        out += start;
        const qsizetype room = longestLine - static_cast<qsizetype>(start.size()) - 1;
        const qsizetype cut = hasLimit && text.size() > room ? cutOf(text, room) : text.size();
        if (!text.isEmpty()) {
            out += ' ';
            appendUtf8(out, text.first(cut));
        }
        out += '\n';
        text = text.sliced(cut);
        if (text.isEmpty())
            return;
        start = lineStart(concLevel, "CONC");
    }
}

QString escaped(QStringView line, GedcomDialect dialect)
{
    if (dialect == GedcomDialect::Five)
        return withDoubledAts(line);
    return line.startsWith(u'@') ? QString(u'@' % line) : line.toString();
}

QString withSurname(const QString& name, qsizetype at, qsizetype length)
{
    return QString(name.first(at) % u'/' % name.sliced(at, length) % u'/' % name.sliced(at + length));
}

bool isWholeWord(const QString& text, qsizetype at, qsizetype length)
{
    const bool begins = at == 0 || text[at - 1] == u' ';
    const bool ends = at + length == text.size() || text[at + length] == u' ';
    return begins && ends;
}

/// The last word of the name, or of as much of it, is taken for the surname unless it is the only one.
QString withLastWordAsSurname(const QString& name, qsizetype length)
{
    const qsizetype lastWord = name.first(length).lastIndexOf(u' ') + 1;
    return lastWord > 0 ? withSurname(name, lastWord, length - lastWord) : name;
}

/// The changed name with slashes where the former one had them, else around its last word before the suffix.
QString likeFormer(const QString& name, const QString& former, qsizetype open, qsizetype close)
{
    const QString surname = former.sliced(open + 1, close - open - 1).simplified();
    if (surname.isEmpty())
        return QString(name % u" //");
    const qsizetype at = name.lastIndexOf(surname);
    if (at >= 0 && isWholeWord(name, at, surname.size()))
        return withSurname(name, at, surname.size());
    const QString given = former.first(open).simplified();
    const QString suffix = former.sliced(close + 1).simplified();
    const qsizetype begin = given.isEmpty() ? 0 : given.size() + 1;
    const bool keepsSuffix = suffix.isEmpty() || name.endsWith(QString(u' ' % suffix));
    const qsizetype end = name.size() - (suffix.isEmpty() || !keepsSuffix ? 0 : suffix.size() + 1);
    const bool keepsGiven = given.isEmpty() || name.startsWith(QString(given % u' '));
    return keepsSuffix && keepsGiven && begin < end ? withSurname(name, begin, end - begin)
                                                    : withLastWordAsSurname(name, end);
}

/// A word of a date that holds a number of the former one, with that of the other in its place.
bool exchangeNumber(QStringList& words, const QString& from, const QString& to)
{
    for (QString& word : words) {
        if (word != from && !(from.size() == 1 && word == QString(u'0' % from)))
            continue;
        word = to;
        return true;
    }
    return false;
}

bool exchangeMonth(QStringList& words, std::int32_t from, std::int32_t to)
{
    const auto name = [](std::int32_t month) { return monthNames[static_cast<std::size_t>(month - 1)].toString(); };
    for (QString& word : words) {
        if (word.compare(name(from), Qt::CaseInsensitive) != 0)
            continue;
        word = name(to);
        return true;
    }
    return false;
}

bool exchangeParts(QStringList& words, const GedcomDate& from, const GedcomDate& to)
{
    const bool sameParts = from.day.has_value() == to.day.has_value() &&
                           from.month.has_value() == to.month.has_value() && from.year && to.year &&
                           (*from.year < 0) == (*to.year < 0);
    if (!sameParts || (to.month && (*to.month < 1 || *to.month > 12)))
        return false;
    const auto digits = [](std::int32_t number) { return QString::number(std::abs(std::int64_t{number})); };
    return (*from.year == *to.year || exchangeNumber(words, digits(*from.year), digits(*to.year))) &&
           (from.month == to.month || exchangeMonth(words, *from.month, *to.month)) &&
           (from.day == to.day || exchangeNumber(words, digits(*from.day), digits(*to.day)));
}

/// The year in which a range ends ("BET 1850 AND 1860"), if the words are one.
std::optional<std::int32_t> lastYear(const QStringList& words)
{
    const auto opens = [](const QString& word) { return isRangeOpener(word.toUpper().toStdString()); };
    const auto parts = [](const QString& word) {
        return word.compare(QStringView(u"AND"), Qt::CaseInsensitive) == 0 ||
               word.compare(QStringView(u"TO"), Qt::CaseInsensitive) == 0;
    };
    const auto begin = std::find_if(words.begin(), words.end(), opens);
    const auto middle = std::find_if(begin, words.end(), parts);
    if (middle == words.end())
        return std::nullopt;
    return readDate(words.sliced(middle - words.begin() + 1).join(u' ')).year;
}

} // namespace

QString withLineFeeds(QStringView text)
{
    if (!text.contains(u'\r'))
        return text.toString();
    QString plain;
    plain.reserve(text.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        const bool isPair = text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n';
        if (!isPair)
            plain += text[at] == u'\r' ? QChar(u'\n') : text[at];
    }
    return plain;
}

QString withDoubledAts(QStringView text)
{
    if (!text.contains(u'@'))
        return text.toString();
    QString doubled;
    doubled.reserve(text.size() + text.count(u'@'));
    for (const QChar character : text) {
        doubled += character;
        if (character == u'@')
            doubled += character;
    }
    return doubled;
}

QString withSingleAts(QStringView text)
{
    QString single;
    single.reserve(text.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        single += text[at];
        if (text[at] == u'@' && at + 1 < text.size() && text[at + 1] == u'@')
            ++at;
    }
    return single;
}

std::string gedcomLines(int level, std::string_view tag, QStringView text, GedcomDialect dialect)
{
    const QString plain = withLineFeeds(text);
    std::string out;
    bool isFirst = true;
    for (const QStringView line : QStringView(plain).split(u'\n')) {
        const QString value = escaped(line, dialect);
        appendCut(out, isFirst ? level : level + 1, isFirst ? tag : "CONT", level + 1, value,
                  dialect == GedcomDialect::Five);
        isFirst = false;
    }
    return out;
}

std::string gedcomRecord(std::string_view xref, std::string_view tag)
{
    std::string line("0 @");
    line += xref;
    line += "@ ";
    line += tag;
    line += '\n';
    return line;
}

std::string numberedXref(char letter, std::uint64_t number)
{
    std::string xref(1, letter);
    xref += std::to_string(number);
    return xref;
}

std::string gedcomPointer(int level, std::string_view tag, std::string_view xref)
{
    return lineStart(level, tag) + " @" + std::string(xref) + "@\n";
}

QString gedcomName(const QString& name, const QString& former)
{
    const QString plain = name.simplified();
    // Only the outermost slashes are taken for those around the surname.
    if (plain.contains(u'/'))
        return QString(u'/' % plain % u'/');
    const qsizetype open = former.indexOf(u'/');
    const qsizetype close = former.lastIndexOf(u'/');
    if (close > open)
        return likeFormer(plain, former, open, close);
    return former.isEmpty() ? withLastWordAsSurname(plain, plain.size()) : plain;
}

QString changedName(const QString& name, const QString& former, const QString& nickname)
{
    const QString added = u'"' % nickname.simplified() % u'"';
    if (plainName(former, nickname) != plainName(former) && name.contains(added)) {
        QString bare = name;
        bare.remove(bare.indexOf(added), added.size());
        QString value = gedcomName(bare, former);
        if (plainName(value, nickname) == name)
            return value;
    }
    return gedcomName(name, former);
}

QString gedcomDate(const GedcomDate& date, GedcomDialect dialect)
{
    QStringList words;
    const bool hasMonth = date.month && *date.month >= 1 && *date.month <= 12;
    if (date.day && hasMonth)
        words << QString::number(*date.day);
    if (hasMonth)
        words << monthNames[static_cast<std::size_t>(*date.month - 1)].toString();
    if (date.year) {
        words << QString::number(std::abs(std::int64_t{*date.year}));
        if (*date.year < 0)
            words << (dialect == GedcomDialect::Five ? QStringView(u"B.C.") : QStringView(u"BCE")).toString();
    }
    return words.join(u' ');
}

QString changedDate(const QString& former, const GedcomDate& date, GedcomDialect dialect)
{
    // "INT 1900 (about 1900)": the words in brackets are about the former date.
    QStringList words = former.trimmed().endsWith(u')') ? QStringList() : former.split(u' ');
    if (!words.isEmpty() && exchangeParts(words, readDate(former), date)) {
        QString changed = words.join(u' ');
        const auto last = lastYear(words);
        const bool isReversed = last && date.year && *date.year > *last;
        if (!isReversed && sameDay(readDate(changed), date))
            return changed;
    }
    return gedcomDate(date, dialect);
}

GedcomDate readDate(const QString& value)
{
    const QByteArray bytes = value.toUtf8();
    return readGedcomDate({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

bool saysSomething(const GedcomDate& date)
{
    return date.day || date.month || date.year;
}

bool sameDay(const GedcomDate& a, const GedcomDate& b)
{
    return a.day == b.day && a.month == b.month && a.year == b.year;
}

} // namespace lineara
