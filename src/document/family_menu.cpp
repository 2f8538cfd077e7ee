#include "family_menu.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>

namespace lineara {

namespace {

struct FamilyTexts
{
    Q_DECLARE_TR_FUNCTIONS(FamilyTexts)
};

QAction* addTo(QMenu& menu, const QString& text, const QKeySequence& shortcut)
{
    QAction* const action = menu.addAction(text);
    action->setShortcut(shortcut);
    action->setEnabled(false);
    return action;
}

} // namespace

FamilyMenu::FamilyMenu(QMenu& menu, const FamilyCommands& commands)
    : relationship_(addTo(menu, FamilyTexts::tr("&Relationship\u2026"), QKeySequence(Qt::CTRL | Qt::Key_R)))
{
    menu.addSeparator();
    ancestors_ = addTo(menu, FamilyTexts::tr("Highlight &Ancestors"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_A));
    descendants_ =
        addTo(menu, FamilyTexts::tr("Highlight &Descendants"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_D));
    all_ = addTo(menu, FamilyTexts::tr("&Show All"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_R));
    menu.addSeparator();
    checks_ = addTo(menu, FamilyTexts::tr("&Checks"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_K));
    checks_->setCheckable(true);
    QObject::connect(relationship_, &QAction::triggered, relationship_, commands.relationship);
    QObject::connect(ancestors_, &QAction::triggered, ancestors_, commands.highlightAncestors);
    QObject::connect(descendants_, &QAction::triggered, descendants_, commands.highlightDescendants);
    QObject::connect(all_, &QAction::triggered, all_, commands.showAll);
    QObject::connect(checks_, &QAction::triggered, checks_, commands.showChecks);
}

void FamilyMenu::show(const FamilyState& state)
{
    relationship_->setEnabled(state.hasFamily && state.hasPerson);
    ancestors_->setEnabled(state.hasFamily && state.hasPerson);
    descendants_->setEnabled(state.hasFamily && state.hasPerson);
    all_->setEnabled(state.isHighlighting);
    checks_->setEnabled(state.hasFamily);
}

void FamilyMenu::showWhetherChecking(bool checking)
{
    checks_->setChecked(checking);
}

} // namespace lineara
