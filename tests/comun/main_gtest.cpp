// Main of every GoogleTest program: an application object on the offscreen platform, so that
// fonts and painting work without a screen, and a fixed "today".
#include <QGuiApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("F931_HOY"))
        qputenv("F931_HOY", "2026-11-22");
    QGuiApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
