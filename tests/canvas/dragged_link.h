#pragma once

#include "hand.h"

#include <gtest/gtest.h>

#include <optional>

namespace lineara {

/// Two persons of one row, and what is asked for while links are dragged between them.
class DraggedLink : public testing::Test
{
protected:
    DraggedLink()
    {
        requests_ = NotificationCenter::defaultCenter().observe<createLinkNotification>(
            [this](const createLinkNotification& request) { request_ = request; });
    }

    void show()
    {
        family.pool.rebuildLists();
        view = &family.show();
        view->actualSize();
        hand.emplace(*view);
    }
    /// On a canvas several views wide and high.
    void showWide()
    {
        family.add(6000, 9);
        show();
        view->scrollTo(0, 0);
    }
    const std::optional<RubberBand>& band() const { return view->personLayer().connection(); }
    const NodeMarks& marks() const { return view->personLayer().marks(); }
    bool isOver() const { return !band() && !marks().linkTarget; }

    ShownFamily family;
    Person& ann = family.add(100, 1);
    Person& bob = family.add(400, 1);
    TreeView* view = nullptr;
    std::optional<Hand> hand;
    Announcements announced{family.pool};
    std::optional<createLinkNotification> request_;
    Subscription requests_;
};

} // namespace lineara
