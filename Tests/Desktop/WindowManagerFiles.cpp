#include "WindowManagerFiles.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

const char *const openboxFile = R"(<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew></focus>
  <placement><policy>Smart</policy></placement>
  <desktops><number>1</number><popupTime>0</popupTime></desktops>
  <keyboard/>
  <mouse/>
</openbox_config>
)";

const char *const xfwmKeys = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-keyboard-shortcuts" version="1.0">
  <property name="xfwm4" type="empty">
    <property name="custom" type="empty">
      <property name="override" type="bool" value="true"/>
      <property name="&lt;Super&gt;Left" type="string" value="tile_left_key"/>
    </property>
  </property>
  <property name="providers" type="array"><value type="string" value="xfwm4"/></property>
</channel>
)";

const char *const xfwmFile = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfwm4" version="1.0">
  <property name="general" type="empty">
    <property name="use_compositing" type="bool" value="false"/>
    <property name="workspace_count" type="int" value="1"/>
    <property name="prevent_focus_stealing" type="bool" value="false"/>
  </property>
</channel>
)";

const char *const icewmFile = R"(ShowTaskBar=0
ShowWorkspaceStatus=0
ConfirmLogout=0
Win95Keys=0
ManualPlacement=0
ShowSplash=0
KeySysWorkspacePrev=""
KeySysWorkspaceNext=""
KeySysWorkspaceLast=""
KeySysWorkspace11=""
KeySysWorkspace12=""
KeySysWorkspacePrevTakeWin=""
KeySysWorkspaceNextTakeWin=""
KeySysWorkspaceLastTakeWin=""
KeySysArrange=""
KeySysTileVertical=""
KeySysTileHorizontal=""
KeySysCascade=""
KeySysMinimizeAll=""
KeySysHideAll=""
KeySysUndoArrange=""
KeySysShowDesktop=""
KeySysCollapseTaskBar=""
KeySysAddressBar=""
KeySysDialog=""
KeySysMenu=""
KeySysWinMenu=""
KeySysWindowMenu=""
KeySysWinListMenu=""
KeySysRun=""
KeyTaskBarSwitchPrev=""
KeyTaskBarSwitchNext=""
)";

const char *const icewmWorkspaces = R"(WorkspaceNames=" 1 "
)";

const char *const fluxboxFile = R"(session.screen0.slit.autoHide: true
session.screen0.workspaces: 1
session.screen0.focusNewWindows: true
session.screen0.focusModel: ClickToFocus
session.configVersion: 13
session.keyFile: %1/../.fluxbox/keys
session.appsFile: %1/../.fluxbox/apps
session.menuFile: %1/../.fluxbox/menu
session.styleFile: /usr/share/fluxbox/styles/bora_blue
session.styleOverlay: %1/../.fluxbox/overlay
)";

const char *const floatingFile = R"(# i3 config file (v4)
font pango:monospace 8
for_window [class=".*"] floating enable
for_window [title=".*"] floating enable
floating_maximum_size -1 x -1
focus_on_window_activation focus
focus_follows_mouse no
mouse_warping none
)";

const char *const tilingFile = R"(# i3 config file (v4)
font pango:monospace 8
focus_on_window_activation focus
focus_follows_mouse no
mouse_warping none
)";

const char *const kwinFile = R"([Compositing]
Enabled=false
[Windows]
FocusStealingPreventionLevel=0
Placement=Smart
ElectricBorderMaximize=false
ElectricBorderTiling=false
[Desktops]
Number=1
[Plugins]
kwin4_effect_startupfeedbackEnabled=false
)";

// In a home without this folder fluxbox writes its own files over any given ones.
QList<WindowManagerFiles::File> fluxboxFiles(const QByteArray &toolbar)
{
    return {{u"../.fluxbox/init"_s, fluxboxFile + toolbar}, {u"../.fluxbox/keys"_s, "# none\n"},
        {u"../.fluxbox/apps"_s, "# none\n"}, {u"../.fluxbox/menu"_s, "# none\n"},
        {u"../.fluxbox/windowmenu"_s, "# none\n"},
        {u"../.fluxbox/overlay"_s, "background: none\n"}};
}

// One "[schema]" section with every key of the list unbound.
QByteArray unbound(const QByteArray &section, const QByteArray &value, const QByteArrayList &keys)
{
    QByteArray text = "[" + section + "]\n";
    for (const QByteArray &key : keys)
        text += key + "=" + value + "\n";
    return text;
}

QByteArrayList workspaceKeys()
{
    QByteArrayList keys{"switch-to-workspace-left", "switch-to-workspace-right",
        "switch-to-workspace-up", "switch-to-workspace-down"};
    const QByteArrayList moves{"move-to-workspace-left", "move-to-workspace-right",
        "move-to-workspace-up", "move-to-workspace-down"};
    return keys + moves;
}

// GLib keeps settings in this file when told to ("GSETTINGS_BACKEND=keyfile").
WindowManagerFiles::File settingsFile(const QByteArray &text)
{
    return {u"glib-2.0/settings/keyfile"_s, text};
}

QByteArray gnomeSettings()
{
    return unbound("org/gnome/desktop/wm/keybindings", "@as []", workspaceKeys())
        + "[org/gnome/desktop/wm/preferences]\nfocus-new-windows='smart'\nnum-workspaces=1\n"
          "[org/gnome/mutter]\ndynamic-workspaces=false\n"
          "auto-maximize=false\n";
}

QByteArray mateSettings()
{
    const QByteArrayList moves{"move-to-workspace-left", "move-to-workspace-right",
        "move-to-workspace-up", "move-to-workspace-down"};
    const QByteArrayList switches{"switch-to-workspace-left", "switch-to-workspace-right",
        "switch-to-workspace-up", "switch-to-workspace-down", "show-desktop"};
    return unbound("org/mate/marco/window-keybindings", "'disabled'", moves)
        + "tile-to-side-w='<Mod4>Left'\n"
        + unbound("org/mate/marco/global-keybindings", "'disabled'", switches)
        + "[org/mate/marco/general]\ncompositing-manager=false\nnum-workspaces=1\n"
          "center-new-windows=false\n";
}

} // namespace

const QList<WindowManagerFiles> &WindowManagerFiles::all()
{
    static const QList<WindowManagerFiles> list{
        {u"openbox"_s, u"openbox"_s,
            {u"--config-file"_s, u"%1/openbox/rc.xml"_s, u"--sm-disable"_s}, u"--replace"_s,
            u"Openbox"_s, {{u"openbox/rc.xml"_s, openboxFile}}},
        {u"xfwm4"_s, u"xfwm4"_s, {u"--compositor=off"_s}, u"--replace"_s, u"Xfwm4"_s,
            {{u"xfce4/xfconf/xfce-perchannel-xml/xfce4-keyboard-shortcuts.xml"_s, xfwmKeys},
                {u"xfce4/xfconf/xfce-perchannel-xml/xfwm4.xml"_s, xfwmFile}}},
        {u"marco"_s, u"marco"_s, {u"--no-composite"_s, u"--sm-disable"_s}, u"--replace"_s,
            u"Metacity (Marco)"_s, {settingsFile(mateSettings())}},
        {u"metacity"_s, u"metacity"_s, {u"--sm-disable"_s}, u"--replace"_s, u"Metacity"_s,
            {settingsFile(gnomeSettings())}},
        {u"mutter"_s, u"mutter"_s, {u"--x11"_s, u"--sm-disable"_s}, u"--replace"_s, u"Mutter"_s,
            {settingsFile(gnomeSettings())}},
        {u"kwin_x11"_s, u"kwin_x11"_s, {}, u"--replace"_s, u"KWin"_s, {{u"kwinrc"_s, kwinFile}}},
        {u"icewm"_s, u"icewm"_s, {}, u"--replace"_s, u"IceWM"_s,
            {{u"icewm/preferences"_s, QByteArray(icewmFile) + icewmWorkspaces},
                {u"icewm/keys"_s, "# none\n"}, {u"icewm/startup"_s, ""}}},
        {u"fluxbox"_s, u"fluxbox"_s, {}, QString(), u"Fluxbox"_s,
            fluxboxFiles("session.screen0.toolbar.visible: false\n")},
        {u"fluxbox-tray"_s, u"fluxbox"_s, {}, QString(), u"Fluxbox"_s,
            fluxboxFiles("session.screen0.toolbar.tools: iconbar, systemtray\n"
                         "session.screen0.toolbar.widthPercent: 100\n")},
        {u"i3"_s, u"i3"_s, {u"-c"_s, u"%1/i3/floating"_s}, u"--replace"_s, u"i3"_s,
            {{u"i3/floating"_s, floatingFile}}},
        {u"i3-tiling"_s, u"i3"_s, {u"-c"_s, u"%1/i3/tiling"_s}, u"--replace"_s, u"i3"_s,
            {{u"i3/tiling"_s, tilingFile}}},
    };
    return list;
}

} // namespace corvane::desktop
