#pragma once

#include "gedcom_tree.h"
#include "model/source_record.h"
#include "person_reading.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace lineara {

class MediaFiles;
class NodeLedger;

/// Whether a file of that format and name can be a picture. Recordings and documents are none, and are not missed.
bool mayBePicture(const QString& form, const QString& name);

/// Whether the object is marked as the picture of its person.
bool isMarkedPrimary(const GedcomTree& tree, NodeIndex object);

/// A file that an object names.
struct ObjectFile
{
    NodeIndex line;
    QString name;
    bool mayBePicture;
};

/// All files that the object names, in order.
std::vector<ObjectFile> filesOf(const GedcomTree& tree, NodeIndex object);

/// The picture of a person, as far as there is one.
struct PictureReading
{
    QByteArray bytes;                          ///< null if none was taken
    std::shared_ptr<const TakenPicture> taken; ///< null if the record names none
};

/// Whether the line says that none of the pictures that a person's record names is the person's: "_PHOTO @VOID@".
bool refusesPictures(const GedcomLine& line);

/// Finds the one picture of a person that a family keeps: the one marked as primary, or else the first that is there.
class PersonPictures
{
public:
    /// Bytes read in all, and bytes taken in all; a small file could otherwise name one large picture for everybody.
    static constexpr qint64 mostBytes = qint64{512} * 1024 * 1024;

    /// Files tried for one person.
    static constexpr std::size_t mostTried = 8;

    PersonPictures(const GedcomRecords& records, const MediaFiles& files) : records_(records), files_(files) {}

    /// The picture of the person in the tree. What could not be read on the way is told.
    PictureReading read(const GedcomTree& tree, NodeLedger& ledger, const std::vector<NodeIndex>& lines);

    std::size_t taken() const { return taken_; }

    /// Of the files that come with the genealogy alone, those that nobody's picture was taken from.
    QStringList leftFiles() const;

private:
    struct Candidate
    {
        NodeIndex line; ///< of the object in the person's record
        NodeIndex told; ///< the line that is told: the same, or the FILE below it
        QString name;
        bool isPrimary;
    };

    /// A file as it was found: its bytes, or why there are none.
    struct Found
    {
        QByteArray bytes;
        QString reason;
        QString place;
        std::shared_ptr<const TakenPicture> taken;
    };

    std::vector<Candidate> candidates(const GedcomTree& tree, NodeLedger& ledger, const std::vector<NodeIndex>& lines);
    const std::vector<Candidate>& filesOf(RecordIndex object);
    const Found& find(const QString& name);
    Found readFile(const QString& name);

    const GedcomRecords& records_;
    const MediaFiles& files_;
    // Each record and each file is read once, however many persons name it.
    std::unordered_map<RecordIndex, std::vector<Candidate>> objects_;
    std::unordered_map<QString, Found> found_;
    std::unordered_set<QString> takenPlaces_;
    const std::shared_ptr<const TakenPicture> noneThere_ = std::make_shared<TakenPicture>();
    std::size_t taken_ = 0;
    qint64 read_ = 0;
    qint64 handedOut_ = 0;
};

} // namespace lineara
