#pragma once

#include "family_links.h"

#include <utility>
#include <vector>

/// Walks over all links of a family at once, each in time linear in persons and links.
namespace lineara::store {

/// The same links seen from the other side; each list in ascending order.
Lists<PersonIndex> transposed(const Lists<PersonIndex>& links);

/// Whether b lists exactly those links that a lists, from the other side, and nobody stands twice in a list.
bool areInverse(const Lists<PersonIndex>& a, const Lists<PersonIndex>& b);

/// Whether nobody is a descendant of its own. Both sides must agree.
bool isFreeOfCycles(const Lists<PersonIndex>& children, const Lists<PersonIndex>& parents);

/// The links (parent, child) that close a cycle when the family is walked down in the order of the file, child by
/// child; without them there is none.
std::vector<std::pair<PersonIndex, PersonIndex>> closingLinks(const Lists<PersonIndex>& children);

} // namespace lineara::store
