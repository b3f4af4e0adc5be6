#pragma once

#include "Decoding.h"
#include "Expected.h"
#include "PrivateFile.h"

#include <QtCore/QByteArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonValue>
#include <QtCore/QString>

#include <functional>
#include <future>
#include <optional>
#include <utility>

/// Files that hold one JSON document each, which people may edit.
namespace corvane {

/// The document's array or object. A word or number in it that JSON does not know, or that no number
/// type holds, is counted and stands as an empty object, so that it costs its own field alone.
[[nodiscard]] expected<QJsonValue, QString> parseJson(
    const QByteArray &text, DecodeProblems &problems);

[[nodiscard]] QString wrongTopLevelSentence();
[[nodiscard]] QString problemsSentence(int count);

/// What a file held, and why it could not be read whole.
template <typename T>
struct Stored {
    T value{};
    QString damage; ///< one sentence; empty when nothing is wrong
};

template <typename T>
[[nodiscard]] Stored<T> decodeStored(
    const expected<QJsonValue, QString> &json, DecodeProblems &problems)
{
    if (!json)
        return {T{}, json.error()};
    if (json->isUndefined())
        return {};
    std::optional<T> value = decode<T>(*json, problems);
    if (!value)
        return {T{}, wrongTopLevelSentence()};
    return {*std::move(value), problems.count > 0 ? problemsSentence(problems.count) : QString()};
}

/// Undefined when there is no file.
[[nodiscard]] expected<QJsonValue, QString> readJson(const QString &path, DecodeProblems &problems);
/// The default value when there is no file, or none that can be read.
template <typename T>
[[nodiscard]] Stored<T> readStored(const QString &path)
{
    DecodeProblems problems;
    return decodeStored<T>(readJson(path, problems), problems);
}

/// A long array in two shorter ones, cut between two of its elements. Nothing for a short text, or one
/// that is no such array.
[[nodiscard]] std::optional<std::pair<QByteArray, QByteArray>> halves(const QByteArray &array);

/// As `readStored`, a long array by two threads.
template <typename T>
[[nodiscard]] Stored<LossyArray<T>> readStoredArray(const QString &path)
{
    using Array = Stored<LossyArray<T>>;
    const auto content = PrivateFile::read(path);
    if (!content || !*content)
        return {{}, content ? QString() : content.error()};
    const auto decodeText = [](const QByteArray &text, DecodeProblems &problems) {
        return decodeStored<LossyArray<T>>(parseJson(text, problems), problems);
    };
    if (const auto parts = halves(**content)) {
        DecodeProblems problems;
        DecodeProblems problemsBehind;
        auto behind = std::async(
            std::launch::async, decodeText, std::cref(parts->second), std::ref(problemsBehind));
        Array result = decodeText(parts->first, problems);
        const Array rest = behind.get();
        if (result.damage.isEmpty() && rest.damage.isEmpty()) {
            result.value.elements += rest.value.elements;
            return result;
        }
    }
    // Whatever is wrong is told of the text as a whole.
    DecodeProblems problems;
    return decodeText(**content, problems);
}

/// For people to read: indented, with sorted keys.
[[nodiscard]] expected<void, QString> writeJson(const QString &path, const QJsonDocument &document);

} // namespace corvane
