#include "Rival.h"

#include "CorvaneProcess.h"
#include "Programs.h"

#include <QtCore/QFile>

#include <algorithm>

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

namespace {

constexpr quint8 modifiers = KeyStroke::control | KeyStroke::alt | KeyStroke::super;

constexpr Rival::Keys strokes(Key first, Key second)
{
    return {KeyStroke{modifiers, first}, KeyStroke{modifiers, second}};
}

QStringList originAndSize(const Goal &goal)
{
    return {QString::number(goal.frame.x), QString::number(goal.frame.y),
        QString::number(goal.client.width), QString::number(goal.client.height)};
}

/// What sxhkd calls the key; for the keys that our rivals use.
QByteArray keySymbol(Key key)
{
    return key == Key::e ? "e" : key == Key::t ? "t" : key == Key::g ? "g" : "1";
}

QByteArray wmctrlCommand(const Goal &goal)
{
    return "wmctrl -r :ACTIVE: -e 1," + originAndSize(goal).join(u',').toLatin1();
}

} // namespace

Rival::Rival(const Keys &keys, std::unique_ptr<ChildProcess> process)
    : m_keys(keys), m_process(std::move(process))
{
}

Rival Rival::corvane(VirtualDesktop &desktop)
{
    endTour(desktop); // which would have the focus
    return {strokes(Key::left, Key::right), desktop.launch(corvaneProgram)};
}

Rival Rival::minimal(VirtualDesktop &desktop, xcb_window_t window, const Goals &goals)
{
    const Keys keys = strokes(Key::d, Key::f);
    QStringList arguments{
        QString::number(window), QString::number(GrabbedKey(keys.front()).modifiers)};
    for (size_t i = 0; i < keys.size(); ++i)
        arguments << QString::number(GrabbedKey(keys[i]).keycode) << originAndSize(goals[i]);
    return {keys, desktop.launch(minimalProgram, arguments)};
}

Rival Rival::sxhkdWithWmctrl(VirtualDesktop &desktop, const Goals &goals)
{
    return sxhkd(
        desktop, strokes(Key::e, Key::t), {wmctrlCommand(goals[0]), wmctrlCommand(goals[1])});
}

Rival Rival::sxhkd(
    VirtualDesktop &desktop, const Keys &keys, const std::array<QByteArray, 2> &commands)
{
    const QString path = desktop.configFolder() + u"/sxhkdrc"_s;
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        for (size_t i = 0; i < keys.size(); ++i)
            file.write(
                "ctrl + alt + super + " + keySymbol(keys[i].key) + "\n    " + commands[i] + '\n');
    }
    file.close();
    // The quickest of the usual shells, as a careful user would set it.
    desktop.setVariable(u"SXHKD_SHELL"_s, u"/bin/sh"_s);
    return {keys, desktop.launch(u"sxhkd"_s, {u"-c"_s, path})};
}

bool Rival::isListening(XConnection &connection)
{
    return waitUntil([&] {
        return std::ranges::all_of(
            m_keys, [&](const KeyStroke &key) { return isGrabbed(connection, key); });
    });
}

} // namespace corvane::bench
