#pragma once

#include "ScreenInfo.h"

#include <QtCore/QList>
#include <QtCore/QObject>

namespace corvane {

/// The displays of this desktop.
class Displays : public QObject
{
    Q_OBJECT

public:
    /// The connected displays as they are now, the primary one first.
    [[nodiscard]] virtual QList<ScreenInfo> all() = 0;

Q_SIGNALS:
    /// Displays came, went, moved or were resized, or a panel changed what is visible of one.
    /// Sent once per burst of changes.
    void changed();
};

} // namespace corvane
