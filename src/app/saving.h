#pragma once

namespace lineara {

class Document;

/// Saves to the document's own file, or asks for one where it has none. What went wrong is told in the document's
/// window.
void saveDocument(Document& document);

/// Asks for a file and saves to it.
void saveDocumentAs(Document& document);

} // namespace lineara
