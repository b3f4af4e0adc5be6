#pragma once

#include "AppModel.h"
#include "SettingsPage.h"

#include <QtCore/QHash>

namespace corvane {

class KeySentence;
class Segments;
class ShortcutRecorder;

/// Every placement with its shortcut.
class ShortcutsPane final : public SettingsPage
{
    Q_OBJECT

public:
    explicit ShortcutsPane(AppModel &model, QWidget *parent = nullptr);

private:
    void addPresets();
    void addPlacements(PlacementGroup group);
    void addPlacement(Card &card, Placement placement);
    void show();
    void showRecording();

    AppModel &m_model;
    Segments *m_presets = nullptr;
    QHash<Placement, ShortcutRecorder *> m_recorders;
    KeySentence *m_hint = nullptr;
};

} // namespace corvane
