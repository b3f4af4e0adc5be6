#pragma once

#include "../CorvaneCore/StoreFolder.h"
#include "AppModel.h"
#include "Screens.h"
#include "SimulatedPlatform.h"

namespace corvane {

/// A model on a simulated desk with one display and an application with one window; its files lie
/// in a folder of its own.
struct ModelDesk {
    ModelDesk() { settle(); }

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

    void settle(Clock::Duration duration = {})
    {
        platform.manualClock().advance(duration);
        platform.deliver();
    }

    quint32 plugSecond() { return platform.desktop().plug({{1440, 0, 1920, 1080}, u"Desk"_s}); }

    /// Puts the editor's window into the left half of the first display.
    static WindowLayout leftHalfLayout(const QList<DisplayKey> &displays)
    {
        return {.name = u"Work"_s,
            .displays = displays,
            .panes = {{.rect = {0, 0, 0.5, 1}, .app = {{u"org.example.Editor"_s, u"Editor"_s}}}},
            .applyOnConnect = true};
    }

    [[nodiscard]] Rect frame() { return platform.desktop().window(window).frame; }

    StoreFolder folder;
    SimulatedPlatform platform;
    quint32 laptop = platform.desktop().plug({{0, 0, 1440, 900}, u"Laptop"_s});
    pid_t editor = platform.desktop().start(u"org.example.Editor"_s, u"Editor"_s);
    WindowElement window = platform.desktop().openWindow(
        editor, {.title = u"Letter"_s, .frame = {100, 100, 600, 500}});
};

} // namespace corvane
