#include <gmock/gmock.h>

#include <QGuiApplication>

// Fonts, pixmaps and painters need an application object.
int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
