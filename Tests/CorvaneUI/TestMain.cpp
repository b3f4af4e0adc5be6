#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>

#include <gtest/gtest.h>

// What the program records goes to a folder of this process's own, what it draws to no screen.
int main(int argc, char **argv)
{
    const QTemporaryDir data;
    qputenv("XDG_DATA_HOME", data.path().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
