#include "DemoOptions.h"
#include "Pictures.h"
#include "ResultTable.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>

#include <cstdio>

using namespace corvane;
using namespace corvane::demo;
using namespace Qt::StringLiterals;

namespace {

enum Status : int { allLanded = 0, failed = 1, misused = 2 };

void print(const QString &text)
{
    std::fputs(qUtf8Printable(text), stdout);
    std::fflush(stdout);
}

int fail(Status status, const QString &sentence)
{
    std::fprintf(stderr, "corvane-demo: %s\n", qUtf8Printable(sentence));
    return status;
}

struct Tally {
    int landed = 0;
    int steps = 0;
    int missingPictures = 0;
};

Tally walk(Desk &desk, Walkthrough &walkthrough, const QString &folder)
{
    Tally tally;
    const auto take = [&](const QString &name) {
        if (!writePicture(desk.connection(), folder + u'/' + name))
            ++tally.missingPictures;
    };
    take(u"1-before.png"_s);
    print(tableHead());
    for (const Chapter &chapter : scenario()) {
        for (const Step &step : chapter.steps) {
            const StepResult result = walkthrough.perform(step);
            print(tableLine(result));
            ++tally.steps;
            tally.landed += result.landed;
        }
        take(chapter.picture);
    }
    print(
        u"ms: from the key press until the window stands there; for a command, its whole run.\n"_s);
    return tally;
}

/// Whether every window came back.
bool restore(Desk &desk, desktop::CorvaneProcess &corvane, const QString &folder)
{
    Restoration restoration(desk, corvane);
    const QString captured = restoration.capture();
    print(u'\n' + (captured.isEmpty() ? u"Nothing was captured.\n"_s : captured));
    const bool scattered = restoration.scatter();
    const bool pictured = writePicture(desk.connection(), folder + u"/6-scattered.png"_s);
    print(u"The windows are scattered. Applying the layout:\n\n"_s + layoutTableHead());
    const QList<RestoredPane> panes = restoration.apply();
    for (const RestoredPane &pane : panes)
        print(layoutTableLine(pane));
    return writePicture(desk.connection(), folder + u"/7-restored.png"_s) && pictured && scattered
        && restoration.isWhole(panes);
}

/// True, too, when no such picture is wanted.
bool reduce(const DemoOptions &options, const QStringList &names, const QList<Rect> &displays,
    const QString &path)
{
    if (path.isEmpty())
        return true;
    QStringList pictures;
    for (const QString &name : names)
        pictures << options.pictureFolder + u'/' + name;
    QDir().mkpath(QFileInfo(path).path());
    return writeReduced(pictures, displays, path);
}

int demonstrate(const DemoOptions &options)
{
    QDir().mkpath(options.pictureFolder);
    const auto desk = Desk::start(options.windowManager);
    if (!desk)
        return fail(failed, desk.error());
    desktop::CorvaneProcess corvane((*desk)->desktop(), QString::fromUtf8(CORVANE_PROGRAM));
    if (!corvane.start())
        return fail(failed, u"Corvane did not start:\n"_s + (*desk)->desktop().logs());
    print(u"%1, %2 displays. Corvane is %3.\n\n"_s.arg(options.windowManager)
              .arg((*desk)->displays().size())
              .arg(corvane.readyLine()));
    Walkthrough walkthrough(**desk, corvane);
    const Tally tally = walk(**desk, walkthrough, options.pictureFolder);
    if (tally.missingPictures > 0)
        return fail(failed, u"a picture could not be written to %1"_s.arg(options.pictureFolder));
    const bool restored = restore(**desk, corvane, options.pictureFolder);
    const QList<Rect> &displays = (*desk)->displays();
    if (!reduce(options, {u"5-after.png"_s}, displays, options.reducedPicture)
        || !reduce(
            options, {u"6-scattered.png"_s, u"7-restored.png"_s}, displays, options.layoutPicture))
        return fail(failed, u"a reduced picture could not be written"_s);
    print(u"\n%1 of %2 windows landed, the layout %3; pictures in %4\n"_s.arg(tally.landed)
              .arg(tally.steps)
              .arg(restored ? u"is back"_s : u"is not back"_s, options.pictureFolder));
    return tally.landed == tally.steps && restored ? allLanded : failed;
}

} // namespace

int main(int argc, char **argv)
{
    // For painting and its fonts alone: no window of this program's own.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir runtime;
    if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    const QGuiApplication application(argc, argv);
    const auto options = DemoOptions::parse(QGuiApplication::arguments().mid(1));
    if (!options)
        return fail(misused, options.error());
    if (options->help) {
        print(DemoOptions::helpText());
        return allLanded;
    }
    return demonstrate(*options);
}
