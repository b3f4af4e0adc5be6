#pragma once

#include <QtCore/QUrl>

namespace corvane {

/// Where reports are sent: the address that this program was built with, unless the variable
/// CORVANE_REPORT_TEST_ADDRESS names a server on this very computer. Empty where neither is.
[[nodiscard]] QUrl reportAddress();

/// Where the newest versions are listed: on the website, unless the variable CORVANE_UPDATE_TEST_FEED
/// names a server on this very computer.
[[nodiscard]] QUrl updateFeedAddress();

/// Whether what is sent there can be read by nobody on the way: by https, or to this very computer. That
/// must stand there as an address of numbers, which nobody else can answer for.
[[nodiscard]] bool isPrivateAddress(const QUrl &address);

} // namespace corvane
