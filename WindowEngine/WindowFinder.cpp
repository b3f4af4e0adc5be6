#include "WindowFinder.h"

#include "PaneChoice.h"
#include "Platform.h"

#include <algorithm>

namespace corvane {

namespace {

using ProcessesByID = QHash<QString, QList<pid_t>>;

ProcessesByID runningProcesses()
{
    ProcessesByID processes;
    for (const RunningApplication &application : Platform::current().applications().running()) {
        if (!application.bundleIdentifier.isEmpty())
            processes[application.bundleIdentifier] << application.pid;
    }
    return processes;
}

} // namespace

QSet<QString> runningIdentifiers()
{
    const QStringList running = runningProcesses().keys();
    return {running.begin(), running.end()};
}

QList<std::optional<WindowFinder::Found>> WindowFinder::claim(const QList<PaneWish> &wishes)
{
    QList<std::optional<Found>> claims(wishes.size());
    for (const auto &[bundleID, windows] : candidates(wishes).asKeyValueRange()) {
        QList<WindowTraits> seen;
        for (const auto &[found, stack] : windows)
            seen << WindowTraits{title(found.window), stack, found.frame.value_or(Rect())};
        QList<PaneWish> theirs;
        QList<qsizetype> indices;
        for (qsizetype index = 0; index < wishes.size(); ++index) {
            if (wishes[index].pane.app->bundleID != bundleID)
                continue;
            theirs << wishes[index];
            indices << index;
        }
        const auto chosen = chooseWindows(theirs, seen);
        for (qsizetype i = 0; i < chosen.size(); ++i) {
            if (!chosen[i])
                continue;
            claims[indices[i]] = windows[*chosen[i]].found;
            m_claimed.insert(windows[*chosen[i]].found.window);
        }
    }
    return claims;
}

expected<Rect, AXError> WindowFinder::frame(const AXWindow &window)
{
    return ask(window.pid, [&] { return Platform::current().windows().frame(window.element); });
}

QString WindowFinder::title(const AXWindow &window)
{
    return ask(window.pid, [&] {
        return Platform::current().windows().title(window.element);
    }).value_or(QString());
}

/// A call to an application, unless one has timed out before.
template <typename Question>
std::invoke_result_t<Question> WindowFinder::ask(pid_t pid, Question question)
{
    if (m_unanswering.contains(pid))
        return unexpected<AXError>(AXError::cannotComplete);
    auto answer = question();
    if (!answer && answer.error() == AXError::cannotComplete)
        m_unanswering.insert(pid);
    return answer;
}

QList<AXWindow> WindowFinder::windowsOf(pid_t pid)
{
    return ask(pid, [pid] {
        return AXWindow::windowsIfAnswering(pid);
    }).value_or(QList<AXWindow>());
}

/// By application, front to back within each process.
QHash<QString, QList<WindowFinder::Candidate>> WindowFinder::candidates(
    const QList<PaneWish> &wishes)
{
    const ProcessesByID processes = runningProcesses();
    ProcessesByID wanted;
    QList<pid_t> pids;
    for (const PaneWish &wish : wishes) {
        const QString &bundleID = wish.pane.app->bundleID;
        if (!wanted.contains(bundleID))
            pids << wanted.insert(bundleID, processes.value(bundleID)).value();
    }
    pids.removeIf([this](pid_t pid) { return m_unanswering.contains(pid); });
    Platform::current().windows().readAhead(pids);

    QHash<QString, QList<Candidate>> candidates;
    QSet<AXWindow> seen = m_claimed;
    for (const auto &[bundleID, instances] : wanted.asKeyValueRange()) {
        m_shown[bundleID] = 0;
        for (const pid_t pid : instances) {
            int stack = 0;
            for (const AXWindow &window : windowsOf(pid)) {
                const int position = stack++;
                if (!window.belongsTo(bundleID))
                    continue;
                ++m_shown[bundleID];
                if (seen.contains(window))
                    continue;
                seen.insert(window);
                const auto frame = this->frame(window);
                if (frame || frame.error() != AXError::invalidUIElement)
                    candidates[bundleID] << Candidate{{window, frame}, position};
            }
        }
    }
    return candidates;
}

} // namespace corvane
