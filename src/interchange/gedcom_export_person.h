#pragma once

#include "gedcom_export_record.h"

#include "model/person.h"

#include <functional>
#include <string>

namespace lineara {

/// The text of the note record with that cross-reference; empty if there is none.
using SharedNoteText = std::function<QString(std::string_view xref)>;

/// Brings the record of a person up to date: `before` is what the import reads in it, `after` what is to be read.
/// Lines about values that are the same stay as they are.
void changeValues(EditedRecord& record, const PersonValues& before, const PersonValues& after,
                  const SharedNoteText& sharedNote);

/// The record of somebody who was not imported, but for its pointers.
std::string newPersonRecord(std::string_view xref, const PersonValues& values, GedcomDialect dialect);

} // namespace lineara
