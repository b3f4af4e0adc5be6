#pragma once

#include "AXError.h"
#include "Decoding.h"

#include <QtCore/QByteArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonValue>
#include <QtCore/QString>

/// Files that hold one JSON document each, which people may edit.
namespace corvane {

/// The document's array or object. A word or number in it that JSON does not know, or that no number
/// type holds, is counted and stands as an empty object, so that it costs its own field alone.
[[nodiscard]] expected<QJsonValue, QString> parseJson(
    const QByteArray &text, DecodeProblems &problems);

/// What a file held, and what kept it from being read whole.
template <typename T>
struct Stored {
    T value{};
    QString damage; ///< one sentence; empty when nothing is wrong
};

/// Undefined when there is no file.
[[nodiscard]] expected<QJsonValue, QString> readJson(const QString &path, DecodeProblems &problems);
[[nodiscard]] QString wrongTopLevelSentence();
[[nodiscard]] QString problemsSentence(int count);

/// The default value when there is no file, or none that can be read.
template <typename T>
[[nodiscard]] Stored<T> readStored(const QString &path)
{
    DecodeProblems problems;
    const auto json = readJson(path, problems);
    if (!json)
        return {T{}, json.error()};
    if (json->isUndefined())
        return {};
    std::optional<T> value = decode<T>(*json, problems);
    if (!value)
        return {T{}, wrongTopLevelSentence()};
    return {*std::move(value), problems.count > 0 ? problemsSentence(problems.count) : QString()};
}

/// For people to read: indented, with sorted keys.
[[nodiscard]] expected<void, QString> writeJson(const QString &path, const QJsonDocument &document);

} // namespace corvane
