#pragma once

#include <QtWidgets/QFocusFrame>

namespace corvane {

/// Shows which control of a window has the focus, once its user turns to the keyboard.
class FocusRing final : public QFocusFrame
{
    Q_OBJECT

public:
    /// `isAlways`: also where the focus came without a key.
    explicit FocusRing(QWidget &window, bool isAlways = false);

private:
    void follow(QWidget *focused);

    QWidget &m_window;
    bool m_isAlways;
};

} // namespace corvane
