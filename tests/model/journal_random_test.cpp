#include "model/dump.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace lineara {

namespace {

using test::dump;

#ifdef LINEARA_SANITIZED
constexpr int families = 8;
#else
constexpr int families = 40;
#endif
constexpr int stepsPerFamily = 60;

/// The family as somebody sees it who only listens.
class Listener
{
public:
    explicit Listener(ObjectContext& context)
        : subscription_(context.observe(
              [this](const Change& change) { std::visit([this](const auto& event) { hear(event); }, change); }))
    {}

    std::string family() const
    {
        std::string text;
        for (const auto& [key, record] : records_)
            text += record + '\n';
        return text;
    }

private:
    void read(const Record& record) { records_[{record.entity(), record.recordId().number}] = dump(record); }
    void hear(const RecordInserted& event) { read(event.record); }
    void hear(const RecordRemoved& event) { records_.erase({event.record.entity(), event.record.recordId().number}); }
    void hear(const AttributesChanged& event) { read(event.person); }
    void hear(const ManyChanged& event)
    {
        for (const Person* const person : event.persons)
            read(*person);
    }
    void hear(const LinkChanged& event)
    {
        read(event.owner);
        read(event.member);
    }
    void hear(const PicDataChanged& event) { read(event.pic); }
    void hear(const Replayed&) {}

    std::map<std::pair<Entity, std::uint64_t>, std::string> records_;
    Subscription subscription_;
};

/// Somebody who clicks at random.
class Editor
{
public:
    Editor(ObjectContext& context, unsigned seed) : context_(context), random_(seed)
    {
        for (const char* const bytes : {"", "a", "bc", "def"}) {
            pictures_.push_back(folder_.filePath(QString::number(pictures_.size())));
            QFile file(pictures_.back());
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(bytes);
        }
        pictures_.push_back(folder_.filePath(u"missing"_qs));
        for (int pool = 0; pool < 2; ++pool)
            context_.insertPool();
        for (int person = 0; person < 8; ++person)
            pool().addPerson(context_.insertPerson());
    }

    void changeSomething()
    {
        const std::size_t kind = below(20);
        if (kind < 4)
            changeMembers(kind);
        else if (kind < 9)
            changeLinks(kind - 4);
        else if (kind < 18)
            changeValues(kind - 9);
        else
            changeSources();
    }

    std::size_t below(std::size_t end) { return std::uniform_int_distribution<std::size_t>(0, end - 1)(random_); }

private:
    void changeMembers(std::size_t kind)
    {
        switch (kind) {
        case 0:
            context_.insertPerson({.name = u"new"_qs, .x = number()});
            break;
        case 1:
            if (context_.allPersons().size() > 3)
                context_.remove(person());
            break;
        case 2:
            pool().addPerson(person());
            break;
        default:
            pool().removePerson(person());
        }
    }

    void changeLinks(std::size_t kind)
    {
        switch (kind) {
        case 0:
            person().addPartner(person());
            break;
        case 1:
            person().removePartner(person());
            person().removeChild(person());
            break;
        case 2:
            person().disconnect();
            break;
        default:
            offspring();
        }
    }

    void changeSources()
    {
        const auto sources = context_.allSources();
        if (sources.empty() || below(3) == 0)
            context_.insertSource({u"a.ged"_qs, 7}, QByteArray::number(static_cast<int>(below(5))));
        else if (below(4) == 0)
            context_.remove(*sources[below(sources.size())]);
        else
            person().setSource(*sources[below(sources.size())]);
    }

    void changeValues(std::size_t kind)
    {
        switch (kind) {
        case 0:
            person().changePic(pictures_[below(pictures_.size())]);
            break;
        case 1:
            person().removePic();
            break;
        case 2:
            setMany();
            break;
        case 3:
            pool().pushUp(person(), 1, below(2) == 0);
            break;
        case 4:
            person().setX(number());
            break;
        case 5:
        case 6:
            context_.shiftX(pool(), static_cast<std::int32_t>(below(3)) - 1);
            break;
        default:
            setValue(person());
        }
    }

    Person& person()
    {
        const auto persons = context_.allPersons();
        return *persons[below(persons.size())];
    }

    Pool& pool()
    {
        const auto pools = context_.allPools();
        return *pools[below(pools.size())];
    }

    std::optional<std::int32_t> number()
    {
        if (below(4) == 0)
            return std::nullopt;
        return static_cast<std::int32_t>(below(3));
    }

    void offspring()
    {
        Person& parent = person();
        Person& child = person();
        if (pool().canLink(offspringLink, parent, child))
            parent.addChild(child);
    }

    void setMany()
    {
        std::vector<Person*> persons;
        std::vector<std::optional<std::int32_t>> values;
        for (std::size_t count = below(12); count > 0; --count) {
            persons.push_back(&person());
            values.push_back(number());
        }
        context_.setMany(below(2) ? PersonAttribute::X : PersonAttribute::Generation, persons, values);
    }

    void setValue(Person& person)
    {
        const auto text = [this] { return below(3) ? std::optional(QString::number(below(3))) : std::nullopt; };
        switch (below(9)) {
        case 0:
            person.setName(text());
            break;
        case 1:
            person.setAdditional(text());
            break;
        case 2:
            person.setBirthDay(number());
            break;
        case 3:
            person.setBirthMonth(number());
            break;
        case 4:
            person.setBirthYear(number());
            break;
        case 5:
            person.setDeathDay(number());
            break;
        case 6:
            person.setDeathMonth(number());
            break;
        case 7:
            person.setDeathYear(number());
            break;
        default:
            person.setGeneration(number());
        }
    }

    ObjectContext& context_;
    std::mt19937 random_;
    QTemporaryDir folder_;
    std::vector<QString> pictures_;
};

std::string withoutNextNumber(const std::string& text)
{
    return text.substr(text.find('\n') + 1);
}

} // namespace

TEST(JournalAtRandom, RestoresEveryStepExactlyAndTellsListenersAllOfIt)
{
    for (unsigned seed = 1; seed <= families; ++seed) {
        ObjectContext context;
        const Listener listener(context);
        Editor editor(context, seed);
        std::vector<std::string> states{dump(context)};
        const auto expectState = [&](std::size_t state) {
            ASSERT_EQ(dump(context), states[state]) << "seed " << seed;
            ASSERT_EQ(listener.family(), withoutNextNumber(states[state])) << "seed " << seed;
            ASSERT_EQ(context.journal().depth(), state);
        };
        for (int step = 0; step < stepsPerFamily; ++step) {
            context.journal().begin(QString::number(step));
            for (std::size_t change = editor.below(6); change > 0; --change)
                editor.changeSomething();
            ASSERT_EQ(test::inconsistencies(context), "");
            states.resize(context.journal().depth());
            states.push_back(dump(context));
            std::size_t at = states.size() - 1;
            expectState(at);
            for (std::size_t moves = editor.below(12); moves > 0; --moves) {
                if (editor.below(5) < 3 && at > 0) {
                    context.journal().undo();
                    expectState(--at);
                } else if (at + 1 < states.size()) {
                    context.journal().redo();
                    expectState(++at);
                }
            }
            states.resize(at + 1);
        }
    }
}

TEST(JournalAtRandom, KeepsBothSidesWhateverHappensBehindItsBack)
{
    for (unsigned seed = 1; seed <= families; ++seed) {
        ObjectContext context;
        const Listener listener(context);
        Editor editor(context, seed);
        for (int step = 0; step < stepsPerFamily * 4; ++step) {
            switch (editor.below(6)) {
            case 0:
                context.journal().begin(u"step"_qs);
                break;
            case 1:
                context.journal().undo();
                break;
            case 2:
                context.journal().redo();
                break;
            case 3: {
                const Journal::Pause pause(context.journal());
                editor.changeSomething();
                break;
            }
            default:
                if (!context.allPersons().empty())
                    editor.changeSomething();
            }
            ASSERT_EQ(test::inconsistencies(context), "") << "seed " << seed;
            ASSERT_EQ(listener.family(), withoutNextNumber(dump(context))) << "seed " << seed;
        }
    }
}

} // namespace lineara
