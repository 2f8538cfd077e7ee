#include "edit_menu.h"

#include "document/selection.h"
#include "model/pool.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>

namespace lineara {

namespace {

QString text(const char* source)
{
    return QCoreApplication::translate("EditMenu", source);
}

QAction* add(QMenu& menu, const QString& name, const QKeySequence& shortcut, const std::function<void()>& command)
{
    QAction* const action = menu.addAction(name);
    action->setShortcut(shortcut);
    action->setEnabled(false);
    QObject::connect(action, &QAction::triggered, action, command);
    return action;
}

QString removeText(const QString& selectionType)
{
    if (selectionType == Selection::ofPerson())
        return text("&Remove Person");
    if (selectionType == partnerLink)
        return text("&Remove Partner Link");
    if (selectionType == offspringLink)
        return text("&Remove Child Link");
    return text("&Remove");
}

void showHistory(QAction& action, const QString& verb, const std::optional<QString>& step, bool canEdit)
{
    action.setText(step ? verb + QLatin1Char(' ') + *step : verb);
    action.setEnabled(canEdit && step);
}

} // namespace

EditMenu::EditMenu(QMenu& menu, const EditCommands& commands)
    : undo_(add(menu, text("&Undo"), QKeySequence(Qt::CTRL | Qt::Key_Z), commands.undo)),
      redo_(add(menu, text("Re&do"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), commands.redo))
{
    menu.addSeparator();
    addPerson_ = add(menu, text("&Add Person"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_N), commands.addPerson);
    remove_ = add(menu, removeText(Selection::none()), QKeySequence(QKeySequence::Delete), commands.remove);
    editName_ = add(menu, text("Edit &Name"), QKeySequence(Qt::Key_F2), commands.editName);
    setPicture_ =
        add(menu, text("Set Pic&ture\u2026"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_I), commands.setPicture);
    removePicture_ =
        add(menu, text("Re&move Picture"), QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_I), commands.removePicture);
    menu.addSeparator();
    linkAsPartner_ = add(menu, text("Link as &Partner of\u2026"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P),
                         commands.linkAsPartner);
    linkAsChild_ = add(menu, text("Link as &Child of\u2026"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C),
                       commands.linkAsChild);
    menu.addSeparator();
    find_ = add(menu, text("&Find\u2026"), QKeySequence(QKeySequence::Find), commands.find);
    // As buttons they keep their width whatever they are about to change.
    undo_->setIconText(text("Undo"));
    redo_->setIconText(text("Redo"));
    remove_->setIconText(text("Remove"));
}

void EditMenu::show(const EditState& state)
{
    showHistory(*undo_, text("&Undo"), state.undoName, state.canEdit);
    showHistory(*redo_, text("Re&do"), state.redoName, state.canEdit);
    addPerson_->setEnabled(state.canEdit);
    remove_->setText(removeText(state.selectionType));
    remove_->setEnabled(state.canEdit && state.canRemove);
    const bool hasPerson = state.canEdit && state.canRemove && state.selectionType == Selection::ofPerson();
    editName_->setEnabled(hasPerson);
    setPicture_->setEnabled(hasPerson);
    removePicture_->setEnabled(hasPerson && state.hasPicture);
    linkAsPartner_->setEnabled(hasPerson);
    linkAsChild_->setEnabled(hasPerson);
    find_->setEnabled(state.canEdit);
}

} // namespace lineara
