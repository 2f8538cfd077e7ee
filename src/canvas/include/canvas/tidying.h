#pragma once

#include "model/pool.h"
#include "platform/progress.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace lineara {

/// Works places within their rows out for persons of a family, in three parts: it is made of the family as it is,
/// computes, which may happen on another thread, and tells the places. The generations must be worked out before.
class Tidying
{
public:
    struct Place
    {
        RecordId person;
        std::int32_t x = 0; ///< left edge in points
    };

    /// Everybody gets a new place; an order that is tidy already stays.
    static Tidying ofEverybody(const Pool& pool);
    /// These get new places among all others, who move only where a row has no room for them. Everybody must have a
    /// place.
    static Tidying ofSome(const Pool& pool, const std::vector<RecordId>& persons);
    /// Only persons without a place get one, families together, to the right of everybody who has one.
    static Tidying ofNewcomers(const Pool& pool);

    /// Leaves nothing to tell if the progress is stopped meanwhile.
    void compute(const Progress& progress = {});

    /// Of those who are to move; empty before all is computed, and after a stop.
    const std::vector<Place>& places() const { return places_; }

private:
    explicit Tidying(const Pool& pool);
    void keepOnly(const std::vector<engine::PersonIndex>& persons);
    std::optional<std::vector<std::int32_t>> edges(const Progress& progress) const;

    FamilySnapshot family_;
    std::vector<engine::Generation> generations_;
    std::vector<std::int32_t> birthYears_;
    std::vector<std::int32_t> present_; // left edges; empty where somebody has no place yet
    std::vector<std::int32_t> widths_;  // of the nodes, where some get places among others
    std::vector<bool> isAsked_;
    std::optional<std::vector<engine::PersonIndex>> selected_; // no value for everybody
    std::int32_t margin_ = 0;
    std::vector<Place> places_;
};

/// Places that were worked out, as the context takes them. Persons that are gone, or stand there already, are left out.
struct Moves
{
    std::vector<Person*> persons;
    std::vector<std::optional<std::int32_t>> places;
};
Moves movesOf(const std::vector<Tidying::Place>& places, const ObjectContext& context);

/// Gives every person of the pool that has no x a place of its own, families together, so that nobody overlaps; the
/// generations must be worked out. Persons that have an x keep it, and all others stand to the right of them.
void giveFirstPlaces(Pool& pool);

} // namespace lineara
