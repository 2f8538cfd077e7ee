#pragma once

#include "elements/notifications.h"
#include "model/object_context.h"
#include "person_table_cell_view.h"
#include "person_table_model.h"
#include "person_table_view.h"
#include "personlist/person_table_view_controller.h"
#include "platform/main_thread.h"
#include "platform/notification_center.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <vector>

namespace lineara {

/// A list in a window, and somebody who answers its announcements as a document does: what is announced is selected.
class ShownList
{
public:
    ShownList()
    {
        MainThread::prepare();
        pool = &context.insertPool();
        list = std::make_unique<PersonTableViewController>(*pool);
        list->setReducedMotion(true);
        window.resize(320, 800);
        auto* const layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(&list->view());
        beside = new QLineEdit;
        layout->addWidget(beside);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        announcements = NotificationCenter::defaultCenter().observe<selectionChangeNotification>(
            [this](const auto& change) { answer(change); });
    }

    /// A member of the family who is in the list.
    Person& add(const QString& name, std::optional<std::int32_t> generation = std::nullopt)
    {
        Person& person = context.insertPerson({.name = name, .generation = generation});
        pool->addPerson(person);
        list->addObject(person);
        return person;
    }

    PersonTableView& table() const { return *list->personTableView(); }
    PersonTableModel& model() const { return list->personsArrayController(); }
    QLineEdit& search() const { return *list->view().findChild<QLineEdit*>(QStringLiteral("searchField")); }

    QStringList names() const
    {
        QStringList shown;
        for (int row = 0; row < model().rowCount(); ++row)
            shown << model().personAt(row)->name().value_or(QString());
        return shown;
    }
    int rowOf(const Person& person) const { return model().rowOf(person.recordId()); }
    std::optional<RecordId> selected() const
    {
        const auto row = table().selectedRow();
        return row ? model().idAt(*row) : std::nullopt;
    }
    std::vector<int> heights() const
    {
        std::vector<int> all;
        for (int row = 0; row < model().rowCount(); ++row)
            all.push_back(table().rowHeight(row));
        return all;
    }

    /// The editor of the open row, or nullptr.
    PersonTableCellView* cell() const
    {
        const auto row = table().selectedRow();
        auto* const widget = row ? table().indexWidget(model().index(*row, 0)) : nullptr;
        return static_cast<PersonTableCellView*>(widget);
    }
    QLineEdit& line(const char* name) const { return *cell()->findChild<QLineEdit*>(QLatin1String(name)); }
    QPlainTextEdit& notes() const { return *cell()->findChild<QPlainTextEdit*>(); }

    QPoint middleOf(const Person& person) const
    {
        const QRect row = table().visualRect(model().index(rowOf(person), 0));
        return {row.center().x(), row.top() + 20};
    }
    void press(const Person& person)
    {
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, middleOf(person));
        deliver();
    }
    void pressEmptyArea()
    {
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, QPoint(10, table().viewport()->height() - 5));
        deliver();
    }
    /// What a click on a node leads to.
    void select(Person& person)
    {
        list->select(person);
        deliver();
    }
    /// Gives the keyboard to another part of the window.
    void goBeside()
    {
        beside->setFocus();
        deliver();
    }
    static void deliver()
    {
        for (int round = 0; round < 5; ++round)
            QApplication::processEvents();
    }

    ObjectContext context;
    Pool* pool = nullptr;
    QWidget window;
    QLineEdit* beside = nullptr;
    std::unique_ptr<PersonTableViewController> list;
    std::vector<std::optional<RecordId>> announced;
    bool answers = true;

private:
    void answer(const selectionChangeNotification& change)
    {
        if (change.family != pool)
            return;
        announced.push_back(change.person);
        if (!answers)
            return;
        if (!change.person)
            list->deselectAll();
        else if (Person* const person = context.person(*change.person))
            list->select(*person);
    }

    Subscription announcements;
};

} // namespace lineara
