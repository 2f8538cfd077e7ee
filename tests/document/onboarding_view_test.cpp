// The hint of an empty family: what it offers, and that its buttons do it.

#include "edited_document.h"

#include <QImage>
#include <QLabel>
#include <QPushButton>

#include <gmock/gmock.h>

using namespace lineara;
using testing::SizeIs;

namespace {

class Onboarding : public testing::Test
{
protected:
    Onboarding()
    {
        document->window().resize(900, 600);
        document->window().show();
        settle(*document);
    }

    DocumentWindow& window() const { return document->window(); }
    QWidget& view() const { return *window().findChild<QWidget*>(QStringLiteral("onboardingView")); }
    QPushButton& button(const char* name) const { return *view().findChild<QPushButton*>(QString::fromLatin1(name)); }

    std::unique_ptr<Document> document = Document::create();
};

} // namespace

TEST_F(Onboarding, ItsButtonAddsTheFirstPersonAndTheHintGoes)
{
    ASSERT_TRUE(window().isOnboardingVisible());
    ASSERT_TRUE(button("onboardingAddPerson").isEnabled());
    button("onboardingAddPerson").click();
    settle(*document);
    EXPECT_FALSE(window().isOnboardingVisible());
    EXPECT_THAT(window().canvas()->pool().persons(), SizeIs(1));
}

TEST_F(Onboarding, TellsTheShortcutThatAddsAPerson)
{
    QString told;
    for (const QLabel* const label : view().findChildren<QLabel*>())
        told += label->text();
    EXPECT_TRUE(told.contains(QStringLiteral("Ctrl+Shift+N"))) << told.toStdString();
}

TEST_F(Onboarding, OffersToImportOnceSomebodyCan)
{
    EXPECT_FALSE(button("onboardingImport").isVisible());
    int imported = 0;
    window().setImport([&] { ++imported; });
    EXPECT_TRUE(button("onboardingImport").isVisible());
    button("onboardingImport").click();
    EXPECT_EQ(imported, 1);
}

TEST_F(Onboarding, StaysWhiteInADarkTheme)
{
    QApplication::setPalette(QPalette(QColor(0x30, 0x30, 0x30)));
    const QImage picture = view().grab().toImage();
    EXPECT_EQ(picture.pixelColor(2, 2), QColor(Qt::white));
    EXPECT_EQ(picture.pixelColor(picture.width() - 3, picture.height() - 3), QColor(Qt::white));
    QApplication::setPalette(QPalette());
}

TEST_F(Onboarding, FitsASmallWindow)
{
    window().setImport([] {});
    EXPECT_LE(view().minimumSizeHint().height(), 400);
    EXPECT_LE(view().minimumSizeHint().width(), 400);
}
