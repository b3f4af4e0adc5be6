// Opens the sheet that asks for an application, among desktop entries and icons of its own, and types
// into it. Prints lines of a name and milliseconds: "first" and "later" from the request to the list's
// painting, "search" from each key to it, "longest" the longest that an event has had the processor.
//
//   corvane-picker APPLICATIONS OPENINGS

#include "AppPicker.h"
#include "BoardStyle.h"
#include "BoardText.h"
#include "DesktopChoice.h"
#include "OwnTime.h"
#include "Platform.h"
#include "SearchField.h"

#include <QtCore/QDir>
#include <QtCore/QPointer>
#include <QtCore/QTemporaryDir>
#include <QtGui/QIcon>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListView>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>

using namespace corvane;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;

namespace {

constexpr auto patience = 10s;
constexpr auto rest = 300ms; ///< in which the icons in sight are read

double milliseconds(SteadyClock::duration duration)
{
    return std::chrono::duration<double, std::milli>(duration).count();
}

/// Knows how long each event took, and when a list was painted.
class TimedApplication final : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        const double begin = ownTime();
        const bool isPainting = event->type() == QEvent::Paint && awaited
            && receiver == awaited->viewport() && awaited->model()->rowCount() > 0;
        ++m_depth;
        const bool isTaken = QApplication::notify(receiver, event);
        if (--m_depth == 0)
            longest = std::max(longest, ownTime() - begin);
        if (isPainting)
            painted = SteadyClock::now();
        return isTaken;
    }

    QPointer<QListView> awaited; ///< with what it lists
    std::optional<SteadyClock::time_point> painted;
    double longest = 0; ///< of our own time

private:
    int m_depth = 0;
};

void write(const QString &path, const QByteArray &contents)
{
    QDir().mkpath(path.section(u'/', 0, -2));
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(contents) != contents.size())
        qFatal("%s cannot be written", qUtf8Printable(path));
}

/// An entry with as many translations as programs of a desktop have.
QByteArray entry(int number)
{
    const QByteArray name = "Program " + QByteArray::number(number);
    QByteArray text = "[Desktop Entry]\nType=Application\nExec=true %U\nIcon=program-"
        + QByteArray::number(number) + '\n';
    for (int language = 0; language < 60; ++language) {
        const QByteArray code = "[" + QByteArray(1, char('a' + language % 26))
            + QByteArray(1, char('a' + language / 26)) + "]";
        for (const QByteArray &key : {QByteArray("Name"), QByteArray("GenericName"),
                 QByteArray("Comment"), QByteArray("Keywords")})
            text += key + code + "=" + name + " in the words of another language;\n";
    }
    return text + "Name=" + name + "\nGenericName=Tool for task " + QByteArray::number(number * 7)
        + "\nComment=Does what it is there for\nKeywords=work;office;draft;\n";
}

QByteArray picture(int number)
{
    const QByteArray color = QColor::fromHsv(number % 360, 200, 180).name().toLatin1();
    QByteArray shapes;
    for (int i = 0; i < 12; ++i)
        shapes += "<path d=\"M" + QByteArray::number(6 + i) + " 40c4-20 20-24 30-"
            + QByteArray::number(10 + i) + "s8 20 2 24z\" fill=\"url(#g)\" opacity=\".5\"/>";
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"48\" height=\"48\"><defs>"
           "<linearGradient id=\"g\"><stop stop-color=\"#fff\"/><stop offset=\"1\" stop-color=\""
        + color + "\"/></linearGradient></defs><rect width=\"48\" height=\"48\" rx=\"9\" fill=\""
        + color + "\"/>" + shapes + "</svg>";
}

void writeApplications(const QString &folder, int count)
{
    write(folder + u"/icons/bench/index.theme"_s,
        "[Icon Theme]\nName=Bench\nComment=Icons\nDirectories=scalable/apps\n\n[scalable/apps]\n"
        "Size=48\nMinSize=8\nMaxSize=512\nType=Scalable\nContext=Applications\n");
    for (int number = 0; number < count; ++number) {
        write(u"%1/applications/org.example.program%2.desktop"_s.arg(folder).arg(number),
            entry(number));
        write(u"%1/icons/bench/scalable/apps/program-%2.svg"_s.arg(folder).arg(number),
            picture(number));
    }
}

/// Handles events until the list is painted; how long that takes from the request on.
double timeUntilPainted(TimedApplication &application, const std::function<void()> &request)
{
    application.painted.reset();
    const auto begin = SteadyClock::now();
    QMetaObject::invokeMethod(&application, request, Qt::QueuedConnection);
    while (!application.painted) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (SteadyClock::now() - begin > patience)
            qFatal("the list was not painted");
    }
    return milliseconds(*application.painted - begin);
}

void handleEventsFor(SteadyClock::duration duration)
{
    const auto end = SteadyClock::now() + duration;
    while (SteadyClock::now() < end)
        QCoreApplication::processEvents();
}

/// What the sheet stands over: a window in which its fonts and controls have been drawn already.
QWidget *makeWindow()
{
    auto *window = new QWidget;
    auto *column = new QVBoxLayout(window);
    for (const auto type : {Board::Type::title, Board::Type::label, Board::Type::secondary})
        column->addWidget(new BoardText(u"Layouts"_s, type));
    column->addWidget(new SearchField(u"Filter"_s));
    column->addWidget(new QPushButton(u"Apply"_s));
    window->show();
    handleEventsFor(rest);
    return window;
}

void timeOpening(TimedApplication &application, QWidget *window, const char *name)
{
    AppPicker *picker = nullptr;
    const double opening = timeUntilPainted(application, [&] {
        picker = new AppPicker(window);
        application.awaited = picker->findChild<QListView *>();
        picker->open();
    });
    std::printf("%s %f\n", name, opening);
    handleEventsFor(rest);
    auto *field = picker->findChild<QLineEdit *>();
    for (const QChar letter : u"tool office program 48"_s) {
        const double search = timeUntilPainted(application, [&] {
            QKeyEvent key(QEvent::KeyPress, 0, {}, letter);
            QCoreApplication::sendEvent(field, &key);
        });
        std::printf("search %f\n", search);
    }
    handleEventsFor(rest);
    picker->reject();
    handleEventsFor(rest / 10);
}

} // namespace

int main(int argc, char **argv)
{
    const QTemporaryDir folder;
    for (const char *variable : {"XDG_DATA_HOME", "XDG_DATA_DIRS"})
        qputenv(variable, folder.path().toLocal8Bit());
    if (const QString problem = prepareWindows(); !problem.isEmpty())
        qFatal("%s", qUtf8Printable(problem));
    TimedApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const auto platform = openDesktop([] { QCoreApplication::exit(1); });
    if (!platform)
        qFatal("%s", qUtf8Printable(platform.error()));
    BoardStyle::shared().setLook({});
    const int count = QApplication::arguments().value(1).toInt();
    writeApplications(folder.path(), count);
    QIcon::setThemeName(u"bench"_s);
    // As the program does when it meets the first window; a folder that has only just changed would be
    // read once more.
    handleEventsFor(rest);
    std::ignore = Platform::current().applications().installation(u"org.example.program0"_s);
    const std::unique_ptr<QWidget> window(makeWindow());
    // Another one is installed meanwhile.
    write(u"%1/applications/new.desktop"_s.arg(folder.path()), entry(count));
    handleEventsFor(rest);
    application.longest = 0;
    timeOpening(application, window.get(), "first");
    for (int i = 1; i < QApplication::arguments().value(2).toInt(); ++i)
        timeOpening(application, window.get(), "later");
    std::printf("longest %f\ndone\n", application.longest);
}
