#pragma once

#include "Settings.h"
#include "StoreProblem.h"

#include "Expected.h"

namespace corvane {

/// Keeps the settings in one file, which the user may edit.
class SettingsStore final
{
public:
    struct Loaded {
        Settings settings;
        std::optional<StoreProblem> problem;
    };

    /// In the data folder.
    SettingsStore();
    explicit SettingsStore(const QString &directory);

    [[nodiscard]] QUrl url() const;

    /// Reads the file and changes nothing. What cannot be read of it has its default.
    [[nodiscard]] Loaded inspect() const;
    /// Reads the file, and keeps a copy of it when it cannot be read whole, since the next save
    /// replaces it.
    [[nodiscard]] Loaded loadKeepingUnreadable() const;
    /// Reads the file as `loadKeepingUnreadable` does while these settings are in force: what
    /// cannot be read stays as it is in them.
    [[nodiscard]] Loaded loadEdit(const Settings &inForce) const;
    /// The error is one sentence.
    [[nodiscard]] expected<void, QString> save(const Settings &settings) const;

private:
    QString m_path;
};

} // namespace corvane
