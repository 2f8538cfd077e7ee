#pragma once

#include "platform/outcome.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace lineara {

/// Where the pictures of a genealogy are looked for.
class MediaFiles
{
public:
    /// Longest picture taken.
    static constexpr qint64 mostBytes = qint64{64} * 1024 * 1024;

    MediaFiles() = default;
    MediaFiles(const MediaFiles&) = delete;
    MediaFiles& operator=(const MediaFiles&) = delete;
    virtual ~MediaFiles() = default;

    /// The bytes of a file by the name that a genealogy gives it. The failure is a reason that follows a colon.
    virtual Outcome<QByteArray> read(const QString& name) const = 0;
};

/// No files at all, for a genealogy that comes from memory.
class NoMediaFiles : public MediaFiles
{
public:
    Outcome<QByteArray> read(const QString& name) const override;
};

/// Files in the folder of a genealogy and below it.
///
/// A genealogy is somebody else's file, and its names were true on another computer. They never lead out of the folder:
/// of an absolute name, and of one that climbs, only its end can be there, so the longest end that is there is taken
/// ("C:\Pictures\Tom.jpg" is "Pictures/Tom.jpg" or "Tom.jpg"). Links to elsewhere are not followed, nothing is fetched
/// from the network, and what is no plain file is left alone.
class FolderMediaFiles : public MediaFiles
{
public:
    explicit FolderMediaFiles(const QString& folder);
    Outcome<QByteArray> read(const QString& name) const override;

private:
    QString folder_; // canonical
};

/// The places below a folder at which a file of that name may be, the most exact one first. Empty for an address on the
/// web.
QStringList placesOf(const QString& name);

Failure mediaNotThere();
Failure mediaTooLarge();

} // namespace lineara
