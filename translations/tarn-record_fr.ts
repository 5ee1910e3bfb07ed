<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>Told</name>
    <message>
        <source>the ECU at address 0x{:X} gives none of the data that it lists (1 PID)</source>
        <translation>le calculateur à l’adresse 0x{:X} ne donne aucune des données qu’il annonce (1 PID)</translation>
    </message>
    <message>
        <source>the ECU at address 0x{:X} gives none of the data that it lists ({} PIDs)</source>
        <translation>le calculateur à l’adresse 0x{:X} ne donne aucune des données qu’il annonce ({} PID)</translation>
    </message>
    <message>
        <source>waiting for the adapter</source>
        <translation>attente de l’adaptateur</translation>
    </message>
    <message>
        <source>looking for the car&apos;s bus</source>
        <translation>recherche du bus du véhicule</translation>
    </message>
    <message>
        <source>asking the ECUs what they offer</source>
        <translation>interrogation des calculateurs sur ce qu’ils proposent</translation>
    </message>
    <message>
        <source>trying the data</source>
        <translation>essai des données</translation>
    </message>
    <message>
        <source>{} is refused ({}): left out, and asked again every 5 s</source>
        <translation>{} est refusée ({})&#xa0;: laissée de côté et redemandée toutes les 5 s</translation>
    </message>
    <message>
        <source>{} is not answered: left out, and asked again every 5 s</source>
        <translation>{} reste sans réponse&#xa0;: laissée de côté et redemandée toutes les 5 s</translation>
    </message>
    <message>
        <source>{} is answered again</source>
        <translation>{} reçoit de nouveau une réponse</translation>
    </message>
    <message>
        <source>{}; nothing more is published</source>
        <translation>{}&#xa0;; plus rien n’est publié</translation>
    </message>
    <message>
        <source>{}: {}; the rest of it is not published</source>
        <translation>{}&#xa0;: {}&#xa0;; le reste n’est pas publié</translation>
    </message>
    <message>
        <source>the broker acknowledges nothing</source>
        <translation>le broker n’accuse réception de rien</translation>
    </message>
    <message>
        <source>goes on</source>
        <translation>la publication reprend</translation>
    </message>
    <message>
        <source>{}; {} is left</source>
        <translation>{}&#xa0;; {} est abandonné</translation>
    </message>
    <message>
        <source>{}; it is tried again, and the answers wait in their file</source>
        <translation>{}&#xa0;; nouvel essai plus tard, les réponses attendent dans leur fichier</translation>
    </message>
    <message>
        <source>{}: is damaged: what stands behind is not published</source>
        <translation>{}&#xa0;: fichier endommagé&#xa0;: la suite n’est pas publiée</translation>
    </message>
    <message>
        <source>{}: answers published: {}</source>
        <translation>{}&#xa0;: réponses publiées&#xa0;: {}</translation>
    </message>
    <message>
        <source>{}; the file will be published again</source>
        <translation>{}&#xa0;; le fichier sera publié de nouveau</translation>
    </message>
    <message>
        <source>{}: is not published whole; &quot;tarn-record publish&quot; sends the rest</source>
        <translation>{}&#xa0;: publié en partie seulement&#xa0;; «&#xa0;tarn-record publish&#xa0;» envoie le reste</translation>
    </message>
    <message>
        <source>{} data: {:.1f} cycles/s</source>
        <translation>{} grandeurs&#xa0;: {:.1f} cycles/s</translation>
    </message>
    <message>
        <source>{} data: {:.1f} cycles/s; {} costs {:.0f} %</source>
        <translation>{} grandeurs&#xa0;: {:.1f} cycles/s&#xa0;; {} coûte {:.0f}&#xa0;%</translation>
    </message>
    <message>
        <source>{} late</source>
        <translation>{} en retard</translation>
    </message>
    <message>
        <source>{} refused</source>
        <translation>{} refusées</translation>
    </message>
    <message>
        <source>{} lost</source>
        <translation>{} perdues</translation>
    </message>
    <message>
        <source>{} of 1 answer</source>
        <translation>{} réponse sur 1</translation>
    </message>
    <message>
        <source>{} of {} answers</source>
        <translation>{} réponses sur {}</translation>
    </message>
    <message>
        <source>{} cycles/s ({} to {})</source>
        <translation>{} cycles/s ({} à {})</translation>
    </message>
    <message>
        <source>{} rows/s ({} to {})</source>
        <translation>{} lignes/s ({} à {})</translation>
    </message>
    <message>
        <source>no gap</source>
        <translation>aucune lacune</translation>
    </message>
    <message>
        <source>a gap of {} s at {} s</source>
        <translation>une lacune de {} s à {} s</translation>
    </message>
    <message>
        <source>{} gaps, the longest {} s at {} s</source>
        <translation>{} lacunes, la plus longue de {} s à {} s</translation>
    </message>
    <message>
        <source>no clock step</source>
        <translation>aucun saut d’horloge</translation>
    </message>
    <message>
        <source>1 clock step by {} s</source>
        <translation>1 saut d’horloge de {} s</translation>
    </message>
    <message>
        <source>{} clock steps by {} s</source>
        <translation>{} sauts d’horloge de {} s</translation>
    </message>
    <message>
        <source>1 row</source>
        <translation>1 ligne</translation>
    </message>
    <message>
        <source>{} rows</source>
        <translation>{} lignes</translation>
    </message>
    <message>
        <source>{} synced</source>
        <translation>{} sur le disque</translation>
    </message>
    <message>
        <source>sent so far: {}</source>
        <translation>envoyés jusqu’ici&#xa0;: {}</translation>
    </message>
    <message>
        <source>{} is not a whole number from {} to {}</source>
        <translation>{} n’est pas un nombre entier de {} à {}</translation>
    </message>
    <message>
        <source>{} is not a number, expected one like 12.5</source>
        <translation>{} n’est pas un nombre, attendu par exemple 12.5</translation>
    </message>
    <message>
        <source>{} is none of {}</source>
        <translation>{} n’est pas l’une des valeurs {}</translation>
    </message>
    <message>
        <source>{} is none of {}, did you mean {}?</source>
        <translation>{} n’est pas l’une des valeurs {}, peut-être {} ?</translation>
    </message>
    <message>
        <source>expected a file; {} is none here</source>
        <translation>fichier attendu ; {} n’en désigne pas ici</translation>
    </message>
    <message>
        <source>{}: expected behind a command, like {}</source>
        <translation>{} : à placer après une commande, par exemple {}</translation>
    </message>
    <message>
        <source>{}: there is no such option</source>
        <translation>{} : option inconnue</translation>
    </message>
    <message>
        <source>{}: there is no such option, did you mean {}?</source>
        <translation>{} : option inconnue, peut-être {} ?</translation>
    </message>
    <message>
        <source>{}: there is no such command</source>
        <translation>{} : commande inconnue</translation>
    </message>
    <message>
        <source>{}: there is no such command, did you mean {}?</source>
        <translation>{} : commande inconnue, peut-être {} ?</translation>
    </message>
    <message>
        <source>expected a command: {}</source>
        <translation>commande attendue : {}</translation>
    </message>
    <message>
        <source>missing: {}</source>
        <translation>il manque : {}</translation>
    </message>
    <message>
        <source>{}: expected {} behind it</source>
        <translation>{} : doit être suivi de {}</translation>
    </message>
    <message>
        <source>{} and {} together are not possible</source>
        <translation>{} et {} ne peuvent pas aller ensemble</translation>
    </message>
    <message>
        <source>{}: not expected here</source>
        <translation>{} : inattendu ici</translation>
    </message>
    <message>
        <source>`{} --help` tells more.</source>
        <translation>`{} --help` en dit plus.</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>Utilisation</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>OPTIONS</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Options</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>Arguments</translation>
    </message>
    <message>
        <source>SUBCOMMAND</source>
        <translation>COMMANDE</translation>
    </message>
    <message>
        <source>Subcommands</source>
        <translation>Commandes</translation>
    </message>
    <message>
        <source>REQUIRED</source>
        <translation>OBLIGATOIRE</translation>
    </message>
    <message>
        <source>Needs</source>
        <translation>Exige</translation>
    </message>
    <message>
        <source>Example:</source>
        <translation>Exemple :</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>Afficher cette aide et quitter</translation>
    </message>
    <message>
        <source>nothing was read: the file has no element &quot;Parameters&quot;</source>
        <translation>rien n’a été lu : le fichier n’a pas d’élément « Parameters »</translation>
    </message>
    <message>
        <source>not offered by this vehicle: {}</source>
        <translation>non proposé par ce véhicule : {}</translation>
    </message>
    <message>
        <source>configured twice, taken once: {}</source>
        <translation>configuré deux fois, pris une fois : {}</translation>
    </message>
    <message>
        <source>not acquired, the ECU element&apos;s function is not the one in the vehicle: {}</source>
        <translation>non acquis, la fonction de l’élément ECU n’est pas celle du véhicule : {}</translation>
    </message>
    <message>
        <source>init scenario request not offered by this vehicle: {}</source>
        <translation>requête du scénario d’init non proposée par ce véhicule : {}</translation>
    </message>
    <message>
        <source>the start trigger watches data that this vehicle does not offer: start is manual</source>
        <translation>le déclencheur de début surveille une grandeur que ce véhicule ne propose pas : début manuel</translation>
    </message>
    <message>
        <source>the stop trigger watches data that this vehicle does not offer: stop is manual</source>
        <translation>le déclencheur de fin surveille une grandeur que ce véhicule ne propose pas : fin manuelle</translation>
    </message>
    <message>
        <source>{}: no data to acquire, this vehicle offers none of the data</source>
        <translation>{} : rien à acquérir, ce véhicule ne propose aucune des grandeurs</translation>
    </message>
    <message>
        <source>{}: whole, nothing to do</source>
        <translation>{} : complet, rien à faire</translation>
    </message>
    <message>
        <source>{}: closed, {} answer or mark</source>
        <translation>{} : fermé, {} réponse ou repère</translation>
    </message>
    <message>
        <source>{}: closed, {} answers and marks</source>
        <translation>{} : fermé, {} réponses et repères</translation>
    </message>
    <message>
        <source>{} bytes of what was cut dropped</source>
        <translation>{} octets de la fin coupée supprimés</translation>
    </message>
    <message>
        <source>{}: the original is {}</source>
        <translation>{} : l’original est {}</translation>
    </message>
    <message>
        <source>; near are:</source>
        <translation>, noms proches :</translation>
    </message>
    <message>
        <source>... {} lines not shown</source>
        <translation>... {} lignes non affichées</translation>
    </message>
    <message>
        <source>{}: others can read the password in it; &quot;chmod 600&quot; keeps them out</source>
        <translation>{} : d’autres utilisateurs peuvent y lire le mot de passe ; « chmod 600 » les en empêche</translation>
    </message>
    <message>
        <source>{}: the password goes over the network as it is; mqtts:// hides it</source>
        <translation>{} : le mot de passe passe en clair sur le réseau ; mqtts:// le chiffre</translation>
    </message>
    <message>
        <source>--publish-data {}: expected ECU/REQUEST/DATA of the configuration</source>
        <translation>--publish-data {} : attendu ECU/REQUEST/DATA de la configuration</translation>
    </message>
    <message>
        <source>--from and --till: expected seconds</source>
        <translation>--from et --till : secondes attendues</translation>
    </message>
    <message>
        <source>--from is later than --till: nothing lies between them</source>
        <translation>--from est après --till : il n’y a rien entre les deux</translation>
    </message>
    <message>
        <source>--from {}: expected at most {}, where the record ends</source>
        <translation>--from {} : au plus {} attendu, fin de l’enregistrement</translation>
    </message>
    <message>
        <source>--till {}: expected at least {}, where the record begins</source>
        <translation>--till {} : au moins {} attendu, début de l’enregistrement</translation>
    </message>
    <message>
        <source>--data {}: not in {}, did you mean {}?</source>
        <translation>--data {} : introuvable dans {}, peut-être {} ?</translation>
    </message>
    <message>
        <source>--data {}: not in {}</source>
        <translation>--data {} : introuvable dans {}</translation>
    </message>
    <message>
        <source>{}: Parameters/Recording/File: prefix=&quot;{}&quot;: expected one that stays in the folder of the record files</source>
        <translation>{} : Parameters/Recording/File : prefix=&quot;{}&quot; : attendu un préfixe qui reste dans le dossier des enregistrements</translation>
    </message>
    <message>
        <source>{}: cannot be repaired, the result could not be read: {}</source>
        <translation>{} : réparation impossible, le résultat n’a pas pu être lu : {}</translation>
    </message>
    <message>
        <source>{}: cannot be repaired</source>
        <translation>{} : réparation impossible</translation>
    </message>
    <message>
        <source>repaired</source>
        <translation>réparé</translation>
    </message>
    <message>
        <source>closed</source>
        <translation>fermé</translation>
    </message>
    <message>
        <source>1 row that was cut kept with its whole cells</source>
        <translation>1 ligne coupée gardée avec ses cellules complètes</translation>
    </message>
    <message>
        <source>{} rows that were cut kept with their whole cells</source>
        <translation>{} lignes coupées gardées avec leurs cellules complètes</translation>
    </message>
    <message>
        <source>1 element before the rows closed</source>
        <translation>1 élément placé avant les lignes refermé</translation>
    </message>
    <message>
        <source>{} elements before the rows closed</source>
        <translation>{} éléments placés avant les lignes refermés</translation>
    </message>
    <message>
        <source>1 byte of what was not finished dropped</source>
        <translation>1 octet d’une fin inachevée supprimé</translation>
    </message>
    <message>
        <source>{} bytes of what was not finished dropped</source>
        <translation>{} octets d’une fin inachevée supprimés</translation>
    </message>
    <message>
        <source>{}: not an XML record file, expected the root element Tarnlog2000, nor a measurement file</source>
        <translation>{} : ni un enregistrement XML, dont l’élément racine doit être Tarnlog2000, ni un fichier de mesure</translation>
    </message>
    <message>
        <source>{}: not a file that can be repaired</source>
        <translation>{} : ce fichier ne peut pas être réparé</translation>
    </message>
    <message>
        <source>{}: is being written, repair it when its recording has ended</source>
        <translation>{} : en cours d’écriture, à réparer une fois l’enregistrement terminé</translation>
    </message>
    <message>
        <source>{} ({} times)</source>
        <translation>{} ({} fois)</translation>
    </message>
    <message>
        <source>1 block lost</source>
        <translation>1 bloc perdu</translation>
    </message>
    <message>
        <source>{} blocks lost</source>
        <translation>{} blocs perdus</translation>
    </message>
    <message>
        <source>1 row lost</source>
        <translation>1 ligne perdue</translation>
    </message>
    <message>
        <source>{} rows lost</source>
        <translation>{} lignes perdues</translation>
    </message>
    <message>
        <source>write failed: {}: {}</source>
        <translation>échec de l’écriture : {} : {}</translation>
    </message>
    <message>
        <source>file cut short: {}: {}</source>
        <translation>fichier tronqué : {} : {}</translation>
    </message>
    <message>
        <source>not synced, a power cut may cost rows: {}: {}</source>
        <translation>synchronisation impossible, une coupure de courant peut faire perdre des lignes : {} : {}</translation>
    </message>
    <message>
        <source>{} in all</source>
        <translation>{} au total</translation>
    </message>
    <message>
        <source>closed while writing failed: {}: {}</source>
        <translation>fermé alors que l’écriture échouait : {} : {}</translation>
    </message>
    <message>
        <source>writing goes on: {}: {}</source>
        <translation>l’écriture reprend : {} : {}</translation>
    </message>
    <message>
        <source>Show what of a configuration a vehicle can record</source>
        <translation>Montrer ce qu’un véhicule permet d’enregistrer d’une configuration</translation>
    </message>
    <message>
        <source>after {} s</source>
        <translation>après {} s</translation>
    </message>
    <message>
        <source>manual</source>
        <translation>manuel</translation>
    </message>
    <message>
        <source>{} falls to {} {}</source>
        <translation>{} descend à {} {}</translation>
    </message>
    <message>
        <source>{} rises to {} {}</source>
        <translation>{} monte à {} {}</translation>
    </message>
    <message>
        <source>odd: {}</source>
        <translation>anomalie : {}</translation>
    </message>
    <message>
        <source>no data to acquire</source>
        <translation>aucune grandeur à acquérir</translation>
    </message>
    <message>
        <source>period 0 s, a row every polling cycle</source>
        <translation>période 0 s, une ligne par cycle d’interrogation</translation>
    </message>
    <message>
        <source>period {} s</source>
        <translation>période {} s</translation>
    </message>
    <message>
        <source>start: {}, pre-trigger {} s = {} points</source>
        <translation>début : {}, pré-déclenchement {} s = {} points</translation>
    </message>
    <message>
        <source>stop: {}, post-trigger {} s = {} points</source>
        <translation>fin : {}, post-déclenchement {} s = {} points</translation>
    </message>
    <message>
        <source>the start trigger never fires: its edge is neither 1 nor -1</source>
        <translation>le déclencheur de début n’agit jamais : son front n’est ni 1 ni -1</translation>
    </message>
    <message>
        <source>the stop trigger never fires: its edge is neither 1 nor -1</source>
        <translation>le déclencheur de fin n’agit jamais : son front n’est ni 1 ni -1</translation>
    </message>
    <message>
        <source>init scenario: {}/{}</source>
        <translation>scénario d’init : {}/{}</translation>
    </message>
    <message>
        <source>init scenario: {}/{}, never sent: nothing is recorded from this ECU</source>
        <translation>scénario d’init : {}/{}, jamais envoyé : rien n’est enregistré de ce calculateur</translation>
    </message>
    <message>
        <source>start session: {}, sent to {}</source>
        <translation>session de départ : {}, envoyée à {}</translation>
    </message>
    <message>
        <source>odd: Parameters/StartSession: {}; nothing is sent</source>
        <translation>anomalie : Parameters/StartSession : {} ; rien n’est envoyé</translation>
    </message>
    <message>
        <source>files: {}, {}</source>
        <translation>fichiers : {}, {}</translation>
    </message>
    <message>
        <source>odd: the folder {} is missing: the files go into the current one</source>
        <translation>anomalie : le dossier {} manque : les fichiers vont dans le dossier courant</translation>
    </message>
    <message>
        <source>odd: no file can be made in the folder {}</source>
        <translation>anomalie : création de fichiers impossible dans le dossier {}</translation>
    </message>
    <message>
        <source>odd: format=&quot;{}&quot;: expected .xml, .txt or another extension with its dot</source>
        <translation>anomalie : format=&quot;{}&quot; : attendu .xml, .txt ou une autre extension avec son point</translation>
    </message>
    <message>
        <source>{} data load:</source>
        <translation>{} grandeurs chargées :</translation>
    </message>
    <message>
        <source>expected 0 or 1; 0 is taken</source>
        <translation>attendu 0 ou 1 ; 0 est retenu</translation>
    </message>
    <message>
        <source>expected 1 (rising) or -1 (falling); otherwise the trigger never fires</source>
        <translation>attendu 1 (montant) ou -1 (descendant) ; sinon, le déclencheur n’agit jamais</translation>
    </message>
    <message>
        <source>expected a whole number of 32 bits; {} is taken</source>
        <translation>attendu un nombre entier sur 32 bits ; {} est retenu</translation>
    </message>
    <message>
        <source>expected a whole number of 32 bits; it is ignored</source>
        <translation>attendu un nombre entier sur 32 bits ; la valeur est ignorée</translation>
    </message>
    <message>
        <source>expected a whole number; {} is taken</source>
        <translation>attendu un nombre entier ; {} est retenu</translation>
    </message>
    <message>
        <source>expected a number with &quot;.&quot;; {} is taken</source>
        <translation>attendu un nombre avec « . » ; {} est retenu</translation>
    </message>
    <message>
        <source>Datas: two data have the index {}; what names it means the first</source>
        <translation>Datas : deux grandeurs ont l’index {} ; ce qui le cite désigne la première</translation>
    </message>
    <message>
        <source>{}: unknown element</source>
        <translation>{} : élément inconnu</translation>
    </message>
    <message>
        <source>{}: is there twice; only the first one is read</source>
        <translation>{} : présent deux fois ; seul le premier est lu</translation>
    </message>
    <message>
        <source>unknown attribute</source>
        <translation>attribut inconnu</translation>
    </message>
    <message>
        <source>{}: type=&quot;{}&quot;: expected one of {}, {}; {} is taken</source>
        <translation>{} : type=&quot;{}&quot; : attendu l’un de {}, {} ; {} est retenu</translation>
    </message>
    <message>
        <source>{}: no element {}, which has the settings</source>
        <translation>{} : l’élément {}, qui porte les réglages, manque</translation>
    </message>
    <message>
        <source>idle</source>
        <translation>au repos</translation>
    </message>
    <message>
        <source>initialising the ECUs</source>
        <translation>initialisation des calculateurs</translation>
    </message>
    <message>
        <source>starting the diagnostic sessions</source>
        <translation>démarrage des sessions de diagnostic</translation>
    </message>
    <message>
        <source>polling</source>
        <translation>interrogation</translation>
    </message>
    <message>
        <source>waiting after the initialisation</source>
        <translation>attente après l’initialisation</translation>
    </message>
    <message>
        <source>waiting before polling</source>
        <translation>attente avant l’interrogation</translation>
    </message>
    <message>
        <source>asks {} (address 0x{:X}, {}): {}, frame {}, for {} data</source>
        <translation>interroge {} (adresse 0x{:X}, {}) : {}, trame {}, pour {} grandeurs</translation>
    </message>
    <message>
        <source>{} failed after {:.3f} s: {}</source>
        <translation>{} : échec après {:.3f} s : {}</translation>
    </message>
    <message>
        <source>state: {}</source>
        <translation>état : {}</translation>
    </message>
    <message>
        <source>records into {}, from {:.3f} s on</source>
        <translation>enregistre dans {}, à partir de {:.3f} s</translation>
    </message>
    <message>
        <source>no answer came for {:.3f} s</source>
        <translation>aucune réponse pendant {:.3f} s</translation>
    </message>
    <message>
        <source>somebody set the clock by {:.3f} s</source>
        <translation>horloge décalée de {:.3f} s</translation>
    </message>
    <message>
        <source>Write a record as CSV, MDF 4 or JSON lines</source>
        <translation>Écrire un enregistrement en CSV, MDF 4 ou lignes JSON</translation>
    </message>
    <message>
        <source>Format to write</source>
        <translation>Format à écrire</translation>
    </message>
    <message>
        <source>Only from this time on (seconds, as in the record)</source>
        <translation>Seulement à partir de cet instant (secondes, comme dans l’enregistrement)</translation>
    </message>
    <message>
        <source>S</source>
        <translation>S</translation>
    </message>
    <message>
        <source>Only up to this time</source>
        <translation>Seulement jusqu’à cet instant</translation>
    </message>
    <message>
        <source>Only these data</source>
        <translation>Seulement ces grandeurs</translation>
    </message>
    <message>
        <source>[ECU/[REQUEST/]]DATA</source>
        <translation>[ECU/[REQUEST/]]DATA</translation>
    </message>
    <message>
        <source>Times as UTC (a text or XML record tells local time: it is taken in this system&apos;s zone)</source>
        <translation>Heures en UTC (un enregistrement texte ou XML donne l’heure locale : elle est prise dans le fuseau de ce système)</translation>
    </message>
    <message>
        <source>File to write (replaced when it exists; - is standard output, the default)</source>
        <translation>Fichier à écrire (remplacé s’il existe ; - est la sortie standard, par défaut)</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>FICHIER</translation>
    </message>
    <message>
        <source>CSV: UTF-8, one header line, commas, &quot;.&quot; in numbers. Columns: time in seconds from the record&apos;s zero (with --utc ISO 8601), mark (Start, Stop, event, gap, failure, clock step), then the data as &quot;name [unit]&quot;, with ECU and request before the name where two have the same. A file that holds several recordings gets a column with their number in front. Of an MDF 4 file there is a line for each time at which something was answered; what was not answered then is empty, and so is what is not available: nothing is repeated or interpolated. An enumerated value is its number.
JSON: one object a line: begin, row or answer, mark, gap, failure, end; not available is null.
What is missing in the file is told on standard error.</source>
        <translation>CSV : UTF-8, une ligne d’en-tête, virgules, « . » dans les nombres. Colonnes : time, en secondes depuis le zéro de l’enregistrement (avec --utc en ISO 8601), mark (Start, Stop, event, gap, failure, clock step), puis les grandeurs sous la forme « nom [unité] », précédées du calculateur et de la requête si deux ont le même nom. Un fichier qui contient plusieurs enregistrements reçoit devant une colonne avec leur numéro. D’un fichier MDF 4, il y a une ligne pour chaque instant où une réponse est arrivée ; ce qui n’a pas eu de réponse à cet instant est vide, ce qui n’est pas disponible aussi : rien n’est répété ni interpolé. Une valeur énumérée est donnée par son nombre.
JSON : un objet par ligne : begin, row ou answer, mark, gap, failure, end ; null si non disponible.
Ce qui manque dans le fichier est indiqué sur la sortie d’erreur.</translation>
    </message>
    <message>
        <source>{}: does not tell when it began, so --utc is not possible</source>
        <translation>{} : la date de début n’y figure pas, --utc est donc impossible</translation>
    </message>
    <message>
        <source>--to mf4: needs a file to write, name one with --output FILE</source>
        <translation>--to mf4 : exige un fichier à écrire, à nommer avec --output FICHIER</translation>
    </message>
    <message>
        <source>Folder of the record files</source>
        <translation>Dossier des enregistrements</translation>
    </message>
    <message>
        <source>DIR</source>
        <translation>DOSSIER</translation>
    </message>
    <message>
        <source>File format</source>
        <translation>Format de fichier</translation>
    </message>
    <message>
        <source>Seconds between rows, 0 = every polling cycle</source>
        <translation>Secondes entre les lignes, 0 = à chaque cycle d’interrogation</translation>
    </message>
    <message>
        <source>Beginning of the file names</source>
        <translation>Début des noms de fichiers</translation>
    </message>
    <message>
        <source>TEXT</source>
        <translation>TEXTE</translation>
    </message>
    <message>
        <source>Make a vehicle description of an ODX container</source>
        <translation>Créer une description de véhicule à partir d’un conteneur ODX</translation>
    </message>
    <message>
        <source>ODX 2.2 container (.pdx), or one of its documents</source>
        <translation>Conteneur ODX 2.2 (.pdx), ou l’un de ses documents</translation>
    </message>
    <message>
        <source>Vehicle description to write (replaced when it exists; - is standard output)</source>
        <translation>Description de véhicule à écrire (remplacée si elle existe ; - est la sortie standard)</translation>
    </message>
    <message>
        <source>Name of the vehicle (default: the container&apos;s)</source>
        <translation>Nom du véhicule (par défaut : celui du conteneur)</translation>
    </message>
    <message>
        <source>{}: {} ECUs, {} requests, {} data</source>
        <translation>{} : {} calculateurs, {} requêtes, {} grandeurs</translation>
    </message>
    <message>
        <source>Please look at</source>
        <translation>À vérifier</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>Laissé de côté</translation>
    </message>
    <message>
        <source>Show the data that a vehicle offers</source>
        <translation>Montrer les grandeurs qu’un véhicule propose</translation>
    </message>
    <message>
        <source>Only where name, request, ECU or unit contains this</source>
        <translation>Seulement si le nom, la requête, le calculateur ou l’unité contient ce texte</translation>
    </message>
    <message>
        <source>As JSON</source>
        <translation>En JSON</translation>
    </message>
    <message>
        <source>{} (failure)</source>
        <translation>{} (en défaut)</translation>
    </message>
    <message>
        <source>{} to {}</source>
        <translation>{} à {}</translation>
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
        <translation>UNITÉ</translation>
    </message>
    <message>
        <source>RANGE</source>
        <translation>PLAGE</translation>
    </message>
    <message>
        <source>TYPE</source>
        <translation>TYPE</translation>
    </message>
    <message>
        <source>DEVICE</source>
        <translation>ORGANE</translation>
    </message>
    <message>
        <source>... and {} more</source>
        <translation>... et {} autres</translation>
    </message>
    <message>
        <source>Tell only failures on standard error</source>
        <translation>N’indiquer que les échecs sur la sortie d’erreur</translation>
    </message>
    <message>
        <source>Tell on standard error, too, what helps to find a fault</source>
        <translation>Indiquer aussi sur la sortie d’erreur ce qui aide à trouver une panne</translation>
    </message>
    <message>
        <source>Data to record, as `list` names them</source>
        <translation>Grandeurs à enregistrer, nommées comme par `list`</translation>
    </message>
    <message>
        <source>ECU/REQUEST/DATA</source>
        <translation>ECU/REQUEST/DATA</translation>
    </message>
    <message>
        <source>Data to record: all whose ECU/REQUEST/DATA, or DATA alone, fits this pattern; * stands for any characters, ? for one, and case does not count</source>
        <translation>Grandeurs à enregistrer : toutes celles dont ECU/REQUEST/DATA, ou DATA seul, correspond à ce motif ; * remplace une suite quelconque de caractères, ? un seul, sans distinction de casse</translation>
    </message>
    <message>
        <source>PATTERN</source>
        <translation>MOTIF</translation>
    </message>
    <message>
        <source>Record all data of the vehicle</source>
        <translation>Enregistrer toutes les grandeurs du véhicule</translation>
    </message>
    <message>
        <source>Start when the value rises (&gt;) or falls (&lt;) to the level; else by hand</source>
        <translation>Commencer quand la valeur monte (&gt;) ou descend (&lt;) au seuil ; sinon à la main</translation>
    </message>
    <message>
        <source>ECU/REQUEST/DATA&gt;LEVEL</source>
        <translation>ECU/REQUEST/DATA&gt;SEUIL</translation>
    </message>
    <message>
        <source>Stop when the value rises or falls to the level or, with seconds like 30s, after that time; else by hand</source>
        <translation>Terminer quand la valeur monte ou descend au seuil ou, avec une durée comme 30s, après ce temps ; sinon à la main</translation>
    </message>
    <message>
        <source>ECU/REQUEST/DATA&lt;LEVEL</source>
        <translation>ECU/REQUEST/DATA&lt;SEUIL</translation>
    </message>
    <message>
        <source>Keep the S seconds before the start, too</source>
        <translation>Garder aussi les S secondes avant le début</translation>
    </message>
    <message>
        <source>Go on for S seconds after the stop</source>
        <translation>Continuer S secondes après la fin</translation>
    </message>
    <message>
        <source>recorded, too, for a trigger watches it: {}</source>
        <translation>enregistré aussi, car un déclencheur le surveille : {}</translation>
    </message>
    <message>
        <source>Write a configuration that records the chosen data</source>
        <translation>Écrire une configuration qui enregistre les grandeurs choisies</translation>
    </message>
    <message>
        <source>Configuration file to write (replaced when it exists; - is standard output)</source>
        <translation>Fichier de configuration à écrire (remplacé s’il existe ; - est la sortie standard)</translation>
    </message>
    <message>
        <source>A trigger can watch only what is recorded: what it names is recorded, too.</source>
        <translation>Un déclencheur ne peut surveiller que ce qui est enregistré : ce qu’il nomme est enregistré aussi.</translation>
    </message>
    <message>
        <source>--match {}: no data of this vehicle are called so{}</source>
        <translation>--match {} : aucune grandeur de ce véhicule ne porte un tel nom{}</translation>
    </message>
    <message>
        <source>{} {}: expected ECU/REQUEST/DATA of this vehicle{}</source>
        <translation>{} {} : attendu ECU/REQUEST/DATA de ce véhicule{}</translation>
    </message>
    <message>
        <source>{} {}: expected a number, and {} has none</source>
        <translation>{} {} : nombre attendu, et {} n’en donne pas</translation>
    </message>
    <message>
        <source>expected --data, --match or --all, which say what to record</source>
        <translation>attendu --data, --match ou --all, qui disent ce qu’il faut enregistrer</translation>
    </message>
    <message>
        <source>link: the simulation of the description</source>
        <translation>liaison : la simulation de la description</translation>
    </message>
    <message>
        <source>link: {}</source>
        <translation>liaison : {}</translation>
    </message>
    <message>
        <source>vehicle {}: {} ECUs, {} requests</source>
        <translation>véhicule {} : {} calculateurs, {} requêtes</translation>
    </message>
    <message>
        <source>asking the car behind {} what it offers</source>
        <translation>demande au véhicule derrière {} ce qu’il propose</translation>
    </message>
    <message>
        <source>not offered: {}</source>
        <translation>non proposé : {}</translation>
    </message>
    <message>
        <source>--output {}: this is the input {}, expected another file</source>
        <translation>--output {} : c’est le fichier d’entrée {}, un autre fichier est attendu</translation>
    </message>
    <message>
        <source>Tell how fast a configuration is polled, and what each request costs</source>
        <translation>Indiquer la vitesse d’interrogation d’une configuration et le coût de chaque requête</translation>
    </message>
    <message>
        <source>Poll for so long (default: 5)</source>
        <translation>Durée de l’interrogation (par défaut : 5)</translation>
    </message>
    <message>
        <source>Nothing is recorded.</source>
        <translation>Rien n’est enregistré.</translation>
    </message>
    <message>
        <source>request</source>
        <translation>requête</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
    <message>
        <source>of the cycle</source>
        <translation>du cycle</translation>
    </message>
    <message>
        <source>data</source>
        <translation>grandeurs</translation>
    </message>
    <message>
        <source>in one request: {}: {}</source>
        <translation>en une seule requête : {} : {}</translation>
    </message>
    <message>
        <source>a row for every cycle, as the configuration says</source>
        <translation>une ligne par cycle, comme le veut la configuration</translation>
    </message>
    <message>
        <source>the period of {} s can be held</source>
        <translation>la période de {} s peut être tenue</translation>
    </message>
    <message>
        <source>the period of {} s cannot be held: a cycle takes {:.2f} s</source>
        <translation>la période de {} s ne peut pas être tenue : un cycle dure {:.2f} s</translation>
    </message>
    <message>
        <source>without these, {:.1f} cycles/s:</source>
        <translation>sans elles, {:.1f} cycles/s :</translation>
    </message>
    <message>
        <source>{}: no data to acquire</source>
        <translation>{} : aucune grandeur à acquérir</translation>
    </message>
    <message>
        <source>{}: no data came in the given time</source>
        <translation>{} : aucune donnée reçue dans le temps imparti</translation>
    </message>
    <message>
        <source>the slowest ECU is {}: {:.2f} s of each cycle; the others are asked beside it</source>
        <translation>le calculateur le plus lent est {} : {:.2f} s de chaque cycle ; les autres sont interrogés en parallèle</translation>
    </message>
    <message>
        <source>the slowest ECU is {}: {:.2f} s of each cycle</source>
        <translation>le calculateur le plus lent est {} : {:.2f} s de chaque cycle</translation>
    </message>
    <message>
        <source>{} data in {} requests: {:.1f} cycles/s, {:.2f} s each</source>
        <translation>{} grandeurs en {} requêtes : {:.1f} cycles/s, {:.2f} s chacun</translation>
    </message>
    <message>
        <source>recording {} s</source>
        <translation>enregistre depuis {} s</translation>
    </message>
    <message>
        <source>not recording</source>
        <translation>pas d’enregistrement</translation>
    </message>
    <message>
        <source>{:5} {}  rows {}  {:.1f} cycles/s  {}</source>
        <translation>{:5} {}  lignes {}  {:.1f} cycles/s  {}</translation>
    </message>
    <message>
        <source>What the broker asks for: a file of JSON with user, password, ca, certificate and key</source>
        <translation>Ce que le broker demande : un fichier JSON avec user, password, ca, certificate et key</translation>
    </message>
    <message>
        <source>Publish only this of what is recorded, and only every MS milliseconds; for several data, several times</source>
        <translation>Ne publier que cette grandeur parmi celles enregistrées, et seulement toutes les MS millisecondes ; pour plusieurs grandeurs, répéter l’option</translation>
    </message>
    <message>
        <source>[ECU/[REQUEST/]]DATA[=MS]</source>
        <translation>[ECU/[REQUEST/]]DATA[=MS]</translation>
    </message>
    <message>
        <source>Publish each datum only every MS milliseconds (default: each value)</source>
        <translation>Publier chaque grandeur seulement toutes les MS millisecondes (par défaut : chaque valeur)</translation>
    </message>
    <message>
        <source>MS</source>
        <translation>MS</translation>
    </message>
    <message>
        <source>What the vehicle is called in the topics (default: its VIN or, when that is not known, its name)</source>
        <translation>Nom du véhicule dans les topics (par défaut : son VIN ou, s’il n’est pas connu, son nom)</translation>
    </message>
    <message>
        <source>NAME</source>
        <translation>NOM</translation>
    </message>
    <message>
        <source>Publish what a broker has not acknowledged yet of measurement files</source>
        <translation>Publier ce qu’un broker n’a pas encore acquitté de fichiers de mesure</translation>
    </message>
    <message>
        <source>Measurement files (MDF 4) of this recorder</source>
        <translation>Fichiers de mesure (MDF 4) de cet enregistreur</translation>
    </message>
    <message>
        <source>The broker, and what stands before all topics</source>
        <translation>Le broker, et ce qui précède tous les topics</translation>
    </message>
    <message>
        <source>What was acknowledged before, too</source>
        <translation>Aussi ce qui a déjà été acquitté</translation>
    </message>
    <message>
        <source>What was acknowledged stands in NAME.published beside NAME.mf4. Subscribers tell an answer that comes twice by its acquisition and number.</source>
        <translation>Ce qui a été acquitté est noté dans NOM.published à côté de NOM.mf4. Les abonnés reconnaissent une réponse qui arrive deux fois à son acquisition et à son numéro.</translation>
    </message>
    <message>
        <source>{} files go to {}</source>
        <translation>{} fichiers vont vers {}</translation>
    </message>
    <message>
        <source>only {}, every {} ms</source>
        <translation>seulement {}, toutes les {} ms</translation>
    </message>
    <message>
        <source>all that earlier runs were told to publish</source>
        <translation>tout ce que les exécutions précédentes devaient publier</translation>
    </message>
    <message>
        <source>Tell how well a recording went: answers, cycles a second, gaps, rows</source>
        <translation>Indiquer la qualité d’un enregistrement : réponses, cycles par seconde, lacunes, lignes</translation>
    </message>
    <message>
        <source>A measurement file that was closed tells what was counted while it was recorded; of all others that is told which can be counted in them. What is missing in the file is told on standard error.</source>
        <translation>Un fichier de mesure qui a été fermé donne ce qui a été compté pendant l’enregistrement ; pour les autres, la commande indique ce qui peut y être compté. Ce qui manque dans le fichier est indiqué sur la sortie d’erreur.</translation>
    </message>
    <message>
        <source>{}, recording {}</source>
        <translation>{}, enregistrement {}</translation>
    </message>
    <message>
        <source>Close an XML record or measurement file whose recording was killed</source>
        <translation>Fermer un enregistrement XML ou un fichier de mesure dont l’écriture a été interrompue brutalement</translation>
    </message>
    <message>
        <source>XML record or event file, or measurement file</source>
        <translation>Enregistrement ou fichier d’événement XML, ou fichier de mesure</translation>
    </message>
    <message>
        <source>End the run S seconds after the first data</source>
        <translation>Terminer S secondes après les premières données</translation>
    </message>
    <message>
        <source>End the run after N recordings (default: 1 when the start is manual, else no limit)</source>
        <translation>Terminer après N enregistrements (par défaut : 1 si le début est manuel, sinon sans limite)</translation>
    </message>
    <message>
        <source>N</source>
        <translation>N</translation>
    </message>
    <message>
        <source>Also write what was answered, and when, as measurement data (MDF 4): a file beside each record; --mf4=all: one file for the whole run</source>
        <translation>Écrire aussi ce qui a reçu une réponse, et quand, comme données de mesure (MDF 4) : un fichier à côté de chaque enregistrement ; --mf4=all : un seul fichier pour toute l’exécution</translation>
    </message>
    <message>
        <source>Write each answer with its time as a JSON line to this file or pipe (- is standard output)</source>
        <translation>Écrire chaque réponse avec son horodatage, comme ligne JSON, dans ce fichier ou ce tube (- est la sortie standard)</translation>
    </message>
    <message>
        <source>Publish each answer at an MQTT broker, as it comes (mqtts: over TLS); implies a measurement file of the whole run</source>
        <translation>Publier chaque réponse sur un broker MQTT, dès qu’elle arrive (mqtts: par TLS) ; implique un fichier de mesure de toute l’exécution</translation>
    </message>
    <message>
        <source>Record: wait for the start trigger or start at once</source>
        <translation>Enregistrer : attendre le déclencheur de début ou commencer aussitôt</translation>
    </message>
    <message>
        <source>Write the files into a folder there that is named after the vehicle</source>
        <translation>Écrire les fichiers dans un sous-dossier au nom du véhicule</translation>
    </message>
    <message>
        <source>Begin file names with the number of this computer&apos;s boot, which is counted in this file: for a clock without a battery</source>
        <translation>Commencer les noms de fichiers par le numéro de démarrage de cet ordinateur, compté dans ce fichier : pour une horloge sans pile</translation>
    </message>
    <message>
        <source>Show the values on standard output as they come: on a terminal as a table, else a line for each that changes (time, name, value and unit, with tabs between them)</source>
        <translation>Afficher les valeurs sur la sortie standard dès qu’elles arrivent : sur un terminal dans un tableau, sinon une ligne pour chacune qui change (temps, nom, valeur et unité, séparés par des tabulations)</translation>
    </message>
    <message>
        <source>Bring the files to the disk every S seconds (default: 5; 0: only when they are closed)</source>
        <translation>Amener les fichiers sur le disque toutes les S secondes (par défaut : 5 ; 0 : seulement à leur fermeture)</translation>
    </message>
    <message>
        <source>Signals: INT, TERM and HUP stop like the stop button, a second one leaves at once; USR1 is the event button.</source>
        <translation>Signaux : INT, TERM et HUP arrêtent comme le bouton d’arrêt, un second quitte aussitôt ; USR1 est le bouton d’événement.</translation>
    </message>
    <message>
        <source>--live and --samples - together are not possible: both write to standard output</source>
        <translation>--live et --samples - ne peuvent pas aller ensemble : les deux écrivent sur la sortie standard</translation>
    </message>
    <message>
        <source>stopped while the car was asked what it offers</source>
        <translation>arrêt pendant l’interrogation du véhicule sur ce qu’il propose</translation>
    </message>
    <message>
        <source>folder of the vehicle: {}</source>
        <translation>dossier du véhicule : {}</translation>
    </message>
    <message>
        <source>samples: {}: lines are left out, they are not taken</source>
        <translation>samples : {} : des lignes sont omises, elles ne sont pas lues</translation>
    </message>
    <message>
        <source>samples: {}: {} lines were left out</source>
        <translation>samples : {} : {} lignes ont été omises</translation>
    </message>
    <message>
        <source>publish: {}</source>
        <translation>publish : {}</translation>
    </message>
    <message>
        <source>boots are not counted: {}</source>
        <translation>démarrages non comptés : {}</translation>
    </message>
    <message>
        <source>{}: near is {}</source>
        <translation>{} : nom proche : {}</translation>
    </message>
    <message>
        <source>samples: {}</source>
        <translation>samples : {}</translation>
    </message>
    <message>
        <source>all recordings</source>
        <translation>tous les enregistrements</translation>
    </message>
    <message>
        <source>no data arrived in the given time</source>
        <translation>aucune donnée reçue dans le temps imparti</translation>
    </message>
    <message>
        <source>nothing was recorded, the start trigger did not fire</source>
        <translation>rien n’a été enregistré, le déclencheur de début n’a pas agi</translation>
    </message>
    <message>
        <source>the last {} lines were not taken</source>
        <translation>les {} dernières lignes n’ont pas été lues</translation>
    </message>
    <message>
        <source>Ask a car what it offers (OBD) and write it as a vehicle description</source>
        <translation>Demander à un véhicule ce qu’il propose (OBD) et l’écrire comme description de véhicule</translation>
    </message>
    <message>
        <source>How the car is reached</source>
        <translation>Accès au véhicule</translation>
    </message>
    <message>
        <source>URL</source>
        <translation>URL</translation>
    </message>
    <message>
        <source>--trace {}: expected another file than the output</source>
        <translation>--trace {} : attendu un autre fichier que la sortie</translation>
    </message>
    <message>
        <source>{}: {} ECUs
</source>
        <translation>{} : {} calculateurs
</translation>
    </message>
    <message>
        <source>  {} (address 0x{:X}): {} requests, {} data
</source>
        <translation>  {} (adresse 0x{:X}) : {} requêtes, {} grandeurs
</translation>
    </message>
    <message>
        <source>Show what a record holds: facts, marks, figures, quality</source>
        <translation>Montrer ce que contient un enregistrement : caractéristiques, repères, statistiques, qualité</translation>
    </message>
    <message>
        <source>Figures only from this time on (seconds, as in the record)</source>
        <translation>Statistiques seulement à partir de cet instant (secondes, comme dans l’enregistrement)</translation>
    </message>
    <message>
        <source>Figures only up to this time</source>
        <translation>Statistiques seulement jusqu’à cet instant</translation>
    </message>
    <message>
        <source>Tell, too, for how long the data were above this number</source>
        <translation>Indiquer aussi combien de temps les grandeurs ont dépassé ce nombre</translation>
    </message>
    <message>
        <source>NUMBER</source>
        <translation>NOMBRE</translation>
    </message>
    <message>
        <source>Figures: how many values, minimum and maximum and when they were first reached, the mean and standard deviation of the rows. Data whose values have names, and on/off data: how long each value stood, how often it began, and when first.</source>
        <translation>Statistiques : nombre de valeurs, minimum et maximum et instant où ils sont d’abord atteints, moyenne et écart type des lignes. Grandeurs dont les valeurs ont un nom, et grandeurs oui/non : durée de chaque valeur, nombre de fois où elle a commencé, et première fois.</translation>
    </message>
    <message>
        <source>once</source>
        <translation>1 fois</translation>
    </message>
    <message>
        <source>{} times</source>
        <translation>{} fois</translation>
    </message>
    <message>
        <source>not told</source>
        <translation>non indiqué</translation>
    </message>
    <message>
        <source>{} bytes</source>
        <translation>{} octets</translation>
    </message>
    <message>
        <source>measurement file (MDF 4)</source>
        <translation>fichier de mesure (MDF 4)</translation>
    </message>
    <message>
        <source>XML record</source>
        <translation>enregistrement XML</translation>
    </message>
    <message>
        <source>text record</source>
        <translation>enregistrement texte</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation>Enregistrements</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>Manque</translation>
    </message>
    <message>
        <source>Began</source>
        <translation>Début</translation>
    </message>
    <message>
        <source>Lasts</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>{}, from {} s to {} s</source>
        <translation>{}, de {} s à {} s</translation>
    </message>
    <message>
        <source>Answers</source>
        <translation>Réponses</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>Lignes</translation>
    </message>
    <message>
        <source>Quality</source>
        <translation>Qualité</translation>
    </message>
    <message>
        <source>{} of {} s</source>
        <translation>{} de {} s</translation>
    </message>
    <message>
        <source>and {} more: --json has them all</source>
        <translation>et {} autres : --json les donne tous</translation>
    </message>
    <message>
        <source>Marks</source>
        <translation>Repères</translation>
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
        <source>Values</source>
        <translation>Valeurs</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>at s</source>
        <translation>à (s)</translation>
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
        <source>Deviation</source>
        <translation>Écart type</translation>
    </message>
    <message>
        <source>values</source>
        <translation>valeurs</translation>
    </message>
    <message>
        <source>minimum</source>
        <translation>minimum</translation>
    </message>
    <message>
        <source>at {} s</source>
        <translation>à {} s</translation>
    </message>
    <message>
        <source>maximum</source>
        <translation>maximum</translation>
    </message>
    <message>
        <source>mean</source>
        <translation>moyenne</translation>
    </message>
    <message>
        <source>deviation</source>
        <translation>écart type</translation>
    </message>
    <message>
        <source>Nothing between these times</source>
        <translation>Rien entre ces instants</translation>
    </message>
    <message>
        <source>Figures from {} s to {} s</source>
        <translation>Statistiques de {} s à {} s</translation>
    </message>
    <message>
        <source>first at {} s</source>
        <translation>première fois à {} s</translation>
    </message>
    <message>
        <source>no value</source>
        <translation>aucune valeur</translation>
    </message>
    <message>
        <source>How long values stood</source>
        <translation>Durée de chaque valeur</translation>
    </message>
    <message>
        <source>above {}</source>
        <translation>au-dessus de {}</translation>
    </message>
    <message>
        <source>--- Recording {} of {} ---</source>
        <translation>--- Enregistrement {} sur {} ---</translation>
    </message>
    <message>
        <source>--above: expected a number</source>
        <translation>--above : nombre attendu</translation>
    </message>
    <message>
        <source>standard output: {}</source>
        <translation>sortie standard : {}</translation>
    </message>
    <message>
        <source>{} {}: expected ECU/REQUEST/DATA&gt;LEVEL, ECU/REQUEST/DATA&lt;LEVEL, seconds like 30s, or manual</source>
        <translation>{} {} : attendu ECU/REQUEST/DATA&gt;SEUIL, ECU/REQUEST/DATA&lt;SEUIL, des secondes comme 30s, ou manual</translation>
    </message>
    <message>
        <source>{} {}: expected ECU/REQUEST/DATA&gt;LEVEL, ECU/REQUEST/DATA&lt;LEVEL, or manual</source>
        <translation>{} {} : attendu ECU/REQUEST/DATA&gt;SEUIL, ECU/REQUEST/DATA&lt;SEUIL, ou manual</translation>
    </message>
    <message>
        <source>{} {}: expected a number behind {}, with &quot;.&quot; and without a unit</source>
        <translation>{} {} : nombre attendu après {}, avec « . » et sans unité</translation>
    </message>
    <message>
        <source>Vehicle description (JSON), or obd2: to ask the car behind the link what it offers</source>
        <translation>Description du véhicule (JSON), ou obd2: pour demander au véhicule derrière la liaison ce qu’il propose</translation>
    </message>
    <message>
        <source>How the car is reached (default: the description&apos;s simulation)</source>
        <translation>Accès au véhicule (par défaut : la simulation de la description)</translation>
    </message>
    <message>
        <source>Recording configuration (XML)</source>
        <translation>Configuration d’enregistrement (XML)</translation>
    </message>
    <message>
        <source>Send this request every MS milliseconds only, not in every cycle; for several requests, several times</source>
        <translation>Envoyer cette requête seulement toutes les MS millisecondes, pas à chaque cycle ; pour plusieurs requêtes, répéter l’option</translation>
    </message>
    <message>
        <source>ECU/REQUEST=MS</source>
        <translation>ECU/REQUEST=MS</translation>
    </message>
    <message>
        <source>Write what goes over the link to this new file</source>
        <translation>Écrire ce qui passe sur la liaison dans ce nouveau fichier</translation>
    </message>
    <message>
        <source>Text or XML record or event file, or MDF 4 file</source>
        <translation>Enregistrement ou fichier d’événement texte ou XML, ou fichier MDF 4</translation>
    </message>
    <message>
        <source>Records the diagnostic data of a vehicle&apos;s control units</source>
        <translation>Enregistre les données de diagnostic des calculateurs d’un véhicule</translation>
    </message>
    <message>
        <source>Display program version information and exit</source>
        <translation>Afficher la version du programme et quitter</translation>
    </message>
    <message>
        <source>Exit codes: 0 done, 1 failed while running, 2 bad usage or bad input. `man tarn-record` tells more.</source>
        <translation>Codes de retour : 0 terminé, 1 échec pendant l’exécution, 2 utilisation ou entrée incorrecte. `man tarn-record` en dit plus.</translation>
    </message>
</context>
</TS>
