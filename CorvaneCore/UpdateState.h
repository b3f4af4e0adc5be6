#pragma once

#include "DataFolder.h"
#include "Decoding.h"
#include "Expected.h"

namespace corvane {

/// What is remembered from one check for updates to the next. Losing it costs a check or two at most:
/// what must never be forgotten is a part of the program.
struct UpdateState {
    static constexpr qsizetype mostFailedBuilds = 32;

    std::optional<QDateTime> lastChecked;
    std::optional<QDateTime> issued; ///< the newest feed that was believed
    QList<qint64> failedBuilds; ///< that did not start on this computer; the latest at the end
    int seed = newSeed(); ///< tells when rollouts reach this computer; never leaves it
    bool wentBack = false; ///< from the latest that failed, of which the user has not been told

    /// What cannot be read of the folder's file has its default.
    [[nodiscard]] static UpdateState load(const QString &folder = dataFolder());
    /// The error is one sentence.
    [[nodiscard]] expected<void, QString> save(const QString &folder = dataFolder()) const;

    void noteFailed(qint64 build);

    [[nodiscard]] static std::optional<UpdateState> fromJson(
        const QJsonValue &json, DecodeProblems &problems);
    [[nodiscard]] QJsonObject toJson() const;

    bool operator==(const UpdateState &) const = default;

private:
    [[nodiscard]] static int newSeed();
};

} // namespace corvane
