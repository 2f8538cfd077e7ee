#pragma once

#include "canvas/canvas_painter.h"
#include "canvas/family_scene.h"
#include "canvas/known_rows.h"
#include "canvas/navigation.h"
#include "canvas/row_glide.h"
#include "canvas/row_spacing.h"
#include "canvas/seen_part.h"
#include "canvas/steady_view.h"
#include "canvas/view_transform.h"
#include "model/object_context.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <unordered_set>
#include <vector>

class QHelpEvent;

namespace lineara {

class CanvasGestures;
struct PersonDragEndedNotification;
enum class WalkDirection : std::uint8_t;

/// The canvas on which a family is drawn: every person a node in the row of its generation, every link a shape beneath
/// the nodes. Follows the records by itself; what the document has to call is said at each operation.
///
/// Rows count upwards from the canvas's bottom edge, and so do all heights. Main thread only; the pool's context, the
/// nursery that made the nodes and the random source must outlive it.
class TreeView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    /// Shows all persons of a pool that has been processed; each must have its node. Persons without an x are given
    /// their first places. `frame` is the least size of the canvas in points, as firstFrame() gives it. What this
    /// writes to the records can't be undone.
    TreeView(Pool& pool, QSize frame, RandomSource& random, QWidget* parent = nullptr);
    ~TreeView() override;

    Pool& pool() const { return scene_.pool(); }
    const FamilyScene& scene() const { return scene_; }
    PersonLayerView& personLayer() { return scene_.personLayer(); }
    BranchLayerView& branchLayer() { return scene_.branchLayer(); }
    /// The pool's rows as of the last constraint pass; empty before the first.
    const std::vector<std::vector<RecordId>>& generations() const { return spacedRows_.rows(); }

    /// Shows a person. One without an x is new: it is placed at random in the left half of what is in view and lifted
    /// above the bottom of it, until the next refreshHierarchy(). A person that is shown already stays as it is.
    void addViewForPerson(Person& person);
    /// Takes the person's node and its link shapes off the canvas, where they stay away until the person is shown again
    /// or has left the family.
    void removeViewForPerson(Person& person);
    /// Shows a new link at once, before the pool's lists know of it.
    LinkLayer& addLink(const LinkRecord& record, const QString& type);
    void removeLink(LinkLayer& link);

    /// To be called whenever the pool has been processed: one node for each person and one shape for each link, and
    /// everybody who has a generation glides to its row. Those out of view are there at once.
    void refreshHierarchy();
    /// Nodes jump instead of gliding, for people whom motion disturbs.
    void setReducedMotion(bool reduced) { reducedMotion_ = reduced; }

    /// Takes the pool's rows over as they are, so that the next pass spaces none of them: undo and redo have restored
    /// everybody's place.
    void takeRows();

    /// Makes a link between two persons who are shown, as a step of the history: places one who has no row beside one
    /// who has, shows the shape and asks the document to record it. False, with nothing changed, if the link rules
    /// refuse.
    bool connect(Person& from, Person& to, const QString& type);

    /// Shows and clears the selected look of a person's node. Arrow keys walk on from the person last focused.
    void focus(Person& person);
    void unfocus(Person& person);
    /// Clears the selected look of a link.
    void deselectLink();

    /// Brings out some persons and the links among them, and dims everybody else until it is cleared, by Escape, too.
    /// Who leaves drops out, and who comes is dimmed; pictures for files show nothing of it.
    void setHighlight(std::span<const RecordId> persons);
    void clearHighlight();
    bool isHighlighting() const { return scene_.isHighlighting(); }

    /// The node that is first responder of the canvas, or nullptr: the one last clicked or walked to. It has a ring
    /// while the canvas has the keyboard focus.
    LeafView* firstResponderNode() const;
    /// Nothing on the canvas is first responder any more. Takes the keyboard focus from nobody.
    void clearFirstResponder();

    /// To be called after a node was moved by other means than its person's x.
    void nodeMoved(const LeafView& node);

    /// Installs gaps between every two persons of a row, in the order of their x; of equal ones the earlier in the row
    /// stands left. Nothing for a row that does not exist. Takes effect with the next pass.
    void constrainCollisionsForGeneration(std::optional<std::int32_t> generation);
    /// Installs the gaps of the person's row and requests a pass.
    void reconstrainCollisionsForPerson(Person& person);
    /// Writes the places of the last layout back and takes all gaps away.
    void clearCollisionConstraints();
    /// Stores where the last layout has put nodes as their persons' x, truncated towards zero.
    void updateXAfterAutoLayout();
    /// Number of gaps between two nodes that are installed now.
    std::uint64_t collisionAvoidanceConstraints() const { return spacing_.count(); }

    /// Requests a constraint pass as soon as the current event has been handled: rows in which other persons stand than
    /// before are spaced, and if somebody stands left of the canvas everybody is moved right.
    void setNeedsUpdateConstraints();
    /// Brings everything that is pending to its end at once: a glide and a requested pass. To be called before the
    /// records are read as a whole or a new step of the history is begun.
    void settle();

    /// Gives persons places, as one change. The view stays with those whom it shows, and who is or comes into view
    /// glides.
    void movePersons(std::span<Person* const> persons, std::span<const std::optional<std::int32_t>> places);

    /// Subtracts `points` from everybody's x, as one change. The view scrolls along.
    void adjustBy(std::int32_t points);

    /// Tells whether a pointer button is down, and on what. Until the release the canvas does not shrink, and nothing
    /// but the user scrolls the view.
    void setPointerHold(PointerHold hold);

    QSizeF canvasSize() const { return view_.canvas(); }
    double zoom() const { return view_.zoom(); }
    /// The part of the canvas in view.
    Frame documentVisibleRect() const;
    /// Between points of the canvas and pixels of the viewport.
    QPointF toViewport(CanvasPoint point) const { return view_.toView(point); }
    CanvasPoint toCanvas(QPointF pixel) const { return view_.toCanvas(pixel); }
    /// Scrolls until the person's node is in view; while a pointer is down, once that has been let go.
    void reveal(const Person& person);
    /// What is in view now; no value without any node.
    std::optional<SeenPart> seenPart() const;
    /// Shows the part, as far as the canvas reaches. Nothing if its person is gone.
    void showAgain(const SeenPart& part);
    /// The first picture shows this part, whatever size the view has by then. If its person is gone, the view starts
    /// where it would without it.
    void startAt(const SeenPart& part);
    void scrollTo(double left, double bottom);
    /// By pixels, right and down, as far as the canvas reaches.
    void scrollBy(QPointF pixels);
    void zoomTo(double zoom, QPointF anchor);

    /// To be called when anything to be seen has changed: it is drawn as soon as the current event has been handled.
    void redraw();

    /// What lies topmost at a point.
    CanvasHit hit(CanvasPoint point) const { return scene_.hit(point); }
    /// The same as if there were no links, for what is asked at every movement of the pointer.
    CanvasHit hitNode(CanvasPoint point) const { return scene_.hitNode(point); }

public Q_SLOTS:
    void zoomIn();
    void zoomOut();
    void actualSize();
    /// Shows all nodes, at most at their actual size.
    void fit();

Q_SIGNALS:
    void zoomChanged(double zoom);
    /// The name of the person who was walked to is to be put into editing.
    void editNameRequested();
    /// The user has had enough of the highlight, which is gone by now.
    void highlightDismissed();
    /// A node was clicked with Control held, which selects nobody.
    void comparisonRequested(lineara::RecordId person);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool viewportEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void trimView();
    void updateConstraints(ShiftCause cause);
    void constrainRowsOfResized();
    void correctLeftEdge(ShiftCause cause);
    void runRequested();
    std::optional<double> smallestXConstant() const;
    void personDragNotification(const PersonDragEndedNotification& ended);

    void syncNodes();
    bool isHidden(const Person& person) const { return hidden_.contains(person.recordId()); }
    void followCommonShift();
    std::vector<RowGlide::Move> movesToRows();
    std::vector<RowGlide::Move> movesSideways(const std::vector<double>& before) const;
    bool comesIntoView(const LeafView& node, QPointF way) const;
    void nodesGlided(const std::vector<RowGlide::Move>& moves);
    void glideEnded();
    Frame frameAtRest(const LeafView& node) const;
    double highestGoal() const;

    void follow(const Change& change);
    void followAttributes(const AttributesChanged& change);
    void followPlaces(const ManyChanged& change);
    void followMembership(Person& person, bool joined);
    void forgetPerson(Person& person);
    bool isReplaying() const { return pool().context().journal().replaying(); }
    void contentChanged();

    void setUpViewport();
    void layOutContent();
    void showStartPlace();
    bool showPart(const SeenPart& part);
    void zoomBy(double factor);
    void viewMoved();
    void showMovedView();
    void drawInHaste();
    void drawRequested();
    bool movedByHand(bool moved);
    bool moves() const;
    void pointerLost();
    bool pressToCompare(const QMouseEvent& event);
    bool dismissHighlight();
    bool pressKey(const QKeyEvent& event);
    bool walk(WalkDirection direction);
    void updateScrollBars();
    void updateCursor();
    void showToolTip(const QHelpEvent& event);

    RandomSource& random_;
    QSize firstFrame_;
    FamilyScene scene_;
    ViewTransform view_;
    Navigation navigation_{view_};
    CanvasPainter painter_;
    RowGlide glide_;
    RowSpacing spacing_;
    KnownRows spacedRows_; // as of the last pass
    KnownRows shownRows_;  // as of the last refresh
    SteadyView steady_{view_};
    std::vector<RecordId> resized_;         // whose nodes became wider, or were dropped, since the last pass
    std::optional<RecordId> awaitedReveal_; // whom to show once the pointer lets go
    std::unordered_set<RecordId> hidden_;   // taken off the canvas, because they are about to leave
    Subscription records_;
    Subscription dragEnds_;
    Subscription steps_;
    QSizeF heldCanvas_{0, 0}; // while a pointer is down the canvas does not shrink below it
    QBasicTimer rest_;        // runs while the view is being moved by hand, and a moment longer
    QBasicTimer followUp_;    // runs from a new link to the refresh that follows from it, at most a moment
    double shownZoom_ = 1;    // as last told by zoomChanged()
    bool redrawRequested_ = false;
    bool passRequested_ = false;
    bool membersStale_ = false; // somebody has joined the family and may have no node yet
    bool edgeStale_ = true;     // somebody may stand left of the canvas
    bool contentStale_ = false;
    ShiftCause shiftCause_ = ShiftCause::Layout;
    bool reducedMotion_ = false;
    std::optional<SeenPart> startPart_;
    bool startPlaceOpen_ = true; // until the first picture the view keeps looking for a place to start at
    bool updatingScrollBars_ = false;
    std::unique_ptr<CanvasGestures> gestures_;
};

} // namespace lineara
