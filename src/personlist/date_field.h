#pragma once

#include "date_entry.h"
#include "field_line.h"

#include <QWidget>

#include <array>
#include <functional>

class QCalendarWidget;
class QDate;
class QFrame;
class QLabel;

namespace lineara {

class ClickableTextField;

/// Day, month and year as three fields, with a button that opens a calendar. What can't be a date stays as it was
/// typed, with a line below that says what is wrong.
class DateField : public QWidget
{
public:
    struct Reports
    {
        /// Another date was entered.
        std::function<void(const PartialDate&)> changed;
        /// The keyboard went elsewhere.
        std::function<void()> left;
        /// Return or Escape settled everything.
        std::function<void()> done;
        /// Something was typed, or taken back.
        std::function<void()> typed;
    };

    /// `name` is what the date is called, "Birth" for example, and `pickerName` the name of its calendar as an object.
    DateField(const QString& name, QString pickerName, Reports reports);

    /// Shows a date, unless something else is being typed or was refused.
    void showDate(const PartialDate& date);
    /// Reports what was typed if it is a whole date, and shows what is wrong otherwise.
    void commit();

    /// The date that was typed and is not reported yet; no value if nothing was typed, or what can't be a date.
    std::optional<PartialDate> typed() const;
    /// What was typed and can't be a date, or no value.
    std::optional<DateTexts> refused() const;
    void showRefused(const DateTexts& refused);

    /// Both do nothing while the calendar is as they would have it.
    void openPicker();
    void closePicker();
    bool isPickerOpen() const;
    /// Whether a press on the widget leaves the calendar alone: on the calendar itself, and on the opener, which closes
    /// it by itself.
    bool takesPress(const QWidget& pressed) const;

    QList<QWidget*> fields() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Leaving
    {
        Field, ///< for another one of the same date
        Date
    };

    void ended(FieldEnd end);
    void read(Leaving leaving);
    void report(const PartialDate& date);
    void giveUp();
    void makePicker();
    bool isPart(const QWidget& widget) const;
    void pick(const QDate& date);
    void placePicker();
    DateTexts texts() const;
    void setTexts(const DateTexts& texts);
    bool isModified() const;
    void showMistake(const QString& mistake);

    Reports reports_;
    QString name_;
    QString pickerName_;
    std::array<FieldLine*, 3> lines_{}; // day, month, year
    ClickableTextField* opener_;
    QLabel* mistake_;
    QFrame* picker_ = nullptr; // made when first opened, with the calendar inside
    QCalendarWidget* calendar_ = nullptr;
    PartialDate shown_;
};

} // namespace lineara
