#pragma once

#include "ModelDesk.h"

namespace corvane {

/// A desk and a model for the pictures of menus.
struct MenuDesk : ModelDesk {
    MenuDesk() { settle(); }

    void addLayouts()
    {
        const auto add = [this](const QString &name, std::optional<KeyCombo> shortcut) {
            WindowLayout layout = leftHalfLayout(Screens::signature());
            layout.name = name;
            layout.shortcut = shortcut;
            return layout;
        };
        QList<WindowLayout> layouts{add(QStringLiteral("Writing"), KeyCombo(18, allModifiers)),
            add(QStringLiteral("Review & Chat"), KeyCombo(19, allModifiers)),
            add(QStringLiteral("Desk with Two Displays"), {})};
        layouts.last().displays << DisplayKey{QStringLiteral("Desk"), 1920, 1080};
        static_cast<void>(LayoutStore(folder.path()).save(layouts));
    }

    static constexpr quint64 allModifiers =
        KeyCombo::control | KeyCombo::option | KeyCombo::command;
};

} // namespace corvane
