// What the program hands over to others of the desktop: its help page, and mails to its makers.

#include "app/app_delegate.h"
#include "contact_mail.h"
#include "program_files.h"
#include "start_window.h"
#include "translations.h"

#include <QAction>
#include <QApplication>
#include <QLocale>
#include <QMessageBox>

namespace lineara {

namespace {

struct HelpTexts
{
    Q_DECLARE_TR_FUNCTIONS(HelpTexts)
};

} // namespace

bool AppDelegate::applicationShouldHandleReopen(bool hasVisibleWindows)
{
    if (!hasVisibleWindows)
        showStartWindow();
    return hasVisibleWindows;
}

void AppDelegate::openHelp()
{
    show(helpPage(QLocale(spokenLanguage(QLocale::system().uiLanguages()))));
}

void AppDelegate::contact(const QAction& sender)
{
    show(QUrl(contactAddress(withoutMnemonic(sender.text()))));
}

void AppDelegate::show(const QUrl& url)
{
    if (openUrl_(url))
        return;
    auto* const message = new QMessageBox(
        QMessageBox::Warning, QCoreApplication::applicationName(),
        HelpTexts::tr("No program of this computer could be asked to show “%1”.").arg(url.toDisplayString()),
        QMessageBox::Ok, QApplication::activeWindow());
    message->setAttribute(Qt::WA_DeleteOnClose);
    message->open();
}

} // namespace lineara
