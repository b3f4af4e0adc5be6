#include "QuietOpenings.h"

#include <algorithm>

namespace corvane::wayland {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace {

constexpr auto patience = 30s; ///< for the first window
constexpr auto companyWait = 1s; ///< for the windows that come with it
// How long a window is kept from having the focus. Nobody has clicked it so soon.
constexpr auto focusWait = 1s;
constexpr qsizetype mostOwners = 10;

} // namespace

QuietOpenings::QuietOpenings(ToplevelRegistry &registry) : m_registry(registry)
{
    connect(&registry, &ToplevelRegistry::focusRead, this, &QuietOpenings::review);
}

void QuietOpenings::begin(const QString &bundleIdentifier)
{
    if (!areUnderWay()) {
        m_owners.clear();
        if (const auto desk = m_registry.desk(Compositor::Scope::focused); desk && desk->focused)
            allow(*desk->focused);
    }
    m_openings << Opening{bundleIdentifier, Clock::now() + patience};
}

bool QuietOpenings::areUnderWay()
{
    forgetPast();
    return !m_openings.isEmpty() || !m_newcomers.isEmpty();
}

void QuietOpenings::greet(const WindowElement &window, const QString &bundleIdentifier)
{
    const auto opening =
        std::ranges::find(m_openings, bundleIdentifier, &Opening::bundleIdentifier);
    if (opening == m_openings.end()
        || std::ranges::find(m_newcomers, window, &Newcomer::window) != m_newcomers.end())
        return;
    const Time now = Clock::now();
    // A splash screen announces the window.
    opening->end = std::min(opening->end, now + companyWait);
    m_newcomers << Newcomer{window, now + focusWait};
}

void QuietOpenings::allow(const WindowElement &window)
{
    m_newcomers.removeIf([&](const Newcomer &newcomer) { return newcomer.window == window; });
    m_owners.removeAll(window);
    m_owners << window;
    if (m_owners.size() > mostOwners)
        m_owners.removeFirst();
}

void QuietOpenings::review(const std::optional<WindowElement> &focused)
{
    if (!focused || !areUnderWay())
        return;
    // The focus may be told before the application that the window belongs to is known.
    m_registry.defer([this, window = *focused] {
        const auto newcomer = std::ranges::find(m_newcomers, window, &Newcomer::window);
        if (newcomer == m_newcomers.end()) {
            allow(window);
            return;
        }
        while (!m_owners.isEmpty() && !m_registry.known(m_owners.last()))
            m_owners.removeLast();
        if (m_owners.isEmpty() || Clock::now() > newcomer->end || --newcomer->focusesLeft < 0)
            return;
        m_registry.compositor().bringToFront({m_owners.last()});
    });
}

void QuietOpenings::forgetPast()
{
    const Time now = Clock::now();
    m_openings.removeIf([now](const Opening &opening) { return opening.end < now; });
    m_newcomers.removeIf([now](const Newcomer &newcomer) { return newcomer.end < now; });
}

} // namespace corvane::wayland
