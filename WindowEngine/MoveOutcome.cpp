#include "MoveOutcome.h"

#include "Match.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <array>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array caseNames{
    "moved",
    "refused",
    "noWindow",
    "notTrusted",
    "nothingToSnapBack",
    "noOriginal",
    "singleDisplay",
};
static_assert(caseNames.size() == std::variant_size_v<decltype(MoveOutcome::value)>);

struct ReasonRow {
    QStringView reason; ///< or a part of it
    const char *sentence;
};

// The first that applies; %1 is the application.
constexpr std::array reasonTable{
    ReasonRow{u"full screen", QT_TRANSLATE_NOOP("MoveOutcome", "%1 is in full screen.")},
    ReasonRow{
        u"tiled by", QT_TRANSLATE_NOOP("MoveOutcome", "The window manager tiles this window.")},
    ReasonRow{u"kept it",
        QT_TRANSLATE_NOOP("MoveOutcome", "The window manager kept this window where it is.")},
    ReasonRow{u"manager did not answer",
        QT_TRANSLATE_NOOP("MoveOutcome", "The window manager did not answer.")},
    ReasonRow{u"answer", QT_TRANSLATE_NOOP("MoveOutcome", "%1 did not answer. It may be busy.")},
    ReasonRow{u"", QT_TRANSLATE_NOOP("MoveOutcome", "%1 would not let its window move.")},
};

QString translated(const char *sentence)
{
    return QCoreApplication::translate("MoveOutcome", sentence);
}

QString reasonSentence(const QString &reason, const std::optional<QString> &name)
{
    const auto *const row = std::ranges::find_if(
        reasonTable, [&reason](const ReasonRow &each) { return reason.contains(each.reason); });
    const QString sentence = translated(row->sentence);
    const QString anApp = QCoreApplication::translate("ActivityEntry", "An app");
    return sentence.contains(u"%1") ? sentence.arg(name.value_or(anApp)) : sentence;
}

} // namespace

QString outcomeName(const MoveOutcome &outcome)
{
    return QLatin1StringView(caseNames[outcome.value.index()]);
}

QString refusalText(const MoveOutcome &outcome, const std::optional<QString> &frontmostName)
{
    return match(
        outcome.value, [](const MoveOutcome::Moved &) { return QString(); },
        [](const MoveOutcome::Refused &refused) { return refused.reason; },
        [&frontmostName](MoveOutcome::NoWindow) {
            return u"no focused window (%1)"_s.arg(frontmostName.value_or(u"?"_s));
        },
        [](MoveOutcome::NotTrusted) { return u"accessibility not granted"_s; },
        [](MoveOutcome::NothingToSnapBack) { return u"nothing to snap back"_s; },
        [](MoveOutcome::NoOriginal) {
            return u"original orientation: this window was not seen opening"_s;
        },
        [](MoveOutcome::SingleDisplay) { return u"only one display"_s; });
}

QString refusalSentence(const MoveOutcome &outcome, const std::optional<QString> &frontmostName)
{
    return match(
        outcome.value, [](const MoveOutcome::Moved &) { return QString(); },
        [&frontmostName](const MoveOutcome::Refused &refused) {
            return reasonSentence(refused.reason, frontmostName);
        },
        [&frontmostName](MoveOutcome::NoWindow) {
            return frontmostName ? translated(QT_TRANSLATE_NOOP("MoveOutcome",
                                                  "%1 has no window in front that could be moved."))
                                       .arg(*frontmostName)
                                 : translated(QT_TRANSLATE_NOOP("MoveOutcome",
                                     "There is no window in front that could be moved."));
        },
        [](MoveOutcome::NotTrusted) {
            return translated(QT_TRANSLATE_NOOP("MoveOutcome", "Windows cannot be moved now."));
        },
        [](MoveOutcome::NothingToSnapBack) {
            return translated(QT_TRANSLATE_NOOP(
                "MoveOutcome", "Corvane has made no move of this window that it could take back."));
        },
        [](MoveOutcome::NoOriginal) {
            return translated(QT_TRANSLATE_NOOP("MoveOutcome",
                "Corvane did not see this window open, so it does not know where it was then."));
        },
        [](MoveOutcome::SingleDisplay) {
            return translated(
                QT_TRANSLATE_NOOP("MoveOutcome", "There is only one display to be on."));
        });
}

QString activityText(const QString &refusedReason)
{
    if (refusedReason.contains(u"full screen"))
        return QCoreApplication::translate("ActivityEntry", "is in full screen");
    if (refusedReason.contains(u"answer"))
        return QCoreApplication::translate("ActivityEntry", "did not answer (it may be busy)");
    return QCoreApplication::translate("ActivityEntry", "would not let its window move");
}

} // namespace corvane
