#include "quiet_log.h"

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

/// Ends a test at its first failed assertion, also where that stands in a function which the test calls: a hand that
/// missed must not go on clicking.
class EndingAtFailure : public testing::EmptyTestEventListener
{
    void OnTestPartResult(const testing::TestPartResult& result) override
    {
        if (result.fatally_failed())
            throw testing::AssertionException(result);
    }
};

} // namespace

int main(int argc, char** argv)
{
    // What is clicked is drawn by the program itself, on whatever desktop the tests are run.
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("lineara"));
    QApplication::setApplicationName(QStringLiteral("lineara"));
    // Settings of the user who runs the tests are no concern of theirs.
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    // The hand that the tests move is that of a display; without one they could only pretend.
    if (QApplication::platformName() != QStringLiteral("xcb")) {
        qCritical("these tests need an X display of their own, not the platform %s",
                  qPrintable(QApplication::platformName()));
        return 1;
    }
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new EndingAtFailure);
    testing::UnitTest::GetInstance()->listeners().Append(new lineara::QuietLog);
    return RUN_ALL_TESTS();
}
