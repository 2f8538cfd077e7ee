#pragma once

#include "platform/outcome.h"

#include <QString>
#include <QUuid>

namespace lineara {

/// What a family file says about itself at its beginning.
struct StoreMetadata
{
    int formatVersion = 0;
    QUuid uuid;
    int modelVersion = 0;

    friend bool operator==(const StoreMetadata&, const StoreMetadata&) = default;
};

/// Reads the beginning of the file alone, so that a large family costs no more than a small one. The failure names the
/// file and the reason.
Outcome<StoreMetadata> metadataForPersistentStore(const QString& path);

} // namespace lineara
