#pragma once

#include <functional>

class QAction;
class QMenu;

namespace lineara {

/// What the commands of the Family menu do.
struct FamilyCommands
{
    std::function<void()> relationship;
    std::function<void()> highlightAncestors;
    std::function<void()> highlightDescendants;
    std::function<void()> showAll;
    std::function<void(bool)> showChecks;
};

/// What these commands depend on.
struct FamilyState
{
    bool hasFamily = false; ///< the family is there to be looked at
    bool hasPerson = false; ///< one is selected
    bool isHighlighting = false;
};

/// The Family menu of a family's window, and its shortcuts.
class FamilyMenu
{
public:
    FamilyMenu(QMenu& menu, const FamilyCommands& commands);

    void show(const FamilyState& state);
    /// The panel can be closed without the menu, too.
    void showWhetherChecking(bool checking);

private:
    QAction* relationship_;
    QAction* ancestors_;
    QAction* descendants_;
    QAction* all_;
    QAction* checks_;
};

} // namespace lineara
