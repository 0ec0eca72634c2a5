<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en_US">
<context>
    <name>ConflictBar</name>
    <message>
        <source>&amp;Compare…</source>
        <translation>&amp;Comparer…</translation>
    </message>
    <message>
        <source>Keep Th&amp;is</source>
        <translation>Conserver ce&amp;lle-ci</translation>
    </message>
    <message>
        <source>Keep &amp;Other</source>
        <translation>Conserver l’au&amp;tre</translation>
    </message>
    <message>
        <source>Keep &amp;Both</source>
        <translation>Conserver les deu&amp;x</translation>
    </message>
    <message>
        <source>This note was edited on two computers.</source>
        <translation>Cette note a été modifiée sur deux ordinateurs.</translation>
    </message>
    <message numerus="yes">
        <source>This note was edited in %1 places.</source>
        <translation>
            <numerusform>Cette note a été modifiée à %1 endroit.</numerusform>
            <numerusform>Cette note a été modifiée à %1 endroits.</numerusform>
        </translation>
    </message>
    <message>
        <source>This note was edited in more places than the list shows. The other edits follow when you have decided about these.</source>
        <translation>Cette note a été modifiée à plus d’endroits que la liste n’en montre. Les autres versions suivront quand vous aurez choisi parmi celles-ci.</translation>
    </message>
</context>
<context>
    <name>ConflictDialog</name>
    <message>
        <source>Compare</source>
        <translation>Comparer</translation>
    </message>
    <message>
        <source>This Edit</source>
        <translation>Cette version</translation>
    </message>
    <message>
        <source>Other Edit</source>
        <translation>L’autre version</translation>
    </message>
    <message>
        <source>date unknown</source>
        <translation>date inconnue</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>Keep Th&amp;is</source>
        <translation>Conserver ce&amp;lle-ci</translation>
    </message>
    <message>
        <source>Keep &amp;Other</source>
        <translation>Conserver l’au&amp;tre</translation>
    </message>
    <message>
        <source>Keep &amp;Both</source>
        <translation>Conserver les deu&amp;x</translation>
    </message>
</context>
<context>
    <name>DamagedProfileDialog</name>
    <message>
        <source>You can restore the backup that Velmora made of it on %1; later changes of notes are added to it if they can be read, and are otherwise missing until they are synchronized again. Or you can start with an empty profile and import your databases from the sync locations.</source>
        <translation>Vous pouvez restaurer la copie de sauvegarde que Velmora en a faite (%1) ; les modifications plus récentes de notes y sont ajoutées si elles peuvent être lues et manqueront sinon jusqu’à ce qu’elles soient de nouveau synchronisées. Vous pouvez aussi commencer avec un profil vide et importer vos bases de données depuis les emplacements de synchronisation.</translation>
    </message>
    <message>
        <source>There is no backup of it that can be restored. You can start with a profile that has the notes that can still be read, and import your other databases from the sync locations.</source>
        <translation>Il n’en existe aucune copie de sauvegarde qui puisse être restaurée. Vous pouvez commencer avec un profil qui contient les notes encore lisibles, et importer vos autres bases de données depuis les emplacements de synchronisation.</translation>
    </message>
    <message>
        <source>Make the backups readable and start Velmora again. Or you can start with an empty profile and import your databases from the sync locations.</source>
        <translation>Rendez les copies de sauvegarde lisibles et redémarrez Velmora. Vous pouvez aussi commencer avec un profil vide et importer vos bases de données depuis les emplacements de synchronisation.</translation>
    </message>
    <message>
        <source>&amp;Restore the Backup of %1</source>
        <translation>&amp;Restaurer la copie de sauvegarde du %1</translation>
    </message>
    <message>
        <source>Start from the Sync &amp;Locations</source>
        <translation>Recommencer depuis les &amp;emplacements</translation>
    </message>
    <message>
        <source>Show &amp;Folder</source>
        <translation>Afficher le &amp;dossier</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>The present files are kept in the folder “Damaged Profiles”.</source>
        <translation>Les fichiers actuels sont conservés dans le dossier « Damaged Profiles ».</translation>
    </message>
</context>
<context>
    <name>EventLog</name>
    <message>
        <source>Time</source>
        <translation>Heure</translation>
    </message>
    <message>
        <source>What happened</source>
        <translation>Événement</translation>
    </message>
    <message>
        <source>Succeeded</source>
        <translation>Réussi</translation>
    </message>
    <message>
        <source>Partly</source>
        <translation>Partiel</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Échoué</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Arrêté</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 received, %2 sent</source>
        <translation>%1 reçus, %2 envoyés</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Résultat</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>Base de données</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Emplacement</translation>
    </message>
    <message>
        <source>Changes</source>
        <translation>Modifications</translation>
    </message>
</context>
<context>
    <name>HistoryDialog</name>
    <message>
        <source>&amp;Restore</source>
        <translation>&amp;Restaurer</translation>
    </message>
    <message>
        <source>Earlier Versions</source>
        <translation>Versions précédentes</translation>
    </message>
    <message>
        <source>Deleted Notes</source>
        <translation>Notes supprimées</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titre</translation>
    </message>
    <message>
        <source>When</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Modification</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message numerus="yes">
        <source> days</source>
        <translation>
            <numerusform> jour</numerusform>
            <numerusform> jours</numerusform>
        </translation>
    </message>
    <message>
        <source>Number of days for which deleted notes and earlier versions are kept</source>
        <translation>Nombre de jours pendant lesquels les notes supprimées et les versions précédentes sont conservées</translation>
    </message>
    <message>
        <source> MB</source>
        <translation> Mo</translation>
    </message>
    <message>
        <source>Space for deleted notes and earlier versions</source>
        <translation>Espace pour les notes supprimées et les versions précédentes</translation>
    </message>
    <message>
        <source>&amp;Keep deleted notes and earlier versions for</source>
        <translation>&amp;Conserver les notes supprimées et les versions précédentes pendant</translation>
    </message>
    <message>
        <source>and up to</source>
        <translation>et jusqu’à</translation>
    </message>
    <message numerus="yes">
        <source>The new limits remove %1 deleted notes and earlier versions.</source>
        <translation>
            <numerusform>Les nouvelles limites suppriment %1 note supprimée ou version précédente.</numerusform>
            <numerusform>Les nouvelles limites suppriment %1 notes supprimées et versions précédentes.</numerusform>
        </translation>
    </message>
    <message>
        <source>What is removed cannot be restored any more. If you keep it, the limits stay as they were.</source>
        <translation>Ce qui est supprimé ne pourra plus être restauré. Si vous le conservez, les limites restent inchangées.</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Supprimer</translation>
    </message>
    <message>
        <source>&amp;Keep</source>
        <translation>&amp;Conserver</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Sans titre</translation>
    </message>
    <message>
        <source>No earlier versions of this note are kept.</source>
        <translation>Aucune version précédente de cette note n’est conservée.</translation>
    </message>
    <message>
        <source>No deleted notes of “%1” are kept.</source>
        <translation>Aucune note supprimée de « %1 » n’est conservée.</translation>
    </message>
    <message>
        <source>A restored version replaces the note, whose present text is then kept here.</source>
        <translation>Une version restaurée remplace la note, dont le texte actuel est alors conservé ici.</translation>
    </message>
    <message>
        <source>Restored notes are synchronized again. They then also return on your other computers.</source>
        <translation>Les notes restaurées sont de nouveau synchronisées. Elles réapparaissent alors aussi sur vos autres ordinateurs.</translation>
    </message>
    <message>
        <source>Replaced on this computer</source>
        <translation>Remplacée sur cet ordinateur</translation>
    </message>
    <message>
        <source>Deleted on this computer</source>
        <translation>Supprimée sur cet ordinateur</translation>
    </message>
    <message>
        <source>Replaced by a synchronization with “%1”</source>
        <translation>Remplacée par une synchronisation avec « %1 »</translation>
    </message>
    <message>
        <source>Deleted by a synchronization with “%1”</source>
        <translation>Supprimée par une synchronisation avec « %1 »</translation>
    </message>
</context>
<context>
    <name>LaunchOptions</name>
    <message>
        <source>“%1” cannot be the value of “--%2”. Use one of these: %3</source>
        <translation>« %1 » ne peut pas être la valeur de « --%2 ». Utilisez l’une de celles-ci : %3</translation>
    </message>
    <message>
        <source>“%1” cannot be the value of “--timeout”. Use a number of seconds greater than 0.</source>
        <translation>« %1 » ne peut pas être la valeur de « --timeout ». Utilisez un nombre de secondes supérieur à 0.</translation>
    </message>
    <message>
        <source>Notes and documents, synchronized with the locations you choose.</source>
        <translation>Des notes et des documents, synchronisés avec les emplacements de votre choix.</translation>
    </message>
    <message>
        <source>Use the profile in DIR.</source>
        <translation>Utiliser le profil du dossier DIR.</translation>
    </message>
    <message>
        <source>Write a picture of Sync Preferences to FILE, then exit.</source>
        <translation>Écrire une image des Préférences de synchronisation dans FILE, puis terminer.</translation>
    </message>
    <message>
        <source>Print the profile's databases, locations, states and schedules as JSON, then exit.</source>
        <translation>Afficher en JSON les bases de données, les emplacements, les états et les planifications du profil, puis terminer.</translation>
    </message>
    <message>
        <source>Use light or dark colors instead of the desktop's.</source>
        <translation>Utiliser des couleurs claires ou sombres au lieu de celles du bureau.</translation>
    </message>
    <message>
        <source>Restrict the profile to folders that you have granted access to, or not.</source>
        <translation>Limiter ou non le profil aux dossiers auxquels vous avez donné accès.</translation>
    </message>
    <message>
        <source>With “verify”: synchronize with every location and repair what is damaged there. Velmora must not be running with the same profile.</source>
        <translation>Avec « verify » : synchroniser avec chaque emplacement et réparer ce qui y est endommagé. Velmora ne doit pas être en cours d’exécution avec le même profil.</translation>
    </message>
    <message>
        <source>With “verify” and “status”: print the result as JSON.</source>
        <translation>Avec « verify » et « status » : afficher le résultat en JSON.</translation>
    </message>
    <message>
        <source>Check the profile and every sync location and print what was found, then exit with 0 if all is well, 1 if there are problems, or 2 if something could not be checked.</source>
        <translation>Vérifier le profil et chaque emplacement de synchronisation, afficher le résultat, puis terminer avec le code 0 si tout est en ordre, 1 en cas de problème, ou 2 si quelque chose n’a pas pu être vérifié.</translation>
    </message>
    <message>
        <source>Synchronize these databases, or all, with their locations. Like the next two, this is done by Velmora if it is running. Exits with 0 if all is well, 1 if something failed, or 2 if the command could not be carried out.</source>
        <translation>Synchroniser ces bases de données, ou toutes, avec leurs emplacements. Comme les deux suivantes, cette commande s’adresse à Velmora s’il est en cours d’exécution. Le code de sortie est 0 si tout est en ordre, 1 en cas d’échec, ou 2 si la commande n’a pas pu être exécutée.</translation>
    </message>
    <message>
        <source>Print whether everything is synchronized. Exits with 1 if something is not.</source>
        <translation>Indiquer si tout est synchronisé. Le code de sortie est 1 dans le cas contraire.</translation>
    </message>
    <message>
        <source>Check whether the location with this title or address can be read and written. Exits with 1 if it cannot.</source>
        <translation>Vérifier si l’emplacement qui a ce titre ou cette adresse peut être lu et écrit. Le code de sortie est 1 dans le cas contraire.</translation>
    </message>
    <message>
        <source>With “sync”, “status” and “check”: give up after this time and exit with 3. The default is %1 for “sync” and %2 for the others.</source>
        <translation>Avec « sync », « status » et « check » : abandonner après ce délai et terminer avec le code 3. La valeur par défaut est %1 pour « sync » et %2 pour les autres.</translation>
    </message>
    <message>
        <source>With “sync”: if more than half of the notes of a database, and more than ten, would be removed, keep or remove them. Otherwise they are listed, and nothing is changed.</source>
        <translation>Avec « sync » : si plus de la moitié des notes d’une base de données, et plus de dix, devaient être supprimées, les conserver ou les supprimer. Sinon, elles sont énumérées et rien n’est modifié.</translation>
    </message>
    <message>
        <source>Begin a new profile without notes or with examples, and ask no question.</source>
        <translation>Commencer un nouveau profil sans notes ou avec des exemples, sans poser de question.</translation>
    </message>
    <message>
        <source>Open Sync Preferences, too.</source>
        <translation>Ouvrir aussi les Préférences de synchronisation.</translation>
    </message>
    <message>
        <source>“--profile” needs a folder as its value.</source>
        <translation>« --profile » attend un dossier comme valeur.</translation>
    </message>
    <message>
        <source>“--%1” needs one of these commands: %2</source>
        <translation>« --%1 » nécessite une de ces commandes : %2</translation>
    </message>
    <message>
        <source>“--%1” cannot be used with the command “%2”. Leave one of them out.</source>
        <translation>« --%1 » ne peut pas être utilisé avec la commande « %2 ». Omettez l’un des deux.</translation>
    </message>
    <message>
        <source>“%1” is not a command. Use one of these: %2</source>
        <translation>« %1 » n’est pas une commande. Utilisez une de celles-ci : %2</translation>
    </message>
    <message>
        <source>The command “check” needs one argument: the title or the address of a location.</source>
        <translation>La commande « check » nécessite un argument : le titre ou l’adresse d’un emplacement.</translation>
    </message>
    <message>
        <source>The command “%1” has no arguments. Leave “%2” out.</source>
        <translation>La commande « %1 » n’a pas d’arguments. Omettez « %2 ».</translation>
    </message>
</context>
<context>
    <name>LogWindow</name>
    <message>
        <source>Log</source>
        <translation>Journal</translation>
    </message>
    <message>
        <source>Log entries</source>
        <translation>Entrées du journal</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Tout</translation>
    </message>
    <message>
        <source>&amp;Database:</source>
        <translation>&amp;Base de données :</translation>
    </message>
    <message>
        <source>&amp;Location:</source>
        <translation>&amp;Emplacement :</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>Copy the selected entries, or all if none is selected.</source>
        <translation>Copier les entrées sélectionnées, ou toutes si aucune n’est sélectionnée.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exporter…</translation>
    </message>
    <message>
        <source>E&amp;xport Note…</source>
        <translation>E&amp;xporter la note…</translation>
    </message>
    <message>
        <source>Your changes in Sync Preferences are not saved.</source>
        <translation>Vos modifications dans les Préférences de synchronisation ne sont pas enregistrées.</translation>
    </message>
    <message>
        <source>&amp;Try Again</source>
        <translation>&amp;Réessayer</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>A&amp;bandonner</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message numerus="yes">
        <source>%1 · %2 conflicts</source>
        <translation>
            <numerusform>%1 · %2 conflit</numerusform>
            <numerusform>%1 · %2 conflits</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 · cannot be read</source>
        <translation>%1 · illisible</translation>
    </message>
    <message>
        <source>%1 (closed)</source>
        <translation>%1 (fermée)</translation>
    </message>
    <message>
        <source>Databases</source>
        <translation>Bases de données</translation>
    </message>
    <message>
        <source>&amp;Database</source>
        <translation>&amp;Base de données</translation>
    </message>
    <message>
        <source>&amp;New Database…</source>
        <translation>&amp;Nouvelle base de données…</translation>
    </message>
    <message>
        <source>&amp;Rename…</source>
        <translation>&amp;Renommer…</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>&amp;Ouvrir</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>É&amp;dition</translation>
    </message>
    <message>
        <source>Earlier &amp;Versions…</source>
        <translation>&amp;Versions précédentes…</translation>
    </message>
    <message>
        <source>&amp;Deleted Notes…</source>
        <translation>Notes &amp;supprimées…</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Outils</translation>
    </message>
    <message>
        <source>Sync &amp;Preferences…</source>
        <translation>&amp;Préférences de synchronisation…</translation>
    </message>
    <message>
        <source>&amp;Log</source>
        <translation>&amp;Journal</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Commandes</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>New Database</source>
        <translation>Nouvelle base de données</translation>
    </message>
    <message>
        <source>Name of the new database:</source>
        <translation>Nom de la nouvelle base de données :</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
    <message>
        <source>New name of the database:</source>
        <translation>Nouveau nom de la base de données :</translation>
    </message>
    <message>
        <source>The text of “%1”, which could not be saved before, is saved.</source>
        <translation>Le texte de « %1 », qui n’avait pas pu être enregistré, est maintenant enregistré.</translation>
    </message>
    <message>
        <source>&amp;Delete…</source>
        <translation>&amp;Supprimer…</translation>
    </message>
    <message>
        <source>Res&amp;tore Deleted Database</source>
        <translation>Res&amp;taurer la base de données supprimée</translation>
    </message>
    <message>
        <source>The inbox cannot be deleted, because every profile has one. You can delete its notes.</source>
        <translation>La boîte de réception ne peut pas être supprimée, car chaque profil en a une. Vous pouvez supprimer ses notes.</translation>
    </message>
    <message>
        <source>“%1” was deleted. For ten minutes it can be restored with its notes, ticks and schedules.</source>
        <translation>« %1 » a été supprimée. Pendant dix minutes, elle peut être restaurée avec ses notes, ses coches et ses planifications.</translation>
    </message>
    <message>
        <source>&amp;Guide</source>
        <translation>&amp;Guide</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aide</translation>
    </message>
    <message>
        <source>&amp;About Velmora</source>
        <translation>À &amp;propos de Velmora</translation>
    </message>
    <message>
        <source>Notes that are kept in sync between your computers.

License: Apache License 2.0</source>
        <translation>Des notes synchronisées entre vos ordinateurs.

Licence : Apache License 2.0</translation>
    </message>
    <message>
        <source>&amp;Sync Now</source>
        <translation>S&amp;ynchroniser</translation>
    </message>
    <message>
        <source>“%1” is not synchronized with any location. Tick one in Sync Preferences.</source>
        <translation>« %1 » n’est synchronisé avec aucun emplacement. Cochez-en un dans les Préférences de synchronisation.</translation>
    </message>
</context>
<context>
    <name>NotesModel</name>
    <message>
        <source>Untitled</source>
        <translation>Sans titre</translation>
    </message>
</context>
<context>
    <name>NotesView</name>
    <message>
        <source>A title has at most %L1 characters, so not all of what you entered was added to it. Enter it into the text of the note.</source>
        <translation>Un titre a au plus %L1 caractères ; une partie de votre saisie n’y a donc pas été ajoutée. Saisissez-la dans le texte de la note.</translation>
    </message>
    <message>
        <source>New &amp;Note</source>
        <translation>&amp;Nouvelle note</translation>
    </message>
    <message>
        <source>De&amp;lete Note</source>
        <translation>&amp;Supprimer la note</translation>
    </message>
    <message>
        <source>&amp;Undo Delete Note</source>
        <translation>Ann&amp;uler la suppression de la note</translation>
    </message>
    <message>
        <source>&amp;Undo Keep</source>
        <translation>Annuler le choi&amp;x de version</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notes</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titre</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>This note cannot be edited here: it contains something that the editor would change, or too many or too long lines. To go on with it, copy its text and paste it into a new note.</source>
        <translation>Cette note ne peut pas être modifiée ici : elle contient quelque chose que l’éditeur changerait, ou des lignes trop nombreuses ou trop longues. Pour continuer à y travailler, copiez son texte et collez-le dans une nouvelle note.</translation>
    </message>
    <message>
        <source>This note is not saved: %1</source>
        <translation>Cette note n’est pas enregistrée : %1</translation>
    </message>
    <message>
        <source>New Note</source>
        <translation>Nouvelle note</translation>
    </message>
    <message>
        <source>The text was not inserted, because the note would be too long to be edited: it may have %L1 lines of at most %L2 characters, and %L3 characters in all. Insert a part of it, or several lines.</source>
        <translation>Le texte n’a pas été inséré, car la note serait trop longue pour être modifiée : elle peut comporter %L1 lignes d’au plus %L2 caractères, et %L3 caractères en tout. Insérez-en une partie, ou plusieurs lignes.</translation>
    </message>
    <message>
        <source>Cop&amp;y Text</source>
        <translation>Cop&amp;ier le texte</translation>
    </message>
    <message>
        <source>Try A&amp;gain</source>
        <translation>Réessa&amp;yer</translation>
    </message>
    <message>
        <source>Not all notes are shown, because some cannot be read. %1</source>
        <translation>Toutes les notes ne sont pas affichées, car certaines ne peuvent pas être lues. %1</translation>
    </message>
</context>
<context>
    <name>PlugIns</name>
    <message>
        <source>A part of Velmora cannot be loaded: %1. Install Velmora again.</source>
        <translation>Une partie de Velmora ne peut pas être chargée : %1. Réinstallez Velmora.</translation>
    </message>
</context>
<context>
    <name>PreferencesWindow</name>
    <message>
        <source>“%1” was removed. Its ticks and schedules can be restored with it.</source>
        <translation>« %1 » a été retiré. Il peut être rétabli avec ses cases cochées et ses planifications.</translation>
    </message>
    <message>
        <source>Sync Preferences</source>
        <translation>Préférences de synchronisation</translation>
    </message>
</context>
<context>
    <name>RemovalDialog</name>
    <message numerus="yes">
        <source>The synchronization with “%1” would remove %2 of the %3 notes in “%4”.</source>
        <translation>
            <numerusform>La synchronisation avec « %1 » supprimerait %2 note sur %3 de « %4 ».</numerusform>
            <numerusform>La synchronisation avec « %1 » supprimerait %2 des %3 notes de « %4 ».</numerusform>
        </translation>
    </message>
    <message>
        <source>Notes that would be removed</source>
        <translation>Notes qui seraient supprimées</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Sans titre</translation>
    </message>
    <message numerus="yes">
        <source>… and %1 more</source>
        <translation>
            <numerusform>… et %1 autre</numerusform>
            <numerusform>… et %1 autres</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Keep the Notes</source>
        <translation>&amp;Conserver les notes</translation>
    </message>
    <message>
        <source>&amp;Remove Them</source>
        <translation>&amp;Supprimer les notes</translation>
    </message>
    <message>
        <source>Decide &amp;Later</source>
        <translation>Décider plus &amp;tard</translation>
    </message>
    <message>
        <source>Nothing has been changed yet. If you keep the notes, they also return on your other computers. If you remove them, you find them in “Deleted Notes” for a while.</source>
        <translation>Rien n’a encore été modifié. Si vous conservez les notes, elles réapparaissent aussi sur vos autres ordinateurs. Si vous les supprimez, vous les retrouvez pendant un certain temps dans « Notes supprimées ».</translation>
    </message>
    <message>
        <source>Nothing has been changed yet. “velmora sync --removals keep” keeps these notes, also on your other computers; “--removals remove” removes them.</source>
        <translation>Rien n’a encore été modifié. « velmora sync --removals keep » conserve ces notes, également sur vos autres ordinateurs ; « --removals remove » les supprime.</translation>
    </message>
</context>
<context>
    <name>UnsavedTextDialog</name>
    <message>
        <source>Your text is not saved.</source>
        <translation>Votre texte n’est pas enregistré.</translation>
    </message>
    <message>
        <source>&amp;Try Again</source>
        <translation>&amp;Réessayer</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>A&amp;bandonner</translation>
    </message>
    <message>
        <source>&amp;Copy Text</source>
        <translation>&amp;Copier le texte</translation>
    </message>
    <message>
        <source>&amp;Keep Editing</source>
        <translation>&amp;Poursuivre la modification</translation>
    </message>
</context>
<context>
    <name>UnsavedTexts</name>
    <message>
        <source>The folder “%1”, which may contain texts that were not saved, cannot be read.</source>
        <translation>Le dossier « %1 », qui peut contenir des textes non enregistrés, ne peut pas être lu.</translation>
    </message>
    <message>
        <source>Check its permissions and its disk, and start Velmora again.</source>
        <translation>Vérifiez ses droits d’accès et son disque, puis redémarrez Velmora.</translation>
    </message>
    <message>
        <source>The file is damaged. Copy from it what you need, and remove it.</source>
        <translation>Le fichier est endommagé. Copiez-en ce dont vous avez besoin, puis supprimez-le.</translation>
    </message>
    <message>
        <source>The text of “%1” cannot be kept for the next start either.</source>
        <translation>Le texte de « %1 » ne peut pas non plus être conservé jusqu’au prochain démarrage.</translation>
    </message>
    <message>
        <source>Make room on the disk, or copy the text.</source>
        <translation>Libérez de l’espace sur le disque ou copiez le texte.</translation>
    </message>
    <message>
        <source>“%1”: %2</source>
        <translation>« %1 » : %2</translation>
    </message>
    <message>
        <source>Texts that were not saved cannot be restored. They are kept, and Velmora tries again at each start.</source>
        <translation>Des textes non enregistrés ne peuvent pas être restaurés. Ils sont conservés, et Velmora réessaie à chaque démarrage.</translation>
    </message>
    <message>
        <source>The file “%1”, which contains a text that was not saved, cannot be removed: %2. Remove it yourself, or the text returns at the next start.</source>
        <translation>Le fichier « %1 », qui contient un texte non enregistré, ne peut pas être supprimé : %2. Supprimez-le vous-même, sinon le texte réapparaîtra au prochain démarrage.</translation>
    </message>
    <message>
        <source>The file cannot be read (%1). Check its permissions and its disk.</source>
        <translation>Le fichier ne peut pas être lu (%1). Vérifiez ses autorisations et son disque.</translation>
    </message>
</context>
<context>
    <name>VelmoraApplication</name>
    <message>
        <source>Error again:</source>
        <translation>Nouvelle erreur :</translation>
    </message>
    <message>
        <source>Internal error:</source>
        <translation>Erreur interne :</translation>
    </message>
    <message>
        <source>An internal error occurred, and Velmora cancelled the current action.</source>
        <translation>Une erreur interne s’est produite et Velmora a annulé l’action en cours.</translation>
    </message>
    <message>
        <source>A synchronization would remove many notes.</source>
        <translation>Une synchronisation supprimerait beaucoup de notes.</translation>
    </message>
</context>
<context>
    <name>VerificationOutput</name>
    <message>
        <source>%1: no problems (%2).</source>
        <translation>%1 : aucun problème (%2).</translation>
    </message>
    <message>
        <source>%1: problems were found (%2).</source>
        <translation>%1 : des problèmes ont été trouvés (%2).</translation>
    </message>
    <message>
        <source>%1: could not be checked.</source>
        <translation>%1 : la vérification n’a pas été possible.</translation>
    </message>
    <message>
        <source>Everything is in order.</source>
        <translation>Tout est en ordre.</translation>
    </message>
    <message>
        <source>Problems were found. “velmora verify --repair” synchronizes and repairs what this computer can repair.</source>
        <translation>Des problèmes ont été trouvés. « velmora verify --repair » synchronise et répare ce que cet ordinateur peut réparer.</translation>
    </message>
    <message>
        <source>Problems remain. Do what is said above, then run “velmora verify” again.</source>
        <translation>Des problèmes subsistent. Suivez les indications ci-dessus, puis exécutez de nouveau « velmora verify ».</translation>
    </message>
    <message>
        <source>Some parts could not be checked. Remove the cause that is named above, then try again.</source>
        <translation>Certaines parties n’ont pas pu être vérifiées. Supprimez la cause indiquée ci-dessus, puis réessayez.</translation>
    </message>
</context>
<context>
    <name>ProcessProtection</name>
    <message>
        <source>Other programs of yours may be able to read passwords in the memory of Velmora, because the system did not let it protect its memory. Run no programs that you do not trust beside Velmora.</source>
        <translation>D’autres de vos programmes peuvent être en mesure de lire des mots de passe dans la mémoire de Velmora, car le système ne lui a pas permis de la protéger. N’exécutez pas en même temps que Velmora des programmes auxquels vous ne faites pas confiance.</translation>
    </message>
</context>
<context>
    <name>RunningInstance</name>
    <message>
        <source>A second start of Velmora will not find these windows: %1 cannot be used (%2). Check the permissions and the space of its folder, then start Velmora again.</source>
        <translation>Un second démarrage de Velmora ne trouvera pas ces fenêtres : %1 ne peut pas être utilisé (%2). Vérifiez les droits d’accès et l’espace libre de son dossier, puis redémarrez Velmora.</translation>
    </message>
    <message>
        <source>Velmora has ended before the command was completed. Try again.</source>
        <translation>Velmora s’est terminé avant que la commande soit achevée. Réessayez.</translation>
    </message>
    <message>
        <source>Velmora, which is running, has another version. Quit it, then try again.</source>
        <translation>Velmora est déjà ouvert dans une autre version. Quittez-le, puis réessayez.</translation>
    </message>
    <message>
        <source>Velmora, which is running, takes too long and continues with the command. Try again later, or state a longer time with --timeout.</source>
        <translation>Velmora, qui est en cours d’exécution, met trop de temps et poursuit la commande. Réessayez plus tard, ou indiquez un délai plus long avec --timeout.</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>The picture cannot be written to %1. Check the folder and its permissions, or choose another file.</source>
        <translation>L’image ne peut pas être écrite dans %1. Vérifiez le dossier et ses droits d’accès, ou choisissez un autre fichier.</translation>
    </message>
    <message>
        <source>There is no display to open a window on. A picture of Sync Preferences is in this file:</source>
        <translation>Il n’y a pas d’écran sur lequel ouvrir une fenêtre. Une image des Préférences de synchronisation se trouve dans ce fichier :</translation>
    </message>
</context>
<context>
    <name>SynchronizationSummary</name>
    <message>
        <source>%1 · next: %2</source>
        <translation>%1 · prochaine : %2</translation>
    </message>
    <message>
        <source>Nothing is synchronized: no database has a ticked location</source>
        <translation>Rien n’est synchronisé : aucune base de données n’a d’emplacement coché</translation>
    </message>
    <message>
        <source>All up to date</source>
        <translation>Tout est à jour</translation>
    </message>
    <message>
        <source>“%1” has not been synchronized with “%2” yet</source>
        <translation>« %1 » n’a pas encore été synchronisé avec « %2 »</translation>
    </message>
    <message>
        <source>“%1” has changes that are not synchronized with “%2” yet</source>
        <translation>« %1 » a des modifications qui ne sont pas encore synchronisées avec « %2 »</translation>
    </message>
    <message>
        <source>There are changes that are not synchronized yet</source>
        <translation>Certaines modifications ne sont pas encore synchronisées</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %2 synchronizations failed</source>
        <translation>
            <numerusform>%1 synchronisation sur %2 a échoué</numerusform>
            <numerusform>%1 synchronisations sur %2 ont échoué</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” is not synchronized with “%2”</source>
        <translation>« %1 » n’est pas synchronisé avec « %2 »</translation>
    </message>
    <message>
        <source>Some items of “%1” could not be synchronized with “%2”</source>
        <translation>Certains éléments de « %1 » n’ont pas pu être synchronisés avec « %2 »</translation>
    </message>
    <message numerus="yes">
        <source>Some items failed in %1 of %2 synchronizations</source>
        <translation>
            <numerusform>Certains éléments ont échoué dans %1 synchronisation sur %2</numerusform>
            <numerusform>Certains éléments ont échoué dans %1 synchronisations sur %2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SynchronizationMonitor</name>
    <message>
        <source>%1 %2 of %3</source>
        <translation>%1 %2 sur %3</translation>
    </message>
</context>
<context>
    <name>StatusLine</name>
    <message>
        <source>&amp;Stop</source>
        <translation>A&amp;rrêter</translation>
    </message>
    <message>
        <source>&amp;What Failed…</source>
        <translation>Voir les &amp;erreurs…</translation>
    </message>
    <message>
        <source>Progress of the synchronization</source>
        <translation>Progression de la synchronisation</translation>
    </message>
    <message>
        <source>Stop all synchronizations. The next one continues where they stopped.</source>
        <translation>Arrêter toutes les synchronisations. La prochaine reprendra là où elles se sont arrêtées.</translation>
    </message>
</context>
<context>
    <name>QuitSynchronization</name>
    <message>
        <source>“%1” with “%2”</source>
        <translation>« %1 » avec « %2 »</translation>
    </message>
    <message>
        <source>Quit Velmora</source>
        <translation>Quitter Velmora</translation>
    </message>
    <message>
        <source>“%1” has changes that are not synchronized with “%2”. Synchronize them before quitting?</source>
        <translation>« %1 » a des modifications qui ne sont pas synchronisées avec « %2 ». Les synchroniser avant de quitter ?</translation>
    </message>
    <message>
        <source>There are changes that are not synchronized. Synchronize them before quitting?</source>
        <translation>Certaines modifications ne sont pas synchronisées. Les synchroniser avant de quitter ?</translation>
    </message>
    <message numerus="yes">
        <source>and %1 more</source>
        <translation>
            <numerusform>et %1 autre</numerusform>
            <numerusform>et %1 autres</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;Synchronize and Quit</source>
        <translation>&amp;Synchroniser et quitter</translation>
    </message>
    <message>
        <source>Some changes could not be synchronized. They are saved on this computer. Quit anyway?</source>
        <translation>Certaines modifications n’ont pas pu être synchronisées. Elles sont enregistrées sur cet ordinateur. Quitter quand même ?</translation>
    </message>
</context>
<context>
    <name>QuitProgressDialog</name>
    <message>
        <source>Quit Velmora</source>
        <translation>Quitter Velmora</translation>
    </message>
    <message>
        <source>Progress of the synchronization</source>
        <translation>Progression de la synchronisation</translation>
    </message>
    <message>
        <source>&amp;Quit Now</source>
        <translation>&amp;Quitter maintenant</translation>
    </message>
    <message>
        <source>Stop the synchronization and quit. The next one continues where it stopped.</source>
        <translation>Arrêter la synchronisation et quitter. La prochaine reprendra là où elle s’est arrêtée.</translation>
    </message>
    <message>
        <source>Synchronizing before quitting…</source>
        <translation>Synchronisation avant de quitter…</translation>
    </message>
</context>
<context>
    <name>ErrorBoxes</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Error %1 of %2</source>
        <translation>Erreur %1 sur %2</translation>
    </message>
</context>
<context>
    <name>LogFile</name>
    <message>
        <source>The log cannot be saved in the file “%1” (%2). Check its permissions and the space on its disk.</source>
        <translation>Le journal ne peut pas être enregistré dans le fichier « %1 » (%2). Vérifiez ses droits d’accès et l’espace disponible sur son disque.</translation>
    </message>
    <message>
        <source>Lines of the log file “%1” that cannot be read and are not shown: %2. Check its disk.</source>
        <translation>Lignes du fichier journal « %1 » qui ne peuvent pas être lues et ne sont pas affichées : %2. Vérifiez son disque.</translation>
    </message>
</context>
<context>
    <name>ShellCommandLine</name>
    <message>
        <source>There is no profile in the folder “%1”. State another one with --profile.</source>
        <translation>Il n’y a pas de profil dans le dossier « %1 ». Indiquez-en un autre avec --profile.</translation>
    </message>
    <message>
        <source>The command takes longer than the allowed %1 s and was stopped. Try again, or state a longer time with --timeout.</source>
        <translation>La commande dure plus longtemps que les %1 s autorisées et a été arrêtée. Réessayez, ou indiquez un délai plus long avec --timeout.</translation>
    </message>
</context>
<context>
    <name>ShellCommandRunner</name>
    <message>
        <source>“%1” with “%2”</source>
        <translation>« %1 » avec « %2 »</translation>
    </message>
    <message>
        <source>never synchronized</source>
        <translation>jamais synchronisé</translation>
    </message>
    <message>
        <source>has changes since %1</source>
        <translation>modifié depuis la synchronisation (%1)</translation>
    </message>
    <message>
        <source>up to date since %1</source>
        <translation>à jour (synchronisation : %1)</translation>
    </message>
    <message>
        <source>%1: the synchronization was stopped.</source>
        <translation>%1 : la synchronisation a été arrêtée.</translation>
    </message>
    <message>
        <source>%1: synchronized (%2 received, %3 sent)</source>
        <translation>%1 : synchronisé (%2 reçus, %3 envoyés)</translation>
    </message>
    <message>
        <source>There is no database “%1”. “velmora --describe” lists all.</source>
        <translation>Il n’y a pas de base de données « %1 ». « velmora --describe » les affiche toutes.</translation>
    </message>
    <message>
        <source>Nothing is synchronized. Tick a location in Sync Preferences first.</source>
        <translation>Rien n’est synchronisé. Cochez d’abord un emplacement dans les Préférences de synchronisation.</translation>
    </message>
    <message>
        <source>There is no location “%1”. State the title or address of one of these:</source>
        <translation>Il n’y a pas d’emplacement « %1 ». Indiquez le titre ou l’adresse de l’un de ceux-ci :</translation>
    </message>
    <message>
        <source>Notes of “%1” that “%2” would have removed and that were kept (%3 of %4):</source>
        <translation>Notes de « %1 » que « %2 » aurait supprimées et qui ont été conservées (%3 sur %4) :</translation>
    </message>
    <message>
        <source>Notes of “%1” that “%2” has removed (%3 of %4; “Deleted Notes” in the menu “Edit” restores them):</source>
        <translation>Notes de « %1 » que « %2 » a supprimées (%3 sur %4 ; « Notes supprimées » dans le menu « Édition » les restaure) :</translation>
    </message>
</context>
<context>
    <name>TrayIcon</name>
    <message>
        <source>&amp;Sync All Now</source>
        <translation>Tout &amp;synchroniser maintenant</translation>
    </message>
    <message>
        <source>&amp;Pause for an Hour</source>
        <translation>Suspendre pendant une &amp;heure</translation>
    </message>
    <message>
        <source>Pause until &amp;Tomorrow</source>
        <translation>Suspendre jusqu’à &amp;demain</translation>
    </message>
    <message>
        <source>&amp;Resume</source>
        <translation>&amp;Reprendre</translation>
    </message>
    <message>
        <source>Show &amp;Velmora</source>
        <translation>Afficher &amp;Velmora</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Suspendu</translation>
    </message>
</context>
<context>
    <name>BackgroundMode</name>
    <message>
        <source>Keep Synchronizing in the &amp;Background</source>
        <translation>Continuer la synchronisation en &amp;arrière-plan</translation>
    </message>
    <message>
        <source>Velmora cannot stay in the background, because this desktop shows no icons of programs. Turn them on in the desktop's settings and try again.</source>
        <translation>Velmora ne peut pas rester en arrière-plan, car ce bureau n’affiche pas d’icônes de programmes. Activez-les dans les paramètres du bureau et réessayez.</translation>
    </message>
    <message>
        <source>A synchronization failed</source>
        <translation>Une synchronisation a échoué</translation>
    </message>
    <message>
        <source>Velmora asks for a decision</source>
        <translation>Velmora attend une décision</translation>
    </message>
    <message>
        <source>A note was edited on two computers</source>
        <translation>Une note a été modifiée sur deux ordinateurs</translation>
    </message>
    <message>
        <source>Velmora has kept both edits. Open the note to choose one.</source>
        <translation>Velmora a conservé les deux versions. Ouvrez la note pour en choisir une.</translation>
    </message>
    <message>
        <source>&amp;Hide Window</source>
        <translation>&amp;Masquer la fenêtre</translation>
    </message>
    <message>
        <source>Velmora cannot stay in the background at present, because the desktop shows no icons of programs. It ends when its window is closed. Turn the icons on in the desktop's settings, and start Velmora again.</source>
        <translation>Velmora ne peut pas rester en arrière-plan actuellement, car le bureau n’affiche pas d’icônes de programmes. Il se termine à la fermeture de sa fenêtre. Activez les icônes dans les paramètres du bureau, puis redémarrez Velmora.</translation>
    </message>
    <message>
        <source>Do Not Stay in the Background</source>
        <translation>Ne pas rester en arrière-plan</translation>
    </message>
</context>
<context>
    <name>FailureSteps</name>
    <message>
        <source>Edit Location…</source>
        <translation>Modifier l’emplacement…</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>Show Folder</source>
        <translation>Afficher le dossier</translation>
    </message>
</context>
<context>
    <name>NoteExport</name>
    <message>
        <source>The file “%1” could not be written. Choose another folder.</source>
        <translation>Impossible d’écrire le fichier « %1 ». Choisissez un autre dossier.</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notes</translation>
    </message>
</context>
<context>
    <name>FirstStartDialog</name>
    <message>
        <source>Start</source>
        <translation>Commencer</translation>
    </message>
    <message>
        <source>Welcome to Velmora</source>
        <translation>Bienvenue dans Velmora</translation>
    </message>
    <message>
        <source>You can change this later in Sync Preferences.</source>
        <translation>Vous pourrez changer cela plus tard dans les Préférences de synchronisation.</translation>
    </message>
    <message>
        <source>Where should your notes be kept in sync?</source>
        <translation>Où vos notes doivent-elles être synchronisées ?</translation>
    </message>
    <message>
        <source>Decide later</source>
        <translation>Décider plus tard</translation>
    </message>
    <message>
        <source>How do you want to begin?</source>
        <translation>Comment voulez-vous commencer ?</translation>
    </message>
    <message>
        <source>Without notes</source>
        <translation>Sans notes</translation>
    </message>
    <message>
        <source>With examples</source>
        <translation>Avec des exemples</translation>
    </message>
    <message>
        <source>With databases from another computer</source>
        <translation>Avec des bases de données d’un autre ordinateur</translation>
    </message>
    <message>
        <source>Choose first where these databases are.</source>
        <translation>Choisissez d’abord où se trouvent ces bases de données.</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>&amp;Undo</source>
        <translation>Ann&amp;uler</translation>
    </message>
</context>
<context>
    <name>DeletionQuestion</name>
    <message>
        <source>Delete the database “%1”?</source>
        <translation>Supprimer la base de données « %1 » ?</translation>
    </message>
    <message numerus="yes">
        <source>Its %1 notes are deleted on this computer, with their earlier versions.</source>
        <translation>
            <numerusform>Sa %1 note est supprimée sur cet ordinateur, avec ses versions précédentes.</numerusform>
            <numerusform>Ses %1 notes sont supprimées sur cet ordinateur, avec leurs versions précédentes.</numerusform>
        </translation>
    </message>
    <message>
        <source>Its notes are deleted on this computer, with their earlier versions.</source>
        <translation>Ses notes sont supprimées sur cet ordinateur, avec leurs versions précédentes.</translation>
    </message>
    <message>
        <source>It has no notes.</source>
        <translation>Elle ne contient aucune note.</translation>
    </message>
    <message>
        <source>You can undo this for ten minutes, unless you quit Velmora.</source>
        <translation>Vous pouvez annuler cette action pendant dix minutes, tant que vous ne quittez pas Velmora.</translation>
    </message>
    <message>
        <source>These locations keep the database, and you can import it from them: %1.</source>
        <translation>Ces emplacements conservent la base de données, et vous pouvez l’importer depuis ceux-ci : %1.</translation>
    </message>
    <message>
        <source>Your latest changes are not there yet: %1.</source>
        <translation>Vos dernières modifications n’y sont pas encore : %1.</translation>
    </message>
    <message>
        <source>No sync location has a copy of it. To keep one, choose “Database”, “Export…” first.</source>
        <translation>Aucun emplacement de synchronisation n’en a de copie. Pour en garder une, choisissez d’abord « Base de données », « Exporter… ».</translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>« %1 »</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Supprimer</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuler</translation>
    </message>
</context>
<context>
    <name>Guide</name>
    <message>
        <source>The guide “%1” cannot be opened. Open it in a browser, or install Velmora again if it is missing.</source>
        <translation>Le guide « %1 » ne peut pas être ouvert. Ouvrez-le dans un navigateur, ou réinstallez Velmora s’il manque.</translation>
    </message>
</context>
</TS>
