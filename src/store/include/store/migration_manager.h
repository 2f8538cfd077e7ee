#pragma once

#include "platform/progress.h"
#include "store/atomic_file.h"
#include "store/mapping_model.h"
#include "store/model_version.h"

#include <QString>

namespace lineara {

/// One step of a family file from one version of the data model to another.
class MigrationManager
{
public:
    MigrationManager(ModelVersion source, ModelVersion destination);

    /// Reads the file at `from` and writes what the mapping makes of it to `to`, which is as it was after a failure.
    /// Ids, UUID, next object number, the order of objects and of the members of sets stay, and so does everything that
    /// the older version does not know. The failure names the file, the place and the reason.
    Outcome<Done> migrateStore(const QString& from, const QString& to, const MappingModel& mapping,
                               const store::FileCalls& calls = store::FileCalls::ofTheSystem(),
                               const Progress& progress = {}) const;

private:
    ModelVersion source_;
    ModelVersion destination_;
};

} // namespace lineara
