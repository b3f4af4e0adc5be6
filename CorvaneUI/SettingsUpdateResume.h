#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QObject>
#include <QtCore/QString>

#include <functional>
#include <optional>

/// Has the settings window come back on its pane after the program has been replaced by a newer version.
/// A receipt on the disk carries the pane over; it is read once, within ten minutes.
namespace corvane::SettingsUpdateResume {

struct Receipt {
    QString pane;
    QDateTime writtenAt;

    bool operator==(const Receipt &) const = default;
};

/// The identifier of the pane that shows now; empty while the settings window is closed.
extern QString pane;

[[nodiscard]] QString receiptPath();

/// Writes the receipt, when the settings window is open. A failure is recorded, and stops nothing.
void remember();
/// Reads a receipt, and removes it whether it is good or not. Nothing when it is not: when it is too
/// large, too old, from the future, or no receipt at all.
[[nodiscard]] std::optional<Receipt> consume(const QString &path, const QDateTime &now);
/// Opens the pane that a receipt names, once the start has settled, unless `context` is gone by then.
void restore(QObject *context, std::function<void(const QString &pane)> open);

} // namespace corvane::SettingsUpdateResume
