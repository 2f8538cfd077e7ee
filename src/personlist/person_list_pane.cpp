#include "person_list_pane.h"

#include "field_line.h"
#include "list_colours.h"
#include "person_table_model.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <utility>

namespace lineara {

namespace {

QLineEdit* makeSearchField()
{
    auto* const field = new QLineEdit;
    field->setObjectName(QStringLiteral("searchField"));
    field->setAccessibleName(QCoreApplication::translate("PersonList", "Search persons"));
    field->setPlaceholderText(QCoreApplication::translate("PersonList", "Search name, years or notes"));
    field->setClearButtonEnabled(true);
    return field;
}

QLabel* makeHint()
{
    auto* const hint = new QLabel(QCoreApplication::translate("PersonList", "No person found"));
    hint->setObjectName(QStringLiteral("nobodyFound"));
    hint->setAlignment(Qt::AlignCenter);
    hint->setContentsMargins(0, 12, 0, 12);
    hint->setForegroundRole(QPalette::PlaceholderText);
    hint->hide();
    return hint;
}

} // namespace

PersonListPane::PersonListPane(PersonTableModel& model, RowGestures rows, SearchGestures searching)
    : search_(makeSearchField()), nobodyFound_(makeHint()), table_(new PersonTableView(model, std::move(rows))),
      searching_(std::move(searching))
{
    setObjectName(QStringLiteral("personList"));
    setMinimumWidth(280);
    auto* const above = new QVBoxLayout;
    above->setContentsMargins(8, 8, 8, 8);
    above->addWidget(search_);
    above->addWidget(nobodyFound_);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(above);
    layout->addWidget(table_);
    connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) {
        searching_.typed(text);
        tellWhetherFound();
    });
    for (const auto rowsChanged : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(&model, rowsChanged, this, &PersonListPane::tellWhetherFound);
    search_->installEventFilter(this);
    showFaintTexts();
}

/// Themes that are dark may leave this one colour as it is in light ones.
void PersonListPane::showFaintTexts()
{
    QColor faint = palette().color(QPalette::Text);
    faint.setAlpha(150);
    if (palette().color(QPalette::PlaceholderText) == faint)
        return;
    QPalette shown = palette();
    shown.setColor(QPalette::PlaceholderText, faint);
    setPalette(shown);
}

void PersonListPane::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showFaintTexts();
}

void PersonListPane::tellWhetherFound()
{
    nobodyFound_->setVisible(!search_->text().isEmpty() && table_->model()->rowCount() == 0);
}

bool PersonListPane::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress)
        return takeSearchKey(static_cast<QKeyEvent&>(*event));
    if (isHistoryOfWindow(*event, search_->isUndoAvailable(), search_->isRedoAvailable())) {
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

/// The list can be walked without leaving the search field.
bool PersonListPane::takeSearchKey(QKeyEvent& key)
{
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        searching_.returnPressed();
        return true;
    case Qt::Key_Escape:
        search_->clear();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QCoreApplication::sendEvent(table_, &key);
        return true;
    default:
        return false;
    }
}

void PersonListPane::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    disappeared_();
}

} // namespace lineara
