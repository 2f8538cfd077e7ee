// What the document has the canvas do while a family is edited.

#include "canvas/tree_view.h"
#include "elements/notifications.h"
#include "platform/notification_center.h"
#include "shown_family.h"

#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace lineara {
namespace {

class PaintCount : public QObject
{
public:
    explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int paints = 0;
};

class Connecting : public testing::Test
{
protected:
    Connecting()
    {
        requests = NotificationCenter::defaultCenter().observe<createLinkNotification>(
            [this](const createLinkNotification& request) {
                request_ = request;
                shapesAtRequest = family.view->branchLayer().layers().size();
            });
    }

    ShownFamily family;
    std::optional<createLinkNotification> request_;
    std::size_t shapesAtRequest = 0;
    Subscription requests;
};

TEST_F(Connecting, ShowsTheShapeAndAsksForTheRecord)
{
    Person& parent = family.add(200, 2);
    Person& child = family.add(400, 1);
    TreeView& view = family.show();
    ASSERT_TRUE(view.connect(parent, child, offspringLink.toString()));
    ASSERT_TRUE(request_);
    EXPECT_EQ(request_->family, &family.pool);
    EXPECT_EQ(request_->from, parent.recordId());
    EXPECT_EQ(request_->to, child.recordId());
    EXPECT_EQ(request_->type, offspringLink);
    EXPECT_EQ(shapesAtRequest, 1u);
    EXPECT_TRUE(parent.children().empty());
    EXPECT_EQ(parent.x(), 200);
    EXPECT_EQ(child.x(), 400);
}

TEST_F(Connecting, IsDrawnOnceWithTheRefreshThatFollows)
{
    Person& parent = family.add(200, 2);
    std::vector<Person*> children;
    for (int child = 0; child < 20; ++child)
        children.push_back(&family.add(400, 1));
    TreeView& view = family.show();
    PaintCount count(*view.viewport());
    // A machine that is busy elsewhere may let the refresh come too late, but not every time.
    const bool isDrawnOnce = std::ranges::any_of(children, [&](Person* child) {
        view.connect(parent, *child, offspringLink.toString());
        count.paints = 0;
        QTest::qWait(10);
        const bool hasWaited = count.paints == 0;
        view.refreshHierarchy();
        return QTest::qWaitFor([&] { return count.paints > 0; }) && hasWaited;
    });
    EXPECT_TRUE(isDrawnOnce);
}

TEST_F(Connecting, IsDrawnSoonEvenIfTheRefreshTakesLong)
{
    Person& parent = family.add(200, 2);
    Person& child = family.add(400, 1);
    TreeView& view = family.show();
    PaintCount count(*view.viewport());
    view.connect(parent, child, offspringLink.toString());
    EXPECT_TRUE(QTest::qWaitFor([&] { return count.paints > 0; }));
}

TEST_F(Connecting, PlacesWhoHasNoRowBesideWhoHas)
{
    Person& anchor = family.add(400, 1);
    Person& left = family.add(150);
    Person& level = family.add(400);
    Person& right = family.add(700);
    TreeView& view = family.show();
    view.connect(anchor, left, partnerLink.toString());
    view.connect(level, anchor, partnerLink.toString());
    view.connect(anchor, right, partnerLink.toString());
    EXPECT_EQ(left.x(), 379);
    EXPECT_EQ(level.x(), 421);
    EXPECT_EQ(right.x(), 421);
    EXPECT_EQ(anchor.x(), 400);
}

TEST_F(Connecting, TakesTheLowestRowForARowLikeAnyOther)
{
    Person& anchor = family.add(400, 0);
    Person& newcomer = family.add(150);
    TreeView& view = family.show();
    ASSERT_TRUE(view.connect(newcomer, anchor, partnerLink.toString()));
    EXPECT_EQ(newcomer.x(), 379);
    EXPECT_EQ(anchor.x(), 400);
}

TEST_F(Connecting, LeavesTheirPlacesToThoseWhoBothHaveARowOrNeitherDoes)
{
    std::vector<std::pair<Person*, Person*>> couples;
    for (const std::optional<std::int32_t> row : {std::optional<std::int32_t>(), std::optional(0), std::optional(1)})
        couples.emplace_back(&family.add(400, row), &family.add(150, row));
    TreeView& view = family.show();
    for (const auto& [left, right] : couples) {
        ASSERT_TRUE(view.connect(*left, *right, partnerLink.toString()));
        EXPECT_EQ(left->x(), 400);
        EXPECT_EQ(right->x(), 150);
    }
}

TEST_F(Connecting, IsOneStepWithThePlace)
{
    Person& anchor = family.add(400, 1);
    Person& newcomer = family.add(150);
    TreeView& view = family.show();
    view.connect(anchor, newcomer, partnerLink.toString());
    EXPECT_EQ(family.context.journal().undoName(), QStringLiteral("Link Partner"));
    family.context.journal().undo();
    EXPECT_EQ(newcomer.x(), 150);
    EXPECT_FALSE(family.context.journal().canUndo());
}

TEST_F(Connecting, NeverMakesAShapeThatTheRulesRefuse)
{
    Person& person = family.add(400, 1);
    Person& other = family.add(600);
    TreeView& view = family.show();
    EXPECT_FALSE(view.connect(person, person, partnerLink.toString()));
    view.removeViewForPerson(other);
    EXPECT_FALSE(view.connect(person, other, partnerLink.toString()));
    EXPECT_FALSE(request_);
    EXPECT_TRUE(view.branchLayer().layers().empty());
    EXPECT_FALSE(family.context.journal().canUndo());
}

TEST(LeavingPersons, StayAwayFromTheCanvasWhateverIsRefreshed)
{
    ShownFamily family;
    Person& stays = family.add(400);
    Person& leaves = family.add(600);
    stays.addPartner(leaves);
    TreeView& view = family.processAndShow();
    view.removeViewForPerson(leaves);
    family.pool.process();
    view.refreshHierarchy();
    view.settle();
    EXPECT_FALSE(view.scene().shows(leaves));
    EXPECT_TRUE(stays.linkLayers().empty());
    view.addViewForPerson(leaves);
    view.refreshHierarchy();
    EXPECT_EQ(stays.linkLayers().size(), 1u);
}

TEST(LeavingPersons, ComeBackWithUndo)
{
    ShownFamily family;
    Person& person = family.add(400);
    const RecordId id = person.recordId();
    TreeView& view = family.processAndShow();
    view.removeViewForPerson(person);
    family.context.journal().begin(QStringLiteral("Remove Person"));
    family.context.remove(person);
    family.context.journal().undo();
    view.refreshHierarchy();
    EXPECT_TRUE(view.scene().shows(*family.context.person(id)));
}

} // namespace
} // namespace lineara
