#pragma once

#include "edited_document.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTableView>
#include <QTest>

namespace lineara {

/// A document with its own list, in the window that its user works in: what is on the screen, and what hands do there.
class ListedDocument : public EditedDocument
{
public:
    ListedDocument() : EditedDocument(ListOf::Document) { activate(); }
    explicit ListedDocument(const ObjectContext& family) : EditedDocument(family, ListOf::Document) { activate(); }

    DocumentWindow& window() const { return document->window(); }
    QTableView& table() const { return *window().findChild<QTableView*>(); }
    QLineEdit& search() const { return *window().findChild<QLineEdit*>(QStringLiteral("searchField")); }
    /// Fields of the selected row; nullptr if none is.
    QLineEdit* nameField() const { return field<QLineEdit>(QStringLiteral("name")); }
    QPlainTextEdit* notes() const { return field<QPlainTextEdit>(); }
    /// Day, month and year of the "birth" or "death"; nullptr if no row is selected.
    QLineEdit* dateField(const QString& date, qsizetype part) const
    {
        const auto* const fields = field<QWidget>(date);
        return fields ? fields->findChildren<QLineEdit*>()[part] : nullptr;
    }

    QStringList names() const
    {
        QStringList all;
        for (int row = 0; row < table().model()->rowCount(); ++row)
            all << table().model()->index(row, 0).data().toString();
        return all;
    }
    /// Name of the person whose row is selected; empty if none is.
    QString selectedName() const
    {
        const QModelIndexList rows = table().selectionModel()->selectedRows();
        return rows.isEmpty() ? QString() : rows.front().data().toString();
    }

    void pressRow(const QString& name)
    {
        const QRect row = table().visualRect(table().model()->index(static_cast<int>(names().indexOf(name)), 0));
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, {row.center().x(), row.top() + 20});
        deliver();
    }
    /// Puts the cursor behind the name.
    void editName()
    {
        nameField()->setFocus();
        nameField()->end(false);
    }
    /// Types wherever the keyboard goes.
    void type(const QString& text) { QTest::keyClicks(focused(), text); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(focused(), key, modifiers);
        deliver();
    }

private:
    template<class Field>
    Field* field(const QString& name = {}) const
    {
        const QModelIndexList rows = table().selectionModel()->selectedRows();
        const QWidget* const cell = rows.isEmpty() ? nullptr : table().indexWidget(rows.front());
        return cell ? cell->findChild<Field*>(name) : nullptr;
    }
    void activate()
    {
        window().resize(1200, 800);
        window().activateWindow();
        deliver();
    }
    QWidget* focused() const { return QApplication::focusWidget() ? QApplication::focusWidget() : &window(); }
};

} // namespace lineara
