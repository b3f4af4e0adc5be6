#include "UpdateHelper.h"

#include <QtCore/QCoreApplication>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    return corvane::UpdateHelper::run(
        QCoreApplication::arguments(), {.keys = corvane::builtInKeys()});
}
