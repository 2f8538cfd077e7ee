#include "picture_fates.h"

#include "gedcom_pointer.h"
#include "media_files.h"

#include <algorithm>
#include <array>

namespace lineara {
namespace {

using Line = EditedRecord::Line;

void strikeFile(EditedRecord& lines, const PictureFiles& files, const QString& name)
{
    for (const PictureFile& file : files.all()) {
        if (file.name == name)
            lines.strike(file.line);
    }
}

} // namespace

PictureFates PictureComparison::compare(const Progress& progress)
{
    const auto& persons = family_.persons();
    for (ExportPerson person = 0; person < persons.size() && !progress.isStopped(); ++person)
        compare(person);
    strikeFilesOfNobodyElse();
    strikeUnnamedObjects();
    return std::move(fates_);
}

void PictureComparison::refuseOthers(ExportPerson person)
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

void PictureComparison::strike(std::size_t record, const QString& file)
{
    for (const PictureObject& object : objects_.of(record)) {
        if (!object.files->named(file))
            continue;
        const bool isPointedAt = object.record != record;
        if (!object.files->areOfSeveralNames()) {
            changes_.edit(record).strike(object.line);
            if (isPointedAt)
                struckObjects_.insert(object.record);
        } else if (isPointedAt) {
            ++partedFiles_[{object.record, file}];
        } else {
            strikeFile(changes_.edit(record), *object.files, file);
        }
    }
}

void PictureComparison::compare(ExportPerson person)
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

HeldPicture PictureComparison::pictureOf(ExportPerson person) const
{
    const auto id = family_.persons()[person].pic;
    const auto& pics = family_.pics();
    const auto numberOf = [](const FamilyContent::PicPart& pic) { return pic.id.number; };
    const auto found = id ? std::ranges::lower_bound(pics, id->number, {}, numberOf) : pics.end();
    const bool hasBytes = found != pics.end() && found->id == *id && found->data && !found->data->isEmpty();
    return {person, id.value_or(RecordId{}), hasBytes ? &*found->data : nullptr};
}

/// Whether the import might take one of its files, as the person's record is now.
bool PictureComparison::mayStillBeTaken(std::size_t person, const PictureObject& object)
{
    const EditedRecord& lines = changes_.edit(person);
    if (lines.isStruck(object.line))
        return false;
    if (object.record != person)
        return object.files->firstPicture() != nullptr;
    return std::ranges::any_of(
        object.files->all(), [&](const PictureFile& file) { return file.mayBePicture && !lines.isStruck(file.line); });
}

/// How the record speaks of the picture. What was taken is not known of records that older versions kept; then it
/// is believed to be the first that a record names.
std::optional<NamedPicture> PictureComparison::namedIn(std::size_t record, const TakenPicture* taken,
                                                       const HeldPicture& held)
{
    if (taken && (taken->file.isEmpty() || (!taken->hash.isEmpty() && taken->hash != hashOf(*held.bytes))))
        return std::nullopt;
    for (const PictureObject& object : objects_.of(record)) {
        if (const auto* const file = taken ? object.files->named(taken->file) : object.files->firstPicture())
            return NamedPicture{held, object.record, file->line, file->name};
    }
    return std::nullopt;
}

/// Where others use an object, too, its files stay; refuseOthers() keeps them from being taken for the picture.
void PictureComparison::strikeFilesOfNobodyElse()
{
    if (partedFiles_.empty())
        return;
    const auto pointers = pointersAtPartedObjects();
    for (const auto& [objectFile, parted] : partedFiles_) {
        const auto& [object, file] = objectFile;
        if (pointers.at(object) != parted)
            continue;
        EditedRecord& lines = changes_.edit(object);
        strikeFile(lines, PictureFiles(lines, 0), file);
        objects_.leaveOut(object, file);
    }
}

/// By object: the lines anywhere that point at it.
std::unordered_map<std::size_t, std::size_t> PictureComparison::pointersAtPartedObjects()
{
    std::unordered_map<std::size_t, std::size_t> pointers;
    for (const auto& [objectFile, parted] : partedFiles_)
        pointers.emplace(objectFile.first, 0);
    for (std::size_t record = 0; record < kept_.size(); ++record) {
        if (kept_[record].isLeftOut)
            continue;
        forEachPointer(kept_[record].text, [&](const GedcomLine& line) {
            const auto target = kept_.target(line.value);
            if (const auto found = target ? pointers.find(*target) : pointers.end(); found != pointers.end())
                ++found->second;
        });
    }
    return pointers;
}

/// An object that says nothing but the name of its file goes with the last line that pointed at it.
void PictureComparison::strikeUnnamedObjects()
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

bool PictureComparison::saysOnlyItsFile(std::size_t object) const
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

void PictureComparison::eraseNamed(std::size_t record, std::unordered_set<std::string_view>& unnamed)
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

} // namespace lineara
