#pragma once

#include <QTableView>

#include <functional>
#include <optional>

namespace lineara {

class PersonTableModel;

/// What the user does to the rows of the list.
struct RowGestures
{
    /// The row was pressed or walked to, or was chosen by an assistive program; no value for the empty area below.
    std::function<void(std::optional<int> row)> chosen;
    std::function<void()> returnPressed;
};

/// The table of the person list. Which row is selected follows from nothing but selectRow(): no row is ever selected
/// because another one went.
class PersonTableView : public QTableView
{
public:
    PersonTableView(PersonTableModel& model, RowGestures gestures);

    /// Of the rows none or this one is selected; nothing is reported.
    void selectRow(std::optional<int> row);
    std::optional<int> selectedRow() const;

    /// Brings a row into view as far as it is not, moving everything by as little as possible.
    void reveal(int row);

    /// Top of a row, measured from the top of what is visible.
    int topOf(int row) const { return rowViewportPosition(row); }
    /// Scrolls until the row has its top there, as far as there is something to scroll.
    void scrollTopTo(int row, int top);

    /// Called when the table has gained or lost the keyboard.
    void setFocusChanged(std::function<void()> changed) { focusChanged_ = std::move(changed); }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;

private:
    std::optional<int> rowAfter(int key) const;
    void showFocus();

    RowGestures gestures_;
    std::function<void()> focusChanged_ = [] {};
    bool selecting_ = false;
};

/// While one lives, the rows of a table change; then the row that counts most stands where it stood.
class RowsInPlace
{
public:
    explicit RowsInPlace(PersonTableView& table);
    ~RowsInPlace();
    RowsInPlace(const RowsInPlace&) = delete;
    RowsInPlace& operator=(const RowsInPlace&) = delete;

private:
    PersonTableView& table_;
    QPersistentModelIndex anchor_; // the selected row if it is in view, else the first one in view
    int top_ = 0;
};

} // namespace lineara
