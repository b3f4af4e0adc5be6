#include "Connection.h"

#include "Xkb.h"

#include <QtCore/QSocketNotifier>

#include <algorithm>
#include <cstring>
#include <poll.h>
#include <utility>
#include <xcb/randr.h>
#include <xcb/res.h>
#include <xcb/sync.h>
#include <xcb/xcbext.h>

namespace corvane::x11 {

using namespace Qt::StringLiterals;

namespace {

AXError errorFor(const xcb_generic_error_t &error)
{
    return error.error_code == XCB_WINDOW || error.error_code == XCB_DRAWABLE
        ? AXError::invalidUIElement
        : AXError::failure;
}

} // namespace

QString Connection::silenceSentence()
{
    return u"The X11 display \"%1\" does not answer."_s.arg(qEnvironmentVariable("DISPLAY"));
}

expected<std::unique_ptr<Connection>, QString> Connection::open()
{
    int screenNumber = 0;
    xcb_connection_t *xcb = xcb_connect(nullptr, &screenNumber);
    if (xcb_connection_has_error(xcb)) {
        xcb_disconnect(xcb);
        const QString name = qEnvironmentVariable("DISPLAY");
        return unexpected<QString>(name.isEmpty()
                ? u"There is no X11 display to connect to: the DISPLAY variable is not set."_s
                : u"The X11 display \"%1\" cannot be reached."_s.arg(name));
    }
    std::unique_ptr<Connection> connection(new Connection(xcb, screenNumber));
    if (connection->unanswered() > 0)
        return unexpected<QString>(silenceSentence());
    return connection;
}

Connection::Connection(xcb_connection_t *xcb, int screenNumber) : m_xcb(xcb)
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(xcb));
    for (int i = 0; i < screenNumber && screens.rem > 1; ++i)
        xcb_screen_next(&screens);
    m_screen = screens.data;
    for (xcb_extension_t *extension : {&xcb_randr_id, &xcb_res_id, &xcb_sync_id, &xcb_xkb_id})
        xcb_prefetch_extension_data(m_xcb, extension);
    std::array<xcb_intern_atom_cookie_t, atomNames.size()> cookies{};
    std::ranges::transform(atomNames, cookies.begin(), [this](const char *name) {
        return xcb_intern_atom(m_xcb, false, static_cast<uint16_t>(std::strlen(name)), name);
    });
    std::ranges::transform(cookies, m_atoms.begin(), [this](xcb_intern_atom_cookie_t cookie) {
        const auto atom = reply<xcb_intern_atom_reply_t>(cookie.sequence);
        return atom ? (*atom)->atom : noAtom;
    });

    m_notifier = new QSocketNotifier(xcb_get_file_descriptor(xcb), QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &Connection::pump);
}

Connection::~Connection()
{
    xcb_disconnect(m_xcb);
}

xcb_atom_t Connection::intern(const QByteArray &name)
{
    const auto cookie =
        xcb_intern_atom(m_xcb, false, static_cast<uint16_t>(name.size()), name.constData());
    const auto answer = reply<xcb_intern_atom_reply_t>(cookie.sequence);
    return answer ? (*answer)->atom : noAtom;
}

const xcb_query_extension_reply_t *Connection::extension(xcb_extension_t &id) const
{
    const auto *data = xcb_get_extension_data(m_xcb, &id);
    return data && data->present ? data : nullptr;
}

int Connection::checkedError(std::span<const xcb_void_cookie_t> cookies)
{
    // A request without an answer is known to have passed once a later one has been answered; one
    // fence does for all of them.
    const auto fence = xcb_get_input_focus(m_xcb);
    if (!reply<xcb_get_input_focus_reply_t>(fence.sequence)) {
        for (const xcb_void_cookie_t cookie : cookies)
            discard(cookie.sequence);
        return -1;
    }
    int last = 0;
    for (const xcb_void_cookie_t cookie : cookies) {
        if (const Owned<xcb_generic_error_t> error{xcb_request_check(m_xcb, cookie)})
            last = error->error_code;
    }
    return last;
}

bool Connection::waitFor(const std::function<bool()> &condition, Clock::time_point deadline)
{
    xcb_flush(m_xcb);
    if (isSilent())
        deadline = Clock::now();
    while (true) {
        drain();
        if (condition())
            return true;
        if (!waitReadable(deadline))
            return false;
    }
}

void Connection::drain()
{
    while (auto *event = xcb_poll_for_event(m_xcb)) {
        dispatch(Owned<xcb_generic_event_t>(event));
    }
    reviewOverdue();
}

void Connection::followRoot(quint32 additionalEvents)
{
    m_rootEvents =
        XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY | additionalEvents;
    xcb_change_window_attributes(m_xcb, root(), XCB_CW_EVENT_MASK, &m_rootEvents);
}

void Connection::hearClients(bool isListening)
{
    const quint32 events =
        m_rootEvents | (isListening ? quint32(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY) : 0);
    xcb_change_window_attributes(m_xcb, root(), XCB_CW_EVENT_MASK, &events);
}

void Connection::sendToRoot(xcb_window_t window, Atom type, const std::array<quint32, 5> &data)
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom(type);
    std::ranges::copy(data, message.data.data32);
    xcb_send_event(m_xcb, false, root(),
        XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
        reinterpret_cast<const char *>(&message));
}

void Connection::defer(std::function<void()> notice)
{
    m_deferred.push_back(std::move(notice));
    if (m_pumping || m_pumpScheduled)
        return;
    m_pumpScheduled = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_pumpScheduled = false;
            pump();
        },
        Qt::QueuedConnection);
}

expected<void *, AXError> Connection::waitForReply(unsigned sequence)
{
    // A server that hangs costs one timeout, not one for each question.
    const auto deadline = Clock::now() + (isSilent() ? Clock::duration::zero() : m_timeout);
    xcb_flush(m_xcb);
    void *answer = nullptr;
    xcb_generic_error_t *error = nullptr;
    while (!xcb_poll_for_reply(m_xcb, sequence, &answer, &error)) {
        if (!waitReadable(deadline)) {
            giveUp(sequence);
            return unexpected<AXError>(AXError::cannotComplete);
        }
    }
    reviewOverdue();
    // Events before the answer are older than it: what they change must show in what we do next.
    drainQueued();
    if (answer)
        return answer;
    const Owned<xcb_generic_error_t> owned(error);
    if (!owned)
        ++m_unanswered; // the connection is broken
    return unexpected<AXError>(owned ? errorFor(*owned) : AXError::failure);
}

/// Its answer will come all the same, after those to all questions before it.
void Connection::giveUp(unsigned sequence)
{
    ++m_unanswered;
    if (m_overdue)
        discard(*m_overdue);
    m_overdue = sequence;
    m_readBefore = xcb_total_read(m_xcb);
}

void Connection::reviewOverdue()
{
    void *answer = nullptr;
    xcb_generic_error_t *error = nullptr;
    if (!m_overdue || !xcb_poll_for_reply(m_xcb, *m_overdue, &answer, &error))
        return;
    std::free(answer);
    std::free(error);
    m_overdue.reset();
    defer([this] { Q_EMIT answersAgain(); });
}

/// A question went unanswered, and nothing has come since: any byte is a sign of life.
bool Connection::isSilent() const
{
    pollfd readable{xcb_get_file_descriptor(m_xcb), POLLIN, 0};
    return m_overdue && xcb_total_read(m_xcb) == m_readBefore && poll(&readable, 1, 0) == 0;
}

void Connection::drainQueued()
{
    while (auto *event = xcb_poll_for_queued_event(m_xcb)) {
        dispatch(Owned<xcb_generic_event_t>(event));
    }
}

bool Connection::waitReadable(Clock::time_point deadline)
{
    if (xcb_connection_has_error(m_xcb))
        return false;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    if (left <= 0)
        return false;
    pollfd readable{xcb_get_file_descriptor(m_xcb), POLLIN, 0};
    return poll(&readable, 1, static_cast<int>(left)) > 0 || Clock::now() < deadline;
}

void Connection::dispatch(Owned<xcb_generic_event_t> event)
{
    // A copy, since a sink may add or remove others.
    const auto sinks = m_sinks;
    for (EventSink *sink : sinks)
        sink->handle(*event);
}

void Connection::pump()
{
    if (m_pumping)
        return;
    m_pumping = true;
    drain();
    m_pumping = false;
    runDeferred();
    xcb_flush(m_xcb);
    if (xcb_connection_has_error(m_xcb)) {
        m_notifier->setEnabled(false);
        Q_EMIT broken();
    }
}

void Connection::runDeferred()
{
    // Notices that arise while these run are deferred anew.
    const auto notices = std::exchange(m_deferred, {});
    for (const auto &notice : notices)
        notice();
}

} // namespace corvane::x11
