#pragma once

#include <QVariantAnimation>

#include <functional>
#include <optional>
#include <vector>

namespace lineara {

class LeafView;

/// Moves nodes up and down to their rows, and sideways to their places, all in one quarter of a second and in step.
class RowGlide
{
public:
    struct Move
    {
        LeafView* node = nullptr;
        double from = 0; ///< vertical constants
        double to = 0;
        double aside = 0; ///< points right of its person's place that the node begins at
    };

    /// `moved` is called after every step with all nodes that it moved, `finished` once the last one stands.
    RowGlide(std::function<void(const std::vector<Move>&)> moved, std::function<void()> finished);

    /// Begins a glide in place of one that may be under way.
    void start(std::vector<Move> moves);

    /// Brings every node to its end at once; nothing if no glide is under way.
    void finish();

    bool isRunning() const { return animation_.state() == QAbstractAnimation::Running; }

    /// What the glide under way does.
    const std::vector<Move>& moves() const { return moves_; }
    /// The vertical constant that a node is on its way to; no value for a node that does not glide.
    std::optional<double> goalOf(const LeafView& node) const;

    /// Brings every node to its place at once; up and down they go on gliding.
    void standInPlaces();

    /// To be called before a node is destroyed.
    void forget(const LeafView& node);

private:
    void moveTo(double progress);
    void end();

    std::function<void(const std::vector<Move>&)> moved_;
    std::function<void()> finished_;
    std::vector<Move> moves_;
    QVariantAnimation animation_;
};

} // namespace lineara
