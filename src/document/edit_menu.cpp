#include "edit_menu.h"

#include "document/selection.h"
#include "model/pool.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>

namespace lineara {

namespace {

struct EditTexts
{
    Q_DECLARE_TR_FUNCTIONS(EditTexts)
};

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
        return EditTexts::tr("&Remove Person");
    if (selectionType == partnerLink)
        return EditTexts::tr("&Remove Partner Link");
    if (selectionType == offspringLink)
        return EditTexts::tr("&Remove Child Link");
    return EditTexts::tr("&Remove");
}

/// `verb` stands alone, `phrase` has a place for the step.
void showHistory(QAction& action, const QString& verb, const QString& phrase, const std::optional<QString>& step,
                 bool canEdit)
{
    action.setText(step ? phrase.arg(*step) : verb);
    action.setEnabled(canEdit && step);
}

} // namespace

EditMenu::EditMenu(QMenu& edit, QMenu& person, const EditCommands& commands)
    : undo_(add(edit, EditTexts::tr("&Undo"), QKeySequence(Qt::CTRL | Qt::Key_Z), commands.undo)),
      redo_(add(edit, EditTexts::tr("Re&do"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), commands.redo))
{
    edit.addSeparator();
    remove_ = add(edit, removeText(Selection::none()), QKeySequence(QKeySequence::Delete), commands.remove);
    edit.addSeparator();
    find_ = add(edit, EditTexts::tr("&Find\u2026"), QKeySequence(QKeySequence::Find), commands.find);
    edit.addSeparator();
    tidyUp_ = add(edit, EditTexts::tr("&Tidy Up"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_T), commands.tidyUp);
    tidyAncestors_ = add(edit, EditTexts::tr("Tidy Up An&cestors"), {}, commands.tidyAncestors);
    tidyDescendants_ = add(edit, EditTexts::tr("Tidy Up De&scendants"), {}, commands.tidyDescendants);
    addPerson_ =
        add(person, EditTexts::tr("&Add Person"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_N), commands.addPerson);
    person.addSeparator();
    editName_ = add(person, EditTexts::tr("Edit &Name"), QKeySequence(Qt::Key_F2), commands.editName);
    setPicture_ = add(person, EditTexts::tr("Set Pic&ture\u2026"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_I),
                      commands.setPicture);
    removePicture_ = add(person, EditTexts::tr("Re&move Picture"), QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_I),
                         commands.removePicture);
    person.addSeparator();
    linkAsPartner_ = add(person, EditTexts::tr("Link as &Partner of\u2026"),
                         QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P), commands.linkAsPartner);
    linkAsChild_ = add(person, EditTexts::tr("Link as &Child of\u2026"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C),
                       commands.linkAsChild);
    // As buttons they keep their width whatever they are about to change.
    undo_->setIconText(EditTexts::tr("Undo"));
    redo_->setIconText(EditTexts::tr("Redo"));
    remove_->setIconText(EditTexts::tr("Remove"));
}

void EditMenu::show(const EditState& state)
{
    showHistory(*undo_, EditTexts::tr("&Undo"), EditTexts::tr("&Undo %1"), state.undoName, state.canEdit);
    showHistory(*redo_, EditTexts::tr("Re&do"), EditTexts::tr("Re&do %1"), state.redoName, state.canEdit);
    addPerson_->setEnabled(state.canEdit);
    remove_->setText(removeText(state.selectionType));
    remove_->setEnabled(state.canEdit && state.canRemove);
    const bool hasPerson = state.canEdit && state.canRemove && state.selectionType == Selection::ofPerson();
    editName_->setEnabled(hasPerson);
    setPicture_->setEnabled(hasPerson);
    removePicture_->setEnabled(hasPerson && state.hasPicture);
    linkAsPartner_->setEnabled(hasPerson);
    linkAsChild_->setEnabled(hasPerson);
    tidyAncestors_->setEnabled(hasPerson);
    tidyDescendants_->setEnabled(hasPerson);
    find_->setEnabled(state.canEdit);
    tidyUp_->setEnabled(state.canEdit);
}

} // namespace lineara
