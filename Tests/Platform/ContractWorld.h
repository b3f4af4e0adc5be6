#pragma once

#include "Platform.h"

#include <functional>
#include <memory>

namespace corvane {

struct ContractWindow {
    enum class Kind { standard, dialog, splash, panel, desktop };

    Kind kind = Kind::standard;
    Rect frame{120, 110, 500, 400}; ///< what a person sees of it
    QString title = QStringLiteral("Contract");
    QString application{}; ///< that the window says it belongs to; empty: its process's own
    std::optional<Size> minimum{}; ///< of what a person sees
    bool fixedSize = false;
    bool fullScreen = false;
    bool maximised = false;
    bool minimised = false;
    bool onOtherWorkspace = false;
    quint64 number = 0; ///< of a window that is gone; 0: any
};

/// A desktop with a back end on it, and the hand of a person who uses that desktop. It starts with
/// one display of at least 1280 by 900 points, no panel and no window, trusted.
class ContractWorld
{
public:
    enum class Edge { top, bottom, left, right };
    static constexpr quint16 missingKey = 52; ///< on this desktop's keyboard

    virtual ~ContractWorld() = default;

    virtual Platform &platform() = 0;

    /// An application that, once opened, shows one standard window, or that cannot be opened.
    virtual void install(const QString &id, const QString &name, Installation::State state) = 0;
    /// A process without a window.
    virtual pid_t startApplication() = 0;
    /// A program that moves windows by shortcuts, and shows none.
    virtual pid_t startRival() = 0;
    virtual void quitApplication(pid_t pid) = 0;
    /// Returns once the desktop shows the window. A standard window or dialog takes the focus
    /// unless it is minimised or elsewhere.
    virtual WindowElement openWindow(pid_t pid, const ContractWindow &window = {}) = 0;
    virtual void closeWindow(const WindowElement &window) = 0;
    /// From now on the window says that it belongs to this application.
    virtual void renameWindow(const WindowElement &window, const QString &application) = 0;
    virtual void focus(const WindowElement &window) = 0;
    virtual void drag(const WindowElement &window, Point origin) = 0;

    /// A second display, and away again.
    virtual void plugDisplay() = 0;
    virtual void unplugDisplay() = 0;
    /// Reserves the edge of the only display for a panel.
    virtual void addPanel(Edge edge, double thickness) = 0;

    // Keys: macOS virtual key codes and `HotKeys` modifier bits.
    virtual void pressKey(quint16 keyCode, quint32 modifiers) = 0;
    /// Until it has repeated.
    virtual void holdKey(quint16 keyCode, quint32 modifiers) = 0;
    virtual void takeKeyByRival(quint16 keyCode, quint32 modifiers) = 0;
    virtual void holdPointerButton(bool isDown) = 0;

    virtual void loseTrust() = 0;
    virtual void regainTrust() = 0;

    /// Lets what is under way go on for a moment.
    virtual void pump() = 0;
    /// Pumps until nothing is under way any more.
    virtual void settle() = 0;
};

/// The parameter of the contract: a name for the test's name, and how to make a fresh world.
struct ContractWorldFactory {
    std::string name;
    std::function<std::unique_ptr<ContractWorld>()> make;
};

} // namespace corvane
