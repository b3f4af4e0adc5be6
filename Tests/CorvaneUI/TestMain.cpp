#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>

#include <gtest/gtest.h>

// What the program keeps goes to a folder of this process's own, what it draws to no screen.
int main(int argc, char **argv)
{
    const QTemporaryDir folder;
    for (const char *variable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"})
        qputenv(variable, folder.path().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
