// What a document tells about its family: relationships and relatives.

#include "person_chooser.h"
#include "told_family.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

namespace lineara {
namespace {

class Insight : public ToldFamily
{
protected:
    bool isStripShown() const { return !part<QWidget>("relationshipStrip").isHidden(); }
    QString sentence() const { return part<QLabel>("relationshipSentence").text(); }
    void compare(const Person& other) { Q_EMIT edited.canvas().comparisonRequested(other.recordId()); }

    std::vector<const Person*> highlighted() const
    {
        std::vector<const Person*> persons;
        for (const LeafView* const node : edited.canvas().personLayer().nodes()) {
            if (node->isHighlighted())
                persons.push_back(&node->person());
        }
        return persons;
    }

    /// What is shown follows the records a moment after they have changed.
    static void waitForUpdate() { QTest::qWait(450); }
};

TEST_F(Insight, CommandsWantAPersonWhoIsSelected)
{
    for (const int at : {relationship, ancestors, descendants, all})
        EXPECT_FALSE(command(at).isEnabled()) << at;
    EXPECT_TRUE(command(checks).isEnabled());
    edited.click(son);
    EditedDocument::deliver();
    for (const int at : {relationship, ancestors, descendants})
        EXPECT_TRUE(command(at).isEnabled()) << at;
    EXPECT_FALSE(command(all).isEnabled());
}

TEST_F(Insight, HighlightsAncestorsAndDescendantsWithThePerson)
{
    edited.click(son);
    trigger(ancestors);
    EXPECT_THAT(highlighted(), testing::UnorderedElementsAre(&mother, &father, &son));
    trigger(descendants);
    EXPECT_THAT(highlighted(), testing::UnorderedElementsAre(&son, &grandchild));
    EXPECT_FALSE(isStripShown());
    trigger(all);
    EXPECT_FALSE(edited.canvas().isHighlighting());
    EXPECT_FALSE(command(all).isEnabled());
}

TEST_F(Insight, ComparesTheSelectedPersonWithOneWhoIsClickedWithControl)
{
    edited.click(daughter);
    compare(grandchild);
    EXPECT_EQ(sentence(), u"Grandchild is <b>niece or nephew</b> of Daughter");
    EXPECT_TRUE(isStripShown());
    EXPECT_EQ(edited.document->selectionPerson(), &daughter);
    EXPECT_THAT(highlighted(), testing::UnorderedElementsAre(&daughter, &mother, &father, &son, &grandchild));
    compare(grandchild);
    EXPECT_FALSE(isStripShown());
    EXPECT_FALSE(edited.canvas().isHighlighting());
}

TEST_F(Insight, TellsInTheColoursOfTheTheme)
{
    QApplication::setPalette(QPalette(QColor(0x30, 0x30, 0x30)));
    edited.click(mother);
    compare(grandchild);
    ASSERT_TRUE(isStripShown());
    QWidget& strip = part<QWidget>("relationshipStrip");
    const QColor ground = strip.grab().toImage().pixelColor(4, strip.height() / 2);
    EXPECT_EQ(ground, QApplication::palette().color(QPalette::Window));
    const QImage words = part<QLabel>("relationshipSentence").grab().toImage();
    int lightest = 0;
    for (int x = 0; x < words.width(); ++x) {
        for (int y = 0; y < words.height(); ++y)
            lightest = std::max(lightest, words.pixelColor(x, y).lightness());
    }
    EXPECT_GT(lightest, ground.lightness() + 120);
    QApplication::setPalette(QPalette());
}

// The window would be as wide as the word otherwise.
TEST_F(Insight, HasRoomForLongNames)
{
    const int width = edited.document->window().width();
    grandchild.setName(QString(5'000, u'W'));
    edited.click(daughter);
    compare(grandchild);
    EditedDocument::deliver();
    ASSERT_TRUE(isStripShown());
    EXPECT_EQ(edited.document->window().width(), width);
    EXPECT_LT(sentence().size(), 300);
}

TEST_F(Insight, ComparesNobodyWithThemselves)
{
    edited.click(daughter);
    compare(daughter);
    EXPECT_FALSE(isStripShown());
    EXPECT_EQ(edited.document->selectionPerson(), &daughter);
}

TEST_F(Insight, WithoutASelectionAClickWithControlSelects)
{
    compare(daughter);
    EXPECT_EQ(edited.document->selectionPerson(), &daughter);
    EXPECT_FALSE(isStripShown());
}

TEST_F(Insight, TheOtherPersonCanBePickedByKeyboard)
{
    edited.click(daughter);
    trigger(relationship);
    auto* const chooser = edited.document->window().findChild<QDialog*>(QStringLiteral("personChooser"));
    ASSERT_TRUE(chooser);
    chooser->findChild<QLineEdit*>()->setText(QStringLiteral("Father"));
    QTest::keyClick(chooser->findChild<QLineEdit*>(), Qt::Key_Return);
    EXPECT_EQ(sentence(), u"Father is <b>parent</b> of Daughter");
}

TEST_F(Insight, TheStripCanBeSwappedAndClosed)
{
    edited.click(daughter);
    compare(grandchild);
    QTest::mouseClick(&part<QToolButton>("relationshipSwap"), Qt::LeftButton);
    EXPECT_EQ(sentence(), u"Daughter is <b>aunt or uncle</b> of Grandchild");
    QTest::mouseClick(&part<QToolButton>("relationshipClose"), Qt::LeftButton);
    EXPECT_FALSE(isStripShown());
    EXPECT_FALSE(edited.canvas().isHighlighting());
}

TEST_F(Insight, EscapeClosesTheStrip)
{
    edited.click(daughter);
    compare(grandchild);
    QTest::keyClick(&edited.canvas(), Qt::Key_Escape);
    EXPECT_FALSE(isStripShown());
    compare(grandchild);
    QTest::keyClick(&part<QToolButton>("relationshipSwap"), Qt::Key_Escape);
    EXPECT_FALSE(isStripShown());
    EXPECT_FALSE(edited.canvas().isHighlighting());
}

TEST_F(Insight, StrangersAreBroughtOutWithoutAPath)
{
    edited.click(daughter);
    compare(stranger);
    EXPECT_EQ(sentence(), u"Stranger and Daughter are not connected in this family");
    EXPECT_THAT(highlighted(), testing::UnorderedElementsAre(&daughter, &stranger));
}

TEST_F(Insight, FollowsLinksNamesAndUndo)
{
    edited.click(daughter);
    compare(stranger);
    edited.link(daughter, stranger, partnerLink);
    waitForUpdate();
    EXPECT_EQ(sentence(), u"Stranger is <b>partner</b> of Daughter");
    stranger.setName(QStringLiteral("Friend"));
    waitForUpdate();
    EXPECT_EQ(sentence(), u"Friend is <b>partner</b> of Daughter");
    edited.undo();
    waitForUpdate();
    EXPECT_TRUE(sentence().endsWith(QStringLiteral("are not connected in this family")));
}

TEST_F(Insight, WhoComesOrLeavesChangesWhoIsHighlighted)
{
    edited.click(mother);
    trigger(descendants);
    edited.link(daughter, stranger, offspringLink);
    waitForUpdate();
    EXPECT_THAT(highlighted(), testing::UnorderedElementsAre(&mother, &son, &daughter, &grandchild, &stranger));
    edited.click(stranger);
    edited.remove();
    waitForUpdate();
    EXPECT_THAT(highlighted(), testing::UnorderedElementsAre(&mother, &son, &daughter, &grandchild));
    edited.undo();
    waitForUpdate();
    EXPECT_EQ(highlighted().size(), 5U);
}

TEST_F(Insight, EndsWithThePersonItIsAbout)
{
    edited.click(stranger);
    compare(mother);
    edited.remove();
    waitForUpdate();
    EXPECT_FALSE(isStripShown());
    EXPECT_FALSE(edited.canvas().isHighlighting());
    EditedDocument::deliver();
    EXPECT_FALSE(command(all).isEnabled());
}

} // namespace
} // namespace lineara
