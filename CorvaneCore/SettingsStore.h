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
    explicit SettingsStore(QString directory);

    [[nodiscard]] const QString &directory() const { return m_directory; }
    [[nodiscard]] QUrl url() const;

    /// These two leave a file that cannot be read whole to the third, which keeps a copy of it.
    [[nodiscard]] Settings load() const { return inspect().settings; }
    [[nodiscard]] Loaded inspect() const;
    [[nodiscard]] Loaded loadKeepingUnreadable() const;
    /// The same, but what cannot be read is as it is `inForce`.
    [[nodiscard]] Loaded loadEdit(const Settings &inForce) const;
    /// The error is one sentence.
    [[nodiscard]] expected<void, QString> save(const Settings &settings) const;

private:
    [[nodiscard]] QString path() const;

    QString m_directory;
};

} // namespace corvane
