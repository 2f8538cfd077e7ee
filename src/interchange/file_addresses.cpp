#include "file_addresses.h"

#include "media_files.h"

#include <QRegularExpression>
#include <QUrl>

namespace lineara {
namespace {

constexpr QLatin1String fileScheme("file:");

/// A path in which each sign that has no meaning of its own in addresses is escaped. One that has escapes already, and
/// nothing that needs one, keeps them: nobody knows whether "%20" is meant as a blank.
QString escapedPath(const QString& path)
{
    static const QRegularExpression address(
        QRegularExpression::anchoredPattern(QStringLiteral("(?:[A-Za-z0-9._~!$&'()*+,;=:@/-]|%[0-9A-Fa-f]{2})*+")));
    const bool isEscaped = address.match(path).hasMatch();
    return isEscaped ? path : QString::fromLatin1(QUrl::toPercentEncoding(path, "!$&'()*+,;=:@/"));
}

/// An address with nothing changed but what can't stand in one.
QString mendedAddress(const QString& address, const QByteArray& allowed)
{
    static const QRegularExpression escapedTwice(QStringLiteral("%25([0-9A-Fa-f]{2})"));
    return QString::fromLatin1(QUrl::toPercentEncoding(address, allowed)).replace(escapedTwice, QStringLiteral("%\\1"));
}

bool hasWebScheme(const QString& name)
{
    static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]+://"));
    return isOnTheWeb(name) && scheme.match(name).hasMatch();
}

bool startsWithDrive(QStringView path)
{
    return path.size() > 2 && path[0].unicode() < 128 && path[0].isLetter() && path[1] == u':' && path[2] == u'/';
}

/// Ahead of the first slash a colon would end a scheme.
QString relativeAddress(const QString& path)
{
    const QString escaped = escapedPath(path);
    // What the import takes for something on the web it must not look for in folders.
    if (isOnTheWeb(path))
        return QStringLiteral("./") + escaped;
    const auto slash = escaped.indexOf(u'/');
    const auto length = slash < 0 ? escaped.size() : slash;
    return escaped.first(length).replace(u':', QStringLiteral("%3A")) + escaped.sliced(length);
}

QString withBackslashes(QString path)
{
    return path.replace(u'/', u'\\');
}

/// The name that the address was made of, if it is one that addresses are made of in one way only.
QString likelyName(const QString& address)
{
    constexpr QLatin1String local("file://");
    if (hasWebScheme(address))
        return address;
    if (!address.startsWith(local))
        return decodedAddress(address);
    const QString path = decodedAddress(address.sliced(local.size()));
    if (!path.startsWith(u'/'))
        return withBackslashes(QStringLiteral("//") + path);
    return startsWithDrive(QStringView(path).sliced(1)) ? withBackslashes(path.sliced(1)) : path;
}

} // namespace

QString addressOfName(const QString& name)
{
    const QString trimmed = name.trimmed();
    if (hasWebScheme(trimmed))
        return mendedAddress(trimmed, "!$&'()*+,;=:@/?#[]");
    QString path = trimmed;
    path.replace(u'\\', u'/');
    if (path.startsWith(fileScheme, Qt::CaseInsensitive))
        return mendedAddress(path, "!$&'()*+,;=:@/");
    if (startsWithDrive(path))
        return fileScheme + QStringLiteral("///") + path.first(2) + escapedPath(path.sliced(2));
    if (path.startsWith(QStringLiteral("//")))
        return fileScheme + escapedPath(path);
    return path.startsWith(u'/') ? QString(fileScheme + QStringLiteral("//") + escapedPath(path))
                                 : relativeAddress(path);
}

QString nameOfAddress(const QString& address)
{
    const QString name = likelyName(address);
    return addressOfName(name) == address ? name : address;
}

} // namespace lineara
