#pragma once

#include <QString>

namespace lineara {

/// Drops what a platform without a screen says of every window, until the program ends: the few lines of a test that
/// fails could not be found among thousands of such. For `main`.
inline void quietPlatform()
{
    static QtMessageHandler usual = nullptr;
    usual = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& context, const QString& text) {
        if (!text.startsWith(u"This plugin does not support "))
            usual(type, context, text);
    });
}

} // namespace lineara
