#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>

#include <optional>

/// What this program was built from.
namespace corvane::Build {

/// Written while the program is built. What is not known reads "unknown".
struct Stamp {
    QString sha;
    QString subject;
    QString committed; ///< ISO 8601
    QString branch;
    QString builtAt; ///< ISO 8601
};

[[nodiscard]] const Stamp &stamp();
[[nodiscard]] QString version();
[[nodiscard]] QString name();
[[nodiscard]] QString sha();
/// Whether the sources were not those of the commit.
[[nodiscard]] bool dirty();
[[nodiscard]] std::optional<QDateTime> committed();
[[nodiscard]] std::optional<QDateTime> builtAt();

} // namespace corvane::Build
