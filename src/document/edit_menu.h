#pragma once

#include <QList>
#include <QString>

#include <functional>
#include <optional>

class QAction;
class QMenu;

namespace lineara {

/// What the commands of the Edit menu and the Person menu do.
struct EditCommands
{
    std::function<void()> undo;
    std::function<void()> redo;
    std::function<void()> addPerson;
    std::function<void()> remove;
    std::function<void()> editName;
    std::function<void()> setPicture;
    std::function<void()> removePicture;
    std::function<void()> linkAsPartner;
    std::function<void()> linkAsChild;
    std::function<void()> find;
    std::function<void()> tidyUp;
    std::function<void()> tidyAncestors;
    std::function<void()> tidyDescendants;
};

/// What these commands depend on.
struct EditState
{
    bool canEdit = false;            ///< the family is ready to be changed
    std::optional<QString> undoName; ///< no value if there is nothing to undo
    std::optional<QString> redoName;
    QString selectionType;
    bool canRemove = false;
    bool hasPicture = false; ///< the selected person has one
};

/// The Edit menu and the Person menu of a family's window: texts that say what a command will do to what, and its
/// shortcuts.
class EditMenu
{
public:
    EditMenu(QMenu& edit, QMenu& person, const EditCommands& commands);

    void show(const EditState& state);

    /// The commands that a family is built and mended with, for showing them outside of the menu, too.
    QList<QAction*> mainCommands() const { return {addPerson_, remove_, undo_, redo_}; }

    QAction& addPersonCommand() const { return *addPerson_; }

private:
    QAction* undo_;
    QAction* redo_;
    QAction* addPerson_;
    QAction* remove_;
    QAction* editName_;
    QAction* setPicture_;
    QAction* removePicture_;
    QAction* linkAsPartner_;
    QAction* linkAsChild_;
    QAction* find_;
    QAction* tidyUp_;
    QAction* tidyAncestors_;
    QAction* tidyDescendants_;
};

} // namespace lineara
