#include "Segments.h"

#include "BoardStyle.h"
#include "DevicePixels.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QRadioButton>

namespace corvane {

namespace {

constexpr double radius = 7;

} // namespace

Segments::Segments(const QString &name, const QStringList &titles, QWidget *parent)
    : QWidget(parent)
{
    setAccessibleName(name);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    for (const QString &title : titles) {
        auto *button = new QRadioButton(title);
        button->setFont(Board::font(Board::Type::secondary));
        button->setAccessibleDescription(name);
        // Tab stops at the chosen one alone, even before any had the focus.
        connect(button, &QRadioButton::toggled, button, [button](bool isOn) {
            button->setFocusPolicy(isOn ? Qt::StrongFocus : Qt::ClickFocus);
        });
        button->setFocusPolicy(Qt::ClickFocus);
        m_group.addButton(button, int(m_group.buttons().size()));
        row->addWidget(button);
    }
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&m_group, &QButtonGroup::idToggled, this, [this](int number, bool isOn) {
        if (isOn)
            Q_EMIT chosen(number);
    });
}

void Segments::setCurrent(int number)
{
    const QSignalBlocker blocker(m_group);
    m_group.setExclusive(false);
    for (QAbstractButton *button : m_group.buttons())
        button->setChecked(m_group.id(button) == number);
    m_group.setExclusive(true);
}

QPainterPath Segments::shapeOf(const QWidget &segment)
{
    QPainterPath outline;
    const QRectF all(-segment.pos(), QSizeF(segment.parentWidget()->size()));
    outline.addRoundedRect(all, Board::length(radius), Board::length(radius));
    return outline;
}

void Segments::paintEvent(QPaintEvent *)
{
    const Board::Palette &palette = BoardStyle::shared().colors();
    QPainter painter(this);
    drawField(painter, rect(), Board::length(radius), palette.control, palette.edge);
}

} // namespace corvane
