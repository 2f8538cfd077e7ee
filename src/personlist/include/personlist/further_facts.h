#pragma once

#include <functional>

namespace lineara {

class Person;

/// What a list is told of facts that a person's record has no field for, and that are kept beside it.
struct FurtherFacts
{
    /// Asked anew whenever the person's links or picture have changed, or imported records have gone or come back.
    std::function<int(const Person&)> count = [](const Person&) { return 0; };
    /// The user wants to read them.
    std::function<void(const Person&)> show = [](const Person&) {};
};

} // namespace lineara
