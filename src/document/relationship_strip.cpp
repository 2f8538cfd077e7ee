#include "relationship_strip.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QStyle>
#include <QTextDocumentFragment>
#include <QToolButton>
#include <QVBoxLayout>

#include <utility>

namespace lineara {

namespace {

struct StripTexts
{
    Q_DECLARE_TR_FUNCTIONS(StripTexts)
};

QLabel* textLine(const QString& name, Qt::TextFormat format)
{
    auto* const label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(format);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

RelationshipStrip::RelationshipStrip(Commands commands)
    : commands_(std::move(commands)), sentence_(textLine(QStringLiteral("relationshipSentence"), Qt::RichText)),
      details_(textLine(QStringLiteral("relationshipDetails"), Qt::PlainText))
{
    setObjectName(QStringLiteral("relationshipStrip"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    auto* const swap = new QToolButton;
    swap->setObjectName(QStringLiteral("relationshipSwap"));
    swap->setText(StripTexts::tr("Swap"));
    swap->setToolTip(StripTexts::tr("Tell it the other way round"));
    auto* const close = new QToolButton;
    close->setObjectName(QStringLiteral("relationshipClose"));
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setAutoRaise(true);
    close->setAccessibleName(StripTexts::tr("Close"));
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addWidget(sentence_);
    texts->addWidget(details_);
    auto* const row = new QHBoxLayout(this);
    row->addLayout(texts, 1);
    row->addWidget(swap);
    row->addWidget(close);
    connect(swap, &QToolButton::clicked, this, [this] { commands_.swap(); });
    connect(close, &QToolButton::clicked, this, [this] { commands_.close(); });
    hide();
}

void RelationshipStrip::tell(const RelationshipText& text)
{
    const bool isNew = isHidden() || sentence_->text() != text.sentence;
    sentence_->setText(text.sentence);
    details_->setText(text.details);
    details_->setVisible(!text.details.isEmpty());
    show();
    setAccessibleName(QTextDocumentFragment::fromHtml(text.sentence).toPlainText());
    if (isNew) {
        QAccessibleEvent told(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&told);
    }
}

void RelationshipStrip::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        commands_.close();
    else
        QFrame::keyPressEvent(event);
}

} // namespace lineara
