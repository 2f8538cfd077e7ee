// A family whose rows take the engine very long, in a document: who does not wait for them gets rows all the same.

#include "edited_document.h"
#include "engine/family_maker.h"
#include "hang_guard.h"
#include "platform/log.h"

#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <random>
#include <vector>

using namespace lineara;

namespace {

/// Makes the links one by one, each as soon as it is the next one of both its persons: so all lists get their order.
/// `made` and `taken` count the links from and to each person.
template<class Link>
void makeInOrder(const engine::Adjacency& from, const engine::Adjacency& to, std::vector<std::size_t>& made,
                 std::vector<std::size_t>& taken, const Link& link)
{
    for (bool goesOn = true; goesOn;) {
        goesOn = false;
        for (engine::PersonIndex person = 0; person < from.persons(); ++person) {
            while (made[person] < from[person].size()) {
                const engine::PersonIndex other = from[person][made[person]];
                if (to[other][taken[other]] != person)
                    break;
                link(person, other);
                ++made[person];
                ++taken[other];
                goesOn = true;
            }
        }
    }
}

Person& add(const OpenedFamily& family)
{
    Person& person = family.context->insertPerson({});
    family.pool->addPerson(person);
    return person;
}

OpenedFamily recordsOf(const engine::FamilyGraph& graph)
{
    OpenedFamily family = newFamily();
    std::vector<Person*> persons;
    for (engine::PersonIndex index = 0; index < graph.persons(); ++index)
        persons.push_back(&add(family));
    std::vector<std::size_t> made(persons.size());
    std::vector<std::size_t> taken(persons.size());
    makeInOrder(graph.children, graph.parents, made, taken,
                [&](auto parent, auto child) { persons[parent]->addChild(*persons[child]); });
    std::vector<std::size_t> linked(persons.size());
    makeInOrder(graph.partners, graph.partners, linked, linked,
                [&](auto person, auto partner) { persons[person]->addPartner(*persons[partner]); });
    return family;
}

/// Two knots of different speed that share persons: nothing proves that they rise for ever. All of a long line of
/// ancestors rise with them, which makes that take its time.
OpenedFamily familyWithoutEnd()
{
    constexpr int ancestors = 10'000;
    std::mt19937_64 random(3 * 1'000'003 + 7316);
    OpenedFamily family = recordsOf(engine::randomFamily({20, 60, 1.0, 0.4, 0.2, 0.05}, random));
    Person* oldest = nullptr;
    for (Person* const person : family.pool->persons()) {
        if (person->parents().empty() && !person->children().empty())
            oldest = person;
    }
    for (int count = 0; count < ancestors; ++count) {
        Person& older = add(family);
        older.addChild(*oldest);
        oldest = &older;
    }
    return family;
}

class LongEngineRun : public testing::Test
{
protected:
    LongEngineRun() { document_->window().show(); }

    QWidget* bar() const { return document_->window().findChild<QWidget*>(QStringLiteral("notice")); }
    void waitForBar() const
    {
        ASSERT_TRUE(QTest::qWaitFor([this] { return bar() && bar()->isVisible(); }, 600'000));
    }
    /// Everybody stands in a row, as somebody does who has a link, and the engine was told to make it short.
    void expectRows()
    {
        ASSERT_TRUE(settle(*document_));
        ASSERT_TRUE(document_->treeView());
        EXPECT_EQ(bar(), nullptr);
        for (const Person* const person : document_->pool().persons()) {
            const bool isLinked =
                !person->parents().empty() || !person->children().empty() || !person->partners().empty();
            EXPECT_EQ(person->generation().has_value(), isLinked);
            for (const Person* const child : person->children())
                EXPECT_GT(person->generation(), child->generation());
        }
        EXPECT_NE(log_.text().find("Pushing up with partners was cut short."), std::string::npos) << log_.text();
    }

    const HangGuard guard_;
    const LogCapture log_;
    std::unique_ptr<Document> document_ = Document::of(familyWithoutEnd());
};

} // namespace

TEST_F(LongEngineRun, EndsWhereItsUserFinishesItWhileTheFamilyIsOpened)
{
    waitForBar();
    EXPECT_FALSE(document_->treeView());
    QTest::mouseClick(bar()->findChild<QPushButton*>(QStringLiteral("noticeCommand")), Qt::LeftButton);
    expectRows();
}

TEST_F(LongEngineRun, EndsWhereItsWindowGoes)
{
    waitForBar();
    document_->hurry();
    expectRows();
}
