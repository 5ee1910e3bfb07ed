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
</context>
</TS>
