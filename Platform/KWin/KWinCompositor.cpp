#include "KWinCompositor.h"

#include "AgentDesk.h"

namespace corvane::kwin {

using namespace Qt::StringLiterals;
using wayland::Desk;

namespace {

/// To be loaded into KWin and answer for the first time.
constexpr std::chrono::milliseconds startTime(2000);

} // namespace

KWinCompositor::KWinCompositor()
{
    connect(&m_link, &AgentLink::presenceChanged, this, &Compositor::presenceChanged);
    connect(&m_link, &AgentLink::windowsChanged, this, &Compositor::windowsChanged);
    connect(&m_link, &AgentLink::framesChanged, this, &Compositor::framesChanged);
    connect(&m_link, &AgentLink::workAreasChanged, this, &Compositor::workAreasChanged);
    connect(&m_link, &AgentLink::described, this,
        [this](const QString &description) { m_description = description; });
    std::ignore = m_link.mailbox().waitForAgent(std::chrono::steady_clock::now() + startTime);
}

expected<Desk, AXError> KWinCompositor::read(Scope scope)
{
    const bool isWhole = scope == Scope::all;
    const auto glance = isWhole ? std::nullopt : m_link.mailbox().glance();
    const expected<QJsonObject, AXError> answer =
        glance ? *glance : ask("read"_L1, {{"whole"_L1, isWhole}}, Effect::none);
    if (!answer)
        return unexpected(answer.error());
    auto desk = deskIn(*answer, m_numbers);
    if (!desk)
        return unexpected(AXError::failure);
    if (isWhole) {
        QSet<QString> identifiers;
        for (const wayland::Toplevel &window : std::as_const(desk->windows))
            identifiers << m_numbers.identifier(window.element);
        m_numbers.keep(identifiers);
    }
    return std::move(*desk);
}

AXError KWinCompositor::place(const QList<WindowMove> &moves)
{
    QJsonArray written;
    for (const WindowMove &move : moves) {
        if (const QString identifier = m_numbers.identifier(move.window); !identifier.isEmpty())
            written << QJsonObject{{"id"_L1, identifier}, {"frame"_L1, kwin::written(move.frame)}};
    }
    if (written.isEmpty())
        return isPresent() ? AXError::success : AXError::apiDisabled;
    const auto answer = ask("place"_L1, {{"moves"_L1, written}});
    return answer ? AXError::success : answer.error();
}

AXError KWinCompositor::leaveStates(const WindowElement &window)
{
    return askOf(window, "leaveStates"_L1);
}

AXError KWinCompositor::enterState(const WindowElement &window, const WindowState &state)
{
    const QJsonObject written{{"fullScreen"_L1, state.fullScreenByUs},
        {"horizontally"_L1, state.maximizedHorizontally},
        {"vertically"_L1, state.maximizedVertically}, {"tiled"_L1, state.tiled}};
    return askOf(window, "enterState"_L1, {{"state"_L1, written}});
}

bool KWinCompositor::raise(const WindowElement &window)
{
    if (!m_canRaise)
        return false;
    const auto answer = ask("raise"_L1, {{"id"_L1, m_numbers.identifier(window)}});
    m_canRaise = !answer || answer->value("raised"_L1).toBool(true);
    return answer && answer->value("raised"_L1).toBool();
}

void KWinCompositor::activate(const WindowElement &window)
{
    std::ignore = askOf(window, "activate"_L1);
}

void KWinCompositor::close(const WindowElement &window)
{
    std::ignore = askOf(window, "close"_L1);
}

void KWinCompositor::bringHere(const WindowElement &window)
{
    std::ignore = askOf(window, "bringHere"_L1);
}

void KWinCompositor::keepAbove(const WindowElement &window)
{
    std::ignore = askOf(window, "keepAbove"_L1);
}

void KWinCompositor::blockShortcuts(bool isBlocked)
{
    std::ignore = ask("block"_L1, {{"blocked"_L1, isBlocked}});
}

expected<QJsonObject, AXError> KWinCompositor::ask(
    QLatin1StringView deed, QJsonObject command, Effect effect)
{
    if (!isPresent())
        return unexpected(AXError::apiDisabled);
    command.insert("deed"_L1, QString(deed));
    const auto answer =
        m_link.mailbox().ask(command, std::chrono::steady_clock::now() + m_timeout, effect);
    if (!answer)
        return unexpected(AXError::cannotComplete);
    if (answer->contains("error"_L1))
        return unexpected(AXError::failure);
    return *answer;
}

AXError KWinCompositor::askOf(
    const WindowElement &window, QLatin1StringView deed, QJsonObject command)
{
    const QString identifier = m_numbers.identifier(window);
    if (identifier.isEmpty())
        return isPresent() ? AXError::invalidUIElement : AXError::apiDisabled;
    command.insert("id"_L1, identifier);
    const auto answer = ask(deed, command);
    if (!answer)
        return answer.error();
    return answer->contains("gone"_L1) ? AXError::invalidUIElement : AXError::success;
}

} // namespace corvane::kwin
