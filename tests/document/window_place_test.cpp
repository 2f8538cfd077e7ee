// How a window comes back as it was left.

#include "edited_document.h"

#include <QSettings>
#include <QSplitter>

using namespace lineara;

namespace {

class WindowPlace : public testing::Test
{
protected:
    WindowPlace() { QSettings().clear(); }
    ~WindowPlace() override { QSettings().clear(); }

    static QSplitter& panes(const DocumentWindow& window) { return *window.findChild<QSplitter*>(); }
};

} // namespace

TEST_F(WindowPlace, SizeAndWidthOfTheListComeBackAsLeft)
{
    {
        EditedDocument left(ListOf::Document);
        left.document->window().resize(1000, 640);
        QApplication::processEvents();
        panes(left.document->window()).setSizes({410, 590});
        left.document->window().leave();
    }
    const EditedDocument again(ListOf::Document);
    EXPECT_EQ(again.document->window().size(), QSize(1000, 640));
    EXPECT_EQ(panes(again.document->window()).sizes().front(), 410);
}

TEST_F(WindowPlace, AListWiderThanTheWindowLeavesRoomForTheFamily)
{
    QSettings().setValue(QStringLiteral("documentWindow/listWidth"), 100'000);
    const EditedDocument opened(ListOf::Document);
    EXPECT_GE(panes(opened.document->window()).sizes().back(), 200);
}

TEST_F(WindowPlace, NonsenseInTheSettingsIsNoObstacle)
{
    QSettings().setValue(QStringLiteral("documentWindow/listWidth"), QStringLiteral("wide"));
    QSettings().setValue(QStringLiteral("documentWindow/geometry"), QByteArray("nonsense"));
    const EditedDocument opened(ListOf::Document);
    EXPECT_EQ(opened.document->window().size(), QSize(1200, 800));
    EXPECT_GT(panes(opened.document->window()).sizes().front(), 0);
}

TEST_F(WindowPlace, ASecondWindowDoesNotLieExactlyUponTheFirst)
{
    EditedDocument first(ListOf::Document);
    first.document->window().move(200, 100);
    QSettings().setValue(QStringLiteral("documentWindow/geometry"), first.document->window().saveGeometry());
    const EditedDocument second(ListOf::Document);
    EXPECT_NE(second.document->window().pos(), first.document->window().pos());
}
