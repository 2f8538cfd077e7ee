#pragma once

namespace lineara {

class FactSheet;
class ImportedIndex;
class SourceRecord;

/// Tells what the record of a person, and those of the families that name the person, say beyond the fields of the
/// persons of a family.
void tellPerson(const SourceRecord& record, const ImportedIndex& index, FactSheet& sheet);

} // namespace lineara
