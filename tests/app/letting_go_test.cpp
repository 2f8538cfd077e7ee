// What closing a window lets go of, and what it does not.

#include "document/test_files.h"
#include "hand.h"
#include "opened_program.h"

#include "document/document_window.h"

#include <QAction>
#include <QFile>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace lineara {

namespace {

class LettingGo : public testing::Test
{
protected:
    LettingGo()
    {
        program_.delegate().open({path_});
        EXPECT_TRUE(waitUntil([this] { return program_.familyWindow(); }));
        window_ = program_.familyWindow();
        Hand::bringToFront(*window_);
    }

    QByteArray written() const
    {
        QFile file(path_);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    static void choose(const QMenu& menu, const QString& name)
    {
        for (QAction* const action : menu.actions()) {
            if (QString(action->text()).remove(QLatin1Char('&')) == name)
                action->trigger();
        }
    }
    std::array<QMenu*, 3> menus() const { return {window_->fileMenu(), window_->editMenu(), window_->personMenu()}; }
    QPlainTextEdit& notes() const { return *window_->findChild<QPlainTextEdit*>(); }
    /// Types into the notes of the person in the first row.
    void typeNotes(const QString& text)
    {
        auto* const table = window_->findChild<QTableView*>();
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                          table->visualRect(table->model()->index(0, 0)).center());
        ASSERT_TRUE(waitUntil([this] { return window_->findChild<QPlainTextEdit*>(); }));
        notes().setFocus();
        QTest::keyClicks(&notes(), text);
    }

    const TestFiles files_;
    const QString path_ = files_.save(QStringLiteral("family.lineara"), *threeGenerations());
    OpenedProgram program_;
    DocumentWindow* window_ = nullptr;
};

#ifdef LINEARA_SANITIZED
constexpr int closings = 10;
#else
constexpr int closings = 60;
#endif

} // namespace

TEST_F(LettingGo, AWindowThatIsClosedJustAfterSavingStillWritesTheFile)
{
    typeNotes(QStringLiteral("Typed before saving"));
    choose(*window_->fileMenu(), QStringLiteral("Save"));
    window_->close();
    EXPECT_TRUE(waitUntil([this] { return written().contains("Typed before saving"); }));
    EXPECT_TRUE(waitUntil([this] { return !program_.familyWindow(); }));
}

TEST_F(LettingGo, WhatIsBeingTypedIsOfferedBackWhenAnotherFamilyIsOpenedInstead)
{
    typeNotes(QStringLiteral("Not saved"));
    choose(*window_->fileMenu(), QStringLiteral("New"));
    ASSERT_TRUE(waitUntil([this] { return program_.familyWindow() && program_.familyWindow() != window_; }));
    window_ = program_.familyWindow();
    ASSERT_TRUE(waitUntil([this] { return window_->findChild<QPushButton*>(QStringLiteral("noticeCommand")); }));
    window_->findChild<QPushButton*>(QStringLiteral("noticeCommand"))->click();
    ASSERT_TRUE(waitUntil([this] { return program_.familyWindow() && program_.familyWindow() != window_; }));
    window_ = program_.familyWindow();
    EXPECT_TRUE(window_->isWindowModified());
    EXPECT_EQ(window_->windowTitle(), QStringLiteral("family.lineara[*]"));
    EXPECT_EQ(program_.pool().persons()[0]->additional(), QStringLiteral("Not saved"));
    EXPECT_FALSE(written().contains("Not saved"));
}

TEST_F(LettingGo, AWindowMayBeClosedAtAnyMoment)
{
    std::mt19937 random(3);
    const std::array gestures{QStringLiteral("Add Person"), QStringLiteral("Remove Person"), QStringLiteral("Undo"),
                              QStringLiteral("Find\u2026"), QStringLiteral("Save")};
    for (int round = 0; round < closings; ++round) {
        typeNotes(QString::number(round));
        for (auto gesture = random() % 3; gesture > 0; --gesture)
            choose(*menus()[random() % menus().size()], gestures[random() % gestures.size()]);
        for (auto event = random() % 12; event > 0; --event)
            QApplication::processEvents();
        window_->close();
        ASSERT_TRUE(waitUntil([this] {
            // Asked as soon as a file that is being written has been.
            if (QDialog* const question = program_.dialog())
                question->done(QMessageBox::Discard);
            return !program_.familyWindow();
        })) << round;
        program_.delegate().open({path_});
        ASSERT_TRUE(waitUntil([this] { return program_.familyWindow(); })) << round;
        window_ = program_.familyWindow();
        Hand::bringToFront(*window_);
    }
}

TEST_F(LettingGo, AFamilyWithoutChangesMakesRoomForAnother)
{
    choose(*window_->fileMenu(), QStringLiteral("New"));
    EXPECT_TRUE(waitUntil([this] { return program_.familyWindow() && program_.familyWindow() != window_; }));
}

} // namespace lineara
