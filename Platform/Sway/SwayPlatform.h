#pragma once

#include "Expected.h"

#include <QtCore/QString>

#include <functional>
#include <memory>

namespace corvane {

class Platform;

/// Whether sway runs this session, and answers.
[[nodiscard]] bool swayAnswers();

/// The desktop of the sway session that $SWAYSOCK names. The error is one sentence. `onBroken` is called
/// once when the session goes away: nothing works after that.
[[nodiscard]] expected<std::unique_ptr<Platform>, QString> openSwayPlatform(
    std::function<void()> onBroken);

} // namespace corvane
