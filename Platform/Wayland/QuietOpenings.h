#pragma once

#include "ToplevelRegistry.h"

namespace corvane::wayland {

/// Gives the focus back that windows of applications which we open take, for a moment after each came:
/// compositors hand it to most new windows by themselves.
class QuietOpenings final : public QObject
{
public:
    explicit QuietOpenings(ToplevelRegistry &registry);

    /// To be called before the application is asked to show a window.
    void begin(const QString &bundleIdentifier);
    [[nodiscard]] bool areUnderWay();
    /// The application has a window that is new, or has just turned out to be its.
    void greet(const WindowElement &window, const QString &bundleIdentifier);
    /// We are giving this window the focus.
    void allow(const WindowElement &window);

private:
    using Time = Compositor::Time;

    struct Opening {
        QString bundleIdentifier;
        Time end;
    };
    struct Newcomer {
        WindowElement window;
        Time end;
        int focusesLeft = 3; ///< so many are answered: a program may insist
    };

    void review(const std::optional<WindowElement> &focused);
    void forgetPast();

    ToplevelRegistry &m_registry;
    QList<Opening> m_openings;
    QList<Newcomer> m_newcomers;
    QList<WindowElement> m_owners; ///< that had the focus by right, the latest last
};

} // namespace corvane::wayland
