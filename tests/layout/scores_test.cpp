// How well real families are arranged, against what a general program for graphs makes of them with a point for each
// couple: the figures of Graphviz dot are written down here.

#include "edited_family.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <map>
#include <ostream>
#include <vector>

namespace lineara::layout {
namespace {

using namespace sketch;

/// A piece of a child line between one row and the next, in places.
struct Piece
{
    double upper = 0;
    double lower = 0;
};

/// Lengths in tenths of a place, as they are written down of others; rows count downwards.
class Scores
{
public:
    /// The family must outlive this.
    explicit Scores(const EditedFamily& family) : family_(family), rowOf_(family.persons())
    {
        for (const auto& [generation, row] : family.rows())
            for (const PersonIndex person : row)
                rowOf_[person] = -generation;
        for (PersonIndex child = 0; child < family.persons(); ++child)
            addLine(child);
        for (const auto& [row, pieces] : pieces_)
            crossings_ += crossingsAmong(pieces);
        addCouples();
    }

    std::size_t crossings() const { return crossings_; }
    double ink() const { return inTenths(ink_); }
    std::size_t couplesApart() const { return couplesApart_; }
    double width() const
    {
        const auto [first, last] = std::ranges::minmax_element(family_.places());
        return inTenths(static_cast<double>(*last - *first) / pitch + 1);
    }

private:
    static double inTenths(double length) { return std::round(10 * length) / 10; }

    double placeOf(PersonIndex person) const { return static_cast<double>(family_.places()[person]) / pitch; }

    void addLine(PersonIndex child)
    {
        const auto& parents = family_.links().parents[child];
        if (parents.empty())
            return;
        std::int32_t top = std::numeric_limits<std::int32_t>::min();
        double from = 0;
        for (const PersonIndex parent : parents) {
            top = std::max(top, rowOf_[parent]);
            from += placeOf(parent) / static_cast<double>(parents.size());
        }
        const double rise = placeOf(child) - from;
        const std::int32_t rows = rowOf_[child] - top;
        ink_ += std::abs(rise);
        for (std::int32_t row = 0; row < rows; ++row)
            pieces_[top + row].push_back({from + rise * row / rows, from + rise * (row + 1) / rows});
    }

    static std::size_t crossingsAmong(const std::vector<Piece>& pieces)
    {
        constexpr double touching = 1e-4;
        std::size_t crossings = 0;
        for (std::size_t one = 0; one < pieces.size(); ++one)
            for (std::size_t other = 0; other < one; ++other) {
                const double above = pieces[one].upper - pieces[other].upper;
                const double below = pieces[one].lower - pieces[other].lower;
                const bool isApart = std::abs(above) > touching && std::abs(below) > touching;
                crossings += isApart && (above < 0) != (below < 0) ? 1U : 0U;
            }
        return crossings;
    }

    void addCouples()
    {
        std::vector<std::size_t> position(family_.persons());
        for (const auto& [generation, row] : family_.rows())
            for (std::size_t at = 0; at < row.size(); ++at)
                position[row[at]] = at;
        for (PersonIndex one = 0; one < family_.persons(); ++one)
            for (const PersonIndex other : family_.links().partners[one]) {
                if (other < one)
                    continue;
                ink_ += std::abs(placeOf(one) - placeOf(other));
                const std::size_t distance =
                    std::max(position[one], position[other]) - std::min(position[one], position[other]);
                couplesApart_ += rowOf_[one] == rowOf_[other] && distance != 1 ? 1U : 0U;
            }
    }

    const EditedFamily& family_;
    std::vector<std::int32_t> rowOf_;
    std::map<std::int32_t, std::vector<Piece>> pieces_;
    std::size_t crossings_ = 0;
    std::size_t couplesApart_ = 0;
    double ink_ = 0;
};

/// What a family may have at most.
struct Bars
{
    const char* name;
    std::size_t crossings;
    double ink;
    double width;
    std::size_t couplesApart;
    friend std::ostream& operator<<(std::ostream& out, const Bars& bars) { return out << bars.name; }
};

void expectWithin(const Bars& bars, const EditedFamily& family)
{
    const Scores scores(family);
    EXPECT_LE(scores.crossings(), bars.crossings);
    EXPECT_LE(scores.ink(), bars.ink);
    EXPECT_LE(scores.width(), bars.width);
    EXPECT_LE(scores.couplesApart(), bars.couplesApart);
}

TEST(Scores, TheRoyalFamilyIsArrangedBetterThanAsAGraph)
{
    expectWithin({"royal92.ged", 3'453, 0.95 * 15'866.6, 242.4, 43}, EditedFamily::imported("royal92.ged"));
}

constexpr const char* elsewhere = "LINEARA_GENEALOGIES";

/// Genealogies that may be read by tests but not be given away with them: they stay in the folder that the environment
/// names. None where it names none.
std::vector<Bars> barsElsewhere()
{
    if (qEnvironmentVariableIsEmpty(elsewhere))
        return {};
    return {Bars{"kennedy.ged", 6, 376, 66.6, 0}, Bars{"pres2020.ged", 73, 3'274, 540.8, 22},
            Bars{"queen.ged", 2'519, 9'578, 123.0, 7}};
}

class ScoresElsewhere : public testing::TestWithParam<Bars>
{};

TEST_P(ScoresElsewhere, AreBetterThanAsAGraph)
{
    expectWithin(GetParam(), EditedFamily::imported(GetParam().name, qEnvironmentVariable(elsewhere)));
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(ScoresElsewhere);
INSTANTIATE_TEST_SUITE_P(Files, ScoresElsewhere, testing::ValuesIn(barsElsewhere()));

class ScoresOfSmallFamilies : public testing::TestWithParam<Bars>
{};

TEST_P(ScoresOfSmallFamilies, AreNoWorseThanAsAGraph)
{
    expectWithin(GetParam(), EditedFamily::imported(GetParam().name));
}

INSTANTIATE_TEST_SUITE_P(Files, ScoresOfSmallFamilies,
                         testing::Values(Bars{"shakespeare.ged", 0, 42.7, 9.0, 0},
                                         Bars{"relationships-complex.ged", 0, 30.5, 12.0, 0},
                                         Bars{"bronte.ged", 0, 17.4, 7.0, 0}, Bars{"utf8-cr.ged", 0, 8.0, 5.0, 0},
                                         Bars{"family-structure-variants.ged", 0, 1.0, 5.0, 0},
                                         Bars{"calendar-dates.ged", 0, 0.0, 11.0, 0}));

/// Couples side by side, the children by their years and Charlotte's husband on the better side of her: 16.0 at the
/// least.
TEST(Scores, TheBrontesHaveHardlyMoreInkThanTheyMust)
{
    const EditedFamily family = EditedFamily::imported("bronte.ged");
    EXPECT_LE(Scores(family).ink(), 16.5);
}

/// Both wives of one of the kings had their fathers there, and he stands between them.
TEST(Scores, TheIrishKingsAreNarrowerAndCrossOnce)
{
    const EditedFamily family = EditedFamily::imported("irish-kings-cp1252.ged");
    const Scores scores(family);
    EXPECT_LE(scores.crossings(), 1U);
    EXPECT_LE(scores.width(), 25.0);
}

} // namespace
} // namespace lineara::layout
