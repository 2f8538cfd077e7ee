#pragma once

#include "document/document.h"
#include "frame_clock.h"

#include <QPointF>

#include <functional>
#include <memory>
#include <vector>

namespace lineara::bench {

class WatchedList;

/// A made family in its window, with a pointer that works on the canvas.
class EditedFamily
{
public:
    explicit EditedFamily(std::uint32_t persons);
    ~EditedFamily();

    Document& document() { return *document_; }
    TreeView& canvas() { return *document_->treeView(); }
    Pool& pool() { return document_->pool(); }

    /// Lets everything that is queued or gliding come to rest.
    void settle();
    /// Handles events until `done` holds.
    static void waitUntil(const std::function<bool()>& done);

    void press(QPointF pixel) { send(QEvent::MouseButtonPress, pixel); }
    void drag(QPointF pixel) { send(QEvent::MouseMove, pixel); }
    void release(QPointF pixel) { send(QEvent::MouseButtonRelease, pixel); }

    /// When the list was sorted again, which is the last thing before the canvas follows the queue.
    FrameClock::Clock::time_point lastRefresh() const;

private:
    void send(QEvent::Type type, QPointF pixel);

    std::unique_ptr<Document> document_;
    std::unique_ptr<WatchedList> list_; // in the window, which may go first
};

} // namespace lineara::bench
