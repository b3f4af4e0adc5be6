#include "DeskFile.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::MatchesRegex;
using testing::SizeIs;

namespace {

/// The example that the description of a desk's file gives.
QByteArray example()
{
    QFile file(QStringLiteral(CORVANE_DESK_DESCRIPTION));
    const QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    const auto start = text.indexOf("```json\n") + 8;
    return text.mid(start, text.indexOf("```", start) - start);
}

expected<std::unique_ptr<SimulatedPlatform>, QString> load(const QByteArray &json)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"desk.json"_s));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(json) == json.size());
    file.close();
    return loadDesk(file.fileName());
}

/// What the file's sentence says after naming the file; empty when it was read.
std::string complaint(const QByteArray &json)
{
    const auto desk = load(json);
    return desk ? std::string() : desk.error().section(u"desk.json\" "_s, 1).toStdString();
}

/// A desk on a manual clock with more of its own, and an application "a" with one window.
std::unique_ptr<SimulatedPlatform> desk(
    const QByteArray &application, const QByteArray &window = {}, const QByteArray &more = {})
{
    auto desk = load("{\"clock\": \"manual\", \"displays\": [{}]," + more
        + "\"applications\": [{\"id\": \"a\"," + application + "\"windows\": [{" + window
        + "}]}]}");
    EXPECT_TRUE(desk) << qPrintable(desk.error());
    return std::move(*desk);
}

} // namespace

TEST(SimulatedDesktopTests, actionsRunAtTheirTimesInTheOrderOfTheirAdding)
{
    ManualClock clock;
    QList<std::pair<int, Clock::Duration>> ran;
    QObject context;
    auto dying = std::make_unique<QObject>();
    const auto note = [&](Clock::Duration delay, int number) {
        clock.after(delay, &context, [&, number] { ran.emplace_back(number, clock.now()); });
    };
    note(30ms, 1);
    clock.after(10ms, &context, [&] { note(5ms, 2), note(80ms, 3), dying.reset(); });
    clock.after(11ms, dying.get(), [&] { ADD_FAILURE() << "its context is gone"; });
    note(30ms, 4);
    note(31ms, 5);

    clock.advance(30ms);
    EXPECT_THAT(ran, ElementsAre(std::pair(2, 15ms), std::pair(1, 30ms), std::pair(4, 30ms)));
    const QDateTime before = clock.date();
    clock.sleep(70ms);
    EXPECT_THAT(ran, SizeIs(3));
    EXPECT_EQ(before.msecsTo(clock.date()), 70);
    clock.advance(0ms);
    EXPECT_THAT(ran.mid(3), ElementsAre(std::pair(5, 100ms), std::pair(3, 100ms)));
}

TEST(SimulatedDesktopTests, aRefusedWriteChangesNothingAndSaysWhy)
{
    struct Case {
        QByteArray window;
        QByteArray desk;
        AXError position;
        AXError size;
        QString detail{};
    };
    constexpr auto failure = AXError::failure;
    constexpr auto done = AXError::success;
    for (const auto &[window, more, position, size, detail] :
        {Case{R"("refusesPosition": -25200, "refusalDetail": "pinned")", {}, failure, done,
             u"pinned"_s},
            Case{R"("refusesSize": -25204)", {}, done, AXError::cannotComplete},
            Case{R"("fullScreen": true)", {}, failure, failure, u"in full screen"_s},
            Case{{}, R"("tiling": true,)", failure, failure, u"tiled by the window manager"_s},
            Case{R"("kind": "dialog")", R"("tiling": true,)", done, done},
            Case{R"("vanishesAfterCalls": 1)", {}, AXError::invalidUIElement, done}}) {
        SCOPED_TRACE(window.constData());
        const auto platform = desk({}, window, more);
        SimulatedWindows &windows = platform->windows();
        const WindowElement element = platform->desktop().stack().first();
        const Rect before = platform->desktop().window(element).frame;

        EXPECT_EQ(windows.setSize(element, {600, 500}), size);
        EXPECT_EQ(windows.setPosition(element, {50, 40}), position);

        EXPECT_EQ(windows.refusalDetail(element), detail);
        EXPECT_THAT(windows.writes(),
            ElementsAre(WindowWrite{element, Size{600, 500}, size},
                WindowWrite{element, Point{50, 40}, position}));
        const SimulatedWindow *there = platform->desktop().findWindow(element);
        ASSERT_EQ(there == nullptr, position == AXError::invalidUIElement);
        if (there) {
            EXPECT_EQ(there->frame.size(), size == done ? Size(600, 500) : before.size());
            EXPECT_EQ(there->frame.origin(), position == done ? Point(50, 40) : before.origin());
        }
    }
}

TEST(SimulatedDesktopTests, aHeldSizeIsAskedForAtTheNewPlace)
{
    const auto platform = desk({}, R"("frame": [1500, 900, 200, 100])");
    SimulatedDesktop &desktop = platform->desktop();
    desktop.fitsSizesToDisplay = desktop.holdsSizes = true;
    const WindowElement window = desktop.stack().first();
    const WindowOperation operation(platform->windows());

    EXPECT_EQ(platform->windows().setSize(window, {600, 600}), AXError::success);
    EXPECT_EQ(desktop.window(window).frame, (Rect{1500, 900, 200, 100}));
    EXPECT_EQ(platform->windows().setPosition(window, {100, 100}), AXError::success);

    EXPECT_EQ(desktop.window(window).frame, (Rect{100, 100, 600, 600}));
}

TEST(SimulatedDesktopTests, applicationsOpenTheirWindowsTheirOwnWayAtTheirTime)
{
    struct Case {
        QByteArray manner;
        std::array<int, 3> shown; ///< windows at once, in the end, and once asked for a further one
        int processes; ///< in the end
        QList<Clock::Duration> launches{0s};
    };
    const QByteArray further = R"("furtherStart": "windowIfItHasNone",)";
    for (const auto &[manner, shown, processes, launches] :
        {Case{{}, {1, 1, 2}, 2, {0s, 4s}}, Case{R"("opens": false,)", {0, 0, 0}, 0, {}},
            Case{R"("opensAfter": 3000,)", {0, 1, 2}, 2, {3s, 7s}},
            Case{R"("opensAfter": 3000, "splash": {},)", {1, 1, 2}, 2, {3s, 7s}},
            Case{R"("opensAfter": 3000, "exitsAfter": 1000,)", {0, 0, 0}, 0, {}},
            Case{R"("furtherStart": "window",)", {1, 1, 2}, 1}, Case{further, {1, 1, 1}, 1},
            Case{further + R"("opensFurtherWindows": true,)", {1, 1, 2}, 1},
            Case{R"("hasOneWindow": true,)", {1, 1, 1}, 1}}) {
        SCOPED_TRACE(manner.constData());
        const auto platform = desk(R"("running": false,)" + manner);
        SimulatedDesktop &desktop = platform->desktop();
        ManualClock &clock = platform->manualClock();
        QList<Clock::Duration> times;
        QObject::connect(
            &platform->applications(), &Applications::launched, [&] { times << clock.now(); });

        const pid_t launched = desktop.launch(u"a"_s).value_or(0);
        EXPECT_EQ(desktop.stack().size(), shown[0]);
        clock.advance(4s);
        EXPECT_EQ(desktop.stack().size(), shown[1]);
        EXPECT_EQ(desktop.findApplication(launched) == nullptr, manner.contains("exits"));
        EXPECT_EQ(platform->applications().openWindow(u"a"_s).has_value(), !manner.contains("One"));
        clock.advance(4s);
        EXPECT_EQ(desktop.stack().size(), shown[2]);
        EXPECT_EQ(desktop.running().size(), processes);
        EXPECT_EQ(times, launches);
        EXPECT_EQ(desktop.focused(), std::nullopt);
        EXPECT_EQ(desktop.launch(u"not installed"_s), std::nullopt);
    }
}

TEST(SimulatedDesktopTests, theDescribedDeskIsReadWithItsWindowsFrontToBack)
{
    const auto desk = load(example());
    ASSERT_TRUE(desk) << desk.error().toStdString();
    SimulatedPlatform &platform = **desk;

    EXPECT_EQ(&Platform::current(), &platform);
    ASSERT_THAT(platform.displays().all(), SizeIs(2));
    EXPECT_EQ(platform.displays().all()[0].visibleFrame, (Rect{0, 28, 1440, 872}));
    QStringList titles;
    for (const WindowElement &element : platform.desktop().stack())
        titles << platform.desktop().window(element).title;
    EXPECT_EQ(titles, QStringList({u"Shell"_s, u"Letter"_s, u"Print"_s}));
    const auto focused = platform.windows().focusedWindow().window.value_or(WindowElement{});
    EXPECT_EQ(platform.windows().title(focused), u"Letter"_s);
    EXPECT_EQ(platform.hotKeys().registerHotKey(1, 123, HotKeys::controlKey | HotKeys::optionKey),
        HotKeys::hotKeyExists);
    EXPECT_NE(platform.desktop().installed(u"org.example.Mail"_s), nullptr);
    EXPECT_THAT(platform.applications().running(), SizeIs(2));

    const auto other = load(R"({"trusted": false, "distrustReason": "Closed.", "unknown": [1, {}],
        "applications": [{"id": "a", "windows": [{"minimised": true}, {"title": "2"}]},
            {"id": "b", "windows": [{"title": "3"}]}]})");
    ASSERT_TRUE(other);
    EXPECT_EQ((*other)->windows().distrustReason(), u"Closed."_s);
    EXPECT_EQ((*other)->desktop().focused(), (*other)->desktop().stack()[1]);
}

TEST(SimulatedDesktopTests, badFilesAreExplainedInOneSentence)
{
    const std::string window = R"(.*\.windows\[0\])";
    const auto withWindow = [](const QByteArray &keys) {
        return R"({"applications": [{"id": "a", "windows": [{)" + keys + "}]}]}";
    };
    for (const auto &[json, sentence] :
        {std::pair(QByteArray("[]"), std::string("the whole of it must be an object")),
            {R"({"trusted": 1})", R"("trusted" must be true or false)"},
            {R"({"clock": "slow"})", R"("clock" must be one of "manual", "real")"},
            {R"({"displays": {}})", R"("displays" must be a list)"},
            {R"({"displays": [{}, {"frame": [0, 0, "wide", 9]}]})",
                R"("displays\[1\].frame" must be a list of four numbers: x, y, .* above 0)"},
            {R"({"displays": [{"frame": [0, 0, 100, 0]}]})", ".* width and height above 0"},
            {R"({"displays": [{"panels": [{"thickness": -4}]}]})",
                R"("displays\[0\].panels\[0\].thickness" must be a number from 0 to 1000)"},
            {R"({"displays": [{"frame": [0, 0, 50, 50], "panels": [{"thickness": 50}]}]})",
                R"("displays\[0\].panels" must be thin enough to leave room between them)"},
            {R"({"applications": [{"name": "A"}]})",
                R"("applications\[0\].id" must be a text that names the application)"},
            {withWindow(R"("kind": "round")"), window + R"(.kind" must be one of "standard", .*)"},
            {withWindow(R"("refusesSize": -1)"), window + R"(.refusesSize" must be -25200, .*)"},
            {R"({"rivals": [{}]})", R"("rivals\[0\].keyCode" must be a key code)"},
            {R"({"missingKeys": [1.5]})", R"("missingKeys\[0\]" must be a whole number)"}})
        EXPECT_THAT(complaint(json), MatchesRegex("cannot be used: " + sentence + "\\."));
    for (const QByteArray &json : {QByteArray(), QByteArray("{\"a\": tru}"), QByteArray(5000, '[')})
        EXPECT_THAT(complaint(json), MatchesRegex("is not JSON: .* at byte [0-9]+\\."));
    EXPECT_TRUE(loadDesk(u"/none.json"_s).error().startsWith(u"The desk file \"/none.json\""_s));
}

TEST(SimulatedDesktopTests, aSpoiledDeskIsReadOrExplained)
{
    const QString desk = QString::fromUtf8(example());
    const QRegularExpression value(
        uR"((?<=[:\[,] )(true|false|-?\d+|"[^"]*"(?!:)|\[[^\[\]]*\]|{[^{}]*}))"_s);
    int explained = 0;
    for (const auto &found : value.globalMatch(desk)) {
        for (const char *odd : {"null", "true", "-1", "0.5", "1e300", "\"?\"", "[]", "[1, 2, 3]",
                 "[-1, -1]", "[0, 0, 0, 0]", "[{}]", "{}"}) {
            QString spoiled = desk;
            spoiled.replace(found.capturedStart(), found.capturedLength(), QLatin1StringView(odd));
            const std::string text = complaint(spoiled.toUtf8());
            explained += !text.empty();
            EXPECT_THAT(text, MatchesRegex("(cannot be used: .*\\.)?")) << qPrintable(spoiled);
        }
    }
    EXPECT_GT(explained, 200);
}

} // namespace corvane
