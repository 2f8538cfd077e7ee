// The program ends without its user's wish: killed, asked to by a signal, or with the session. What was unsaved is had
// back by the next start.

#include "document_life.h"
#include "recent_table.h"
#include "running_program.h"

#include <QGuiApplication>
#include <QPushButton>
#include <QSessionManager>
#include <QTest>

#include <csignal>

namespace lineara {

using testing::SizeIs;

namespace {

#ifdef LINEARA_SANITIZED
constexpr int hugeFamily = 30'000; // persons
#else
constexpr int hugeFamily = 200'000;
#endif

constexpr int typingArrives = 500; // milliseconds

class ProgramEnd : public testing::Test
{
protected:
    /// A program with the family, in which somebody has just been added.
    std::unique_ptr<RunningProgram> runningWithAChange() const
    {
        auto program = std::make_unique<RunningProgram>(home_.path(), QStringList{path_});
        program->bringToFront(QStringLiteral("Lee.lineara"));
        // The keys wait for the canvas like everybody else.
        Hand::focus(QStringLiteral("Lee.lineara"));
        return program;
    }
    void addNewcomer(const RunningProgram& program) const
    {
        waitUntil([&] {
            program.bringToFront(QStringLiteral("Lee.lineara"));
            Hand::key(QStringLiteral("ctrl+shift+n"));
            return !program.keptFamilies().isEmpty();
        });
    }
    QByteArray written() const
    {
        QFile file(path_);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    /// Opens what the start window of a new program offers, by the mouse.
    void expectRecoveredByMouse()
    {
        OpenedProgram next(home_.path());
        Hand::bringToFront(next.startWindow());
        auto* const button = next.startWindow().findChild<QPushButton*>(QStringLiteral("recoverButton"));
        ASSERT_TRUE(button && button->isVisible());
        Hand::click(OpenedProgram::at(*button));
        ASSERT_TRUE(waitUntil(
            [&] { return next.familyWindow() && next.delegate().documentController().documents().size() == 1; }));
        EXPECT_EQ(next.familyWindow()->windowTitle(), QStringLiteral("Lee.lineara[*]"));
        EXPECT_TRUE(waitUntil([&] { return next.familyWindow()->isWindowModified(); }));
        EXPECT_GT(next.personCount(), 5U);
        EXPECT_TRUE(next.delegate().documentController().documents().front()->hasOwnFile());
    }

    HangGuard guard_;
    const TestFiles files_;
    const QTemporaryDir home_;
    const QString path_ = files_.save(QStringLiteral("Lee.lineara"), *threeGenerations());
};

} // namespace

TEST_F(ProgramEnd, WhatAKilledProgramHadUnsavedIsRecoveredByTheMouse)
{
    const QByteArray before = written();
    {
        const auto program = runningWithAChange();
        addNewcomer(*program);
        ASSERT_THAT(program->keptFamilies(), SizeIs(1));
        program->send(SIGKILL);
        EXPECT_EQ(program->waitForEnd(), -SIGKILL);
    }
    EXPECT_EQ(written(), before);
    expectRecoveredByMouse();
}

TEST_F(ProgramEnd, ASignalToEndKeepsWhatIsUnsavedAndEndsInOrder)
{
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        const auto program = runningWithAChange();
        addNewcomer(*program);
        // Its own copy comes later than the signal.
        Hand::type(QStringLiteral("Zoe"));
        QTest::qWait(typingArrives);
        program->send(signal);
        EXPECT_EQ(program->waitForEnd(), 0);
        ASSERT_THAT(program->keptFamilies(), SizeIs(1));
        QFile kept(
            home_.filePath(QStringLiteral(".local/share/lineara/lineara/recovery/") + program->keptFamilies()[0]));
        ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
        EXPECT_TRUE(kept.readAll().contains("Zoe"));
        if (signal != SIGHUP)
            kept.remove();
    }
    expectRecoveredByMouse();
}

TEST_F(ProgramEnd, ASignalToEndDoesNotWaitForAFamilyThatIsBeingOpened)
{
    const auto family = std::make_unique<ObjectContext>();
    Pool& pool = family->insertPool();
    for (int person = 0; person < hugeFamily; ++person)
        pool.addPerson(family->insertPerson({}));
    const QString huge = files_.save(QStringLiteral("huge.lineara"), *family);
    RunningProgram program(home_.path(), {huge});
    // Whoever reads a file has its lock before.
    const QDir locks(home_.filePath(QStringLiteral(".local/share/lineara/lineara/locks")));
    ASSERT_TRUE(waitUntil([&] { return !locks.entryList(QDir::Files).isEmpty(); }));
    program.send(SIGTERM);
    EXPECT_EQ(program.waitForEnd(), 0);
}

TEST_F(DocumentLife, TheEndOfTheSessionWaitsUntilUnsavedChangesAreKept)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    rename(lee, QStringLiteral("Ann"));
    auto* const session = qApp->findChild<QSessionManager*>();
    ASSERT_TRUE(session);
    Q_EMIT qGuiApp->commitDataRequest(*session);
    // Here the session would go on with ending.
    const auto kept = lee.keptWork();
    ASSERT_TRUE(kept);
    QFile copy(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/recovery/") +
               kept->id + QStringLiteral(".lineara"));
    ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
    EXPECT_TRUE(copy.readAll().contains("Ann"));
    EXPECT_EQ(session->restartHint(), QSessionManager::RestartNever);
    EXPECT_EQ(program_.dialog(), nullptr);
    // It may be called off: the family is still there.
    EXPECT_TRUE(lee.window().isVisible());
    EXPECT_TRUE(lee.isModified());
}

TEST_F(ProgramEnd, ASecondStartInTheSameHomeKnowsWhatTheFirstOneOpened)
{
    {
        OpenedProgram first(home_.path());
        first.delegate().open({path_});
        ASSERT_TRUE(waitUntil([&] { return first.familyWindow(); }));
    }
    OpenedProgram second(home_.path());
    Hand::bringToFront(second.startWindow());
    RecentTable& table = second.delegate().window().recentTable();
    ASSERT_GE(table.rowCount(), 1);
    const QRect row = table.visualRect(table.model()->index(0, 0));
    Hand::doubleClick(table.viewport()->mapToGlobal(row.center()));
    ASSERT_TRUE(waitUntil([&] { return second.familyWindow(); }));
    EXPECT_EQ(second.familyWindow()->windowFilePath(), path_);
    EXPECT_TRUE(waitUntil([&] { return !second.delegate().window().isVisible(); }));
}

} // namespace lineara
