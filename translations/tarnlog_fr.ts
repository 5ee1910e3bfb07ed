<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>AcqCorner</name>
    <message>
        <source>The values shown are as old as that.</source>
        <translation>Les valeurs affichées ont cet âge.</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>En pause</translation>
    </message>
    <message>
        <source>The picture stands still, recording goes on. P lets it run again.</source>
        <translation>L’image est figée, l’enregistrement continue. P la relance.</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Freeze the picture while recording goes on (P or Pause)</source>
        <translation>Figer l’image pendant que l’enregistrement continue (P ou Pause)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>Keys, guide and messages (F1)</source>
        <translation>Touches, guide et messages (F1)</translation>
    </message>
    <message>
        <source>No connection for %1 s</source>
        <translation>Pas de liaison depuis %1 s</translation>
    </message>
    <message>
        <source>window: %1</source>
        <translation>fenêtre&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>AcqHeader</name>
    <message>
        <source>Recording</source>
        <translation>Enregistrement</translation>
    </message>
    <message>
        <source>State of the acquisition</source>
        <translation>État de l’acquisition</translation>
    </message>
    <message>
        <source>Start or stop recording (Enter)</source>
        <translation>Démarrer ou arrêter l’enregistrement (Entrée)</translation>
    </message>
    <message>
        <source>The file of the last event was closed with the recording. There can be another in a moment.</source>
        <translation>Le fichier du dernier événement a été fermé avec l’enregistrement. Un autre événement sera possible dans un instant.</translation>
    </message>
    <message>
        <source>The file of the last event is being filled. That takes %1 polling cycles; then there can be another one.</source>
        <translation>Le fichier du dernier événement se remplit. Cycles d’interrogation restants&#xa0;: %1&#xa0;; un autre événement sera possible ensuite.</translation>
    </message>
    <message>
        <source>Write the rows around this moment into an event file (Space)</source>
        <translation>Écrire les lignes autour de cet instant dans un fichier d’événement (Espace)</translation>
    </message>
</context>
<context>
    <name>DataToolTip</name>
    <message>
        <source>Request: %1</source>
        <translation>Requête&#xa0;: %1</translation>
    </message>
    <message>
        <source>ECU: %1</source>
        <translation>Calculateur&#xa0;: %1</translation>
    </message>
    <message>
        <source>Device: %1 (failure)</source>
        <translation>Organe&#xa0;: %1 (en défaut)</translation>
    </message>
    <message>
        <source>Device: %1</source>
        <translation>Organe&#xa0;: %1</translation>
    </message>
    <message>
        <source>Unit: %1</source>
        <translation>Unité&#xa0;: %1</translation>
    </message>
    <message>
        <source>Range: %1 to %2</source>
        <translation>Plage&#xa0;: %1 à %2</translation>
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
        <translation>Fonction&#xa0;: %1</translation>
    </message>
    <message>
        <source>Address: %1</source>
        <translation>Adresse&#xa0;: %1</translation>
    </message>
    <message>
        <source>1 data</source>
        <translation>1 grandeur</translation>
    </message>
    <message>
        <source>%1 data</source>
        <translation>%1 grandeurs</translation>
    </message>
</context>
<context>
    <name>EndRecordingBox</name>
    <message>
        <source>Recording</source>
        <translation>Enregistrement</translation>
    </message>
    <message>
        <source>A recording is running. End it?</source>
        <translation>Un enregistrement est en cours. Le terminer&#xa0;?</translation>
    </message>
    <message>
        <source>&amp;End recording</source>
        <translation>&amp;Terminer</translation>
    </message>
    <message>
        <source>&amp;Keep recording</source>
        <translation>&amp;Poursuivre</translation>
    </message>
</context>
<context>
    <name>GraphReading</name>
    <message>
        <source>1 point before the newest</source>
        <translation>1 point avant le dernier</translation>
    </message>
    <message>
        <source>%1 points before the newest</source>
        <translation>%1 points avant le dernier</translation>
    </message>
    <message>
        <source>%1 s before the newest</source>
        <translation>%1 s avant le dernier</translation>
    </message>
    <message>
        <source>Time (s)</source>
        <translation>Temps (s)</translation>
    </message>
    <message>
        <source>Point</source>
        <translation>Point</translation>
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
        <translation>Moyenne</translation>
    </message>
    <message>
        <source>A to B: %1 s</source>
        <translation>A à B&#xa0;: %1 s</translation>
    </message>
    <message>
        <source>A to B: %1 points</source>
        <translation>A à B&#xa0;: %1 points</translation>
    </message>
</context>
<context>
    <name>Indicator</name>
    <message>
        <source>Rows are lost: the file cannot be written</source>
        <translation>Lignes perdues&#xa0;: écriture du fichier impossible</translation>
    </message>
    <message>
        <source>Recording is about to start or to stop</source>
        <translation>L’enregistrement va démarrer ou s’arrêter</translation>
    </message>
    <message>
        <source>The record file has just been opened</source>
        <translation>Le fichier d’enregistrement vient d’être ouvert</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Enregistrement en cours</translation>
    </message>
    <message>
        <source>Not recording</source>
        <translation>Pas d’enregistrement</translation>
    </message>
    <message>
        <source>Initialising the control units</source>
        <translation>Initialisation des calculateurs</translation>
    </message>
    <message>
        <source>Waiting for the control units to be ready</source>
        <translation>Attente que les calculateurs soient prêts</translation>
    </message>
    <message>
        <source>Starting diagnostic sessions and the initialisation scenario</source>
        <translation>Démarrage des sessions de diagnostic et du scénario d’initialisation</translation>
    </message>
    <message>
        <source>Communicating: values are polled</source>
        <translation>Communication&#xa0;: les valeurs sont interrogées</translation>
    </message>
    <message>
        <source>Not acquiring</source>
        <translation>Pas d’acquisition</translation>
    </message>
</context>
<context>
    <name>KeyboardHelp</name>
    <message>
        <source>Keys while acquiring</source>
        <translation>Touches pendant l’acquisition</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Entrée</translation>
    </message>
    <message>
        <source>Start or stop recording</source>
        <translation>Démarrer ou arrêter l’enregistrement</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espace</translation>
    </message>
    <message>
        <source>Event: write the rows around this moment into a file</source>
        <translation>Événement&#xa0;: écrire les lignes autour de cet instant dans un fichier</translation>
    </message>
    <message>
        <source>D, G</source>
        <translation>D, G</translation>
    </message>
    <message>
        <source>Show values as digits, as graphs</source>
        <translation>Afficher les valeurs en numérique, en graphes</translation>
    </message>
    <message>
        <source>P or Pause</source>
        <translation>P ou Pause</translation>
    </message>
    <message>
        <source>Freeze the picture and look back; recording goes on</source>
        <translation>Figer l’image et revenir en arrière&#xa0;; l’enregistrement continue</translation>
    </message>
    <message>
        <source>While paused: F, P</source>
        <translation>En pause&#xa0;: F, P</translation>
    </message>
    <message>
        <source>Show all that is kept; back to now</source>
        <translation>Voir tout ce qui est gardé&#xa0;; revenir au présent</translation>
    </message>
    <message>
        <source>Wheel, + and -</source>
        <translation>Molette, + et -</translation>
    </message>
    <message>
        <source>While paused: zoom</source>
        <translation>En pause&#xa0;: zoomer</translation>
    </message>
    <message>
        <source>Drag, Shift+arrows</source>
        <translation>Glisser, Maj+flèches</translation>
    </message>
    <message>
        <source>While paused: move along the time</source>
        <translation>En pause&#xa0;: se déplacer dans le temps</translation>
    </message>
    <message>
        <source>A, B</source>
        <translation>A, B</translation>
    </message>
    <message>
        <source>While paused: set the two cursors</source>
        <translation>En pause&#xa0;: poser les deux curseurs</translation>
    </message>
    <message>
        <source>Arrows, Home, End</source>
        <translation>Flèches, Origine, Fin</translation>
    </message>
    <message>
        <source>On a graph: read out its points; with Ctrl in wide steps</source>
        <translation>Sur un graphe&#xa0;: lire ses points&#xa0;; avec Ctrl à grands pas</translation>
    </message>
    <message>
        <source>Page Up, Page Down</source>
        <translation>Pg préc, Pg suiv</translation>
    </message>
    <message>
        <source>Scroll the graphs</source>
        <translation>Faire défiler les graphes</translation>
    </message>
    <message>
        <source>Ctrl+F</source>
        <translation>Ctrl+F</translation>
    </message>
    <message>
        <source>Filter the list of values; Escape shows them all and leaves the filter</source>
        <translation>Filtrer la liste des valeurs&#xa0;; Échap les affiche toutes et quitte le filtre</translation>
    </message>
    <message>
        <source>Ctrl with +, -, 0</source>
        <translation>Ctrl avec +, -, 0</translation>
    </message>
    <message>
        <source>Larger, smaller, usual letters in the list</source>
        <translation>Caractères de la liste plus grands, plus petits, de taille normale</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Ctrl+C</translation>
    </message>
    <message>
        <source>Copy the selected rows of the list, or lines of the log</source>
        <translation>Copier les lignes choisies de la liste ou du journal</translation>
    </message>
    <message>
        <source>Menu, Shift+F10</source>
        <translation>Menu, Maj+F10</translation>
    </message>
    <message>
        <source>What can be done with the list, a graph or the log</source>
        <translation>Actions possibles sur la liste, un graphe ou le journal</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Move from control to control</source>
        <translation>Passer d’un élément à l’autre</translation>
    </message>
    <message>
        <source>Alt+C, Alt+L</source>
        <translation>Alt+C, Alt+J</translation>
    </message>
    <message>
        <source>Configure, Log</source>
        <translation>Configurer, Journal</translation>
    </message>
    <message>
        <source>F11</source>
        <translation>F11</translation>
    </message>
    <message>
        <source>Full screen; Escape leaves it</source>
        <translation>Plein écran&#xa0;; Échap le quitte</translation>
    </message>
</context>
<context>
    <name>LackText</name>
    <message>
        <source>Nothing was read: the file has no element &quot;Parameters&quot;</source>
        <translation>Rien n’a été lu&#xa0;: le fichier n’a pas d’élément «&#xa0;Parameters&#xa0;»</translation>
    </message>
    <message>
        <source>Not offered by this vehicle: %1</source>
        <translation>Non proposé par ce véhicule&#xa0;: %1</translation>
    </message>
    <message>
        <source>Configured twice, taken once: %1</source>
        <translation>Configuré deux fois, pris une fois&#xa0;: %1</translation>
    </message>
    <message>
        <source>Not acquired, the ECU has another function in this vehicle: %1</source>
        <translation>Non acquis, le calculateur a une autre fonction dans ce véhicule&#xa0;: %1</translation>
    </message>
    <message>
        <source>Request of the init scenario not offered by this vehicle: %1</source>
        <translation>Requête du scénario d’init non proposée par ce véhicule&#xa0;: %1</translation>
    </message>
    <message>
        <source>The start trigger watches data that this vehicle does not offer: start is manual</source>
        <translation>Le déclencheur de début surveille une grandeur que ce véhicule ne propose pas&#xa0;: début manuel</translation>
    </message>
    <message>
        <source>The stop trigger watches data that this vehicle does not offer: stop is manual</source>
        <translation>Le déclencheur de fin surveille une grandeur que ce véhicule ne propose pas&#xa0;: fin manuelle</translation>
    </message>
    <message>
        <source>%1: %2 parts do not fit this vehicle: %3</source>
        <translation>%1&#xa0;: %2 parties ne conviennent pas à ce véhicule&#xa0;: %3</translation>
    </message>
</context>
<context>
    <name>LinkAdvice</name>
    <message>
        <source>Serial ports belong to a group: &quot;sudo adduser $USER dialout&quot;, then log in again.</source>
        <translation>L’accès aux ports série est réservé à un groupe&#xa0;: «&#xa0;sudo adduser $USER dialout&#xa0;», puis rouvrir la session.</translation>
    </message>
    <message>
        <source>You may not read this file: ask its owner, or open a copy of it.</source>
        <translation>Lecture de ce fichier non autorisée&#xa0;: s’adresser à son propriétaire ou en ouvrir une copie.</translation>
    </message>
    <message>
        <source>Another program uses the adapter: close that one.</source>
        <translation>Un autre programme utilise l’adaptateur&#xa0;: le fermer.</translation>
    </message>
    <message>
        <source>The list of ways to a car shows how each link is written.</source>
        <translation>La liste des accès au véhicule montre comment s’écrit chaque liaison.</translation>
    </message>
    <message>
        <source>It may have been moved, renamed or deleted: choose the file again.</source>
        <translation>Il a peut-être été déplacé, renommé ou supprimé&#xa0;: choisir à nouveau le fichier.</translation>
    </message>
    <message>
        <source>Plug the adapter in, and look at the name of its port: &quot;ls /dev/tty*&quot; lists them, and so does &quot;Connect to a car...&quot;. A Bluetooth adapter needs &quot;sudo rfcomm bind 0 ADDRESS&quot; first.</source>
        <translation>Brancher l’adaptateur et vérifier le nom de son port&#xa0;: «&#xa0;ls /dev/tty*&#xa0;» les liste, «&#xa0;Se connecter à un véhicule...&#xa0;» aussi. Un adaptateur Bluetooth demande d’abord «&#xa0;sudo rfcomm bind 0 ADRESSE&#xa0;».</translation>
    </message>
    <message>
        <source>Is this computer in the adapter&apos;s Wi-Fi, or the cable plugged in? Are address and port right, and is the ignition on?</source>
        <translation>Cet ordinateur est-il sur le Wi-Fi de l’adaptateur, ou le câble est-il branché&#xa0;? L’adresse et le port sont-ils corrects, et le contact est-il mis&#xa0;?</translation>
    </message>
</context>
<context>
    <name>ListActions</name>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Tout sélectionner</translation>
    </message>
    <message>
        <source>Reset minimum and maximum</source>
        <translation>Réinitialiser minimum et maximum</translation>
    </message>
    <message>
        <source>Larger</source>
        <translation>Plus grand</translation>
    </message>
    <message>
        <source>Smaller</source>
        <translation>Plus petit</translation>
    </message>
    <message>
        <source>Usual size</source>
        <translation>Taille normale</translation>
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
        <translation>Valeurs près des noms</translation>
    </message>
</context>
<context>
    <name>LoadAdvice</name>
    <message>
        <source>It may have been moved, renamed or deleted: &quot;Open configuration...&quot; (Ctrl+O) looks for it.</source>
        <translation>Il a peut-être été déplacé, renommé ou supprimé&#xa0;: «&#xa0;Ouvrir une configuration...&#xa0;» (Ctrl+O) permet de le chercher.</translation>
    </message>
    <message>
        <source>You may not read this file: ask its owner, or open a copy of it.</source>
        <translation>Lecture de ce fichier non autorisée&#xa0;: s’adresser à son propriétaire ou en ouvrir une copie.</translation>
    </message>
    <message>
        <source>Configurations, and records in XML, can be opened. Where the file was written by hand, mend what the message names; &quot;Save configuration&quot; writes one anew.</source>
        <translation>Les configurations et les enregistrements en XML peuvent être ouverts. Si le fichier a été écrit à la main, corriger ce que nomme le message&#xa0;; «&#xa0;Sauvegarder la configuration&#xa0;» en écrit un nouveau.</translation>
    </message>
</context>
<context>
    <name>MessageTable</name>
    <message>
        <source>The guide cannot be read: %1</source>
        <translation>Lecture du guide impossible&#xa0;: %1</translation>
    </message>
    <message>
        <source>What the messages mean</source>
        <translation>Signification des messages</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>&amp;Publish values...</source>
        <translation>&amp;Publier les valeurs...</translation>
    </message>
</context>
<context>
    <name>QtDialogs</name>
    <message>
        <source>Unsaved changes</source>
        <translation>Modifications non sauvegardées</translation>
    </message>
    <message>
        <source>%1 has been changed.</source>
        <translation>%1 a changé.</translation>
    </message>
    <message>
        <source>Save the changes? They are lost otherwise.</source>
        <translation>Sauvegarder les modifications&#xa0;? Sinon, elles seront perdues.</translation>
    </message>
    <message>
        <source>Save configuration</source>
        <translation>Sauvegarder la configuration</translation>
    </message>
    <message>
        <source>Parts of %1 do not fit this vehicle and were left out.</source>
        <translation>Des parties de %1 ne conviennent pas à ce véhicule et ont été omises.</translation>
    </message>
    <message>
        <source>Saving it in place loses them. Save what is left under another name?</source>
        <translation>Remplacer le fichier les fait perdre. Sauvegarder le reste sous un autre nom&#xa0;?</translation>
    </message>
    <message>
        <source>Save in &amp;place</source>
        <translation>&amp;Remplacer</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>Sauvegarder &amp;sous...</translation>
    </message>
</context>
<context>
    <name>RecentMenu</name>
    <message>
        <source>(none)</source>
        <translation>(aucun)</translation>
    </message>
</context>
<context>
    <name>RecordViewer</name>
    <message>
        <source>Recent recor&amp;ds</source>
        <translation>Enregistrements réce&amp;nts</translation>
    </message>
    <message>
        <source>Ope&amp;n record...</source>
        <translation>Ouvrir un &amp;enregistrement...</translation>
    </message>
</context>
<context>
    <name>RecordingMarks</name>
    <message>
        <source>Start %1</source>
        <translation>Début %1</translation>
    </message>
    <message>
        <source>Stop %1</source>
        <translation>Fin %1</translation>
    </message>
    <message>
        <source>Event %1</source>
        <translation>Événement %1</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Événement</translation>
    </message>
</context>
<context>
    <name>RecordingNotices</name>
    <message>
        <source>Measurement data are lost, the file cannot be written: %1: %2</source>
        <translation>Données de mesure perdues, écriture du fichier impossible&#xa0;: %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Rows are lost, the file cannot be written: %1: %2</source>
        <translation>Lignes perdues, écriture du fichier impossible&#xa0;: %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>The file was cut short: %1: %2</source>
        <translation>Le fichier a été tronqué&#xa0;: %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>A power cut may cost measurement data, the file could not be synced: %1: %2</source>
        <translation>Une coupure de courant peut faire perdre des données de mesure, synchronisation du fichier impossible&#xa0;: %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>A power cut may cost rows, the file could not be synced: %1: %2</source>
        <translation>Une coupure de courant peut faire perdre des lignes, synchronisation du fichier impossible&#xa0;: %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>The file was closed while it could not be written: %1: lost blocks: %2</source>
        <translation>Le fichier a été fermé alors que l’écriture était impossible&#xa0;: %1, blocs perdus&#xa0;: %2</translation>
    </message>
    <message>
        <source>The file was closed while it could not be written: %1: lost rows: %2</source>
        <translation>Le fichier a été fermé alors que l’écriture était impossible&#xa0;: %1, lignes perdues&#xa0;: %2</translation>
    </message>
    <message>
        <source>The file can be written again: %1: lost blocks: %2</source>
        <translation>L’écriture du fichier est de nouveau possible&#xa0;: %1, blocs perdus&#xa0;: %2</translation>
    </message>
    <message>
        <source>The file can be written again: %1: lost rows: %2</source>
        <translation>L’écriture du fichier est de nouveau possible&#xa0;: %1, lignes perdues&#xa0;: %2</translation>
    </message>
    <message>
        <source>Nothing is recorded: %1</source>
        <translation>Rien n’est enregistré&#xa0;: %1</translation>
    </message>
    <message>
        <source>Recording parameters</source>
        <translation>Paramètres d’enregistrement</translation>
    </message>
    <message>
        <source>Measurement data are missing: %1</source>
        <translation>Les données de mesure manquent&#xa0;: %1</translation>
    </message>
    <message>
        <source>Publishing: %1</source>
        <translation>Publication&#xa0;: %1</translation>
    </message>
    <message>
        <source>Recorded %1, 1 datum: %2</source>
        <translation>Enregistrement de %1, 1 grandeur&#xa0;: %2</translation>
    </message>
    <message>
        <source>Recorded %1, %2 data: %3</source>
        <translation>Enregistrement de %1, %2 grandeurs&#xa0;: %3</translation>
    </message>
    <message>
        <source>Look at it</source>
        <translation>Consulter</translation>
    </message>
</context>
<context>
    <name>ReviewFlags</name>
    <message>
        <source>Start</source>
        <translation>Début</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Fin</translation>
    </message>
    <message>
        <source>Event %1</source>
        <translation>Événement %1</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Événement</translation>
    </message>
    <message>
        <source>Gap</source>
        <translation>Lacune</translation>
    </message>
    <message>
        <source>Failure</source>
        <translation>Échec</translation>
    </message>
    <message>
        <source>Clock step</source>
        <translation>Saut d’horloge</translation>
    </message>
</context>
<context>
    <name>ReviewHelp</name>
    <message>
        <source>Keys while looking at a record</source>
        <translation>Touches pendant la consultation d’un enregistrement</translation>
    </message>
    <message>
        <source>+ and -, wheel</source>
        <translation>+ et -, molette</translation>
    </message>
    <message>
        <source>On a graph: zoom around the readout, or at the pointer</source>
        <translation>Sur un graphe&#xa0;: zoomer autour de la ligne de lecture, ou du pointeur</translation>
    </message>
    <message>
        <source>Ctrl+wheel</source>
        <translation>Ctrl+molette</translation>
    </message>
    <message>
        <source>On a graph: scroll the graphs</source>
        <translation>Sur un graphe&#xa0;: faire défiler les graphes</translation>
    </message>
    <message>
        <source>Left and Right, drag</source>
        <translation>Gauche et Droite, glisser</translation>
    </message>
    <message>
        <source>On a graph: move along the time; Home and End go to its ends</source>
        <translation>Sur un graphe&#xa0;: se déplacer dans le temps&#xa0;; Origine et Fin vont aux extrémités</translation>
    </message>
    <message>
        <source>F, Backspace</source>
        <translation>F, Retour arrière</translation>
    </message>
    <message>
        <source>On a graph: show all; what was seen before</source>
        <translation>Sur un graphe&#xa0;: tout voir&#xa0;; vue précédente</translation>
    </message>
    <message>
        <source>A, B, Escape</source>
        <translation>A, B, Échap</translation>
    </message>
    <message>
        <source>On a graph: set the cursors at the readout; take it away, then them</source>
        <translation>Sur un graphe&#xa0;: poser les curseurs sur la ligne de lecture&#xa0;; retirer la ligne, puis les curseurs</translation>
    </message>
    <message>
        <source>Ctrl with Left, Right</source>
        <translation>Ctrl avec Gauche, Droite</translation>
    </message>
    <message>
        <source>On a graph: read out row by row</source>
        <translation>Sur un graphe&#xa0;: lire ligne par ligne</translation>
    </message>
    <message>
        <source>Up, Down, Delete</source>
        <translation>Haut, Bas, Suppr</translation>
    </message>
    <message>
        <source>On a graph: choose a curve, take it away</source>
        <translation>Sur un graphe&#xa0;: choisir une courbe, la retirer</translation>
    </message>
    <message>
        <source>Ctrl+drag</source>
        <translation>Ctrl+glisser</translation>
    </message>
    <message>
        <source>On a graph: move a record that is laid over</source>
        <translation>Sur un graphe&#xa0;: déplacer un enregistrement superposé</translation>
    </message>
    <message>
        <source>Ctrl+F</source>
        <translation>Ctrl+F</translation>
    </message>
    <message>
        <source>Filter the list of data; Escape shows all</source>
        <translation>Filtrer la liste des données&#xa0;; Échap les affiche toutes</translation>
    </message>
    <message>
        <source>Enter, Ctrl+Enter</source>
        <translation>Entrée, Ctrl+Entrée</translation>
    </message>
    <message>
        <source>In the list: into a graph of its unit, into the chosen graph</source>
        <translation>Dans la liste&#xa0;: vers un graphe de même unité, vers le graphe choisi</translation>
    </message>
    <message>
        <source>Space, Delete</source>
        <translation>Espace, Suppr</translation>
    </message>
    <message>
        <source>In the list: show or hide, hide</source>
        <translation>Dans la liste&#xa0;: afficher ou masquer, masquer</translation>
    </message>
    <message>
        <source>Ctrl+G, F3, Shift+F3</source>
        <translation>Ctrl+G, F3, Maj+F3</translation>
    </message>
    <message>
        <source>Look for a moment, the next one, the one before</source>
        <translation>Chercher un instant, le suivant, le précédent</translation>
    </message>
    <message>
        <source>Ctrl+L, Ctrl+D</source>
        <translation>Ctrl+L, Ctrl+D</translation>
    </message>
    <message>
        <source>Lay another record over; the difference of the chosen curve</source>
        <translation>Superposer un autre enregistrement&#xa0;; différence de la courbe choisie</translation>
    </message>
    <message>
        <source>Ctrl+S</source>
        <translation>Ctrl+S</translation>
    </message>
    <message>
        <source>Save a picture of what is seen</source>
        <translation>Sauvegarder une image de ce qui est visible</translation>
    </message>
    <message>
        <source>Ctrl+E</source>
        <translation>Ctrl+E</translation>
    </message>
    <message>
        <source>Save the part between the cursors as CSV; with Shift as measurement file</source>
        <translation>Sauvegarder l’extrait entre les curseurs en CSV&#xa0;; avec Maj en fichier de mesure</translation>
    </message>
    <message>
        <source>Ctrl+Shift+C</source>
        <translation>Ctrl+Maj+C</translation>
    </message>
    <message>
        <source>Copy the table of figures</source>
        <translation>Copier le tableau des statistiques</translation>
    </message>
    <message>
        <source>F6</source>
        <translation>F6</translation>
    </message>
    <message>
        <source>To the next part of the window; with Shift to the one before</source>
        <translation>Vers la partie suivante de la fenêtre&#xa0;; avec Maj vers la précédente</translation>
    </message>
</context>
<context>
    <name>ReviewPicture</name>
    <message>
        <source>The picture %1 could not be written: %2</source>
        <translation>Écriture de l’image %1 impossible&#xa0;: %2</translation>
    </message>
    <message>
        <source>its name must end with .svg or .png</source>
        <translation>son nom doit se terminer par .svg ou .png</translation>
    </message>
</context>
<context>
    <name>Tarn2001</name>
    <message>
        <source>All files</source>
        <translation>Tous les fichiers</translation>
    </message>
</context>
<context>
    <name>TarnPaSc</name>
    <message>
        <source>None</source>
        <translation>Aucun</translation>
    </message>
    <message>
        <source>Digital</source>
        <translation>Numérique</translation>
    </message>
    <message>
        <source>BarGraph</source>
        <translation>Barre</translation>
    </message>
    <message>
        <source>Graph</source>
        <translation>Graphe</translation>
    </message>
    <message>
        <source>GraphIndex</source>
        <translation>Courbe ajoutée</translation>
    </message>
    <message>
        <source>GraphAxeX</source>
        <translation>Axe X</translation>
    </message>
    <message>
        <source>Recorded, and not shown</source>
        <translation>Enregistrée, mais pas affichée</translation>
    </message>
    <message>
        <source>The value as digits or text</source>
        <translation>La valeur en chiffres ou en texte</translation>
    </message>
    <message>
        <source>A bar between a minimum and a maximum</source>
        <translation>Une barre entre un minimum et un maximum</translation>
    </message>
    <message>
        <source>A graph of its own against time</source>
        <translation>Un graphe à part en fonction du temps</translation>
    </message>
    <message>
        <source>A further curve on the graph of a data above</source>
        <translation>Une courbe de plus sur le graphe d’une grandeur placée plus haut</translation>
    </message>
    <message>
        <source>The X axis of the graph of a data above</source>
        <translation>L’axe X du graphe d’une grandeur placée plus haut</translation>
    </message>
    <message>
        <source>Graph (%1)</source>
        <translation>Graphe (%1)</translation>
    </message>
    <message>
        <source>X Axis Graph(%1)</source>
        <translation>Axe X (%1)</translation>
    </message>
    <message>
        <source>Only numbers can be shown as bar, graph, curve or X axis: this data is a text or bytes.</source>
        <translation>Seuls des nombres s’affichent en barre, graphe, courbe ou axe X&#xa0;: cette grandeur est un texte ou des octets.</translation>
    </message>
    <message>
        <source>GraphIndex and GraphAxeX need a graph to belong to: no data above this one in the list is a Graph.</source>
        <translation>Une courbe ajoutée ou un axe X demande un graphe&#xa0;: aucune grandeur placée plus haut dans la liste n’est un graphe.</translation>
    </message>
</context>
<context>
    <name>Told</name>
    <message>
        <source>Write a picture of the records (.svg or .png) and open no window; needs no display</source>
        <translation>Écrire une image des enregistrements (.svg ou .png) sans ouvrir de fenêtre&#xa0;; aucun écran n’est nécessaire</translation>
    </message>
    <message>
        <source>In the picture: only these data</source>
        <translation>Dans l’image&#xa0;: seulement ces données</translation>
    </message>
    <message>
        <source>In the picture: only from this time on (seconds, as in the record)</source>
        <translation>Dans l’image&#xa0;: seulement à partir de ce temps (secondes, comme dans l’enregistrement)</translation>
    </message>
    <message>
        <source>In the picture: only up to this time</source>
        <translation>Dans l’image&#xa0;: seulement jusqu’à ce temps</translation>
    </message>
    <message>
        <source>Of the picture, in pixels (default: 1200x800); many graphs make it higher</source>
        <translation>Taille de l’image en pixels (par défaut&#xa0;: 1200x800)&#xa0;; de nombreux graphes l’agrandissent en hauteur</translation>
    </message>
    <message>
        <source>Shows the data of a vehicle&apos;s control units live, records them, and shows records</source>
        <translation>Affiche en direct les données des calculateurs d’un véhicule, les enregistre et affiche des enregistrements</translation>
    </message>
    <message>
        <source>Display program version information and exit</source>
        <translation>Afficher la version du programme et quitter</translation>
    </message>
    <message>
        <source>Vehicle description (JSON), or obd2: to ask the car behind the link; without it, the window asks</source>
        <translation>Description du véhicule (JSON), ou obd2: pour interroger le véhicule au bout de la liaison&#xa0;; sans elle, la fenêtre la demande</translation>
    </message>
    <message>
        <source>Recording configuration (XML): acquire at once</source>
        <translation>Configuration d’enregistrement (XML)&#xa0;: acquérir aussitôt</translation>
    </message>
    <message>
        <source>Write its files here; made when missing</source>
        <translation>Y écrire ses fichiers&#xa0;; créé s’il manque</translation>
    </message>
    <message>
        <source>Write the files of each vehicle into a folder of its own there (File menu)</source>
        <translation>Y écrire les fichiers de chaque véhicule dans un dossier à part (menu Fichier)</translation>
    </message>
    <message>
        <source>How the vehicle is reached (default: the description&apos;s simulation)</source>
        <translation>Comment atteindre le véhicule (par défaut&#xa0;: la simulation de la description)</translation>
    </message>
    <message>
        <source>Write what goes over the link to this new file</source>
        <translation>Écrire ce qui passe par la liaison dans ce nouveau fichier</translation>
    </message>
    <message>
        <source>Send this request every MS milliseconds only, not in every polling cycle</source>
        <translation>N’envoyer cette requête que toutes les MS millisecondes, et non à chaque cycle d’interrogation</translation>
    </message>
    <message>
        <source>Publish each answer at an MQTT broker this time (else: File menu, Publish values)</source>
        <translation>Publier cette fois chaque réponse sur un broker MQTT (sinon&#xa0;: menu Fichier, Publier les valeurs)</translation>
    </message>
    <message>
        <source>What that broker asks for: a file of JSON</source>
        <translation>Ce que ce broker demande&#xa0;: un fichier JSON</translation>
    </message>
    <message>
        <source>there is no display to show a window on; tarn-record records without one</source>
        <translation>il n’y a pas d’écran où afficher une fenêtre&#xa0;; tarn-record enregistre sans fenêtre</translation>
    </message>
    <message>
        <source>publish: {}</source>
        <translation>publication&#xa0;: {}</translation>
    </message>
    <message>
        <source>--size {}: expected WIDTHxHEIGHT in pixels, each from {} to {}</source>
        <translation>--size {}&#xa0;: LARGEURxHAUTEUR en pixels attendu, chacune de {} à {}</translation>
    </message>
    <message>
        <source>--picture {}: expected a name that ends with .svg or .png</source>
        <translation>--picture {}&#xa0;: un nom se terminant par .svg ou .png est attendu</translation>
    </message>
    <message>
        <source>--picture {}: this is one of the records, expected another file</source>
        <translation>--picture {}&#xa0;: c’est l’un des enregistrements, un autre fichier est attendu</translation>
    </message>
    <message>
        <source>any of the records</source>
        <translation>aucun des enregistrements</translation>
    </message>
    <message>
        <source>--picture: expected a record to make it of, before --data</source>
        <translation>--picture&#xa0;: un enregistrement est attendu, avant --data</translation>
    </message>
    <message>
        <source>--picture: expected at most {} records</source>
        <translation>--picture&#xa0;: {} enregistrements au plus sont attendus</translation>
    </message>
    <message>
        <source>Records to look at (text, XML, MDF 4), the second and third laid over the first; a vehicle or a configuration to open</source>
        <translation>Enregistrements à consulter (texte, XML, MDF 4), le deuxième et le troisième superposés au premier ; un véhicule ou une configuration à ouvrir</translation>
    </message>
    <message>
        <source>F1 in the window tells its keys. Signals: INT, TERM and HUP close the window, a second one leaves at once; USR1 is the event button.
Exit codes: 0 done, 1 failed while running, 2 bad usage or bad input, 3 no display; without one there is tarn-record.</source>
        <translation>F1 dans la fenêtre indique ses touches. Signaux : INT, TERM et HUP ferment la fenêtre, un second quitte aussitôt ; USR1 est le bouton d’événement.
Codes de sortie : 0 terminé, 1 échec en cours de route, 2 appel ou données incorrects, 3 pas d’écran ; sans écran, il y a tarn-record.</translation>
    </message>
</context>
<context>
    <name>UnfinishedOffer</name>
    <message>
        <source>A record was not closed, its recorder was killed: %1</source>
        <translation>Un enregistrement n’a pas été fermé, son enregistreur a été interrompu&#xa0;: %1</translation>
    </message>
    <message>
        <source>%1 records were not closed, their recorder was killed</source>
        <translation>%1 enregistrements n’ont pas été fermés, leur enregistreur a été interrompu</translation>
    </message>
    <message>
        <source>Close it</source>
        <translation>Le fermer</translation>
    </message>
    <message>
        <source>Close them</source>
        <translation>Les fermer</translation>
    </message>
    <message>
        <source>end the acquisition first</source>
        <translation>terminer d’abord l’acquisition</translation>
    </message>
    <message>
        <source>Records closed: %1</source>
        <translation>Enregistrements fermés&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>UserWords</name>
    <message>
        <source>rec</source>
        <translation>enr.</translation>
    </message>
    <message>
        <source>init</source>
        <translation>init</translation>
    </message>
    <message>
        <source>Wait</source>
        <translation>Attente</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Départ</translation>
    </message>
    <message>
        <source>com</source>
        <translation>com</translation>
    </message>
    <message>
        <source>Start recording</source>
        <translation>Lancer l’enregistrement</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Arrêter l’enregistrement</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Événement</translation>
    </message>
    <message>
        <source>no record file</source>
        <translation>pas de fichier</translation>
    </message>
    <message>
        <source>Open error : </source>
        <translation>Erreur d’ouverture&#xa0;: </translation>
    </message>
    <message>
        <source>Error : Unable to create file</source>
        <translation>Erreur&#xa0;: création du fichier impossible</translation>
    </message>
</context>
<context>
    <name>tarnlog::AcqView</name>
    <message>
        <source>Recording time (s):</source>
        <translation>Durée enregistrée (s)&#xa0;:</translation>
    </message>
    <message>
        <source>How values are shown</source>
        <translation>Présentation des valeurs</translation>
    </message>
    <message>
        <source>Digital</source>
        <translation>Numérique</translation>
    </message>
    <message>
        <source>Graphic</source>
        <translation>Graphique</translation>
    </message>
</context>
<context>
    <name>tarnlog::AvailablePane</name>
    <message>
        <source>Available data</source>
        <translation>Données disponibles</translation>
    </message>
    <message>
        <source>Filter the available data</source>
        <translation>Filtrer les données disponibles</translation>
    </message>
    <message>
        <source>Words of name, request, ECU or unit (Ctrl+F)</source>
        <translation>Mots du nom, de la requête, du calculateur ou de l’unité (Ctrl+F)</translation>
    </message>
    <message>
        <source>Order of the available data</source>
        <translation>Ordre des données disponibles</translation>
    </message>
    <message>
        <source>Select by request/data</source>
        <translation>Par requête/grandeur</translation>
    </message>
    <message>
        <source>Select by data</source>
        <translation>Par grandeur</translation>
    </message>
    <message>
        <source>Select by devices/data</source>
        <translation>Par organe/grandeur</translation>
    </message>
    <message>
        <source>No vehicle.</source>
        <translation>Pas de véhicule.</translation>
    </message>
    <message>
        <source>The vehicle offers no data.</source>
        <translation>Le véhicule ne propose aucune donnée.</translation>
    </message>
    <message>
        <source>No data with these words.</source>
        <translation>Aucune grandeur avec ces mots.</translation>
    </message>
</context>
<context>
    <name>tarnlog::CWNumEdit</name>
    <message>
        <source>This is no whole number: the value stays as it was.</source>
        <translation>Ce n’est pas un nombre entier&#xa0;: la valeur reste inchangée.</translation>
    </message>
    <message>
        <source>This is no number: the value stays as it was.</source>
        <translation>Ce n’est pas un nombre&#xa0;: la valeur reste inchangée.</translation>
    </message>
</context>
<context>
    <name>tarnlog::ConnectDialog</name>
    <message>
        <source>Choose a trace</source>
        <translation>Choisir une trace</translation>
    </message>
    <message>
        <source>&amp;Ask the car which data it offers (OBD)</source>
        <translation>&amp;Demander au véhicule les données qu’il propose (OBD)</translation>
    </message>
    <message>
        <source>Vehicle &amp;description:</source>
        <translation>Description du &amp;véhicule&#xa0;:</translation>
    </message>
    <message>
        <source>Choose a vehicle description</source>
        <translation>Choisir une description de véhicule</translation>
    </message>
    <message>
        <source>&amp;What the messages mean</source>
        <translation>&amp;Signification des messages</translation>
    </message>
    <message>
        <source>Connect to a car</source>
        <translation>Se connecter à un véhicule</translation>
    </message>
    <message>
        <source>Ways to a car</source>
        <translation>Accès au véhicule</translation>
    </message>
    <message>
        <source>&amp;Connect</source>
        <translation>&amp;Connecter</translation>
    </message>
    <message>
        <source>How is the car reached?</source>
        <translation>Comment accéder au véhicule&#xa0;?</translation>
    </message>
    <message>
        <source>&amp;Link:</source>
        <translation>&amp;Liaison&#xa0;:</translation>
    </message>
    <message>
        <source>elm327:///dev/ttyUSB0?baud=38400 - an ELM327 adapter on USB or Bluetooth
elm327://192.168.0.10:35000 - an ELM327 adapter on Wi-Fi
doip://* or doip://192.168.1.10 - a car on Ethernet
isotp://can0?tx=7E0&amp;rx=7E8 - a CAN interface
replay:drive.trace - a trace of an earlier drive</source>
        <translation>elm327:///dev/ttyUSB0?baud=38400 - un adaptateur ELM327 en USB ou Bluetooth
elm327://192.168.0.10:35000 - un adaptateur ELM327 en Wi-Fi
doip://* ou doip://192.168.1.10 - un véhicule sur Ethernet
isotp://can0?tx=7E0&amp;rx=7E8 - une interface CAN
replay:drive.trace - une trace d’un trajet précédent</translation>
    </message>
    <message>
        <source>Vehicle description</source>
        <translation>Description du véhicule</translation>
    </message>
    <message>
        <source>What is known about it?</source>
        <translation>Que sait-on du véhicule&#xa0;?</translation>
    </message>
    <message>
        <source>OBD car</source>
        <translation>Véhicule OBD</translation>
    </message>
    <message>
        <source>%1, as before</source>
        <translation>%1, comme avant</translation>
    </message>
    <message>
        <source>ELM327 adapter on %1</source>
        <translation>Adaptateur ELM327 sur %1</translation>
    </message>
    <message>
        <source>ELM327 adapter on USB or Bluetooth (none is plugged in)</source>
        <translation>Adaptateur ELM327 en USB ou Bluetooth (aucun branché)</translation>
    </message>
    <message>
        <source>ELM327 adapter on Wi-Fi</source>
        <translation>Adaptateur ELM327 en Wi-Fi</translation>
    </message>
    <message>
        <source>Car on Ethernet (DoIP)</source>
        <translation>Véhicule sur Ethernet (DoIP)</translation>
    </message>
    <message>
        <source>CAN interface %1</source>
        <translation>Interface CAN %1</translation>
    </message>
    <message>
        <source>CAN interface (none is there)</source>
        <translation>Interface CAN (aucune présente)</translation>
    </message>
    <message>
        <source>Trace of an earlier drive</source>
        <translation>Trace d’un trajet précédent</translation>
    </message>
    <message>
        <source>Traces</source>
        <translation>Traces</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Tous les fichiers</translation>
    </message>
    <message>
        <source>Vehicles</source>
        <translation>Véhicules</translation>
    </message>
</context>
<context>
    <name>tarnlog::DataList</name>
    <message>
        <source>Filter the data of the record</source>
        <translation>Filtrer les données de l’enregistrement</translation>
    </message>
    <message>
        <source>Filter (Ctrl+F)</source>
        <translation>Filtre (Ctrl+F)</translation>
    </message>
    <message>
        <source>Words of name, request, ECU or unit. Escape shows all.</source>
        <translation>Mots du nom, de la requête, du calculateur ou de l’unité. Échap affiche tout.</translation>
    </message>
    <message>
        <source>Data of the record</source>
        <translation>Données de l’enregistrement</translation>
    </message>
    <message>
        <source>No data with these words.</source>
        <translation>Aucune grandeur avec ces mots.</translation>
    </message>
    <message>
        <source>No data yet.</source>
        <translation>Pas encore de données.</translation>
    </message>
</context>
<context>
    <name>tarnlog::DataListModel</name>
    <message>
        <source>labels</source>
        <translation>libellés</translation>
    </message>
    <message>
        <source>on/off</source>
        <translation>oui/non</translation>
    </message>
    <message>
        <source>numbers</source>
        <translation>nombres</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Grandeur</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Unité</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Source</translation>
    </message>
</context>
<context>
    <name>tarnlog::FiguresModel</name>
    <message>
        <source>Data</source>
        <translation>Grandeur</translation>
    </message>
    <message>
        <source>At A</source>
        <translation>En A</translation>
    </message>
    <message>
        <source>At B</source>
        <translation>En B</translation>
    </message>
    <message>
        <source>B - A</source>
        <translation>B - A</translation>
    </message>
    <message>
        <source>Slope per s</source>
        <translation>Pente par s</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>at</source>
        <translation>à</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Moyenne</translation>
    </message>
    <message>
        <source>Median</source>
        <translation>Médiane</translation>
    </message>
    <message>
        <source>Std. deviation</source>
        <translation>Écart type</translation>
    </message>
    <message>
        <source>Above level</source>
        <translation>Temps &gt; seuil</translation>
    </message>
    <message>
        <source>Above %1</source>
        <translation>Temps &gt; %1</translation>
    </message>
</context>
<context>
    <name>tarnlog::FiguresTable</name>
    <message>
        <source>Level for the time above it</source>
        <translation>Seuil pour le temps passé au-dessus</translation>
    </message>
    <message>
        <source>How long each curve is above this level, in the last column</source>
        <translation>Temps que chaque courbe passe au-dessus de ce seuil, dans la dernière colonne</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Seuil</translation>
    </message>
    <message>
        <source>Time &amp;above</source>
        <translation>&amp;Temps au-dessus</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Copy the table for a spreadsheet (Ctrl+C)</source>
        <translation>Copier le tableau pour un tableur (Ctrl+C)</translation>
    </message>
    <message>
        <source>Copy the table of figures</source>
        <translation>Copier le tableau des statistiques</translation>
    </message>
    <message>
        <source>Figures of the curves</source>
        <translation>Statistiques des courbes</translation>
    </message>
    <message>
        <source>A: %1</source>
        <translation>A&#xa0;: %1</translation>
    </message>
    <message>
        <source>B: %1</source>
        <translation>B&#xa0;: %1</translation>
    </message>
    <message>
        <source>B - A: %1</source>
        <translation>B - A&#xa0;: %1</translation>
    </message>
    <message>
        <source>Measured: what is seen, %1 to %2</source>
        <translation>Mesuré&#xa0;: partie visible, %1 à %2</translation>
    </message>
</context>
<context>
    <name>tarnlog::FilterBox</name>
    <message>
        <source>Filter</source>
        <translation>Filtre</translation>
    </message>
</context>
<context>
    <name>tarnlog::FindBar</name>
    <message>
        <source>Previous</source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>The one before the readout (Shift+F3)</source>
        <translation>Le précédent avant la ligne de lecture (Maj+F3)</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>The next one behind the readout (F3)</source>
        <translation>Le suivant après la ligne de lecture (F3)</translation>
    </message>
    <message>
        <source>What to look for</source>
        <translation>Que chercher</translation>
    </message>
    <message>
        <source>Rises to the level</source>
        <translation>Montée au seuil</translation>
    </message>
    <message>
        <source>Falls to the level</source>
        <translation>Descente au seuil</translation>
    </message>
    <message>
        <source>Value changes</source>
        <translation>Changement de valeur</translation>
    </message>
    <message>
        <source>Largest step</source>
        <translation>Plus grand saut</translation>
    </message>
    <message>
        <source>Level to look for</source>
        <translation>Seuil à chercher</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Seuil</translation>
    </message>
    <message>
        <source>Look in: %1</source>
        <translation>Chercher dans&#xa0;: %1</translation>
    </message>
    <message>
        <source>Click a curve, or a row of the figures, to look in it</source>
        <translation>Cliquer sur une courbe, ou sur une ligne des statistiques, pour y chercher</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Chercher</translation>
    </message>
    <message>
        <source>Choose a curve and type a level first.</source>
        <translation>Choisir d’abord une courbe et saisir un seuil.</translation>
    </message>
    <message>
        <source>At %1</source>
        <translation>À %1</translation>
    </message>
    <message>
        <source>At %1: %2 %3</source>
        <translation>À %1&#xa0;: %2 %3</translation>
    </message>
    <message>
        <source>The first time is at %1.</source>
        <translation>La première fois est à %1.</translation>
    </message>
    <message>
        <source>The last time was at %1.</source>
        <translation>La dernière fois était à %1.</translation>
    </message>
    <message>
        <source>All of it lies between %1 and %2.</source>
        <translation>Toutes les valeurs sont entre %1 et %2.</translation>
    </message>
    <message>
        <source>There are not two values here to step between.</source>
        <translation>Pas de saut&#xa0;: moins de deux valeurs ici.</translation>
    </message>
    <message>
        <source>It does not change before %1.</source>
        <translation>Pas de changement avant %1.</translation>
    </message>
    <message>
        <source>It does not change after %1.</source>
        <translation>Pas de changement après %1.</translation>
    </message>
    <message>
        <source>It does not rise to %1 before %2.</source>
        <translation>Pas de montée à %1 avant %2.</translation>
    </message>
    <message>
        <source>It does not rise to %1 after %2.</source>
        <translation>Pas de montée à %1 après %2.</translation>
    </message>
    <message>
        <source>It does not fall to %1 before %2.</source>
        <translation>Pas de descente à %1 avant %2.</translation>
    </message>
    <message>
        <source>It does not fall to %1 after %2.</source>
        <translation>Pas de descente à %1 après %2.</translation>
    </message>
</context>
<context>
    <name>tarnlog::ForeignTableDialog</name>
    <message>
        <source>A table of another program: %1</source>
        <translation>Tableau d’un autre programme&#xa0;: %1</translation>
    </message>
    <message>
        <source>What stands between the cells</source>
        <translation>Ce qui sépare les cellules</translation>
    </message>
    <message>
        <source>Comma</source>
        <translation>Virgule</translation>
    </message>
    <message>
        <source>Semicolon</source>
        <translation>Point-virgule</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tabulation</translation>
    </message>
    <message>
        <source>Bar |</source>
        <translation>Barre |</translation>
    </message>
    <message>
        <source>Blank</source>
        <translation>Espace</translation>
    </message>
    <message>
        <source>Decimal separator</source>
        <translation>Séparateur décimal</translation>
    </message>
    <message>
        <source>Point: 12.5</source>
        <translation>Point&#xa0;: 12.5</translation>
    </message>
    <message>
        <source>Comma: 12,5</source>
        <translation>Virgule&#xa0;: 12,5</translation>
    </message>
    <message>
        <source>Character set</source>
        <translation>Jeu de caractères</translation>
    </message>
    <message>
        <source>Lines before the rows</source>
        <translation>Lignes avant les données</translation>
    </message>
    <message>
        <source>Column with the time</source>
        <translation>Colonne du temps</translation>
    </message>
    <message>
        <source>Unit of the times</source>
        <translation>Unité de temps</translation>
    </message>
    <message>
        <source>seconds</source>
        <translation>secondes</translation>
    </message>
    <message>
        <source>milliseconds</source>
        <translation>millisecondes</translation>
    </message>
    <message>
        <source>microseconds</source>
        <translation>microsecondes</translation>
    </message>
    <message>
        <source>nanoseconds</source>
        <translation>nanosecondes</translation>
    </message>
    <message>
        <source>minutes</source>
        <translation>minutes</translation>
    </message>
    <message>
        <source>hours</source>
        <translation>heures</translation>
    </message>
    <message>
        <source>days</source>
        <translation>jours</translation>
    </message>
    <message>
        <source>&amp;Separator</source>
        <translation>&amp;Séparateur</translation>
    </message>
    <message>
        <source>&amp;Decimal separator</source>
        <translation>Séparateur &amp;décimal</translation>
    </message>
    <message>
        <source>&amp;Header lines</source>
        <translation>Lignes d’&amp;en-tête</translation>
    </message>
    <message>
        <source>&amp;Time column</source>
        <translation>Colonne du &amp;temps</translation>
    </message>
    <message>
        <source>&amp;Unit of times</source>
        <translation>&amp;Unité de temps</translation>
    </message>
    <message>
        <source>&amp;Character set</source>
        <translation>&amp;Jeu de caractères</translation>
    </message>
    <message>
        <source>The first lines as they are read</source>
        <translation>Les premières lignes telles qu’elles sont lues</translation>
    </message>
    <message>
        <source>&amp;Look at it</source>
        <translation>&amp;Consulter</translation>
    </message>
    <message>
        <source>This file is no record of this program. Say how to read it:</source>
        <translation>Ce fichier n’est pas un enregistrement de ce programme. Indiquer comment le lire&#xa0;:</translation>
    </message>
    <message>
        <source>None: rows are a second apart</source>
        <translation>Aucune&#xa0;: une ligne par seconde</translation>
    </message>
    <message>
        <source>Column %1</source>
        <translation>Colonne %1</translation>
    </message>
    <message>
        <source>There are no rows behind the header lines.</source>
        <translation>Il n’y a pas de lignes après les lignes d’en-tête.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no time: choose another column, separator or number of header lines.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un temps&#xa0;: choisir une autre colonne, un autre séparateur ou un autre nombre de lignes d’en-tête.</translation>
    </message>
</context>
<context>
    <name>tarnlog::GraphMenu</name>
    <message>
        <source>&amp;Save picture...</source>
        <translation>Sauvegarder l’&amp;image...</translation>
    </message>
    <message>
        <source>Copy &amp;picture</source>
        <translation>C&amp;opier l’image</translation>
    </message>
    <message>
        <source>&amp;Copy points</source>
        <translation>&amp;Copier les points</translation>
    </message>
    <message>
        <source>&amp;Times in the grid</source>
        <translation>&amp;Temps dans la grille</translation>
    </message>
    <message>
        <source>T&amp;hick curves</source>
        <translation>Courbes é&amp;paisses</translation>
    </message>
    <message>
        <source>&amp;Each curve its own scale</source>
        <translation>Une éc&amp;helle par courbe</translation>
    </message>
    <message>
        <source>&amp;One scale for all</source>
        <translation>Échelle &amp;unique</translation>
    </message>
    <message>
        <source>&amp;Axis of</source>
        <translation>Axe &amp;de</translation>
    </message>
    <message>
        <source>&amp;Memory for looking back</source>
        <translation>&amp;Mémoire pour le retour en arrière</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1 Mo</translation>
    </message>
    <message>
        <source>&amp;Fit all	F</source>
        <translation>Tout &amp;voir	F</translation>
    </message>
    <message>
        <source>Cursor &amp;A	A</source>
        <translation>Curseur &amp;A	A</translation>
    </message>
    <message>
        <source>Cursor &amp;B	B</source>
        <translation>Curseur &amp;B	B</translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation>Sauvegarder l’image</translation>
    </message>
    <message>
        <source>Pictures (*.png)</source>
        <translation>Images (*.png)</translation>
    </message>
    <message>
        <source>The picture could not be written to %1.</source>
        <translation>Écriture de l’image dans %1 impossible.</translation>
    </message>
</context>
<context>
    <name>tarnlog::HandOn</name>
    <message>
        <source>Save &amp;picture...</source>
        <translation>Sauvegarder l’&amp;image...</translation>
    </message>
    <message>
        <source>Part: only the &amp;data that are shown</source>
        <translation>Extrait&#xa0;: seulement les &amp;données affichées</translation>
    </message>
    <message>
        <source>Copy &amp;table of figures</source>
        <translation>Copier le &amp;tableau des statistiques</translation>
    </message>
    <message>
        <source>Save part of %1 as &amp;CSV...</source>
        <translation>Sauvegarder l’extrait de %1 en &amp;CSV...</translation>
    </message>
    <message>
        <source>Save part as &amp;CSV...</source>
        <translation>Sauvegarder l’extrait en &amp;CSV...</translation>
    </message>
    <message>
        <source>Save part of %1 as &amp;measurement file...</source>
        <translation>Sauvegarder l’extrait de %1 en fichier de &amp;mesure...</translation>
    </message>
    <message>
        <source>Save part as &amp;measurement file...</source>
        <translation>Sauvegarder l’extrait en fichier de &amp;mesure...</translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation>Sauvegarder l’image</translation>
    </message>
    <message>
        <source>Picture (*.png)</source>
        <translation>Image (*.png)</translation>
    </message>
    <message>
        <source>Drawing (*.svg)</source>
        <translation>Dessin (*.svg)</translation>
    </message>
    <message>
        <source>Written: %1</source>
        <translation>Écrit&#xa0;: %1</translation>
    </message>
    <message>
        <source>It could not be written: %1</source>
        <translation>Écriture impossible&#xa0;: %1</translation>
    </message>
    <message>
        <source>Table (*.csv)</source>
        <translation>Tableau (*.csv)</translation>
    </message>
    <message>
        <source>Measurement file (*.mf4)</source>
        <translation>Fichier de mesure (*.mf4)</translation>
    </message>
    <message>
        <source>Save part of the record</source>
        <translation>Sauvegarder l’extrait</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Tous les fichiers</translation>
    </message>
    <message>
        <source>no data of %1 are shown</source>
        <translation>aucune grandeur de %1 n’est affichée</translation>
    </message>
    <message>
        <source>_part</source>
        <comment>behind a file&apos;s name</comment>
        <translation>_extrait</translation>
    </message>
    <message>
        <source>Writing %1</source>
        <translation>Écriture de %1</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>%1, the part of %2</source>
        <translation>%1, extrait de %2</translation>
    </message>
</context>
<context>
    <name>tarnlog::HelpPanel</name>
    <message>
        <source>User &amp;guide</source>
        <translation>Guid&amp;e</translation>
    </message>
    <message>
        <source>What the &amp;messages mean</source>
        <translation>Signification des &amp;messages</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>This panel; Escape closes it</source>
        <translation>Ce panneau&#xa0;; Échap le ferme</translation>
    </message>
</context>
<context>
    <name>tarnlog::ListFilter</name>
    <message>
        <source>Filter the values by name</source>
        <translation>Filtrer les valeurs par nom</translation>
    </message>
    <message>
        <source>Filter (Ctrl+F)</source>
        <translation>Filtre (Ctrl+F)</translation>
    </message>
    <message>
        <source>Show only values whose name has all these words. Escape shows all.</source>
        <translation>N’afficher que les valeurs dont le nom contient tous ces mots. Échap affiche tout.</translation>
    </message>
    <message>
        <source>Empty the filter</source>
        <translation>Vider le filtre</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <comment>rows of the list that match</comment>
        <translation>%1 sur %2</translation>
    </message>
</context>
<context>
    <name>tarnlog::LogList</name>
    <message>
        <source>Acquisition log</source>
        <translation>Journal de l’acquisition</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Tout sélectionner</translation>
    </message>
</context>
<context>
    <name>tarnlog::LogView</name>
    <message>
        <source>Log</source>
        <translation>Journal</translation>
    </message>
    <message>
        <source>Keys of the log</source>
        <translation>Touches du journal</translation>
    </message>
    <message>
        <source>Arrows, Page Up, Page Down</source>
        <translation>Flèches, Pg préc, Pg suiv</translation>
    </message>
    <message>
        <source>Read on</source>
        <translation>Continuer</translation>
    </message>
    <message>
        <source>Ctrl+Home, Ctrl+End</source>
        <translation>Ctrl+Origine, Ctrl+Fin</translation>
    </message>
    <message>
        <source>Beginning and end</source>
        <translation>Début et fin</translation>
    </message>
    <message>
        <source>Shift with these keys</source>
        <translation>Maj avec ces touches</translation>
    </message>
    <message>
        <source>Select; Ctrl+A selects all</source>
        <translation>Sélectionner&#xa0;; Ctrl+A sélectionne tout</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Ctrl+C</translation>
    </message>
    <message>
        <source>Copy what is selected</source>
        <translation>Copier la sélection</translation>
    </message>
    <message>
        <source>Alt+C, Alt+A</source>
        <translation>Alt+C, Alt+A</translation>
    </message>
    <message>
        <source>Configure, Acquire</source>
        <translation>Configurer, Acquérir</translation>
    </message>
</context>
<context>
    <name>tarnlog::MarkList</name>
    <message>
        <source>&amp;Open the event&apos;s file</source>
        <translation>&amp;Ouvrir le fichier de l’événement</translation>
    </message>
    <message>
        <source>Marks of the records</source>
        <translation>Repères des enregistrements</translation>
    </message>
    <message>
        <source>No marks in this record.</source>
        <translation>Aucun repère dans cet enregistrement.</translation>
    </message>
    <message>
        <source>Lay the event&apos;s own file over its record: it has every row around the event</source>
        <translation>Superposer le fichier de l’événement à son enregistrement&#xa0;: il a toutes les lignes autour de l’événement</translation>
    </message>
</context>
<context>
    <name>tarnlog::MarkListModel</name>
    <message>
        <source>Start of recording</source>
        <translation>Début d’enregistrement</translation>
    </message>
    <message>
        <source>Stop of recording</source>
        <translation>Fin d’enregistrement</translation>
    </message>
    <message>
        <source>Gap</source>
        <translation>Lacune</translation>
    </message>
    <message>
        <source>Failure</source>
        <translation>Échec</translation>
    </message>
    <message>
        <source>Clock was set</source>
        <translation>Horloge décalée</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Événement</translation>
    </message>
    <message>
        <source>Event %1</source>
        <translation>Événement %1</translation>
    </message>
    <message>
        <source>for %1</source>
        <translation>durée %1</translation>
    </message>
    <message>
        <source>by %1</source>
        <translation>de %1</translation>
    </message>
    <message>
        <source>%1 (record %2)</source>
        <translation>%1 (enregistrement %2)</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Temps</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>Repère</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Détails</translation>
    </message>
</context>
<context>
    <name>tarnlog::NoticeBar</name>
    <message>
        <source>Close this message</source>
        <translation>Fermer ce message</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Détails</translation>
    </message>
    <message>
        <source>Show all</source>
        <translation>Tout voir</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Messages</translation>
    </message>
</context>
<context>
    <name>tarnlog::OpeningProgress</name>
    <message>
        <source>Connecting</source>
        <translation>Connexion</translation>
    </message>
</context>
<context>
    <name>tarnlog::OverviewStrip</name>
    <message>
        <source>The whole record</source>
        <translation>L’enregistrement entier</translation>
    </message>
</context>
<context>
    <name>tarnlog::PublishDialog</name>
    <message>
        <source>Publish values</source>
        <translation>Publier les valeurs</translation>
    </message>
    <message>
        <source>A JSON file with user, password, ca, certificate and key, as the broker wants them</source>
        <translation>Un fichier JSON avec user, password, ca, certificate et key, selon ce que demande le broker</translation>
    </message>
    <message>
        <source>Choose the file</source>
        <translation>Choisir le fichier</translation>
    </message>
    <message>
        <source>Each answer goes to an MQTT broker as it comes, from the next acquisition on. Measurement data (MF4) of the whole acquisition are written, too: what the broker has missed is published from there. Without an address nothing is published.</source>
        <translation>Chaque réponse va à un broker MQTT dès qu’elle arrive, à partir de la prochaine acquisition. Les données de mesure (MF4) de toute l’acquisition sont aussi écrites&#xa0;: ce que le broker a manqué est publié à partir d’elles. Sans adresse, rien n’est publié.</translation>
    </message>
    <message>
        <source>&amp;Broker:</source>
        <translation>&amp;Broker&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;File with user and password:</source>
        <translation>&amp;Fichier des identifiants&#xa0;:</translation>
    </message>
    <message>
        <source>Access (*.json)|*.json</source>
        <translation>Accès (*.json)|*.json</translation>
    </message>
</context>
<context>
    <name>tarnlog::RecordLabel</name>
    <message>
        <source>A click looks at this record</source>
        <translation>Cliquer pour consulter cet enregistrement</translation>
    </message>
</context>
<context>
    <name>tarnlog::RecordLine</name>
    <message>
        <source>Record %1: %2</source>
        <translation>Enregistrement %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Recording of the file</source>
        <translation>Enregistrement du fichier</translation>
    </message>
    <message>
        <source>Recording %1 of %2</source>
        <translation>Enregistrement %1 sur %2</translation>
    </message>
    <message>
        <source>How record %1 is laid over the first one</source>
        <translation>Manière de superposer l’enregistrement %1 au premier</translation>
    </message>
    <message>
        <source>Seconds that record %1 is moved to the right</source>
        <translation>Décalage de l’enregistrement %1 vers la droite, en secondes</translation>
    </message>
    <message>
        <source>Moves it to the right; so does dragging a curve with Ctrl held</source>
        <translation>Le décale vers la droite&#xa0;; glisser une courbe avec Ctrl enfoncé aussi</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Close this record</source>
        <translation>Fermer cet enregistrement</translation>
    </message>
    <message>
        <source>Close record %1</source>
        <translation>Fermer l’enregistrement %1</translation>
    </message>
    <message>
        <source>At the start of recording</source>
        <translation>Au début de l’enregistrement</translation>
    </message>
    <message>
        <source>At the stop of recording</source>
        <translation>À la fin de l’enregistrement</translation>
    </message>
    <message>
        <source>By clock</source>
        <translation>Par horloge</translation>
    </message>
    <message>
        <source>At an event</source>
        <translation>À un événement</translation>
    </message>
    <message>
        <source>At event %1</source>
        <translation>À l’événement %1</translation>
    </message>
    <message>
        <source>By hand</source>
        <translation>À la main</translation>
    </message>
</context>
<context>
    <name>tarnlog::RecordPane</name>
    <message>
        <source>Data to record</source>
        <translation>Données à enregistrer</translation>
    </message>
    <message>
        <source>Filter the data to record</source>
        <translation>Filtrer les données à enregistrer</translation>
    </message>
    <message>
        <source>Words of name, request, ECU or unit</source>
        <translation>Mots du nom, de la requête, du calculateur ou de l’unité</translation>
    </message>
    <message>
        <source>Add data</source>
        <translation>Ajouter</translation>
    </message>
    <message>
        <source>Remove data</source>
        <translation>Retirer</translation>
    </message>
    <message>
        <source>Delete; Ctrl+Z takes it back</source>
        <translation>Suppr&#xa0;; Ctrl+Z annule</translation>
    </message>
    <message>
        <source>Move up (Ctrl+Up)</source>
        <translation>Monter (Ctrl+Haut)</translation>
    </message>
    <message>
        <source>Move down (Ctrl+Down)</source>
        <translation>Descendre (Ctrl+Bas)</translation>
    </message>
    <message>
        <source>No data with these words.</source>
        <translation>Aucune grandeur avec ces mots.</translation>
    </message>
    <message>
        <source>Select data on the left and press &quot;Add data&quot;, double-click them or drag them here.</source>
        <translation>Sélectionner des données à gauche et cliquer sur «&#xa0;Ajouter&#xa0;», double-cliquer dessus ou les glisser ici.</translation>
    </message>
    <message>
        <source>%1 hidden</source>
        <translation>masquées&#xa0;: %1</translation>
    </message>
    <message>
        <source>Data to record that the filter does not show</source>
        <translation>Données à enregistrer que le filtre n’affiche pas</translation>
    </message>
</context>
<context>
    <name>tarnlog::RecorderWindow</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Ai&amp;de</translation>
    </message>
    <message>
        <source>&amp;Keys of this page</source>
        <translation>&amp;Touches de cette page</translation>
    </message>
    <message>
        <source>User &amp;guide</source>
        <translation>&amp;Guide</translation>
    </message>
    <message>
        <source>What the &amp;messages mean</source>
        <translation>Signification des &amp;messages</translation>
    </message>
    <message>
        <source>&amp;About Tarnlog2001</source>
        <translation>À &amp;propos de Tarnlog2001</translation>
    </message>
    <message>
        <source>Open &amp;vehicle...</source>
        <translation>Ouvrir un &amp;véhicule...</translation>
    </message>
    <message>
        <source>&amp;Connect to a car...</source>
        <translation>Se &amp;connecter à un véhicule...</translation>
    </message>
    <message>
        <source>Recent v&amp;ehicles</source>
        <translation>Véhicules &amp;récents</translation>
    </message>
    <message>
        <source>&amp;Recent configurations</source>
        <translation>Confi&amp;gurations récentes</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>A &amp;folder for each vehicle</source>
        <translation>Un &amp;dossier par véhicule</translation>
    </message>
    <message>
        <source>Files go into a folder named after the vehicle</source>
        <translation>Les fichiers vont dans un dossier au nom du véhicule</translation>
    </message>
    <message>
        <source>The vehicle&apos;s folder cannot be made: %1</source>
        <translation>Création du dossier du véhicule impossible&#xa0;: %1</translation>
    </message>
    <message>
        <source>About Tarnlog2001</source>
        <translation>À propos de Tarnlog2001</translation>
    </message>
    <message>
        <source>Tarnlog2001 %1
Recorder and live scope for the diagnostic data of a vehicle&apos;s control units.</source>
        <translation>Tarnlog2001 %1
Enregistreur et oscilloscope en direct des données de diagnostic des calculateurs d’un véhicule.</translation>
    </message>
    <message>
        <source>Open vehicle</source>
        <translation>Ouvrir un véhicule</translation>
    </message>
    <message>
        <source>Vehicles</source>
        <translation>Véhicules</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Tous les fichiers</translation>
    </message>
    <message>
        <source>%1: &quot;tarn-record import --odx&quot; makes a vehicle description of it</source>
        <translation>%1&#xa0;: «&#xa0;tarn-record import --odx&#xa0;» en fait une description de véhicule</translation>
    </message>
    <message>
        <source>%1 is no vehicle (.json), configuration (.xml), record or trace (.trace)</source>
        <translation>%1 n’est ni un véhicule (.json), ni une configuration (.xml), ni un enregistrement, ni une trace (.trace)</translation>
    </message>
    <message>
        <source>Vehicle error</source>
        <translation>Erreur de véhicule</translation>
    </message>
    <message>
        <source>Not offered: %1</source>
        <translation>Non proposé&#xa0;: %1</translation>
    </message>
    <message>
        <source>Not all is offered</source>
        <translation>Tout n’est pas proposé</translation>
    </message>
    <message>
        <source>Load error</source>
        <translation>Erreur de chargement</translation>
    </message>
    <message>
        <source>Acquisition error</source>
        <translation>Erreur d’acquisition</translation>
    </message>
    <message>
        <source>%1 is opened as soon as there is a vehicle.</source>
        <translation>%1 sera ouvert dès qu’il y aura un véhicule.</translation>
    </message>
    <message>
        <source>%1 over %2</source>
        <translation>%1 via %2</translation>
    </message>
    <message>
        <source>What the messages mean</source>
        <translation>Signification des messages</translation>
    </message>
    <message>
        <source>New configuration</source>
        <translation>Nouvelle configuration</translation>
    </message>
    <message>
        <source>The settings cannot be read, the defaults are used: %1</source>
        <translation>Lecture des réglages impossible, valeurs par défaut utilisées&#xa0;: %1</translation>
    </message>
    <message>
        <source>Closing: what runs is being ended.</source>
        <translation>Fermeture&#xa0;: arrêt de ce qui est en cours.</translation>
    </message>
    <message>
        <source>Open file error : %1</source>
        <translation>Erreur à l’ouverture du fichier&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>tarnlog::RecordsBar</name>
    <message>
        <source>How far the record is read</source>
        <translation>Avancement de la lecture de l’enregistrement</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Stop reading; what is read can be looked at</source>
        <translation>Arrêter la lecture&#xa0;; ce qui est lu peut être consulté</translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation>Lecture de %1</translation>
    </message>
</context>
<context>
    <name>tarnlog::ReviewGraphMenu</name>
    <message>
        <source>As &amp;curves</source>
        <translation>En &amp;courbes</translation>
    </message>
    <message>
        <source>As bar&amp;s</source>
        <translation>En &amp;barres</translation>
    </message>
    <message>
        <source>&amp;Each curve its own scale</source>
        <translation>Une éc&amp;helle par courbe</translation>
    </message>
    <message>
        <source>&amp;Axis of</source>
        <translation>Axe &amp;de</translation>
    </message>
    <message>
        <source>&amp;Over</source>
        <translation>En &amp;fonction de</translation>
    </message>
    <message>
        <source>&amp;Time</source>
        <translation>Te&amp;mps</translation>
    </message>
    <message>
        <source>Cursor A &amp;here</source>
        <translation>Curseur A &amp;ici</translation>
    </message>
    <message>
        <source>Cursor B he&amp;re</source>
        <translation>C&amp;urseur B ici</translation>
    </message>
    <message>
        <source>Show a&amp;ll	F</source>
        <translation>&amp;Tout voir	F</translation>
    </message>
    <message>
        <source>&amp;Back	Backspace</source>
        <translation>R&amp;etour	Retour arrière</translation>
    </message>
    <message>
        <source>&amp;Take away %1</source>
        <translation>&amp;Retirer %1</translation>
    </message>
    <message>
        <source>Take away the &amp;graph</source>
        <translation>Retirer le &amp;graphe</translation>
    </message>
    <message>
        <source>O&amp;nly this graph</source>
        <translation>&amp;Seulement ce graphe</translation>
    </message>
    <message>
        <source>Graphs as at f&amp;irst</source>
        <translation>Graphes d’&amp;origine</translation>
    </message>
</context>
<context>
    <name>tarnlog::ReviewGraphWidget</name>
    <message>
        <source>Graph of %1</source>
        <translation>Graphe de %1</translation>
    </message>
</context>
<context>
    <name>tarnlog::ReviewGraphs</name>
    <message>
        <source>Graphs</source>
        <translation>Graphes</translation>
    </message>
</context>
<context>
    <name>tarnlog::ReviewPanes</name>
    <message>
        <source>Data</source>
        <translation>Données</translation>
    </message>
    <message>
        <source>Show or hide the list of data</source>
        <translation>Afficher ou masquer la liste des données</translation>
    </message>
    <message>
        <source>Figures</source>
        <translation>Statistiques</translation>
    </message>
    <message>
        <source>Show or hide what is below the graphs</source>
        <translation>Afficher ou masquer ce qui est sous les graphes</translation>
    </message>
</context>
<context>
    <name>tarnlog::ReviewWindow</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Open record...</source>
        <translation>&amp;Ouvrir un enregistrement...</translation>
    </message>
    <message>
        <source>&amp;Lay another one over...</source>
        <translation>&amp;Superposer un autre...</translation>
    </message>
    <message>
        <source>&amp;Recent records</source>
        <translation>Enregistrements &amp;récents</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Ai&amp;de</translation>
    </message>
    <message>
        <source>&amp;Keys of this window</source>
        <translation>&amp;Touches de cette fenêtre</translation>
    </message>
    <message>
        <source>User &amp;guide</source>
        <translation>&amp;Guide</translation>
    </message>
    <message>
        <source>R&amp;ecorder</source>
        <translation>&amp;Enregistreur</translation>
    </message>
</context>
<context>
    <name>tarnlog::SaveFrame</name>
    <message>
        <source>Folder and Save parameters</source>
        <translation>Dossier et sauvegarde</translation>
    </message>
    <message>
        <source>Destination folder</source>
        <translation>Dossier de destination</translation>
    </message>
    <message>
        <source>existing file</source>
        <translation>Fichiers existants</translation>
    </message>
    <message>
        <source>Files that are in the folder</source>
        <translation>Fichiers présents dans le dossier</translation>
    </message>
    <message>
        <source>Destination drive</source>
        <translation>Lecteur de destination</translation>
    </message>
    <message>
        <source>File format</source>
        <translation>Format de fichier</translation>
    </message>
    <message>
        <source>Also measurement data (MF4)</source>
        <translation>Données de mesure aussi (MF4)</translation>
    </message>
    <message>
        <source>Writes an ASAM MDF 4 file beside each record: every answer of the vehicle with its own time</source>
        <translation>Écrit un fichier ASAM MDF 4 à côté de chaque enregistrement&#xa0;: toutes les réponses du véhicule, chacune avec son horodatage</translation>
    </message>
    <message>
        <source>File Prefix</source>
        <translation>Préfixe</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Parcourir...</translation>
    </message>
    <message>
        <source>Ex :</source>
        <translation>Ex.&#xa0;:</translation>
    </message>
    <message>
        <source>The folder %1 does not exist: records will go to the current folder instead.</source>
        <translation>Le dossier %1 n’existe pas&#xa0;: les enregistrements iront dans le dossier courant.</translation>
    </message>
    <message>
        <source>No files can be made in the folder %1.</source>
        <translation>Création de fichiers impossible dans le dossier %1.</translation>
    </message>
    <message>
        <source>The prefix contains a &quot;/&quot;: records will go to a folder below, which must exist.</source>
        <translation>Le préfixe contient «&#xa0;/&#xa0;»&#xa0;: les enregistrements iront dans un sous-dossier, qui doit exister.</translation>
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
        <translation>Grandeur</translation>
    </message>
    <message>
        <source>Request</source>
        <translation>Requête</translation>
    </message>
    <message>
        <source>ECU</source>
        <translation>Calculateur</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>Affichage</translation>
    </message>
</context>
<context>
    <name>tarnlog::ScopeListView</name>
    <message>
        <source>No data to show yet. Choose some in &quot;Data selection&quot;.</source>
        <translation>Pas encore de données à afficher. En choisir dans «&#xa0;Sélection des données&#xa0;».</translation>
    </message>
</context>
<context>
    <name>tarnlog::ScopePanel</name>
    <message>
        <source>Display type</source>
        <translation>Type d’affichage</translation>
    </message>
    <message>
        <source>&amp;Display:</source>
        <translation>Aff&amp;ichage&#xa0;:</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Grandeur</translation>
    </message>
    <message>
        <source>Request</source>
        <translation>Requête</translation>
    </message>
    <message>
        <source>ECU</source>
        <translation>Calculateur</translation>
    </message>
    <message>
        <source>Data:</source>
        <translation>Grandeur&#xa0;:</translation>
    </message>
    <message>
        <source>Request:</source>
        <translation>Requête&#xa0;:</translation>
    </message>
    <message>
        <source>ECU:</source>
        <translation>Calculateur&#xa0;:</translation>
    </message>
    <message>
        <source>Caption</source>
        <translation>Légende</translation>
    </message>
    <message>
        <source>Shown beside the value; the name of the data when empty</source>
        <translation>Affichée à côté de la valeur&#xa0;; si vide, le nom de la grandeur</translation>
    </message>
    <message>
        <source>Graph</source>
        <translation>Graphe</translation>
    </message>
    <message>
        <source>The graph that this data belongs to</source>
        <translation>Le graphe auquel cette grandeur appartient</translation>
    </message>
    <message>
        <source>Cap&amp;tion:</source>
        <translation>&amp;Légende&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Graph:</source>
        <translation>&amp;Graphe&#xa0;:</translation>
    </message>
    <message>
        <source>Y Axis</source>
        <translation>Axe Y</translation>
    </message>
    <message>
        <source>A&amp;utomatic range</source>
        <translation>Plage a&amp;utomatique</translation>
    </message>
    <message>
        <source>Automatic range</source>
        <translation>Plage automatique</translation>
    </message>
    <message>
        <source>The axis follows the values</source>
        <translation>L’axe suit les valeurs</translation>
    </message>
    <message>
        <source>Minimum of the axis</source>
        <translation>Minimum de l’axe</translation>
    </message>
    <message>
        <source>Maximum of the axis</source>
        <translation>Maximum de l’axe</translation>
    </message>
    <message>
        <source>Mi&amp;nimum:</source>
        <translation>Mi&amp;nimum&#xa0;:</translation>
    </message>
    <message>
        <source>Ma&amp;ximum:</source>
        <translation>Ma&amp;ximum&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Range of the datum</source>
        <translation>Plage de la g&amp;randeur</translation>
    </message>
    <message>
        <source>X Axis</source>
        <translation>Axe X</translation>
    </message>
    <message>
        <source>Number of points</source>
        <translation>Nombre de points</translation>
    </message>
    <message>
        <source>How many values the graph shows across its width</source>
        <translation>Nombre de valeurs que le graphe montre sur sa largeur</translation>
    </message>
    <message>
        <source>Number of &amp;points:</source>
        <translation>Nombre de &amp;points&#xa0;:</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Couleur</translation>
    </message>
    <message>
        <source>Choose another color</source>
        <translation>Choisir une autre couleur</translation>
    </message>
    <message>
        <source>Preview of the color</source>
        <translation>Aperçu de la couleur</translation>
    </message>
    <message>
        <source>How the color stands out from the background of graphs</source>
        <translation>Contraste de la couleur avec le fond des graphes</translation>
    </message>
    <message>
        <source>C&amp;olor:</source>
        <translation>C&amp;ouleur&#xa0;:</translation>
    </message>
    <message>
        <source>The vehicle does not tell the range of this data</source>
        <translation>Le véhicule n’indique pas la plage de cette grandeur</translation>
    </message>
    <message>
        <source>Switch the automatic range off first</source>
        <translation>Désactiver d’abord la plage automatique</translation>
    </message>
    <message>
        <source>From %1 to %2</source>
        <translation>De %1 à %2</translation>
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
        <translation>Graphes</translation>
    </message>
    <message>
        <source>Scroll the graphs</source>
        <translation>Faire défiler les graphes</translation>
    </message>
</context>
<context>
    <name>tarnlog::SelectedDataModel</name>
    <message>
        <source>Data</source>
        <translation>Grandeur</translation>
    </message>
    <message>
        <source>Request</source>
        <translation>Requête</translation>
    </message>
    <message>
        <source>ECU</source>
        <translation>Calcul.</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Organe</translation>
    </message>
</context>
<context>
    <name>tarnlog::StartPage</name>
    <message>
        <source>&amp;Connect to a car...</source>
        <translation>Se &amp;connecter...</translation>
    </message>
    <message>
        <source>&amp;Open vehicle...</source>
        <translation>&amp;Ouvrir un véhicule...</translation>
    </message>
    <message>
        <source>&amp;Look at a record...</source>
        <translation>Co&amp;nsulter un enregistrement...</translation>
    </message>
    <message>
        <source>Vehicles</source>
        <translation>Véhicules</translation>
    </message>
    <message>
        <source>A vehicle description tells which control units a vehicle has and what they can be asked. It can be dropped here, and so can a configuration, a record or a trace.</source>
        <translation>Une description de véhicule indique les calculateurs d’un véhicule et ce qu’on peut leur demander. Elle peut être déposée ici, de même qu’une configuration, un enregistrement ou une trace.</translation>
    </message>
    <message>
        <source>Choose a vehicle</source>
        <translation>Choisir un véhicule</translation>
    </message>
    <message>
        <source>Keys of the first page</source>
        <translation>Touches de la première page</translation>
    </message>
    <message>
        <source>Up, Down, Enter</source>
        <translation>Haut, Bas, Entrée</translation>
    </message>
    <message>
        <source>Choose and open a vehicle</source>
        <translation>Choisir et ouvrir un véhicule</translation>
    </message>
    <message>
        <source>Alt+C</source>
        <translation>Alt+C</translation>
    </message>
    <message>
        <source>Connect to a car</source>
        <translation>Se connecter à un véhicule</translation>
    </message>
    <message>
        <source>Alt+O, Ctrl+Shift+O</source>
        <translation>Alt+O, Ctrl+Maj+O</translation>
    </message>
    <message>
        <source>Open vehicle: a description of one</source>
        <translation>Ouvrir un véhicule&#xa0;: sa description</translation>
    </message>
    <message>
        <source>Alt+L</source>
        <translation>Alt+N</translation>
    </message>
    <message>
        <source>Look at a record that was made</source>
        <translation>Consulter un enregistrement existant</translation>
    </message>
    <message>
        <source>Ctrl+O</source>
        <translation>Ctrl+O</translation>
    </message>
    <message>
        <source>Open configuration: it waits for the vehicle</source>
        <translation>Ouvrir une configuration&#xa0;: elle attend le véhicule</translation>
    </message>
    <message>
        <source>Alt+F, Alt+H</source>
        <translation>Alt+F, Alt+D</translation>
    </message>
    <message>
        <source>The menus File and Help</source>
        <translation>Les menus Fichier et Aide</translation>
    </message>
    <message>
        <source>Ctrl+Q</source>
        <translation>Ctrl+Q</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>OBD car</source>
        <translation>Véhicule OBD</translation>
    </message>
    <message>
        <source>simulated example</source>
        <translation>exemple simulé</translation>
    </message>
</context>
<context>
    <name>tarnlog::Tarn2001</name>
    <message>
        <source>&amp;Open configuration...</source>
        <translation>&amp;Ouvrir une configuration...</translation>
    </message>
    <message>
        <source>&amp;Save configuration</source>
        <translation>&amp;Sauvegarder la configuration</translation>
    </message>
    <message>
        <source>Save configuration &amp;as...</source>
        <translation>Sauvegarder la configuration so&amp;us...</translation>
    </message>
    <message>
        <source>Configuration screens</source>
        <translation>Pages de configuration</translation>
    </message>
    <message>
        <source>Configuration file</source>
        <translation>Fichier de configuration</translation>
    </message>
    <message>
        <source>Load configuration</source>
        <translation>Charger une configuration</translation>
    </message>
    <message>
        <source>Save configuration</source>
        <translation>Sauvegarder la configuration</translation>
    </message>
    <message>
        <source>Data selection</source>
        <translation>Sélection des données</translation>
    </message>
    <message>
        <source>Recording parameters</source>
        <translation>Paramètres d’enregistrement</translation>
    </message>
    <message>
        <source>Display parameters</source>
        <translation>Affichage</translation>
    </message>
    <message>
        <source>Init Scenario</source>
        <translation>Scénario d’init</translation>
    </message>
    <message>
        <source>Keys of the recording parameters</source>
        <translation>Touches des paramètres d’enregistrement</translation>
    </message>
    <message>
        <source>Keys of the data selection</source>
        <translation>Touches de la sélection des données</translation>
    </message>
    <message>
        <source>Keys of the display parameters</source>
        <translation>Touches de l’affichage</translation>
    </message>
    <message>
        <source>Keys of the init scenario</source>
        <translation>Touches du scénario d’init</translation>
    </message>
    <message>
        <source>Ctrl+O</source>
        <translation>Ctrl+O</translation>
    </message>
    <message>
        <source>Open configuration</source>
        <translation>Ouvrir une configuration</translation>
    </message>
    <message>
        <source>Ctrl+S, Ctrl+Shift+S</source>
        <translation>Ctrl+S, Ctrl+Maj+S</translation>
    </message>
    <message>
        <source>Save configuration, under another name</source>
        <translation>Sauvegarder la configuration, sous un autre nom</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Move from control to control</source>
        <translation>Passer d’un élément à l’autre</translation>
    </message>
    <message>
        <source>Alt+A, Alt+L</source>
        <translation>Alt+A, Alt+J</translation>
    </message>
    <message>
        <source>Acquire, Log</source>
        <translation>Acquérir, Journal</translation>
    </message>
    <message>
        <source>Load error</source>
        <translation>Erreur de chargement</translation>
    </message>
    <message>
        <source>Error when loading configuration file</source>
        <translation>Erreur au chargement du fichier de configuration</translation>
    </message>
    <message>
        <source>Open configuration...</source>
        <translation>Ouvrir une configuration...</translation>
    </message>
    <message>
        <source>The configuration</source>
        <translation>La configuration</translation>
    </message>
    <message>
        <source>Not saved: %1</source>
        <translation>Pas de sauvegarde&#xa0;: %1</translation>
    </message>
    <message>
        <source>Save configuration as...</source>
        <translation>Sauvegarder la configuration sous...</translation>
    </message>
    <message>
        <source>%1 is a record: its configuration was opened without a name, the record stays as it is.</source>
        <translation>%1 est un enregistrement&#xa0;: sa configuration a été ouverte sans nom, l’enregistrement reste tel quel.</translation>
    </message>
    <message>
        <source>%1: its data are loaded as soon as there is a vehicle.</source>
        <translation>%1&#xa0;: ses données seront chargées dès qu’il y aura un véhicule.</translation>
    </message>
</context>
<context>
    <name>tarnlog::TarnInit</name>
    <message>
        <source>Init Scenario</source>
        <translation>Scénario d’init</translation>
    </message>
    <message>
        <source>1) Global initialisation (this request is sent to all Ecu)</source>
        <translation>1) Initialisation globale (cette requête est envoyée à tous les calculateurs)</translation>
    </message>
    <message>
        <source>Enter the request bytes to send to the ECU after init Ex: 10A0</source>
        <translation>Saisir les octets de la requête à envoyer au calculateur après l’init, ex.&#xa0;: 10A0</translation>
    </message>
    <message>
        <source>2) Specific ECU Initialisation</source>
        <translation>2) Initialisation propre à un calculateur</translation>
    </message>
    <message>
        <source>Select requests to send (after init and global initialisation)</source>
        <translation>Sélectionner les requêtes à envoyer (après l’init et l’initialisation globale)</translation>
    </message>
    <message>
        <source>Requests that can be sent</source>
        <translation>Requêtes possibles</translation>
    </message>
    <message>
        <source>Ecu</source>
        <translation>Calculateur</translation>
    </message>
    <message>
        <source>Request</source>
        <translation>Requête</translation>
    </message>
    <message>
        <source>Add data</source>
        <translation>Ajouter</translation>
    </message>
    <message>
        <source>Remove data</source>
        <translation>Retirer</translation>
    </message>
    <message>
        <source>Move up (Ctrl+Up)</source>
        <translation>Monter (Ctrl+Haut)</translation>
    </message>
    <message>
        <source>Move down (Ctrl+Down)</source>
        <translation>Descendre (Ctrl+Bas)</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Entrée</translation>
    </message>
    <message>
        <source>On a request: add it to the scenario</source>
        <translation>Sur une requête&#xa0;: l’ajouter au scénario</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Suppr</translation>
    </message>
    <message>
        <source>In the scenario: take the selected requests out</source>
        <translation>Dans le scénario&#xa0;: retirer les requêtes sélectionnées</translation>
    </message>
    <message>
        <source>Ctrl+Up, Ctrl+Down</source>
        <translation>Ctrl+Haut, Ctrl+Bas</translation>
    </message>
    <message>
        <source>Move the selected requests up, down</source>
        <translation>Monter, descendre les requêtes sélectionnées</translation>
    </message>
    <message>
        <source>These are no bytes in hexadecimal, as in 10A0: they cannot be sent.</source>
        <translation>Ce ne sont pas des octets en hexadécimal, comme 10A0&#xa0;: envoi impossible.</translation>
    </message>
    <message>
        <source>The scenario is full: nothing was added.</source>
        <translation>Le scénario est plein&#xa0;: rien n’a été ajouté.</translation>
    </message>
    <message>
        <source>%1 has the address %2, which does not fit into 16 bits: nothing was added.</source>
        <translation>%1 a l’adresse %2, qui ne tient pas sur 16 bits&#xa0;: rien n’a été ajouté.</translation>
    </message>
</context>
<context>
    <name>tarnlog::TarnMain</name>
    <message>
        <source>Views</source>
        <translation>Vues</translation>
    </message>
    <message>
        <source>&amp;Configure</source>
        <translation>&amp;Configurer</translation>
    </message>
    <message>
        <source>&amp;Acquire</source>
        <translation>&amp;Acquérir</translation>
    </message>
    <message>
        <source>&amp;Log</source>
        <translation>&amp;Journal</translation>
    </message>
    <message>
        <source>There is no vehicle yet: open or connect one first</source>
        <translation>Il n’y a pas encore de véhicule&#xa0;: en ouvrir ou en connecter un d’abord</translation>
    </message>
    <message>
        <source>Recording parameters</source>
        <translation>Paramètres d’enregistrement</translation>
    </message>
    <message>
        <source>No connection to the car: the recording goes on when it is back</source>
        <translation>Pas de liaison avec le véhicule&#xa0;: l’enregistrement reprendra dès qu’elle sera rétablie</translation>
    </message>
    <message>
        <source>No connection to the car: recording can begin when it is there</source>
        <translation>Pas de liaison avec le véhicule&#xa0;: l’enregistrement pourra démarrer dès qu’elle sera établie</translation>
    </message>
    <message>
        <source>End now</source>
        <translation>Terminer</translation>
    </message>
</context>
<context>
    <name>tarnlog::TarnPaSc</name>
    <message>
        <source>Data and how they are shown</source>
        <translation>Données et leur affichage</translation>
    </message>
    <message>
        <source>Up and Down move the data; with Ctrl they go from row to row; Shift+F10 opens the menu</source>
        <translation>Haut et Bas déplacent la grandeur&#xa0;; avec Ctrl, passent d’une ligne à l’autre&#xa0;; Maj+F10 ouvre le menu</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>Monter</translation>
    </message>
    <message>
        <source>Move the data up (Up arrow in the list)</source>
        <translation>Monter la grandeur (Haut dans la liste)</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Descendre</translation>
    </message>
    <message>
        <source>Move the data down (Down arrow in the list)</source>
        <translation>Descendre la grandeur (Bas dans la liste)</translation>
    </message>
    <message>
        <source>&amp;None</source>
        <translation>&amp;Aucun</translation>
    </message>
    <message>
        <source>Record the selected data without showing them</source>
        <translation>Enregistrer les données sélectionnées sans les afficher</translation>
    </message>
    <message>
        <source>&amp;Digital</source>
        <translation>&amp;Numérique</translation>
    </message>
    <message>
        <source>Show each as digits or text</source>
        <translation>Afficher chacune en chiffres ou en texte</translation>
    </message>
    <message>
        <source>&amp;BarGraph</source>
        <translation>&amp;Barre</translation>
    </message>
    <message>
        <source>Show each as a bar from 0 to 100</source>
        <translation>Afficher chacune en barre de 0 à 100</translation>
    </message>
    <message>
        <source>&amp;Graph</source>
        <translation>&amp;Graphe</translation>
    </message>
    <message>
        <source>A graph for each</source>
        <translation>Un graphe pour chacune</translation>
    </message>
    <message>
        <source>&amp;Single graph</source>
        <translation>Graphe &amp;unique</translation>
    </message>
    <message>
        <source>All on the graph of the first one</source>
        <translation>Toutes sur le graphe de la première</translation>
    </message>
    <message>
        <source>&amp;X-Y graph</source>
        <translation>Graphe &amp;X-Y</translation>
    </message>
    <message>
        <source>All on the graph of the first one, the last as its X axis</source>
        <translation>Toutes sur le graphe de la première, la dernière comme axe X</translation>
    </message>
    <message>
        <source>&amp;Unify number of points</source>
        <translation>&amp;Même nombre de points</translation>
    </message>
    <message>
        <source>Give all selected graphs the number of points of the first one</source>
        <translation>Donner à tous les graphes sélectionnés le nombre de points du premier</translation>
    </message>
    <message>
        <source>Number of &amp;points...</source>
        <translation>Nombre de &amp;points...</translation>
    </message>
    <message>
        <source>Of all selected graphs</source>
        <translation>De tous les graphes sélectionnés</translation>
    </message>
    <message>
        <source>&amp;Colours in turn</source>
        <translation>&amp;Couleurs distinctes</translation>
    </message>
    <message>
        <source>Give the selected graphs and curves colours that are easily told apart</source>
        <translation>Donner aux graphes et courbes sélectionnés des couleurs faciles à distinguer</translation>
    </message>
    <message>
        <source>&amp;Automatic range</source>
        <translation>Plage au&amp;tomatique</translation>
    </message>
    <message>
        <source>The axes of the selected graphs follow the values</source>
        <translation>Les axes des graphes sélectionnés suivent les valeurs</translation>
    </message>
    <message>
        <source>&amp;Fixed range</source>
        <translation>Plage &amp;fixe</translation>
    </message>
    <message>
        <source>The axes of the selected graphs go from their minimum to their maximum</source>
        <translation>Les axes des graphes sélectionnés vont de leur minimum à leur maximum</translation>
    </message>
    <message>
        <source>&amp;Empty captions</source>
        <translation>Vider les &amp;légendes</translation>
    </message>
    <message>
        <source>The selected data are shown under their own names</source>
        <translation>Les données sélectionnées s’affichent sous leur propre nom</translation>
    </message>
    <message>
        <source>Up, Down</source>
        <translation>Haut, Bas</translation>
    </message>
    <message>
        <source>In the list: move the data up, down</source>
        <translation>Dans la liste&#xa0;: monter, descendre la grandeur</translation>
    </message>
    <message>
        <source>Ctrl+Up, Ctrl+Down</source>
        <translation>Ctrl+Haut, Ctrl+Bas</translation>
    </message>
    <message>
        <source>In the list: go from row to row</source>
        <translation>Dans la liste&#xa0;: passer d’une ligne à l’autre</translation>
    </message>
    <message>
        <source>Shift+click, Ctrl+A</source>
        <translation>Maj+clic, Ctrl+A</translation>
    </message>
    <message>
        <source>Select several data, all data</source>
        <translation>Sélectionner plusieurs grandeurs, toutes</translation>
    </message>
    <message>
        <source>Shift+F10, Menu</source>
        <translation>Maj+F10, Menu</translation>
    </message>
    <message>
        <source>What can be done to all selected data: graphs, colours, ranges, captions</source>
        <translation>Actions possibles sur toutes les données sélectionnées&#xa0;: graphes, couleurs, plages, légendes</translation>
    </message>
    <message>
        <source>Number of points</source>
        <translation>Nombre de points</translation>
    </message>
    <message>
        <source>Values that the selected graphs show across their width:</source>
        <translation>Nombre de valeurs que les graphes sélectionnés montrent sur leur largeur&#xa0;:</translation>
    </message>
</context>
<context>
    <name>tarnlog::TarnParam</name>
    <message>
        <source>User Comment</source>
        <translation>Commentaire</translation>
    </message>
    <message>
        <source>Recording parameters</source>
        <translation>Paramètres d’enregistrement</translation>
    </message>
    <message>
        <source>Recording period (s)</source>
        <translation>Période d’enregistrement (s)</translation>
    </message>
    <message>
        <source>0 = Save all records</source>
        <translation>0 = tout enregistrer</translation>
    </message>
    <message>
        <source>How fast the last acquisition polled the car, and what costs most of the time</source>
        <translation>Cadence d’interrogation du véhicule à la dernière acquisition, et ce qui prend le plus de temps</translation>
    </message>
    <message>
        <source>Up, Down</source>
        <translation>Haut, Bas</translation>
    </message>
    <message>
        <source>In a number: one step; Page Up and Page Down: a wide one</source>
        <translation>Dans un nombre&#xa0;: un pas&#xa0;; Pg préc et Pg suiv&#xa0;: un grand pas</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espace</translation>
    </message>
    <message>
        <source>Choose the trigger&apos;s kind, turn its edge</source>
        <translation>Choisir le type de déclencheur, inverser le front</translation>
    </message>
    <message>
        <source>Left, Right</source>
        <translation>Gauche, Droite</translation>
    </message>
    <message>
        <source>In the folders: close and open one; the current folder is the chosen one</source>
        <translation>Dans les dossiers&#xa0;: en fermer et en ouvrir un&#xa0;; le dossier courant est celui choisi</translation>
    </message>
</context>
<context>
    <name>tarnlog::TarnReview</name>
    <message>
        <source>Open...</source>
        <translation>Ouvrir...</translation>
    </message>
    <message>
        <source>Open a record (Ctrl+O)</source>
        <translation>Ouvrir un enregistrement (Ctrl+O)</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
    <message>
        <source>What was seen before (Backspace)</source>
        <translation>Vue précédente (Retour arrière)</translation>
    </message>
    <message>
        <source>Show all</source>
        <translation>Tout voir</translation>
    </message>
    <message>
        <source>The whole record (F)</source>
        <translation>L’enregistrement entier (F)</translation>
    </message>
    <message>
        <source>Hand on</source>
        <translation>Exporter</translation>
    </message>
    <message>
        <source>Save or copy what is seen</source>
        <translation>Sauvegarder ou copier ce qui est visible</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Touches</translation>
    </message>
    <message>
        <source>Keys and help (F1)</source>
        <translation>Touches et aide (F1)</translation>
    </message>
    <message>
        <source>Lay another record &amp;over...</source>
        <translation>&amp;Superposer un autre enregistrement...</translation>
    </message>
    <message>
        <source>&amp;Difference of the chosen curve</source>
        <translation>&amp;Différence de la courbe choisie</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>Comparer</translation>
    </message>
    <message>
        <source>Lay another drive over this one, and show how they differ</source>
        <translation>Superposer un autre trajet à celui-ci, et montrer leurs différences</translation>
    </message>
    <message>
        <source>Open a record, or drop its file here.
Text, XML and MDF 4 records, whole or still being written.</source>
        <translation>Ouvrir un enregistrement, ou déposer son fichier ici.
Enregistrements en texte, XML et MDF 4, complets ou en cours d’écriture.</translation>
    </message>
    <message>
        <source>Figures</source>
        <translation>Statistiques</translation>
    </message>
    <message>
        <source>Marks</source>
        <translation>Repères</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Chercher</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 is not whole</source>
        <translation>%1 n’est pas complet</translation>
    </message>
    <message>
        <source>At most %1 records are looked at: %2 was left out</source>
        <translation>Au plus %1 enregistrements peuvent être consultés&#xa0;: %2 a été omis</translation>
    </message>
    <message>
        <source>Records (*.txt, *.xml, *.mf4)</source>
        <translation>Enregistrements (*.txt, *.xml, *.mf4)</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Tous les fichiers</translation>
    </message>
    <message>
        <source>Open record</source>
        <translation>Ouvrir un enregistrement</translation>
    </message>
    <message>
        <source>Lay another record over</source>
        <translation>Superposer un autre enregistrement</translation>
    </message>
    <message>
        <source>Read it as a table of another program</source>
        <translation>Le lire comme tableau d’un autre programme</translation>
    </message>
    <message>
        <source>Look at this instead</source>
        <translation>Consulter celui-ci à la place</translation>
    </message>
    <message>
        <source>Lay it over</source>
        <translation>Le superposer</translation>
    </message>
</context>
<context>
    <name>tarnlog::TarnSelect</name>
    <message>
        <source>Ctrl+F</source>
        <translation>Ctrl+F</translation>
    </message>
    <message>
        <source>Filter the available data; Escape empties the filter, Down goes on to what it found</source>
        <translation>Filtrer les données disponibles&#xa0;; Échap vide le filtre, Bas va à ce qu’il a trouvé</translation>
    </message>
    <message>
        <source>Left, Right</source>
        <translation>Gauche, Droite</translation>
    </message>
    <message>
        <source>Close and open an ECU or a request</source>
        <translation>Fermer et ouvrir un calculateur ou une requête</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Entrée</translation>
    </message>
    <message>
        <source>Add the selected data to those to record</source>
        <translation>Ajouter les données sélectionnées à celles à enregistrer</translation>
    </message>
    <message>
        <source>Ctrl+Up, Ctrl+Down</source>
        <translation>Ctrl+Haut, Ctrl+Bas</translation>
    </message>
    <message>
        <source>In the list: move the data up, down</source>
        <translation>Dans la liste&#xa0;: monter, descendre la grandeur</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Suppr</translation>
    </message>
    <message>
        <source>In the list: take the selected data out</source>
        <translation>Dans la liste&#xa0;: retirer les données sélectionnées</translation>
    </message>
    <message>
        <source>Ctrl+Z</source>
        <translation>Ctrl+Z</translation>
    </message>
    <message>
        <source>Take a removal back</source>
        <translation>Annuler un retrait</translation>
    </message>
    <message>
        <source>Internal error, data %1 not found</source>
        <translation>Erreur interne, grandeur %1 introuvable</translation>
    </message>
</context>
<context>
    <name>tarnlog::TimeAxis</name>
    <message>
        <source>Time</source>
        <translation>Temps</translation>
    </message>
</context>
<context>
    <name>tarnlog::TriggerFrame</name>
    <message>
        <source>Start Trigger</source>
        <translation>Déclencheur de début</translation>
    </message>
    <message>
        <source>Stop Trigger</source>
        <translation>Déclencheur de fin</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Manuel</translation>
    </message>
    <message>
        <source>Duration of recording (s)</source>
        <translation>Durée d’enregistrement (s)</translation>
    </message>
    <message>
        <source>Time in second</source>
        <translation>Temps en secondes</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Grandeur</translation>
    </message>
    <message>
        <source>Edge</source>
        <translation>Front</translation>
    </message>
    <message>
        <source>Pre trigger (s)</source>
        <translation>Pré-déclenchement (s)</translation>
    </message>
    <message>
        <source>Post trigger (s)</source>
        <translation>Post-déclenchement (s)</translation>
    </message>
    <message>
        <source>Negative: before the start, as in -5</source>
        <translation>Négatif&#xa0;: avant le début, par ex. -5</translation>
    </message>
    <message>
        <source>Auto-restart</source>
        <translation>Redémarrage auto</translation>
    </message>
    <message>
        <source>[No Channel]</source>
        <translation>[Aucune grandeur]</translation>
    </message>
    <message>
        <source>Falling edge</source>
        <translation>Front descendant</translation>
    </message>
    <message>
        <source>Rising edge</source>
        <translation>Front montant</translation>
    </message>
    <message>
        <source>Trigger level</source>
        <translation>Seuil du déclencheur</translation>
    </message>
</context>
<context>
    <name>tarnlog::ValueListModel</name>
    <message>
        <source>Data</source>
        <translation>Grandeur</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valeur</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Unité</translation>
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
        <translation>Valeurs en direct</translation>
    </message>
</context>
<context>
    <name>tarnlog::VehicleSlot</name>
    <message>
        <source>Connecting to %1...</source>
        <translation>Connexion à %1...</translation>
    </message>
</context>
</TS>
