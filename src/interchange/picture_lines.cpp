#include "picture_lines.h"

#include "person_pictures.h"

#include <algorithm>

namespace lineara {
namespace {

using Line = EditedRecord::Line;

QString nameIn(const EditedRecord& record, Line file)
{
    return record.text(file).trimmed();
}

bool isPrimaryObject(const EditedRecord& record, Line object)
{
    return std::ranges::any_of(record.children(object), [&](Line line) {
        const GedcomLine& mark = record[line];
        return (mark.tag == "_PRIM" || mark.tag == "_PRIMARY") && mark.value.starts_with('Y');
    });
}

} // namespace

bool isPictureTag(std::string_view tag)
{
    return tag == "OBJE" || tag == "_PHOTO";
}

PictureFiles::PictureFiles(const EditedRecord& record, Line object) : isPrimary_(isPrimaryObject(record, object))
{
    // Once, as there may be thousands of files.
    const auto common = record.child(object, "FORM");
    for (const Line line : record.children(object, "FILE")) {
        const auto own = record.child(line, "FORM");
        const auto form = own ? own : common;
        const QString name = nameIn(record, line);
        const bool isPicture = !name.isEmpty() && mayBePicture(form ? record.text(*form) : QString(), name);
        add({line, name, isPicture});
    }
}

void PictureFiles::add(PictureFile file)
{
    byName_.try_emplace(file.name, files_.size());
    if (file.mayBePicture && !firstPicture_)
        firstPicture_ = files_.size();
    files_.push_back(std::move(file));
}

PictureFiles PictureFiles::without(const QString& name) const
{
    PictureFiles others(isPrimary_);
    for (const PictureFile& file : files_) {
        if (file.name != name)
            others.add(file);
    }
    return others;
}

const PictureFile* PictureFiles::firstPicture() const
{
    return firstPicture_ ? &files_[*firstPicture_] : nullptr;
}

const PictureFile* PictureFiles::named(const QString& name) const
{
    const auto found = byName_.find(name);
    return found == byName_.end() ? nullptr : &files_[found->second];
}

std::vector<PictureObject> PictureObjects::of(std::size_t person)
{
    std::vector<PictureObject> objects;
    const EditedRecord record = kept_.edited(person);
    for (const Line line : record.children(0)) {
        if (!isPictureTag(record[line].tag))
            continue;
        PictureObject object{line, person, record[line].tag == "_PHOTO" || isPrimaryObject(record, line), nullptr};
        if (!record[line].isPointer) {
            object.files = std::make_shared<PictureFiles>(record, line);
        } else if (const auto target = kept_.target(record[line].value); target && kept_[*target].tag == "OBJE") {
            object.record = *target;
            object.files = filesOf(*target);
            object.isPrimary = object.isPrimary || object.files->isPrimary();
        }
        if (object.files && !object.files->all().empty())
            objects.push_back(std::move(object));
    }
    std::ranges::stable_sort(objects, [](const auto& a, const auto& b) { return a.isPrimary && !b.isPrimary; });
    return objects;
}

std::shared_ptr<const PictureFiles> PictureObjects::filesOf(std::size_t object)
{
    auto& files = pointedAt_[object];
    if (!files)
        files = std::make_shared<PictureFiles>(kept_.edited(object), 0);
    return files;
}

void PictureObjects::leaveOut(std::size_t object, const QString& name)
{
    pointedAt_[object] = std::make_shared<PictureFiles>(filesOf(object)->without(name));
}

QStringList filesNamedIn(std::string_view record, GedcomDialect dialect)
{
    QStringList files;
    if (record.find("FILE") == std::string_view::npos)
        return files;
    const EditedRecord lines(record, dialect);
    for (Line object = 0; object < lines.size(); ++object) {
        if (!isPictureTag(lines[object].tag))
            continue;
        for (const Line file : lines.children(object, "FILE"))
            files << nameIn(lines, file);
    }
    return files;
}

} // namespace lineara
