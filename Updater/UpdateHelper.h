#pragma once

#include "UpdateKeys.h"

#include <QtCore/QStringList>

namespace corvane::UpdateHelper {

/// Whom the program that updates this one believes, and for whom it works.
struct Rules {
    UpdateKeys keys;
    bool worksForRoot = false; ///< what root installs, its user cannot update
};

/// Does what its command line asks for, and returns the exit status. An application object must be there.
///
/// "--check", with "--asked" where a user did: one pass. Messages are printed, and words read, a line
/// each; it ends when nobody can read or write them any more.
/// "--install-here": installs the bundle that this program is a part of, in the user's home.
/// "--relaunch BUILD --version TEXT [--previous BUILD]": starts what has just become the current version.
[[nodiscard]] int run(const QStringList &arguments, const Rules &rules);

} // namespace corvane::UpdateHelper
