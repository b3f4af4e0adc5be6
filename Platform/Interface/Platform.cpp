#include "Platform.h"

#include <utility>

namespace corvane {

namespace {
Platform *currentPlatform = nullptr;
}

Platform::Platform() : m_previous(std::exchange(currentPlatform, this)) { }

Platform::~Platform()
{
    currentPlatform = m_previous;
}

Platform &Platform::current()
{
    Q_ASSERT(currentPlatform);
    return *currentPlatform;
}

} // namespace corvane
