#include "UpdateBar.h"

#include "BoardStyle.h"

namespace corvane {

namespace {

constexpr int whole = 1000;
constexpr int sweep = 1600; ///< milliseconds, there and back

} // namespace

UpdateBar::UpdateBar(const QString &name, QWidget *parent) : QProgressBar(parent)
{
    setAccessibleName(name);
    setTextVisible(false);
    setFocusPolicy(Qt::TabFocus);
    setFixedHeight(Board::length(8));
    m_busy.setDuration(sweep);
    m_busy.setLoopCount(-1);
    m_busy.setKeyValueAt(0, 0.0);
    m_busy.setKeyValueAt(0.5, 1.0);
    m_busy.setKeyValueAt(1, 0.0);
    connect(&m_busy, &QVariantAnimation::valueChanged, this, [this](const QVariant &at) {
        setProperty(BoardStyle::busyAt, at);
        update();
    });
    setShare(std::nullopt);
}

void UpdateBar::setShare(std::optional<double> share)
{
    setRange(0, share ? whole : 0);
    setValue(share ? int(*share * whole) : 0);
    const bool moves = !share && !BoardStyle::shared().look().reducesMotion;
    if (!moves)
        m_busy.stop();
    else if (m_busy.state() != QAbstractAnimation::Running)
        m_busy.start();
}

} // namespace corvane
