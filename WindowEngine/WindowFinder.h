#pragma once

#include "AXWindow.h"
#include "Pane.h"

#include <QtCore/QHash>
#include <QtCore/QSet>

namespace corvane {

/// Finds the windows that the panes of a layout get, and asks their applications, except those that
/// have let a request time out: they are asked nothing more.
class WindowFinder final
{
public:
    struct Found {
        AXWindow window;
        expected<Rect, AXError> frame;
    };

    /// One look at the applications of these panes, which are in the order of their placing. Each pane
    /// gets a window that no pane has got before, or none. Only inside an operation.
    [[nodiscard]] QList<std::optional<Found>> claim(const QList<Pane> &panes);
    [[nodiscard]] bool hasWindow(const QString &bundleID);
    /// Whether it had a window, its pane's or another, at the latest look.
    [[nodiscard]] bool hasShown(const QString &bundleID) const
    {
        return m_showing.contains(bundleID);
    }

    [[nodiscard]] expected<Rect, AXError> frame(const AXWindow &window);
    [[nodiscard]] QString title(const AXWindow &window);

    void noteUnanswering(pid_t pid) { m_unanswering.insert(pid); }
    [[nodiscard]] const QSet<pid_t> &unanswering() const { return m_unanswering; }
    /// Identifiers of the applications that run now.
    [[nodiscard]] static QSet<QString> running();

private:
    template <typename Question>
    [[nodiscard]] std::invoke_result_t<Question> ask(pid_t pid, Question question);
    [[nodiscard]] QList<AXWindow> windowsOf(pid_t pid);
    [[nodiscard]] QHash<QString, QList<Found>> candidates(const QList<Pane> &panes);

    QSet<AXWindow> m_claimed; ///< each belongs to one pane, even if it did not move
    QSet<pid_t> m_unanswering;
    QSet<QString> m_showing;
};

} // namespace corvane
