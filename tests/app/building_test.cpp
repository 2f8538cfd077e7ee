// The family of two grandparents, their child, its partner and the couple's child, made from nothing by a hand at a
// real mouse, and by one at a real keyboard.

#include "hand_test.h"

namespace lineara {

namespace {

enum : std::size_t
{
    grandmother,
    grandfather,
    child,
    partner,
    kid
};

constexpr auto unplaced = std::nullopt;

class Building : public HandTest
{};

} // namespace

TEST_F(Building, IsDoneByTheMouseAlone)
{
    beginByMouse();
    for (const int x : {20, 150, 280, 410, 540}) {
        addByMouse();
        placeByMouse(x);
    }
    dragToLink(grandmother, NodePart::PartnerHandle, grandfather);
    expectGenerations({1, 1, unplaced, unplaced, unplaced});
    dragToLink(grandmother, NodePart::ChildHandle, child);
    expectGenerations({3, 3, 2, unplaced, unplaced});
    dragToLink(grandfather, NodePart::ChildHandle, child);
    expectGenerations({3, 3, 2, unplaced, unplaced});
    dragToLink(child, NodePart::PartnerHandle, partner);
    expectGenerations({3, 3, 2, 2, unplaced});
    dragToLink(child, NodePart::ChildHandle, kid);
    expectGenerations({3, 3, 2, 2, 1});
    dragToLink(partner, NodePart::ChildHandle, kid);
    expectGenerations({3, 3, 2, 2, 1});
    const QString built = savedByMouse();
    EXPECT_EQ(marked(built), expectedText("family.lineara", Named::No));

    Hand::click(program().at(kid, NodePart::Image));
    ASSERT_TRUE(waitUntil([&] { return program().node(kid).infoView().isFocused(); }));
    editByMouse(QStringLiteral("Remove Person"));
    expectGenerations({2, 2, 1, 1});
    const QString withoutKid = savedByMouse();
    EXPECT_EQ(marked(withoutKid), expectedText("without_kid.lineara", Named::No));
    editByMouse(QStringLiteral("Undo Remove Person"));
    expectGenerations({3, 3, 2, 2, 1});
    EXPECT_EQ(savedByMouse(), built);
    editByMouse(QStringLiteral("Redo Remove Person"));
    expectGenerations({2, 2, 1, 1});
    EXPECT_EQ(savedByMouse(), withoutKid);
}

TEST_F(Building, AndTakingALinkAwayAgainTakesAClickOnTheLink)
{
    beginByMouse();
    for (const int x : {20, 220}) {
        addByMouse();
        placeByMouse(x);
    }
    dragToLink(grandmother, NodePart::PartnerHandle, grandfather);
    expectGenerations({1, 1});
    const QString linked = savedByMouse();

    Hand::click(program().at(*program().link(grandmother, grandfather)));
    ASSERT_TRUE(waitUntil([&] { return program().link(grandmother, grandfather)->isSelected(); }));
    editByMouse(QStringLiteral("Remove Partner Link"));
    expectGenerations({unplaced, unplaced});
    EXPECT_FALSE(program().link(grandmother, grandfather));
    const QString unlinked = savedByMouse();
    editByMouse(QStringLiteral("Undo Remove Link"));
    expectGenerations({1, 1});
    EXPECT_TRUE(program().link(grandmother, grandfather));
    EXPECT_EQ(savedByMouse(), linked);
    editByMouse(QStringLiteral("Redo Remove Link"));
    expectGenerations({unplaced, unplaced});
    EXPECT_EQ(savedByMouse(), unlinked);
}

TEST_F(Building, IsDoneByTheKeyboardAlone)
{
    const QString asPartner = QStringLiteral("ctrl+shift+p");
    const QString asChild = QStringLiteral("ctrl+shift+c");
    beginByKeys();
    addByKeys(QStringLiteral("Grandmother"));
    addByKeys(QStringLiteral("Grandfather"));
    linkByKeys(asPartner, QStringLiteral("grandmother"));
    expectGenerations({1, 1});
    addByKeys(QStringLiteral("Child"));
    linkByKeys(asChild, QStringLiteral("grandmother"));
    linkByKeys(asChild, QStringLiteral("grandfather"));
    expectGenerations({2, 2, 1});
    addByKeys(QStringLiteral("Partner"));
    linkByKeys(asPartner, QStringLiteral("child"));
    expectGenerations({2, 2, 1, 1});
    addByKeys(QStringLiteral("Kid"));
    linkByKeys(asChild, QStringLiteral("child"));
    linkByKeys(asChild, QStringLiteral("partner"));
    expectGenerations({3, 3, 2, 2, 1});
    const QString built = savedByKeys();
    EXPECT_EQ(marked(built), expectedText("family.lineara", Named::Yes));

    Hand::key(QStringLiteral("Delete"));
    expectGenerations({2, 2, 1, 1});
    const QString withoutKid = savedByKeys();
    EXPECT_EQ(marked(withoutKid), expectedText("without_kid.lineara", Named::Yes));
    Hand::key(QStringLiteral("ctrl+z"));
    expectGenerations({3, 3, 2, 2, 1});
    EXPECT_EQ(savedByKeys(), built);
    Hand::key(QStringLiteral("ctrl+shift+z"));
    expectGenerations({2, 2, 1, 1});
    EXPECT_EQ(savedByKeys(), withoutKid);
}

} // namespace lineara
