#include "motion_preference.h"

#include <QApplication>
#include <QProxyStyle>

#include <gmock/gmock.h>

namespace lineara {

namespace {

using testing::Optional;

const QString gnome = QStringLiteral("org.gnome.desktop.interface");
const QString animations = QStringLiteral("enable-animations");
const QString common = QStringLiteral("org.freedesktop.appearance");
const QString reduced = QStringLiteral("reduced-motion");

class StillStyle : public QProxyStyle
{
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override
    {
        return hint == SH_Widget_Animation_Duration ? 0 : QProxyStyle::styleHint(hint, option, widget, more);
    }
};

} // namespace

TEST(MotionPreference, IsReadFromWhatDesktopsSay)
{
    EXPECT_THAT(MotionPreference::reducedBy(gnome, animations, false), Optional(true));
    EXPECT_THAT(MotionPreference::reducedBy(gnome, animations, true), Optional(false));
    EXPECT_THAT(MotionPreference::reducedBy(common, reduced, 1u), Optional(true));
    EXPECT_THAT(MotionPreference::reducedBy(common, reduced, 0u), Optional(false));
}

TEST(MotionPreference, IsFoundInWhatPortalsHaveWrapped)
{
    const QVariant once = QVariant::fromValue(QDBusVariant(false));
    const QVariant twice = QVariant::fromValue(QDBusVariant(once));
    EXPECT_THAT(MotionPreference::reducedBy(gnome, animations, once), Optional(true));
    EXPECT_THAT(MotionPreference::reducedBy(gnome, animations, twice), Optional(true));
}

TEST(MotionPreference, IsNotAskedOfOtherSettings)
{
    EXPECT_EQ(MotionPreference::reducedBy(gnome, QStringLiteral("cursor-blink"), false), std::nullopt);
    EXPECT_EQ(MotionPreference::reducedBy(common, animations, false), std::nullopt);
    EXPECT_EQ(MotionPreference::reducedBy(gnome, animations, QStringLiteral("no")), std::nullopt);
}

TEST(MotionPreference, FollowsTheStyle)
{
    EXPECT_FALSE(MotionPreference([] {}).isReduced());
    const QString usual = QApplication::style()->name();
    QApplication::setStyle(new StillStyle);
    EXPECT_TRUE(MotionPreference([] {}).isReduced());
    QApplication::setStyle(usual);
}

} // namespace lineara
