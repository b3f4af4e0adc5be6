#pragma once

#include "OwnWindows.h"

#include <QtCore/QHash>

namespace corvane {

/// Does nothing outside itself: it remembers what it was asked for, and answers with its public
/// fields. To begin with, it is known to have no tray.
class SimulatedOwnWindows final : public OwnWindows
{
    Q_OBJECT

public:
    Tray tray() override;
    bool takePointer(quint64 window) override;
    bool showsTranslucency() override;
    void setListed(quint64 window, bool isListed) override;

    /// As panels that come and go do.
    void changeTray(const Tray &tray);

    bool isPointerFree = true;
    bool blendsWindows = true;
    QHash<quint64, bool> listed; ///< by window

private:
    Tray m_tray{.isKnown = true};
};

} // namespace corvane
