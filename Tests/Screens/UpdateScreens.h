#pragma once

#include <QtCore/QString>

#include <functional>

class QWidget;

namespace corvane {
class AppModel;
class SettingsWindow;
} // namespace corvane

using Shoot = std::function<void(QWidget &window, const QString &what)>;

/// Draws the sheet of an update in all its stages, each for a picture of that name.
void drawUpdates(const Shoot &shoot);
/// Draws what the settings say of updates in each kind of copy.
void drawUpdateStates(
    corvane::SettingsWindow &window, corvane::AppModel &model, const Shoot &shoot);
