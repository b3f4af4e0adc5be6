#pragma once

#include "Envelope.h"

namespace corvane {

/// Whom an updater believes.
struct UpdateKeys {
    PublicKeys release; ///< what may be installed
    PublicKeys feed; ///< what is offered, and until when

    [[nodiscard]] bool isEmpty() const { return release.isEmpty() || feed.isEmpty(); }
};

/// The keys that this program was built with.
[[nodiscard]] UpdateKeys builtInKeys();

} // namespace corvane
