// Who is found and offered where one person of a family is asked for.

#include "person_chooser.h"

#include "model/object_context.h"
#include "personlist/search_words.h"

#include <QApplication>
#include <QLineEdit>
#include <QListView>
#include <QTest>

#include <gmock/gmock.h>

using namespace lineara;
using testing::ElementsAre;

namespace {

class Chooser : public testing::Test
{
protected:
    ObjectContext context;
    Pool& pool = context.insertPool();
    int asked = 0;

    Person& add(const char* name)
    {
        Person& person = context.insertPerson({.name = QString::fromUtf8(name)});
        pool.addPerson(person);
        return person;
    }
    void addMany(int count)
    {
        for (int number = 0; number < count; ++number)
            add("somebody");
    }
    /// Allows nobody but this person, and counts how often it is asked.
    std::function<bool(Person&)> onlyAllowed(const Person* allowed = nullptr)
    {
        return [this, allowed](Person& person) {
            ++asked;
            return &person == allowed;
        };
    }
    QStringList found(const char* words)
    {
        ChoosablePersons persons(pool, [](Person&) { return true; });
        persons.filter(SearchWords(QString::fromUtf8(words)));
        QStringList names;
        for (int row = 0; row < persons.rowCount(); ++row)
            names << persons.personAt(row)->name().value_or(QString());
        return names;
    }
};

} // namespace

TEST_F(Chooser, FindsWhomTheListFinds)
{
    add("Łódź");
    add("Müller").setBirthYear(1815);
    add("Straße").setAdditional(QStringLiteral("A baker."));
    EXPECT_THAT(found("lodz"), ElementsAre(QString::fromUtf8("Łódź")));
    EXPECT_THAT(found("18 mull"), ElementsAre(QString::fromUtf8("Müller")));
    EXPECT_THAT(found("strasse"), ElementsAre(QString::fromUtf8("Straße")));
    EXPECT_THAT(found("baker"), ElementsAre(QString::fromUtf8("Straße")));
    EXPECT_THAT(found(""), testing::SizeIs(3));
    EXPECT_THAT(found("zzz"), testing::SizeIs(0));
}

TEST_F(Chooser, OffersTheFirstOneWhoIsAllowed)
{
    addMany(50);
    const Person& allowed = add("somebody");
    addMany(50);
    const ChoosablePersons persons(pool, onlyAllowed(&allowed));
    EXPECT_EQ(persons.firstAllowed(), 50);
    EXPECT_EQ(asked, 51);
}

TEST_F(Chooser, LooksForSomebodyWhoIsAllowedInRowsThatMayBeSeen)
{
    addMany(5'000);
    ChoosablePersons persons(pool, onlyAllowed());
    persons.filter(SearchWords(QStringLiteral("some")));
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(persons.firstAllowed(), -1);
    EXPECT_EQ(asked, 100);
}

TEST_F(Chooser, AsksWhoIsAllowedOnlyForRowsThatAreLookedAt)
{
    addMany(5'000);
    QWidget window;
    window.show();
    auto* const chooser = new PersonChooser(window, QString(), pool, onlyAllowed(), [](Person&) {});
    chooser->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(chooser));
    QTest::keyClicks(chooser->findChild<QLineEdit*>(), QStringLiteral("s"));
    chooser->grab();
    QApplication::processEvents();
    EXPECT_EQ(chooser->findChild<QListView*>()->model()->rowCount(), 5'000);
    EXPECT_LT(asked, 1'000);
}
