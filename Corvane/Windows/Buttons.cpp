#include "Buttons.h"

#include "BoardStyle.h"

#include <QtWidgets/QToolButton>

namespace corvane {

QToolButton *symbolButton(const QString &symbol, BoardText::Tone tone, const QString &name)
{
    auto *button = new QToolButton;
    button->setIcon(BoardStyle::icon(symbol, tone));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setAccessibleName(name);
    button->setToolTip(name);
    return button;
}

} // namespace corvane
