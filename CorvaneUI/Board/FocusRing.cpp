#include "FocusRing.h"

#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>

namespace corvane {

FocusRing::FocusRing(QWidget &window, bool isAlways)
    : QFocusFrame(&window), m_window(window), m_isAlways(isAlways)
{
    connect(qApp, &QApplication::focusChanged, this,
        [this](QWidget *, QWidget *focused) { follow(focused); });
}

void FocusRing::follow(QWidget *focused)
{
    const bool isHere = focused && focused->window() == &m_window;
    // A list shows the focus at its current row, a text field its cursor as well.
    const bool isRinged = isHere
        && (m_isAlways || m_window.testAttribute(Qt::WA_KeyboardFocusChange))
        && !qobject_cast<QAbstractItemView *>(focused);
    setWidget(isRinged ? focused : nullptr);
}

} // namespace corvane
