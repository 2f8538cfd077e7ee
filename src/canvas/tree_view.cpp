#include "canvas/tree_view.h"

#include "canvas/placement.h"
#include "canvas/tidying.h"
#include "canvas_gestures.h"
#include "elements/notifications.h"
#include "elements/random_source.h"
#include "platform/notification_center.h"

#include <QPaintEvent>
#include <QPainter>

#include <utility>

namespace lineara {

namespace {

/// Above this share of all nodes it is quicker to lay all links out than those of each node that moved.
constexpr std::size_t fewAmongMany = 4;

} // namespace

TreeView::TreeView(Pool& pool, QSize frame, RandomSource& random, QWidget* parent)
    : QAbstractScrollArea(parent), random_(random), firstFrame_(frame), scene_(pool),
      glide_([this](const auto& moves) { nodesGlided(moves); }, [this] { glideEnded(); }),
      gestures_(std::make_unique<CanvasGestures>(*this))
{
    const Journal::Pause pause(pool.context().journal());
    setUpViewport();
    giveFirstPlaces(pool);
    scene_.addAllInRows();
    shownRows_.take(pool.generations());
    records_ = pool.context().observe([this](const Change& change) { follow(change); });
    dragEnds_ = NotificationCenter::defaultCenter().observe<PersonDragEndedNotification>(
        [this](const auto& ended) { personDragNotification(ended); });
    steps_ = pool.context().journal().beforeStep([this] { settle(); });
    trimView();
    setNeedsUpdateConstraints();
    settle();
    layOutContent();
}

TreeView::~TreeView() = default;

void TreeView::addViewForPerson(Person& person)
{
    LeafView* const node = person.leafView();
    hidden_.erase(person.recordId());
    if (!node || scene_.shows(person))
        return;
    const bool isNew = !person.x();
    if (isNew)
        person.setX(newPersonX(documentVisibleRect(), random_));
    standInRow(*node);
    if (isNew)
        node->setYConstant(newPersonConstant(documentVisibleRect()));
    scene_.addNode(*node);
    edgeStale_ = true;
    contentChanged();
    if (isNew)
        reveal(person);
}

void TreeView::removeViewForPerson(Person& person)
{
    hidden_.insert(person.recordId());
    // The node comes back if the person does, but the selection does not.
    if (person.leafView())
        person.leafView()->unfocus();
    if (!scene_.shows(person))
        return;
    glide_.forget(*person.leafView());
    gestures_->forget(*person.leafView());
    scene_.removePerson(person);
    contentChanged();
}

void TreeView::forgetPerson(Person& person)
{
    removeViewForPerson(person);
    hidden_.erase(person.recordId());
    // Somebody of another pool has no node here, but may have shapes of links to those who do.
    scene_.removePerson(person);
}

LinkLayer& TreeView::addLink(const LinkRecord& record, const QString& type)
{
    redraw();
    return scene_.addLink(record, type);
}

void TreeView::removeLink(LinkLayer& link)
{
    scene_.removeLink(link);
    redraw();
}

void TreeView::syncNodes()
{
    for (Person* const person : pool().persons()) {
        if (!isHidden(*person))
            addViewForPerson(*person);
    }
}

void TreeView::follow(const Change& change)
{
    if (const auto* const one = std::get_if<AttributesChanged>(&change)) {
        followAttributes(*one);
    } else if (const auto* const many = std::get_if<ManyChanged>(&change)) {
        if (many->attributes & PersonAttribute::X)
            followPlaces(*many);
    } else if (const auto* const link = std::get_if<LinkChanged>(&change)) {
        if (link->relationship == Relationship::PoolMembers && &link->owner == &pool())
            followMembership(static_cast<Person&>(link->member), link->added);
    } else if (const auto* const removed = std::get_if<RecordRemoved>(&change)) {
        if (removed->record.entity() == Entity::Person)
            forgetPerson(static_cast<Person&>(removed->record));
    } else if (std::holds_alternative<Replayed>(change)) {
        gestures_->replayed();
    }
}

// Undo and redo restore a state that was at rest: what follows from a change is among what they restore, so that
// nothing is done about it here.

void TreeView::followAttributes(const AttributesChanged& change)
{
    constexpr PersonAttributes ofWidth = PersonAttribute::Name | PersonAttribute::Era | PersonAttribute::Image;
    if (!(change.attributes & (ofWidth | PersonAttribute::X)) || !scene_.shows(change.person))
        return;
    const LeafView& node = *change.person.leafView();
    scene_.nodeMoved(node);
    edgeStale_ = true;
    contentChanged();
    if (isReplaying())
        return;
    if (change.attributes & ofWidth)
        resized_.push_back(change.person.recordId());
    if ((change.attributes & ofWidth) || node.frame().x < 0)
        setNeedsUpdateConstraints();
}

void TreeView::followPlaces(const ManyChanged& change)
{
    steady_.followShift(change.shift, isReplaying() ? ShiftCause::Replay : shiftCause_);
    if (gestures_->isHoldingNode())
        gestures_->viewMoved();
    if (change.persons.size() * fewAmongMany < scene_.personLayer().nodes().size()) {
        for (const Person* const person : change.persons) {
            if (scene_.shows(*person))
                scene_.nodeMoved(*person->leafView());
        }
    } else {
        scene_.allMoved();
    }
    edgeStale_ = true;
    contentChanged();
    if (!isReplaying() && smallestXConstant().value_or(0) < 0)
        setNeedsUpdateConstraints();
}

void TreeView::followMembership(Person& person, bool joined)
{
    // A replayed change may join persons before they have their x back, so newcomers wait for the pass.
    if (joined) {
        membersStale_ = true;
        setNeedsUpdateConstraints();
    } else {
        removeViewForPerson(person);
        hidden_.erase(person.recordId());
    }
}

void TreeView::contentChanged()
{
    redraw();
    if (std::exchange(contentStale_, true))
        return;
    QMetaObject::invokeMethod(this, &TreeView::runRequested, Qt::QueuedConnection);
}

void TreeView::redraw()
{
    if (std::exchange(redrawRequested_, true))
        return;
    QMetaObject::invokeMethod(this, &TreeView::drawRequested, Qt::QueuedConnection);
}

/// Nothing is drawn that the refresh which is about to follow will draw again.
void TreeView::drawRequested()
{
    redrawRequested_ = false;
    if (!followUp_.isActive())
        viewport()->update();
}

void TreeView::paintEvent(QPaintEvent* event)
{
    startPlaceOpen_ = false;
    QPainter painter(viewport());
    painter.fillRect(event->rect(), Qt::white);
    painter.setTransform(view_.pictureToView());
    const QRectF area = toPicture(view_.visible());
    const Motion motion = moves() ? Motion::Moving : Motion::Still;
    const Detail detail = detailAt(view_.zoom(), scene_.countNodes(area), motion);
    scene_.keepPathsOf(painter_.paint(painter, scene_, area, detail, motion));
}

} // namespace lineara
