#pragma once

#include "Applications.h"
#include "Clock.h"
#include "Displays.h"
#include "HotKeys.h"
#include "OwnWindows.h"
#include "Session.h"
#include "WindowAccess.h"

namespace corvane {

/// The desktop, as the floors above need it. The program makes one at start, tests make a simulated
/// one; the newest one alive is current.
class Platform
{
public:
    Platform();
    virtual ~Platform();
    Q_DISABLE_COPY_MOVE(Platform)

    static Platform &current();

    virtual WindowAccess &windows() = 0;
    virtual Displays &displays() = 0;
    virtual Applications &applications() = 0;
    virtual HotKeys &hotKeys() = 0;
    virtual Session &session() = 0;
    virtual OwnWindows &ownWindows() = 0;
    virtual Clock &clock() = 0;

private:
    Platform *m_previous;
};

} // namespace corvane
