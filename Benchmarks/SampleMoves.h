#pragma once

#include "ActivityEntry.h"
#include "PrivateSession.h"

#include <functional>

namespace corvane::bench {

[[nodiscard]] ActivityEntry sampleMove(int number, const QDateTime &date);

/// Writes so many moves to a file of the history, each with its number's date. False when it failed.
[[nodiscard]] bool writeSampleMoves(
    const QString &path, int count, const std::function<QDateTime(int number)> &date);

/// A move history on the disk of a desktop's user, for as long as the object lives. Its moves are
/// twenty seconds apart, the newest one of now.
class StoredMoves
{
public:
    StoredMoves(const desktop::PrivateSession &session, int count);
    ~StoredMoves();
    Q_DISABLE_COPY_MOVE(StoredMoves)

    [[nodiscard]] bool areWritten() const { return m_areWritten; }

private:
    QString m_path;
    bool m_areWritten = false;
};

} // namespace corvane::bench
