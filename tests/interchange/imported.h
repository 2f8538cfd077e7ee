#pragma once

#include "interchange/gedcom_import.h"

#include <QByteArray>

#include <string>
#include <vector>

namespace lineara {

/// The family that a GEDCOM text gives; the test ends with an exception if it can't be imported.
ImportedFamily imported(const QByteArray& text);

/// The message of an import that has to fail.
std::string failureOf(const QByteArray& bytes);

/// A family's members in order, and one of them by position.
const OrderedSet<Person*>& membersOf(const ImportedFamily& family);
Person& member(const ImportedFamily& family, std::size_t position);

/// "First Second Third", to compare sets of persons by their names in order.
std::string names(const OrderedSet<Person*>& persons);

/// The notes of an import, one a line.
std::string notesOf(const ImportedFamily& family);

/// "INDI.OCCU 2, INDI.SEX 1": what was kept beside the family, and how many lines of it.
std::string keptOf(const ImportedFamily& family);

} // namespace lineara
