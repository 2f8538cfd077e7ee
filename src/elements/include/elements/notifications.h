#pragma once

#include "model/record.h"

#include <QString>

#include <optional>

namespace lineara {

class ConnectorView;
class Pool;

// Every notification of the program, carried by the NotificationCenter. Each names the family it comes from, because
// observers hear the notifications of all open documents; whoever observes one compares the family first. Those that
// are delivered later name persons by id, since a person may be gone by then.

/// A person's node was pressed and released. Delivered as soon as possible; the document selects the person.
struct PersonClickedNotification
{
    const Pool* family = nullptr;
    RecordId person;
};

/// A press on a person's node ended, moved or not. Delivered at once, ahead of the click; the canvas spaces the
/// person's row again.
struct PersonDragEndedNotification
{
    const Pool* family = nullptr;
    RecordId person;
};

/// A handle is being dragged. Delivered at once, at every drag event; the canvas draws the rubber band.
struct connectionDragNotification
{
    const Pool* family = nullptr;
    QString type;
    ConnectorView* fromView = nullptr;
};

/// A handle was released. Delivered at once; the canvas makes the link if there is one to make.
struct connectionEndNotification
{
    const Pool* family = nullptr;
    QString type;
    ConnectorView* fromView = nullptr;
};

/// The canvas shows a new link. Delivered at once; the document records it.
struct createLinkNotification
{
    const Pool* family = nullptr;
    RecordId from;
    RecordId to;
    QString type; ///< "offspring" (`from` is the parent) or "partner"
};

/// The canvas was pressed beside all nodes. Delivered as soon as possible; the document selects the link, or nothing
/// if the press hit none.
struct LinkSelectionNotification
{
    struct Link
    {
        RecordId source;
        RecordId target;
        QString type;
        friend bool operator==(const Link&, const Link&) = default;
    };
    const Pool* family = nullptr;
    std::optional<Link> link;
};

/// Another row of the person list was selected, or none. Delivered as soon as possible; the document selects the
/// person.
struct selectionChangeNotification
{
    const Pool* family = nullptr;
    std::optional<RecordId> person;
};

} // namespace lineara
