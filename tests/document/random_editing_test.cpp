// Somebody who does anything in any order, with mouse and keyboard, without waiting for what it leads to.

#include "canvas/hand.h"
#include "rest_checks.h"

#include <random>

using namespace lineara;

namespace {

#ifdef LINEARA_SANITIZED
constexpr unsigned users = 6;
#else
constexpr unsigned users = 40;
#endif
constexpr int gestures = 120;

class RestlessUser
{
public:
    explicit RestlessUser(unsigned seed) : random_(seed) {}

    void work()
    {
        checks_.checkAll();
        for (int gesture = 0; gesture < gestures; ++gesture) {
            doAnything();
            letEventsPass();
            if (chance(4)) {
                rest();
                ASSERT_FALSE(testing::Test::HasFailure()) << "after gesture " << gesture;
            }
        }
        rest();
        goThroughHistory();
    }

private:
    using Gesture = void (RestlessUser::*)();

    void doAnything()
    {
        static constexpr Gesture choice[] = {
            &RestlessUser::add,           &RestlessUser::add,          &RestlessUser::drawLink,
            &RestlessUser::drawLink,      &RestlessUser::drawLink,     &RestlessUser::link,
            &RestlessUser::link,          &RestlessUser::clickPerson,  &RestlessUser::clickPerson,
            &RestlessUser::pickLink,      &RestlessUser::dragNode,     &RestlessUser::dragNode,
            &RestlessUser::pressRow,      &RestlessUser::typeName,     &RestlessUser::search,
            &RestlessUser::endSearch,     &RestlessUser::clickNothing, &RestlessUser::moveView,
            &RestlessUser::remove,        &RestlessUser::remove,       &RestlessUser::undo,
            &RestlessUser::undo,          &RestlessUser::redo,         &RestlessUser::typeNotes,
            &RestlessUser::typeDate,      &RestlessUser::typeDate,     &RestlessUser::setPicture,
            &RestlessUser::removePicture,
        };
        (this->*choice[random_() % std::size(choice)])();
    }

    bool chance(unsigned oneIn) { return random_() % oneIn == 0; }
    double anyOf(double from, double to) { return from + (to - from) * static_cast<double>(random_() % 1000) / 1000; }
    void letEventsPass()
    {
        for (auto event = random_() % 6; event > 0; --event)
            QApplication::processEvents();
    }

    Person* anybody()
    {
        const auto& nodes = edited_.canvas().personLayer().nodes();
        return nodes.empty() ? nullptr : &nodes[random_() % nodes.size()]->person();
    }
    /// Somebody whose panel can be pressed; nullptr where another node covers it.
    Person* anybodyInReach()
    {
        Person* const person = anybody();
        if (!person)
            return nullptr;
        edited_.canvas().reveal(*person);
        const CanvasHit found = edited_.canvas().hit(edited_.canvas().toCanvas(hand_.panel(*person)));
        return found.node == person->leafView() && found.part == NodePart::Info ? person : nullptr;
    }

    void add() { edited_.document->addPerson(); }
    void remove()
    {
        const bool runs = edited_.document->selectionType() != Selection::ofPerson() || edited_.document->isRemovable();
        edited_.document->remove();
        if (!runs || !chance(3))
            return;
        rest();
        checks_.checkFullRun();
    }
    void undo() { edited_.document->undo(); }
    void redo() { edited_.document->redo(); }

    /// As chosen by keyboard.
    void link()
    {
        Person* const from = anybody();
        Person* const to = anybody();
        if (from && to)
            edited_.canvas().connect(*from, *to, (chance(3) ? partnerLink : offspringLink).toString());
    }
    void drawLink()
    {
        Person* const from = anybodyInReach();
        Person* const aim = anybody();
        if (!from || !aim)
            return;
        const RecordId to = aim->recordId();
        hand_.press(chance(3) ? hand_.partnerHandle(*from) : hand_.childHandle(*from));
        moveAround(random_() % 3);
        // Events have passed meanwhile.
        const Person* const still = edited_.context().person(to);
        if (still && edited_.canvas().scene().shows(*still))
            hand_.drag(hand_.picture(*still));
        endDrag();
    }
    void dragNode()
    {
        const Person* const person = anybodyInReach();
        if (!person)
            return;
        hand_.press(hand_.panel(*person));
        moveAround(1 + random_() % 4);
        endDrag();
    }
    void moveAround(std::size_t events)
    {
        for (; events > 0; --events) {
            hand_.dragBy({anyOf(-200, 150), anyOf(-60, 60)});
            if (chance(3))
                QApplication::processEvents();
        }
    }
    void endDrag()
    {
        if (chance(6))
            QTest::keyClick(&edited_.canvas(), Qt::Key_Escape);
        hand_.release();
    }

    void clickPerson()
    {
        if (const Person* const person = anybodyInReach())
            hand_.click(hand_.panel(*person));
    }
    void pickLink()
    {
        const auto& shapes = edited_.canvas().branchLayer().layers();
        if (shapes.empty())
            return;
        const CanvasPoint from = shapes[random_() % shapes.size()]->startPoint();
        const CanvasPoint to = shapes[random_() % shapes.size()]->endPoint();
        hand_.click(edited_.canvas().toViewport({(from.x + to.x) / 2, (from.y + to.y) / 2}));
    }
    void clickNothing()
    {
        const QSizeF size = edited_.canvas().viewport()->size();
        const QPointF at(anyOf(0, size.width()), anyOf(0, size.height()));
        const CanvasHit found = edited_.canvas().hit(edited_.canvas().toCanvas(at));
        if (!found.node)
            hand_.click(at);
    }
    void moveView()
    {
        edited_.canvas().zoomTo(anyOf(0.5, 2), {300, 300});
        edited_.canvas().scrollTo(anyOf(-50, 300), anyOf(-50, 300));
    }

    void pressRow()
    {
        if (const QStringList names = edited_.names(); !names.isEmpty())
            edited_.pressRow(names[static_cast<int>(random_() % static_cast<unsigned>(names.size()))]);
    }
    void typeName()
    {
        QLineEdit* const field = edited_.nameField();
        if (!field)
            return;
        field->setFocus();
        edited_.type(QString::number(random_() % 1000));
        if (chance(2))
            edited_.press(Qt::Key_Return);
    }
    void typeNotes()
    {
        if (!edited_.notes())
            return;
        edited_.notes()->setFocus();
        edited_.type(QString::number(random_() % 1000));
        if (chance(2))
            edited_.press(Qt::Key_Return);
    }
    /// Not every number makes a date.
    void typeDate()
    {
        const auto part = static_cast<qsizetype>(random_() % 3);
        QLineEdit* const field = edited_.dateField(chance(2) ? QStringLiteral("birth") : QStringLiteral("death"), part);
        if (!field)
            return;
        field->setFocus();
        edited_.type(QString::number(random_() % 40));
        if (chance(2))
            edited_.press(Qt::Key_Return);
    }
    void removePicture()
    {
        if (Person* const person = edited_.document->selectionPerson())
            edited_.document->list().removePicture(*person);
    }
    void setPicture()
    {
        Person* const person = edited_.document->selectionPerson();
        if (!person)
            return;
        edited_.document->commit();
        edited_.journal().begin(QStringLiteral("Set Picture"));
        person->changePic(picture_);
    }
    void search()
    {
        edited_.document->list().findPersons();
        edited_.type(QString::number(random_() % 10));
        if (chance(2))
            edited_.press(Qt::Key_Return);
    }
    void endSearch() { edited_.search().clear(); }

    void rest()
    {
        edited_.settle();
        ListedDocument::deliver();
        edited_.settle();
        checks_.checkAll();
    }

    void goThroughHistory()
    {
        while (edited_.journal().canUndo()) {
            edited_.undo();
            checks_.checkAll();
        }
        while (edited_.journal().canRedo()) {
            edited_.redo();
            checks_.checkAll();
        }
        // Removing nothing works all generations out.
        edited_.document->deselectAll();
        edited_.remove();
        checks_.checkFullRun();
    }

    std::mt19937 random_;
    const TestFiles files_;
    const QString picture_ = files_.picture(QStringLiteral("wide.png"), {90, 45});
    ListedDocument edited_;
    RestChecks checks_{edited_};
    Hand hand_{edited_.canvas()};
};

} // namespace

TEST(RandomEditing, TheFamilyAndItsPicturesAgreeWheneverAllIsAtRest)
{
    for (unsigned seed = 1; seed <= users && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        RestlessUser(seed).work();
    }
}
