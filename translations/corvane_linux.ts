<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Accessibility</name>
    <message>
        <source>Device Control and Data Access</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accessibility</source>
        <translation>Moving Windows</translation>
    </message>
</context>
<context>
    <name>ActivityEntry</name>
    <message>
        <source>An app</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>is in full screen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>did not answer (it may be busy)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>would not let its window move</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AppStatus</name>
    <message>
        <source>Waiting on Accessibility</source>
        <translation>Waiting for a window manager</translation>
    </message>
    <message>
        <source>A shortcut is not working</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is also running</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ready</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Appearance</name>
    <message>
        <source>Match Mac</source>
        <translation>Match System</translation>
    </message>
    <message>
        <source>Light</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dark</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DisplayKey</name>
    <message>
        <source>%1 × %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <comment>name, size</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FileError</name>
    <message>
        <source>Permission was denied.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The disk quota is used up.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file would become too large.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The disk reported an error.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is a folder in its place.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is a link that leads nowhere.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It does not exist.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The disk is full.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its folder is not a folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not a regular file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The disk is read-only.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is larger than %1 MiB.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another process is writing it.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Keys</name>
    <message>
        <source>Ctrl</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Control</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Alt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shift</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Super</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Caps Lock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Return</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Del</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Esc</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Escape</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tab</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left Arrow</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Right Arrow</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Up Arrow</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Down Arrow</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Comma</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Period</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Slash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backslash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Semicolon</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quote</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backquote</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left Bracket</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Right Bracket</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Minus</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Equals</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Space</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>key 114</source>
        <extracomment>Insert</extracomment>
        <translation>Insert</translation>
    </message>
    <message>
        <source>key 115</source>
        <extracomment>Home</extracomment>
        <translation>Home</translation>
    </message>
    <message>
        <source>key 116</source>
        <extracomment>Page Up</extracomment>
        <translation>Page Up</translation>
    </message>
    <message>
        <source>key 119</source>
        <extracomment>End</extracomment>
        <translation>End</translation>
    </message>
    <message>
        <source>key 121</source>
        <extracomment>Page Down</extracomment>
        <translation>Page Down</translation>
    </message>
    <message>
        <source>key %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LayoutHistory</name>
    <message>
        <source>Revert %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LayoutPicture</name>
    <message>
        <source>Add a Pane</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>5 % is the smallest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 px</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Focus</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Split Columns</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Split Rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose App…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edge between %1 and %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>top</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>bottom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 by %2 percent</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LayoutReport</name>
    <message>
        <source>Captured %1 on %2 as “%3”.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n window(s)</source>
        <translation>
            <numerusform>%n window</numerusform>
            <numerusform>%n windows</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n display(s)</source>
        <translation>
            <numerusform>%n display</numerusform>
            <numerusform>%n displays</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>Corvane</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About Corvane</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hide Corvane</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hide Others</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit Corvane</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Redo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cut</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Placements</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layouts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane Tour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Report a Problem…</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Menu</name>
    <message>
        <source>made for displays that are not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Capture Current Windows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit Layout</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MenuHeader</name>
    <message>
        <source>%1, %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MenuRow</name>
    <message>
        <source>%1 (%2)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MoveOutcome</name>
    <message>
        <source>%1 is in full screen.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The window manager tiles this window.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The window manager kept this window where it is.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The window manager did not answer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 did not answer. It may be busy.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 would not let its window move.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 has no window in front that could be moved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no window in front that could be moved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Windows cannot be moved now.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane has made no move of this window that it could take back.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane did not see this window open, so it does not know where it was then.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is only one display to be on.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PaneCure</name>
    <message>
        <source>Apply Again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose App…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use Another Display…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Turn On Opening</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change Title…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open a Window</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PaneResult</name>
    <message>
        <source>its display is not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>is not installed on this Mac</source>
        <translation>is not installed on this computer</translation>
    </message>
    <message>
        <source>is not running (opening it is off for this pane)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>was opened, and still had no window after 20 seconds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>is running but has no window to place</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>accessibility not granted</source>
        <translation>windows cannot be moved now</translation>
    </message>
    <message>
        <source>had no window yet when the next layout was applied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>was opened, and its window is not the one named</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Placement</name>
    <message>
        <source>Left Half</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Right Half</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Top Half</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bottom Half</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Top Left Quarter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Top Right Quarter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bottom Left Quarter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bottom Right Quarter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left Third</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Center Third</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Right Third</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left Two Thirds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Right Two Thirds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Top Left Sixth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Top Center Sixth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Top Right Sixth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bottom Left Sixth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bottom Center Sixth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bottom Right Sixth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Almost Maximize</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Center</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Larger</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Smaller</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next Display</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Previous Display</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Snap Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Original Orientation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Halves</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quarters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Thirds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sixths</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Screen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Displays</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>History</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReportFile</name>
    <message>
        <source>“%1” exists already.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” was not written. %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its folder does not exist.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SettingsPane</name>
    <message>
        <source>General</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layouts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tremor Log</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Shortcuts</name>
    <message>
        <source>; refused by macOS or another app: </source>
        <translation>; refused by the desktop or another app: </translation>
    </message>
    <message>
        <source>%1 (%2) is held by another program.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (%2) needs a key that this keyboard lacks.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (%2) does not work: nothing answered when it was asked for.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (%2) is held by %3.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StatusIcon</name>
    <message>
        <source>Corvane</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane, needs attention</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The status icon could not be written to %1: %2.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StoreProblem</name>
    <message>
        <source>Corvane could not read some of your layouts in %1, so it used defaults for them.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane could not read some of your settings in %1, so it used defaults for them.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The old file is kept in %1 as %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane could not read some of your layouts in %1, so those it had stay.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane could not read some of your settings in %1, so those in force stay.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StoredJson</name>
    <message>
        <source>It is not JSON from its byte %1 on: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its brackets are not those of what it should hold.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Values in it that cannot be used: %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UpdateDriver</name>
    <message>
        <source>The download from %1 stopped part way. Check the Mac is online and press Try Again.</source>
        <translation>The download from %1 stopped part way. Check that this computer is online and press Try Again.</translation>
    </message>
</context>
<context>
    <name>UpdateStatus</name>
    <message>
        <source>Checking…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>v%1 is available.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You&apos;re up to date.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update server could not be reached.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not checked since Corvane opened.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not checked yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>h:mm AP</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last check: Today, %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last check: Yesterday, %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MMM d</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last check: %1, %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WindowLayout</name>
    <message>
        <source>No displays</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::AboutPane</name>
    <message>
        <source>Checking</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update server could not be reached.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is yours to install.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>WINDOWS WHERE YOU WANT THEM</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane Website</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane Tour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your Data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What Leaves This Mac</source>
        <translation>What Leaves This Computer</translation>
    </message>
    <message>
        <source>No telemetry, no analytics, no account.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show in Finder</source>
        <translation>Show in Files</translation>
    </message>
    <message>
        <source>Everything else stays on this Mac, as readable files.</source>
        <translation>Everything else stays on this computer, as readable files.</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Running v%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check Now</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Install…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check for updates automatically</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Once a day. The menu says when there is one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not checked yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You&apos;re up to date.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> · checked %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Report a Problem…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> · automatic checks are off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MMM d</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> · last checked %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This copy came as a Flatpak, so its maker updates it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This copy came as a Flatpak from %1, who updates it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This copy came as an AppImage, so its maker updates it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This copy came as an AppImage from %1, who updates it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Built from source</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This copy is not in the Applications folder, so it cannot update itself. Move it there and open it again.</source>
        <translation>This copy is not installed, so it cannot update itself. Install it and open it again.</translation>
    </message>
    <message>
        <source>This build has no updater.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This copy came with a package, so your package manager updates it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Software</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy Command</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::AppDelegate</name>
    <message>
        <source>Layout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” is not complete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing was captured</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane, needs attention</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No program opened the link</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” was not applied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no layout of this name any more.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Windows captured</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>They come back from Corvane&apos;s menu, under Layouts.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No window could be captured.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane did not quit the last time that it ran. If it failed, a report helps to mend it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another version of Corvane was installed. Open Corvane again to use it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane cannot show that</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::AppModel</name>
    <message>
        <source>the “%1” layout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>untitled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change Shortcut</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 belongs to %2, so %3 has no shortcut now.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::AppPicker</name>
    <message numerus="yes">
        <source>%n window(s)</source>
        <translation>
            <numerusform>%n window</numerusform>
            <numerusform>%n windows</numerusform>
        </translation>
    </message>
    <message>
        <source>Running, no window</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Running, %n window(s)</source>
        <translation>
            <numerusform>Running, %n window</numerusform>
            <numerusform>Running, %n windows</numerusform>
        </translation>
    </message>
    <message>
        <source>Choose App</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Apps</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Apps are found by their name, purpose and identifier.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear Search</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No App</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Leave the pane empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search apps</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Search %n app(s)</source>
        <translation>
            <numerusform>Search %n app</numerusform>
            <numerusform>Search %n apps</numerusform>
        </translation>
    </message>
    <message>
        <source>No app is called “%1”</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No apps found.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::AppPickerModel</name>
    <message>
        <source>Running</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All Apps</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::ApplyReport</name>
    <message>
        <source>Close Report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show Why</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane can move no window at all at the moment.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Applied %1 · %2 of %3 placed</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n placed</source>
        <translation>
            <numerusform>%n placed</numerusform>
            <numerusform>%n placed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n pane(s) without an app</source>
        <translation>
            <numerusform>%n pane without an app</numerusform>
            <numerusform>%n panes without an app</numerusform>
        </translation>
    </message>
    <message>
        <source>Change Opening</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change Display</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>was asked for a window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>has changed since</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::BundleUpdater</name>
    <message>
        <source>The update server took too long to answer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update server’s certificate is not trusted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update server has moved to another address.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update server has a problem of its own. Try again later.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update server’s answer was not understood.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update server could not be reached.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This copy of Corvane trusts no updates.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What the update server offers is not signed by those who make Corvane.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update server offers something else than Corvane.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This computer’s clock is behind. Set it right and press Try Again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What the update server says is out of date, so it is not trusted. Try again later.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane runs as the system’s administrator, who cannot update it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder that Corvane is installed in is not yours alone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane is being installed already.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is too little space on the disk.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder that Corvane is installed in cannot be written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What was downloaded is not what those who make Corvane signed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The new version is damaged, so it was not installed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The new version does not run on this computer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The new version did not start.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The part of Corvane that updates it did not work.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The new version is installed. Quit Corvane and open it again to use it.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::CompetitorWatch</name>
    <message>
        <source> and </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is also running</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 are also running</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Two window managers answering the same keys will fight over one window. Quit it from Corvane&apos;s menu.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Two window managers answering the same keys will fight over one window. Quit %1 from Corvane&apos;s menu.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::DisplayCard</name>
    <message>
        <source>Add Column</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Display</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Display and Its Panes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These panes overlap or do not line up, so they are not a grid. Drag an edge on the picture, or replace them:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Columns</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drops the rightmost column; the one before it grows into the space.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drops the bottom row; the one above it grows into the space.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Column</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Row</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Splits the rightmost column in two; nothing else changes width.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Splits the bottom row in two; nothing else changes height.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Row</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replace</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replace this display&apos;s panes with these</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Display · %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Column %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Row %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type a percent and press Return; the next column along absorbs the difference.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type a percent and press Return; the next band along absorbs the difference.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is only one, so it is the whole display.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>5 % is the smallest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1. Numbers only; commas, slashes or spaces between them.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set Column Width</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set Row Height</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replace Panes</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n pane(s) become %1.</source>
        <translation>
            <numerusform>%n pane becomes %1.</numerusform>
            <numerusform>%n panes become %1.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n pane(s) become %1; %2 goes.</source>
        <translation>
            <numerusform>%n pane becomes %1; %2 goes.</numerusform>
            <numerusform>%n panes become %1; %2 goes.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n pane(s) become %1; %2 go.</source>
        <translation>
            <numerusform>%n pane becomes %1; %2 go.</numerusform>
            <numerusform>%n panes become %1; %2 go.</numerusform>
        </translation>
    </message>
    <message>
        <source>Remove Display</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::EmptyBoard</name>
    <message>
        <source>No layouts yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Arrange your windows, then capture them: one shortcut puts the whole desk back, and opens what is not running.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Empty Layout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Capture Current Windows</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::FoldRow</name>
    <message>
        <source>Hides its panes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows its panes</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::GeneralPane</name>
    <message>
        <source>%1 pt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accessibility</source>
        <translation>Window Manager</translation>
    </message>
    <message>
        <source>Accessibility access granted</source>
        <translation>Windows can be moved</translation>
    </message>
    <message>
        <source>Every shortcut and layout is live.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Accessibility Settings</source>
        <translation>Show Why</translation>
    </message>
    <message>
        <source>Corvane needs Accessibility access to move windows</source>
        <translation>Corvane needs a window manager that can move windows</translation>
    </message>
    <message>
        <source>This window notices by itself when that changes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Also Running</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is running</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Two programs that move windows by shortcuts get in each other&apos;s way.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tiling</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gap between windows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The space Corvane leaves at every shared edge and every screen edge.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repeat a shortcut to cycle sizes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A second press of Left Half goes 1/2 → 2/3 → 1/3 and round again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Larger / Smaller step</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>How much each axis grows or shrinks per press.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Theme</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Follow your Mac, or stay light or dark whatever it is set to.</source>
        <translation>Follow your desktop, or stay light or dark whatever it is set to.</translation>
    </message>
    <message>
        <source>Dock and Menu Bar</source>
        <translation>Task Bar and Panel</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Starts Corvane when you log in, so the shortcuts work from the first window.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Login Items</source>
        <translation>Open Startup Applications</translation>
    </message>
    <message>
        <source>Show in the Dock and the app switcher</source>
        <translation>Show in the task bar and the window switcher</translation>
    </message>
    <message>
        <source>Off makes Corvane a menu bar app, out of the Dock and the app switcher ([[⌘⇥]]).</source>
        <translation>Off keeps Corvane’s windows out of the task bar and the window switcher ([[⌥⇥]]).</translation>
    </message>
    <message>
        <source>Show icon in the menu bar</source>
        <translation>Show icon in the panel</translation>
    </message>
    <message>
        <source>Shortcuts keep working without it. Opening Corvane from Applications brings this window back.</source>
        <translation>Shortcuts keep working without it. Starting Corvane again brings this window back.</translation>
    </message>
</context>
<context>
    <name>corvane::LayoutCard</name>
    <message>
        <source>Layout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Revert</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Put this layout back the way it was last saved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep this version to revert to</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Apply</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>More</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Waiting for apps to open, at most %1 seconds.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Apply when these displays connect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change Apply on Connect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Applying…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Made for displays that are not connected.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” comes first for these displays.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::LayoutLibrary</name>
    <message>
        <source>Change of the File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Layout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Capture Current Windows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duplicate Layout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Layout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename Layout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Layout</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::LayoutList</name>
    <message>
        <source>No displays</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2 not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n display(s)</source>
        <translation>
            <numerusform>%n display</numerusform>
            <numerusform>%n displays</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 · matches</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layouts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::LayoutPicture</name>
    <message>
        <source>Percent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Edge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Split Pane</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Pane</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Merge Panes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Swap Panes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Pane</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::LayoutTools</name>
    <message>
        <source>%1 (%2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Split Columns</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Split Rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show on Desktop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show on Desktop (hold Space)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>[[⌃]] no snapping [[⎋]] cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::LayoutsPane</name>
    <message>
        <source>Capture Current Windows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Redo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Empty Layout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deleted “%1”</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This layout has no displays.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use Connected Displays</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose App</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Undo %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No window could be captured.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::LoginItemSwitch</name>
    <message>
        <source>macOS would not add Corvane to Login Items: </source>
        <translation>Corvane could not be set to open at login: </translation>
    </message>
    <message>
        <source>macOS would not take Corvane out of Login Items: </source>
        <translation>Corvane could not be kept from opening at login: </translation>
    </message>
    <message>
        <source>macOS is waiting for you to allow Corvane in System Settings → General → Login Items.</source>
        <translation>Your desktop&apos;s settings keep Corvane from opening at login. Allow it there.</translation>
    </message>
</context>
<context>
    <name>corvane::NoticeStrip</name>
    <message>
        <source>Show in Finder</source>
        <translation>Show in Files</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::Notices</name>
    <message>
        <source>Corvane could not write to %1: %2 Windows are moved all the same.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane could not save to %1: %2 Changes work until Corvane quits.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Report a Problem…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Again</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::OnboardingController</name>
    <message>
        <source>Welcome to Corvane</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::OnboardingView</name>
    <message>
        <source>WELCOME</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>WINDOWS WHERE YOU WANT THEM</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Halves, quarters, thirds and sixths, and layouts that set up a whole desk.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>One shortcut each.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No telemetry, no analytics and no account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Everything stays on this Mac, in files you can read</source>
        <translation>Everything stays on this computer, in files you can read</translation>
    </message>
    <message>
        <source>PERMISSION</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MOVING WINDOWS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moving another app&apos;s windows needs macOS&apos;s Accessibility permission.</source>
        <translation>Moving the windows of other programs takes a window manager that lets it happen, as those of X11 sessions do.</translation>
    </message>
    <message>
        <source>Corvane uses it for nothing else.</source>
        <translation>Corvane asks it for nothing else.</translation>
    </message>
    <message>
        <source>Corvane can move windows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 moves windows for Corvane</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Turn Corvane on in Privacy &amp; Security → %1, then come back. This page notices by itself.</source>
        <translation>What helps stands under %1. This page notices by itself.</translation>
    </message>
    <message>
        <source>Open Settings</source>
        <translation>Show Why</translation>
    </message>
    <message>
        <source>ALSO RUNNING</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ALL CLEAR</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No other window manager is running.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> and </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It answers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>They answer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> the same kind of shortcuts, so two apps would move one window and the last one wins.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use Rectangle&apos;s Shortcuts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SHORTCUTS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A KEY FOR EVERY PLACE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Corvane starts with SizeUp&apos;s shortcuts, so there is nothing to relearn.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> If your hands know Rectangle&apos;s keys, Corvane can use those instead.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change any of them in [Settings → Shortcuts](corvane://settings/shortcuts). Press a half or a third again for 1/2 → 2/3 → 1/3.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Snap Back undoes the last move of any window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Snap Back %1 undoes the last move of any window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Every placement and layout is also in the menu bar icon&apos;s menu</source>
        <translation>Every placement and layout is also in the menu of Corvane&apos;s icon</translation>
    </message>
    <message>
        <source>Every placement and layout is also in the Placements and Layouts menus</source>
        <translation>Every placement and layout is also in the menus of the settings, which open when Corvane is started again</translation>
    </message>
    <message>
        <source>%1: %2 does not work here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: another program holds %2. Free: %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Take It</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Take It for %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Take All That Are Free</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Try It</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>LAYOUTS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A WHOLE DESK, ONE SHORTCUT</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Capture what is on screen now, or draw columns like 40 / 30 / 30 and pick an app for each</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Each layout remembers which displays it was made for: the laptop alone, or the laptop plus the big monitor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Give it a shortcut, or let it apply by itself when those displays connect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Done</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Continue Anyway</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Continue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::PaneCard</name>
    <message>
        <source>Not installed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not running</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pane</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose App…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Any window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change Title</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Title contains</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open when not running</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change Opening</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Display</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change Display</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Empty</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::PaneHead</name>
    <message>
        <source>Saved</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::PaneOverlay</name>
    <message>
        <source>Empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 × %2 %</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::PracticeWindow</name>
    <message>
        <source>Practice Window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press [[%1]] for the left half</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press the same keys again for two thirds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press [[%1]] to undo the last move</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Done: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>That is all there is to it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move this window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Back to the Tour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::ReportContents</name>
    <message>
        <source>Older events were left out.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::ReportDraft</name>
    <message>
        <source>Corvane could not read what you wrote before: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane could not keep what you wrote on the disk: %1 It is kept until Corvane quits.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::ReportForm</name>
    <message>
        <source>Sent with it: Corvane&apos;s version, your macOS version, your Mac&apos;s model, a random install id, and Corvane&apos;s own log of which apps it moved, never what was in their windows.</source>
        <translation>Sent with it: Corvane&apos;s version, your system&apos;s version, your desktop, your computer&apos;s model, a random install id, and Corvane&apos;s own log of which apps it moved, never what was in their windows.</translation>
    </message>
    <message>
        <source>Saved with it: Corvane&apos;s version, your macOS version, your Mac&apos;s model, a random install id, and Corvane&apos;s own log of which apps it moved, never what was in their windows.</source>
        <translation>Saved with it: Corvane&apos;s version, your system&apos;s version, your desktop, your computer&apos;s model, a random install id, and Corvane&apos;s own log of which apps it moved, never what was in their windows.</translation>
    </message>
    <message>
        <source>Show what is sent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show what is saved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane&apos;s log is being read…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What happened?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What you saw</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What you were doing, what you expected, and what Corvane did instead.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>EX: I chose Maximize and the Safari window filled only part of the screen.</source>
        <translation>EX: I chose Maximize and the browser window filled only part of the screen.</translation>
    </message>
</context>
<context>
    <name>corvane::ReportRow</name>
    <message>
        <source>was opened, and is in its place</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>is in its place</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>has no app</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connect %1, or</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 × %2 %</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pane</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::ReportSender</name>
    <message>
        <source>This copy of Corvane does not know where to send reports.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The report server could not be reached.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The report server took too long to answer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The report server’s certificate is not trusted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The report server has moved to another address.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The report is too large for the report server.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The report server has got too many reports lately. Try again later.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The report server has a problem of its own. Try again later.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The report server refused the report (%1).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The report server’s answer was not understood.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The report server’s answer was too long.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The part of Corvane that sends reports did not work.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::ReportSession</name>
    <message>
        <source>This copy of Corvane has no address to send reports to.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It could not be saved to a file, either: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::ReportSheet</name>
    <message>
        <source>Report a Problem</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>REPORT A PROBLEM</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Send</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sending…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saving…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Thanks.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your report number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>If anybody asks about this report, this is the number to give them.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It goes straight to the person building Corvane, with the log that explains it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saved on your Desktop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing is lost</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Everything you wrote, and what Corvane attached, is in this file on your Desktop:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Everything you wrote, and what Corvane attached, is in this file:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open the Report Page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show in Finder</source>
        <translation>Show in Files</translation>
    </message>
    <message>
        <source>Not sent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What you wrote is kept</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy Report puts it, with what Corvane attaches, on the clipboard to paste into a mail.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy Report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copied</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::SearchField</name>
    <message>
        <source>Clear</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::SettingsRail</name>
    <message>
        <source>Panes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Menu</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::SettingsWindow</name>
    <message>
        <source>Corvane Settings</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::ShortcutRecorder</name>
    <message>
        <source>%1 shortcut</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear this shortcut</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ADD [[⌃]] OR [[⌘]]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PRESS KEYS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another program holds these keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Held by %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::ShortcutsPane</name>
    <message numerus="yes">
        <source>%n placements</source>
        <translation>
            <numerusform>%n placement</numerusform>
            <numerusform>%n placements</numerusform>
        </translation>
    </message>
    <message>
        <source>Press the new keys. [[⌫]] clears the row, [[⎋]] cancels.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Custom</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::StatusMenu</name>
    <message>
        <source>Accessibility Is Off: Open Accessibility Settings</source>
        <translation>Windows Cannot Be Moved: Show Why</translation>
    </message>
    <message>
        <source>A Shortcut Is Not Working: Open Shortcuts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shortcuts Are Not Working: Open Shortcuts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 Is Also Running: Quit It</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, </source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Update to Corvane %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check for Updates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About Corvane</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layouts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane Tour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tremor Log</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane Website</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit Corvane</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Report a Problem…</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::StealSheet</name>
    <message>
        <source>Shortcut in Use</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SHORTCUT IN USE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>[[%1]] is currently assigned to %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move it to %1? %2 will be left with no shortcut.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move It</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::TremorLogModel</name>
    <message>
        <source>REFUSED</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>h:mm AP</source>
        <extracomment>The time of a move.</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ddd MMM d</source>
        <extracomment>The date above a day&apos;s moves: weekday, month and day.</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n move(s)</source>
        <translation>
            <numerusform>%n move</numerusform>
            <numerusform>%n moves</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n refused</source>
        <translation>
            <numerusform>%n refused</numerusform>
            <numerusform>%n refused</numerusform>
        </translation>
    </message>
    <message>
        <source>from %1 to %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::TremorLogPane</name>
    <message>
        <source>Every window Corvane moves, and every one an app would not let it move, is written here for thirty days.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moves</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Refused</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filter by app or title</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show in Finder</source>
        <translation>Show in Files</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing matches</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press [[%1]] to move a window to the left half.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No tremors yet</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::UpdateSheet</name>
    <message>
        <source>MMM d, yyyy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane Update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CHECKING</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Looking for a newer Corvane</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading %1 for a newer version.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>UPDATE AVAILABLE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Release Notes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Later</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Install and Relaunch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>UPDATING</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unpacking</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Checking the signature and unpacking.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Installing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corvane closes and opens again as v%1 in a moment.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>UP TO DATE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You have the newest Corvane</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing newer is out. Corvane checks once a day and its menu says when there is.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>UPDATE STOPPED</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update did not finish</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What happened</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The version you have is untouched and keeps working.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What&apos;s New</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loading what&apos;s new…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The notes for this version did not load here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read them on %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Released %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::X11Platform</name>
    <message>
        <source>This is a Wayland session%1, where Corvane can neither move windows nor take shortcuts; it works in Plasma, under sway, and in X11 sessions.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::freedesktop::AutostartEntry</name>
    <message>
        <source>&quot;%1&quot; cannot be written: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be removed: %2.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::freedesktop::Launcher</name>
    <message>
        <source>&quot;%1&quot; is not installed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be opened: there is no terminal for it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be opened: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be opened: its desktop entry cannot be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be opened: its desktop entry describes no application.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be opened: its desktop entry names no program.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be opened: its program is not installed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; shows no more than one window.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::kwin::KWinHotKeys</name>
    <message>
        <source>Shortcut %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the shortcut “%1” of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a change that you made in your desktop&apos;s settings</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::sway</name>
    <message>
        <source>sway&apos;s own binding &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sway does not answer at the socket &quot;%1&quot; that SWAYSOCK names.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::wayland</name>
    <message>
        <source>No Wayland compositor answers at the display &quot;%1&quot; that WAYLAND_DISPLAY names.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The Wayland compositor of this session does not answer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The compositor of this session does not answer, so no window can be moved.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>corvane::x11::X11WindowAccess</name>
    <message>
        <source>No window manager that moves windows for other programs is running.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
