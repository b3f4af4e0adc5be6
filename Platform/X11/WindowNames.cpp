#include "WindowNames.h"

namespace corvane::x11 {

NamesRequest requestNames(const Connection &connection, xcb_window_t window)
{
    return {requestProperty(connection, window, XCB_ATOM_WM_CLASS),
        requestProperty(connection, window, Atom::gtkApplicationId),
        requestProperty(connection, window, Atom::kdeDesktopFile)};
}

std::optional<WindowNames> readNames(Connection &connection, const NamesRequest &request)
{
    const auto windowClass = propertyReply(connection, request.windowClass);
    const QString gtkId = textOf(propertyReply(connection, request.gtkId));
    const QString kdeFile = textOf(propertyReply(connection, request.kdeFile));
    if (!windowClass)
        return std::nullopt;
    WindowNames names;
    names.publishedId = gtkId.isEmpty() ? kdeFile : gtkId;
    if ((*windowClass)->format == 8) {
        const QByteArray text(static_cast<const char *>(xcb_get_property_value(windowClass->get())),
            static_cast<qsizetype>((*windowClass)->value_len));
        const QByteArrayList parts = text.split('\0');
        names.instanceName = QString::fromUtf8(parts.value(0));
        names.className = QString::fromUtf8(parts.value(1));
    }
    return names;
}

bool isOfNames(const Connection &connection, xcb_atom_t property)
{
    return property == XCB_ATOM_WM_CLASS || property == connection.atom(Atom::gtkApplicationId)
        || property == connection.atom(Atom::kdeDesktopFile);
}

} // namespace corvane::x11
