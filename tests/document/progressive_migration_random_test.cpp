#include "migration_stage.h"

#include <algorithm>
#include <random>

namespace lineara {

namespace {

#ifdef LINEARA_SANITIZED
constexpr int rounds = 300;
#else
constexpr int rounds = 2000;
#endif

/// What goes wrong, and in which pass.
enum class Mishap
{
    None,
    NoTemporaryFile,
    MigrationTellsWhy,
    MigrationIsSilent,
    OriginalIsNotKept,
    ReplacingFails,
    MetadataUnreadable,
    MetadataAbsent
};
constexpr int mishaps = 8;

struct Scenario
{
    std::vector<int> versions; ///< in the order in which they are listed
    MadeUpBundle::Pairs mappings;
    int current = 0;
    int start = 0;
    Mishap mishap = Mishap::None;
    int mishapPass = 0;
};

struct Result
{
    bool isOpen = false;
    bool hasError = false;
    int version = 0;
    std::vector<int> route; ///< where each step was to lead
    std::string log;
};

/// The rules word by word, over numbers alone.
class LiteralOpening
{
public:
    explicit LiteralOpening(const Scenario& scenario) : scenario_(scenario) {}

    Result run()
    {
        result_.version = scenario_.start;
        if (result_.version == scenario_.current) {
            result_.isOpen = true;
            return result_;
        }
        say("Migration needed, migrating data to latest version");
        while (result_.version != scenario_.current) {
            const int destination = choose();
            if (destination == 0) {
                say("Fatal Error: Unable to find any suitable mapping model for migration of data");
                return result_;
            }
            if (!step(destination))
                return result_;
        }
        result_.isOpen = true;
        return result_;
    }

private:
    void say(const char* line) { result_.log += std::string(line) + "\n"; }

    bool leads(int destination) const
    {
        const bool isKnown = std::count(scenario_.versions.begin(), scenario_.versions.end(), result_.version) > 0;
        const bool wasThere =
            destination == scenario_.start || std::count(result_.route.begin(), result_.route.end(), destination) > 0;
        return isKnown && !wasThere && scenario_.mappings.count({result_.version, destination}) > 0;
    }

    int choose()
    {
        if (leads(scenario_.current))
            return scenario_.current;
        say("Progressive migration required");
        if (candidates_.empty()) {
            say("Loading all available models");
            candidates_ = scenario_.versions;
        }
        const auto first = std::find_if(candidates_.begin(), candidates_.end(), [this](int one) { return leads(one); });
        return first == candidates_.end() ? 0 : *first;
    }

    bool step(int destination)
    {
        const int pass = static_cast<int>(result_.route.size()) + 1;
        const auto mishap = pass == scenario_.mishapPass ? scenario_.mishap : Mishap::None;
        say("Performing migration");
        if (mishap == Mishap::NoTemporaryFile)
            return failed();
        result_.route.push_back(destination);
        if (mishap == Mishap::MigrationTellsWhy)
            return failed();
        if (mishap == Mishap::MigrationIsSilent) {
            say("Unable to perform migration");
            return false;
        }
        if (mishap == Mishap::OriginalIsNotKept && pass == 1)
            return failed();
        say("Successfully migrated to temporary file, overwriting original data");
        if (mishap == Mishap::ReplacingFails)
            return failed();
        result_.version = destination;
        if (mishap == Mishap::MetadataUnreadable)
            return failed();
        return mishap != Mishap::MetadataAbsent;
    }

    bool failed()
    {
        result_.hasError = true;
        return false;
    }

    const Scenario& scenario_;
    std::vector<int> candidates_;
    Result result_;
};

/// The program on a file of its own, with one mishap planted.
class PlantedOpening
{
public:
    explicit PlantedOpening(const Scenario& scenario)
        : scenario_(scenario), bundle_(scenario.versions, scenario.mappings),
          stage_(bundle_, bundle_.modelOf(scenario.current))
    {
        plantInSteps();
        plantInReplacing();
        plantInMetadata();
    }

    Result run()
    {
        const auto path = stage_.files.write(u"f.lineara"_qs, familyOfVersion(scenario_.start));
        makeRoomless();
        Result result;
        result.isOpen = stage_.open(path);
        result.hasError = stage_.error.has_value();
        result.route = route_;
        result.log = stage_.log.substr(stage_.log.find('\n') + 1);
        const auto metadata = metadataForPersistentStore(path);
        result.version = metadata ? metadata.value().modelVersion : 0;
        EXPECT_EQ(bytesOf(path), familyOfVersion(result.version)) << "something of the family is lost";
        EXPECT_EQ(stage_.attached.size(), result.isOpen ? 1U : 0U);
        EXPECT_EQ(stage_.filesAtHome().size(), replacingFailed_ ? 1 : 0);
        return result;
    }

private:
    bool isNow(Mishap mishap) const
    {
        return scenario_.mishap == mishap && static_cast<int>(route_.size()) == scenario_.mishapPass;
    }

    /// The folder for temporary files goes when the pass before has ended.
    void makeRoomless()
    {
        if (scenario_.mishap == Mishap::NoTemporaryFile && static_cast<int>(route_.size()) + 1 == scenario_.mishapPass)
            QDir(stage_.home()).removeRecursively();
    }

    void plantInSteps()
    {
        const auto migrate = stage_.surroundings.migrateStore;
        stage_.surroundings.migrateStore = [this, migrate](const MigrationStep& step, ErrorSlot& slot) {
            route_.push_back(step.destination.version);
            if (isNow(Mishap::MigrationTellsWhy))
                slot = Failure{u"planted"_qs};
            return !isNow(Mishap::MigrationTellsWhy) && !isNow(Mishap::MigrationIsSilent) && migrate(step, slot);
        };
        stage_.surroundings.keepOriginal = [this](const QString&) -> Outcome<Done> {
            return isNow(Mishap::OriginalIsNotKept) ? Outcome<Done>(Failure{u"planted"_qs}) : Done{};
        };
    }

    void plantInReplacing()
    {
        stage_.surroundings.replaceFile = [this](const QString& from, const QString& to) {
            replacingFailed_ = isNow(Mishap::ReplacingFails);
            auto calls = quickCalls();
            if (replacingFailed_)
                calls.rename = [](const char*, const char*) { return -1; };
            return store::copyOver(from, to, calls);
        };
    }

    void plantInMetadata()
    {
        const auto read = stage_.surroundings.readMetadata;
        stage_.surroundings.readMetadata = [this, read](const QString& path) -> Outcome<std::optional<StoreMetadata>> {
            makeRoomless();
            if (isNow(Mishap::MetadataUnreadable))
                return Failure{u"planted"_qs};
            return isNow(Mishap::MetadataAbsent) ? std::optional<StoreMetadata>() : read(path);
        };
    }

    const Scenario& scenario_;
    MadeUpBundle bundle_;
    MigrationStage stage_;
    std::vector<int> route_;
    bool replacingFailed_ = false;
};

Scenario anyScenario(std::mt19937& random)
{
    const auto upTo = [&random](int most) { return std::uniform_int_distribution(0, most)(random); };
    Scenario scenario;
    const int count = 1 + upTo(6);
    for (int version = 1; version <= count; ++version)
        scenario.versions.push_back(version);
    std::shuffle(scenario.versions.begin(), scenario.versions.end(), random);
    scenario.current = 1 + upTo(count - 1);
    scenario.start = 1 + upTo(count);
    const int density = 1 + upTo(4);
    for (int from = 1; from <= count + 1; ++from) {
        for (int to = 1; to <= count; ++to) {
            if (upTo(9) < density)
                scenario.mappings.insert({from, to});
        }
    }
    if (upTo(1) == 1) {
        scenario.mishap = static_cast<Mishap>(upTo(mishaps - 1));
        scenario.mishapPass = 1 + upTo(2);
    }
    return scenario;
}

} // namespace

TEST(OpeningAtRandom, GoesAsTheRulesSayWhateverGoesWrong)
{
    std::mt19937 random(14);
    int opened = 0;
    int failed = 0;
    std::size_t longest = 0;
    for (int round = 0; round < rounds; ++round) {
        const auto scenario = anyScenario(random);
        const auto expected = LiteralOpening(scenario).run();
        const auto got = PlantedOpening(scenario).run();
        ASSERT_EQ(got.log, expected.log) << "round " << round;
        ASSERT_EQ(got.route, expected.route) << "round " << round;
        ASSERT_EQ(got.version, expected.version) << "round " << round;
        ASSERT_EQ(got.isOpen, expected.isOpen) << "round " << round;
        ASSERT_EQ(got.hasError, expected.hasError) << "round " << round;
        if (testing::Test::HasFailure())
            FAIL() << "round " << round;
        opened += got.isOpen && !got.route.empty() ? 1 : 0;
        failed += got.isOpen ? 0 : 1;
        longest = std::max(longest, got.route.size());
    }
    EXPECT_GT(opened, rounds / 10);
    EXPECT_GT(failed, rounds / 10);
    EXPECT_GE(longest, 3U);
}

} // namespace lineara
