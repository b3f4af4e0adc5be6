#pragma once

#include "Hand.h"
#include "PrivateSession.h"
#include "WaylandKeyPresser.h"

namespace corvane::desktop {

/// A private session on a Wayland compositor without hardware, with a keyboard. What uses it must end
/// before it: declare it after it. Needs a `QCoreApplication`.
class WaylandDesktop : public PrivateSession
{
public:
    struct Options {
        QString compositor; ///< "sway", "kwin_wayland" or "gnome-shell"
        QList<Rect> displays{
            {0, 0, 1920, 1080}}; ///< all but sway: all of one size, and no more than two
        bool hasXwayland = false;
        QString configuration{}; ///< sway: further lines of its configuration file
        QString home{}; ///< a folder whose files the user has in the home from the start
        bool canBePictured =
            false; ///< KWin: draws with OpenGL, as its pictures of the screen need it
        bool hasBar = false; ///< GNOME: its own, at the top
    };

    /// The error is a sentence.
    [[nodiscard]] static expected<std::unique_ptr<WaylandDesktop>, QString> start(
        const Options &options);

    [[nodiscard]] bool isSway() const { return m_options.compositor == u"sway"; }
    [[nodiscard]] bool isGnome() const { return m_options.compositor == u"gnome-shell"; }
    [[nodiscard]] ChildProcess &compositor() { return *m_compositor; }
    [[nodiscard]] Hand &hand() { return *m_hand; }
    [[nodiscard]] WaylandKeyPresser &keys() { return *m_keys; }

    /// Ends the compositor as a crash does, and starts it again with the displays of the beginning. There
    /// is another hand then. Empty when all is there, else a sentence.
    [[nodiscard]] QString restart();
    /// Sway: reads its configuration file again, to which these lines have been added. Hot keys that
    /// were bound at run time are gone then, as on a real desktop.
    [[nodiscard]] bool reload(const QString &configuration = {});

private:
    explicit WaylandDesktop(const Options &options) : m_options(options) { }
    /// Empty when all is there, else a sentence.
    [[nodiscard]] QString prepare();
    [[nodiscard]] QString startCompositor();
    [[nodiscard]] QString startSway();
    [[nodiscard]] QString startKWin();
    [[nodiscard]] QString startGnome();
    [[nodiscard]] QString installExtension();
    [[nodiscard]] QString plugInKeys();
    /// A sway in a folder of its own. Null when it does not answer.
    [[nodiscard]] std::unique_ptr<ChildProcess> launchSway(const QString &name,
        const QString &configuration, const QList<std::pair<QString, QString>> &variables);
    [[nodiscard]] QString socketOf(const QString &name) const
    {
        return QStringLiteral("%1/%2/sway.sock").arg(folder(), name);
    }
    [[nodiscard]] static QString variablesOf(const QString &folder);
    [[nodiscard]] QString folderOfSway(const QString &name) const;
    [[nodiscard]] QString configurationOfSway() const;
    /// Has programs that are started from now on show themselves on Xwayland where they cannot do else.
    void adoptXwayland(const QString &variables);

    Options m_options;
    std::unique_ptr<ChildProcess> m_systemBus; ///< GNOME looks for one
    std::unique_ptr<ChildProcess> m_outer; ///< the sway that holds the further displays
    std::unique_ptr<ChildProcess> m_compositor;
    std::unique_ptr<Hand> m_hand;
    std::unique_ptr<WaylandKeyPresser> m_keys;
};

} // namespace corvane::desktop
