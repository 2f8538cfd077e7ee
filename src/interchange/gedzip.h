#pragma once

#include "media_files.h"

#include "platform/progress.h"

#include <cstdint>
#include <memory>
#include <optional>

struct zip;

namespace lineara {

/// A GEDZIP archive: a genealogy with the files that it names, in a ZIP.
///
/// Nothing is unpacked to the disk. Names in the archive are only compared, so that it does not matter where they would
/// lead; what comes out is counted while it comes, whatever the archive says about its size.
class Gedzip : public MediaFiles
{
public:
    /// The archive in a file, which stays open. `name` is how messages call it.
    static Outcome<std::unique_ptr<Gedzip>> open(const QString& path, const QString& name);

    /// The same for bytes in memory.
    static Outcome<std::unique_ptr<Gedzip>> openBytes(QByteArray bytes, const QString& name);

    ~Gedzip() override;

    /// The genealogy: "gedcom.ged", in whatever case, or else the only file that ends so.
    Outcome<QByteArray> genealogy(const Progress& progress) const;

    Outcome<MediaFile> read(const QString& name) const override;

    /// Everything but the genealogy, in the order of the archive.
    QStringList ownFiles() const override;

private:
    std::optional<std::uint64_t> find(const QString& place) const;

    Gedzip(QByteArray bytes, QString name) : bytes_(std::move(bytes)), name_(std::move(name)) {}

    QByteArray bytes_;
    QString name_;
    ::zip* archive_ = nullptr;
    mutable std::optional<QHash<QString, std::uint64_t>> likenesses_;
};

} // namespace lineara
