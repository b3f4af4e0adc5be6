#include "QuietOpenings.h"

#include "ActiveWindow.h"
#include "Properties.h"

#include <algorithm>

namespace corvane::x11 {

using namespace std::chrono_literals;

namespace {

constexpr auto patience = 30s; ///< for the first window
constexpr auto companyWait = 1s; ///< for the windows that come with it
// How long a window is kept from pushing itself forward. Nobody has clicked it so soon.
constexpr auto focusWait = 1s;
constexpr auto attentionWait = 3s;
constexpr quint32 removeState = 0;

} // namespace

QuietOpenings::QuietOpenings(Connection &connection, WindowRegistry &registry)
    : m_connection(connection), m_registry(registry)
{
    m_connection.addSink(this);
    connect(&registry, &WindowRegistry::activating, this, [this](xcb_window_t window) {
        addOwner(window);
        if (Newcomer *found = newcomer(window))
            found->mayHaveFocus = true;
    });
}

QuietOpenings::~QuietOpenings()
{
    m_connection.removeSink(this);
}

void QuietOpenings::begin(const QString &bundleIdentifier)
{
    if (!areUnderWay())
        m_owners = {activeWindow(m_connection)};
    m_openings << Opening{bundleIdentifier, Connection::Clock::now() + patience};
}

bool QuietOpenings::areUnderWay()
{
    forgetPast();
    return !m_openings.isEmpty() || !m_newcomers.isEmpty();
}

void QuietOpenings::greet(const WindowElement &window, const QString &bundleIdentifier)
{
    const xcb_window_t number = numberOf(window);
    const auto opening =
        std::ranges::find(m_openings, bundleIdentifier, &Opening::bundleIdentifier);
    if (opening == m_openings.end() || newcomer(number))
        return;
    const Time now = Connection::Clock::now();
    // A splash screen announces the window.
    if (const KnownWindow *known = m_registry.find(window); known && known->inTaskbar)
        opening->end = std::min(opening->end, now + companyWait);
    m_newcomers << Newcomer{
        .window = number, .end = now + attentionWait, .focusEnd = now + focusWait};
    // It may have had the focus before it was known whose it is, and so may its companions.
    m_owners.removeOne(number);
    scheduleReview();
}

void QuietOpenings::handle(const xcb_generic_event_t &event)
{
    if ((event.response_type & 0x7f) != XCB_PROPERTY_NOTIFY || !areUnderWay())
        return;
    const auto &property = reinterpret_cast<const xcb_property_notify_event_t &>(event);
    const bool isFocus = property.window == m_connection.root()
        && property.atom == m_connection.atom(Atom::netActiveWindow);
    const bool isState = property.atom == m_connection.atom(Atom::netWmState)
        && newcomer(property.window) != nullptr;
    if (isFocus || isState)
        scheduleReview();
}

void QuietOpenings::scheduleReview()
{
    if (std::exchange(m_reviewScheduled, true))
        return;
    m_connection.defer([this] {
        m_reviewScheduled = false;
        if (areUnderWay())
            review();
    });
}

void QuietOpenings::review()
{
    reviewFocus(activeWindow(m_connection));
    const xcb_atom_t attention = m_connection.atom(Atom::stateDemandsAttention);
    for (Newcomer &each : m_newcomers) {
        if (each.attentionsLeft == 0
            || !readList(m_connection, each.window, Atom::netWmState).contains(attention))
            continue;
        --each.attentionsLeft;
        m_connection.sendToRoot(
            each.window, Atom::netWmState, {removeState, attention, 0, fromPager, 0});
    }
    xcb_flush(m_connection.xcb());
}

void QuietOpenings::reviewFocus(xcb_window_t active)
{
    Newcomer *taker = newcomer(active);
    if (!taker || taker->mayHaveFocus || taker->focusesLeft == 0
        || taker->focusEnd < Connection::Clock::now()) {
        // What is not listed yet may turn out to be a newcomer.
        if (const auto known = m_registry.known().constFind(active);
            known != m_registry.known().cend() && known->wasListed)
            addOwner(active);
        return;
    }
    --taker->focusesLeft;
    const auto isKnown = [this](xcb_window_t each) { return m_registry.known().contains(each); };
    const auto owner = std::find_if(m_owners.crbegin(), m_owners.crend(), isKnown);
    if (owner != m_owners.crend())
        requestActivation(m_connection, *owner);
}

void QuietOpenings::forgetPast()
{
    const Time now = Connection::Clock::now();
    const auto isPast = [now](const auto &each) { return each.end < now; };
    m_openings.removeIf(isPast);
    m_newcomers.removeIf(isPast);
}

QuietOpenings::Newcomer *QuietOpenings::newcomer(xcb_window_t window)
{
    const auto found = std::ranges::find(m_newcomers, window, &Newcomer::window);
    return found == m_newcomers.end() ? nullptr : &*found;
}

void QuietOpenings::addOwner(xcb_window_t window)
{
    m_owners.removeOne(window);
    m_owners << window;
}

} // namespace corvane::x11
