#include "Applications.h"

namespace corvane::demo {

using namespace Qt::StringLiterals;

namespace {

struct ApplicationRow {
    const char *title;
    const char *windowClass;
    Rect startFrame;
};

constexpr std::array applicationTable{
    ApplicationRow{"Terminal", "demo-terminal", {72, 96, 880, 560}},
    ApplicationRow{"Source", "demo-source", {744, 188, 700, 600}},
    ApplicationRow{"Notes", "corvane-demo-notes", {330, 420, 760, 520}},
    ApplicationRow{"GTK Demo", "gtk3-demo", {1010, 400, 800, 600}},
    ApplicationRow{"Icon Browser", "gtk3-icon-browser", {1900, 130, 780, 740}},
};

const ApplicationRow &rowOf(Application application)
{
    return applicationTable[static_cast<std::size_t>(application)];
}

QStringList terminal(Application application, const QString &ground, const QString &fore)
{
    return {u"xterm"_s, u"-name"_s, QString::fromLatin1(windowClass(application)), u"-T"_s,
        title(application), u"-fa"_s, u"DejaVu Sans Mono"_s, u"-fs"_s, u"11"_s, u"-b"_s, u"12"_s,
        u"-bg"_s, ground, u"-fg"_s, fore, u"-cr"_s, ground, u"+sb"_s, u"-e"_s, u"bash"_s,
        QString::fromUtf8(CORVANE_DEMO_TERMINAL)};
}

} // namespace

QString title(Application application)
{
    return QString::fromLatin1(rowOf(application).title);
}

QByteArray windowClass(Application application)
{
    return rowOf(application).windowClass;
}

Rect startFrame(Application application)
{
    return rowOf(application).startFrame;
}

QStringList commandLine(Application application, const QString &logPath)
{
    switch (application) {
    case Application::terminal:
        return terminal(application, u"#16181D"_s, u"#ECEAE4"_s)
            << u"follow"_s << QString::fromUtf8(CORVANE_PROGRAM) << logPath;
    case Application::source:
        return terminal(application, u"#FBFAF6"_s, u"#1B1D22"_s)
            << u"page"_s << QString::fromUtf8(CORVANE_DEMO_SOURCE);
    case Application::notes:
        return {QString::fromUtf8(CORVANE_DEMO_NOTES)};
    case Application::gallery:
        return {u"gtk3-demo"_s};
    case Application::icons:
        return {u"gtk3-icon-browser"_s};
    }
    Q_UNREACHABLE();
}

} // namespace corvane::demo
