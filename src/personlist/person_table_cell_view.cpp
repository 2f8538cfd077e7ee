#include "person_table_cell_view.h"

#include "list_colours.h"
#include "model/object_context.h"
#include "person_cell.h"

#include <QCoreApplication>
#include <QGraphicsOpacityEffect>
#include <QGuiApplication>
#include <QInputMethod>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace lineara {

namespace {

QString text(const char* source)
{
    return QCoreApplication::translate("PersonTableCellView", source);
}

} // namespace

PersonTableCellView::PersonTableCellView(ObjectContext& context, RecordId person, std::function<void()> aboutToEdit,
                                         CellSurroundings surroundings)
    : edit_(context, person, std::move(aboutToEdit)), surroundings_(std::move(surroundings)),
      editables_(new QWidget(this)), fade_(new QGraphicsOpacityEffect(editables_)),
      name_(new FieldLine([this](FieldEnd end) { nameEnded(end); }))
{
    setObjectName(QStringLiteral("personTableCellView"));
    editables_->setGraphicsEffect(fade_);
    name_->setObjectName(QStringLiteral("name"));
    name_->setAccessibleName(text("Name"));
    name_->setPlaceholderText(text("Name"));
    auto* const layout = new QVBoxLayout(editables_);
    layout->addWidget(name_);
    layout->addStretch();
    for (QWidget* const part : findChildren<QWidget*>())
        part->installEventFilter(this);
    refresh();
}

PersonTableCellView::~PersonTableCellView()
{
    commit();
}

void PersonTableCellView::expand()
{
    isExpanded_ = true;
    update();
}

void PersonTableCellView::collapse()
{
    commit();
    isExpanded_ = false;
    update();
}

void PersonTableCellView::setExpansion(double expansion)
{
    expansion_ = expansion;
    fade_->setOpacity(expansion);
    // Drawing through an effect costs a picture of everything, which only the fading needs.
    fade_->setEnabled(expansion < 1);
    update();
}

void PersonTableCellView::refresh()
{
    const Person* const person = edit_.person();
    if (!person)
        return;
    if (!name_->isModified())
        name_->showText(person->name().value_or(QString()));
    update();
}

void PersonTableCellView::commit()
{
    QGuiApplication::inputMethod()->commit();
    commitName();
    edit_.endVisit();
}

void PersonTableCellView::editName()
{
    name_->setFocus(Qt::OtherFocusReason);
    name_->selectAll();
}

QList<QWidget*> PersonTableCellView::fields() const
{
    return {name_};
}

bool PersonTableCellView::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress)
        surroundings_.pressed();
    return false;
}

/// Taken here, so that the table does not take it for a press on the row as well.
void PersonTableCellView::mousePressEvent(QMouseEvent*)
{
    surroundings_.pressed();
}

void PersonTableCellView::resizeEvent(QResizeEvent*)
{
    // The fields stay as large as they will be while the row around them grows.
    editables_->setGeometry(0, 0, width(), expandedHeight - 1);
}

void PersonTableCellView::hideEvent(QHideEvent*)
{
    commit();
}

void PersonTableCellView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), isExpanded_ ? colours::expandedGround() : colours::collapsedGround());
    painter.fillRect(0, height() - 1, width(), 1, colours::rowEdge());
    const Person* const person = edit_.person();
    if (person && expansion_ < 1) {
        painter.setOpacity(1 - expansion_);
        PersonCell::paintCompact(painter, rect(), *person, surroundings_.thumbnails);
        painter.setOpacity(1);
    }
    if (isExpanded_ && surroundings_.isListFocused())
        painter.fillRect(0, 0, 3, height() - 1, colours::listFocus());
}

void PersonTableCellView::nameEnded(FieldEnd end)
{
    if (end == FieldEnd::Escape && name_->isModified()) {
        name_->setModified(false);
        refresh();
        return;
    }
    commitName();
    edit_.endVisit();
    if (end != FieldEnd::Left)
        surroundings_.left();
}

void PersonTableCellView::commitName()
{
    const Person* const person = edit_.person();
    if (!person || !name_->isModified())
        return;
    const QString typed = name_->text();
    name_->settle();
    if (typed == person->name().value_or(QString()))
        return;
    edit_.change(text("Edit Name"),
                 [&](Person& edited) { edited.setName(typed.isEmpty() ? std::nullopt : std::optional(typed)); });
}

} // namespace lineara
