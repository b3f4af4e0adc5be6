#pragma once

#include <QtCore/QByteArrayView>
#include <QtCore/QDateTime>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <functional>
#include <optional>

namespace corvane {

/// The record of type T that a line of a log holds.
template <typename T>
[[nodiscard]] std::optional<T> recordOfLine(QByteArrayView line)
{
    const QByteArray text = QByteArray::fromRawData(line.data(), line.size());
    return T::fromJson(QJsonDocument::fromJson(text).object());
}

/// Whether a line holds a record of type T that is at most so many days old.
template <typename T>
[[nodiscard]] std::function<bool(QByteArrayView)> keepsRecordsSince(const QDateTime &now, int days)
{
    constexpr qint64 secondsPerDay = 86400;
    const QDateTime oldest = now.addSecs(-days * secondsPerDay);
    return [oldest](QByteArrayView line) {
        const auto record = recordOfLine<T>(line);
        return record && record->date >= oldest;
    };
}

} // namespace corvane
