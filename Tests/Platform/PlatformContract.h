#pragma once

#include "Platform.h"
#include "SimulatedDisplay.h"
#include "SimulatedWindow.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>

namespace corvane {

/// A desktop with a back end on it, and the hand of a person who uses that desktop. It starts with
/// one display of at least 1280 by 900 points, no panel and no window, trusted.
class ContractWorld
{
public:
    static constexpr quint16 missingKey = 52; ///< on this desktop's keyboard

    /// A fresh world of this name. Every binary with these tests defines its own.
    static std::unique_ptr<ContractWorld> make(const std::string &name);
    virtual ~ContractWorld() = default;

    virtual Platform &platform() = 0;

    // What this kind of desktop has. Where it lacks something, the contract is silent about that.
    /// Windows of this kind, apart from others.
    [[nodiscard]] virtual bool tells(WindowKind) const { return true; }
    [[nodiscard]] virtual bool hasTitle(WindowKind) const { return true; }
    /// A closed window's number is given to another one.
    [[nodiscard]] virtual bool reusesNumbers() const { return true; }
    /// What a window's own limits made of a size that it was given.
    [[nodiscard]] virtual bool tellsLimits() const { return true; }
    /// That a panel took room, without being asked.
    [[nodiscard]] virtual bool announcesPanels() const { return true; }
    [[nodiscard]] virtual bool tellsPointerButtons() const { return true; }
    /// A dialog brings the window that it belongs to along, in front of all others.
    [[nodiscard]] virtual bool bringsParentsOfDialogs() const { return false; }
    /// A window can be above the others without the focus.
    [[nodiscard]] virtual bool raisesWithoutFocus() const { return true; }
    /// It may stop letting windows be moved while everything else goes on.
    [[nodiscard]] virtual bool losesTrust() const { return true; }
    /// The state of a window that is maximised, or where no window ever is, that it has in its place:
    /// of a window that stood at `normal` and has gone to `now`.
    [[nodiscard]] virtual WindowState maximisedState(const Rect &normal, const Rect &) const
    {
        return {true, true, false, normal};
    }

    /// An application that, once opened, shows one standard window, or that cannot be opened.
    virtual void install(const QString &id, const QString &name, Installation::State state) = 0;
    /// A process without a window.
    virtual pid_t startApplication() = 0;
    /// A program that moves windows by shortcuts, and shows none.
    virtual pid_t startRival() = 0;
    virtual void quitApplication(pid_t pid) = 0;
    /// Returns once the desktop shows the window. A standard window or dialog takes the focus
    /// unless it is minimised or elsewhere.
    virtual WindowElement openWindow(pid_t pid, const WindowSpec &spec = {}) = 0;
    virtual void closeWindow(const WindowElement &window) = 0;
    /// From now on the window says that it belongs to this application.
    virtual void renameWindow(const WindowElement &window, const QString &application) = 0;
    virtual void focus(const WindowElement &window) = 0;
    virtual void drag(const WindowElement &window, Point origin) = 0;

    /// A second display, and away again.
    virtual void plugDisplay() = 0;
    virtual void unplugDisplay() = 0;
    /// On the only display.
    virtual void addPanel(const SimulatedPanel &panel) = 0;

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
    /// Pumps until the condition holds; false when it does not in time.
    [[nodiscard]] bool eventually(const std::function<bool()> &condition);

protected:
    /// What `install` does where desktop entries lie in a folder.
    static void writeEntry(const QString &folder, const QString &program, const QString &id,
        const QString &name, Installation::State state);
};

/// What every back end must do. A binary that links these tests instantiates them with the names of
/// its worlds.
class PlatformContract : public testing::TestWithParam<std::string>
{
protected:
    using Kind = WindowKind;

    PlatformContract();

    ContractWorld &world() { return *m_world; }
    WindowAccess &windows() { return m_world->platform().windows(); }
    Displays &displays() { return m_world->platform().displays(); }
    Applications &applications() { return m_world->platform().applications(); }
    HotKeys &hotKeys() { return m_world->platform().hotKeys(); }

    /// A window of a process of its own.
    WindowElement open(const WindowSpec &spec = {})
    {
        return world().openWindow(world().startApplication(), spec);
    }
    [[nodiscard]] bool eventually(const std::function<bool()> &condition)
    {
        return world().eventually(condition);
    }
    [[nodiscard]] bool takesFocus(const WindowElement &window)
    {
        return eventually([&] { return windows().focusedWindow().window == window; });
    }
    /// Waits until the window is where it should be; on failure the frame it has.
    testing::AssertionResult reaches(const WindowElement &window, const Rect &frame);
    /// The errors of all calls about one window.
    QList<AXError> answersAbout(const WindowElement &window);

    // Every notice that came, in order.
    QList<WindowElement> created;
    QList<WindowElement> closed;
    QList<pid_t> launched;
    QList<pid_t> terminated;
    QList<bool> trust;
    QList<quint32> pressed;
    int displayChanges = 0;
    int notices = 0; ///< of any kind

private:
    std::unique_ptr<ContractWorld> m_world = ContractWorld::make(GetParam());
    QObject m_listener; ///< before the world, so that no notice comes while it goes
};

} // namespace corvane
