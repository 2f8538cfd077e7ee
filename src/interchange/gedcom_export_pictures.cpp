#include "gedcom_export_pictures.h"

#include "archive_names.h"
#include "gedcom_pointer.h"
#include "media_files.h"
#include "person_pictures.h"
#include "picture_kinds.h"
#include "picture_lines.h"

#include <algorithm>
#include <array>
#include <set>
#include <unordered_set>
#include <utility>
#include <vector>

namespace lineara {
namespace {

using Line = EditedRecord::Line;

/// A picture that a person has now.
struct HeldPicture
{
    ExportPerson person;
    RecordId id;
    const QByteArray* bytes;
};

/// One that the person's record speaks of.
struct NamedPicture
{
    HeldPicture held;
    std::size_t record = 0;      ///< in which its file is named: the person's or one that is pointed at
    EditedRecord::Line file = 0; ///< in that record
    QString name;
};

/// What became of the pictures since their records were imported.
struct PictureFates
{
    std::vector<NamedPicture> named; ///< the same as then
    std::vector<HeldPicture> added;
    std::vector<ExportPerson> parted; ///< persons without the picture that they had then, with another one or none
};

/// Tells the fates, and strikes the lines about pictures that persons have no more.
class PictureComparison
{
public:
    PictureComparison(const FamilyContent& family, const KeptRecords& kept, GedcomChanges& changes)
        : family_(family), kept_(kept), changes_(changes), objects_(kept)
    {}

    PictureObjects& objects() { return objects_; }

    PictureFates compare(const Progress& progress)
    {
        const auto& persons = family_.persons();
        for (ExportPerson person = 0; person < persons.size() && !progress.isStopped(); ++person)
            compare(person);
        strikeUnnamedObjects();
        return std::move(fates_);
    }

    /// Says in the person's record that none of the pictures that it still names is the person's, so that none is taken
    /// for it. Nothing where that can't happen.
    void refuseOthers(ExportPerson person)
    {
        const std::size_t record = *kept_.recordOf(person);
        EditedRecord& lines = changes_.edit(record);
        for (const PictureObject& object : objects_.of(record)) {
            if (mayStillBeTaken(record, object)) {
                lines.insert(object.line, gedcomPointer(1, "_PHOTO", pointsAtNobody));
                return;
            }
        }
    }

    /// Leaves out every line by which the record of a person speaks of this file.
    void strike(std::size_t record, const QString& file)
    {
        for (const PictureObject& object : objects_.of(record)) {
            if (!object.files->named(file))
                continue;
            EditedRecord& lines = changes_.edit(record);
            if (object.record != record)
                struckObjects_.insert(object.record);
            if (object.record != record || !object.files->areOfSeveralNames()) {
                lines.strike(object.line);
                continue;
            }
            for (const PictureFile& one : object.files->all()) {
                if (one.name == file)
                    lines.strike(one.line);
            }
        }
    }

private:
    void compare(ExportPerson person)
    {
        const HeldPicture held = pictureOf(person);
        const auto record = kept_.recordOf(person);
        const TakenPicture* const taken = record ? family_.sources()[*record].takenPicture.get() : nullptr;
        if (!held.bytes && (!taken || taken->file.isEmpty()))
            return;
        if (auto named = held.bytes && record ? namedIn(*record, taken, held) : std::nullopt) {
            fates_.named.push_back(std::move(*named));
            return;
        }
        if (taken && !taken->file.isEmpty()) {
            strike(*record, taken->file);
            fates_.parted.push_back(person);
        }
        if (held.bytes)
            fates_.added.push_back(held);
    }

    HeldPicture pictureOf(ExportPerson person) const
    {
        const auto id = family_.persons()[person].pic;
        const auto& pics = family_.pics();
        const auto numberOf = [](const FamilyContent::PicPart& pic) { return pic.id.number; };
        const auto found = id ? std::ranges::lower_bound(pics, id->number, {}, numberOf) : pics.end();
        const bool hasBytes = found != pics.end() && found->id == *id && found->data && !found->data->isEmpty();
        return {person, id.value_or(RecordId{}), hasBytes ? &*found->data : nullptr};
    }

    /// Whether the import might take one of its files, as the person's record is now.
    bool mayStillBeTaken(std::size_t person, const PictureObject& object)
    {
        const EditedRecord& lines = changes_.edit(person);
        if (lines.isStruck(object.line))
            return false;
        if (object.record != person)
            return object.files->firstPicture() != nullptr;
        return std::ranges::any_of(object.files->all(), [&](const PictureFile& file) {
            return file.mayBePicture && !lines.isStruck(file.line);
        });
    }

    /// How the record speaks of the picture. What was taken is not known of records that older versions kept; then it
    /// is believed to be the first that a record names.
    std::optional<NamedPicture> namedIn(std::size_t record, const TakenPicture* taken, const HeldPicture& held)
    {
        if (taken && (taken->file.isEmpty() || (!taken->hash.isEmpty() && taken->hash != hashOf(*held.bytes))))
            return std::nullopt;
        for (const PictureObject& object : objects_.of(record)) {
            if (const auto* const file = taken ? object.files->named(taken->file) : object.files->firstPicture())
                return NamedPicture{held, object.record, file->line, file->name};
        }
        return std::nullopt;
    }

    /// An object that says nothing but the name of its file goes with the last line that pointed at it.
    void strikeUnnamedObjects()
    {
        std::unordered_set<std::string_view> unnamed;
        for (const std::size_t object : struckObjects_) {
            if (saysOnlyItsFile(object))
                unnamed.insert(kept_[object].xref);
        }
        for (std::size_t record = 0; record < kept_.size() && !unnamed.empty(); ++record)
            eraseNamed(record, unnamed);
        for (const std::string_view xref : unnamed)
            changes_.edit(*kept_.target(xref)).strike(0);
    }

    bool saysOnlyItsFile(std::size_t object) const
    {
        static constexpr std::array<std::string_view, 10> silent = {"FILE", "FORM", "TYPE", "MEDI", "CHAN",
                                                                    "DATE", "TIME", "RIN",  "UID",  "_UID"};
        const EditedRecord lines = kept_.edited(object);
        for (Line line = 1; line < lines.size(); ++line) {
            if (!lines[line].level || std::ranges::find(silent, lines[line].tag) == silent.end())
                return false;
        }
        return true;
    }

    void eraseNamed(std::size_t record, std::unordered_set<std::string_view>& unnamed)
    {
        if (kept_[record].isLeftOut || kept_[record].text.find('@') == std::string_view::npos)
            return;
        const EditedRecord lines = kept_.edited(record);
        for (Line line = 1; line < lines.size(); ++line) {
            const bool isPointer = lines[line].isPointer && unnamed.contains(lines[line].value);
            if (isPointer && !changes_.edit(record).isStruck(line))
                unnamed.erase(lines[line].value);
        }
    }

    const FamilyContent& family_;
    const KeptRecords& kept_;
    GedcomChanges& changes_;
    PictureObjects objects_;
    PictureFates fates_;
    std::set<std::size_t> struckObjects_;
};

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
        const bool keeps = place && puts(*place, *picture.held.bytes);
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
        const int level = record[line.second].level.value_or(1);
        record.replace(line.second, gedcomLines(level, "FILE", addressOfPlace(*place), record.dialect()));
        places_.emplace(line, *place);
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
        const auto objects = record ? comparison_.objects().of(*record) : std::vector<PictureObject>();
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

    /// A name that nothing has and no line means.
    QString newPlace(const HeldPicture& picture)
    {
        if (!meant_)
            meant_ = meantPlaces();
        QString number = QString::fromStdString(numberedXref('p', picture.id.number));
        const QString ending = kindOf(*picture.bytes).ending;
        QString place;
        do {
            place = QStringLiteral("pictures/%1.%2").arg(number, ending);
            number.prepend(u'x');
        } while (meant_->contains(place) || !files_.try_emplace(place.toStdString(), *picture.bytes).second);
        return place;
    }

    std::set<QString> meantPlaces() const
    {
        std::set<QString> meant;
        for (std::size_t record = 0; record < kept_.size(); ++record) {
            for (const QString& name : filesNamedIn(kept_[record].text, kept_.dialect())) {
                const QStringList places = placesInArchive(name);
                meant.insert(places.begin(), places.end());
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
