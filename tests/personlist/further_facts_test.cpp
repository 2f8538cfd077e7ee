// What the open row tells of facts that are kept beside a person.

#include "shown_list.h"

#include <QPushButton>

namespace lineara {
namespace {

class FurtherFactsInTheList : public testing::Test
{
protected:
    FurtherFactsInTheList()
    {
        shown.list->setFurtherFacts({[this](const Person& person) { return &person == &known ? 12 : 0; },
                                     [this](const Person& person) { asked.push_back(person.recordId()); }});
    }

    QPushButton& button() const { return *shown.cell()->findChild<QPushButton*>(QStringLiteral("factsButton")); }

    ShownList shown;
    Person& known = shown.add(QStringLiteral("Anna"));
    Person& unknown = shown.add(QStringLiteral("Bert"));
    std::vector<RecordId> asked;
};

TEST_F(FurtherFactsInTheList, AreCountedBelowTheNotes)
{
    shown.select(known);
    EXPECT_TRUE(button().isVisible());
    EXPECT_TRUE(button().text().startsWith(QStringLiteral("12 further fact"))) << button().text().toStdString();
    EXPECT_GE(button().geometry().top(), shown.notes().geometry().bottom());
}

TEST_F(FurtherFactsInTheList, AreCountedAnewWhenTheLinksOfThePersonChange)
{
    shown.list->setFurtherFacts(
        {[](const Person& person) { return static_cast<int>(person.partners().size()); }, [](const Person&) {}});
    shown.select(known);
    EXPECT_FALSE(button().isVisible());
    known.addPartner(unknown);
    QApplication::processEvents();
    EXPECT_TRUE(button().isVisible());
    unknown.removePartner(known);
    QApplication::processEvents();
    EXPECT_FALSE(button().isVisible());
}

TEST_F(FurtherFactsInTheList, AreNotCountedAnewWhenAFieldChanges)
{
    int counted = 0;
    shown.list->setFurtherFacts({[&counted](const Person&) { return ++counted; }, [](const Person&) {}});
    shown.select(known);
    const int before = counted;
    known.setName(QStringLiteral("Anne"));
    known.setBirthYear(1850);
    unknown.setName(QStringLiteral("Bertram"));
    QApplication::processEvents();
    EXPECT_EQ(counted, before);
    known.changePic(QByteArray("picture"));
    QApplication::processEvents();
    EXPECT_EQ(counted, before + 1);
}

TEST_F(FurtherFactsInTheList, AreCountedAnewWhenAnImportedRecordGoes)
{
    unknown.setSource(shown.context.insertSource({QStringLiteral("family.ged"), 1}, "0 @I2@ INDI\n"));
    shown.list->setFurtherFacts(
        {[this](const Person&) { return static_cast<int>(shown.context.allSources().size()); }, [](const Person&) {}});
    shown.select(known);
    EXPECT_TRUE(button().isVisible());
    shown.context.remove(unknown);
    QApplication::processEvents();
    EXPECT_FALSE(button().isVisible());
}

TEST_F(FurtherFactsInTheList, TakeNoRoomWhereThereAreNone)
{
    shown.select(unknown);
    EXPECT_FALSE(button().isVisible());
    const int tall = shown.notes().height();
    shown.select(known);
    EXPECT_GT(tall, shown.notes().height());
}

TEST_F(FurtherFactsInTheList, AreShownWhenAskedFor)
{
    shown.select(known);
    QTest::mouseClick(&button(), Qt::LeftButton);
    EXPECT_EQ(asked, std::vector{known.recordId()});
}

TEST_F(FurtherFactsInTheList, AreReachedByTheKeyboard)
{
    shown.select(known);
    button().setFocus();
    QTest::keyClick(&button(), Qt::Key_Space);
    EXPECT_EQ(asked.size(), 1u);
}

} // namespace
} // namespace lineara
