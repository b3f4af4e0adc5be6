#pragma once

#include "DisplayKey.h"

#include <QtCore/QList>
#include <QtCore/QObject>

namespace corvane {

/// Tells once, after a burst of display changes, that other displays are connected than before the
/// burst, or that some were away in its course. Moved displays and panels are no news.
class DisplayWatch final : public QObject
{
    Q_OBJECT

public:
    DisplayWatch();

Q_SIGNALS:
    /// These have been connected for a second without a change.
    void settled(const QList<corvane::DisplayKey> &connected);

private:
    void note();
    void settle(quint64 change);

    QList<DisplayKey> m_settled;
    bool m_sawOthers = false; ///< in this burst
    quint64 m_changes = 0;
};

} // namespace corvane
