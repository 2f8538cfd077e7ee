#include "interchange/gedcom_import.h"

#include "content_uuid.h"
#include "family_assembly.h"
#include "gedcom_charset.h"
#include "gedcom_families.h"
#include "gedcom_notes.h"
#include "gedcom_persons.h"
#include "genealogy_file.h"
#include "import_failure.h"
#include "import_notes.h"
#include "import_texts.h"
#include "node_ledger.h"
#include "person_pictures.h"
#include "person_reading.h"
#include "told_family.h"

#include <QFileInfo>

namespace lineara {
namespace {

/// Header lines that say how to read the file and are used up by that; others stay what they are.
void takeFrame(const GedcomTree& tree, NodeLedger& ledger)
{
    ledger.take(0);
    if (tree[0].line.tag != "HEAD")
        return;
    if (const auto charset = tree.child(0, "CHAR"))
        ledger.take(*charset);
    if (const auto format = tree.child(0, "GEDC")) {
        ledger.take(*format);
        for (const std::string_view tag : {"VERS", "FORM"}) {
            if (const auto line = tree.child(*format, tag))
                ledger.take(*line);
        }
    }
}

/// Reads the records of a text one after the other: families, persons, and what else there is.
class RecordsImport
{
public:
    RecordsImport(const GedcomRecords& records, const MediaFiles& media, ImportNotes& notes)
        : records_(records), persons_(records), notes_(notes), sharedNotes_(records), pictures_(records, media),
          ledger_(tree_, notes)
    {}

    void readPersons(GedcomFamilies& families, FamilyAssembly& assembly, const Progress& progress)
    {
        for (engine::PersonIndex person = 0; person < persons_.size(); ++person) {
            if (!progress.goesOn(person, persons_.size()))
                return;
            open(persons_.record(person));
            PersonReading reading = readPerson(tree_, ledger_, sharedNotes_);
            families.checkClaims(person, tree_, ledger_);
            if (tree_[0].line.xref.empty())
                ledger_.remark(0, ImportTexts::tr("has no cross-reference, so that no family can name this person"));
            assembly.addPerson(std::move(reading.values), pictures_.read(tree_, ledger_, reading.pictures));
            ledger_.close();
        }
    }

    /// Accounts for the records that are neither persons nor families.
    void readOthers(const Progress& progress)
    {
        for (RecordIndex index = 0; index < records_.size(); ++index) {
            if (!progress.goesOn(index, records_.size()))
                return;
            const std::string_view tag = records_[index].tag;
            if (tag == "INDI" || tag == "FAM")
                continue;
            open(index);
            if (tag == "HEAD" || tag == "TRLR")
                takeFrame(tree_, ledger_);
            else if (sharedNotes_.wasRead(index))
                ledger_.takeText(0);
            ledger_.close();
        }
        records_.tellUnreachable(notes_);
    }

    const GedcomPersons& persons() const { return persons_; }
    const PersonPictures& pictures() const { return pictures_; }

private:
    void open(RecordIndex index)
    {
        tree_.read(records_[index], records_.isVersionSeven());
        ledger_.open();
    }

    const GedcomRecords& records_;
    GedcomPersons persons_;
    ImportNotes& notes_;
    SharedNotes sharedNotes_;
    PersonPictures pictures_;
    GedcomTree tree_;
    NodeLedger ledger_;
};

struct ImportFrame
{
    QUuid uuid;
    QString name;
    const MediaFiles& media;
    bool keepsRecords;
};

Outcome<ImportedFamily> importText(const GedcomText& text, const ImportFrame& frame, ImportNotes& notes,
                                   const Progress& progress)
{
    const auto records = GedcomRecords::read(text.view(), progress.stage(0, 0.1));
    RecordsImport import(records, frame.media, notes);
    auto families = GedcomFamilies::read(records, import.persons(), notes, progress.stage(0.1, 0.25));
    FamilyAssembly assembly(frame.uuid, import.persons().size());
    import.readPersons(families, assembly, progress.stage(0.25, 0.65));
    import.readOthers(progress.stage(0.65, 0.7));
    if (progress.isStopped())
        return stoppedImport(frame.name);

    ImportedFamily family;
    families.rankOffspring();
    assembly.addPartners(families.wishes(), progress.stage(0.7, 0.72));
    family.report.offspringLinks =
        assembly.addOffspring(families.wishes(), import.persons(), records, notes, progress.stage(0.72, 0.75));
    if (progress.isStopped())
        return stoppedImport(frame.name);
    if (frame.keepsRecords)
        assembly.keep(records, import.persons(), frame.name, progress.stage(0.75, 0.95));
    family.context = std::move(assembly).finish();
    family.report.persons = import.persons().size();
    family.report.families = families.count();
    family.report.partnerLinks = families.wishes().partners.size();
    family.report.pictures = import.pictures().taken();
    family.report.leftFiles = import.pictures().leftFiles();
    family.report.records = records.size();
    family.report.charset = text.charset;
    family.report.declaredCharset = text.declared;
    family.report.isDeclaredWrongly = text.isDeclaredWrongly;
    family.report.version =
        QString::fromUtf8(records.version().data(), static_cast<qsizetype>(records.version().size()));
    notes.writeTo(family.report);
    if (!progress.goesOn(1))
        return stoppedImport(frame.name);
    return family;
}

Outcome<ImportedFamily> importRead(Outcome<GenealogyFile> file, const QString& name, bool keepsRecords,
                                   const Progress& progress)
{
    if (file.failed())
        return file.failure();
    auto& [bytes, media] = file.value();
    const QUuid uuid = keepsRecords ? uuidOf(bytes, progress.stage(0, 0.1)) : QUuid();
    if (progress.isStopped())
        return stoppedImport(name);
    ImportNotes notes;
    const auto text = gedcomText(std::move(bytes), name, notes, progress.stage(0.1, 0.15));
    if (text.failed())
        return text.failure();
    return importText(text.value(), {uuid, name, *media, keepsRecords}, notes, progress.stage(0.15, 1));
}

constexpr double readingPart = 0.1;

} // namespace

Outcome<ImportedFamily> importGedcom(QByteArray bytes, const QString& name, const Progress& progress)
{
    auto file = readGenealogy(std::move(bytes), name, progress.stage(0, readingPart));
    if (file && file.value().bytes.size() > mostGenealogyBytes)
        return tooLongGenealogy(name);
    return importRead(std::move(file), name, true, progress.stage(readingPart, 1));
}

Outcome<std::unique_ptr<ObjectContext>> familyToldBy(QByteArray records, const QString& name, const Progress& progress)
{
    auto family = importRead(readGenealogy(std::move(records), name, progress.stage(0, readingPart)), name, false,
                             progress.stage(readingPart, 1));
    if (family.failed())
        return family.failure();
    return std::move(family.value().context);
}

Outcome<ImportedFamily> importGedcomFile(const QString& path, const Progress& progress)
{
    const QString name = QFileInfo(path).fileName();
    return importRead(readGenealogy(path, name, progress.stage(0, readingPart)), name, true,
                      progress.stage(readingPart, 1));
}

} // namespace lineara
