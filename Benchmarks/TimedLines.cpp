#include "TimedLines.h"

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

expected<TimedLines, QString> timedLines(
    VirtualDesktop &desktop, const QString &program, const QStringList &arguments)
{
    ChildProcess process(desktop.command(program, arguments, ChildProcess::Channel::pipes));
    TimedLines times;
    std::optional<QByteArray> line = process.readLine();
    for (; line && *line != "done"; line = process.readLine()) {
        const QByteArrayList parts = line->split(' ');
        times[parts.first()] << parts.last().toDouble();
    }
    if (!line)
        return unexpected<QString>(u"%1 ended early:\n%2"_s.arg(program, desktop.logs()));
    return times;
}

} // namespace corvane::bench
