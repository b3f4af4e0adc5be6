#pragma once

#include "JsonLines.h"

#include <QtCore/QDateTime>
#include <QtCore/QList>
#include <QtCore/QThreadPool>

#include <atomic>
#include <optional>

namespace corvane {

/// Writes down the events of the program's own life, for problem reports. Any thread may call it and
/// none waits: files are written in order on a thread that exists only while there is something to
/// do. Every failure is swallowed.
class FlightRecorder final
{
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

    /// Where events also go as they happen: to the journal when that is what standard error is, as
    /// lines with a priority; with `standardError`, to standard error whatever it is.
    enum class Mirror { journal, standardError };

    static constexpr int ledgerLimit = 300;

    /// In the data folder.
    static FlightRecorder &shared();
    explicit FlightRecorder(QString directory);
    /// What was recorded is on the disk afterwards.
    ~FlightRecorder();
    Q_DISABLE_COPY_MOVE(FlightRecorder)

    void setMirror(Mirror mirror) { m_mirror = mirror; }

    void record(const QString &kind, const QString &detail);
    /// Drops what is older from the file, and lines that cannot be read.
    void prune(int olderThanDays, const QDateTime &now = QDateTime::currentDateTimeUtc());
    /// Writes `values` to the snapshot file, with the time and the ledger.
    void snapshot(const QJsonObject &values);

    /// Waits until everything asked for so far is done.
    void flush();
    /// The newest events, the newest last. Waits as `flush` does.
    [[nodiscard]] QList<Event> ledger();

private:
    void write(const Event &event);
    void mirror(const Event &event) const;
    void writeSnapshot(QJsonObject values) const;

    QString m_directory;
    JsonLines m_lines;
    bool m_writesToJournal; ///< standard error does
    std::atomic<Mirror> m_mirror = Mirror::journal;
    QList<Event> m_ledger; ///< touched on the queue only
    QThreadPool m_queue; ///< one thread: first come, first served
};

} // namespace corvane
