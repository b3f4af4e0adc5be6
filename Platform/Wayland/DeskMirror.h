#pragma once

#include "Toplevel.h"
#include "WindowNumbers.h"

namespace corvane::wayland {

/// The desktop as the agent has told it, change by change.
class DeskMirror final
{
public:
    /// Of what the agent has told.
    struct Changes {
        bool windows =
            false; ///< which there are, their order, names and states, or which has the focus
        bool frames = false;
        bool workAreas = false;
    };

    /// `news`: a JSON object with any of these members, where a rectangle is [x, y, width, height]:
    /// "windows", each whole; "frames", each a window's identifier and its frame; "order", identifiers of
    /// all windows that there are, front to back; "focused", an identifier; "areas".
    /// Nothing where that is not so, and then the mirror stays as it is.
    [[nodiscard]] std::optional<Changes> take(const QString &news);
    /// Nothing until the agent has told of everything.
    [[nodiscard]] std::optional<wayland::Desk> desk() const;
    [[nodiscard]] QString identifier(const WindowElement &window) const
    {
        return m_numbers.identifier(window);
    }

private:
    WindowNumbers m_numbers;
    QHash<WindowElement, wayland::Toplevel> m_windows;
    std::optional<QList<WindowElement>> m_order;
    std::optional<QList<wayland::WorkArea>> m_workAreas;
    QString m_focused;
};

} // namespace corvane::wayland
