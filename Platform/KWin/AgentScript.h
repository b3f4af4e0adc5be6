#pragma once

#include <QtCore/QByteArray>

namespace corvane::kwin {

/// The script that runs inside KWin for us (agent.js).
[[nodiscard]] QByteArray agentScript();

} // namespace corvane::kwin
