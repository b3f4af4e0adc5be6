#include "Waiting.h"
#include "WaylandClientDesk.h"
#include "X11ClientDesk.h"

#include <memory>
#include <poll.h>
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

/// Takes its steps one after another, each a verb or `verb=value`. An answer is a line on the standard
/// output.
///
///     hand-over         leaves all of it to another process and ends
///     class=NAME        of the windows opened from here on, but for `window`
///     open=TITLE        opens a window            splash          opens a splash screen
///     window=REQUEST    opens one as the `WindowRequest` asks, in hexadecimal; answers its number
///     close             closes the oldest one     close=NUMBER    closes that one; answers its number
///     rename=NUMBER,NAME has that window belong to another application; answers its number
///     wait=MS           lets time pass
///     listen            takes further steps from the standard input, line by line, and ends with it
class Application
{
public:
    Application(ClientDesk &desk, const QByteArrayList &steps) : m_desk(desk), m_steps(steps) { }

    /// Returns when the application is over.
    void run()
    {
        while (!m_isOver && m_desk.isValid()) {
            while (!m_steps.isEmpty() && take(m_steps.first()))
                m_steps.removeFirst();
            m_desk.work(Clock::now());
            pollfd sources[]{{m_input, POLLIN, 0}, {m_desk.file(), POLLIN, 0}};
            constexpr int lookAgain = 5;
            if (::poll(sources, 2, isIdle() ? -1 : lookAgain) > 0 && sources[0].revents)
                readSteps();
        }
    }

private:
    static constexpr Rect place{240, 180, 420, 260}; ///< of a window that is opened

    // Whether the step is done; if not, it is taken again later.
    bool take(const QByteArray &step)
    {
        const QByteArray verb = step.split('=').first();
        const QByteArray value = step.mid(verb.size() + 1);
        if (verb == "class")
            m_className = value;
        else if (verb == "open")
            show({.geometry = place, .title = value, .className = m_className});
        else if (verb == "splash")
            show({.geometry = place,
                .className = m_className,
                .kind = WindowRequest::Kind::splash,
                .decorated = false});
        else if (verb == "window")
            answer(show(WindowRequest::fromBytes(QByteArray::fromHex(value))));
        else if (verb == "close")
            answer(destroy(value.isEmpty() ? m_desk.oldest() : value.toUInt()));
        else if (verb == "rename")
            answer(rename(value.split(',')));
        else if (verb == "listen")
            m_input = STDIN_FILENO;
        else if (verb == "wait")
            return wait(Milliseconds(value.toInt()));
        else
            qFatal("corvane-test-client: no step is called \"%s\"", verb.constData());
        return true;
    }
    bool wait(Milliseconds duration)
    {
        if (!m_due)
            m_due = Clock::now() + duration;
        if (Clock::now() < *m_due)
            return false;
        m_due.reset();
        return true;
    }
    void readSteps()
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
    // Whether nothing is to be done until something happens.
    [[nodiscard]] bool isIdle() const { return m_steps.isEmpty() && m_desk.isIdle(); }
    quint32 show(const WindowRequest &request) { return m_desk.show(request); }
    quint32 destroy(quint32 number)
    {
        m_desk.destroy(number);
        return number;
    }
    quint32 rename(const QByteArrayList &parts)
    {
        m_desk.rename(parts.first().toUInt(), parts.last());
        return parts.first().toUInt();
    }

    ClientDesk &m_desk;
    QByteArrayList m_steps;
    QByteArray m_className;
    std::optional<Clock::time_point> m_due; ///< of a step that waits for a time
    int m_input = -1;
    QByteArray m_unread; ///< the beginning of a step
    bool m_isOver = false;
};

} // namespace

/// corvane-test-client STEP...
int main(int argc, char *argv[])
{
    QByteArrayList steps(argv + 1, argv + argc);
    if (steps.removeOne("hand-over") && ::fork() > 0)
        return 0;
    // As toolkits do, it prefers Wayland where there are both.
    std::unique_ptr<ClientDesk> desk;
    if (qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        desk = std::make_unique<X11ClientDesk>();
    else
        desk = std::make_unique<WaylandClientDesk>();
    if (!desk->isValid())
        return 1;
    Application(*desk, steps).run();
    return desk->isValid() ? 0 : 1;
}
