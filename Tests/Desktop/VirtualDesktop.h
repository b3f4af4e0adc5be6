#pragma once

#include "KeyPresser.h"
#include "X11Hand.h"

namespace corvane::desktop {

/// A private session on an X server without hardware (Xorg's dummy driver): its displays come and go
/// as real ones do. What uses it must end before it: declare it after it. Needs a `QCoreApplication`.
class VirtualDesktop : public PrivateSession
{
public:
    struct Options {
        QList<Rect> displays{{0, 0, 1920, 1080}};
        QStringList without{}; ///< extensions; without RANDR there is one display of 1920 × 1080
    };

    /// The error is a sentence.
    [[nodiscard]] static expected<std::unique_ptr<VirtualDesktop>, QString> start(
        const Options &options);

    [[nodiscard]] QString displayName() const { return environment().value(displayVariable); }
    [[nodiscard]] ChildProcess &server() { return *m_server; }
    [[nodiscard]] XConnection &connection() { return *m_connection; }
    [[nodiscard]] DisplayArranger &displays() { return *m_displays; }
    [[nodiscard]] Hand &hand() { return *m_hand; }
    [[nodiscard]] KeyPresser &keys() { return *m_keys; }

    /// From now on, an empty part of the desktop shows nothing; before, it keeps the picture of what
    /// stood there.
    void paintBackground();

    /// The physical keyboard stays; what its keys mean becomes that of "us", "de", "us,fr" ... The
    /// Menu key switches between several.
    [[nodiscard]] bool setKeyboardLayouts(const QString &layouts);

private:
    static constexpr QLatin1StringView displayVariable{"DISPLAY"};

    VirtualDesktop() = default;
    /// Empty when all is there, else a sentence.
    [[nodiscard]] QString prepare(const Options &options);

    std::unique_ptr<ChildProcess> m_server;
    std::unique_ptr<XConnection> m_connection;
    std::unique_ptr<DisplayArranger> m_displays;
    std::unique_ptr<X11Hand> m_hand;
    std::unique_ptr<KeyPresser> m_keys;
};

} // namespace corvane::desktop
