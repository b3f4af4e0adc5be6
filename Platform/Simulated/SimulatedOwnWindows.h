#pragma once

#include "OwnWindows.h"

#include <QtCore/QHash>
#include <QtCore/QSet>
#include <QtCore/QStringList>

namespace corvane {

/// Does nothing outside itself: it remembers what it was asked for, and answers with its public
/// fields. To begin with, it is known to have no tray.
class SimulatedOwnWindows final : public OwnWindows
{
    Q_OBJECT

public:
    Tray tray() override;
    void bringForward(quint64 window, const QString &token) override;
    bool takePointer(quint64 window) override;
    void setTakesAllKeys(quint64 window, bool takesAll) override;
    bool showsTranslucency() override;
    void setListed(quint64 window, bool isListed) override;
    void setOverlay(quint64 window, const Rect &frame) override;

    /// As panels that come and go do.
    void changeTray(const Tray &tray);

    bool isPointerFree = true;
    bool blendsWindows = true;
    QSet<quint64> takingAllKeys; ///< windows
    QHash<quint64, bool> listed; ///< by window
    QList<Rect> overlays; ///< all that were asked for, those that are gone, too
    QStringList broughtForward; ///< the tokens

private:
    Tray m_tray{.isKnown = true};
};

} // namespace corvane
