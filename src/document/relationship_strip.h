#pragma once

#include "relationship_words.h"

#include <QFrame>

#include <functional>

class QLabel;

namespace lineara {

/// A bar beneath the family that tells what two persons are to each other, until it is closed.
class RelationshipStrip : public QFrame
{
public:
    struct Commands
    {
        std::function<void()> swap;
        std::function<void()> close;
    };

    explicit RelationshipStrip(Commands commands);

    /// Shows the strip, and tells assistive tools what it says if that is new.
    void tell(const RelationshipText& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    Commands commands_;
    QLabel* sentence_;
    QLabel* details_;
};

} // namespace lineara
