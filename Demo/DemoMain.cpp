#include "CorvaneProcess.h"
#include "Pictures.h"
#include "Steps.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <cstdio>

using namespace corvane;
using namespace corvane::demo;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using desktop::waitUntil;

namespace {

void print(const QString &text)
{
    std::fputs(qUtf8Printable(text), stdout);
    std::fflush(stdout);
}

QString lineOf(const QList<int> &columns, const QStringList &cells)
{
    QString line;
    for (qsizetype i = 0; i < cells.size(); ++i)
        line += u"%1  "_s.arg(cells[i], -columns.value(i));
    return line + u'\n';
}

using Clock = std::chrono::steady_clock;

double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

const QList<int> stepColumns{33, 26, 12, 18, 18, 6};
const QList<int> layoutColumns{12, 18, 18};

QString text(const std::optional<Rect> &rect)
{
    return rect ? u"%1,%2 %3×%4"_s.arg(rect->x).arg(rect->y).arg(rect->width).arg(rect->height)
                : u"none"_s;
}

QString text(const Step &step, const QString &filling)
{
    return rawValue(step.pressed)
        + (step.becomes == step.pressed ? QString() : u": "_s + rawValue(step.becomes))
        + (step.filledDisplay ? u", was "_s + filling : QString());
}

/// Shows what the program does on a desk, prints what came of it and takes pictures.
class Demonstration
{
public:
    Demonstration(Desk &desk, desktop::CorvaneProcess &corvane, QString pictureFolder)
        : m_desk(desk)
        , m_corvane(corvane)
        , m_pictureFolder(std::move(pictureFolder))
        , m_expectation(desk.areas())
    {
        for (const Application application : applications)
            m_expectation.setOriginal(application, frameOf(application));
    }

    /// Performs every step as a person does: brings the application forward, presses the keys, looks.
    /// Whether every window landed.
    [[nodiscard]] bool walk()
    {
        int steps = 0;
        int landed = 0;
        takePicture(u"1-before.png"_s);
        print(lineOf(
            stepColumns, u"keys,placement,application,frame asked,frame reached,ms"_s.split(u',')));
        for (const Chapter &chapter : scenario()) {
            for (const Step &step : chapter.steps) {
                landed += perform(step);
                ++steps;
            }
            takePicture(chapter.picture);
        }
        print(
            u"ms: from the key press until the window stands there; for a command, its whole run.\n"
            "%1 of %2 windows landed.\n"_s.arg(landed)
                .arg(steps));
        return landed == steps;
    }
    /// Keeps the desk as a layout as a user does, puts every window elsewhere and has the layout put
    /// them back. Whether all came back.
    [[nodiscard]] bool restore()
    {
        const QString name = u"Demonstration"_s;
        QHash<Application, Rect> kept;
        for (const Application application : applications)
            kept[application] = frameOf(application);
        const auto captured = m_corvane.ask({u"--capture"_s, name});
        print(u'\n' + QString::fromUtf8(captured.output + captured.errors));
        m_desk.strew();
        bool isRestored = std::ranges::none_of(
            applications, [&](Application each) { return frameOf(each) == kept[each]; });
        takePicture(u"6-scattered.png"_s);
        print(u"The windows are scattered. Applying the layout:\n\n"_s);
        isRestored &= m_corvane.ask({u"--apply-layout"_s, name}).exitStatus == 0;
        print(lineOf(layoutColumns, u"application,frame asked,frame reached"_s.split(u',')));
        for (const Application application : applications) {
            const Rect reached = frameOf(application);
            const bool isBack =
                m_expectation.isLanding(reached, kept[application], m_desk.sizeLimits(application));
            print(lineOf(layoutColumns,
                {title(application), text(kept[application]), text(reached),
                    isBack ? u"ok"_s : u"✗"_s}));
            isRestored &= isBack;
        }
        takePicture(u"7-restored.png"_s);
        return isRestored;
    }

    /// Whether every picture could be written.
    [[nodiscard]] bool isPictured() const { return m_isPictured; }

private:
    using Predicate = std::function<bool(const Rect &)>;

    [[nodiscard]] Rect frameOf(Application application)
    {
        return m_desk.settledFrame(m_desk.window(application));
    }
    [[nodiscard]] bool perform(const Step &step)
    {
        const Desk::Window window = m_desk.window(step.application);
        const bool inFront =
            m_desk.bringForward(window) && (!step.filledDisplay || m_desk.fillDisplay(window));
        const Rect before = m_desk.frame(window).value_or(Rect());
        const Rect asked = m_expectation.ask(step, before);
        const auto hasLanded = [&, limits = m_desk.sizeLimits(step.application)](
                                   const Rect &frame) {
            return m_expectation.isLanding(frame, asked, limits);
        };
        const qsizetype seen = m_corvane.log().size();
        const auto keys = shortcut(step.pressed);
        const auto duration = keys ? press(keys->stroke, window, hasLanded) : place(step.pressed);
        static_cast<void>(m_corvane.waitForLog(rawValue(step.pressed) + u':', seen, 2s));
        const auto reached = desktop::settled([&] { return m_desk.frame(window); }, 60ms);
        // A window that stood there all along proves nothing.
        const bool landed =
            inFront && !hasLanded(before) && duration && reached && hasLanded(*reached);
        print(lineOf(stepColumns,
            {keys ? keys->text : u"corvane --place "_s + rawValue(step.pressed),
                text(step, m_desk.filling()), title(step.application), text(asked), text(reached),
                duration ? QString::number(*duration, 'f', 1) : u"-"_s,
                landed ? u"ok"_s : u"✗"_s}));
        if (!landed)
            print(u"    "_s + m_corvane.log().mid(seen).join(u'\n') + u'\n');
        return landed;
    }
    /// Milliseconds until the window stood there.
    [[nodiscard]] std::optional<double> press(
        const desktop::KeyStroke &stroke, Desk::Window window, const Predicate &hasLanded)
    {
        desktop::Keys &keys = m_desk.keys();
        keys.holdModifiers(stroke);
        const Clock::time_point start = Clock::now();
        keys.key(stroke.key, true);
        keys.key(stroke.key, false);
        bool isThere = false;
        while (!isThere && Clock::now() - start < 2s) {
            const auto frame = m_desk.frame(window);
            isThere = frame && hasLanded(*frame);
            if (!isThere)
                std::this_thread::sleep_for(100us);
        }
        const double duration = millisecondsSince(start);
        keys.releaseModifiers(stroke);
        return isThere ? std::optional(duration) : std::nullopt;
    }
    [[nodiscard]] std::optional<double> place(Placement placement)
    {
        const Clock::time_point start = Clock::now();
        const bool isDone = m_corvane.place(rawValue(placement)).exitStatus == 0;
        return isDone ? std::optional(millisecondsSince(start)) : std::nullopt;
    }
    void takePicture(const QString &name)
    {
        m_isPictured &= m_desk.writePicture(m_pictureFolder + u'/' + name);
    }

    Desk &m_desk;
    desktop::CorvaneProcess &m_corvane;
    QString m_pictureFolder;
    Expectation m_expectation;
    bool m_isPictured = true;
};

enum Status : int { allLanded = 0, failed = 1, misused = 2 };

int fail(Status status, const QString &sentence)
{
    std::fprintf(stderr, "corvane-demo: %s\n", qUtf8Printable(sentence));
    return status;
}

int demonstrate(const QCommandLineParser &options)
{
    const QString folder = options.value(u"pictures"_s);
    QDir().mkpath(folder);
    const auto desk = Desk::start(options.value(u"desktop"_s), options.value(u"window-manager"_s));
    if (!desk)
        return fail(failed, desk.error());
    desktop::CorvaneProcess corvane((*desk)->session(), QStringLiteral(CORVANE_PROGRAM));
    if (!corvane.start())
        return fail(failed, u"Corvane did not start:\n"_s + (*desk)->session().logs());
    const QList<Rect> displays = (*desk)->displays();
    print(u"%1, %2 displays. Corvane is %3.\n\n"_s.arg((*desk)->name())
              .arg(displays.size())
              .arg(corvane.readyLine()));
    Demonstration demonstration(**desk, corvane, folder);
    const bool isLanded = demonstration.walk();
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
    print(u"\nThe layout %1; pictures in %2\n"_s.arg(
        isRestored ? u"is back"_s : u"is not back"_s, folder));
    return isLanded && isRestored ? allLanded : failed;
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
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Shows Corvane on a virtual desktop and exits with 0 when every window landed."_s);
    const QCommandLineOption help = parser.addHelpOption();
    parser.addOptions({
        {u"desktop"_s, u"x11, sway or kwin."_s, u"NAME"_s, u"x11"_s},
        {u"window-manager"_s, u"Of x11: one that the live tests know."_s, u"NAME"_s, u"openbox"_s},
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
    return demonstrate(parser);
}
