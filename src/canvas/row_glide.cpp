#include "canvas/row_glide.h"

#include "elements/leaf_view.h"
#include "model/person.h"

#include <QEasingCurve>

#include <algorithm>
#include <cmath>
#include <utility>

namespace lineara {

namespace {

constexpr int glideMilliseconds = 250;

} // namespace

RowGlide::RowGlide(std::function<void(const std::vector<Move>&)> moved, std::function<void()> finished)
    : moved_(std::move(moved)), finished_(std::move(finished))
{
    animation_.setStartValue(0.0);
    animation_.setEndValue(1.0);
    animation_.setDuration(glideMilliseconds);
    animation_.setEasingCurve(QEasingCurve::InOutQuad);
    QObject::connect(&animation_, &QVariantAnimation::valueChanged, &animation_,
                     [this](const QVariant& value) { moveTo(value.toDouble()); });
    QObject::connect(&animation_, &QVariantAnimation::finished, &animation_, [this] { end(); });
}

void RowGlide::start(std::vector<Move> moves)
{
    animation_.stop();
    standInPlaces();
    moves_ = std::move(moves);
    if (moves_.empty()) {
        finished_();
        return;
    }
    // Who goes sideways stands at the end of the way already.
    moveTo(0);
    animation_.start();
}

void RowGlide::finish()
{
    if (!isRunning())
        return;
    animation_.stop();
    moveTo(1);
    end();
}

std::optional<double> RowGlide::goalOf(const LeafView& node) const
{
    const auto move = std::ranges::find(moves_, &node, &Move::node);
    return move == moves_.end() ? std::nullopt : std::optional(move->to);
}

void RowGlide::standInPlaces()
{
    for (Move& move : moves_) {
        if (std::exchange(move.aside, 0) != 0)
            move.node->updateXConstraint();
    }
}

void RowGlide::forget(const LeafView& node)
{
    std::erase_if(moves_, [&](const Move& move) { return move.node == &node; });
}

void RowGlide::moveTo(double progress)
{
    for (const Move& move : moves_) {
        move.node->setYConstant(std::lerp(move.from, move.to, progress));
        if (move.aside != 0)
            move.node->setXConstant(move.node->person().x().value_or(0) + std::lerp(move.aside, 0.0, progress));
    }
    moved_(moves_);
}

void RowGlide::end()
{
    moves_.clear();
    finished_();
}

} // namespace lineara
