#include "Desk.h"
#include "Geometry.h"

#include <QtCore/QCoreApplication>

namespace corvane {

namespace {

class LayoutCaptureTests : public testing::Test, protected Desk
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

TEST_F(LayoutCaptureTests, aWindowIsRememberedWithItsAppAndItsTitle)
{
    const QString nameless = u"org.example.Nameless"_s; // of the editor's process
    open({.title = u"Plan"_s, .frame = {720, 25, 720, 875}, .application = nameless});
    open({.frame = {0, 25, 480, 875}});

    const WindowLayout layout = engine.capture(u"Desk"_s);

    EXPECT_TRUE(layout.name == u"Desk" && layout.created == platform.clock().date());
    ASSERT_EQ(layout.panes.size(), 2);
    EXPECT_EQ(layout.panes[0],
        (Pane{layout.panes[0].id, 0, {0, 0, 0.333, 1}, editorApp, {}, true, 0, u""_s}));
    EXPECT_EQ(layout.panes[1].app, (AppRef{nameless, nameless}));
    EXPECT_EQ(layout.panes[1].titleContains, u"Plan"_s);
}

TEST_F(LayoutCaptureTests, onlyOrdinaryWindowsOnShowAreCaptured)
{
    const auto self = static_cast<pid_t>(QCoreApplication::applicationPid());
    openFrom(desktop.start(u"app.corvane.Corvane"_s, u"Corvane"_s, self));
    openOf({{}, u"No identifier"_s});
    const pid_t hung = openOf({u"org.example.Hung"_s, u"Hung"_s}).pid;
    openFrom(hung);
    desktop.application(hung).hung = true;
    for (const WindowSpec &leftOut :
        QList<WindowSpec>{{.frame = {0, 25, 99, 300}}, {.frame = {0, 25, 300, 79}},
            {.frame = {0, 25, 1443, 300}}, {.frame = {0, 25, 300, 878}},
            {.frame = {5000, 25, 300, 300}}, {.kind = WindowKind::dialog}, {.fullScreen = true},
            {.minimised = true}, {.onOtherWorkspace = true}})
        open(leftOut);
    open({.title = u"large"_s, .frame = {-1, 24, 1442, 877}});
    open({.title = u"small"_s, .frame = {0, 25, 100, 80}});
    // Its own place in the stack of its application is the front.
    openOf(mail, {.title = u"mail"_s, .frame = {200, 125, 300, 300}});

    EXPECT_EQ(captured(), u"small large mail"_s);
    EXPECT_EQ(platform.clock().now(), 1s);
}

TEST_F(LayoutCaptureTests, panesAreInReadingOrderWithoutThoseThatAreMostlyHidden)
{
    open({.title = u"hidden"_s, .frame = {0, 25, 1000, 600}});
    open({.title = u"a-fifth-to-see"_s, .frame = {5, 20, 1200, 800}});
    open({.title = u"lower"_s, .frame = {0, 525, 960, 300}});
    open({.title = u"upper"_s, .frame = {10, 25, 950, 500}});

    EXPECT_EQ(captured(), u"upper a-fifth-to-see lower"_s);
    EXPECT_EQ(Geometry::visibleFraction({0, 0, 1, 1}, {{0, 0, 0.5, 1}, {0, 0, 1, 0.5}}, 24), 0.25);
}

} // namespace corvane
