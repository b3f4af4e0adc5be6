#pragma once

#include <xcb/xcb.h>

#include <array>
#include <cstddef>

namespace corvane::x11 {

/// The atoms that we speak, in the order of `atomNames`.
enum class Atom {
    netSupported,
    netSupportingWmCheck,
    netClientList,
    netClientListStacking,
    netActiveWindow,
    netCurrentDesktop,
    netWorkarea,
    netMoveresizeWindow,
    netRestackWindow,
    netRequestFrameExtents,
    netFrameExtents,
    gtkFrameExtents,
    gtkWorkareas,
    netWmName,
    gtkApplicationId,
    kdeDesktopFile,
    netWmPid,
    netWmDesktop,
    netWmStrut,
    netWmStrutPartial,
    netWmState,
    stateMaximizedHorz,
    stateMaximizedVert,
    stateFullscreen,
    stateHidden,
    stateSkipTaskbar,
    netWmWindowType,
    typeNormal,
    typeDesktop,
    typeDock,
    i3FloatingWindow,
    edid,
    utf8String,
    count,
};

inline constexpr std::array<const char *, static_cast<std::size_t>(Atom::count)> atomNames{
    "_NET_SUPPORTED",
    "_NET_SUPPORTING_WM_CHECK",
    "_NET_CLIENT_LIST",
    "_NET_CLIENT_LIST_STACKING",
    "_NET_ACTIVE_WINDOW",
    "_NET_CURRENT_DESKTOP",
    "_NET_WORKAREA",
    "_NET_MOVERESIZE_WINDOW",
    "_NET_RESTACK_WINDOW",
    "_NET_REQUEST_FRAME_EXTENTS",
    "_NET_FRAME_EXTENTS",
    "_GTK_FRAME_EXTENTS",
    "_GTK_WORKAREAS",
    "_NET_WM_NAME",
    "_GTK_APPLICATION_ID",
    "_KDE_NET_WM_DESKTOP_FILE",
    "_NET_WM_PID",
    "_NET_WM_DESKTOP",
    "_NET_WM_STRUT",
    "_NET_WM_STRUT_PARTIAL",
    "_NET_WM_STATE",
    "_NET_WM_STATE_MAXIMIZED_HORZ",
    "_NET_WM_STATE_MAXIMIZED_VERT",
    "_NET_WM_STATE_FULLSCREEN",
    "_NET_WM_STATE_HIDDEN",
    "_NET_WM_STATE_SKIP_TASKBAR",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_NORMAL",
    "_NET_WM_WINDOW_TYPE_DESKTOP",
    "_NET_WM_WINDOW_TYPE_DOCK",
    "I3_FLOATING_WINDOW",
    "EDID",
    "UTF8_STRING",
};

} // namespace corvane::x11
