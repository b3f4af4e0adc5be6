#pragma once

#include "AXError.h"

#include <QtCore/QString>

#include <variant>

namespace corvane {

/// Why a window could not be moved. `detail` is the desktop's own reason, where it gives one.
struct MoveError {
    struct Position {
        AXError code = AXError::failure;
        QString detail = {};
        bool operator==(const Position &) const = default;
    };
    struct Size {
        AXError code = AXError::failure;
        QString detail = {};
        bool operator==(const Size &) const = default;
    };
    struct FullScreen {
        bool operator==(const FullScreen &) const = default;
    };

    std::variant<Position, Size, FullScreen> value;

    [[nodiscard]] QString description() const;
    [[nodiscard]] AXError code() const;

    bool operator==(const MoveError &) const = default;
};

} // namespace corvane
