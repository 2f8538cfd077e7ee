#pragma once

#include "engine/family_graph.h"
#include "kinship/date_range.h"
#include "kinship/sex.h"

#include <cstdint>
#include <optional>
#include <span>
#include <stop_token>
#include <vector>

namespace lineara::kinship {

using engine::PersonIndex;

struct LifeDates
{
    PartialDate birth;
    PartialDate death;
};

/// What the checks look at. Both lists hold one entry per person of the family; `sexes` may be empty for nobody's.
struct CheckedFamily
{
    const engine::FamilyGraph& family;
    std::span<const LifeDates> dates;
    std::span<const Sex> sexes = {};
};

enum class Finding : std::uint8_t
{
    BornAfterDeath,         ///< of the person itself
    TooOld,                 ///< the person died at over 120
    BornBeforeParent,       ///< `other` is the parent, here and below
    ParentTooYoung,         ///< under 12 at the person's birth
    ParentTooOld,           ///< over 80 at the person's birth
    BornAfterParentsDeath,  ///< of a mother; of anybody else more than ten months after
    BornTooSoonAfterSibling ///< less than nine months after `other`, with whom it shares the mother, and no twin
};

struct FoundPerson
{
    PersonIndex person = 0;
    Finding finding{};
    std::optional<PersonIndex> other = std::nullopt;
    friend auto operator<=>(const FoundPerson&, const FoundPerson&) = default;
};

inline constexpr std::int64_t leastParentAge = 12; // years
inline constexpr std::int64_t greatestParentAge = 80;
inline constexpr std::int64_t greatestAge = 120;
inline constexpr std::int64_t monthsBetweenSiblings = 9;
inline constexpr std::int64_t mostMonthsCarried = 10; // longer than the longest that is known
inline constexpr DayNumber daysBetweenTwins = 2;

/// All that can't be true of a family's dates, by person. Of partial dates only what holds for every day that they may
/// mean is told, so that what is not known is never a finding. Siblings are compared where they are sure to have the
/// same mother: both parents are shared, or the shared one is female. Each is told of once for each mother, with the
/// last of those born before. Time is linear in persons and links, apart from sorting siblings. No value if `stop` was
/// requested. Pure: may run on any thread.
std::optional<std::vector<FoundPerson>> findings(const CheckedFamily& family, std::stop_token stop = {});

} // namespace lineara::kinship
