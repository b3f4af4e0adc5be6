#pragma once

#include "InstallFolder.h"

namespace corvane {

/// Whether a staged version, all of which is on the disk, is what its manifest lists and runs here.
[[nodiscard]] InstallResult<void> tryStaged(
    const InstallFolder &folder, const FileDescriptor &staging, qint64 build);

/// Makes a staged version, which has been tried, the current one. The version that was current stays,
/// those before it go. Which that was, where there was one.
[[nodiscard]] InstallResult<std::optional<qint64>> adoptStaged(InstallFolder &folder, qint64 build);

} // namespace corvane
