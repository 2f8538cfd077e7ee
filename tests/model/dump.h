#pragma once

#include "model/object_context.h"

#include <QString>

#include <string>

namespace lineara::test {

/// Everything that a record holds, every set in its order.
std::string dump(const Record& record);

/// Everything that a context holds, the next number included: equal texts mean equal families.
std::string dump(const ObjectContext& context);

/// What the two sides of some link disagree about; empty if nothing.
std::string inconsistencies(const ObjectContext& context);

} // namespace lineara::test
