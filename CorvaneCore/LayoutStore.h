#pragma once

#include "StoreProblem.h"
#include "WindowLayout.h"

#include "Expected.h"

namespace corvane {

/// Keeps the user's layouts in one file, in their order. No two that it loads have the same id.
class LayoutStore final
{
public:
    struct Loaded {
        QList<WindowLayout> layouts;
        std::optional<StoreProblem> problem;
    };

    /// In the data folder.
    LayoutStore();
    explicit LayoutStore(const QString &directory);

    [[nodiscard]] QUrl url() const;

    /// Reads the file, and keeps a copy of it when it cannot be read whole, since the next save
    /// replaces it.
    [[nodiscard]] Loaded loadKeepingUnreadable() const;
    /// The error is one sentence.
    [[nodiscard]] expected<void, QString> save(const QList<WindowLayout> &layouts) const;

private:
    QString m_path;
};

} // namespace corvane
