#include "quiet_log.h"
#include "quiet_platform.h"

#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // Settings of the user who runs the tests are no concern of theirs.
    const QTemporaryDir settings;
    for (const char* const folder : {"XDG_CONFIG_HOME", "XDG_DATA_HOME"})
        qputenv(folder, settings.path().toLocal8Bit());
    lineara::quietPlatform();
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("lineara"));
    QApplication::setApplicationName(QStringLiteral("document_tests"));
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new lineara::QuietLog);
    return RUN_ALL_TESTS();
}
