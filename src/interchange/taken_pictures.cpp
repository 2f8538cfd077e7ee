#include "taken_pictures.h"

#include "imported_index.h"
#include "model/person.h"
#include "node_ledger.h"
#include "person_pictures.h"

#include <algorithm>

namespace lineara {
namespace {

/// A file that a record names as a person's picture.
struct NamedFile
{
    NodeIndex object;
    std::optional<NodeIndex> line; ///< no value if another record names it
    QString name;
    bool mayBePicture;
    bool isPrimary;
};

void addFilesIn(const GedcomTree& tree, NodeIndex parent, NamedFile file, bool isHere, std::vector<NamedFile>& files)
{
    file.isPrimary = file.isPrimary || isMarkedPrimary(tree, parent);
    for (const NodeIndex line : tree.children(parent)) {
        if (tree[line].line.tag != "FILE")
            continue;
        file.line = isHere ? std::optional(line) : std::nullopt;
        file.name = tree.text(line).trimmed();
        file.mayBePicture = mayBePicture(formOf(tree, parent, line), file.name);
        files.push_back(file);
    }
}

std::vector<NamedFile> namedFiles(const GedcomTree& tree, const PersonReading& reading, const ImportedIndex& index)
{
    std::vector<NamedFile> files;
    for (const NodeIndex object : reading.pictures) {
        const GedcomLine& line = tree[object].line;
        const bool isPrimary = line.tag == "_PHOTO" || isMarkedPrimary(tree, object);
        const NamedFile file{object, {}, {}, false, isPrimary};
        const SourceRecord* const target = line.isPointer ? index.target(line.value) : nullptr;
        if (!line.isPointer)
            addFilesIn(tree, object, file, true, files);
        else if (target && readableRecord(*target).tag == "OBJE")
            addFilesIn(GedcomTree(readableRecord(*target), index.isVersionSeven()), 0, file, false, files);
    }
    return files;
}

/// The name of the file that was taken; empty if none was. Of records that don't say, the import takes the first one.
QString takenFile(const SourceRecord& record, const std::vector<NamedFile>& files)
{
    if (const auto& taken = record.takenPicture())
        return taken->file;
    if (!record.person()->pic())
        return {};
    const auto isPicture = [](const NamedFile& file) { return file.mayBePicture; };
    auto first = std::ranges::find_if(files, [](const auto& file) { return file.mayBePicture && file.isPrimary; });
    if (first == files.end())
        first = std::ranges::find_if(files, isPicture);
    return first == files.end() ? QString() : first->name;
}

/// Which format it has, and that it is the one to take, is told by the picture itself.
void takeFile(const NamedFile& file, const GedcomTree& tree, NodeLedger& ledger)
{
    ledger.take(file.object);
    if (!file.line)
        return;
    ledger.take(*file.line);
    for (const NodeIndex parent : {file.object, *file.line}) {
        for (const NodeIndex line : tree.children(parent)) {
            const std::string_view tag = tree[line].line.tag;
            if (tag == "FORM" || tag == "_PRIM" || tag == "_PRIMARY")
                ledger.take(line);
        }
    }
}

} // namespace

void takePictureLines(const SourceRecord& record, const GedcomTree& tree, const PersonReading& reading,
                      const ImportedIndex& index, NodeLedger& ledger)
{
    for (const NodeIndex line : reading.pictures) {
        if (refusesPictures(tree[line].line))
            ledger.take(line);
    }
    const auto files = namedFiles(tree, reading, index);
    const QString taken = takenFile(record, files);
    for (const NamedFile& file : files) {
        if (!taken.isEmpty() && file.name == taken)
            takeFile(file, tree, ledger);
    }
}

} // namespace lineara
