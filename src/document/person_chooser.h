#pragma once

#include "model/record.h"

#include <QAbstractListModel>
#include <QDialog>

#include <functional>
#include <vector>

class QDialogButtonBox;
class QLineEdit;
class QListView;

namespace lineara {

class Person;
class Pool;
class SearchWords;

/// The members of a family whom a search finds, in the family's order. Members that are not allowed are shown, but
/// can't be picked; who is allowed is asked only for rows that are looked at. Persons that go meanwhile leave an empty
/// row.
class ChoosablePersons : public QAbstractListModel
{
public:
    ChoosablePersons(const Pool& pool, std::function<bool(Person&)> isAllowed);

    void filter(const SearchWords& words);
    /// Nullptr if the person is gone or not allowed.
    Person* personAt(int row) const;
    /// Among the first hundred rows; -1 if there is none.
    int firstAllowed() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    const Pool& pool_;
    std::function<bool(Person&)> isAllowed_;
    std::vector<RecordId> rows_;
};

/// Asks for one person of a family: type a part of what is known of the person, pick with the arrow keys, Return.
class PersonChooser : public QDialog
{
public:
    /// The family must outlive the dialog. `chosen` is called at most once.
    PersonChooser(QWidget& owner, const QString& title, const Pool& pool, std::function<bool(Person&)> isAllowed,
                  std::function<void(Person&)> chosen);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void filter(const QString& words);
    void showWhetherAllowed();
    void choose();

    ChoosablePersons persons_;
    std::function<void(Person&)> chosen_;
    QLineEdit* search_;
    QListView* list_;
    QDialogButtonBox* buttons_;
};

} // namespace lineara
