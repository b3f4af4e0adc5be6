#pragma once

#include "Expected.h"

#include <QtCore/QByteArrayView>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <functional>
#include <optional>

namespace corvane {

/// A file of one JSON object a line, which several processes append to, read and shorten at once
/// without losing a line. What a crash or an editor left without its newline stays a line of its own.
/// Lines that cannot be written yet wait in memory for the next ones.
class JsonLines final
{
public:
    /// Nobody writes a longer line; one that is found counts as damaged.
    static constexpr qsizetype lineLimit = 1024LL * 1024;
    /// Of what waits; beyond it the oldest lines are given up.
    static constexpr qsizetype waitingLimit = 4 * lineLimit;

    /// What becomes of a line: the line itself when it stays, another in its place, or nothing when
    /// it goes.
    using Revision = std::function<std::optional<QByteArrayView>(QByteArrayView line)>;

    explicit JsonLines(QString path);
    JsonLines(JsonLines &&) noexcept = default;
    JsonLines &operator=(JsonLines &&) = delete;
    /// Writes what waits, if it can be written now.
    ~JsonLines();

    [[nodiscard]] const QString &path() const { return m_path; }

    /// Has a line for the record wait for `flush`.
    expected<void, QString> add(const QJsonObject &record);
    /// Writes what waits; makes the file, and its folder, when they are missing. False while another
    /// process holds the file: that costs a moment once, and then none until it lets go.
    expected<bool, QString> flush();

    /// Hands every line to `visit`, the newest first, until it returns false. Reads no more than
    /// that.
    void readBackward(const std::function<bool(QByteArrayView)> &visit) const;

    /// Keeps the newest `limit` of the lines that the revision leaves. Holds one line in memory, whatever
    /// the file's length, and makes other processes wait no longer than the exchange takes.
    expected<void, QString> revise(const Revision &revision, qint64 limit) const;

private:
    QString m_path;
    QByteArray m_waiting; ///< whole lines
    bool m_isHeld = false; ///< by another process, at the last attempt
};

} // namespace corvane
