#include "about_dialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace lineara;

TEST(AboutDialog, NamesTheProgramItsVersionAndWhoseWorkItStandsOn)
{
    QApplication::setApplicationVersion(QStringLiteral("9.8.7"));
    const QPointer<AboutDialog> dialog(new AboutDialog(nullptr));
    QString told;
    for (const QLabel* const label : dialog->findChildren<QLabel*>())
        told += label->text();
    for (const char* const part : {"Lineara 9.8.7", "Qt 6", "Lesser General Public License", "pugixml", "MIT"})
        EXPECT_TRUE(told.contains(QLatin1String(part))) << part;
    dialog->show();
    dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Close)->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(dialog);
}
