#include "WindowManagerLink.h"

#include "Properties.h"

namespace corvane::x11 {

using namespace Qt::StringLiterals;

namespace {
constexpr auto probeTime = std::chrono::milliseconds(250);
}

WindowManagerLink::WindowManagerLink(Connection &connection) : m_connection(connection)
{
    m_connection.addSink(this);
    connect(&m_connection, &Connection::answersAgain, this, &WindowManagerLink::reexamineSoon);
    examine();
}

WindowManagerLink::~WindowManagerLink()
{
    m_connection.removeSink(this);
    xcb_destroy_window(m_connection.xcb(), m_probe);
}

bool WindowManagerLink::fence(xcb_window_t window, Connection::Clock::time_point deadline)
{
    const bool undecided = !m_answersExtents && Connection::Clock::now() < m_probeEnd;
    if (m_answersExtents || undecided) {
        askForExtents();
        const bool answered =
            m_connection.waitFor([this] { return m_extentsAnswered >= m_extentsAsked; },
                undecided ? std::min(deadline, m_probeEnd) : deadline);
        if (answered || m_answersExtents)
            return answered;
    }
    // A window manager answers a configure request that changes nothing with a synthetic
    // ConfigureNotify (ICCCM 4.1.5), in its turn.
    m_connection.drain();
    m_fenced = window;
    m_fencePassed = false;
    xcb_configure_window(m_connection.xcb(), window, 0, nullptr);
    const bool passed = m_connection.waitFor([this] { return m_fencePassed; }, deadline);
    m_fenced = noWindow;
    return passed;
}

void WindowManagerLink::handle(const xcb_generic_event_t &event)
{
    const bool isSynthetic = event.response_type & 0x80;
    switch (event.response_type & 0x7f) {
    case XCB_PROPERTY_NOTIFY: {
        const auto &property = reinterpret_cast<const xcb_property_notify_event_t &>(event);
        if (property.window == m_probe) {
            if (property.atom == m_connection.atom(Atom::netFrameExtents)
                && property.state == XCB_PROPERTY_NEW_VALUE) {
                ++m_extentsAnswered;
                m_answersExtents = true;
            }
        } else if (announces(property)) {
            reexamineSoon();
        }
        break;
    }
    case XCB_DESTROY_NOTIFY:
        if (reinterpret_cast<const xcb_destroy_notify_event_t &>(event).window == m_checkWindow) {
            m_checkWindow = noWindow;
            m_present = false;
            reexamineSoon();
        }
        break;
    case XCB_CONFIGURE_NOTIFY:
        if (isSynthetic
            && reinterpret_cast<const xcb_configure_notify_event_t &>(event).window == m_fenced)
            m_fencePassed = true;
        break;
    default:
        break;
    }
}

/// A window manager may change other properties of its window, at every focus change even.
bool WindowManagerLink::announces(const xcb_property_notify_event_t &property) const
{
    const auto is = [&](Atom atom) { return property.atom == m_connection.atom(atom); };
    if (property.window == m_checkWindow)
        return is(Atom::netSupportingWmCheck) || is(Atom::netWmName);
    return property.window == m_connection.root()
        && (is(Atom::netSupportingWmCheck) || is(Atom::netSupported));
}

void WindowManagerLink::reexamineSoon()
{
    if (std::exchange(m_examineScheduled, true))
        return;
    m_connection.defer([this] {
        m_examineScheduled = false;
        examine();
        Q_EMIT changed();
    });
}

void WindowManagerLink::examine()
{
    const Answers answers(m_connection);
    const xcb_window_t checkWindow = validCheckWindow();
    if (!answers.complete())
        return;
    m_checkWindow = checkWindow;
    QList<quint32> supported;
    QString name;
    if (checkWindow != noWindow) {
        supported = readList(m_connection, m_connection.root(), Atom::netSupported);
        name = textOf(propertyReply(
            m_connection, requestProperty(m_connection, checkWindow, Atom::netWmName)));
    }
    if (!answers.complete())
        return;
    m_supported = QSet<quint32>(supported.begin(), supported.end());
    m_name = name;
    m_present = supports(Atom::netMoveresizeWindow);
    m_tiles = m_name == "i3"_L1;
    m_tilesSilently = m_name == "KWin"_L1;
    m_holdsFrames = m_tilesSilently || m_name.contains("Mutter"_L1) || m_name == "GNOME Shell"_L1;
    m_answersExtents = false;
    if (m_present) {
        renewProbe();
        m_probeEnd = Connection::Clock::now() + probeTime;
        askForExtents();
    }
}

xcb_window_t WindowManagerLink::validCheckWindow()
{
    const auto candidate =
        readList(m_connection, m_connection.root(), Atom::netSupportingWmCheck).value(0);
    if (candidate == noWindow)
        return noWindow;
    const quint32 follow = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection.xcb(), candidate, XCB_CW_EVENT_MASK, &follow);
    // A window manager that crashed leaves the property on the root: its window must still name itself.
    return readList(m_connection, candidate, Atom::netSupportingWmCheck).value(0) == candidate
        ? candidate
        : noWindow;
}

void WindowManagerLink::renewProbe()
{
    // What was asked about the old window may still be answered, and must not count any more.
    if (m_probe != noWindow)
        xcb_destroy_window(m_connection.xcb(), m_probe);
    m_probe = xcb_generate_id(m_connection.xcb());
    const quint32 follow = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(m_connection.xcb(), XCB_COPY_FROM_PARENT, m_probe, m_connection.root(), 0, 0,
        1, 1, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &follow);
    m_extentsAsked = m_extentsAnswered = 0;
}

void WindowManagerLink::askForExtents()
{
    ++m_extentsAsked;
    m_connection.sendToRoot(m_probe, Atom::netRequestFrameExtents, {});
    xcb_flush(m_connection.xcb());
}

} // namespace corvane::x11
