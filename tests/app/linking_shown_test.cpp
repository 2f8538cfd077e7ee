// What is seen while a link is made, and a strip of pictures of it.

#include "canvas/placement.h"
#include "canvas/tree_view.h"
#include "hand_test.h"
#include "strip.h"

#include <QCursor>

namespace lineara {

namespace {

enum : std::size_t
{
    mother,
    father,
    daughter,
    husband
};

class LinkingShown : public HandTest
{
protected:
    /// The part of the screen where the family stands.
    QRect scene()
    {
        const QSize size(560, 440);
        return {program().at(CanvasPoint{-10, 200}) - QPoint(0, size.height()), size};
    }

    void add(const QString& name, int x)
    {
        addByMouse();
        nameByKeys(name);
        placeByMouse(x);
    }

    double height(std::size_t person) { return program().node(person).yConstraint()->constant; }
    double ownRow(std::size_t person) { return rowConstant(program().node(person).person().generation()); }
};

} // namespace

TEST_F(LinkingShown, FromTheFirstMoveOfTheHandToTheLastOfTheNodes)
{
    beginByMouse();
    add(QStringLiteral("Anne"), 20);
    add(QStringLiteral("William"), 140);
    dragToLink(mother, NodePart::PartnerHandle, father);
    expectGenerations({1, 1});
    add(QStringLiteral("Susanna"), 270);
    add(QStringLiteral("John"), 390);
    dragToLink(daughter, NodePart::PartnerHandle, husband);
    expectGenerations({1, 1, 1, 1});
    Strip strip;
    strip.add(scene(), QStringLiteral("Two couples"));

    const QPoint handle = program().at(mother, NodePart::ChildHandle);
    const QPoint aim = program().at(daughter, NodePart::Image);
    Hand::press(handle);
    Hand::pull(handle, aim);
    const auto& band = program().canvas().personLayer().connection();
    ASSERT_TRUE(waitUntil([&] { return band && program().at(band->to) == aim; }));
    EXPECT_EQ(program().at(band->from), handle);
    strip.add(scene(), QStringLiteral("A line from the handle"));

    Hand::release();
    ASSERT_TRUE(waitUntil([&] { return height(mother) < rowConstant(1) - 60 && height(mother) != ownRow(mother); }));
    EXPECT_FALSE(band);
    EXPECT_EQ(height(father), height(mother)) << "partners glide in step";
    strip.add(scene(), QStringLiteral("Everybody glides"));

    expectGenerations({2, 2, 1, 1});
    strip.add(scene(), QStringLiteral("Parents above their child"));
    EXPECT_TRUE(strip.save(QStringLiteral("editing.png")));
}

} // namespace lineara
