#include "Mover.h"

#include "FlightRecorder.h"
#include "Platform.h"
#include "Screens.h"

#include <QtCore/QCoreApplication>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QString displayOfFocusedWindow()
{
    const auto focused = AXWindow::focused();
    const auto frame = focused.window ? focused.window->frame() : std::nullopt;
    const auto screen = frame ? Screens::screenContaining(*frame) : std::nullopt;
    return screen ? screen->name : QString();
}

WindowManager::Options optionsOf(const Settings &settings)
{
    return {settings.gap, settings.cycling, settings.sizeStep};
}

/// The report of an outcome, for which the desktop is asked what else the user should be told.
OutcomeReport report(Placement placement, MoveOutcome outcome)
{
    OutcomeReport report{placement, std::move(outcome), {}, {}};
    const auto &value = report.outcome.value;
    if (std::holds_alternative<MoveOutcome::NoWindow>(value)
        || std::holds_alternative<MoveOutcome::Refused>(value)) {
        if (const auto frontmost = Platform::current().applications().frontmost())
            report.frontmostName = frontmost->localizedName;
    }
    if (std::holds_alternative<MoveOutcome::NotTrusted>(value))
        report.distrustReason = Platform::current().windows().distrustReason();
    return report;
}

} // namespace

Mover::Mover(AppModel &model) : m_model(model), m_windowManager(optionsOf(model.settings()))
{
    follow(model.settings());
}

void Mover::follow(const Settings &settings)
{
    m_windowManager.setOptions(optionsOf(settings));
    Platform::current().windows().setTiledWindowsStay(settings.tiledWindows == TiledWindows::stay);
}

OutcomeReport Mover::perform(Placement placement)
{
    OutcomeReport result = report(placement, m_windowManager.perform(placement));
    writeDown(result);
    if (onPerformed)
        onPerformed(result);
    return result;
}

void Mover::writeDown(const OutcomeReport &report) const
{
    const MoveOutcome &outcome = report.outcome;
    if (const auto *moved = std::get_if<MoveOutcome::Moved>(&outcome.value)) {
        m_model.writeDown({ActivityEntry::moved(moved->record)});
        FlightRecorder::shared().record(u"move"_s, report.line(Titles::hidden));
        return;
    }
    if (const auto *refused = std::get_if<MoveOutcome::Refused>(&outcome.value))
        m_model.writeDown({ActivityEntry::refused(report.pressed,
            report.frontmostName.value_or(QCoreApplication::translate("ActivityEntry", "An app")),
            activityText(refused->reason), displayOfFocusedWindow(),
            Platform::current().clock().date())});
    FlightRecorder::shared().record(u"refusal"_s, report.line());
}

} // namespace corvane
