#include "PaneChoice.h"

#include <QtCore/QLocale>

namespace corvane {

namespace {

/// The same for texts that differ in case only, to the user.
QString folded(const QString &text)
{
    return QLocale().toLower(text).toCaseFolded();
}

} // namespace

bool namesWindow(const Pane &pane)
{
    return pane.titleContains && !pane.titleContains->isEmpty();
}

QList<std::optional<qsizetype>> chooseWindows(
    const QList<Pane> &panes, const QList<WindowCandidate> &windows)
{
    QStringList titles;
    for (const WindowCandidate &window : windows)
        titles << folded(window.title);
    QList<bool> isTaken(windows.size(), false);
    QList<std::optional<qsizetype>> chosen;
    for (const Pane &pane : panes) {
        const QString text = namesWindow(pane) ? folded(*pane.titleContains) : QString();
        std::optional<qsizetype> found;
        for (qsizetype i = 0; i < windows.size() && !found; ++i) {
            if (!isTaken[i] && titles[i].contains(text))
                found = i;
        }
        if (found)
            isTaken[*found] = true;
        chosen << found;
    }
    return chosen;
}

} // namespace corvane
