#pragma once

#include <QFrame>
#include <QString>

#include <functional>

namespace lineara {

/// A bar that tells something and offers one command, until that is taken or the bar is waved away.
class Notice : public QFrame
{
public:
    Notice(const QString& text, const QString& command, std::function<void()> taken);
};

} // namespace lineara
