#include "program_files.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace lineara {

namespace {

/// The first of the places, seen from where the program lies, in which the file is; empty if it is in none.
QString found(const QStringList& folders, const QString& file)
{
    const QDir programs(QCoreApplication::applicationDirPath());
    for (const QString& folder : folders) {
        const QString path = programs.absoluteFilePath(folder + QLatin1Char('/') + file);
        if (QFileInfo::exists(path))
            return QDir::cleanPath(path);
    }
    return {};
}

QString helpFile(const QString& name)
{
    return found({QStringLiteral("../share/doc/lineara/help"), QStringLiteral("../../../docs/help")}, name);
}

} // namespace

QString sampleFamily()
{
    return found({QStringLiteral("../share/lineara/samples"), QStringLiteral("../../../samples")},
                 QStringLiteral("shakespeare.lineara"));
}

QUrl helpPage(const QLocale& locale)
{
    const QString language = locale.name().section(QLatin1Char('_'), 0, 0);
    const QString translated = helpFile(language + QStringLiteral("/index.html"));
    const QString page = translated.isEmpty() ? helpFile(QStringLiteral("index.html")) : translated;
    return page.isEmpty() ? QUrl() : QUrl::fromLocalFile(page);
}

} // namespace lineara
