#include "MissingWindows.h"

#include "Platform.h"

#include <algorithm>

namespace corvane {

using namespace std::chrono_literals;

namespace {

// Applications that open several windows by themselves open them in quicker succession.
constexpr Clock::Duration quiet = 1s;

Clock::Duration now()
{
    return Platform::current().clock().now();
}

} // namespace

void MissingWindows::update(const QString &bundleID, qsizetype shown, qsizetype missing)
{
    Account &account = m_accounts[bundleID];
    learnShown(account, bundleID, shown);
    account.isMissing = missing > 0;
    if (account.isAwaiting && now() >= account.deadline) {
        account.isAwaiting = false;
        account.isOver = true;
    }
    const bool isQuiet = now() - account.changed >= quiet && !m_opener.isComingUp(bundleID);
    if (account.isMissing && !account.isOver && !account.isAwaiting && isQuiet)
        ask(account, bundleID);
}

void MissingWindows::learnShown(Account &account, const QString &bundleID, qsizetype shown)
{
    if (shown == account.shown)
        return;
    // One that has been running since before has all the windows that it opens by itself.
    const bool isOld = account.shown < 0 && !m_opener.hasJustOpened(bundleID);
    account.changed = isOld ? now() - quiet : now();
    if (shown > account.shown)
        account.isAwaiting = false;
    account.shown = shown;
    m_opener.learnWindows(bundleID, shown);
}

void MissingWindows::ask(Account &account, const QString &bundleID)
{
    account.wasAsked = m_opener.openWindow(bundleID, account.shown, m_patience).has_value();
    account.isAwaiting = account.wasAsked;
    account.isOver = !account.wasAsked;
    account.deadline = now() + m_patience;
}

bool MissingWindows::hasAsked(const QString &bundleID) const
{
    return m_accounts.value(bundleID).wasAsked;
}

bool MissingWindows::isUnderWay() const
{
    return std::ranges::any_of(m_accounts, [](const Account &account) {
        return account.isAwaiting || (account.isMissing && !account.isOver);
    });
}

} // namespace corvane
