#include "SampleMoves.h"

#include "ActivityLog.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>

namespace corvane::bench {

using namespace Qt::StringLiterals;

namespace {
constexpr qint64 secondsApart = 20;
} // namespace

ActivityEntry sampleMove(int number, const QDateTime &date)
{
    return ActivityEntry::moved({date, Placement::leftHalf, u"Text Editor"_s,
        u"Report for the quarter, chapter %1"_s.arg(number), {120, 80, 900, 700},
        {0, 25, 960, 1055}, u"Built-in"_s});
}

bool writeSampleMoves(
    const QString &path, int count, const std::function<QDateTime(int number)> &date)
{
    QByteArray text;
    for (int number = 0; number < count; ++number)
        text +=
            QJsonDocument(sampleMove(number, date(number)).toJson()).toJson(QJsonDocument::Compact)
            + '\n';
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    return file.open(QFile::WriteOnly) && file.write(text) == text.size();
}

StoredMoves::StoredMoves(const desktop::PrivateSession &session, int count)
    : m_path(ActivityLog(session.dataFolder() + u"/Corvane"_s).url().toLocalFile())
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    m_areWritten = writeSampleMoves(m_path, count,
        [&](int number) { return now.addSecs((number - count + 1) * secondsApart); });
}

StoredMoves::~StoredMoves()
{
    QFile::remove(m_path);
}

} // namespace corvane::bench
