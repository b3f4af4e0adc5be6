# Writes to TREE/needed the libraries that the programs and plugins in TREE need and that a host may
# not have. A host's own are used where they go with its drivers, configuration or plugins, and where it
# mends their security; and those that they need in turn, since a process cannot have two of one.
set(hosts
    # The floor that everything stands on: a release names the oldest glibc that it runs with.
    "ld-linux.*" "lib(c|m|mvec|dl|rt|pthread|resolv|util)" "lib(stdc\\+\\+|gcc_s)"
    # The display: they are a pair with the server and the drivers.
    "lib(X11|X11-xcb|xcb|Xau|Xdmcp|ICE|SM)" "lib(GL|EGL|GLX|OpenGL|GLdispatch|gbm|drm)" "libwayland-.*"
    # Fonts: their files, caches and configuration are the system's.
    "lib(fontconfig|freetype|harfbuzz|graphite2|expat|png16|brotli(dec|common)|z)"
    # GIO loads the desktop's modules, which want the GLib that they were built with.
    "lib(glib|gobject|gio|gmodule)-2\\.0" "libpcre2-8"
    # The session's bus, and what packs the journal that comes with it.
    "lib(dbus-1|systemd|lz4|lzma|zstd)"
    # What guards a connection is mended by the system.
    "lib(ssl|crypto)")
list(TRANSFORM hosts PREPEND "^")
list(TRANSFORM hosts APPEND "\\.so")

file(GLOB programs ${TREE}/bin/corvane ${TREE}/libexec/corvane/corvane-*)
file(GLOB plugins ${TREE}/plugins/*/*.so)
file(GET_RUNTIME_DEPENDENCIES
    EXECUTABLES ${programs}
    MODULES ${plugins}
    RESOLVED_DEPENDENCIES_VAR needed
    UNRESOLVED_DEPENDENCIES_VAR missing
    PRE_EXCLUDE_REGEXES ${hosts})
if(missing)
    message(FATAL_ERROR "These libraries are not on this computer: ${missing}")
endif()
list(JOIN needed "\n" needed)
file(WRITE ${TREE}/needed "${needed}\n")
