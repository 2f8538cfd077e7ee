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

QString formIn(const EditedRecord& record, Line object, Line file)
{
    const auto own = record.child(file, "FORM");
    const auto form = own ? own : record.child(object, "FORM");
    return form ? record.text(*form) : QString();
}

/// Adds the files of an object; `found` says the rest of it.
void addFiles(const EditedRecord& record, Line object, PictureLine found, std::vector<PictureLine>& lines)
{
    found.isPrimary = found.isPrimary || isPrimaryObject(record, object);
    for (const Line file : record.children(object, "FILE")) {
        found.file = file;
        found.name = nameIn(record, file);
        found.mayBePicture = !found.name.isEmpty() && mayBePicture(formIn(record, object, file), found.name);
        lines.push_back(found);
    }
}

} // namespace

bool isPictureTag(std::string_view tag)
{
    return tag == "OBJE" || tag == "_PHOTO";
}

std::vector<PictureLine> pictureLines(const KeptRecords& kept, std::size_t person)
{
    std::vector<PictureLine> lines;
    const EditedRecord record = kept.edited(person);
    for (const Line line : record.children(0)) {
        if (!isPictureTag(record[line].tag))
            continue;
        PictureLine found;
        found.object = line;
        found.record = person;
        found.isPrimary = record[line].tag == "_PHOTO" || isPrimaryObject(record, line);
        if (!record[line].isPointer) {
            addFiles(record, line, found, lines);
        } else if (const auto target = kept.target(record[line].value); target && kept[*target].tag == "OBJE") {
            found.record = *target;
            addFiles(kept.edited(*target), 0, found, lines);
        }
    }
    std::ranges::stable_sort(lines, [](const auto& a, const auto& b) { return a.isPrimary && !b.isPrimary; });
    return lines;
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
