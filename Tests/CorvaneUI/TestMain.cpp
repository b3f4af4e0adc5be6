#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

// What the program records goes to a folder of this process's own.
int main(int argc, char **argv)
{
    const QTemporaryDir data;
    qputenv("XDG_DATA_HOME", data.path().toLocal8Bit());
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
