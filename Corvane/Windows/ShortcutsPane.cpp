#include "ShortcutsPane.h"

#include "BoardText.h"
#include "Card.h"
#include "Drawing.h"
#include "KeySentence.h"
#include "PaneHead.h"
#include "PlacementIcon.h"
#include "Segments.h"
#include "ShortcutRecorder.h"

#include <QtGui/QPainter>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr double rowHeight = 40;

/// What a placement does, as a picture.
Drawing *pictureOf(Placement placement)
{
    return new Drawing({20, 16},
        [placement](QPainter &painter, const QRectF &rect, const Board::Palette &palette) {
            PlacementIcon::paint(painter, rect, placement,
                PlacementIcon::colors(palette, PlacementIcon::Form::plain));
        });
}

} // namespace

ShortcutsPane::ShortcutsPane(AppModel &model, QWidget *parent)
    : SettingsPage(SettingsPane::shortcuts, parent), m_model(model)
{
    head().setTrailing(tr("%n placements", nullptr, placementCount));
    addPresets();
    for (const PlacementGroup group : placementGroups())
        addPlacements(group);
    scrolledContent().addStretch(1);
    m_hint = new KeySentence(tr("Press the new keys. [[⌫]] clears the row, [[⎋]] cancels."),
        Board::Type::secondary, &Board::Palette::muted);
    auto *foot = new QWidget;
    auto *row = new QHBoxLayout(foot);
    row->setContentsMargins(0, Board::length(8), 0, Board::length(12));
    row->addWidget(m_hint);
    addFoot(foot);
    connect(&model, &AppModel::settingsChanged, this, &ShortcutsPane::show);
    connect(&model, &AppModel::unregisteredChanged, this, &ShortcutsPane::show);
    connect(&model, &AppModel::recordingChanged, this, &ShortcutsPane::showRecording);
    show();
    showRecording();
}

void ShortcutsPane::addPresets()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(Board::length(12));
    row->addWidget(new BoardText(tr("Preset"), Board::Type::label, &Board::Palette::faint));
    QStringList titles;
    for (const ShortcutPreset preset : shortcutPresets)
        titles << corvane::title(preset);
    m_presets = new Segments(tr("Preset"), titles << tr("Custom"));
    connect(m_presets, &Segments::chosen, this, [this](int number) {
        if (size_t(number) < shortcutPresets.size())
            m_model.applyPreset(shortcutPresets[size_t(number)]);
        else
            m_model.restoreCustomShortcuts();
        show();
    });
    row->addWidget(m_presets);
    row->addStretch(1);
    scrolledContent().addLayout(row);
}

void ShortcutsPane::addPlacements(PlacementGroup group)
{
    Card &card = addSection(corvane::title(group));
    for (const Placement placement : inGroup(group))
        addPlacement(card, placement);
}

void ShortcutsPane::addPlacement(Card &card, Placement placement)
{
    auto *row = new QWidget;
    QHBoxLayout *layout = Card::layoutRow(row, Board::length(rowHeight));
    auto *recorder = new ShortcutRecorder(corvane::title(placement));
    recorder->onBegin = [this, placement] { m_model.recording = placement; };
    recorder->onRecord = [this, placement](const std::optional<KeyCombo> &combo) {
        m_model.assign(combo, {placement});
        m_model.endRecording();
    };
    recorder->onCancel = [this] { m_model.endRecording(); };
    m_recorders.insert(placement, recorder);
    layout->addWidget(pictureOf(placement));
    layout->addWidget(new BoardText(corvane::title(placement)), 1);
    layout->addWidget(recorder);
    card.addRow(row);
}

void ShortcutsPane::show()
{
    const ShortcutMap &shortcuts = m_model.settings().shortcuts;
    const UnregisteredShortcuts &unregistered = m_model.unregistered.value();
    const auto preset = matching(shortcuts);
    m_presets->setCurrent(preset ? int(*preset) : int(shortcutPresets.size()));
    for (auto each = m_recorders.cbegin(); each != m_recorders.cend(); ++each) {
        const auto combo = shortcuts.constFind(each.key());
        (*each)->setCombo(
            combo == shortcuts.cend() ? std::nullopt : std::optional<KeyCombo>(*combo));
        (*each)->setTaken(unregistered.contains({each.key()}), unregistered.value({each.key()}));
    }
}

void ShortcutsPane::showRecording()
{
    for (auto each = m_recorders.cbegin(); each != m_recorders.cend(); ++each)
        (*each)->setRecording(m_model.recording.value() == each.key());
    m_hint->setVisible(m_model.recording.value().has_value());
}

} // namespace corvane
