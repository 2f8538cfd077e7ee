#pragma once

#include "platform/outcome.h"
#include "platform/progress.h"

#include <QByteArray>
#include <QString>

#include <string_view>

namespace lineara {

class ImportNotes;

/// The text of a GEDCOM file, fit to be kept: UTF-8 without a byte order mark, every line but perhaps the last ended by
/// LF, and free of characters that a family file can't hold.
struct GedcomText
{
    QByteArray utf8;
    QString charset;                ///< what the bytes were read as: "UTF-8", "ANSEL", ...
    QString declared;               ///< what the header says; empty if nothing
    bool isDeclaredWrongly = false; ///< it is in none that the header's name can mean

    std::string_view view() const { return {utf8.constData(), static_cast<std::size_t>(utf8.size())}; }
};

/// Reads UTF-8, UTF-16 of either byte order, ANSEL, Windows-1252, Latin-1, the character sets of DOS (437, 850) and
/// Macintosh. What a file says about its character set is believed as far as its bytes agree; otherwise the one that
/// they fit best is taken, and that is told. Fails for an empty text, and if it is stopped.
Outcome<GedcomText> gedcomText(QByteArray bytes, const QString& name, ImportNotes& notes,
                               const Progress& progress = {});

} // namespace lineara
