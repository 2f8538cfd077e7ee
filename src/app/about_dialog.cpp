#include "about_dialog.h"

#include "program_icon.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace lineara {

namespace {

constexpr int aboutIconSize = 96;
constexpr int textWidth = 380;

QLabel* makeText(const QString& text)
{
    auto* const label = new QLabel(text);
    label->setTextFormat(Qt::RichText);
    label->setTextInteractionFlags(Qt::TextBrowserInteraction);
    label->setOpenExternalLinks(true);
    label->setWordWrap(true);
    label->setMinimumWidth(textWidth);
    return label;
}

} // namespace

AboutDialog::AboutDialog(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("aboutDialog"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("About Lineara"));
    auto* const icon = new QLabel;
    icon->setPixmap(programIcon().pixmap(QSize(aboutIconSize, aboutIconSize), devicePixelRatioF()));
    auto* const texts = new QVBoxLayout;
    texts->addWidget(makeText(QStringLiteral("<h2>Lineara %1</h2>").arg(QApplication::applicationVersion())));
    texts->addWidget(makeText(tr("A family tree that draws itself: whoever is linked finds the right row alone.")));
    texts->addSpacing(8);
    texts->addWidget(makeText(
        tr("<p>Lineara stands on the work of others, with thanks:</p>"
           "<p><b>Qt %1</b>, the toolkit for windows and drawing, under the GNU Lesser General Public License, "
           "version 3<br><b>pugixml</b> by Arseny Kapoulkine, the reader of XML files, under the MIT License</p>")
            .arg(QLatin1String(qVersion()))));
    auto* const top = new QHBoxLayout;
    top->setSpacing(20);
    top->addWidget(icon, 0, Qt::AlignTop);
    top->addLayout(texts, 1);

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    auto* const aboutQt = buttons->addButton(tr("About &Qt"), QDialogButtonBox::HelpRole);
    aboutQt->setObjectName(QStringLiteral("aboutQtButton"));
    connect(aboutQt, &QPushButton::clicked, qApp, &QApplication::aboutQt);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    buttons->button(QDialogButtonBox::Close)->setFocus();

    auto* const all = new QVBoxLayout(this);
    all->addLayout(top, 1);
    all->addWidget(buttons);
}

} // namespace lineara
