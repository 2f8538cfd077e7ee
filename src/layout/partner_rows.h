#pragma once

#include "engine/family_graph.h"
#include "engine/process.h"

#include <array>
#include <vector>

namespace lineara::layout {

/// Puts persons who are partners, directly or through further partners, and stand in one row into an order from left
/// to right in which as many partners as possible are neighbours.
class PartnerRows
{
public:
    PartnerRows(const engine::FamilyGraph& family, const std::vector<engine::Generation>& rows);

    /// The group of `person`, itself included; just the person where there is no partner in its row. Takes time linear
    /// in the group and its partner links.
    const std::vector<engine::PersonIndex>& groupOf(engine::PersonIndex person);

private:
    static constexpr engine::PersonIndex nobody = ~engine::PersonIndex{0};

    void collect(engine::PersonIndex first);
    engine::PersonIndex mostMarried() const;
    void joinShoulders();
    void joinPartnersOf(engine::PersonIndex person, bool withChildren);
    bool join(engine::PersonIndex person, engine::PersonIndex other);
    void lineUp();
    std::vector<engine::PersonIndex> chainOf(engine::PersonIndex person);

    const engine::FamilyGraph& family_;
    const std::vector<engine::Generation>& rows_;
    /// Who led to each person of the group; nobody for those not collected.
    std::vector<engine::PersonIndex> metThrough_;
    std::vector<std::array<engine::PersonIndex, 2>> shoulders_;
    std::vector<bool> linedUp_;
    std::vector<engine::PersonIndex> group_;
};

} // namespace lineara::layout
