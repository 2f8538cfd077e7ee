#pragma once

#include "person_reading.h"

namespace lineara {

class ImportedIndex;
class NodeLedger;
class SourceRecord;

/// Takes the lines of a person's record in the ledger that speak of the picture which the person got from them, or say
/// that none is the person's. `reading` is what readPerson() made of the record.
void takePictureLines(const SourceRecord& record, const GedcomTree& tree, const PersonReading& reading,
                      const ImportedIndex& index, NodeLedger& ledger);

} // namespace lineara
