// A program that brings an old file up to date is killed: the file is the old one or a whole newer one, and the next
// opening ends what was begun.

#include "family_state.h"
#include "reports.h"
#include "rounds.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

#include <sys/stat.h>

namespace lineara::chaos {

namespace {

namespace fs = std::filesystem;

const std::string usersOwn = "The user's own file of the same name.";

std::string read(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void write(const fs::path& path, const std::string& bytes)
{
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

/// A file of an old version, in a folder beside a home that holds another file of its name.
class OldFile
{
public:
    explicit OldFile(const std::string& bytes)
    {
        write(path(), bytes);
        ::chmod(path().c_str(), 0640);
        write(place.path() / "home" / "f.lineara", usersOwn);
    }
    fs::path path() const { return place.docs() / "f.lineara"; }
    std::vector<std::string> role() const { return {"migrate", path().string()}; }

    Place place;
};

struct Sample
{
    std::string name;
    std::string old;
    std::string current;       ///< the same, brought up to date
    std::string state;         ///< of that family
    std::int64_t duration = 0; ///< nanoseconds that bringing it up to date took
};

Sample undisturbed(const std::string& name, const std::string& bytes)
{
    const OldFile file(bytes);
    Child migrating(file.place.path(), file.role());
    const auto opening = migrating.expect("opening");
    const auto opened = migrating.expect("opened");
    EXPECT_TRUE(opening && opened) << name;
    if (!opening || !opened)
        return {};
    return {name, bytes, read(file.path()), opened->words[1], opened->at - opening->at};
}

std::vector<Sample> samples()
{
    constexpr int many = 4000;
    std::vector<Sample> all;
    for (const std::string version : {"11", "12", "13"})
        all.push_back(undisturbed("sample " + version,
                                  read(fs::path(LINEARA_TEST_DATA) / "versions" / ("family_" + version + ".lineara"))));
    const auto large = bytesOf(*madeFamily(many)).replace("modelVersion\">14", "modelVersion\">11").toStdString();
    all.push_back(undisturbed("large 11", large));
    return all;
}

std::string kindOf(const std::string& bytes, const Sample& sample)
{
    if (bytes == sample.old)
        return "old";
    if (bytes == sample.current)
        return "new";
    return bytes.find("modelVersion\">12<") != std::string::npos ? "half-way" : "broken";
}

/// Made and not written to yet: between making a file and noting that it was made lies a moment.
bool isMoment(const fs::path& file)
{
    return fs::file_size(file) == 0 || file.parent_path().filename() == "migrations";
}

/// What is there beside the user's files.
std::vector<std::string> remains(const Place& place)
{
    std::vector<std::string> all;
    for (const std::string folder : {"docs", "home", "data", "tmp"}) {
        for (const auto& file : place.files(folder)) {
            if (file.filename() != "f.lineara" || (folder != "docs" && folder != "home"))
                all.push_back(fs::relative(file, place.path()).string());
        }
    }
    return all;
}

Finding killedOnTheWay(const Sample& sample, double when)
{
    Finding finding;
    const auto demand = [&finding](bool isSo, const std::string& problem) {
        if (!isSo)
            finding.problems.push_back(problem);
    };
    const OldFile file(sample.old);
    {
        Child migrating(file.place.path(), file.role());
        const auto opening = migrating.expect("opening");
        demand(opening.has_value(), "the program does not work");
        const bool isOver =
            opening && migrating.next(opening->at + std::llround(when * static_cast<double>(sample.duration)));
        finding.counted.push_back(isOver ? "killed after the end" : "killed on the way");
    }
    const auto kind = kindOf(read(file.path()), sample);
    demand(kind != "broken", sample.name + " is neither old nor whole");
    finding.counted.push_back(sample.name + ": " + kind);
    for (const auto& remaining : remains(file.place))
        finding.counted.push_back("left behind in " + fs::path(remaining).parent_path().string());
    struct stat status = {};
    ::stat(file.path().c_str(), &status);
    demand((status.st_mode & 07777) == 0640, "other permissions");

    Child again(file.place.path(), file.role());
    std::string state;
    for (const auto& report : again.finish()) {
        demand(report.kind() != "locked", "still locked");
        state = report.kind() == "opened" ? report.words[1] : state;
    }
    demand(state == sample.state, sample.name + " does not open with all its data");
    demand(read(file.path()) == sample.current, sample.name + " was not brought up to date");
    demand(read(file.place.path() / "home" / "f.lineara") == usersOwn, "the user's other file was touched");
    for (const auto& remaining : remains(file.place))
        demand(isMoment(file.place.path() / remaining),
               sample.name + ": " + remaining + " stays after the next opening");
    return finding;
}

} // namespace

TEST(Chaos, MigrationThatIsKilledLeavesAFileThatOpensWithAllItsData)
{
    const auto all = samples();
    ASSERT_FALSE(HasFailure());
    repeat("killed while bringing up to date", rounds().runs * 3 / 10, [&all](int number, std::mt19937& random) {
        return killedOnTheWay(all[static_cast<std::size_t>(number) % all.size()],
                              std::uniform_real_distribution(0.0, 1.1)(random));
    });
}

} // namespace lineara::chaos
