// What a canvas draws, what it answers at a point, and the picture of a whole family.

#include "canvas/family_picture.h"
#include "canvas/tree_view.h"
#include "elements/shortened_text.h"
#include "shown_family.h"
#include "view_driver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QPalette>
#include <QTest>
#include <QToolTip>

#include <algorithm>

namespace lineara {
namespace {

TEST(Hit, FindsPartsOfNodesAboveLinks)
{
    ShownFamily family;
    Person& parent = family.add(100);
    Person& child = family.add(100);
    parent.addChild(child);
    TreeView& view = family.processAndShow();
    LeafView& node = *parent.leafView();
    EXPECT_EQ(view.hit(node.partnerHandle().frame().centre()).part, NodePart::PartnerHandle);
    EXPECT_EQ(view.hit(node.childHandle().frame().centre()).part, NodePart::ChildHandle);
    EXPECT_EQ(view.hit(node.imageFrame().centre()).part, NodePart::Image);
    const CanvasHit panel = view.hit(node.infoFrame().centre());
    EXPECT_EQ(panel.part, NodePart::Info);
    EXPECT_EQ(panel.node, &node);
    EXPECT_EQ(panel.link, nullptr);
    const CanvasHit background = view.hit({node.frame().x + 0.5, node.frame().y + 0.5});
    EXPECT_EQ(background.node, &node);
    EXPECT_EQ(background.part, std::nullopt);
}

TEST(Hit, FindsLinksBetweenNodesAndNothingBesideThem)
{
    ShownFamily family;
    Person& parent = family.add(100);
    Person& child = family.add(100);
    parent.addChild(child);
    TreeView& view = family.processAndShow();
    const Frame upper = parent.leafView()->frame();
    const CanvasPoint between{upper.centre().x, upper.y - 30};
    EXPECT_EQ(view.hit(between).link, view.branchLayer().layers()[0].get());
    EXPECT_EQ(view.hit(between).node, nullptr);
    EXPECT_EQ(view.hit({between.x + 6, between.y}), CanvasHit{});
}

TEST(Hit, FindsTheTopmostOfOverlappingNodesAndLinks)
{
    ShownFamily family;
    Person& parent = family.add(100);
    Person& child = family.add(100);
    Person& other = family.add(100);
    parent.addChild(child);
    parent.addChild(other);
    TreeView& view = family.processAndShow();
    other.setX(child.x());
    const Frame upper = parent.leafView()->frame();
    EXPECT_EQ(view.hit(other.leafView()->frame().centre()).node, other.leafView());
    EXPECT_EQ(view.hit({upper.centre().x, upper.y - 30}).link, view.branchLayer().layers()[1].get());
}

TEST(Hit, FindsANodeWhereFloatsKnowNoSinglePoints)
{
    ShownFamily family;
    family.add(0, 1);
    const Person& far = family.add(20'000'001, 1);
    TreeView& view = family.show();
    view.zoomTo(4, {0, 0});
    view.reveal(far);
    const Frame node = far.leafView()->frame();
    EXPECT_EQ(node.x, 20'000'001);
    const QPointF corner = view.toViewport({node.x, node.y + node.height});
    const auto hitAtPixel = [&](QPointF pixel) { return view.hit(view.toCanvas(pixel)).node; };
    EXPECT_EQ(hitAtPixel(corner + QPointF(0.5, 0.5)), far.leafView());
    EXPECT_EQ(hitAtPixel(corner + QPointF(-0.5, 0.5)), nullptr);
    EXPECT_EQ(hitAtPixel(view.toViewport({node.x + node.width, node.y}) + QPointF(-0.5, -0.5)), far.leafView());
    EXPECT_EQ(hitAtPixel(view.toViewport({node.x + node.width, node.y}) + QPointF(0.5, -0.5)), nullptr);
}

TEST(Painting, FarNodeIsDrawnExactlyAsANearOne)
{
    std::vector<QImage> pictures;
    for (const int x : {20'000'001, 1}) {
        ShownFamily family;
        family.add(x, 1);
        family.add(0, 20);
        family.add(x + 1000, 20);
        TreeView& view = family.show();
        view.zoomTo(4, {0, 0});
        view.scrollTo((x - 1) * 4.0, 220 * 4);
        pictures.push_back(pictureOf(view));
    }
    EXPECT_EQ(pictures[0], pictures[1]);
}

TEST(Painting, IsWhiteInEveryTheme)
{
    ShownFamily family;
    family.add(100, 1);
    TreeView& view = family.show();
    const QImage light = pictureOf(view);
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(30, 30, 30));
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    QApplication::setPalette(dark);
    const QImage inTheDark = pictureOf(view);
    QApplication::setPalette(before);
    EXPECT_EQ(light.pixelColor(899, 0), QColor(Qt::white));
    EXPECT_EQ(light, inTheDark);
}

TEST(Painting, LinksAreSmoothAgainSoonAfterTheViewHasMoved)
{
    ShownFamily family;
    addManyRows(family);
    family.pool.persons()[40]->addChild(*family.pool.persons()[3]);
    TreeView& view = family.processAndShow();
    view.actualSize();
    view.scrollTo(0, 0);
    const QImage atRest = pictureOf(view);
    turnWheel(view, {0, 120}, Qt::NoModifier);
    turnWheel(view, {0, -120}, Qt::NoModifier);
    EXPECT_NE(pictureOf(view), atRest);
    EXPECT_TRUE(QTest::qWaitFor([&] { return pictureOf(view) == atRest; }));
}

TEST(Painting, BuildsPathsOnlyForLinksInView)
{
    ShownFamily family;
    std::vector<Person*> line;
    for (int person = 0; person < 20; ++person) {
        line.push_back(&family.add(0));
        if (person > 0)
            line[static_cast<std::size_t>(person) - 1]->addChild(*line.back());
    }
    TreeView& view = family.processAndShow();
    const auto paths = [&] {
        return std::ranges::count_if(view.branchLayer().layers(), [](const auto& link) { return link->hasPath(); });
    };
    view.scrollTo(0, 0);
    pictureOf(view);
    EXPECT_GT(paths(), 0);
    EXPECT_LT(paths(), 6);
    const LinkLayer& oldest = *line[0]->linkLayers()[0];
    EXPECT_FALSE(oldest.hasPath());
    view.scrollTo(0, 1e9);
    pictureOf(view);
    EXPECT_TRUE(oldest.hasPath());
    EXPECT_LT(paths(), 6);
    const QPainterPath* const kept = &oldest.path();
    view.scrollTo(0, 4000);
    pictureOf(view);
    EXPECT_EQ(&oldest.path(), kept);
}

TEST(Painting, BuildsNoPathsForManyPersonsFarAway)
{
    ShownFamily family;
    Person& parent = family.add(0);
    for (int child = 1; child <= 2'000; ++child)
        parent.addChild(family.add(child * 160));
    TreeView& view = family.processAndShow();
    view.zoomTo(0.5, {0, 0});
    pictureOf(view);
    const LinkLayer& link = *parent.linkLayers()[0];
    EXPECT_TRUE(link.hasPath());
    view.fit();
    pictureOf(view);
    EXPECT_FALSE(link.hasPath());
}

TEST(Painting, DrawsSomethingAtEveryZoom)
{
    ShownFamily family;
    addManyRows(family);
    TreeView& view = family.show();
    for (const double zoom : {8.0, 1.0, 0.5, 0.3, 0.15, 0.1, 0.02}) {
        view.zoomTo(zoom, {0, 0});
        const Frame panel = family.pool.persons()[20]->leafView()->infoFrame();
        view.scrollTo(panel.x * zoom - 100, panel.y * zoom - 100);
        const QPoint shown = view.toViewport(panel.centre()).toPoint();
        EXPECT_FALSE(isBlank(pictureOf(view).copy(shown.x() - 2, shown.y() - 2, 5, 5))) << zoom;
    }
}

TEST(Hints, HandlesAndShortenedNamesTellMore)
{
    ShownFamily family;
    const QString name = QStringLiteral("Maria Theresia Walburga Amalia Christina of Habsburg-Lorraine and Austria");
    const Person& person = family.add(100, 1, name);
    TreeView& view = family.show();
    const auto hintAt = [&](CanvasPoint point) {
        QToolTip::hideText();
        const QPoint pixel = view.toViewport(point).toPoint();
        QHelpEvent event(QEvent::ToolTip, pixel, view.viewport()->mapToGlobal(pixel));
        QCoreApplication::sendEvent(view.viewport(), &event);
        return QToolTip::text();
    };
    const LeafView& node = *person.leafView();
    EXPECT_EQ(hintAt(node.partnerHandle().frame().centre()), u"Click and drag to connect to partner");
    EXPECT_EQ(hintAt(node.childHandle().frame().centre()), u"Click and drag to connect to child");
    EXPECT_EQ(hintAt(node.infoFrame().centre()), plainToolTip(name));
}

TEST(FamilyPicture, HoldsAllNodesAndAMargin)
{
    ShownFamily family;
    family.add(100, 1);
    const Person& last = family.add(900, 3);
    const TreeView& view = family.show();
    const Frame right = last.leafView()->frame();
    const FamilyPicture picture(view.scene());
    EXPECT_EQ(picture.frame(), (Frame{80, 210, right.x + right.width - 100 + 40, right.y + right.height - 230 + 40}));
}

TEST(FamilyPicture, IsTheSameEveryTimeWhateverTheViewShows)
{
    QImage pictures[2];
    int next = 0;
    for (const double zoom : {1.0, 0.05}) {
        ShownFamily family;
        addManyRows(family);
        TreeView& view = family.show();
        view.zoomTo(zoom, {0, 0});
        const FamilyPicture picture(view.scene());
        QImage image(picture.size().toSize(), QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        picture.paint(painter);
        painter.end();
        pictures[next++] = image;
    }
    EXPECT_EQ(pictures[0], pictures[1]);
    EXPECT_EQ(pictures[0].pixelColor(0, 0), QColor(Qt::white));
}

TEST(FamilyPicture, OfAnEmptyFamilyIsAnEmptyMargin)
{
    ShownFamily family;
    EXPECT_EQ(FamilyPicture(family.show().scene()).size(), QSizeF(40, 40));
}

} // namespace
} // namespace lineara
