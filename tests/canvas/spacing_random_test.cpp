// A small family whose persons are dragged, renamed, linked and unlinked in any order.

#include "elements/notifications.h"
#include "platform/log.h"
#include "platform/notification_center.h"
#include "rows_at_rest.h"
#include "shown_family.h"
#include "store/family_file.h"

#include <QBuffer>

#include <gtest/gtest.h>

#include <random>

namespace lineara {
namespace {

#ifdef LINEARA_SANITIZED
constexpr int gestures = 400;
#else
constexpr int gestures = 6000;
#endif

class RestlessFamily
{
public:
    explicit RestlessFamily(unsigned seed) : random_(seed)
    {
        for (int person = 0; person < 9; ++person)
            family_.add(static_cast<int>(random_() % 600));
        family_.processAndShow();
        family_.context.journal().clear();
    }

    /// One gesture, and what must hold once it has come to rest.
    void play()
    {
        const QByteArray before = text();
        const std::size_t depth = journal().depth();
        doAnything();
        letItRun();
        view().settle();
        checkRest();
        checkOrder();
        const QByteArray after = text();
        view().setNeedsUpdateConstraints();
        view().settle();
        EXPECT_EQ(text(), after);
        if (journal().depth() > depth)
            checkHistory(before, after);
        else
            EXPECT_EQ(after, before);
    }

private:
    void doAnything()
    {
        switch (random_() % 6) {
        case 0:
        case 1:
            drag();
            break;
        case 2:
            rename();
            break;
        case 3:
            link(partnerLink);
            break;
        case 4:
            link(offspringLink);
            break;
        default:
            unlink();
        }
    }

    void drag()
    {
        Person& person = anybody();
        journal().begin(QStringLiteral("Move Person"));
        view().setPointerHold(PointerHold::Node);
        const int reach = random_() % 4 == 0 ? 400 : 60;
        for (auto event = random_() % 5; event > 0; --event) {
            person.setX(*person.x() + static_cast<int>(random_() % 100) * reach / 50 - reach);
            letItRun();
        }
        order_ = rowOrder(person);
        NotificationCenter::defaultCenter().post(PersonDragEndedNotification{&family_.pool, person.recordId()});
        view().setPointerHold(PointerHold::None);
    }

    void rename()
    {
        Person& person = anybody();
        order_ = rowOrder(person);
        journal().begin(QStringLiteral("Edit Name"));
        person.setName(QString(static_cast<qsizetype>(random_() % 14), u'M'));
    }

    void link(QStringView type)
    {
        if (view().connect(anybody(), anybody(), type.toString()))
            process();
    }

    void record(const createLinkNotification& link)
    {
        if (link.family != &family_.pool)
            return;
        Person& from = *family_.context.person(link.from);
        Person& to = *family_.context.person(link.to);
        if (link.type == partnerLink)
            from.addPartner(to);
        else
            from.addChild(to);
    }

    void unlink()
    {
        Person& person = anybody();
        journal().begin(QStringLiteral("Remove Link"));
        if (!person.partners().empty() && random_() % 2 == 0)
            person.removePartner(*person.partners()[random_() % person.partners().size()]);
        else if (!person.children().empty())
            person.removeChild(*person.children()[random_() % person.children().size()]);
        process();
    }

    void process()
    {
        family_.pool.process();
        view().refreshHierarchy();
    }

    /// Undo and redo as the document has them: the rows are restored and not spaced.
    void checkHistory(const QByteArray& before, const QByteArray& after)
    {
        journal().undo();
        showReplayed();
        EXPECT_EQ(text(), before);
        checkRest();
        if (random_() % 4 == 0)
            return;
        journal().redo();
        showReplayed();
        EXPECT_EQ(text(), after);
    }

    void showReplayed()
    {
        family_.pool.rebuildLists();
        view().takeRows();
        view().refreshHierarchy();
        letItRun();
        view().settle();
    }

    void checkRest() const { EXPECT_TRUE(isAtRest(family_.pool)); }

    /// A drag or another name leaves the order in which the persons of the row stood when it ended.
    void checkOrder()
    {
        if (order_.size() > 1) {
            EXPECT_EQ(rowOrder(*order_.front()), order_);
        }
        order_.clear();
    }

    /// The row of somebody who has one, by x and then by the row's own order.
    std::vector<const Person*> rowOrder(const Person& of) const
    {
        std::vector<const Person*> row;
        if (of.generation().value_or(0) < 1)
            return row;
        for (const RecordId id : family_.pool.generations()[static_cast<std::size_t>(*of.generation())])
            row.push_back(family_.context.person(id));
        std::ranges::stable_sort(row, {}, [](const Person* person) { return *person->x(); });
        return row;
    }

    void letItRun()
    {
        if (random_() % 2 == 0)
            QCoreApplication::processEvents();
    }

    Person& anybody() { return *family_.pool.persons()[random_() % family_.pool.persons().size()]; }
    TreeView& view() { return *family_.view; }
    Journal& journal() { return family_.context.journal(); }
    QByteArray text() const
    {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        EXPECT_TRUE(writeFamily(family_.context, buffer));
        return buffer.data();
    }

    std::mt19937 random_;
    ShownFamily family_;
    std::vector<const Person*> order_;
    Subscription requests_ =
        NotificationCenter::defaultCenter().observe<createLinkNotification>([this](const auto& link) { record(link); });
};

TEST(RandomSpacing, IsAtRestInOrderAndUndoableAfterEveryGesture)
{
    for (unsigned seed = 1; seed <= 5; ++seed) {
        RestlessFamily family(seed);
        for (int gesture = 0; gesture < gestures / 5 && !HasFailure(); ++gesture) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", gesture " << gesture);
            family.play();
        }
    }
}

} // namespace
} // namespace lineara
