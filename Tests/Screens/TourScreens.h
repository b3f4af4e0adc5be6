#pragma once

#include "AppModel.h"

#include <functional>

class QWidget;

/// Draws every page of the tour, those that have one also in their bad state, each for a picture of that
/// name.
void drawTour(corvane::AppModel &model,
    const std::function<void(QWidget &window, const QString &what)> &shoot);
