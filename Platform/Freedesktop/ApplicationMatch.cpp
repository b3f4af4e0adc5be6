#include "ApplicationMatch.h"

#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>

#include <algorithm>
#include <iterator>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

using Found = std::optional<DesktopEntry>;

template <typename Condition>
QList<DesktopEntry> filtered(const QList<DesktopEntry> &entries, Condition condition)
{
    QList<DesktopEntry> matching;
    std::ranges::copy_if(entries, std::back_inserter(matching), condition);
    return matching;
}

/// The menus' entries go before those that they do not offer.
QList<DesktopEntry> preferred(const QList<DesktopEntry> &entries)
{
    const QList<DesktopEntry> offered = filtered(entries, &DesktopEntry::isOffered);
    return offered.isEmpty() ? entries : offered;
}

Found onlyOne(const QList<DesktopEntry> &entries)
{
    const QList<DesktopEntry> candidates = preferred(entries);
    return candidates.size() == 1 ? Found(candidates.first()) : std::nullopt;
}

Found withStartupClass(const QList<DesktopEntry> &entries, const ApplicationTraces &traces)
{
    // The instance first: programs that host others set it apart for each, and keep one class.
    for (const QString &part : {traces.instanceName, traces.className}) {
        if (part.isEmpty())
            continue;
        auto matching = filtered(
            entries, [&](const DesktopEntry &entry) { return entry.startupClass == part; });
        if (matching.size() > 1) {
            // The window is there, so its program is, too.
            const auto usable = filtered(matching, [](const DesktopEntry &entry) {
                return fault(entry) == DesktopEntry::Fault::none;
            });
            matching = preferred(usable.isEmpty() ? matching : usable);
        }
        const auto namesake = filtered(matching, [&](const DesktopEntry &entry) {
            return entry.id.compare(part, Qt::CaseInsensitive) == 0;
        });
        if (!matching.isEmpty())
            return namesake.isEmpty() ? matching.first() : namesake.first();
    }
    return std::nullopt;
}

Found published(DesktopEntries &entries, const QString &published)
{
    QString id = published.mid(published.lastIndexOf(u'/') + 1);
    if (id.endsWith(".desktop"_L1))
        id.chop(8);
    return entries.entry(id);
}

Found inSandbox(DesktopEntries &entries, const Sandbox &sandbox, const ApplicationTraces &traces)
{
    const auto family = filtered(entries.all(), [&](const DesktopEntry &entry) {
        return entry.id == sandbox.entryId || entry.id.startsWith(sandbox.family);
    });
    if (const Found announced = withStartupClass(family, traces))
        return announced;
    const Found exact = entries.entry(sandbox.entryId);
    return exact ? exact : onlyOne(family);
}

/// The toolkit's own class, which all Java programs have that set none.
bool namesNothing(const QString &part)
{
    return part.isEmpty() || part.startsWith("sun-awt-"_L1) || part.startsWith("sun.awt."_L1);
}

/// A Java program's class is its main class with its package: "org-example-editor-Editor".
QString withoutPackage(const QString &part)
{
    static const QRegularExpression packaged(u"^[a-z]{2,3}(-\\w+)+-(\\w+)$"_s);
    return packaged.match(part).captured(2);
}

QStringList namesOf(const ApplicationTraces &traces)
{
    QStringList names{traces.className, traces.instanceName, withoutPackage(traces.className),
        withoutPackage(traces.instanceName)};
    names.removeIf(namesNothing);
    names.removeDuplicates();
    return names;
}

Found likeName(DesktopEntries &entries, const QStringList &names)
{
    for (const QString &name : names) {
        for (const QString &id : {name, name.toLower()}) {
            if (const Found exact = entries.entry(id))
                return exact;
        }
    }
    for (const QString &name : names) {
        const auto endingSo = filtered(entries.all(), [&](const DesktopEntry &entry) {
            return entry.id.endsWith(u'.' + name, Qt::CaseInsensitive);
        });
        if (const Found only = onlyOne(endingSo))
            return only;
    }
    return std::nullopt;
}

Found runningProgram(DesktopEntries &entries, const QStringList &programs)
{
    for (const QString &program : programs) {
        const auto exact = entries.withProgram(QFileInfo(program).canonicalFilePath());
        if (!exact.isEmpty())
            return onlyOne(exact);
    }
    for (const QString &program : programs) {
        const QString name = QFileInfo(program).fileName();
        for (const QString &spelling : {name, name.toLower()}) {
            if (const Found only = onlyOne(entries.withProgram(spelling)))
                return only;
        }
    }
    QStringList names = programs;
    names.removeIf([](const QString &program) { return program.contains(u'/'); });
    return likeName(entries, names);
}

} // namespace

std::optional<DesktopEntry> findApplication(
    DesktopEntries &entries, const ApplicationTraces &traces, const ProcessFiles &processes)
{
    Found found = published(entries, traces.publishedId);
    if (!found) {
        if (const auto sandbox = processes.sandbox(traces.pid))
            found = inSandbox(entries, *sandbox, traces);
    }
    if (!found)
        found = withStartupClass(entries.all(), traces);
    if (!found)
        found = likeName(entries, namesOf(traces));
    return found ? found : runningProgram(entries, processes.programs(traces.pid));
}

QString plainName(const ApplicationTraces &traces, const ProcessFiles &processes)
{
    for (const QString &part : {traces.className, traces.instanceName}) {
        if (!namesNothing(part))
            return part;
    }
    const QStringList programs = processes.programs(traces.pid);
    return programs.isEmpty() ? traces.className : QFileInfo(programs.last()).fileName();
}

} // namespace corvane::freedesktop
