#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QJsonValue>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QUuid>

#include <optional>
#include <type_traits>
#include <utility>

/// How every stored record is read: a damaged value costs itself and nothing around it, and is
/// counted, so that the file which held it can be kept aside.
namespace corvane {

/// How many things were skipped or replaced by their default while one file was read.
struct DecodeProblems {
    int count = 0;

    void add() { ++count; }
};

/// A value of type T, or none when `json` is anything else. A record joins with a static
/// `fromJson(json)` or, where it decodes leniently inside, `fromJson(json, problems)`; a type that
/// cannot have one, such as an enumeration, specialises this function. Absence is not counted here:
/// only the caller knows what it costs.
template <typename T>
[[nodiscard]] std::optional<T> decode(const QJsonValue &json, DecodeProblems &problems)
{
    if constexpr (requires { T::fromJson(json, problems); })
        return T::fromJson(json, problems);
    else
        return T::fromJson(json);
}

template <>
std::optional<bool> decode(const QJsonValue &json, DecodeProblems &problems);
/// A whole number, however it is written, that fits.
template <>
std::optional<int> decode(const QJsonValue &json, DecodeProblems &problems);
/// A finite number.
template <>
std::optional<double> decode(const QJsonValue &json, DecodeProblems &problems);
template <>
std::optional<QString> decode(const QJsonValue &json, DecodeProblems &problems);
/// An id of 36 characters, without braces.
template <>
std::optional<QUuid> decode(const QJsonValue &json, DecodeProblems &problems);
/// ISO 8601 with "Z" or an offset; fractions of a second down to the millisecond. The result is in
/// UTC.
template <>
std::optional<QDateTime> decode(const QJsonValue &json, DecodeProblems &problems);

[[nodiscard]] QString encode(const QUuid &id);
/// ISO 8601 in UTC, with "Z", and with milliseconds where there are any.
[[nodiscard]] QString encode(const QDateTime &date);

template <typename T>
[[nodiscard]] QJsonArray encode(const QList<T> &records)
{
    QJsonArray array;
    for (const T &record : records)
        array.append(record.toJson());
    return array;
}

[[nodiscard]] inline bool isAbsent(const QJsonValue &json)
{
    return json.isUndefined() || json.isNull();
}

/// An array that loses its undecodable elements, each of which is counted, and keeps the order of
/// the others. Only what is no array at all fails to decode.
template <typename T>
struct LossyArray {
    QList<T> elements;

    [[nodiscard]] static std::optional<LossyArray> fromJson(
        const QJsonValue &json, DecodeProblems &problems)
    {
        if (!json.isArray())
            return std::nullopt;
        const QJsonArray array = json.toArray();
        LossyArray result;
        result.elements.reserve(array.size());
        for (const QJsonValue element : array) {
            if (std::optional<T> decoded = decode<T>(element, problems))
                result.elements.append(*std::move(decoded));
            else
                problems.add();
        }
        return result;
    }
};

/// Reads an object field by field. An absent or null field takes its default silently, one that does
/// not decode takes it and is counted. `problems` is borrowed.
class LenientReader final
{
public:
    LenientReader(QJsonObject object, DecodeProblems &problems)
        : m_object(std::move(object)), m_problems(problems)
    {
    }

    template <typename T>
    [[nodiscard]] std::optional<T> readOptional(QLatin1StringView key)
    {
        const QJsonValue json = m_object.value(key);
        if (isAbsent(json))
            return std::nullopt;
        std::optional<T> value = decode<T>(json, m_problems);
        if (!value)
            m_problems.add();
        return value;
    }

    template <typename T>
    [[nodiscard]] T read(QLatin1StringView key, std::type_identity_t<T> fallback)
    {
        return readOptional<T>(key).value_or(std::move(fallback));
    }

private:
    QJsonObject m_object;
    DecodeProblems &m_problems;
};

/// Reads a record that is good as a whole or not at all: one field that does not decode, or one
/// required field that is missing, leaves no result. Nothing is counted here; whoever drops the
/// record counts it. `problems` is borrowed.
class StrictReader final
{
public:
    StrictReader(const QJsonValue &json, DecodeProblems &problems)
        : m_object(json.toObject()), m_problems(problems), m_failed(!json.isObject())
    {
    }

    /// Absent or null is none.
    template <typename T>
    [[nodiscard]] std::optional<T> readOptional(QLatin1StringView key)
    {
        const QJsonValue json = m_object.value(key);
        return isAbsent(json) ? std::nullopt : decoded<T>(json);
    }

    /// Absent or null takes the fallback.
    template <typename T>
    [[nodiscard]] T read(QLatin1StringView key, std::type_identity_t<T> fallback)
    {
        return readOptional<T>(key).value_or(std::move(fallback));
    }

    template <typename T>
    [[nodiscard]] T require(QLatin1StringView key)
    {
        return decoded<T>(m_object.value(key)).value_or(T{});
    }

    /// The record, if every field before was good.
    template <typename T>
    [[nodiscard]] std::optional<T> result(T record) const
    {
        return m_failed ? std::nullopt : std::optional<T>(std::move(record));
    }

private:
    template <typename T>
    std::optional<T> decoded(const QJsonValue &json)
    {
        std::optional<T> value = decode<T>(json, m_problems);
        m_failed = m_failed || !value;
        return value;
    }

    QJsonObject m_object;
    DecodeProblems &m_problems;
    bool m_failed;
};

} // namespace corvane
