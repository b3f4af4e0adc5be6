#include "WindowTitle.h"

#include "Properties.h"

namespace corvane::x11 {

TitleRequest requestTitle(const Connection &connection, xcb_window_t window)
{
    return {requestProperty(connection, window, Atom::netWmName),
        requestProperty(connection, window, XCB_ATOM_WM_NAME)};
}

expected<QString, AXError> readTitle(Connection &connection, const TitleRequest &request)
{
    const Answers answers(connection);
    const auto modern = propertyReply(connection, request.modern);
    const auto old = propertyReply(connection, request.old);
    if (!answers.complete())
        return unexpected<AXError>(AXError::cannotComplete);
    if (!modern)
        return unexpected<AXError>(modern.error());
    const QString title = textOf(modern);
    return title.isEmpty() ? textOf(old) : title;
}

} // namespace corvane::x11
