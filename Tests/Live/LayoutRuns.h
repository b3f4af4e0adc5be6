#pragma once

#include "InstalledApp.h"
#include "LiveDesk.h"
#include "WindowLayout.h"

namespace corvane::desktop {

/// What one `--apply-layout` came to.
struct AppliedLayout {
    struct Pane {
        QString status; ///< such as "placed"
        QString reason; ///< empty when there is nothing to say
        QString windowTitle;
        Rect frame;
    };

    std::optional<int> exitStatus;
    QList<Pane> panes; ///< in the layout's order
    Milliseconds duration{0};

    /// Between spaces.
    [[nodiscard]] std::string statuses() const;
};

/// Tests with layouts. They begin with none.
class LayoutRuns : public LiveTests
{
protected:
    void TearDown() override;

    /// Starts the program anew with just these layouts.
    void keep(const QList<WindowLayout> &layouts);
    [[nodiscard]] WindowLayout capture(const QString &name);
    [[nodiscard]] AppliedLayout apply(const QString &name, Milliseconds deadline = patience);
    /// How often this run of the program has applied a layout.
    [[nodiscard]] qsizetype applies();

    /// The window whose class is the application's id; 0 when it has none in time.
    [[nodiscard]] xcb_window_t windowOf(const InstalledApp &app);
    /// A window at this place, whose decorations may make it larger.
    xcb_window_t showAt(const Rect &frame, const QByteArray &title);
    xcb_window_t showMinimized(const QByteArray &title);
    /// On the second workspace.
    xcb_window_t showElsewhere(const QByteArray &title);
    [[nodiscard]] std::optional<quint32> workspaceOf(xcb_window_t window);
    /// Returns once the window's frame is there; its client has this size.
    void moveTo(xcb_window_t window, const Rect &frame);

private:
    [[nodiscard]] QString layoutsPath();
};

/// For a test client's window.
[[nodiscard]] Pane clientPane(const UnitRect &rect, const std::optional<QString> &title = {});
[[nodiscard]] Pane paneFor(const QString &app, const UnitRect &rect);
[[nodiscard]] Rect frameOf(const UnitRect &rect, const Rect &area);
/// By how much the farthest edge has moved.
[[nodiscard]] double distance(const Rect &a, const Rect &b);

/// As the tests' server names them.
[[nodiscard]] QList<DisplayKey> keysOf(const QList<Rect> &displays);

} // namespace corvane::desktop
