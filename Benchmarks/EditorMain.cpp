// Drags an edge in the layouts pane, among many layouts of twelve panes on four displays of a simulated
// desk, and changes one of the layouts again and again. Prints lines of a name and milliseconds: "frame"
// the processor's time from a move of the mouse to all that it changes in the window, "painted" the
// whole time of it, "save" from a change to the file on the disk, "floor" a file of that size written
// anew.
//
//   corvane-editor LAYOUTS ROUNDS

#include "DesktopChoice.h"
#include "LayoutPicture.h"
#include "LayoutScene.h"
#include "OwnTime.h"
#include "PrivateFile.h"
#include "Screens.h"
#include "SettingsWindow.h"
#include "SimulatedPlatform.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

using namespace corvane;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;

namespace {

constexpr int firstPercent = 15; ///< between which the edge is dragged
constexpr int lastPercent = 55;

double milliseconds(SteadyClock::duration duration)
{
    return std::chrono::duration<double, std::milli>(duration).count();
}

/// Knows whether a widget has been painted.
class WatchedApplication final : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        const bool isPainting = event->type() == QEvent::Paint && receiver == awaited;
        const bool isTaken = QApplication::notify(receiver, event);
        isPainted = isPainted || isPainting;
        return isTaken;
    }

    const QObject *awaited = nullptr;
    bool isPainted = false;
};

void handleEventsFor(SteadyClock::duration duration)
{
    const auto end = SteadyClock::now() + duration;
    while (SteadyClock::now() < end)
        QCoreApplication::processEvents();
}

/// A grid of nine panes on the first display, and a pane on each other one.
WindowLayout layout(int number, const QList<DisplayKey> &displays)
{
    WindowLayout layout{.name = u"Layout %1"_s.arg(number), .displays = displays};
    const auto add = [&](int display, const UnitRect &rect) {
        const auto pane = layout.panes.size();
        layout.panes << Pane{.display = display,
            .rect = rect,
            .app = AppRef{u"org.example.App%1"_s.arg(pane), u"App %1"_s.arg(pane)},
            .titleContains = u"Window %1"_s.arg(pane)};
    };
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            add(0, {column / 3.0, row / 3.0, 1 / 3.0, 1 / 3.0});
    }
    for (int display = 1; display < displays.size(); ++display)
        add(display, {0, 0, 1, 1});
    return layout;
}

void send(QWidget &widget, QEvent::Type type, const QPointF &point, Qt::MouseButton button)
{
    QMouseEvent event(
        type, point, widget.mapToGlobal(point), button, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

/// Moves the edge to each point, and waits each time until the picture is painted.
void timeDrag(WatchedApplication &application, LayoutPicture &picture, int rounds)
{
    const PaneEdge edge = edgesOf(picture.shown()).first();
    const QRectF area = picture.scene().display(edge.display)->visible;
    const double y = area.top() + area.height() / 6;
    const auto point = [&](int percent) {
        return QPointF(area.left() + area.width() * percent / 100, y);
    };
    send(picture, QEvent::MouseButtonPress, {area.left() + edge.at * area.width(), y},
        Qt::LeftButton);
    if (!picture.isDragging())
        qFatal("no edge was there to be dragged");
    handleEventsFor(100ms);
    constexpr int span = lastPercent - firstPercent;
    for (int i = 0; i < rounds; ++i) {
        const int place = i % (2 * span);
        const WindowLayout before = picture.shown();
        application.isPainted = false;
        const auto begin = SteadyClock::now();
        const double beginOwn = ownTime();
        send(picture, QEvent::MouseMove,
            point(firstPercent + (place < span ? place : 2 * span - place)), Qt::NoButton);
        if (picture.shown() == before)
            continue; // it has snapped to where it was
        while (!application.isPainted)
            QCoreApplication::processEvents();
        QCoreApplication::processEvents(); // the rest of what changes in the window
        std::printf("frame %f\npainted %f\n", ownTime() - beginOwn,
            milliseconds(SteadyClock::now() - begin));
    }
    send(picture, QEvent::MouseButtonRelease, point(firstPercent), Qt::LeftButton);
}

void timeSaves(AppModel &model, const QString &path, int rounds)
{
    for (int i = 0; i < rounds; ++i) {
        WindowLayout changed = model.layouts()[i % model.layouts().size()];
        changed.applyOnConnect = !changed.applyOnConnect;
        auto begin = SteadyClock::now();
        model.updateLayout(changed, u"Change Apply on Connect"_s);
        std::printf("save %f\n", milliseconds(SteadyClock::now() - begin));
        QCoreApplication::processEvents();
        QFile file(path);
        if (!file.open(QFile::ReadOnly))
            qFatal("%s was not written", qUtf8Printable(path));
        const QByteArray contents = file.readAll();
        begin = SteadyClock::now();
        if (!PrivateFile::replace(path + u".floor"_s, contents))
            qFatal("%s cannot be written", qUtf8Printable(path));
        std::printf("floor %f\n", milliseconds(SteadyClock::now() - begin));
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QTemporaryDir folder;
    if (const QString problem = prepareWindows(); !problem.isEmpty())
        qFatal("%s", qUtf8Printable(problem));
    WatchedApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const int rounds = arguments.value(2).toInt();
    SimulatedPlatform platform;
    for (int display = 0; display < 4; ++display)
        platform.desktop().plug(
            {{display * 1920.0, 0, 1920, 1080}, u"Display %1"_s.arg(display + 1)});
    platform.deliver();
    QList<WindowLayout> layouts;
    for (int number = 0; number < arguments.value(1).toInt(); ++number)
        layouts << layout(number, Screens::signature());
    const LayoutStore store(folder.path());
    if (!store.save(layouts))
        qFatal("the layouts cannot be written");
    AppModel model(SettingsStore(folder.path()), store, ActivityLog(folder.path()));
    SettingsWindow window(model, {});
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.setVisible(true);
    window.show(SettingsPane::layouts);
    handleEventsFor(500ms);
    auto *picture = window.findChild<LayoutPicture *>();
    application.awaited = picture;
    timeDrag(application, *picture, rounds);
    handleEventsFor(100ms);
    timeSaves(model, store.url().toLocalFile(), rounds / 4);
    std::puts("done");
}
