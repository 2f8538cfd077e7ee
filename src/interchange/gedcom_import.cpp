#include "interchange/gedcom_import.h"

#include "gedcom_charset.h"
#include "gedcom_families.h"
#include "gedcom_persons.h"
#include "gedcom_tree.h"
#include "import_failure.h"
#include "import_notes.h"
#include "node_ledger.h"

#include "engine/link_rules.h"
#include "import_texts.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

namespace lineara {
namespace {

/// Longest file read. A line takes several times its length in memory while it is being looked at.
constexpr qint64 mostBytes = qint64{512} * 1024 * 1024;

/// At most one byte more than can be read.
Outcome<QByteArray> bytesOf(QFile& file, const QString& name, const Progress& progress)
{
    constexpr qint64 pieceSize = qint64{4} * 1024 * 1024;
    const qint64 expected = std::min(file.size(), mostBytes);
    QByteArray bytes;
    bytes.reserve(expected + 1);
    while (bytes.size() <= mostBytes) {
        const QByteArray piece = file.read(std::min(pieceSize, mostBytes + 1 - bytes.size()));
        if (file.error() != QFileDevice::NoError)
            return importFailure(name, file.errorString() + u'.');
        if (piece.isEmpty())
            break;
        bytes += piece;
        if (!progress.goesOn(static_cast<double>(bytes.size()) / static_cast<double>(std::max(expected, bytes.size()))))
            return stoppedImport(name);
    }
    return bytes;
}

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

/// Made of the content, so that importing a file twice gives the same family: a name-based UUID of version 5, worked
/// out piece by piece. Of no use if the progress is stopped meanwhile.
QUuid uuidOf(const QByteArray& bytes, const Progress& progress)
{
    constexpr qsizetype pieceSize = 1024 * 1024;
    static const QUuid importedFamilies(QStringLiteral("5f4a6d51-27b3-4c0e-9d6a-2d5d0a1c7e90"));
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(importedFamilies.toRfc4122());
    for (qsizetype at = 0; at < bytes.size(); at += pieceSize) {
        if (!progress.goesOn(static_cast<double>(at) / static_cast<double>(bytes.size())))
            break;
        hash.addData(QByteArrayView(bytes).sliced(at, std::min(pieceSize, bytes.size() - at)));
    }
    auto uuid = QUuid::fromRfc4122(QByteArrayView(hash.result()).first(16));
    uuid.data3 = static_cast<ushort>((uuid.data3 & 0x0FFF) | 0x5000);
    uuid.data4[0] = static_cast<uchar>((uuid.data4[0] & 0x3F) | 0x80);
    return uuid;
}

QString refusal(engine::LinkVerdict verdict, const QString& parent, const QString& child)
{
    switch (verdict) {
    case engine::LinkVerdict::SamePerson:
        return ImportTexts::tr("%1 can't be a parent of the same person").arg(parent);
    case engine::LinkVerdict::TwoParents:
        return ImportTexts::tr("%1 would be a third parent of %2").arg(parent, child);
    case engine::LinkVerdict::Cycle:
        return ImportTexts::tr("%1 as a parent of %2 would be a descendant of %2").arg(parent, child);
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

    /// Not all of them if the progress is stopped meanwhile.
    void addPersons(const GedcomPersons& persons, const Progress& progress)
    {
        Pool& pool = context_->insertPool();
        records_.reserve(persons.size());
        for (engine::PersonIndex index = 0; index < persons.size(); ++index) {
            if (!progress.goesOn(index, persons.size()))
                return;
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

Outcome<ImportedFamily> importGedcom(const QByteArray& bytes, const QString& name, const Progress& progress)
{
    ImportNotes notes;
    const auto text = gedcomText(bytes, name, notes);
    if (text.failed())
        return text.failure();
    const GedcomTree tree = GedcomTree::read(text.value(), notes, progress.stage(0, 0.25));
    if (progress.isStopped())
        return stoppedImport(name);
    if (tree.records().empty())
        return notGedcom(name);

    NodeLedger ledger(tree, notes);
    takeFrame(tree, ledger);
    const GedcomPersons persons = GedcomPersons::read(tree, ledger, progress.stage(0.25, 0.5));
    const FamilyWishes wishes = readFamilies(tree, persons, ledger, progress.stage(0.5, 0.65));
    const QUuid uuid = uuidOf(bytes, progress.stage(0.65, 0.75));

    ImportedFamily family;
    FamilyBuilder builder(uuid);
    builder.addPersons(persons, progress.stage(0.75, 0.85));
    if (progress.isStopped())
        return stoppedImport(name);
    builder.addPartners(wishes);
    family.report.offspringLinks = builder.addOffspring(wishes, persons, ledger);
    family.context = std::move(builder).finish();
    family.report.persons = persons.size();
    family.report.families = wishes.families;
    family.report.partnerLinks = wishes.partners.size();
    ledger.tellRest(progress.stage(0.9, 1));
    notes.writeTo(family.report);
    if (!progress.goesOn(1))
        return stoppedImport(name);
    return family;
}

Outcome<ImportedFamily> importGedcomFile(const QString& path, const Progress& progress)
{
    constexpr double bytesPart = 0.1;
    const QString name = QFileInfo(path).fileName();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return importFailure(name, file.errorString() + u'.');
    const auto bytes = bytesOf(file, name, progress.stage(0, bytesPart));
    if (bytes.failed())
        return bytes.failure();
    if (bytes.value().size() > mostBytes)
        return importFailure(name, ImportTexts::tr("it has more than 512 MB."));
    return importGedcom(bytes.value(), name, progress.stage(bytesPart, 1));
}

} // namespace lineara
