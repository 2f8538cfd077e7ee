#include "gedcom_persons.h"

#include "gedcom_date.h"
#include "gedcom_name.h"
#include "gedcom_notes.h"
#include "import_texts.h"
#include "node_ledger.h"

#include <QStringBuilder>

#include <algorithm>
#include <array>

namespace lineara {
namespace {

constexpr std::array<std::string_view, 5> namePieces = {"NPFX", "GIVN", "SPFX", "SURN", "NSFX"};

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

/// Reads what stands below one INDI record. The pointers to families are left to the families.
class PersonReader
{
public:
    PersonReader(const GedcomTree& tree, NodeLedger& ledger, SharedNotes& sharedNotes)
        : tree_(tree), ledger_(ledger), sharedNotes_(sharedNotes)
    {}

    PersonValues read(NodeIndex record)
    {
        ledger_.take(record);
        for (const NodeIndex line : tree_.children(record)) {
            const std::string_view tag = tree_[line].line.tag;
            if (tag == "NAME")
                readName(line);
            else if (tag == "BIRT")
                readEvent(line, birth_, ImportTexts::tr("only one birth is kept"));
            else if (tag == "DEAT")
                readEvent(line, death_, ImportTexts::tr("only one death is kept"));
            else if (tag == "NOTE" || tag == "SNOTE")
                readNote(line);
        }
        return std::move(*this).values();
    }

private:
    PersonValues values() &&
    {
        values_.birthDay = birth_.day;
        values_.birthMonth = birth_.month;
        values_.birthYear = birth_.year;
        values_.deathDay = death_.day;
        values_.deathMonth = death_.month;
        values_.deathYear = death_.year;
        return std::move(values_);
    }

    void readName(NodeIndex line)
    {
        if (values_.name) {
            ledger_.reject(line, ImportTexts::tr("only one name is kept"));
            return;
        }
        QString name = plainName(tree_.text(line));
        if (name.isEmpty())
            name = nameFromPieces(line);
        if (name.isEmpty()) {
            ledger_.reject(line, ImportTexts::tr("it is empty"));
            return;
        }
        ledger_.takeText(line);
        takePiecesWithin(line, name);
        values_.name = ledger_.writable(line, name);
    }

    QString nameFromPieces(NodeIndex line) const
    {
        QStringList pieces;
        for (const std::string_view tag : namePieces) {
            if (const auto piece = tree_.child(line, tag))
                pieces << tree_.text(*piece);
        }
        return pieces.join(u' ').simplified();
    }

    /// A piece that the whole name shows anyway is not lost.
    void takePiecesWithin(NodeIndex line, const QString& name)
    {
        for (const std::string_view tag : namePieces) {
            const auto piece = tree_.child(line, tag);
            if (piece && name.contains(tree_.text(*piece).simplified()))
                ledger_.takeText(*piece);
        }
    }

    void readEvent(NodeIndex line, GedcomDate& date, const QString& whyNotAnother)
    {
        const auto dateLine = tree_.child(line, "DATE");
        if (!dateLine)
            return;
        if (hasContent(date)) {
            ledger_.reject(line, whyNotAnother);
            return;
        }
        ledger_.take(line);
        date = readGedcomDate(tree_.text(*dateLine));
        account(*dateLine, date);
    }

    void account(NodeIndex line, const GedcomDate& date)
    {
        switch (date.reading) {
        case DateReading::Whole:
            ledger_.takeText(line);
            break;
        case DateReading::Part:
            ledger_.takeText(line);
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
        const QString note = tree_[line].line.isPointer ? sharedNotes_.read(line) : inlineNote(line);
        if (note.isEmpty())
            return;
        values_.additional = values_.additional ? *values_.additional % u"\n\n" % note : note;
    }

    QString inlineNote(NodeIndex line)
    {
        ledger_.takeText(line);
        return ledger_.writable(line, tree_.text(line));
    }

    const GedcomTree& tree_;
    NodeLedger& ledger_;
    SharedNotes& sharedNotes_;
    PersonValues values_;
    GedcomDate birth_;
    GedcomDate death_;
};

} // namespace

GedcomPersons GedcomPersons::read(const GedcomTree& tree, NodeLedger& ledger, const Progress& progress)
{
    GedcomPersons persons;
    SharedNotes sharedNotes(tree, ledger);
    for (const NodeIndex record : tree.records()) {
        const GedcomLine& line = tree[record].line;
        if (line.tag != "INDI")
            continue;
        if (!progress.goesOn(persons.persons_.size(), record, tree.size()))
            break;
        persons.persons_.push_back({record, line.number, PersonReader(tree, ledger, sharedNotes).read(record)});
        if (line.xref.empty())
            ledger.remark(record, ImportTexts::tr("has no cross-reference, so that no family can name this person"));
    }
    return persons;
}

std::optional<engine::PersonIndex> GedcomPersons::of(NodeIndex record) const
{
    const auto found = std::lower_bound(persons_.begin(), persons_.end(), record,
                                        [](const Entry& entry, NodeIndex wanted) { return entry.record < wanted; });
    if (found == persons_.end() || found->record != record)
        return std::nullopt;
    return static_cast<engine::PersonIndex>(found - persons_.begin());
}

QString GedcomPersons::label(engine::PersonIndex person) const
{
    const Entry& entry = persons_[person];
    return entry.values.name ? *entry.values.name : ImportTexts::tr("the person of line %1").arg(entry.line);
}

} // namespace lineara
