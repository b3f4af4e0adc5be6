#pragma once

#include "Atoms.h"
#include "AXError.h"
#include "Expected.h"

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QString>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>
#include <xcb/xcb.h>

class QSocketNotifier;

namespace corvane::x11 {

inline constexpr xcb_window_t noWindow = XCB_WINDOW_NONE;
inline constexpr xcb_atom_t noAtom = XCB_ATOM_NONE;

/// Who asks, in those messages to the window manager that say so.
inline constexpr quint32 fromApplication = 1;
inline constexpr quint32 fromPager = 2;

struct FreeDeleter {
    void operator()(void *memory) const { std::free(memory); }
};

template <typename T>
using Owned = std::unique_ptr<T, FreeDeleter>;

/// A part of the back end that follows the server's events. It may change its own state at once,
/// but may tell the floors above only through `Connection::defer`.
class EventSink
{
public:
    virtual void handle(const xcb_generic_event_t &event) = 0;

protected:
    ~EventSink() = default;
};

/// The one connection to the X server. Every wait on it ends after the messaging timeout, so that a
/// server or a window manager that hangs costs no more than that. A missing answer must not pass
/// for an empty one: whoever remembers what it has read asks `Answers` whether every answer came,
/// goes on with what it knew where one is missing, and reads again at `answersAgain`.
class Connection final : public QObject
{
    Q_OBJECT

public:
    using Clock = std::chrono::steady_clock;

    /// How long a question at start may take: everything else builds on the answers.
    static constexpr Clock::duration startingTimeout = std::chrono::seconds(10);
    static constexpr Clock::duration usualTimeout = std::chrono::seconds(1);

    /// The first questions get the starting timeout. The error is one sentence.
    static expected<std::unique_ptr<Connection>, QString> open();
    /// The error of a start on which a question went unanswered.
    static QString silenceSentence();
    ~Connection() override;

    [[nodiscard]] xcb_connection_t *xcb() const { return m_xcb; }
    [[nodiscard]] xcb_window_t root() const { return m_screen->root; }
    [[nodiscard]] const xcb_screen_t &screen() const { return *m_screen; }
    [[nodiscard]] xcb_atom_t atom(Atom atom) const { return m_atoms[static_cast<size_t>(atom)]; }
    [[nodiscard]] xcb_atom_t intern(const QByteArray &name);
    /// What the server says of the extension. Null where it lacks it: a request of such an
    /// extension would close the connection.
    [[nodiscard]] const xcb_query_extension_reply_t *extension(xcb_extension_t &id) const;

    void setMessagingTimeout(Clock::duration timeout) { m_timeout = timeout; }
    [[nodiscard]] Clock::duration messagingTimeout() const { return m_timeout; }
    /// How many questions have had no answer so far.
    [[nodiscard]] quint64 unanswered() const { return m_unanswered; }

    /// Waits for the answer to a request made with a cookie-returning xcb function.
    template <typename Reply>
    [[nodiscard]] expected<Owned<Reply>, AXError> reply(unsigned sequence)
    {
        auto answer = waitForReply(sequence);
        if (!answer)
            return unexpected<AXError>(answer.error());
        return Owned<Reply>(static_cast<Reply *>(*answer));
    }
    /// The outcome of checked requests: 0, or the last one's X error code (-1 when nothing answered).
    [[nodiscard]] int checkedError(std::span<const xcb_void_cookie_t> cookies);
    void discard(unsigned sequence) { xcb_discard_reply(m_xcb, sequence); }

    /// Handles events until `condition` holds. False when `deadline` came first.
    bool waitFor(const std::function<bool()> &condition, Clock::time_point deadline);
    /// Hands every event that has arrived to the sinks.
    void drain();

    /// Asks for further events of the root window; those of its properties and structure always
    /// come.
    void followRoot(quint32 additionalEvents);
    /// Whether messages come that clients send to their window manager. Every change of a top-level
    /// window comes with them, so listen only for a moment.
    void hearClients(bool isListening);
    /// Sends a client message to the root window, as window managers expect it.
    void sendToRoot(xcb_window_t window, Atom type, const std::array<quint32, 5> &data);

    void addSink(EventSink *sink) { m_sinks.append(sink); }
    void removeSink(EventSink *sink) { m_sinks.removeOne(sink); }
    /// Runs `notice` once no call into the back end is under way.
    void defer(std::function<void()> notice);

Q_SIGNALS:
    /// The server is gone; nothing works any more.
    void broken();
    /// After questions without an answer: what was to be known through them can be read again.
    void answersAgain();

private:
    Connection(xcb_connection_t *xcb, int screenNumber);

    expected<void *, AXError> waitForReply(unsigned sequence);
    void giveUp(unsigned sequence);
    void reviewOverdue();
    [[nodiscard]] bool isSilent() const;
    void drainQueued();
    bool waitReadable(Clock::time_point deadline);
    void dispatch(Owned<xcb_generic_event_t> event);
    void pump();
    void runDeferred();

    xcb_connection_t *m_xcb;
    xcb_screen_t *m_screen = nullptr;
    std::array<xcb_atom_t, static_cast<size_t>(Atom::count)> m_atoms{};
    Clock::duration m_timeout = startingTimeout;
    QSocketNotifier *m_notifier = nullptr;
    QList<EventSink *> m_sinks;
    std::vector<std::function<void()>> m_deferred;
    quint64 m_unanswered = 0;
    quint32 m_rootEvents = 0;
    std::optional<unsigned> m_overdue; ///< the last question that was given up
    quint64 m_readBefore = 0; ///< bytes from the server when it was
    bool m_pumping = false;
    bool m_pumpScheduled = false;
};

/// Whether every question since it was made has been answered.
class Answers
{
public:
    explicit Answers(const Connection &connection)
        : m_connection(connection), m_before(connection.unanswered())
    {
    }

    [[nodiscard]] bool complete() const { return m_connection.unanswered() == m_before; }

private:
    const Connection &m_connection;
    quint64 m_before;
};

} // namespace corvane::x11
