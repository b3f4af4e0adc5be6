#include "LayoutRun.h"

#include "DisplayMapping.h"
#include "Geometry.h"
#include "PaneChoice.h"
#include "Screens.h"
#include "Session.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <limits>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr Clock::Duration pollPause = 250ms;
constexpr Clock::Duration retryPause = 600ms;
constexpr Clock::Duration followPause = 100ms;
// Programs that restore a size of their own do so within two seconds after they have shown.
constexpr Clock::Duration restoresWithin = 2500ms;

Clock::Duration now()
{
    return Platform::current().clock().now();
}

QString retryReport(int rounds, qsizetype unsettled)
{
    return u"waited out %1 round%2 for apps still coming up; %3 never settled"_s.arg(rounds)
        .arg(rounds == 1 ? QString() : u"s"_s)
        .arg(unsettled);
}

} // namespace

LayoutRun::LayoutRun(
    const LayoutEngine &engine, AppOpener &opener, const WindowLayout &layout, const Terms &terms)
    : m_engine(engine), m_opener(opener), m_terms(terms), m_missing(opener, terms.launchWait)
{
    for (const Pane &pane : layout.panes)
        m_results << PaneResult{pane, {Status::Empty{}}};
    const QList<ScreenInfo> screens = Screens::all();
    const auto mapping = displayMapping(layout.displays, Screens::signature(screens));
    for (const auto &[saved, current] : mapping.asKeyValueRange())
        m_screens.insert(saved, screens[current]);
}

void LayoutRun::refuseAll(const QString &reason)
{
    for (PaneResult &result : m_results)
        result.status = {Status::Refused{reason}};
}

void LayoutRun::begin()
{
    for (qsizetype index = 0; index < m_results.size(); ++index) {
        if (const auto status = settledAtOnce(pane(index)))
            m_results[index].status = *status;
        else
            m_order << index;
    }
    // Panes without a place in the stack first, then from the back to the front.
    std::ranges::stable_sort(m_order, std::greater(), [this](qsizetype index) -> qint64 {
        const std::optional<int> stack = pane(index).stack;
        return stack ? *stack : std::numeric_limits<qint64>::max() - index;
    });
    // A pane that names its window claims it before one that takes any.
    std::stable_partition(m_order.begin(), m_order.end(),
        [this](qsizetype index) { return demandsTitle(pane(index)); });
    m_waiting = m_order;
    m_launchDeadline = now() + m_terms.launchWait;
    pass();
    if (m_stack.isEmpty() && isWaiting())
        m_stack.rememberFocus();
    tellProgress();
}

bool LayoutRun::isUnderWay() const
{
    return isWaiting() || !m_followed.isEmpty();
}

Clock::Duration LayoutRun::pause() const
{
    const Clock::Duration untilPass = std::max(m_nextPass - now(), Clock::Duration(0));
    if (m_followed.isEmpty())
        return untilPass;
    return isWaiting() ? std::min(untilPass, followPause) : followPause;
}

void LayoutRun::goOn()
{
    reviewFollowed();
    if (!m_waiting.isEmpty() && now() >= m_nextPass)
        pass();
    tellProgress();
}

void LayoutRun::end(End end)
{
    if (m_rounds > 0 && m_engine.onDiagnostic)
        m_engine.onDiagnostic(retryReport(m_rounds, m_waiting.size()));
    for (const qsizetype index : std::as_const(m_waiting))
        m_results[index].status = statusWithoutWindow(pane(index), end);
}

void LayoutRun::leaveAlone(const AXWindow &window)
{
    m_followed.removeIf(
        [&](const Followed &followed) { return followed.assignment.window == window; });
}

bool LayoutRun::isWaiting() const
{
    return !m_waiting.isEmpty()
        && (!m_retryDeadline || now() < *m_retryDeadline || m_missing.isUnderWay());
}

void LayoutRun::pass()
{
    // Where the application has ended, no other window comes.
    m_waiting.removeIf([this](qsizetype index) {
        return std::holds_alternative<Status::Placed>(m_results[index].status.value)
            && !runningIdentifiers().contains(pane(index).app->bundleID);
    });
    m_waiting = place(m_waiting);
    m_stack.arrange(m_finder.unanswering());
    tellPassed();
    const bool mayStillCome = !m_retryDeadline && isComingUp() && now() < m_launchDeadline;
    askForMissing();
    if (mayStillCome || m_missing.isUnderWay()) {
        m_nextPass = now() + pollPause;
        return;
    }
    if (m_retryDeadline)
        ++m_rounds;
    else
        m_retryDeadline = now() + m_terms.retryFor;
    m_nextPass = now() + retryPause;
}

/// Whether an application that was opened has not shown a window yet.
bool LayoutRun::isComingUp()
{
    if (m_comingUp.isEmpty())
        return false;
    m_comingUp.removeIf([&](const QString &bundleID) {
        m_opener.learnWindows(bundleID, m_finder.shown(bundleID));
        return !m_opener.isComingUp(bundleID);
    });
    return !m_comingUp.isEmpty();
}

void LayoutRun::askForMissing()
{
    QHash<QString, qsizetype> missing;
    for (const qsizetype index : std::as_const(m_order)) {
        const QString &bundleID = pane(index).app->bundleID;
        // What was opened owes its first window; a new one has no title that somebody typed.
        const bool owesNone = !m_opened.contains(bundleID) || m_finder.shown(bundleID) > 0;
        const bool isAskedFor = owesNone && pane(index).launch && !demandsTitle(pane(index));
        missing[bundleID] += isAskedFor && m_waiting.contains(index) ? 1 : 0;
    }
    for (const auto &[bundleID, count] : missing.asKeyValueRange())
        m_missing.update(bundleID, m_finder.shown(bundleID), count);
}

LayoutRun::Panes LayoutRun::place(const Panes &panes)
{
    WindowAccess &windows = Platform::current().windows();
    const WindowOperation operation(windows);
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

PaneStatus LayoutRun::statusWithoutWindow(const Pane &pane, End end) const
{
    const QString &bundleID = pane.app->bundleID;
    if (end == End::superseded)
        return {Status::Refused{QCoreApplication::translate(
            "PaneResult", "had no window yet when the next layout was applied")}};
    if (m_opened.contains(bundleID) || m_missing.hasAsked(bundleID))
        return {Status::Launched{demandsTitle(pane) && m_finder.shown(bundleID) > 0}};
    return {Status::NoWindow{}};
}

std::optional<PaneResult::Status> LayoutRun::settledAtOnce(const Pane &pane)
{
    if (!pane.app)
        return Status{Status::Empty{}};
    if (!m_screens.contains(pane.display))
        return Status{Status::DisplayMissing{}};
    const QString &bundleID = pane.app->bundleID;
    if (m_opener.isComingUp(bundleID)) {
        m_opened.insert(bundleID, {});
        m_comingUp.insert(bundleID);
    }
    if (m_running.contains(bundleID) || m_comingUp.contains(bundleID))
        return std::nullopt;
    const Installation found = Platform::current().applications().installation(bundleID);
    if (found.state == Installation::State::notInstalled)
        return Status{Status::NotInstalled{}};
    if (!pane.launch)
        return Status{Status::NotRunning{}};
    if (const auto &opened = open(bundleID); !opened)
        return Status{Status::Refused{opened.error()}};
    return std::nullopt;
}

const expected<void, QString> &LayoutRun::open(const QString &bundleID)
{
    if (const auto before = m_opened.constFind(bundleID); before != m_opened.cend())
        return *before;
    const auto opened = m_opener.open(bundleID, m_terms.launchWait + m_terms.retryFor);
    if (opened)
        m_comingUp.insert(bundleID);
    return *m_opened.insert(bundleID, opened);
}

QList<LayoutRun::Assignment> LayoutRun::assignments(const Panes &panes)
{
    QList<PaneWish> wanted;
    for (const qsizetype index : panes)
        wanted << PaneWish{pane(index),
            Geometry::frame(
                pane(index).rect, m_screens[pane(index).display].visibleFrame, m_engine.gap)};
    const auto found = m_finder.claim(wanted);
    QList<Assignment> assigned;
    for (qsizetype i = 0; i < panes.size(); ++i) {
        Assignment assignment{panes[i]};
        if (found[i]) {
            assignment.window = found[i]->window;
            assignment.previous = found[i]->frame;
            assignment.target = wanted[i].target;
        }
        assigned << assignment;
    }
    return assigned;
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
    const QString &bundleID = pane(assignment.pane).app->bundleID;
    const Status::Placed placed{m_finder.title(window), reached(assignment), *assignment.previous,
        m_opened.contains(bundleID) || m_missing.hasAsked(bundleID)};
    m_stack.add(m_order.indexOf(assignment.pane), window);
    follow(assignment, placed.frame);
    tell(window, assignment.pane, placed);
    return Status{placed};
}

expected<void, MoveError> LayoutRun::move(const Assignment &assignment)
{
    const AXWindow &window = *assignment.window;
    // Read once more: an application that hangs by now would time out on every single write.
    const auto current = assignment.previous ? m_finder.frame(window) : assignment.previous;
    if (!current)
        return unexpected<MoveError>({MoveError::Position{current.error()}});
    auto moved =
        window.setFrame(assignment.target, m_screens[pane(assignment.pane).display].visibleFrame,
            m_engine.gap + Geometry::slackBeyondGap);
    if (!moved && moved.error().code() == AXError::cannotComplete)
        m_finder.stopAsking(window.pid);
    return moved;
}

Rect LayoutRun::reached(const Assignment &assignment)
{
    return m_finder.frame(*assignment.window).value_or(assignment.target);
}

void LayoutRun::tell(const AXWindow &window, qsizetype index, const PaneStatus::Placed &placed)
{
    m_untold << PaneResult{pane(index), {placed}};
    if (m_engine.onPlaced)
        m_engine.onPlaced(window, placed.previous);
}

void LayoutRun::tellPassed()
{
    const QList<PaneResult> news = std::exchange(m_untold, {});
    if (!news.isEmpty() && m_engine.onPassed)
        m_engine.onPassed(news);
}

void LayoutRun::tellProgress()
{
    if (!m_engine.onProgress || m_toldWaiting == m_waiting)
        return;
    m_toldWaiting = m_waiting;
    QList<PaneResult> settled;
    for (qsizetype index = 0; index < m_results.size(); ++index) {
        if (!m_waiting.contains(index))
            settled << m_results[index];
    }
    m_engine.onProgress(settled, m_waiting.size());
}

void LayoutRun::follow(const Assignment &assignment, const Rect &reached)
{
    const QString &bundleID = pane(assignment.pane).app->bundleID;
    const bool isNew = m_opened.contains(bundleID) || m_opener.hasJustOpened(bundleID);
    if (!isNew && m_terms.follow == LayoutEngine::Follow::opened)
        return;
    const Clock::Duration atLeast = isNew ? restoresWithin : Clock::Duration(0);
    m_followed.push_back({assignment, StrayWatch(assignment.target, reached, now(), atLeast)});
}

void LayoutRun::reviewFollowed()
{
    if (m_followed.isEmpty())
        return;
    Platform &platform = Platform::current();
    const bool isButtonDown = platform.session().isPointerButtonDown();
    const WindowOperation operation(platform.windows());
    QList<pid_t> pids;
    for (const Followed &each : m_followed) {
        const pid_t pid = each.assignment.window->pid;
        if (!m_finder.unanswering().contains(pid) && !pids.contains(pid))
            pids << pid;
    }
    platform.windows().readAhead(pids);
    m_stack.returnFocus(isButtonDown);
    for (qsizetype i = m_followed.size() - 1; i >= 0; --i) {
        if (!review(m_followed[i], isButtonDown))
            m_followed.removeAt(i);
    }
    tellPassed();
}

bool LayoutRun::review(Followed &followed, bool isButtonDown)
{
    const Assignment &assignment = followed.assignment;
    const auto frame = m_finder.frame(*assignment.window);
    if (!frame) {
        if (frame.error() == AXError::invalidUIElement)
            awaitAnother(assignment.pane);
        return false;
    }
    const auto finding = followed.watch.judge(*frame, isButtonDown, now());
    if (finding == StrayWatch::Finding::strayed)
        return putBack(followed, *frame);
    // It may have been on its way when it was placed.
    if (followed.watch.isInPlace(*frame))
        std::get<Status::Placed>(m_results[assignment.pane].status.value).frame = *frame;
    return finding != StrayWatch::Finding::over;
}

/// Some programs show a window while they load, which is none of the kind that loading screens are.
void LayoutRun::awaitAnother(qsizetype index)
{
    const QString &bundleID = pane(index).app->bundleID;
    if (!m_opened.contains(bundleID))
        return;
    m_stack.remove(m_order.indexOf(index));
    m_waiting << index;
    std::ranges::sort(m_waiting, {}, [this](qsizetype each) { return m_order.indexOf(each); });
}

bool LayoutRun::putBack(Followed &followed, const Rect &strayed)
{
    const Assignment &assignment = followed.assignment;
    if (!move(assignment))
        return false;
    auto &placed = std::get<Status::Placed>(m_results[assignment.pane].status.value);
    placed.frame = reached(assignment);
    followed.watch.settle(placed.frame, now());
    tell(*assignment.window, assignment.pane,
        {placed.windowTitle, placed.frame, strayed, placed.wasOpened});
    return true;
}

} // namespace corvane
