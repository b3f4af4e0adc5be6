#include "WindowRegistry.h"

#include "ClientProperties.h"
#include "Properties.h"

#include <algorithm>

namespace corvane::x11 {

namespace {

constexpr quint32 followWindow = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;

void appendNew(QStringList &list, const QString &name)
{
    if (!name.isEmpty() && !list.contains(name))
        list << name;
}

} // namespace

WindowRegistry::WindowRegistry(Connection &connection) : m_connection(connection)
{
    m_connection.addSink(this);
    connect(&m_connection, &Connection::answersAgain, this, [this] {
        scheduleRefresh();
        refreshStruts();
    });
    refresh();
}

WindowRegistry::~WindowRegistry()
{
    m_connection.removeSink(this);
}

std::optional<WindowElement> WindowRegistry::element(xcb_window_t window)
{
    if (!m_known.contains(window))
        meet({window});
    const auto known = m_known.constFind(window);
    if (known == m_known.cend())
        return std::nullopt;
    return WindowElement{window, known->generation};
}

const KnownWindow *WindowRegistry::find(const WindowElement &element) const
{
    const auto known = m_known.constFind(numberOf(element));
    return known != m_known.cend() && known->generation == element.generation ? &*known : nullptr;
}

QList<xcb_window_t> WindowRegistry::frontToBack()
{
    QList<xcb_window_t> windows =
        readList(m_connection, m_connection.root(), Atom::netClientListStacking);
    std::ranges::reverse(windows);
    // Some window managers write this list later than the other one.
    for (const xcb_window_t window : std::as_const(m_clients)) {
        if (!windows.contains(window))
            windows << window;
    }
    return windows;
}

void WindowRegistry::refresh()
{
    const Answers answers(m_connection);
    const auto clients = readList(m_connection, m_connection.root(), Atom::netClientList);
    if (!answers.complete())
        return;
    m_clients = clients;
    ++m_statesRevision;
    QList<xcb_window_t> strangers;
    std::ranges::copy_if(m_clients, std::back_inserter(strangers),
        [this](xcb_window_t window) { return !m_known.contains(window); });
    meet(strangers);

    // A window may have been met before it was listed: it had the focus already.
    QList<WindowElement> newcomers;
    for (const xcb_window_t window : std::as_const(m_clients)) {
        if (const auto known = m_known.find(window);
            known != m_known.end() && !std::exchange(known->wasListed, true))
            newcomers << WindowElement{window, known->generation};
    }
    if (!newcomers.isEmpty())
        Q_EMIT appeared(newcomers);
    gatherStruts();
}

void WindowRegistry::meet(const QList<xcb_window_t> &windows)
{
    QList<ClientPropertiesRequest> requests;
    for (const xcb_window_t window : windows) {
        xcb_change_window_attributes(m_connection.xcb(), window, XCB_CW_EVENT_MASK, &followWindow);
        requests << requestClientProperties(m_connection, window);
        // Known from here on, so that its destruction while we wait is not missed.
        m_known[window].generation = ++m_lastGeneration;
    }
    for (qsizetype i = 0; i < windows.size(); ++i) {
        const Answers answers(m_connection);
        auto properties = clientProperties(m_connection, requests[i]);
        const auto known = m_known.find(windows[i]);
        if (known == m_known.end())
            continue;
        if (!properties || !answers.complete()) {
            m_known.erase(known);
            continue;
        }
        if (properties->pid <= 0)
            properties->pid = applicationWithoutProcess(*properties);
        properties->generation = known->generation;
        properties->wasListed = known->wasListed;
        *known = *properties;
    }
}

/// The windows of one class from one machine are one application's.
pid_t WindowRegistry::applicationWithoutProcess(const KnownWindow &window)
{
    const auto sibling = std::ranges::find_if(m_known, [&window](const KnownWindow &known) {
        return known.pid < 0 && known.names.className == window.names.className
            && known.machine == window.machine;
    });
    return sibling != m_known.end() ? sibling->pid : --m_lastWithoutProcess;
}

void WindowRegistry::handle(const xcb_generic_event_t &event)
{
    switch (event.response_type & 0x7f) {
    case XCB_PROPERTY_NOTIFY:
        handleProperty(reinterpret_cast<const xcb_property_notify_event_t &>(event));
        break;
    case XCB_DESTROY_NOTIFY: {
        const auto &gone = reinterpret_cast<const xcb_destroy_notify_event_t &>(event);
        if (const auto known = m_known.constFind(gone.window);
            gone.event == gone.window && known != m_known.cend()) {
            const KnownWindow last = *known;
            m_known.erase(known);
            Q_EMIT destroyed({gone.window, last.generation}, last);
        }
        break;
    }
    default:
        break;
    }
}

void WindowRegistry::handleProperty(const xcb_property_notify_event_t &event)
{
    if (event.window == m_connection.root()) {
        if (event.atom == m_connection.atom(Atom::netClientList))
            scheduleRefresh();
        else if (event.atom == m_connection.atom(Atom::netWorkarea))
            refreshStruts();
    } else if (event.atom == m_connection.atom(Atom::netWmStrutPartial)
        || event.atom == m_connection.atom(Atom::netWmStrut)) {
        refreshStruts();
    } else if (event.atom == m_connection.atom(Atom::netWmState)) {
        ++m_statesRevision;
    } else if (isOfNames(m_connection, event.atom)) {
        scheduleNames(event.window);
    }
}

void WindowRegistry::scheduleNames(xcb_window_t window)
{
    if (!m_known.contains(window) || m_renamed.contains(window))
        return;
    m_renamed << window;
    if (m_renamed.size() == 1)
        m_connection.defer([this] { refreshNames(std::exchange(m_renamed, {})); });
}

void WindowRegistry::refreshNames(const QList<xcb_window_t> &windows)
{
    QList<NamesRequest> requests;
    for (const xcb_window_t window : windows)
        requests << requestNames(m_connection, window);
    for (qsizetype i = 0; i < windows.size(); ++i) {
        const auto names = readNames(m_connection, requests[i]);
        const auto known = m_known.find(windows[i]);
        if (!names || known == m_known.end() || *names == known->names)
            continue;
        const WindowNames before = std::exchange(known->names, *names);
        appendNew(known->formerNames, before.className);
        appendNew(known->formerNames, before.instanceName);
        Q_EMIT renamed({windows[i], known->generation}, before);
    }
}

void WindowRegistry::scheduleRefresh()
{
    if (std::exchange(m_refreshScheduled, true))
        return;
    m_connection.defer([this] {
        m_refreshScheduled = false;
        refresh();
    });
}

void WindowRegistry::refreshStruts()
{
    if (std::exchange(m_strutsScheduled, true))
        return;
    m_connection.defer([this] {
        m_strutsScheduled = false;
        QList<std::pair<xcb_window_t, StrutRequest>> requests;
        for (const xcb_window_t window : std::as_const(m_clients))
            requests.emplace_back(window, requestStruts(m_connection, window));
        for (const auto &[window, request] : std::as_const(requests)) {
            const Answers answers(m_connection);
            const QList<Strut> struts = readStruts(m_connection, request);
            if (const auto known = m_known.find(window);
                known != m_known.end() && answers.complete())
                known->struts = struts;
        }
        gatherStruts();
    });
}

void WindowRegistry::gatherStruts()
{
    QList<Strut> struts;
    for (const xcb_window_t window : std::as_const(m_clients)) {
        if (const auto known = m_known.constFind(window); known != m_known.cend())
            struts << known->struts;
    }
    if (std::exchange(m_struts, struts) != struts)
        Q_EMIT strutsChanged();
}

} // namespace corvane::x11
