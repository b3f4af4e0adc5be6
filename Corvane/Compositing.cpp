#include "Compositing.h"

#include "QtX11.h"

namespace corvane {

// A compositing manager owns the selection made for that, one per X screen.
bool showsTranslucency()
{
    xcb_connection_t *connection = QtX11::connection();
    if (!connection)
        return true;
    const xcb_atom_t selection = QtX11::atom(connection, "_NET_WM_CM_S0");
    return QtX11::selectionOwner(connection, selection) != XCB_WINDOW_NONE;
}

} // namespace corvane
