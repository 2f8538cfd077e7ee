#include "onboarding_view.h"

#include "document/light_palette.h"
#include "onboarding_picture.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace lineara {

namespace {

constexpr double titleScale = 1.6;
constexpr int greatestWidth = 540; ///< longer lines are hard to read

QLabel* makeLine(const QString& text)
{
    auto* const line = new QLabel(text);
    line->setAlignment(Qt::AlignCenter);
    line->setWordWrap(true);
    return line;
}

QLabel* makeTitle(const QString& text)
{
    QLabel* const title = makeLine(text);
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * titleScale);
    title->setFont(font);
    return title;
}

} // namespace

OnboardingView::OnboardingView()
    : hint_(makeLine({})), addPerson_(new QPushButton(tr("Add Person"))), import_(new QPushButton(tr("Import…"))),
      importHint_(makeLine(tr("Or bring a family along from another program, as a GEDCOM file:")))
{
    setObjectName(QStringLiteral("onboardingView"));
    setPalette(lightPalette(palette()));
    setAutoFillBackground(true);
    addPerson_->setObjectName(QStringLiteral("onboardingAddPerson"));
    addPerson_->setEnabled(false);
    import_->setObjectName(QStringLiteral("onboardingImport"));
    auto* const column = new QVBoxLayout;
    column->addStretch(1);
    column->addWidget(new OnboardingPicture, 6);
    column->addSpacing(8);
    column->addWidget(makeTitle(tr("This family is still empty")));
    column->addWidget(hint_);
    column->addSpacing(4);
    column->addWidget(addPerson_, 0, Qt::AlignHCenter);
    column->addSpacing(12);
    column->addWidget(importHint_);
    column->addWidget(import_, 0, Qt::AlignHCenter);
    column->addStretch(2);
    auto* const texts = new QWidget;
    texts->setLayout(column);
    texts->setMaximumWidth(greatestWidth);
    auto* const middle = new QHBoxLayout(this);
    middle->addStretch(0);
    middle->addWidget(texts, 1);
    middle->addStretch(0);
    importHint_->hide();
    import_->hide();
}

void OnboardingView::setAddPerson(QAction& command)
{
    const QString keys = command.shortcut().toString(QKeySequence::NativeText);
    hint_->setText(
        tr("Add the first person (%1) and type a name. Then draw lines from the round handles: to a partner, "
           "to a child. Everybody finds the right row alone.")
            .arg(keys));
    const auto follow = [this, &command] { addPerson_->setEnabled(command.isEnabled()); };
    connect(addPerson_, &QPushButton::clicked, &command, &QAction::trigger);
    connect(&command, &QAction::changed, this, follow);
    follow();
}

void OnboardingView::setImport(std::function<void()> import)
{
    connect(import_, &QPushButton::clicked, this, std::move(import));
    importHint_->show();
    import_->show();
}

} // namespace lineara
