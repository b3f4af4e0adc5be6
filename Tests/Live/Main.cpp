#include "LiveDesk.h"

#include <QtCore/QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    const int status = RUN_ALL_TESTS();
    corvane::desktop::LiveDesk::end();
    return status;
}
