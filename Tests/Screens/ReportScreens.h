#pragma once

#include <QtCore/QString>

#include <functional>

class QWidget;

/// Draws the sheet of a problem report in all its states, each for a picture of that name.
void drawReports(const std::function<void(QWidget &window, const QString &what)> &shoot);
