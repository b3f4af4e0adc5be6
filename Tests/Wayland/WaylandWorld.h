#pragma once

#include "PlatformContract.h"
#include "WaylandClient.h"

#include <map>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace desktop;

/// The back end in this process, on a Wayland desktop. The next world on this compositor gets the same
/// desktop.
class WaylandWorld : public ContractWorld
{
public:
    /// "sway", "kwin" or "gnome".
    explicit WaylandWorld(const std::string &name);
    /// Leaves the desktop as it was.
    ~WaylandWorld() override;

    Platform &platform() override { return *m_backEnd; }

    // No client is told its window's number, and none gets one twice.
    bool reusesNumbers() const override { return false; }
    bool tellsPointerButtons() const override { return false; }
    // Without the compositor there is no session.
    bool losesTrust() const override { return false; }

    void install(const QString &id, const QString &name, Installation::State state) override;
    pid_t startApplication() override;
    pid_t startRival() override;
    void quitApplication(pid_t pid) override { m_clients.erase(pid); }
    WindowElement openWindow(pid_t pid, const WindowSpec &spec) override;
    /// Of a process of its own.
    WindowElement open(const WindowRequest &request);
    void closeWindow(const WindowElement &window) override;
    void renameWindow(const WindowElement &window, const QString &application) override;
    void focus(const WindowElement &window) override;
    void drag(const WindowElement &window, Point origin) override;

    void plugDisplay() override;
    void unplugDisplay() override;
    void addPanel(const SimulatedPanel &panel) override;

    void pressKey(quint16 key, quint32 modifiers) override;
    void holdKey(quint16 key, quint32 modifiers) override;
    void holdPointerButton(bool) override { }

    void loseTrust() override { }
    void regainTrust() override { }

    void pump() override;
    void settle() override;

    WaylandDesktop &desk() { return m_desk; }
    /// Of the process.
    WaylandClient &client(pid_t pid) { return *m_clients.at(pid); }
    /// The number that the desktop's hand knows the window by.
    quint32 numberOf(const WindowElement &window) const { return m_shown.at(window).number; }
    pid_t processOf(const WindowElement &window) const { return m_shown.at(window).pid; }

protected:
    static constexpr Rect display{0, 0, 1600, 1000};

    Hand &hand() { return m_desk.hand(); }
    /// What stands for a maximised window.
    virtual void maximise(quint32 window) = 0;
    [[nodiscard]] virtual bool isMaximised(const SeenWindow &window) const = 0;

    static KeyStroke stroke(quint16 key, quint32 modifiers);

private:
    struct Shown {
        pid_t pid;
        quint32 number;
    };

    static WaylandDesktop &prepare(const QString &compositor);
    [[nodiscard]] WindowRequest requestFor(pid_t pid, const WindowSpec &spec);
    /// What a person, not the client, makes of the window.
    void handle(quint32 number, const WindowSpec &spec);
    /// The window that the back end did not list before.
    [[nodiscard]] WindowElement newcomer(pid_t pid);

    static inline QString s_compositor;
    static inline std::unique_ptr<WaylandDesktop> s_desk;

    WaylandDesktop &m_desk;
    const QString m_entries = m_desk.dataFolder() + u"/applications/"_s;
    std::map<pid_t, std::unique_ptr<WaylandClient>> m_clients;
    std::unique_ptr<ChildProcess> m_rival;
    std::map<WindowElement, Shown> m_shown; ///< all that were ever opened
    std::unique_ptr<Platform> m_backEnd;
};

} // namespace corvane
