#pragma once

#include "media_files.h"

#include "platform/outcome.h"
#include "platform/progress.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <memory>

namespace lineara {

enum class GenealogyKind : std::uint8_t
{
    Gedcom,
    Gedzip
};

/// Tells a genealogy by its first bytes; fails with what it is instead. `name` is how messages call the file.
Outcome<GenealogyKind> recognise(const QByteArray& beginning, const QString& name);

/// A genealogy as it was found, and where its pictures are.
struct GenealogyFile
{
    QByteArray bytes;
    std::unique_ptr<MediaFiles> media;
};

/// Reads a genealogy. Looks at the beginning first, so that anything else is refused at once whatever its size.
Outcome<GenealogyFile> readGenealogy(const QString& path, const QString& name, const Progress& progress);

/// The same for bytes in memory.
Outcome<GenealogyFile> readGenealogy(QByteArray bytes, const QString& name, const Progress& progress);

/// Longest genealogy read.
constexpr qint64 mostGenealogyBytes = qint64{512} * 1024 * 1024;
Failure tooLongGenealogy(const QString& name);

} // namespace lineara
