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
</context>
</TS>
