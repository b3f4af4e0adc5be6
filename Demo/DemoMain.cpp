#include "CorvaneProcess.h"
#include "Decoding.h"
#include "Expectation.h"
#include "Pager.h"
#include "Pane.h"
#include "Pictures.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <cstdio>

using namespace corvane;
using namespace corvane::demo;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using desktop::Pager;
using desktop::waitUntil;

namespace {

void print(const QString &text)
{
    std::fputs(qUtf8Printable(text), stdout);
    std::fflush(stdout);
}

// A column that is justified to the right has a negative width.
const QList<int> stepColumns{33, 26, 12, 18, 18, -6};
const QList<int> paneColumns{36, 12, 18, 18};

QString lineOf(const QList<int> &columns, const QStringList &cells, const QString &last)
{
    QString line;
    for (qsizetype i = 0; i < columns.size(); ++i)
        line += (columns[i] < 0 ? cells[i].rightJustified(-columns[i])
                                : cells[i].leftJustified(columns[i]))
            + u"  "_s;
    return line + last + u'\n';
}

void printHead(const QList<int> &columns, const QStringList &cells)
{
    const QString head = lineOf(columns, cells, {});
    print(head + QString(head.trimmed().size() + 4, u'-') + u'\n');
}

QString text(const std::optional<Rect> &rect)
{
    return rect ? u"%1,%2 %3×%4"_s.arg(rect->x).arg(rect->y).arg(rect->width).arg(rect->height)
                : u"none"_s;
}

QString text(const Step &step)
{
    return rawValue(step.pressed)
        + (step.becomes == step.pressed ? QString() : u": "_s + rawValue(step.becomes))
        + (step.wasMaximized ? u", was maximised"_s : QString());
}

/// Shows what the program does on a desk, prints what came of it and takes pictures.
class Demonstration
{
public:
    Demonstration(Desk &desk, desktop::CorvaneProcess &corvane, QString pictureFolder);

    /// Performs every step as a person does: brings the application forward, presses the keys, looks.
    void walk();
    /// Keeps the desk as a layout as a user does, puts every window elsewhere and has the layout put
    /// them back. Whether all came back.
    [[nodiscard]] bool restore();

    [[nodiscard]] int steps() const { return m_steps; }
    [[nodiscard]] int landed() const { return m_landed; }
    /// Whether every picture could be written.
    [[nodiscard]] bool isPictured() const { return m_isPictured; }

private:
    using Predicate = std::function<bool(const Rect &)>;

    [[nodiscard]] bool perform(const Step &step);
    [[nodiscard]] bool bringForward(xcb_window_t window, bool maximized);
    /// Milliseconds until the window stood there.
    [[nodiscard]] std::optional<double> press(
        const desktop::KeyStroke &stroke, xcb_window_t window, const Predicate &hasLanded);
    [[nodiscard]] std::optional<double> place(Placement placement);
    /// Prints what came of a pane; the application whose window is back by it.
    std::optional<Application> restored(const QJsonObject &report);
    [[nodiscard]] std::optional<Application> applicationTitled(const QString &windowTitle);
    void takePicture(const QString &name);

    Desk &m_desk;
    desktop::CorvaneProcess &m_corvane;
    QString m_pictureFolder;
    desktop::WindowProbe m_probe;
    Expectation m_expectation;
    QHash<Application, Rect> m_captured; ///< where the windows stood in the layout
    int m_steps = 0;
    int m_landed = 0;
    bool m_isPictured = true;
};

Demonstration::Demonstration(Desk &desk, desktop::CorvaneProcess &corvane, QString pictureFolder)
    : m_desk(desk)
    , m_corvane(corvane)
    , m_pictureFolder(std::move(pictureFolder))
    , m_probe(desk.connection())
    , m_expectation(desk.areas())
{
    for (const Application application : applications) {
        if (const auto frame = m_probe.settledFrame(desk.window(application)))
            m_expectation.setOriginal(application, *frame);
    }
}

void Demonstration::walk()
{
    takePicture(u"1-before.png"_s);
    printHead(stepColumns,
        {u"keys"_s, u"placement"_s, u"application"_s, u"frame asked"_s, u"frame reached"_s,
            u"ms"_s});
    for (const Chapter &chapter : scenario()) {
        for (const Step &step : chapter.steps) {
            m_landed += perform(step);
            ++m_steps;
        }
        takePicture(chapter.picture);
    }
    print(
        u"ms: from the key press until the window stands there; for a command, its whole run.\n"_s);
}

bool Demonstration::perform(const Step &step)
{
    const xcb_window_t window = m_desk.window(step.application);
    const bool inFront = bringForward(window, step.wasMaximized);
    const Rect before = m_probe.visibleFrame(window).value_or(Rect());
    const Rect asked = m_expectation.ask(step, before);
    const auto hasLanded = [&, limits = sizeLimits(m_desk.connection(), window)](
                               const Rect &frame) {
        return m_expectation.isLanding(frame, asked, limits);
    };
    const qsizetype seen = m_corvane.log().size();
    const auto keys = shortcut(step.pressed);
    const auto duration = keys ? press(keys->stroke, window, hasLanded) : place(step.pressed);
    static_cast<void>(m_corvane.waitForLog(rawValue(step.pressed) + u':', seen, 2s));
    const auto reached = desktop::settled([&] { return m_probe.visibleFrame(window); }, 60ms);
    // A window that stood there all along proves nothing.
    const bool landed = inFront && !hasLanded(before) && duration && reached && hasLanded(*reached);
    print(lineOf(stepColumns,
        {keys ? keys->text : u"corvane --place "_s + rawValue(step.pressed), text(step),
            title(step.application), text(asked), text(reached),
            duration ? QString::number(*duration, 'f', 1) : u"-"_s},
        landed ? u"ok"_s : u"✗"_s));
    if (!landed)
        print(u"    "_s + m_corvane.log().mid(seen).join(u'\n') + u'\n');
    return landed;
}

bool Demonstration::bringForward(xcb_window_t window, bool maximized)
{
    Pager pager(m_desk.connection());
    pager.activate(window);
    const bool inFront = waitUntil([&] { return m_probe.activeWindow() == window; });
    if (!maximized)
        return inFront;
    pager.setMaximized(window, Pager::Change::add);
    const bool isMaximized =
        waitUntil([&] { return m_probe.hasState(window, "_NET_WM_STATE_MAXIMIZED_VERT"); });
    static_cast<void>(m_probe.settledFrame(window));
    return inFront && isMaximized;
}

std::optional<double> Demonstration::press(
    const desktop::KeyStroke &stroke, xcb_window_t window, const Predicate &hasLanded)
{
    desktop::KeyPresser keys(m_desk.connection());
    keys.holdModifiers(stroke);
    const auto start = std::chrono::steady_clock::now();
    keys.key(stroke.key, true);
    keys.key(stroke.key, false);
    std::optional<double> duration;
    while (!duration && std::chrono::steady_clock::now() - start < 2s) {
        if (const auto frame = m_probe.visibleFrame(window); frame && hasLanded(*frame))
            duration =
                std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
                    .count();
        else
            std::this_thread::sleep_for(100us);
    }
    keys.releaseModifiers(stroke);
    return duration;
}

std::optional<double> Demonstration::place(Placement placement)
{
    const auto answer = m_corvane.place(rawValue(placement));
    return answer.exitStatus == 0 ? std::optional<double>(answer.duration.count()) : std::nullopt;
}

bool Demonstration::restore()
{
    const QString name = u"Demonstration"_s;
    for (const Application application : applications)
        m_captured[application] = m_probe.settledFrame(m_desk.window(application)).value_or(Rect());
    const auto captured = m_corvane.ask({u"--capture"_s, name});
    print(u'\n'
        + (captured.exitStatus == 0 ? QString::fromUtf8(captured.output)
                                    : u"Nothing was captured.\n"_s));
    m_desk.strew();
    const bool isScattered = std::ranges::none_of(applications, [this](Application application) {
        return m_probe.visibleFrame(m_desk.window(application)) == m_captured[application];
    });
    takePicture(u"6-scattered.png"_s);
    print(u"The windows are scattered. Applying the layout:\n\n"_s);
    printHead(paneColumns, {u"pane"_s, u"application"_s, u"frame asked"_s, u"frame reached"_s});
    const auto answer = m_corvane.ask({u"--apply-layout"_s, name, u"--json"_s});
    QList<Application> back;
    for (const QJsonValue report : QJsonDocument::fromJson(answer.output)["panes"_L1].toArray()) {
        if (const auto application = restored(report.toObject()))
            back << *application;
    }
    takePicture(u"7-restored.png"_s);
    return isScattered && answer.exitStatus == 0
        && std::ranges::all_of(
            applications, [&](Application application) { return back.count(application) == 1; });
}

std::optional<Application> Demonstration::restored(const QJsonObject &report)
{
    DecodeProblems problems;
    const Pane pane = Pane::fromJson(report["pane"_L1], problems).value_or(Pane{});
    const auto application = applicationTitled(report["windowTitle"_L1].toString());
    std::optional<Rect> asked;
    std::optional<Rect> reached;
    if (application) {
        const QJsonValue to = report["frame"_L1];
        asked = {to[0].toDouble(), to[1].toDouble(), to[2].toDouble(), to[3].toDouble()};
        reached = m_probe.settledFrame(m_desk.window(*application));
    }
    const bool isBack = reached && *asked == m_captured[*application]
        && m_expectation.isLanding(
            *reached, *asked, sizeLimits(m_desk.connection(), m_desk.window(*application)));
    const UnitRect &rect = pane.rect;
    const QString place = u"display %1: %2,%3 %4×%5"_s.arg(pane.display + 1)
                              .arg(rect.x)
                              .arg(rect.y)
                              .arg(rect.w)
                              .arg(rect.h);
    print(lineOf(paneColumns,
        {place, application ? title(*application) : u"?"_s, text(asked), text(reached)},
        isBack ? u"ok"_s : u"✗ "_s + report["status"_L1].toString()));
    return isBack ? application : std::nullopt;
}

std::optional<Application> Demonstration::applicationTitled(const QString &windowTitle)
{
    const auto found = std::ranges::find(applications, windowTitle, [this](Application each) {
        const xcb_window_t window = m_desk.window(each);
        const QByteArray modern = m_desk.connection().property(window, "_NET_WM_NAME");
        return QString::fromUtf8(
            modern.isEmpty() ? m_desk.connection().property(window, "WM_NAME") : modern);
    });
    return found == applications.end() ? std::nullopt : std::optional(*found);
}

void Demonstration::takePicture(const QString &name)
{
    m_isPictured &= writePicture(m_desk.connection(), m_pictureFolder + u'/' + name);
}

enum Status : int { allLanded = 0, failed = 1, misused = 2 };

int fail(Status status, const QString &sentence)
{
    std::fprintf(stderr, "corvane-demo: %s\n", qUtf8Printable(sentence));
    return status;
}

int demonstrate(const QCommandLineParser &options)
{
    const QString manager = options.value(u"window-manager"_s);
    const QString folder = options.value(u"pictures"_s);
    QDir().mkpath(folder);
    const auto desk = Desk::start(manager);
    if (!desk)
        return fail(failed, desk.error());
    desktop::CorvaneProcess corvane((*desk)->desktop(), QStringLiteral(CORVANE_PROGRAM));
    if (!corvane.start())
        return fail(failed, u"Corvane did not start:\n"_s + (*desk)->desktop().logs());
    const QList<Rect> &displays = (*desk)->displays();
    print(u"%1, %2 displays. Corvane is %3.\n\n"_s.arg(manager)
              .arg(displays.size())
              .arg(corvane.readyLine()));
    Demonstration demonstration(**desk, corvane, folder);
    demonstration.walk();
    const bool isRestored = demonstration.restore();
    if (!demonstration.isPictured())
        return fail(failed, u"a picture could not be written to %1"_s.arg(folder));
    const auto reduce = [&](const QString &option, const QStringList &names) {
        return !options.isSet(option)
            || writeReduced(folder, names, displays, options.value(option));
    };
    if (!reduce(u"picture"_s, {u"5-after.png"_s})
        || !reduce(u"layout-picture"_s, {u"6-scattered.png"_s, u"7-restored.png"_s}))
        return fail(failed, u"a reduced picture could not be written"_s);
    print(
        u"\n%1 of %2 windows landed, the layout %3; pictures in %4\n"_s.arg(demonstration.landed())
            .arg(demonstration.steps())
            .arg(isRestored ? u"is back"_s : u"is not back"_s, folder));
    return demonstration.landed() == demonstration.steps() && isRestored ? allLanded : failed;
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
    const QStringList managers = desktop::WindowManagerProcess::names();
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Shows Corvane on a virtual desktop and exits with 0 when every window landed."_s);
    const QCommandLineOption help = parser.addHelpOption();
    parser.addOptions({
        {u"window-manager"_s, managers.join(u", "_s), u"NAME"_s, u"openbox"_s},
        {u"pictures"_s, u"Where the pictures go."_s, u"FOLDER"_s, u"build/demo"_s},
        {u"picture"_s, u"Also the last picture in the size of a page."_s, u"FILE"_s},
        {u"layout-picture"_s, u"The same of the layout, scattered and back."_s, u"FILE"_s},
    });
    if (!parser.parse(QGuiApplication::arguments()))
        return fail(misused, parser.errorText());
    if (parser.isSet(help)) {
        print(parser.helpText());
        return allLanded;
    }
    if (!managers.contains(parser.value(u"window-manager"_s)))
        return fail(misused,
            u"There is no such window manager here; there are %1."_s.arg(managers.join(u", "_s)));
    return demonstrate(parser);
}
