// What the document has the canvas do while a family is edited.

#include "canvas/placement.h"
#include "canvas/tree_view.h"
#include "canvas_gestures.h"
#include "elements/notifications.h"
#include "platform/notification_center.h"

#include <QCoreApplication>

namespace lineara {

namespace {

/// Puts the person who has no row yet beside the one who has, on the side where it stands.
void placeBeside(const Person& anchor, Person& newcomer)
{
    const double ofAnchor = anchor.leafView()->xConstraint()->constant;
    const bool isLeft = ofAnchor > newcomer.leafView()->xConstraint()->constant;
    newcomer.setX(truncated(isLeft ? ofAnchor - besideRelative : ofAnchor + besideRelative));
}

// How long a new link waits for the refresh before it is drawn where its ends stand now. Small families are refreshed
// by then and are drawn once instead of twice.
constexpr int followUpMilliseconds = 30;

} // namespace

bool TreeView::connect(Person& from, Person& to, const QString& type)
{
    if (!scene_.shows(from) || !scene_.shows(to) || !pool().canLink(type, from, to))
        return false;
    pool().context().journal().begin(type == partnerLink ? QCoreApplication::translate("TreeView", "Link Partner")
                                                         : QCoreApplication::translate("TreeView", "Link Child"));
    if (from.generation() && !to.generation())
        placeBeside(from, to);
    else if (to.generation() && !from.generation())
        placeBeside(to, from);
    drawInHaste();
    followUp_.start(followUpMilliseconds, this);
    addLink({from.recordId(), to.recordId()}, type);
    NotificationCenter::defaultCenter().post(createLinkNotification{&pool(), from.recordId(), to.recordId(), type});
    return true;
}

void TreeView::focus(Person& person)
{
    person.leafView()->focus();
    if (scene_.shows(person))
        gestures_->focusOn(*person.leafView());
    redraw();
}

void TreeView::unfocus(Person& person)
{
    person.leafView()->unfocus();
    redraw();
}

void TreeView::deselectLink()
{
    branchLayer().deselectSelected();
    redraw();
}

} // namespace lineara
