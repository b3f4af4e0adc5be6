#pragma once

#include "AXWindow.h"
#include "PaneChoice.h"

#include <QtCore/QHash>
#include <QtCore/QSet>

namespace corvane {

/// The identifiers of the applications that run now.
[[nodiscard]] QSet<QString> runningIdentifiers();

/// Finds the windows that the panes of a layout get, and asks their applications, except those that
/// have let a request time out: they are asked nothing more.
class WindowFinder final
{
public:
    struct Found {
        AXWindow window;
        expected<Rect, AXError> frame;
    };

    /// Asks the applications of these panes, which are in the order of their placing, for their
    /// windows. Each pane gets a window that no pane has got before, or none. Only inside an
    /// operation.
    [[nodiscard]] QList<std::optional<Found>> claim(const QList<PaneWish> &wishes);
    /// How many windows the application had when it was asked last, in panes or not.
    [[nodiscard]] qsizetype shown(const QString &bundleID) const { return m_shown.value(bundleID); }

    [[nodiscard]] expected<Rect, AXError> frame(const AXWindow &window);
    [[nodiscard]] QString title(const AXWindow &window);

    void stopAsking(pid_t pid) { m_unanswering.insert(pid); }
    [[nodiscard]] const QSet<pid_t> &unanswering() const { return m_unanswering; }

private:
    struct Candidate {
        Found found;
        int stack = 0; ///< among the windows of its process
    };

    template <typename Question>
    [[nodiscard]] std::invoke_result_t<Question> ask(pid_t pid, Question question);
    [[nodiscard]] QList<AXWindow> windowsOf(pid_t pid);
    [[nodiscard]] QHash<QString, QList<Candidate>> candidates(const QList<PaneWish> &wishes);

    QSet<AXWindow> m_claimed; ///< each belongs to one pane, even if it did not move
    QSet<pid_t> m_unanswering;
    QHash<QString, qsizetype> m_shown;
};

} // namespace corvane
