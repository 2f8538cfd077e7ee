#include "gedcom_export_person.h"

#include "gedcom_name.h"

#include <QStringBuilder>

#include <algorithm>

namespace lineara {
namespace {

using Line = EditedRecord::Line;

GedcomDate birthOf(const PersonValues& values)
{
    return {values.birthDay, values.birthMonth, values.birthYear};
}

GedcomDate deathOf(const PersonValues& values)
{
    return {values.deathDay, values.deathMonth, values.deathYear};
}

class PersonEditor
{
public:
    PersonEditor(EditedRecord& record, const SharedNoteText& sharedNote) : record_(record), sharedNote_(sharedNote) {}

    void changeName(const std::optional<QString>& name)
    {
        const QString plain = name.value_or(QString()).simplified();
        if (plain.isEmpty()) {
            withdrawNames();
            return;
        }
        const auto line = nameLine();
        if (!line) {
            record_.insert(afterText(0), gedcomLines(1, "NAME", gedcomName(plain), record_.dialect()));
            return;
        }
        const auto nickname = record_.child(*line, nicknameTag);
        const QString value = changedName(plain, record_.text(*line), nickname ? record_.text(*nickname) : QString());
        record_.replace(*line, gedcomLines(1, "NAME", value, record_.dialect()));
        for (const Line piece : record_.children(*line)) {
            const bool isPiece = std::ranges::find(namePieces, record_[piece].tag) != namePieces.end();
            if (isPiece && !showsPiece(plain, record_.text(piece)))
                record_.strike(piece);
        }
    }

    void changeEvent(std::string_view tag, std::string_view placeAfter, const GedcomDate& date)
    {
        const QString plain = gedcomDate(date, record_.dialect());
        if (plain.isEmpty()) {
            withdrawDates(tag);
            return;
        }
        const auto event = eventLine(tag);
        if (const auto dateLine = event ? this->dateLine(*event) : std::nullopt) {
            changeDate(*dateLine, date);
            return;
        }
        const std::string lines = gedcomLines(2, "DATE", plain, record_.dialect());
        if (event)
            record_.insert(afterText(*event), lines);
        else
            record_.insert(placeOf(tag, placeAfter), gedcomLines(1, tag, {}, record_.dialect()) + lines);
    }

    void changeNotes(const std::optional<QString>& notes)
    {
        std::vector<Line> lines = noteLines();
        const QString text = withLineFeeds(notes.value_or(QString()));
        QStringView rest = text;
        const std::size_t kept = keepFirst(lines, rest);
        const Line place = kept > 0 ? record_.end(lines[kept - 1]) : record_.size();
        lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(kept));
        keepLast(lines, rest);
        replaceNotes(lines, rest, lines.empty() ? place : lines.front());
    }

private:
    /// Where a line's own text ends, and what stands below it begins.
    Line afterText(Line line) const
    {
        Line at = line + 1;
        while (at < record_.size() && (record_[at].tag == "CONC" || record_[at].tag == "CONT"))
            ++at;
        return at;
    }

    /// The first one that says a name.
    std::optional<Line> nameLine() const
    {
        const auto names = record_.children(0, "NAME");
        const auto found = std::ranges::find_if(names, [this](Line line) { return saysName(line); });
        return found == names.end() ? std::nullopt : std::optional(*found);
    }

    bool saysName(Line line) const
    {
        if (!plainName(record_.text(line)).isEmpty())
            return true;
        return std::ranges::any_of(record_.children(line), [this](Line piece) {
            return std::ranges::find(namePieces, record_[piece].tag) != namePieces.end() &&
                   !record_.text(piece).simplified().isEmpty();
        });
    }

    /// Any that stayed would be read as the person's name.
    void withdrawNames()
    {
        for (const Line line : record_.children(0, "NAME")) {
            if (saysName(line))
                record_.strike(line);
        }
    }

    bool saysDate(Line date) const { return saysSomething(readDate(record_.text(date))); }

    /// The first date of an event that says something; else the first of all.
    std::optional<Line> dateLine(Line event) const
    {
        const auto dates = record_.children(event, "DATE");
        const auto found = std::ranges::find_if(dates, [this](Line date) { return saysDate(date); });
        return found != dates.end() ? std::optional(*found)
               : dates.empty()      ? std::nullopt
                                    : std::optional(dates.front());
    }

    /// The first one with a date that says something; else the first of all.
    std::optional<Line> eventLine(std::string_view tag) const
    {
        const auto events = record_.children(0, tag);
        for (const Line event : events) {
            const auto date = dateLine(event);
            if (date && saysDate(*date))
                return event;
        }
        return events.empty() ? std::nullopt : std::optional(events.front());
    }

    /// Words about the former date go with it.
    void changeDate(Line line, const GedcomDate& date)
    {
        const QString changed = changedDate(record_.text(line), date, record_.dialect());
        record_.replace(line, gedcomLines(2, "DATE", changed, record_.dialect()));
        for (const Line phrase : record_.children(line, "PHRASE"))
            record_.strike(phrase);
    }

    /// Any date that stayed would be read as the person's. An event of which nothing is left goes with its dates.
    void withdrawDates(std::string_view tag)
    {
        for (const Line event : record_.children(0, tag)) {
            bool isChanged = false;
            for (const Line date : record_.children(event, "DATE")) {
                if (!saysDate(date))
                    continue;
                record_.strike(date);
                isChanged = true;
            }
            if (isChanged && record_.children(event).empty() && record_[event].value.empty())
                record_.strike(event);
        }
    }

    Line placeOf(std::string_view tag, std::string_view placeAfter) const
    {
        Line place = afterText(0);
        for (const Line line : record_.children(0)) {
            const std::string_view other = record_[line].tag;
            if (other == "NAME" || other == "SEX" || other == tag || other == placeAfter)
                place = record_.end(line);
        }
        return place;
    }

    std::vector<Line> noteLines() const
    {
        std::vector<Line> found;
        for (const Line line : record_.children(0)) {
            const bool isNote = record_[line].tag == "NOTE" || record_[line].tag == "SNOTE";
            if (isNote && !textOf(line).isEmpty())
                found.push_back(line);
        }
        return found;
    }

    QString textOf(Line note) const
    {
        return record_[note].isPointer ? sharedNote_(record_[note].value) : record_.text(note);
    }

    /// Takes the notes that the text still begins with from it; returns how many those are.
    std::size_t keepFirst(const std::vector<Line>& lines, QStringView& rest) const
    {
        std::size_t kept = 0;
        for (const Line line : lines) {
            const QString text = textOf(line);
            const bool isAll = rest == text;
            if (!isAll && !rest.startsWith(QString(text % u"\n\n")))
                break;
            rest = rest.sliced(isAll ? rest.size() : text.size() + 2);
            ++kept;
            if (isAll)
                break;
        }
        return kept;
    }

    /// The same from the end; the lines that stay are taken from `lines`.
    void keepLast(std::vector<Line>& lines, QStringView& rest) const
    {
        while (!lines.empty()) {
            const QString text = textOf(lines.back());
            const bool isAll = rest == text;
            if (!isAll && !rest.endsWith(QString(u"\n\n" % text)))
                return;
            rest.chop(isAll ? rest.size() : text.size() + 2);
            lines.pop_back();
        }
    }

    /// One note takes the place of all these.
    void replaceNotes(const std::vector<Line>& lines, QStringView text, Line place)
    {
        const std::string note = text.isEmpty() ? std::string() : gedcomLines(1, "NOTE", text, record_.dialect());
        const auto own = std::ranges::find_if(lines, [this](Line line) { return !record_[line].isPointer; });
        for (const Line line : lines) {
            if (note.empty() || own == lines.end() || line != *own)
                record_.strike(line);
        }
        if (!note.empty() && own != lines.end())
            record_.replace(*own, note);
        else if (!note.empty())
            record_.insert(place, note);
    }

    EditedRecord& record_;
    const SharedNoteText& sharedNote_;
};

} // namespace

void changeValues(EditedRecord& record, const PersonValues& before, const PersonValues& after,
                  const SharedNoteText& sharedNote)
{
    PersonEditor editor(record, sharedNote);
    if (before.name != after.name)
        editor.changeName(after.name);
    if (!sameDay(birthOf(before), birthOf(after)))
        editor.changeEvent("BIRT", {}, birthOf(after));
    if (!sameDay(deathOf(before), deathOf(after)))
        editor.changeEvent("DEAT", "BIRT", deathOf(after));
    if (before.additional != after.additional)
        editor.changeNotes(after.additional);
}

std::string newPersonRecord(std::string_view xref, const PersonValues& values, GedcomDialect dialect)
{
    std::string out = gedcomRecord(xref, "INDI");
    if (values.name && !values.name->simplified().isEmpty())
        out += gedcomLines(1, "NAME", gedcomName(*values.name), dialect);
    const auto addEvent = [&](std::string_view tag, const GedcomDate& date) {
        if (const QString text = gedcomDate(date, dialect); !text.isEmpty())
            out += gedcomLines(1, tag, {}, dialect) + gedcomLines(2, "DATE", text, dialect);
    };
    addEvent("BIRT", birthOf(values));
    addEvent("DEAT", deathOf(values));
    if (values.additional && !values.additional->isEmpty())
        out += gedcomLines(1, "NOTE", *values.additional, dialect);
    return out;
}

} // namespace lineara
