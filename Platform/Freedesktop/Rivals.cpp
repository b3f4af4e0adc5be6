#include "Rivals.h"

#include <algorithm>
#include <array>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

struct Row {
    QLatin1StringView program;
    QLatin1StringView name; ///< as users know it
};

constexpr std::array table{
    Row{"quicktile"_L1, "QuickTile"_L1},
    Row{"cortile"_L1, "Cortile"_L1},
    Row{"zentile"_L1, "Zentile"_L1},
    Row{"x-tile"_L1, "X-tile"_L1},
    Row{"pytyle3"_L1, "PyTyle 3"_L1},
    Row{"pytyle2"_L1, "PyTyle 2"_L1},
    Row{"pytyle"_L1, "PyTyle"_L1},
    Row{"snaptile"_L1, "SnapTile"_L1},
    Row{"opensnap"_L1, "OpenSnap"_L1},
    Row{"plasmazonesd"_L1, "PlasmaZones"_L1},
    Row{"devilspie2"_L1, "Devilspie2"_L1},
    Row{"devilspie"_L1, "Devil's Pie"_L1},
};

bool runs(const QStringList &programs, QLatin1StringView wanted)
{
    return std::ranges::any_of(programs, [wanted](const QString &program) {
        QStringView name = QStringView(program).mid(program.lastIndexOf(u'/') + 1);
        if (name.endsWith(u".py"))
            name.chop(3);
        return name == wanted;
    });
}

/// A display without the screen on it, which one program names and another does not.
QByteArray displayName(QByteArray display)
{
    const qsizetype screen = display.lastIndexOf('.');
    return screen > display.lastIndexOf(':') ? display.left(screen) : display;
}

/// Whether it moves the windows of another session that the same user has.
bool isElsewhere(const ProcessFiles &files, pid_t pid)
{
    return std::ranges::any_of(std::array{"DISPLAY", "WAYLAND_DISPLAY"}, [&](const char *name) {
        const QByteArray ours = displayName(qgetenv(name));
        const QByteArray theirs = displayName(files.variable(pid, name));
        return !ours.isEmpty() && !theirs.isEmpty() && ours != theirs;
    });
}

} // namespace

QList<RunningApplication> Rivals::running()
{
    std::array<pid_t, table.size()> found{};
    for (const pid_t pid : m_files.ownProcesses()) {
        const QStringList programs = m_files.programs(pid);
        const auto *const row = std::ranges::find_if(
            table, [&programs](const Row &each) { return runs(programs, each.program); });
        pid_t *const first = row == table.end() ? nullptr : &found.at(size_t(row - table.begin()));
        if (first && !*first && !isElsewhere(m_files, pid) && hold(pid, row->program))
            *first = pid;
    }
    std::erase_if(
        m_held, [&found](const auto &held) { return !std::ranges::count(found, held.first); });
    QList<RunningApplication> rivals;
    for (size_t at = 0; at < table.size(); ++at) {
        if (found.at(at))
            rivals.append({found.at(at), table.at(at).program, table.at(at).name, false});
    }
    return rivals;
}

/// Keeps a handle on the process if it still is what was found.
bool Rivals::hold(pid_t pid, QLatin1StringView program)
{
    auto &held = m_held[pid];
    if (held && !held->hasEnded())
        return true;
    held = std::make_unique<ProcessHandle>(pid);
    // What lived after it was read is what was read.
    const bool isSame = runs(m_files.programs(pid), program) && !held->hasEnded();
    if (!isSame)
        m_held.erase(pid);
    else
        // Later, since whoever hears it may ask again, and drop the handle that tells it.
        connect(
            held.get(), &ProcessHandle::ended, this, [this, pid] { Q_EMIT ended(pid); },
            Qt::QueuedConnection);
    return isSame;
}

void Rivals::terminate(pid_t pid)
{
    if (const auto held = m_held.find(pid); held != m_held.end())
        held->second->terminate();
}

} // namespace corvane::freedesktop
