#pragma once

#include <QtCore/QHashFunctions>
#include <QtCore/QString>

#include <optional>

class QJsonObject;
class QJsonValue;

namespace corvane {

struct DecodeProblems;

/// What a saved layout recognises a display by. The size is that of the whole display, in points.
struct DisplayKey {
    QString name;
    int width = 0;
    int height = 0;

    /// For the user: the name and the size.
    [[nodiscard]] QString label() const;

    [[nodiscard]] QJsonObject toJson() const;
    /// All three fields are required.
    [[nodiscard]] static std::optional<DisplayKey> fromJson(
        const QJsonValue &json, DecodeProblems &problems);

    bool operator==(const DisplayKey &) const = default;
};

inline size_t qHash(const DisplayKey &key, size_t seed = 0) noexcept
{
    return qHashMulti(seed, key.name, key.width, key.height);
}

} // namespace corvane
