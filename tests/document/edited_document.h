#pragma once

#include "canvas/tree_view.h"
#include "document/document.h"
#include "document/document_window.h"
#include "elements/leaf_view.h"
#include "personlist/person_list.h"
#include "platform/notification_center.h"
#include "platform/serial_queue.h"
#include "test_files.h"

#include <QApplication>
#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace lineara {

/// How long a test waits for what has to come: what hangs ends, and a busy machine has its time. In milliseconds.
inline constexpr qint64 patience = 300'000;

/// Handles events until `done`; false when patience ends.
inline bool runEventsUntil(const bool& done)
{
    QElapsedTimer timer;
    timer.start();
    while (!done && timer.elapsed() < patience)
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    return done;
}

/// Lets the document's queue run empty, files be written and the canvas come to rest; false when patience ends.
inline bool settle(Document& document)
{
    bool isWritten = false;
    document.whenSettled([&] { isWritten = true; });
    if (!runEventsUntil(isWritten))
        return false;
    do {
        // What was enqueued meanwhile, with its last steps.
        bool isDone = false;
        WorkBlock block;
        block.onMain([&] { isDone = true; });
        document.poolProcessing().enqueue(std::move(block));
        if (!runEventsUntil(isDone))
            return false;
    } while (document.poolProcessing().busy());
    document.commit();
    return true;
}

/// Stands for the list beside the canvas, and writes down what it is asked.
class RecordingList : public PersonList
{
public:
    QWidget& view() override { return *view_; }
    void addObject(Person& person) override
    {
        note("add", &person);
        rows.push_back(person.recordId());
    }
    void removeObject(Person& person) override
    {
        note("remove", &person);
        std::erase(rows, person.recordId());
    }
    void rearrangeObjects() override { note("rearrange"); }
    void setObjects(const std::vector<Person*>& persons) override
    {
        rows.clear();
        for (const Person* const person : persons)
            rows.push_back(person->recordId());
    }
    void select(Person& person) override
    {
        note("select", &person);
        selected = person.recordId();
    }
    void deselectAll() override
    {
        note("deselect");
        selected.reset();
    }
    void editNameForPerson(Person& person) override { note("edit", &person); }
    bool isEditing() const override { return editing; }
    void commitEditing() override {}
    std::optional<TypedValues> typed() const override { return beingTyped; }
    void setTypedObserver(std::function<void()>) override {}
    void findPersons() override { note("find"); }
    void choosePicture(Person&) override { note("choose picture"); }
    void removePicture(Person& person) override
    {
        note("remove picture");
        person.removePic();
    }

    std::vector<std::string> log;
    std::vector<RecordId> rows;
    std::optional<RecordId> selected;
    std::optional<TypedValues> beingTyped;
    bool editing = false;

private:
    void note(std::string what, const Person* person = nullptr)
    {
        if (person)
            what.append(1, ' ').append(std::to_string(person->recordId().number));
        log.push_back(std::move(what));
    }

    QWidget* view_ = new QWidget;
};

enum class ListOf
{
    Test,    ///< a recording list in place of the document's own
    Document ///< the document's own
};

/// A document that a test edits as its user would, with the queue held where a test wants to come first.
class EditedDocument
{
public:
    explicit EditedDocument(ListOf lists = ListOf::Test) : EditedDocument(Document::create(), lists) {}
    explicit EditedDocument(const ObjectContext& family, ListOf lists = ListOf::Test)
        : EditedDocument(openSaved(family), lists)
    {}

    ~EditedDocument()
    {
        document.reset();
        QApplication::processEvents();
    }

    std::unique_ptr<Document> document;
    std::unique_ptr<RecordingList> list; ///< nullptr where the document's own list is shown

    ObjectContext& context() const { return document->context(); }
    Pool& pool() const { return document->pool(); }
    TreeView& canvas() const { return *document->treeView(); }
    Journal& journal() const { return context().journal(); }
    QByteArray text() const { return textOf(context()); }
    Person* person(std::uint64_t number) const { return context().person({number}); }

    void settle() { ASSERT_TRUE(lineara::settle(*document)); }
    void hold() { document->poolProcessing().setHeld(true); }
    void release()
    {
        document->poolProcessing().setHeld(false);
        settle();
    }

    /// Adds a person and lets it settle.
    Person& add()
    {
        const RecordId id = addUnsettled();
        settle();
        return *context().person(id);
    }
    RecordId addUnsettled()
    {
        const RecordId id{context().nextNumber()};
        document->addPerson();
        return id;
    }
    /// What a drop of a handle does, and lets it settle.
    void link(Person& from, Person& to, QStringView type)
    {
        linkUnsettled(from, to, type);
        settle();
    }
    void linkUnsettled(Person& from, Person& to, QStringView type)
    {
        EXPECT_TRUE(canvas().connect(from, to, type.toString()));
    }
    void click(Person& person)
    {
        NotificationCenter::defaultCenter().enqueue(PersonClickedNotification{&pool(), person.recordId()});
        deliver();
    }
    void clickLink(Person& source, Person& target, QStringView type)
    {
        clickLinkUndelivered(source, target, type);
        deliver();
    }
    void clickLinkUndelivered(Person& source, Person& target, QStringView type)
    {
        NotificationCenter::defaultCenter().enqueue(LinkSelectionNotification{
            &pool(), LinkSelectionNotification::Link{source.recordId(), target.recordId(), type.toString()}});
    }
    void clickNothing()
    {
        NotificationCenter::defaultCenter().enqueue(LinkSelectionNotification{&pool(), std::nullopt});
        deliver();
    }
    /// Delivers what is enqueued, and what the delivery has led to.
    static void deliver()
    {
        QApplication::processEvents();
        QApplication::processEvents();
    }
    void undo()
    {
        document->undo();
        settle();
    }
    void redo()
    {
        document->redo();
        settle();
    }
    void remove()
    {
        document->remove();
        settle();
    }

private:
    EditedDocument(std::unique_ptr<Document> opened, ListOf lists) : document(std::move(opened))
    {
        document->setChance(SeededRandom(1));
        document->window().show();
        EXPECT_TRUE(lineara::settle(*document));
        if (lists == ListOf::Document)
            return;
        list = std::make_unique<RecordingList>();
        document->showList(*list);
        list->log.clear();
    }

    static std::unique_ptr<Document> openSaved(const ObjectContext& family)
    {
        const TestFiles files;
        auto opened = Document::open(files.save(QStringLiteral("family.lineara"), family));
        EXPECT_TRUE(opened);
        return std::move(opened.value());
    }
};

} // namespace lineara
