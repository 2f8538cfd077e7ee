#pragma once

#include <QCoreApplication>
#include <QWidget>

#include <functional>

class QAction;
class QLabel;
class QPushButton;

namespace lineara {

/// What stands where the canvas will be while the family is empty: how a family begins, and buttons to begin it with.
/// White in every theme, as the canvas is.
class OnboardingView : public QWidget
{
    Q_DECLARE_TR_FUNCTIONS(OnboardingView)

public:
    OnboardingView();

    /// The button gives this command, can be pressed when it can be given, and its shortcut is named. The command must
    /// live as long as the view.
    void setAddPerson(QAction& command);

    /// Offers to import a family, which nobody does until this is called.
    void setImport(std::function<void()> import);

private:
    QLabel* hint_;
    QPushButton* addPerson_;
    QPushButton* import_;
    QLabel* importHint_;
};

} // namespace lineara
