#pragma once

#include "hand.h"

#include <gtest/gtest.h>

#include <optional>

namespace lineara {

/// A family under the left button.
class DraggedNode : public testing::Test
{
protected:
    void show(QSize viewport = {900, 600})
    {
        view = &family.processAndShow(viewport);
        hand.emplace(*view);
    }
    /// Persons keep the rows that they were added in.
    void showRows()
    {
        addManyRows(family);
        view = &family.show();
        view->actualSize();
        hand.emplace(*view);
    }
    Journal& journal() { return family.context.journal(); }

    ShownFamily family;
    TreeView* view = nullptr;
    std::optional<Hand> hand;
    Announcements announced{family.pool};
};

} // namespace lineara
