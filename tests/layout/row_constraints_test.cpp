#include "random_rows.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include <unistd.h>

namespace lineara::layout {
namespace {

#ifdef LINEARA_SANITIZED
constexpr std::size_t rowCount = 100;
#else
constexpr std::size_t rowCount = 1'000;
#endif

std::vector<RandomRow> randomRows()
{
    Random random(1);
    std::vector<RandomRow> rows;
    while (rows.size() < rowCount) {
        const auto nodes = static_cast<std::size_t>(1 + upTo(random, 59));
        const std::int32_t spread = static_cast<std::int32_t>(nodes) * upTo(random, 150) + 10;
        rows.push_back(randomRow(random, {nodes, spread, 200}));
    }
    return rows;
}

void write(const std::vector<RandomRow>& rows, const std::string& path)
{
    std::ofstream file(path);
    for (const RandomRow& row : rows) {
        for (std::size_t node = 0; node < row.lefts.size(); ++node)
            file << row.lefts[node] << ' ' << row.widths[node] << ' ';
        file << '\n';
    }
}

/// Its output, if it ends well.
std::string outputOf(const std::string& command)
{
    std::FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr)
        return {};
    std::string output;
    for (int byte = std::fgetc(pipe); byte != EOF; byte = std::fgetc(pipe))
        output += static_cast<char>(byte);
    return pclose(pipe) == 0 ? output : std::string();
}

/// What a general constraint solver has to move in each row.
std::vector<double> totalsByConstraints(const std::vector<RandomRow>& rows)
{
    const std::string path = testing::TempDir() + "lineara-random-rows-" + std::to_string(getpid());
    write(rows, path);
    std::istringstream output(outputOf(LINEARA_SYSTEM_PYTHON " '" LINEARA_ROW_CONSTRAINTS "' '" + path + "'"));
    std::remove(path.c_str());
    std::vector<double> totals;
    for (double total = 0; output >> total;)
        totals.push_back(total);
    return totals;
}

std::int64_t totalOfOurs(const RandomRow& row)
{
    const auto nodes = row.nodes();
    const auto solved = solveRow(nodes);
    std::int64_t total = 0;
    for (std::size_t node = 0; node < nodes.size(); ++node)
        total += std::abs(solved[node] - nodes[node].left);
    return total;
}

TEST(RowSolver, MovesNoFurtherThanAGeneralConstraintSolver)
{
    const auto rows = randomRows();
    const auto totals = totalsByConstraints(rows);
    ASSERT_EQ(totals.size(), rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row)
        ASSERT_NEAR(static_cast<double>(totalOfOurs(rows[row])), totals[row], 1e-6) << "row " << row;
}

} // namespace
} // namespace lineara::layout
