#include "canvas/tree_view.h"

#include "canvas/first_places.h"
#include "canvas/placement.h"
#include "canvas_gestures.h"
#include "elements/random_source.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace lineara {

TreeView::TreeView(Pool& pool, QSize frame, RandomSource& random, QWidget* parent)
    : QAbstractScrollArea(parent), random_(random), firstFrame_(frame), scene_(pool),
      glide_([this](const auto& moves) { nodesGlided(moves); }, [this] { setNeedsUpdateConstraints(); }),
      gestures_(std::make_unique<CanvasGestures>(*this))
{
    const Journal::Pause pause(pool.context().journal());
    setUpViewport();
    giveFirstPlaces(pool);
    scene_.addAllInRows();
    subscription_ = pool.context().observe([this](const Change& change) { follow(change); });
    trimView();
    updateConstraints();
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
    contentChanged();
    if (isNew)
        reveal(person);
}

void TreeView::removeViewForPerson(Person& person)
{
    hidden_.insert(person.recordId());
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
    viewport()->update();
    return scene_.addLink(record, type);
}

void TreeView::removeLink(LinkLayer& link)
{
    scene_.removeLink(link);
    viewport()->update();
}

void TreeView::refreshHierarchy()
{
    syncNodes();
    scene_.syncLinks([this](const Person& person) { return isHidden(person); });
    std::vector<RowGlide::Move> visibleMoves;
    for (LeafView* const node : scene_.personLayer().nodes()) {
        const auto generation = node->person().generation();
        const double from = node->yConstraint()->constant;
        const double to = rowConstant(generation);
        if (!generation || from == to)
            continue;
        if (!reducedMotion_ && comesIntoView(*node, from, to))
            visibleMoves.push_back({node, from, to});
        else
            node->setYConstant(to);
    }
    scene_.allMoved();
    contentChanged();
    glide_.start(std::move(visibleMoves));
}

bool TreeView::comesIntoView(const LeafView& node, double from, double to) const
{
    const Frame frame = node.frame();
    const double lowest = std::min(frame.y, frame.y + from - to);
    const QRectF swept = toPicture(Frame{frame.x, lowest, frame.width, frame.height + std::abs(to - from)});
    return swept.intersects(toPicture(view_.visible()));
}

void TreeView::setNeedsUpdateConstraints()
{
    if (passRequested_)
        return;
    passRequested_ = true;
    QMetaObject::invokeMethod(this, &TreeView::runRequested, Qt::QueuedConnection);
}

void TreeView::settle()
{
    glide_.finish();
    runRequested();
}

void TreeView::runRequested()
{
    if (std::exchange(passRequested_, false))
        updateConstraints();
    if (std::exchange(contentStale_, false))
        layOutContent();
}

void TreeView::adjustBy(std::int32_t points)
{
    pool().context().shiftX(pool(), points);
}

void TreeView::trimView()
{
    if (const std::int32_t distance = trimDistance(smallestXConstant().value_or(0)); distance != 0)
        adjustBy(distance);
}

void TreeView::updateConstraints()
{
    syncNodes();
    generations_ = pool().generations();
    if (const std::int32_t distance = leftEdgeDistance(smallestXConstant().value_or(0)); distance != 0)
        adjustBy(distance);
    layOutContent();
}

std::optional<double> TreeView::smallestXConstant() const
{
    const auto& nodes = scene_.personLayer().nodes();
    if (nodes.empty())
        return std::nullopt;
    const auto constant = [](const LeafView* node) { return node->xConstraint()->constant; };
    return constant(*std::ranges::min_element(nodes, {}, constant));
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
            allNodesChanged();
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

void TreeView::followAttributes(const AttributesChanged& change)
{
    constexpr PersonAttributes ofFrame =
        PersonAttribute::X | PersonAttribute::Name | PersonAttribute::Era | PersonAttribute::Image;
    if (!(change.attributes & ofFrame) || !scene_.shows(change.person))
        return;
    const LeafView& node = *change.person.leafView();
    scene_.nodeMoved(node);
    contentChanged();
    if (!isReplaying() && node.frame().x < 0)
        setNeedsUpdateConstraints();
}

void TreeView::followMembership(Person& person, bool joined)
{
    // A replayed change may join persons before they have their x back, so newcomers wait for the pass.
    if (joined) {
        setNeedsUpdateConstraints();
    } else {
        removeViewForPerson(person);
        hidden_.erase(person.recordId());
    }
}

void TreeView::allNodesChanged()
{
    scene_.allMoved();
    contentChanged();
    if (!isReplaying() && smallestXConstant().value_or(0) < 0)
        setNeedsUpdateConstraints();
}

/// Undo and redo restore a state that was at rest: the shift that follows from a place left of the canvas is among what
/// they restore.
bool TreeView::isReplaying() const
{
    return pool().context().journal().replaying();
}

void TreeView::nodesGlided(const std::vector<RowGlide::Move>& moves)
{
    for (const RowGlide::Move& move : moves)
        scene_.nodeMoved(*move.node);
    contentChanged();
}

void TreeView::contentChanged()
{
    viewport()->update();
    if (std::exchange(contentStale_, true))
        return;
    QMetaObject::invokeMethod(this, &TreeView::runRequested, Qt::QueuedConnection);
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
