#pragma once

#include "interchange/gedcom_import.h"
#include "model/object_context.h"
#include "platform/outcome.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace lineara {

/// A family as it comes out of a file, before the engine has run over it.
struct OpenedFamily
{
    std::unique_ptr<ObjectContext> context;
    /// The family's one pool: the first of the file, or a new one where the file held none. Owned by the context.
    Pool* pool = nullptr;
    /// What had to be mended while reading a family file, one sentence each.
    QStringList repairs;
    /// Present if the file came from another program.
    std::optional<ImportReport> importReport;
};

/// Reads a family file or a GEDCOM file, told apart by their content. Nothing of it is an undoable change.
Outcome<OpenedFamily> openFamily(const QString& path);

/// An empty family.
OpenedFamily newFamily();

/// Opens a family and makes it ready to be drawn in one go, for programs without a window: reads, runs the engine,
/// gives first places.
Outcome<OpenedFamily> openSettledFamily(const QString& path);

} // namespace lineara
