#pragma once

#include "Expected.h"
#include "SettingsPane.h"

/// The addresses that open Corvane: corvane://settings and corvane://settings/PANE. Any web page may
/// have a link to one, so an address never does more than show a pane.
namespace corvane::Address {

/// Whether the text claims to be an address of ours.
[[nodiscard]] bool isOurs(const QString &text);
/// The pane that the address names. The error is one sentence that names the addresses there are.
[[nodiscard]] expected<SettingsPane, QString> pane(const QString &text);

} // namespace corvane::Address
