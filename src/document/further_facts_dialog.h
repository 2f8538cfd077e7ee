#pragma once

class QWidget;

namespace lineara {

class Person;

/// How many facts about the person came with an imported file and have no field of their own.
int countFurtherFacts(const Person& person);

/// Lists them to be read, beside the window they belong to and without blocking it.
void showFurtherFacts(QWidget& owner, const Person& person);

} // namespace lineara
