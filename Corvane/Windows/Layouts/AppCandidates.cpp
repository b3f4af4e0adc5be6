#include "AppCandidates.h"

#include "OneLine.h"
#include "Platform.h"

#include <QtCore/QCollator>
#include <QtCore/QCoreApplication>
#include <QtCore/QHash>
#include <QtCore/QMap>
#include <QtCore/QSet>

#include <algorithm>
#include <vector>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// How well a candidate fits a word, the best first.
enum class Fit { nameStart, wordOfName, otherWord, insideName, none };

QString plain(const QString &text)
{
    QString letters;
    for (const QChar letter : text.normalized(QString::NormalizationForm_KD)) {
        if (!letter.isMark())
            letters += letter;
    }
    return letters.toCaseFolded();
}

bool hasWordFrom(const QString &text, const QString &word)
{
    for (qsizetype at = text.indexOf(word); at >= 0; at = text.indexOf(word, at + 1)) {
        if (at == 0 || !text[at - 1].isLetterOrNumber())
            return true;
    }
    return false;
}

Fit fit(const AppCandidate &candidate, const QString &word)
{
    if (candidate.plainName.startsWith(word))
        return Fit::nameStart;
    if (hasWordFrom(candidate.plainName, word))
        return Fit::wordOfName;
    if (std::ranges::any_of(
            candidate.plainDetails, [&](const QString &text) { return hasWordFrom(text, word); }))
        return Fit::otherWord;
    // Not in the middle of the other texts' words, where a letter or two are nearly everywhere.
    return candidate.plainName.contains(word) ? Fit::insideName : Fit::none;
}

/// Of the word that fits worst.
Fit fit(const AppCandidate &candidate, const QStringList &words)
{
    Fit worst = Fit::nameStart;
    for (const QString &word : words)
        worst = std::max(worst, fit(candidate, word));
    return worst;
}

AppCandidate candidateFrom(const InstalledApplication &application)
{
    AppCandidate candidate{.app = {application.id, application.name},
        .purpose = oneLine(application.purpose, 120),
        .isHidden = application.isHidden};
    for (const QString &text : application.keywords + QStringList{application.purpose})
        candidate.plainDetails << plain(text);
    return candidate;
}

void sortByName(QList<AppCandidate> &candidates)
{
    const QCollator collator;
    std::vector<std::pair<QCollatorSortKey, qsizetype>> order;
    for (qsizetype i = 0; i < candidates.size(); ++i)
        order.emplace_back(collator.sortKey(candidates[i].app.name.toCaseFolded()), i);
    std::ranges::sort(order, [](const auto &one, const auto &two) {
        const int compared = one.first.compare(two.first);
        return compared != 0 ? compared < 0 : one.second < two.second;
    });
    QList<AppCandidate> sorted;
    for (const auto &[key, at] : order)
        sorted << candidates[at];
    candidates = sorted;
}

void completeTexts(QList<AppCandidate> &candidates)
{
    QHash<QString, int> names;
    for (AppCandidate &candidate : candidates) {
        candidate.plainName = plain(candidate.app.name);
        candidate.plainDetails << plain(candidate.app.bundleID);
        ++names[candidate.plainName];
    }
    for (AppCandidate &candidate : candidates)
        candidate.sharesName = names[candidate.plainName] > 1;
}

/// The applications that run, but for this program and what no task bar lists.
QList<RunningApplication> runningOthers()
{
    QList<RunningApplication> others = Platform::current().applications().running();
    others.removeIf([](const RunningApplication &each) {
        return !each.isRegular || each.bundleIdentifier.isEmpty()
            || each.pid == pid_t(QCoreApplication::applicationPid());
    });
    return others;
}

QHash<QString, int> windowCountsOf(const QList<RunningApplication> &running)
{
    Platform &platform = Platform::current();
    const WindowOperation operation(platform.windows());
    QHash<QString, int> counts;
    QMap<pid_t, int> processes; // how many applications each is
    for (const RunningApplication &each : running) {
        counts.insert(each.bundleIdentifier, 0);
        ++processes[each.pid];
    }
    platform.windows().readAhead(processes.keys());
    for (const RunningApplication &each : running) {
        const auto windows = platform.windows().windows(each.pid);
        for (const WindowElement &window : windows.value_or(QList<WindowElement>())) {
            if (!platform.windows().isStandard(window).value_or(false))
                continue;
            const auto owner = processes[each.pid] == 1
                ? std::optional(each)
                : platform.applications().applicationOf(window);
            if (owner && owner->bundleIdentifier == each.bundleIdentifier)
                ++counts[each.bundleIdentifier];
        }
    }
    return counts;
}

} // namespace

QString AppCandidate::detail() const
{
    QStringList parts;
    if (windows)
        parts << (*windows == 0 ? runningText(0)
                                : QCoreApplication::translate(
                                    "corvane::AppPicker", "%n window(s)", nullptr, *windows));
    else if (!purpose.isEmpty())
        parts << purpose;
    if (sharesName)
        parts << oneLine(app.bundleID);
    return parts.join(u" · "_s);
}

std::optional<int> windowCount(const QString &bundleIdentifier)
{
    QList<RunningApplication> running = runningOthers();
    QSet<pid_t> processes;
    for (const RunningApplication &each : std::as_const(running)) {
        if (each.bundleIdentifier == bundleIdentifier)
            processes << each.pid;
    }
    if (processes.isEmpty())
        return std::nullopt;
    running.removeIf([&](const RunningApplication &each) { return !processes.contains(each.pid); });
    return windowCountsOf(running).value(bundleIdentifier);
}

QString runningText(int windows)
{
    return windows == 0 ? QCoreApplication::translate("corvane::AppPicker", "Running, no window")
                        : QCoreApplication::translate(
                            "corvane::AppPicker", "Running, %n window(s)", nullptr, windows);
}

QList<AppCandidate> appCandidates(const QList<InstalledApplication> &installed)
{
    const QList<RunningApplication> running = runningOthers();
    QHash<QString, int> counts = windowCountsOf(running);
    QList<AppCandidate> candidates;
    for (const InstalledApplication &application : installed) {
        AppCandidate candidate = candidateFrom(application);
        if (counts.contains(application.id))
            candidate.windows = counts.take(application.id);
        candidates << candidate;
    }
    for (const RunningApplication &each : running) {
        const QString &id = each.bundleIdentifier;
        if (counts.contains(id))
            candidates << AppCandidate{
                .app = {id, each.localizedName.isEmpty() ? id : each.localizedName},
                .windows = counts.take(id)};
    }
    completeTexts(candidates);
    sortByName(candidates);
    return candidates;
}

QList<AppCandidate> found(const QList<AppCandidate> &candidates, const QString &text)
{
    const QStringList words = plain(text).split(u' ', Qt::SkipEmptyParts);
    using Rank = std::tuple<bool, Fit, bool>;
    std::vector<std::pair<Rank, const AppCandidate *>> fitting;
    for (const AppCandidate &candidate : candidates) {
        const bool runs = candidate.windows.has_value();
        const Fit how = fit(candidate, words);
        if (how != Fit::none && (runs || !candidate.isHidden || !words.isEmpty()))
            fitting.emplace_back(Rank(!runs, how, candidate.windows == 0), &candidate);
    }
    std::ranges::stable_sort(fitting, {}, [](const auto &each) { return each.first; });
    QList<AppCandidate> ordered;
    for (const auto &[rank, candidate] : fitting)
        ordered << *candidate;
    return ordered;
}

} // namespace corvane
