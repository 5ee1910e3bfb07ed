<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Told</name>
    <message>
        <source>the ECU at address 0x{:X} gives none of the data that it lists (1 PID)</source>
        <translation>das Steuergerät mit der Adresse 0x{:X} liefert nichts von dem, was es aufzählt (1 PID)</translation>
    </message>
    <message>
        <source>the ECU at address 0x{:X} gives none of the data that it lists ({} PIDs)</source>
        <translation>das Steuergerät mit der Adresse 0x{:X} liefert nichts von dem, was es aufzählt ({} PIDs)</translation>
    </message>
    <message>
        <source>waiting for the adapter</source>
        <translation>wartet auf den Adapter</translation>
    </message>
    <message>
        <source>looking for the car&apos;s bus</source>
        <translation>sucht den Bus des Fahrzeugs</translation>
    </message>
    <message>
        <source>asking the ECUs what they offer</source>
        <translation>fragt die Steuergeräte, was sie anbieten</translation>
    </message>
    <message>
        <source>trying the data</source>
        <translation>probiert die Daten</translation>
    </message>
    <message>
        <source>{} is refused ({}): left out, and asked again every 5 s</source>
        <translation>{} wird abgelehnt ({}): ausgelassen und alle 5 s wieder gefragt</translation>
    </message>
    <message>
        <source>{} is not answered: left out, and asked again every 5 s</source>
        <translation>{} wird nicht beantwortet: ausgelassen und alle 5 s wieder gefragt</translation>
    </message>
    <message>
        <source>{} is answered again</source>
        <translation>{} wird wieder beantwortet</translation>
    </message>
    <message>
        <source>{}; nothing more is published</source>
        <translation>{}; es wird nichts mehr veröffentlicht</translation>
    </message>
    <message>
        <source>{}: {}; the rest of it is not published</source>
        <translation>{}: {}; der Rest davon wird nicht veröffentlicht</translation>
    </message>
    <message>
        <source>the broker acknowledges nothing</source>
        <translation>der Broker bestätigt nichts</translation>
    </message>
    <message>
        <source>goes on</source>
        <translation>geht weiter</translation>
    </message>
    <message>
        <source>{}; {} is left</source>
        <translation>{}; {} wird aufgegeben</translation>
    </message>
    <message>
        <source>{}; it is tried again, and the answers wait in their file</source>
        <translation>{}; es wird wieder versucht, und die Antworten warten in ihrer Datei</translation>
    </message>
    <message>
        <source>{}: is damaged: what stands behind is not published</source>
        <translation>{}: ist beschädigt: was danach kommt, wird nicht veröffentlicht</translation>
    </message>
    <message>
        <source>{}: answers published: {}</source>
        <translation>{}: veröffentlichte Antworten: {}</translation>
    </message>
    <message>
        <source>{}; the file will be published again</source>
        <translation>{}; die Datei wird noch einmal veröffentlicht</translation>
    </message>
    <message>
        <source>{}: is not published whole; &quot;tarn-record publish&quot; sends the rest</source>
        <translation>{}: ist nicht ganz veröffentlicht; „tarn-record publish“ sendet den Rest</translation>
    </message>
    <message>
        <source>{} data: {:.1f} cycles/s</source>
        <translation>{} Messgrößen: {:.1f} Zyklen/s</translation>
    </message>
    <message>
        <source>{} data: {:.1f} cycles/s; {} costs {:.0f} %</source>
        <translation>{} Messgrößen: {:.1f} Zyklen/s; {} kostet {:.0f} %</translation>
    </message>
    <message>
        <source>{} late</source>
        <translation>{} verspätet</translation>
    </message>
    <message>
        <source>{} refused</source>
        <translation>{} abgelehnt</translation>
    </message>
    <message>
        <source>{} lost</source>
        <translation>{} verloren</translation>
    </message>
    <message>
        <source>{} of 1 answer</source>
        <translation>{} von 1 Antwort</translation>
    </message>
    <message>
        <source>{} of {} answers</source>
        <translation>{} von {} Antworten</translation>
    </message>
    <message>
        <source>{} cycles/s ({} to {})</source>
        <translation>{} Zyklen/s ({} bis {})</translation>
    </message>
    <message>
        <source>{} rows/s ({} to {})</source>
        <translation>{} Zeilen/s ({} bis {})</translation>
    </message>
    <message>
        <source>no gap</source>
        <translation>keine Lücke</translation>
    </message>
    <message>
        <source>a gap of {} s at {} s</source>
        <translation>eine Lücke von {} s bei {} s</translation>
    </message>
    <message>
        <source>{} gaps, the longest {} s at {} s</source>
        <translation>{} Lücken, die längste {} s bei {} s</translation>
    </message>
    <message>
        <source>no clock step</source>
        <translation>kein Uhrsprung</translation>
    </message>
    <message>
        <source>1 clock step by {} s</source>
        <translation>1 Uhrsprung um {} s</translation>
    </message>
    <message>
        <source>{} clock steps by {} s</source>
        <translation>{} Uhrsprünge um {} s</translation>
    </message>
    <message>
        <source>1 row</source>
        <translation>1 Zeile</translation>
    </message>
    <message>
        <source>{} rows</source>
        <translation>{} Zeilen</translation>
    </message>
    <message>
        <source>{} synced</source>
        <translation>{} gesichert</translation>
    </message>
    <message>
        <source>sent so far: {}</source>
        <translation>bisher gesendet: {}</translation>
    </message>
    <message>
        <source>{} is not a whole number from {} to {}</source>
        <translation>{} ist keine ganze Zahl von {} bis {}</translation>
    </message>
    <message>
        <source>{} is not a number, expected one like 12.5</source>
        <translation>{} ist keine Zahl, erwartet etwa 12.5</translation>
    </message>
    <message>
        <source>{} is none of {}</source>
        <translation>{} ist keines von {}</translation>
    </message>
    <message>
        <source>{} is none of {}, did you mean {}?</source>
        <translation>{} ist keines von {}, vielleicht {}?</translation>
    </message>
    <message>
        <source>expected a file; {} is none here</source>
        <translation>Datei erwartet; {} ist hier keine</translation>
    </message>
    <message>
        <source>{}: expected behind a command, like {}</source>
        <translation>{}: hinter einem Befehl erwartet, etwa {}</translation>
    </message>
    <message>
        <source>{}: there is no such option</source>
        <translation>{}: diese Option gibt es nicht</translation>
    </message>
    <message>
        <source>{}: there is no such option, did you mean {}?</source>
        <translation>{}: diese Option gibt es nicht, vielleicht {}?</translation>
    </message>
    <message>
        <source>{}: there is no such command</source>
        <translation>{}: diesen Befehl gibt es nicht</translation>
    </message>
    <message>
        <source>{}: there is no such command, did you mean {}?</source>
        <translation>{}: diesen Befehl gibt es nicht, vielleicht {}?</translation>
    </message>
    <message>
        <source>expected a command: {}</source>
        <translation>Befehl erwartet: {}</translation>
    </message>
    <message>
        <source>missing: {}</source>
        <translation>es fehlt: {}</translation>
    </message>
    <message>
        <source>{}: expected {} behind it</source>
        <translation>{}: dahinter {} erwartet</translation>
    </message>
    <message>
        <source>{} and {} together are not possible</source>
        <translation>{} und {} sind zusammen nicht möglich</translation>
    </message>
    <message>
        <source>{}: not expected here</source>
        <translation>{}: hier nicht erwartet</translation>
    </message>
    <message>
        <source>`{} --help` tells more.</source>
        <translation>`{} --help` zeigt mehr.</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>Aufruf</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>OPTIONEN</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>Argumente</translation>
    </message>
    <message>
        <source>SUBCOMMAND</source>
        <translation>BEFEHL</translation>
    </message>
    <message>
        <source>Subcommands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>REQUIRED</source>
        <translation>ERFORDERLICH</translation>
    </message>
    <message>
        <source>Needs</source>
        <translation>Erfordert</translation>
    </message>
    <message>
        <source>Example:</source>
        <translation>Beispiel:</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>Diese Hilfe anzeigen und beenden</translation>
    </message>
    <message>
        <source>nothing was read: the file has no element &quot;Parameters&quot;</source>
        <translation>es wurde nichts gelesen: in der Datei fehlt das Element „Parameters“</translation>
    </message>
    <message>
        <source>not offered by this vehicle: {}</source>
        <translation>von diesem Fahrzeug nicht angeboten: {}</translation>
    </message>
    <message>
        <source>configured twice, taken once: {}</source>
        <translation>doppelt konfiguriert, einmal übernommen: {}</translation>
    </message>
    <message>
        <source>not acquired, the ECU element&apos;s function is not the one in the vehicle: {}</source>
        <translation>nicht gemessen, die Funktion des ECU-Elements ist nicht die des Fahrzeugs: {}</translation>
    </message>
    <message>
        <source>init scenario request not offered by this vehicle: {}</source>
        <translation>Anfrage des Init-Szenarios von diesem Fahrzeug nicht angeboten: {}</translation>
    </message>
    <message>
        <source>the start trigger watches data that this vehicle does not offer: start is manual</source>
        <translation>der Starttrigger überwacht Daten, die dieses Fahrzeug nicht anbietet: Start ist manuell</translation>
    </message>
    <message>
        <source>the stop trigger watches data that this vehicle does not offer: stop is manual</source>
        <translation>der Stopptrigger überwacht Daten, die dieses Fahrzeug nicht anbietet: Stopp ist manuell</translation>
    </message>
    <message>
        <source>{}: no data to acquire, this vehicle offers none of the data</source>
        <translation>{}: keine Daten zu messen, dieses Fahrzeug bietet keine davon an</translation>
    </message>
    <message>
        <source>{}: whole, nothing to do</source>
        <translation>{}: vollständig, nichts zu tun</translation>
    </message>
    <message>
        <source>{}: closed, {} answer or mark</source>
        <translation>{}: abgeschlossen, {} Antwort oder Marke</translation>
    </message>
    <message>
        <source>{}: closed, {} answers and marks</source>
        <translation>{}: abgeschlossen, {} Antworten und Marken</translation>
    </message>
    <message>
        <source>{} bytes of what was cut dropped</source>
        <translation>{} Bytes des abgeschnittenen Endes verworfen</translation>
    </message>
    <message>
        <source>{}: the original is {}</source>
        <translation>{}: das Original ist {}</translation>
    </message>
    <message>
        <source>; near are:</source>
        <translation>; ähnlich sind:</translation>
    </message>
    <message>
        <source>... {} lines not shown</source>
        <translation>... {} Zeilen nicht gezeigt</translation>
    </message>
    <message>
        <source>{}: others can read the password in it; &quot;chmod 600&quot; keeps them out</source>
        <translation>{}: andere können das Passwort darin lesen; „chmod 600“ verhindert das</translation>
    </message>
    <message>
        <source>{}: the password goes over the network as it is; mqtts:// hides it</source>
        <translation>{}: das Passwort geht unverschlüsselt über das Netz; mqtts:// verbirgt es</translation>
    </message>
    <message>
        <source>--publish-data {}: expected ECU/REQUEST/DATA of the configuration</source>
        <translation>--publish-data {}: ECU/REQUEST/DATA der Konfiguration erwartet</translation>
    </message>
    <message>
        <source>--from and --till: expected seconds</source>
        <translation>--from und --till: Sekunden erwartet</translation>
    </message>
    <message>
        <source>--from is later than --till: nothing lies between them</source>
        <translation>--from liegt nach --till: dazwischen liegt nichts</translation>
    </message>
    <message>
        <source>--from {}: expected at most {}, where the record ends</source>
        <translation>--from {}: höchstens {} erwartet, dort endet die Aufzeichnung</translation>
    </message>
    <message>
        <source>--till {}: expected at least {}, where the record begins</source>
        <translation>--till {}: mindestens {} erwartet, dort beginnt die Aufzeichnung</translation>
    </message>
    <message>
        <source>--data {}: not in {}, did you mean {}?</source>
        <translation>--data {}: nicht in {}, vielleicht {}?</translation>
    </message>
    <message>
        <source>--data {}: not in {}</source>
        <translation>--data {}: nicht in {}</translation>
    </message>
    <message>
        <source>{}: Parameters/Recording/File: prefix=&quot;{}&quot;: expected one that stays in the folder of the record files</source>
        <translation>{}: Parameters/Recording/File: prefix=&quot;{}&quot;: Präfix erwartet, das im Ordner der Aufzeichnungen bleibt</translation>
    </message>
    <message>
        <source>{}: cannot be repaired, the result could not be read: {}</source>
        <translation>{}: lässt sich nicht reparieren, das Ergebnis war nicht lesbar: {}</translation>
    </message>
    <message>
        <source>{}: cannot be repaired</source>
        <translation>{}: lässt sich nicht reparieren</translation>
    </message>
    <message>
        <source>repaired</source>
        <translation>repariert</translation>
    </message>
    <message>
        <source>closed</source>
        <translation>abgeschlossen</translation>
    </message>
    <message>
        <source>1 row that was cut kept with its whole cells</source>
        <translation>1 abgeschnittene Zeile mit ihren ganzen Zellen behalten</translation>
    </message>
    <message>
        <source>{} rows that were cut kept with their whole cells</source>
        <translation>{} abgeschnittene Zeilen mit ihren ganzen Zellen behalten</translation>
    </message>
    <message>
        <source>1 element before the rows closed</source>
        <translation>1 Element vor den Zeilen geschlossen</translation>
    </message>
    <message>
        <source>{} elements before the rows closed</source>
        <translation>{} Elemente vor den Zeilen geschlossen</translation>
    </message>
    <message>
        <source>1 byte of what was not finished dropped</source>
        <translation>1 Byte am unfertigen Ende verworfen</translation>
    </message>
    <message>
        <source>{} bytes of what was not finished dropped</source>
        <translation>{} Bytes am unfertigen Ende verworfen</translation>
    </message>
    <message>
        <source>{}: not an XML record file, expected the root element Tarnlog2000, nor a measurement file</source>
        <translation>{}: keine XML-Aufzeichnung mit dem Wurzelelement Tarnlog2000 und keine Messdatei</translation>
    </message>
    <message>
        <source>{}: not a file that can be repaired</source>
        <translation>{}: diese Datei lässt sich nicht reparieren</translation>
    </message>
    <message>
        <source>{}: is being written, repair it when its recording has ended</source>
        <translation>{}: wird gerade geschrieben, erst nach dem Ende der Aufzeichnung reparieren</translation>
    </message>
    <message>
        <source>{} ({} times)</source>
        <translation>{} ({}-mal)</translation>
    </message>
    <message>
        <source>1 block lost</source>
        <translation>1 Block verloren</translation>
    </message>
    <message>
        <source>{} blocks lost</source>
        <translation>{} Blöcke verloren</translation>
    </message>
    <message>
        <source>1 row lost</source>
        <translation>1 Zeile verloren</translation>
    </message>
    <message>
        <source>{} rows lost</source>
        <translation>{} Zeilen verloren</translation>
    </message>
    <message>
        <source>write failed: {}: {}</source>
        <translation>Schreiben gescheitert: {}: {}</translation>
    </message>
    <message>
        <source>file cut short: {}: {}</source>
        <translation>Datei wurde gekürzt: {}: {}</translation>
    </message>
    <message>
        <source>not synced, a power cut may cost rows: {}: {}</source>
        <translation>nicht gesichert, ein Stromausfall kann Zeilen kosten: {}: {}</translation>
    </message>
    <message>
        <source>{} in all</source>
        <translation>insgesamt {}</translation>
    </message>
    <message>
        <source>closed while writing failed: {}: {}</source>
        <translation>geschlossen, während das Schreiben scheiterte: {}: {}</translation>
    </message>
    <message>
        <source>writing goes on: {}: {}</source>
        <translation>Schreiben geht weiter: {}: {}</translation>
    </message>
    <message>
        <source>Show what of a configuration a vehicle can record</source>
        <translation>Zeigen, was ein Fahrzeug von einer Konfiguration aufzeichnen kann</translation>
    </message>
    <message>
        <source>after {} s</source>
        <translation>nach {} s</translation>
    </message>
    <message>
        <source>manual</source>
        <translation>manuell</translation>
    </message>
    <message>
        <source>{} falls to {} {}</source>
        <translation>{} fällt auf {} {}</translation>
    </message>
    <message>
        <source>{} rises to {} {}</source>
        <translation>{} steigt auf {} {}</translation>
    </message>
    <message>
        <source>odd: {}</source>
        <translation>auffällig: {}</translation>
    </message>
    <message>
        <source>no data to acquire</source>
        <translation>keine Daten zu messen</translation>
    </message>
    <message>
        <source>period 0 s, a row every polling cycle</source>
        <translation>Periode 0 s, eine Zeile je Abfragezyklus</translation>
    </message>
    <message>
        <source>period {} s</source>
        <translation>Periode {} s</translation>
    </message>
    <message>
        <source>start: {}, pre-trigger {} s = {} points</source>
        <translation>Start: {}, Vorlauf {} s = {} Punkte</translation>
    </message>
    <message>
        <source>stop: {}, post-trigger {} s = {} points</source>
        <translation>Stopp: {}, Nachlauf {} s = {} Punkte</translation>
    </message>
    <message>
        <source>the start trigger never fires: its edge is neither 1 nor -1</source>
        <translation>der Starttrigger löst nie aus: seine Flanke ist weder 1 noch -1</translation>
    </message>
    <message>
        <source>the stop trigger never fires: its edge is neither 1 nor -1</source>
        <translation>der Stopptrigger löst nie aus: seine Flanke ist weder 1 noch -1</translation>
    </message>
    <message>
        <source>init scenario: {}/{}</source>
        <translation>Init-Szenario: {}/{}</translation>
    </message>
    <message>
        <source>init scenario: {}/{}, never sent: nothing is recorded from this ECU</source>
        <translation>Init-Szenario: {}/{}, nie gesendet: von diesem Steuergerät wird nichts aufgezeichnet</translation>
    </message>
    <message>
        <source>start session: {}, sent to {}</source>
        <translation>Startsitzung: {}, gesendet an {}</translation>
    </message>
    <message>
        <source>odd: Parameters/StartSession: {}; nothing is sent</source>
        <translation>auffällig: Parameters/StartSession: {}; es wird nichts gesendet</translation>
    </message>
    <message>
        <source>files: {}, {}</source>
        <translation>Dateien: {}, {}</translation>
    </message>
    <message>
        <source>odd: the folder {} is missing: the files go into the current one</source>
        <translation>auffällig: der Ordner {} fehlt: die Dateien kommen in den aktuellen Ordner</translation>
    </message>
    <message>
        <source>odd: no file can be made in the folder {}</source>
        <translation>auffällig: im Ordner {} lässt sich keine Datei anlegen</translation>
    </message>
    <message>
        <source>odd: format=&quot;{}&quot;: expected .xml, .txt or another extension with its dot</source>
        <translation>auffällig: format=&quot;{}&quot;: .xml, .txt oder andere Endung mit ihrem Punkt erwartet</translation>
    </message>
    <message>
        <source>{} data load:</source>
        <translation>{} Messgrößen geladen:</translation>
    </message>
    <message>
        <source>expected 0 or 1; 0 is taken</source>
        <translation>0 oder 1 erwartet; 0 gilt</translation>
    </message>
    <message>
        <source>expected 1 (rising) or -1 (falling); otherwise the trigger never fires</source>
        <translation>1 (steigend) oder -1 (fallend) erwartet; sonst löst der Trigger nie aus</translation>
    </message>
    <message>
        <source>expected a whole number of 32 bits; {} is taken</source>
        <translation>ganze Zahl mit 32 Bit erwartet; {} gilt</translation>
    </message>
    <message>
        <source>expected a whole number of 32 bits; it is ignored</source>
        <translation>ganze Zahl mit 32 Bit erwartet; der Wert wird ignoriert</translation>
    </message>
    <message>
        <source>expected a whole number; {} is taken</source>
        <translation>ganze Zahl erwartet; {} gilt</translation>
    </message>
    <message>
        <source>expected a number with &quot;.&quot;; {} is taken</source>
        <translation>Zahl mit „.“ erwartet; {} gilt</translation>
    </message>
    <message>
        <source>Datas: two data have the index {}; what names it means the first</source>
        <translation>Datas: zwei Messgrößen haben den Index {}; was ihn nennt, meint die erste</translation>
    </message>
    <message>
        <source>{}: unknown element</source>
        <translation>{}: unbekanntes Element</translation>
    </message>
    <message>
        <source>{}: is there twice; only the first one is read</source>
        <translation>{}: doppelt vorhanden; nur das erste wird gelesen</translation>
    </message>
    <message>
        <source>unknown attribute</source>
        <translation>unbekanntes Attribut</translation>
    </message>
    <message>
        <source>{}: type=&quot;{}&quot;: expected one of {}, {}; {} is taken</source>
        <translation>{}: type=&quot;{}&quot;: eines von {}, {} erwartet; {} gilt</translation>
    </message>
    <message>
        <source>{}: no element {}, which has the settings</source>
        <translation>{}: das Element {} mit den Einstellungen fehlt</translation>
    </message>
    <message>
        <source>idle</source>
        <translation>ruht</translation>
    </message>
    <message>
        <source>initialising the ECUs</source>
        <translation>initialisiert die Steuergeräte</translation>
    </message>
    <message>
        <source>starting the diagnostic sessions</source>
        <translation>startet die Diagnosesitzungen</translation>
    </message>
    <message>
        <source>polling</source>
        <translation>fragt ab</translation>
    </message>
    <message>
        <source>waiting after the initialisation</source>
        <translation>wartet nach der Initialisierung</translation>
    </message>
    <message>
        <source>waiting before polling</source>
        <translation>wartet vor dem Abfragen</translation>
    </message>
    <message>
        <source>asks {} (address 0x{:X}, {}): {}, frame {}, for {} data</source>
        <translation>fragt {} (Adresse 0x{:X}, {}): {}, Frame {}, für {} Messgrößen</translation>
    </message>
    <message>
        <source>{} failed after {:.3f} s: {}</source>
        <translation>{} nach {:.3f} s gescheitert: {}</translation>
    </message>
    <message>
        <source>state: {}</source>
        <translation>Zustand: {}</translation>
    </message>
    <message>
        <source>records into {}, from {:.3f} s on</source>
        <translation>zeichnet in {} auf, ab {:.3f} s</translation>
    </message>
    <message>
        <source>no answer came for {:.3f} s</source>
        <translation>{:.3f} s lang kam keine Antwort</translation>
    </message>
    <message>
        <source>somebody set the clock by {:.3f} s</source>
        <translation>die Uhr wurde um {:.3f} s verstellt</translation>
    </message>
    <message>
        <source>Write a record as CSV, MDF 4 or JSON lines</source>
        <translation>Eine Aufzeichnung als CSV, MDF 4 oder JSON-Zeilen schreiben</translation>
    </message>
    <message>
        <source>Format to write</source>
        <translation>Format der Ausgabe</translation>
    </message>
    <message>
        <source>Only from this time on (seconds, as in the record)</source>
        <translation>Nur ab dieser Zeit (Sekunden, wie in der Aufzeichnung)</translation>
    </message>
    <message>
        <source>S</source>
        <translation>S</translation>
    </message>
    <message>
        <source>Only up to this time</source>
        <translation>Nur bis zu dieser Zeit</translation>
    </message>
    <message>
        <source>Only these data</source>
        <translation>Nur diese Messgrößen</translation>
    </message>
    <message>
        <source>[ECU/[REQUEST/]]DATA</source>
        <translation>[ECU/[REQUEST/]]DATA</translation>
    </message>
    <message>
        <source>Times as UTC (a text or XML record tells local time: it is taken in this system&apos;s zone)</source>
        <translation>Zeiten als UTC (eine Text- oder XML-Aufzeichnung enthält Ortszeit: sie gilt in der Zeitzone dieses Systems)</translation>
    </message>
    <message>
        <source>File to write (replaced when it exists; - is standard output, the default)</source>
        <translation>Zu schreibende Datei (wird ersetzt, wenn vorhanden; - ist die Standardausgabe, die Vorgabe)</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>DATEI</translation>
    </message>
    <message>
        <source>CSV: UTF-8, one header line, commas, &quot;.&quot; in numbers. Columns: time in seconds from the record&apos;s zero (with --utc ISO 8601), mark (Start, Stop, event, gap, failure, clock step), then the data as &quot;name [unit]&quot;, with ECU and request before the name where two have the same. A file that holds several recordings gets a column with their number in front. Of an MDF 4 file there is a line for each time at which something was answered; what was not answered then is empty, and so is what is not available: nothing is repeated or interpolated. An enumerated value is its number.
JSON: one object a line: begin, row or answer, mark, gap, failure, end; not available is null.
What is missing in the file is told on standard error.</source>
        <translation>CSV: UTF-8, eine Kopfzeile, Kommas, „.“ in Zahlen. Spalten: time in Sekunden ab dem Nullpunkt der Aufzeichnung (mit --utc nach ISO 8601), mark (Start, Stop, event, gap, failure, clock step), dann die Messgrößen als „Name [Einheit]“, mit Steuergerät und Anfrage vor dem Namen, wo zwei gleich heißen. Eine Datei mit mehreren Aufzeichnungen erhält vorn eine Spalte mit deren Nummer. Von einer MDF-4-Datei gibt es eine Zeile für jede Zeit, zu der etwas beantwortet wurde; was dann nicht beantwortet wurde, ist leer, ebenso was nicht verfügbar ist: nichts wird wiederholt oder interpoliert. Von einem Aufzählungswert steht dort die Zahl.
JSON: ein Objekt je Zeile: begin, row oder answer, mark, gap, failure, end; nicht verfügbar ist null.
Was in der Datei fehlt, wird auf der Standardfehlerausgabe gemeldet.</translation>
    </message>
    <message>
        <source>{}: does not tell when it began, so --utc is not possible</source>
        <translation>{}: enthält keine Anfangszeit, daher ist --utc nicht möglich</translation>
    </message>
    <message>
        <source>--to mf4: needs a file to write, name one with --output FILE</source>
        <translation>--to mf4: braucht eine Datei zum Schreiben, mit --output DATEI zu nennen</translation>
    </message>
    <message>
        <source>Folder of the record files</source>
        <translation>Ordner der Aufzeichnungen</translation>
    </message>
    <message>
        <source>DIR</source>
        <translation>ORDNER</translation>
    </message>
    <message>
        <source>File format</source>
        <translation>Dateiformat</translation>
    </message>
    <message>
        <source>Seconds between rows, 0 = every polling cycle</source>
        <translation>Sekunden zwischen den Zeilen, 0 = jeder Abfragezyklus</translation>
    </message>
    <message>
        <source>Beginning of the file names</source>
        <translation>Anfang der Dateinamen</translation>
    </message>
    <message>
        <source>TEXT</source>
        <translation>TEXT</translation>
    </message>
    <message>
        <source>Make a vehicle description of an ODX container</source>
        <translation>Aus einem ODX-Container eine Fahrzeugbeschreibung erzeugen</translation>
    </message>
    <message>
        <source>ODX 2.2 container (.pdx), or one of its documents</source>
        <translation>ODX-2.2-Container (.pdx) oder eines seiner Dokumente</translation>
    </message>
    <message>
        <source>Vehicle description to write (replaced when it exists; - is standard output)</source>
        <translation>Zu schreibende Fahrzeugbeschreibung (wird ersetzt, wenn vorhanden; - ist die Standardausgabe)</translation>
    </message>
    <message>
        <source>Name of the vehicle (default: the container&apos;s)</source>
        <translation>Name des Fahrzeugs (Vorgabe: der des Containers)</translation>
    </message>
    <message>
        <source>{}: {} ECUs, {} requests, {} data</source>
        <translation>{}: {} Steuergeräte, {} Anfragen, {} Messgrößen</translation>
    </message>
    <message>
        <source>Please look at</source>
        <translation>Bitte prüfen</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>Weggelassen</translation>
    </message>
    <message>
        <source>Show the data that a vehicle offers</source>
        <translation>Die Messgrößen zeigen, die ein Fahrzeug anbietet</translation>
    </message>
    <message>
        <source>Only where name, request, ECU or unit contains this</source>
        <translation>Nur wo Name, Anfrage, Steuergerät oder Einheit dies enthält</translation>
    </message>
    <message>
        <source>As JSON</source>
        <translation>Als JSON</translation>
    </message>
    <message>
        <source>{} (failure)</source>
        <translation>{} (Fehler)</translation>
    </message>
    <message>
        <source>{} to {}</source>
        <translation>{} bis {}</translation>
    </message>
    <message>
        <source>ECU</source>
        <translation>ECU</translation>
    </message>
    <message>
        <source>REQUEST</source>
        <translation>REQUEST</translation>
    </message>
    <message>
        <source>DATA</source>
        <translation>DATA</translation>
    </message>
    <message>
        <source>UNIT</source>
        <translation>EINHEIT</translation>
    </message>
    <message>
        <source>RANGE</source>
        <translation>BEREICH</translation>
    </message>
    <message>
        <source>TYPE</source>
        <translation>TYP</translation>
    </message>
    <message>
        <source>DEVICE</source>
        <translation>BAUTEIL</translation>
    </message>
    <message>
        <source>... and {} more</source>
        <translation>... und {} weitere</translation>
    </message>
    <message>
        <source>Tell only failures on standard error</source>
        <translation>Nur Fehler auf der Standardfehlerausgabe melden</translation>
    </message>
    <message>
        <source>Tell on standard error, too, what helps to find a fault</source>
        <translation>Auf der Standardfehlerausgabe auch melden, was bei der Fehlersuche hilft</translation>
    </message>
    <message>
        <source>Data to record, as `list` names them</source>
        <translation>Aufzuzeichnende Messgrößen, wie `list` sie nennt</translation>
    </message>
    <message>
        <source>ECU/REQUEST/DATA</source>
        <translation>ECU/REQUEST/DATA</translation>
    </message>
    <message>
        <source>Data to record: all whose ECU/REQUEST/DATA, or DATA alone, fits this pattern; * stands for any characters, ? for one, and case does not count</source>
        <translation>Aufzuzeichnende Messgrößen: alle, deren ECU/REQUEST/DATA oder DATA allein zu diesem Muster passt; * steht für beliebige Zeichen, ? für eines, Groß- und Kleinschreibung zählt nicht</translation>
    </message>
    <message>
        <source>PATTERN</source>
        <translation>MUSTER</translation>
    </message>
    <message>
        <source>Record all data of the vehicle</source>
        <translation>Alle Messgrößen des Fahrzeugs aufzeichnen</translation>
    </message>
    <message>
        <source>Start when the value rises (&gt;) or falls (&lt;) to the level; else by hand</source>
        <translation>Starten, wenn der Wert auf die Schwelle steigt (&gt;) oder fällt (&lt;); sonst von Hand</translation>
    </message>
    <message>
        <source>ECU/REQUEST/DATA&gt;LEVEL</source>
        <translation>ECU/REQUEST/DATA&gt;SCHWELLE</translation>
    </message>
    <message>
        <source>Stop when the value rises or falls to the level or, with seconds like 30s, after that time; else by hand</source>
        <translation>Stoppen, wenn der Wert auf die Schwelle steigt oder fällt, oder bei Sekunden wie 30s nach dieser Zeit; sonst von Hand</translation>
    </message>
    <message>
        <source>ECU/REQUEST/DATA&lt;LEVEL</source>
        <translation>ECU/REQUEST/DATA&lt;SCHWELLE</translation>
    </message>
    <message>
        <source>Keep the S seconds before the start, too</source>
        <translation>Auch die S Sekunden vor dem Start behalten</translation>
    </message>
    <message>
        <source>Go on for S seconds after the stop</source>
        <translation>Nach dem Stopp noch S Sekunden weiter aufzeichnen</translation>
    </message>
    <message>
        <source>recorded, too, for a trigger watches it: {}</source>
        <translation>auch aufgezeichnet, weil ein Trigger es überwacht: {}</translation>
    </message>
    <message>
        <source>Write a configuration that records the chosen data</source>
        <translation>Eine Konfiguration schreiben, die die gewählten Messgrößen aufzeichnet</translation>
    </message>
    <message>
        <source>Configuration file to write (replaced when it exists; - is standard output)</source>
        <translation>Zu schreibende Konfigurationsdatei (wird ersetzt, wenn vorhanden; - ist die Standardausgabe)</translation>
    </message>
    <message>
        <source>A trigger can watch only what is recorded: what it names is recorded, too.</source>
        <translation>Ein Trigger kann nur überwachen, was aufgezeichnet wird: was er nennt, wird auch aufgezeichnet.</translation>
    </message>
    <message>
        <source>--match {}: no data of this vehicle are called so{}</source>
        <translation>--match {}: keine Messgröße dieses Fahrzeugs heißt so{}</translation>
    </message>
    <message>
        <source>{} {}: expected ECU/REQUEST/DATA of this vehicle{}</source>
        <translation>{} {}: ECU/REQUEST/DATA dieses Fahrzeugs erwartet{}</translation>
    </message>
    <message>
        <source>{} {}: expected a number, and {} has none</source>
        <translation>{} {}: Zahl erwartet, aber {} hat keine</translation>
    </message>
    <message>
        <source>expected --data, --match or --all, which say what to record</source>
        <translation>--data, --match oder --all erwartet, die sagen, was aufgezeichnet wird</translation>
    </message>
    <message>
        <source>link: the simulation of the description</source>
        <translation>Verbindung: die Simulation der Beschreibung</translation>
    </message>
    <message>
        <source>link: {}</source>
        <translation>Verbindung: {}</translation>
    </message>
    <message>
        <source>vehicle {}: {} ECUs, {} requests</source>
        <translation>Fahrzeug {}: {} Steuergeräte, {} Anfragen</translation>
    </message>
    <message>
        <source>asking the car behind {} what it offers</source>
        <translation>fragt das Fahrzeug hinter {}, was es anbietet</translation>
    </message>
    <message>
        <source>not offered: {}</source>
        <translation>nicht angeboten: {}</translation>
    </message>
    <message>
        <source>--output {}: this is the input {}, expected another file</source>
        <translation>--output {}: das ist die Eingabe {}, andere Datei erwartet</translation>
    </message>
    <message>
        <source>Tell how fast a configuration is polled, and what each request costs</source>
        <translation>Zeigen, wie schnell eine Konfiguration abgefragt wird und was jede Anfrage kostet</translation>
    </message>
    <message>
        <source>Poll for so long (default: 5)</source>
        <translation>So lange abfragen (Vorgabe: 5)</translation>
    </message>
    <message>
        <source>Nothing is recorded.</source>
        <translation>Es wird nichts aufgezeichnet.</translation>
    </message>
    <message>
        <source>request</source>
        <translation>Anfrage</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
    <message>
        <source>of the cycle</source>
        <translation>vom Zyklus</translation>
    </message>
    <message>
        <source>data</source>
        <translation>Messgrößen</translation>
    </message>
    <message>
        <source>in one request: {}: {}</source>
        <translation>in einer Anfrage: {}: {}</translation>
    </message>
    <message>
        <source>a row for every cycle, as the configuration says</source>
        <translation>eine Zeile je Zyklus, wie die Konfiguration es sagt</translation>
    </message>
    <message>
        <source>the period of {} s can be held</source>
        <translation>die Periode von {} s lässt sich einhalten</translation>
    </message>
    <message>
        <source>the period of {} s cannot be held: a cycle takes {:.2f} s</source>
        <translation>die Periode von {} s lässt sich nicht einhalten: ein Zyklus dauert {:.2f} s</translation>
    </message>
    <message>
        <source>without these, {:.1f} cycles/s:</source>
        <translation>ohne diese {:.1f} Zyklen/s:</translation>
    </message>
    <message>
        <source>{}: no data to acquire</source>
        <translation>{}: keine Daten zu messen</translation>
    </message>
    <message>
        <source>{}: no data came in the given time</source>
        <translation>{}: in der gegebenen Zeit kamen keine Daten</translation>
    </message>
    <message>
        <source>the slowest ECU is {}: {:.2f} s of each cycle; the others are asked beside it</source>
        <translation>das langsamste Steuergerät ist {}: {:.2f} s jedes Zyklus; die anderen werden gleichzeitig abgefragt</translation>
    </message>
    <message>
        <source>the slowest ECU is {}: {:.2f} s of each cycle</source>
        <translation>das langsamste Steuergerät ist {}: {:.2f} s jedes Zyklus</translation>
    </message>
    <message>
        <source>{} data in {} requests: {:.1f} cycles/s, {:.2f} s each</source>
        <translation>{} Messgrößen in {} Anfragen: {:.1f} Zyklen/s, je {:.2f} s</translation>
    </message>
    <message>
        <source>recording {} s</source>
        <translation>Aufzeichnung {} s</translation>
    </message>
    <message>
        <source>not recording</source>
        <translation>keine Aufzeichnung</translation>
    </message>
    <message>
        <source>{:5} {}  rows {}  {:.1f} cycles/s  {}</source>
        <translation>{:5} {}  Zeilen {}  {:.1f} Zyklen/s  {}</translation>
    </message>
    <message>
        <source>What the broker asks for: a file of JSON with user, password, ca, certificate and key</source>
        <translation>Was der Broker verlangt: eine JSON-Datei mit user, password, ca, certificate und key</translation>
    </message>
    <message>
        <source>Publish only this of what is recorded, and only every MS milliseconds; for several data, several times</source>
        <translation>Vom Aufgezeichneten nur dies veröffentlichen, und nur alle MS Millisekunden; für mehrere Messgrößen mehrmals angeben</translation>
    </message>
    <message>
        <source>[ECU/[REQUEST/]]DATA[=MS]</source>
        <translation>[ECU/[REQUEST/]]DATA[=MS]</translation>
    </message>
    <message>
        <source>Publish each datum only every MS milliseconds (default: each value)</source>
        <translation>Jede Messgröße nur alle MS Millisekunden veröffentlichen (Vorgabe: jeden Wert)</translation>
    </message>
    <message>
        <source>MS</source>
        <translation>MS</translation>
    </message>
    <message>
        <source>What the vehicle is called in the topics (default: its VIN or, when that is not known, its name)</source>
        <translation>Wie das Fahrzeug in den Topics heißt (Vorgabe: seine VIN oder, wenn sie nicht bekannt ist, sein Name)</translation>
    </message>
    <message>
        <source>NAME</source>
        <translation>NAME</translation>
    </message>
    <message>
        <source>Publish what a broker has not acknowledged yet of measurement files</source>
        <translation>Veröffentlichen, was ein Broker aus Messdateien noch nicht bestätigt hat</translation>
    </message>
    <message>
        <source>Measurement files (MDF 4) of this recorder</source>
        <translation>Messdateien (MDF 4) dieses Rekorders</translation>
    </message>
    <message>
        <source>The broker, and what stands before all topics</source>
        <translation>Der Broker und was vor allen Topics steht</translation>
    </message>
    <message>
        <source>What was acknowledged before, too</source>
        <translation>Auch, was früher bestätigt wurde</translation>
    </message>
    <message>
        <source>What was acknowledged stands in NAME.published beside NAME.mf4. Subscribers tell an answer that comes twice by its acquisition and number.</source>
        <translation>Was bestätigt wurde, steht in NAME.published neben NAME.mf4. Abonnenten erkennen eine Antwort, die zweimal kommt, an ihrer Messung und Nummer.</translation>
    </message>
    <message>
        <source>{} files go to {}</source>
        <translation>{} Dateien gehen an {}</translation>
    </message>
    <message>
        <source>only {}, every {} ms</source>
        <translation>nur {}, alle {} ms</translation>
    </message>
    <message>
        <source>all that earlier runs were told to publish</source>
        <translation>alles, was frühere Läufe veröffentlichen sollten</translation>
    </message>
    <message>
        <source>Tell how well a recording went: answers, cycles a second, gaps, rows</source>
        <translation>Zeigen, wie gut eine Aufzeichnung lief: Antworten, Zyklen je Sekunde, Lücken, Zeilen</translation>
    </message>
    <message>
        <source>A measurement file that was closed tells what was counted while it was recorded; of all others that is told which can be counted in them. What is missing in the file is told on standard error.</source>
        <translation>Eine abgeschlossene Messdatei enthält, was während der Aufzeichnung gezählt wurde; bei allen anderen wird gezeigt, was sich daraus zählen lässt. Was in der Datei fehlt, wird auf der Standardfehlerausgabe gemeldet.</translation>
    </message>
    <message>
        <source>{}, recording {}</source>
        <translation>{}, Aufzeichnung {}</translation>
    </message>
    <message>
        <source>Close an XML record or measurement file whose recording was killed</source>
        <translation>XML-Aufzeichnung oder Messdatei abschließen, deren Aufzeichnung abgebrochen wurde</translation>
    </message>
    <message>
        <source>XML record or event file, or measurement file</source>
        <translation>Aufzeichnung oder Ereignisdatei in XML, oder Messdatei</translation>
    </message>
    <message>
        <source>End the run S seconds after the first data</source>
        <translation>Den Lauf S Sekunden nach den ersten Daten beenden</translation>
    </message>
    <message>
        <source>End the run after N recordings (default: 1 when the start is manual, else no limit)</source>
        <translation>Den Lauf nach N Aufzeichnungen beenden (Vorgabe: 1 bei manuellem Start, sonst unbegrenzt)</translation>
    </message>
    <message>
        <source>N</source>
        <translation>N</translation>
    </message>
    <message>
        <source>Also write what was answered, and when, as measurement data (MDF 4): a file beside each record; --mf4=all: one file for the whole run</source>
        <translation>Auch schreiben, was wann beantwortet wurde, als Messdaten (MDF 4): eine Datei neben jeder Aufzeichnung; --mf4=all: eine Datei für den ganzen Lauf</translation>
    </message>
    <message>
        <source>Write each answer with its time as a JSON line to this file or pipe (- is standard output)</source>
        <translation>Jede Antwort mit ihrer Zeit als JSON-Zeile in diese Datei oder Pipe schreiben (- ist die Standardausgabe)</translation>
    </message>
    <message>
        <source>Publish each answer at an MQTT broker, as it comes (mqtts: over TLS); implies a measurement file of the whole run</source>
        <translation>Jede Antwort sofort an einem MQTT-Broker veröffentlichen (mqtts: über TLS); schließt eine Messdatei des ganzen Laufs ein</translation>
    </message>
    <message>
        <source>Record: wait for the start trigger or start at once</source>
        <translation>Aufzeichnen: auf den Starttrigger warten oder sofort starten</translation>
    </message>
    <message>
        <source>Write the files into a folder there that is named after the vehicle</source>
        <translation>Die Dateien dort in einen Unterordner schreiben, der wie das Fahrzeug heißt</translation>
    </message>
    <message>
        <source>Begin file names with the number of this computer&apos;s boot, which is counted in this file: for a clock without a battery</source>
        <translation>Dateinamen mit der Nummer des Systemstarts dieses Rechners beginnen, die in dieser Datei gezählt wird: für eine Uhr ohne Batterie</translation>
    </message>
    <message>
        <source>Show the values on standard output as they come: on a terminal as a table, else a line for each that changes (time, name, value and unit, with tabs between them)</source>
        <translation>Die Werte sofort auf der Standardausgabe zeigen: im Terminal als Tabelle, sonst eine Zeile für jeden, der sich ändert (Zeit, Name, Wert und Einheit, durch Tabulatoren getrennt)</translation>
    </message>
    <message>
        <source>Bring the files to the disk every S seconds (default: 5; 0: only when they are closed)</source>
        <translation>Die Dateien alle S Sekunden auf den Datenträger sichern (Vorgabe: 5; 0: erst beim Schließen)</translation>
    </message>
    <message>
        <source>Signals: INT, TERM and HUP stop like the stop button, a second one leaves at once; USR1 is the event button.</source>
        <translation>Signale: INT, TERM und HUP stoppen wie der Stoppknopf, ein zweites beendet sofort; USR1 ist der Ereignisknopf.</translation>
    </message>
    <message>
        <source>--live and --samples - together are not possible: both write to standard output</source>
        <translation>--live und --samples - sind zusammen nicht möglich: beide schreiben auf die Standardausgabe</translation>
    </message>
    <message>
        <source>stopped while the car was asked what it offers</source>
        <translation>gestoppt, während das Fahrzeug gefragt wurde, was es anbietet</translation>
    </message>
    <message>
        <source>folder of the vehicle: {}</source>
        <translation>Ordner des Fahrzeugs: {}</translation>
    </message>
    <message>
        <source>samples: {}: lines are left out, they are not taken</source>
        <translation>samples: {}: Zeilen werden ausgelassen, sie werden nicht abgenommen</translation>
    </message>
    <message>
        <source>samples: {}: {} lines were left out</source>
        <translation>samples: {}: {} Zeilen wurden ausgelassen</translation>
    </message>
    <message>
        <source>publish: {}</source>
        <translation>publish: {}</translation>
    </message>
    <message>
        <source>boots are not counted: {}</source>
        <translation>Systemstarts werden nicht gezählt: {}</translation>
    </message>
    <message>
        <source>{}: near is {}</source>
        <translation>{}: ähnlich ist {}</translation>
    </message>
    <message>
        <source>samples: {}</source>
        <translation>samples: {}</translation>
    </message>
    <message>
        <source>all recordings</source>
        <translation>alle Aufzeichnungen</translation>
    </message>
    <message>
        <source>no data arrived in the given time</source>
        <translation>in der gegebenen Zeit kamen keine Daten</translation>
    </message>
    <message>
        <source>nothing was recorded, the start trigger did not fire</source>
        <translation>es wurde nichts aufgezeichnet, der Starttrigger hat nicht ausgelöst</translation>
    </message>
    <message>
        <source>the last {} lines were not taken</source>
        <translation>die letzten {} Zeilen wurden nicht abgenommen</translation>
    </message>
    <message>
        <source>Ask a car what it offers (OBD) and write it as a vehicle description</source>
        <translation>Ein Fahrzeug fragen, was es anbietet (OBD), und dies als Fahrzeugbeschreibung schreiben</translation>
    </message>
    <message>
        <source>How the car is reached</source>
        <translation>Wie das Fahrzeug erreicht wird</translation>
    </message>
    <message>
        <source>URL</source>
        <translation>URL</translation>
    </message>
    <message>
        <source>--trace {}: expected another file than the output</source>
        <translation>--trace {}: andere Datei als die Ausgabe erwartet</translation>
    </message>
    <message>
        <source>{}: {} ECUs
</source>
        <translation>{}: {} Steuergeräte
</translation>
    </message>
    <message>
        <source>  {} (address 0x{:X}): {} requests, {} data
</source>
        <translation>  {} (Adresse 0x{:X}): {} Anfragen, {} Messgrößen
</translation>
    </message>
    <message>
        <source>Show what a record holds: facts, marks, figures, quality</source>
        <translation>Zeigen, was eine Aufzeichnung enthält: Eckdaten, Marken, Kennwerte, Qualität</translation>
    </message>
    <message>
        <source>Figures only from this time on (seconds, as in the record)</source>
        <translation>Kennwerte nur ab dieser Zeit (Sekunden, wie in der Aufzeichnung)</translation>
    </message>
    <message>
        <source>Figures only up to this time</source>
        <translation>Kennwerte nur bis zu dieser Zeit</translation>
    </message>
    <message>
        <source>Tell, too, for how long the data were above this number</source>
        <translation>Auch zeigen, wie lange die Messgrößen über dieser Zahl lagen</translation>
    </message>
    <message>
        <source>NUMBER</source>
        <translation>ZAHL</translation>
    </message>
    <message>
        <source>Figures: how many values, minimum and maximum and when they were first reached, the mean and standard deviation of the rows. Data whose values have names, and on/off data: how long each value stood, how often it began, and when first.</source>
        <translation>Kennwerte: Zahl der Werte, Minimum und Maximum und wann sie zuerst erreicht wurden, Mittelwert und Standardabweichung der Zeilen. Bei Messgrößen, deren Werte Namen haben, und bei ein/aus: wie lange jeder Wert anlag, wie oft er begann und wann zuerst.</translation>
    </message>
    <message>
        <source>once</source>
        <translation>1-mal</translation>
    </message>
    <message>
        <source>{} times</source>
        <translation>{}-mal</translation>
    </message>
    <message>
        <source>not told</source>
        <translation>nicht angegeben</translation>
    </message>
    <message>
        <source>{} bytes</source>
        <translation>{} Bytes</translation>
    </message>
    <message>
        <source>measurement file (MDF 4)</source>
        <translation>Messdatei (MDF 4)</translation>
    </message>
    <message>
        <source>XML record</source>
        <translation>XML-Aufzeichnung</translation>
    </message>
    <message>
        <source>text record</source>
        <translation>Textaufzeichnung</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation>Aufzeichnungen</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>Fehlt</translation>
    </message>
    <message>
        <source>Began</source>
        <translation>Beginn</translation>
    </message>
    <message>
        <source>Lasts</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>{}, from {} s to {} s</source>
        <translation>{}, von {} s bis {} s</translation>
    </message>
    <message>
        <source>Answers</source>
        <translation>Antworten</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>Quality</source>
        <translation>Qualität</translation>
    </message>
    <message>
        <source>{} of {} s</source>
        <translation>{} von {} s</translation>
    </message>
    <message>
        <source>and {} more: --json has them all</source>
        <translation>und {} weitere: --json enthält alle</translation>
    </message>
    <message>
        <source>Marks</source>
        <translation>Marken</translation>
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
        <source>Values</source>
        <translation>Werte</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>at s</source>
        <translation>bei s</translation>
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
        <source>Deviation</source>
        <translation>Standardabw.</translation>
    </message>
    <message>
        <source>values</source>
        <translation>Werte</translation>
    </message>
    <message>
        <source>minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>at {} s</source>
        <translation>bei {} s</translation>
    </message>
    <message>
        <source>maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>mean</source>
        <translation>Mittelwert</translation>
    </message>
    <message>
        <source>deviation</source>
        <translation>Standardabw.</translation>
    </message>
    <message>
        <source>Nothing between these times</source>
        <translation>Nichts zwischen diesen Zeiten</translation>
    </message>
    <message>
        <source>Figures from {} s to {} s</source>
        <translation>Kennwerte von {} s bis {} s</translation>
    </message>
    <message>
        <source>first at {} s</source>
        <translation>zuerst bei {} s</translation>
    </message>
    <message>
        <source>no value</source>
        <translation>kein Wert</translation>
    </message>
    <message>
        <source>How long values stood</source>
        <translation>Wie lange Werte anlagen</translation>
    </message>
    <message>
        <source>above {}</source>
        <translation>über {}</translation>
    </message>
    <message>
        <source>--- Recording {} of {} ---</source>
        <translation>--- Aufzeichnung {} von {} ---</translation>
    </message>
    <message>
        <source>--above: expected a number</source>
        <translation>--above: Zahl erwartet</translation>
    </message>
    <message>
        <source>standard output: {}</source>
        <translation>Standardausgabe: {}</translation>
    </message>
    <message>
        <source>{} {}: expected ECU/REQUEST/DATA&gt;LEVEL, ECU/REQUEST/DATA&lt;LEVEL, seconds like 30s, or manual</source>
        <translation>{} {}: ECU/REQUEST/DATA&gt;SCHWELLE, ECU/REQUEST/DATA&lt;SCHWELLE, Sekunden wie 30s oder manual erwartet</translation>
    </message>
    <message>
        <source>{} {}: expected ECU/REQUEST/DATA&gt;LEVEL, ECU/REQUEST/DATA&lt;LEVEL, or manual</source>
        <translation>{} {}: ECU/REQUEST/DATA&gt;SCHWELLE, ECU/REQUEST/DATA&lt;SCHWELLE oder manual erwartet</translation>
    </message>
    <message>
        <source>{} {}: expected a number behind {}, with &quot;.&quot; and without a unit</source>
        <translation>{} {}: Zahl hinter {} erwartet, mit „.“ und ohne Einheit</translation>
    </message>
    <message>
        <source>Vehicle description (JSON), or obd2: to ask the car behind the link what it offers</source>
        <translation>Fahrzeugbeschreibung (JSON), oder obd2: um das Fahrzeug hinter der Verbindung zu fragen, was es anbietet</translation>
    </message>
    <message>
        <source>How the car is reached (default: the description&apos;s simulation)</source>
        <translation>Wie das Fahrzeug erreicht wird (Vorgabe: die Simulation der Beschreibung)</translation>
    </message>
    <message>
        <source>Recording configuration (XML)</source>
        <translation>Aufzeichnungskonfiguration (XML)</translation>
    </message>
    <message>
        <source>Send this request every MS milliseconds only, not in every cycle; for several requests, several times</source>
        <translation>Diese Anfrage nur alle MS Millisekunden senden, nicht in jedem Zyklus; für mehrere Anfragen mehrmals angeben</translation>
    </message>
    <message>
        <source>ECU/REQUEST=MS</source>
        <translation>ECU/REQUEST=MS</translation>
    </message>
    <message>
        <source>Write what goes over the link to this new file</source>
        <translation>Was über die Verbindung geht, in diese neue Datei schreiben</translation>
    </message>
    <message>
        <source>Text or XML record or event file, or MDF 4 file</source>
        <translation>Aufzeichnung oder Ereignisdatei als Text oder XML, oder MDF-4-Datei</translation>
    </message>
    <message>
        <source>Records the diagnostic data of a vehicle&apos;s control units</source>
        <translation>Zeichnet die Diagnosedaten der Steuergeräte eines Fahrzeugs auf</translation>
    </message>
    <message>
        <source>Display program version information and exit</source>
        <translation>Programmversion anzeigen und beenden</translation>
    </message>
    <message>
        <source>Exit codes: 0 done, 1 failed while running, 2 bad usage or bad input. `man tarn-record` tells more.</source>
        <translation>Rückgabewerte: 0 erledigt, 1 beim Lauf gescheitert, 2 falscher Aufruf oder falsche Eingabe. `man tarn-record` sagt mehr.</translation>
    </message>
</context>
</TS>
