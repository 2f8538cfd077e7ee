#include "chart.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace lineara::layout {

using engine::PersonIndex;

namespace {

struct OwnedSpring
{
    BlockIndex owner = 0;
    Spring spring;
};

struct LineInRow
{
    std::uint32_t owner = 0;
    std::uint32_t line = 0;
};

struct ChildOfCouple
{
    PersonIndex otherParent = 0;
    engine::Generation row = 0;
    PersonIndex child = 0;
};

struct OwnedPair
{
    BlockIndex owner = 0;
    SiblingPair pair;
};

/// Collects springs between blocks of different rows for either end.
class SpringTier
{
public:
    explicit SpringTier(const Chart& chart) : chart_(chart) {}

    void tie(const Anchor& one, const Anchor& other, double weight)
    {
        const std::uint32_t row = chart_.rowOf[one.block];
        const std::uint32_t otherRow = chart_.rowOf[other.block];
        if (row == otherRow)
            return;
        const Anchor& upper = row < otherRow ? one : other;
        const Anchor& lower = row < otherRow ? other : one;
        up_.push_back({lower.block, {lower.offset, upper, weight}});
        down_.push_back({upper.block, {upper.offset, lower, weight}});
    }

    void giveTo(Chart& chart) const
    {
        chart.springsUp = sortIntoLists(chart.blocks(), up_, &OwnedSpring::spring);
        chart.springsDown = sortIntoLists(chart.blocks(), down_, &OwnedSpring::spring);
    }

private:
    const Chart& chart_;
    std::vector<OwnedSpring> up_;
    std::vector<OwnedSpring> down_;
};

/// The greatest length, in rows, such that all lines up to it have together no more than `pieces` pieces.
std::size_t longestAffordable(std::vector<std::size_t> lengths, std::size_t pieces)
{
    std::ranges::sort(lengths);
    std::size_t longest = 0;
    for (std::size_t begin = 0; begin < lengths.size();) {
        const std::size_t length = lengths[begin];
        std::size_t end = begin;
        while (end < lengths.size() && lengths[end] == length)
            ++end;
        const std::size_t needed = (end - begin) * length;
        if (needed > pieces)
            break;
        pieces -= needed;
        longest = length;
        begin = end;
    }
    return longest;
}

/// A pair is worth a crossing, and more where blocks hang together by many ways, as lines cross often there anyway.
double costOfDisorderIn(const Chart& chart)
{
    constexpr double perCircle = 30;
    const auto blocks = static_cast<double>(chart.blocks());
    const double circles = 1 + static_cast<double>(chart.springsUp.items()) - blocks;
    return 1 + perCircle * std::max(0.0, circles / blocks);
}

} // namespace

int passes(const Chart& chart, int most, int least)
{
    constexpr std::size_t smallFamily = 3'000;
    if (chart.blocks() <= smallFamily)
        return most;
    return std::max(least, static_cast<int>(static_cast<std::size_t>(most) * smallFamily / chart.blocks()));
}

ChartBuilder::ChartBuilder(const engine::FamilyGraph& family, const std::vector<engine::Generation>& rows,
                           std::span<const std::int32_t> birthYears)
    : family_(family), rows_(rows), birthYears_(birthYears), partnerRows_(family, rows),
      blockOf_(family.persons(), noBlock), offsetOf_(family.persons(), 0)
{}

Chart ChartBuilder::build(std::span<const PersonIndex> persons)
{
    Chart chart;
    formBlocks(chart, persons);
    numberRows(chart);
    noteBirths(chart);
    drawLines(chart);
    listLinesBelow(chart);
    listRelatives(chart);
    tieSprings(chart);
    if (!birthYears_.empty())
        listSibships(chart);
    pairSiblings(chart);
    chart.costOfDisorder = costOfDisorderIn(chart);
    return chart;
}

void ChartBuilder::formBlocks(Chart& chart, std::span<const PersonIndex> persons)
{
    for (const PersonIndex person : persons) {
        if (blockOf_[person] != noBlock)
            continue;
        const auto block = static_cast<BlockIndex>(chart.members.lists());
        double offset = 0;
        for (const PersonIndex member : partnerRows_.groupOf(person)) {
            blockOf_[member] = block;
            offsetOf_[member] = offset++;
            chart.members.append(member);
        }
        chart.members.endList();
    }
}

void ChartBuilder::numberRows(Chart& chart) const
{
    std::vector<engine::Generation> used;
    for (BlockIndex block = 0; block < chart.members.lists(); ++block)
        used.push_back(rows_[chart.members[block].front()]);
    std::vector<engine::Generation> oldestFirst = used;
    std::ranges::sort(oldestFirst, std::greater{});
    oldestFirst.erase(std::unique(oldestFirst.begin(), oldestFirst.end()), oldestFirst.end());
    chart.rows = static_cast<std::uint32_t>(oldestFirst.size());
    for (const engine::Generation row : used)
        chart.rowOf.push_back(static_cast<std::uint32_t>(std::ranges::lower_bound(oldestFirst, row, std::greater{}) -
                                                         oldestFirst.begin()));
}

void ChartBuilder::noteBirths(Chart& chart) const
{
    chart.bornIn.assign(chart.members.lists(), unknownBirthYear);
    if (birthYears_.empty())
        return;
    for (BlockIndex block = 0; block < chart.members.lists(); ++block) {
        const auto members = chart.members[block];
        const auto child =
            std::ranges::find_if(members, [&](PersonIndex member) { return !family_.parents[member].empty(); });
        if (child != members.end())
            chart.bornIn[block] = birthYears_[*child];
    }
}

void ChartBuilder::drawLines(Chart& chart) const
{
    for (BlockIndex block = 0; block < chart.blocks(); ++block)
        for (const PersonIndex child : chart.members[block])
            if (const auto parents = family_.parents[child]; !parents.empty())
                chart.lines.push_back(
                    {anchorOf(parents[0]), anchorOf(parents.size() > 1 ? parents[1] : parents[0]), anchorOf(child)});
}

void ChartBuilder::listLinesBelow(Chart& chart) const
{
    constexpr std::size_t piecesPerLine = 8;
    std::vector<std::size_t> lengths;
    for (const ChildLine& line : chart.lines) {
        const std::uint32_t top = chart.topOf(line);
        lengths.push_back(std::max(chart.bottomOf(line), top) - top);
    }
    const std::size_t longest = longestAffordable(lengths, piecesPerLine * lengths.size());
    std::vector<LineInRow> pieces;
    for (std::uint32_t line = 0; line < chart.lines.size(); ++line) {
        const std::uint32_t top = chart.topOf(chart.lines[line]);
        if (lengths[line] <= longest)
            for (std::uint32_t row = top; row < top + lengths[line]; ++row)
                pieces.push_back({row, line});
    }
    chart.linesBelow = sortIntoLists(chart.rows, pieces, &LineInRow::line);
}

void ChartBuilder::listRelatives(Chart& chart) const
{
    for (BlockIndex block = 0; block < chart.blocks(); ++block) {
        for (const PersonIndex member : chart.members[block]) {
            for (const PersonIndex child : family_.children[member])
                chart.childBlocks.append(blockOf_[child]);
            for (const PersonIndex parent : family_.parents[member])
                chart.parentBlocks.append(blockOf_[parent]);
        }
        chart.childBlocks.endList();
        chart.parentBlocks.endList();
    }
}

void ChartBuilder::tieSprings(Chart& chart) const
{
    SpringTier springs(chart);
    for (const auto& [first, second, child] : chart.lines) {
        if (first.block == second.block) {
            springs.tie({first.block, (first.offset + second.offset) / 2}, child, 1);
        } else {
            springs.tie(first, child, 0.5);
            springs.tie(second, child, 0.5);
        }
    }
    for (BlockIndex block = 0; block < chart.blocks(); ++block)
        for (const PersonIndex member : chart.members[block])
            for (const PersonIndex partner : family_.partners[member])
                if (blockOf_[partner] > block)
                    springs.tie(anchorOf(member), anchorOf(partner), 1);
    springs.giveTo(chart);
}

void ChartBuilder::listSibships(Chart& chart) const
{
    std::vector<ChildOfCouple> children;
    std::vector<PersonIndex> sibship;
    const auto couple = [](const ChildOfCouple& child) { return std::pair(child.otherParent, child.row); };
    for (BlockIndex block = 0; block < chart.blocks(); ++block)
        for (const PersonIndex parent : chart.members[block]) {
            children.clear();
            for (const PersonIndex child : family_.children[parent]) {
                // Each couple is met at both partners, and taken at one of them.
                if (const auto parents = family_.parents[child];
                    !parents.empty() && std::ranges::min(parents) == parent)
                    children.push_back({std::ranges::max(parents), rows_[child], child});
            }
            std::ranges::stable_sort(children, {}, couple);
            for (auto first = children.begin(); first != children.end();) {
                sibship.clear();
                for (const auto key = couple(*first); first != children.end() && couple(*first) == key; ++first)
                    sibship.push_back(first->child);
                addSibship(chart, sibship);
            }
        }
}

void ChartBuilder::addSibship(Chart& chart, std::span<const PersonIndex> children) const
{
    std::vector<Sibling> sibship;
    for (const PersonIndex child : children)
        sibship.push_back({anchorOf(child), birthYears_[child]});
    const auto blockOf = [](const Sibling& sibling) { return sibling.place.block; };
    std::ranges::stable_sort(sibship, {}, blockOf);
    sibship.erase(std::ranges::unique(sibship, {}, blockOf).begin(), sibship.end());
    const auto known =
        std::ranges::count_if(sibship, [](const Sibling& one) { return one.bornIn != unknownBirthYear; });
    if (known < 2)
        return;
    for (const Sibling& sibling : sibship)
        chart.sibships.append(sibling);
    chart.sibships.endList();
}

void ChartBuilder::pairSiblings(Chart& chart) const
{
    std::vector<OwnedPair> pairs;
    const auto pair = [&](const Sibling& elder, const Sibling& younger) {
        for (const BlockIndex owner : {elder.place.block, younger.place.block})
            pairs.push_back({owner, {elder.place, younger.place}});
    };
    std::vector<Sibling> byYear;
    for (std::size_t sibship = 0; sibship < chart.sibships.lists(); ++sibship) {
        const auto siblings = chart.sibships[sibship];
        byYear.assign(siblings.begin(), siblings.end());
        std::erase_if(byYear, [](const Sibling& sibling) { return sibling.bornIn == unknownBirthYear; });
        std::ranges::stable_sort(byYear, {}, &Sibling::bornIn);
        for (const Sibling& sibling : byYear) {
            const auto sameYear = std::ranges::equal_range(byYear, sibling.bornIn, {}, &Sibling::bornIn);
            if (sameYear.end() != byYear.end())
                pair(sibling, *sameYear.end());
            // The first of a year has its elder one from the line above.
            if (sameYear.begin() != byYear.begin() && &*sameYear.begin() != &sibling)
                pair(*std::prev(sameYear.begin()), sibling);
        }
    }
    chart.siblingPairs = sortIntoLists(chart.blocks(), pairs, &OwnedPair::pair);
}

} // namespace lineara::layout
