#pragma once

#include <QStringView>

namespace lineara {

class Person;

/// Whether the records hold a link of the type, whichever of two partners is named first.
bool isLinked(const Person& from, Person& to, QStringView type);

/// Whether only a run of the engine can tell the generations of two persons that were just linked: both have one
/// already, or the child would come to stand below the first row.
bool needsFullRun(const Person& from, const Person& to, QStringView type);

/// Gives two linked persons their generations where that needs no knowledge of the rest of the family. Who has one
/// keeps it.
void assignLinkGenerations(Person& from, Person& to, QStringView type);

} // namespace lineara
