#include "Hand.h"

#include <algorithm>

namespace corvane::desktop {

std::optional<SeenWindow> Hand::window(quint32 number)
{
    const QList<SeenWindow> all = windows();
    const auto found = std::ranges::find(all, number, &SeenWindow::number);
    return found == all.end() ? std::nullopt : std::optional(*found);
}

quint32 Hand::activeWindow()
{
    const QList<SeenWindow> all = windows();
    const auto found = std::ranges::find(all, true, &SeenWindow::isActive);
    return found == all.end() ? 0 : found->number;
}

bool Hand::putAt(quint32 number, const Rect &target)
{
    constexpr int often = 3;
    for (int time = 0; time < often; ++time) {
        place(number, target);
        static_cast<void>(waitUntil([&] { return frame(number) == target; }, Milliseconds{1000}));
        if (settledFrame(number) == target)
            return true;
    }
    return false;
}

quint32 Hand::waitForWindow(pid_t pid, const QList<quint32> &known, Milliseconds deadline)
{
    quint32 found = 0;
    static_cast<void>(waitUntil(
        [&] {
            for (const quint32 each : windowsOf(pid)) {
                if (!known.contains(each))
                    found = each;
            }
            return found != 0;
        },
        deadline));
    return found;
}

QList<quint32> Hand::windowsOf(pid_t pid)
{
    QList<quint32> numbers;
    for (const SeenWindow &each : windows()) {
        if (each.pid == pid)
            numbers << each.number;
    }
    return numbers;
}

} // namespace corvane::desktop
