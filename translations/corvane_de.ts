<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Accessibility</name>
    <message>
        <source>Device Control and Data Access</source>
        <translation>Gerätesteuerung und Datenzugriff</translation>
    </message>
    <message>
        <source>Accessibility</source>
        <translation>Fenster bewegen</translation>
    </message>
</context>
<context>
    <name>ActivityEntry</name>
    <message>
        <source>An app</source>
        <translation>Eine Anwendung</translation>
    </message>
    <message>
        <source>is in full screen</source>
        <translation>ist im Vollbild</translation>
    </message>
    <message>
        <source>did not answer (it may be busy)</source>
        <translation>antwortete nicht (vielleicht beschäftigt)</translation>
    </message>
    <message>
        <source>would not let its window move</source>
        <translation>verweigerte die Bewegung</translation>
    </message>
</context>
<context>
    <name>AppStatus</name>
    <message>
        <source>Waiting on Accessibility</source>
        <translation>Wartet auf eine Fensterverwaltung</translation>
    </message>
    <message>
        <source>A shortcut is not working</source>
        <translation>Ein Tastenkürzel funktioniert nicht</translation>
    </message>
    <message>
        <source>%1 is also running</source>
        <translation>%1 läuft ebenfalls</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Bereit</translation>
    </message>
</context>
<context>
    <name>Appearance</name>
    <message>
        <source>Match Mac</source>
        <translation>Wie System</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
</context>
<context>
    <name>DisplayKey</name>
    <message>
        <source>%1 × %2</source>
        <translation>%1 × %2</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <comment>name, size</comment>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>FileError</name>
    <message>
        <source>Permission was denied.</source>
        <translation>Der Zugriff wurde verweigert.</translation>
    </message>
    <message>
        <source>The disk quota is used up.</source>
        <translation>Das Speicherkontingent ist aufgebraucht.</translation>
    </message>
    <message>
        <source>The file would become too large.</source>
        <translation>Die Datei würde zu groß.</translation>
    </message>
    <message>
        <source>The disk reported an error.</source>
        <translation>Der Datenträger hat einen Fehler gemeldet.</translation>
    </message>
    <message>
        <source>There is a folder in its place.</source>
        <translation>An der Stelle der Datei liegt ein Ordner.</translation>
    </message>
    <message>
        <source>It is a link that leads nowhere.</source>
        <translation>Es ist eine Verknüpfung, die ins Leere führt.</translation>
    </message>
    <message>
        <source>It does not exist.</source>
        <translation>Datei oder Ordner existiert nicht.</translation>
    </message>
    <message>
        <source>The disk is full.</source>
        <translation>Der Datenträger ist voll.</translation>
    </message>
    <message>
        <source>Its folder is not a folder.</source>
        <translation>Der übergeordnete Ordner ist kein Ordner.</translation>
    </message>
    <message>
        <source>It is not a regular file.</source>
        <translation>Es ist keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>The disk is read-only.</source>
        <translation>Der Datenträger ist schreibgeschützt.</translation>
    </message>
    <message>
        <source>Another process is writing it.</source>
        <translation>Ein anderer Prozess schreibt gerade in die Datei.</translation>
    </message>
    <message>
        <source>It is larger than %1 MiB.</source>
        <translation>Die Datei ist größer als %1&#xa0;MiB.</translation>
    </message>
</context>
<context>
    <name>Keys</name>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Steuerung</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Caps Lock</source>
        <translation>Feststelltaste</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Escape</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Left Arrow</source>
        <translation>Pfeil nach links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Right Arrow</source>
        <translation>Pfeil nach rechts</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Hoch</translation>
    </message>
    <message>
        <source>Up Arrow</source>
        <translation>Pfeil nach oben</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Runter</translation>
    </message>
    <message>
        <source>Down Arrow</source>
        <translation>Pfeil nach unten</translation>
    </message>
    <message>
        <source>Comma</source>
        <translation>Komma</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>Punkt</translation>
    </message>
    <message>
        <source>Slash</source>
        <translation>Schrägstrich</translation>
    </message>
    <message>
        <source>Backslash</source>
        <translation>Backslash</translation>
    </message>
    <message>
        <source>Semicolon</source>
        <translation>Semikolon</translation>
    </message>
    <message>
        <source>Quote</source>
        <translation>Apostroph</translation>
    </message>
    <message>
        <source>Backquote</source>
        <translation>Gravis</translation>
    </message>
    <message>
        <source>Left Bracket</source>
        <translation>Eckige Klammer auf</translation>
    </message>
    <message>
        <source>Right Bracket</source>
        <translation>Eckige Klammer zu</translation>
    </message>
    <message>
        <source>Minus</source>
        <translation>Minus</translation>
    </message>
    <message>
        <source>Equals</source>
        <translation>Gleich</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>key 114</source>
        <extracomment>Insert</extracomment>
        <translation>Einfg</translation>
    </message>
    <message>
        <source>key 115</source>
        <extracomment>Home</extracomment>
        <translation>Pos1</translation>
    </message>
    <message>
        <source>key 116</source>
        <extracomment>Page Up</extracomment>
        <translation>Bild auf</translation>
    </message>
    <message>
        <source>key 119</source>
        <extracomment>End</extracomment>
        <translation>Ende</translation>
    </message>
    <message>
        <source>key 121</source>
        <extracomment>Page Down</extracomment>
        <translation>Bild ab</translation>
    </message>
    <message>
        <source>key %1</source>
        <translation>Taste %1</translation>
    </message>
</context>
<context>
    <name>LayoutHistory</name>
    <message>
        <source>Revert %1</source>
        <translation>%1 zurücksetzen</translation>
    </message>
</context>
<context>
    <name>LayoutPicture</name>
    <message>
        <source>Add a Pane</source>
        <translation>Feld hinzufügen</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Getrennt</translation>
    </message>
    <message>
        <source>Empty</source>
        <translation>Leer</translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>„%1“</translation>
    </message>
    <message>
        <source>5 % is the smallest</source>
        <translation>5 % ist das Minimum</translation>
    </message>
    <message>
        <source>%1 px</source>
        <translation>%1 px</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Focus</source>
        <translation>Fokussieren</translation>
    </message>
    <message>
        <source>Split Columns</source>
        <translation>In Spalten teilen</translation>
    </message>
    <message>
        <source>Split Rows</source>
        <translation>In Zeilen teilen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Choose App…</source>
        <translation>Anwendung wählen …</translation>
    </message>
    <message>
        <source>Edge between %1 and %2</source>
        <translation>Kante zwischen %1 und %2</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>left</source>
        <translation>links</translation>
    </message>
    <message>
        <source>right</source>
        <translation>rechts</translation>
    </message>
    <message>
        <source>top</source>
        <translation>oben</translation>
    </message>
    <message>
        <source>bottom</source>
        <translation>unten</translation>
    </message>
    <message>
        <source>%1 by %2 percent</source>
        <translation>%1 mal %2 Prozent</translation>
    </message>
</context>
<context>
    <name>LayoutReport</name>
    <message>
        <source>Captured %1 on %2 as “%3”.</source>
        <translation>%1 auf %2 als „%3“ erfasst.</translation>
    </message>
    <message numerus="yes">
        <source>%n window(s)</source>
        <translation>
            <numerusform>%n Fenster</numerusform>
            <numerusform>%n Fenster</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n display(s)</source>
        <translation>
            <numerusform>%n Bildschirm</numerusform>
            <numerusform>%n Bildschirmen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>Corvane</source>
        <translation>Corvane</translation>
    </message>
    <message>
        <source>About Corvane</source>
        <translation>Info zu Corvane</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Hide Corvane</source>
        <translation>Corvane ausblenden</translation>
    </message>
    <message>
        <source>Hide Others</source>
        <translation>Andere ausblenden</translation>
    </message>
    <message>
        <source>Show All</source>
        <translation>Alle anzeigen</translation>
    </message>
    <message>
        <source>Quit Corvane</source>
        <translation>Corvane beenden</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Placements</source>
        <translation>Platzierungen</translation>
    </message>
    <message>
        <source>Layouts</source>
        <translation>Anordnungen</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Corvane Tour</source>
        <translation>Corvane-Tour</translation>
    </message>
    <message>
        <source>Report a Problem…</source>
        <translation>Problem melden …</translation>
    </message>
</context>
<context>
    <name>Menu</name>
    <message>
        <source>made for displays that are not connected</source>
        <translation>für Bildschirme, die nicht angeschlossen sind</translation>
    </message>
    <message>
        <source>Capture Current Windows</source>
        <translation>Aktuelle Fenster erfassen</translation>
    </message>
    <message>
        <source>Edit Layout</source>
        <translation>Anordnung bearbeiten</translation>
    </message>
</context>
<context>
    <name>MenuHeader</name>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>MenuRow</name>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>MoveOutcome</name>
    <message>
        <source>%1 is in full screen.</source>
        <translation>%1 ist im Vollbild.</translation>
    </message>
    <message>
        <source>The window manager tiles this window.</source>
        <translation>Die Fensterverwaltung kachelt dieses Fenster.</translation>
    </message>
    <message>
        <source>The window manager kept this window where it is.</source>
        <translation>Die Fensterverwaltung hat dieses Fenster an seinem Platz gelassen.</translation>
    </message>
    <message>
        <source>The window manager did not answer.</source>
        <translation>Die Fensterverwaltung hat nicht geantwortet.</translation>
    </message>
    <message>
        <source>%1 did not answer. It may be busy.</source>
        <translation>%1 hat nicht geantwortet und ist vielleicht beschäftigt.</translation>
    </message>
    <message>
        <source>%1 would not let its window move.</source>
        <translation>%1 hat die Bewegung des Fensters verweigert.</translation>
    </message>
    <message>
        <source>%1 has no window in front that could be moved.</source>
        <translation>%1 hat im Vordergrund kein Fenster, das sich bewegen lässt.</translation>
    </message>
    <message>
        <source>There is no window in front that could be moved.</source>
        <translation>Im Vordergrund ist kein Fenster, das sich bewegen lässt.</translation>
    </message>
    <message>
        <source>Windows cannot be moved now.</source>
        <translation>Fenster lassen sich gerade nicht bewegen.</translation>
    </message>
    <message>
        <source>Corvane has made no move of this window that it could take back.</source>
        <translation>Es gibt keine Bewegung dieses Fensters, die Corvane zurücknehmen könnte.</translation>
    </message>
    <message>
        <source>Corvane did not see this window open, so it does not know where it was then.</source>
        <translation>Corvane hat dieses Fenster nicht aufgehen sehen und kennt seine ursprüngliche Lage nicht.</translation>
    </message>
    <message>
        <source>There is only one display to be on.</source>
        <translation>Es gibt nur einen Bildschirm.</translation>
    </message>
</context>
<context>
    <name>PaneCure</name>
    <message>
        <source>Apply Again</source>
        <translation>Erneut anwenden</translation>
    </message>
    <message>
        <source>Choose App…</source>
        <translation>Anwendung wählen …</translation>
    </message>
    <message>
        <source>Use Another Display…</source>
        <translation>Anderen Bildschirm verwenden …</translation>
    </message>
    <message>
        <source>Turn On Opening</source>
        <translation>Öffnen einschalten</translation>
    </message>
    <message>
        <source>Change Title…</source>
        <translation>Titel ändern …</translation>
    </message>
    <message>
        <source>Open a Window</source>
        <translation>Fenster öffnen</translation>
    </message>
</context>
<context>
    <name>PaneResult</name>
    <message>
        <source>accessibility not granted</source>
        <translation>Fenster lassen sich gerade nicht bewegen</translation>
    </message>
    <message>
        <source>had no window yet when the next layout was applied</source>
        <translation>hatte noch kein Fenster, als die nächste Anordnung angewendet wurde</translation>
    </message>
    <message>
        <source>its display is not connected</source>
        <translation>der Bildschirm ist nicht angeschlossen</translation>
    </message>
    <message>
        <source>is not installed on this Mac</source>
        <translation>ist auf diesem Rechner nicht installiert</translation>
    </message>
    <message>
        <source>is not running (opening it is off for this pane)</source>
        <translation>läuft nicht (für dieses Feld ist das Öffnen ausgeschaltet)</translation>
    </message>
    <message>
        <source>was opened, and its window is not the one named</source>
        <translation>wurde geöffnet, zeigt aber nicht das genannte Fenster</translation>
    </message>
    <message>
        <source>was opened, and still had no window after 20 seconds</source>
        <translation>wurde geöffnet und hatte nach 20&#xa0;Sekunden noch kein Fenster</translation>
    </message>
    <message>
        <source>is running but has no window to place</source>
        <translation>läuft, hat aber kein Fenster, das sich platzieren lässt</translation>
    </message>
</context>
<context>
    <name>Placement</name>
    <message>
        <source>Left Half</source>
        <translation>Linke Hälfte</translation>
    </message>
    <message>
        <source>Right Half</source>
        <translation>Rechte Hälfte</translation>
    </message>
    <message>
        <source>Top Half</source>
        <translation>Obere Hälfte</translation>
    </message>
    <message>
        <source>Bottom Half</source>
        <translation>Untere Hälfte</translation>
    </message>
    <message>
        <source>Top Left Quarter</source>
        <translation>Viertel oben links</translation>
    </message>
    <message>
        <source>Top Right Quarter</source>
        <translation>Viertel oben rechts</translation>
    </message>
    <message>
        <source>Bottom Left Quarter</source>
        <translation>Viertel unten links</translation>
    </message>
    <message>
        <source>Bottom Right Quarter</source>
        <translation>Viertel unten rechts</translation>
    </message>
    <message>
        <source>Left Third</source>
        <translation>Linkes Drittel</translation>
    </message>
    <message>
        <source>Center Third</source>
        <translation>Mittleres Drittel</translation>
    </message>
    <message>
        <source>Right Third</source>
        <translation>Rechtes Drittel</translation>
    </message>
    <message>
        <source>Left Two Thirds</source>
        <translation>Linke zwei Drittel</translation>
    </message>
    <message>
        <source>Right Two Thirds</source>
        <translation>Rechte zwei Drittel</translation>
    </message>
    <message>
        <source>Top Left Sixth</source>
        <translation>Sechstel oben links</translation>
    </message>
    <message>
        <source>Top Center Sixth</source>
        <translation>Sechstel oben Mitte</translation>
    </message>
    <message>
        <source>Top Right Sixth</source>
        <translation>Sechstel oben rechts</translation>
    </message>
    <message>
        <source>Bottom Left Sixth</source>
        <translation>Sechstel unten links</translation>
    </message>
    <message>
        <source>Bottom Center Sixth</source>
        <translation>Sechstel unten Mitte</translation>
    </message>
    <message>
        <source>Bottom Right Sixth</source>
        <translation>Sechstel unten rechts</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximieren</translation>
    </message>
    <message>
        <source>Almost Maximize</source>
        <translation>Fast maximieren</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>Zentrieren</translation>
    </message>
    <message>
        <source>Larger</source>
        <translation>Größer</translation>
    </message>
    <message>
        <source>Smaller</source>
        <translation>Kleiner</translation>
    </message>
    <message>
        <source>Next Display</source>
        <translation>Nächster Bildschirm</translation>
    </message>
    <message>
        <source>Previous Display</source>
        <translation>Vorheriger Bildschirm</translation>
    </message>
    <message>
        <source>Snap Back</source>
        <translation>Zurückschnappen</translation>
    </message>
    <message>
        <source>Original Orientation</source>
        <translation>Ursprüngliche Lage</translation>
    </message>
    <message>
        <source>Halves</source>
        <translation>Hälften</translation>
    </message>
    <message>
        <source>Quarters</source>
        <translation>Viertel</translation>
    </message>
    <message>
        <source>Thirds</source>
        <translation>Drittel</translation>
    </message>
    <message>
        <source>Sixths</source>
        <translation>Sechstel</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>Bildschirm</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Displays</source>
        <translation>Bildschirmwechsel</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
</context>
<context>
    <name>ReportFile</name>
    <message>
        <source>“%1” exists already.</source>
        <translation>„%1“ gibt es schon.</translation>
    </message>
    <message>
        <source>“%1” was not written. %2</source>
        <translation>„%1“ wurde nicht geschrieben. %2</translation>
    </message>
    <message>
        <source>Its folder does not exist.</source>
        <translation>Den Ordner dafür gibt es nicht.</translation>
    </message>
</context>
<context>
    <name>SettingsPane</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Layouts</source>
        <translation>Anordnungen</translation>
    </message>
    <message>
        <source>Tremor Log</source>
        <translation>Bebenprotokoll</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
</context>
<context>
    <name>Shortcuts</name>
    <message>
        <source>; refused by macOS or another app: </source>
        <translation>; von Arbeitsumgebung oder anderer Anwendung abgelehnt: </translation>
    </message>
    <message>
        <source>%1 (%2) is held by another program.</source>
        <translation>%1 (%2) ist von einem anderen Programm belegt.</translation>
    </message>
    <message>
        <source>%1 (%2) needs a key that this keyboard lacks.</source>
        <translation>%1 (%2) braucht eine Taste, die dieser Tastatur fehlt.</translation>
    </message>
    <message>
        <source>%1 (%2) does not work: nothing answered when it was asked for.</source>
        <translation>%1 (%2) funktioniert nicht: Auf die Anforderung kam keine Antwort.</translation>
    </message>
    <message>
        <source>%1 (%2) is held by %3.</source>
        <translation>%1 (%2) ist belegt: %3.</translation>
    </message>
</context>
<context>
    <name>StatusIcon</name>
    <message>
        <source>Corvane</source>
        <translation>Corvane</translation>
    </message>
    <message>
        <source>Corvane, needs attention</source>
        <translation>Corvane braucht Aufmerksamkeit</translation>
    </message>
    <message>
        <source>The status icon could not be written to %1: %2.</source>
        <translation>Das Statussymbol konnte nicht in %1 geschrieben werden: %2.</translation>
    </message>
</context>
<context>
    <name>StoreProblem</name>
    <message>
        <source>Corvane could not read some of your layouts in %1, so those it had stay.</source>
        <translation>Corvane konnte einige Anordnungen in %1 nicht lesen, daher bleiben die bisherigen.</translation>
    </message>
    <message>
        <source>Corvane could not read some of your settings in %1, so those in force stay.</source>
        <translation>Corvane konnte einige Einstellungen in %1 nicht lesen, daher bleiben die geltenden.</translation>
    </message>
    <message>
        <source>Corvane could not read some of your layouts in %1, so it used defaults for them.</source>
        <translation>Corvane konnte einige Anordnungen in %1 nicht lesen, daher gelten für sie die Vorgaben.</translation>
    </message>
    <message>
        <source>Corvane could not read some of your settings in %1, so it used defaults for them.</source>
        <translation>Corvane konnte einige Einstellungen in %1 nicht lesen, daher gelten für sie die Vorgaben.</translation>
    </message>
    <message>
        <source>The old file is kept in %1 as %2.</source>
        <translation>Die alte Datei liegt in %1 als %2.</translation>
    </message>
</context>
<context>
    <name>StoredJson</name>
    <message>
        <source>It is not JSON from its byte %1 on: %2.</source>
        <translation>Ab Byte %1 ist der Inhalt kein JSON: %2.</translation>
    </message>
    <message>
        <source>Its brackets are not those of what it should hold.</source>
        <translation>Die Klammern passen nicht zum erwarteten Inhalt.</translation>
    </message>
    <message>
        <source>Values in it that cannot be used: %1.</source>
        <translation>Unbrauchbare Werte darin: %1.</translation>
    </message>
</context>
<context>
    <name>UpdateDriver</name>
    <message>
        <source>The download from %1 stopped part way. Check the Mac is online and press Try Again.</source>
        <translation>Das Herunterladen von %1 brach ab. Prüfen Sie, ob dieser Computer online ist, und drücken Sie „Nochmals versuchen“.</translation>
    </message>
</context>
<context>
    <name>UpdateStatus</name>
    <message>
        <source>Checking…</source>
        <translation>Wird geprüft …</translation>
    </message>
    <message>
        <source>v%1 is available.</source>
        <translation>v%1 ist verfügbar.</translation>
    </message>
    <message>
        <source>You&apos;re up to date.</source>
        <translation>Sie haben die neueste Version.</translation>
    </message>
    <message>
        <source>The update server could not be reached.</source>
        <translation>Der Aktualisierungsserver ist nicht erreichbar.</translation>
    </message>
    <message>
        <source>Not checked since Corvane opened.</source>
        <translation>Seit dem Start von Corvane nicht geprüft.</translation>
    </message>
    <message>
        <source>Not checked yet.</source>
        <translation>Noch nicht geprüft.</translation>
    </message>
    <message>
        <source>h:mm AP</source>
        <translation>HH:mm</translation>
    </message>
    <message>
        <source>Last check: Today, %1</source>
        <translation>Letzte Prüfung: heute, %1</translation>
    </message>
    <message>
        <source>Last check: Yesterday, %1</source>
        <translation>Letzte Prüfung: gestern, %1</translation>
    </message>
    <message>
        <source>MMM d</source>
        <translation>d. MMM</translation>
    </message>
    <message>
        <source>Last check: %1, %2</source>
        <translation>Letzte Prüfung: %1, %2</translation>
    </message>
</context>
<context>
    <name>WindowLayout</name>
    <message>
        <source>No displays</source>
        <translation>Keine Bildschirme</translation>
    </message>
</context>
<context>
    <name>corvane::AboutPane</name>
    <message>
        <source>Checking</source>
        <translation>Wird geprüft</translation>
    </message>
    <message>
        <source>The update server could not be reached.</source>
        <translation>Der Aktualisierungsserver ist nicht erreichbar.</translation>
    </message>
    <message>
        <source>%1 is yours to install.</source>
        <translation>%1 kann installiert werden.</translation>
    </message>
    <message>
        <source>WINDOWS WHERE YOU WANT THEM</source>
        <translation>JEDES FENSTER AN SEINEM PLATZ</translation>
    </message>
    <message>
        <source>Corvane Website</source>
        <translation>Corvane-Website</translation>
    </message>
    <message>
        <source>Corvane Tour</source>
        <translation>Corvane-Tour</translation>
    </message>
    <message>
        <source>Your Data</source>
        <translation>Ihre Daten</translation>
    </message>
    <message>
        <source>What Leaves This Mac</source>
        <translation>Was diesen Rechner verlässt</translation>
    </message>
    <message>
        <source>No telemetry, no analytics, no account.</source>
        <translation>Keine Telemetrie, keine Auswertung, kein Konto.</translation>
    </message>
    <message>
        <source>Show in Finder</source>
        <translation>In Dateien anzeigen</translation>
    </message>
    <message>
        <source>Everything else stays on this Mac, as readable files.</source>
        <translation>Alles andere bleibt auf diesem Rechner, in lesbaren Dateien.</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Aktualisierungen</translation>
    </message>
    <message>
        <source>Running v%1</source>
        <translation>Installiert: v%1</translation>
    </message>
    <message>
        <source>Check Now</source>
        <translation>Jetzt prüfen</translation>
    </message>
    <message>
        <source>Install…</source>
        <translation>Installieren&#xa0;…</translation>
    </message>
    <message>
        <source>Check for updates automatically</source>
        <translation>Automatisch nach Aktualisierungen suchen</translation>
    </message>
    <message>
        <source>Once a day. The menu says when there is one.</source>
        <translation>Einmal am Tag. Das Menü meldet, wenn es eine gibt.</translation>
    </message>
    <message>
        <source>Not checked yet</source>
        <translation>Noch nicht geprüft</translation>
    </message>
    <message>
        <source>You&apos;re up to date.</source>
        <translation>Alles ist aktuell.</translation>
    </message>
    <message>
        <source> · checked %1</source>
        <translation> · geprüft: %1</translation>
    </message>
    <message>
        <source>Report a Problem…</source>
        <translation>Problem melden …</translation>
    </message>
    <message>
        <source> · automatic checks are off</source>
        <translation> · automatische Prüfungen sind aus</translation>
    </message>
    <message>
        <source>MMM d</source>
        <translation>d. MMM</translation>
    </message>
    <message>
        <source> · last checked %1</source>
        <translation> · zuletzt geprüft %1</translation>
    </message>
    <message>
        <source>This copy came as a Flatpak, so its maker updates it.</source>
        <translation>Diese Kopie kam als Flatpak, also aktualisiert sie, wer es gemacht hat.</translation>
    </message>
    <message>
        <source>This copy came as a Flatpak from %1, who updates it.</source>
        <translation>Diese Kopie kam als Flatpak von %1 und wird von dort aktualisiert.</translation>
    </message>
    <message>
        <source>This copy came as an AppImage, so its maker updates it.</source>
        <translation>Diese Kopie kam als AppImage, also aktualisiert sie, wer es gemacht hat.</translation>
    </message>
    <message>
        <source>This copy came as an AppImage from %1, who updates it.</source>
        <translation>Diese Kopie kam als AppImage von %1 und wird von dort aktualisiert.</translation>
    </message>
    <message>
        <source>Built from source</source>
        <translation>Aus den Quellen gebaut</translation>
    </message>
    <message>
        <source>This copy is not in the Applications folder, so it cannot update itself. Move it there and open it again.</source>
        <translation>Diese Kopie ist nicht installiert, also kann sie sich nicht selbst aktualisieren. Installieren Sie sie und öffnen Sie sie wieder.</translation>
    </message>
    <message>
        <source>This build has no updater.</source>
        <translation>Diese Kopie aktualisiert sich nicht selbst.</translation>
    </message>
    <message>
        <source>This copy came with a package, so your package manager updates it.</source>
        <translation>Diese Kopie kam mit einem Paket, also aktualisiert sie Ihre Paketverwaltung.</translation>
    </message>
    <message>
        <source>Open Software</source>
        <translation>Software öffnen</translation>
    </message>
    <message>
        <source>Copy Command</source>
        <translation>Befehl kopieren</translation>
    </message>
</context>
<context>
    <name>corvane::AppDelegate</name>
    <message>
        <source>No program opened the link</source>
        <translation>Kein Programm hat den Link geöffnet</translation>
    </message>
    <message>
        <source>“%1” was not applied</source>
        <translation>„%1“ wurde nicht angewendet</translation>
    </message>
    <message>
        <source>There is no layout of this name any more.</source>
        <translation>Es gibt keine Anordnung dieses Namens mehr.</translation>
    </message>
    <message>
        <source>Nothing was captured</source>
        <translation>Nichts erfasst</translation>
    </message>
    <message>
        <source>Layout</source>
        <translation>Anordnung</translation>
    </message>
    <message>
        <source>Windows captured</source>
        <translation>Fenster erfasst</translation>
    </message>
    <message>
        <source>They come back from Corvane&apos;s menu, under Layouts.</source>
        <translation>Das Menü von Corvane stellt sie unter „Anordnungen“ wieder her.</translation>
    </message>
    <message>
        <source>“%1” is not complete</source>
        <translation>„%1“ ist nicht vollständig</translation>
    </message>
    <message>
        <source>Corvane, needs attention</source>
        <translation>Corvane braucht Aufmerksamkeit</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
    <message>
        <source>No window could be captured.</source>
        <translation>Es ließ sich kein Fenster erfassen.</translation>
    </message>
    <message>
        <source>Corvane did not quit the last time that it ran. If it failed, a report helps to mend it.</source>
        <translation>Corvane wurde beim letzten Mal nicht beendet. Wenn es abgestürzt ist, hilft ein Bericht, den Fehler zu beheben.</translation>
    </message>
    <message>
        <source>Another version of Corvane was installed. Open Corvane again to use it.</source>
        <translation>Eine andere Version von Corvane wurde installiert. Öffnen Sie Corvane neu, um sie zu verwenden.</translation>
    </message>
    <message>
        <source>Corvane cannot show that</source>
        <translation>Corvane kann das nicht zeigen</translation>
    </message>
</context>
<context>
    <name>corvane::AppModel</name>
    <message>
        <source>the “%1” layout</source>
        <translation>Anordnung „%1“</translation>
    </message>
    <message>
        <source>untitled</source>
        <translation>unbenannt</translation>
    </message>
    <message>
        <source>Change Shortcut</source>
        <translation>Tastenkürzel ändern</translation>
    </message>
    <message>
        <source>%1 belongs to %2, so %3 has no shortcut now.</source>
        <translation>%1 ist schon belegt (%2). %3 hat daher kein Tastenkürzel mehr.</translation>
    </message>
</context>
<context>
    <name>corvane::AppPicker</name>
    <message numerus="yes">
        <source>%n window(s)</source>
        <translation>
            <numerusform>%n Fenster</numerusform>
            <numerusform>%n Fenster</numerusform>
        </translation>
    </message>
    <message>
        <source>Running, no window</source>
        <translation>Läuft, kein Fenster</translation>
    </message>
    <message numerus="yes">
        <source>Running, %n window(s)</source>
        <translation>
            <numerusform>Läuft, %n Fenster</numerusform>
            <numerusform>Läuft, %n Fenster</numerusform>
        </translation>
    </message>
    <message>
        <source>Choose App</source>
        <translation>Anwendung wählen</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>Anwendungen</translation>
    </message>
    <message>
        <source>Apps are found by their name, purpose and identifier.</source>
        <translation>Gesucht wird nach Name, Zweck und Kennung.</translation>
    </message>
    <message>
        <source>Clear Search</source>
        <translation>Suche leeren</translation>
    </message>
    <message>
        <source>No App</source>
        <translation>Keine Anwendung</translation>
    </message>
    <message>
        <source>Leave the pane empty</source>
        <translation>Das Feld leer lassen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Choose</source>
        <translation>Wählen</translation>
    </message>
    <message>
        <source>Search apps</source>
        <translation>Anwendungen suchen</translation>
    </message>
    <message numerus="yes">
        <source>Search %n app(s)</source>
        <translation>
            <numerusform>%n Anwendung durchsuchen</numerusform>
            <numerusform>%n Anwendungen durchsuchen</numerusform>
        </translation>
    </message>
    <message>
        <source>No app is called “%1”</source>
        <translation>Keine Anwendung heißt „%1“</translation>
    </message>
    <message>
        <source>No apps found.</source>
        <translation>Keine Anwendungen gefunden.</translation>
    </message>
</context>
<context>
    <name>corvane::AppPickerModel</name>
    <message>
        <source>Running</source>
        <translation>Laufend</translation>
    </message>
    <message>
        <source>All Apps</source>
        <translation>Alle Anwendungen</translation>
    </message>
</context>
<context>
    <name>corvane::ApplyReport</name>
    <message>
        <source>Close Report</source>
        <translation>Bericht schließen</translation>
    </message>
    <message>
        <source>Show Why</source>
        <translation>Grund anzeigen</translation>
    </message>
    <message>
        <source>Corvane can move no window at all at the moment.</source>
        <translation>Corvane kann im Moment überhaupt kein Fenster bewegen.</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>Bericht</translation>
    </message>
    <message>
        <source>Applied %1 · %2 of %3 placed</source>
        <translation>Angewendet um %1 · %2 von %3 platziert</translation>
    </message>
    <message numerus="yes">
        <source>%n placed</source>
        <translation>
            <numerusform>%n platziert</numerusform>
            <numerusform>%n platziert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n pane(s) without an app</source>
        <translation>
            <numerusform>%n Feld ohne Anwendung</numerusform>
            <numerusform>%n Felder ohne Anwendung</numerusform>
        </translation>
    </message>
    <message>
        <source>Change Opening</source>
        <translation>Öffnen ändern</translation>
    </message>
    <message>
        <source>Change Display</source>
        <translation>Bildschirm ändern</translation>
    </message>
    <message>
        <source>was asked for a window</source>
        <translation>wurde um ein Fenster gebeten</translation>
    </message>
    <message>
        <source>has changed since</source>
        <translation>hat sich inzwischen geändert</translation>
    </message>
</context>
<context>
    <name>corvane::BundleUpdater</name>
    <message>
        <source>The update server took too long to answer.</source>
        <translation>Der Aktualisierungsserver hat zu lange nicht geantwortet.</translation>
    </message>
    <message>
        <source>The update server’s certificate is not trusted.</source>
        <translation>Dem Zertifikat des Aktualisierungsservers wird nicht vertraut.</translation>
    </message>
    <message>
        <source>The update server has moved to another address.</source>
        <translation>Der Aktualisierungsserver ist an eine andere Adresse gezogen.</translation>
    </message>
    <message>
        <source>The update server has a problem of its own. Try again later.</source>
        <translation>Der Aktualisierungsserver hat selbst ein Problem. Versuchen Sie es später nochmals.</translation>
    </message>
    <message>
        <source>The update server’s answer was not understood.</source>
        <translation>Die Antwort des Aktualisierungsservers wurde nicht verstanden.</translation>
    </message>
    <message>
        <source>The update server could not be reached.</source>
        <translation>Der Aktualisierungsserver ist nicht erreichbar.</translation>
    </message>
    <message>
        <source>This copy of Corvane trusts no updates.</source>
        <translation>Diese Kopie von Corvane vertraut keinen Aktualisierungen.</translation>
    </message>
    <message>
        <source>What the update server offers is not signed by those who make Corvane.</source>
        <translation>Was der Aktualisierungsserver anbietet, ist nicht von denen unterschrieben, die Corvane machen.</translation>
    </message>
    <message>
        <source>The update server offers something else than Corvane.</source>
        <translation>Der Aktualisierungsserver bietet etwas anderes als Corvane an.</translation>
    </message>
    <message>
        <source>This computer’s clock is behind. Set it right and press Try Again.</source>
        <translation>Die Uhr dieses Computers geht nach. Stellen Sie sie und drücken Sie „Nochmals versuchen“.</translation>
    </message>
    <message>
        <source>What the update server says is out of date, so it is not trusted. Try again later.</source>
        <translation>Was der Aktualisierungsserver sagt, ist veraltet, also wird ihm nicht vertraut. Versuchen Sie es später nochmals.</translation>
    </message>
    <message>
        <source>Corvane runs as the system’s administrator, who cannot update it.</source>
        <translation>Corvane läuft als Verwalter des Systems, der es nicht aktualisieren kann.</translation>
    </message>
    <message>
        <source>The folder that Corvane is installed in is not yours alone.</source>
        <translation>Der Ordner, in dem Corvane installiert ist, gehört nicht Ihnen allein.</translation>
    </message>
    <message>
        <source>Corvane is being installed already.</source>
        <translation>Corvane wird gerade schon installiert.</translation>
    </message>
    <message>
        <source>There is too little space on the disk.</source>
        <translation>Auf der Platte ist zu wenig Platz.</translation>
    </message>
    <message>
        <source>The folder that Corvane is installed in cannot be written.</source>
        <translation>In den Ordner, in dem Corvane installiert ist, kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>What was downloaded is not what those who make Corvane signed.</source>
        <translation>Was heruntergeladen wurde, ist nicht, was die unterschrieben haben, die Corvane machen.</translation>
    </message>
    <message>
        <source>The new version is damaged, so it was not installed.</source>
        <translation>Die neue Version ist beschädigt, also wurde sie nicht installiert.</translation>
    </message>
    <message>
        <source>The new version does not run on this computer.</source>
        <translation>Die neue Version läuft auf diesem Computer nicht.</translation>
    </message>
    <message>
        <source>The new version did not start.</source>
        <translation>Die neue Version ist nicht gestartet.</translation>
    </message>
    <message>
        <source>The part of Corvane that updates it did not work.</source>
        <translation>Der Teil von Corvane, der es aktualisiert, hat nicht funktioniert.</translation>
    </message>
    <message>
        <source>The new version is installed. Quit Corvane and open it again to use it.</source>
        <translation>Die neue Version ist installiert. Beenden Sie Corvane und öffnen Sie es wieder, um sie zu verwenden.</translation>
    </message>
</context>
<context>
    <name>corvane::CompetitorWatch</name>
    <message>
        <source> and </source>
        <translation> und </translation>
    </message>
    <message>
        <source>%1 is also running</source>
        <translation>%1 läuft ebenfalls</translation>
    </message>
    <message>
        <source>%1 are also running</source>
        <translation>%1 laufen ebenfalls</translation>
    </message>
    <message>
        <source>Two window managers answering the same keys will fight over one window. Quit it from Corvane&apos;s menu.</source>
        <translation>Zwei Programme, die auf dieselben Tasten hören, streiten sich um ein Fenster. Das andere lässt sich im Menü von Corvane beenden.</translation>
    </message>
    <message>
        <source>Two window managers answering the same keys will fight over one window. Quit %1 from Corvane&apos;s menu.</source>
        <translation>Zwei Programme, die auf dieselben Tasten hören, streiten sich um ein Fenster. %1 lassen sich im Menü von Corvane beenden.</translation>
    </message>
</context>
<context>
    <name>corvane::DisplayCard</name>
    <message>
        <source>Add Column</source>
        <translation>Spalte hinzufügen</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>Bildschirm</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Getrennt</translation>
    </message>
    <message>
        <source>Remove Display and Its Panes</source>
        <translation>Bildschirm mit seinen Feldern entfernen</translation>
    </message>
    <message>
        <source>These panes overlap or do not line up, so they are not a grid. Drag an edge on the picture, or replace them:</source>
        <translation>Diese Felder überlappen sich oder liegen nicht in einer Flucht und sind daher kein Raster. Im Bild eine Kante ziehen oder die Felder ersetzen:</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>Spalten</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>Drops the rightmost column; the one before it grows into the space.</source>
        <translation>Entfernt die Spalte ganz rechts; die davor wächst in ihren Platz.</translation>
    </message>
    <message>
        <source>Drops the bottom row; the one above it grows into the space.</source>
        <translation>Entfernt die unterste Zeile; die darüber wächst in ihren Platz.</translation>
    </message>
    <message>
        <source>Remove Column</source>
        <translation>Spalte entfernen</translation>
    </message>
    <message>
        <source>Remove Row</source>
        <translation>Zeile entfernen</translation>
    </message>
    <message>
        <source>Splits the rightmost column in two; nothing else changes width.</source>
        <translation>Teilt die Spalte ganz rechts in zwei; alle anderen behalten ihre Breite.</translation>
    </message>
    <message>
        <source>Splits the bottom row in two; nothing else changes height.</source>
        <translation>Teilt die unterste Zeile in zwei; alle anderen behalten ihre Höhe.</translation>
    </message>
    <message>
        <source>Add Row</source>
        <translation>Zeile hinzufügen</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Replace this display&apos;s panes with these</source>
        <translation>Felder dieses Bildschirms damit ersetzen</translation>
    </message>
    <message>
        <source>Display · %1</source>
        <translation>Bildschirm · %1</translation>
    </message>
    <message>
        <source>Column %1</source>
        <translation>Spalte %1</translation>
    </message>
    <message>
        <source>Row %1</source>
        <translation>Zeile %1</translation>
    </message>
    <message>
        <source>Type a percent and press Return; the next column along absorbs the difference.</source>
        <translation>Prozentwert eingeben und die Eingabetaste drücken; die nächste Spalte gleicht den Unterschied aus.</translation>
    </message>
    <message>
        <source>Type a percent and press Return; the next band along absorbs the difference.</source>
        <translation>Prozentwert eingeben und die Eingabetaste drücken; die nächste Zeile gleicht den Unterschied aus.</translation>
    </message>
    <message>
        <source>There is only one, so it is the whole display.</source>
        <translation>Es gibt nur eine, also ist sie der ganze Bildschirm.</translation>
    </message>
    <message>
        <source>5 % is the smallest</source>
        <translation>5 % ist das Minimum</translation>
    </message>
    <message>
        <source>%1. Numbers only; commas, slashes or spaces between them.</source>
        <translation>%1. Nur Zahlen, dazwischen Kommas, Schrägstriche oder Leerzeichen.</translation>
    </message>
    <message>
        <source>Set Column Width</source>
        <translation>Spaltenbreite festlegen</translation>
    </message>
    <message>
        <source>Set Row Height</source>
        <translation>Zeilenhöhe festlegen</translation>
    </message>
    <message>
        <source>Replace Panes</source>
        <translation>Felder ersetzen</translation>
    </message>
    <message numerus="yes">
        <source>%n pane(s) become %1.</source>
        <translation>
            <numerusform>Aus %n Feld werden %1.</numerusform>
            <numerusform>Aus %n Feldern werden %1.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n pane(s) become %1; %2 goes.</source>
        <translation>
            <numerusform>Aus %n Feld werden %1; %2 fällt weg.</numerusform>
            <numerusform>Aus %n Feldern werden %1; %2 fällt weg.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n pane(s) become %1; %2 go.</source>
        <translation>
            <numerusform>Aus %n Feld werden %1; %2 fallen weg.</numerusform>
            <numerusform>Aus %n Feldern werden %1; %2 fallen weg.</numerusform>
        </translation>
    </message>
    <message>
        <source>Remove Display</source>
        <translation>Bildschirm entfernen</translation>
    </message>
</context>
<context>
    <name>corvane::EmptyBoard</name>
    <message>
        <source>No layouts yet</source>
        <translation>Noch keine Anordnungen</translation>
    </message>
    <message>
        <source>Arrange your windows, then capture them: one shortcut puts the whole desk back, and opens what is not running.</source>
        <translation>Fenster anordnen und erfassen: Ein Tastenkürzel stellt alles wieder her und öffnet, was nicht läuft.</translation>
    </message>
    <message>
        <source>New Empty Layout</source>
        <translation>Neue leere Anordnung</translation>
    </message>
    <message>
        <source>Capture Current Windows</source>
        <translation>Aktuelle Fenster erfassen</translation>
    </message>
</context>
<context>
    <name>corvane::FoldRow</name>
    <message>
        <source>Hides its panes</source>
        <translation>Blendet ihre Felder aus</translation>
    </message>
    <message>
        <source>Shows its panes</source>
        <translation>Blendet ihre Felder ein</translation>
    </message>
</context>
<context>
    <name>corvane::GeneralPane</name>
    <message>
        <source>%1 pt</source>
        <translation>%1&#xa0;pt</translation>
    </message>
    <message>
        <source>Accessibility</source>
        <translation>Fensterverwaltung</translation>
    </message>
    <message>
        <source>Accessibility access granted</source>
        <translation>Fenster lassen sich bewegen</translation>
    </message>
    <message>
        <source>Every shortcut and layout is live.</source>
        <translation>Alle Tastenkürzel und Anordnungen sind aktiv.</translation>
    </message>
    <message>
        <source>Open Accessibility Settings</source>
        <translation>Grund anzeigen</translation>
    </message>
    <message>
        <source>Corvane needs Accessibility access to move windows</source>
        <translation>Corvane braucht eine Fensterverwaltung, die Fenster bewegen kann</translation>
    </message>
    <message>
        <source>This window notices by itself when that changes.</source>
        <translation>Ändert sich das, merkt es dieses Fenster von selbst.</translation>
    </message>
    <message>
        <source>Also Running</source>
        <translation>Läuft ebenfalls</translation>
    </message>
    <message>
        <source>Quit %1</source>
        <translation>%1 beenden</translation>
    </message>
    <message>
        <source>%1 is running</source>
        <translation>%1 läuft</translation>
    </message>
    <message>
        <source>Two programs that move windows by shortcuts get in each other&apos;s way.</source>
        <translation>Zwei Programme, die Fenster per Tastenkürzel bewegen, kommen sich in die Quere.</translation>
    </message>
    <message>
        <source>Tiling</source>
        <translation>Kacheln</translation>
    </message>
    <message>
        <source>Gap between windows</source>
        <translation>Abstand zwischen Fenstern</translation>
    </message>
    <message>
        <source>The space Corvane leaves at every shared edge and every screen edge.</source>
        <translation>Der Platz, den Corvane an gemeinsamen Kanten und Bildschirmrändern frei lässt.</translation>
    </message>
    <message>
        <source>Repeat a shortcut to cycle sizes</source>
        <translation>Wiederholtes Drücken wechselt die Größe</translation>
    </message>
    <message>
        <source>A second press of Left Half goes 1/2 → 2/3 → 1/3 and round again.</source>
        <translation>„Linke Hälfte“ noch einmal gedrückt: 1/2 → 2/3 → 1/3 und wieder von vorn.</translation>
    </message>
    <message>
        <source>Larger / Smaller step</source>
        <translation>Schritt für Größer / Kleiner</translation>
    </message>
    <message>
        <source>How much each axis grows or shrinks per press.</source>
        <translation>So viel ändern sich Breite und Höhe pro Tastendruck.</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Erscheinungsbild</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Farbschema</translation>
    </message>
    <message>
        <source>Follow your Mac, or stay light or dark whatever it is set to.</source>
        <translation>Der Arbeitsumgebung folgen oder immer hell oder dunkel bleiben.</translation>
    </message>
    <message>
        <source>Dock and Menu Bar</source>
        <translation>Taskleiste und Infobereich</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>Starts Corvane when you log in, so the shortcuts work from the first window.</source>
        <translation>Startet Corvane bei der Anmeldung, damit Tastenkürzel ab dem ersten Fenster wirken.</translation>
    </message>
    <message>
        <source>Open Login Items</source>
        <translation>Autostart öffnen</translation>
    </message>
    <message>
        <source>Show in the Dock and the app switcher</source>
        <translation>In Taskleiste und Fensterwechsler anzeigen</translation>
    </message>
    <message>
        <source>Off makes Corvane a menu bar app, out of the Dock and the app switcher ([[⌘⇥]]).</source>
        <translation>Ausgeschaltet erscheint Corvane weder in der Taskleiste noch im Fensterwechsler ([[⌥⇥]]).</translation>
    </message>
    <message>
        <source>Show icon in the menu bar</source>
        <translation>Symbol im Infobereich anzeigen</translation>
    </message>
    <message>
        <source>Shortcuts keep working without it. Opening Corvane from Applications brings this window back.</source>
        <translation>Tastenkürzel funktionieren auch ohne Symbol. Ein erneuter Start von Corvane bringt dieses Fenster zurück.</translation>
    </message>
</context>
<context>
    <name>corvane::LayoutCard</name>
    <message>
        <source>Layout</source>
        <translation>Anordnung</translation>
    </message>
    <message>
        <source>Revert</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Put this layout back the way it was last saved</source>
        <translation>Diese Anordnung auf den zuletzt gespeicherten Stand zurücksetzen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Keep this version to revert to</source>
        <translation>Diesen Stand speichern, um zu ihm zurückkehren zu können</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>Waiting for apps to open, at most %1 seconds.</source>
        <translation>Wartet darauf, dass Anwendungen aufgehen, höchstens %1 Sekunden.</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Apply when these displays connect</source>
        <translation>Beim Anschließen dieser Bildschirme anwenden</translation>
    </message>
    <message>
        <source>Change Apply on Connect</source>
        <translation>Anwenden beim Anschließen ändern</translation>
    </message>
    <message>
        <source>Applying…</source>
        <translation>Wird angewendet …</translation>
    </message>
    <message>
        <source>Made for displays that are not connected.</source>
        <translation>Für Bildschirme, die nicht angeschlossen sind.</translation>
    </message>
    <message>
        <source>“%1” comes first for these displays.</source>
        <translation>Für diese Bildschirme kommt „%1“ zuerst.</translation>
    </message>
</context>
<context>
    <name>corvane::LayoutLibrary</name>
    <message>
        <source>Change of the File</source>
        <translation>Änderung der Datei</translation>
    </message>
    <message>
        <source>Layout</source>
        <translation>Anordnung</translation>
    </message>
    <message>
        <source>New Layout</source>
        <translation>Neue Anordnung</translation>
    </message>
    <message>
        <source>Capture Current Windows</source>
        <translation>Aktuelle Fenster erfassen</translation>
    </message>
    <message>
        <source>Duplicate Layout</source>
        <translation>Anordnung duplizieren</translation>
    </message>
    <message>
        <source>Delete Layout</source>
        <translation>Anordnung löschen</translation>
    </message>
    <message>
        <source>Rename Layout</source>
        <translation>Anordnung umbenennen</translation>
    </message>
    <message>
        <source>Move Layout</source>
        <translation>Anordnung verschieben</translation>
    </message>
</context>
<context>
    <name>corvane::LayoutList</name>
    <message>
        <source>No displays</source>
        <translation>Keine Bildschirme</translation>
    </message>
    <message>
        <source>%1 of %2 not connected</source>
        <translation>%1 von %2 getrennt</translation>
    </message>
    <message numerus="yes">
        <source>%n display(s)</source>
        <translation>
            <numerusform>%n Bildschirm</numerusform>
            <numerusform>%n Bildschirme</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 · matches</source>
        <translation>%1 · passt</translation>
    </message>
    <message>
        <source>Layouts</source>
        <translation>Anordnungen</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>corvane::LayoutPicture</name>
    <message>
        <source>Percent</source>
        <translation>Prozent</translation>
    </message>
    <message>
        <source>%1, picture</source>
        <translation>%1, Bild</translation>
    </message>
    <message>
        <source>Move Edge</source>
        <translation>Kante verschieben</translation>
    </message>
    <message>
        <source>Split Pane</source>
        <translation>Feld teilen</translation>
    </message>
    <message>
        <source>Remove Pane</source>
        <translation>Feld entfernen</translation>
    </message>
    <message>
        <source>Merge Panes</source>
        <translation>Felder verbinden</translation>
    </message>
    <message>
        <source>Swap Panes</source>
        <translation>Felder tauschen</translation>
    </message>
    <message>
        <source>Add Pane</source>
        <translation>Feld hinzufügen</translation>
    </message>
</context>
<context>
    <name>corvane::LayoutTools</name>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Split Columns</source>
        <translation>In Spalten teilen</translation>
    </message>
    <message>
        <source>Split Rows</source>
        <translation>In Zeilen teilen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Show on Desktop</source>
        <translation>Auf dem Bildschirm zeigen</translation>
    </message>
    <message>
        <source>Show on Desktop (hold Space)</source>
        <translation>Auf dem Bildschirm zeigen (Leertaste halten)</translation>
    </message>
    <message>
        <source>[[⌃]] no snapping [[⎋]] cancel</source>
        <translation>[[⌃]] ohne Einrasten [[⎋]] abbrechen</translation>
    </message>
</context>
<context>
    <name>corvane::LayoutsPane</name>
    <message>
        <source>Capture Current Windows</source>
        <translation>Aktuelle Fenster erfassen</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>New Empty Layout</source>
        <translation>Neue leere Anordnung</translation>
    </message>
    <message>
        <source>Deleted “%1”</source>
        <translation>„%1“ gelöscht</translation>
    </message>
    <message>
        <source>This layout has no displays.</source>
        <translation>Diese Anordnung hat keine Bildschirme.</translation>
    </message>
    <message>
        <source>Use Connected Displays</source>
        <translation>Angeschlossene Bildschirme verwenden</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Choose App</source>
        <translation>Anwendung wählen</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <translation>Rückgängig: %1</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>Wiederholen: %1</translation>
    </message>
    <message>
        <source>No window could be captured.</source>
        <translation>Es ließ sich kein Fenster erfassen.</translation>
    </message>
</context>
<context>
    <name>corvane::LoginItemSwitch</name>
    <message>
        <source>macOS would not add Corvane to Login Items: </source>
        <translation>Corvane ließ sich nicht in den Autostart aufnehmen: </translation>
    </message>
    <message>
        <source>macOS would not take Corvane out of Login Items: </source>
        <translation>Corvane ließ sich nicht aus dem Autostart entfernen: </translation>
    </message>
    <message>
        <source>macOS is waiting for you to allow Corvane in System Settings → General → Login Items.</source>
        <translation>Die Einstellungen der Arbeitsumgebung verhindern den Start bei der Anmeldung. Bitte dort erlauben.</translation>
    </message>
</context>
<context>
    <name>corvane::NoticeStrip</name>
    <message>
        <source>Show in Finder</source>
        <translation>In Dateien anzeigen</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>corvane::Notices</name>
    <message>
        <source>Corvane could not write to %1: %2 Windows are moved all the same.</source>
        <translation>Corvane konnte nicht in %1 schreiben: %2 Fenster werden trotzdem bewegt.</translation>
    </message>
    <message>
        <source>Corvane could not save to %1: %2 Changes work until Corvane quits.</source>
        <translation>Corvane konnte nicht in %1 speichern: %2 Änderungen gelten, bis Corvane beendet wird.</translation>
    </message>
    <message>
        <source>Report a Problem…</source>
        <translation>Problem melden …</translation>
    </message>
    <message>
        <source>Open Again</source>
        <translation>Neu öffnen</translation>
    </message>
</context>
<context>
    <name>corvane::OnboardingController</name>
    <message>
        <source>Welcome to Corvane</source>
        <translation>Willkommen bei Corvane</translation>
    </message>
</context>
<context>
    <name>corvane::OnboardingView</name>
    <message>
        <source>WELCOME</source>
        <translation>WILLKOMMEN</translation>
    </message>
    <message>
        <source>WINDOWS WHERE YOU WANT THEM</source>
        <translation>JEDES FENSTER AN SEINEM PLATZ</translation>
    </message>
    <message>
        <source>Halves, quarters, thirds and sixths, and layouts that set up a whole desk.</source>
        <translation>Hälften, Viertel, Drittel und Sechstel, und Layouts, die einen ganzen Schreibtisch einrichten.</translation>
    </message>
    <message>
        <source>One shortcut each.</source>
        <translation>Mit je einem Tastenkürzel.</translation>
    </message>
    <message>
        <source>No telemetry, no analytics and no account</source>
        <translation>Keine Telemetrie, keine Analyse und kein Konto</translation>
    </message>
    <message>
        <source>Everything stays on this Mac, in files you can read</source>
        <translation>Alles bleibt auf diesem Computer, in Dateien, die Sie lesen können</translation>
    </message>
    <message>
        <source>PERMISSION</source>
        <translation>ERLAUBNIS</translation>
    </message>
    <message>
        <source>MOVING WINDOWS</source>
        <translation>FENSTER BEWEGEN</translation>
    </message>
    <message>
        <source>Moving another app&apos;s windows needs macOS&apos;s Accessibility permission.</source>
        <translation>Um Fenster anderer Programme zu bewegen, braucht es einen Fenstermanager, der das zulässt, wie ihn X11-Sitzungen haben.</translation>
    </message>
    <message>
        <source>Corvane uses it for nothing else.</source>
        <translation>Um mehr bittet Corvane ihn nicht.</translation>
    </message>
    <message>
        <source>Corvane can move windows</source>
        <translation>Corvane kann Fenster bewegen</translation>
    </message>
    <message>
        <source>%1 moves windows for Corvane</source>
        <translation>%1 bewegt Fenster für Corvane</translation>
    </message>
    <message>
        <source>Turn Corvane on in Privacy &amp; Security → %1, then come back. This page notices by itself.</source>
        <translation>Was hilft, steht unter %1. Diese Seite bemerkt es von selbst.</translation>
    </message>
    <message>
        <source>Open Settings</source>
        <translation>Gründe zeigen</translation>
    </message>
    <message>
        <source>ALSO RUNNING</source>
        <translation>LÄUFT AUCH</translation>
    </message>
    <message>
        <source>ALL CLEAR</source>
        <translation>ALLES KLAR</translation>
    </message>
    <message>
        <source>No other window manager is running.</source>
        <translation>Kein anderes Programm dieser Art läuft.</translation>
    </message>
    <message>
        <source> and </source>
        <translation> und </translation>
    </message>
    <message>
        <source>It answers</source>
        <translation>Es hört auf</translation>
    </message>
    <message>
        <source>They answer</source>
        <translation>Sie hören auf</translation>
    </message>
    <message>
        <source> the same kind of shortcuts, so two apps would move one window and the last one wins.</source>
        <translation> dieselbe Art von Tastenkürzeln, sodass zwei Programme ein Fenster bewegen würden und das letzte gewinnt.</translation>
    </message>
    <message>
        <source>Use Rectangle&apos;s Shortcuts</source>
        <translation>Tastenkürzel von Rectangle verwenden</translation>
    </message>
    <message>
        <source>SHORTCUTS</source>
        <translation>TASTENKÜRZEL</translation>
    </message>
    <message>
        <source>A KEY FOR EVERY PLACE</source>
        <translation>EINE TASTE FÜR JEDEN PLATZ</translation>
    </message>
    <message>
        <source> Corvane starts with SizeUp&apos;s shortcuts, so there is nothing to relearn.</source>
        <translation> Corvane beginnt mit den Tastenkürzeln von SizeUp, sodass es nichts umzulernen gibt.</translation>
    </message>
    <message>
        <source> If your hands know Rectangle&apos;s keys, Corvane can use those instead.</source>
        <translation> Wenn Ihre Hände die Tasten von Rectangle kennen, kann Corvane auch diese verwenden.</translation>
    </message>
    <message>
        <source>Change any of them in [Settings → Shortcuts](corvane://settings/shortcuts). Press a half or a third again for 1/2 → 2/3 → 1/3.</source>
        <translation>Ändern Sie sie in [Einstellungen → Tastenkürzel](corvane://settings/shortcuts). Drücken Sie eine Hälfte oder ein Drittel nochmals für 1/2 → 2/3 → 1/3.</translation>
    </message>
    <message>
        <source>Snap Back undoes the last move of any window</source>
        <translation>Zurückschnappen macht die letzte Bewegung jedes Fensters rückgängig</translation>
    </message>
    <message>
        <source>Snap Back %1 undoes the last move of any window</source>
        <translation>Zurückschnappen %1 macht die letzte Bewegung jedes Fensters rückgängig</translation>
    </message>
    <message>
        <source>Every placement and layout is also in the menu bar icon&apos;s menu</source>
        <translation>Alle Plätze und Layouts stehen auch im Menü von Corvanes Symbol</translation>
    </message>
    <message>
        <source>Every placement and layout is also in the Placements and Layouts menus</source>
        <translation>Alle Plätze und Layouts stehen auch in den Menüs der Einstellungen, die sich öffnen, wenn Corvane nochmals gestartet wird</translation>
    </message>
    <message>
        <source>%1: %2 does not work here.</source>
        <translation>%1: %2 geht hier nicht.</translation>
    </message>
    <message>
        <source>%1: another program holds %2. Free: %3</source>
        <translation>%1: ein anderes Programm belegt %2. Frei: %3</translation>
    </message>
    <message>
        <source>Take It</source>
        <translation>Nehmen</translation>
    </message>
    <message>
        <source>Take It for %1</source>
        <translation>Nehmen für %1</translation>
    </message>
    <message>
        <source>Take All That Are Free</source>
        <translation>Alle freien nehmen</translation>
    </message>
    <message>
        <source>Try It</source>
        <translation>Ausprobieren</translation>
    </message>
    <message>
        <source>LAYOUTS</source>
        <translation>LAYOUTS</translation>
    </message>
    <message>
        <source>A WHOLE DESK, ONE SHORTCUT</source>
        <translation>EIN GANZER SCHREIBTISCH, EIN TASTENKÜRZEL</translation>
    </message>
    <message>
        <source>Capture what is on screen now, or draw columns like 40 / 30 / 30 and pick an app for each</source>
        <translation>Nehmen Sie auf, was jetzt auf dem Bildschirm ist, oder zeichnen Sie Spalten wie 40 / 30 / 30 und wählen Sie für jede ein Programm</translation>
    </message>
    <message>
        <source>Each layout remembers which displays it was made for: the laptop alone, or the laptop plus the big monitor</source>
        <translation>Jedes Layout merkt sich, für welche Bildschirme es gemacht ist: den Laptop allein, oder den Laptop mit dem großen Monitor</translation>
    </message>
    <message>
        <source>Give it a shortcut, or let it apply by itself when those displays connect</source>
        <translation>Geben Sie ihm ein Tastenkürzel, oder lassen Sie es von selbst anwenden, wenn diese Bildschirme verbunden werden</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Continue Anyway</source>
        <translation>Trotzdem weiter</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Quit %1</source>
        <translation>%1 beenden</translation>
    </message>
</context>
<context>
    <name>corvane::PaneCard</name>
    <message>
        <source>Not installed</source>
        <translation>Nicht installiert</translation>
    </message>
    <message>
        <source>Not running</source>
        <translation>Läuft nicht</translation>
    </message>
    <message>
        <source>Pane</source>
        <translation>Feld</translation>
    </message>
    <message>
        <source>Choose App…</source>
        <translation>Anwendung wählen …</translation>
    </message>
    <message>
        <source>Any window</source>
        <translation>Beliebiges Fenster</translation>
    </message>
    <message>
        <source>Change Title</source>
        <translation>Titel ändern</translation>
    </message>
    <message>
        <source>Title contains</source>
        <translation>Titel enthält</translation>
    </message>
    <message>
        <source>Open when not running</source>
        <translation>Öffnen, falls nicht gestartet</translation>
    </message>
    <message>
        <source>Change Opening</source>
        <translation>Öffnen ändern</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>Bildschirm</translation>
    </message>
    <message>
        <source>Change Display</source>
        <translation>Bildschirm ändern</translation>
    </message>
    <message>
        <source>Empty</source>
        <translation>Leer</translation>
    </message>
</context>
<context>
    <name>corvane::PaneHead</name>
    <message>
        <source>Saved</source>
        <translation>Gespeichert</translation>
    </message>
</context>
<context>
    <name>corvane::PaneOverlay</name>
    <message>
        <source>Empty</source>
        <translation>Leer</translation>
    </message>
    <message>
        <source>%1 × %2 %</source>
        <translation>%1 × %2 %</translation>
    </message>
</context>
<context>
    <name>corvane::PracticeWindow</name>
    <message>
        <source>Practice Window</source>
        <translation>Übungsfenster</translation>
    </message>
    <message>
        <source>Press [[%1]] for the left half</source>
        <translation>[[%1]] für die linke Hälfte drücken</translation>
    </message>
    <message>
        <source>Press the same keys again for two thirds</source>
        <translation>Dieselben Tasten nochmals für zwei Drittel</translation>
    </message>
    <message>
        <source>Press [[%1]] to undo the last move</source>
        <translation>[[%1]] macht die letzte Bewegung rückgängig</translation>
    </message>
    <message>
        <source>Done: %1</source>
        <translation>Erledigt: %1</translation>
    </message>
    <message>
        <source>That is all there is to it</source>
        <translation>Mehr ist es nicht</translation>
    </message>
    <message>
        <source>Move this window</source>
        <translation>Bewegen Sie dieses Fenster</translation>
    </message>
    <message>
        <source>Back to the Tour</source>
        <translation>Zurück zur Tour</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>corvane::ReportContents</name>
    <message>
        <source>Older events were left out.</source>
        <translation>Ältere Ereignisse wurden weggelassen.</translation>
    </message>
</context>
<context>
    <name>corvane::ReportDraft</name>
    <message>
        <source>Corvane could not read what you wrote before: %1</source>
        <translation>Corvane konnte nicht lesen, was Sie vorher geschrieben haben: %1</translation>
    </message>
    <message>
        <source>Corvane could not keep what you wrote on the disk: %1 It is kept until Corvane quits.</source>
        <translation>Corvane konnte Ihren Text nicht auf der Platte sichern: %1 Er bleibt erhalten, bis Corvane beendet wird.</translation>
    </message>
</context>
<context>
    <name>corvane::ReportForm</name>
    <message>
        <source>Sent with it: Corvane&apos;s version, your macOS version, your Mac&apos;s model, a random install id, and Corvane&apos;s own log of which apps it moved, never what was in their windows.</source>
        <translation>Mitgeschickt werden: die Versionen von Corvane und Ihrem System, Ihr Desktop, das Modell Ihres Computers, eine zufällige Kennung der Installation und Corvanes eigenes Protokoll, welche Programme es bewegt hat, nie, was in deren Fenstern war.</translation>
    </message>
    <message>
        <source>Saved with it: Corvane&apos;s version, your macOS version, your Mac&apos;s model, a random install id, and Corvane&apos;s own log of which apps it moved, never what was in their windows.</source>
        <translation>Mitgesichert werden: die Versionen von Corvane und Ihrem System, Ihr Desktop, das Modell Ihres Computers, eine zufällige Kennung der Installation und Corvanes eigenes Protokoll, welche Programme es bewegt hat, nie, was in deren Fenstern war.</translation>
    </message>
    <message>
        <source>Show what is sent</source>
        <translation>Zeigen, was gesendet wird</translation>
    </message>
    <message>
        <source>Show what is saved</source>
        <translation>Zeigen, was gesichert wird</translation>
    </message>
    <message>
        <source>Corvane&apos;s log is being read…</source>
        <translation>Corvanes Protokoll wird gelesen …</translation>
    </message>
    <message>
        <source>What happened?</source>
        <translation>Was ist passiert?</translation>
    </message>
    <message>
        <source>What you saw</source>
        <translation>Was Sie gesehen haben</translation>
    </message>
    <message>
        <source>What you were doing, what you expected, and what Corvane did instead.</source>
        <translation>Was Sie getan haben, was Sie erwartet haben, und was Corvane stattdessen getan hat.</translation>
    </message>
    <message>
        <source>EX: I chose Maximize and the Safari window filled only part of the screen.</source>
        <translation>BSP.: Ich habe Maximieren gewählt, und das Browserfenster hat nur einen Teil des Bildschirms gefüllt.</translation>
    </message>
</context>
<context>
    <name>corvane::ReportRow</name>
    <message>
        <source>was opened, and is in its place</source>
        <translation>wurde geöffnet und ist am Platz</translation>
    </message>
    <message>
        <source>is in its place</source>
        <translation>ist am Platz</translation>
    </message>
    <message>
        <source>has no app</source>
        <translation>hat keine Anwendung</translation>
    </message>
    <message>
        <source>Connect %1, or</source>
        <translation>%1 anschließen oder</translation>
    </message>
    <message>
        <source>%1 × %2 %</source>
        <translation>%1 × %2 %</translation>
    </message>
    <message>
        <source>Pane</source>
        <translation>Feld</translation>
    </message>
</context>
<context>
    <name>corvane::ReportSender</name>
    <message>
        <source>This copy of Corvane does not know where to send reports.</source>
        <translation>Diese Ausgabe von Corvane weiß nicht, wohin sie Berichte senden soll.</translation>
    </message>
    <message>
        <source>The report server could not be reached.</source>
        <translation>Der Server für Berichte war nicht zu erreichen.</translation>
    </message>
    <message>
        <source>The report server took too long to answer.</source>
        <translation>Der Server für Berichte hat zu lange nicht geantwortet.</translation>
    </message>
    <message>
        <source>The report server’s certificate is not trusted.</source>
        <translation>Dem Zertifikat des Servers für Berichte ist nicht zu trauen.</translation>
    </message>
    <message>
        <source>The report server has moved to another address.</source>
        <translation>Der Server für Berichte ist an eine andere Adresse umgezogen.</translation>
    </message>
    <message>
        <source>The report is too large for the report server.</source>
        <translation>Der Bericht ist dem Server für Berichte zu groß.</translation>
    </message>
    <message>
        <source>The report server has got too many reports lately. Try again later.</source>
        <translation>Der Server für Berichte hat zuletzt zu viele bekommen. Später gelingt es vielleicht.</translation>
    </message>
    <message>
        <source>The report server has a problem of its own. Try again later.</source>
        <translation>Der Server für Berichte hat selbst ein Problem. Später gelingt es vielleicht.</translation>
    </message>
    <message>
        <source>The report server refused the report (%1).</source>
        <translation>Der Server für Berichte hat den Bericht abgelehnt (%1).</translation>
    </message>
    <message>
        <source>The report server’s answer was not understood.</source>
        <translation>Die Antwort des Servers für Berichte war nicht zu verstehen.</translation>
    </message>
    <message>
        <source>The report server’s answer was too long.</source>
        <translation>Die Antwort des Servers für Berichte war zu lang.</translation>
    </message>
    <message>
        <source>The part of Corvane that sends reports did not work.</source>
        <translation>Der Teil von Corvane, der Berichte sendet, hat versagt.</translation>
    </message>
</context>
<context>
    <name>corvane::ReportSession</name>
    <message>
        <source>This copy of Corvane has no address to send reports to.</source>
        <translation>Diese Kopie von Corvane hat keine Adresse, an die sie Berichte senden könnte.</translation>
    </message>
    <message>
        <source>It could not be saved to a file, either: %1</source>
        <translation>Er konnte auch nicht in einer Datei gesichert werden: %1</translation>
    </message>
</context>
<context>
    <name>corvane::ReportSheet</name>
    <message>
        <source>Report a Problem</source>
        <translation>Problem melden</translation>
    </message>
    <message>
        <source>REPORT A PROBLEM</source>
        <translation>PROBLEM MELDEN</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Senden</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Sichern</translation>
    </message>
    <message>
        <source>Sending…</source>
        <translation>Wird gesendet …</translation>
    </message>
    <message>
        <source>Saving…</source>
        <translation>Wird gesichert …</translation>
    </message>
    <message>
        <source>Sent</source>
        <translation>Gesendet</translation>
    </message>
    <message>
        <source>Thanks.</source>
        <translation>Danke.</translation>
    </message>
    <message>
        <source>Your report number</source>
        <translation>Die Nummer Ihres Berichts</translation>
    </message>
    <message>
        <source>If anybody asks about this report, this is the number to give them.</source>
        <translation>Wenn jemand nach diesem Bericht fragt, ist dies seine Nummer.</translation>
    </message>
    <message>
        <source>It goes straight to the person building Corvane, with the log that explains it.</source>
        <translation>Er geht direkt an die Person, die Corvane baut, mit dem Protokoll, das ihn erklärt.</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Saved on your Desktop</source>
        <translation>Auf Ihrem Schreibtisch gesichert</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>Gesichert</translation>
    </message>
    <message>
        <source>Nothing is lost</source>
        <translation>Nichts ist verloren</translation>
    </message>
    <message>
        <source>Everything you wrote, and what Corvane attached, is in this file on your Desktop:</source>
        <translation>Alles, was Sie geschrieben haben, und was Corvane beigefügt hat, steht in dieser Datei auf Ihrem Schreibtisch:</translation>
    </message>
    <message>
        <source>Everything you wrote, and what Corvane attached, is in this file:</source>
        <translation>Alles, was Sie geschrieben haben, und was Corvane beigefügt hat, steht in dieser Datei:</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Open the Report Page</source>
        <translation>Seite für Berichte öffnen</translation>
    </message>
    <message>
        <source>Show in Finder</source>
        <translation>In Dateien zeigen</translation>
    </message>
    <message>
        <source>Not sent</source>
        <translation>Nicht gesendet</translation>
    </message>
    <message>
        <source>What you wrote is kept</source>
        <translation>Ihr Text bleibt erhalten</translation>
    </message>
    <message>
        <source>Copy Report puts it, with what Corvane attaches, on the clipboard to paste into a mail.</source>
        <translation>„Bericht kopieren“ legt ihn mit dem, was Corvane beifügt, in die Zwischenablage, für eine E-Mail.</translation>
    </message>
    <message>
        <source>Copy Report</source>
        <translation>Bericht kopieren</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Nochmals versuchen</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
</context>
<context>
    <name>corvane::SearchField</name>
    <message>
        <source>Clear</source>
        <translation>Zurücksetzen</translation>
    </message>
</context>
<context>
    <name>corvane::SettingsRail</name>
    <message>
        <source>Panes</source>
        <translation>Bereiche</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
</context>
<context>
    <name>corvane::SettingsWindow</name>
    <message>
        <source>Corvane Settings</source>
        <translation>Corvane-Einstellungen</translation>
    </message>
</context>
<context>
    <name>corvane::ShortcutRecorder</name>
    <message>
        <source>%1 shortcut</source>
        <translation>Tastenkürzel für %1</translation>
    </message>
    <message>
        <source>Clear this shortcut</source>
        <translation>Dieses Tastenkürzel löschen</translation>
    </message>
    <message>
        <source>ADD [[⌃]] OR [[⌘]]</source>
        <translation>MIT [[⌃]] ODER [[⌘]]</translation>
    </message>
    <message>
        <source>PRESS KEYS</source>
        <translation>TASTEN DRÜCKEN</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keines</translation>
    </message>
    <message>
        <source>Another program holds these keys</source>
        <translation>Ein anderes Programm belegt diese Tasten</translation>
    </message>
    <message>
        <source>Held by %1</source>
        <translation>Belegt: %1</translation>
    </message>
</context>
<context>
    <name>corvane::ShortcutsPane</name>
    <message numerus="yes">
        <source>%n placements</source>
        <translation>
            <numerusform>%n Platzierung</numerusform>
            <numerusform>%n Platzierungen</numerusform>
        </translation>
    </message>
    <message>
        <source>Press the new keys. [[⌫]] clears the row, [[⎋]] cancels.</source>
        <translation>Neue Tasten drücken. [[⌫]] leert die Zeile, [[⎋]] bricht ab.</translation>
    </message>
    <message>
        <source>Preset</source>
        <translation>Vorlage</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Eigene</translation>
    </message>
</context>
<context>
    <name>corvane::StatusMenu</name>
    <message>
        <source>Accessibility Is Off: Open Accessibility Settings</source>
        <translation>Fenster lassen sich nicht bewegen: Grund anzeigen</translation>
    </message>
    <message>
        <source>A Shortcut Is Not Working: Open Shortcuts</source>
        <translation>Ein Tastenkürzel funktioniert nicht: Anzeigen</translation>
    </message>
    <message>
        <source>Shortcuts Are Not Working: Open Shortcuts</source>
        <translation>Tastenkürzel funktionieren nicht: Anzeigen</translation>
    </message>
    <message>
        <source>%1 Is Also Running: Quit It</source>
        <translation>%1 läuft ebenfalls: Beenden</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 und %n weiteres</numerusform>
            <numerusform>%1 und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>Update to Corvane %1</source>
        <translation>Auf Corvane %1 aktualisieren</translation>
    </message>
    <message>
        <source>Check for Updates</source>
        <translation>Nach Aktualisierungen suchen</translation>
    </message>
    <message>
        <source>About Corvane</source>
        <translation>Info zu Corvane</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Layouts</source>
        <translation>Anordnungen</translation>
    </message>
    <message>
        <source>Corvane Tour</source>
        <translation>Corvane-Tour</translation>
    </message>
    <message>
        <source>Tremor Log</source>
        <translation>Bebenprotokoll</translation>
    </message>
    <message>
        <source>Corvane Website</source>
        <translation>Corvane-Website</translation>
    </message>
    <message>
        <source>Quit Corvane</source>
        <translation>Corvane beenden</translation>
    </message>
    <message>
        <source>Report a Problem…</source>
        <translation>Problem melden …</translation>
    </message>
</context>
<context>
    <name>corvane::StealSheet</name>
    <message>
        <source>Shortcut in Use</source>
        <translation>Tastenkürzel belegt</translation>
    </message>
    <message>
        <source>SHORTCUT IN USE</source>
        <translation>TASTENKÜRZEL BELEGT</translation>
    </message>
    <message>
        <source>[[%1]] is currently assigned to %2.</source>
        <translation>[[%1]] ist schon belegt: %2.</translation>
    </message>
    <message>
        <source>Move it to %1? %2 will be left with no shortcut.</source>
        <translation>Auf %1 übertragen? %2 hat dann kein Tastenkürzel mehr.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Move It</source>
        <translation>Übertragen</translation>
    </message>
</context>
<context>
    <name>corvane::TremorLogModel</name>
    <message>
        <source>REFUSED</source>
        <translation>VERWEIGERT</translation>
    </message>
    <message>
        <source>h:mm AP</source>
        <extracomment>The time of a move.</extracomment>
        <translation>HH:mm</translation>
    </message>
    <message>
        <source>ddd MMM d</source>
        <extracomment>The date above a day&apos;s moves: weekday, month and day.</extracomment>
        <translation>ddd, d. MMM</translation>
    </message>
    <message numerus="yes">
        <source>%n move(s)</source>
        <translation>
            <numerusform>%n Bewegung</numerusform>
            <numerusform>%n Bewegungen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n refused</source>
        <translation>
            <numerusform>%n verweigert</numerusform>
            <numerusform>%n verweigert</numerusform>
        </translation>
    </message>
    <message>
        <source>from %1 to %2</source>
        <translation>von %1 nach %2</translation>
    </message>
</context>
<context>
    <name>corvane::TremorLogPane</name>
    <message>
        <source>Every window Corvane moves, and every one an app would not let it move, is written here for thirty days.</source>
        <translation>Jedes Fenster, das Corvane bewegt, und jedes, dessen Bewegung eine Anwendung verweigert, steht hier dreißig Tage lang.</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Moves</source>
        <translation>Bewegt</translation>
    </message>
    <message>
        <source>Refused</source>
        <translation>Verweigert</translation>
    </message>
    <message>
        <source>Filter by app or title</source>
        <translation>Nach Anwendung oder Titel filtern</translation>
    </message>
    <message>
        <source>Show in Finder</source>
        <translation>In Dateien anzeigen</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Nothing matches</source>
        <translation>Keine Treffer</translation>
    </message>
    <message>
        <source>Press [[%1]] to move a window to the left half.</source>
        <translation>[[%1]] bewegt ein Fenster in die linke Hälfte.</translation>
    </message>
    <message>
        <source>No tremors yet</source>
        <translation>Noch kein Beben</translation>
    </message>
</context>
<context>
    <name>corvane::UpdateSheet</name>
    <message>
        <source>MMM d, yyyy</source>
        <translation>d. MMM yyyy</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <source>Corvane Update</source>
        <translation>Corvane-Aktualisierung</translation>
    </message>
    <message>
        <source>CHECKING</source>
        <translation>WIRD GEPRÜFT</translation>
    </message>
    <message>
        <source>Looking for a newer Corvane</source>
        <translation>Suche nach einem neueren Corvane</translation>
    </message>
    <message>
        <source>Reading %1 for a newer version.</source>
        <translation>Auf %1 wird nach einer neueren Version gesehen.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>UPDATE AVAILABLE</source>
        <translation>AKTUALISIERUNG VERFÜGBAR</translation>
    </message>
    <message>
        <source>Release Notes</source>
        <translation>Versionshinweise</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>Install and Relaunch</source>
        <translation>Installieren und neu starten</translation>
    </message>
    <message>
        <source>UPDATING</source>
        <translation>AKTUALISIERUNG</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>Wird heruntergeladen</translation>
    </message>
    <message>
        <source>Unpacking</source>
        <translation>Wird entpackt</translation>
    </message>
    <message>
        <source>Checking the signature and unpacking.</source>
        <translation>Die Unterschrift wird geprüft und das Archiv entpackt.</translation>
    </message>
    <message>
        <source>Installing</source>
        <translation>Wird installiert</translation>
    </message>
    <message>
        <source>Corvane closes and opens again as v%1 in a moment.</source>
        <translation>Corvane schließt sich und öffnet sich gleich wieder als v%1.</translation>
    </message>
    <message>
        <source>UP TO DATE</source>
        <translation>AKTUELL</translation>
    </message>
    <message>
        <source>You have the newest Corvane</source>
        <translation>Sie haben das neueste Corvane</translation>
    </message>
    <message>
        <source>Nothing newer is out. Corvane checks once a day and its menu says when there is.</source>
        <translation>Es gibt nichts Neueres. Corvane prüft einmal am Tag, und sein Menü sagt, wenn es etwas gibt.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>UPDATE STOPPED</source>
        <translation>AKTUALISIERUNG ABGEBROCHEN</translation>
    </message>
    <message>
        <source>The update did not finish</source>
        <translation>Die Aktualisierung wurde nicht fertig</translation>
    </message>
    <message>
        <source>What happened</source>
        <translation>Was geschehen ist</translation>
    </message>
    <message>
        <source>The version you have is untouched and keeps working.</source>
        <translation>Die Version, die Sie haben, ist unverändert und arbeitet weiter.</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Nochmals versuchen</translation>
    </message>
    <message>
        <source>What&apos;s New</source>
        <translation>Neuerungen</translation>
    </message>
    <message>
        <source>Loading what&apos;s new…</source>
        <translation>Die Neuerungen werden geladen …</translation>
    </message>
    <message>
        <source>The notes for this version did not load here.</source>
        <translation>Die Hinweise zu dieser Version konnten hier nicht geladen werden.</translation>
    </message>
    <message>
        <source>Read them on %1</source>
        <translation>Auf %1 lesen</translation>
    </message>
    <message>
        <source>Released %1</source>
        <translation>Veröffentlicht am %1</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>corvane::X11Platform</name>
    <message>
        <source>This is a Wayland session%1, where Corvane can neither move windows nor take shortcuts; it works in Plasma, under sway, and in X11 sessions.</source>
        <translation>Dies ist eine Wayland-Sitzung%1, in der Corvane weder Fenster bewegen noch Kurzbefehle annehmen kann; es arbeitet in Plasma, unter sway und in X11-Sitzungen.</translation>
    </message>
</context>
<context>
    <name>corvane::freedesktop::AutostartEntry</name>
    <message>
        <source>&quot;%1&quot; cannot be written: %2.</source>
        <translation>„%1“ kann nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be removed: %2.</source>
        <translation>„%1“ kann nicht entfernt werden: %2.</translation>
    </message>
</context>
<context>
    <name>corvane::freedesktop::Launcher</name>
    <message>
        <source>&quot;%1&quot; shows no more than one window.</source>
        <translation>„%1“ zeigt nicht mehr als ein Fenster.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not installed.</source>
        <translation>„%1“ ist nicht installiert.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be opened: there is no terminal for it.</source>
        <translation>„%1“ kann nicht geöffnet werden: Es gibt kein Terminal dafür.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be opened: %2.</source>
        <translation>„%1“ kann nicht geöffnet werden: %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be opened: its desktop entry cannot be read.</source>
        <translation>„%1“ kann nicht geöffnet werden: Der Desktop-Eintrag ist nicht lesbar.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be opened: its desktop entry describes no application.</source>
        <translation>„%1“ kann nicht geöffnet werden: Der Desktop-Eintrag beschreibt keine Anwendung.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be opened: its desktop entry names no program.</source>
        <translation>„%1“ kann nicht geöffnet werden: Der Desktop-Eintrag nennt kein Programm.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be opened: its program is not installed.</source>
        <translation>„%1“ kann nicht geöffnet werden: Das Programm ist nicht installiert.</translation>
    </message>
</context>
<context>
    <name>corvane::kwin::KWinHotKeys</name>
    <message>
        <source>Shortcut %1</source>
        <translation>Kurzbefehl %1</translation>
    </message>
    <message>
        <source>the shortcut “%1” of %2</source>
        <translation>der Kurzbefehl „%1“ von %2</translation>
    </message>
    <message>
        <source>a change that you made in your desktop&apos;s settings</source>
        <translation>eine Änderung in den Einstellungen Ihrer Arbeitsumgebung</translation>
    </message>
</context>
<context>
    <name>corvane::sway</name>
    <message>
        <source>sway&apos;s own binding &quot;%1&quot;</source>
        <translation>die eigene Tastenbelegung von sway „%1“</translation>
    </message>
    <message>
        <source>sway does not answer at the socket &quot;%1&quot; that SWAYSOCK names.</source>
        <translation>sway antwortet nicht am Socket „%1“, den SWAYSOCK nennt.</translation>
    </message>
</context>
<context>
    <name>corvane::wayland</name>
    <message>
        <source>No Wayland compositor answers at the display &quot;%1&quot; that WAYLAND_DISPLAY names.</source>
        <translation>Kein Wayland-Compositor antwortet an der Anzeige „%1“, die WAYLAND_DISPLAY nennt.</translation>
    </message>
    <message>
        <source>The Wayland compositor of this session does not answer.</source>
        <translation>Der Wayland-Compositor dieser Sitzung antwortet nicht.</translation>
    </message>
    <message>
        <source>The compositor of this session does not answer, so no window can be moved.</source>
        <translation>Der Compositor dieser Sitzung antwortet nicht, also kann kein Fenster bewegt werden.</translation>
    </message>
</context>
<context>
    <name>corvane::x11::X11WindowAccess</name>
    <message>
        <source>No window manager that moves windows for other programs is running.</source>
        <translation>Es läuft keine Fensterverwaltung, die Fenster im Auftrag anderer Programme bewegt.</translation>
    </message>
</context>
</TS>
