#include "Restoration.h"

#include "Decoding.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <algorithm>

namespace corvane::demo {

using namespace Qt::StringLiterals;

namespace {

const QString layoutName = u"Demonstration"_s;

Rect toRect(const QJsonValue &value)
{
    return {value[0].toDouble(), value[1].toDouble(), value[2].toDouble(), value[3].toDouble()};
}

} // namespace

Restoration::Restoration(Desk &desk, desktop::CorvaneProcess &corvane)
    : m_desk(desk), m_corvane(corvane), m_probe(desk.connection()), m_expectation(desk.areas())
{
}

QString Restoration::capture()
{
    for (const Application application : applications) {
        if (const auto frame = m_probe.settledFrame(m_desk.window(application)))
            m_captured.insert(application, *frame);
    }
    const auto answer = m_corvane.ask({u"--capture"_s, layoutName});
    return answer.exitStatus == 0 ? QString::fromUtf8(answer.output) : QString();
}

bool Restoration::scatter()
{
    m_desk.strew();
    return std::ranges::none_of(applications, [this](Application application) {
        return m_probe.visibleFrame(m_desk.window(application)) == m_captured.value(application);
    });
}

QList<RestoredPane> Restoration::apply()
{
    const auto answer = m_corvane.ask({u"--apply-layout"_s, layoutName, u"--json"_s});
    m_succeeded = answer.exitStatus == 0;
    QList<RestoredPane> panes;
    for (const QJsonValue report : QJsonDocument::fromJson(answer.output)["panes"_L1].toArray())
        panes << restoredPane(report.toObject());
    return panes;
}

bool Restoration::isWhole(const QList<RestoredPane> &panes) const
{
    return m_succeeded && std::ranges::all_of(applications, [&](Application application) {
        return std::ranges::count_if(panes, [application](const RestoredPane &each) {
            return each.application == application && each.isBack;
        }) == 1;
    });
}

RestoredPane Restoration::restoredPane(const QJsonObject &report)
{
    DecodeProblems problems;
    RestoredPane restored;
    restored.pane = Pane::fromJson(report["pane"_L1], problems).value_or(Pane{});
    restored.status = report["status"_L1].toString();
    restored.application = applicationTitled(report["windowTitle"_L1].toString());
    if (!restored.application)
        return restored;
    const xcb_window_t window = m_desk.window(*restored.application);
    const Rect asked = toRect(report["frame"_L1]);
    restored.asked = asked;
    restored.reached = m_probe.settledFrame(window);
    restored.isBack = restored.reached
        && m_expectation.isLanding(
            *restored.reached, asked, sizeLimits(m_desk.connection(), window))
        && asked == m_captured.value(*restored.application);
    return restored;
}

std::optional<Application> Restoration::applicationTitled(const QString &windowTitle)
{
    const auto found = std::ranges::find_if(applications, [&](Application application) {
        const xcb_window_t window = m_desk.window(application);
        const QByteArray modern = m_desk.connection().property(window, "_NET_WM_NAME");
        const QByteArray title =
            modern.isEmpty() ? m_desk.connection().property(window, "WM_NAME") : modern;
        return QString::fromUtf8(title) == windowTitle;
    });
    return found == applications.end() ? std::nullopt : std::optional(*found);
}

} // namespace corvane::demo
