#pragma once

#include "AXError.h"
#include "SettingsPane.h"

/// The addresses that open Corvane: corvane://settings and corvane://settings/PANE. Web pages may hold
/// them, so an address never does more than show a pane.
namespace corvane::Address {

/// Whether it claims to be one of ours.
[[nodiscard]] bool isOurs(const QString &text);
/// The error is one sentence that names the addresses.
[[nodiscard]] expected<SettingsPane, QString> pane(const QString &text);

} // namespace corvane::Address
