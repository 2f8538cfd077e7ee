#include "gedcom_export_pictures.h"

#include "archive_names.h"
#include "file_addresses.h"
#include "gedcom_pointer.h"
#include "kept_file_name.h"
#include "media_files.h"
#include "own_tags.h"
#include "person_pictures.h"
#include "picture_fates.h"
#include "picture_kinds.h"

#include <algorithm>
#include <set>
#include <unordered_set>
#include <utility>
#include <vector>

namespace lineara {
namespace {

using Line = EditedRecord::Line;

/// Finds a name in an archive for each picture.
class PictureNaming
{
public:
    PictureNaming(const KeptRecords& kept, GedcomChanges& changes, PictureComparison& comparison)
        : kept_(kept), changes_(changes), comparison_(comparison)
    {}

    ArchiveFiles files(const PictureFates& fates)
    {
        // First those that want a certain name, so that no other has it.
        std::vector<const NamedPicture*> nameless;
        for (const NamedPicture& picture : fates.named) {
            if (!keepsName(picture))
                nameless.push_back(&picture);
        }
        for (const NamedPicture* const picture : nameless)
            rename(*picture);
        for (const HeldPicture& picture : fates.added)
            add(picture);
        return std::move(files_);
    }

private:
    using FileLine = std::pair<std::size_t, Line>;

    bool keepsName(const NamedPicture& picture)
    {
        const auto place = plainPlace(picture.name);
        // What other versions call it becomes an address, which must mean the same.
        const bool isSame =
            kept_.dialect() == GedcomDialect::Seven || nearestPlace(addressOfName(picture.name)) == place;
        const bool keeps = place && isSame && puts(*place, *picture.held.bytes);
        if (keeps)
            places_.emplace(FileLine{picture.record, picture.file}, *place);
        return keeps;
    }

    /// False if another picture is there.
    bool puts(const QString& place, const QByteArray& bytes)
    {
        const auto [file, isNew] = files_.try_emplace(place.toStdString(), bytes);
        return isNew || file->second == bytes;
    }

    /// A line that others share can be changed once, for the same picture of all.
    void rename(const NamedPicture& picture)
    {
        const FileLine line{picture.record, picture.file};
        if (const auto known = places_.find(line); known != places_.end()) {
            if (puts(known->second, *picture.held.bytes))
                return;
            comparison_.strike(*kept_.recordOf(picture.held.person), picture.name);
            add(picture.held);
            return;
        }
        auto place = nearestPlace(picture.name);
        if (!place || !puts(*place, *picture.held.bytes))
            place = newPlace(picture.held);
        EditedRecord& record = changes_.edit(line.first);
        replaceFile(record, line.second, addressOfPlace(*place));
        places_.emplace(line, *place);
    }

    /// What the file was called first is kept below it.
    static void replaceFile(EditedRecord& record, Line file, const QString& address)
    {
        const int level = record[file].level.value_or(1);
        const QString former = record.text(file);
        const bool isAddress = record.dialect() == GedcomDialect::Seven;
        const QString name = isAddress ? nameOfAddress(former) : former;
        std::string lines = gedcomLines(level, "FILE", address, record.dialect());
        if (!isAddress || !keptFileName(record, file, former))
            lines += gedcomLines(level + 1, keptFileTag, name, record.dialect());
        record.replace(file, std::move(lines));
    }

    void add(const HeldPicture& picture)
    {
        const QString place = newPlace(picture);
        const std::string xref = changes_.takeXref(numberedXref('O', picture.id.number));
        const auto mediaType = QString(kindOf(*picture.bytes).mediaType);
        changes_.addRecord(gedcomRecord(xref, "OBJE") + gedcomLines(1, "FILE", place, GedcomDialect::Seven) +
                           gedcomLines(2, "FORM", mediaType, GedcomDialect::Seven));
        addLine(picture.person, gedcomPointer(1, "OBJE", xref));
    }

    /// Ahead of all other pictures, so that it is the one that counts.
    void addLine(ExportPerson person, std::string line)
    {
        const auto record = kept_.recordOf(person);
        const auto objects = record ? comparison_.objectsOf(*record) : std::vector<PictureObject>();
        if (objects.empty()) {
            changes_.addToPerson(person, line);
            return;
        }
        EditedRecord& lines = changes_.edit(*record);
        for (const Line refusal : lines.children(0, "_PHOTO")) {
            if (refusesPictures(lines[refusal]))
                lines.strike(refusal);
        }
        const auto isMarked = [&](const PictureObject& other) {
            return other.isPrimary && !lines.isStruck(other.line);
        };
        if (std::ranges::any_of(objects, isMarked))
            line += "2 _PRIM Y\n";
        lines.insert(std::ranges::min(objects, {}, &PictureObject::line).line, line);
    }

    /// A name that nothing has and no line means, however it may be written.
    QString newPlace(const HeldPicture& picture)
    {
        if (!meant_)
            meant_ = meantPlaces();
        const QString ending = kindOf(*picture.bytes).ending;
        QString place;
        qsizetype attempt = 0;
        do {
            place = madePlace(picture.id.number, attempt++, ending);
        } while (meant_->contains(likenessOf(place)) ||
                 !files_.try_emplace(place.toStdString(), *picture.bytes).second);
        return place;
    }

    /// As likenesses.
    std::set<QString> meantPlaces() const
    {
        std::set<QString> meant;
        for (std::size_t record = 0; record < kept_.size(); ++record) {
            for (const QString& name : filesNamedIn(kept_[record].text, kept_.dialect())) {
                for (const QString& place : placesInArchive(name))
                    meant.insert(likenessOf(place));
            }
        }
        return meant;
    }

    const KeptRecords& kept_;
    GedcomChanges& changes_;
    PictureComparison& comparison_;
    std::map<FileLine, QString> places_; ///< of lines that were settled
    std::optional<std::set<QString>> meant_;
    ArchiveFiles files_;
};

} // namespace

ExportedPictures exportPictures(const FamilyContent& family, const KeptRecords& kept, GedcomChanges& changes,
                                const Progress& progress)
{
    PictureComparison comparison(family, kept, changes);
    const PictureFates fates = comparison.compare(progress);
    for (const ExportPerson person : fates.parted) {
        // Both are in the order of the persons.
        if (!std::ranges::binary_search(fates.added, person, {}, &HeldPicture::person))
            comparison.refuseOthers(person);
    }
    return {PictureNaming(kept, changes, comparison).files(fates), 0};
}

ExportedPictures leavePictures(const FamilyContent& family, const KeptRecords& kept, GedcomChanges& changes,
                               const IsFileThere& isThere, const Progress& progress)
{
    PictureComparison comparison(family, kept, changes);
    const PictureFates fates = comparison.compare(progress);
    // Nothing is written of the new ones that might stand in the place of the others.
    for (const ExportPerson person : fates.parted)
        comparison.refuseOthers(person);
    const auto isLeftOut = [&](const NamedPicture& picture) { return !isThere(picture.name); };
    return {{}, fates.added.size() + static_cast<std::size_t>(std::ranges::count_if(fates.named, isLeftOut))};
}

QStringList missingFiles(const KeptRecords& kept, const GedcomChanges& changes, const IsFileThere& isThere,
                         const Progress& progress)
{
    QStringList missing;
    std::unordered_set<QString> seen;
    for (std::size_t record = 0; record < kept.size() && progress.goesOn(record, kept.size()); ++record) {
        for (const QString& name : filesNamedIn(changes.textOf(record), kept.dialect())) {
            const bool isNew = !name.isEmpty() && !isOnTheWeb(name) && seen.insert(name).second;
            if (isNew && !isThere(name))
                missing << name;
        }
    }
    return missing;
}

} // namespace lineara
