#include "ScriptedApp.h"

#include "WindowProbe.h"

#include <QtCore/QHash>

#include <array>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corvane::desktop {

ScriptedApp::ScriptedApp(XConnection &connection, QByteArray className, QByteArrayList steps)
    : m_connection(connection), m_className(std::move(className)), m_steps(std::move(steps))
{
}

bool ScriptedApp::advance()
{
    readPipe();
    while (!m_isOver && !m_steps.isEmpty() && take(m_steps.first()))
        m_steps.removeFirst();
    return !m_isOver;
}

bool ScriptedApp::take(const QByteArray &step)
{
    using Action = bool (ScriptedApp::*)(const QByteArray &);
    static const QHash<QByteArray, Action> actions{
        {"open", &ScriptedApp::open},
        {"splash", &ScriptedApp::splash},
        {"close", &ScriptedApp::close},
        {"resize", &ScriptedApp::resize},
        {"wait", &ScriptedApp::wait},
        {"wait-until-resized", &ScriptedApp::waitUntilResized},
        {"only-one", &ScriptedApp::onlyOne},
        {"quit", &ScriptedApp::quit},
        {"demand-attention", &ScriptedApp::demandAttention},
    };
    const QByteArray verb = step.split('=').first();
    const Action action = actions.value(verb);
    if (!action)
        qFatal("corvane-test-app: no step is called \"%s\"", verb.constData());
    return (this->*action)(step.mid(verb.size() + 1));
}

bool ScriptedApp::open(const QByteArray &title)
{
    show({.geometry = {240, 180, 420, 260}, .title = title});
    return true;
}

bool ScriptedApp::splash(const QByteArray &)
{
    show({.geometry = {500, 300, 400, 250},
        .title = "Loading",
        .kind = WindowRequest::Kind::splash,
        .decorated = false});
    return true;
}

bool ScriptedApp::close(const QByteArray &)
{
    m_windows.front().destroy();
    m_windows.pop_front();
    return true;
}

bool ScriptedApp::resize(const QByteArray &size)
{
    const QByteArrayList numbers = size.split('x');
    m_ownSize = {numbers.value(0).toDouble(), numbers.value(1).toDouble()};
    m_windows.back().resize(m_ownSize);
    return true;
}

bool ScriptedApp::wait(const QByteArray &milliseconds)
{
    const Time now = std::chrono::steady_clock::now();
    if (!m_waitingSince)
        m_waitingSince = now;
    if (now - *m_waitingSince < std::chrono::milliseconds(milliseconds.toInt()))
        return false;
    m_waitingSince.reset();
    return true;
}

bool ScriptedApp::waitUntilResized(const QByteArray &)
{
    const auto frame = WindowProbe(m_connection).clientGeometry(m_windows.back().number());
    return frame && frame->size() != m_ownSize;
}

bool ScriptedApp::onlyOne(const QByteArray &pipe)
{
    ::mkfifo(pipe.constData(), 0600);
    // Opens only where somebody reads already.
    if (const int other = ::open(pipe.constData(), O_WRONLY | O_NONBLOCK); other >= 0) {
        const QByteArray rest = m_steps.mid(1).join('\n') + '\n';
        m_isOver = ::write(other, rest.constData(), static_cast<size_t>(rest.size())) > 0;
        ::close(other);
        return m_isOver;
    }
    m_pipe = ::open(pipe.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    m_steps = {{}};
    return true;
}

bool ScriptedApp::quit(const QByteArray &)
{
    m_isOver = true;
    return true;
}

bool ScriptedApp::demandAttention(const QByteArray &)
{
    WindowProbe probe(m_connection);
    const xcb_window_t window = m_windows.back().number();
    if (!probe.isManaged(window) || probe.activeWindow() == window)
        return false;
    m_connection.sendToRoot(
        window, "_NET_WM_STATE", {1, m_connection.atom("_NET_WM_STATE_DEMANDS_ATTENTION"), 0, 1});
    m_connection.sync();
    return true;
}

void ScriptedApp::readPipe()
{
    std::array<char, 4096> buffer;
    const ssize_t count = m_pipe < 0 ? 0 : ::read(m_pipe, buffer.data(), buffer.size());
    if (count > 0)
        m_steps += QByteArray(buffer.data(), count).trimmed().split('\n');
}

void ScriptedApp::show(WindowRequest request)
{
    request.className = m_className;
    m_ownSize = request.geometry.size();
    m_windows.emplace_back(m_connection, request);
}

} // namespace corvane::desktop
