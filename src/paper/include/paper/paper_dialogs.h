#pragma once

#include "paper/paper_parts.h"

#include <QString>

#include <vector>

class QWidget;

namespace lineara {

class FamilyScene;

/// What is put onto paper, and what is suggested for it.
struct PaperSubject
{
    /// The canvas's own; must outlive the dialog. Ought to be settled before, since what glides is drawn where it is.
    const FamilyScene* scene = nullptr;
    /// The first one is chosen as long as the user has not chosen another; partsOf() gives the usual ones.
    std::vector<PaperPart> parts;
    QString title;  ///< of the family
    QString footer; ///< with the date, in the user's language
    QString folder; ///< where files are offered to be put
};

/// Shows the dialog that makes a PDF, SVG or PNG file of a family. Returns at once; the dialog belongs to `parent` and
/// goes with it. Closing it while a file is made leaves nothing behind.
void showExportPicture(QWidget* parent, PaperSubject subject);

/// Shows the dialog that prints a family, on one page or as a poster, with a preview of all pages; it can also save
/// them as PDF. Otherwise like showExportPicture().
void showPrint(QWidget* parent, PaperSubject subject);

} // namespace lineara
