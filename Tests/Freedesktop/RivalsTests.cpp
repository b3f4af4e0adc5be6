#include "EntryFolders.h"
#include "PrivateSession.h"
#include "Rivals.h"

#include <gmock/gmock.h>

#include <unistd.h>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(RivalsTests, programsOfThisSessionAreFoundByTheirProcessesAndOnlyTheirsAreEnded)
{
    const QString display = u":%1"_s.arg(getpid());
    qputenv("DISPLAY", display.toLocal8Bit());
    desktop::PrivateSession session;
    session.setVariable(u"DISPLAY"_s, u":1%1"_s.arg(getpid()));
    const auto elsewhere = session.launchIdle(u"zentile"_s);
    session.setVariable(u"DISPLAY"_s, display + u".0"_s);
    const auto stranger = session.launchIdle(u"cortiles"_s);
    const auto first = session.launchIdle(u"cortile"_s);
    const auto second = session.launchIdle(u"cortile"_s);
    QFile script(session.folder() + u"/quicktile.py"_s);
    ASSERT_TRUE(script.open(QFile::WriteOnly) && script.write("read line\n") > 0);
    script.close();
    const auto interpreted =
        session.launch(u"sh"_s, {script.fileName()}, desktop::ChildProcess::Channel::pipes);
    Rivals rivals;
    QList<pid_t> ended;
    QObject::connect(&rivals, &Rivals::ended, &rivals, [&](pid_t pid) { ended << pid; });

    EXPECT_THAT(rivals.running(),
        ElementsAre(RunningApplication{interpreted->pid(), u"quicktile"_s, u"QuickTile"_s, false},
            RunningApplication{first->pid(), u"cortile"_s, u"Cortile"_s, false}));
    for (const auto *each : {&first, &second, &stranger, &elsewhere})
        rivals.terminate((*each)->pid());

    EXPECT_TRUE(eventually([&] { return !ended.isEmpty(); }));
    EXPECT_THAT(ended, ElementsAre(first->pid()));
    EXPECT_FALSE(first->isRunning());
    EXPECT_TRUE(second->isRunning() && stranger->isRunning() && elsewhere->isRunning());
    EXPECT_EQ(rivals.running().value(1).pid, second->pid());
    interpreted->stop();
    second->stop();
    EXPECT_THAT(rivals.running(), IsEmpty());
}

} // namespace corvane::freedesktop
