#include "LayoutRuns.h"

#include <QtCore/QFile>

#include <algorithm>
#include <map>
#include <set>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

struct Program {
    QString id; ///< of its entry, and the class of its windows
    QStringList command; ///< as its entry has it
    QStringList further; ///< what a user adds; %1 is the day
};

// Programs that nobody wrote for these tests: a terminal with increments, Xaw, Tk, Qt, and GTK with
// header bars.
QList<Program> programs(const QString &folder)
{
    const QString terminal = u"corvane.real.terminal"_s;
    const QString planner = u"corvane.real.planner"_s;
    const QStringList xterm{u"xterm"_s, u"-class"_s, terminal, u"-e"_s, u"cat"_s};
    const QStringList titled{u"xterm"_s, u"-class"_s, terminal, u"-T"_s};
    return {
        {terminal, xterm, titled + QStringList{u"Mail of %1"_s, u"-e"_s, u"cat"_s}},
        {terminal, xterm, titled + QStringList{u"%1: make"_s, u"-e"_s, u"cat"_s}},
        {u"Xedit"_s, {u"xedit"_s}, {u"xedit"_s, folder + u"/%1.txt"_s}},
        {u"XCalc"_s, {u"xcalc"_s}, {u"xcalc"_s}},
        {planner, {u"wish"_s, u"-name"_s, planner},
            {u"wish"_s, folder + u"/%1.tcl"_s, u"-name"_s, planner}},
        {u"linguist"_s, {u"/usr/lib/qt6/bin/linguist"_s},
            {u"/usr/lib/qt6/bin/linguist"_s, folder + u"/%1.ts"_s}},
        {u"gtk3-widget-factory"_s, {u"gtk3-widget-factory"_s}, {u"gtk3-widget-factory"_s}},
        {u"gtk3-icon-browser"_s, {u"gtk3-icon-browser"_s}, {u"gtk3-icon-browser"_s}},
    };
}

class RealDeskTests : public LayoutRuns
{
protected:
    using Frames = std::multiset<std::tuple<std::string, double, double, double, double>>;

    void SetUp() override
    {
        LayoutRuns::SetUp();
        m_programs = programs(desktop().folder());
        for (const Program &program : m_programs) {
            if (!m_entries.contains(program.id))
                m_entries[program.id] =
                    std::make_shared<InstalledApp>(desktop(), program.id, program.command);
        }
        for (const QString &day : {u"Monday"_s, u"Thursday"_s}) {
            write(day + u".txt"_s, "Notes");
            write(day + u".tcl"_s, "wm title . {Plan for " + day.toUtf8() + "}\n");
            write(day + u".ts"_s,
                "<!DOCTYPE TS><TS version=\"2.1\" "
                "language=\"de\"><context><name>Desk</name><message>"
                "<source>Window</source><translation>Fenster</translation></message></context></"
                "TS>");
        }
    }

    void TearDown() override
    {
        closeAll();
        m_entries.clear();
        LayoutRuns::TearDown();
    }

    void write(const QString &name, const QByteArray &text)
    {
        QFile file(desktop().folder() + u'/' + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    void open(const QString &day)
    {
        for (const Program &program : m_programs) {
            QStringList command = program.further;
            for (QString &word : command)
                word = word.replace(u"%1"_s, day);
            m_running.push_back(desktop().launch(command.first(), command.mid(1)));
            EXPECT_TRUE(waitUntil([&] { return windows().size() == qsizetype(m_running.size()); },
                Milliseconds{20000}))
                << command.join(u' ').toStdString();
        }
    }

    /// Those of the programs.
    QList<xcb_window_t> windows()
    {
        QList<xcb_window_t> found;
        for (const xcb_window_t window : probe().clients()) {
            if (!programOf(window).isEmpty())
                found << window;
        }
        return found;
    }

    QString programOf(xcb_window_t window)
    {
        for (const Program &program : m_programs) {
            if (probe().hasClass(window, program.id.toLatin1()))
                return program.id;
        }
        return {};
    }

    /// Beside each other, as far as their sizes allow, and wholly on the display.
    void arrange()
    {
        const auto all = windows();
        for (qsizetype i = 0; i < all.size(); ++i) {
            const double column = static_cast<double>(i % 4);
            const double row = i < 4 ? 0 : 1;
            const Rect wanted{17 + 471 * column, 23 + 531 * row, 433, 463};
            moveTo(all[i], wanted);
            const Rect now = frame(all[i]);
            moveTo(all[i],
                {std::min(wanted.x, standardDisplay.maxX() - now.width),
                    std::min(wanted.y, standardDisplay.maxY() - now.height), wanted.width,
                    wanted.height});
        }
        reached(all.last(), {});
    }

    /// Where the windows of each program stand.
    Frames frames()
    {
        Frames frames;
        for (const xcb_window_t window : windows()) {
            const Rect frame = this->frame(window);
            frames.emplace(
                programOf(window).toStdString(), frame.x, frame.y, frame.width, frame.height);
        }
        return frames;
    }

    void closeAll()
    {
        for (const xcb_window_t window : windows())
            pager().close(window);
        EXPECT_TRUE(waitUntil([this] { return windows().isEmpty(); }, Milliseconds{10000}))
            << programOf(windows().value(0)).toStdString();
        m_running.clear();
    }

    void expectBack(const Frames &expected)
    {
        const auto applied = apply(u"Desk"_s, Milliseconds{60000});

        EXPECT_EQ(applied.exitStatus, 0) << applied.statuses();
        EXPECT_EQ(windows().size(), m_programs.size());
        EXPECT_TRUE(waitUntil([&] { return frames() == expected; })) << testing::PrintToString(
            frames()) << "\nnot\n" << testing::PrintToString(expected);
    }

    QList<Program> m_programs;
    std::map<QString, std::shared_ptr<InstalledApp>> m_entries;
    std::vector<std::unique_ptr<ChildProcess>> m_running;
};

} // namespace

TEST_F(RealDeskTests, aDeskOfEightComesBackWithOtherDocumentsAndClosed)
{
    open(u"Monday"_s);
    arrange();
    const Frames captured = frames();
    QStringList ids;
    for (const Pane &pane : capture(u"Desk"_s).panes)
        ids << pane.app->bundleID;
    ASSERT_EQ(ids.size(), m_programs.size())
        << ids.join(u' ').toStdString() << testing::PrintToString(captured);
    closeAll();

    open(u"Thursday"_s);
    expectBack(captured);
    closeAll();

    expectBack(captured);
}

} // namespace corvane::desktop
