#include <QtCore/QCoreApplication>
#include <QtCore/QTemporaryDir>

#include <gmock/gmock.h>

int main(int argc, char **argv)
{
    const QTemporaryDir data;
    qputenv("XDG_DATA_HOME", data.path().toLocal8Bit());
    QCoreApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
