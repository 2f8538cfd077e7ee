#pragma once

#include "chart.h"

#include "layout/tidy.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace lineara::layout {

/// The selected persons of a family and where they would best stand. Their companions, outsiders who are parent, child
/// or partner of one of them or have a child with one, say where they belong and stay where they are.
class SelectedPart
{
public:
    /// Both must outlive this; everybody has a place.
    SelectedPart(const TidyTask& task, std::span<const engine::PersonIndex> selected);

    /// Works the wishes out. Returns false if `progress` said not to go on.
    bool tidyUp(const TidyProgress& progress);

    /// The wished left edges in points, one per selected person. Whoever stands well enough wishes to stay.
    const std::vector<std::int64_t>& wishes() const { return wishes_; }

    /// Lets those wish to stay who would be no better off where they came to stand, there being no better room.
    /// `places` are the left edges of the whole family. Returns whether there were any.
    bool giveUpInVain(const std::vector<std::int32_t>& places);

private:
    /// A connected family among the selected and their companions.
    struct Family
    {
        Chart chart;
        std::vector<engine::PersonIndex> persons;
        bool isToMove = false;
    };

    /// How well a family stands, less being better: couples apart come first.
    struct Standing
    {
        std::int64_t apart = 0;
        double cost = 0;
    };

    void takeCompanionsOf(engine::PersonIndex person);
    void copyPart();
    void wishFor(Family& family, std::span<const std::int32_t> tidied);
    std::optional<std::vector<double>> betterPlaces(const Family& family, std::span<const std::int32_t> tidied,
                                                    std::int64_t direction, Standing& best) const;
    std::vector<double> inPlaces(std::span<const std::int32_t> leftEdges) const;
    static Standing clearlyBetterThan(Standing standing);
    Standing standingOf(const Family& family, const std::vector<double>& places) const;
    bool isSelected(engine::PersonIndex person) const { return person < selected_; }

    const TidyTask& task_;
    /// Who of the whole family each of the part is, the selected first, and the other way round.
    std::vector<engine::PersonIndex> persons_;
    std::size_t selected_ = 0;
    std::vector<engine::PersonIndex> indexOf_;
    engine::FamilyGraph links_;
    std::vector<engine::Generation> rows_;
    std::vector<std::int32_t> birthYears_;
    std::vector<std::int32_t> present_;
    std::vector<Family> families_;
    std::vector<std::int64_t> wishes_;
};

} // namespace lineara::layout
