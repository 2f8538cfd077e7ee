#include "family_sketch.h"

#include "engine/process.h"
#include "layout/tidy.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace lineara::layout {
namespace {

using namespace sketch;

TEST(TidyOfAProcessedFamily, FivePersonsStandAsTheirGenerationsSay)
{
    Sketch sketch;
    for (int person = 0; person < 5; ++person)
        sketch.person(engine::noGeneration);
    sketch.marry(0, 1);
    sketch.bear(2, {0, 1});
    sketch.marry(2, 3);
    sketch.bear(4, {2, 3});
    const FamilyGraph graph = sketch.graph();
    const auto result = engine::process(graph);
    ASSERT_TRUE(result.has_value());
    const std::int32_t half = pitch / 2;
    EXPECT_THAT(tidied(graph, result->generations, margin),
                testing::ElementsAre(margin, margin + pitch, margin + half, margin + half + pitch, margin + pitch));
}

TEST(TidyOfAProcessedFamily, NobodyOverlapsInTheRowsOfTheEngine)
{
    Random random(10);
    for (int round = 0; round < 300; ++round) {
        const Sketch sketch = together(randomDescendants(random, 5, 3), randomDescendants(random, 3, 3));
        const FamilyGraph graph = sketch.graph();
        const auto result = engine::process(graph);
        ASSERT_TRUE(result.has_value());
        const auto x = tidied(graph, result->generations, margin);
        for (std::vector<PersonIndex> row : result->rows) {
            std::ranges::sort(row, {}, [&](PersonIndex person) { return x[person]; });
            for (std::size_t next = 1; next < row.size(); ++next)
                ASSERT_GE(x[row[next]] - x[row[next - 1]], pitch) << "round " << round;
        }
    }
}

} // namespace
} // namespace lineara::layout
