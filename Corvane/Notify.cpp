#include "Notify.h"

#include "Platform.h"

#include <QtCore/QCoreApplication>

#include <array>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {
constexpr std::array kindNames{
    "placement"_L1, "capture"_L1, "layout"_L1, "rivals"_L1, "link"_L1, "window"_L1, "general"_L1};
static_assert(kindNames.size() == static_cast<size_t>(NotificationKind::general) + 1);
} // namespace

void notify(NotificationKind kind, const QString &title, const QString &body, const QString &action)
{
    Platform::current().session().notify(notificationId(kind), title, body, action);
}

QString notificationId(NotificationKind kind)
{
    return kindNames[static_cast<size_t>(kind)];
}

void notifyProblem(const QString &noticeId, const QString &text, const QString &action)
{
    Platform::current().session().notify(problemId(noticeId),
        QCoreApplication::translate("corvane::AppDelegate", "Corvane, needs attention"), text,
        action);
}

QString problemId(const QString &noticeId)
{
    return u"problem-"_s + noticeId;
}

} // namespace corvane
