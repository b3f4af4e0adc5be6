#pragma once

#include "AppRef.h"
#include "UnitRect.h"

#include <QtCore/QUuid>

namespace corvane {

/// One region of one display, and what belongs there. A pane made here has an id of its own.
struct Pane {
    QUuid id = QUuid::createUuid();
    int display = 0; ///< index into the layout's displays
    UnitRect rect = {};
    std::optional<AppRef> app = {}; ///< none in an empty pane
    std::optional<QString> titleContains = {}; ///< only windows so titled, in whatever case
    bool launch = true; ///< whether an app that is not running is opened
    std::optional<int> stack = {}; ///< among the app's windows when captured; 0 is the frontmost
    std::optional<QString> capturedTitle = {}; ///< of the window that the pane was captured from

    /// Whether the pane's title is the one that was captured: it is preferred, not demanded. A title
    /// that somebody typed since is another one.
    [[nodiscard]] bool prefersTitle() const
    {
        return capturedTitle && *capturedTitle == titleContains.value_or(QString());
    }

    [[nodiscard]] QJsonObject toJson() const;
    /// Absent fields take their defaults; a field of the wrong type costs the pane.
    [[nodiscard]] static std::optional<Pane> fromJson(
        const QJsonValue &json, DecodeProblems &problems);

    bool operator==(const Pane &) const = default;
};

} // namespace corvane
