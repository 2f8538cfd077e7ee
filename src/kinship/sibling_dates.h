#pragma once

#include "kinship/checks.h"

#include <vector>

namespace lineara::kinship {

/// Siblings of one mother who can't have been born when they were.
class SiblingDates
{
public:
    SiblingDates(const CheckedFamily& family, std::span<const std::optional<DateRange>> births)
        : family_(family), births_(births)
    {}

    /// Adds what is found among the children of one parent. Full siblings are compared for one of their parents only.
    void lookAt(PersonIndex parent, std::vector<FoundPerson>& found);

private:
    struct Birth
    {
        PersonIndex otherParent = 0;
        DateRange range;
        PersonIndex child = 0;
    };

    bool isFemale(PersonIndex person) const;
    void gather(PersonIndex parent);
    /// By group and, within it, by birth.
    template<class Group>
    void sort(Group group);
    void compare(std::span<const Birth> siblings, std::vector<FoundPerson>& found) const;

    const CheckedFamily& family_;
    std::span<const std::optional<DateRange>> births_;
    std::vector<Birth> children_; // of the parent being looked at
};

} // namespace lineara::kinship
