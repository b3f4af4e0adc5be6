#pragma once

#include "BoardText.h"

#include <QtWidgets/QPushButton>

class QToolButton;

namespace corvane {

/// A button that does this, as long as `context` lives.
[[nodiscard]] QPushButton *pushButton(const QString &title, auto *context, auto &&act)
{
    auto *button = new QPushButton(title);
    QObject::connect(button, &QPushButton::clicked, context, act);
    return button;
}

/// A flat button that is a symbol alone. Tab leads to it, and its name is also its tip.
[[nodiscard]] QToolButton *symbolButton(
    const QString &symbol, BoardText::Tone tone, const QString &name);

} // namespace corvane
