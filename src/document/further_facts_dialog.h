#pragma once

#include "interchange/further_facts.h"

#include <vector>

class QWidget;

namespace lineara {

class Person;

/// Lists the facts of an imported person to be read and copied, beside the window they belong to and without blocking
/// it. Nothing to be listed opens nothing.
void showFurtherFacts(QWidget& owner, const Person& person, const std::vector<FurtherFact>& facts);

} // namespace lineara
