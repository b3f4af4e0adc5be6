#include "AppOpener.h"

#include "Platform.h"

namespace corvane {

expected<void, QString> AppOpener::open(const QString &bundleID, Clock::Duration patience)
{
    Applications &applications = Platform::current().applications();
    // One that shows its window and quits between two applies is not coming up any more.
    connect(&applications, &Applications::launched, this, &AppOpener::learnLaunched,
        Qt::UniqueConnection);
    const auto opened = applications.open(bundleID);
    if (opened)
        m_openings.insert(bundleID, {Platform::current().clock().now() + patience});
    return opened;
}

expected<void, QString> AppOpener::openWindow(
    const QString &bundleID, qsizetype shown, Clock::Duration patience)
{
    const auto opened = Platform::current().applications().openWindow(bundleID);
    if (opened)
        m_openings.insert(bundleID, {Platform::current().clock().now() + patience, shown});
    return opened;
}

bool AppOpener::hasJustOpened(const QString &bundleID) const
{
    const auto opening = m_openings.constFind(bundleID);
    return opening != m_openings.cend() && Platform::current().clock().now() < opening->deadline;
}

bool AppOpener::isComingUp(const QString &bundleID) const
{
    return hasJustOpened(bundleID) && !m_openings[bundleID].hasShown;
}

void AppOpener::learnWindows(const QString &bundleID, qsizetype shown)
{
    if (const auto opening = m_openings.find(bundleID); opening != m_openings.end())
        opening->hasShown |= shown > opening->shownBefore;
}

void AppOpener::learnLaunched(const RunningApplication &application)
{
    learnWindows(application.bundleIdentifier, 1);
}

} // namespace corvane
