#pragma once

#include "AppModel.h"
#include "Board.h"

/// The program's health in one line.
namespace corvane::AppStatus {

enum class Tone {
    ready,
    attention,
};

[[nodiscard]] QString line(const AppModel &model);
[[nodiscard]] Tone tone(const AppModel &model);
[[nodiscard]] bool isReady(const AppModel &model);

[[nodiscard]] QColor color(Tone tone, const Board::Palette &palette);

} // namespace corvane::AppStatus
