#pragma once

#include "Expected.h"
#include "Keys.h"
#include "PrivateSession.h"
#include "SizeLimits.h"

#include <QtGui/QImage>

#include <array>

namespace corvane::demo {

/// The programs that are open on the demonstration's desk.
enum class Application { terminal, source, notes, gallery, icons };

inline constexpr std::array applications{Application::terminal, Application::source,
    Application::notes, Application::gallery, Application::icons};

[[nodiscard]] QString title(Application application);

/// A terminal with something to read in it.
struct Terminal {
    QString title;
    QString ground; ///< colours, such as "#16181D"
    QString fore;
    QStringList command; ///< that runs in it
};

/// Two displays, a panel, and the applications somewhere on top of each other, on a desktop of any kind.
/// It is seen and worked apart from the program that is shown.
class Desk
{
public:
    using Window = quint32; ///< the desktop's number of it; 0 is none

    /// Desktop: "x11", "sway" or "kwin". The error is a sentence.
    [[nodiscard]] static expected<std::unique_ptr<Desk>, QString> start(
        const QString &desktop, const QString &windowManager);
    virtual ~Desk() = default;

    /// Of what manages its windows.
    [[nodiscard]] virtual QString name() const = 0;
    [[nodiscard]] virtual desktop::PrivateSession &session() = 0;
    [[nodiscard]] virtual desktop::Keys &keys() = 0;
    [[nodiscard]] virtual QList<Rect> displays() const = 0;
    /// The displays without the panel.
    [[nodiscard]] QList<Rect> areas() const;

    [[nodiscard]] Window window(Application application) const
    {
        return m_windows.value(application);
    }
    [[nodiscard]] virtual std::optional<Rect> frame(Window window) = 0;
    [[nodiscard]] Rect settledFrame(Window window)
    {
        return desktop::settled([&] { return frame(window); }).value_or(Rect());
    }
    [[nodiscard]] SizeLimits sizeLimits(Application application) const
    {
        return m_limits.value(application);
    }

    /// False when the window does not come forward.
    [[nodiscard]] virtual bool bringForward(Window window) = 0;
    /// Has the window fill its display in the desktop's own way. False when it does not.
    [[nodiscard]] virtual bool fillDisplay(Window window) = 0;
    /// What a window that fills its display is called there, such as "maximised".
    [[nodiscard]] virtual QString filling() const = 0;
    /// Puts the windows on top of each other, as they stand before anybody tidies up.
    void strew();

    /// Writes the whole desktop as a PNG file once its contents have come to rest.
    [[nodiscard]] bool writePicture(const QString &path);

protected:
    static constexpr int panelHeight = 32;

    /// Empty when all is there, else a sentence.
    [[nodiscard]] virtual QString furnish() = 0;
    /// How the desktop's terminal is started.
    [[nodiscard]] virtual QStringList command(const Terminal &terminal) const;
    [[nodiscard]] virtual Window waitForWindow(pid_t pid) = 0;
    [[nodiscard]] virtual SizeLimits measureLimits(Window window) = 0;
    /// Returns once the window stands there, or does not do so.
    virtual void put(Window window, const Rect &frame) = 0;
    /// From the corner of the first display on.
    [[nodiscard]] virtual QImage picture() = 0;

    /// To be called before the desktop ends.
    void closeApplications() { m_processes.clear(); }

private:
    [[nodiscard]] QString openApplications();

    std::vector<std::unique_ptr<desktop::ChildProcess>> m_processes;
    QHash<Application, Window> m_windows;
    QHash<Application, SizeLimits> m_limits;
};

} // namespace corvane::demo
