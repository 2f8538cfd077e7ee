#pragma once

#include <QString>

namespace lineara {

class Document;

/// Tells in its window why the document is a copy: its file can't be brought up to date, for that reason.
void tellThatOutOfDate(Document& document, const QString& obstacle);

/// The same where somebody else works on the file that the document's unsaved changes belong to.
void tellThatInUse(Document& document);

} // namespace lineara
