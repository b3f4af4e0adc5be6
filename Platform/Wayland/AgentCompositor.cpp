#include "AgentCompositor.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace corvane::wayland {

using namespace Qt::StringLiterals;

AgentCompositor::AgentCompositor(const AgentLink::MakeHost &makeHost, Duration startTime)
    : m_link(makeHost)
{
    connect(&m_link, &AgentLink::presenceChanged, this, &Compositor::presenceChanged);
    connect(&m_link, &AgentLink::newsArrived, this, &AgentCompositor::announce);
    connect(&m_link, &AgentLink::described, this,
        [this](const QString &description) { m_description = description; });
    std::ignore = m_link.mailbox().waitForAgent(std::chrono::steady_clock::now() + startTime);
}

expected<Desk, AXError> AgentCompositor::read(Scope)
{
    if (!isPresent())
        return unexpected(AXError::apiDisabled);
    if (m_isDoubtful) {
        if (const auto answer = ask("tell"_L1); !answer)
            return unexpected(answer.error());
        m_isDoubtful = false;
    }
    takeNews();
    auto desk = m_mirror.desk();
    if (!desk)
        return unexpected(AXError::failure);
    return std::move(*desk);
}

bool AgentCompositor::waitForFrames(Time deadline)
{
    m_isDoubtful = !m_link.mailbox().waitForNews(deadline);
    return !m_isDoubtful;
}

void AgentCompositor::takeNews()
{
    for (const QString &news : m_link.mailbox().takeNews()) {
        const auto changes = m_mirror.take(news).value_or(DeskMirror::Changes());
        m_unannounced.windows = m_unannounced.windows || changes.windows;
        m_unannounced.frames = m_unannounced.frames || changes.frames;
        m_unannounced.workAreas = m_unannounced.workAreas || changes.workAreas;
    }
}

/// Also of what somebody has taken who could not wait for it to be announced.
void AgentCompositor::announce()
{
    takeNews();
    const auto changes = std::exchange(m_unannounced, {});
    if (changes.windows)
        Q_EMIT windowsChanged();
    if (changes.workAreas)
        Q_EMIT workAreasChanged();
    if (changes.frames)
        Q_EMIT framesChanged();
}

AXError AgentCompositor::place(const QList<WindowMove> &moves)
{
    rapidjson::StringBuffer command;
    rapidjson::Writer writer(command);
    bool isEmpty = true;
    writer.StartObject();
    writer.Key("deed");
    writer.String("place");
    writer.Key("moves");
    writer.StartArray();
    for (const auto &[window, frame] : moves) {
        const QByteArray identifier = m_mirror.identifier(window).toUtf8();
        if (identifier.isEmpty())
            continue;
        isEmpty = false;
        writer.StartArray();
        writer.String(identifier.constData());
        for (const double number : {frame.x, frame.y, frame.width, frame.height})
            writer.Double(number);
        writer.EndArray();
    }
    writer.EndArray();
    writer.EndObject();
    if (isEmpty)
        return isPresent() ? AXError::success : AXError::apiDisabled;
    const auto answer = ask(QString::fromLatin1(command.GetString()));
    return answer ? AXError::success : answer.error();
}

AXError AgentCompositor::leaveStates(const WindowElement &window)
{
    return askOf(window, "leaveStates"_L1);
}

AXError AgentCompositor::enterState(const WindowElement &window, const WindowState &state)
{
    const QJsonObject goal{{"fullScreen"_L1, state.fullScreenByUs},
        {"horizontally"_L1, state.maximizedHorizontally},
        {"vertically"_L1, state.maximizedVertically}, {"tiled"_L1, state.tiled}};
    return askOf(window, "enterState"_L1, {{"state"_L1, goal}});
}

void AgentCompositor::raise(const WindowElement &window)
{
    std::ignore = askOf(window, "raise"_L1);
}

void AgentCompositor::bringToFront(const QList<WindowElement> &windows)
{
    QJsonArray identifiers;
    for (const WindowElement &window : windows)
        identifiers << m_mirror.identifier(window);
    std::ignore = ask("bringToFront"_L1, {{"ids"_L1, identifiers}});
}

void AgentCompositor::close(const WindowElement &window)
{
    std::ignore = askOf(window, "close"_L1);
}

void AgentCompositor::bringHere(const WindowElement &window)
{
    std::ignore = askOf(window, "bringHere"_L1);
}

void AgentCompositor::keepAbove(const WindowElement &window)
{
    std::ignore = askOf(window, "keepAbove"_L1);
}

expected<QJsonObject, AXError> AgentCompositor::ask(QLatin1StringView deed, QJsonObject command)
{
    command.insert("deed"_L1, QString(deed));
    return ask(QString::fromUtf8(QJsonDocument(command).toJson(QJsonDocument::Compact)));
}

expected<QJsonObject, AXError> AgentCompositor::ask(const QString &command)
{
    if (!isPresent())
        return unexpected(AXError::apiDisabled);
    const auto answer = m_link.mailbox().ask(command, std::chrono::steady_clock::now() + m_timeout);
    if (!answer)
        return unexpected(AXError::cannotComplete);
    if (answer->contains("error"_L1))
        return unexpected(AXError::failure);
    return *answer;
}

AXError AgentCompositor::askOf(
    const WindowElement &window, QLatin1StringView deed, QJsonObject command)
{
    const QString identifier = m_mirror.identifier(window);
    if (identifier.isEmpty())
        return isPresent() ? AXError::invalidUIElement : AXError::apiDisabled;
    command.insert("id"_L1, identifier);
    const auto answer = ask(deed, command);
    if (!answer)
        return answer.error();
    return answer->contains("gone"_L1) ? AXError::invalidUIElement : AXError::success;
}

} // namespace corvane::wayland
