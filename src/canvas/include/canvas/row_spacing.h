#pragma once

#include "model/record.h"

#include <cstdint>
#include <map>
#include <span>
#include <vector>

namespace lineara {

class FamilyScene;
class ObjectContext;

/// Where a node stands after a layout: its left edge in points.
struct SolvedPlace
{
    RecordId person;
    double left = 0;
    friend bool operator==(const SolvedPlace&, const SolvedPlace&) = default;
};

/// Stores solved places that differ from where their nodes are to stand as x, truncated towards zero, in one change.
/// Persons without a node are left as they are.
void writeBack(std::span<const SolvedPlace> places, ObjectContext& context);

/// The gaps that are installed between the nodes of rows until a layout has taken effect. Every two nodes of a row are
/// to stay apart, which follows from its neighbours: a row is held as its order.
class RowSpacing
{
public:
    struct Member
    {
        RecordId person;
        bool stood = true; ///< was in the row before; newcomers give way
    };

    /// Keeps the members of a row apart, in the order in which they are given, from left to right. The newest order of
    /// a row holds.
    void install(std::int32_t row, std::vector<Member> order);

    /// Number of gaps between two nodes as installed since the last clear, those of repeated installations included.
    std::uint64_t count() const { return count_; }

    /// True from an installation until the next layout.
    bool needsLayout() const { return needsLayout_; }

    /// Works out where the nodes of the installed rows have to stand. Who has left the canvas or the row meanwhile is
    /// left out.
    void layOut(const FamilyScene& scene);
    /// As of the last layout, for every node of the rows that were installed then.
    const std::vector<SolvedPlace>& solved() const { return solved_; }

    void clear();

private:
    std::map<std::int32_t, std::vector<Member>> rows_;
    std::vector<SolvedPlace> solved_;
    std::uint64_t count_ = 0;
    bool needsLayout_ = false;
};

} // namespace lineara
