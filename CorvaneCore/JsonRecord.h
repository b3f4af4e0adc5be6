#pragma once

#include <QtCore/QByteArrayView>
#include <QtCore/QDateTime>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <optional>

namespace corvane {

/// The record of type T that a line of a log holds.
template <typename T>
[[nodiscard]] std::optional<T> recordOfLine(QByteArrayView line)
{
    const QByteArray text = QByteArray::fromRawData(line.data(), line.size());
    return T::fromJson(QJsonDocument::fromJson(text).object());
}

/// The record, unless it is more than so many days old.
template <typename T>
[[nodiscard]] std::optional<T> recentRecordOfLine(
    QByteArrayView line, const QDateTime &now, int days)
{
    constexpr qint64 secondsPerDay = 86400;
    auto record = recordOfLine<T>(line);
    return record && record->date >= now.addSecs(-days * secondsPerDay) ? record : std::nullopt;
}

} // namespace corvane
