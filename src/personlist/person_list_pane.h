#pragma once

#include "person_table_view.h"

#include <QWidget>

#include <functional>

class QLabel;
class QLineEdit;

namespace lineara {

class PersonTableModel;

/// What the search field above the list reports.
struct SearchGestures
{
    std::function<void(const QString& text)> typed;
    std::function<void()> returnPressed;
};

/// The list as it stands in the window: the search field and the table below it.
class PersonListPane : public QWidget
{
public:
    PersonListPane(PersonTableModel& model, RowGestures rows, SearchGestures searching);

    PersonTableView& table() const { return *table_; }
    QLineEdit& searchField() const { return *search_; }

    /// Called when the pane disappears from sight.
    void setDisappeared(std::function<void()> disappeared) { disappeared_ = std::move(disappeared); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void showFaintTexts();
    bool takeSearchKey(QKeyEvent& key);
    void tellWhetherFound();

    QLineEdit* search_;
    QLabel* nobodyFound_;
    PersonTableView* table_;
    SearchGestures searching_;
    std::function<void()> disappeared_ = [] {};
};

} // namespace lineara
