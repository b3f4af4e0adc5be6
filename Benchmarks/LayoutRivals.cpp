#include "LayoutRivals.h"

#include "CorvaneProcess.h"
#include "Programs.h"

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

namespace {

constexpr quint8 held = KeyStroke::control | KeyStroke::alt | KeyStroke::super;

constexpr Rival::Keys strokes(Key first, Key second)
{
    return {KeyStroke{held, first}, KeyStroke{held, second}};
}

QStringList numbers(const Rect &rect)
{
    return {QString::number(rect.x), QString::number(rect.y), QString::number(rect.width),
        QString::number(rect.height)};
}

} // namespace

Rival corvaneWithLayouts(VirtualDesktop &desktop, const CrowdedDesk &desk)
{
    desk.crowd().store(desktop);
    endTour(desktop);
    return {Crowd::keys(), desktop.launch(corvaneProgram)};
}

Rival pipelinedProgram(VirtualDesktop &desktop, const CrowdedDesk &desk)
{
    const Rival::Keys keys = strokes(Key::e, Key::t);
    const auto goals = desk.goals();
    QStringList arguments{QString::number(GrabbedKey(keys.front()).modifiers)};
    for (size_t which = 0; which < keys.size(); ++which) {
        QString lines;
        for (qsizetype i = 0; i < goals[which].size(); ++i)
            lines += numbers(goals[which][i].frame).join(u' ') + u' ' + Crowd::title(i) + u'\n';
        arguments << QString::number(GrabbedKey(keys[which]).keycode)
                  << write(u"%1/crowd-%2"_s.arg(desktop.folder()).arg(which), lines);
    }
    return {keys, desktop.launch(pipelinedProgramPath, arguments)};
}

Rival wmctrlScript(VirtualDesktop &desktop, const CrowdedDesk &desk)
{
    const auto goals = desk.goals();
    std::array<QByteArray, 2> commands;
    for (size_t which = 0; which < commands.size(); ++which) {
        QString lines;
        for (qsizetype i = 0; i < goals[which].size(); ++i) {
            const auto &[frame, client] = goals[which][i];
            const Rect asked{frame.x, frame.y, client.width, client.height};
            lines += u"wmctrl -i -r %1 -e 1,%2\n"_s.arg(desk.windows()[i])
                         .arg(numbers(asked).join(u','));
        }
        for (const xcb_window_t window : desk.windows())
            lines += u"wmctrl -i -a %1\n"_s.arg(window);
        const QString path = u"%1/crowd-%2.sh"_s.arg(desktop.folder()).arg(which);
        commands[which] = ". " + write(path, lines).toLocal8Bit();
    }
    return Rival::sxhkd(desktop, strokes(Key::g, Key::digit1), commands);
}

} // namespace corvane::bench
