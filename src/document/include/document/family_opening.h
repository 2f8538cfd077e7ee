#pragma once

#include "document/family_origin.h"
#include "document/recovery_copy.h"
#include "interchange/gedcom_import.h"
#include "model/object_context.h"
#include "platform/outcome.h"
#include "platform/progress.h"

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
    FamilyOrigin origin;
    /// Present if this is a copy because the file itself can't be brought up to date: why, ready to follow a colon.
    std::optional<QString> obstacle;
    /// Present if there are changes that the file does not have: the copy that holds them.
    std::shared_ptr<RecoveryCopy> unsaved;
};

/// Whether the file is named like one of another program (.ged, .gdz, in any case of letters), whatever is in it.
bool isNamedLikeGenealogy(const QString& path);

/// Whether openFamily() imports the file rather than opening it, which its content and its name tell.
bool isToBeImported(const QString& path);

/// Reads a family file or a GEDCOM file, told apart by their content. Nothing of it is an undoable change. A file of an
/// older version is brought up to date in its place; where that can't be done, this reads a copy that stands in for it.
Outcome<OpenedFamily> openFamily(const QString& path, const Progress& progress = {});

/// Reads a family without a claim to its file, which somebody else may work on, now or later: what comes is a copy,
/// which is not written to that file.
Outcome<OpenedFamily> openFamilyCopy(const QString& path, const Progress& progress = {});

/// Whether the file was brought up to date, but could not be replaced by that, when it was opened last. Then a copy of
/// it can be opened.
bool isUpdateStuck(const QString& path);

/// What was copied in the middle of work: whoever was about to join the family joins it.
void completeFamily(OpenedFamily& family);

/// An empty family.
OpenedFamily newFamily();

/// Opens a family and makes it ready to be drawn in one go, for programs without a window: reads, runs the engine,
/// gives first places.
Outcome<OpenedFamily> openSettledFamily(const QString& path);

} // namespace lineara
