#include "person_reading.h"

#include "gedcom_date.h"
#include "gedcom_name.h"
#include "gedcom_notes.h"
#include "import_texts.h"
#include "node_ledger.h"

#include <QStringBuilder>

#include <algorithm>

namespace lineara {
namespace {

/// "day 5, month 3, year 1600", without what is absent.
QString inWords(const GedcomDate& date)
{
    QStringList words;
    if (date.day)
        words << ImportTexts::tr("day %1").arg(*date.day);
    if (date.month)
        words << ImportTexts::tr("month %1").arg(*date.month);
    if (date.year)
        words << ImportTexts::tr("year %1").arg(*date.year);
    return words.join(u", ");
}

bool hasContent(const GedcomDate& date)
{
    return date.day || date.month || date.year;
}

class PersonReader
{
public:
    PersonReader(const GedcomTree& tree, NodeLedger& ledger, SharedNotes& sharedNotes)
        : tree_(tree), ledger_(ledger), sharedNotes_(sharedNotes)
    {}

    PersonReading read()
    {
        ledger_.take(0);
        for (const NodeIndex line : tree_.children(0)) {
            const std::string_view tag = tree_[line].line.tag;
            if (tag == "NAME")
                readName(line);
            else if (tag == "BIRT")
                readEvent(line, reading_.birth, birth_);
            else if (tag == "DEAT")
                readEvent(line, reading_.death, death_);
            else if (tag == "NOTE" || tag == "SNOTE")
                readNote(line);
            else if (tag == "OBJE" || tag == "_PHOTO")
                reading_.pictures.push_back(line);
        }
        PersonValues& values = reading_.values;
        values.birthDay = birth_.day;
        values.birthMonth = birth_.month;
        values.birthYear = birth_.year;
        values.deathDay = death_.day;
        values.deathMonth = death_.month;
        values.deathYear = death_.year;
        return std::move(reading_);
    }

private:
    /// The first one counts; others stay what they are.
    void readName(NodeIndex line)
    {
        if (reading_.values.name)
            return;
        const QString name = nameOf(tree_, line);
        if (name.isEmpty()) {
            ledger_.reject(line, ImportTexts::tr("it is empty"));
            return;
        }
        ledger_.takeText(line);
        takePiecesWithin(line, name);
        reading_.values.name = name;
        reading_.name = line;
    }

    /// A piece that the whole name shows anyway is not lost.
    void takePiecesWithin(NodeIndex line, const QString& name)
    {
        for (const NodeIndex piece : tree_.children(line)) {
            const std::string_view tag = tree_[piece].line.tag;
            const bool isPiece = std::find(namePieces.begin(), namePieces.end(), tag) != namePieces.end();
            if (isPiece && showsPiece(name, tree_.text(piece)))
                ledger_.takeText(piece);
        }
    }

    /// The first date that says one counts, of the first event that has such a date.
    void readEvent(NodeIndex line, PersonReading::Event& event, GedcomDate& date)
    {
        for (const NodeIndex dateLine : tree_.children(line)) {
            if (hasContent(date))
                return;
            if (tree_[dateLine].line.tag != "DATE")
                continue;
            ledger_.take(line);
            const QByteArray text = tree_.textBytes(dateLine);
            date = readGedcomDate({text.constData(), static_cast<std::size_t>(text.size())});
            if (hasContent(date))
                event = {line, dateLine};
            account(dateLine, date);
        }
    }

    void account(NodeIndex line, const GedcomDate& date)
    {
        switch (date.reading) {
        case DateReading::Whole:
            ledger_.takeText(line);
            break;
        case DateReading::Part:
        case DateReading::Converted:
            ledger_.takeText(line);
            ledger_.takePart(line);
            ledger_.remark(line, ImportTexts::tr("was taken as %1").arg(inWords(date)));
            break;
        case DateReading::OtherCalendar:
            ledger_.reject(line, ImportTexts::tr("it is counted in another calendar"));
            break;
        case DateReading::Nothing:
            ledger_.reject(line, ImportTexts::tr("it is not understood as a date"));
            break;
        }
    }

    void readNote(NodeIndex line)
    {
        const QString note = tree_[line].line.isPointer ? sharedNotes_.read(tree_, ledger_, line) : inlineNote(line);
        if (note.isEmpty())
            return;
        auto& notes = reading_.values.additional;
        // In place: a copy for each of many notes would take its time.
        if (notes)
            *notes += u"\n\n" % note;
        else
            notes = note;
        reading_.notes.push_back(line);
    }

    QString inlineNote(NodeIndex line)
    {
        ledger_.takeText(line);
        return tree_.text(line);
    }

    const GedcomTree& tree_;
    NodeLedger& ledger_;
    SharedNotes& sharedNotes_;
    PersonReading reading_;
    GedcomDate birth_;
    GedcomDate death_;
};

} // namespace

QString nameOf(const GedcomTree& tree, NodeIndex line)
{
    const auto nick = tree.child(line, nicknameTag);
    const QString whole = plainName(tree.text(line));
    if (!whole.isEmpty())
        return nick ? plainName(tree.text(line), tree.text(*nick)) : whole;
    QStringList pieces;
    for (const std::string_view tag : namePieces) {
        const auto piece = tree.child(line, tag);
        if (piece && tag == nicknameTag)
            pieces << u'"' % tree.text(*piece).simplified() % u'"';
        else if (piece)
            pieces << tree.text(*piece);
    }
    return pieces.join(u' ').simplified();
}

QString shownName(const GedcomTree& tree)
{
    for (const NodeIndex line : tree.children(0)) {
        if (tree[line].line.tag != "NAME")
            continue;
        QString name = nameOf(tree, line);
        if (!name.isEmpty())
            return name;
    }
    return {};
}

PersonReading readPerson(const GedcomTree& tree, NodeLedger& ledger, SharedNotes& sharedNotes)
{
    return PersonReader(tree, ledger, sharedNotes).read();
}

} // namespace lineara
