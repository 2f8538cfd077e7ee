#include "contact_mail.h"

namespace lineara {

QString withoutMnemonic(const QString& text)
{
    QString plain;
    bool isMarked = false;
    for (const QChar character : text) {
        // Two in a row stand for the character itself.
        isMarked = character == QLatin1Char('&') && !isMarked;
        if (!isMarked)
            plain += character;
    }
    return plain;
}

QString contactAddress(const QString& title)
{
    QString subject = title;
    subject.replace(QLatin1Char(' '), QStringLiteral("%20"));
    return QStringLiteral("mailto:" LINEARA_SUPPORT_ADDRESS "?subject=") + subject;
}

} // namespace lineara
