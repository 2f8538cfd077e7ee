#include "motion_preference.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStyle>

#include <utility>

namespace lineara {

namespace {

const QString portal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settings = QStringLiteral("org.freedesktop.portal.Settings");

// The one is what all desktops are to have in common, the other what some have had for long.
const QString commonGroup = QStringLiteral("org.freedesktop.appearance");
const QString reducedMotionKey = QStringLiteral("reduced-motion");
const QString gnomeGroup = QStringLiteral("org.gnome.desktop.interface");
const QString animationsKey = QStringLiteral("enable-animations");

/// Values come wrapped, by older portals twice.
QVariant unwrapped(QVariant value)
{
    while (value.userType() == qMetaTypeId<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

MotionPreference::MotionPreference(std::function<void()> changed)
    : changed_(std::move(changed)),
      isReduced_(QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) == 0)
{
    // Asking for a bus where there is none would start one.
    if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return;
    QDBusConnection::sessionBus().connect(portal, portalPath, settings, QStringLiteral("SettingChanged"), this,
                                          SLOT(follow(QString, QString, QDBusVariant)));
    ask(gnomeGroup, animationsKey);
    ask(commonGroup, reducedMotionKey);
}

std::optional<bool> MotionPreference::reducedBy(const QString& group, const QString& key, const QVariant& value)
{
    const QVariant plain = unwrapped(value);
    if (group == commonGroup && key == reducedMotionKey && plain.canConvert<uint>())
        return plain.toUInt() == 1;
    if (group == gnomeGroup && key == animationsKey && plain.userType() == QMetaType::Bool)
        return !plain.toBool();
    return std::nullopt;
}

void MotionPreference::ask(const QString& group, const QString& key)
{
    QDBusMessage question = QDBusMessage::createMethodCall(portal, portalPath, settings, QStringLiteral("Read"));
    question << group << key;
    auto* const answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, group, key] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (!reply.isError())
            follow(group, key, reply.value());
    });
}

void MotionPreference::follow(const QString& group, const QString& key, const QDBusVariant& value)
{
    const auto reduced = reducedBy(group, key, value.variant());
    if (!reduced || *reduced == isReduced_)
        return;
    isReduced_ = *reduced;
    changed_();
}

} // namespace lineara
