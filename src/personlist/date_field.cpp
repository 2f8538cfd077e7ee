#include "date_field.h"

#include "clickable_text_field.h"
#include "list_colours.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QCoreApplication>
#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace lineara {

namespace {

constexpr int shortWidth = 46;
constexpr int yearWidth = 68;
constexpr int pickerHeight = 200;

struct FieldTexts
{
    Q_DECLARE_TR_FUNCTIONS(FieldTexts)
};

ClickableTextField* makeOpener(const QString& name)
{
    auto* const opener = new ClickableTextField(QStringLiteral("\u25be"));
    opener->setToolTip(FieldTexts::tr("Choose from a calendar"));
    opener->setAccessibleName(FieldTexts::tr("%1 calendar").arg(name));
    return opener;
}

QLabel* makeMistakeLabel()
{
    auto* const label = new QLabel;
    label->setObjectName(QStringLiteral("mistake"));
    QPalette palette;
    palette.setColor(QPalette::WindowText, colours::mistake());
    label->setPalette(palette);
    QFont font;
    font.setPixelSize(11);
    label->setFont(font);
    // Its place is kept, so that nothing moves when something is wrong.
    label->setFixedHeight(QFontMetrics(font).height());
    return label;
}

} // namespace

DateField::DateField(const QString& name, QString pickerName, Reports reports)
    : reports_(std::move(reports)), name_(name), pickerName_(std::move(pickerName)), opener_(makeOpener(name)),
      mistake_(makeMistakeLabel())
{
    const std::array<QString, 3> parts{FieldTexts::tr("Day"), FieldTexts::tr("Month"), FieldTexts::tr("Year")};
    const std::array<QString, 3> spoken{FieldTexts::tr("%1 day", "day of birth or death"), FieldTexts::tr("%1 month"),
                                        FieldTexts::tr("%1 year")};
    const std::array<int, 3> widths{shortWidth, shortWidth, yearWidth};
    auto* const layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setHorizontalSpacing(6);
    layout->setVerticalSpacing(1);
    for (std::size_t part = 0; part < parts.size(); ++part) {
        auto* const line = new FieldLine([this](FieldEnd end) { ended(end); });
        line->setPlaceholderText(parts[part]);
        line->setAccessibleName(spoken[part].arg(name));
        line->setFixedWidth(widths[part]);
        connect(line, &QLineEdit::textEdited, this, [this] { reports_.typed(); });
        layout->addWidget(line, 0, static_cast<int>(part));
        lines_[part] = line;
    }
    layout->addWidget(opener_, 0, 3);
    layout->setColumnStretch(4, 1);
    layout->addWidget(mistake_, 1, 0, 1, 5);
    connect(opener_, &ClickableTextField::clicked, this, [this] { isPickerOpen() ? closePicker() : openPicker(); });
}

void DateField::showDate(const PartialDate& date)
{
    shown_ = date;
    if (!isModified())
        setTexts(textsOf(date));
}

void DateField::commit()
{
    read(Leaving::Date);
}

std::optional<PartialDate> DateField::typed() const
{
    const auto date = readDate(texts());
    return isModified() && date && !missingIn(date.value()) ? std::optional(date.value()) : std::nullopt;
}

std::optional<DateTexts> DateField::refused() const
{
    return isModified() && !mistake_->text().isEmpty() ? std::optional(texts()) : std::nullopt;
}

void DateField::showRefused(const DateTexts& refused)
{
    setTexts(refused);
    for (FieldLine* const line : lines_)
        line->setModified(true);
    read(Leaving::Date);
}

void DateField::ended(FieldEnd end)
{
    if (end == FieldEnd::Escape && isModified()) {
        giveUp();
        return;
    }
    const QWidget* const focused = QApplication::focusWidget();
    const bool isStillHere = end == FieldEnd::Left && focused && isPart(*focused);
    read(isStillHere ? Leaving::Field : Leaving::Date);
    if (isStillHere)
        return;
    if (end == FieldEnd::Left)
        reports_.left();
    else if (!isModified())
        reports_.done();
}

/// Between the fields of a date, one that is not complete yet is no mistake.
void DateField::read(Leaving leaving)
{
    if (!isModified()) {
        if (leaving == Leaving::Date)
            std::ranges::for_each(lines_, &FieldLine::forgetTyping);
        return;
    }
    const auto date = readDate(texts());
    if (date.failed()) {
        showMistake(date.failure().message);
        return;
    }
    const auto missing = missingIn(date.value());
    if (!missing)
        report(date.value());
    else
        showMistake(leaving == Leaving::Date ? *missing : QString());
}

void DateField::report(const PartialDate& date)
{
    showMistake(QString());
    for (FieldLine* const line : lines_)
        line->settle();
    if (date == shown_)
        return;
    shown_ = date;
    reports_.changed(date);
}

void DateField::giveUp()
{
    showMistake(QString());
    setTexts(textsOf(shown_));
}

DateTexts DateField::texts() const
{
    return {lines_[0]->text(), lines_[1]->text(), lines_[2]->text()};
}

void DateField::setTexts(const DateTexts& texts)
{
    lines_[0]->showText(texts.day);
    lines_[1]->showText(texts.month);
    lines_[2]->showText(texts.year);
}

bool DateField::isModified() const
{
    return std::ranges::any_of(lines_, &FieldLine::isModified);
}

void DateField::showMistake(const QString& mistake)
{
    mistake_->setText(mistake);
    for (FieldLine* const line : lines_)
        line->setAccessibleDescription(mistake);
}

QList<QWidget*> DateField::fields() const
{
    return {lines_[0], lines_[1], lines_[2], opener_};
}

// The calendar.

void DateField::openPicker()
{
    if (isPickerOpen())
        return;
    if (!picker_)
        makePicker();
    if (shown_.year && *shown_.year >= 1 && *shown_.year <= 9999) {
        const QDate first(*shown_.year, std::clamp(shown_.month.value_or(1), 1, 12), 1);
        calendar_->setSelectedDate(first.addDays(std::clamp(shown_.day.value_or(1), 1, first.daysInMonth()) - 1));
    }
    placePicker();
    picker_->show();
    picker_->raise();
    picker_->setFocus();
}

void DateField::makePicker()
{
    calendar_ = new QCalendarWidget;
    calendar_->setAccessibleName(opener_->accessibleName());
    calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar_->setMinimumDate(QDate(1, 1, 1));
    calendar_->setMaximumDate(QDate(9999, 12, 31));
    connect(calendar_, &QCalendarWidget::clicked, this, [this](const QDate& date) { pick(date); });
    connect(calendar_, &QCalendarWidget::activated, this, [this](const QDate& date) { pick(date); });
    picker_ = new QFrame(parentWidget());
    picker_->setObjectName(pickerName_);
    picker_->setFrameShape(QFrame::StyledPanel);
    picker_->setAutoFillBackground(true);
    picker_->setFocusProxy(calendar_);
    picker_->installEventFilter(this);
    auto* const layout = new QVBoxLayout(picker_);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(calendar_);
    auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), picker_);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, this, [this] { closePicker(); });
}

/// A press beside the days is the calendar's all the same, and goes no further.
bool DateField::eventFilter(QObject*, QEvent* event)
{
    return event->type() == QEvent::MouseButtonPress;
}

void DateField::closePicker()
{
    if (!isPickerOpen())
        return;
    const QWidget* const focused = QApplication::focusWidget();
    const bool hadFocus = focused && picker_->isAncestorOf(focused);
    picker_->hide();
    if (hadFocus)
        lines_[0]->setFocus();
}

bool DateField::isPickerOpen() const
{
    return picker_ && !picker_->isHidden();
}

bool DateField::takesPress(const QWidget& pressed) const
{
    return &pressed == opener_ || (picker_ && picker_->isAncestorOf(&pressed));
}

/// The calendar lies over the fields around, and so is none of the field's children.
bool DateField::isPart(const QWidget& widget) const
{
    return isAncestorOf(&widget) || takesPress(widget);
}

void DateField::placePicker()
{
    const QPoint below = mapTo(parentWidget(), QPoint(0, mistake_->y()));
    const int side = 8;
    picker_->setGeometry(side, below.y(), parentWidget()->width() - 2 * side, pickerHeight);
}

void DateField::pick(const QDate& date)
{
    if (!isPickerOpen())
        return;
    closePicker();
    const PartialDate picked{date.day(), date.month(), date.year()};
    setTexts(textsOf(picked));
    report(picked);
}

} // namespace lineara
