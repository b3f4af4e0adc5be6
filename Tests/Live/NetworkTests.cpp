#include "LiveDesk.h"

#include <QtCore/QFile>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

/// The program, and whatever it starts, with every call to the network written down.
class NetworkTests : public LiveTests
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(LiveTests::SetUp());
        corvane().stop();
        calls = desktop().folder() + u"/calls"_s;
        QFile script(desktop().folder() + u"/watched-corvane"_s);
        ASSERT_TRUE(script.open(QFile::WriteOnly));
        script.write("#!/bin/sh\nexec strace -qq -f -A -e trace=%network -o '" + calls.toUtf8()
            + "' " CORVANE_PROGRAM " \"$@\"\n");
        script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        script.close();
        // One that is being traced cannot look for leaks.
        desktop().setVariable(u"ASAN_OPTIONS"_s, u"detect_leaks=0"_s);
        desktop().setVariable(u"CORVANE_REPORT_TEST_ADDRESS"_s, u"http://127.0.0.1:1/"_s);
        watched = std::make_unique<CorvaneProcess>(desktop(), script.fileName());
        ASSERT_TRUE(watched->start(CorvaneProcess::Tour::unseen)) << qPrintable(desktop().logs());
    }
    void TearDown() override
    {
        watched.reset();
        desktop().setVariable(u"CORVANE_REPORT_TEST_ADDRESS"_s, {});
        desktop().setVariable(u"ASAN_OPTIONS"_s, qEnvironmentVariable("ASAN_OPTIONS"));
        ASSERT_TRUE(corvane().start());
        LiveTests::TearDown();
    }

    void ask(const QStringList &arguments)
    {
        const auto answer = watched->ask(arguments, 3 * patience);
        EXPECT_TRUE(answer.exitStatus == 0 || answer.exitStatus == 1) << qPrintable(arguments[0]);
    }
    /// The calls that reach beyond this session: to an address, not to a file.
    [[nodiscard]] QByteArrayList callsBeyond()
    {
        QFile file(calls);
        EXPECT_TRUE(file.open(QFile::ReadOnly));
        QByteArrayList all = file.readAll().split('\n');
        EXPECT_GT(all.removeIf([](const QByteArray &call) { return call.contains("AF_UNIX"); }), 9);
        all.removeIf([](const QByteArray &call) { return !call.contains("AF_"); });
        return all;
    }

    QString calls;
    std::unique_ptr<CorvaneProcess> watched;
};

} // namespace

TEST_F(NetworkTests, aDayOfEverythingAsksNothingOfTheNetworkUntilAReportIsSent)
{
    showFocused();
    for (const Placement placement : allPlacements())
        ask({u"--place"_s, rawValue(placement)});
    const qsizetype seen = watched->log().size();
    keys().press({strokes::hyper, Key::left});
    EXPECT_TRUE(watched->waitForLog(u"leftHalf"_s, seen));
    for (const auto &pane :
        {u"general"_s, u"shortcuts"_s, u"layouts"_s, u"tremorLog"_s, u"about"_s})
        ask({u"--pane"_s, pane});
    for (const QStringList &each : {QStringList{u"--capture"_s, u"Day"_s},
             {u"--apply-layout"_s, u"Day"_s}, {u"--layout"_s, u"Day"_s, u"--open-app-picker"_s},
             {u"--preview-layout-edit"_s}, {u"--tour-page"_s, u"3"_s}, {u"--pop-menu"_s},
             {u"--quit-competitors"_s}, {u"--history"_s}, {u"--print-settings"_s},
             {u"--report"_s, u"Broken"_s, u"--save"_s, desktop().folder() + u"/report.txt"_s},
             {u"--report"_s, u"Broken"_s}})
        ask(each);
    EXPECT_EQ(callsBeyond(), QByteArrayList());

    ask({u"--report"_s});
    ASSERT_TRUE(waitUntil([&] {
        return desktop().connection().property(probe().activeWindow(), "_NET_WM_NAME")
            == "Report a Problem";
    }));
    keys().press({KeyStroke::control, Key::enter});
    EXPECT_TRUE(waitUntil([&] { return callsBeyond().join('\n').contains("sin_port=htons(1)"); }));
}

} // namespace corvane::desktop
