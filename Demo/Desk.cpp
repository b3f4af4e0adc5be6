#include "Desk.h"

#include "Match.h"
#include "WaylandDesk.h"
#include "X11Desk.h"

namespace corvane::demo {

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

struct Row {
    const char *title;
    Rect startFrame; ///< where its window stands before anybody tidies up
    std::variant<Terminal, QStringList> opening; ///< a terminal, or a command
};

const Row &rowOf(Application application)
{
    const QString script = QStringLiteral(CORVANE_DEMO_TERMINAL);
    static const std::array table{
        Row{"Terminal", {72, 96, 880, 560},
            Terminal{u"Terminal"_s, u"#16181D"_s, u"#ECEAE4"_s,
                {u"bash"_s, script, u"follow"_s, QStringLiteral(CORVANE_PROGRAM)}}},
        Row{"Source", {744, 188, 700, 600},
            Terminal{u"Source"_s, u"#FBFAF6"_s, u"#1B1D22"_s,
                {u"bash"_s, script, u"page"_s, QStringLiteral(CORVANE_DEMO_SOURCE)}}},
        Row{"Notes", {330, 420, 760, 520}, QStringList{QStringLiteral(CORVANE_DEMO_NOTES)}},
        Row{"GTK Demo", {1010, 400, 800, 600}, QStringList{u"gtk3-demo"_s}},
        Row{"Icon Browser", {1900, 130, 780, 740}, QStringList{u"gtk3-icon-browser"_s}},
    };
    return table[static_cast<std::size_t>(application)];
}

expected<std::unique_ptr<Desk>, QString> begin(const QString &desktop, const QString &windowManager)
{
    if (desktop == u"x11")
        return X11Desk::begin(windowManager);
    return WaylandDesk::begin(desktop);
}

} // namespace

QString title(Application application)
{
    return QString::fromLatin1(rowOf(application).title);
}

expected<std::unique_ptr<Desk>, QString> Desk::start(
    const QString &desktop, const QString &windowManager)
{
    auto desk = begin(desktop, windowManager);
    if (!desk)
        return desk;
    QString error = (*desk)->furnish();
    if (error.isEmpty())
        error = (*desk)->openApplications();
    if (!error.isEmpty())
        return unexpected<QString>(u"%1:\n%2"_s.arg(error, (*desk)->session().logs()));
    (*desk)->strew();
    return desk;
}

QList<Rect> Desk::areas() const
{
    QList<Rect> areas = displays();
    areas.first().y += panelHeight;
    areas.first().height -= panelHeight;
    return areas;
}

QStringList Desk::command(const Terminal &terminal) const
{
    return QStringList{u"xterm"_s, u"-T"_s, terminal.title, u"-fa"_s, u"DejaVu Sans Mono"_s,
               u"-fs"_s, u"11"_s, u"-b"_s, u"12"_s, u"-bg"_s, terminal.ground, u"-fg"_s,
               terminal.fore, u"-cr"_s, terminal.ground, u"+sb"_s, u"-e"_s}
    + terminal.command;
}

QString Desk::openApplications()
{
    for (const Application application : applications) {
        const QStringList command = match(
            rowOf(application).opening,
            [this](const Terminal &terminal) { return this->command(terminal); },
            [](const QStringList &other) { return other; });
        m_processes.push_back(session().launch(command.first(), command.mid(1)));
    }
    for (const Application application : applications) {
        const Window window = waitForWindow(m_processes[static_cast<size_t>(application)]->pid());
        if (!window)
            return u"%1 showed no window"_s.arg(title(application));
        m_windows.insert(application, window);
        m_limits.insert(application, measureLimits(window));
    }
    return {};
}

void Desk::strew()
{
    for (const Application application : applications)
        put(window(application), rowOf(application).startFrame);
}

bool Desk::writePicture(const QString &path)
{
    return settled([this] { return picture(); }, Milliseconds{400}).save(path);
}

} // namespace corvane::demo
