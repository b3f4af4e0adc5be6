#pragma once

#include "InstallProblem.h"
#include "Manifest.h"

namespace corvane {

/// Copies every file that the manifest lists, and the manifest, from the folder of an unpacked bundle to
/// an empty one. All of it is on the disk afterwards. Both folders are open.
[[nodiscard]] InstallResult<void> copyBundle(int from, const Manifest &manifest, int to);

} // namespace corvane
