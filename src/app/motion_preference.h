#pragma once

#include <QDBusVariant>
#include <QObject>

#include <functional>
#include <optional>

namespace lineara {

/// Whether the user wants less motion on the screen: as the style says, or a setting of the desktop, which is followed
/// while the program runs. Without a desktop that tells, motion is wanted.
class MotionPreference : public QObject
{
    Q_OBJECT

public:
    /// `changed` is called when the preference turns out to be another one than isReduced() said until then.
    explicit MotionPreference(std::function<void()> changed);

    bool isReduced() const { return isReduced_; }

    /// What a setting of the desktop's portal says about motion; no value if it is about something else.
    static std::optional<bool> reducedBy(const QString& group, const QString& key, const QVariant& value);

private:
    void ask(const QString& group, const QString& key);
    Q_SLOT void follow(const QString& group, const QString& key, const QDBusVariant& value);

    std::function<void()> changed_;
    bool isReduced_;
};

} // namespace lineara
