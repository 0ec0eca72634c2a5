<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en_US">
<context>
    <name>ConflictBar</name>
    <message>
        <source>&amp;Compare…</source>
        <translation>&amp;Vergleichen …</translation>
    </message>
    <message>
        <source>Keep Th&amp;is</source>
        <translation>D&amp;iese behalten</translation>
    </message>
    <message>
        <source>Keep &amp;Other</source>
        <translation>Ande&amp;re behalten</translation>
    </message>
    <message>
        <source>Keep &amp;Both</source>
        <translation>Beide behal&amp;ten</translation>
    </message>
    <message>
        <source>This note was edited on two computers.</source>
        <translation>Diese Notiz wurde auf zwei Computern bearbeitet.</translation>
    </message>
    <message numerus="yes">
        <source>This note was edited in %1 places.</source>
        <translation>
            <numerusform>Diese Notiz wurde an %1 Stelle bearbeitet.</numerusform>
            <numerusform>Diese Notiz wurde an %1 Stellen bearbeitet.</numerusform>
        </translation>
    </message>
    <message>
        <source>This note was edited in more places than the list shows. The other edits follow when you have decided about these.</source>
        <translation>Diese Notiz wurde an mehr Stellen bearbeitet, als die Liste zeigt. Die anderen Fassungen folgen, wenn Sie über diese entschieden haben.</translation>
    </message>
</context>
<context>
    <name>ConflictDialog</name>
    <message>
        <source>Compare</source>
        <translation>Vergleichen</translation>
    </message>
    <message>
        <source>This Edit</source>
        <translation>Diese Fassung</translation>
    </message>
    <message>
        <source>Other Edit</source>
        <translation>Andere Fassung</translation>
    </message>
    <message>
        <source>date unknown</source>
        <translation>Datum unbekannt</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>Keep Th&amp;is</source>
        <translation>D&amp;iese behalten</translation>
    </message>
    <message>
        <source>Keep &amp;Other</source>
        <translation>Ande&amp;re behalten</translation>
    </message>
    <message>
        <source>Keep &amp;Both</source>
        <translation>Beide be&amp;halten</translation>
    </message>
</context>
<context>
    <name>DamagedProfileDialog</name>
    <message>
        <source>You can restore the backup that Velmora made of it on %1; later changes of notes are added to it if they can be read, and are otherwise missing until they are synchronized again. Or you can start with an empty profile and import your databases from the sync locations.</source>
        <translation>Sie können die Sicherungskopie wiederherstellen, die Velmora davon angelegt hat (%1); spätere Änderungen von Notizen werden hinzugefügt, wenn sie gelesen werden können, und fehlen sonst, bis sie wieder synchronisiert sind. Oder Sie beginnen mit einem leeren Profil und importieren Ihre Datenbanken aus den Sync-Orten.</translation>
    </message>
    <message>
        <source>There is no backup of it that can be restored. You can start with a profile that has the notes that can still be read, and import your other databases from the sync locations.</source>
        <translation>Es gibt keine Sicherungskopie davon, die wiederhergestellt werden kann. Sie können mit einem Profil beginnen, das die noch lesbaren Notizen enthält, und Ihre anderen Datenbanken aus den Sync-Orten importieren.</translation>
    </message>
    <message>
        <source>The present files are kept in the folder “Damaged Profiles”.</source>
        <translation>Die jetzigen Dateien werden im Ordner „Damaged Profiles“ aufbewahrt.</translation>
    </message>
    <message>
        <source>Make the backups readable and start Velmora again. Or you can start with an empty profile and import your databases from the sync locations.</source>
        <translation>Machen Sie die Sicherungskopien lesbar, und starten Sie Velmora neu. Oder Sie beginnen mit einem leeren Profil und importieren Ihre Datenbanken aus den Sync-Orten.</translation>
    </message>
    <message>
        <source>&amp;Restore the Backup of %1</source>
        <translation>Sicherungs&amp;kopie vom %1 wiederherstellen</translation>
    </message>
    <message>
        <source>Start from the Sync &amp;Locations</source>
        <translation>Mit den Sync-&amp;Orten neu beginnen</translation>
    </message>
    <message>
        <source>Show &amp;Folder</source>
        <translation>O&amp;rdner zeigen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
</context>
<context>
    <name>EventLog</name>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>What happened</source>
        <translation>Was geschehen ist</translation>
    </message>
    <message>
        <source>Succeeded</source>
        <translation>Erfolgreich</translation>
    </message>
    <message>
        <source>Partly</source>
        <translation>Teilweise</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 received, %2 sent</source>
        <translation>%1 empfangen, %2 gesendet</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>Datenbank</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Changes</source>
        <translation>Änderungen</translation>
    </message>
</context>
<context>
    <name>HistoryDialog</name>
    <message>
        <source>&amp;Restore</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>Earlier Versions</source>
        <translation>Frühere Fassungen</translation>
    </message>
    <message>
        <source>Deleted Notes</source>
        <translation>Gelöschte Notizen</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>When</source>
        <translation>Wann</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Änderung</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message numerus="yes">
        <source> days</source>
        <translation>
            <numerusform> Tag</numerusform>
            <numerusform> Tage</numerusform>
        </translation>
    </message>
    <message>
        <source>Number of days for which deleted notes and earlier versions are kept</source>
        <translation>Tage, die gelöschte Notizen und frühere Fassungen aufbewahrt werden</translation>
    </message>
    <message>
        <source> MB</source>
        <translation> MB</translation>
    </message>
    <message>
        <source>Space for deleted notes and earlier versions</source>
        <translation>Platz für gelöschte Notizen und frühere Fassungen</translation>
    </message>
    <message>
        <source>&amp;Keep deleted notes and earlier versions for</source>
        <translation>&amp;Gelöschte Notizen und frühere Fassungen aufbewahren:</translation>
    </message>
    <message>
        <source>and up to</source>
        <translation>und bis zu</translation>
    </message>
    <message numerus="yes">
        <source>The new limits remove %1 deleted notes and earlier versions.</source>
        <translation>
            <numerusform>Die neuen Grenzen entfernen %1 gelöschte Notiz oder frühere Fassung.</numerusform>
            <numerusform>Die neuen Grenzen entfernen %1 gelöschte Notizen und frühere Fassungen.</numerusform>
        </translation>
    </message>
    <message>
        <source>What is removed cannot be restored any more. If you keep it, the limits stay as they were.</source>
        <translation>Was entfernt wird, kann nicht mehr wiederhergestellt werden. Wenn Sie es behalten, bleiben die Grenzen, wie sie waren.</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>&amp;Keep</source>
        <translation>&amp;Behalten</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
    <message>
        <source>No earlier versions of this note are kept.</source>
        <translation>Von dieser Notiz sind keine früheren Fassungen aufbewahrt.</translation>
    </message>
    <message>
        <source>No deleted notes of “%1” are kept.</source>
        <translation>Von „%1“ sind keine gelöschten Notizen aufbewahrt.</translation>
    </message>
    <message>
        <source>A restored version replaces the note, whose present text is then kept here.</source>
        <translation>Eine wiederhergestellte Fassung ersetzt die Notiz, deren jetziger Text dann hier aufbewahrt wird.</translation>
    </message>
    <message>
        <source>Restored notes are synchronized again. They then also return on your other computers.</source>
        <translation>Wiederhergestellte Notizen werden wieder synchronisiert. Sie kehren dann auch auf Ihren anderen Computern zurück.</translation>
    </message>
    <message>
        <source>Replaced on this computer</source>
        <translation>Auf diesem Computer ersetzt</translation>
    </message>
    <message>
        <source>Deleted on this computer</source>
        <translation>Auf diesem Computer gelöscht</translation>
    </message>
    <message>
        <source>Replaced by a synchronization with “%1”</source>
        <translation>Durch Synchronisierung mit „%1“ ersetzt</translation>
    </message>
    <message>
        <source>Deleted by a synchronization with “%1”</source>
        <translation>Durch Synchronisierung mit „%1“ gelöscht</translation>
    </message>
</context>
<context>
    <name>LaunchOptions</name>
    <message>
        <source>“%1” cannot be the value of “--%2”. Use one of these: %3</source>
        <translation>„%1“ kann nicht der Wert von „--%2“ sein. Verwenden Sie einen von diesen: %3</translation>
    </message>
    <message>
        <source>“%1” cannot be the value of “--timeout”. Use a number of seconds greater than 0.</source>
        <translation>„%1“ kann nicht der Wert von „--timeout“ sein. Verwenden Sie eine Anzahl von Sekunden, die größer als 0 ist.</translation>
    </message>
    <message>
        <source>Notes and documents, synchronized with the locations you choose.</source>
        <translation>Notizen und Dokumente, synchronisiert mit den Orten, die Sie wählen.</translation>
    </message>
    <message>
        <source>Use the profile in DIR.</source>
        <translation>Das Profil in DIR verwenden.</translation>
    </message>
    <message>
        <source>Write a picture of Sync Preferences to FILE, then exit.</source>
        <translation>Ein Bild der Sync-Einstellungen in FILE schreiben, dann beenden.</translation>
    </message>
    <message>
        <source>Print the profile's databases, locations, states and schedules as JSON, then exit.</source>
        <translation>Datenbanken, Orte, Zustände und Zeitpläne des Profils als JSON ausgeben, dann beenden.</translation>
    </message>
    <message>
        <source>Use light or dark colors instead of the desktop's.</source>
        <translation>Helle oder dunkle Farben statt derer des Desktops verwenden.</translation>
    </message>
    <message>
        <source>Restrict the profile to folders that you have granted access to, or not.</source>
        <translation>Das Profil auf Ordner beschränken, auf die Sie den Zugriff erlaubt haben, oder nicht.</translation>
    </message>
    <message>
        <source>With “verify”: synchronize with every location and repair what is damaged there. Velmora must not be running with the same profile.</source>
        <translation>Mit „verify“: mit jedem Ort synchronisieren und beheben, was dort beschädigt ist. Velmora darf nicht mit demselben Profil laufen.</translation>
    </message>
    <message>
        <source>With “verify” and “status”: print the result as JSON.</source>
        <translation>Mit „verify“ und „status“: das Ergebnis als JSON ausgeben.</translation>
    </message>
    <message>
        <source>With “sync”: if more than half of the notes of a database, and more than ten, would be removed, keep or remove them. Otherwise they are listed, and nothing is changed.</source>
        <translation>Mit „sync“: falls mehr als die Hälfte der Notizen einer Datenbank und mehr als zehn entfernt würden, sie behalten oder entfernen. Sonst werden sie aufgelistet, und nichts wird geändert.</translation>
    </message>
    <message>
        <source>Check the profile and every sync location and print what was found, then exit with 0 if all is well, 1 if there are problems, or 2 if something could not be checked.</source>
        <translation>Das Profil und jeden Sync-Ort prüfen und ausgeben, was gefunden wurde, dann mit 0 beenden, wenn alles in Ordnung ist, mit 1 bei Problemen oder mit 2, wenn etwas nicht geprüft werden konnte.</translation>
    </message>
    <message>
        <source>Synchronize these databases, or all, with their locations. Like the next two, this is done by Velmora if it is running. Exits with 0 if all is well, 1 if something failed, or 2 if the command could not be carried out.</source>
        <translation>Diese Datenbanken, oder alle, mit ihren Orten synchronisieren. Wenn Velmora läuft, wird es damit beauftragt; das gilt auch für die beiden nächsten. Der Endestatus ist 0, wenn alles in Ordnung ist, 1 bei Fehlern, oder 2, wenn der Befehl nicht ausgeführt werden konnte.</translation>
    </message>
    <message>
        <source>Print whether everything is synchronized. Exits with 1 if something is not.</source>
        <translation>Ausgeben, ob alles synchronisiert ist. Der Endestatus ist 1, wenn etwas fehlt.</translation>
    </message>
    <message>
        <source>Check whether the location with this title or address can be read and written. Exits with 1 if it cannot.</source>
        <translation>Prüfen, ob der Ort mit diesem Titel oder dieser Adresse gelesen und geschrieben werden kann. Der Endestatus ist 1, wenn nicht.</translation>
    </message>
    <message>
        <source>With “sync”, “status” and “check”: give up after this time and exit with 3. The default is %1 for “sync” and %2 for the others.</source>
        <translation>Mit „sync“, „status“ und „check“: nach dieser Zeit aufgeben und mit 3 enden. Die Vorgabe ist %1 für „sync“ und %2 für die anderen.</translation>
    </message>
    <message>
        <source>Begin a new profile without notes or with examples, and ask no question.</source>
        <translation>Ein neues Profil ohne Notizen oder mit Beispielen beginnen, ohne zu fragen.</translation>
    </message>
    <message>
        <source>Open Sync Preferences, too.</source>
        <translation>Auch die Sync-Einstellungen öffnen.</translation>
    </message>
    <message>
        <source>“--profile” needs a folder as its value.</source>
        <translation>„--profile“ braucht einen Ordner als Wert.</translation>
    </message>
    <message>
        <source>“--%1” needs one of these commands: %2</source>
        <translation>„--%1“ braucht einen dieser Befehle: %2</translation>
    </message>
    <message>
        <source>“--%1” cannot be used with the command “%2”. Leave one of them out.</source>
        <translation>„--%1“ passt nicht zum Befehl „%2“. Lassen Sie eines von beiden weg.</translation>
    </message>
    <message>
        <source>“%1” is not a command. Use one of these: %2</source>
        <translation>„%1“ ist kein Befehl. Verwenden Sie einen dieser: %2</translation>
    </message>
    <message>
        <source>The command “check” needs one argument: the title or the address of a location.</source>
        <translation>Der Befehl „check“ braucht ein Argument: den Titel oder die Adresse eines Orts.</translation>
    </message>
    <message>
        <source>The command “%1” has no arguments. Leave “%2” out.</source>
        <translation>Der Befehl „%1“ hat keine Argumente. Lassen Sie „%2“ weg.</translation>
    </message>
</context>
<context>
    <name>LogWindow</name>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>Log entries</source>
        <translation>Protokolleinträge</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>&amp;Database:</source>
        <translation>&amp;Datenbank:</translation>
    </message>
    <message>
        <source>&amp;Location:</source>
        <translation>&amp;Ort:</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy the selected entries, or all if none is selected.</source>
        <translation>Die ausgewählten Einträge kopieren, oder alle, wenn keiner ausgewählt ist.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exportieren …</translation>
    </message>
    <message>
        <source>E&amp;xport Note…</source>
        <translation>Notiz e&amp;xportieren …</translation>
    </message>
    <message>
        <source>Your changes in Sync Preferences are not saved.</source>
        <translation>Ihre Änderungen in den Sync-Einstellungen sind nicht gespeichert.</translation>
    </message>
    <message>
        <source>&amp;Try Again</source>
        <translation>&amp;Erneut versuchen</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message numerus="yes">
        <source>%1 · %2 conflicts</source>
        <translation>
            <numerusform>%1 · %2 Konflikt</numerusform>
            <numerusform>%1 · %2 Konflikte</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 · cannot be read</source>
        <translation>%1 · nicht lesbar</translation>
    </message>
    <message>
        <source>%1 (closed)</source>
        <translation>%1 (geschlossen)</translation>
    </message>
    <message>
        <source>Databases</source>
        <translation>Datenbanken</translation>
    </message>
    <message>
        <source>&amp;Database</source>
        <translation>&amp;Datenbank</translation>
    </message>
    <message>
        <source>&amp;New Database…</source>
        <translation>&amp;Neue Datenbank …</translation>
    </message>
    <message>
        <source>&amp;Rename…</source>
        <translation>&amp;Umbenennen …</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>Ö&amp;ffnen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>Earlier &amp;Versions…</source>
        <translation>Frühere &amp;Fassungen …</translation>
    </message>
    <message>
        <source>&amp;Deleted Notes…</source>
        <translation>&amp;Gelöschte Notizen …</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Extras</translation>
    </message>
    <message>
        <source>Sync &amp;Preferences…</source>
        <translation>Sync-&amp;Einstellungen …</translation>
    </message>
    <message>
        <source>&amp;Log</source>
        <translation>&amp;Protokoll</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>New Database</source>
        <translation>Neue Datenbank</translation>
    </message>
    <message>
        <source>Name of the new database:</source>
        <translation>Name der neuen Datenbank:</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>New name of the database:</source>
        <translation>Neuer Name der Datenbank:</translation>
    </message>
    <message>
        <source>The text of “%1”, which could not be saved before, is saved.</source>
        <translation>Der Text von „%1“, der vorher nicht gespeichert werden konnte, ist gespeichert.</translation>
    </message>
    <message>
        <source>&amp;Delete…</source>
        <translation>&amp;Löschen …</translation>
    </message>
    <message>
        <source>Res&amp;tore Deleted Database</source>
        <translation>Gelöschte Datenbank &amp;wiederherstellen</translation>
    </message>
    <message>
        <source>The inbox cannot be deleted, because every profile has one. You can delete its notes.</source>
        <translation>Der Eingang kann nicht gelöscht werden, weil jedes Profil einen hat. Sie können seine Notizen löschen.</translation>
    </message>
    <message>
        <source>“%1” was deleted. For ten minutes it can be restored with its notes, ticks and schedules.</source>
        <translation>„%1“ wurde gelöscht. Zehn Minuten lang kann die Datenbank mit Notizen, Häkchen und Zeitplänen wiederhergestellt werden.</translation>
    </message>
    <message>
        <source>&amp;Guide</source>
        <translation>&amp;Anleitung</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About Velmora</source>
        <translation>Ü&amp;ber Velmora</translation>
    </message>
    <message>
        <source>Notes that are kept in sync between your computers.

License: Apache License 2.0</source>
        <translation>Notizen, die zwischen Ihren Computern synchronisiert werden.

Lizenz: Apache License 2.0</translation>
    </message>
    <message>
        <source>&amp;Sync Now</source>
        <translation>S&amp;ynchronisieren</translation>
    </message>
    <message>
        <source>“%1” is not synchronized with any location. Tick one in Sync Preferences.</source>
        <translation>„%1“ wird mit keinem Ort synchronisiert. Kreuzen Sie in den Sync-Einstellungen einen an.</translation>
    </message>
</context>
<context>
    <name>NotesModel</name>
    <message>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
</context>
<context>
    <name>NotesView</name>
    <message>
        <source>A title has at most %L1 characters, so not all of what you entered was added to it. Enter it into the text of the note.</source>
        <translation>Ein Titel hat höchstens %L1 Zeichen, deshalb wurde nicht alles, was Sie eingegeben haben, in ihn aufgenommen. Geben Sie es in den Text der Notiz ein.</translation>
    </message>
    <message>
        <source>The text was not inserted, because the note would be too long to be edited: it may have %L1 lines of at most %L2 characters, and %L3 characters in all. Insert a part of it, or several lines.</source>
        <translation>Der Text wurde nicht eingefügt, weil die Notiz dann zu lang zum Bearbeiten wäre: Sie darf %L1 Zeilen mit höchstens %L2 Zeichen und insgesamt %L3 Zeichen haben. Fügen Sie einen Teil davon ein, oder mehrere Zeilen.</translation>
    </message>
    <message>
        <source>New &amp;Note</source>
        <translation>Neue &amp;Notiz</translation>
    </message>
    <message>
        <source>De&amp;lete Note</source>
        <translation>Notiz &amp;löschen</translation>
    </message>
    <message>
        <source>&amp;Undo Delete Note</source>
        <translation>&amp;Löschen der Notiz rückgängig machen</translation>
    </message>
    <message>
        <source>&amp;Undo Keep</source>
        <translation>&amp;Behalten rückgängig machen</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>This note cannot be edited here: it contains something that the editor would change, or too many or too long lines. To go on with it, copy its text and paste it into a new note.</source>
        <translation>Diese Notiz kann hier nicht bearbeitet werden: Sie enthält etwas, was der Editor ändern würde, oder zu viele oder zu lange Zeilen. Um damit weiterzuarbeiten, kopieren Sie den Text und fügen Sie ihn in eine neue Notiz ein.</translation>
    </message>
    <message>
        <source>This note is not saved: %1</source>
        <translation>Diese Notiz ist nicht gespeichert: %1</translation>
    </message>
    <message>
        <source>New Note</source>
        <translation>Neue Notiz</translation>
    </message>
    <message>
        <source>Cop&amp;y Text</source>
        <translation>Te&amp;xt kopieren</translation>
    </message>
    <message>
        <source>Try A&amp;gain</source>
        <translation>Erneut ver&amp;suchen</translation>
    </message>
    <message>
        <source>Not all notes are shown, because some cannot be read. %1</source>
        <translation>Es werden nicht alle Notizen angezeigt, da einige nicht gelesen werden können. %1</translation>
    </message>
</context>
<context>
    <name>PlugIns</name>
    <message>
        <source>A part of Velmora cannot be loaded: %1. Install Velmora again.</source>
        <translation>Ein Teil von Velmora kann nicht geladen werden: %1. Installieren Sie Velmora erneut.</translation>
    </message>
</context>
<context>
    <name>PreferencesWindow</name>
    <message>
        <source>“%1” was removed. Its ticks and schedules can be restored with it.</source>
        <translation>„%1“ wurde entfernt. Der Ort kann mit seinen Häkchen und Zeitplänen wiederhergestellt werden.</translation>
    </message>
    <message>
        <source>Sync Preferences</source>
        <translation>Sync-Einstellungen</translation>
    </message>
</context>
<context>
    <name>RemovalDialog</name>
    <message numerus="yes">
        <source>The synchronization with “%1” would remove %2 of the %3 notes in “%4”.</source>
        <translation>
            <numerusform>Die Synchronisierung mit „%1“ würde %2 der %3 Notizen in „%4“ entfernen.</numerusform>
            <numerusform>Die Synchronisierung mit „%1“ würde %2 der %3 Notizen in „%4“ entfernen.</numerusform>
        </translation>
    </message>
    <message>
        <source>Nothing has been changed yet. “velmora sync --removals keep” keeps these notes, also on your other computers; “--removals remove” removes them.</source>
        <translation>Noch wurde nichts geändert. „velmora sync --removals keep“ behält diese Notizen, auch auf Ihren anderen Computern; „--removals remove“ entfernt sie.</translation>
    </message>
    <message>
        <source>Notes that would be removed</source>
        <translation>Notizen, die entfernt würden</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
    <message numerus="yes">
        <source>… and %1 more</source>
        <translation>
            <numerusform>… und %1 weitere</numerusform>
            <numerusform>… und %1 weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Keep the Notes</source>
        <translation>Notizen &amp;behalten</translation>
    </message>
    <message>
        <source>&amp;Remove Them</source>
        <translation>Notizen &amp;entfernen</translation>
    </message>
    <message>
        <source>Decide &amp;Later</source>
        <translation>&amp;Später entscheiden</translation>
    </message>
    <message>
        <source>Nothing has been changed yet. If you keep the notes, they also return on your other computers. If you remove them, you find them in “Deleted Notes” for a while.</source>
        <translation>Noch wurde nichts geändert. Wenn Sie die Notizen behalten, kehren sie auch auf Ihren anderen Computern zurück. Wenn Sie sie entfernen, finden Sie sie noch eine Zeit lang unter „Gelöschte Notizen“.</translation>
    </message>
</context>
<context>
    <name>UnsavedTextDialog</name>
    <message>
        <source>Your text is not saved.</source>
        <translation>Ihr Text ist nicht gespeichert.</translation>
    </message>
    <message>
        <source>&amp;Try Again</source>
        <translation>&amp;Erneut versuchen</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>&amp;Copy Text</source>
        <translation>Text &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Keep Editing</source>
        <translation>&amp;Weiter bearbeiten</translation>
    </message>
</context>
<context>
    <name>UnsavedTexts</name>
    <message>
        <source>The folder “%1”, which may contain texts that were not saved, cannot be read.</source>
        <translation>Der Ordner „%1“, der nicht gespeicherte Texte enthalten kann, kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Check its permissions and its disk, and start Velmora again.</source>
        <translation>Prüfen Sie seine Zugriffsrechte und seinen Datenträger, und starten Sie Velmora neu.</translation>
    </message>
    <message>
        <source>The file is damaged. Copy from it what you need, and remove it.</source>
        <translation>Die Datei ist beschädigt. Kopieren Sie daraus, was Sie brauchen, und entfernen Sie sie.</translation>
    </message>
    <message>
        <source>The text of “%1” cannot be kept for the next start either.</source>
        <translation>Der Text von „%1“ kann auch nicht bis zum nächsten Start aufbewahrt werden.</translation>
    </message>
    <message>
        <source>Make room on the disk, or copy the text.</source>
        <translation>Schaffen Sie Platz auf dem Datenträger oder kopieren Sie den Text.</translation>
    </message>
    <message>
        <source>“%1”: %2</source>
        <translation>„%1“: %2</translation>
    </message>
    <message>
        <source>Texts that were not saved cannot be restored. They are kept, and Velmora tries again at each start.</source>
        <translation>Nicht gespeicherte Texte können nicht wiederhergestellt werden. Sie werden aufbewahrt, und Velmora versucht es bei jedem Start erneut.</translation>
    </message>
    <message>
        <source>The file “%1”, which contains a text that was not saved, cannot be removed: %2. Remove it yourself, or the text returns at the next start.</source>
        <translation>Die Datei „%1“ mit einem Text, der nicht gespeichert wurde, kann nicht entfernt werden: %2. Entfernen Sie sie selbst, sonst kehrt der Text beim nächsten Start zurück.</translation>
    </message>
    <message>
        <source>The file cannot be read (%1). Check its permissions and its disk.</source>
        <translation>Die Datei kann nicht gelesen werden (%1). Prüfen Sie ihre Zugriffsrechte und ihren Datenträger.</translation>
    </message>
</context>
<context>
    <name>VelmoraApplication</name>
    <message>
        <source>Error again:</source>
        <translation>Erneuter Fehler:</translation>
    </message>
    <message>
        <source>Internal error:</source>
        <translation>Interner Fehler:</translation>
    </message>
    <message>
        <source>An internal error occurred, and Velmora cancelled the current action.</source>
        <translation>Ein interner Fehler ist aufgetreten, und Velmora hat die Aktion abgebrochen.</translation>
    </message>
    <message>
        <source>A synchronization would remove many notes.</source>
        <translation>Eine Synchronisierung würde viele Notizen entfernen.</translation>
    </message>
</context>
<context>
    <name>VerificationOutput</name>
    <message>
        <source>%1: no problems (%2).</source>
        <translation>%1: keine Probleme (%2).</translation>
    </message>
    <message>
        <source>%1: problems were found (%2).</source>
        <translation>%1: Es wurden Probleme gefunden (%2).</translation>
    </message>
    <message>
        <source>%1: could not be checked.</source>
        <translation>%1: konnte nicht geprüft werden.</translation>
    </message>
    <message>
        <source>Everything is in order.</source>
        <translation>Alles ist in Ordnung.</translation>
    </message>
    <message>
        <source>Problems were found. “velmora verify --repair” synchronizes and repairs what this computer can repair.</source>
        <translation>Es wurden Probleme gefunden. „velmora verify --repair“ synchronisiert und behebt, was dieser Computer beheben kann.</translation>
    </message>
    <message>
        <source>Problems remain. Do what is said above, then run “velmora verify” again.</source>
        <translation>Es bleiben Probleme. Tun Sie, was oben steht, und führen Sie dann „velmora verify“ erneut aus.</translation>
    </message>
    <message>
        <source>Some parts could not be checked. Remove the cause that is named above, then try again.</source>
        <translation>Einige Teile konnten nicht geprüft werden. Beheben Sie die oben genannte Ursache, und versuchen Sie es dann erneut.</translation>
    </message>
</context>
<context>
    <name>ProcessProtection</name>
    <message>
        <source>Other programs of yours may be able to read passwords in the memory of Velmora, because the system did not let it protect its memory. Run no programs that you do not trust beside Velmora.</source>
        <translation>Andere Ihrer Programme können möglicherweise Passwörter im Speicher von Velmora lesen, weil das System den Schutz des Speichers nicht zugelassen hat. Führen Sie neben Velmora keine Programme aus, denen Sie nicht vertrauen.</translation>
    </message>
</context>
<context>
    <name>RunningInstance</name>
    <message>
        <source>A second start of Velmora will not find these windows: %1 cannot be used (%2). Check the permissions and the space of its folder, then start Velmora again.</source>
        <translation>Ein zweiter Start von Velmora findet diese Fenster nicht: %1 kann nicht verwendet werden (%2). Prüfen Sie die Zugriffsrechte und den freien Platz des Ordners, und starten Sie Velmora dann neu.</translation>
    </message>
    <message>
        <source>Velmora has ended before the command was completed. Try again.</source>
        <translation>Velmora wurde beendet, bevor der Befehl ausgeführt war. Versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Velmora, which is running, has another version. Quit it, then try again.</source>
        <translation>Velmora läuft bereits in einer anderen Version. Beenden Sie es, und versuchen Sie es dann noch einmal.</translation>
    </message>
    <message>
        <source>Velmora, which is running, takes too long and continues with the command. Try again later, or state a longer time with --timeout.</source>
        <translation>Das laufende Velmora braucht zu lange und fährt mit dem Befehl fort. Versuchen Sie es später erneut, oder geben Sie mit --timeout eine längere Zeit an.</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>The picture cannot be written to %1. Check the folder and its permissions, or choose another file.</source>
        <translation>Das Bild kann nicht in %1 geschrieben werden. Prüfen Sie den Ordner und seine Zugriffsrechte oder wählen Sie eine andere Datei.</translation>
    </message>
    <message>
        <source>There is no display to open a window on. A picture of Sync Preferences is in this file:</source>
        <translation>Es gibt keine Anzeige, auf der ein Fenster geöffnet werden kann. Ein Bild der Sync-Einstellungen ist in dieser Datei:</translation>
    </message>
</context>
<context>
    <name>SynchronizationSummary</name>
    <message>
        <source>%1 · next: %2</source>
        <translation>%1 · nächste: %2</translation>
    </message>
    <message>
        <source>Nothing is synchronized: no database has a ticked location</source>
        <translation>Nichts wird synchronisiert: Bei keiner Datenbank ist ein Ort angekreuzt</translation>
    </message>
    <message>
        <source>All up to date</source>
        <translation>Alles ist aktuell</translation>
    </message>
    <message>
        <source>“%1” has not been synchronized with “%2” yet</source>
        <translation>„%1“ wurde noch nicht mit „%2“ synchronisiert</translation>
    </message>
    <message>
        <source>“%1” has changes that are not synchronized with “%2” yet</source>
        <translation>„%1“ hat Änderungen, die noch nicht mit „%2“ synchronisiert sind</translation>
    </message>
    <message>
        <source>There are changes that are not synchronized yet</source>
        <translation>Es gibt Änderungen, die noch nicht synchronisiert sind</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %2 synchronizations failed</source>
        <translation>
            <numerusform>%1 von %2 Synchronisierungen ist fehlgeschlagen</numerusform>
            <numerusform>%1 von %2 Synchronisierungen sind fehlgeschlagen</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” is not synchronized with “%2”</source>
        <translation>„%1“ ist nicht mit „%2“ synchronisiert</translation>
    </message>
    <message>
        <source>Some items of “%1” could not be synchronized with “%2”</source>
        <translation>Einige Objekte von „%1“ konnten nicht mit „%2“ synchronisiert werden</translation>
    </message>
    <message numerus="yes">
        <source>Some items failed in %1 of %2 synchronizations</source>
        <translation>
            <numerusform>Bei %1 von %2 Synchronisierungen sind einige Objekte fehlgeschlagen</numerusform>
            <numerusform>Bei %1 von %2 Synchronisierungen sind einige Objekte fehlgeschlagen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SynchronizationMonitor</name>
    <message>
        <source>%1 %2 of %3</source>
        <translation>%1 %2 von %3</translation>
    </message>
</context>
<context>
    <name>StatusLine</name>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Anhalten</translation>
    </message>
    <message>
        <source>&amp;What Failed…</source>
        <translation>&amp;Fehler anzeigen …</translation>
    </message>
    <message>
        <source>Progress of the synchronization</source>
        <translation>Fortschritt der Synchronisierung</translation>
    </message>
    <message>
        <source>Stop all synchronizations. The next one continues where they stopped.</source>
        <translation>Alle Synchronisierungen anhalten. Die nächste setzt dort fort, wo sie aufgehört haben.</translation>
    </message>
</context>
<context>
    <name>QuitSynchronization</name>
    <message>
        <source>“%1” with “%2”</source>
        <translation>„%1“ mit „%2“</translation>
    </message>
    <message>
        <source>Quit Velmora</source>
        <translation>Velmora beenden</translation>
    </message>
    <message>
        <source>“%1” has changes that are not synchronized with “%2”. Synchronize them before quitting?</source>
        <translation>„%1“ hat Änderungen, die nicht mit „%2“ synchronisiert sind. Sollen sie vor dem Beenden synchronisiert werden?</translation>
    </message>
    <message>
        <source>There are changes that are not synchronized. Synchronize them before quitting?</source>
        <translation>Es gibt Änderungen, die nicht synchronisiert sind. Sollen sie vor dem Beenden synchronisiert werden?</translation>
    </message>
    <message numerus="yes">
        <source>and %1 more</source>
        <translation>
            <numerusform>und %1 weitere</numerusform>
            <numerusform>und %1 weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Synchronize and Quit</source>
        <translation>&amp;Synchronisieren und beenden</translation>
    </message>
    <message>
        <source>Some changes could not be synchronized. They are saved on this computer. Quit anyway?</source>
        <translation>Einige Änderungen konnten nicht synchronisiert werden. Sie sind auf diesem Computer gespeichert. Trotzdem beenden?</translation>
    </message>
</context>
<context>
    <name>QuitProgressDialog</name>
    <message>
        <source>Quit Velmora</source>
        <translation>Velmora beenden</translation>
    </message>
    <message>
        <source>Progress of the synchronization</source>
        <translation>Fortschritt der Synchronisierung</translation>
    </message>
    <message>
        <source>&amp;Quit Now</source>
        <translation>&amp;Jetzt beenden</translation>
    </message>
    <message>
        <source>Stop the synchronization and quit. The next one continues where it stopped.</source>
        <translation>Die Synchronisierung anhalten und beenden. Die nächste setzt dort fort, wo sie aufgehört hat.</translation>
    </message>
    <message>
        <source>Synchronizing before quitting…</source>
        <translation>Vor dem Beenden wird synchronisiert …</translation>
    </message>
</context>
<context>
    <name>ErrorBoxes</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Error %1 of %2</source>
        <translation>Fehler %1 von %2</translation>
    </message>
</context>
<context>
    <name>LogFile</name>
    <message>
        <source>The log cannot be saved in the file “%1” (%2). Check its permissions and the space on its disk.</source>
        <translation>Das Protokoll kann nicht in der Datei „%1“ gespeichert werden (%2). Prüfen Sie ihre Zugriffsrechte und den Platz auf dem Datenträger.</translation>
    </message>
    <message>
        <source>Lines of the log file “%1” that cannot be read and are not shown: %2. Check its disk.</source>
        <translation>Zeilen der Protokolldatei „%1“, die nicht gelesen werden können und nicht angezeigt werden: %2. Prüfen Sie ihren Datenträger.</translation>
    </message>
</context>
<context>
    <name>ShellCommandLine</name>
    <message>
        <source>There is no profile in the folder “%1”. State another one with --profile.</source>
        <translation>Im Ordner „%1“ ist kein Profil. Geben Sie mit --profile ein anderes an.</translation>
    </message>
    <message>
        <source>The command takes longer than the allowed %1 s and was stopped. Try again, or state a longer time with --timeout.</source>
        <translation>Der Befehl dauert länger als die erlaubten %1 s und wurde angehalten. Versuchen Sie es erneut, oder geben Sie mit --timeout eine längere Zeit an.</translation>
    </message>
</context>
<context>
    <name>ShellCommandRunner</name>
    <message>
        <source>“%1” with “%2”</source>
        <translation>„%1“ mit „%2“</translation>
    </message>
    <message>
        <source>never synchronized</source>
        <translation>noch nie synchronisiert</translation>
    </message>
    <message>
        <source>has changes since %1</source>
        <translation>hat Änderungen seit der Synchronisierung %1</translation>
    </message>
    <message>
        <source>up to date since %1</source>
        <translation>aktuell, synchronisiert %1</translation>
    </message>
    <message>
        <source>%1: the synchronization was stopped.</source>
        <translation>%1: Die Synchronisierung wurde angehalten.</translation>
    </message>
    <message>
        <source>%1: synchronized (%2 received, %3 sent)</source>
        <translation>%1: synchronisiert (%2 empfangen, %3 gesendet)</translation>
    </message>
    <message>
        <source>There is no database “%1”. “velmora --describe” lists all.</source>
        <translation>Es gibt keine Datenbank „%1“. „velmora --describe“ führt alle auf.</translation>
    </message>
    <message>
        <source>Nothing is synchronized. Tick a location in Sync Preferences first.</source>
        <translation>Nichts wird synchronisiert. Kreuzen Sie zuerst in den Sync-Einstellungen einen Ort an.</translation>
    </message>
    <message>
        <source>There is no location “%1”. State the title or address of one of these:</source>
        <translation>Es gibt keinen Ort „%1“. Geben Sie Titel oder Adresse eines dieser Orte an:</translation>
    </message>
    <message>
        <source>Notes of “%1” that “%2” would have removed and that were kept (%3 of %4):</source>
        <translation>Notizen aus „%1“, die „%2“ entfernt hätte und die behalten wurden (%3 von %4):</translation>
    </message>
    <message>
        <source>Notes of “%1” that “%2” has removed (%3 of %4; “Deleted Notes” in the menu “Edit” restores them):</source>
        <translation>Notizen aus „%1“, die „%2“ entfernt hat (%3 von %4; „Gelöschte Notizen“ im Menü „Bearbeiten“ stellt sie wieder her):</translation>
    </message>
</context>
<context>
    <name>TrayIcon</name>
    <message>
        <source>&amp;Sync All Now</source>
        <translation>Jetzt alles &amp;synchronisieren</translation>
    </message>
    <message>
        <source>&amp;Pause for an Hour</source>
        <translation>Eine Stunde &amp;anhalten</translation>
    </message>
    <message>
        <source>Pause until &amp;Tomorrow</source>
        <translation>Bis &amp;morgen anhalten</translation>
    </message>
    <message>
        <source>&amp;Resume</source>
        <translation>&amp;Fortsetzen</translation>
    </message>
    <message>
        <source>Show &amp;Velmora</source>
        <translation>&amp;Velmora zeigen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Angehalten</translation>
    </message>
</context>
<context>
    <name>BackgroundMode</name>
    <message>
        <source>Keep Synchronizing in the &amp;Background</source>
        <translation>Im &amp;Hintergrund weiter synchronisieren</translation>
    </message>
    <message>
        <source>Velmora cannot stay in the background, because this desktop shows no icons of programs. Turn them on in the desktop's settings and try again.</source>
        <translation>Velmora kann nicht im Hintergrund bleiben, weil dieser Desktop keine Symbole von Programmen anzeigt. Schalten Sie sie in den Einstellungen des Desktops ein und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>A synchronization failed</source>
        <translation>Eine Synchronisierung ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>Velmora asks for a decision</source>
        <translation>Velmora bittet um eine Entscheidung</translation>
    </message>
    <message>
        <source>A note was edited on two computers</source>
        <translation>Eine Notiz wurde auf zwei Computern bearbeitet</translation>
    </message>
    <message>
        <source>Velmora has kept both edits. Open the note to choose one.</source>
        <translation>Velmora hat beide Fassungen behalten. Öffnen Sie die Notiz, um eine zu wählen.</translation>
    </message>
    <message>
        <source>&amp;Hide Window</source>
        <translation>Fenster &amp;verbergen</translation>
    </message>
    <message>
        <source>Velmora cannot stay in the background at present, because the desktop shows no icons of programs. It ends when its window is closed. Turn the icons on in the desktop's settings, and start Velmora again.</source>
        <translation>Velmora kann zurzeit nicht im Hintergrund bleiben, weil der Desktop keine Symbole von Programmen anzeigt. Es endet, wenn sein Fenster geschlossen wird. Schalten Sie die Symbole in den Einstellungen des Desktops ein, und starten Sie Velmora neu.</translation>
    </message>
    <message>
        <source>Do Not Stay in the Background</source>
        <translation>Nicht im Hintergrund bleiben</translation>
    </message>
</context>
<context>
    <name>FailureSteps</name>
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
</context>
<context>
    <name>NoteExport</name>
    <message>
        <source>The file “%1” could not be written. Choose another folder.</source>
        <translation>Die Datei „%1“ konnte nicht geschrieben werden. Wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
</context>
<context>
    <name>FirstStartDialog</name>
    <message>
        <source>Start</source>
        <translation>Starten</translation>
    </message>
    <message>
        <source>Welcome to Velmora</source>
        <translation>Willkommen bei Velmora</translation>
    </message>
    <message>
        <source>You can change this later in Sync Preferences.</source>
        <translation>Sie können das später in den Sync-Einstellungen ändern.</translation>
    </message>
    <message>
        <source>Where should your notes be kept in sync?</source>
        <translation>Wo sollen Ihre Notizen synchron gehalten werden?</translation>
    </message>
    <message>
        <source>Decide later</source>
        <translation>Später entscheiden</translation>
    </message>
    <message>
        <source>How do you want to begin?</source>
        <translation>Womit möchten Sie beginnen?</translation>
    </message>
    <message>
        <source>Without notes</source>
        <translation>Ohne Notizen</translation>
    </message>
    <message>
        <source>With examples</source>
        <translation>Mit Beispielen</translation>
    </message>
    <message>
        <source>With databases from another computer</source>
        <translation>Mit Datenbanken von einem anderen Computer</translation>
    </message>
    <message>
        <source>Choose first where these databases are.</source>
        <translation>Wählen Sie zuerst, wo diese Datenbanken sind.</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>&amp;Undo</source>
        <translation>Rück&amp;gängig</translation>
    </message>
</context>
<context>
    <name>DeletionQuestion</name>
    <message>
        <source>Delete the database “%1”?</source>
        <translation>Soll die Datenbank „%1“ gelöscht werden?</translation>
    </message>
    <message numerus="yes">
        <source>Its %1 notes are deleted on this computer, with their earlier versions.</source>
        <translation>
            <numerusform>Ihre %1 Notiz wird auf diesem Computer gelöscht, mit ihren früheren Fassungen.</numerusform>
            <numerusform>Ihre %1 Notizen werden auf diesem Computer gelöscht, mit ihren früheren Fassungen.</numerusform>
        </translation>
    </message>
    <message>
        <source>Its notes are deleted on this computer, with their earlier versions.</source>
        <translation>Ihre Notizen werden auf diesem Computer gelöscht, mit ihren früheren Fassungen.</translation>
    </message>
    <message>
        <source>It has no notes.</source>
        <translation>Sie enthält keine Notizen.</translation>
    </message>
    <message>
        <source>You can undo this for ten minutes, unless you quit Velmora.</source>
        <translation>Sie können das zehn Minuten lang rückgängig machen, solange Sie Velmora nicht beenden.</translation>
    </message>
    <message>
        <source>These locations keep the database, and you can import it from them: %1.</source>
        <translation>Diese Orte behalten die Datenbank, und Sie können sie von dort importieren: %1.</translation>
    </message>
    <message>
        <source>Your latest changes are not there yet: %1.</source>
        <translation>Ihre letzten Änderungen sind dort noch nicht: %1.</translation>
    </message>
    <message>
        <source>No sync location has a copy of it. To keep one, choose “Database”, “Export…” first.</source>
        <translation>Kein Sync-Ort hat eine Kopie davon. Um eine zu behalten, wählen Sie zuerst „Datenbank“, „Exportieren …“.</translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>„%1“</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
</context>
<context>
    <name>Guide</name>
    <message>
        <source>The guide “%1” cannot be opened. Open it in a browser, or install Velmora again if it is missing.</source>
        <translation>Die Anleitung „%1“ kann nicht geöffnet werden. Öffnen Sie sie in einem Browser oder installieren Sie Velmora neu, falls sie fehlt.</translation>
    </message>
</context>
</TS>
