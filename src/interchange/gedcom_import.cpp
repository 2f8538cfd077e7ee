#include "interchange/gedcom_import.h"

#include "gedcom_charset.h"
#include "gedcom_families.h"
#include "gedcom_persons.h"
#include "gedcom_tree.h"
#include "import_failure.h"
#include "import_notes.h"
#include "node_ledger.h"

#include "engine/link_rules.h"

#include <QFile>
#include <QFileInfo>
#include <QUuid>

namespace lineara {
namespace {

/// Longest file read. A line takes several times its length in memory while it is being looked at.
constexpr qint64 mostBytes = qint64{512} * 1024 * 1024;

/// Header lines that say how to read the file and are used up by that; others are told like everything else.
void takeFrame(const GedcomTree& tree, NodeLedger& ledger)
{
    for (const NodeIndex record : tree.records()) {
        if (tree[record].line.tag == "TRLR")
            ledger.take(record);
    }
    const auto header = tree.records().empty() ? NodeIndex{0} : tree.records().front();
    if (tree.records().empty() || tree[header].line.tag != "HEAD")
        return;
    ledger.take(header);
    if (const auto charset = tree.child(header, "CHAR"))
        ledger.take(*charset);
    if (const auto format = tree.child(header, "GEDC")) {
        ledger.take(*format);
        for (const std::string_view tag : {"VERS", "FORM"}) {
            if (const auto line = tree.child(*format, tag))
                ledger.take(*line);
        }
    }
}

/// Made of the content, so that importing a file twice gives the same family.
QUuid uuidOf(const QByteArray& bytes)
{
    static const QUuid importedFamilies(QStringLiteral("5f4a6d51-27b3-4c0e-9d6a-2d5d0a1c7e90"));
    return QUuid::createUuidV5(importedFamilies, bytes);
}

QString refusal(engine::LinkVerdict verdict, const QString& parent, const QString& child)
{
    switch (verdict) {
    case engine::LinkVerdict::SamePerson:
        return QStringLiteral("%1 can't be a parent of the same person").arg(parent);
    case engine::LinkVerdict::TwoParents:
        return QStringLiteral("%1 would be a third parent of %2").arg(parent, child);
    case engine::LinkVerdict::Cycle:
        return QStringLiteral("%1 as a parent of %2 would be a descendant of %2").arg(parent, child);
    case engine::LinkVerdict::Allowed:
        break;
    }
    return {};
}

/// Makes records of what was read.
class FamilyBuilder
{
public:
    explicit FamilyBuilder(QUuid uuid) : context_(std::make_unique<ObjectContext>(uuid)), pause_(context_->journal()) {}

    void addPersons(const GedcomPersons& persons)
    {
        Pool& pool = context_->insertPool();
        records_.reserve(persons.size());
        for (engine::PersonIndex index = 0; index < persons.size(); ++index) {
            Person& person = context_->insertPerson(persons.values(index));
            pool.addPerson(person);
            records_.push_back(&person);
        }
    }

    void addPartners(const FamilyWishes& wishes)
    {
        for (const auto& couple : wishes.partners)
            records_[couple.first]->addPartner(*records_[couple.second]);
    }

    /// Returns the number of links made; the others are told.
    std::size_t addOffspring(const FamilyWishes& wishes, const GedcomPersons& persons, NodeLedger& ledger)
    {
        std::vector<engine::OffspringWish> asked;
        asked.reserve(wishes.offspring.size());
        for (const auto& wish : wishes.offspring)
            asked.push_back({wish.parent, wish.child});
        const auto verdicts = engine::judgeOffspring(persons.size(), asked);

        std::size_t made = 0;
        for (std::size_t i = 0; i < verdicts.size(); ++i) {
            const auto& [parent, child, line] = wishes.offspring[i];
            if (verdicts[i] == engine::LinkVerdict::Allowed) {
                records_[parent]->addChild(*records_[child]);
                ++made;
            } else {
                ledger.refuse(line, refusal(verdicts[i], persons.label(parent), persons.label(child)));
            }
        }
        return made;
    }

    std::unique_ptr<ObjectContext> finish() && { return std::move(context_); }

private:
    std::unique_ptr<ObjectContext> context_;
    Journal::Pause pause_;
    std::vector<Person*> records_;
};

} // namespace

Outcome<ImportedFamily> importGedcom(const QByteArray& bytes, const QString& name)
{
    ImportNotes notes;
    const auto text = gedcomText(bytes, name, notes);
    if (text.failed())
        return text.failure();
    const GedcomTree tree = GedcomTree::read(text.value(), notes);
    if (tree.records().empty())
        return notGedcom(name);

    NodeLedger ledger(tree, notes);
    takeFrame(tree, ledger);
    const GedcomPersons persons = GedcomPersons::read(tree, ledger);
    const FamilyWishes wishes = readFamilies(tree, persons, ledger);

    ImportedFamily family;
    {
        FamilyBuilder builder(uuidOf(bytes));
        builder.addPersons(persons);
        builder.addPartners(wishes);
        family.report.offspringLinks = builder.addOffspring(wishes, persons, ledger);
        family.context = std::move(builder).finish();
    }
    family.report.persons = persons.size();
    family.report.families = wishes.families;
    family.report.partnerLinks = wishes.partners.size();
    ledger.tellRest();
    notes.writeTo(family.report);
    return family;
}

Outcome<ImportedFamily> importGedcomFile(const QString& path)
{
    const QString name = QFileInfo(path).fileName();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return importFailure(name, file.errorString() + u'.');
    const QByteArray bytes = file.read(mostBytes + 1);
    if (file.error() != QFileDevice::NoError)
        return importFailure(name, file.errorString() + u'.');
    if (bytes.size() > mostBytes)
        return importFailure(name, QStringLiteral("it has more than 512 MB."));
    return importGedcom(bytes, name);
}

} // namespace lineara
