#include "recovery_panel.h"

#include "document/elided_label.h"
#include "shown_folder.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <utility>

namespace lineara {

namespace {

constexpr int rowsInSight = 3;

QString placeAndTime(const RecoveryOffer& offer)
{
    const QString folder = offer.folder.isEmpty() ? RecoveryPanel::tr("never saved") : shownFolder(offer.folder);
    return RecoveryPanel::tr("changed %1 — %2", "date and time — folder")
        .arg(QLocale().toString(offer.changed, QLocale::ShortFormat), folder);
}

QPushButton* makeButton(const QString& text, const QString& name, const QString& spoken)
{
    auto* const button = new QPushButton(text);
    button->setObjectName(name);
    button->setAccessibleName(spoken);
    return button;
}

} // namespace

RecoveryPanel::RecoveryPanel(Command open, Command discard)
    : open_(std::move(open)), discard_(std::move(discard)), layout_(new QVBoxLayout(this))
{
    setObjectName(QStringLiteral("recoveryPanel"));
    setAccessibleName(tr("Unsaved work"));
    setFrameShape(StyledPanel);
    QPalette paper = palette();
    paper.setColor(QPalette::Window, QColor(0xff, 0xf6, 0xdb));
    setPalette(paper);
    setAutoFillBackground(true);
    hide();
}

void RecoveryPanel::setOffers(const QList<RecoveryOffer>& offers)
{
    offers_ = offers;
    while (QLayoutItem* const old = layout_->takeAt(0)) {
        // The button that led here is still at work.
        old->widget()->hide();
        old->widget()->deleteLater();
        delete old;
    }
    setVisible(!offers.isEmpty());
    if (offers.isEmpty())
        return;
    auto* const title = new QLabel(tr("Not saved when Lineara ended, but not lost:"));
    title->setWordWrap(true);
    layout_->addWidget(title);

    auto* const rows = new QWidget;
    auto* const column = new QVBoxLayout(rows);
    column->setContentsMargins({});
    for (const RecoveryOffer& offer : offers)
        column->addWidget(makeRow(offer));
    if (offers.size() <= rowsInSight) {
        layout_->addWidget(rows);
        return;
    }
    auto* const area = new QScrollArea;
    area->setFrameShape(NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(rows);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // What is in it can't be scrolled sideways, so there is room for all of it.
    area->setMinimumWidth(rows->minimumSizeHint().width() + area->verticalScrollBar()->sizeHint().width());
    area->setFixedHeight(rows->sizeHint().height() * rowsInSight / static_cast<int>(offers.size()));
    layout_->addWidget(area);
}

QWidget* RecoveryPanel::makeRow(const RecoveryOffer& offer)
{
    auto* const row = new QWidget;
    auto* const line = new QHBoxLayout(row);
    line->setContentsMargins({});
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(0);
    auto* const name = new ElidedLabel(offer.name);
    QFont bold = name->font();
    bold.setBold(true);
    name->setFont(bold);
    texts->addWidget(name);
    // The time tells one copy from another.
    texts->addWidget(new ElidedLabel(placeAndTime(offer), Qt::ElideRight));
    line->addLayout(texts, 1);

    QPushButton* const open =
        makeButton(tr("Open"), QStringLiteral("recoverButton"), tr("Open what was left of “%1”").arg(offer.name));
    connect(open, &QPushButton::clicked, this, [this, id = offer.id] { open_(id); });
    line->addWidget(open);
    QPushButton* const discard = makeButton(tr("Discard…"), QStringLiteral("discardButton"),
                                            tr("Discard what was left of “%1”").arg(offer.name));
    connect(discard, &QPushButton::clicked, this, [this, offer] { askToDiscard(offer); });
    line->addWidget(discard);
    return row;
}

void RecoveryPanel::askToDiscard(const RecoveryOffer& offer)
{
    auto* const question =
        new QMessageBox(QMessageBox::Warning, tr("Discard Unsaved Work"),
                        tr("Discard the unsaved changes of “%1”?").arg(offer.name), QMessageBox::Cancel, window());
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setInformativeText(tr("They can't be brought back."));
    const QPushButton* const discard = question->addButton(tr("&Discard"), QMessageBox::DestructiveRole);
    question->setDefaultButton(QMessageBox::Cancel);
    connect(discard, &QPushButton::clicked, this, [this, id = offer.id] { drop(id); });
    question->open();
}

void RecoveryPanel::drop(const QString& id)
{
    discard_(id);
    QList<RecoveryOffer> left = offers_;
    left.removeIf([&id](const RecoveryOffer& offer) { return offer.id == id; });
    setOffers(left);
}

} // namespace lineara
