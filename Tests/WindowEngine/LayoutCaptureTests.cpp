#include "LayoutDesk.h"

#include <QtCore/QCoreApplication>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;

namespace {

class LayoutCaptureTests : public testing::Test, protected LayoutDesk
{
protected:
    /// The titles of the panes, in their order.
    QString captured()
    {
        QStringList titles;
        for (const Pane &pane : engine.capture({}).panes)
            titles << pane.titleContains.value_or(u"-"_s);
        return titles.join(u' ');
    }
};

} // namespace

TEST_F(LayoutCaptureTests, aLayoutRemembersEachWindowAndItsDisplay)
{
    plugMonitor();
    const AppRef editorApp{u"org.example.Editor"_s, u"Editor"_s};
    const AppRef nameless{u"org.example.Nameless"_s, u"org.example.Nameless"_s};
    openFrom(
        desktop.start(nameless.bundleID, {}), {.title = u"Plan"_s, .frame = {1440, 540, 960, 540}});
    open({.frame = {0, 25, 480, 875}});
    open({.title = u"Notes"_s, .frame = {480, 25, 960, 875}});
    advance(5s);

    const WindowLayout layout = engine.capture(u"Desk"_s);

    const auto id = [&](qsizetype index) { return layout.panes.value(index).id; };
    EXPECT_EQ(layout.name, u"Desk"_s);
    EXPECT_EQ(layout.created, platform.clock().date());
    EXPECT_FALSE(layout.applyOnConnect || layout.shortcut);
    EXPECT_THAT(layout.displays,
        ElementsAre(DisplayKey{u"Laptop"_s, 1440, 900}, DisplayKey{u"Monitor"_s, 1920, 1080}));
    EXPECT_THAT(layout.panes,
        ElementsAre(Pane{.id = id(0),
                        .rect = {0, 0, 0.333, 1},
                        .app = editorApp,
                        .stack = 1,
                        .capturedTitle = QString()},
            Pane{.id = id(1),
                .rect = {0.333, 0, 0.667, 1},
                .app = editorApp,
                .titleContains = u"Notes"_s,
                .stack = 0,
                .capturedTitle = u"Notes"_s},
            Pane{.id = id(2),
                .display = 1,
                .rect = {0, 0.5, 0.5, 0.5},
                .app = nameless,
                .titleContains = u"Plan"_s,
                .stack = 0,
                .capturedTitle = u"Plan"_s}));
}

TEST_F(LayoutCaptureTests, onlyOrdinaryWindowsOnShowAreCaptured)
{
    const auto self = static_cast<pid_t>(QCoreApplication::applicationPid());
    openFrom(desktop.start(u"app.corvane.Corvane"_s, u"Corvane"_s, self));
    openFrom(desktop.start({}, u"No identifier"_s));
    const pid_t hung = desktop.start(u"org.example.Hung"_s, u"Hung"_s);
    openFrom(hung);
    openFrom(hung);
    desktop.application(hung).hung = true;
    const WindowSpec leftOut[]{{.frame = {0, 25, 99, 300}}, {.frame = {0, 25, 300, 79}},
        {.frame = {0, 25, 1443, 300}}, {.frame = {0, 25, 300, 878}},
        {.frame = {5000, 25, 300, 300}}, {.kind = WindowKind::dialog}, {.fullScreen = true},
        {.minimised = true}, {.onOtherWorkspace = true}};
    for (const WindowSpec &wanted : leftOut)
        open(wanted);
    open({.title = u"large"_s, .frame = {-1, 24, 1442, 877}});
    open({.title = u"small"_s, .frame = {0, 25, 100, 80}});

    EXPECT_EQ(captured(), u"small large"_s);
    EXPECT_EQ(platform.clock().now(), 1s);
}

TEST_F(LayoutCaptureTests, panesMostlyHiddenByLowerPlacesInTheStackAreLeftOut)
{
    openFrom(desktop.start(u"org.example.Other"_s, {}),
        {.title = u"covered-but-first"_s, .frame = {200, 125, 300, 300}});
    open({.title = u"hidden"_s, .frame = {0, 25, 1000, 600}});
    open({.title = u"a-fifth-to-see"_s, .frame = {0, 25, 1200, 800}});
    open({.title = u"front"_s, .frame = {0, 25, 960, 800}});

    EXPECT_EQ(captured(), u"front a-fifth-to-see covered-but-first"_s);
}

TEST_F(LayoutCaptureTests, panesAreInReadingOrderAndNearColumnsAreOne)
{
    open({.title = u"right"_s, .frame = {800, 25, 400, 300}});
    open({.title = u"lower"_s, .frame = {0, 425, 400, 300}});
    open({.title = u"upper"_s, .frame = {10, 25, 400, 300}});

    EXPECT_EQ(captured(), u"upper lower right"_s);
}

} // namespace corvane
