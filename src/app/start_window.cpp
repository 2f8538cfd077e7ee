#include "start_window.h"

#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace lineara {

StartWindow::StartWindow(const StartCommands& commands)
{
    setObjectName(QStringLiteral("startWindow"));
    setWindowTitle(QStringLiteral("Lineara"));
    fileMenu_ = menuBar()->addMenu(tr("&File"));
    helpMenu_ = menuBar()->addMenu(tr("&Help"));
    setCentralWidget(makeContent(commands));
    resize(560, 360);
}

QWidget* StartWindow::makeContent(const StartCommands& commands)
{
    auto* content = new QWidget;
    auto* title = new QLabel(tr("<h1>Lineara</h1><p>A family tree that draws itself.</p>"));
    title->setAlignment(Qt::AlignCenter);
    auto* open = new QPushButton(tr("Open a Family\u2026"));
    open->setObjectName(QStringLiteral("openButton"));
    open->setDefault(true);
    connect(open, &QPushButton::clicked, this, commands.open);
    auto* openNew = new QPushButton(tr("Begin a New Family"));
    openNew->setObjectName(QStringLiteral("newButton"));
    connect(openNew, &QPushButton::clicked, this, commands.openNew);
    auto* sample = new QPushButton(tr("Show the Sample Family"));
    sample->setObjectName(QStringLiteral("sampleButton"));
    sample->setVisible(static_cast<bool>(commands.openSample));
    if (commands.openSample)
        connect(sample, &QPushButton::clicked, this, commands.openSample);

    auto* layout = new QVBoxLayout(content);
    layout->addStretch(1);
    layout->addWidget(title);
    layout->addSpacing(24);
    for (QPushButton* button : {open, openNew, sample}) {
        button->setMinimumWidth(240);
        layout->addWidget(button, 0, Qt::AlignHCenter);
    }
    layout->addStretch(2);
    open->setFocus();
    return content;
}

} // namespace lineara
