// Quitting and saving by mouse and keyboard alone: what is asked, and what each answer leads to.

#include "document_life.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace lineara {

using testing::IsEmpty;

namespace {

class Quitting : public DocumentLife
{
protected:
    /// Quits a program with a changed family, and answers.
    void quitAndAnswer(QMessageBox::StandardButton answer)
    {
        Document& lee = opened(QStringLiteral("Lee.lineara"));
        path_ = lee.path();
        rename(lee, QStringLiteral("Ann"));
        Hand::key(QStringLiteral("ctrl+q"));
        ASSERT_TRUE(waitUntil([this] { return box(QStringLiteral("closeQuestion")); }));
        Hand::bringToFront(*box(QStringLiteral("closeQuestion")));
        Hand::click(OpenedProgram::at(*box(QStringLiteral("closeQuestion"))->button(answer)));
        ASSERT_TRUE(waitUntil([this] { return !box(QStringLiteral("closeQuestion")); }));
    }
    /// The program ends when its event loop is told to.
    static bool ends()
    {
        QTimer patience;
        patience.setSingleShot(true);
        QObject::connect(&patience, &QTimer::timeout, &patience, [] { QCoreApplication::exit(1); });
        patience.start(15'000);
        return QCoreApplication::exec() == 0;
    }

    QString path_;
};

} // namespace

TEST_F(Quitting, TheFirstAnswerSavesAndEndsTheProgram)
{
    QTimer::singleShot(0, qApp, [this] { quitAndAnswer(QMessageBox::Save); });
    EXPECT_TRUE(ends());
    EXPECT_TRUE(bytes(path_).contains("Ann"));
    EXPECT_EQ(count(), 0);
    EXPECT_THAT(RecoveryCopy::left(), IsEmpty());
}

TEST_F(Quitting, TheSecondLosesTheChangesAndEndsTheProgram)
{
    QTimer::singleShot(0, qApp, [this] { quitAndAnswer(QMessageBox::Discard); });
    EXPECT_TRUE(ends());
    EXPECT_FALSE(bytes(path_).contains("Ann"));
    EXPECT_EQ(count(), 0);
    EXPECT_THAT(RecoveryCopy::left(), IsEmpty());
}

TEST_F(Quitting, TheThirdGoesOnWithEverythingAsItWas)
{
    quitAndAnswer(QMessageBox::Cancel);
    QTest::qWait(100);
    ASSERT_EQ(count(), 1);
    EXPECT_TRUE(document().window().isVisible());
    EXPECT_TRUE(document().isModified());
    EXPECT_FALSE(program_.delegate().window().isVisible());
    EXPECT_FALSE(bytes(path_).contains("Ann"));
}

TEST_F(Quitting, SaveAsAsksForAFileWhichIsTheFamilysFromThenOn)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    const QByteArray before = bytes(lee.path());
    const QString first = lee.path();
    rename(lee, QStringLiteral("Ann"));
    Hand::key(QStringLiteral("ctrl+shift+s"));
    ASSERT_TRUE(waitUntil([this] { return dynamic_cast<QFileDialog*>(program_.dialog()); }));
    auto& dialog = dynamic_cast<QFileDialog&>(*program_.dialog());
    EXPECT_EQ(dialog.selectedFiles().value(0), first);
    Hand::bringToFront(dialog);
    Hand::key(QStringLiteral("ctrl+a"));
    Hand::type(QStringLiteral("Second"));
    Hand::click(OpenedProgram::at(*dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)));
    ASSERT_TRUE(waitUntil([&] { return lee.name() == QStringLiteral("Second.lineara") && !lee.isModified(); }));
    EXPECT_EQ(lee.window().windowTitle(), QStringLiteral("Second.lineara[*]"));
    EXPECT_TRUE(bytes(files_.path(QStringLiteral("Second.lineara"))).contains("Ann"));
    EXPECT_EQ(bytes(first), before);
}

} // namespace lineara
