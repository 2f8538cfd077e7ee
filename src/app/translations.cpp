#include "translations.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibraryInfo>
#include <QTranslator>

namespace lineara {

namespace {

const QString folder = QStringLiteral(":/i18n");

/// English has a file, too, but only for what differs with numbers.
bool isSpoken(const QString& language)
{
    return QFile::exists(QStringLiteral("%1/lineara_%2.qm").arg(folder, language));
}

/// What can't be loaded is English, as it stands in the code.
void install(const QString& name, const QString& from)
{
    auto* const translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(name, from))
        QCoreApplication::installTranslator(translator);
    else
        delete translator;
}

} // namespace

QString spokenLanguage(const QStringList& wanted)
{
    for (const QString& tag : wanted) {
        QString language = tag.section(QLatin1Char('-'), 0, 0);
        if (isSpoken(language))
            return language;
    }
    return QStringLiteral("en");
}

void speak(const QString& language)
{
    install(QStringLiteral("qtbase_") + language, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    install(QStringLiteral("lineara_") + language, folder);
}

} // namespace lineara
