#pragma once

#include "person_reading.h"

#include <QStringList>

#include <unordered_map>

namespace lineara {

class ImportedIndex;
class NodeLedger;
class SourceRecord;

/// Of the files that an object names beside the one that was taken, the titles; by the first line that points at it.
using FilesLeft = std::unordered_map<NodeIndex, QStringList>;

/// Takes the lines of a person's record in the ledger that speak of the picture which the person got from them, or say
/// that none is the person's. `reading` is what readPerson() made of the record. Returns what their taking would hide.
FilesLeft takePictureLines(const SourceRecord& record, const GedcomTree& tree, const PersonReading& reading,
                           const ImportedIndex& index, NodeLedger& ledger);

} // namespace lineara
