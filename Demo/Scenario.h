#pragma once

#include "Applications.h"
#include "Placement.h"

#include <QtCore/QList>
#include <QtCore/QString>

namespace corvane::demo {

/// One placement that a user asks for.
struct Step {
    enum class Start {
        asItStands,
        maximized, ///< by the window manager
    };

    Application application;
    Placement pressed;
    /// Where the window belongs: further on in a cycle, or what it keeps on another display.
    Placement becomes;
    Start start = Start::asItStands;
};

/// Steps after which the desk is worth a picture.
struct Chapter {
    QString picture; ///< the name of its file
    QList<Step> steps;
};

[[nodiscard]] QList<Chapter> scenario();

} // namespace corvane::demo
