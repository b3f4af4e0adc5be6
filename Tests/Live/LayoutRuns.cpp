#include "LayoutRuns.h"

#include "Decoding.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <algorithm>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

const QString clientClass = u"CorvaneTestClient"_s;

Rect toRect(const QJsonValue &value)
{
    return {value[0].toDouble(), value[1].toDouble(), value[2].toDouble(), value[3].toDouble()};
}

} // namespace

std::string AppliedLayout::statuses() const
{
    QStringList names;
    for (const Pane &pane : panes)
        names << pane.status;
    return names.join(u' ').toStdString();
}

void LayoutRuns::TearDown()
{
    LiveTests::TearDown();
    // The next test starts it again, without the layouts.
    corvane().stop();
    QFile::remove(layoutsPath());
}

void LayoutRuns::keep(const QList<WindowLayout> &layouts)
{
    corvane().stop();
    QJsonArray array;
    for (const WindowLayout &layout : layouts)
        array << layout.toJson();
    QDir().mkpath(QFileInfo(layoutsPath()).path());
    QFile file(layoutsPath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QJsonDocument(array).toJson());
    file.close();
    ASSERT_TRUE(corvane().start()) << qPrintable(desktop().logs());
}

WindowLayout LayoutRuns::capture(const QString &name)
{
    const auto answer = corvane().ask({u"--capture"_s, name, u"--json"_s});
    EXPECT_EQ(answer.exitStatus, 0) << answer.errors.constData();
    DecodeProblems problems;
    const auto layout =
        WindowLayout::fromJson(QJsonDocument::fromJson(answer.output).object(), problems);
    EXPECT_TRUE(layout && layout->name == name) << answer.output.constData();
    return layout.value_or(WindowLayout{});
}

AppliedLayout LayoutRuns::apply(const QString &name, Milliseconds deadline)
{
    const auto answer = corvane().ask({u"--apply-layout"_s, name, u"--json"_s}, deadline);
    AppliedLayout applied{answer.exitStatus, {}, answer.duration};
    const QJsonArray panes = QJsonDocument::fromJson(answer.output).object()["panes"_L1].toArray();
    for (const QJsonValue &pane : panes)
        applied.panes << AppliedLayout::Pane{pane["status"_L1].toString(),
            pane["reason"_L1].toString(), pane["windowTitle"_L1].toString(),
            toRect(pane["frame"_L1])};
    return applied;
}

qsizetype LayoutRuns::applies()
{
    return corvane().log().count(u"layout applied"_s);
}

xcb_window_t LayoutRuns::windowOf(const InstalledApp &app)
{
    return probe().waitForWindow(
        [&](xcb_window_t window) { return probe().hasClass(window, app.id().toLatin1()); });
}

xcb_window_t LayoutRuns::showAt(const Rect &frame, const QByteArray &title)
{
    const xcb_window_t window = client().show({.geometry = frame, .title = title});
    EXPECT_NE(window, xcb_window_t(XCB_WINDOW_NONE));
    return window;
}

xcb_window_t LayoutRuns::showMinimized(const QByteArray &title)
{
    const xcb_window_t window = showAt({700, 500, 300, 200}, title);
    pager().minimize(window);
    EXPECT_TRUE(waitUntil([&] { return probe().isMinimized(window); }));
    return window;
}

xcb_window_t LayoutRuns::showElsewhere(const QByteArray &title)
{
    pager().setWorkspaceCount(2);
    const xcb_window_t window = showAt({800, 100, 300, 200}, title);
    pager().moveToWorkspace(window, 1);
    EXPECT_TRUE(waitUntil([&] { return workspaceOf(window) == 1u; }));
    return window;
}

std::optional<quint32> LayoutRuns::workspaceOf(xcb_window_t window)
{
    const auto numbers = desktop().connection().numbers(window, "_NET_WM_DESKTOP");
    return numbers.isEmpty() ? std::nullopt : std::optional(numbers.first());
}

void LayoutRuns::moveTo(xcb_window_t window, const Rect &frame)
{
    pager().moveResize(window, frame);
    EXPECT_TRUE(waitUntil([&] {
        const Rect now = probe().visibleFrame(window).value_or(Rect());
        return now.origin() == frame.origin();
    }));
}

QString LayoutRuns::layoutsPath()
{
    return desktop().dataFolder() + u"/Corvane/layouts.json"_s;
}

Pane clientPane(const UnitRect &rect, const std::optional<QString> &title)
{
    Pane pane = paneFor(clientClass, rect);
    pane.titleContains = title;
    return pane;
}

Pane paneFor(const QString &app, const UnitRect &rect)
{
    return {.rect = rect, .app = AppRef{app, app}};
}

Rect frameOf(const UnitRect &rect, const Rect &area)
{
    return frameOf(Region{{}, {rect.x, rect.y, rect.w, rect.h}}, area);
}

double distance(const Rect &a, const Rect &b)
{
    return std::max({std::abs(a.minX() - b.minX()), std::abs(a.minY() - b.minY()),
        std::abs(a.maxX() - b.maxX()), std::abs(a.maxY() - b.maxY())});
}

QList<DisplayKey> keysOf(const QList<Rect> &displays)
{
    QList<DisplayKey> keys;
    for (const Rect &display : displays)
        keys << DisplayKey{u"DUMMY%1"_s.arg(keys.size()), static_cast<int>(display.width),
            static_cast<int>(display.height)};
    return keys;
}

} // namespace corvane::desktop
