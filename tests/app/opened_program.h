#pragma once

#include "app/app_delegate.h"
#include "elements/leaf_view.h"
#include "elements/link_layer.h"

#include <QPoint>
#include <QTemporaryDir>

#include <optional>
#include <vector>

class QAbstractButton;
class QDialog;
class QMenu;

namespace lineara {

class DocumentWindow;
class Pool;
class TreeView;

using Generations = std::vector<std::optional<int>>;

/// The whole program with a home of its own, as it is after its start. Says where on the screen things lie, and what
/// the program shows; nothing here changes anything.
class OpenedProgram
{
public:
    OpenedProgram();
    /// In a home that is there already.
    explicit OpenedProgram(const QString& home);
    ~OpenedProgram();
    OpenedProgram(const OpenedProgram&) = delete;
    OpenedProgram& operator=(const OpenedProgram&) = delete;

    AppDelegate& delegate() { return *delegate_; }
    QWidget& startWindow() const;
    /// The window of the one family that is open; nullptr before its canvas is there.
    DocumentWindow* familyWindow() const;
    TreeView& canvas() const;
    Pool& pool() const;
    /// The dialog in front; nullptr without one.
    QDialog* dialog() const;

    /// Persons are counted from 0 in the order in which they joined the family.
    LeafView& node(std::size_t person) const;
    std::size_t personCount() const;
    /// One for each person.
    Generations generations() const;
    /// Everybody who has a generation stands in its row, and rows are spaced.
    bool isAtRest() const;

    QPoint at(std::size_t person, NodePart part) const;
    /// A point where a link, and nothing else, lies.
    QPoint at(const LinkLayer& link) const;
    LinkLayer* link(std::size_t source, std::size_t target) const;
    QPoint at(CanvasPoint point) const;
    static QPoint at(const QWidget& widget);
    /// A title of the menu bar, and a command of a menu that is open.
    QPoint at(const QMenu& menu) const;
    static QPoint at(const QMenu& menu, const QString& command);
    /// Whether the menu has the command now, and it can be given.
    static bool offers(const QMenu& menu, const QString& command);

    QString homePath(const QString& name) const { return home_ + QLatin1Char('/') + name; }

private:
    QTemporaryDir ownHome_;
    QString home_;
    std::optional<AppDelegate> delegate_;
};

} // namespace lineara
