#include "LayoutRun.h"

#include "Geometry.h"
#include "Screens.h"

#include <QtCore/QLocale>

#include <algorithm>
#include <limits>

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

bool namesWindow(const Pane &pane)
{
    return pane.titleContains && !pane.titleContains->isEmpty();
}

/// The same for texts that differ in case only, to the user.
QString folded(const QString &text)
{
    return QLocale().toLower(text).toCaseFolded();
}

} // namespace

struct LayoutRun::Candidate {
    AXWindow window;
    std::optional<QString> title = {}; ///< folded, once a pane asks for it
};

struct LayoutRun::Assignment {
    qsizetype pane;
    std::optional<AXWindow> window = {};
    expected<Rect, AXError> previous = {};
    Rect target = {};
};

LayoutRun::LayoutRun(const LayoutEngine &engine, const WindowLayout &layout) : m_engine(engine)
{
    for (const Pane &pane : layout.panes)
        m_results << PaneResult{pane, {Status::Empty{}}};
    const QList<ScreenInfo> screens = Screens::all();
    const auto mapping = LayoutEngine::displayMapping(layout.displays, Screens::signature(screens));
    for (const auto &[saved, current] : mapping.asKeyValueRange())
        m_screens.insert(saved, screens[current]);
    const QStringList running = runningProcesses().keys();
    m_running = {running.begin(), running.end()};
}

void LayoutRun::refuseAll(const QString &reason)
{
    for (PaneResult &result : m_results)
        result.status = {Status::Refused{reason}};
}

LayoutRun::Panes LayoutRun::begin()
{
    Panes held;
    for (qsizetype index = 0; index < m_results.size(); ++index) {
        if (const auto status = settledAtOnce(pane(index)))
            m_results[index].status = *status;
        else
            held << index;
    }
    // Panes without a place in the stack first, then from the back to the front.
    std::ranges::stable_sort(held, std::greater(), [this](qsizetype index) -> qint64 {
        const std::optional<int> stack = pane(index).stack;
        return stack ? *stack : std::numeric_limits<qint64>::max() - index;
    });
    return held;
}

bool LayoutRun::isComingUp()
{
    const WindowOperation operation(Platform::current().windows());
    const ProcessesByID processes = runningProcesses();
    m_comingUp.removeIf([&](const QString &bundleID) {
        return std::ranges::any_of(processes.value(bundleID), [&](pid_t pid) {
            return std::ranges::any_of(
                windowsOf(pid), [&](const AXWindow &window) { return window.belongsTo(bundleID); });
        });
    });
    return !m_comingUp.isEmpty();
}

LayoutRun::Panes LayoutRun::place(Panes panes)
{
    WindowAccess &windows = Platform::current().windows();
    const WindowOperation operation(windows);
    // A pane that names its window claims it before one that takes any.
    std::stable_partition(
        panes.begin(), panes.end(), [this](qsizetype index) { return namesWindow(pane(index)); });
    const QList<Assignment> assigned = assignments(panes);

    QList<WindowMove> moves;
    for (const Assignment &assignment : assigned) {
        if (assignment.window && assignment.previous)
            moves << WindowMove{assignment.window->element, assignment.target};
    }
    windows.moveAhead(moves);

    Panes left;
    for (const Assignment &assignment : assigned) {
        if (const auto status = settled(assignment))
            m_results[assignment.pane].status = *status;
        else
            left << assignment.pane;
    }
    return left;
}

void LayoutRun::giveUp(const Panes &panes)
{
    for (const qsizetype index : panes) {
        if (m_opened.contains(pane(index).app->bundleID))
            m_results[index].status = {Status::Launched{}};
        else
            m_results[index].status = {Status::NoWindow{}};
    }
}

void LayoutRun::bringForward()
{
    const WindowOperation operation(Platform::current().windows());
    for (const AXWindow &window : std::as_const(m_placed)) {
        if (m_unanswering.contains(window.pid) || window.bringToFrontAlone() || !window.isWindow())
            continue;
        window.raise();
        window.makeMain();
        AXWindow::bringForward(window.pid);
    }
}

std::optional<PaneResult::Status> LayoutRun::settledAtOnce(const Pane &pane)
{
    if (!pane.app)
        return Status{Status::Empty{}};
    if (!m_screens.contains(pane.display))
        return Status{Status::DisplayMissing{}};
    const QString &bundleID = pane.app->bundleID;
    if (m_running.contains(bundleID))
        return std::nullopt;
    const Installation found = Platform::current().applications().installation(bundleID);
    if (found.state == Installation::State::notInstalled)
        return Status{Status::NotInstalled{}};
    if (!pane.launch && !m_comingUp.contains(bundleID))
        return Status{Status::NotRunning{}};
    if (const auto &opened = open(bundleID); !opened)
        return Status{Status::Refused{opened.error()}};
    return std::nullopt;
}

const expected<void, QString> &LayoutRun::open(const QString &bundleID)
{
    if (const auto before = m_opened.constFind(bundleID); before != m_opened.cend())
        return *before;
    const auto opened = Platform::current().applications().open(bundleID);
    if (opened)
        m_comingUp.insert(bundleID);
    return *m_opened.insert(bundleID, opened);
}

template <typename Question>
std::invoke_result_t<Question> LayoutRun::ask(pid_t pid, Question question)
{
    if (m_unanswering.contains(pid))
        return unexpected<AXError>(AXError::cannotComplete);
    auto answer = question();
    if (!answer && answer.error() == AXError::cannotComplete)
        m_unanswering.insert(pid);
    return answer;
}

QList<AXWindow> LayoutRun::windowsOf(pid_t pid)
{
    return ask(pid, [pid] {
        return AXWindow::windowsIfAnswering(pid);
    }).value_or(QList<AXWindow>());
}

expected<Rect, AXError> LayoutRun::frameOf(const AXWindow &window)
{
    return ask(window.pid, [&] { return Platform::current().windows().frame(window.element); });
}

QString LayoutRun::titleOf(const AXWindow &window)
{
    return ask(window.pid, [&] {
        return Platform::current().windows().title(window.element);
    }).value_or(QString());
}

QHash<QString, QList<LayoutRun::Candidate>> LayoutRun::candidates(const Panes &panes)
{
    const ProcessesByID processes = runningProcesses();
    ProcessesByID wanted;
    QList<pid_t> pids;
    for (const qsizetype index : panes) {
        const QString &bundleID = pane(index).app->bundleID;
        if (!wanted.contains(bundleID))
            pids << wanted.insert(bundleID, processes.value(bundleID)).value();
    }
    pids.removeIf([this](pid_t pid) { return m_unanswering.contains(pid); });
    Platform::current().windows().lookAhead(pids);

    QHash<QString, QList<Candidate>> candidates;
    QSet<AXWindow> seen = m_claimed;
    for (const auto &[bundleID, instances] : wanted.asKeyValueRange()) {
        for (const pid_t pid : instances) {
            for (const AXWindow &window : windowsOf(pid)) {
                if (seen.contains(window) || !window.belongsTo(bundleID))
                    continue;
                candidates[bundleID] << Candidate{window};
                seen.insert(window);
            }
        }
    }
    return candidates;
}

QList<LayoutRun::Assignment> LayoutRun::assignments(const Panes &panes)
{
    auto candidates = this->candidates(panes);
    QList<Assignment> assigned;
    for (const qsizetype index : panes) {
        Assignment assignment{index};
        assignment.window = claim(pane(index), candidates[pane(index).app->bundleID]);
        if (assignment.window) {
            assignment.previous = frameOf(*assignment.window);
            assignment.target = Geometry::frame(
                pane(index).rect, m_screens[pane(index).display].visibleFrame, m_engine.gap);
        }
        assigned << assignment;
    }
    return assigned;
}

std::optional<AXWindow> LayoutRun::claim(const Pane &pane, QList<Candidate> &candidates)
{
    auto found = candidates.begin();
    if (namesWindow(pane)) {
        const QString text = folded(*pane.titleContains);
        found = std::ranges::find_if(candidates, [&](Candidate &candidate) {
            if (!candidate.title)
                candidate.title = folded(titleOf(candidate.window));
            return candidate.title->contains(text);
        });
    }
    if (found == candidates.end())
        return std::nullopt;
    const AXWindow window = found->window;
    candidates.erase(found);
    m_claimed.insert(window);
    return window;
}

/// Nothing for a pane that has no window, or whose window closed before it could be moved.
std::optional<PaneResult::Status> LayoutRun::settled(const Assignment &assignment)
{
    if (!assignment.window)
        return std::nullopt;
    const AXWindow &window = *assignment.window;
    if (const auto moved = move(assignment); !moved) {
        if (moved.error().code() == AXError::invalidUIElement)
            return std::nullopt;
        return Status{Status::Refused{moved.error().description()}};
    }
    m_placed << window;
    const Status::Placed placed{titleOf(window), assignment.target, *assignment.previous};
    if (m_engine.onPlaced)
        m_engine.onPlaced(window, placed.previous);
    return Status{placed};
}

expected<void, MoveError> LayoutRun::move(const Assignment &assignment)
{
    const AXWindow &window = *assignment.window;
    // One look more: an application that hangs by now would time out on every single write.
    const auto current = assignment.previous ? frameOf(window) : assignment.previous;
    if (!current)
        return unexpected<MoveError>({MoveError::Position{current.error()}});
    auto moved =
        window.setFrame(assignment.target, m_screens[pane(assignment.pane).display].visibleFrame,
            m_engine.gap + Geometry::slackBeyondGap);
    if (!moved && moved.error().code() == AXError::cannotComplete)
        m_unanswering.insert(window.pid);
    return moved;
}

} // namespace corvane
