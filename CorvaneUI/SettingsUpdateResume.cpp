#include "SettingsUpdateResume.h"

#include "DataFolder.h"
#include "FlightRecorder.h"
#include "Platform.h"
#include "PrivateFile.h"

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace corvane::SettingsUpdateResume {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr qint64 sizeLimit = 4096; ///< the first size that is too large
constexpr qint64 ageLimit = 600; ///< the first age that is too old, in seconds
constexpr Clock::Duration settlingTime = 300ms;

std::optional<Receipt> decoded(const QByteArray &content)
{
    const QJsonObject json = QJsonDocument::fromJson(content).object();
    const QDateTime date =
        QDateTime::fromString(json["writtenAt"_L1].toString(), Qt::ISODateWithMs);
    const QString pane = json["pane"_L1].toString();
    return date.isValid() && !pane.isEmpty() ? std::optional(Receipt{pane, date}) : std::nullopt;
}

} // namespace

QString pane;

QString receiptPath()
{
    return dataFolder() + u"/settings-update-resume.json"_s;
}

void remember()
{
    if (pane.isEmpty())
        return;
    const QDateTime now = Platform::current().clock().date().toUTC();
    const QJsonObject json{{u"pane"_s, pane}, {u"writtenAt"_s, now.toString(Qt::ISODateWithMs)}};
    // A new file is for this user alone, whatever an old one was.
    QFile::remove(receiptPath());
    if (const auto written = PrivateFile::replace(receiptPath(), QJsonDocument(json).toJson());
        !written)
        FlightRecorder::shared().record(u"update-resume-failed"_s,
            u"Could not remember Settings for update: "_s + written.error());
}

std::optional<Receipt> consume(const QString &path, const QDateTime &now)
{
    const auto content = PrivateFile::read(path);
    QFile::remove(path);
    if (!content || !*content || (*content)->size() >= sizeLimit)
        return std::nullopt;
    const auto receipt = decoded(**content);
    const qint64 age = receipt ? receipt->writtenAt.secsTo(now) : ageLimit;
    const bool isGood = age < ageLimit && receipt->writtenAt <= now;
    return isGood ? receipt : std::nullopt;
}

void restore(QObject *context, std::function<void(const QString &pane)> open)
{
    Clock &clock = Platform::current().clock();
    if (const auto receipt = consume(receiptPath(), clock.date()))
        clock.after(
            settlingTime, context, [open = std::move(open), name = receipt->pane] { open(name); });
}

} // namespace corvane::SettingsUpdateResume
