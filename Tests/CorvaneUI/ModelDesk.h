#pragma once

#include "AppModel.h"
#include "Screens.h"
#include "SimulatedPlatform.h"

#include <QtCore/QTemporaryDir>

namespace corvane {

/// A model on a simulated desk with one display and an application with one window; its files lie
/// in a folder of its own.
struct ModelDesk {
    using Duration = Clock::Duration;

    ModelDesk()
    {
        laptop = platform.desktop().plug({{0, 0, 1440, 900}, QStringLiteral("Laptop")});
        editor = platform.desktop().start(
            QStringLiteral("org.example.Editor"), QStringLiteral("Editor"));
        window = platform.desktop().openWindow(
            editor, {.title = QStringLiteral("Letter"), .frame = {100, 100, 600, 500}});
        settle();
    }

    AppModel model()
    {
        return {
            SettingsStore(folder.path()), LayoutStore(folder.path()), ActivityLog(folder.path())};
    }

    /// As somebody does by hand, behind the program's back.
    void save(const QList<WindowLayout> &layouts) const
    {
        if (!LayoutStore(folder.path()).save(layouts))
            qFatal("cannot prepare the layouts");
    }
    [[nodiscard]] QList<WindowLayout> saved() const
    {
        return LayoutStore(folder.path()).loadKeepingUnreadable().layouts;
    }

    void settle(Duration duration = Duration{0})
    {
        platform.manualClock().advance(duration);
        platform.deliver();
    }

    quint32 plugSecond()
    {
        return platform.desktop().plug({{1440, 0, 1920, 1080}, QStringLiteral("Desk")});
    }

    /// Puts the editor's window into the left half of the first display.
    static WindowLayout leftHalfLayout(const QList<DisplayKey> &displays)
    {
        WindowLayout layout{.name = QStringLiteral("Work")};
        layout.displays = displays;
        layout.panes = {Pane{.rect = {0, 0, 0.5, 1},
            .app = AppRef{QStringLiteral("org.example.Editor"), QStringLiteral("Editor")}}};
        layout.applyOnConnect = true;
        return layout;
    }

    [[nodiscard]] Rect frame() { return platform.desktop().window(window).frame; }

    QTemporaryDir folder;
    SimulatedPlatform platform;
    quint32 laptop = 0;
    pid_t editor = 0;
    WindowElement window;
};

} // namespace corvane
