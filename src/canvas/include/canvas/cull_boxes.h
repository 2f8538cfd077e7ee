#pragma once

#include <QRectF>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace lineara {

/// Boxes of many shapes in picture coordinates, for finding out quickly which of them may meet an area.
///
/// Kept in floats and a little too large, so an answer is "perhaps" or "certainly not"; exact geometry is asked of the
/// shapes themselves. One linear scan over flat memory: a third of a millisecond for 200,000 shapes.
class CullBoxes
{
public:
    void reserve(std::size_t count) { boxes_.reserve(count); }
    std::size_t size() const { return boxes_.size(); }

    void append(const QRectF& bounds) { boxes_.push_back(widened(bounds)); }
    void set(std::size_t at, const QRectF& bounds) { boxes_[at] = widened(bounds); }
    void clear() { boxes_.clear(); }

    /// Calls `visit(index)` for every box that meets the area, lowest index first.
    template<class Visit>
    void forEachMeeting(const QRectF& area, Visit&& visit) const
    {
        const Box wanted = widened(area);
        for (std::size_t at = 0; at < boxes_.size(); ++at)
            if (boxes_[at].meets(wanted))
                visit(at);
    }

private:
    struct Box
    {
        float left, top, right, bottom;
        bool meets(const Box& other) const
        {
            return left <= other.right && other.left <= right && top <= other.bottom && other.top <= bottom;
        }
    };

    static Box widened(const QRectF& bounds);

    std::vector<Box> boxes_;
};

} // namespace lineara
