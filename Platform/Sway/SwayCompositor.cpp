#include "SwayCompositor.h"

#include "SwayTree.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <glob.h>
#include <thread>
#include <tuple>

namespace corvane::sway {

using namespace wayland;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace {

// A client that is slower than this to draw itself is caught by the later looks.
constexpr auto hold = 20ms;
constexpr auto tick = 3ms; ///< between two readings of a window that has just been placed
constexpr auto retryPause = 2s;

QByteArray pixels(double value)
{
    return QByteArray::number(qRound(value));
}

/// The texts of the files of a pattern, which may be relative to the file that names it.
QList<QByteArray> textsOf(const QString &pattern, const QDir &folder)
{
    QString absolute = pattern;
    absolute.remove(u'"').remove(u'\'');
    if (absolute.startsWith(u'~'))
        absolute.replace(0, 1, QDir::homePath());
    if (QDir::isRelativePath(absolute))
        absolute = folder.filePath(absolute);
    QList<QByteArray> texts;
    glob_t found{};
    if (glob(QFile::encodeName(absolute).constData(), 0, nullptr, &found) == 0) {
        for (size_t i = 0; i < found.gl_pathc; ++i) {
            QFile file(QFile::decodeName(found.gl_pathv[i]));
            if (QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly))
                texts << file.readAll();
        }
    }
    globfree(&found);
    return texts;
}

} // namespace

SwayCompositor::SwayCompositor(const QByteArray &path) : m_path(path)
{
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, [this] {
        if (connectSockets())
            setPresent(true);
        else
            tryAgainSoon();
    });
    m_isPresent = connectSockets();
}

SwayCompositor::~SwayCompositor() = default;

bool SwayCompositor::connectSockets()
{
    m_notifier.reset();
    ++m_generation;
    const Time deadline = Clock::now() + m_timeout;
    if (!m_questions.open(m_path) || !m_events.open(m_path))
        return false;
    const auto version = m_questions.ask(Message::getVersion, {}, deadline);
    if (!version)
        return false;
    m_description = u"sway "_s + stringOf(at(*version, "human_readable"));
    m_configFile = stringOf(at(*version, "loaded_config_file_name"));
    // The older sway knows no event of outputs, and would refuse the others with it.
    for (const char *events : {R"(["window","workspace","binding","shutdown"])", R"(["output"])"})
        std::ignore = m_events.ask(Message::subscribe, events, deadline);
    if (!m_events.isOpen())
        return false;
    m_notifier.emplace(m_events.file(), QSocketNotifier::Read);
    connect(&*m_notifier, &QSocketNotifier::activated, this, &SwayCompositor::takeEvents);
    return true;
}

expected<wayland::Desk, AXError> SwayCompositor::read(Scope)
{
    if (!m_isPresent)
        return unexpected<AXError>(AXError::apiDisabled);
    auto tree = ask(Message::getTree);
    if (!tree)
        return unexpected<AXError>(tree.error());
    m_tree = std::move(*tree);
    m_desk = deskOf(m_tree, m_generation);
    m_tilePlaces.keepOnly(m_desk.windows);
    return m_desk;
}

AXError SwayCompositor::place(const QList<WindowMove> &moves)
{
    QByteArrayList commands;
    for (const auto &[element, frame] : moves) {
        const wayland::Toplevel *window = m_desk.find(element);
        if (!window)
            continue;
        if (window->tiled)
            m_tilePlaces.remember(element, m_tree);
        // Neither is to be had of a window in the scratchpad.
        commands << criteria(element) + (window->fullScreen ? " fullscreen disable," : "")
                + (window->tiled ? " floating enable," : "") + " resize set " + pixels(frame.width)
                + " px " + pixels(frame.height) + " px, move absolute position " + pixels(frame.x)
                + " px " + pixels(frame.y) + " px";
    }
    const auto answer = run(commands.join("; "));
    if (!answer)
        return answer.error();
    const bool isRefused = moves.size() == 1 && answer->contains(false);
    return isRefused ? AXError::failure : AXError::success;
}

AXError SwayCompositor::leaveStates(const WindowElement &window)
{
    const auto answer = run(criteria(window) + " fullscreen disable");
    return answer ? AXError::success : answer.error();
}

AXError SwayCompositor::enterState(const WindowElement &window, const WindowState &state)
{
    QByteArrayList commands;
    if (state.tiled)
        commands << m_tilePlaces.wayBack(window);
    if (state.fullScreenByUs)
        commands << criteria(window) + " fullscreen enable";
    const auto answer = run(commands.join("; "));
    return answer ? AXError::success : answer.error();
}

SwayCompositor::Duration SwayCompositor::holdTime() const
{
    return hold;
}

/// sway tells a frame as soon as it is asked for, and tells nobody when the window has drawn itself.
bool SwayCompositor::waitForFrames(Time deadline)
{
    const auto left = deadline - Clock::now();
    if (left <= 0ms)
        return false;
    std::this_thread::sleep_for(std::min<Clock::duration>(left, tick));
    return true;
}

void SwayCompositor::raise(const WindowElement &) { }

void SwayCompositor::bringToFront(const QList<WindowElement> &windows)
{
    tell(windows, " focus");
}

void SwayCompositor::close(const WindowElement &window)
{
    tell({window}, " kill");
}

void SwayCompositor::bringHere(const WindowElement &window)
{
    tell({window}, " move container to workspace current");
}

void SwayCompositor::keepAbove(const WindowElement &window)
{
    tell({window}, " sticky enable");
}

void SwayCompositor::tell(const QList<WindowElement> &windows, const char *command)
{
    QByteArrayList commands;
    for (const WindowElement &window : windows) {
        if (window.generation == m_generation)
            commands << criteria(window) + command;
    }
    if (!commands.isEmpty())
        std::ignore = run(commands.join(';'));
}

expected<QList<bool>, AXError> SwayCompositor::run(const QByteArray &commands)
{
    const auto answer = ask(Message::runCommand, commands);
    if (!answer)
        return unexpected<AXError>(answer.error());
    QList<bool> successes;
    for (const Json &each : itemsOf(*answer))
        successes << at(each, "success").IsTrue();
    return successes;
}

QList<Binding> SwayCompositor::configuredBindings()
{
    const auto answer = ask(Message::getConfig);
    if (!answer)
        return {};
    const QDir folder = QFileInfo(m_configFile).dir();
    return bindingsIn(stringOf(at(*answer, "config")).toUtf8(),
        [&folder](const QString &pattern) { return textsOf(pattern, folder); });
}

expected<rapidjson::Document, AXError> SwayCompositor::ask(
    Message message, const QByteArray &content)
{
    if (!m_isPresent)
        return unexpected<AXError>(AXError::apiDisabled);
    auto answer = m_questions.ask(message, content, Clock::now() + m_timeout);
    if (!m_questions.isOpen())
        tryAgainSoon();
    return answer;
}

void SwayCompositor::takeEvents()
{
    while (const auto event = m_events.receive(Clock::now()))
        take(*event);
    if (!m_events.isOpen())
        setPresent(false);
}

void SwayCompositor::take(const Packet &packet)
{
    const Json &event = packet.content;
    switch (Event(packet.type)) {
    case Event::window:
        Q_EMIT windowsChanged();
        break;
    case Event::workspace:
        takeWorkspaceEvent(event);
        break;
    case Event::output:
        Q_EMIT workAreasChanged();
        break;
    case Event::binding:
        if (textOf(at(event, "change")) == "run")
            Q_EMIT bindingPressed(stringOf(at(at(event, "binding"), "command")));
        break;
    case Event::shutdown:
        setPresent(false);
        break;
    }
}

void SwayCompositor::takeWorkspaceEvent(const Json &event)
{
    if (textOf(at(event, "change")) == "reload")
        Q_EMIT bindingsLost();
    Q_EMIT workAreasChanged();
    Q_EMIT windowsChanged();
}

void SwayCompositor::setPresent(bool isPresent)
{
    if (!isPresent) {
        m_notifier.reset();
        tryAgainSoon();
    }
    if (std::exchange(m_isPresent, isPresent) == isPresent)
        return;
    Q_EMIT presenceChanged();
    if (isPresent)
        Q_EMIT bindingsLost();
}

void SwayCompositor::tryAgainSoon()
{
    // From the event loop, since whoever asked may still be at work.
    if (!m_retry.isActive())
        m_retry.start(m_isPresent ? 0ms : retryPause);
}

QByteArray SwayCompositor::criteria(const WindowElement &window)
{
    return "[con_id=" + QByteArray::number(window.number) + ']';
}

} // namespace corvane::sway
