#pragma once

#include <functional>

namespace lineara {

class Document;

/// Told whether everything ended as its user wished: false where something went wrong, which has been told in the
/// document's window, or was given up.
using Settled = std::function<void(bool)>;

/// Saves to the document's own file, or asks for one where it has none. A file that somebody else has changed is
/// overwritten only after a question. Nothing is written where nothing was changed.
void saveDocument(
    Document& document, const Settled& settled = [](bool) {});

/// Asks for a file and saves to it.
void saveDocumentAs(
    Document& document, const Settled& settled = [](bool) {});

/// Asks for a file and writes the family to it as well.
void saveDocumentCopy(Document& document);

} // namespace lineara
