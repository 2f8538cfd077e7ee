#pragma once

namespace lineara {

class Document;

/// Asks for a file and writes the family to it as a GEDCOM file, of the version that its user chooses.
void exportGedcom(Document& document);

/// Asks what of the family becomes which kind of picture, and makes it. Nothing before there is a canvas.
void exportPicture(Document& document);

/// The same for paper.
void printFamily(Document& document);

} // namespace lineara
