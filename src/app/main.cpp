#include "app/app_delegate.h"
#include "home_folder.h"
#include "program_icon.h"
#include "translations.h"

#include <QApplication>
#include <QLocale>
#include <QUrl>

namespace {

// The desktop hands files over as paths or as file URLs.
QString localPath(const QString& argument)
{
    const QUrl url(argument);
    return url.isLocalFile() ? url.toLocalFile() : argument;
}

QStringList localPaths(int argc, char** argv)
{
    QStringList paths;
    for (int at = 1; at < argc; ++at)
        paths.append(localPath(QString::fromLocal8Bit(argv[at])));
    return paths;
}

} // namespace

int main(int argc, char** argv)
{
    lineara::settleHomeFolder();
    const QStringList paths = localPaths(argc, argv);
    // The program takes no options: everything after its name is a file, also where it looks like one of the toolkit's.
    int programNameOnly = 1;
    QApplication application(programNameOnly, argv);
    QApplication::setOrganizationName(QStringLiteral("lineara"));
    QApplication::setApplicationName(QStringLiteral("lineara"));
    QApplication::setApplicationDisplayName(QStringLiteral("Lineara"));
    QApplication::setApplicationVersion(QStringLiteral(LINEARA_VERSION));
    lineara::speak(lineara::spokenLanguage(QLocale::system().uiLanguages()));
    QApplication::setWindowIcon(lineara::programIcon());
    lineara::AppDelegate delegate;
    delegate.start(paths);
    return QApplication::exec();
}
