#pragma once

#include "JsonLines.h"

#include <QtCore/QDateTime>
#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QThreadPool>

#include <optional>

namespace corvane {

/// Writes down the events of the program's own life, for problem reports. Any thread may call it and
/// none waits: files are written in order on a thread that exists only while there is something to
/// do. A failure stops nothing; it is told, and not recorded, since that would fail, too.
class FlightRecorder final : public QObject
{
    Q_OBJECT

public:
    struct Event {
        QDateTime date;
        QString kind; ///< lower-case words joined by hyphens
        QString detail;

        [[nodiscard]] QJsonObject toJson() const;
        /// Every field or nothing.
        [[nodiscard]] static std::optional<Event> fromJson(const QJsonValue &json);

        bool operator==(const Event &) const = default;
    };

    static constexpr int ledgerLimit = 300;

    /// In the data folder.
    static FlightRecorder &shared();
    explicit FlightRecorder(QString directory);
    /// What was recorded is on the disk afterwards.
    ~FlightRecorder() override;

    void record(const QString &kind, const QString &detail);
    /// Drops events that are older than so many days from the file, and lines that cannot be read;
    /// and the titles of windows, which earlier versions wrote there.
    void prune(int olderThanDays, const QDateTime &now = QDateTime::currentDateTimeUtc());
    /// Writes `values` to the snapshot file, with the time and the ledger.
    void snapshot(const QJsonObject &values);

    /// Hands the events on the disk to `visit`, the newest first, until it returns false.
    void readBackward(const std::function<bool(const Event &)> &visit) const;

    /// Waits until everything asked for so far is done.
    void flush();
    /// The newest events, the newest last. Waits as `flush` does.
    [[nodiscard]] QList<Event> ledger();
    /// Emits `written` once more for each file that cannot be written now.
    void tellProblems();

Q_SIGNALS:
    /// From another thread, whenever a file begins to fail, fails in another way or is written again.
    /// `problem` is one sentence, empty when there is none.
    void written(const QString &path, const QString &problem);

private:
    void write(const Event &event);
    /// Also to the journal when that is what standard error is, as a line with a priority.
    void mirror(const Event &event) const;
    void writeSnapshot();
    void tellWritten(const QString &path, const QString &problem);

    QString m_directory;
    JsonLines m_lines;
    bool m_writesToJournal; ///< standard error does
    // Touched on the queue only.
    QList<Event> m_ledger;
    QJsonObject m_snapshot; ///< that could not be written yet
    QHash<QString, QString> m_problems; ///< by path
    QThreadPool m_queue; ///< one thread: first come, first served
};

} // namespace corvane
