#include "notice.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>

namespace lineara {

namespace {

struct NoticeTexts
{
    Q_DECLARE_TR_FUNCTIONS(Notice)
};

} // namespace

Notice::Notice(const QString& text, const QString& command, std::function<void()> taken)
{
    setObjectName(QStringLiteral("notice"));
    setStyleSheet(QStringLiteral("#notice { background: #fff4d6; border-bottom: 1px solid #e0c98a; } "
                                 "#notice QLabel { color: #4a3b10; }"));
    auto* const label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    auto* const button = new QPushButton(command);
    button->setObjectName(QStringLiteral("noticeCommand"));
    auto* const close = new QToolButton;
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setAutoRaise(true);
    close->setAccessibleName(NoticeTexts::tr("Close"));
    auto* const row = new QHBoxLayout(this);
    row->addWidget(label, 1);
    row->addWidget(button);
    row->addWidget(close);
    connect(button, &QPushButton::clicked, this, [this, taken = std::move(taken)] {
        deleteLater();
        taken();
    });
    connect(close, &QToolButton::clicked, this, &QObject::deleteLater);
}

} // namespace lineara
