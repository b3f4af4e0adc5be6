#include "ContractWorld.h"

#include <QtCore/QDeadlineTimer>

#include <ostream>

namespace corvane {

bool ContractWorld::waitUntil(const std::function<bool()> &condition)
{
    const QDeadlineTimer deadline(std::chrono::seconds(5));
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        pump();
    }
    return true;
}

void PrintTo(const ContractWorldFactory &factory, std::ostream *stream)
{
    *stream << factory.name;
}

} // namespace corvane
