#pragma once

#include "Rect.h"
#include "XConnection.h"

namespace corvane::desktop {

/// Moves and clicks as a mouse does (XTEST).
class PointerPresser
{
public:
    enum class Button : quint8 { left = 1, middle = 2, right = 3 };

    explicit PointerPresser(XConnection &connection);

    /// Pixels of the root window. Each returns when the server has taken it.
    void moveTo(Point point);
    void press(Button button);
    void release(Button button);
    void click(Point point, Button button = Button::left);

private:
    void send(quint8 event, quint8 detail, Point point);

    XConnection &m_connection;
};

} // namespace corvane::desktop
