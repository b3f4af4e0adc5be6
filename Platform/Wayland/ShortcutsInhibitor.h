#pragma once

#include <memory>

class QWindow;

namespace corvane::wayland {

/// Has the compositor leave all keys to one of this program's windows (keyboard_shortcuts_inhibit_unstable_v1)
/// for as long as it lives. Without the protocol it does nothing.
class ShortcutsInhibitor final
{
public:
    explicit ShortcutsInhibitor(QWindow &window);
    ~ShortcutsInhibitor();

private:
    struct Protocol;

    std::unique_ptr<Protocol> m_protocol;
};

} // namespace corvane::wayland
