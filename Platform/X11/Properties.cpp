#include "Properties.h"

namespace corvane::x11 {

QList<quint32> readList(Connection &connection, xcb_window_t window, Atom property)
{
    constexpr quint32 mostValues = 1 << 16;
    const auto cookie = xcb_get_property(connection.xcb(), false, window, connection.atom(property),
        XCB_GET_PROPERTY_TYPE_ANY, 0, mostValues);
    const auto reply = propertyReply(connection, cookie);
    const auto values = values32(reply);
    return {values.begin(), values.end()};
}

QString textOf(const PropertyReply &reply)
{
    if (!reply || (*reply)->format != 8)
        return {};
    const auto *text = static_cast<const char *>(xcb_get_property_value(reply->get()));
    const auto length = static_cast<qsizetype>((*reply)->value_len);
    const bool latin1 = (*reply)->type == XCB_ATOM_STRING;
    const QString decoded =
        latin1 ? QString::fromLatin1(text, length) : QString::fromUtf8(text, length);
    return decoded.left(decoded.indexOf(QChar(u'\0')));
}

} // namespace corvane::x11
