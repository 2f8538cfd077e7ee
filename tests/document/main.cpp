#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // Settings of the user who runs the tests are no concern of theirs.
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("lineara"));
    QApplication::setApplicationName(QStringLiteral("document_tests"));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
