#include "LayoutsPane.h"

#include "BoardText.h"
#include "Card.h"
#include "OneLine.h"
#include "ShortcutRecorder.h"

#include <QtWidgets/QPushButton>

namespace corvane {

LayoutsPane::LayoutsPane(AppModel &model, std::function<void(const WindowLayout &)> apply,
    std::function<void()> capture, QWidget *parent)
    : SettingsPage(SettingsPane::layouts, parent)
    , m_model(model)
    , m_apply(std::move(apply))
    , m_capture(std::move(capture))
{
    m_list = new QWidget;
    auto *column = new QVBoxLayout(m_list);
    column->setContentsMargins(0, 0, 0, 0);
    scrolledContent().addWidget(m_list);
    scrolledContent().addSpacing(Board::length(12));
    auto *button = new QPushButton(tr("Capture Current Windows"));
    connect(button, &QPushButton::clicked, this, [this] { m_capture(); });
    scrolledContent().addWidget(button, 0, Qt::AlignLeading);
    scrolledContent().addStretch(1);
    connect(&model, &AppModel::layoutsChanged, this, &LayoutsPane::show);
    connect(&model, &AppModel::unregisteredChanged, this, &LayoutsPane::show);
    connect(&model, &AppModel::recordingLayoutChanged, this, &LayoutsPane::showRecording);
    show();
}

void LayoutsPane::show()
{
    const QUuid focused =
        m_recorders.key(qobject_cast<ShortcutRecorder *>(window()->focusWidget()));
    for (ShortcutRecorder *recorder : std::exchange(m_recorders, {}))
        recorder->setRecording(false); // before it goes
    empty(*m_list->layout());
    auto *card = new Card;
    card->setAccessibleName(title(SettingsPane::layouts));
    for (const WindowLayout &layout : m_model.layouts()) {
        auto *row = new QWidget;
        QHBoxLayout *line = Card::layoutRow(row, Board::length(40));
        const QString name = oneLine(layout.name);
        auto *recorder = new ShortcutRecorder(name);
        recorder->setCombo(layout.shortcut);
        recorder->setTaken(m_model.unregistered.value().contains({layout.id}));
        recorder->onBegin = [this, id = layout.id] { m_model.recordingLayout = id; };
        recorder->onRecord = [this, id = layout.id](const std::optional<KeyCombo> &combo) {
            m_model.assign(combo, {id});
            m_model.endRecording();
        };
        recorder->onCancel = [this] { m_model.endRecording(); };
        auto *apply = new QPushButton(tr("Apply"));
        apply->setAccessibleDescription(name);
        connect(apply, &QPushButton::clicked, this, [this, layout] { m_apply(layout); });
        line->addWidget(new BoardText(name), 1);
        line->addWidget(recorder);
        line->addWidget(apply);
        card->addRow(row);
        m_recorders.insert(layout.id, recorder);
    }
    m_list->layout()->addWidget(card);
    card->setVisible(!m_model.layouts().isEmpty());
    if (ShortcutRecorder *again = m_recorders.value(focused))
        again->setFocus(Qt::OtherFocusReason);
    showRecording();
}

void LayoutsPane::showRecording()
{
    for (auto each = m_recorders.cbegin(); each != m_recorders.cend(); ++each)
        (*each)->setRecording(m_model.recordingLayout.value() == each.key());
}

} // namespace corvane
