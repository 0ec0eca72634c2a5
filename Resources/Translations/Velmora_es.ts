<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES" sourcelanguage="en_US">
<context>
    <name>ConflictBar</name>
    <message>
        <source>&amp;Compare…</source>
        <translation>&amp;Comparar…</translation>
    </message>
    <message>
        <source>Keep Th&amp;is</source>
        <translation>Conservar est&amp;a</translation>
    </message>
    <message>
        <source>Keep &amp;Other</source>
        <translation>Conservar la &amp;otra</translation>
    </message>
    <message>
        <source>Keep &amp;Both</source>
        <translation>Conservar am&amp;bas</translation>
    </message>
    <message>
        <source>This note was edited on two computers.</source>
        <translation>Esta nota se editó en dos equipos.</translation>
    </message>
    <message numerus="yes">
        <source>This note was edited in %1 places.</source>
        <translation>
            <numerusform>Esta nota se editó en %1 lugar.</numerusform>
            <numerusform>Esta nota se editó en %1 lugares.</numerusform>
        </translation>
    </message>
    <message>
        <source>This note was edited in more places than the list shows. The other edits follow when you have decided about these.</source>
        <translation>Esta nota se editó en más lugares de los que muestra la lista. Las demás versiones aparecerán cuando haya decidido sobre estas.</translation>
    </message>
</context>
<context>
    <name>ConflictDialog</name>
    <message>
        <source>Compare</source>
        <translation>Comparar</translation>
    </message>
    <message>
        <source>This Edit</source>
        <translation>Esta versión</translation>
    </message>
    <message>
        <source>Other Edit</source>
        <translation>La otra versión</translation>
    </message>
    <message>
        <source>date unknown</source>
        <translation>fecha desconocida</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Cerrar</translation>
    </message>
    <message>
        <source>Keep Th&amp;is</source>
        <translation>Conservar &amp;esta</translation>
    </message>
    <message>
        <source>Keep &amp;Other</source>
        <translation>Conservar la &amp;otra</translation>
    </message>
    <message>
        <source>Keep &amp;Both</source>
        <translation>Conservar am&amp;bas</translation>
    </message>
</context>
<context>
    <name>DamagedProfileDialog</name>
    <message>
        <source>You can restore the backup that Velmora made of it on %1; later changes of notes are added to it if they can be read, and are otherwise missing until they are synchronized again. Or you can start with an empty profile and import your databases from the sync locations.</source>
        <translation>Puede restaurar la copia de seguridad que Velmora hizo de él (%1); los cambios posteriores de notas se añaden si se pueden leer; si no, faltarán hasta que vuelvan a sincronizarse. También puede empezar con un perfil vacío e importar sus bases de datos desde las ubicaciones de sincronización.</translation>
    </message>
    <message>
        <source>There is no backup of it that can be restored. You can start with a profile that has the notes that can still be read, and import your other databases from the sync locations.</source>
        <translation>No hay ninguna copia de seguridad de él que se pueda restaurar. Puede empezar con un perfil que contenga las notas que todavía se puedan leer e importar sus otras bases de datos desde las ubicaciones de sincronización.</translation>
    </message>
    <message>
        <source>Make the backups readable and start Velmora again. Or you can start with an empty profile and import your databases from the sync locations.</source>
        <translation>Haga que las copias de seguridad se puedan leer y vuelva a iniciar Velmora. También puede empezar con un perfil vacío e importar sus bases de datos desde las ubicaciones de sincronización.</translation>
    </message>
    <message>
        <source>&amp;Restore the Backup of %1</source>
        <translation>&amp;Restaurar la copia de seguridad del %1</translation>
    </message>
    <message>
        <source>Start from the Sync &amp;Locations</source>
        <translation>Empezar desde las &amp;ubicaciones</translation>
    </message>
    <message>
        <source>Show &amp;Folder</source>
        <translation>Mostrar la &amp;carpeta</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>The present files are kept in the folder “Damaged Profiles”.</source>
        <translation>Los archivos actuales se conservan en la carpeta «Damaged Profiles».</translation>
    </message>
</context>
<context>
    <name>EventLog</name>
    <message>
        <source>Time</source>
        <translation>Hora</translation>
    </message>
    <message>
        <source>What happened</source>
        <translation>Qué ha ocurrido</translation>
    </message>
    <message>
        <source>Succeeded</source>
        <translation>Correcto</translation>
    </message>
    <message>
        <source>Partly</source>
        <translation>Parcial</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fallido</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Detenido</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 received, %2 sent</source>
        <translation>%1 recibidos, %2 enviados</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Resultado</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Duración</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>Base de datos</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Ubicación</translation>
    </message>
    <message>
        <source>Changes</source>
        <translation>Cambios</translation>
    </message>
</context>
<context>
    <name>HistoryDialog</name>
    <message>
        <source>&amp;Restore</source>
        <translation>&amp;Restaurar</translation>
    </message>
    <message>
        <source>Earlier Versions</source>
        <translation>Versiones anteriores</translation>
    </message>
    <message>
        <source>Deleted Notes</source>
        <translation>Notas eliminadas</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Título</translation>
    </message>
    <message>
        <source>When</source>
        <translation>Cuándo</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Cambio</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texto</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Cerrar</translation>
    </message>
    <message numerus="yes">
        <source> days</source>
        <translation>
            <numerusform> día</numerusform>
            <numerusform> días</numerusform>
        </translation>
    </message>
    <message>
        <source>Number of days for which deleted notes and earlier versions are kept</source>
        <translation>Días que se conservan las notas eliminadas y las versiones anteriores</translation>
    </message>
    <message>
        <source> MB</source>
        <translation> MB</translation>
    </message>
    <message>
        <source>Space for deleted notes and earlier versions</source>
        <translation>Espacio para las notas eliminadas y las versiones anteriores</translation>
    </message>
    <message>
        <source>&amp;Keep deleted notes and earlier versions for</source>
        <translation>C&amp;onservar las notas eliminadas y las versiones anteriores durante</translation>
    </message>
    <message>
        <source>and up to</source>
        <translation>y hasta</translation>
    </message>
    <message numerus="yes">
        <source>The new limits remove %1 deleted notes and earlier versions.</source>
        <translation>
            <numerusform>Los nuevos límites eliminan %1 nota eliminada o versión anterior.</numerusform>
            <numerusform>Los nuevos límites eliminan %1 notas eliminadas y versiones anteriores.</numerusform>
        </translation>
    </message>
    <message>
        <source>What is removed cannot be restored any more. If you keep it, the limits stay as they were.</source>
        <translation>Lo que se elimina ya no se podrá restaurar. Si lo conserva, los límites no cambian.</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Eliminar</translation>
    </message>
    <message>
        <source>&amp;Keep</source>
        <translation>&amp;Conservar</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Sin título</translation>
    </message>
    <message>
        <source>No earlier versions of this note are kept.</source>
        <translation>No se conserva ninguna versión anterior de esta nota.</translation>
    </message>
    <message>
        <source>No deleted notes of “%1” are kept.</source>
        <translation>No se conserva ninguna nota eliminada de «%1».</translation>
    </message>
    <message>
        <source>A restored version replaces the note, whose present text is then kept here.</source>
        <translation>Una versión restaurada reemplaza la nota, cuyo texto actual se conserva entonces aquí.</translation>
    </message>
    <message>
        <source>Restored notes are synchronized again. They then also return on your other computers.</source>
        <translation>Las notas restauradas se vuelven a sincronizar. Entonces también reaparecen en sus otros equipos.</translation>
    </message>
    <message>
        <source>Replaced on this computer</source>
        <translation>Reemplazada en este equipo</translation>
    </message>
    <message>
        <source>Deleted on this computer</source>
        <translation>Eliminada en este equipo</translation>
    </message>
    <message>
        <source>Replaced by a synchronization with “%1”</source>
        <translation>Reemplazada por una sincronización con «%1»</translation>
    </message>
    <message>
        <source>Deleted by a synchronization with “%1”</source>
        <translation>Eliminada por una sincronización con «%1»</translation>
    </message>
</context>
<context>
    <name>LaunchOptions</name>
    <message>
        <source>“%1” cannot be the value of “--%2”. Use one of these: %3</source>
        <translation>«%1» no puede ser el valor de «--%2». Use uno de estos: %3</translation>
    </message>
    <message>
        <source>“%1” cannot be the value of “--timeout”. Use a number of seconds greater than 0.</source>
        <translation>«%1» no puede ser el valor de «--timeout». Use un número de segundos mayor que 0.</translation>
    </message>
    <message>
        <source>Notes and documents, synchronized with the locations you choose.</source>
        <translation>Notas y documentos, sincronizados con las ubicaciones que usted elija.</translation>
    </message>
    <message>
        <source>Use the profile in DIR.</source>
        <translation>Usar el perfil de la carpeta DIR.</translation>
    </message>
    <message>
        <source>Write a picture of Sync Preferences to FILE, then exit.</source>
        <translation>Escribir una imagen de las Preferencias de sincronización en FILE y terminar.</translation>
    </message>
    <message>
        <source>Print the profile's databases, locations, states and schedules as JSON, then exit.</source>
        <translation>Mostrar en JSON las bases de datos, las ubicaciones, los estados y las programaciones del perfil y terminar.</translation>
    </message>
    <message>
        <source>Use light or dark colors instead of the desktop's.</source>
        <translation>Usar colores claros u oscuros en lugar de los del escritorio.</translation>
    </message>
    <message>
        <source>Restrict the profile to folders that you have granted access to, or not.</source>
        <translation>Limitar o no el perfil a las carpetas a las que usted ha dado acceso.</translation>
    </message>
    <message>
        <source>With “verify”: synchronize with every location and repair what is damaged there. Velmora must not be running with the same profile.</source>
        <translation>Con «verify»: sincronizar con cada ubicación y reparar lo que esté dañado en ella. Velmora no debe estar en ejecución con el mismo perfil.</translation>
    </message>
    <message>
        <source>With “verify” and “status”: print the result as JSON.</source>
        <translation>Con «verify» y «status»: mostrar el resultado en JSON.</translation>
    </message>
    <message>
        <source>Check the profile and every sync location and print what was found, then exit with 0 if all is well, 1 if there are problems, or 2 if something could not be checked.</source>
        <translation>Comprobar el perfil y cada ubicación de sincronización, mostrar lo encontrado y terminar con 0 si todo está en orden, con 1 si hay problemas o con 2 si algo no se pudo comprobar.</translation>
    </message>
    <message>
        <source>Synchronize these databases, or all, with their locations. Like the next two, this is done by Velmora if it is running. Exits with 0 if all is well, 1 if something failed, or 2 if the command could not be carried out.</source>
        <translation>Sincronizar estas bases de datos, o todas, con sus ubicaciones. Como las dos órdenes siguientes, se encarga a Velmora si está en ejecución. El código de salida es 0 si todo está en orden, 1 si algo ha fallado o 2 si no se pudo ejecutar la orden.</translation>
    </message>
    <message>
        <source>Print whether everything is synchronized. Exits with 1 if something is not.</source>
        <translation>Indicar si todo está sincronizado. El código de salida es 1 si algo no lo está.</translation>
    </message>
    <message>
        <source>Check whether the location with this title or address can be read and written. Exits with 1 if it cannot.</source>
        <translation>Comprobar si se puede leer y escribir en la ubicación con este título o esta dirección. El código de salida es 1 si no se puede.</translation>
    </message>
    <message>
        <source>With “sync”, “status” and “check”: give up after this time and exit with 3. The default is %1 for “sync” and %2 for the others.</source>
        <translation>Con «sync», «status» y «check»: abandonar pasado este tiempo y terminar con 3. El valor predeterminado es %1 para «sync» y %2 para las demás.</translation>
    </message>
    <message>
        <source>With “sync”: if more than half of the notes of a database, and more than ten, would be removed, keep or remove them. Otherwise they are listed, and nothing is changed.</source>
        <translation>Con «sync»: si se fueran a eliminar más de la mitad de las notas de una base de datos, y más de diez, conservarlas o eliminarlas. De lo contrario, se enumeran y no se cambia nada.</translation>
    </message>
    <message>
        <source>Begin a new profile without notes or with examples, and ask no question.</source>
        <translation>Empezar un perfil nuevo sin notas o con ejemplos, sin preguntar.</translation>
    </message>
    <message>
        <source>Open Sync Preferences, too.</source>
        <translation>Abrir también Preferencias de sincronización.</translation>
    </message>
    <message>
        <source>“--profile” needs a folder as its value.</source>
        <translation>«--profile» necesita una carpeta como valor.</translation>
    </message>
    <message>
        <source>“--%1” needs one of these commands: %2</source>
        <translation>«--%1» necesita una de estas órdenes: %2</translation>
    </message>
    <message>
        <source>“--%1” cannot be used with the command “%2”. Leave one of them out.</source>
        <translation>«--%1» no se puede usar con la orden «%2». Omita uno de los dos.</translation>
    </message>
    <message>
        <source>“%1” is not a command. Use one of these: %2</source>
        <translation>«%1» no es una orden. Use una de estas: %2</translation>
    </message>
    <message>
        <source>The command “check” needs one argument: the title or the address of a location.</source>
        <translation>La orden «check» necesita un argumento: el título o la dirección de una ubicación.</translation>
    </message>
    <message>
        <source>The command “%1” has no arguments. Leave “%2” out.</source>
        <translation>La orden «%1» no tiene argumentos. Omita «%2».</translation>
    </message>
</context>
<context>
    <name>LogWindow</name>
    <message>
        <source>Log</source>
        <translation>Registro de actividad</translation>
    </message>
    <message>
        <source>Log entries</source>
        <translation>Entradas del registro de actividad</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Todas</translation>
    </message>
    <message>
        <source>&amp;Database:</source>
        <translation>&amp;Base de datos:</translation>
    </message>
    <message>
        <source>&amp;Location:</source>
        <translation>&amp;Ubicación:</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copiar</translation>
    </message>
    <message>
        <source>Copy the selected entries, or all if none is selected.</source>
        <translation>Copiar las entradas seleccionadas, o todas si no hay ninguna seleccionada.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exportar…</translation>
    </message>
    <message>
        <source>E&amp;xport Note…</source>
        <translation>E&amp;xportar nota…</translation>
    </message>
    <message>
        <source>Your changes in Sync Preferences are not saved.</source>
        <translation>Sus cambios en las Preferencias de sincronización no se han guardado.</translation>
    </message>
    <message>
        <source>&amp;Try Again</source>
        <translation>&amp;Reintentar</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Descartar</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Cancelar</translation>
    </message>
    <message numerus="yes">
        <source>%1 · %2 conflicts</source>
        <translation>
            <numerusform>%1 · %2 conflicto</numerusform>
            <numerusform>%1 · %2 conflictos</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 · cannot be read</source>
        <translation>%1 · no se puede leer</translation>
    </message>
    <message>
        <source>%1 (closed)</source>
        <translation>%1 (cerrada)</translation>
    </message>
    <message>
        <source>Databases</source>
        <translation>Bases de datos</translation>
    </message>
    <message>
        <source>&amp;Database</source>
        <translation>Base de &amp;datos</translation>
    </message>
    <message>
        <source>&amp;New Database…</source>
        <translation>&amp;Nueva base de datos…</translation>
    </message>
    <message>
        <source>&amp;Rename…</source>
        <translation>Cambiar el no&amp;mbre…</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>&amp;Abrir</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Editar</translation>
    </message>
    <message>
        <source>Earlier &amp;Versions…</source>
        <translation>&amp;Versiones anteriores…</translation>
    </message>
    <message>
        <source>&amp;Deleted Notes…</source>
        <translation>Notas &amp;eliminadas…</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Herramientas</translation>
    </message>
    <message>
        <source>Sync &amp;Preferences…</source>
        <translation>&amp;Preferencias de sincronización…</translation>
    </message>
    <message>
        <source>&amp;Log</source>
        <translation>&amp;Registro de actividad</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Órdenes</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Cerrar</translation>
    </message>
    <message>
        <source>New Database</source>
        <translation>Nueva base de datos</translation>
    </message>
    <message>
        <source>Name of the new database:</source>
        <translation>Nombre de la nueva base de datos:</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Cambiar el nombre</translation>
    </message>
    <message>
        <source>New name of the database:</source>
        <translation>Nuevo nombre de la base de datos:</translation>
    </message>
    <message>
        <source>The text of “%1”, which could not be saved before, is saved.</source>
        <translation>El texto de «%1», que antes no se pudo guardar, se ha guardado.</translation>
    </message>
    <message>
        <source>&amp;Delete…</source>
        <translation>E&amp;liminar…</translation>
    </message>
    <message>
        <source>Res&amp;tore Deleted Database</source>
        <translation>Res&amp;taurar la base de datos eliminada</translation>
    </message>
    <message>
        <source>The inbox cannot be deleted, because every profile has one. You can delete its notes.</source>
        <translation>La bandeja de entrada no se puede eliminar, porque cada perfil tiene una. Puede eliminar sus notas.</translation>
    </message>
    <message>
        <source>“%1” was deleted. For ten minutes it can be restored with its notes, ticks and schedules.</source>
        <translation>«%1» se ha eliminado. Durante diez minutos se puede restaurar con sus notas, marcas y programaciones.</translation>
    </message>
    <message>
        <source>&amp;Guide</source>
        <translation>&amp;Guía</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;yuda</translation>
    </message>
    <message>
        <source>&amp;About Velmora</source>
        <translation>&amp;Acerca de Velmora</translation>
    </message>
    <message>
        <source>Notes that are kept in sync between your computers.

License: Apache License 2.0</source>
        <translation>Notas que se sincronizan entre sus equipos.

Licencia: Apache License 2.0</translation>
    </message>
    <message>
        <source>&amp;Sync Now</source>
        <translation>S&amp;incronizar</translation>
    </message>
    <message>
        <source>“%1” is not synchronized with any location. Tick one in Sync Preferences.</source>
        <translation>«%1» no se sincroniza con ninguna ubicación. Marque una en Preferencias de sincronización.</translation>
    </message>
</context>
<context>
    <name>NotesModel</name>
    <message>
        <source>Untitled</source>
        <translation>Sin título</translation>
    </message>
</context>
<context>
    <name>NotesView</name>
    <message>
        <source>A title has at most %L1 characters, so not all of what you entered was added to it. Enter it into the text of the note.</source>
        <translation>Un título tiene como máximo %L1 caracteres, por lo que no se ha añadido todo lo que ha escrito. Escríbalo en el texto de la nota.</translation>
    </message>
    <message>
        <source>New &amp;Note</source>
        <translation>&amp;Nueva nota</translation>
    </message>
    <message>
        <source>De&amp;lete Note</source>
        <translation>E&amp;liminar la nota</translation>
    </message>
    <message>
        <source>&amp;Undo Delete Note</source>
        <translation>&amp;Deshacer la eliminación de la nota</translation>
    </message>
    <message>
        <source>&amp;Undo Keep</source>
        <translation>Deshacer la elección de ver&amp;sión</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notas</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Título</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texto</translation>
    </message>
    <message>
        <source>This note cannot be edited here: it contains something that the editor would change, or too many or too long lines. To go on with it, copy its text and paste it into a new note.</source>
        <translation>Esta nota no se puede editar aquí: contiene algo que el editor cambiaría, o demasiadas líneas o líneas demasiado largas. Para seguir trabajando en ella, copie el texto y péguelo en una nota nueva.</translation>
    </message>
    <message>
        <source>This note is not saved: %1</source>
        <translation>Esta nota no se ha guardado: %1</translation>
    </message>
    <message>
        <source>New Note</source>
        <translation>Nueva nota</translation>
    </message>
    <message>
        <source>The text was not inserted, because the note would be too long to be edited: it may have %L1 lines of at most %L2 characters, and %L3 characters in all. Insert a part of it, or several lines.</source>
        <translation>El texto no se ha insertado, porque la nota sería demasiado larga para editarla: puede tener %L1 líneas de %L2 caracteres como máximo, y %L3 caracteres en total. Inserte una parte o varias líneas.</translation>
    </message>
    <message>
        <source>Cop&amp;y Text</source>
        <translation>Copiar el te&amp;xto</translation>
    </message>
    <message>
        <source>Try A&amp;gain</source>
        <translation>Re&amp;intentar</translation>
    </message>
    <message>
        <source>Not all notes are shown, because some cannot be read. %1</source>
        <translation>No se muestran todas las notas, porque algunas no se pueden leer. %1</translation>
    </message>
</context>
<context>
    <name>PlugIns</name>
    <message>
        <source>A part of Velmora cannot be loaded: %1. Install Velmora again.</source>
        <translation>No se puede cargar una parte de Velmora: %1. Vuelva a instalar Velmora.</translation>
    </message>
</context>
<context>
    <name>PreferencesWindow</name>
    <message>
        <source>“%1” was removed. Its ticks and schedules can be restored with it.</source>
        <translation>«%1» se ha quitado. Se puede restaurar con sus marcas y programaciones.</translation>
    </message>
    <message>
        <source>Sync Preferences</source>
        <translation>Preferencias de sincronización</translation>
    </message>
</context>
<context>
    <name>RemovalDialog</name>
    <message numerus="yes">
        <source>The synchronization with “%1” would remove %2 of the %3 notes in “%4”.</source>
        <translation>
            <numerusform>La sincronización con «%1» eliminaría %2 nota de %3 en «%4».</numerusform>
            <numerusform>La sincronización con «%1» eliminaría %2 de las %3 notas de «%4».</numerusform>
        </translation>
    </message>
    <message>
        <source>Notes that would be removed</source>
        <translation>Notas que se eliminarían</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Sin título</translation>
    </message>
    <message numerus="yes">
        <source>… and %1 more</source>
        <translation>
            <numerusform>… y %1 más</numerusform>
            <numerusform>… y %1 más</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Keep the Notes</source>
        <translation>&amp;Conservar las notas</translation>
    </message>
    <message>
        <source>&amp;Remove Them</source>
        <translation>&amp;Eliminar las notas</translation>
    </message>
    <message>
        <source>Decide &amp;Later</source>
        <translation>Decidir &amp;más tarde</translation>
    </message>
    <message>
        <source>Nothing has been changed yet. If you keep the notes, they also return on your other computers. If you remove them, you find them in “Deleted Notes” for a while.</source>
        <translation>Todavía no se ha cambiado nada. Si conserva las notas, también reaparecen en sus otros equipos. Si las elimina, las encontrará durante un tiempo en «Notas eliminadas».</translation>
    </message>
    <message>
        <source>Nothing has been changed yet. “velmora sync --removals keep” keeps these notes, also on your other computers; “--removals remove” removes them.</source>
        <translation>Todavía no se ha cambiado nada. «velmora sync --removals keep» conserva estas notas, también en sus otros equipos; «--removals remove» las elimina.</translation>
    </message>
</context>
<context>
    <name>UnsavedTextDialog</name>
    <message>
        <source>Your text is not saved.</source>
        <translation>Su texto no se ha guardado.</translation>
    </message>
    <message>
        <source>&amp;Try Again</source>
        <translation>&amp;Reintentar</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Descartar</translation>
    </message>
    <message>
        <source>&amp;Copy Text</source>
        <translation>&amp;Copiar el texto</translation>
    </message>
    <message>
        <source>&amp;Keep Editing</source>
        <translation>&amp;Seguir editando</translation>
    </message>
</context>
<context>
    <name>UnsavedTexts</name>
    <message>
        <source>The folder “%1”, which may contain texts that were not saved, cannot be read.</source>
        <translation>No se puede leer la carpeta «%1», que puede contener textos sin guardar.</translation>
    </message>
    <message>
        <source>Check its permissions and its disk, and start Velmora again.</source>
        <translation>Compruebe sus permisos y su disco y vuelva a iniciar Velmora.</translation>
    </message>
    <message>
        <source>The file is damaged. Copy from it what you need, and remove it.</source>
        <translation>El archivo está dañado. Copie de él lo que necesite y elimínelo.</translation>
    </message>
    <message>
        <source>The text of “%1” cannot be kept for the next start either.</source>
        <translation>El texto de «%1» tampoco se puede conservar hasta el próximo inicio.</translation>
    </message>
    <message>
        <source>Make room on the disk, or copy the text.</source>
        <translation>Libere espacio en el disco o copie el texto.</translation>
    </message>
    <message>
        <source>“%1”: %2</source>
        <translation>«%1»: %2</translation>
    </message>
    <message>
        <source>Texts that were not saved cannot be restored. They are kept, and Velmora tries again at each start.</source>
        <translation>Hay textos sin guardar que no se pueden restaurar. Se conservan, y Velmora vuelve a intentarlo en cada inicio.</translation>
    </message>
    <message>
        <source>The file “%1”, which contains a text that was not saved, cannot be removed: %2. Remove it yourself, or the text returns at the next start.</source>
        <translation>No se puede eliminar el archivo «%1», que contiene un texto que no se guardó: %2. Elimínelo usted mismo o el texto reaparecerá en el próximo inicio.</translation>
    </message>
    <message>
        <source>The file cannot be read (%1). Check its permissions and its disk.</source>
        <translation>El archivo no se puede leer (%1). Compruebe sus permisos y su disco.</translation>
    </message>
</context>
<context>
    <name>VelmoraApplication</name>
    <message>
        <source>Error again:</source>
        <translation>Error repetido:</translation>
    </message>
    <message>
        <source>Internal error:</source>
        <translation>Error interno:</translation>
    </message>
    <message>
        <source>An internal error occurred, and Velmora cancelled the current action.</source>
        <translation>Se ha producido un error interno y Velmora ha cancelado la acción actual.</translation>
    </message>
    <message>
        <source>A synchronization would remove many notes.</source>
        <translation>Una sincronización eliminaría muchas notas.</translation>
    </message>
</context>
<context>
    <name>VerificationOutput</name>
    <message>
        <source>%1: no problems (%2).</source>
        <translation>%1: ningún problema (%2).</translation>
    </message>
    <message>
        <source>%1: problems were found (%2).</source>
        <translation>%1: se han encontrado problemas (%2).</translation>
    </message>
    <message>
        <source>%1: could not be checked.</source>
        <translation>%1: no se pudo comprobar.</translation>
    </message>
    <message>
        <source>Everything is in order.</source>
        <translation>Todo está en orden.</translation>
    </message>
    <message>
        <source>Problems were found. “velmora verify --repair” synchronizes and repairs what this computer can repair.</source>
        <translation>Se han encontrado problemas. «velmora verify --repair» sincroniza y repara lo que este equipo puede reparar.</translation>
    </message>
    <message>
        <source>Problems remain. Do what is said above, then run “velmora verify” again.</source>
        <translation>Quedan problemas. Haga lo que se indica arriba y ejecute de nuevo «velmora verify».</translation>
    </message>
    <message>
        <source>Some parts could not be checked. Remove the cause that is named above, then try again.</source>
        <translation>Algunas partes no se pudieron comprobar. Elimine la causa indicada arriba e inténtelo de nuevo.</translation>
    </message>
</context>
<context>
    <name>ProcessProtection</name>
    <message>
        <source>Other programs of yours may be able to read passwords in the memory of Velmora, because the system did not let it protect its memory. Run no programs that you do not trust beside Velmora.</source>
        <translation>Es posible que otros programas suyos puedan leer contraseñas en la memoria de Velmora, porque el sistema no le ha permitido protegerla. No ejecute junto a Velmora programas en los que no confíe.</translation>
    </message>
</context>
<context>
    <name>RunningInstance</name>
    <message>
        <source>A second start of Velmora will not find these windows: %1 cannot be used (%2). Check the permissions and the space of its folder, then start Velmora again.</source>
        <translation>Un segundo inicio de Velmora no encontrará estas ventanas: no se puede usar %1 (%2). Compruebe los permisos y el espacio de su carpeta y vuelva a iniciar Velmora.</translation>
    </message>
    <message>
        <source>Velmora has ended before the command was completed. Try again.</source>
        <translation>Velmora ha terminado antes de que se completara la orden. Vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>Velmora, which is running, has another version. Quit it, then try again.</source>
        <translation>Velmora ya se está ejecutando en otra versión. Salga de él y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>Velmora, which is running, takes too long and continues with the command. Try again later, or state a longer time with --timeout.</source>
        <translation>Velmora, que está en ejecución, tarda demasiado y continúa con la orden. Vuelva a intentarlo más tarde o indique un tiempo mayor con --timeout.</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>The picture cannot be written to %1. Check the folder and its permissions, or choose another file.</source>
        <translation>No se puede escribir la imagen en %1. Compruebe la carpeta y sus permisos o elija otro archivo.</translation>
    </message>
    <message>
        <source>There is no display to open a window on. A picture of Sync Preferences is in this file:</source>
        <translation>No hay ninguna pantalla en la que abrir una ventana. En este archivo hay una imagen de las Preferencias de sincronización:</translation>
    </message>
</context>
<context>
    <name>SynchronizationSummary</name>
    <message>
        <source>%1 · next: %2</source>
        <translation>%1 · próxima: %2</translation>
    </message>
    <message>
        <source>Nothing is synchronized: no database has a ticked location</source>
        <translation>No se sincroniza nada: ninguna base de datos tiene una ubicación marcada</translation>
    </message>
    <message>
        <source>All up to date</source>
        <translation>Todo está actualizado</translation>
    </message>
    <message>
        <source>“%1” has not been synchronized with “%2” yet</source>
        <translation>«%1» aún no se ha sincronizado con «%2»</translation>
    </message>
    <message>
        <source>“%1” has changes that are not synchronized with “%2” yet</source>
        <translation>«%1» tiene cambios que aún no se han sincronizado con «%2»</translation>
    </message>
    <message>
        <source>There are changes that are not synchronized yet</source>
        <translation>Hay cambios que aún no se han sincronizado</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %2 synchronizations failed</source>
        <translation>
            <numerusform>Ha fallado %1 sincronización de %2</numerusform>
            <numerusform>Han fallado %1 sincronizaciones de %2</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” is not synchronized with “%2”</source>
        <translation>«%1» no está sincronizado con «%2»</translation>
    </message>
    <message>
        <source>Some items of “%1” could not be synchronized with “%2”</source>
        <translation>Algunos elementos de «%1» no se pudieron sincronizar con «%2»</translation>
    </message>
    <message numerus="yes">
        <source>Some items failed in %1 of %2 synchronizations</source>
        <translation>
            <numerusform>Fallaron algunos elementos en %1 de %2 sincronizaciones</numerusform>
            <numerusform>Fallaron algunos elementos en %1 de %2 sincronizaciones</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SynchronizationMonitor</name>
    <message>
        <source>%1 %2 of %3</source>
        <translation>%1 %2 de %3</translation>
    </message>
</context>
<context>
    <name>StatusLine</name>
    <message>
        <source>&amp;Stop</source>
        <translation>De&amp;tener</translation>
    </message>
    <message>
        <source>&amp;What Failed…</source>
        <translation>&amp;Ver los errores…</translation>
    </message>
    <message>
        <source>Progress of the synchronization</source>
        <translation>Progreso de la sincronización</translation>
    </message>
    <message>
        <source>Stop all synchronizations. The next one continues where they stopped.</source>
        <translation>Detener todas las sincronizaciones. La próxima continuará donde se detuvieron.</translation>
    </message>
</context>
<context>
    <name>QuitSynchronization</name>
    <message>
        <source>“%1” with “%2”</source>
        <translation>«%1» con «%2»</translation>
    </message>
    <message>
        <source>Quit Velmora</source>
        <translation>Salir de Velmora</translation>
    </message>
    <message>
        <source>“%1” has changes that are not synchronized with “%2”. Synchronize them before quitting?</source>
        <translation>«%1» tiene cambios que no se han sincronizado con «%2». ¿Desea sincronizarlos antes de salir?</translation>
    </message>
    <message>
        <source>There are changes that are not synchronized. Synchronize them before quitting?</source>
        <translation>Hay cambios que no se han sincronizado. ¿Desea sincronizarlos antes de salir?</translation>
    </message>
    <message numerus="yes">
        <source>and %1 more</source>
        <translation>
            <numerusform>y %1 más</numerusform>
            <numerusform>y %1 más</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>&amp;Synchronize and Quit</source>
        <translation>S&amp;incronizar y salir</translation>
    </message>
    <message>
        <source>Some changes could not be synchronized. They are saved on this computer. Quit anyway?</source>
        <translation>Algunos cambios no se pudieron sincronizar. Están guardados en este equipo. ¿Desea salir de todos modos?</translation>
    </message>
</context>
<context>
    <name>QuitProgressDialog</name>
    <message>
        <source>Quit Velmora</source>
        <translation>Salir de Velmora</translation>
    </message>
    <message>
        <source>Progress of the synchronization</source>
        <translation>Progreso de la sincronización</translation>
    </message>
    <message>
        <source>&amp;Quit Now</source>
        <translation>&amp;Salir ahora</translation>
    </message>
    <message>
        <source>Stop the synchronization and quit. The next one continues where it stopped.</source>
        <translation>Detener la sincronización y salir. La próxima continuará donde se detuvo.</translation>
    </message>
    <message>
        <source>Synchronizing before quitting…</source>
        <translation>Sincronizando antes de salir…</translation>
    </message>
</context>
<context>
    <name>ErrorBoxes</name>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Error %1 of %2</source>
        <translation>Error %1 de %2</translation>
    </message>
</context>
<context>
    <name>LogFile</name>
    <message>
        <source>The log cannot be saved in the file “%1” (%2). Check its permissions and the space on its disk.</source>
        <translation>El registro de actividad no se puede guardar en el archivo «%1» (%2). Compruebe sus permisos y el espacio en su disco.</translation>
    </message>
    <message>
        <source>Lines of the log file “%1” that cannot be read and are not shown: %2. Check its disk.</source>
        <translation>Líneas del archivo de registro «%1» que no se pueden leer y no se muestran: %2. Compruebe su disco.</translation>
    </message>
</context>
<context>
    <name>ShellCommandLine</name>
    <message>
        <source>There is no profile in the folder “%1”. State another one with --profile.</source>
        <translation>No hay ningún perfil en la carpeta «%1». Indique otra con --profile.</translation>
    </message>
    <message>
        <source>The command takes longer than the allowed %1 s and was stopped. Try again, or state a longer time with --timeout.</source>
        <translation>La orden tarda más de los %1 s permitidos y se ha detenido. Vuelva a intentarlo o indique un tiempo mayor con --timeout.</translation>
    </message>
</context>
<context>
    <name>ShellCommandRunner</name>
    <message>
        <source>“%1” with “%2”</source>
        <translation>«%1» con «%2»</translation>
    </message>
    <message>
        <source>never synchronized</source>
        <translation>nunca sincronizado</translation>
    </message>
    <message>
        <source>has changes since %1</source>
        <translation>con cambios desde la sincronización (%1)</translation>
    </message>
    <message>
        <source>up to date since %1</source>
        <translation>actualizado (sincronización: %1)</translation>
    </message>
    <message>
        <source>%1: the synchronization was stopped.</source>
        <translation>%1: la sincronización se ha detenido.</translation>
    </message>
    <message>
        <source>%1: synchronized (%2 received, %3 sent)</source>
        <translation>%1: sincronizado (%2 recibidos, %3 enviados)</translation>
    </message>
    <message>
        <source>There is no database “%1”. “velmora --describe” lists all.</source>
        <translation>No hay ninguna base de datos «%1». «velmora --describe» las muestra todas.</translation>
    </message>
    <message>
        <source>Nothing is synchronized. Tick a location in Sync Preferences first.</source>
        <translation>No se sincroniza nada. Marque primero una ubicación en las Preferencias de sincronización.</translation>
    </message>
    <message>
        <source>There is no location “%1”. State the title or address of one of these:</source>
        <translation>No hay ninguna ubicación «%1». Indique el título o la dirección de una de estas:</translation>
    </message>
    <message>
        <source>Notes of “%1” that “%2” would have removed and that were kept (%3 of %4):</source>
        <translation>Notas de «%1» que «%2» habría eliminado y que se han conservado (%3 de %4):</translation>
    </message>
    <message>
        <source>Notes of “%1” that “%2” has removed (%3 of %4; “Deleted Notes” in the menu “Edit” restores them):</source>
        <translation>Notas de «%1» que «%2» ha eliminado (%3 de %4; «Notas eliminadas», en el menú «Editar», las restaura):</translation>
    </message>
</context>
<context>
    <name>TrayIcon</name>
    <message>
        <source>&amp;Sync All Now</source>
        <translation>Sincronizar &amp;todo ahora</translation>
    </message>
    <message>
        <source>&amp;Pause for an Hour</source>
        <translation>&amp;Pausar durante una hora</translation>
    </message>
    <message>
        <source>Pause until &amp;Tomorrow</source>
        <translation>Pausar hasta &amp;mañana</translation>
    </message>
    <message>
        <source>&amp;Resume</source>
        <translation>&amp;Reanudar</translation>
    </message>
    <message>
        <source>Show &amp;Velmora</source>
        <translation>Mostrar &amp;Velmora</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>En pausa</translation>
    </message>
</context>
<context>
    <name>BackgroundMode</name>
    <message>
        <source>Keep Synchronizing in the &amp;Background</source>
        <translation>Seguir sincronizando en &amp;segundo plano</translation>
    </message>
    <message>
        <source>Velmora cannot stay in the background, because this desktop shows no icons of programs. Turn them on in the desktop's settings and try again.</source>
        <translation>Velmora no puede permanecer en segundo plano, porque este escritorio no muestra iconos de programas. Actívelos en los ajustes del escritorio y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>A synchronization failed</source>
        <translation>Ha fallado una sincronización</translation>
    </message>
    <message>
        <source>Velmora asks for a decision</source>
        <translation>Velmora espera una decisión</translation>
    </message>
    <message>
        <source>A note was edited on two computers</source>
        <translation>Una nota se editó en dos equipos</translation>
    </message>
    <message>
        <source>Velmora has kept both edits. Open the note to choose one.</source>
        <translation>Velmora ha conservado las dos versiones. Abra la nota para elegir una.</translation>
    </message>
    <message>
        <source>&amp;Hide Window</source>
        <translation>&amp;Ocultar la ventana</translation>
    </message>
    <message>
        <source>Velmora cannot stay in the background at present, because the desktop shows no icons of programs. It ends when its window is closed. Turn the icons on in the desktop's settings, and start Velmora again.</source>
        <translation>Velmora no puede permanecer en segundo plano por ahora, porque el escritorio no muestra iconos de programas. Termina cuando se cierra su ventana. Active los iconos en los ajustes del escritorio y vuelva a iniciar Velmora.</translation>
    </message>
    <message>
        <source>Do Not Stay in the Background</source>
        <translation>No permanecer en segundo plano</translation>
    </message>
</context>
<context>
    <name>FailureSteps</name>
    <message>
        <source>Edit Location…</source>
        <translation>Editar la ubicación…</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Reintentar</translation>
    </message>
    <message>
        <source>Show Folder</source>
        <translation>Mostrar la carpeta</translation>
    </message>
</context>
<context>
    <name>NoteExport</name>
    <message>
        <source>The file “%1” could not be written. Choose another folder.</source>
        <translation>No se ha podido escribir el archivo «%1». Elija otra carpeta.</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportar</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notas</translation>
    </message>
</context>
<context>
    <name>FirstStartDialog</name>
    <message>
        <source>Start</source>
        <translation>Empezar</translation>
    </message>
    <message>
        <source>Welcome to Velmora</source>
        <translation>Le damos la bienvenida a Velmora</translation>
    </message>
    <message>
        <source>You can change this later in Sync Preferences.</source>
        <translation>Podrá cambiarlo más tarde en Preferencias de sincronización.</translation>
    </message>
    <message>
        <source>Where should your notes be kept in sync?</source>
        <translation>¿Dónde desea sincronizar sus notas?</translation>
    </message>
    <message>
        <source>Decide later</source>
        <translation>Decidir más tarde</translation>
    </message>
    <message>
        <source>How do you want to begin?</source>
        <translation>¿Cómo desea empezar?</translation>
    </message>
    <message>
        <source>Without notes</source>
        <translation>Sin notas</translation>
    </message>
    <message>
        <source>With examples</source>
        <translation>Con ejemplos</translation>
    </message>
    <message>
        <source>With databases from another computer</source>
        <translation>Con bases de datos de otro equipo</translation>
    </message>
    <message>
        <source>Choose first where these databases are.</source>
        <translation>Elija primero dónde están estas bases de datos.</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>&amp;Undo</source>
        <translation>Deshace&amp;r</translation>
    </message>
</context>
<context>
    <name>DeletionQuestion</name>
    <message>
        <source>Delete the database “%1”?</source>
        <translation>¿Eliminar la base de datos «%1»?</translation>
    </message>
    <message numerus="yes">
        <source>Its %1 notes are deleted on this computer, with their earlier versions.</source>
        <translation>
            <numerusform>Se elimina su %1 nota en este equipo, con sus versiones anteriores.</numerusform>
            <numerusform>Se eliminan sus %1 notas en este equipo, con sus versiones anteriores.</numerusform>
        </translation>
    </message>
    <message>
        <source>Its notes are deleted on this computer, with their earlier versions.</source>
        <translation>Sus notas se eliminan en este equipo, con sus versiones anteriores.</translation>
    </message>
    <message>
        <source>It has no notes.</source>
        <translation>No contiene notas.</translation>
    </message>
    <message>
        <source>You can undo this for ten minutes, unless you quit Velmora.</source>
        <translation>Puede deshacerlo durante diez minutos, mientras no salga de Velmora.</translation>
    </message>
    <message>
        <source>These locations keep the database, and you can import it from them: %1.</source>
        <translation>Estas ubicaciones conservan la base de datos y puede importarla desde ellas: %1.</translation>
    </message>
    <message>
        <source>Your latest changes are not there yet: %1.</source>
        <translation>Sus últimos cambios aún no están allí: %1.</translation>
    </message>
    <message>
        <source>No sync location has a copy of it. To keep one, choose “Database”, “Export…” first.</source>
        <translation>Ninguna ubicación de sincronización tiene una copia. Para conservar una, elija antes «Base de datos», «Exportar…».</translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>«%1»</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Eliminar</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Cancelar</translation>
    </message>
</context>
<context>
    <name>Guide</name>
    <message>
        <source>The guide “%1” cannot be opened. Open it in a browser, or install Velmora again if it is missing.</source>
        <translation>No se puede abrir la guía «%1». Ábrala en un navegador o vuelva a instalar Velmora si falta.</translation>
    </message>
</context>
</TS>
