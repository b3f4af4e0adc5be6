#pragma once

#include <QtCore/QString>

#include <optional>

class QJsonObject;
class QJsonValue;

namespace corvane {

struct DecodeProblems;

/// An application as a layout remembers it: found by its identifier, shown by its name.
struct AppRef {
    QString bundleID;
    QString name;

    [[nodiscard]] QJsonObject toJson() const;
    /// Both fields are required.
    [[nodiscard]] static std::optional<AppRef> fromJson(
        const QJsonValue &json, DecodeProblems &problems);

    bool operator==(const AppRef &) const = default;
};

} // namespace corvane
