#include "MenuBenchmark.h"

#include "KeyPresser.h"
#include "Resident.h"
#include "SampleLayouts.h"
#include "Samples.h"
#include "ScreenStopwatch.h"

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

namespace {

constexpr int layoutCount = 50;
constexpr double millisecondsToPaint = 50;

class MenuStopwatch
{
public:
    explicit MenuStopwatch(VirtualDesktop &desktop) : m_desktop(desktop), m_corvane(desktop) { }

    [[nodiscard]] bool start() { return m_corvane.start(); }

    /// The menu once nothing of it changes any more.
    [[nodiscard]] std::optional<Picture> look()
    {
        popUp();
        if (!waitUntil([this] { return !menus().isEmpty(); }))
            return std::nullopt;
        const Rect place =
            WindowProbe(m_desktop.connection()).clientGeometry(menus().first()).value_or(Rect());
        const Picture picture = settledPicture(m_desktop.connection(), place);
        return close() ? std::optional(picture) : std::nullopt;
    }

    /// Milliseconds until the screen shows just that.
    [[nodiscard]] std::optional<double> timeTo(const Picture &picture)
    {
        const auto time = timeUntilShown(m_desktop.connection(), picture, [this] { popUp(); });
        return close() ? time : std::nullopt;
    }

private:
    void popUp() { m_corvane.request({u"--pop-menu"_s}); }
    bool close()
    {
        KeyPresser(m_desktop.connection()).press({0, Key::escape});
        return waitUntil([this] { return menus().isEmpty(); });
    }
    QList<xcb_window_t> menus()
    {
        return WindowProbe(m_desktop.connection()).openMenus(m_corvane.pid());
    }

    VirtualDesktop &m_desktop;
    Resident m_corvane;
};

expected<Picture, QString> finishedMenu(VirtualDesktop &desktop)
{
    MenuStopwatch trial(desktop);
    const auto picture = trial.start() ? trial.look() : std::nullopt;
    if (!picture)
        return unexpected<QString>(u"no menu appeared:\n%1"_s.arg(desktop.logs()));
    return *picture;
}

} // namespace

Measurements measureMenu(VirtualDesktop &desktop, int openings)
{
    const StoredLayouts layouts(desktop, layoutCount);
    const auto picture = finishedMenu(desktop);
    if (!picture)
        return unexpected<QString>(picture.error());
    MenuStopwatch stopwatch(desktop);
    if (!stopwatch.start())
        return unexpected<QString>(u"corvane did not start:\n%1"_s.arg(desktop.logs()));
    QList<double> times;
    for (int i = 0; i < openings; ++i) {
        const auto time = stopwatch.timeTo(*picture);
        if (!time)
            return unexpected<QString>(u"the menu did not open or looked otherwise"_s);
        times << *time;
    }
    const Limit limit{Limit::Kind::atMost, millisecondsToPaint};
    return QList<Measurement>{
        {u"first opening, 50 layouts"_s, times.takeFirst(), u"ms"_s, limit},
        {u"request to all of the menu on screen, 50 layouts, median"_s, median(times), u"ms"_s,
            limit},
        {u"95th percentile"_s, percentile95(times), u"ms"_s},
    };
}

} // namespace corvane::bench
