<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AcqCorner</name>
    <message>
        <source>The values shown are as old as that.</source>
        <translation>So alt sind die gezeigten Werte.</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>The picture stands still, recording goes on. P lets it run again.</source>
        <translation>Das Bild steht, die Aufzeichnung läuft weiter. P lässt es wieder laufen.</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Freeze the picture while recording goes on (P or Pause)</source>
        <translation>Bild anhalten, die Aufzeichnung läuft weiter (P oder Pause)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Keys, guide and messages (F1)</source>
        <translation>Tasten, Anleitung und Meldungen (F1)</translation>
    </message>
    <message>
        <source>No connection for %1 s</source>
        <translation>Seit %1 s keine Verbindung</translation>
    </message>
    <message>
        <source>window: %1</source>
        <translation>Fenster: %1</translation>
    </message>
</context>
<context>
    <name>AcqHeader</name>
    <message>
        <source>Recording</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>State of the acquisition</source>
        <translation>Zustand der Messung</translation>
    </message>
    <message>
        <source>Start or stop recording (Enter)</source>
        <translation>Aufzeichnung starten oder beenden (Eingabe)</translation>
    </message>
    <message>
        <source>The file of the last event was closed with the recording. There can be another in a moment.</source>
        <translation>Die Datei des letzten Ereignisses wurde mit der Aufzeichnung geschlossen. Gleich ist ein weiteres möglich.</translation>
    </message>
    <message>
        <source>The file of the last event is being filled. That takes %1 polling cycles; then there can be another one.</source>
        <translation>Die Datei des letzten Ereignisses wird gefüllt. Das dauert %1 Abfragezyklen; danach ist ein weiteres möglich.</translation>
    </message>
    <message>
        <source>Write the rows around this moment into an event file (Space)</source>
        <translation>Zeilen um diesen Zeitpunkt in eine Ereignisdatei schreiben (Leertaste)</translation>
    </message>
</context>
<context>
    <name>DataToolTip</name>
    <message>
        <source>Request: %1</source>
        <translation>Anfrage: %1</translation>
    </message>
    <message>
        <source>ECU: %1</source>
        <translation>Steuergerät: %1</translation>
    </message>
    <message>
        <source>Device: %1 (failure)</source>
        <translation>Bauteil: %1 (Fehler)</translation>
    </message>
    <message>
        <source>Device: %1</source>
        <translation>Bauteil: %1</translation>
    </message>
    <message>
        <source>Unit: %1</source>
        <translation>Einheit: %1</translation>
    </message>
    <message>
        <source>Range: %1 to %2</source>
        <translation>Bereich: %1 bis %2</translation>
    </message>
    <message>
        <source>%1 = %2</source>
        <translation>%1 = %2</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Function: %1</source>
        <translation>Funktion: %1</translation>
    </message>
    <message>
        <source>Address: %1</source>
        <translation>Adresse: %1</translation>
    </message>
    <message>
        <source>1 data</source>
        <translation>1 Messgröße</translation>
    </message>
    <message>
        <source>%1 data</source>
        <translation>%1 Messgrößen</translation>
    </message>
</context>
<context>
    <name>EndRecordingBox</name>
    <message>
        <source>Recording</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>A recording is running. End it?</source>
        <translation>Eine Aufzeichnung läuft. Beenden?</translation>
    </message>
    <message>
        <source>&amp;End recording</source>
        <translation>Aufzeichnung &amp;beenden</translation>
    </message>
    <message>
        <source>&amp;Keep recording</source>
        <translation>&amp;Weiter aufzeichnen</translation>
    </message>
</context>
<context>
    <name>GraphReading</name>
    <message>
        <source>1 point before the newest</source>
        <translation>1 Punkt vor dem neuesten</translation>
    </message>
    <message>
        <source>%1 points before the newest</source>
        <translation>%1 Punkte vor dem neuesten</translation>
    </message>
    <message>
        <source>%1 s before the newest</source>
        <translation>%1 s vor dem neuesten</translation>
    </message>
    <message>
        <source>Time (s)</source>
        <translation>Zeit (s)</translation>
    </message>
    <message>
        <source>Point</source>
        <translation>Punkt</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Mittelwert</translation>
    </message>
    <message>
        <source>A to B: %1 s</source>
        <translation>A bis B: %1 s</translation>
    </message>
    <message>
        <source>A to B: %1 points</source>
        <translation>A bis B: %1 Punkte</translation>
    </message>
</context>
<context>
    <name>Indicator</name>
    <message>
        <source>Rows are lost: the file cannot be written</source>
        <translation>Zeilen gehen verloren: Die Datei lässt sich nicht schreiben</translation>
    </message>
    <message>
        <source>Recording is about to start or to stop</source>
        <translation>Aufzeichnung startet oder endet gleich</translation>
    </message>
    <message>
        <source>The record file has just been opened</source>
        <translation>Aufzeichnungsdatei wurde gerade geöffnet</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufzeichnung läuft</translation>
    </message>
    <message>
        <source>Not recording</source>
        <translation>Keine Aufzeichnung</translation>
    </message>
    <message>
        <source>Initialising the control units</source>
        <translation>Steuergeräte werden initialisiert</translation>
    </message>
    <message>
        <source>Waiting for the control units to be ready</source>
        <translation>Warten, bis die Steuergeräte bereit sind</translation>
    </message>
    <message>
        <source>Starting diagnostic sessions and the initialisation scenario</source>
        <translation>Diagnosesitzungen und Init-Szenario werden gestartet</translation>
    </message>
    <message>
        <source>Communicating: values are polled</source>
        <translation>Kommunikation: Werte werden abgefragt</translation>
    </message>
    <message>
        <source>Not acquiring</source>
        <translation>Keine Messung</translation>
    </message>
</context>
<context>
    <name>KeyboardHelp</name>
    <message>
        <source>Keys while acquiring</source>
        <translation>Tasten bei der Messung</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Start or stop recording</source>
        <translation>Aufzeichnung starten oder beenden</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Event: write the rows around this moment into a file</source>
        <translation>Ereignis: Zeilen um diesen Zeitpunkt in eine Datei schreiben</translation>
    </message>
    <message>
        <source>D, G</source>
        <translation>D, G</translation>
    </message>
    <message>
        <source>Show values as digits, as graphs</source>
        <translation>Werte als Ziffern, als Diagramme zeigen</translation>
    </message>
    <message>
        <source>P or Pause</source>
        <translation>P oder Pause</translation>
    </message>
    <message>
        <source>Freeze the picture and look back; recording goes on</source>
        <translation>Bild anhalten und zurückblicken; die Aufzeichnung läuft weiter</translation>
    </message>
    <message>
        <source>While paused: F, P</source>
        <translation>Angehalten: F, P</translation>
    </message>
    <message>
        <source>Show all that is kept; back to now</source>
        <translation>Alles Gespeicherte zeigen; zurück zum aktuellen Bild</translation>
    </message>
    <message>
        <source>Wheel, + and -</source>
        <translation>Mausrad, + und -</translation>
    </message>
    <message>
        <source>While paused: zoom</source>
        <translation>Angehalten: zoomen</translation>
    </message>
    <message>
        <source>Drag, Shift+arrows</source>
        <translation>Ziehen, Umschalt+Pfeile</translation>
    </message>
    <message>
        <source>While paused: move along the time</source>
        <translation>Angehalten: in der Zeit verschieben</translation>
    </message>
    <message>
        <source>A, B</source>
        <translation>A, B</translation>
    </message>
    <message>
        <source>While paused: set the two cursors</source>
        <translation>Angehalten: die beiden Cursor setzen</translation>
    </message>
    <message>
        <source>Arrows, Home, End</source>
        <translation>Pfeile, Pos1, Ende</translation>
    </message>
    <message>
        <source>On a graph: read out its points; with Ctrl in wide steps</source>
        <translation>Im Diagramm: Punkte ablesen; mit Strg in großen Schritten</translation>
    </message>
    <message>
        <source>Page Up, Page Down</source>
        <translation>Bild auf, Bild ab</translation>
    </message>
    <message>
        <source>Scroll the graphs</source>
        <translation>Diagramme scrollen</translation>
    </message>
    <message>
        <source>Ctrl+F</source>
        <translation>Strg+F</translation>
    </message>
    <message>
        <source>Filter the list of values; Escape shows them all and leaves the filter</source>
        <translation>Werteliste filtern; Esc zeigt alle und verlässt den Filter</translation>
    </message>
    <message>
        <source>Ctrl with +, -, 0</source>
        <translation>Strg mit +, -, 0</translation>
    </message>
    <message>
        <source>Larger, smaller, usual letters in the list</source>
        <translation>Größere, kleinere, normale Schrift in der Liste</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Strg+C</translation>
    </message>
    <message>
        <source>Copy the selected rows of the list, or lines of the log</source>
        <translation>Gewählte Zeilen der Liste oder des Protokolls kopieren</translation>
    </message>
    <message>
        <source>Menu, Shift+F10</source>
        <translation>Menü, Umschalt+F10</translation>
    </message>
    <message>
        <source>What can be done with the list, a graph or the log</source>
        <translation>Was mit Liste, Diagramm oder Protokoll möglich ist</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Move from control to control</source>
        <translation>Von Bedienelement zu Bedienelement</translation>
    </message>
    <message>
        <source>Alt+C, Alt+L</source>
        <translation>Alt+K, Alt+P</translation>
    </message>
    <message>
        <source>Configure, Log</source>
        <translation>Konfigurieren, Protokoll</translation>
    </message>
    <message>
        <source>F11</source>
        <translation>F11</translation>
    </message>
    <message>
        <source>Full screen; Escape leaves it</source>
        <translation>Vollbild; Esc beendet es</translation>
    </message>
</context>
<context>
    <name>LackText</name>
    <message>
        <source>Nothing was read: the file has no element &quot;Parameters&quot;</source>
        <translation>Nichts gelesen: Die Datei hat kein Element „Parameters“</translation>
    </message>
    <message>
        <source>Not offered by this vehicle: %1</source>
        <translation>Von diesem Fahrzeug nicht angeboten: %1</translation>
    </message>
    <message>
        <source>Configured twice, taken once: %1</source>
        <translation>Doppelt konfiguriert, einmal übernommen: %1</translation>
    </message>
    <message>
        <source>Not acquired, the ECU has another function in this vehicle: %1</source>
        <translation>Nicht gemessen, das Steuergerät hat in diesem Fahrzeug eine andere Funktion: %1</translation>
    </message>
    <message>
        <source>Request of the init scenario not offered by this vehicle: %1</source>
        <translation>Anfrage des Init-Szenarios von diesem Fahrzeug nicht angeboten: %1</translation>
    </message>
    <message>
        <source>The start trigger watches data that this vehicle does not offer: start is manual</source>
        <translation>Der Starttrigger überwacht Daten, die dieses Fahrzeug nicht anbietet: Start ist manuell</translation>
    </message>
    <message>
        <source>The stop trigger watches data that this vehicle does not offer: stop is manual</source>
        <translation>Der Stopptrigger überwacht Daten, die dieses Fahrzeug nicht anbietet: Stopp ist manuell</translation>
    </message>
    <message>
        <source>%1: %2 parts do not fit this vehicle: %3</source>
        <translation>%1: %2 Teile passen nicht zu diesem Fahrzeug: %3</translation>
    </message>
</context>
<context>
    <name>LinkAdvice</name>
    <message>
        <source>Serial ports belong to a group: &quot;sudo adduser $USER dialout&quot;, then log in again.</source>
        <translation>Serielle Schnittstellen gehören einer Gruppe: „sudo adduser $USER dialout“, dann neu anmelden.</translation>
    </message>
    <message>
        <source>You may not read this file: ask its owner, or open a copy of it.</source>
        <translation>Kein Leserecht für diese Datei: Besitzer fragen oder eine Kopie öffnen.</translation>
    </message>
    <message>
        <source>Another program uses the adapter: close that one.</source>
        <translation>Ein anderes Programm benutzt den Adapter: dieses Programm schließen.</translation>
    </message>
    <message>
        <source>The list of ways to a car shows how each link is written.</source>
        <translation>Die Liste der Verbindungswege zeigt, wie jede Verbindung geschrieben wird.</translation>
    </message>
    <message>
        <source>It may have been moved, renamed or deleted: choose the file again.</source>
        <translation>Vielleicht wurde sie verschoben, umbenannt oder gelöscht: Datei neu wählen.</translation>
    </message>
    <message>
        <source>Plug the adapter in, and look at the name of its port: &quot;ls /dev/tty*&quot; lists them, and so does &quot;Connect to a car...&quot;. A Bluetooth adapter needs &quot;sudo rfcomm bind 0 ADDRESS&quot; first.</source>
        <translation>Adapter einstecken und den Namen seiner Schnittstelle prüfen: „ls /dev/tty*“ listet sie auf, ebenso „Mit Fahrzeug verbinden...“. Ein Bluetooth-Adapter braucht zuerst „sudo rfcomm bind 0 ADRESSE“.</translation>
    </message>
    <message>
        <source>Is this computer in the adapter&apos;s Wi-Fi, or the cable plugged in? Are address and port right, and is the ignition on?</source>
        <translation>Ist dieser Rechner im WLAN des Adapters oder das Kabel eingesteckt? Stimmen Adresse und Port, und ist die Zündung an?</translation>
    </message>
</context>
<context>
    <name>ListActions</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Reset minimum and maximum</source>
        <translation>Minimum und Maximum zurücksetzen</translation>
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
        <source>Usual size</source>
        <translation>Normale Größe</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>Values near their names</source>
        <translation>Werte nahe am Namen</translation>
    </message>
</context>
<context>
    <name>LoadAdvice</name>
    <message>
        <source>It may have been moved, renamed or deleted: &quot;Open configuration...&quot; (Ctrl+O) looks for it.</source>
        <translation>Vielleicht wurde sie verschoben, umbenannt oder gelöscht: „Konfiguration öffnen...“ (Strg+O) sucht danach.</translation>
    </message>
    <message>
        <source>You may not read this file: ask its owner, or open a copy of it.</source>
        <translation>Kein Leserecht für diese Datei: Besitzer fragen oder eine Kopie öffnen.</translation>
    </message>
    <message>
        <source>Configurations, and records in XML, can be opened. Where the file was written by hand, mend what the message names; &quot;Save configuration&quot; writes one anew.</source>
        <translation>Öffnen lassen sich Konfigurationen und Aufzeichnungen in XML. Ist die Datei von Hand geschrieben: berichtigen, was die Meldung nennt; „Konfiguration speichern“ schreibt eine neue.</translation>
    </message>
</context>
<context>
    <name>MessageTable</name>
    <message>
        <source>The guide cannot be read: %1</source>
        <translation>Die Anleitung ist nicht lesbar: %1</translation>
    </message>
    <message>
        <source>What the messages mean</source>
        <translation>Bedeutung der Meldungen</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>&amp;Publish values...</source>
        <translation>&amp;Werte veröffentlichen...</translation>
    </message>
</context>
<context>
    <name>QtDialogs</name>
    <message>
        <source>Unsaved changes</source>
        <translation>Ungespeicherte Änderungen</translation>
    </message>
    <message>
        <source>%1 has been changed.</source>
        <translation>%1 wurde geändert.</translation>
    </message>
    <message>
        <source>Save the changes? They are lost otherwise.</source>
        <translation>Änderungen speichern? Sonst gehen sie verloren.</translation>
    </message>
    <message>
        <source>Save configuration</source>
        <translation>Konfiguration speichern</translation>
    </message>
    <message>
        <source>Parts of %1 do not fit this vehicle and were left out.</source>
        <translation>%1: Teile passen nicht zu diesem Fahrzeug und wurden weggelassen.</translation>
    </message>
    <message>
        <source>Saving it in place loses them. Save what is left under another name?</source>
        <translation>Beim Überschreiben gehen sie verloren. Den Rest unter anderem Namen speichern?</translation>
    </message>
    <message>
        <source>Save in &amp;place</source>
        <translation>Ü&amp;berschreiben</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>Speichern &amp;unter...</translation>
    </message>
</context>
<context>
    <name>RecentMenu</name>
    <message>
        <source>(none)</source>
        <translation>(keine)</translation>
    </message>
</context>
<context>
    <name>RecordViewer</name>
    <message>
        <source>Recent recor&amp;ds</source>
        <translation>Letzte Aufzeich&amp;nungen</translation>
    </message>
    <message>
        <source>Ope&amp;n record...</source>
        <translation>&amp;Aufzeichnung öffnen...</translation>
    </message>
</context>
<context>
    <name>RecordingMarks</name>
    <message>
        <source>Start %1</source>
        <translation>Start %1</translation>
    </message>
    <message>
        <source>Stop %1</source>
        <translation>Stopp %1</translation>
    </message>
    <message>
        <source>Event %1</source>
        <translation>Ereignis %1</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Ereignis</translation>
    </message>
</context>
<context>
    <name>RecordingNotices</name>
    <message>
        <source>Measurement data are lost, the file cannot be written: %1: %2</source>
        <translation>Messdaten gehen verloren, die Datei lässt sich nicht schreiben: %1: %2</translation>
    </message>
    <message>
        <source>Rows are lost, the file cannot be written: %1: %2</source>
        <translation>Zeilen gehen verloren, die Datei lässt sich nicht schreiben: %1: %2</translation>
    </message>
    <message>
        <source>The file was cut short: %1: %2</source>
        <translation>Die Datei wurde gekürzt: %1: %2</translation>
    </message>
    <message>
        <source>A power cut may cost measurement data, the file could not be synced: %1: %2</source>
        <translation>Ein Stromausfall kann Messdaten kosten, die Datei ließ sich nicht synchronisieren: %1: %2</translation>
    </message>
    <message>
        <source>A power cut may cost rows, the file could not be synced: %1: %2</source>
        <translation>Ein Stromausfall kann Zeilen kosten, die Datei ließ sich nicht synchronisieren: %1: %2</translation>
    </message>
    <message>
        <source>The file was closed while it could not be written: %1: lost blocks: %2</source>
        <translation>Die Datei wurde geschlossen, als sie sich nicht schreiben ließ: %1: verlorene Blöcke: %2</translation>
    </message>
    <message>
        <source>The file was closed while it could not be written: %1: lost rows: %2</source>
        <translation>Die Datei wurde geschlossen, als sie sich nicht schreiben ließ: %1: verlorene Zeilen: %2</translation>
    </message>
    <message>
        <source>The file can be written again: %1: lost blocks: %2</source>
        <translation>Die Datei lässt sich wieder schreiben: %1: verlorene Blöcke: %2</translation>
    </message>
    <message>
        <source>The file can be written again: %1: lost rows: %2</source>
        <translation>Die Datei lässt sich wieder schreiben: %1: verlorene Zeilen: %2</translation>
    </message>
    <message>
        <source>Nothing is recorded: %1</source>
        <translation>Keine Aufzeichnung: %1</translation>
    </message>
    <message>
        <source>Recording parameters</source>
        <translation>Aufzeichnungsparameter</translation>
    </message>
    <message>
        <source>Measurement data are missing: %1</source>
        <translation>Messdaten fehlen: %1</translation>
    </message>
    <message>
        <source>Publishing: %1</source>
        <translation>Veröffentlichen: %1</translation>
    </message>
    <message>
        <source>Recorded %1, 1 datum: %2</source>
        <translation>%1 aufgezeichnet, 1 Messgröße: %2</translation>
    </message>
    <message>
        <source>Recorded %1, %2 data: %3</source>
        <translation>%1 aufgezeichnet, %2 Messgrößen: %3</translation>
    </message>
    <message>
        <source>Look at it</source>
        <translation>Ansehen</translation>
    </message>
</context>
<context>
    <name>ReviewFlags</name>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Event %1</source>
        <translation>Ereignis %1</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Ereignis</translation>
    </message>
    <message>
        <source>Gap</source>
        <translation>Lücke</translation>
    </message>
    <message>
        <source>Failure</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Clock step</source>
        <translation>Uhrsprung</translation>
    </message>
</context>
<context>
    <name>ReviewHelp</name>
    <message>
        <source>Keys while looking at a record</source>
        <translation>Tasten beim Ansehen einer Aufzeichnung</translation>
    </message>
    <message>
        <source>+ and -, wheel</source>
        <translation>+ und -, Mausrad</translation>
    </message>
    <message>
        <source>On a graph: zoom around the readout, or at the pointer</source>
        <translation>Im Diagramm: zoomen um die Ablesung oder am Mauszeiger</translation>
    </message>
    <message>
        <source>Ctrl+wheel</source>
        <translation>Strg+Mausrad</translation>
    </message>
    <message>
        <source>On a graph: scroll the graphs</source>
        <translation>Im Diagramm: Diagramme scrollen</translation>
    </message>
    <message>
        <source>Left and Right, drag</source>
        <translation>Links und Rechts, Ziehen</translation>
    </message>
    <message>
        <source>On a graph: move along the time; Home and End go to its ends</source>
        <translation>Im Diagramm: in der Zeit verschieben; Pos1 und Ende gehen an die Enden</translation>
    </message>
    <message>
        <source>F, Backspace</source>
        <translation>F, Rücktaste</translation>
    </message>
    <message>
        <source>On a graph: show all; what was seen before</source>
        <translation>Im Diagramm: alles zeigen; vorige Ansicht</translation>
    </message>
    <message>
        <source>A, B, Escape</source>
        <translation>A, B, Esc</translation>
    </message>
    <message>
        <source>On a graph: set the cursors at the readout; take it away, then them</source>
        <translation>Im Diagramm: Cursor an der Ablesung setzen; diese entfernen, dann die Cursor</translation>
    </message>
    <message>
        <source>Ctrl with Left, Right</source>
        <translation>Strg mit Links, Rechts</translation>
    </message>
    <message>
        <source>On a graph: read out row by row</source>
        <translation>Im Diagramm: Zeile für Zeile ablesen</translation>
    </message>
    <message>
        <source>Up, Down, Delete</source>
        <translation>Auf, Ab, Entf</translation>
    </message>
    <message>
        <source>On a graph: choose a curve, take it away</source>
        <translation>Im Diagramm: Kurve wählen, Kurve entfernen</translation>
    </message>
    <message>
        <source>Ctrl+drag</source>
        <translation>Strg+Ziehen</translation>
    </message>
    <message>
        <source>On a graph: move a record that is laid over</source>
        <translation>Im Diagramm: überlagerte Aufzeichnung verschieben</translation>
    </message>
    <message>
        <source>Ctrl+F</source>
        <translation>Strg+F</translation>
    </message>
    <message>
        <source>Filter the list of data; Escape shows all</source>
        <translation>Datenliste filtern; Esc zeigt alle</translation>
    </message>
    <message>
        <source>Enter, Ctrl+Enter</source>
        <translation>Eingabe, Strg+Eingabe</translation>
    </message>
    <message>
        <source>In the list: into a graph of its unit, into the chosen graph</source>
        <translation>In der Liste: in ein Diagramm der Einheit, in das gewählte Diagramm</translation>
    </message>
    <message>
        <source>Space, Delete</source>
        <translation>Leertaste, Entf</translation>
    </message>
    <message>
        <source>In the list: show or hide, hide</source>
        <translation>In der Liste: zeigen oder ausblenden, ausblenden</translation>
    </message>
    <message>
        <source>Ctrl+G, F3, Shift+F3</source>
        <translation>Strg+G, F3, Umschalt+F3</translation>
    </message>
    <message>
        <source>Look for a moment, the next one, the one before</source>
        <translation>Zeitpunkt suchen, nächster, voriger</translation>
    </message>
    <message>
        <source>Ctrl+L, Ctrl+D</source>
        <translation>Strg+L, Strg+D</translation>
    </message>
    <message>
        <source>Lay another record over; the difference of the chosen curve</source>
        <translation>Weitere Aufzeichnung überlagern; Differenz der gewählten Kurve</translation>
    </message>
    <message>
        <source>Ctrl+S</source>
        <translation>Strg+S</translation>
    </message>
    <message>
        <source>Save a picture of what is seen</source>
        <translation>Bild des Sichtbaren speichern</translation>
    </message>
    <message>
        <source>Ctrl+E</source>
        <translation>Strg+E</translation>
    </message>
    <message>
        <source>Save the part between the cursors as CSV; with Shift as measurement file</source>
        <translation>Teil zwischen A und B als CSV speichern; mit Umschalt als Messdatei</translation>
    </message>
    <message>
        <source>Ctrl+Shift+C</source>
        <translation>Strg+Umschalt+C</translation>
    </message>
    <message>
        <source>Copy the table of figures</source>
        <translation>Tabelle der Kennwerte kopieren</translation>
    </message>
    <message>
        <source>F6</source>
        <translation>F6</translation>
    </message>
    <message>
        <source>To the next part of the window; with Shift to the one before</source>
        <translation>Zum nächsten Fensterteil; mit Umschalt zum vorigen</translation>
    </message>
</context>
<context>
    <name>ReviewPicture</name>
    <message>
        <source>The picture %1 could not be written: %2</source>
        <translation>Das Bild %1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>its name must end with .svg or .png</source>
        <translation>sein Name muss auf .svg oder .png enden</translation>
    </message>
</context>
<context>
    <name>Tarn2001</name>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
</context>
<context>
    <name>TarnPaSc</name>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Digital</source>
        <translation>Digital</translation>
    </message>
    <message>
        <source>BarGraph</source>
        <translation>Balken</translation>
    </message>
    <message>
        <source>Graph</source>
        <translation>Diagramm</translation>
    </message>
    <message>
        <source>GraphIndex</source>
        <translation>Weitere Kurve</translation>
    </message>
    <message>
        <source>GraphAxeX</source>
        <translation>X-Achse</translation>
    </message>
    <message>
        <source>Recorded, and not shown</source>
        <translation>Aufgezeichnet, nicht gezeigt</translation>
    </message>
    <message>
        <source>The value as digits or text</source>
        <translation>Der Wert als Ziffern oder Text</translation>
    </message>
    <message>
        <source>A bar between a minimum and a maximum</source>
        <translation>Ein Balken zwischen Minimum und Maximum</translation>
    </message>
    <message>
        <source>A graph of its own against time</source>
        <translation>Ein eigenes Diagramm über der Zeit</translation>
    </message>
    <message>
        <source>A further curve on the graph of a data above</source>
        <translation>Eine weitere Kurve im Diagramm einer Messgröße darüber</translation>
    </message>
    <message>
        <source>The X axis of the graph of a data above</source>
        <translation>Die X-Achse des Diagramms einer Messgröße darüber</translation>
    </message>
    <message>
        <source>Graph (%1)</source>
        <translation>Diagramm (%1)</translation>
    </message>
    <message>
        <source>X Axis Graph(%1)</source>
        <translation>X-Achse Diagramm (%1)</translation>
    </message>
    <message>
        <source>Only numbers can be shown as bar, graph, curve or X axis: this data is a text or bytes.</source>
        <translation>Nur Zahlen lassen sich als Balken, Diagramm, Kurve oder X-Achse zeigen: Diese Messgröße ist ein Text oder Bytes.</translation>
    </message>
    <message>
        <source>GraphIndex and GraphAxeX need a graph to belong to: no data above this one in the list is a Graph.</source>
        <translation>„Weitere Kurve“ und „X-Achse“ brauchen ein Diagramm: In der Liste steht darüber keine Messgröße als Diagramm.</translation>
    </message>
</context>
<context>
    <name>Told</name>
    <message>
        <source>Write a picture of the records (.svg or .png) and open no window; needs no display</source>
        <translation>Ein Bild der Aufzeichnungen schreiben (.svg oder .png) und kein Fenster öffnen; braucht keine Anzeige</translation>
    </message>
    <message>
        <source>In the picture: only these data</source>
        <translation>Im Bild: nur diese Daten</translation>
    </message>
    <message>
        <source>In the picture: only from this time on (seconds, as in the record)</source>
        <translation>Im Bild: erst ab dieser Zeit (Sekunden, wie in der Aufzeichnung)</translation>
    </message>
    <message>
        <source>In the picture: only up to this time</source>
        <translation>Im Bild: nur bis zu dieser Zeit</translation>
    </message>
    <message>
        <source>Of the picture, in pixels (default: 1200x800); many graphs make it higher</source>
        <translation>Größe des Bildes in Pixeln (Vorgabe: 1200x800); viele Diagramme machen es höher</translation>
    </message>
    <message>
        <source>Shows the data of a vehicle&apos;s control units live, records them, and shows records</source>
        <translation>Zeigt die Daten der Steuergeräte eines Fahrzeugs live, zeichnet sie auf und zeigt Aufzeichnungen</translation>
    </message>
    <message>
        <source>Display program version information and exit</source>
        <translation>Die Version des Programms ausgeben und beenden</translation>
    </message>
    <message>
        <source>Vehicle description (JSON), or obd2: to ask the car behind the link; without it, the window asks</source>
        <translation>Fahrzeugbeschreibung (JSON), oder obd2: um das Fahrzeug hinter der Verbindung zu fragen; ohne sie fragt das Fenster</translation>
    </message>
    <message>
        <source>Recording configuration (XML): acquire at once</source>
        <translation>Konfiguration der Aufzeichnung (XML): sofort messen</translation>
    </message>
    <message>
        <source>Write its files here; made when missing</source>
        <translation>Ihre Dateien hierher schreiben; der Ordner wird angelegt, wenn er fehlt</translation>
    </message>
    <message>
        <source>Write the files of each vehicle into a folder of its own there (File menu)</source>
        <translation>Die Dateien jedes Fahrzeugs dort in einen eigenen Ordner schreiben (Menü Datei)</translation>
    </message>
    <message>
        <source>How the vehicle is reached (default: the description&apos;s simulation)</source>
        <translation>Wie das Fahrzeug erreicht wird (Vorgabe: die Simulation der Beschreibung)</translation>
    </message>
    <message>
        <source>Write what goes over the link to this new file</source>
        <translation>Was über die Verbindung geht, in diese neue Datei schreiben</translation>
    </message>
    <message>
        <source>Send this request every MS milliseconds only, not in every polling cycle</source>
        <translation>Diese Anfrage nur alle MS Millisekunden senden, nicht in jedem Abfragezyklus</translation>
    </message>
    <message>
        <source>Publish each answer at an MQTT broker this time (else: File menu, Publish values)</source>
        <translation>Diesmal jede Antwort bei einem MQTT-Broker veröffentlichen (sonst: Menü Datei, Werte veröffentlichen)</translation>
    </message>
    <message>
        <source>What that broker asks for: a file of JSON</source>
        <translation>Was dieser Broker verlangt: eine JSON-Datei</translation>
    </message>
    <message>
        <source>there is no display to show a window on; tarn-record records without one</source>
        <translation>es gibt keine Anzeige für ein Fenster; tarn-record zeichnet ohne eines auf</translation>
    </message>
    <message>
        <source>publish: {}</source>
        <translation>Veröffentlichung: {}</translation>
    </message>
    <message>
        <source>--size {}: expected WIDTHxHEIGHT in pixels, each from {} to {}</source>
        <translation>--size {}: erwartet wird BREITExHÖHE in Pixeln, jeweils von {} bis {}</translation>
    </message>
    <message>
        <source>--picture {}: expected a name that ends with .svg or .png</source>
        <translation>--picture {}: erwartet wird ein Name, der auf .svg oder .png endet</translation>
    </message>
    <message>
        <source>--picture {}: this is one of the records, expected another file</source>
        <translation>--picture {}: das ist eine der Aufzeichnungen, erwartet wird eine andere Datei</translation>
    </message>
    <message>
        <source>any of the records</source>
        <translation>einer der Aufzeichnungen</translation>
    </message>
    <message>
        <source>--picture: expected a record to make it of, before --data</source>
        <translation>--picture: erwartet wird eine Aufzeichnung dafür, vor --data</translation>
    </message>
    <message>
        <source>--picture: expected at most {} records</source>
        <translation>--picture: erwartet werden höchstens {} Aufzeichnungen</translation>
    </message>
    <message>
        <source>Records to look at (text, XML, MDF 4), the second and third laid over the first; a vehicle or a configuration to open</source>
        <translation>Aufzeichnungen ansehen (Text, XML, MDF 4), die zweite und dritte über die erste gelegt; ein Fahrzeug oder eine Konfiguration öffnen</translation>
    </message>
    <message>
        <source>F1 in the window tells its keys. Signals: INT, TERM and HUP close the window, a second one leaves at once; USR1 is the event button.
Exit codes: 0 done, 1 failed while running, 2 bad usage or bad input, 3 no display; without one there is tarn-record.</source>
        <translation>F1 im Fenster nennt seine Tasten. Signale: INT, TERM und HUP schließen das Fenster, ein zweites beendet sofort; USR1 ist die Ereignis-Taste.
Ende-Codes: 0 erledigt, 1 während der Arbeit gescheitert, 2 falscher Aufruf oder falsche Eingabe, 3 kein Bildschirm; ohne einen gibt es tarn-record.</translation>
    </message>
</context>
<context>
    <name>UnfinishedOffer</name>
    <message>
        <source>A record was not closed, its recorder was killed: %1</source>
        <translation>Eine Aufzeichnung wurde nicht geschlossen, ihr Rekorder wurde abgebrochen: %1</translation>
    </message>
    <message>
        <source>%1 records were not closed, their recorder was killed</source>
        <translation>%1 Aufzeichnungen wurden nicht geschlossen, ihr Rekorder wurde abgebrochen</translation>
    </message>
    <message>
        <source>Close it</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Close them</source>
        <translation>Alle schließen</translation>
    </message>
    <message>
        <source>end the acquisition first</source>
        <translation>zuerst die Messung beenden</translation>
    </message>
    <message>
        <source>Records closed: %1</source>
        <translation>Aufzeichnungen geschlossen: %1</translation>
    </message>
</context>
<context>
    <name>UserWords</name>
    <message>
        <source>rec</source>
        <translation>Aufz.</translation>
    </message>
    <message>
        <source>init</source>
        <translation>Init</translation>
    </message>
    <message>
        <source>Wait</source>
        <translation>Warten</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>com</source>
        <translation>Komm.</translation>
    </message>
    <message>
        <source>Start recording</source>
        <translation>Aufzeichnung starten</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Aufzeichnung beenden</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Ereignis</translation>
    </message>
    <message>
        <source>no record file</source>
        <translation>keine Aufzeichnungsdatei</translation>
    </message>
    <message>
        <source>Open error : </source>
        <translation>Fehler beim Öffnen: </translation>
    </message>
    <message>
        <source>Error : Unable to create file</source>
        <translation>Fehler: Datei kann nicht angelegt werden</translation>
    </message>
</context>
<context>
    <name>tarnlog::AcqView</name>
    <message>
        <source>Recording time (s):</source>
        <translation>Aufzeichnungszeit (s):</translation>
    </message>
    <message>
        <source>How values are shown</source>
        <translation>Darstellung der Werte</translation>
    </message>
    <message>
        <source>Digital</source>
        <translation>Digital</translation>
    </message>
    <message>
        <source>Graphic</source>
        <translation>Grafik</translation>
    </message>
</context>
<context>
    <name>tarnlog::AvailablePane</name>
    <message>
        <source>Available data</source>
        <translation>Verfügbare Daten</translation>
    </message>
    <message>
        <source>Filter the available data</source>
        <translation>Verfügbare Daten filtern</translation>
    </message>
    <message>
        <source>Words of name, request, ECU or unit (Ctrl+F)</source>
        <translation>Wörter aus Name, Anfrage, Steuergerät oder Einheit (Strg+F)</translation>
    </message>
    <message>
        <source>Order of the available data</source>
        <translation>Gliederung der verfügbaren Daten</translation>
    </message>
    <message>
        <source>Select by request/data</source>
        <translation>Nach Anfrage/Daten wählen</translation>
    </message>
    <message>
        <source>Select by data</source>
        <translation>Nach Daten wählen</translation>
    </message>
    <message>
        <source>Select by devices/data</source>
        <translation>Nach Bauteilen/Daten wählen</translation>
    </message>
    <message>
        <source>No vehicle.</source>
        <translation>Kein Fahrzeug.</translation>
    </message>
    <message>
        <source>The vehicle offers no data.</source>
        <translation>Das Fahrzeug bietet keine Daten an.</translation>
    </message>
    <message>
        <source>No data with these words.</source>
        <translation>Keine Daten mit diesen Wörtern.</translation>
    </message>
</context>
<context>
    <name>tarnlog::CWNumEdit</name>
    <message>
        <source>This is no whole number: the value stays as it was.</source>
        <translation>Das ist keine ganze Zahl: Der Wert bleibt, wie er war.</translation>
    </message>
    <message>
        <source>This is no number: the value stays as it was.</source>
        <translation>Das ist keine Zahl: Der Wert bleibt, wie er war.</translation>
    </message>
</context>
<context>
    <name>tarnlog::ConnectDialog</name>
    <message>
        <source>Choose a trace</source>
        <translation>Mitschnitt wählen</translation>
    </message>
    <message>
        <source>&amp;Ask the car which data it offers (OBD)</source>
        <translation>Das &amp;Fahrzeug fragen, welche Daten es anbietet (OBD)</translation>
    </message>
    <message>
        <source>Vehicle &amp;description:</source>
        <translation>Fahrzeug&amp;beschreibung:</translation>
    </message>
    <message>
        <source>Choose a vehicle description</source>
        <translation>Fahrzeugbeschreibung wählen</translation>
    </message>
    <message>
        <source>&amp;What the messages mean</source>
        <translation>B&amp;edeutung der Meldungen</translation>
    </message>
    <message>
        <source>Connect to a car</source>
        <translation>Mit Fahrzeug verbinden</translation>
    </message>
    <message>
        <source>Ways to a car</source>
        <translation>Verbindungswege</translation>
    </message>
    <message>
        <source>&amp;Connect</source>
        <translation>&amp;Verbinden</translation>
    </message>
    <message>
        <source>How is the car reached?</source>
        <translation>Wie ist das Fahrzeug erreichbar?</translation>
    </message>
    <message>
        <source>&amp;Link:</source>
        <translation>Verbi&amp;ndung:</translation>
    </message>
    <message>
        <source>elm327:///dev/ttyUSB0?baud=38400 - an ELM327 adapter on USB or Bluetooth
elm327://192.168.0.10:35000 - an ELM327 adapter on Wi-Fi
doip://* or doip://192.168.1.10 - a car on Ethernet
isotp://can0?tx=7E0&amp;rx=7E8 - a CAN interface
replay:drive.trace - a trace of an earlier drive</source>
        <translation>elm327:///dev/ttyUSB0?baud=38400 - ein ELM327-Adapter an USB oder Bluetooth
elm327://192.168.0.10:35000 - ein ELM327-Adapter im WLAN
doip://* oder doip://192.168.1.10 - ein Fahrzeug am Ethernet
isotp://can0?tx=7E0&amp;rx=7E8 - eine CAN-Schnittstelle
replay:drive.trace - ein Mitschnitt einer früheren Fahrt</translation>
    </message>
    <message>
        <source>Vehicle description</source>
        <translation>Fahrzeugbeschreibung</translation>
    </message>
    <message>
        <source>What is known about it?</source>
        <translation>Was ist über das Fahrzeug bekannt?</translation>
    </message>
    <message>
        <source>OBD car</source>
        <translation>OBD-Fahrzeug</translation>
    </message>
    <message>
        <source>%1, as before</source>
        <translation>%1, wie zuvor</translation>
    </message>
    <message>
        <source>ELM327 adapter on %1</source>
        <translation>ELM327-Adapter an %1</translation>
    </message>
    <message>
        <source>ELM327 adapter on USB or Bluetooth (none is plugged in)</source>
        <translation>ELM327-Adapter an USB oder Bluetooth (keiner eingesteckt)</translation>
    </message>
    <message>
        <source>ELM327 adapter on Wi-Fi</source>
        <translation>ELM327-Adapter im WLAN</translation>
    </message>
    <message>
        <source>Car on Ethernet (DoIP)</source>
        <translation>Fahrzeug am Ethernet (DoIP)</translation>
    </message>
    <message>
        <source>CAN interface %1</source>
        <translation>CAN-Schnittstelle %1</translation>
    </message>
    <message>
        <source>CAN interface (none is there)</source>
        <translation>CAN-Schnittstelle (keine vorhanden)</translation>
    </message>
    <message>
        <source>Trace of an earlier drive</source>
        <translation>Mitschnitt einer früheren Fahrt</translation>
    </message>
    <message>
        <source>Traces</source>
        <translation>Mitschnitte</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message>
        <source>Vehicles</source>
        <translation>Fahrzeuge</translation>
    </message>
</context>
<context>
    <name>tarnlog::DataList</name>
    <message>
        <source>Filter the data of the record</source>
        <translation>Daten der Aufzeichnung filtern</translation>
    </message>
    <message>
        <source>Filter (Ctrl+F)</source>
        <translation>Filter (Strg+F)</translation>
    </message>
    <message>
        <source>Words of name, request, ECU or unit. Escape shows all.</source>
        <translation>Wörter aus Name, Anfrage, Steuergerät oder Einheit. Esc zeigt alle.</translation>
    </message>
    <message>
        <source>Data of the record</source>
        <translation>Daten der Aufzeichnung</translation>
    </message>
    <message>
        <source>No data with these words.</source>
        <translation>Keine Daten mit diesen Wörtern.</translation>
    </message>
    <message>
        <source>No data yet.</source>
        <translation>Noch keine Daten.</translation>
    </message>
</context>
<context>
    <name>tarnlog::DataListModel</name>
    <message>
        <source>labels</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>on/off</source>
        <translation>ein/aus</translation>
    </message>
    <message>
        <source>numbers</source>
        <translation>Zahlen</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Messgröße</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Herkunft</translation>
    </message>
</context>
<context>
    <name>tarnlog::FiguresModel</name>
    <message>
        <source>Data</source>
        <translation>Messgröße</translation>
    </message>
    <message>
        <source>At A</source>
        <translation>Bei A</translation>
    </message>
    <message>
        <source>At B</source>
        <translation>Bei B</translation>
    </message>
    <message>
        <source>B - A</source>
        <translation>B - A</translation>
    </message>
    <message>
        <source>Slope per s</source>
        <translation>Steigung je s</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>at</source>
        <translation>bei</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Mittelwert</translation>
    </message>
    <message>
        <source>Median</source>
        <translation>Median</translation>
    </message>
    <message>
        <source>Std. deviation</source>
        <translation>Standardabw.</translation>
    </message>
    <message>
        <source>Above level</source>
        <translation>Über Schwelle</translation>
    </message>
    <message>
        <source>Above %1</source>
        <translation>Über %1</translation>
    </message>
</context>
<context>
    <name>tarnlog::FiguresTable</name>
    <message>
        <source>Level for the time above it</source>
        <translation>Schwelle für die Zeit darüber</translation>
    </message>
    <message>
        <source>How long each curve is above this level, in the last column</source>
        <translation>Wie lange jede Kurve über dieser Schwelle liegt, in der letzten Spalte</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Schwelle</translation>
    </message>
    <message>
        <source>Time &amp;above</source>
        <translation>Zei&amp;t über</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Copy the table for a spreadsheet (Ctrl+C)</source>
        <translation>Tabelle für eine Tabellenkalkulation kopieren (Strg+C)</translation>
    </message>
    <message>
        <source>Copy the table of figures</source>
        <translation>Tabelle der Kennwerte kopieren</translation>
    </message>
    <message>
        <source>Figures of the curves</source>
        <translation>Kennwerte der Kurven</translation>
    </message>
    <message>
        <source>A: %1</source>
        <translation>A: %1</translation>
    </message>
    <message>
        <source>B: %1</source>
        <translation>B: %1</translation>
    </message>
    <message>
        <source>B - A: %1</source>
        <translation>B - A: %1</translation>
    </message>
    <message>
        <source>Measured: what is seen, %1 to %2</source>
        <translation>Ausgewertet: das Sichtbare, %1 bis %2</translation>
    </message>
</context>
<context>
    <name>tarnlog::FilterBox</name>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
</context>
<context>
    <name>tarnlog::FindBar</name>
    <message>
        <source>Previous</source>
        <translation>Vorige</translation>
    </message>
    <message>
        <source>The one before the readout (Shift+F3)</source>
        <translation>Vorige Stelle vor der Ablesung (Umschalt+F3)</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Nächste</translation>
    </message>
    <message>
        <source>The next one behind the readout (F3)</source>
        <translation>Nächste Stelle nach der Ablesung (F3)</translation>
    </message>
    <message>
        <source>What to look for</source>
        <translation>Wonach suchen</translation>
    </message>
    <message>
        <source>Rises to the level</source>
        <translation>Steigt auf die Schwelle</translation>
    </message>
    <message>
        <source>Falls to the level</source>
        <translation>Fällt auf die Schwelle</translation>
    </message>
    <message>
        <source>Value changes</source>
        <translation>Wert ändert sich</translation>
    </message>
    <message>
        <source>Largest step</source>
        <translation>Größter Sprung</translation>
    </message>
    <message>
        <source>Level to look for</source>
        <translation>Schwelle für die Suche</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Schwelle</translation>
    </message>
    <message>
        <source>Look in: %1</source>
        <translation>Suchen in: %1</translation>
    </message>
    <message>
        <source>Click a curve, or a row of the figures, to look in it</source>
        <translation>Zum Suchen eine Kurve oder eine Zeile der Kennwerte anklicken</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Choose a curve and type a level first.</source>
        <translation>Zuerst eine Kurve wählen und eine Schwelle eingeben.</translation>
    </message>
    <message>
        <source>At %1</source>
        <translation>Bei %1</translation>
    </message>
    <message>
        <source>At %1: %2 %3</source>
        <translation>Bei %1: %2 %3</translation>
    </message>
    <message>
        <source>The first time is at %1.</source>
        <translation>Das erste Mal ist bei %1.</translation>
    </message>
    <message>
        <source>The last time was at %1.</source>
        <translation>Das letzte Mal war bei %1.</translation>
    </message>
    <message>
        <source>All of it lies between %1 and %2.</source>
        <translation>Alle Werte liegen zwischen %1 und %2.</translation>
    </message>
    <message>
        <source>There are not two values here to step between.</source>
        <translation>Hier gibt es keine zwei Werte für einen Sprung.</translation>
    </message>
    <message>
        <source>It does not change before %1.</source>
        <translation>Keine Änderung vor %1.</translation>
    </message>
    <message>
        <source>It does not change after %1.</source>
        <translation>Keine Änderung nach %1.</translation>
    </message>
    <message>
        <source>It does not rise to %1 before %2.</source>
        <translation>Kein Anstieg auf %1 vor %2.</translation>
    </message>
    <message>
        <source>It does not rise to %1 after %2.</source>
        <translation>Kein Anstieg auf %1 nach %2.</translation>
    </message>
    <message>
        <source>It does not fall to %1 before %2.</source>
        <translation>Kein Abfall auf %1 vor %2.</translation>
    </message>
    <message>
        <source>It does not fall to %1 after %2.</source>
        <translation>Kein Abfall auf %1 nach %2.</translation>
    </message>
</context>
<context>
    <name>tarnlog::ForeignTableDialog</name>
    <message>
        <source>A table of another program: %1</source>
        <translation>Tabelle eines anderen Programms: %1</translation>
    </message>
    <message>
        <source>What stands between the cells</source>
        <translation>Was zwischen den Zellen steht</translation>
    </message>
    <message>
        <source>Comma</source>
        <translation>Komma</translation>
    </message>
    <message>
        <source>Semicolon</source>
        <translation>Semikolon</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tabulator</translation>
    </message>
    <message>
        <source>Bar |</source>
        <translation>Strich |</translation>
    </message>
    <message>
        <source>Blank</source>
        <translation>Leerzeichen</translation>
    </message>
    <message>
        <source>Decimal separator</source>
        <translation>Dezimaltrennzeichen</translation>
    </message>
    <message>
        <source>Point: 12.5</source>
        <translation>Punkt: 12.5</translation>
    </message>
    <message>
        <source>Comma: 12,5</source>
        <translation>Komma: 12,5</translation>
    </message>
    <message>
        <source>Character set</source>
        <translation>Zeichensatz</translation>
    </message>
    <message>
        <source>Lines before the rows</source>
        <translation>Zeilen vor den Daten</translation>
    </message>
    <message>
        <source>Column with the time</source>
        <translation>Spalte mit der Zeit</translation>
    </message>
    <message>
        <source>Unit of the times</source>
        <translation>Einheit der Zeiten</translation>
    </message>
    <message>
        <source>seconds</source>
        <translation>Sekunden</translation>
    </message>
    <message>
        <source>milliseconds</source>
        <translation>Millisekunden</translation>
    </message>
    <message>
        <source>microseconds</source>
        <translation>Mikrosekunden</translation>
    </message>
    <message>
        <source>nanoseconds</source>
        <translation>Nanosekunden</translation>
    </message>
    <message>
        <source>minutes</source>
        <translation>Minuten</translation>
    </message>
    <message>
        <source>hours</source>
        <translation>Stunden</translation>
    </message>
    <message>
        <source>days</source>
        <translation>Tage</translation>
    </message>
    <message>
        <source>&amp;Separator</source>
        <translation>&amp;Trennzeichen</translation>
    </message>
    <message>
        <source>&amp;Decimal separator</source>
        <translation>&amp;Dezimaltrennzeichen</translation>
    </message>
    <message>
        <source>&amp;Header lines</source>
        <translation>&amp;Kopfzeilen</translation>
    </message>
    <message>
        <source>&amp;Time column</source>
        <translation>&amp;Zeitspalte</translation>
    </message>
    <message>
        <source>&amp;Unit of times</source>
        <translation>&amp;Einheit der Zeiten</translation>
    </message>
    <message>
        <source>&amp;Character set</source>
        <translation>Zeichen&amp;satz</translation>
    </message>
    <message>
        <source>The first lines as they are read</source>
        <translation>Die ersten Zeilen, so wie sie gelesen werden</translation>
    </message>
    <message>
        <source>&amp;Look at it</source>
        <translation>&amp;Ansehen</translation>
    </message>
    <message>
        <source>This file is no record of this program. Say how to read it:</source>
        <translation>Diese Datei ist keine Aufzeichnung dieses Programms. So ist sie zu lesen:</translation>
    </message>
    <message>
        <source>None: rows are a second apart</source>
        <translation>Keine: Zeilen im Sekundenabstand</translation>
    </message>
    <message>
        <source>Column %1</source>
        <translation>Spalte %1</translation>
    </message>
    <message>
        <source>There are no rows behind the header lines.</source>
        <translation>Nach den Kopfzeilen kommen keine Zeilen.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no time: choose another column, separator or number of header lines.</source>
        <translation>„%1“ ist keine Zeit: Spalte, Trennzeichen oder Anzahl der Kopfzeilen ändern.</translation>
    </message>
</context>
<context>
    <name>tarnlog::GraphMenu</name>
    <message>
        <source>&amp;Save picture...</source>
        <translation>Bild &amp;speichern...</translation>
    </message>
    <message>
        <source>Copy &amp;picture</source>
        <translation>Bild &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Copy points</source>
        <translation>&amp;Punkte kopieren</translation>
    </message>
    <message>
        <source>&amp;Times in the grid</source>
        <translation>&amp;Zeiten im Gitter</translation>
    </message>
    <message>
        <source>T&amp;hick curves</source>
        <translation>&amp;Dicke Kurven</translation>
    </message>
    <message>
        <source>&amp;Each curve its own scale</source>
        <translation>&amp;Eigene Skala je Kurve</translation>
    </message>
    <message>
        <source>&amp;One scale for all</source>
        <translation>&amp;Gemeinsame Skala</translation>
    </message>
    <message>
        <source>&amp;Axis of</source>
        <translation>A&amp;chse von</translation>
    </message>
    <message>
        <source>&amp;Memory for looking back</source>
        <translation>Speicher für &amp;Rückblick</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <source>&amp;Fit all	F</source>
        <translation>A&amp;lles zeigen	F</translation>
    </message>
    <message>
        <source>Cursor &amp;A	A</source>
        <translation>Cursor &amp;A	A</translation>
    </message>
    <message>
        <source>Cursor &amp;B	B</source>
        <translation>Cursor &amp;B	B</translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Pictures (*.png)</source>
        <translation>Bilder (*.png)</translation>
    </message>
    <message>
        <source>The picture could not be written to %1.</source>
        <translation>Das Bild konnte nicht nach %1 geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>tarnlog::HandOn</name>
    <message>
        <source>Save &amp;picture...</source>
        <translation>&amp;Bild speichern...</translation>
    </message>
    <message>
        <source>Part: only the &amp;data that are shown</source>
        <translation>Teil: nur gezeigte &amp;Daten</translation>
    </message>
    <message>
        <source>Copy &amp;table of figures</source>
        <translation>&amp;Kennwerttabelle kopieren</translation>
    </message>
    <message>
        <source>Save part of %1 as &amp;CSV...</source>
        <translation>Teil von %1 als &amp;CSV speichern...</translation>
    </message>
    <message>
        <source>Save part as &amp;CSV...</source>
        <translation>Teil als &amp;CSV speichern...</translation>
    </message>
    <message>
        <source>Save part of %1 as &amp;measurement file...</source>
        <translation>Teil von %1 als &amp;Messdatei speichern...</translation>
    </message>
    <message>
        <source>Save part as &amp;measurement file...</source>
        <translation>Teil als &amp;Messdatei speichern...</translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Picture (*.png)</source>
        <translation>Bild (*.png)</translation>
    </message>
    <message>
        <source>Drawing (*.svg)</source>
        <translation>Zeichnung (*.svg)</translation>
    </message>
    <message>
        <source>Written: %1</source>
        <translation>Geschrieben: %1</translation>
    </message>
    <message>
        <source>It could not be written: %1</source>
        <translation>Schreiben fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>Table (*.csv)</source>
        <translation>Tabelle (*.csv)</translation>
    </message>
    <message>
        <source>Measurement file (*.mf4)</source>
        <translation>Messdatei (*.mf4)</translation>
    </message>
    <message>
        <source>Save part of the record</source>
        <translation>Teil der Aufzeichnung speichern</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message>
        <source>no data of %1 are shown</source>
        <translation>von %1 werden keine Daten gezeigt</translation>
    </message>
    <message>
        <source>_part</source>
        <comment>behind a file&apos;s name</comment>
        <translation>_Teil</translation>
    </message>
    <message>
        <source>Writing %1</source>
        <translation>%1 wird geschrieben</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>%1, the part of %2</source>
        <translation>%1, Teil von %2</translation>
    </message>
</context>
<context>
    <name>tarnlog::HelpPanel</name>
    <message>
        <source>User &amp;guide</source>
        <translation>An&amp;leitung</translation>
    </message>
    <message>
        <source>What the &amp;messages mean</source>
        <translation>B&amp;edeutung der Meldungen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>This panel; Escape closes it</source>
        <translation>Diese Übersicht; Esc schließt sie</translation>
    </message>
</context>
<context>
    <name>tarnlog::ListFilter</name>
    <message>
        <source>Filter the values by name</source>
        <translation>Werte nach Namen filtern</translation>
    </message>
    <message>
        <source>Filter (Ctrl+F)</source>
        <translation>Filter (Strg+F)</translation>
    </message>
    <message>
        <source>Show only values whose name has all these words. Escape shows all.</source>
        <translation>Nur Werte zeigen, deren Name alle diese Wörter enthält. Esc zeigt alle.</translation>
    </message>
    <message>
        <source>Empty the filter</source>
        <translation>Filter leeren</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <comment>rows of the list that match</comment>
        <translation>%1 von %2</translation>
    </message>
</context>
<context>
    <name>tarnlog::LogList</name>
    <message>
        <source>Acquisition log</source>
        <translation>Protokoll der Messung</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Alles auswählen</translation>
    </message>
</context>
<context>
    <name>tarnlog::LogView</name>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>Keys of the log</source>
        <translation>Tasten des Protokolls</translation>
    </message>
    <message>
        <source>Arrows, Page Up, Page Down</source>
        <translation>Pfeile, Bild auf, Bild ab</translation>
    </message>
    <message>
        <source>Read on</source>
        <translation>Weiterlesen</translation>
    </message>
    <message>
        <source>Ctrl+Home, Ctrl+End</source>
        <translation>Strg+Pos1, Strg+Ende</translation>
    </message>
    <message>
        <source>Beginning and end</source>
        <translation>Anfang und Ende</translation>
    </message>
    <message>
        <source>Shift with these keys</source>
        <translation>Umschalt mit diesen Tasten</translation>
    </message>
    <message>
        <source>Select; Ctrl+A selects all</source>
        <translation>Auswählen; Strg+A wählt alles aus</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Strg+C</translation>
    </message>
    <message>
        <source>Copy what is selected</source>
        <translation>Auswahl kopieren</translation>
    </message>
    <message>
        <source>Alt+C, Alt+A</source>
        <translation>Alt+K, Alt+M</translation>
    </message>
    <message>
        <source>Configure, Acquire</source>
        <translation>Konfigurieren, Messen</translation>
    </message>
</context>
<context>
    <name>tarnlog::MarkList</name>
    <message>
        <source>&amp;Open the event&apos;s file</source>
        <translation>Ereignisdatei ö&amp;ffnen</translation>
    </message>
    <message>
        <source>Marks of the records</source>
        <translation>Marken der Aufzeichnungen</translation>
    </message>
    <message>
        <source>No marks in this record.</source>
        <translation>Keine Marken in dieser Aufzeichnung.</translation>
    </message>
    <message>
        <source>Lay the event&apos;s own file over its record: it has every row around the event</source>
        <translation>Datei des Ereignisses mit ihrer Aufzeichnung überlagern: Sie enthält jede Zeile um das Ereignis</translation>
    </message>
</context>
<context>
    <name>tarnlog::MarkListModel</name>
    <message>
        <source>Start of recording</source>
        <translation>Beginn der Aufzeichnung</translation>
    </message>
    <message>
        <source>Stop of recording</source>
        <translation>Ende der Aufzeichnung</translation>
    </message>
    <message>
        <source>Gap</source>
        <translation>Lücke</translation>
    </message>
    <message>
        <source>Failure</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Clock was set</source>
        <translation>Uhr wurde gestellt</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Ereignis</translation>
    </message>
    <message>
        <source>Event %1</source>
        <translation>Ereignis %1</translation>
    </message>
    <message>
        <source>for %1</source>
        <translation>%1 lang</translation>
    </message>
    <message>
        <source>by %1</source>
        <translation>um %1</translation>
    </message>
    <message>
        <source>%1 (record %2)</source>
        <translation>%1 (Aufzeichnung %2)</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>Marke</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
</context>
<context>
    <name>tarnlog::NoticeBar</name>
    <message>
        <source>Close this message</source>
        <translation>Diese Meldung schließen</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>Show all</source>
        <translation>Alle zeigen</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
</context>
<context>
    <name>tarnlog::OpeningProgress</name>
    <message>
        <source>Connecting</source>
        <translation>Verbinden</translation>
    </message>
</context>
<context>
    <name>tarnlog::OverviewStrip</name>
    <message>
        <source>The whole record</source>
        <translation>Die ganze Aufzeichnung</translation>
    </message>
</context>
<context>
    <name>tarnlog::PublishDialog</name>
    <message>
        <source>Publish values</source>
        <translation>Werte veröffentlichen</translation>
    </message>
    <message>
        <source>A JSON file with user, password, ca, certificate and key, as the broker wants them</source>
        <translation>Eine JSON-Datei mit user, password, ca, certificate und key, wie der Broker sie verlangt</translation>
    </message>
    <message>
        <source>Choose the file</source>
        <translation>Datei wählen</translation>
    </message>
    <message>
        <source>Each answer goes to an MQTT broker as it comes, from the next acquisition on. Measurement data (MF4) of the whole acquisition are written, too: what the broker has missed is published from there. Without an address nothing is published.</source>
        <translation>Ab der nächsten Messung geht jede Antwort sofort an einen MQTT-Broker. Auch Messdaten (MF4) der ganzen Messung werden geschrieben: Was dem Broker entgangen ist, wird daraus veröffentlicht. Ohne Adresse wird nichts veröffentlicht.</translation>
    </message>
    <message>
        <source>&amp;Broker:</source>
        <translation>&amp;Broker:</translation>
    </message>
    <message>
        <source>&amp;File with user and password:</source>
        <translation>&amp;Datei mit Benutzer und Passwort:</translation>
    </message>
    <message>
        <source>Access (*.json)|*.json</source>
        <translation>Zugang (*.json)|*.json</translation>
    </message>
</context>
<context>
    <name>tarnlog::RecordLabel</name>
    <message>
        <source>A click looks at this record</source>
        <translation>Ein Klick zeigt diese Aufzeichnung</translation>
    </message>
</context>
<context>
    <name>tarnlog::RecordLine</name>
    <message>
        <source>Record %1: %2</source>
        <translation>Aufzeichnung %1: %2</translation>
    </message>
    <message>
        <source>Recording of the file</source>
        <translation>Aufzeichnung in der Datei</translation>
    </message>
    <message>
        <source>Recording %1 of %2</source>
        <translation>Aufzeichnung %1 von %2</translation>
    </message>
    <message>
        <source>How record %1 is laid over the first one</source>
        <translation>Wie Aufzeichnung %1 über der ersten liegt</translation>
    </message>
    <message>
        <source>Seconds that record %1 is moved to the right</source>
        <translation>Sekunden, um die Aufzeichnung %1 nach rechts verschoben ist</translation>
    </message>
    <message>
        <source>Moves it to the right; so does dragging a curve with Ctrl held</source>
        <translation>Verschiebt sie nach rechts; ebenso das Ziehen einer Kurve mit Strg</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Close this record</source>
        <translation>Diese Aufzeichnung schließen</translation>
    </message>
    <message>
        <source>Close record %1</source>
        <translation>Aufzeichnung %1 schließen</translation>
    </message>
    <message>
        <source>At the start of recording</source>
        <translation>Am Aufzeichnungsbeginn</translation>
    </message>
    <message>
        <source>At the stop of recording</source>
        <translation>Am Aufzeichnungsende</translation>
    </message>
    <message>
        <source>By clock</source>
        <translation>Nach Uhrzeit</translation>
    </message>
    <message>
        <source>At an event</source>
        <translation>An einem Ereignis</translation>
    </message>
    <message>
        <source>At event %1</source>
        <translation>An Ereignis %1</translation>
    </message>
    <message>
        <source>By hand</source>
        <translation>Von Hand</translation>
    </message>
</context>
<context>
    <name>tarnlog::RecordPane</name>
    <message>
        <source>Data to record</source>
        <translation>Aufzuzeichnende Daten</translation>
    </message>
    <message>
        <source>Filter the data to record</source>
        <translation>Aufzuzeichnende Daten filtern</translation>
    </message>
    <message>
        <source>Words of name, request, ECU or unit</source>
        <translation>Wörter aus Name, Anfrage, Steuergerät oder Einheit</translation>
    </message>
    <message>
        <source>Add data</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Remove data</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Delete; Ctrl+Z takes it back</source>
        <translation>Entf; Strg+Z macht es rückgängig</translation>
    </message>
    <message>
        <source>Move up (Ctrl+Up)</source>
        <translation>Nach oben (Strg+Auf)</translation>
    </message>
    <message>
        <source>Move down (Ctrl+Down)</source>
        <translation>Nach unten (Strg+Ab)</translation>
    </message>
    <message>
        <source>No data with these words.</source>
        <translation>Keine Daten mit diesen Wörtern.</translation>
    </message>
    <message>
        <source>Select data on the left and press &quot;Add data&quot;, double-click them or drag them here.</source>
        <translation>Links Daten wählen und „Hinzufügen“ drücken, doppelklicken oder hierher ziehen.</translation>
    </message>
    <message>
        <source>%1 hidden</source>
        <translation>%1 verborgen</translation>
    </message>
    <message>
        <source>Data to record that the filter does not show</source>
        <translation>Aufzuzeichnende Daten, die der Filter nicht zeigt</translation>
    </message>
</context>
<context>
    <name>tarnlog::RecorderWindow</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Keys of this page</source>
        <translation>&amp;Tasten dieser Seite</translation>
    </message>
    <message>
        <source>User &amp;guide</source>
        <translation>&amp;Anleitung</translation>
    </message>
    <message>
        <source>What the &amp;messages mean</source>
        <translation>B&amp;edeutung der Meldungen</translation>
    </message>
    <message>
        <source>&amp;About Tarnlog2001</source>
        <translation>Ü&amp;ber Tarnlog2001</translation>
    </message>
    <message>
        <source>Open &amp;vehicle...</source>
        <translation>Fahrzeug ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>&amp;Connect to a car...</source>
        <translation>Mit Fahrzeug &amp;verbinden...</translation>
    </message>
    <message>
        <source>Recent v&amp;ehicles</source>
        <translation>Letzte Fahr&amp;zeuge</translation>
    </message>
    <message>
        <source>&amp;Recent configurations</source>
        <translation>&amp;Letzte Konfigurationen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>A &amp;folder for each vehicle</source>
        <translation>Eigener &amp;Ordner je Fahrzeug</translation>
    </message>
    <message>
        <source>Files go into a folder named after the vehicle</source>
        <translation>Dateien kommen in einen Ordner mit dem Namen des Fahrzeugs</translation>
    </message>
    <message>
        <source>The vehicle&apos;s folder cannot be made: %1</source>
        <translation>Der Ordner des Fahrzeugs kann nicht angelegt werden: %1</translation>
    </message>
    <message>
        <source>About Tarnlog2001</source>
        <translation>Über Tarnlog2001</translation>
    </message>
    <message>
        <source>Tarnlog2001 %1
Recorder and live scope for the diagnostic data of a vehicle&apos;s control units.</source>
        <translation>Tarnlog2001 %1
Aufzeichnung und Live-Anzeige der Diagnosedaten von Fahrzeugsteuergeräten.</translation>
    </message>
    <message>
        <source>Open vehicle</source>
        <translation>Fahrzeug öffnen</translation>
    </message>
    <message>
        <source>Vehicles</source>
        <translation>Fahrzeuge</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message>
        <source>%1: &quot;tarn-record import --odx&quot; makes a vehicle description of it</source>
        <translation>%1: „tarn-record import --odx“ macht daraus eine Fahrzeugbeschreibung</translation>
    </message>
    <message>
        <source>%1 is no vehicle (.json), configuration (.xml), record or trace (.trace)</source>
        <translation>%1 ist kein Fahrzeug (.json), keine Konfiguration (.xml), keine Aufzeichnung und kein Mitschnitt (.trace)</translation>
    </message>
    <message>
        <source>Vehicle error</source>
        <translation>Fehler beim Öffnen des Fahrzeugs</translation>
    </message>
    <message>
        <source>Not offered: %1</source>
        <translation>Nicht angeboten: %1</translation>
    </message>
    <message>
        <source>Not all is offered</source>
        <translation>Nicht alles wird angeboten</translation>
    </message>
    <message>
        <source>Load error</source>
        <translation>Ladefehler</translation>
    </message>
    <message>
        <source>Acquisition error</source>
        <translation>Fehler bei der Messung</translation>
    </message>
    <message>
        <source>%1 is opened as soon as there is a vehicle.</source>
        <translation>%1 wird geöffnet, sobald ein Fahrzeug da ist.</translation>
    </message>
    <message>
        <source>%1 over %2</source>
        <translation>%1 über %2</translation>
    </message>
    <message>
        <source>What the messages mean</source>
        <translation>Bedeutung der Meldungen</translation>
    </message>
    <message>
        <source>New configuration</source>
        <translation>Neue Konfiguration</translation>
    </message>
    <message>
        <source>The settings cannot be read, the defaults are used: %1</source>
        <translation>Die Einstellungen sind nicht lesbar, es gelten die Vorgaben: %1</translation>
    </message>
    <message>
        <source>Closing: what runs is being ended.</source>
        <translation>Wird geschlossen: Laufendes wird noch beendet.</translation>
    </message>
    <message>
        <source>Open file error : %1</source>
        <translation>Fehler beim Öffnen der Datei: %1</translation>
    </message>
</context>
<context>
    <name>tarnlog::RecordsBar</name>
    <message>
        <source>How far the record is read</source>
        <translation>Lesefortschritt der Aufzeichnung</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Stop reading; what is read can be looked at</source>
        <translation>Lesen abbrechen; Gelesenes bleibt sichtbar</translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation>%1 wird gelesen</translation>
    </message>
</context>
<context>
    <name>tarnlog::ReviewGraphMenu</name>
    <message>
        <source>As &amp;curves</source>
        <translation>Als &amp;Kurven</translation>
    </message>
    <message>
        <source>As bar&amp;s</source>
        <translation>Als &amp;Balken</translation>
    </message>
    <message>
        <source>&amp;Each curve its own scale</source>
        <translation>&amp;Eigene Skala je Kurve</translation>
    </message>
    <message>
        <source>&amp;Axis of</source>
        <translation>A&amp;chse von</translation>
    </message>
    <message>
        <source>&amp;Over</source>
        <translation>Auf&amp;tragen über</translation>
    </message>
    <message>
        <source>&amp;Time</source>
        <translation>&amp;Zeit</translation>
    </message>
    <message>
        <source>Cursor A &amp;here</source>
        <translation>Cursor A &amp;hier</translation>
    </message>
    <message>
        <source>Cursor B he&amp;re</source>
        <translation>Cursor B h&amp;ier</translation>
    </message>
    <message>
        <source>Show a&amp;ll	F</source>
        <translation>A&amp;lles zeigen	F</translation>
    </message>
    <message>
        <source>&amp;Back	Backspace</source>
        <translation>&amp;Zurück	Rücktaste</translation>
    </message>
    <message>
        <source>&amp;Take away %1</source>
        <translation>%1 ent&amp;fernen</translation>
    </message>
    <message>
        <source>Take away the &amp;graph</source>
        <translation>&amp;Diagramm entfernen</translation>
    </message>
    <message>
        <source>O&amp;nly this graph</source>
        <translation>&amp;Nur dieses Diagramm</translation>
    </message>
    <message>
        <source>Graphs as at f&amp;irst</source>
        <translation>Diagramme wie &amp;am Anfang</translation>
    </message>
</context>
<context>
    <name>tarnlog::ReviewGraphWidget</name>
    <message>
        <source>Graph of %1</source>
        <translation>Diagramm von %1</translation>
    </message>
</context>
<context>
    <name>tarnlog::ReviewGraphs</name>
    <message>
        <source>Graphs</source>
        <translation>Diagramme</translation>
    </message>
</context>
<context>
    <name>tarnlog::ReviewPanes</name>
    <message>
        <source>Data</source>
        <translation>Daten</translation>
    </message>
    <message>
        <source>Show or hide the list of data</source>
        <translation>Datenliste zeigen oder ausblenden</translation>
    </message>
    <message>
        <source>Figures</source>
        <translation>Kennwerte</translation>
    </message>
    <message>
        <source>Show or hide what is below the graphs</source>
        <translation>Bereich unter den Diagrammen zeigen oder ausblenden</translation>
    </message>
</context>
<context>
    <name>tarnlog::ReviewWindow</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open record...</source>
        <translation>&amp;Aufzeichnung öffnen...</translation>
    </message>
    <message>
        <source>&amp;Lay another one over...</source>
        <translation>&amp;Weitere überlagern...</translation>
    </message>
    <message>
        <source>&amp;Recent records</source>
        <translation>&amp;Letzte Aufzeichnungen</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Keys of this window</source>
        <translation>&amp;Tasten dieses Fensters</translation>
    </message>
    <message>
        <source>User &amp;guide</source>
        <translation>&amp;Anleitung</translation>
    </message>
    <message>
        <source>R&amp;ecorder</source>
        <translation>&amp;Rekorder</translation>
    </message>
</context>
<context>
    <name>tarnlog::SaveFrame</name>
    <message>
        <source>Folder and Save parameters</source>
        <translation>Ordner und Speicherung</translation>
    </message>
    <message>
        <source>Destination folder</source>
        <translation>Zielordner</translation>
    </message>
    <message>
        <source>existing file</source>
        <translation>Vorhandene Dateien</translation>
    </message>
    <message>
        <source>Files that are in the folder</source>
        <translation>Dateien im Ordner</translation>
    </message>
    <message>
        <source>Destination drive</source>
        <translation>Ziellaufwerk</translation>
    </message>
    <message>
        <source>File format</source>
        <translation>Dateiformat</translation>
    </message>
    <message>
        <source>Also measurement data (MF4)</source>
        <translation>Auch Messdaten (MF4)</translation>
    </message>
    <message>
        <source>Writes an ASAM MDF 4 file beside each record: every answer of the vehicle with its own time</source>
        <translation>Schreibt neben jede Aufzeichnung eine ASAM-MDF-4-Datei: jede Antwort des Fahrzeugs mit ihrer eigenen Zeit</translation>
    </message>
    <message>
        <source>File Prefix</source>
        <translation>Dateipräfix</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Wählen...</translation>
    </message>
    <message>
        <source>Ex :</source>
        <translation>Bsp.:</translation>
    </message>
    <message>
        <source>The folder %1 does not exist: records will go to the current folder instead.</source>
        <translation>Der Ordner %1 existiert nicht: Aufzeichnungen kommen stattdessen in den aktuellen Ordner.</translation>
    </message>
    <message>
        <source>No files can be made in the folder %1.</source>
        <translation>Im Ordner %1 können keine Dateien angelegt werden.</translation>
    </message>
    <message>
        <source>The prefix contains a &quot;/&quot;: records will go to a folder below, which must exist.</source>
        <translation>Das Präfix enthält ein „/“: Aufzeichnungen kommen in einen Unterordner, der vorhanden sein muss.</translation>
    </message>
</context>
<context>
    <name>tarnlog::ScopeListModel</name>
    <message>
        <source>%1 [%2]</source>
        <translation>%1 [%2]</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Messgröße</translation>
    </message>
    <message>
        <source>Request</source>
        <translation>Anfrage</translation>
    </message>
    <message>
        <source>ECU</source>
        <translation>Steuergerät</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>Anzeige</translation>
    </message>
</context>
<context>
    <name>tarnlog::ScopeListView</name>
    <message>
        <source>No data to show yet. Choose some in &quot;Data selection&quot;.</source>
        <translation>Noch keine Daten zum Anzeigen. Zuerst in der „Datenauswahl“ wählen.</translation>
    </message>
</context>
<context>
    <name>tarnlog::ScopePanel</name>
    <message>
        <source>Display type</source>
        <translation>Art der Anzeige</translation>
    </message>
    <message>
        <source>&amp;Display:</source>
        <translation>&amp;Anzeige:</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Messgröße</translation>
    </message>
    <message>
        <source>Request</source>
        <translation>Anfrage</translation>
    </message>
    <message>
        <source>ECU</source>
        <translation>Steuergerät</translation>
    </message>
    <message>
        <source>Data:</source>
        <translation>Messgröße:</translation>
    </message>
    <message>
        <source>Request:</source>
        <translation>Anfrage:</translation>
    </message>
    <message>
        <source>ECU:</source>
        <translation>Steuergerät:</translation>
    </message>
    <message>
        <source>Caption</source>
        <translation>Beschriftung</translation>
    </message>
    <message>
        <source>Shown beside the value; the name of the data when empty</source>
        <translation>Steht neben dem Wert; wenn leer, der Name der Messgröße</translation>
    </message>
    <message>
        <source>Graph</source>
        <translation>Diagramm</translation>
    </message>
    <message>
        <source>The graph that this data belongs to</source>
        <translation>Das Diagramm, zu dem diese Messgröße gehört</translation>
    </message>
    <message>
        <source>Cap&amp;tion:</source>
        <translation>&amp;Beschriftung:</translation>
    </message>
    <message>
        <source>&amp;Graph:</source>
        <translation>Dia&amp;gramm:</translation>
    </message>
    <message>
        <source>Y Axis</source>
        <translation>Y-Achse</translation>
    </message>
    <message>
        <source>A&amp;utomatic range</source>
        <translation>A&amp;utomatischer Bereich</translation>
    </message>
    <message>
        <source>Automatic range</source>
        <translation>Automatischer Bereich</translation>
    </message>
    <message>
        <source>The axis follows the values</source>
        <translation>Die Achse folgt den Werten</translation>
    </message>
    <message>
        <source>Minimum of the axis</source>
        <translation>Minimum der Achse</translation>
    </message>
    <message>
        <source>Maximum of the axis</source>
        <translation>Maximum der Achse</translation>
    </message>
    <message>
        <source>Mi&amp;nimum:</source>
        <translation>Mi&amp;nimum:</translation>
    </message>
    <message>
        <source>Ma&amp;ximum:</source>
        <translation>Ma&amp;ximum:</translation>
    </message>
    <message>
        <source>&amp;Range of the datum</source>
        <translation>Be&amp;reich der Messgröße</translation>
    </message>
    <message>
        <source>X Axis</source>
        <translation>X-Achse</translation>
    </message>
    <message>
        <source>Number of points</source>
        <translation>Anzahl der Punkte</translation>
    </message>
    <message>
        <source>How many values the graph shows across its width</source>
        <translation>Wie viele Werte das Diagramm in seiner Breite zeigt</translation>
    </message>
    <message>
        <source>Number of &amp;points:</source>
        <translation>Anzahl der Punk&amp;te:</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Choose another color</source>
        <translation>Andere Farbe wählen</translation>
    </message>
    <message>
        <source>Preview of the color</source>
        <translation>Vorschau der Farbe</translation>
    </message>
    <message>
        <source>How the color stands out from the background of graphs</source>
        <translation>Wie die Farbe sich vom Hintergrund der Diagramme abhebt</translation>
    </message>
    <message>
        <source>C&amp;olor:</source>
        <translation>&amp;Farbe:</translation>
    </message>
    <message>
        <source>The vehicle does not tell the range of this data</source>
        <translation>Das Fahrzeug nennt den Bereich dieser Messgröße nicht</translation>
    </message>
    <message>
        <source>Switch the automatic range off first</source>
        <translation>Zuerst den automatischen Bereich abschalten</translation>
    </message>
    <message>
        <source>From %1 to %2</source>
        <translation>Von %1 bis %2</translation>
    </message>
    <message>
        <source>%1 [%2]</source>
        <translation>%1 [%2]</translation>
    </message>
</context>
<context>
    <name>tarnlog::ScrolledGraphs</name>
    <message>
        <source>Graphs</source>
        <translation>Diagramme</translation>
    </message>
    <message>
        <source>Scroll the graphs</source>
        <translation>Diagramme scrollen</translation>
    </message>
</context>
<context>
    <name>tarnlog::SelectedDataModel</name>
    <message>
        <source>Data</source>
        <translation>Messgröße</translation>
    </message>
    <message>
        <source>Request</source>
        <translation>Anfrage</translation>
    </message>
    <message>
        <source>ECU</source>
        <translation>Steuerg.</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Bauteil</translation>
    </message>
</context>
<context>
    <name>tarnlog::StartPage</name>
    <message>
        <source>&amp;Connect to a car...</source>
        <translation>Mit Fahrzeug &amp;verbinden...</translation>
    </message>
    <message>
        <source>&amp;Open vehicle...</source>
        <translation>Fahrzeug ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>&amp;Look at a record...</source>
        <translation>Aufzeichnung an&amp;sehen...</translation>
    </message>
    <message>
        <source>Vehicles</source>
        <translation>Fahrzeuge</translation>
    </message>
    <message>
        <source>A vehicle description tells which control units a vehicle has and what they can be asked. It can be dropped here, and so can a configuration, a record or a trace.</source>
        <translation>Eine Fahrzeugbeschreibung sagt, welche Steuergeräte ein Fahrzeug hat und was sich von ihnen erfragen lässt. Sie kann hier abgelegt werden, ebenso eine Konfiguration, eine Aufzeichnung oder ein Mitschnitt.</translation>
    </message>
    <message>
        <source>Choose a vehicle</source>
        <translation>Fahrzeug wählen</translation>
    </message>
    <message>
        <source>Keys of the first page</source>
        <translation>Tasten der ersten Seite</translation>
    </message>
    <message>
        <source>Up, Down, Enter</source>
        <translation>Auf, Ab, Eingabe</translation>
    </message>
    <message>
        <source>Choose and open a vehicle</source>
        <translation>Fahrzeug wählen und öffnen</translation>
    </message>
    <message>
        <source>Alt+C</source>
        <translation>Alt+V</translation>
    </message>
    <message>
        <source>Connect to a car</source>
        <translation>Mit Fahrzeug verbinden</translation>
    </message>
    <message>
        <source>Alt+O, Ctrl+Shift+O</source>
        <translation>Alt+F, Strg+Umschalt+O</translation>
    </message>
    <message>
        <source>Open vehicle: a description of one</source>
        <translation>Fahrzeug öffnen: eine Beschreibung</translation>
    </message>
    <message>
        <source>Alt+L</source>
        <translation>Alt+S</translation>
    </message>
    <message>
        <source>Look at a record that was made</source>
        <translation>Eine vorhandene Aufzeichnung ansehen</translation>
    </message>
    <message>
        <source>Ctrl+O</source>
        <translation>Strg+O</translation>
    </message>
    <message>
        <source>Open configuration: it waits for the vehicle</source>
        <translation>Konfiguration öffnen: Sie wartet auf das Fahrzeug</translation>
    </message>
    <message>
        <source>Alt+F, Alt+H</source>
        <translation>Alt+D, Alt+H</translation>
    </message>
    <message>
        <source>The menus File and Help</source>
        <translation>Die Menüs Datei und Hilfe</translation>
    </message>
    <message>
        <source>Ctrl+Q</source>
        <translation>Strg+Q</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>OBD car</source>
        <translation>OBD-Fahrzeug</translation>
    </message>
    <message>
        <source>simulated example</source>
        <translation>simuliertes Beispiel</translation>
    </message>
</context>
<context>
    <name>tarnlog::Tarn2001</name>
    <message>
        <source>&amp;Open configuration...</source>
        <translation>&amp;Konfiguration öffnen...</translation>
    </message>
    <message>
        <source>&amp;Save configuration</source>
        <translation>Konfiguration &amp;speichern</translation>
    </message>
    <message>
        <source>Save configuration &amp;as...</source>
        <translation>Konfiguration speichern &amp;unter...</translation>
    </message>
    <message>
        <source>Configuration screens</source>
        <translation>Konfigurationsseiten</translation>
    </message>
    <message>
        <source>Configuration file</source>
        <translation>Konfigurationsdatei</translation>
    </message>
    <message>
        <source>Load configuration</source>
        <translation>Konfiguration laden</translation>
    </message>
    <message>
        <source>Save configuration</source>
        <translation>Konfiguration speichern</translation>
    </message>
    <message>
        <source>Data selection</source>
        <translation>Datenauswahl</translation>
    </message>
    <message>
        <source>Recording parameters</source>
        <translation>Aufzeichnungsparameter</translation>
    </message>
    <message>
        <source>Display parameters</source>
        <translation>Anzeigeparameter</translation>
    </message>
    <message>
        <source>Init Scenario</source>
        <translation>Init-Szenario</translation>
    </message>
    <message>
        <source>Keys of the recording parameters</source>
        <translation>Tasten der Aufzeichnungsparameter</translation>
    </message>
    <message>
        <source>Keys of the data selection</source>
        <translation>Tasten der Datenauswahl</translation>
    </message>
    <message>
        <source>Keys of the display parameters</source>
        <translation>Tasten der Anzeigeparameter</translation>
    </message>
    <message>
        <source>Keys of the init scenario</source>
        <translation>Tasten des Init-Szenarios</translation>
    </message>
    <message>
        <source>Ctrl+O</source>
        <translation>Strg+O</translation>
    </message>
    <message>
        <source>Open configuration</source>
        <translation>Konfiguration öffnen</translation>
    </message>
    <message>
        <source>Ctrl+S, Ctrl+Shift+S</source>
        <translation>Strg+S, Strg+Umschalt+S</translation>
    </message>
    <message>
        <source>Save configuration, under another name</source>
        <translation>Konfiguration speichern, unter anderem Namen</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Move from control to control</source>
        <translation>Von Bedienelement zu Bedienelement</translation>
    </message>
    <message>
        <source>Alt+A, Alt+L</source>
        <translation>Alt+M, Alt+P</translation>
    </message>
    <message>
        <source>Acquire, Log</source>
        <translation>Messen, Protokoll</translation>
    </message>
    <message>
        <source>Load error</source>
        <translation>Ladefehler</translation>
    </message>
    <message>
        <source>Error when loading configuration file</source>
        <translation>Fehler beim Laden der Konfigurationsdatei</translation>
    </message>
    <message>
        <source>Open configuration...</source>
        <translation>Konfiguration öffnen...</translation>
    </message>
    <message>
        <source>The configuration</source>
        <translation>Die Konfiguration</translation>
    </message>
    <message>
        <source>Not saved: %1</source>
        <translation>Nicht gespeichert: %1</translation>
    </message>
    <message>
        <source>Save configuration as...</source>
        <translation>Konfiguration speichern unter...</translation>
    </message>
    <message>
        <source>%1 is a record: its configuration was opened without a name, the record stays as it is.</source>
        <translation>%1 ist eine Aufzeichnung: Ihre Konfiguration wurde ohne Namen geöffnet, die Aufzeichnung bleibt, wie sie ist.</translation>
    </message>
    <message>
        <source>%1: its data are loaded as soon as there is a vehicle.</source>
        <translation>%1: Die Daten werden geladen, sobald ein Fahrzeug da ist.</translation>
    </message>
</context>
<context>
    <name>tarnlog::TarnInit</name>
    <message>
        <source>Init Scenario</source>
        <translation>Init-Szenario</translation>
    </message>
    <message>
        <source>1) Global initialisation (this request is sent to all Ecu)</source>
        <translation>1) Globale Initialisierung (diese Anfrage geht an alle Steuergeräte)</translation>
    </message>
    <message>
        <source>Enter the request bytes to send to the ECU after init Ex: 10A0</source>
        <translation>Anfrage-Bytes an das Steuergerät nach Init eingeben, z. B. 10A0</translation>
    </message>
    <message>
        <source>2) Specific ECU Initialisation</source>
        <translation>2) Initialisierung einzelner Steuergeräte</translation>
    </message>
    <message>
        <source>Select requests to send (after init and global initialisation)</source>
        <translation>Zu sendende Anfragen wählen (nach Init und globaler Initialisierung)</translation>
    </message>
    <message>
        <source>Requests that can be sent</source>
        <translation>Sendbare Anfragen</translation>
    </message>
    <message>
        <source>Ecu</source>
        <translation>Steuergerät</translation>
    </message>
    <message>
        <source>Request</source>
        <translation>Anfrage</translation>
    </message>
    <message>
        <source>Add data</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Remove data</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Move up (Ctrl+Up)</source>
        <translation>Nach oben (Strg+Auf)</translation>
    </message>
    <message>
        <source>Move down (Ctrl+Down)</source>
        <translation>Nach unten (Strg+Ab)</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>On a request: add it to the scenario</source>
        <translation>Auf einer Anfrage: zum Szenario hinzufügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>In the scenario: take the selected requests out</source>
        <translation>Im Szenario: gewählte Anfragen entfernen</translation>
    </message>
    <message>
        <source>Ctrl+Up, Ctrl+Down</source>
        <translation>Strg+Auf, Strg+Ab</translation>
    </message>
    <message>
        <source>Move the selected requests up, down</source>
        <translation>Gewählte Anfragen nach oben, nach unten verschieben</translation>
    </message>
    <message>
        <source>These are no bytes in hexadecimal, as in 10A0: they cannot be sent.</source>
        <translation>Das sind keine Hexadezimal-Bytes wie 10A0: Sie können nicht gesendet werden.</translation>
    </message>
    <message>
        <source>The scenario is full: nothing was added.</source>
        <translation>Das Szenario ist voll: nichts hinzugefügt.</translation>
    </message>
    <message>
        <source>%1 has the address %2, which does not fit into 16 bits: nothing was added.</source>
        <translation>%1 hat die Adresse %2, die nicht in 16 Bit passt: nichts hinzugefügt.</translation>
    </message>
</context>
<context>
    <name>tarnlog::TarnMain</name>
    <message>
        <source>Views</source>
        <translation>Ansichten</translation>
    </message>
    <message>
        <source>&amp;Configure</source>
        <translation>&amp;Konfigurieren</translation>
    </message>
    <message>
        <source>&amp;Acquire</source>
        <translation>&amp;Messen</translation>
    </message>
    <message>
        <source>&amp;Log</source>
        <translation>&amp;Protokoll</translation>
    </message>
    <message>
        <source>There is no vehicle yet: open or connect one first</source>
        <translation>Noch kein Fahrzeug: zuerst eines öffnen oder verbinden</translation>
    </message>
    <message>
        <source>Recording parameters</source>
        <translation>Aufzeichnungsparameter</translation>
    </message>
    <message>
        <source>No connection to the car: the recording goes on when it is back</source>
        <translation>Keine Verbindung zum Fahrzeug: Sobald sie wieder besteht, geht die Aufzeichnung weiter</translation>
    </message>
    <message>
        <source>No connection to the car: recording can begin when it is there</source>
        <translation>Keine Verbindung zum Fahrzeug: Sobald sie besteht, kann die Aufzeichnung beginnen</translation>
    </message>
    <message>
        <source>End now</source>
        <translation>Jetzt beenden</translation>
    </message>
</context>
<context>
    <name>tarnlog::TarnPaSc</name>
    <message>
        <source>Data and how they are shown</source>
        <translation>Daten und ihre Anzeige</translation>
    </message>
    <message>
        <source>Up and Down move the data; with Ctrl they go from row to row; Shift+F10 opens the menu</source>
        <translation>Auf und Ab verschieben die Daten; mit Strg gehen sie von Zeile zu Zeile; Umschalt+F10 öffnet das Menü</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move the data up (Up arrow in the list)</source>
        <translation>Daten nach oben verschieben (Pfeil auf in der Liste)</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Move the data down (Down arrow in the list)</source>
        <translation>Daten nach unten verschieben (Pfeil ab in der Liste)</translation>
    </message>
    <message>
        <source>&amp;None</source>
        <translation>&amp;Keine</translation>
    </message>
    <message>
        <source>Record the selected data without showing them</source>
        <translation>Gewählte Daten aufzeichnen, aber nicht zeigen</translation>
    </message>
    <message>
        <source>&amp;Digital</source>
        <translation>&amp;Digital</translation>
    </message>
    <message>
        <source>Show each as digits or text</source>
        <translation>Jede als Ziffern oder Text zeigen</translation>
    </message>
    <message>
        <source>&amp;BarGraph</source>
        <translation>&amp;Balken</translation>
    </message>
    <message>
        <source>Show each as a bar from 0 to 100</source>
        <translation>Jede als Balken von 0 bis 100 zeigen</translation>
    </message>
    <message>
        <source>&amp;Graph</source>
        <translation>Dia&amp;gramm</translation>
    </message>
    <message>
        <source>A graph for each</source>
        <translation>Für jede ein Diagramm</translation>
    </message>
    <message>
        <source>&amp;Single graph</source>
        <translation>Gem&amp;einsames Diagramm</translation>
    </message>
    <message>
        <source>All on the graph of the first one</source>
        <translation>Alle im Diagramm der ersten</translation>
    </message>
    <message>
        <source>&amp;X-Y graph</source>
        <translation>&amp;X-Y-Diagramm</translation>
    </message>
    <message>
        <source>All on the graph of the first one, the last as its X axis</source>
        <translation>Alle im Diagramm der ersten, die letzte als X-Achse</translation>
    </message>
    <message>
        <source>&amp;Unify number of points</source>
        <translation>Anzahl der Punkte &amp;vereinheitlichen</translation>
    </message>
    <message>
        <source>Give all selected graphs the number of points of the first one</source>
        <translation>Allen gewählten Diagrammen die Punktanzahl des ersten geben</translation>
    </message>
    <message>
        <source>Number of &amp;points...</source>
        <translation>Anzahl der &amp;Punkte...</translation>
    </message>
    <message>
        <source>Of all selected graphs</source>
        <translation>Für alle gewählten Diagramme</translation>
    </message>
    <message>
        <source>&amp;Colours in turn</source>
        <translation>&amp;Farben der Reihe nach</translation>
    </message>
    <message>
        <source>Give the selected graphs and curves colours that are easily told apart</source>
        <translation>Den gewählten Diagrammen und Kurven leicht unterscheidbare Farben geben</translation>
    </message>
    <message>
        <source>&amp;Automatic range</source>
        <translation>&amp;Automatischer Bereich</translation>
    </message>
    <message>
        <source>The axes of the selected graphs follow the values</source>
        <translation>Die Achsen der gewählten Diagramme folgen den Werten</translation>
    </message>
    <message>
        <source>&amp;Fixed range</source>
        <translation>Fe&amp;ster Bereich</translation>
    </message>
    <message>
        <source>The axes of the selected graphs go from their minimum to their maximum</source>
        <translation>Die Achsen der gewählten Diagramme gehen von ihrem Minimum bis zu ihrem Maximum</translation>
    </message>
    <message>
        <source>&amp;Empty captions</source>
        <translation>Beschriftungen &amp;leeren</translation>
    </message>
    <message>
        <source>The selected data are shown under their own names</source>
        <translation>Die gewählten Daten erscheinen unter ihren eigenen Namen</translation>
    </message>
    <message>
        <source>Up, Down</source>
        <translation>Auf, Ab</translation>
    </message>
    <message>
        <source>In the list: move the data up, down</source>
        <translation>In der Liste: Daten nach oben, nach unten verschieben</translation>
    </message>
    <message>
        <source>Ctrl+Up, Ctrl+Down</source>
        <translation>Strg+Auf, Strg+Ab</translation>
    </message>
    <message>
        <source>In the list: go from row to row</source>
        <translation>In der Liste: von Zeile zu Zeile gehen</translation>
    </message>
    <message>
        <source>Shift+click, Ctrl+A</source>
        <translation>Umschalt+Klick, Strg+A</translation>
    </message>
    <message>
        <source>Select several data, all data</source>
        <translation>Mehrere Daten, alle Daten auswählen</translation>
    </message>
    <message>
        <source>Shift+F10, Menu</source>
        <translation>Umschalt+F10, Menü</translation>
    </message>
    <message>
        <source>What can be done to all selected data: graphs, colours, ranges, captions</source>
        <translation>Was mit allen gewählten Daten möglich ist: Diagramme, Farben, Bereiche, Beschriftungen</translation>
    </message>
    <message>
        <source>Number of points</source>
        <translation>Anzahl der Punkte</translation>
    </message>
    <message>
        <source>Values that the selected graphs show across their width:</source>
        <translation>Werte, die die gewählten Diagramme in ihrer Breite zeigen:</translation>
    </message>
</context>
<context>
    <name>tarnlog::TarnParam</name>
    <message>
        <source>User Comment</source>
        <translation>Kommentar</translation>
    </message>
    <message>
        <source>Recording parameters</source>
        <translation>Aufzeichnungsparameter</translation>
    </message>
    <message>
        <source>Recording period (s)</source>
        <translation>Aufzeichnungsperiode (s)</translation>
    </message>
    <message>
        <source>0 = Save all records</source>
        <translation>0 = alles speichern</translation>
    </message>
    <message>
        <source>How fast the last acquisition polled the car, and what costs most of the time</source>
        <translation>Wie schnell die letzte Messung das Fahrzeug abgefragt hat und was die meiste Zeit kostet</translation>
    </message>
    <message>
        <source>Up, Down</source>
        <translation>Auf, Ab</translation>
    </message>
    <message>
        <source>In a number: one step; Page Up and Page Down: a wide one</source>
        <translation>In einem Zahlenfeld: ein Schritt; Bild auf und Bild ab: ein großer</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Choose the trigger&apos;s kind, turn its edge</source>
        <translation>Art des Triggers wählen, Flanke wechseln</translation>
    </message>
    <message>
        <source>Left, Right</source>
        <translation>Links, Rechts</translation>
    </message>
    <message>
        <source>In the folders: close and open one; the current folder is the chosen one</source>
        <translation>In den Ordnern: zu- und aufklappen; der aktuelle Ordner ist der gewählte</translation>
    </message>
</context>
<context>
    <name>tarnlog::TarnReview</name>
    <message>
        <source>Open...</source>
        <translation>Öffnen...</translation>
    </message>
    <message>
        <source>Open a record (Ctrl+O)</source>
        <translation>Aufzeichnung öffnen (Strg+O)</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>What was seen before (Backspace)</source>
        <translation>Vorige Ansicht (Rücktaste)</translation>
    </message>
    <message>
        <source>Show all</source>
        <translation>Alles</translation>
    </message>
    <message>
        <source>The whole record (F)</source>
        <translation>Die ganze Aufzeichnung (F)</translation>
    </message>
    <message>
        <source>Hand on</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>Save or copy what is seen</source>
        <translation>Sichtbares speichern oder kopieren</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Keys and help (F1)</source>
        <translation>Tasten und Hilfe (F1)</translation>
    </message>
    <message>
        <source>Lay another record &amp;over...</source>
        <translation>&amp;Weitere Aufzeichnung überlagern...</translation>
    </message>
    <message>
        <source>&amp;Difference of the chosen curve</source>
        <translation>&amp;Differenz der gewählten Kurve</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>Vergleich</translation>
    </message>
    <message>
        <source>Lay another drive over this one, and show how they differ</source>
        <translation>Eine weitere Fahrt überlagern und die Unterschiede zeigen</translation>
    </message>
    <message>
        <source>Open a record, or drop its file here.
Text, XML and MDF 4 records, whole or still being written.</source>
        <translation>Aufzeichnung öffnen oder ihre Datei hier ablegen.
Text, XML und MDF 4, fertig oder noch in Aufzeichnung.</translation>
    </message>
    <message>
        <source>Figures</source>
        <translation>Kennwerte</translation>
    </message>
    <message>
        <source>Marks</source>
        <translation>Marken</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1 is not whole</source>
        <translation>%1 ist nicht vollständig</translation>
    </message>
    <message>
        <source>At most %1 records are looked at: %2 was left out</source>
        <translation>Höchstens %1 Aufzeichnungen werden gezeigt: %2 wurde weggelassen</translation>
    </message>
    <message>
        <source>Records (*.txt, *.xml, *.mf4)</source>
        <translation>Aufzeichnungen (*.txt, *.xml, *.mf4)</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message>
        <source>Open record</source>
        <translation>Aufzeichnung öffnen</translation>
    </message>
    <message>
        <source>Lay another record over</source>
        <translation>Weitere Aufzeichnung überlagern</translation>
    </message>
    <message>
        <source>Read it as a table of another program</source>
        <translation>Als Tabelle eines anderen Programms lesen</translation>
    </message>
    <message>
        <source>Look at this instead</source>
        <translation>Stattdessen ansehen</translation>
    </message>
    <message>
        <source>Lay it over</source>
        <translation>Überlagern</translation>
    </message>
</context>
<context>
    <name>tarnlog::TarnSelect</name>
    <message>
        <source>Ctrl+F</source>
        <translation>Strg+F</translation>
    </message>
    <message>
        <source>Filter the available data; Escape empties the filter, Down goes on to what it found</source>
        <translation>Verfügbare Daten filtern; Esc leert den Filter, Ab geht zum Gefundenen</translation>
    </message>
    <message>
        <source>Left, Right</source>
        <translation>Links, Rechts</translation>
    </message>
    <message>
        <source>Close and open an ECU or a request</source>
        <translation>Steuergerät oder Anfrage zu- und aufklappen</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Add the selected data to those to record</source>
        <translation>Gewählte Daten zu den aufzuzeichnenden hinzufügen</translation>
    </message>
    <message>
        <source>Ctrl+Up, Ctrl+Down</source>
        <translation>Strg+Auf, Strg+Ab</translation>
    </message>
    <message>
        <source>In the list: move the data up, down</source>
        <translation>In der Liste: Daten nach oben, nach unten verschieben</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>In the list: take the selected data out</source>
        <translation>In der Liste: gewählte Daten entfernen</translation>
    </message>
    <message>
        <source>Ctrl+Z</source>
        <translation>Strg+Z</translation>
    </message>
    <message>
        <source>Take a removal back</source>
        <translation>Entfernen rückgängig machen</translation>
    </message>
    <message>
        <source>Internal error, data %1 not found</source>
        <translation>Interner Fehler, Messgröße %1 nicht gefunden</translation>
    </message>
</context>
<context>
    <name>tarnlog::TimeAxis</name>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
</context>
<context>
    <name>tarnlog::TriggerFrame</name>
    <message>
        <source>Start Trigger</source>
        <translation>Starttrigger</translation>
    </message>
    <message>
        <source>Stop Trigger</source>
        <translation>Stopptrigger</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Manuell</translation>
    </message>
    <message>
        <source>Duration of recording (s)</source>
        <translation>Aufzeichnungsdauer (s)</translation>
    </message>
    <message>
        <source>Time in second</source>
        <translation>Zeit in Sekunden</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Edge</source>
        <translation>Flanke</translation>
    </message>
    <message>
        <source>Pre trigger (s)</source>
        <translation>Vorlauf (s)</translation>
    </message>
    <message>
        <source>Post trigger (s)</source>
        <translation>Nachlauf (s)</translation>
    </message>
    <message>
        <source>Negative: before the start, as in -5</source>
        <translation>Negativ: vor dem Start, z. B. -5</translation>
    </message>
    <message>
        <source>Auto-restart</source>
        <translation>Auto-Neustart</translation>
    </message>
    <message>
        <source>[No Channel]</source>
        <translation>[Kein Kanal]</translation>
    </message>
    <message>
        <source>Falling edge</source>
        <translation>Fallende Flanke</translation>
    </message>
    <message>
        <source>Rising edge</source>
        <translation>Steigende Flanke</translation>
    </message>
    <message>
        <source>Trigger level</source>
        <translation>Triggerschwelle</translation>
    </message>
</context>
<context>
    <name>tarnlog::ValueListModel</name>
    <message>
        <source>Data</source>
        <translation>Messgröße</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximum</translation>
    </message>
</context>
<context>
    <name>tarnlog::ValueListView</name>
    <message>
        <source>Live values</source>
        <translation>Live-Werte</translation>
    </message>
</context>
<context>
    <name>tarnlog::VehicleSlot</name>
    <message>
        <source>Connecting to %1...</source>
        <translation>Verbinden mit %1...</translation>
    </message>
</context>
</TS>
