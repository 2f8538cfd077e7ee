#pragma once

#include "model/object_context.h"
#include "platform/outcome.h"
#include "platform/progress.h"
#include "store/family_content.h"

#include <QByteArray>
#include <QIODevice>
#include <QString>
#include <QStringList>

#include <memory>

namespace lineara {

/// The version of the data model that this program reads and writes.
inline constexpr int currentModelVersion = 14;

/// A family read from a file, and what had to be mended while reading (one sentence each; empty for a sound file).
struct LoadedFamily
{
    std::unique_ptr<ObjectContext> context;
    QStringList repairs;
};

/// Reads a family file of the current model version. The failure names the file, the place and the reason. Any thread;
/// the family may then be handed to the main thread. A reading that is stopped fails.
Outcome<LoadedFamily> readFamilyFile(const QString& path, const Progress& progress = {});

/// The same for bytes in memory; `name` is what messages call them. `bytes` is used up (parsed in place).
Outcome<LoadedFamily> readFamily(QByteArray bytes, const QString& name, const Progress& progress = {});

/// Writes the family as the text of a family file. Deterministic: equal families give equal bytes.
/// False if the device refused a write.
bool writeFamily(const ObjectContext& family, QIODevice& device);

/// Saves atomically: the file at `path` is either the old or the new one, whatever happens. Keeps permissions and
/// follows symbolic links; the data is synced to the disk before it takes the file's place. Any thread.
Outcome<Done> saveFamilyFile(const FamilyContent& family, const QString& path);

/// The same for the family as it is now. Main thread only.
Outcome<Done> saveFamilyFile(const ObjectContext& family, const QString& path);

} // namespace lineara
