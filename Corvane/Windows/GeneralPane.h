#pragma once

#include "AppModel.h"
#include "SettingsPage.h"

namespace corvane {

class BoardText;
class Segments;
class Switch;

/// Whether windows can be moved, who else moves them, and every preference but the shortcuts.
class GeneralPane final : public SettingsPage
{
    Q_OBJECT

public:
    explicit GeneralPane(AppModel &model, QWidget *parent = nullptr);

private:
    void addTrust();
    void addCompetitors();
    void addTiling();
    void addAppearance();
    void addPresence();
    void showTrust();
    void showCompetitors();
    void showSettings();
    /// A switch for a member of the settings.
    void addSwitch(
        Card &card, const QString &title, const QString &explanation, bool Settings::*member);
    /// A slider, with its value beside it in points, for a member of the settings.
    void addSlider(Card &card, const QString &title, const QString &explanation,
        double Settings::*member, int least, int most, int step);

    AppModel &m_model;
    Card *m_trust = nullptr;
    QWidget *m_competitors = nullptr; ///< the section
    QList<std::function<void(const Settings &)>> m_controls; ///< each shows its setting
    QWidget *m_loginNote = nullptr;
};

} // namespace corvane
