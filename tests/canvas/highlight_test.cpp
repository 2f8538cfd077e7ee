// Some persons are brought out, and all others dimmed.

#include "canvas/family_picture.h"
#include "hand.h"
#include "view_driver.h"

#include <gmock/gmock.h>

#include <QPainter>
#include <QTest>

namespace lineara {
namespace {

class Highlight : public testing::Test
{
protected:
    /// A couple with two children; the first child's panel and links are looked at.
    void SetUp() override
    {
        for (Person* const child : {&son, &daughter}) {
            mother.addChild(*child);
            father.addChild(*child);
        }
        mother.addPartner(father);
        view = &family.processAndShow();
        view->actualSize();
    }

    void bringOut(std::initializer_list<const Person*> persons)
    {
        std::vector<RecordId> ids;
        for (const Person* const person : persons)
            ids.push_back(person->recordId());
        view->setHighlight(ids);
    }

    QColor colourAt(CanvasPoint point) { return pictureOf(*view).pixelColor(view->toViewport(point).toPoint()); }
    /// Beside the texts, where the panel has one colour.
    QColor panelColour(const Person& person)
    {
        const Frame panel = person.leafView()->infoFrame();
        return colourAt({panel.x + 10, panel.centre().y});
    }

    static CanvasPoint middleOf(const Person& upper, const Person& lower)
    {
        const CanvasPoint one = upper.leafView()->frame().centre();
        const CanvasPoint other = lower.leafView()->frame().centre();
        return {(one.x + other.x) / 2, (one.y + other.y) / 2};
    }

    ShownFamily family;
    Person& mother = family.add(0);
    Person& father = family.add(500);
    Person& son = family.add(100);
    Person& daughter = family.add(700);
    TreeView* view = nullptr;
};

TEST_F(Highlight, DimsEverybodyElse)
{
    const QColor plain = panelColour(son);
    ASSERT_LT(plain.lightness(), 225);
    bringOut({&mother, &son});
    EXPECT_EQ(panelColour(son), plain);
    EXPECT_EQ(panelColour(mother), plain);
    EXPECT_GT(panelColour(father).lightness(), 240);
    EXPECT_GT(panelColour(daughter).lightness(), 240);
    view->clearHighlight();
    EXPECT_EQ(panelColour(father), plain);
}

TEST_F(Highlight, BringsOutTheLinksAmongThem)
{
    const QColor plain = colourAt(middleOf(mother, son));
    ASSERT_NE(plain, QColor(Qt::white));
    bringOut({&mother, &son});
    EXPECT_EQ(colourAt(middleOf(mother, son)), plain);
    const QColor dimmed = colourAt(middleOf(mother, daughter));
    EXPECT_GT(dimmed.lightness(), plain.lightness());
    EXPECT_NE(dimmed, QColor(Qt::white));
}

/// Tiers of detail: a picture that is drawn well, a plain one and one of boxes and lines, each at rest and moving.
class HighlightOfMany : public testing::TestWithParam<double>
{
protected:
    QColor panelColour(const Person& person)
    {
        const Frame panel = person.leafView()->infoFrame();
        return darkestAround({panel.x + 20, panel.centre().y});
    }

    /// Between the rows, on the link alone.
    QColor linkColour(const Person& upper)
    {
        const Frame frame = upper.leafView()->frame();
        return darkestAround({frame.centre().x, frame.y - 30});
    }

    /// Far away a link is a line of one pixel, which may be the next one.
    QColor darkestAround(CanvasPoint point)
    {
        const QImage picture = pictureOf(view);
        const QPoint pixel = view.toViewport(point).toPoint();
        QColor darkest = Qt::white;
        for (const int aside : {-1, 0, 1}) {
            const QColor colour = picture.pixelColor(pixel + QPoint(aside, 0));
            if (colour.lightness() < darkest.lightness())
                darkest = colour;
        }
        return darkest;
    }

    void checkDimming()
    {
        const QColor plain = panelColour(first);
        const QColor plainLink = linkColour(first);
        const QColor plainSecond = panelColour(second);
        ASSERT_LT(plainLink.lightness(), 240);
        ASSERT_LT(plainSecond.lightness(), 225);
        view.setHighlight(std::vector{first.recordId(), firstChild.recordId()});
        EXPECT_EQ(panelColour(first), plain);
        EXPECT_LT(255 - panelColour(second).lightness(), (255 - plainSecond.lightness()) / 3);
        EXPECT_LT(panelColour(second).lightness(), 255);
        EXPECT_EQ(linkColour(first), plainLink);
        EXPECT_GT(linkColour(second).lightness(), plainLink.lightness());
        view.clearHighlight();
        EXPECT_EQ(panelColour(second), plainSecond);
    }

    static TreeView& shown(ShownFamily& family)
    {
        for (int row = 1; row <= 9; ++row) {
            for (int place = 0; place < 400; ++place)
                family.add(place * 152, row);
        }
        const auto& persons = family.pool.persons();
        for (std::size_t upper : {1'605U, 1'608U})
            persons[upper]->addChild(*persons[upper - 400]);
        TreeView& view = family.show({1'600, 900});
        family.pool.rebuildLists();
        view.refreshHierarchy();
        view.settle();
        return view;
    }

    ShownFamily family;
    TreeView& view = shown(family);
    Person& first = *family.pool.persons()[1'605];
    Person& firstChild = *family.pool.persons()[1'205];
    Person& second = *family.pool.persons()[1'608];
};

TEST_P(HighlightOfMany, IsSeenAtEveryDetail)
{
    view.zoomTo(GetParam(), {0, 0});
    view.scrollTo(0, 400 * GetParam());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isBlank(pictureOf(view)); }));
    QTest::qWait(300); // the view is at rest again
    checkDimming();
}

TEST_P(HighlightOfMany, IsSeenWhileTheViewMoves)
{
    view.zoomTo(GetParam(), {0, 0});
    view.scrollTo(0, 400 * GetParam());
    turnWheel(view, {0, -120}, Qt::NoModifier);
    turnWheel(view, {0, 120}, Qt::NoModifier);
    checkDimming();
}

INSTANTIATE_TEST_SUITE_P(Zooms, HighlightOfMany, testing::Values(1.0, 0.2, 0.05));

TEST_F(Highlight, WhoIsSelectedIsNeverDimmed)
{
    bringOut({&mother});
    view->focus(daughter);
    EXPECT_LT(panelColour(daughter).lightness(), 230);
    view->unfocus(daughter);
    EXPECT_GT(panelColour(daughter).lightness(), 240);
}

TEST_F(Highlight, PicturesForFilesShowNothingOfIt)
{
    const auto whole = [this] {
        const FamilyPicture picture(view->scene());
        QImage image(picture.size().toSize(), QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        picture.paint(painter);
        painter.end();
        return image;
    };
    const QImage before = whole();
    bringOut({&mother});
    EXPECT_EQ(whole(), before);
}

TEST_F(Highlight, WhoLeavesDropsOutAndWhoComesIsDimmed)
{
    bringOut({&mother, &son});
    view->removeViewForPerson(son);
    view->addViewForPerson(son);
    EXPECT_GT(panelColour(son).lightness(), 240);
    family.pool.removePerson(mother);
    family.context.remove(mother);
    EXPECT_TRUE(view->isHighlighting());
    view->clearHighlight();
    EXPECT_LT(panelColour(son).lightness(), 230);
}

TEST_F(Highlight, PersonsOfNoRecordAreNoMatter)
{
    view->setHighlight(std::vector{RecordId{4'711}});
    EXPECT_GT(panelColour(son).lightness(), 240);
}

TEST_F(Highlight, EscapeClearsItAndSaysSo)
{
    int dismissed = 0;
    QObject::connect(view, &TreeView::highlightDismissed, [&] { ++dismissed; });
    QTest::keyClick(view, Qt::Key_Escape);
    EXPECT_EQ(dismissed, 0);
    bringOut({&mother});
    QTest::keyClick(view, Qt::Key_Escape);
    EXPECT_EQ(dismissed, 1);
    EXPECT_FALSE(view->isHighlighting());
    bringOut({&mother});
    view->clearHighlight();
    EXPECT_EQ(dismissed, 1);
}

TEST_F(Highlight, EscapeEndsADragFirst)
{
    bringOut({&mother});
    const QPointF grip = view->toViewport(son.leafView()->infoFrame().centre());
    sendMouse(*view, QEvent::MouseButtonPress, grip, Qt::LeftButton, Qt::LeftButton);
    sendMouse(*view, QEvent::MouseMove, grip + QPointF(30, 0), Qt::NoButton, Qt::LeftButton);
    QTest::keyClick(view, Qt::Key_Escape);
    EXPECT_TRUE(view->isHighlighting());
    QTest::keyClick(view, Qt::Key_Escape);
    EXPECT_FALSE(view->isHighlighting());
}

TEST_F(Highlight, AClickWithControlAsksForAComparisonAndSelectsNobody)
{
    std::optional<RecordId> compared;
    QObject::connect(view, &TreeView::comparisonRequested, [&](RecordId person) { compared = person; });
    int clicks = 0;
    const Subscription heard =
        NotificationCenter::defaultCenter().observe<PersonClickedNotification>([&](const auto&) { ++clicks; });
    const QPoint pixel = view->toViewport(son.leafView()->infoFrame().centre()).toPoint();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::ControlModifier, pixel);
    QCoreApplication::processEvents();
    EXPECT_EQ(compared, son.recordId());
    EXPECT_EQ(clicks, 0);
    compared.reset();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, pixel);
    QCoreApplication::processEvents();
    EXPECT_FALSE(compared);
    EXPECT_EQ(clicks, 1);
}

} // namespace
} // namespace lineara
