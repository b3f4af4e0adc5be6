#include "ScreenReaderTests.h"

#include <signal.h>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

/// The sheet of a problem report, by keys and a screen reader alone.
class ReportReaderTests : public ScreenReaderTests
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(ScreenReaderTests::SetUp());
        desk.setPath(desktop().home() + u"/Desktop"_s);
        draft = pathOf(u"report-draft.txt"_s);
        QDir().mkpath(desk.path());
        startReader();
    }
    void TearDown() override
    {
        ScreenReaderTests::TearDown();
        desk.removeRecursively();
        QFile::remove(draft);
    }

    void open(const QStringList &words)
    {
        EXPECT_EQ(corvane().ask(QStringList{u"--report"_s} + words).exitStatus, 0);
        const Accessible field = find(u"text What you saw"_s);
        EXPECT_EQ(field.within, u"dialog Report a Problem"_s);
        EXPECT_TRUE(comesTo(field, Accessible::focused));
    }
    [[nodiscard]] static QByteArray content(const QString &path)
    {
        QFile file(path);
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

    QDir desk;
    QString draft;
};

} // namespace

TEST_F(ReportReaderTests, whatIsWrittenOutlivesTheProgramUntilItIsSavedWhichIsSaid)
{
    showFocused();
    open({});
    keys().type("broken");
    EXPECT_TRUE(waitUntil([this] { return content(draft) == "broken"; }));
    kill(corvane().pid(), SIGKILL);
    EXPECT_TRUE(waitUntil([this] { return !corvane().isRunning(); }));
    ASSERT_TRUE(corvane().start());
    EXPECT_TRUE(corvane().waitForLog(u"Corvane did not quit the last time"_s));

    open({u"again"_s});
    for (const QString &title : {u"check box Show what is saved"_s, u"push button Cancel"_s}) {
        keys().press({0, Key::tab});
        EXPECT_TRUE(comesTo(find(title), Accessible::focused)) << qPrintable(title);
    }
    keys().press({KeyStroke::control, Key::enter});

    EXPECT_TRUE(comesTo(find(u"push button Show in Files"_s), Accessible::focused));
    const Accessible dialog = find(u"dialog Report a Problem"_s);
    EXPECT_EQ(reader().description(dialog), u"Saved on your Desktop"_s);
    find(u"label This copy of Corvane has no address to send reports to."_s);
    const QStringList files = desk.entryList(QDir::Files);
    ASSERT_EQ(files.size(), 1);
    EXPECT_TRUE(content(desk.filePath(files.first())).contains("\nbroken\n\nagain\n"));
    EXPECT_FALSE(QFile::exists(draft));
    keys().press({0, Key::escape});
    EXPECT_TRUE(comesTo(dialog, Accessible::showing, false));
}

} // namespace corvane::desktop
