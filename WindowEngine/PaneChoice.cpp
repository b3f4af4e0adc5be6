#include "PaneChoice.h"

#include <QtCore/QLocale>

#include <algorithm>

namespace corvane {

namespace {

/// The same for texts that differ in case only, to the user.
QString folded(const QString &text)
{
    return QLocale().toLower(text).toCaseFolded();
}

class Choice final
{
public:
    Choice(const QList<PaneWish> &wishes, const QList<WindowTraits> &windows)
        : m_wishes(wishes)
        , m_windows(windows)
        , m_isTaken(windows.size(), false)
        , m_chosen(wishes.size())
    {
        for (const WindowTraits &window : windows)
            m_titles << folded(window.title);
        takeInOrder([](const Pane &pane) { return demandsTitle(pane); });
        takeTheBest();
        takeInOrder([](const Pane &pane) { return !demandsTitle(pane) && !pane.prefersTitle(); });
    }

    [[nodiscard]] const QList<std::optional<qsizetype>> &chosen() const { return m_chosen; }

private:
    template <typename Condition>
    void takeInOrder(Condition condition)
    {
        for (qsizetype wish = 0; wish < m_wishes.size(); ++wish) {
            const Pane &pane = m_wishes[wish].pane;
            if (!condition(pane))
                continue;
            const QString text = folded(pane.titleContains.value_or(QString()));
            for (qsizetype window = 0; window < m_windows.size() && !m_chosen[wish]; ++window) {
                if (!m_isTaken[window] && m_titles[window].contains(text))
                    take(wish, window);
            }
        }
    }

    void takeTheBest()
    {
        QList<qsizetype> wished;
        QList<WindowTraits> preferences;
        for (qsizetype wish = 0; wish < m_wishes.size(); ++wish) {
            const auto &[pane, target] = m_wishes[wish];
            if (!pane.prefersTitle())
                continue;
            wished << wish;
            preferences << WindowTraits{*pane.capturedTitle, pane.stack.value_or(0), target};
        }
        QList<qsizetype> left;
        QList<WindowTraits> candidates;
        for (qsizetype window = 0; window < m_windows.size(); ++window) {
            if (m_isTaken[window])
                continue;
            left << window;
            candidates << m_windows[window];
        }
        const auto best = bestAssignment(preferences, candidates);
        for (qsizetype i = 0; i < best.size(); ++i) {
            if (best[i])
                take(wished[i], left[*best[i]]);
        }
    }

    void take(qsizetype wish, qsizetype window)
    {
        m_isTaken[window] = true;
        m_chosen[wish] = window;
    }

    const QList<PaneWish> &m_wishes;
    const QList<WindowTraits> &m_windows;
    QStringList m_titles;
    QList<bool> m_isTaken;
    QList<std::optional<qsizetype>> m_chosen;
};

} // namespace

bool demandsTitle(const Pane &pane)
{
    return pane.titleContains && !pane.titleContains->isEmpty() && !pane.prefersTitle();
}

QList<std::optional<qsizetype>> chooseWindows(
    const QList<PaneWish> &wishes, const QList<WindowTraits> &windows)
{
    return Choice(wishes, windows).chosen();
}

} // namespace corvane
