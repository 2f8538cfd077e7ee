#include "taken_pictures.h"

#include "imported_index.h"
#include "model/person.h"
#include "node_ledger.h"
#include "person_pictures.h"
#include "record_names.h"

#include <algorithm>
#include <utility>

namespace lineara {
namespace {

/// What an object names as pictures.
struct NamedFiles
{
    NamedFiles(const GedcomTree& tree, NodeIndex object)
        : files(filesOf(tree, object)), isPrimary(isMarkedPrimary(tree, object))
    {
        const auto picture = std::ranges::find_if(files, &ObjectFile::mayBePicture);
        if (picture != files.end())
            firstPicture = picture->name;
    }

    bool has(const QString& name) const { return std::ranges::find(files, name, &ObjectFile::name) != files.end(); }

    std::vector<ObjectFile> files;
    bool isPrimary;
    QString firstPicture; // empty if there is none
};

/// An object with a record of its own. Each is read and searched once, as thousands of lines may point at it.
struct PointedObject
{
    GedcomTree tree;
    NamedFiles named;
    std::optional<bool> hasTaken; // once it was asked for
};

/// Finds the lines of one person's record that speak of the picture that was taken.
class TakenLines
{
public:
    TakenLines(const SourceRecord& record, const GedcomTree& tree, const PersonReading& reading,
               const ImportedIndex& index, NodeLedger& ledger)
        : record_(record), tree_(tree), objects_(reading.pictures), index_(index), ledger_(ledger)
    {}

    FilesLeft take()
    {
        const QString taken = takenFile();
        for (const NodeIndex object : objects_) {
            if (refusesPictures(tree_[object].line))
                ledger_.take(object);
            else if (!taken.isEmpty() && !tree_[object].line.isPointer)
                takeObject(object, taken);
            else if (!taken.isEmpty())
                takePointer(object, taken);
        }
        return std::move(left_);
    }

private:
    /// The name of the file that was taken; empty if none was. Of records that don't say, the import takes the first
    /// one.
    QString takenFile()
    {
        if (const auto& taken = record_.takenPicture())
            return taken->file;
        if (!record_.person()->pic())
            return {};
        QString first;
        for (const NodeIndex object : objects_) {
            const auto [name, isPrimary] = firstPictureOf(object);
            if (isPrimary && !name.isEmpty())
                return name;
            if (first.isEmpty())
                first = name;
        }
        return first;
    }

    std::pair<QString, bool> firstPictureOf(NodeIndex object)
    {
        const bool isPrimary = tree_[object].line.tag == "_PHOTO" || isMarkedPrimary(tree_, object);
        if (!tree_[object].line.isPointer)
            return {NamedFiles(tree_, object).firstPicture, isPrimary};
        const PointedObject* const pointed = pointedBy(object);
        return pointed ? std::pair(pointed->named.firstPicture, isPrimary || pointed->named.isPrimary)
                       : std::pair(QString(), false);
    }

    PointedObject* pointedBy(NodeIndex line)
    {
        const SourceRecord* const target = index_.target(tree_[line].line.value);
        if (!target || readableRecord(*target).tag != "OBJE")
            return nullptr;
        const auto known = pointed_.find(target);
        if (known != pointed_.end())
            return &known->second;
        GedcomTree tree(readableRecord(*target), index_.isVersionSeven());
        NamedFiles named(tree, 0);
        return &pointed_.emplace(target, PointedObject{std::move(tree), std::move(named), {}}).first->second;
    }

    void takeObject(NodeIndex object, const QString& taken)
    {
        const NamedFiles named(tree_, object);
        for (const ObjectFile& file : named.files) {
            if (file.name == taken)
                takeWithMarks(file.line);
        }
        if (named.has(taken))
            takeWithMarks(object);
    }

    /// Which format a picture has, and that it is the one to take, is told by the picture itself.
    void takeWithMarks(NodeIndex line)
    {
        ledger_.take(line);
        for (const NodeIndex below : tree_.children(line)) {
            const std::string_view tag = tree_[below].line.tag;
            if (tag == "FORM" || tag == "_PRIM" || tag == "_PRIMARY")
                ledger_.take(below);
        }
    }

    void takePointer(NodeIndex line, const QString& taken)
    {
        PointedObject* const object = pointedBy(line);
        if (!object)
            return;
        if (!object->hasTaken) {
            object->hasTaken = object->named.has(taken);
            if (*object->hasTaken)
                leave(line, *object, taken);
        }
        if (*object->hasTaken)
            ledger_.take(line);
    }

    void leave(NodeIndex line, const PointedObject& object, const QString& taken)
    {
        QStringList titles;
        for (const ObjectFile& file : object.named.files) {
            QString title = file.name == taken ? QString() : titleOfFile(object.tree, file.line);
            if (!title.isEmpty())
                titles << std::move(title);
        }
        if (!titles.isEmpty())
            left_.emplace(line, std::move(titles));
    }

    const SourceRecord& record_;
    const GedcomTree& tree_;
    const std::vector<NodeIndex>& objects_;
    const ImportedIndex& index_;
    NodeLedger& ledger_;
    std::unordered_map<const SourceRecord*, PointedObject> pointed_;
    FilesLeft left_;
};

} // namespace

FilesLeft takePictureLines(const SourceRecord& record, const GedcomTree& tree, const PersonReading& reading,
                           const ImportedIndex& index, NodeLedger& ledger)
{
    return TakenLines(record, tree, reading, index, ledger).take();
}

} // namespace lineara
