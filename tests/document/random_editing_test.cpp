// Somebody who does anything in any order, without waiting for what it leads to.

#include "edited_document.h"

#include <gmock/gmock.h>

#include <map>
#include <random>
#include <set>

using namespace lineara;

namespace {

#ifdef LINEARA_SANITIZED
constexpr unsigned sessions = 6;
#else
constexpr unsigned sessions = 40;
#endif
constexpr int gestures = 120;

class RestlessUser
{
public:
    explicit RestlessUser(unsigned seed) : random_(seed) {}

    void work()
    {
        edited_.settle();
        checkRest();
        for (int gesture = 0; gesture < gestures; ++gesture) {
            doAnything();
            for (auto event = random_() % 6; event > 0; --event)
                QApplication::processEvents();
            if (random_() % 4 == 0) {
                rest();
                ASSERT_FALSE(testing::Test::HasFailure()) << "after gesture " << gesture;
            }
        }
        rest();
        goThroughHistory();
    }

private:
    using Gesture = void (RestlessUser::*)();

    void doAnything()
    {
        static constexpr Gesture choice[] = {
            &RestlessUser::add,       &RestlessUser::add,          &RestlessUser::link,   &RestlessUser::link,
            &RestlessUser::link,      &RestlessUser::clickPerson,  &RestlessUser::move,   &RestlessUser::clickPerson,
            &RestlessUser::clickLink, &RestlessUser::clickNothing, &RestlessUser::rename, &RestlessUser::remove,
            &RestlessUser::undo,      &RestlessUser::undo,         &RestlessUser::redo,
        };
        (this->*choice[random_() % std::size(choice)])();
    }

    Person* anybody()
    {
        const auto& nodes = edited_.canvas().personLayer().nodes();
        return nodes.empty() ? nullptr : &nodes[random_() % nodes.size()]->person();
    }

    void add() { edited_.document->addPerson(); }
    void link()
    {
        Person* const from = anybody();
        Person* const to = anybody();
        if (from && to)
            edited_.canvas().connect(*from, *to, (random_() % 3 == 0 ? partnerLink : offspringLink).toString());
    }
    void move()
    {
        Person* const person = anybody();
        if (!person)
            return;
        edited_.canvas().settle();
        edited_.journal().begin(QStringLiteral("Move Person"));
        for (int event = 0; event < 3; ++event)
            person->setX(person->x().value_or(0) + static_cast<int>(random_() % 200) - 100);
    }
    void rename()
    {
        Person* const person = anybody();
        if (!person)
            return;
        edited_.canvas().settle();
        edited_.journal().begin(QStringLiteral("Edit Name"));
        person->setName(QString::number(random_() % 1000));
    }
    void clickPerson()
    {
        if (Person* const person = anybody())
            NotificationCenter::defaultCenter().enqueue(PersonClickedNotification{&edited_.pool(), person->recordId()});
    }
    void clickLink()
    {
        const auto& shapes = edited_.canvas().branchLayer().layers();
        if (shapes.empty())
            return;
        const LinkLayer& shape = *shapes[random_() % shapes.size()];
        NotificationCenter::defaultCenter().enqueue(LinkSelectionNotification{
            &edited_.pool(),
            LinkSelectionNotification::Link{shape.source()->recordId(), shape.target()->recordId(), shape.linkType()}});
    }
    void clickNothing()
    {
        NotificationCenter::defaultCenter().enqueue(LinkSelectionNotification{&edited_.pool(), std::nullopt});
    }
    void remove() { edited_.document->remove(); }
    void undo() { edited_.document->undo(); }
    void redo() { edited_.document->redo(); }

    void rest()
    {
        edited_.settle();
        checkRest();
    }

    void checkRest()
    {
        checkNodes();
        checkShapes();
        checkSelection();
        checkText();
        checkGenerations();
    }

    void checkNodes()
    {
        const auto& persons = edited_.pool().persons();
        EXPECT_EQ(edited_.context().allPersons().size(), persons.size());
        EXPECT_EQ(edited_.canvas().personLayer().nodes().size(), persons.size());
        std::set<std::uint64_t> rows;
        for (const RecordId row : edited_.list->rows)
            rows.insert(row.number);
        EXPECT_EQ(rows.size(), edited_.list->rows.size());
        EXPECT_EQ(rows.size(), persons.size());
        for (const Person* const person : persons) {
            EXPECT_TRUE(edited_.canvas().scene().shows(*person));
            EXPECT_TRUE(rows.contains(person->recordId().number));
        }
    }

    void checkShapes()
    {
        std::multiset<std::pair<const Person*, const Person*>> offspring;
        std::multiset<std::set<const Person*>> partners;
        for (const auto& shape : edited_.canvas().branchLayer().layers()) {
            if (shape->isPartnerLink())
                partners.insert({shape->source(), shape->target()});
            else
                offspring.insert({shape->source(), shape->target()});
        }
        std::multiset<std::pair<const Person*, const Person*>> children;
        std::multiset<std::set<const Person*>> couples;
        for (const Person* const person : edited_.pool().persons()) {
            for (const Person* const child : person->children())
                children.insert({person, child});
            for (const Person* const partner : person->partners()) {
                EXPECT_TRUE(partner->partners().contains(const_cast<Person*>(person)));
                if (person < partner)
                    couples.insert({person, partner});
            }
        }
        EXPECT_EQ(offspring, children);
        EXPECT_EQ(partners, couples);
    }

    void checkSelection()
    {
        const Selection& selection = edited_.document->selection();
        EXPECT_EQ(selection.isRemovable, selection.type != Selection::none());
        EXPECT_EQ(edited_.document->selectionPerson() != nullptr, selection.type == Selection::ofPerson());
    }

    /// At rest the family is always the same after the same step.
    void checkText()
    {
        const std::uint64_t step = edited_.journal().undoStep().value_or(StepId()).number;
        const std::string text = edited_.text().toStdString();
        EXPECT_EQ(texts_.emplace(step, text).first->second, text) << "step " << step;
    }

    /// Whoever has links has a generation.
    void checkGenerations()
    {
        for (const Person* const person : edited_.pool().persons()) {
            const bool isLinked =
                !person->parents().empty() || !person->children().empty() || !person->partners().empty();
            EXPECT_TRUE(person->generation().has_value() || !isLinked);
        }
    }

    void goThroughHistory()
    {
        while (edited_.journal().canUndo()) {
            edited_.undo();
            checkRest();
        }
        while (edited_.journal().canRedo()) {
            edited_.redo();
            checkRest();
        }
        checkAFullRun();
    }

    /// Removing nothing works all generations out: they are those of the same family read from a file.
    void checkAFullRun()
    {
        edited_.document->deselectAll();
        edited_.remove();
        auto read = readFamily(edited_.text(), QStringLiteral("family"));
        ASSERT_TRUE(read);
        Pool& pool = *read.value().context->allPools().front();
        pool.process();
        for (const Person* const person : pool.persons())
            EXPECT_EQ(edited_.context().person(person->recordId())->generation(), person->generation());
    }

    std::mt19937 random_;
    EditedDocument edited_;
    std::map<std::uint64_t, std::string> texts_;
};

} // namespace

TEST(RandomEditing, TheFamilyAndItsPicturesAgreeWheneverAllIsAtRest)
{
    for (unsigned seed = 1; seed <= sessions && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        RestlessUser(seed).work();
    }
}
