#pragma once

#include "gedcom_export_kept.h"

#include <QString>

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace lineara {

/// A file that an object names.
struct PictureFile
{
    EditedRecord::Line line = 0;
    QString name;
    bool mayBePicture = false; ///< whether the import would look for it
};

/// The files of one object. Finding one takes no longer the more there are.
class PictureFiles
{
public:
    PictureFiles(const EditedRecord& record, EditedRecord::Line object);
    /// The same without the files of that name.
    PictureFiles without(const QString& name) const;

    /// Whether the object is marked as the picture of its person.
    bool isPrimary() const { return isPrimary_; }
    const std::vector<PictureFile>& all() const { return files_; }
    /// The first one that the import would look for; null if there is none.
    const PictureFile* firstPicture() const;
    /// The first one of that name; null if there is none.
    const PictureFile* named(const QString& name) const;
    /// Whether there are several files, not all of one name.
    bool areOfSeveralNames() const { return byName_.size() > 1; }

private:
    explicit PictureFiles(bool isPrimary) : isPrimary_(isPrimary) {}
    void add(PictureFile file);

    std::vector<PictureFile> files_;
    std::unordered_map<QString, std::size_t> byName_;
    std::optional<std::size_t> firstPicture_;
    bool isPrimary_;
};

/// An object that a person's record names, itself or by pointing at its record.
struct PictureObject
{
    EditedRecord::Line line = 0; ///< in the person's record
    std::size_t record = 0;      ///< in which its files stand: the person's or the one pointed at
    bool isPrimary = false;
    std::shared_ptr<const PictureFiles> files;
};

/// The objects of persons. Each record of an object is read once, however many persons point at it.
class PictureObjects
{
public:
    /// `kept` outlives the objects.
    explicit PictureObjects(const KeptRecords& kept) : kept_(kept) {}

    /// In the order in which the import tries them as the person's picture.
    std::vector<PictureObject> of(std::size_t person);
    /// Knows the files of that name no more that an object with a record of its own has.
    void leaveOut(std::size_t object, const QString& name);

private:
    std::shared_ptr<const PictureFiles> filesOf(std::size_t object);

    const KeptRecords& kept_;
    std::unordered_map<std::size_t, std::shared_ptr<const PictureFiles>> pointedAt_;
};

bool isPictureTag(std::string_view tag);

/// All files that the objects of a record name, wherever in it they stand.
QStringList filesNamedIn(std::string_view record, GedcomDialect dialect);

} // namespace lineara
