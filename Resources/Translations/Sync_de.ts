<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en_US">
<context>
    <name>Sync</name>
    <message>
        <source>Other computers do not find this one by themselves, because the service “Avahi” is not running on this computer. Start it, or enter this address and port on the other computer under “Add”, “Direct Connection…”.</source>
        <translation>Andere Computer finden diesen nicht von selbst, weil der Dienst „Avahi“ auf diesem Computer nicht läuft. Starten Sie ihn, oder geben Sie diese Adresse und diesen Port auf dem anderen Computer unter „Hinzufügen“, „Direktverbindung …“ ein.</translation>
    </message>
    <message>
        <source>“%1” was not revoked and may still connect. %2 Start the password service, and revoke it again.</source>
        <translation>„%1“ wurde nicht widerrufen und darf sich weiterhin verbinden. %2 Starten Sie den Passwortdienst, und widerrufen Sie noch einmal.</translation>
    </message>
    <message>
        <source>Your changes to the sync locations could not be saved, and the reason is not known. Check the space on the disk, and try again.</source>
        <translation>Ihre Änderungen an den Sync-Orten konnten nicht gespeichert werden, und der Grund ist nicht bekannt. Prüfen Sie den Platz auf dem Datenträger, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The computers that may connect cannot be listed. %1 Start or unlock the password service, and open this window again.</source>
        <translation>Die Computer, die sich verbinden dürfen, können nicht aufgelistet werden. %1 Starten oder entsperren Sie den Passwortdienst, und öffnen Sie dieses Fenster noch einmal.</translation>
    </message>
    <message>
        <source>Computers cannot be found, because the service “Avahi” is not running on this computer. Start it, or enter the address of the other computer.</source>
        <translation>Es können keine Computer gefunden werden, weil der Dienst „Avahi“ auf diesem Computer nicht läuft. Starten Sie ihn, oder geben Sie die Adresse des anderen Computers ein.</translation>
    </message>
    <message>
        <source>“%1” is not a valid host. Enter a name, such as “computer.local”, or an IP address.</source>
        <translation>„%1“ ist keine gültige Adresse. Geben Sie einen Namen wie „computer.local“ oder eine IP-Adresse ein.</translation>
    </message>
    <message>
        <source>Enter a server and a store name.</source>
        <translation>Geben Sie einen Server und den Namen eines Speichers ein.</translation>
    </message>
    <message>
        <source>“%1” is not a valid server name. Enter a name such as “dav.example.org”.</source>
        <translation>„%1“ ist kein gültiger Servername. Geben Sie einen Namen wie „dav.example.org“ ein.</translation>
    </message>
    <message>
        <source>A server name contains no blanks. Remove the blank from “%1”.</source>
        <translation>Ein Servername enthält keine Leerzeichen. Entfernen Sie das Leerzeichen aus „%1“.</translation>
    </message>
    <message>
        <source>A server name cannot contain “%1”.</source>
        <translation>Ein Servername darf „%1“ nicht enthalten.</translation>
    </message>
    <message>
        <source>Enter “%1” instead.</source>
        <translation>Geben Sie stattdessen „%1“ ein.</translation>
    </message>
    <message>
        <source>The server field contains a complete address. Click “Fill In the Fields”.</source>
        <translation>Das Feld „Server“ enthält eine vollständige Adresse. Klicken Sie auf „Felder ausfüllen“.</translation>
    </message>
    <message>
        <source>The port is a number from 1 to 65535. Correct it or leave it empty.</source>
        <translation>Der Port ist eine Zahl von 1 bis 65535. Korrigieren Sie ihn, oder lassen Sie ihn leer.</translation>
    </message>
    <message>
        <source>The folder and the store name cannot contain “?”.</source>
        <translation>Der Ordner und der Name des Speichers dürfen kein „?“ enthalten.</translation>
    </message>
    <message>
        <source>Address: %1</source>
        <translation>Adresse: %1</translation>
    </message>
    <message>
        <source>Fill In the Fields</source>
        <translation>Felder ausfüllen</translation>
    </message>
    <message>
        <source>Distribute the address in the server field over the fields</source>
        <translation>Die Adresse im Feld „Server“ auf die Felder verteilen</translation>
    </message>
    <message>
        <source>“%1” does not return what was written to it. Check the server or the disk, or use another location.</source>
        <translation>„%1“ liefert nicht zurück, was geschrieben wurde. Prüfen Sie den Server oder den Datenträger, oder verwenden Sie einen anderen Ort.</translation>
    </message>
    <message numerus="yes">
        <source>%1 databases</source>
        <translation>
            <numerusform>%1 Datenbank</numerusform>
            <numerusform>%1 Datenbanken</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” can be read. %2.</source>
        <translation>„%1“ kann gelesen werden. %2.</translation>
    </message>
    <message>
        <source>“%1” can be read and written. %2.</source>
        <translation>„%1“ kann gelesen und beschrieben werden. %2.</translation>
    </message>
    <message>
        <source>“%1” can be read and written. %2, %3.</source>
        <translation>„%1“ kann gelesen und beschrieben werden. %2, %3.</translation>
    </message>
    <message>
        <source>“%1” can be read, but not written. %2</source>
        <translation>„%1“ kann gelesen, aber nicht beschrieben werden. %2</translation>
    </message>
    <message>
        <source>“%1” takes too long to respond. Check whether it is available, and try again.</source>
        <translation>„%1“ antwortet nicht rechtzeitig. Prüfen Sie, ob der Ort verfügbar ist, und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Edit Location…</source>
        <translation>Ort bearbeiten …</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Show Folder</source>
        <translation>Ordner zeigen</translation>
    </message>
    <message>
        <source>Show Log</source>
        <translation>Protokoll zeigen</translation>
    </message>
    <message>
        <source>%1 %2 of %3</source>
        <translation>%1 %2 von %3</translation>
    </message>
    <message>
        <source>Progress of the synchronization</source>
        <translation>Fortschritt der Synchronisierung</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Stop all synchronizations. The next one continues where they stopped.</source>
        <translation>Alle Synchronisierungen anhalten. Die nächste setzt dort fort, wo sie aufgehört haben.</translation>
    </message>
    <message>
        <source>damaged record</source>
        <translation>beschädigter Datensatz</translation>
    </message>
    <message>
        <source>invalid name or text</source>
        <translation>ungültiger Name oder Text</translation>
    </message>
    <message>
        <source>a file is missing</source>
        <translation>eine Datei fehlt</translation>
    </message>
    <message>
        <source>a file cannot be used</source>
        <translation>eine Datei ist nicht verwendbar</translation>
    </message>
    <message>
        <source>a newer version is needed</source>
        <translation>eine neuere Version ist nötig</translation>
    </message>
    <message>
        <source>not shared by the server</source>
        <translation>vom Server nicht freigegeben</translation>
    </message>
    <message>
        <source>wrong password</source>
        <translation>falsches Passwort</translation>
    </message>
    <message>
        <source>access denied</source>
        <translation>Zugriff verweigert</translation>
    </message>
    <message>
        <source>read-only</source>
        <translation>schreibgeschützt</translation>
    </message>
    <message>
        <source>no space left</source>
        <translation>kein Platz mehr</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>nicht verfügbar</translation>
    </message>
    <message>
        <source>certificate not trusted</source>
        <translation>Zertifikat nicht vertrauenswürdig</translation>
    </message>
    <message>
        <source>waiting for your decision</source>
        <translation>wartet auf Ihre Entscheidung</translation>
    </message>
    <message>
        <source>the profile cannot be saved</source>
        <translation>das Profil kann nicht gespeichert werden</translation>
    </message>
    <message>
        <source>failed %1</source>
        <translation>%1 fehlgeschlagen</translation>
    </message>
    <message>
        <source>failed %1: %2</source>
        <translation>%1 fehlgeschlagen: %2</translation>
    </message>
    <message>
        <source>never synchronized</source>
        <translation>noch nie synchronisiert</translation>
    </message>
    <message>
        <source>synchronized %1</source>
        <translation>%1 synchronisiert</translation>
    </message>
    <message numerus="yes">
        <source>Synchronized with %1 of %2 locations · %3</source>
        <translation>
            <numerusform>Mit %1 von %2 Ort synchronisiert · %3</numerusform>
            <numerusform>Mit %1 von %2 Orten synchronisiert · %3</numerusform>
        </translation>
    </message>
    <message>
        <source>Synchronization failed</source>
        <translation>Synchronisierung fehlgeschlagen</translation>
    </message>
    <message>
        <source>Synchronization failed · last synchronized %1</source>
        <translation>Synchronisierung fehlgeschlagen · zuletzt synchronisiert: %1</translation>
    </message>
    <message>
        <source>Not yet synchronized with the ticked locations</source>
        <translation>Noch nicht mit den angekreuzten Orten synchronisiert</translation>
    </message>
    <message>
        <source>Tick a location first. A schedule belongs to the locations that are ticked.</source>
        <translation>Kreuzen Sie zuerst einen Ort an. Ein Zeitplan gehört zu den angekreuzten Orten.</translation>
    </message>
    <message>
        <source>Choose at least one day. Otherwise nothing is synchronized.</source>
        <translation>Wählen Sie mindestens einen Tag aus. Sonst wird nichts synchronisiert.</translation>
    </message>
    <message>
        <source>The last synchronization failed. Show what failed.</source>
        <translation>Die letzte Synchronisierung ist fehlgeschlagen. Anzeigen, was fehlgeschlagen ist.</translation>
    </message>
    <message>
        <source>Show what failed with “%1”</source>
        <translation>Anzeigen, was mit „%1“ fehlgeschlagen ist</translation>
    </message>
    <message>
        <source>Synchronizes “%1” with “%2”</source>
        <translation>Synchronisiert „%1“ mit „%2“</translation>
    </message>
    <message>
        <source>Unavailable</source>
        <translation>nicht verfügbar</translation>
    </message>
    <message>
        <source>Dropbox</source>
        <translation>Dropbox</translation>
    </message>
    <message>
        <source>Local Sync Store</source>
        <translation>Lokaler Sync-Speicher</translation>
    </message>
    <message>
        <source>WebDAV</source>
        <translation>WebDAV</translation>
    </message>
    <message>
        <source>Dropbox Location</source>
        <translation>Dropbox-Ort</translation>
    </message>
    <message>
        <source>Sign In…</source>
        <translation>Anmelden …</translation>
    </message>
    <message>
        <source>Reading the password…</source>
        <translation>Passwort wird gelesen …</translation>
    </message>
    <message>
        <source>%1 %2 To replace the password, enter it again.</source>
        <translation>%1 %2 Um das Passwort zu ersetzen, geben Sie es erneut ein.</translation>
    </message>
    <message>
        <source>Direct Connection</source>
        <translation>Direktverbindung</translation>
    </message>
    <message>
        <source>Unknown Location</source>
        <translation>Unbekannter Ort</translation>
    </message>
    <message>
        <source>No Address</source>
        <translation>Ohne Adresse</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>Synchronisieren</translation>
    </message>
    <message>
        <source>Not authorized</source>
        <translation>Nicht autorisiert</translation>
    </message>
    <message>
        <source>Authorizing…</source>
        <translation>Autorisierung läuft …</translation>
    </message>
    <message>
        <source>Authorized</source>
        <translation>Autorisiert</translation>
    </message>
    <message>
        <source>Give Velmora access to any folder where indexed items may be kept.</source>
        <translation>Erlauben Sie Velmora den Zugriff auf jeden Ordner, in dem indizierte Dateien liegen können.</translation>
    </message>
    <message>
        <source>Success</source>
        <translation>Erfolg</translation>
    </message>
    <message>
        <source>Parameter Error</source>
        <translation>Parameterfehler</translation>
    </message>
    <message>
        <source>Illegal parameter supplied to encryption/decryption algorithm</source>
        <translation>Dem Ver- oder Entschlüsselungsverfahren wurde ein unzulässiger Parameter übergeben</translation>
    </message>
    <message>
        <source>Buffer Too Small</source>
        <translation>Puffer zu klein</translation>
    </message>
    <message>
        <source>Insufficient buffer provided for specified operation</source>
        <translation>Der Puffer reicht für die Operation nicht aus</translation>
    </message>
    <message>
        <source>Memory Failure</source>
        <translation>Speicherfehler</translation>
    </message>
    <message>
        <source>Failed to allocate memory</source>
        <translation>Es konnte kein Speicher belegt werden</translation>
    </message>
    <message>
        <source>Alignment Error</source>
        <translation>Ausrichtungsfehler</translation>
    </message>
    <message>
        <source>Input size to encryption algorithm was not aligned correctly</source>
        <translation>Die Länge der Eingabe passt nicht zum Verschlüsselungsverfahren</translation>
    </message>
    <message>
        <source>Decode Error</source>
        <translation>Dekodierfehler</translation>
    </message>
    <message>
        <source>Input data did not decode or decrypt correctly</source>
        <translation>Die Eingabe ließ sich nicht richtig dekodieren oder entschlüsseln</translation>
    </message>
    <message>
        <source>Unimplemented Function</source>
        <translation>Nicht vorhandene Funktion</translation>
    </message>
    <message>
        <source>Function not implemented for the current algorithm</source>
        <translation>Die Funktion gibt es für dieses Verfahren nicht</translation>
    </message>
    <message>
        <source>Unknown Error</source>
        <translation>Unbekannter Fehler</translation>
    </message>
    <message>
        <source>Failed to fetch information for database (%@)</source>
        <translation>Die Angaben zur Datenbank konnten nicht geholt werden (%@)</translation>
    </message>
    <message>
        <source>The profile “%1” is damaged. Restore it from a backup or use another profile.</source>
        <translation>Das Profil „%1“ ist beschädigt. Stellen Sie es aus einer Sicherungskopie wieder her, oder verwenden Sie ein anderes Profil.</translation>
    </message>
    <message>
        <source>An index of the profile “%1” is damaged, so that notes may seem to be missing. Quit Velmora if it is running, and start it: it rebuilds the index or offers to restore a backup.</source>
        <translation>Ein Index des Profils „%1“ ist beschädigt, sodass Notizen zu fehlen scheinen können. Beenden Sie Velmora, falls es läuft, und starten Sie es: Es legt den Index neu an oder bietet an, eine Sicherungskopie wiederherzustellen.</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be read, because its disk reports an error. Check the disk and its connection, then start Velmora again.</source>
        <translation>Das Profil „%1“ kann nicht gelesen werden, weil sein Datenträger einen Fehler meldet. Prüfen Sie den Datenträger und seinen Anschluss, und starten Sie Velmora dann erneut.</translation>
    </message>
    <message>
        <source>The profile “%1” is damaged (%2). Quit Velmora and start it again: it then repairs the profile or offers to restore a backup.</source>
        <translation>Das Profil „%1“ ist beschädigt (%2). Beenden Sie Velmora, und starten Sie es erneut: Es repariert das Profil dann oder bietet an, eine Sicherungskopie wiederherzustellen.</translation>
    </message>
    <message>
        <source>An index of the profile was damaged and was rebuilt. If this happens again, check the disk.</source>
        <translation>Ein Index des Profils war beschädigt und wurde neu angelegt. Prüfen Sie den Datenträger, falls das noch einmal vorkommt.</translation>
    </message>
    <message>
        <source>The profile “%1” was created by a newer version of Velmora. Update Velmora to open it.</source>
        <translation>Das Profil „%1“ wurde von einer neueren Version von Velmora angelegt. Aktualisieren Sie Velmora, um es zu öffnen.</translation>
    </message>
    <message>
        <source>“%1” is a database of another program, not a profile. Choose another folder.</source>
        <translation>„%1“ ist die Datenbank eines anderen Programms, kein Profil. Wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>“%1” is not a file, so it cannot be opened as a profile. Choose another folder.</source>
        <translation>„%1“ ist keine Datei und kann deshalb nicht als Profil geöffnet werden. Wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>The profile “%1” is in use by another Velmora. Quit it and try again.</source>
        <translation>Das Profil „%1“ wird von einem anderen Velmora benutzt. Beenden Sie es, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The profile folder “%1” cannot be locked: %2. Check its disk and its permissions, then try again.</source>
        <translation>Der Profilordner „%1“ kann nicht gesperrt werden: %2. Prüfen Sie den Datenträger und die Zugriffsrechte, und versuchen Sie es dann erneut.</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be copied: %2. Check the disk, then try again.</source>
        <translation>Das Profil „%1“ kann nicht kopiert werden: %2. Prüfen Sie den Datenträger, und versuchen Sie es dann erneut.</translation>
    </message>
    <message>
        <source>You do not have permission to read the profile “%1”. Change its permissions or use another profile.</source>
        <translation>Sie haben keine Berechtigung, das Profil „%1“ zu lesen. Ändern Sie seine Zugriffsrechte, oder verwenden Sie ein anderes Profil.</translation>
    </message>
    <message>
        <source>The profile “%1” is read-only. Change its permissions or use another profile.</source>
        <translation>Das Profil „%1“ ist schreibgeschützt. Ändern Sie seine Zugriffsrechte, oder verwenden Sie ein anderes Profil.</translation>
    </message>
    <message>
        <source>The profile folder “%1” is read-only. Change its permissions or use another profile.</source>
        <translation>Der Profilordner „%1“ ist schreibgeschützt. Ändern Sie seine Zugriffsrechte, oder verwenden Sie ein anderes Profil.</translation>
    </message>
    <message>
        <source>The profile folder “%1” could not be created. Check the permissions of the folder that contains it.</source>
        <translation>Der Profilordner „%1“ konnte nicht angelegt werden. Prüfen Sie die Zugriffsrechte des Ordners, in dem er liegen soll.</translation>
    </message>
    <message>
        <source>“%1” is not a folder. Choose a folder for the profile.</source>
        <translation>„%1“ ist kein Ordner. Wählen Sie einen Ordner für das Profil.</translation>
    </message>
    <message>
        <source>The folder “%1” contains other files and no profile. Choose an empty folder.</source>
        <translation>Der Ordner „%1“ enthält andere Dateien und kein Profil. Wählen Sie einen leeren Ordner.</translation>
    </message>
    <message>
        <source>%1 %2 Unlock the keyring and try again.</source>
        <translation>%1 %2 Entsperren Sie den Schlüsselbund, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Profile:</source>
        <translation>Profil:</translation>
    </message>
    <message>
        <source>Other users of this computer may be able to read the profile “%1”, because its permissions cannot be changed. Move it to a folder of your own.</source>
        <translation>Andere Benutzer dieses Computers können das Profil „%1“ möglicherweise lesen, weil sich seine Zugriffsrechte nicht ändern lassen. Verschieben Sie es in einen eigenen Ordner.</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be opened: %2. Check its disk and its permissions, then try again.</source>
        <translation>Das Profil „%1“ kann nicht geöffnet werden: %2. Prüfen Sie den Datenträger und die Zugriffsrechte, und versuchen Sie es dann erneut.</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be read or written: %2. Check its disk and its permissions, then try again.</source>
        <translation>Das Profil „%1“ kann nicht gelesen oder geschrieben werden: %2. Prüfen Sie den Datenträger und die Zugriffsrechte, und versuchen Sie es dann erneut.</translation>
    </message>
    <message>
        <source>The profile “%1” has no inbox. Restore it from a backup or use another profile.</source>
        <translation>Dem Profil „%1“ fehlt der Eingang. Stellen Sie es aus einer Sicherungskopie wieder her, oder verwenden Sie ein anderes Profil.</translation>
    </message>
    <message>
        <source>The profile “%1” no longer exists. Quit Velmora and restore it from a backup.</source>
        <translation>Das Profil „%1“ ist nicht mehr vorhanden. Beenden Sie Velmora, und stellen Sie es aus einer Sicherungskopie wieder her.</translation>
    </message>
    <message>
        <source>Enter a name for the database.</source>
        <translation>Geben Sie einen Namen für die Datenbank ein.</translation>
    </message>
    <message>
        <source>The operation was cancelled.</source>
        <translation>Der Vorgang wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The sync store is not open. Try again.</source>
        <translation>Der Sync-Speicher ist nicht geöffnet. Versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>This location has no address. Remove it and add it again.</source>
        <translation>Dieser Ort hat keine Adresse. Entfernen Sie ihn, und fügen Sie ihn neu hinzu.</translation>
    </message>
    <message>
        <source>Velmora does not support locations of the kind “%1”. Remove this location and add another one.</source>
        <translation>Velmora unterstützt keine Orte der Art „%1“. Entfernen Sie diesen Ort, und fügen Sie einen anderen hinzu.</translation>
    </message>
    <message>
        <source>“%1” is a folder on another computer. Choose a folder on this computer.</source>
        <translation>„%1“ ist ein Ordner auf einem anderen Computer. Wählen Sie einen Ordner auf diesem Computer.</translation>
    </message>
    <message>
        <source>The sync store “%1” does not exist. Check whether it was moved or renamed.</source>
        <translation>Der Sync-Speicher „%1“ ist nicht vorhanden. Prüfen Sie, ob er verschoben oder umbenannt wurde.</translation>
    </message>
    <message>
        <source>“%1” is not a sync store. Edit the location and choose another one.</source>
        <translation>„%1“ ist kein Sync-Speicher. Bearbeiten Sie den Ort, und wählen Sie einen anderen.</translation>
    </message>
    <message>
        <source>Do Not Trust</source>
        <translation>Nicht vertrauen</translation>
    </message>
    <message>
        <source>Fingerprint (SHA-256): %1</source>
        <translation>Fingerabdruck (SHA-256): %1</translation>
    </message>
    <message>
        <source>Issued by: %1</source>
        <translation>Ausgestellt von: %1</translation>
    </message>
    <message>
        <source>Issued to: %1</source>
        <translation>Ausgestellt für: %1</translation>
    </message>
    <message>
        <source>A secure connection to the server “%1” could not be established (%2). Check its port, and whether it supports HTTPS.</source>
        <translation>Zum Server „%1“ konnte keine sichere Verbindung hergestellt werden (%2). Prüfen Sie den Port und ob der Server HTTPS unterstützt.</translation>
    </message>
    <message>
        <source>“%1” is not a valid name in a sync store. Install the newest version of Velmora on all your computers.</source>
        <translation>„%1“ ist kein gültiger Name in einem Sync-Speicher. Installieren Sie auf allen Ihren Computern die neueste Version von Velmora.</translation>
    </message>
    <message>
        <source>The server “%1” sent an unexpected response (HTTP %2). Try again later or ask its administrator.</source>
        <translation>Der Server „%1“ hat unerwartet geantwortet (HTTP %2). Versuchen Sie es später noch einmal, oder fragen Sie seinen Verwalter.</translation>
    </message>
    <message>
        <source>The server “%1” sent an invalid response. Try again later or ask its administrator.</source>
        <translation>Der Server „%1“ hat eine ungültige Antwort gesendet. Versuchen Sie es später noch einmal, oder fragen Sie seinen Verwalter.</translation>
    </message>
    <message>
        <source>“%1” is missing from the response or is not valid.</source>
        <translation>„%1“ fehlt in der Antwort oder ist ungültig.</translation>
    </message>
    <message>
        <source>The server “%1” sent a response that is too long. Ask its administrator.</source>
        <translation>Der Server „%1“ hat eine zu lange Antwort gesendet. Fragen Sie seinen Verwalter.</translation>
    </message>
    <message>
        <source>The certificate, or one with which it was issued, has a key or a signature that is too weak.</source>
        <translation>Das Zertifikat oder eines, mit dem es ausgestellt wurde, hat einen zu schwachen Schlüssel oder eine zu schwache Signatur.</translation>
    </message>
    <message>
        <source>The certificate has expired.</source>
        <translation>Das Zertifikat ist abgelaufen.</translation>
    </message>
    <message>
        <source>The certificate is not valid yet.</source>
        <translation>Das Zertifikat ist noch nicht gültig.</translation>
    </message>
    <message>
        <source>The certificate is self-signed.</source>
        <translation>Das Zertifikat ist selbst signiert.</translation>
    </message>
    <message>
        <source>The certificate was issued for another server.</source>
        <translation>Das Zertifikat wurde für einen anderen Server ausgestellt.</translation>
    </message>
    <message>
        <source>The certificate was issued by an authority that this computer does not trust.</source>
        <translation>Das Zertifikat wurde von einer Stelle ausgestellt, der dieser Computer nicht vertraut.</translation>
    </message>
    <message>
        <source>The folder “%1” does not exist on the server. Create it there or edit the location.</source>
        <translation>Der Ordner „%1“ ist auf dem Server nicht vorhanden. Legen Sie ihn dort an, oder bearbeiten Sie den Ort.</translation>
    </message>
    <message>
        <source>The server does not allow you to use “%1”. Ask its administrator for access.</source>
        <translation>Der Server erlaubt Ihnen nicht, „%1“ zu benutzen. Bitten Sie seinen Verwalter um Zugriff.</translation>
    </message>
    <message>
        <source>The server “%1” requires a password, but none is saved for this location. Edit the location to enter it.</source>
        <translation>Der Server „%1“ verlangt ein Passwort, aber für diesen Ort ist keines gespeichert. Bearbeiten Sie den Ort, um es einzugeben.</translation>
    </message>
    <message>
        <source>The server “%1” supports neither Basic nor Digest authentication with MD5 or SHA-256. Ask its administrator to allow one of them.</source>
        <translation>Der Server „%1“ unterstützt weder Basic- noch Digest-Anmeldung mit MD5 oder SHA-256. Bitten Sie seinen Verwalter, eine davon zu erlauben.</translation>
    </message>
    <message>
        <source>The server “%1” closed the connection without a response. Check its name and port.</source>
        <translation>Der Server „%1“ hat die Verbindung ohne Antwort beendet. Prüfen Sie seinen Namen und den Port.</translation>
    </message>
    <message>
        <source>The server “%1” cannot be reached through the proxy “%2” (%3). Check the proxy in the network settings of the desktop.</source>
        <translation>Der Server „%1“ ist über den Proxy „%2“ nicht erreichbar (%3). Prüfen Sie den Proxy in den Netzwerkeinstellungen des Desktops.</translation>
    </message>
    <message>
        <source>The server “%1” cannot be reached: %2. Check the network connection.</source>
        <translation>Der Server „%1“ ist nicht erreichbar: %2. Prüfen Sie die Netzwerkverbindung.</translation>
    </message>
    <message>
        <source>The server “%1” refused the connection. Check the port, and whether the server is running.</source>
        <translation>Der Server „%1“ hat die Verbindung abgelehnt. Prüfen Sie den Port und ob der Server läuft.</translation>
    </message>
    <message>
        <source>The server “%1” cannot prove its identity. Trust its certificate for this location?</source>
        <translation>Der Server „%1“ kann sich nicht ausweisen. Möchten Sie seinem Zertifikat für diesen Ort vertrauen?</translation>
    </message>
    <message>
        <source>The server “%1” cannot prove its identity: %2 Check the address, or ask the administrator of the server about its certificate.</source>
        <translation>Der Server „%1“ kann sich nicht ausweisen: %2 Prüfen Sie die Adresse, oder fragen Sie den Verwalter des Servers nach dem Zertifikat.</translation>
    </message>
    <message>
        <source>The server “%1” does not accept this user name and password. Edit the location to correct them.</source>
        <translation>Der Server „%1“ akzeptiert diesen Benutzernamen und dieses Passwort nicht. Bearbeiten Sie den Ort, um sie zu berichtigen.</translation>
    </message>
    <message>
        <source>The server “%1” does not respond. Check the network connection and try again.</source>
        <translation>Der Server „%1“ antwortet nicht. Prüfen Sie die Netzwerkverbindung, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The server “%1” reported an internal error (HTTP %2). Try again later or ask its administrator.</source>
        <translation>Der Server „%1“ hat einen internen Fehler gemeldet (HTTP %2). Versuchen Sie es später noch einmal, oder fragen Sie seinen Verwalter.</translation>
    </message>
    <message>
        <source>The server “%1” is busy. Try again later.</source>
        <translation>Der Server „%1“ ist überlastet. Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>The server “%1” has no space left. Delete files there or ask its administrator.</source>
        <translation>Auf dem Server „%1“ ist kein Platz mehr. Löschen Sie dort Dateien, oder fragen Sie seinen Verwalter.</translation>
    </message>
    <message>
        <source>The server “%1” does not offer WebDAV at this address. Edit the location to correct it.</source>
        <translation>Der Server „%1“ bietet unter dieser Adresse kein WebDAV an. Bearbeiten Sie den Ort, um sie zu berichtigen.</translation>
    </message>
    <message>
        <source>The server “%1” redirects too often. Check the address of the location.</source>
        <translation>Der Server „%1“ leitet zu oft weiter. Prüfen Sie die Adresse des Ortes.</translation>
    </message>
    <message>
        <source>The server “%1” redirects to “%2”. If that is correct, edit the location and enter it as the address.</source>
        <translation>Der Server „%1“ leitet zu „%2“ weiter. Wenn das richtig ist, bearbeiten Sie den Ort, und tragen Sie es als Adresse ein.</translation>
    </message>
    <message>
        <source>The server “%1” takes too long to respond. Try again later.</source>
        <translation>Der Server „%1“ braucht zu lange für seine Antwort. Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>The sync store “%1” is read-only. Change its permissions or choose another one.</source>
        <translation>Der Sync-Speicher „%1“ ist schreibgeschützt. Ändern Sie seine Zugriffsrechte, oder wählen Sie einen anderen.</translation>
    </message>
    <message>
        <source>The volume that contains the sync store “%1” is full. Free some space on it.</source>
        <translation>Der Datenträger mit dem Sync-Speicher „%1“ ist voll. Schaffen Sie darauf Platz.</translation>
    </message>
    <message>
        <source>The volume that contains the sync store “%1” is not mounted. Connect it and try again.</source>
        <translation>Der Datenträger mit dem Sync-Speicher „%1“ ist nicht eingehängt. Schließen Sie ihn an, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The server “%1” was not found. Check its name and the network connection.</source>
        <translation>Der Server „%1“ wurde nicht gefunden. Prüfen Sie seinen Namen und die Netzwerkverbindung.</translation>
    </message>
    <message>
        <source>The address of the server “%1” could not be looked up. Check the network connection and try again.</source>
        <translation>Die Adresse des Servers „%1“ konnte nicht ermittelt werden. Prüfen Sie die Netzwerkverbindung, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The address of the server “%1” was not looked up because too many look-ups are still running. Try again in a minute.</source>
        <translation>Die Adresse des Servers „%1“ wurde nicht ermittelt, weil noch zu viele solche Anfragen laufen. Versuchen Sie es in einer Minute noch einmal.</translation>
    </message>
    <message>
        <source>Trust This Certificate</source>
        <translation>Diesem Zertifikat vertrauen</translation>
    </message>
    <message>
        <source>Valid from %1 to %2</source>
        <translation>Gültig von %1 bis %2</translation>
    </message>
    <message>
        <source>You do not have permission to use “%1”. Change its permissions or choose another sync store.</source>
        <translation>Sie haben keine Berechtigung, „%1“ zu benutzen. Ändern Sie die Zugriffsrechte, oder wählen Sie einen anderen Sync-Speicher.</translation>
    </message>
    <message>
        <source>“%1” cannot be read or written: %2. Check its disk and its permissions, then try again.</source>
        <translation>„%1“ kann nicht gelesen oder geschrieben werden: %2. Prüfen Sie den Datenträger und die Zugriffsrechte, und versuchen Sie es dann erneut.</translation>
    </message>
    <message>
        <source>“%1” is larger than the server accepts. Ask its administrator to raise the limit.</source>
        <translation>„%1“ ist größer, als der Server erlaubt. Bitten Sie seinen Verwalter, die Grenze zu erhöhen.</translation>
    </message>
    <message>
        <source>“%1” is locked on the server. Try again later.</source>
        <translation>„%1“ ist auf dem Server gesperrt. Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>“%1” does not exist. Try again. If it is still missing, check the location.</source>
        <translation>„%1“ ist nicht vorhanden. Versuchen Sie es erneut. Fehlt es weiterhin, prüfen Sie den Ort.</translation>
    </message>
    <message>
        <source>“%1” isn’t a valid item in a sync store. Move it to another folder if it does not belong there.</source>
        <translation>„%1“ ist kein gültiges Objekt in einem Sync-Speicher. Verschieben Sie es in einen anderen Ordner, wenn es nicht dorthin gehört.</translation>
    </message>
    <message>
        <source>“%1” is too large and was not read. Move it to another folder if it does not belong there.</source>
        <translation>„%1“ ist zu groß und wurde nicht gelesen. Verschieben Sie es in einen anderen Ordner, wenn es nicht dorthin gehört.</translation>
    </message>
    <message>
        <source>The sync store “%1” could not be created. Check the permissions of the folder that contains it.</source>
        <translation>Der Sync-Speicher „%1“ konnte nicht angelegt werden. Prüfen Sie die Zugriffsrechte des Ordners, in dem er liegen soll.</translation>
    </message>
    <message>
        <source>The record “%1” was not stored as it was written. Try again. If this happens repeatedly, use another location.</source>
        <translation>Der Datensatz „%1“ wurde nicht so gespeichert, wie er geschrieben wurde. Versuchen Sie es erneut. Wenn das wiederholt geschieht, verwenden Sie einen anderen Ort.</translation>
    </message>
    <message>
        <source>The profile file “%1” was moved, deleted or replaced, so nothing can be saved. Put it back, or copy unsaved text elsewhere and restart Velmora.</source>
        <translation>Die Profildatei „%1“ wurde verschoben, gelöscht oder ersetzt, daher kann nichts gespeichert werden. Legen Sie sie zurück, oder kopieren Sie nicht gespeicherten Text an eine andere Stelle, und starten Sie Velmora neu.</translation>
    </message>
    <message>
        <source>The profile file “%1” cannot be reached, so nothing can be saved: %2. Check the permissions of its folder and its disk, or copy unsaved text elsewhere and restart Velmora.</source>
        <translation>Die Profildatei „%1“ ist nicht erreichbar, daher kann nichts gespeichert werden: %2. Prüfen Sie die Zugriffsrechte ihres Ordners und ihren Datenträger, oder kopieren Sie nicht gespeicherten Text an eine andere Stelle und starten Sie Velmora neu.</translation>
    </message>
    <message>
        <source>The record “%1” was damaged. It was moved to “%2”, and this computer writes its contents again.</source>
        <translation>Der Datensatz „%1“ war beschädigt. Er wurde nach „%2“ verschoben, und dieser Computer schreibt seinen Inhalt erneut.</translation>
    </message>
    <message>
        <source>The record “%1” was damaged and was moved to “%2”. Synchronize on the computer that wrote it to restore its contents.</source>
        <translation>Der Datensatz „%1“ war beschädigt und wurde nach „%2“ verschoben. Synchronisieren Sie auf dem Computer, der ihn geschrieben hat, um seinen Inhalt wiederherzustellen.</translation>
    </message>
    <message>
        <source>A temporary folder cannot be created: %1. Check the permissions of “%2” and the space on its disk.</source>
        <translation>Ein temporärer Ordner kann nicht angelegt werden: %1. Prüfen Sie die Zugriffsrechte von „%2“ und den Platz auf seinem Datenträger.</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be read: %2. Databases that were added on other computers are not synchronized. Check its permissions and its disk.</source>
        <translation>Der Ordner „%1“ kann nicht gelesen werden: %2. Datenbanken, die auf anderen Computern hinzugefügt wurden, werden nicht synchronisiert. Prüfen Sie seine Zugriffsrechte und seinen Datenträger.</translation>
    </message>
    <message>
        <source>The damaged record “%1” cannot be copied, because the location does not store what is written. Check the disk or the server.</source>
        <translation>Der beschädigte Datensatz „%1“ kann nicht kopiert werden, weil der Ort nicht speichert, was geschrieben wird. Prüfen Sie den Datenträger oder den Server.</translation>
    </message>
    <message>
        <source>Everything was synchronized, but the records at “%1” could not be merged: %2</source>
        <translation>Alles wurde synchronisiert, aber die Datensätze an „%1“ konnten nicht zusammengefasst werden: %2</translation>
    </message>
    <message>
        <source>The record “%1” was read differently each time, so it was left as it is. Check the disk or the server.</source>
        <translation>Der Datensatz „%1“ wurde jedes Mal anders gelesen und deshalb unverändert gelassen. Prüfen Sie den Datenträger oder den Server.</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>Profil</translation>
    </message>
    <message>
        <source>The database of the profile is damaged (%1). Restore it from a backup.</source>
        <translation>Die Datenbank des Profils ist beschädigt (%1). Stellen Sie es aus einer Sicherungskopie wieder her.</translation>
    </message>
    <message>
        <source>Damaged notes in the database “%1”: %2. “velmora verify --repair” reads them again from the locations. If no location has them, check their texts and edit them.</source>
        <translation>Beschädigte Notizen in der Datenbank „%1“: %2. „velmora verify --repair“ liest sie erneut von den Orten. Wenn kein Ort sie enthält, prüfen und bearbeiten Sie ihre Texte.</translation>
    </message>
    <message>
        <source>Damaged notes in the database “%1” that no location could restore: %2. Check their texts, edit them and synchronize, or restore a backup of the profile.</source>
        <translation>Beschädigte Notizen in der Datenbank „%1“, die kein Ort wiederherstellen konnte: %2. Prüfen und bearbeiten Sie ihre Texte und synchronisieren Sie, oder stellen Sie eine Sicherungskopie des Profils wieder her.</translation>
    </message>
    <message>
        <source>Changes of notes in the database “%1” that this computer has lost: %2. “velmora verify --repair” reads them again from the locations. If no location has them, synchronize on the other computers, then here, or restore a backup of the profile.</source>
        <translation>Änderungen von Notizen in der Datenbank „%1“, die dieser Computer verloren hat: %2. „velmora verify --repair“ liest sie erneut von den Orten. Wenn kein Ort sie enthält, synchronisieren Sie auf den anderen Computern und dann hier, oder stellen Sie eine Sicherungskopie des Profils wieder her.</translation>
    </message>
    <message>
        <source>Changes of notes in the database “%1” that this computer has lost and that no location could restore: %2. Synchronize on the other computers, then here, or restore a backup of the profile.</source>
        <translation>Änderungen von Notizen in der Datenbank „%1“, die dieser Computer verloren hat und die kein Ort wiederherstellen konnte: %2. Synchronisieren Sie auf den anderen Computern und dann hier, oder stellen Sie eine Sicherungskopie des Profils wieder her.</translation>
    </message>
    <message>
        <source>The list of unsent changes of the database “%1” is wrong. “velmora verify --repair” compares everything and sends what the list lacks.</source>
        <translation>Die Liste der nicht gesendeten Änderungen der Datenbank „%1“ ist falsch. „velmora verify --repair“ vergleicht alles und sendet, was in der Liste fehlt.</translation>
    </message>
    <message>
        <source>The list of unsent changes of the database “%1” was wrong. Everything is compared again.</source>
        <translation>Die Liste der nicht gesendeten Änderungen der Datenbank „%1“ war falsch. Alles wird erneut verglichen.</translation>
    </message>
    <message>
        <source>The recorded number of conflicts in the database “%1” is wrong. “velmora verify --repair” counts them again.</source>
        <translation>Die vermerkte Anzahl der Konflikte in der Datenbank „%1“ ist falsch. „velmora verify --repair“ zählt sie erneut.</translation>
    </message>
    <message>
        <source>The recorded number of conflicts in the database “%1” was wrong. They were counted again.</source>
        <translation>Die vermerkte Anzahl der Konflikte in der Datenbank „%1“ war falsch. Sie wurden erneut gezählt.</translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>„%1“</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %2 more</source>
        <translation>
            <numerusform>%1 und %2 weitere</numerusform>
            <numerusform>%1 und %2 weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>name of a database</source>
        <translation>Name einer Datenbank</translation>
    </message>
    <message>
        <source>lost changes: %1</source>
        <translation>verlorene Änderungen: %1</translation>
    </message>
    <message>
        <source>databases: %1, notes: %2</source>
        <translation>Datenbanken: %1, Notizen: %2</translation>
    </message>
    <message>
        <source>“%1” at “%2”</source>
        <translation>„%1“ an „%2“</translation>
    </message>
    <message>
        <source>The location no longer contains the database. Synchronize to send everything again.</source>
        <translation>Der Ort enthält die Datenbank nicht mehr. Synchronisieren Sie, um alles noch einmal zu senden.</translation>
    </message>
    <message>
        <source>was never synchronized</source>
        <translation>wurde noch nie synchronisiert</translation>
    </message>
    <message>
        <source>records: %1, moved aside: %2</source>
        <translation>Datensätze: %1, beiseitegelegt: %2</translation>
    </message>
    <message>
        <source>The database “%1” is not on this computer yet. Synchronize it with the location.</source>
        <translation>Die Datenbank „%1“ ist noch nicht auf diesem Computer. Synchronisieren Sie sie mit dem Ort.</translation>
    </message>
    <message>
        <source>Another computer changes the location. Try again later.</source>
        <translation>Ein anderer Computer ändert gerade den Ort. Versuchen Sie es später erneut.</translation>
    </message>
    <message>
        <source>Changes at the location that are not on this computer: %1. Synchronize to get them.</source>
        <translation>Änderungen am Ort, die nicht auf diesem Computer sind: %1. Synchronisieren Sie, um sie zu erhalten.</translation>
    </message>
    <message>
        <source>Changes on this computer that are not at the location: %1. Synchronize to send them.</source>
        <translation>Änderungen auf diesem Computer, die nicht am Ort sind: %1. Synchronisieren Sie, um sie zu senden.</translation>
    </message>
    <message>
        <source>The record “%1” was damaged and is written again.</source>
        <translation>Der Datensatz „%1“ war beschädigt und wird erneut geschrieben.</translation>
    </message>
    <message>
        <source>The record “%1” is damaged. Synchronize the other computers that use this location, because one of them may write it again.</source>
        <translation>Der Datensatz „%1“ ist beschädigt. Synchronisieren Sie die anderen Computer, die diesen Ort verwenden, weil einer davon ihn vielleicht neu schreibt.</translation>
    </message>
    <message>
        <source>“%1” is not used, because records have other names. Move it to another folder, or remove it if you do not need it.</source>
        <translation>„%1“ wird nicht verwendet, weil Datensätze anders heißen. Verschieben Sie die Datei in einen anderen Ordner, oder entfernen Sie sie, wenn Sie sie nicht brauchen.</translation>
    </message>
    <message>
        <source>Inbox</source>
        <translation>Eingang</translation>
    </message>
    <message>
        <source>Projects</source>
        <translation>Projekte</translation>
    </message>
    <message>
        <source>Recipes</source>
        <translation>Rezepte</translation>
    </message>
    <message>
        <source>Bookshelf</source>
        <translation>Bücherregal</translation>
    </message>
    <message>
        <source>Measure the alcove beside the window.
Boards of oak, 24 mm; four of them.
Ask Ida for the long clamps.</source>
        <translation>Die Nische neben dem Fenster ausmessen.
Eichenbretter, 24 mm, vier Stück.
Ida nach den langen Zwingen fragen.</translation>
    </message>
    <message>
        <source>Garden</source>
        <translation>Garten</translation>
    </message>
    <message>
        <source>Cut back the roses in March.
Plant beans once the nights stay above eight degrees.</source>
        <translation>Im März die Rosen zurückschneiden.
Bohnen setzen, sobald es nachts über acht Grad bleibt.</translation>
    </message>
    <message>
        <source>Pancakes</source>
        <translation>Pfannkuchen</translation>
    </message>
    <message>
        <source>250 g flour
500 ml milk
3 eggs
A pinch of salt

Stir, let it rest for half an hour, bake in butter.</source>
        <translation>250 g Mehl
500 ml Milch
3 Eier
1 Prise Salz

Verrühren, eine halbe Stunde ruhen lassen, in Butter backen.</translation>
    </message>
    <message>
        <source>Tomato Soup</source>
        <translation>Tomatensuppe</translation>
    </message>
    <message>
        <source>1 kg tomatoes, 2 onions, 1 clove of garlic

Roast everything for forty minutes, add stock, blend.</source>
        <translation>1 kg Tomaten, 2 Zwiebeln, 1 Knoblauchzehe

Alles vierzig Minuten rösten, Brühe zugeben, pürieren.</translation>
    </message>
    <message>
        <source>Shopping</source>
        <translation>Einkauf</translation>
    </message>
    <message>
        <source>Flour, milk, eggs, tomatoes</source>
        <translation>Mehl, Milch, Eier, Tomaten</translation>
    </message>
    <message>
        <source>&amp;Remove Schedule</source>
        <translation>Zeitplan &amp;entfernen</translation>
    </message>
    <message>
        <source>Databases</source>
        <translation>Datenbanken</translation>
    </message>
    <message>
        <source>Days of the weekly synchronization</source>
        <translation>Tage der wöchentlichen Synchronisierung</translation>
    </message>
    <message>
        <source>Every &amp;day</source>
        <translation>Jeden &amp;Tag</translation>
    </message>
    <message>
        <source>Every &amp;hour</source>
        <translation>Jede &amp;Stunde</translation>
    </message>
    <message>
        <source>Every &amp;week</source>
        <translation>Jede &amp;Woche</translation>
    </message>
    <message>
        <source>The database is then synchronized only when you ask for it, or when it is opened or closed.</source>
        <translation>Die Datenbank wird danach nur noch synchronisiert, wenn Sie es verlangen oder wenn sie geöffnet oder geschlossen wird.</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Location commands</source>
        <translation>Befehle für Orte</translation>
    </message>
    <message>
        <source>Minutes past the hour</source>
        <translation>Minuten nach der vollen Stunde</translation>
    </message>
    <message>
        <source>Never synchronized</source>
        <translation>Noch nie synchronisiert</translation>
    </message>
    <message>
        <source>Next synchronization: %1</source>
        <translation>Nächste Synchronisierung: %1</translation>
    </message>
    <message>
        <source>No database is open.</source>
        <translation>Es ist keine Datenbank geöffnet.</translation>
    </message>
    <message>
        <source>No synchronization is scheduled.</source>
        <translation>Es ist keine Synchronisierung geplant.</translation>
    </message>
    <message>
        <source>Reading the location</source>
        <translation>Der Ort wird gelesen</translation>
    </message>
    <message>
        <source>Schedule of the selected database</source>
        <translation>Zeitplan der ausgewählten Datenbank</translation>
    </message>
    <message>
        <source>An error occurred at this location. Show it.</source>
        <translation>An diesem Ort ist ein Fehler aufgetreten. Fehler anzeigen.</translation>
    </message>
    <message>
        <source>Sync Preferences cannot be used: the sync plug-in has no %1. Install both from the same version of Velmora.</source>
        <translation>Die Sync-Einstellungen sind nicht verwendbar: Dem Sync-Modul fehlt %1. Installieren Sie beide aus derselben Version von Velmora.</translation>
    </message>
    <message>
        <source>Sync Preferences cannot be used: it needs version %1 of the interface to the sync plug-in, which offers version %2. Install both from the same version of Velmora.</source>
        <translation>Die Sync-Einstellungen sind nicht verwendbar: Sie brauchen Version %1 der Schnittstelle zum Sync-Modul, das Version %2 anbietet. Installieren Sie beide aus derselben Version von Velmora.</translation>
    </message>
    <message>
        <source>Sync locations</source>
        <translation>Sync-Orte</translation>
    </message>
    <message>
        <source>Synchronize this database with its ticked locations now</source>
        <translation>Diese Datenbank jetzt mit ihren angekreuzten Orten synchronisieren</translation>
    </message>
    <message>
        <source>Synchronize with</source>
        <translation>Synchronisieren mit</translation>
    </message>
    <message>
        <source>Synchronized %1</source>
        <translation>Synchronisiert %1</translation>
    </message>
    <message>
        <source>There is no location to synchronize with yet.</source>
        <translation>Es gibt noch keinen Ort zum Synchronisieren.</translation>
    </message>
    <message>
        <source>Time of the daily synchronization</source>
        <translation>Uhrzeit der täglichen Synchronisierung</translation>
    </message>
    <message>
        <source>Time of the weekly synchronization</source>
        <translation>Uhrzeit der wöchentlichen Synchronisierung</translation>
    </message>
    <message>
        <source>Version of this pane</source>
        <translation>Version dieser Einstellungen</translation>
    </message>
    <message>
        <source>When the database is &amp;closed</source>
        <translation>Beim S&amp;chließen der Datenbank</translation>
    </message>
    <message>
        <source>When the database is &amp;opened</source>
        <translation>Beim Ö&amp;ffnen der Datenbank</translation>
    </message>
    <message>
        <source>Whether the selected database synchronizes with this location</source>
        <translation>Ob die ausgewählte Datenbank mit diesem Ort synchronisiert wird</translation>
    </message>
    <message>
        <source>minutes past the hour</source>
        <translation>Minuten nach der vollen Stunde</translation>
    </message>
    <message>
        <source>on</source>
        <translation>am</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Import…</source>
        <translation>Importieren …</translation>
    </message>
    <message>
        <source>Import databases that exist only at a location</source>
        <translation>Datenbanken importieren, die es nur an einem Ort gibt</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Add a location</source>
        <translation>Einen Ort hinzufügen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Stop synchronizing with the selected location. What is stored there stays.</source>
        <translation>Nicht mehr mit dem ausgewählten Ort synchronisieren. Was dort gespeichert ist, bleibt.</translation>
    </message>
    <message>
        <source>Edit…</source>
        <translation>Bearbeiten …</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>More commands for the selected location</source>
        <translation>Weitere Befehle für den ausgewählten Ort</translation>
    </message>
    <message>
        <source>New Folder Store…</source>
        <translation>Neuer Sync-Speicher …</translation>
    </message>
    <message>
        <source>Existing Folder Store…</source>
        <translation>Vorhandener Sync-Speicher …</translation>
    </message>
    <message>
        <source>WebDAV Server…</source>
        <translation>WebDAV-Server …</translation>
    </message>
    <message>
        <source>Dropbox Account…</source>
        <translation>Dropbox-Konto …</translation>
    </message>
    <message>
        <source>Direct Connection…</source>
        <translation>Direktverbindung …</translation>
    </message>
    <message>
        <source>Check</source>
        <translation>Prüfen</translation>
    </message>
    <message>
        <source>Clean Up</source>
        <translation>Aufräumen</translation>
    </message>
    <message>
        <source>Show in File Manager</source>
        <translation>Im Dateimanager zeigen</translation>
    </message>
    <message>
        <source>Direct Connections…</source>
        <translation>Direktverbindungen …</translation>
    </message>
    <message>
        <source>Folder Access…</source>
        <translation>Ordnerzugriff …</translation>
    </message>
    <message>
        <source>WebDAV Location</source>
        <translation>WebDAV-Ort</translation>
    </message>
    <message>
        <source>Server:</source>
        <translation>Server:</translation>
    </message>
    <message>
        <source>dav.example.org</source>
        <translation>dav.example.org</translation>
    </message>
    <message>
        <source>Use HTTPS</source>
        <translation>HTTPS verwenden</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Port:</translation>
    </message>
    <message>
        <source>User name:</source>
        <translation>Benutzername:</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Passwort:</translation>
    </message>
    <message>
        <source>Folder on the server:</source>
        <translation>Ordner auf dem Server:</translation>
    </message>
    <message>
        <source>optional, such as documents/sync</source>
        <translation>optional, etwa dokumente/sync</translation>
    </message>
    <message>
        <source>Store name:</source>
        <translation>Name des Sync-Speichers:</translation>
    </message>
    <message>
        <source>Without HTTPS, others on the network can read the password and your notes.</source>
        <translation>Ohne HTTPS können andere im Netzwerk das Passwort und Ihre Notizen lesen.</translation>
    </message>
    <message>
        <source>Forget the password of “%1”?</source>
        <translation>Das Passwort von „%1“ vergessen?</translation>
    </message>
    <message>
        <source>No location of the list uses this password any more.</source>
        <translation>Kein Ort der Liste verwendet dieses Passwort noch.</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>Vergessen</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Behalten</translation>
    </message>
    <message numerus="yes">
        <source>%1 more items of “%2” could not be synchronized with “%3”.</source>
        <translation>
            <numerusform>%1 weiteres Objekt von „%2“ konnte nicht mit „%3“ synchronisiert werden.</numerusform>
            <numerusform>%1 weitere Objekte von „%2“ konnten nicht mit „%3“ synchronisiert werden.</numerusform>
        </translation>
    </message>
    <message>
        <source>More of these, which are not listed: %1.</source>
        <translation>Weitere davon, die nicht aufgeführt sind: %1.</translation>
    </message>
    <message>
        <source>The password is saved in your keyring and nowhere else.</source>
        <translation>Das Passwort wird in Ihrem Schlüsselbund gespeichert und sonst nirgends.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Folder Location</source>
        <translation>Ordner als Ziel</translation>
    </message>
    <message>
        <source>A sync store is a package in a folder that all your computers can access, such as one on a shared volume.</source>
        <translation>Ein Sync-Speicher ist ein Paket in einem Ordner, auf den alle Ihre Computer zugreifen können, etwa auf einem gemeinsamen Datenträger.</translation>
    </message>
    <message>
        <source>Sync store:</source>
        <translation>Sync-Speicher:</translation>
    </message>
    <message>
        <source>Sync store</source>
        <translation>Sync-Speicher</translation>
    </message>
    <message>
        <source>None chosen yet</source>
        <translation>Noch keiner gewählt</translation>
    </message>
    <message>
        <source>New…</source>
        <translation>Neu …</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Wählen …</translation>
    </message>
    <message>
        <source>The certificate “%1” of this computer could not be created. Check the permissions of the profile folder.</source>
        <translation>Das Zertifikat „%1“ dieses Computers konnte nicht angelegt werden. Prüfen Sie die Zugriffsrechte des Profilordners.</translation>
    </message>
    <message>
        <source>The certificate “%1” of this computer cannot be read: %2. Check its permissions, then turn the server on again.</source>
        <translation>Das Zertifikat „%1“ dieses Computers kann nicht gelesen werden: %2. Prüfen Sie die Zugriffsrechte der Datei, und schalten Sie den Server dann wieder ein.</translation>
    </message>
    <message>
        <source>The certificate “%1” of this computer is damaged. Delete it and pair the other computers again.</source>
        <translation>Das Zertifikat „%1“ dieses Computers ist beschädigt. Löschen Sie es, und verbinden Sie die anderen Computer neu.</translation>
    </message>
    <message>
        <source>“%1” cannot be reached. Check that the computer is on and lets other computers synchronize.</source>
        <translation>„%1“ ist nicht erreichbar. Prüfen Sie, ob der Computer eingeschaltet ist und anderen Computern das Synchronisieren erlaubt.</translation>
    </message>
    <message>
        <source>The connection to “%1” was lost. Try again.</source>
        <translation>Die Verbindung zu „%1“ ist abgebrochen. Versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>This computer is in no network. Port: %1</source>
        <translation>Dieser Computer ist in keinem Netzwerk. Port: %1</translation>
    </message>
    <message>
        <source>Address: %1. Port: %2</source>
        <translation>Adresse: %1. Port: %2</translation>
    </message>
    <message>
        <source>Other computers list this one as “%1”.</source>
        <translation>Andere Computer zeigen diesen als „%1“ an.</translation>
    </message>
    <message>
        <source>It shows a code. Allow it only if the code is the same as here.</source>
        <translation>Dort wird ein Code gezeigt. Erlauben Sie es nur, wenn er derselbe ist wie hier.</translation>
    </message>
    <message>
        <source>It replaces another computer of this name.</source>
        <translation>Er ersetzt einen anderen Computer dieses Namens.</translation>
    </message>
    <message>
        <source>Whether it replaces another computer of this name is unknown, because the keyring cannot be read.</source>
        <translation>Ob er einen anderen Computer dieses Namens ersetzt, ist unbekannt, weil der Schlüsselbund nicht gelesen werden kann.</translation>
    </message>
    <message>
        <source>Let “%1” synchronize with this computer?</source>
        <translation>Darf „%1“ mit diesem Computer synchronisieren?</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Erlauben</translation>
    </message>
    <message>
        <source>Refuse</source>
        <translation>Ablehnen</translation>
    </message>
    <message>
        <source>The server cannot use the port %1. Choose another port. (%2)</source>
        <translation>Der Server kann den Port %1 nicht verwenden. Wählen Sie einen anderen Port. (%2)</translation>
    </message>
    <message>
        <source>Connect with “%1”?</source>
        <translation>Mit „%1“ verbinden?</translation>
    </message>
    <message>
        <source>It shows a code. Connect only if the code is the same as here.</source>
        <translation>Dort wird ein Code gezeigt. Verbinden Sie nur, wenn er derselbe ist wie hier.</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>“%1” is not the computer that was paired. If this is intended, remove the location and add it again.</source>
        <translation>„%1“ ist nicht der Computer, mit dem dieser verbunden wurde. Wenn das gewollt ist, entfernen Sie den Ort, und fügen Sie ihn neu hinzu.</translation>
    </message>
    <message>
        <source>“%1” is busy with another request. Try again later.</source>
        <translation>„%1“ bearbeitet gerade eine andere Anfrage. Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>“%1” does not allow this computer to synchronize. Allow it there and try again.</source>
        <translation>„%1“ erlaubt diesem Computer nicht zu synchronisieren. Erlauben Sie es dort, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>“%1” sent an invalid response. Use the same version of Velmora on both computers.</source>
        <translation>„%1“ hat eine ungültige Antwort gesendet. Verwenden Sie auf beiden Computern dieselbe Version von Velmora.</translation>
    </message>
    <message>
        <source>The message is not valid.</source>
        <translation>Die Nachricht ist ungültig.</translation>
    </message>
    <message>
        <source>The message is too large or has too many parts.</source>
        <translation>Die Nachricht ist zu groß oder hat zu viele Teile.</translation>
    </message>
    <message>
        <source>The computer “%1” cannot read or write its sync store. Check its disk.</source>
        <translation>Der Computer „%1“ kann seinen Sync-Speicher nicht lesen oder schreiben. Prüfen Sie seinen Datenträger.</translation>
    </message>
    <message>
        <source>Folder Access</source>
        <translation>Ordnerzugriff</translation>
    </message>
    <message>
        <source>Velmora can access these folders:</source>
        <translation>Velmora darf auf diese Ordner zugreifen:</translation>
    </message>
    <message>
        <source>Folders that Velmora can access</source>
        <translation>Ordner, auf die Velmora zugreifen darf</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>Hinzufügen …</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Computers on the local network:</source>
        <translation>Computer im lokalen Netzwerk:</translation>
    </message>
    <message>
        <source>Computers on the local network</source>
        <translation>Computer im lokalen Netzwerk</translation>
    </message>
    <message>
        <source>No computer has been found yet. Turn on its server there under “Direct Connections…”, or enter its address.</source>
        <translation>Noch kein Computer gefunden. Schalten Sie dort den Server unter „Direktverbindungen …“ ein, oder geben Sie die Adresse ein.</translation>
    </message>
    <message>
        <source>Host:</source>
        <translation>Adresse:</translation>
    </message>
    <message>
        <source>computer.local</source>
        <translation>computer.local</translation>
    </message>
    <message>
        <source>Import Databases</source>
        <translation>Datenbanken importieren</translation>
    </message>
    <message>
        <source>Import databases from:</source>
        <translation>Datenbanken importieren von:</translation>
    </message>
    <message>
        <source>There is no location to import from yet.</source>
        <translation>Es gibt noch keinen Ort, von dem Sie importieren können.</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Databases that this computer does not have:</source>
        <translation>Datenbanken, die dieser Computer nicht hat:</translation>
    </message>
    <message>
        <source>Databases to import</source>
        <translation>Zu importierende Datenbanken</translation>
    </message>
    <message>
        <source>This location contains no database that this computer does not have.</source>
        <translation>An diesem Ort liegt keine Datenbank, die dieser Computer nicht schon hat.</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Direct Connections</source>
        <translation>Direktverbindungen</translation>
    </message>
    <message>
        <source>Let other computers synchronize with this one</source>
        <translation>Anderen Computern erlauben, mit diesem zu synchronisieren</translation>
    </message>
    <message>
        <source>Computers that may connect:</source>
        <translation>Computer, die sich verbinden dürfen:</translation>
    </message>
    <message>
        <source>Computers that may connect</source>
        <translation>Computer, die sich verbinden dürfen</translation>
    </message>
    <message>
        <source>When a computer connects for the first time, you are asked for permission. Open this window again to see it in the list.</source>
        <translation>Wenn sich ein Computer zum ersten Mal verbindet, werden Sie um Erlaubnis gefragt. Öffnen Sie dieses Fenster erneut, um ihn in der Liste zu sehen.</translation>
    </message>
    <message>
        <source>Revoke</source>
        <translation>Widerrufen</translation>
    </message>
    <message>
        <source>Prevent the selected computer from connecting.</source>
        <translation>Dem ausgewählten Computer das Verbinden nicht mehr erlauben.</translation>
    </message>
    <message>
        <source>A computer that may connect can read and change the ticked databases. New databases are ticked.</source>
        <translation>Ein Computer, der sich verbinden darf, kann die angekreuzten Datenbanken lesen und ändern. Neue Datenbanken sind angekreuzt.</translation>
    </message>
    <message>
        <source>Databases that other computers can read and change</source>
        <translation>Datenbanken, die andere Computer lesen und ändern können</translation>
    </message>
    <message>
        <source>Last connected: %1</source>
        <translation>Zuletzt verbunden: %1</translation>
    </message>
    <message>
        <source>Last connected: unknown</source>
        <translation>Zuletzt verbunden: unbekannt</translation>
    </message>
    <message>
        <source>“%1” belongs to a database that is not served.</source>
        <translation>„%1“ gehört zu einer Datenbank, die nicht angeboten wird.</translation>
    </message>
    <message>
        <source>“%1” does not serve this database. Tick it there under “Direct Connections…” in Sync Preferences, and synchronize again.</source>
        <translation>„%1“ bietet diese Datenbank nicht an. Kreuzen Sie sie dort unter „Direktverbindungen …“ in den Sync-Einstellungen an, und synchronisieren Sie erneut.</translation>
    </message>
    <message>
        <source>Prevent “%1” from connecting?</source>
        <translation>„%1“ das Verbinden nicht mehr erlauben?</translation>
    </message>
    <message>
        <source>The record “%1” is too large and was not read. Move it to another folder if it does not belong there.</source>
        <translation>Der Datensatz „%1“ ist zu groß und wurde nicht gelesen. Verschieben Sie ihn in einen anderen Ordner, wenn er nicht dorthin gehört.</translation>
    </message>
    <message>
        <source>The record “%1” was created by a newer version of Velmora. Update Velmora to read it.</source>
        <translation>Der Datensatz „%1“ wurde von einer neueren Version von Velmora angelegt. Aktualisieren Sie Velmora, um ihn zu lesen.</translation>
    </message>
    <message>
        <source>“%1” is not a valid identifier of a note. Please report this as an error of Velmora.</source>
        <translation>„%1“ ist keine gültige Kennung einer Notiz. Bitte melden Sie dies als Fehler von Velmora.</translation>
    </message>
    <message>
        <source>The edits of “%1” have changed meanwhile, so none was removed. Compare them again, then decide.</source>
        <translation>Die Fassungen von „%1“ haben sich inzwischen geändert, daher wurde keine entfernt. Vergleichen Sie sie erneut, und entscheiden Sie dann.</translation>
    </message>
    <message>
        <source>The note “%1” has changed meanwhile. Select it again.</source>
        <translation>Die Notiz „%1“ hat sich inzwischen geändert. Wählen Sie sie erneut aus.</translation>
    </message>
    <message>
        <source>The note “%1” is too long to be synchronized. Divide it into several notes.</source>
        <translation>Die Notiz „%1“ ist zu lang, um synchronisiert zu werden. Teilen Sie sie in mehrere Notizen auf.</translation>
    </message>
    <message>
        <source>The name of the database is too long. Enter a shorter one.</source>
        <translation>Der Name der Datenbank ist zu lang. Geben Sie einen kürzeren ein.</translation>
    </message>
    <message>
        <source>“%1” is not a valid identifier of a database. Untick the location for this database.</source>
        <translation>„%1“ ist keine gültige Kennung einer Datenbank. Entfernen Sie bei dieser Datenbank das Häkchen des Ortes.</translation>
    </message>
    <message>
        <source>The database “%1” exists neither on this computer nor at the location. Synchronize on the computer that has it, then here.</source>
        <translation>Die Datenbank „%1“ gibt es weder auf diesem Computer noch am Ort. Synchronisieren Sie auf dem Computer, der sie hat, und dann hier.</translation>
    </message>
    <message>
        <source>“%1” was cleaned up at “%2”.</source>
        <translation>„%1“ wurde an „%2“ aufgeräumt.</translation>
    </message>
    <message>
        <source>“%1” was synchronized with “%2”.</source>
        <translation>„%1“ wurde mit „%2“ synchronisiert.</translation>
    </message>
    <message>
        <source>“%1” could not be cleaned up at “%2”: %3</source>
        <translation>„%1“ konnte an „%2“ nicht aufgeräumt werden: %3</translation>
    </message>
    <message>
        <source>“%1” could not be synchronized with “%2”: %3</source>
        <translation>„%1“ konnte nicht mit „%2“ synchronisiert werden: %3</translation>
    </message>
    <message>
        <source>“%1” could not be cleaned up because the database is not on this computer. Import the database, then try again.</source>
        <translation>„%1“ konnte nicht aufgeräumt werden, weil die Datenbank nicht auf diesem Computer ist. Importieren Sie die Datenbank, und versuchen Sie es dann erneut.</translation>
    </message>
    <message>
        <source>Some items of “%1” could not be synchronized with “%2”: %3</source>
        <translation>Einige Objekte von „%1“ konnten nicht mit „%2“ synchronisiert werden: %3</translation>
    </message>
    <message>
        <source>Cleaning up “%1” at “%2”…</source>
        <translation>„%1“ wird an „%2“ aufgeräumt …</translation>
    </message>
    <message>
        <source>Synchronizing “%1” with “%2”…</source>
        <translation>„%1“ wird mit „%2“ synchronisiert …</translation>
    </message>
    <message>
        <source>No web browser could be opened to sign in to Dropbox. Set a default web browser and try again.</source>
        <translation>Zum Anmelden bei Dropbox konnte kein Webbrowser geöffnet werden. Legen Sie einen Standardbrowser fest, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Dropbox cannot be used because no application key is configured. Velmora’s documentation describes how to set one.</source>
        <translation>Dropbox kann nicht benutzt werden, weil kein Anwendungsschlüssel eingerichtet ist. Die Dokumentation von Velmora beschreibt, wie Sie einen eintragen.</translation>
    </message>
    <message>
        <source>The port “%1” configured for Dropbox is not valid. Use a number from 0 to 65535.</source>
        <translation>Der für Dropbox eingerichtete Port „%1“ ist ungültig. Verwenden Sie eine Zahl von 0 bis 65535.</translation>
    </message>
    <message>
        <source>The address “%1” configured for Dropbox is not secure. Use an https address.</source>
        <translation>Die für Dropbox eingerichtete Adresse „%1“ ist nicht sicher. Verwenden Sie eine https-Adresse.</translation>
    </message>
    <message>
        <source>Velmora is not signed in to Dropbox as “%1”. Edit the location to sign in.</source>
        <translation>Velmora ist nicht als „%1“ bei Dropbox angemeldet. Bearbeiten Sie den Ort, um sich anzumelden.</translation>
    </message>
    <message>
        <source>You signed in to Dropbox as “%1”, but this location belongs to “%2”. Sign out of Dropbox in your browser, edit the location again, and sign in as “%2”.</source>
        <translation>Sie haben sich bei Dropbox als „%1“ angemeldet, aber dieser Ort gehört zu „%2“. Melden Sie sich im Browser bei Dropbox ab, bearbeiten Sie den Ort erneut und melden Sie sich als „%2“ an.</translation>
    </message>
    <message>
        <source>The sign-in to Dropbox as “%1” is no longer valid. Edit the location to sign in again.</source>
        <translation>Die Anmeldung bei Dropbox als „%1“ ist nicht mehr gültig. Bearbeiten Sie den Ort, um sich erneut anzumelden.</translation>
    </message>
    <message>
        <source>The response of the web browser cannot be received: %1. Quit the program that uses this port, then sign in again.</source>
        <translation>Die Antwort des Webbrowsers kann nicht empfangen werden: %1. Beenden Sie das Programm, das diesen Port verwendet, und melden Sie sich dann erneut an.</translation>
    </message>
    <message>
        <source>The sign-in to Dropbox timed out. Try again.</source>
        <translation>Die Zeit für die Anmeldung bei Dropbox ist abgelaufen. Versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>You can close this window now and return to Velmora.</source>
        <translation>Sie können dieses Fenster jetzt schließen und zu Velmora zurückkehren.</translation>
    </message>
    <message>
        <source>Velmora has not requested this page. Close it, and connect to Dropbox again in Velmora.</source>
        <translation>Velmora hat diese Seite nicht angefordert. Schließen Sie sie, und stellen Sie die Verbindung zu Dropbox in Velmora erneut her.</translation>
    </message>
    <message>
        <source>Access to Dropbox was denied in the web browser. Try again and allow it.</source>
        <translation>Der Zugriff auf Dropbox wurde im Webbrowser abgelehnt. Versuchen Sie es noch einmal, und erlauben Sie ihn.</translation>
    </message>
    <message>
        <source>The web browser sent an invalid response. Sign in again.</source>
        <translation>Der Webbrowser hat eine ungültige Antwort gesendet. Melden Sie sich noch einmal an.</translation>
    </message>
    <message>
        <source>The Dropbox of “%1” is full. Delete files there.</source>
        <translation>Die Dropbox von „%1“ ist voll. Löschen Sie dort Dateien.</translation>
    </message>
    <message>
        <source>Dropbox rejected the sign-in. Try again.</source>
        <translation>Dropbox hat die Anmeldung abgelehnt. Versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Velmora has no access to the folder “%1”. Grant it under “Folder Access…”.</source>
        <translation>Velmora hat keinen Zugriff auf den Ordner „%1“. Erlauben Sie ihn unter „Ordnerzugriff …“.</translation>
    </message>
    <message>
        <source>The profile “%1” is empty, although it has been used. Restore it from a backup or use another profile.</source>
        <translation>Das Profil „%1“ ist leer, obwohl es benutzt wurde. Stellen Sie es aus einer Sicherungskopie wieder her oder verwenden Sie ein anderes Profil.</translation>
    </message>
    <message>
        <source>The folder “%1” of the profile cannot be read: %2. Check its disk and its permissions, then try again.</source>
        <translation>Der Ordner „%1“ des Profils kann nicht gelesen werden: %2. Prüfen Sie den Datenträger und die Zugriffsrechte, und versuchen Sie es dann erneut.</translation>
    </message>
    <message>
        <source>The sync locations of the damaged profile “%1” cannot be read. Add them again in Sync Preferences, then import your databases.</source>
        <translation>Die Sync-Orte des beschädigten Profils „%1“ können nicht gelesen werden. Fügen Sie sie in den Sync-Einstellungen wieder hinzu und importieren Sie dann Ihre Datenbanken.</translation>
    </message>
    <message>
        <source>Some changes cannot be read from the damaged profile “%1” and may be missing now. Synchronize, so that they are read from the locations. The damaged files are kept in the folder “Damaged Profiles”.</source>
        <translation>Manche Änderungen können aus dem beschädigten Profil „%1“ nicht gelesen werden und fehlen jetzt möglicherweise. Synchronisieren Sie, damit sie von den Orten gelesen werden. Die beschädigten Dateien werden im Ordner „Damaged Profiles“ aufbewahrt.</translation>
    </message>
    <message>
        <source>Damaged notes: %1.</source>
        <translation>Beschädigte Notizen: %1.</translation>
    </message>
    <message>
        <source>Changes that were read from the damaged profile: %1</source>
        <translation>Änderungen, die aus dem beschädigten Profil gelesen wurden: %1</translation>
    </message>
    <message>
        <source>The profile is missing from the folder “%1”. Restore it from a backup or use another profile.</source>
        <translation>Das Profil fehlt im Ordner „%1“. Stellen Sie es aus einer Sicherungskopie wieder her oder verwenden Sie ein anderes Profil.</translation>
    </message>
    <message>
        <source>There is no space left on the disk with the profile “%1”. Delete files that you no longer need, then try again.</source>
        <translation>Auf dem Datenträger mit dem Profil „%1“ ist kein Platz mehr. Löschen Sie Dateien, die Sie nicht mehr brauchen, und versuchen Sie es dann erneut.</translation>
    </message>
    <message>
        <source>No backup of the profile “%1” could be made, and Velmora tries again after an hour. %2</source>
        <translation>Vom Profil „%1“ konnte keine Sicherungskopie angelegt werden, und Velmora versucht es nach einer Stunde erneut. %2</translation>
    </message>
    <message>
        <source>Its size is %1, and all backups together may have %2. Quit Velmora and copy the profile yourself.</source>
        <translation>Es ist %1 groß, und alle Sicherungskopien zusammen dürfen %2 groß sein. Beenden Sie Velmora und kopieren Sie das Profil selbst.</translation>
    </message>
    <message>
        <source>The disk has only %1 left, and %2 are needed. Delete files that you no longer need.</source>
        <translation>Auf dem Datenträger sind nur noch %1 frei, und %2 werden benötigt. Löschen Sie Dateien, die Sie nicht mehr brauchen.</translation>
    </message>
    <message>
        <source>The copy is not complete. Check the disk.</source>
        <translation>Die Kopie ist nicht vollständig. Prüfen Sie den Datenträger.</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be written: %2. Check its permissions and its disk.</source>
        <translation>Der Ordner „%1“ kann nicht beschrieben werden: %2. Prüfen Sie seine Zugriffsrechte und seinen Datenträger.</translation>
    </message>
    <message>
        <source>The profile “%1” has damaged or lost notes: %2. Synchronize, so that they are read again from the locations. If this message appears again, check the texts of the damaged notes and edit them, and synchronize on the other computers. The backups that have all notes intact are kept.</source>
        <translation>Das Profil „%1“ enthält beschädigte Notizen oder hat Notizen verloren: %2. Synchronisieren Sie, damit sie erneut von den Orten gelesen werden. Wenn diese Meldung wieder erscheint, prüfen und bearbeiten Sie die Texte der beschädigten Notizen, und synchronisieren Sie auf den anderen Computern. Die Sicherungskopien, in denen alle Notizen unbeschädigt sind, bleiben erhalten.</translation>
    </message>
    <message>
        <source>The backup “%1” is damaged. Use another backup.</source>
        <translation>Die Sicherungskopie „%1“ ist beschädigt. Verwenden Sie eine andere.</translation>
    </message>
    <message>
        <source>The profile “%1” has no intact backup. Use another profile, and get your notes from the locations with which you have synchronized.</source>
        <translation>Vom Profil „%1“ gibt es keine unbeschädigte Sicherungskopie. Verwenden Sie ein anderes Profil und holen Sie Ihre Notizen von den Orten, mit denen Sie synchronisiert haben.</translation>
    </message>
    <message>
        <source>The profile “%1” could not be replaced: %2. Check its disk and its permissions, then try again.</source>
        <translation>Das Profil „%1“ konnte nicht ersetzt werden: %2. Prüfen Sie den Datenträger und die Zugriffsrechte, und versuchen Sie es dann erneut.</translation>
    </message>
    <message>
        <source>%1 Files of the damaged profile were moved to “%2” and could not be moved back. Check the disk, then try again.</source>
        <translation>%1 Dateien des beschädigten Profils wurden nach „%2“ bewegt und konnten nicht zurückbewegt werden. Prüfen Sie den Datenträger, und versuchen Sie es dann erneut.</translation>
    </message>
    <message>
        <source>Earlier versions:</source>
        <translation>Frühere Fassungen:</translation>
    </message>
    <message>
        <source>Backup:</source>
        <translation>Sicherungskopie:</translation>
    </message>
    <message>
        <source>This version of “%1” is no longer kept. Choose another version.</source>
        <translation>Diese Fassung von „%1“ wird nicht mehr aufbewahrt. Wählen Sie eine andere Fassung.</translation>
    </message>
    <message numerus="yes">
        <source>The location removes %1 of %2 notes. Nothing was changed. Synchronize again to decide what happens to these notes.</source>
        <translation>
            <numerusform>Der Ort entfernt %1 von %2 Notiz. Es wurde nichts geändert. Synchronisieren Sie erneut, um zu entscheiden, was mit diesen Notizen geschieht.</numerusform>
            <numerusform>Der Ort entfernt %1 von %2 Notizen. Es wurde nichts geändert. Synchronisieren Sie erneut, um zu entscheiden, was mit diesen Notizen geschieht.</numerusform>
        </translation>
    </message>
    <message>
        <source>The location lists the record “%1” but does not return it. Check the server or the disk.</source>
        <translation>Der Ort führt den Datensatz „%1“ auf, liefert ihn aber nicht. Prüfen Sie den Server oder den Datenträger.</translation>
    </message>
    <message>
        <source>The location lists the record “%1” but does not return it. This computer writes its contents again.</source>
        <translation>Der Ort führt den Datensatz „%1“ auf, liefert ihn aber nicht. Dieser Computer schreibt dessen Inhalt erneut.</translation>
    </message>
    <message>
        <source>A change in “%1” exceeds the limits of a record and was not sent. Please report this as an error of Velmora.</source>
        <translation>Eine Änderung in „%1“ überschreitet die Grenzen eines Datensatzes und wurde nicht gesendet. Bitte melden Sie dies als Fehler von Velmora.</translation>
    </message>
    <message>
        <source>The name of the database “%1” is not valid and was not sent. Rename the database and synchronize again.</source>
        <translation>Der Name der Datenbank „%1“ ist ungültig und wurde nicht gesendet. Benennen Sie die Datenbank um und synchronisieren Sie erneut.</translation>
    </message>
    <message>
        <source>The note “%1” is damaged on this computer and was not sent. If synchronizing again does not repair it, check its text, edit it and synchronize.</source>
        <translation>Die Notiz „%1“ ist auf diesem Computer beschädigt und wurde nicht gesendet. Wenn eine erneute Synchronisierung sie nicht repariert, prüfen Sie ihren Text, bearbeiten Sie sie und synchronisieren Sie.</translation>
    </message>
    <message>
        <source>“%1” was damaged on this computer and was read again from the location.</source>
        <translation>„%1“ war auf diesem Computer beschädigt und wurde erneut vom Ort gelesen.</translation>
    </message>
    <message>
        <source>This computer has lost changes of notes that are not at the location any more either: %1. Synchronize on the other computers, then here. If that does not bring them back, restore a backup of the profile.</source>
        <translation>Dieser Computer hat Änderungen von Notizen verloren, die auch am Ort nicht mehr vorhanden sind: %1. Synchronisieren Sie auf den anderen Computern und dann hier. Wenn sie dadurch nicht zurückkehren, stellen Sie eine Sicherungskopie des Profils wieder her.</translation>
    </message>
    <message>
        <source>This computer has lost changes of notes that were not found in any record of the location either: %1. They are not reported again, and their backups are kept as long as others. Synchronize on the other computers, then here, or restore a backup of the profile soon.</source>
        <translation>Dieser Computer hat Änderungen von Notizen verloren, die auch in keinem Datensatz des Ortes gefunden wurden: %1. Sie werden nicht noch einmal gemeldet, und ihre Sicherungskopien werden so lange aufbewahrt wie andere. Synchronisieren Sie auf den anderen Computern und dann hier, oder stellen Sie bald eine Sicherungskopie des Profils wieder her.</translation>
    </message>
    <message>
        <source>Databases of other computers that were not added: %1. This computer adds none from direct connections if it has %2 already. To get them, use another location on both computers.</source>
        <translation>Nicht hinzugefügte Datenbanken anderer Computer: %1. Dieser Computer fügt über direkte Verbindungen keine hinzu, wenn er schon %2 hat. Verwenden Sie auf beiden Computern einen anderen Ort, um sie zu erhalten.</translation>
    </message>
    <message>
        <source>“%1” contains too many files. Clean up the location on another computer, or delete the files that do not belong there.</source>
        <translation>„%1“ enthält zu viele Dateien. Räumen Sie den Ort auf einem anderen Computer auf oder löschen Sie die Dateien, die nicht dorthin gehören.</translation>
    </message>
    <message>
        <source>“%1” contains too many databases, or their names are too long. Delete the files of those that are not needed.</source>
        <translation>„%1“ enthält zu viele Datenbanken, oder deren Namen sind zu lang. Löschen Sie die Dateien derer, die niemand braucht.</translation>
    </message>
    <message>
        <source>The record “%1” has changed while it was read. Synchronize again.</source>
        <translation>Der Datensatz „%1“ hat sich beim Lesen geändert. Synchronisieren Sie erneut.</translation>
    </message>
    <message>
        <source>The records in “%1” were replaced each time before they could be read. Synchronize again.</source>
        <translation>Die Datensätze in „%1“ wurden jedes Mal ersetzt, bevor sie gelesen werden konnten. Synchronisieren Sie erneut.</translation>
    </message>
    <message>
        <source>The keyring still contains what belongs to the removed location “%1”. Velmora deletes it when it starts again. (%2)</source>
        <translation>Der Schlüsselbund enthält noch, was zum entfernten Ort „%1“ gehört. Velmora löscht es beim nächsten Start. (%2)</translation>
    </message>
    <message>
        <source>“%1” and this computer are not paired: the question was not accepted. Synchronize again in a while, and accept it on both computers.</source>
        <translation>„%1“ und dieser Computer sind nicht verbunden: Die Frage wurde nicht angenommen. Synchronisieren Sie nach einer Weile erneut, und nehmen Sie die Frage auf beiden Computern an.</translation>
    </message>
    <message>
        <source>The list of mounted volumes cannot be read: %1. Try again.</source>
        <translation>Die Liste der eingehängten Datenträger kann nicht gelesen werden: %1. Versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The password for “%1” was not sent, because others on the network could read it. Edit the location: choose HTTPS, or accept that.</source>
        <translation>Das Passwort für „%1“ wurde nicht gesendet, weil andere im Netzwerk es lesen könnten. Bearbeiten Sie den Ort: Wählen Sie HTTPS, oder nehmen Sie das hin.</translation>
    </message>
    <message>
        <source>direct connections</source>
        <translation>Direktverbindungen</translation>
    </message>
    <message>
        <source>A schedule of “%1” was missed while Velmora was closed, and is made up for now.</source>
        <translation>Ein Zeitplan von „%1“ wurde versäumt, während Velmora beendet war, und wird jetzt nachgeholt.</translation>
    </message>
    <message>
        <source>Waiting to clean up “%1” at “%2”…</source>
        <translation>„%1“ wird bald an „%2“ aufgeräumt …</translation>
    </message>
    <message>
        <source>Waiting to synchronize “%1” with “%2”…</source>
        <translation>„%1“ wird bald mit „%2“ synchronisiert …</translation>
    </message>
    <message numerus="yes">
        <source>synchronized %1, but %2 items failed</source>
        <translation>
            <numerusform>%1 synchronisiert, aber %2 Objekt ist fehlgeschlagen</numerusform>
            <numerusform>%1 synchronisiert, aber %2 Objekte sind fehlgeschlagen</numerusform>
        </translation>
    </message>
    <message>
        <source>Synchronized %1, but some items failed</source>
        <translation>Synchronisiert %1, aber einige Objekte sind fehlgeschlagen</translation>
    </message>
    <message>
        <source>Some items of “%1” could not be synchronized with “%2”. Open the log to see which.</source>
        <translation>Einige Objekte von „%1“ konnten nicht mit „%2“ synchronisiert werden. Öffnen Sie das Protokoll, um zu sehen, welche.</translation>
    </message>
    <message>
        <source>Time: %1</source>
        <translation>Zeitpunkt: %1</translation>
    </message>
    <message>
        <source>Notes of “%1” that you wanted to keep were removed before you decided, for example by “velmora sync --removals remove”. To restore them, choose “Deleted Notes” in the menu “Edit”.</source>
        <translation>Notizen aus „%1“, die Sie behalten wollten, wurden vor Ihrer Entscheidung entfernt, zum Beispiel durch „velmora sync --removals remove“. Um sie wiederherzustellen, wählen Sie „Gelöschte Notizen“ im Menü „Bearbeiten“.</translation>
    </message>
    <message>
        <source>Notes of “%1” that you wanted to remove were kept or edited before you decided, for example by “velmora sync --removals keep”. If you do not need them, delete them.</source>
        <translation>Notizen aus „%1“, die Sie entfernen wollten, wurden vor Ihrer Entscheidung behalten oder bearbeitet, zum Beispiel durch „velmora sync --removals keep“. Wenn Sie sie nicht brauchen, löschen Sie sie.</translation>
    </message>
    <message>
        <source>The old backup “%1” cannot be removed: %2. Check the permissions of its folder and its disk.</source>
        <translation>Die alte Sicherungskopie „%1“ kann nicht entfernt werden: %2. Prüfen Sie die Zugriffsrechte ihres Ordners und ihren Datenträger.</translation>
    </message>
    <message>
        <source>The unfinished backup “%1” cannot be removed: %2. Check the permissions of its folder and its disk.</source>
        <translation>Die unfertige Sicherungskopie „%1“ kann nicht entfernt werden: %2. Prüfen Sie die Zugriffsrechte ihres Ordners und den Datenträger.</translation>
    </message>
    <message>
        <source>Files that an interrupted recovery has left in “%1” cannot be removed: %2. Check the permissions of the folder and its disk.</source>
        <translation>Dateien, die eine unterbrochene Wiederherstellung in „%1“ hinterlassen hat, können nicht entfernt werden: %2. Prüfen Sie die Zugriffsrechte des Ordners und den Datenträger.</translation>
    </message>
    <message>
        <source>An index of the profile “%1” is damaged in a way that cannot be repaired. At its start, Velmora offers to restore a backup.</source>
        <translation>Ein Index des Profils „%1“ ist so beschädigt, dass er nicht repariert werden kann. Beim Start bietet Velmora an, eine Sicherungskopie wiederherzustellen.</translation>
    </message>
    <message>
        <source>In a folder that your computers share</source>
        <translation>In einem Ordner, den Ihre Computer gemeinsam nutzen</translation>
    </message>
    <message>
        <source>On a WebDAV server</source>
        <translation>Auf einem WebDAV-Server</translation>
    </message>
    <message>
        <source>On another computer</source>
        <translation>Auf einem anderen Computer</translation>
    </message>
    <message>
        <source>Choose a computer, or enter its host.</source>
        <translation>Wählen Sie einen Computer aus, oder geben Sie seine Adresse ein.</translation>
    </message>
    <message>
        <source>Select a location to continue.</source>
        <translation>Wählen Sie einen Ort aus, um fortzufahren.</translation>
    </message>
    <message>
        <source>Select the databases to import.</source>
        <translation>Wählen Sie die Datenbanken aus, die Sie importieren möchten.</translation>
    </message>
    <message>
        <source>Create a sync store or choose one.</source>
        <translation>Legen Sie einen Sync-Speicher an, oder wählen Sie einen aus.</translation>
    </message>
    <message>
        <source>Synchronize “%1” with</source>
        <translation>„%1“ synchronisieren mit</translation>
    </message>
    <message>
        <source>Schedule of “%1”</source>
        <translation>Zeitplan von „%1“</translation>
    </message>
    <message>
        <source>“%1” can no longer be restored here. If a sync location has it, import it from there.</source>
        <translation>„%1“ kann hier nicht mehr wiederhergestellt werden. Wenn ein Sync-Ort die Datenbank hat, importieren Sie sie von dort.</translation>
    </message>
    <message>
        <source>“%1” belongs to a deleted database and cannot be deleted. Velmora tries again when it starts. Check the permissions.</source>
        <translation>„%1“ gehört zu einer gelöschten Datenbank und kann nicht gelöscht werden. Velmora versucht es beim nächsten Start wieder. Prüfen Sie die Berechtigungen.</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Computers that may connect can read and change it if it is ticked.</source>
        <translation>Computer, die sich verbinden dürfen, können sie lesen und ändern, wenn sie angekreuzt ist.</translation>
    </message>
    <message>
        <source>Computer on the local network</source>
        <translation>Computer im lokalen Netzwerk</translation>
    </message>
    <message>
        <source>Location to import databases from</source>
        <translation>Ort, von dem Datenbanken importiert werden</translation>
    </message>
    <message>
        <source>Database that this computer does not have</source>
        <translation>Datenbank, die dieser Computer nicht hat</translation>
    </message>
</context>
<context>
    <name>Platform</name>
    <message>
        <source>Help (?)</source>
        <translation>Hilfe (?)</translation>
    </message>
    <message>
        <source>Open the guide (%1)</source>
        <translation>Anleitung öffnen (%1)</translation>
    </message>
    <message>
        <source>Further failures: %1</source>
        <translation>Weitere Fehler: %1</translation>
    </message>
    <message>
        <source>No file manager could be started. Install one, or open the folder “%1” in another program.</source>
        <translation>Es konnte kein Dateimanager gestartet werden. Installieren Sie einen, oder öffnen Sie den Ordner „%1“ in einem anderen Programm.</translation>
    </message>
    <message>
        <source>“%1” does not exist. Check whether it was moved or renamed, and whether its volume is connected.</source>
        <translation>„%1“ ist nicht vorhanden. Prüfen Sie, ob es verschoben oder umbenannt wurde und ob der Datenträger angeschlossen ist.</translation>
    </message>
    <message>
        <source>Check the permissions of the file and the space on the disk.</source>
        <translation>Prüfen Sie die Zugriffsrechte der Datei und den Platz auf dem Datenträger.</translation>
    </message>
    <message>
        <source>The settings in the file “%1” cannot be read. Check the permissions of the file.</source>
        <translation>Die Einstellungen in der Datei „%1“ können nicht gelesen werden. Prüfen Sie die Zugriffsrechte der Datei.</translation>
    </message>
    <message>
        <source>The setting could not be saved in the file “%1”. It is lost when %2 ends.</source>
        <translation>Die Einstellung konnte nicht in der Datei „%1“ gespeichert werden. Sie geht verloren, wenn %2 endet.</translation>
    </message>
    <message>
        <source>No password service is running on this computer.</source>
        <translation>Auf diesem Computer läuft kein Passwortdienst.</translation>
    </message>
    <message>
        <source>The output could not be written. Check the disk or the program that receives it, then try again.</source>
        <translation>Die Ausgabe konnte nicht geschrieben werden. Prüfen Sie den Datenträger oder das Programm, das sie empfängt, und versuchen Sie es dann erneut.</translation>
    </message>
    <message>
        <source>The saved password could not be read. Start or unlock the password service, then try again.</source>
        <translation>Das gespeicherte Passwort konnte nicht gelesen werden. Starten oder entsperren Sie den Passwortdienst, und versuchen Sie es dann erneut.</translation>
    </message>
    <message>
        <source>A saved password or permission could not be deleted. Unlock the keyring and try again.</source>
        <translation>Ein gespeichertes Passwort oder eine Berechtigung konnte nicht gelöscht werden. Entsperren Sie den Schlüsselbund und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>The keyring is locked.</source>
        <translation>Der Schlüsselbund ist gesperrt.</translation>
    </message>
    <message>
        <source>The name “%1” cannot be looked up in the local network, because the service Avahi does not respond (%2). Start it and try again.</source>
        <translation>Der Name „%1“ kann im lokalen Netzwerk nicht gesucht werden, weil der Dienst Avahi nicht antwortet (%2). Starten Sie ihn, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>No computer of the local network has responded to the name “%1”. Check that the computer is on and in the same network.</source>
        <translation>Im lokalen Netzwerk hat sich kein Computer mit dem Namen „%1“ gemeldet. Prüfen Sie, ob der Computer eingeschaltet und im selben Netzwerk ist.</translation>
    </message>
    <message>
        <source>The password service failed. To restart it, log out and log in again.</source>
        <translation>Der Passwortdienst ist fehlgeschlagen. Melden Sie sich ab und wieder an, um ihn neu zu starten.</translation>
    </message>
    <message>
        <source>Passwords cannot be saved. They are kept until you quit %1. To save them, start or unlock the password service, and enter them again.</source>
        <translation>Passwörter können nicht gespeichert werden. Sie bleiben erhalten, bis %1 beendet wird. Um sie zu speichern, starten oder entsperren Sie den Passwortdienst und geben Sie sie erneut ein.</translation>
    </message>
    <message>
        <source>yesterday at %1</source>
        <translation>gestern um %1</translation>
    </message>
    <message>
        <source>today at %1</source>
        <translation>heute um %1</translation>
    </message>
    <message>
        <source>tomorrow at %1</source>
        <translation>morgen um %1</translation>
    </message>
    <message>
        <source>The file “%1” could not be written. Check its permissions and the space on its disk.</source>
        <translation>Die Datei „%1“ konnte nicht geschrieben werden. Prüfen Sie ihre Zugriffsrechte und den Platz auf ihrem Datenträger.</translation>
    </message>
    <message>
        <source>The file “%1” could not be read. Check its permissions and its disk.</source>
        <translation>Die Datei „%1“ konnte nicht gelesen werden. Prüfen Sie ihre Zugriffsrechte und ihren Datenträger.</translation>
    </message>
    <message>
        <source>The folder “%1” could not be created. Check the permissions of the folder that contains it, or choose another one.</source>
        <translation>Der Ordner „%1“ konnte nicht angelegt werden. Prüfen Sie die Zugriffsrechte des übergeordneten Ordners oder wählen Sie einen anderen.</translation>
    </message>
    <message>
        <source>The folder “%1” could not be read. Check its permissions and its disk.</source>
        <translation>Der Ordner „%1“ konnte nicht gelesen werden. Prüfen Sie seine Zugriffsrechte und den Datenträger.</translation>
    </message>
    <message>
        <source>“%1” could not be removed. Check the permissions of its folder and its disk.</source>
        <translation>„%1“ konnte nicht entfernt werden. Prüfen Sie die Zugriffsrechte des Ordners und den Datenträger.</translation>
    </message>
    <message>
        <source>“%1” cannot be reached. Check the permissions of the folders that contain it and its disk.</source>
        <translation>„%1“ ist nicht erreichbar. Prüfen Sie die Zugriffsrechte der übergeordneten Ordner und den Datenträger.</translation>
    </message>
    <message>
        <source>The database “%1” cannot be read (%2). Try again. If that fails, check the disk and the permissions of the file.</source>
        <translation>Die Datenbank „%1“ kann nicht gelesen werden (%2). Versuchen Sie es erneut. Wenn das nicht hilft, prüfen Sie den Datenträger und die Zugriffsrechte der Datei.</translation>
    </message>
    <message>
        <source>The system cannot start another thread. Quit programs that you do not need, then try again.</source>
        <translation>Das System kann keinen weiteren Thread starten. Beenden Sie Programme, die Sie nicht brauchen, und versuchen Sie es dann erneut.</translation>
    </message>
</context>
</TS>
