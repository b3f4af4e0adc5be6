#include "DisplayWatch.h"

#include "Platform.h"
#include "Screens.h"

#include <algorithm>

namespace corvane {

using namespace std::chrono_literals;

namespace {
constexpr Clock::Duration steadyFor = 1s;
} // namespace

DisplayWatch::DisplayWatch() : m_settled(Screens::signature())
{
    connect(&Platform::current().displays(), &Displays::changed, this, &DisplayWatch::follow);
}

void DisplayWatch::follow()
{
    const QList<DisplayKey> now = Screens::signature();
    m_sawOthers = m_sawOthers
        || !std::is_permutation(now.begin(), now.end(), m_settled.begin(), m_settled.end());
    const quint64 change = ++m_changes;
    if (m_sawOthers)
        Platform::current().clock().after(steadyFor, this, [this, change] { settle(change); });
}

void DisplayWatch::settle(quint64 change)
{
    if (change != m_changes)
        return;
    m_sawOthers = false;
    m_settled = Screens::signature();
    Q_EMIT settled(m_settled);
}

} // namespace corvane
