#pragma once

#include "DisplayKey.h"

#include <QtCore/QList>
#include <QtCore/QObject>

namespace corvane {

/// Waits until the displays have not changed for a second, and then tells which ones are connected,
/// if others were connected before or meanwhile. A display that only moves, and a panel, do not
/// count.
class DisplayWatch final : public QObject
{
    Q_OBJECT

public:
    DisplayWatch();

Q_SIGNALS:
    /// These displays have been connected for a second without a change.
    void settled(const QList<corvane::DisplayKey> &connected);

private:
    void follow();
    void settle(quint64 change);

    QList<DisplayKey> m_settled;
    bool m_sawOthers = false; ///< since `settled` was sent last
    quint64 m_changes = 0;
};

} // namespace corvane
