#include "selected_part.h"

#include "components.h"
#include "cost.h"
#include "order.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace lineara::layout {

using engine::Generation;
using engine::PersonIndex;

namespace {

constexpr PersonIndex nobody = ~PersonIndex{0};

} // namespace

SelectedPart::SelectedPart(const TidyTask& task, std::span<const PersonIndex> selected)
    : task_(task), persons_(selected.begin(), selected.end()), selected_(selected.size()),
      indexOf_(task.family.persons(), nobody)
{
    for (PersonIndex index = 0; index < selected_; ++index)
        indexOf_[persons_[index]] = index;
    for (PersonIndex index = 0; index < selected_; ++index)
        takeCompanionsOf(persons_[index]);
    copyPart();
    ChartBuilder builder(links_, rows_, birthYears_);
    const Lists<PersonIndex> families = connectedFamilies(links_);
    for (std::size_t number = 0; number < families.lists(); ++number)
        families_.push_back({builder.build(families[number]), {families[number].begin(), families[number].end()}});
    for (std::size_t index = 0; index < selected_; ++index)
        wishes_.push_back(present_[index]);
}

void SelectedPart::takeCompanionsOf(PersonIndex person)
{
    const auto take = [this](std::span<const PersonIndex> others) {
        for (const PersonIndex other : others) {
            if (indexOf_[other] != nobody)
                continue;
            indexOf_[other] = static_cast<PersonIndex>(persons_.size());
            persons_.push_back(other);
        }
    };
    take(task_.family.parents[person]);
    take(task_.family.children[person]);
    take(task_.family.partners[person]);
    // Without both parents a child would hang from one of them, among half siblings who are whole ones then.
    for (const PersonIndex child : task_.family.children[person])
        take(task_.family.parents[child]);
}

void SelectedPart::copyPart()
{
    links_ = engine::partOf(task_.family, persons_);
    for (const PersonIndex person : persons_) {
        rows_.push_back(std::max(task_.generations[person], 0));
        present_.push_back(task_.present[person]);
        if (!task_.birthYears.empty())
            birthYears_.push_back(task_.birthYears[person]);
    }
}

bool SelectedPart::tidyUp(const TidyProgress& progress)
{
    TidyTask task{links_, rows_};
    task.birthYears = birthYears_;
    task.present = present_;
    task.pitch = task_.pitch;
    const auto tidied = tidy(task, progress);
    if (!tidied)
        return false;
    for (Family& family : families_)
        wishFor(family, *tidied);
    return true;
}

/// Springs never come to rest altogether, and who stands well wants to stay.
SelectedPart::Standing SelectedPart::clearlyBetterThan(Standing standing)
{
    constexpr double clearly = 1.2;
    constexpr double least = 0.1;
    standing.cost = standing.cost / clearly - least;
    return standing;
}

/// Takes the tidied places or their mirror image, whichever is better beside the companions.
void SelectedPart::wishFor(Family& family, std::span<const std::int32_t> tidied)
{
    Standing best = clearlyBetterThan(standingOf(family, inPlaces(present_)));
    for (const std::int64_t direction : {1, -1}) {
        const auto better = betterPlaces(family, tidied, direction, best);
        if (!better)
            continue;
        family.isToMove = true;
        for (const PersonIndex person : family.persons)
            if (isSelected(person))
                wishes_[person] = std::llround((*better)[person] * task_.pitch);
    }
}

/// The selected as tidied, as near to where their companions stand as may be; without companions, to where they stood.
std::optional<std::vector<double>> SelectedPart::betterPlaces(const Family& family,
                                                              std::span<const std::int32_t> tidied,
                                                              std::int64_t direction, Standing& best) const
{
    const bool hasCompanions =
        std::ranges::any_of(family.persons, [&](PersonIndex person) { return !isSelected(person); });
    std::vector<std::int64_t> shifts;
    for (const PersonIndex person : family.persons)
        if (!hasCompanions || !isSelected(person))
            shifts.push_back(present_[person] - direction * tidied[person]);
    std::ranges::sort(shifts);
    const std::int64_t shift = std::midpoint(shifts[(shifts.size() - 1) / 2], shifts[shifts.size() / 2]);
    std::vector<double> places(persons_.size(), 0);
    for (const PersonIndex person : family.persons) {
        const std::int64_t left = isSelected(person) ? direction * tidied[person] + shift : present_[person];
        places[person] = static_cast<double>(left) / task_.pitch;
    }
    const Standing standing = standingOf(family, places);
    if (std::pair(standing.apart, standing.cost) >= std::pair(best.apart, best.cost))
        return std::nullopt;
    best = standing;
    return places;
}

std::vector<double> SelectedPart::inPlaces(std::span<const std::int32_t> leftEdges) const
{
    std::vector<double> places;
    places.reserve(leftEdges.size());
    for (const std::int32_t left : leftEdges)
        places.push_back(static_cast<double>(left) / task_.pitch);
    return places;
}

SelectedPart::Standing SelectedPart::standingOf(const Family& family, const std::vector<double>& places) const
{
    constexpr double rounding = 0.01;
    Standing standing{0, costOf(family.chart, orderAt(family.chart, places))};
    for (const PersonIndex person : family.persons)
        for (const PersonIndex partner : links_.partners[person])
            if (rows_[person] == rows_[partner] && (isSelected(person) || isSelected(partner)))
                standing.apart += std::abs(places[person] - places[partner]) > 1 + rounding ? 1 : 0;
    return standing;
}

bool SelectedPart::giveUpInVain(const std::vector<std::int32_t>& places)
{
    std::vector<std::int32_t> now(persons_.size());
    for (PersonIndex index = 0; index < persons_.size(); ++index)
        now[index] = places[persons_[index]];
    const std::vector<double> before = inPlaces(present_);
    const std::vector<double> after = inPlaces(now);
    bool inVain = false;
    for (Family& family : families_) {
        if (!family.isToMove)
            continue;
        const Standing wanted = clearlyBetterThan(standingOf(family, before));
        const Standing is = standingOf(family, after);
        if (std::pair(is.apart, is.cost) < std::pair(wanted.apart, wanted.cost))
            continue;
        inVain = true;
        family.isToMove = false;
        for (const PersonIndex person : family.persons)
            if (isSelected(person))
                wishes_[person] = present_[person];
    }
    return inVain;
}

} // namespace lineara::layout
