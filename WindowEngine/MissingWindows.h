#pragma once

#include "AppOpener.h"

namespace corvane {

/// Asks applications that run for the windows that panes of theirs still miss: one after another, never
/// more than are missing, and never while one may be coming by itself.
class MissingWindows final
{
public:
    /// A window may take `patience` to show.
    MissingWindows(AppOpener &opener, Clock::Duration patience)
        : m_opener(opener), m_patience(patience)
    {
    }

    /// To be called whenever windows were counted: the application shows so many by now, and so
    /// many of its panes wait for one.
    void update(const QString &bundleID, qsizetype shown, qsizetype missing);

    /// Whether the application was asked for a window, and did not refuse.
    [[nodiscard]] bool hasAsked(const QString &bundleID) const;
    /// Whether a window may come soon, or be asked for.
    [[nodiscard]] bool isUnderWay() const;

private:
    struct Account {
        qsizetype shown = -1;
        Clock::Duration changed{}; ///< when the number was another one last
        Clock::Duration deadline{}; ///< for the window that is awaited
        bool isAwaiting = false;
        bool isOver = false; ///< it refused, or was asked in vain
        bool wasAsked = false;
        bool isMissing = false;
    };

    void learnShown(Account &account, const QString &bundleID, qsizetype shown);
    void ask(Account &account, const QString &bundleID);

    AppOpener &m_opener;
    Clock::Duration m_patience;
    QHash<QString, Account> m_accounts;
};

} // namespace corvane
