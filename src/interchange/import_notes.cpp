#include "import_notes.h"

#include "import_texts.h"

#include <QStringBuilder>

#include <algorithm>

namespace lineara {
namespace {

constexpr std::size_t longestQuote = 60;
constexpr std::size_t mostBytesPerUnit = 4;

} // namespace

QString inQuotes(std::string_view utf8)
{
    const auto bytes = utf8.substr(0, longestQuote * mostBytesPerUnit);
    QString text = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size())).simplified();
    const bool isCut = bytes.size() < utf8.size() || text.size() > qsizetype{longestQuote};
    text.truncate(qsizetype{longestQuote});
    if (!text.isEmpty() && text.back().isHighSurrogate())
        text.chop(1);
    return u'"' % printable(text) % (isCut ? u"…\"" : u"\"");
}

QString printable(QString text)
{
    for (QChar& unit : text) {
        if (!unit.isPrint() && !unit.isSurrogate())
            unit = QChar::ReplacementCharacter;
    }
    return text;
}

void ImportNotes::unreadable(std::uint32_t line, const QString& what)
{
    ++unreadable_;
    add(line, what);
}

void ImportNotes::notTaken(std::uint32_t line, const QString& what)
{
    ++notTaken_;
    add(line, what);
}

void ImportNotes::refused(std::uint32_t line, const QString& reason, const QString& what)
{
    const auto known =
        std::find_if(refusals_.begin(), refusals_.end(), [&](const auto& refusal) { return refusal.reason == reason; });
    if (known == refusals_.end())
        refusals_.push_back({reason, 1});
    else
        ++known->links;
    add(line, what);
}

void ImportNotes::remark(std::uint32_t line, const QString& what)
{
    add(line, what);
}

void ImportNotes::aboutFile(const QString& what)
{
    notes_.push_back({0, what});
}

void ImportNotes::add(std::uint32_t line, const QString& what)
{
    if (notes_.size() < mostNotes)
        notes_.push_back({line, ImportTexts::tr("line %1: %2").arg(QString::number(line), what)});
    else
        ++untold_;
}

void ImportNotes::writeTo(ImportReport& report)
{
    report.takenLines = taken_;
    report.unreadableLines = unreadable_;
    report.notTaken = notTaken_;
    report.kept = kept_.list();
    for (const auto& kept : report.kept)
        report.keptLines += kept.lines;
    report.lines = report.takenLines + report.keptLines + report.notTaken + report.unreadableLines;
    report.refusals = std::move(refusals_);
    for (const auto& refusal : report.refusals)
        report.refusedLinks += refusal.links;
    std::stable_sort(notes_.begin(), notes_.end(), [](const Note& a, const Note& b) { return a.line < b.line; });
    report.notes.reserve(static_cast<qsizetype>(notes_.size()) + 1);
    for (Note& note : notes_)
        report.notes.append(std::move(note.text));
    notes_.clear();
    if (untold_ > 0)
        report.notes.append(ImportTexts::tr("and %1 more notes of the same kinds").arg(untold_));
}

} // namespace lineara
