#pragma once

#include "recovery_offer.h"

#include <QList>
#include <QMainWindow>
#include <QStringList>

#include <functional>
#include <optional>

class QLabel;
class QMenu;

namespace lineara {

class RecentTable;
class RecoveryPanel;

/// What the start window leads to.
struct StartCommands
{
    std::function<void()> openNew;
    std::function<void()> open;
    std::function<void()> import;                            ///< empty if nothing can be imported
    std::function<void()> openSample;                        ///< empty if there is no sample
    std::function<void(const QStringList& paths)> openFiles; ///< files that were dropped onto the window
    std::function<void(const QString& id)> recover;
    std::function<void(const QString& id)> discard; ///< the user was asked already
    std::function<void()> closed;                   ///< the user has closed the window
};

/// The window shown while no family is open: ways to begin, the families opened lately, and what could be saved of
/// work that a crash cut short. It shows what it is given and keeps nothing. White in every theme.
class StartWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit StartWindow(StartCommands commands);

    QMenu* fileMenu() const { return fileMenu_; }
    QMenu* windowMenu() const { return windowMenu_; }
    QMenu* helpMenu() const { return helpMenu_; }

    /// The table of recent families; whoever fills it calls showRecent() afterwards.
    RecentTable& recentTable() const { return *recentTable_; }
    /// Shows the table, or where it has no rows a word about what will be there.
    void showRecent();

    /// Replaces the offers that are shown. One that is discarded goes by itself.
    void setRecoveryOffers(const QList<RecoveryOffer>& offers);

    void setVisible(bool visible) override;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    QWidget* makeContent();
    QWidget* makeWelcome();
    QWidget* makeRecent();
    QWidget* makeButton(const QString& text, const QString& name, const std::function<void()>& command);

    StartCommands commands_;
    QMenu* fileMenu_ = nullptr;
    QMenu* windowMenu_ = nullptr;
    QMenu* helpMenu_ = nullptr;
    RecoveryPanel* recoveryPanel_ = nullptr;
    RecentTable* recentTable_ = nullptr;
    QLabel* noneYet_ = nullptr;
    std::optional<QPoint> place_; // where it was when it was hidden
};

} // namespace lineara
