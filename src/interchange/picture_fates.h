#pragma once

#include "gedcom_export_changes.h"
#include "picture_lines.h"

#include "platform/progress.h"

#include <QString>

#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace lineara {

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

/// What became of the pictures since their records were imported. All are in the order of the persons.
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
    /// All of these outlive the comparison.
    PictureComparison(const FamilyContent& family, const KeptRecords& kept, GedcomChanges& changes)
        : family_(family), kept_(kept), changes_(changes), objects_(kept)
    {}

    /// Not all if the progress is stopped. To be called once.
    PictureFates compare(const Progress& progress);

    /// Says in the person's record that none of the pictures that it still names is the person's, so that none is taken
    /// for it. Nothing where that can't happen. After compare().
    void refuseOthers(ExportPerson person);

    /// Leaves out every line by which the record of a person speaks of this file, but for pointers at objects that have
    /// further files.
    void strike(std::size_t record, const QString& file);

    /// What the person's record names, as far as it is in its place still; see PictureObjects. Lines of the person's
    /// record may be struck.
    std::vector<PictureObject> objectsOf(std::size_t person) { return objects_.of(person); }

private:
    using ObjectFile = std::pair<std::size_t, QString>; ///< record and name

    void compare(ExportPerson person);
    HeldPicture pictureOf(ExportPerson person) const;
    bool mayStillBeTaken(std::size_t person, const PictureObject& object);
    std::optional<NamedPicture> namedIn(std::size_t record, const TakenPicture* taken, const HeldPicture& held);
    void strikeFilesOfNobodyElse();
    std::unordered_map<std::size_t, std::size_t> pointersAtPartedObjects();
    void strikeUnnamedObjects();
    bool saysOnlyItsFile(std::size_t object) const;
    void eraseNamed(std::size_t record, std::unordered_set<std::string_view>& unnamed);

    const FamilyContent& family_;
    const KeptRecords& kept_;
    GedcomChanges& changes_;
    PictureObjects objects_;
    PictureFates fates_;
    std::set<std::size_t> struckObjects_; ///< that a pointer at them was struck
    /// Files of objects with further ones, and how many pointers of persons who lost them lead to the objects.
    std::map<ObjectFile, std::size_t> partedFiles_;
};

} // namespace lineara
