#pragma once

#include "model/object_context.h"
#include "platform/outcome.h"
#include "platform/progress.h"

#include <QByteArray>
#include <QString>

#include <memory>

namespace lineara {

/// What importGedcom() makes of records in UTF-8: the same persons, values and links. The records themselves are not
/// kept, and the family has no name of its own, which saves a quarter of the time.
Outcome<std::unique_ptr<ObjectContext>> familyToldBy(QByteArray records, const QString& name, const Progress& progress);

} // namespace lineara
