// The canvas as assistive tools see it.

#include "hand.h"

#include <gtest/gtest.h>

#include <QAccessible>

namespace lineara {
namespace {

class Accessibility : public testing::Test
{
protected:
    Accessibility()
    {
        ann.setBirthYear(1901);
        ann.setDeathYear(1968);
        bob.setName(std::nullopt);
    }
    QAccessibleInterface& canvas() { return *QAccessible::queryAccessibleInterface(&view); }
    QAccessibleInterface& nodeOf(const Person& person)
    {
        return *canvas().child(static_cast<int>(person.leafView()->index()));
    }
    QPoint screen(QPointF pixel) const { return view.viewport()->mapToGlobal(pixel.toPoint()); }

    ShownFamily family;
    Person& ann = family.add(100, 1);
    Person& bob = family.add(400, 1);
    TreeView& view = family.show();
    Hand hand{view};
};

TEST_F(Accessibility, CanvasHasANodeForEachPerson)
{
    EXPECT_EQ(canvas().role(), QAccessible::Tree);
    EXPECT_EQ(canvas().text(QAccessible::Name), u"Family tree"_qs);
    EXPECT_EQ(canvas().childCount(), 2);
    EXPECT_EQ(canvas().child(2), nullptr);
    EXPECT_EQ(canvas().child(-1), nullptr);
    for (int index = 0; index < 2; ++index) {
        EXPECT_EQ(canvas().child(index)->role(), QAccessible::TreeItem);
        EXPECT_EQ(canvas().child(index)->parent(), &canvas());
        EXPECT_EQ(canvas().indexOfChild(canvas().child(index)), index);
        EXPECT_EQ(canvas().child(index), canvas().child(index));
    }
}

TEST_F(Accessibility, NodesAreNamedByPersonAndLifeSpan)
{
    EXPECT_EQ(nodeOf(ann).text(QAccessible::Name), u"Anna, 1901 - 1968"_qs);
    EXPECT_EQ(nodeOf(bob).text(QAccessible::Name), u"Unnamed"_qs);
}

TEST_F(Accessibility, TellsWhoIsHighlightedAndWhoIsDimmed)
{
    EXPECT_EQ(nodeOf(ann).text(QAccessible::Description), QString());
    EXPECT_EQ(canvas().text(QAccessible::Description), QString());
    view.setHighlight(std::vector{ann.recordId()});
    EXPECT_EQ(nodeOf(ann).text(QAccessible::Description), u"Highlighted"_qs);
    EXPECT_EQ(nodeOf(bob).text(QAccessible::Description), u"Dimmed"_qs);
    EXPECT_EQ(canvas().text(QAccessible::Description), u"1 person(s) highlighted, everybody else dimmed"_qs);
    view.focus(bob);
    EXPECT_EQ(nodeOf(bob).text(QAccessible::Description), QString()) << "who is selected is never dimmed";
    view.clearHighlight();
    EXPECT_EQ(nodeOf(ann).text(QAccessible::Description), QString());
    EXPECT_EQ(canvas().text(QAccessible::Description), QString());
}

TEST_F(Accessibility, HandlesTellWhatTheyAreFor)
{
    QAccessibleInterface& node = nodeOf(ann);
    ASSERT_EQ(node.childCount(), 2);
    EXPECT_EQ(node.child(0)->text(QAccessible::Name), u"Click and drag to connect to partner"_qs);
    EXPECT_EQ(node.child(1)->text(QAccessible::Name), u"Click and drag to connect to child"_qs);
    for (int index = 0; index < 2; ++index) {
        EXPECT_EQ(node.child(index)->role(), QAccessible::Button);
        EXPECT_EQ(node.child(index)->parent(), &node);
        EXPECT_EQ(node.indexOfChild(node.child(index)), index);
    }
}

TEST_F(Accessibility, PlacesAreThoseOnTheScreen)
{
    EXPECT_TRUE(nodeOf(ann).rect().contains(screen(hand.panel(ann))));
    EXPECT_FALSE(nodeOf(ann).rect().contains(screen(hand.panel(bob))));
    EXPECT_EQ(canvas().childAt(screen(hand.panel(bob)).x(), screen(hand.panel(bob)).y()), &nodeOf(bob));
    EXPECT_EQ(canvas().childAt(screen({5, 5}).x(), screen({5, 5}).y()), nullptr);
    const QPoint handle = screen(hand.partnerHandle(ann));
    EXPECT_EQ(nodeOf(ann).childAt(handle.x(), handle.y()), nodeOf(ann).child(0));
    EXPECT_TRUE(nodeOf(ann).child(0)->rect().contains(handle));
    EXPECT_FALSE(nodeOf(ann).state().offscreen);
    ann.setX(100'000);
    EXPECT_TRUE(nodeOf(ann).state().offscreen);
}

TEST_F(Accessibility, StateTellsSelectionAndFocus)
{
    EXPECT_FALSE(nodeOf(ann).state().selected);
    EXPECT_TRUE(nodeOf(ann).state().selectable);
    view.focus(ann);
    EXPECT_TRUE(nodeOf(ann).state().selected);
    EXPECT_FALSE(nodeOf(bob).state().selected);
    view.activateWindow();
    view.setFocus();
    QCoreApplication::processEvents();
    EXPECT_TRUE(nodeOf(ann).state().focused);
    EXPECT_EQ(canvas().focusChild(), &nodeOf(ann));
}

TEST_F(Accessibility, PressingANodeSelectsThePerson)
{
    std::optional<RecordId> clicked;
    const Subscription clicks = NotificationCenter::defaultCenter().observe<PersonClickedNotification>(
        [&](const auto& click) { clicked = click.person; });
    QAccessibleActionInterface* const actions = nodeOf(bob).actionInterface();
    ASSERT_TRUE(actions);
    EXPECT_EQ(actions->actionNames(), QStringList{QAccessibleActionInterface::pressAction()});
    actions->doAction(QAccessibleActionInterface::pressAction());
    QCoreApplication::processEvents();
    EXPECT_EQ(clicked, bob.recordId());
}

TEST_F(Accessibility, NodesOfPersonsWhoLeaveAreInvalidUntilTheyComeBack)
{
    QAccessibleInterface& node = nodeOf(ann);
    QAccessibleInterface& handle = *node.child(0);
    view.removeViewForPerson(ann);
    EXPECT_EQ(canvas().childCount(), 1);
    EXPECT_FALSE(node.isValid());
    EXPECT_FALSE(handle.isValid());
    EXPECT_EQ(node.rect(), QRect());
    EXPECT_EQ(node.text(QAccessible::Name), QString());
    EXPECT_EQ(handle.text(QAccessible::Name), QString());
    EXPECT_EQ(handle.parent(), nullptr);
    EXPECT_EQ(node.child(0), nullptr);
    EXPECT_EQ(canvas().indexOfChild(&node), -1);
    view.addViewForPerson(ann);
    EXPECT_TRUE(node.isValid());
    EXPECT_EQ(&nodeOf(ann), &node);
}

} // namespace
} // namespace lineara
