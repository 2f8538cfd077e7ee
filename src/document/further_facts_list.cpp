#include "further_facts_list.h"

#include "elements/shortened_text.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QStringBuilder>
#include <QStyledItemDelegate>
#include <QTreeWidgetItemIterator>

#include <algorithm>

namespace lineara {

namespace {

struct FurtherFactsListTexts
{
    Q_DECLARE_TR_FUNCTIONS(FurtherFacts)
};

enum Column
{
    Label,
    Value
};

constexpr int wholeText = Qt::UserRole;
constexpr int mostLabelWidth = 280;
constexpr int columnGap = 8;
constexpr int leastRows = 8;
constexpr int rowMargin = 2;
constexpr int indent = 2;

constexpr Extent mostInALabel{120};
constexpr Extent mostInARow{300, 6};

/// Gives rows the height that their texts need in the width of the column, for which a tree does not ask.
class WrappingDelegate : public QStyledItemDelegate
{
public:
    explicit WrappingDelegate(const QTreeView& view, QObject* owner) : QStyledItemDelegate(owner), view_(view) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyleOptionViewItem wrapped = option;
        wrapped.rect = QRect(0, 0, view_.columnWidth(index.column()), 1);
        return QStyledItemDelegate::sizeHint(wrapped, index);
    }

private:
    const QTreeView& view_;
};

/// Wrapped, a long word would leave its row altogether, since labels have one line.
class LineDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->features.setFlag(QStyleOptionViewItem::WrapText, false);
    }
};

bool isHeading(const QTreeWidgetItem& item)
{
    return !(item.flags() & Qt::ItemIsSelectable);
}

bool isHeading(const QModelIndex& index)
{
    return index.isValid() && !(index.flags() & Qt::ItemIsSelectable);
}

void showHeading(QTreeWidgetItem& item)
{
    item.setFlags(Qt::ItemIsEnabled);
    item.setFirstColumnSpanned(true);
    QFont bold = item.font(Label);
    bold.setBold(true);
    item.setFont(Label, bold);
}

int depthOf(const QTreeWidgetItem& item)
{
    return item.parent() ? depthOf(*item.parent()) + 1 : 0;
}

QString wholeTextOf(const QTreeWidgetItem& item, Column column)
{
    return item.data(column, wholeText).toString();
}

/// The text can be seen as far as its row has room, read further in a tooltip, and copied whole.
void setTextOf(QTreeWidgetItem& item, Column column, const QString& text, Extent most)
{
    const QString seen = text.trimmed();
    item.setText(column, shortened(seen, most));
    item.setData(column, wholeText, text);
    if (!seen.isEmpty())
        item.setToolTip(column, plainToolTip(seen));
}

QString lineOf(const QTreeWidgetItem& item)
{
    QString value = wholeTextOf(item, Value);
    const QString margin(indent * depthOf(item), u' ');
    const QString label = margin % wholeTextOf(item, Label);
    value.replace(u'\n', QString(u'\n' % margin % QString(indent, u' ')));
    return value.isEmpty() ? label : QString(label % u": " % value);
}

} // namespace

FurtherFactsList::FurtherFactsList(const std::vector<FurtherFact>& facts)
{
    setObjectName(QStringLiteral("furtherFacts"));
    setAccessibleName(FurtherFactsListTexts::tr("Further Facts"));
    setHeaderLabels({FurtherFactsListTexts::tr("Fact"), FurtherFactsListTexts::tr("In the Imported File")});
    setWordWrap(true);
    setAlternatingRowColors(true);
    setVerticalScrollMode(ScrollPerPixel);
    setItemsExpandable(false);
    setRootIsDecorated(false);
    setSelectionMode(ExtendedSelection);
    fill(facts);
    addCopying();
    fitColumns();
}

void FurtherFactsList::fill(const std::vector<FurtherFact>& facts)
{
    std::vector<QTreeWidgetItem*> above; // by depth
    for (const FurtherFact& fact : facts) {
        above.resize(std::min(above.size(), static_cast<std::size_t>(fact.depth)));
        auto* const item = above.empty() ? new QTreeWidgetItem(this) : new QTreeWidgetItem(above.back());
        setTextOf(*item, Label, fact.label, mostInALabel);
        above.push_back(item);
        if (fact.isHeading) {
            showHeading(*item);
            continue;
        }
        item->setTextAlignment(Label, Qt::AlignLeft | Qt::AlignTop);
        setTextOf(*item, Value, fact.value, mostInARow);
    }
    expandAll();
    QTreeWidgetItemIterator first(this, QTreeWidgetItemIterator::Selectable);
    setCurrentItem(*first);
}

void FurtherFactsList::addCopying()
{
    auto* const copy = new QAction(FurtherFactsListTexts::tr("&Copy"), this);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, [this] {
        if (const QString text = selectedText(); !text.isEmpty())
            QApplication::clipboard()->setText(text);
    });
    addAction(copy);
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

void FurtherFactsList::fitColumns()
{
    setItemDelegateForColumn(Label, new LineDelegate(this));
    setItemDelegateForColumn(Value, new WrappingDelegate(*this, this));
    resizeColumnToContents(Label);
    labelWidth_ = std::min(header()->sectionSize(Label) + columnGap, mostLabelWidth);
    header()->resizeSection(Label, labelWidth_);
    connect(header(), &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        // Heights of rows follow from the widths.
        scheduleDelayedItemsLayout();
        if (column == Label && !isNarrowing_)
            labelWidth_ = width;
    });
}

QString FurtherFactsList::selectedText()
{
    QStringList lines;
    const QTreeWidgetItem* heading = nullptr; // of the facts that come, until it is written
    for (QTreeWidgetItemIterator at(this); *at; ++at) {
        const QTreeWidgetItem& item = **at;
        if (isHeading(item))
            heading = &item;
        if (!item.isSelected())
            continue;
        if (heading)
            lines << lineOf(*heading);
        heading = nullptr;
        lines << lineOf(item);
    }
    return lines.join(u'\n');
}

QString FurtherFactsList::currentText() const
{
    const QTreeWidgetItem* const item = currentItem();
    if (!item)
        return {};
    const QString value = wholeTextOf(*item, Value);
    return value.isEmpty() ? wholeTextOf(*item, Label) : value;
}

QModelIndex FurtherFactsList::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex wanted = QTreeWidget::moveCursor(action, modifiers);
    if (!isHeading(wanted))
        return wanted;
    if (action == MoveLeft)
        return currentIndex();
    const bool isUpwards = action == MoveUp || action == MovePrevious || action == MovePageUp || action == MoveEnd;
    for (const bool direction : {isUpwards, !isUpwards}) {
        if (const QModelIndex fact = factFrom(wanted, direction); fact.isValid())
            return fact;
    }
    return currentIndex();
}

QModelIndex FurtherFactsList::factFrom(QModelIndex at, bool isUpwards) const
{
    while (isHeading(at))
        at = isUpwards ? indexAbove(at) : indexBelow(at);
    return at;
}

/// The search of other trees would stop at headings.
void FurtherFactsList::keyboardSearch(const QString& typed)
{
    const QModelIndex from = currentIndex();
    if (!from.isValid() || typed.isEmpty())
        return;
    const bool goesOn = sinceTyped_.isValid() && !sinceTyped_.hasExpired(QApplication::keyboardInputInterval());
    typed_ = goesOn ? typed_ + typed : typed;
    sinceTyped_.start();
    // The same letter again means the next one with it.
    const bool isOneLetter = typed_.count(typed_.front()) == typed_.size();
    const QString wanted = isOneLetter ? typed_.first(1) : typed_;
    const auto begins = [&](const QModelIndex& row, Column column) {
        return row.siblingAtColumn(column).data().toString().startsWith(wanted, Qt::CaseInsensitive);
    };
    const auto isWanted = [&](const QModelIndex& row) {
        return !isHeading(row) && (begins(row, Label) || begins(row, Value));
    };
    QModelIndex at = goesOn && !isOneLetter && isWanted(from) ? from : rowBelow(from);
    while (at != from && !isWanted(at))
        at = rowBelow(at);
    if (at != from)
        setCurrentIndex(at);
}

/// After the last one comes the first.
QModelIndex FurtherFactsList::rowBelow(const QModelIndex& at) const
{
    const QModelIndex below = indexBelow(at);
    return below.isValid() ? below : model()->index(0, at.column());
}

QSize FurtherFactsList::minimumSizeHint() const
{
    const int row = fontMetrics().height() + 2 * rowMargin;
    const int beside = 2 * frameWidth() + header()->sizeHint().height();
    return {QTreeWidget::minimumSizeHint().width(), beside + leastRows * row};
}

/// A narrow list keeps half of its width for the values, and its current fact in sight.
void FurtherFactsList::resizeEvent(QResizeEvent* event)
{
    QTreeWidget::resizeEvent(event);
    const QScopedValueRollback narrowing(isNarrowing_, true);
    header()->resizeSection(Label, std::min(labelWidth_, viewport()->width() / 2));
    // Once the heights of rows have followed.
    QMetaObject::invokeMethod(
        this, [this] { scrollTo(currentIndex()); }, Qt::QueuedConnection);
}

/// Without the signs of what can be folded.
void FurtherFactsList::drawBranches(QPainter*, const QRect&, const QModelIndex&) const {}

/// Nobody could scroll to a heading by the keyboard otherwise.
void FurtherFactsList::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeWidget::currentChanged(current, previous);
    if (const QModelIndex above = indexAbove(current); isHeading(above)) {
        scrollTo(above);
        scrollTo(current);
    }
}

} // namespace lineara
