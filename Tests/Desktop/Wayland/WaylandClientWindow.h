#pragma once

#include "WaylandConnection.h"
#include "WindowRequest.h"

#include <chrono>
#include <memory>
#include <optional>
#include <xdg-decoration-unstable-v1-client-protocol.h>
#include <xdg-shell-client-protocol.h>

namespace corvane::desktop {

struct DestroyProxy {
    void operator()(xdg_toplevel *toplevel) const { xdg_toplevel_destroy(toplevel); }
    void operator()(xdg_surface *surface) const { xdg_surface_destroy(surface); }
    void operator()(wl_surface *surface) const { wl_surface_destroy(surface); }
    void operator()(zxdg_toplevel_decoration_v1 *decoration) const
    {
        zxdg_toplevel_decoration_v1_destroy(decoration);
    }
};
template <typename T>
using Owned = std::unique_ptr<T, DestroyProxy>;

/// What the windows of a client are made with.
struct WaylandGlobals {
    struct Output {
        wl_output *output;
        Point origin{};
    };

    explicit WaylandGlobals(WaylandConnection &connection);
    /// The last one that begins before the point; null when there is none.
    [[nodiscard]] wl_output *outputAt(Point point) const;

    wl_compositor *compositor;
    wl_shm *memory;
    xdg_wm_base *shell;
    zxdg_decoration_manager_v1 *decorations; ///< null where none are offered
    wl_proxy *layers; ///< null where there are no layers
    QList<Output> outputs;
};

/// One window of the test client. A panel and a desktop are surfaces in a layer. A window is black.
class WaylandClientWindow
{
public:
    using Time = std::chrono::steady_clock::time_point;

    /// It appears once the compositor has told its size and it has drawn itself.
    WaylandClientWindow(WaylandGlobals &globals, const WindowRequest &request, quint32 number,
        const WaylandClientWindow *parent);
    ~WaylandClientWindow();
    Q_DISABLE_COPY_MOVE(WaylandClientWindow)

    [[nodiscard]] quint32 number() const { return m_number; }
    [[nodiscard]] Size size() const { return m_size; }
    /// Whether the compositor asked it to close.
    [[nodiscard]] bool isClosed() const { return m_isClosed; }
    [[nodiscard]] bool isDrawingDue() const { return m_due.has_value(); }
    /// Takes the size that the compositor told last, and says so.
    void drawIfDue();
    void rename(const QByteArray &application);

private:
    void becomeToplevel(const WaylandClientWindow *parent);
    void becomePanel();
    void setPanelPlace();
    void describe();
    void configured(uint32_t serial);
    /// Without a shadow, by the window's own limits.
    [[nodiscard]] Size sizeFor(Size asked) const;
    void draw(Size size);

    WaylandGlobals &m_globals;
    WindowRequest m_request;
    quint32 m_number;
    bool m_isClosed = false;
    bool m_fills = false; ///< the display, or its part of a layout
    Size m_asked{}; ///< by the compositor; zero leaves it to the window
    Size m_size{}; ///< without a shadow
    uint32_t m_serial = 0;
    std::optional<Time> m_due; ///< when it draws itself
    Owned<wl_surface> m_surface;
    Owned<xdg_surface> m_xdgSurface;
    Owned<xdg_toplevel> m_toplevel;
    Owned<zxdg_toplevel_decoration_v1> m_decoration;
    wl_proxy *m_layerSurface = nullptr;
};

} // namespace corvane::desktop
