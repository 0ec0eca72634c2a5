<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en_US">
<context>
    <name>Sync</name>
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
        <source>Direct Connection</source>
        <translation>Direkte Verbindung</translation>
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
        <translation>Jetzt synchronisieren</translation>
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
        <translation>Geben Sie Velmora Zugriff auf jeden Ordner, in dem indizierte Objekte liegen können.</translation>
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
        <source>The profile “%1” is damaged and cannot be opened.</source>
        <translation>Das Profil „%1“ ist beschädigt und kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>The profile “%1” was made by a newer version of Velmora.</source>
        <translation>Das Profil „%1“ stammt von einer neueren Version von Velmora.</translation>
    </message>
    <message>
        <source>“%1” is a database of another program and not a profile.</source>
        <translation>„%1“ ist die Datenbank eines anderen Programms und kein Profil.</translation>
    </message>
    <message>
        <source>“%1” is not a file and cannot be opened as a profile.</source>
        <translation>„%1“ ist keine Datei und kann nicht als Profil geöffnet werden.</translation>
    </message>
    <message>
        <source>The profile “%1” may not be read.</source>
        <translation>Das Profil „%1“ darf nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The profile “%1” is read-only.</source>
        <translation>Das Profil „%1“ ist schreibgeschützt.</translation>
    </message>
    <message>
        <source>The profile folder “%1” is read-only.</source>
        <translation>Der Profilordner „%1“ ist schreibgeschützt.</translation>
    </message>
    <message>
        <source>The profile folder “%1” cannot be made.</source>
        <translation>Der Profilordner „%1“ kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>“%1” is not a folder.</source>
        <translation>„%1“ ist kein Ordner.</translation>
    </message>
    <message>
        <source>The folder “%1” holds other things and no profile.</source>
        <translation>Der Ordner „%1“ enthält anderes und kein Profil.</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be opened: %2</source>
        <translation>Das Profil „%1“ kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be read or written: %2</source>
        <translation>Das Profil „%1“ kann nicht gelesen oder geschrieben werden: %2</translation>
    </message>
    <message>
        <source>The profile “%1” has no inbox.</source>
        <translation>Dem Profil „%1“ fehlt der Eingang.</translation>
    </message>
    <message>
        <source>The profile “%1” is gone.</source>
        <translation>Das Profil „%1“ ist nicht mehr da.</translation>
    </message>
    <message>
        <source>A database needs a name.</source>
        <translation>Eine Datenbank braucht einen Namen.</translation>
    </message>
    <message>
        <source>The operation was cancelled.</source>
        <translation>Der Vorgang wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The sync store is not open.</source>
        <translation>Der Sync-Speicher ist nicht geöffnet.</translation>
    </message>
    <message>
        <source>This location has no address yet.</source>
        <translation>Dieser Ort hat noch keine Adresse.</translation>
    </message>
    <message>
        <source>Locations of the kind “%1” cannot be reached yet.</source>
        <translation>Orte der Art „%1“ sind noch nicht erreichbar.</translation>
    </message>
    <message>
        <source>“%1” is a folder on another computer.</source>
        <translation>„%1“ ist ein Ordner auf einem anderen Rechner.</translation>
    </message>
    <message>
        <source>The sync store “%1” is not there.</source>
        <translation>Der Sync-Speicher „%1“ ist nicht da.</translation>
    </message>
    <message>
        <source>“%1” is not a sync store.</source>
        <translation>„%1“ ist kein Sync-Speicher.</translation>
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
        <source>No secure connection to the server “%1” can be made: %2.</source>
        <translation>Zum Server „%1“ lässt sich keine sichere Verbindung herstellen: %2.</translation>
    </message>
    <message>
        <source>Nothing in a sync store may be called “%1”.</source>
        <translation>Nichts in einem Sync-Speicher darf „%1“ heißen.</translation>
    </message>
    <message>
        <source>The answer of the server “%1” is not expected (HTTP %2).</source>
        <translation>Die Antwort des Servers „%1“ ist nicht vorgesehen (HTTP %2).</translation>
    </message>
    <message>
        <source>The answer of the server “%1” is not understood.</source>
        <translation>Die Antwort des Servers „%1“ ist unverständlich.</translation>
    </message>
    <message>
        <source>The answer of the server “%1” is too long.</source>
        <translation>Die Antwort des Servers „%1“ ist zu lang.</translation>
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
        <source>The certificate is signed by nobody but itself.</source>
        <translation>Das Zertifikat ist von niemandem als sich selbst unterschrieben.</translation>
    </message>
    <message>
        <source>The certificate is that of another server.</source>
        <translation>Das Zertifikat ist das eines anderen Servers.</translation>
    </message>
    <message>
        <source>The certificate was issued by an authority that this computer does not know.</source>
        <translation>Das Zertifikat stammt von einer Stelle, die dieser Rechner nicht kennt.</translation>
    </message>
    <message>
        <source>The folder “%1” is not there on the server.</source>
        <translation>Den Ordner „%1“ gibt es auf dem Server nicht.</translation>
    </message>
    <message>
        <source>The server does not allow you to use “%1”.</source>
        <translation>Der Server erlaubt Ihnen nicht, „%1“ zu benutzen.</translation>
    </message>
    <message>
        <source>The server “%1” asks for a password, and none is stored for this location.</source>
        <translation>Der Server „%1“ verlangt ein Passwort, und für diesen Ort ist keines hinterlegt.</translation>
    </message>
    <message>
        <source>The server “%1” broke off before it had answered, or is no web server.</source>
        <translation>Der Server „%1“ hat die Verbindung vor seiner Antwort beendet oder ist kein Webserver.</translation>
    </message>
    <message>
        <source>The server “%1” cannot be reached: %2.</source>
        <translation>Der Server „%1“ ist nicht erreichbar: %2.</translation>
    </message>
    <message>
        <source>The server “%1” cannot be reached: nothing answers at this port.</source>
        <translation>Der Server „%1“ ist nicht erreichbar: An diesem Port antwortet nichts.</translation>
    </message>
    <message>
        <source>The server “%1” cannot prove its identity. Trust its certificate for this location?</source>
        <translation>Der Server „%1“ kann sich nicht ausweisen. Seinem Zertifikat für diesen Ort vertrauen?</translation>
    </message>
    <message>
        <source>The server “%1” cannot prove its identity: %2</source>
        <translation>Der Server „%1“ kann sich nicht ausweisen: %2</translation>
    </message>
    <message>
        <source>The server “%1” does not accept this user name and password.</source>
        <translation>Der Server „%1“ nimmt diesen Benutzernamen und dieses Passwort nicht an.</translation>
    </message>
    <message>
        <source>The server “%1” does not answer.</source>
        <translation>Der Server „%1“ antwortet nicht.</translation>
    </message>
    <message>
        <source>The server “%1” has a problem of its own (HTTP %2).</source>
        <translation>Der Server „%1“ hat selbst ein Problem (HTTP %2).</translation>
    </message>
    <message>
        <source>The server “%1” is busy. Try again later.</source>
        <translation>Der Server „%1“ ist überlastet. Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>The server “%1” is full.</source>
        <translation>Der Server „%1“ ist voll.</translation>
    </message>
    <message>
        <source>The server “%1” is no WebDAV server at this address.</source>
        <translation>Der Server „%1“ ist unter dieser Adresse kein WebDAV-Server.</translation>
    </message>
    <message>
        <source>The server “%1” points from one address to the next without end.</source>
        <translation>Der Server „%1“ verweist endlos von einer Adresse zur nächsten.</translation>
    </message>
    <message>
        <source>The server “%1” points to “%2”. If that is right, enter it as the address.</source>
        <translation>Der Server „%1“ verweist auf „%2“. Wenn das richtig ist, tragen Sie es als Adresse ein.</translation>
    </message>
    <message>
        <source>The server “%1” takes too long to answer.</source>
        <translation>Der Server „%1“ braucht zu lange für seine Antwort.</translation>
    </message>
    <message>
        <source>The sync store “%1” is read-only.</source>
        <translation>Der Sync-Speicher „%1“ ist schreibgeschützt.</translation>
    </message>
    <message>
        <source>The volume that holds the sync store “%1” is full.</source>
        <translation>Das Volume mit dem Sync-Speicher „%1“ ist voll.</translation>
    </message>
    <message>
        <source>The volume that holds the sync store “%1” is not mounted.</source>
        <translation>Das Volume mit dem Sync-Speicher „%1“ ist nicht eingehängt.</translation>
    </message>
    <message>
        <source>There is no server “%1”. Check its name and the network.</source>
        <translation>Einen Server „%1“ gibt es nicht. Prüfen Sie seinen Namen und das Netz.</translation>
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
        <source>You do not have permission to use “%1”.</source>
        <translation>Sie haben keine Berechtigung, „%1“ zu benutzen.</translation>
    </message>
    <message>
        <source>“%1” cannot be read or written: %2.</source>
        <translation>„%1“ kann nicht gelesen oder geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>“%1” is larger than the server accepts.</source>
        <translation>„%1“ ist größer, als der Server annimmt.</translation>
    </message>
    <message>
        <source>“%1” is locked on the server.</source>
        <translation>„%1“ ist auf dem Server gesperrt.</translation>
    </message>
    <message>
        <source>“%1” is not there.</source>
        <translation>„%1“ ist nicht da.</translation>
    </message>
    <message>
        <source>“%1” is something else than a file or folder of a sync store.</source>
        <translation>„%1“ ist etwas anderes als eine Datei oder ein Ordner eines Sync-Speichers.</translation>
    </message>
    <message>
        <source>“%1” is too long and was not read.</source>
        <translation>„%1“ ist zu lang und wurde nicht gelesen.</translation>
    </message>
    <message>
        <source>The sync store “%1” cannot be made.</source>
        <translation>Der Sync-Speicher „%1“ kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>The record “%1” is damaged.</source>
        <translation>Der Datensatz „%1“ ist beschädigt.</translation>
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
        <translation>Tage des wöchentlichen Abgleichs</translation>
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
        <source>From then on the database synchronizes only when you ask for it, or when it is opened or closed.</source>
        <translation>Danach gleicht sich die Datenbank nur noch ab, wenn Sie es verlangen oder wenn sie geöffnet oder geschlossen wird.</translation>
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
        <translation>Noch nie abgeglichen</translation>
    </message>
    <message>
        <source>Next synchronization: %1</source>
        <translation>Nächster Abgleich: %1</translation>
    </message>
    <message>
        <source>No database is open.</source>
        <translation>Keine Datenbank ist geöffnet.</translation>
    </message>
    <message>
        <source>No synchronization is scheduled.</source>
        <translation>Kein Abgleich ist geplant.</translation>
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
        <source>Show what went wrong</source>
        <translation>Zeigen, was schiefging</translation>
    </message>
    <message>
        <source>Something went wrong with this location. Show what.</source>
        <translation>Mit diesem Ort ist etwas schiefgegangen. Zeigen, was.</translation>
    </message>
    <message>
        <source>Sync Preferences cannot be used: the sync plug-in has no %1.</source>
        <translation>Die Abgleich-Einstellungen sind nicht verwendbar: dem Abgleich-Modul fehlt %1.</translation>
    </message>
    <message>
        <source>Sync locations</source>
        <translation>Abgleichorte</translation>
    </message>
    <message>
        <source>Synchronize this database with all its locations now</source>
        <translation>Diese Datenbank jetzt mit allen ihren Orten abgleichen</translation>
    </message>
    <message>
        <source>Synchronize with</source>
        <translation>Abgleichen mit</translation>
    </message>
    <message>
        <source>Synchronized %1</source>
        <translation>Abgeglichen %1</translation>
    </message>
    <message>
        <source>There is no location to synchronize with yet.</source>
        <translation>Es gibt noch keinen Ort zum Abgleichen.</translation>
    </message>
    <message>
        <source>Time of the daily synchronization</source>
        <translation>Uhrzeit des täglichen Abgleichs</translation>
    </message>
    <message>
        <source>Time of the weekly synchronization</source>
        <translation>Uhrzeit des wöchentlichen Abgleichs</translation>
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
        <translation>Ob sich die ausgewählte Datenbank mit diesem Ort abgleicht</translation>
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
        <translation>Sichern</translation>
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
        <translation>Neuer Ablageordner …</translation>
    </message>
    <message>
        <source>Existing Folder Store…</source>
        <translation>Vorhandener Ablageordner …</translation>
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
        <translation>In der Dateiverwaltung zeigen</translation>
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
        <translation>freiwillig, etwa dokumente/sync</translation>
    </message>
    <message>
        <source>Store name:</source>
        <translation>Name der Ablage:</translation>
    </message>
    <message>
        <source>The password is kept in your keyring and nowhere else.</source>
        <translation>Das Passwort wird in Ihrem Schlüsselbund aufbewahrt und sonst nirgends.</translation>
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
        <translation>Ordner-Ort</translation>
    </message>
    <message>
        <source>A sync store is a package in a folder that all your computers reach, such as one on a shared volume.</source>
        <translation>Eine Sync-Ablage ist ein Paket in einem Ordner, den alle Ihre Computer erreichen, etwa auf einem gemeinsamen Laufwerk.</translation>
    </message>
    <message>
        <source>Sync store:</source>
        <translation>Sync-Ablage:</translation>
    </message>
    <message>
        <source>Sync store</source>
        <translation>Sync-Ablage</translation>
    </message>
    <message>
        <source>None chosen yet</source>
        <translation>Noch keine gewählt</translation>
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
        <source>The certificate “%1” of this computer cannot be made.</source>
        <translation>Das Zertifikat „%1“ dieses Computers kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>The certificate “%1” of this computer is damaged.</source>
        <translation>Das Zertifikat „%1“ dieses Computers ist beschädigt.</translation>
    </message>
    <message>
        <source>“%1” cannot be reached.</source>
        <translation>„%1“ ist nicht zu erreichen.</translation>
    </message>
    <message>
        <source>The connection with “%1” was lost.</source>
        <translation>Die Verbindung mit „%1“ ist abgebrochen.</translation>
    </message>
    <message>
        <source>It shows a code. Allow it only where it is the same as here: %1</source>
        <translation>Dort wird ein Code gezeigt. Erlauben Sie es nur, wenn er derselbe ist wie hier: %1</translation>
    </message>
    <message>
        <source>It takes the place of another one of this name.</source>
        <translation>Er tritt an die Stelle eines anderen dieses Namens.</translation>
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
        <source>The server cannot use the port %1: %2</source>
        <translation>Der Server kann den Port %1 nicht verwenden: %2</translation>
    </message>
    <message>
        <source>Connect with “%1”?</source>
        <translation>Mit „%1“ verbinden?</translation>
    </message>
    <message>
        <source>It shows a code. Connect only where it is the same as here: %1</source>
        <translation>Dort wird ein Code gezeigt. Verbinden Sie nur, wenn er derselbe ist wie hier: %1</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>“%1” is not the computer that was paired. If it should be, add the location anew.</source>
        <translation>„%1“ ist nicht der Computer, mit dem dieser verbunden wurde. Wenn er es sein soll, legen Sie den Ort neu an.</translation>
    </message>
    <message>
        <source>“%1” cannot be asked just now. Try again in a while.</source>
        <translation>„%1“ kann gerade nicht gefragt werden. Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>“%1” does not let this computer synchronize.</source>
        <translation>„%1“ lässt diesen Computer nicht synchronisieren.</translation>
    </message>
    <message>
        <source>“%1” answers in a way that is not understood.</source>
        <translation>„%1“ antwortet unverständlich.</translation>
    </message>
    <message>
        <source>“%1” cannot read or write its sync store.</source>
        <translation>„%1“ kann seinen Sync-Speicher nicht lesen oder schreiben.</translation>
    </message>
    <message>
        <source>The sync store “%1” may not be read.</source>
        <translation>Der Sync-Speicher „%1“ darf nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Folder Access</source>
        <translation>Ordnerzugriff</translation>
    </message>
    <message>
        <source>Velmora may reach these folders:</source>
        <translation>Velmora darf auf diese Ordner zugreifen:</translation>
    </message>
    <message>
        <source>Folders that Velmora may reach</source>
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
        <translation>Computer im lokalen Netz:</translation>
    </message>
    <message>
        <source>Computers on the local network</source>
        <translation>Computer im lokalen Netz</translation>
    </message>
    <message>
        <source>No computer found yet. Turn its server on under “Direct Connections…” there, or type its address.</source>
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
        <translation>Es gibt noch keinen Ort, von dem importiert werden könnte.</translation>
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
        <source>This location holds no database that this computer does not have.</source>
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
        <translation>Direkte Verbindungen</translation>
    </message>
    <message>
        <source>Let other computers synchronize with this one</source>
        <translation>Andere Computer dürfen sich mit diesem abgleichen</translation>
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
        <source>None so far. When a computer connects for the first time, you are asked whether it may.</source>
        <translation>Bisher keine. Wenn sich ein Computer zum ersten Mal verbindet, werden Sie gefragt, ob er es darf.</translation>
    </message>
    <message>
        <source>Revoke</source>
        <translation>Widerrufen</translation>
    </message>
    <message>
        <source>The selected computer may not connect any more.</source>
        <translation>Der ausgewählte Computer darf sich nicht mehr verbinden.</translation>
    </message>
    <message>
        <source>The record “%1” is too large.</source>
        <translation>Der Datensatz „%1“ ist zu groß.</translation>
    </message>
    <message>
        <source>The record “%1” was made by a newer version of Velmora.</source>
        <translation>Der Datensatz „%1“ stammt von einer neueren Version von Velmora.</translation>
    </message>
    <message>
        <source>No note can be called “%1”.</source>
        <translation>Keine Notiz kann „%1“ heißen.</translation>
    </message>
    <message>
        <source>The note “%1” is too long to be synchronized.</source>
        <translation>Die Notiz „%1“ ist zu lang, um synchronisiert zu werden.</translation>
    </message>
    <message>
        <source>The name of a database must not be so long.</source>
        <translation>So lang darf der Name einer Datenbank nicht sein.</translation>
    </message>
    <message>
        <source>No database can be called “%1”.</source>
        <translation>Keine Datenbank kann „%1“ heißen.</translation>
    </message>
    <message>
        <source>The database “%1” is neither here nor at the location.</source>
        <translation>Die Datenbank „%1“ gibt es weder hier noch am Ort.</translation>
    </message>
    <message>
        <source>“%1” was cleaned up at “%2”.</source>
        <translation>„%1“ wurde bei „%2“ aufgeräumt.</translation>
    </message>
    <message>
        <source>“%1” was synchronized with “%2”.</source>
        <translation>„%1“ wurde mit „%2“ synchronisiert.</translation>
    </message>
    <message>
        <source>“%1” was not cleaned up at “%2”: %3</source>
        <translation>„%1“ wurde bei „%2“ nicht aufgeräumt: %3</translation>
    </message>
    <message>
        <source>“%1” was not synchronized with “%2”: %3</source>
        <translation>„%1“ wurde nicht mit „%2“ synchronisiert: %3</translation>
    </message>
    <message>
        <source>“%1” was not cleaned up: it is not on this computer.</source>
        <translation>„%1“ wurde nicht aufgeräumt: Die Datenbank ist nicht auf diesem Computer.</translation>
    </message>
    <message>
        <source>Of “%1” something was left out at “%2”: %3</source>
        <translation>Von „%1“ wurde bei „%2“ etwas ausgelassen: %3</translation>
    </message>
    <message>
        <source>Cleaning up “%1” at “%2”…</source>
        <translation>„%1“ wird bei „%2“ aufgeräumt …</translation>
    </message>
    <message>
        <source>Synchronizing “%1” with “%2”…</source>
        <translation>„%1“ wird mit „%2“ synchronisiert …</translation>
    </message>
    <message>
        <source>No browser can be opened to sign in to Dropbox.</source>
        <translation>Es lässt sich kein Browser öffnen, um sich bei Dropbox anzumelden.</translation>
    </message>
    <message>
        <source>Dropbox cannot be used: no application key is configured.</source>
        <translation>Dropbox kann nicht benutzt werden: Es ist kein Anwendungsschlüssel eingerichtet.</translation>
    </message>
    <message>
        <source>The address “%1” configured for Dropbox is not secure.</source>
        <translation>Die für Dropbox eingerichtete Adresse „%1“ ist nicht sicher.</translation>
    </message>
    <message>
        <source>Not signed in to Dropbox as “%1”. Edit the location to do so.</source>
        <translation>Nicht als „%1“ bei Dropbox angemeldet. Bearbeiten Sie den Ort, um sich anzumelden.</translation>
    </message>
    <message>
        <source>“%1” has to sign in to Dropbox again. Edit the location to do so.</source>
        <translation>„%1“ muss sich erneut bei Dropbox anmelden. Bearbeiten Sie dazu den Ort.</translation>
    </message>
    <message>
        <source>The answer of the browser cannot be awaited: %1.</source>
        <translation>Auf die Antwort des Browsers kann nicht gewartet werden: %1.</translation>
    </message>
    <message>
        <source>Nobody has signed in to Dropbox in time.</source>
        <translation>Niemand hat sich rechtzeitig bei Dropbox angemeldet.</translation>
    </message>
    <message>
        <source>You may close this window now and go back to Velmora.</source>
        <translation>Sie können dieses Fenster jetzt schließen und zu Velmora zurückkehren.</translation>
    </message>
    <message>
        <source>Velmora did not ask for this.</source>
        <translation>Danach hat Velmora nicht gefragt.</translation>
    </message>
    <message>
        <source>The sign-in to Dropbox was refused.</source>
        <translation>Die Anmeldung bei Dropbox wurde abgelehnt.</translation>
    </message>
    <message>
        <source>The answer of the browser is not understood.</source>
        <translation>Die Antwort des Browsers ist unverständlich.</translation>
    </message>
    <message>
        <source>The Dropbox of “%1” is full.</source>
        <translation>Die Dropbox von „%1“ ist voll.</translation>
    </message>
    <message>
        <source>Dropbox did not accept the sign-in.</source>
        <translation>Dropbox hat die Anmeldung nicht angenommen.</translation>
    </message>
    <message>
        <source>Velmora has no access to the folder “%1”. Grant it under Folder Access.</source>
        <translation>Velmora hat keinen Zugriff auf den Ordner „%1“. Erlauben Sie ihn unter „Ordnerzugriff“.</translation>
    </message>
</context>
<context>
    <name>Platform</name>
    <message>
        <source>No password service is running on this computer.</source>
        <translation>Auf diesem Computer läuft kein Passwortdienst.</translation>
    </message>
    <message>
        <source>The keyring is locked.</source>
        <translation>Der Schlüsselbund ist gesperrt.</translation>
    </message>
    <message>
        <source>The password service does not work.</source>
        <translation>Der Passwortdienst funktioniert nicht.</translation>
    </message>
    <message>
        <source>Passwords cannot be saved. They are kept until you quit %1.</source>
        <translation>Passwörter können nicht gesichert werden. Sie bleiben erhalten, bis %1 beendet wird.</translation>
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
        <source>The folder “%1” could not be made.</source>
        <translation>Der Ordner „%1“ konnte nicht angelegt werden.</translation>
    </message>
</context>
</TS>
