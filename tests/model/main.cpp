#include <QGuiApplication>

#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    // Image formats are plugins, and those are found through the application.
    const QGuiApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
