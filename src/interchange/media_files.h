#pragma once

#include "platform/outcome.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

namespace lineara {

/// A file that was found by a name.
struct MediaFile
{
    QByteArray bytes;
    QString place; ///< below the folder, or in the archive
};

/// Where the pictures of a genealogy are looked for. Used by one thread at a time.
class MediaFiles
{
public:
    /// Longest picture taken.
    static constexpr qint64 mostBytes = qint64{64} * 1024 * 1024;

    MediaFiles() = default;
    MediaFiles(const MediaFiles&) = delete;
    MediaFiles& operator=(const MediaFiles&) = delete;
    virtual ~MediaFiles() = default;

    /// The file that a genealogy names so. The failure is a reason that follows a colon.
    virtual Outcome<MediaFile> read(const QString& name) const = 0;

    /// The places of the files that come with the genealogy and are nowhere else, as those of an archive are.
    virtual QStringList ownFiles() const { return {}; }
};

/// No files at all, for a genealogy that comes from memory.
class NoMediaFiles : public MediaFiles
{
public:
    Outcome<MediaFile> read(const QString& name) const override;
};

/// Files in the folder of a genealogy and below it.
///
/// A genealogy is somebody else's file, and its names were true on another computer. They never lead out of the folder:
/// of an absolute name, and of one that climbs, only its end can be there, so the longest end that is there is taken
/// ("C:\Pictures\Tom.jpg" is "Pictures/Tom.jpg" or "Tom.jpg"). Where no file is called exactly so, one will do whose
/// name means the same to other systems: capitals don't count, nor how accents are written. Of the names alike in a
/// folder the first few are tried. Links to elsewhere are not
/// followed, nothing is fetched from the network, and what is no plain file is left alone.
class FolderMediaFiles : public MediaFiles
{
public:
    explicit FolderMediaFiles(const QString& folder);
    Outcome<MediaFile> read(const QString& name) const override;

    /// Whether read() would find a file of that name.
    bool has(const QString& name) const { return !find(name).isEmpty(); }

private:
    /// The place of the file; empty if it is not there.
    QString find(const QString& name) const;
    bool holds(const QString& place) const;
    /// What is in a folder, by names as others may write them.
    struct Contents
    {
        QHash<QString, QStringList> files;
        QHash<QString, QStringList> folders; ///< but for links to such
    };

    /// A file at that place below the folder as others may write it, rather where more steps are called exactly so;
    /// empty if there is none, or too many of like names.
    QString resembling(QStringView place, const QString& folder) const;
    const Contents& contentsOf(const QString& folder) const;

    QString folder_; // canonical
    mutable QHash<QString, Contents> contents_;
};

/// The places below a folder at which a file of that name may be, the most exact one first. Empty for an address on the
/// web.
QStringList placesOf(const QString& name);

/// The same in an archive, where names are addresses ("%20" is a blank) before they are anything else.
QStringList placesInArchive(const QString& name);

/// The name with "%20" as a blank, and so on; as it stands if it is no address in UTF-8.
QString decodedAddress(const QString& name);

/// The same for all names of files that are one to a system that ignores capitals and how accents are written.
QString likenessOf(const QString& name);

/// Whether the name is the address of something that only a network has.
bool isOnTheWeb(const QString& name);

/// Finds the same bytes again: their SHA-256 in hexadecimal digits.
QByteArray hashOf(const QByteArray& bytes);

Failure mediaNotThere();
Failure mediaTooLarge();

} // namespace lineara
