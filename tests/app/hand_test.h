#pragma once

#include "hand.h"
#include "hang_guard.h"
#include "opened_program.h"

#include <gtest/gtest.h>

#include <string>

class QMenu;

namespace lineara {

/// A test that sits before the running program. What it does, by mouse or by keyboard, waits until the program has
/// followed and fails where it does not. A picture of the screen is kept of every test that fails.
class HandTest : public testing::Test
{
protected:
    HandTest();
    void TearDown() override;

    /// A new family, begun in the start window.
    void beginByMouse();
    void beginByKeys();

    void chooseByMouse(QMenu& menu, const QString& command);
    /// In the Edit menu.
    void editByMouse(const QString& command) { chooseByMouse(editMenu(), command); }

    /// Adds a person without a name.
    void addByMouse();
    /// Pulls the person added last to where its node's left edge is x points from the canvas's.
    void placeByMouse(int x);

    /// Adds a person and types its name.
    void addByKeys(const QString& name);
    /// Types the name of the person just added.
    void nameByKeys(const QString& name);

    /// Scrolls to the other person first, if that stands below what is seen.
    void dragToLink(std::size_t from, NodePart handle, std::size_t to);
    void scrollToByMouse(std::size_t person);
    /// Presses the keys of a command that links the selected person, and picks the other in the dialog.
    void linkByKeys(const QString& keys, const QString& other);

    /// Waits until everybody has come to rest in these generations.
    void expectGenerations(const Generations& expected);

    /// The text of the family's file after saving, which the first time asks where.
    QString savedByMouse();
    QString savedByKeys();

    OpenedProgram& program() { return program_; }
    DocumentWindow& window() { return *window_; }

private:
    QMenu& editMenu() const;
    void familyAppears();
    QString file() const { return program_.homePath(QStringLiteral("Lineara.lineara")); }
    QString textOfFile();

    HangGuard guard_;
    OpenedProgram program_;
    DocumentWindow* window_ = nullptr;
};

enum class Named : bool
{
    No,
    Yes
};

/// What a file is to hold, with the marks of marked(). A hand at the mouse alone gives nobody a name.
std::string expectedText(const char* file, Named named);

/// The text with marks in place of what is different each time: the family's UUID, and where its persons stand.
std::string marked(QString text);

} // namespace lineara
