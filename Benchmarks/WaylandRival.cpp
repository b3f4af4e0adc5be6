#include "WaylandRival.h"

#include "Crowd.h"
#include "Programs.h"

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

namespace {

// As corvane-sway-minimal reads it: the window's title, and the commands.
const QString swayOrder = u"%1|%2\n"_s;

QString swayMove(const Rect &frame)
{
    return u"floating enable, resize set %1 px %2 px, move absolute position %3 px %4 px"_s
        .arg(frame.width)
        .arg(frame.height)
        .arg(frame.x)
        .arg(frame.y);
}

QString kwinMove(const QString &window, const Rect &frame)
{
    return u"%1.frameGeometry = {x: %2, y: %3, width: %4, height: %5};\n"_s.arg(window)
        .arg(frame.x)
        .arg(frame.y)
        .arg(frame.width)
        .arg(frame.height);
}

QString swayMoves(const QList<Rect> &frames)
{
    QString text;
    for (qsizetype i = 0; i < frames.size(); ++i)
        text += swayOrder.arg(Crowd::title(i), swayMove(frames[i]));
    return text + swayOrder.arg(Crowd::title(frames.size() - 1), u"focus"_s);
}

QString kwinMoves(const QList<Rect> &frames)
{
    QString text = u"const found = {};\n"
                   "workspace.clientList().forEach(each => found[each.caption] = each);\n"_s;
    for (qsizetype i = 0; i < frames.size(); ++i)
        text += kwinMove(u"found[\"%1\"]"_s.arg(Crowd::title(i)), frames[i]);
    return text
        + u"workspace.activeClient = found[\"%1\"];\n"_s.arg(Crowd::title(frames.size() - 1));
}

} // namespace

MinimalOrders moveOne(
    const WaylandDesktop &desktop, const QString &title, const std::array<Rect, 2> &goals)
{
    if (desktop.isSway()) {
        return {.beforehand = {},
            .onKey = {swayOrder.arg(title, swayMove(goals[0])),
                swayOrder.arg(title, swayMove(goals[1]))}};
    }
    const QString found =
        u"const known = workspace.clientList().find(each => each.caption === \"%1\");\n"_s;
    return {.beforehand = found.arg(title),
        .onKey = {kwinMove(u"known"_s, goals[0]), kwinMove(u"known"_s, goals[1])}};
}

MinimalOrders moveAll(const WaylandDesktop &desktop, const std::array<QList<Rect>, 2> &goals)
{
    const auto moves = desktop.isSway() ? swayMoves : kwinMoves;
    return {.beforehand = {}, .onKey = {moves(goals[0]), moves(goals[1])}};
}

expected<std::unique_ptr<MinimalProgram>, QString> MinimalProgram::start(
    WaylandDesktop &desktop, const MinimalOrders &orders)
{
    const auto file = [&](const QString &name, const QString &text) {
        return write(u"%1/%2"_s.arg(desktop.folder(), name), text);
    };
    QStringList arguments;
    if (!desktop.isSway())
        arguments << file(u"beforehand"_s, orders.beforehand);
    // By their names in the one's configuration, and by Qt's numbers for the other.
    const auto names = desktop.isSway()
        ? std::array{u"Ctrl+Mod1+Mod4+e"_s, u"Ctrl+Mod1+Mod4+t"_s}
        : std::array{QString::number(int(Qt::CTRL | Qt::ALT | Qt::META) | Qt::Key_E),
            QString::number(int(Qt::CTRL | Qt::ALT | Qt::META) | Qt::Key_T)};
    for (size_t i = 0; i < names.size(); ++i)
        arguments << names[i] << file(u"orders-%1"_s.arg(i), orders.onKey[i]);
    auto process = desktop.launch(desktop.isSway() ? swayMinimalProgram : kwinMinimalProgram,
        arguments, ChildProcess::Channel::pipes);
    if (process->readLine() != "ready")
        return unexpected<QString>(
            u"the minimal program did not take its keys:\n"_s + desktop.logs());
    return std::unique_ptr<MinimalProgram>(new MinimalProgram(std::move(process)));
}

const WaylandKeys &MinimalProgram::keys()
{
    constexpr quint8 held = KeyStroke::control | KeyStroke::alt | KeyStroke::super;
    static constexpr WaylandKeys keys{KeyStroke{held, Key::e}, KeyStroke{held, Key::t}};
    return keys;
}

} // namespace corvane::bench
