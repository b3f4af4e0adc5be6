#pragma once

#include "AXError.h"

#include <QtCore/QByteArrayView>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <functional>

namespace corvane {

/// A file of one JSON object a line, which several processes append to, read and shorten at once
/// without losing a line. What a crash or an editor left without its newline stays a line of its own.
class JsonLines final
{
public:
    /// Nobody writes a longer line; one that is found counts as damaged.
    static constexpr qsizetype lineLimit = 1024LL * 1024;

    explicit JsonLines(QString path);

    [[nodiscard]] const QString &path() const { return m_path; }

    /// Makes the file, and its folder, when they are missing.
    expected<void, QString> append(const QJsonObject &record) const;

    /// Shows every line, the newest first, until `visit` returns false. Reads no more than it shows.
    void readBackward(const std::function<bool(QByteArrayView)> &visit) const;

    /// Keeps the newest `limit` of the lines that are `wanted`, as they are. Holds one line in
    /// memory, whatever the file's length.
    expected<void, QString> keep(
        const std::function<bool(QByteArrayView)> &wanted, qint64 limit) const;

private:
    QString m_path;
};

} // namespace corvane
