#include "ClientWindow.h"
#include "Pager.h"
#include "WindowProbe.h"

#include <QtCore/QFile>

#include <algorithm>
#include <fcntl.h>
#include <list>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace corvane;
using namespace corvane::desktop;
using Clock = std::chrono::steady_clock;

namespace {

void answer(quint32 number)
{
    std::printf("%u\n", number);
    std::fflush(stdout);
}

// Such as "700x300".
std::pair<int, int> pairFrom(const QByteArray &text)
{
    const QByteArrayList numbers = text.split('x');
    return {numbers.value(0).toInt(), numbers.value(1).toInt()};
}

void writeJournal(const QByteArray &path)
{
    QFile file(QFile::decodeName(path));
    if (!file.open(QIODevice::Append) || file.write(QByteArray::number(::getpid()) + '\n') < 0)
        qFatal("corvane-test-client: %s cannot be written", path.constData());
}

/// Takes its steps one after another, each a verb or `verb=value`. An answer is a line on the standard
/// output.
///
///     journal=FILE      adds a line with the process to the file
///     class=NAME        of the windows opened from here on, but for `window`
///     open=TITLE        opens a window            splash          opens a splash screen
///     window=REQUEST    opens one as the `WindowRequest` asks, in hexadecimal; answers its number
///     close             closes the oldest one     close=NUMBER    closes that one; answers its number
///     resize=WxH        the newest one resizes itself
///     wait-until-resized  by somebody else        wait=MS         lets time pass
///     demand-attention  for the newest one, as soon as it has not the focus
///     churn=COUNTxRATE  opens and closes so many, RATE a second; answers how many, at the end
///     listen            takes further steps from the standard input, line by line, and ends with it
///     only-one=PIPE     leaves the rest to the copy that reads the pipe; else is that copy from here on
///     quit              ends the application, which otherwise stays
class Application
{
public:
    Application(XConnection &connection, const QByteArrayList &steps)
        : m_connection(connection), m_steps(steps)
    {
    }

    /// Returns when the application is over.
    void run();

private:
    // Each returns whether the step is done; if not, it is taken again later.
    bool take(const QByteArray &verb, const QByteArray &value);
    bool takeWithWindows(const QByteArray &verb, const QByteArray &value);
    bool wait(Milliseconds duration);
    bool waitUntilResized();
    bool demandAttention();
    bool churn(int count, std::chrono::microseconds interval);
    bool becomeOnlyOne(const QByteArray &pipe);
    void readEvents();
    void readSteps();
    int untilDue() const;
    xcb_window_t show(const WindowRequest &request);
    xcb_window_t destroy(xcb_window_t number);
    ClientWindow *find(xcb_window_t number);

    XConnection &m_connection;
    QByteArrayList m_steps;
    QByteArray m_className;
    std::list<ClientWindow> m_windows;
    Size m_ownSize; ///< of the newest window, as the application wants it
    std::optional<Clock::time_point> m_due; ///< of a step that waits for a time
    int m_churned = 0;
    int m_input = -1;
    QByteArray m_unread; ///< the beginning of a step
    bool m_isOver = false;
};

void Application::run()
{
    while (!m_isOver && m_connection.isValid()) {
        readEvents();
        for (ClientWindow &window : m_windows)
            window.adaptShadowIfDue(Clock::now());
        while (!m_isOver && !m_steps.isEmpty()) {
            const QByteArray verb = m_steps.first().split('=').first();
            if (!take(verb, m_steps.first().mid(verb.size() + 1)))
                break;
            m_steps.removeFirst();
        }
        xcb_flush(m_connection.raw());
        pollfd sources[]{
            {m_input, POLLIN, 0}, {xcb_get_file_descriptor(m_connection.raw()), POLLIN, 0}};
        if (!m_isOver && ::poll(sources, 2, untilDue()) > 0 && sources[0].revents)
            readSteps();
    }
}

bool Application::take(const QByteArray &verb, const QByteArray &value)
{
    if (verb == "class")
        m_className = value;
    else if (verb == "journal")
        writeJournal(value);
    else if (verb == "listen")
        m_input = STDIN_FILENO;
    else if (verb == "quit")
        m_isOver = true;
    else if (verb == "only-one")
        return becomeOnlyOne(value);
    else if (verb == "wait")
        return wait(Milliseconds(value.toInt()));
    else
        return takeWithWindows(verb, value);
    return true;
}

bool Application::takeWithWindows(const QByteArray &verb, const QByteArray &value)
{
    const auto [first, second] = pairFrom(value);
    if (verb == "open")
        show({.geometry = {240, 180, 420, 260}, .title = value, .className = m_className});
    else if (verb == "splash")
        show({.geometry = {500, 300, 400, 250},
            .title = "Loading",
            .className = m_className,
            .kind = WindowRequest::Kind::splash,
            .decorated = false});
    else if (verb == "window")
        answer(show(WindowRequest::fromBytes(QByteArray::fromHex(value))));
    else if (verb == "close")
        answer(destroy(value.isEmpty() ? m_windows.front().number() : value.toUInt()));
    else if (verb == "resize")
        m_windows.back().resize(m_ownSize = {double(first), double(second)});
    else if (verb == "wait-until-resized")
        return waitUntilResized();
    else if (verb == "demand-attention")
        return demandAttention();
    else if (verb == "churn")
        return churn(first, std::chrono::microseconds(1000000 / second));
    else
        qFatal("corvane-test-client: no step is called \"%s\"", verb.constData());
    return true;
}

bool Application::wait(Milliseconds duration)
{
    if (!m_due)
        m_due = Clock::now() + duration;
    if (Clock::now() < *m_due)
        return false;
    m_due.reset();
    return true;
}

bool Application::waitUntilResized()
{
    const auto frame = WindowProbe(m_connection).clientGeometry(m_windows.back().number());
    return frame && frame->size() != m_ownSize;
}

bool Application::demandAttention()
{
    WindowProbe probe(m_connection);
    const xcb_window_t newest = m_windows.back().number();
    if (!probe.isManaged(newest) || probe.activeWindow() == newest)
        return false;
    Pager(m_connection).changeState(newest, Pager::Change::add, "_NET_WM_STATE_DEMANDS_ATTENTION");
    return true;
}

bool Application::churn(int count, std::chrono::microseconds interval)
{
    // Long enough for a window manager to have adopted the oldest of them.
    constexpr size_t openAtOnce = 8;
    const auto now = Clock::now();
    if (!m_due)
        m_due = now;
    if (now < *m_due)
        return false;
    m_due = std::max(*m_due + interval, now - 10 * interval);
    const Rect place{100.0 + m_churned % 50 * 10, 100, 400, 300};
    show({.geometry = place, .title = "Window " + QByteArray::number(m_churned++)});
    const bool isDone = m_churned == count;
    while (m_windows.size() > (isDone ? 0 : openAtOnce))
        destroy(m_windows.front().number());
    if (isDone) {
        answer(static_cast<quint32>(std::exchange(m_churned, 0)));
        m_due.reset();
    }
    return isDone;
}

bool Application::becomeOnlyOne(const QByteArray &pipe)
{
    ::mkfifo(pipe.constData(), 0600);
    // Opens only where somebody reads already.
    if (const int other = ::open(pipe.constData(), O_WRONLY | O_NONBLOCK); other >= 0) {
        const QByteArray rest = m_steps.mid(1).join('\n') + '\n';
        m_isOver = ::write(other, rest.constData(), static_cast<size_t>(rest.size())) > 0;
        ::close(other);
        return m_isOver;
    }
    m_input = ::open(pipe.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    m_steps.resize(1);
    return true;
}

void Application::readEvents()
{
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.raw())}) {
        if ((event->response_type & 0x7F) == XCB_PROPERTY_NOTIFY) {
            const auto &change = reinterpret_cast<xcb_property_notify_event_t &>(*event);
            ClientWindow *window = find(change.window);
            if (window && change.atom == m_connection.atom("_NET_WM_STATE"))
                window->stateChanged(Clock::now());
        } else if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE) {
            const auto &message = reinterpret_cast<xcb_client_message_event_t &>(*event);
            if (message.type == m_connection.atom("WM_PROTOCOLS"))
                destroy(message.window);
        }
    }
}

void Application::readSteps()
{
    QByteArray buffer(4096, Qt::Uninitialized);
    const ssize_t count = ::read(m_input, buffer.data(), static_cast<size_t>(buffer.size()));
    m_isOver = count <= 0;
    m_unread += buffer.first(std::max<ssize_t>(0, count));
    if (const qsizetype end = m_unread.lastIndexOf('\n'); end >= 0) {
        m_steps += m_unread.first(end).split('\n');
        m_unread.remove(0, end + 1);
    }
}

// Milliseconds; -1 when nothing is to be done until something happens.
int Application::untilDue() const
{
    constexpr int lookAgain = 20;
    auto next = m_due;
    for (const ClientWindow &window : m_windows) {
        if (window.shadowDue() && (!next || *window.shadowDue() < *next))
            next = window.shadowDue();
    }
    if (!next)
        return m_steps.isEmpty() ? -1 : lookAgain;
    const auto left = std::chrono::ceil<Milliseconds>(*next - Clock::now());
    return static_cast<int>(std::max<qint64>(0, left.count()));
}

xcb_window_t Application::show(const WindowRequest &request)
{
    m_ownSize = request.geometry.size();
    return m_windows.emplace_back(m_connection, request).number();
}

xcb_window_t Application::destroy(xcb_window_t number)
{
    if (ClientWindow *window = find(number)) {
        window->destroy();
        m_windows.remove_if([number](const ClientWindow &each) { return each.number() == number; });
    }
    return number;
}

ClientWindow *Application::find(xcb_window_t number)
{
    const auto found = std::ranges::find(m_windows, number, &ClientWindow::number);
    return found == m_windows.end() ? nullptr : &*found;
}

} // namespace

/// corvane-test-client STEP...
int main(int argc, char *argv[])
{
    XConnection connection(qEnvironmentVariable("DISPLAY"));
    if (!connection.isValid())
        return 1;
    Application(connection, QByteArrayList(argv + 1, argv + argc)).run();
    return connection.isValid() ? 0 : 1;
}
