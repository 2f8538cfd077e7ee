#include "person_table_cell_view.h"

#include "cell_texts.h"
#include "cell_widgets.h"
#include "date_field.h"
#include "list_colours.h"
#include "model/object_context.h"
#include "multi_line_text_delegate.h"
#include "notes_field.h"
#include "person_dates.h"
#include "refused_dates.h"
#include "thumbnails.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QInputMethod>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>

#include <utility>

namespace lineara {

namespace {

constexpr int contentsMargin = 12;

/// A text that was emptied is absent.
std::optional<QString> stored(const QString& typed)
{
    return typed.isEmpty() ? std::nullopt : std::optional(typed);
}

} // namespace

/// Drawing the fields through an opacity effect would come out wrong for the notes; to cover them with more and more of
/// the ground looks just the same.
class PersonTableCellView::Veil : public QWidget
{
public:
    explicit Veil(PersonTableCellView& cell) : QWidget(&cell), cell_(cell)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        cell_.paintVeil(painter);
    }

private:
    const PersonTableCellView& cell_;
};

PersonTableCellView::PersonTableCellView(ObjectContext& context, RecordId person, CellSurroundings surroundings)
    : person_(person), edit_(context, person), surroundings_(std::move(surroundings)), editables_(new QWidget(this)),
      veil_(new Veil(*this)), picButton_(makePicButton()), picRemoveButton_(makePicRemoveButton()),
      factsButton_(makeFactsButton()), name_(new FieldLine([this](FieldEnd end) { nameEnded(end); })),
      birth_(
          makeDate(CellTexts::tr("Birth"), QStringLiteral("birthDatePicker"), CellTexts::tr("Edit Birth"), storeBirth)),
      death_(
          makeDate(CellTexts::tr("Death"), QStringLiteral("deathDatePicker"), CellTexts::tr("Edit Death"), storeDeath)),
      notesTextField_(new NotesField([this](FieldEnd end) { notesEnded(end); }))
{
    setObjectName(QStringLiteral("personTableCellView"));
    setPalette(lightCellPalette());
    // On the ground of a table's entries, captions and what is said of a mistake would lose their own colours.
    setBackgroundRole(QPalette::Window);
    assemble();
    for (QWidget* const part : findChildren<QWidget*>())
        part->installEventFilter(this);
    connect(name_, &QLineEdit::textEdited, this, [this] { surroundings_.typed(); });
    connect(notesTextField_, &QPlainTextEdit::textChanged, this, [this] {
        if (notesTextField_->isModified())
            surroundings_.typed();
    });
    connect(picButton_, &QPushButton::clicked, this, [this] { surroundings_.setPic(); });
    connect(picRemoveButton_, &QPushButton::clicked, this, [this] { surroundings_.removePic(); });
    connect(factsButton_, &QPushButton::clicked, this, [this] {
        if (const Person* const shown = edit_.person())
            surroundings_.facts.show(*shown);
    });
    refresh();
    refreshFacts();
    showRefused();
}

PersonTableCellView::~PersonTableCellView()
{
    commit();
}

void PersonTableCellView::assemble()
{
    name_->setObjectName(QStringLiteral("name"));
    name_->setAccessibleName(CellTexts::tr("Name"));
    name_->setPlaceholderText(CellTexts::tr("Name"));
    QFont nameFont;
    nameFont.setPixelSize(15);
    name_->setFont(nameFont);
    birth_->setObjectName(QStringLiteral("birth"));
    death_->setObjectName(QStringLiteral("death"));
    notesTextField_->setDelegate(MultiLineTextDelegate::shared());
    notesTextField_->setObjectName(QStringLiteral("notesTextField"));
    notesTextField_->setAccessibleName(CellTexts::tr("Notes"));
    notesTextField_->setPlaceholderText(CellTexts::tr("Notes"));
    auto* const beside = new QVBoxLayout;
    beside->setSpacing(6);
    beside->addWidget(name_);
    beside->addWidget(picRemoveButton_, 0, Qt::AlignLeft);
    beside->addStretch();
    auto* const layout = new QGridLayout(editables_);
    layout->setContentsMargins(contentsMargin, contentsMargin, contentsMargin, contentsMargin);
    layout->setHorizontalSpacing(10);
    layout->setVerticalSpacing(6);
    layout->addWidget(picButton_, 0, 0);
    layout->addLayout(beside, 0, 1);
    layout->addWidget(makeCaption(CellTexts::tr("Birth")), 1, 0, Qt::AlignTop | Qt::AlignRight);
    layout->addWidget(birth_, 1, 1);
    layout->addWidget(makeCaption(CellTexts::tr("Death")), 2, 0, Qt::AlignTop | Qt::AlignRight);
    layout->addWidget(death_, 2, 1);
    layout->addWidget(notesTextField_, 3, 0, 1, 2);
    layout->addWidget(factsButton_, 4, 0, 1, 2, Qt::AlignLeft);
    layout->setRowStretch(3, 1);
    layout->setColumnStretch(1, 1);
}

DateField* PersonTableCellView::makeDate(const QString& name, const QString& pickerName, const QString& step,
                                         void (*store)(Person&, const PartialDate&))
{
    DateField::Reports reports;
    reports.changed = [this, step, store](const PartialDate& date) {
        edit_.change(step, [&](Person& person) { store(person, date); });
    };
    reports.left = [this] { fieldEnded(FieldEnd::Left); };
    reports.done = [this] { fieldEnded(FieldEnd::Return); };
    reports.typed = [this] { surroundings_.typed(); };
    return new DateField(name, pickerName, std::move(reports));
}

void PersonTableCellView::expand()
{
    birth_->closePicker();
    death_->closePicker();
    isExpanded_ = true;
    picButton_->show();
    picRemoveButton_->show();
    update();
}

void PersonTableCellView::collapse()
{
    commit();
    isExpanded_ = false;
    picRemoveButton_->hide();
    picButton_->hide();
    update();
}

void PersonTableCellView::setExpansion(double expansion)
{
    expansion_ = expansion;
    veil_->setVisible(expansion < 1);
    update();
}

void PersonTableCellView::refresh()
{
    const Person* const person = edit_.person();
    if (!person)
        return;
    if (!name_->isModified())
        name_->showText(person->name().value_or(QString()));
    birth_->showDate({person->birthDay(), person->birthMonth(), person->birthYear()});
    death_->showDate({person->deathDay(), person->deathMonth(), person->deathYear()});
    if (!notesTextField_->isModified())
        notesTextField_->showNotes(person->additional().value_or(QString()));
    showPicture(*person);
    update();
}

void PersonTableCellView::showPicture(const Person& person)
{
    const auto picture = surroundings_.sources.thumbnails.of(person, devicePixelRatioF());
    const bool hasImage = picture && !picture->isNull();
    picButton_->setIcon(hasImage ? QIcon(*picture) : QIcon());
    picButton_->setText(hasImage ? QString() : CellTexts::tr("Set Pic"));
    picButton_->setAccessibleName(hasImage ? CellTexts::tr("Picture") : CellTexts::tr("Set Pic"));
    picRemoveButton_->setEnabled(person.pic());
}

void PersonTableCellView::refreshFacts()
{
    const Person* const person = edit_.person();
    if (!person)
        return;
    const int count = surroundings_.facts.count(*person);
    factsButton_->setText(CellTexts::tr("%n further fact(s) from the imported file", nullptr, count));
    factsButton_->setVisible(count > 0);
}

void PersonTableCellView::commit()
{
    // What an input method still holds is a part of what was typed.
    QGuiApplication::inputMethod()->commit();
    commitFields();
    edit_.endVisit();
}

void PersonTableCellView::commitFields()
{
    commitName();
    birth_->commit();
    death_->commit();
    commitNotes();
    keepRefused();
}

std::optional<PersonValues> PersonTableCellView::typed() const
{
    const Person* const person = edit_.person();
    if (!person)
        return std::nullopt;
    PersonValues values = person->values();
    const QString notes = notesTextField_->notes();
    if (name_->isModified() && name_->line() != values.name.value_or(QString()))
        values.name = stored(name_->line());
    if (notesTextField_->isModified() && notes != values.additional.value_or(QString()))
        values.additional = stored(notes);
    overlay(values, birth_->typed(), death_->typed());
    return values == person->values() ? std::nullopt : std::optional(std::move(values));
}

void PersonTableCellView::keepRefused()
{
    surroundings_.refused.keep(person_, {birth_->refused(), death_->refused()});
}

void PersonTableCellView::showRefused()
{
    const RefusedDates refused = surroundings_.refused.of(person_);
    if (refused.birth)
        birth_->showRefused(*refused.birth);
    if (refused.death)
        death_->showRefused(*refused.death);
}

void PersonTableCellView::editName()
{
    name_->setFocus(Qt::OtherFocusReason);
    name_->selectAll();
}

QList<QWidget*> PersonTableCellView::fields() const
{
    const QList<QWidget*> facts = factsButton_->isHidden() ? QList<QWidget*>() : QList<QWidget*>{factsButton_};
    return QList<QWidget*>{name_} + birth_->fields() + death_->fields() + QList<QWidget*>{notesTextField_} + facts +
           QList<QWidget*>{picButton_, picRemoveButton_};
}

bool PersonTableCellView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress)
        pressed(*static_cast<QWidget*>(watched));
    return false;
}

/// Whoever deletes while a part of the editor has the keyboard, a calendar say, does not mean the person.
bool PersonTableCellView::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<const QKeyEvent&>(*event).matches(QKeySequence::Delete)) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

/// Taken here, so that the table does not take it for a press on the row as well.
void PersonTableCellView::mousePressEvent(QMouseEvent*)
{
    pressed(*this);
}

void PersonTableCellView::pressed(const QWidget& widget)
{
    for (DateField* const date : {birth_, death_}) {
        if (!date->takesPress(widget))
            date->closePicker();
    }
    surroundings_.pressed();
}

void PersonTableCellView::resizeEvent(QResizeEvent*)
{
    // The fields stay as large as they will be while the row around them grows.
    editables_->setGeometry(0, 0, width(), expandedHeight - 1);
    veil_->setGeometry(rect());
}

void PersonTableCellView::hideEvent(QHideEvent*)
{
    commit();
}

QColor PersonTableCellView::ground() const
{
    return isExpanded_ ? colours::expandedGround() : colours::collapsedGround();
}

void PersonTableCellView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), ground());
    painter.fillRect(0, height() - 1, width(), 1, colours::rowEdge());
    if (isExpanded_ && surroundings_.isListFocused())
        painter.fillRect(0, 0, 3, height() - 1, colours::listFocus());
}

void PersonTableCellView::paintVeil(QPainter& painter) const
{
    painter.setOpacity(1 - expansion_);
    painter.fillRect(rect().adjusted(0, 0, 0, -1), ground());
    if (const Person* const person = edit_.person())
        PersonCell::paintCompact(painter, rect(), *person, surroundings_.sources);
}

void PersonTableCellView::nameEnded(FieldEnd end)
{
    if (end == FieldEnd::Escape && name_->isModified()) {
        name_->setModified(false);
        refresh();
        return;
    }
    commitName();
    fieldEnded(end);
}

void PersonTableCellView::notesEnded(FieldEnd end)
{
    if (end == FieldEnd::Escape && notesTextField_->isModified()) {
        notesTextField_->giveUp();
        refresh();
        return;
    }
    commitNotes();
    fieldEnded(end);
}

void PersonTableCellView::fieldEnded(FieldEnd end)
{
    edit_.endVisit();
    keepRefused();
    if (end != FieldEnd::Left)
        surroundings_.left();
}

void PersonTableCellView::commitName()
{
    if (!name_->isModified()) {
        name_->forgetTyping();
        return;
    }
    const QString typed = name_->line();
    name_->settle();
    const Person* const person = edit_.person();
    if (person && typed != person->name().value_or(QString()))
        edit_.change(CellTexts::tr("Edit Name"), [&](Person& edited) { edited.setName(stored(typed)); });
}

void PersonTableCellView::commitNotes()
{
    notesTextField_->settle();
    const QString typed = notesTextField_->notes();
    const Person* const person = edit_.person();
    if (person && typed != person->additional().value_or(QString()))
        edit_.change(CellTexts::tr("Edit Notes"), [&](Person& edited) { edited.setAdditional(stored(typed)); });
}

} // namespace lineara
