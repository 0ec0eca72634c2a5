<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES" sourcelanguage="en_US">
<context>
    <name>Sync</name>
    <message>
        <source>Other computers do not find this one by themselves, because the service “Avahi” is not running on this computer. Start it, or enter this address and port on the other computer under “Add”, “Direct Connection…”.</source>
        <translation>Los demás equipos no encuentran este por sí mismos, porque el servicio «Avahi» no está en ejecución en este equipo. Inícielo, o introduzca esta dirección y este puerto en el otro equipo en «Añadir», «Conexión directa…».</translation>
    </message>
    <message>
        <source>“%1” was not revoked and may still connect. %2 Start the password service, and revoke it again.</source>
        <translation>«%1» no se ha revocado y aún puede conectarse. %2 Inicie el servicio de contraseñas y vuelva a revocarlo.</translation>
    </message>
    <message>
        <source>Your changes to the sync locations could not be saved, and the reason is not known. Check the space on the disk, and try again.</source>
        <translation>No se pudieron guardar sus cambios en las ubicaciones de sincronización, y no se conoce el motivo. Compruebe el espacio en el disco y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>The computers that may connect cannot be listed. %1 Start or unlock the password service, and open this window again.</source>
        <translation>No se pueden mostrar los equipos que pueden conectarse. %1 Inicie o desbloquee el servicio de contraseñas y vuelva a abrir esta ventana.</translation>
    </message>
    <message>
        <source>Computers cannot be found, because the service “Avahi” is not running on this computer. Start it, or enter the address of the other computer.</source>
        <translation>No se pueden encontrar equipos, porque el servicio «Avahi» no está en ejecución en este equipo. Inícielo o introduzca la dirección del otro equipo.</translation>
    </message>
    <message>
        <source>“%1” is not a valid host. Enter a name, such as “computer.local”, or an IP address.</source>
        <translation>«%1» no es un host válido. Introduzca un nombre, como «computer.local», o una dirección IP.</translation>
    </message>
    <message>
        <source>Enter a server and a store name.</source>
        <translation>Introduzca un servidor y el nombre de un almacén.</translation>
    </message>
    <message>
        <source>“%1” is not a valid server name. Enter a name such as “dav.example.org”.</source>
        <translation>«%1» no es un nombre de servidor válido. Introduzca un nombre como «dav.example.org».</translation>
    </message>
    <message>
        <source>A server name contains no blanks. Remove the blank from “%1”.</source>
        <translation>Un nombre de servidor no contiene espacios. Quite el espacio de «%1».</translation>
    </message>
    <message>
        <source>A server name cannot contain “%1”.</source>
        <translation>Un nombre de servidor no puede contener «%1».</translation>
    </message>
    <message>
        <source>Enter “%1” instead.</source>
        <translation>Introduzca «%1» en su lugar.</translation>
    </message>
    <message>
        <source>The server field contains a complete address. Click “Fill In the Fields”.</source>
        <translation>El campo «Servidor» contiene una dirección completa. Haga clic en «Rellenar los campos».</translation>
    </message>
    <message>
        <source>The port is a number from 1 to 65535. Correct it or leave it empty.</source>
        <translation>El puerto es un número de 1 a 65535. Corríjalo o déjelo vacío.</translation>
    </message>
    <message>
        <source>The folder and the store name cannot contain “?”.</source>
        <translation>La carpeta y el nombre del almacén no pueden contener «?».</translation>
    </message>
    <message>
        <source>Address: %1</source>
        <translation>Dirección: %1</translation>
    </message>
    <message>
        <source>Fill In the Fields</source>
        <translation>Rellenar los campos</translation>
    </message>
    <message>
        <source>Distribute the address in the server field over the fields</source>
        <translation>Repartir en los campos la dirección del campo «Servidor»</translation>
    </message>
    <message>
        <source>“%1” does not return what was written to it. Check the server or the disk, or use another location.</source>
        <translation>«%1» no devuelve lo que se escribió en él. Compruebe el servidor o el disco, o use otra ubicación.</translation>
    </message>
    <message numerus="yes">
        <source>%1 databases</source>
        <translation>
            <numerusform>%1 base de datos</numerusform>
            <numerusform>%1 bases de datos</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” can be read. %2.</source>
        <translation>«%1» se puede leer. %2.</translation>
    </message>
    <message>
        <source>“%1” can be read and written. %2.</source>
        <translation>«%1» se puede leer y escribir. %2.</translation>
    </message>
    <message>
        <source>“%1” can be read and written. %2, %3.</source>
        <translation>«%1» se puede leer y escribir. %2, %3.</translation>
    </message>
    <message>
        <source>“%1” can be read, but not written. %2</source>
        <translation>«%1» se puede leer, pero no escribir. %2</translation>
    </message>
    <message>
        <source>“%1” takes too long to respond. Check whether it is available, and try again.</source>
        <translation>«%1» tarda demasiado en responder. Compruebe si está disponible y vuelva a intentarlo.</translation>
    </message>
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
    <message>
        <source>Show Log</source>
        <translation>Mostrar el registro de actividad</translation>
    </message>
    <message>
        <source>%1 %2 of %3</source>
        <translation>%1 %2 de %3</translation>
    </message>
    <message>
        <source>Progress of the synchronization</source>
        <translation>Progreso de la sincronización</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Detener</translation>
    </message>
    <message>
        <source>Stop all synchronizations. The next one continues where they stopped.</source>
        <translation>Detener todas las sincronizaciones. La próxima continuará donde se detuvieron.</translation>
    </message>
    <message>
        <source>damaged record</source>
        <translation>registro dañado</translation>
    </message>
    <message>
        <source>invalid name or text</source>
        <translation>nombre o texto no válido</translation>
    </message>
    <message>
        <source>a file is missing</source>
        <translation>falta un archivo</translation>
    </message>
    <message>
        <source>a file cannot be used</source>
        <translation>un archivo no se puede usar</translation>
    </message>
    <message>
        <source>a newer version is needed</source>
        <translation>se necesita una versión más reciente</translation>
    </message>
    <message>
        <source>not shared by the server</source>
        <translation>no compartida por el servidor</translation>
    </message>
    <message>
        <source>wrong password</source>
        <translation>contraseña incorrecta</translation>
    </message>
    <message>
        <source>access denied</source>
        <translation>acceso denegado</translation>
    </message>
    <message>
        <source>read-only</source>
        <translation>de solo lectura</translation>
    </message>
    <message>
        <source>no space left</source>
        <translation>no queda espacio</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>no disponible</translation>
    </message>
    <message>
        <source>certificate not trusted</source>
        <translation>certificado sin confianza</translation>
    </message>
    <message>
        <source>waiting for your decision</source>
        <translation>a la espera de su decisión</translation>
    </message>
    <message>
        <source>the profile cannot be saved</source>
        <translation>no se puede guardar el perfil</translation>
    </message>
    <message>
        <source>failed %1</source>
        <translation>fallo: %1</translation>
    </message>
    <message>
        <source>failed %1: %2</source>
        <translation>fallo (%1): %2</translation>
    </message>
    <message>
        <source>never synchronized</source>
        <translation>nunca sincronizada</translation>
    </message>
    <message>
        <source>synchronized %1</source>
        <translation>sincronizada: %1</translation>
    </message>
    <message numerus="yes">
        <source>Synchronized with %1 of %2 locations · %3</source>
        <translation>
            <numerusform>Sincronizada con %1 ubicación de %2 · %3</numerusform>
            <numerusform>Sincronizada con %1 de %2 ubicaciones · %3</numerusform>
        </translation>
    </message>
    <message>
        <source>Synchronization failed</source>
        <translation>La sincronización ha fallado</translation>
    </message>
    <message>
        <source>Synchronization failed · last synchronized %1</source>
        <translation>La sincronización ha fallado · última sincronización: %1</translation>
    </message>
    <message>
        <source>Not yet synchronized with the ticked locations</source>
        <translation>Aún no sincronizada con las ubicaciones marcadas</translation>
    </message>
    <message>
        <source>Tick a location first. A schedule belongs to the locations that are ticked.</source>
        <translation>Marque primero una ubicación. Una programación se aplica a las ubicaciones marcadas.</translation>
    </message>
    <message>
        <source>Choose at least one day. Otherwise nothing is synchronized.</source>
        <translation>Elija al menos un día. De lo contrario, no se sincroniza nada.</translation>
    </message>
    <message>
        <source>The last synchronization failed. Show what failed.</source>
        <translation>La última sincronización ha fallado. Mostrar el error.</translation>
    </message>
    <message>
        <source>Show what failed with “%1”</source>
        <translation>Mostrar el error con «%1»</translation>
    </message>
    <message>
        <source>Synchronizes “%1” with “%2”</source>
        <translation>Sincroniza «%1» con «%2»</translation>
    </message>
    <message>
        <source>Unavailable</source>
        <translation>no disponible</translation>
    </message>
    <message>
        <source>Dropbox</source>
        <translation>Dropbox</translation>
    </message>
    <message>
        <source>Local Sync Store</source>
        <translation>Almacén de sincronización local</translation>
    </message>
    <message>
        <source>WebDAV</source>
        <translation>WebDAV</translation>
    </message>
    <message>
        <source>Dropbox Location</source>
        <translation>Ubicación de Dropbox</translation>
    </message>
    <message>
        <source>Sign In…</source>
        <translation>Iniciar sesión…</translation>
    </message>
    <message>
        <source>Reading the password…</source>
        <translation>Leyendo la contraseña…</translation>
    </message>
    <message>
        <source>%1 %2 To replace the password, enter it again.</source>
        <translation>%1 %2 Para reemplazar la contraseña, vuelva a introducirla.</translation>
    </message>
    <message>
        <source>Direct Connection</source>
        <translation>Conexión directa</translation>
    </message>
    <message>
        <source>Unknown Location</source>
        <translation>Ubicación desconocida</translation>
    </message>
    <message>
        <source>No Address</source>
        <translation>Sin dirección</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>Sincronizar</translation>
    </message>
    <message>
        <source>Not authorized</source>
        <translation>No autorizado</translation>
    </message>
    <message>
        <source>Authorizing…</source>
        <translation>Autorizando…</translation>
    </message>
    <message>
        <source>Authorized</source>
        <translation>Autorizado</translation>
    </message>
    <message>
        <source>Give Velmora access to any folder where indexed items may be kept.</source>
        <translation>Dé a Velmora acceso a todas las carpetas en las que pueda haber archivos indexados.</translation>
    </message>
    <message>
        <source>Success</source>
        <translation>Correcto</translation>
    </message>
    <message>
        <source>Parameter Error</source>
        <translation>Error de parámetro</translation>
    </message>
    <message>
        <source>Illegal parameter supplied to encryption/decryption algorithm</source>
        <translation>Se ha pasado un parámetro no permitido al algoritmo de cifrado o descifrado</translation>
    </message>
    <message>
        <source>Buffer Too Small</source>
        <translation>Búfer demasiado pequeño</translation>
    </message>
    <message>
        <source>Insufficient buffer provided for specified operation</source>
        <translation>El búfer no es suficiente para la operación solicitada</translation>
    </message>
    <message>
        <source>Memory Failure</source>
        <translation>Error de memoria</translation>
    </message>
    <message>
        <source>Failed to allocate memory</source>
        <translation>No se pudo asignar memoria</translation>
    </message>
    <message>
        <source>Alignment Error</source>
        <translation>Error de alineación</translation>
    </message>
    <message>
        <source>Input size to encryption algorithm was not aligned correctly</source>
        <translation>El tamaño de los datos de entrada del algoritmo de cifrado no está bien alineado</translation>
    </message>
    <message>
        <source>Decode Error</source>
        <translation>Error de descodificación</translation>
    </message>
    <message>
        <source>Input data did not decode or decrypt correctly</source>
        <translation>Los datos de entrada no se pudieron descodificar o descifrar correctamente</translation>
    </message>
    <message>
        <source>Unimplemented Function</source>
        <translation>Función no disponible</translation>
    </message>
    <message>
        <source>Function not implemented for the current algorithm</source>
        <translation>La función no existe para el algoritmo actual</translation>
    </message>
    <message>
        <source>Unknown Error</source>
        <translation>Error desconocido</translation>
    </message>
    <message>
        <source>Failed to fetch information for database (%@)</source>
        <translation>No se pudo obtener la información de la base de datos (%@)</translation>
    </message>
    <message>
        <source>The profile “%1” was created by a newer version of Velmora. Update Velmora to open it.</source>
        <translation>El perfil «%1» se creó con una versión más reciente de Velmora. Actualice Velmora para abrirlo.</translation>
    </message>
    <message>
        <source>“%1” is a database of another program, not a profile. Choose another folder.</source>
        <translation>«%1» es la base de datos de otro programa, no un perfil. Elija otra carpeta.</translation>
    </message>
    <message>
        <source>“%1” is not a file, so it cannot be opened as a profile. Choose another folder.</source>
        <translation>«%1» no es un archivo, por lo que no se puede abrir como perfil. Elija otra carpeta.</translation>
    </message>
    <message>
        <source>The profile “%1” is in use by another Velmora. Quit it and try again.</source>
        <translation>Otro Velmora está usando el perfil «%1». Salga de él y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>The profile folder “%1” cannot be locked: %2. Check its disk and its permissions, then try again.</source>
        <translation>La carpeta de perfil «%1» no se puede bloquear: %2. Compruebe el disco y los permisos y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be copied: %2. Check the disk, then try again.</source>
        <translation>El perfil «%1» no se puede copiar: %2. Compruebe el disco y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>You do not have permission to read the profile “%1”. Change its permissions or use another profile.</source>
        <translation>No tiene permiso para leer el perfil «%1». Cambie sus permisos o use otro perfil.</translation>
    </message>
    <message>
        <source>The profile “%1” is read-only. Change its permissions or use another profile.</source>
        <translation>El perfil «%1» es de solo lectura. Cambie sus permisos o use otro perfil.</translation>
    </message>
    <message>
        <source>The profile folder “%1” is read-only. Change its permissions or use another profile.</source>
        <translation>La carpeta de perfil «%1» es de solo lectura. Cambie sus permisos o use otro perfil.</translation>
    </message>
    <message>
        <source>The profile folder “%1” could not be created. Check the permissions of the folder that contains it.</source>
        <translation>No se pudo crear la carpeta de perfil «%1». Compruebe los permisos de la carpeta que la contiene.</translation>
    </message>
    <message>
        <source>“%1” is not a folder. Choose a folder for the profile.</source>
        <translation>«%1» no es una carpeta. Elija una carpeta para el perfil.</translation>
    </message>
    <message>
        <source>The folder “%1” contains other files and no profile. Choose an empty folder.</source>
        <translation>La carpeta «%1» contiene otros archivos y ningún perfil. Elija una carpeta vacía.</translation>
    </message>
    <message>
        <source>%1 %2 Unlock the keyring and try again.</source>
        <translation>%1 %2 Desbloquee el depósito de claves y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>Profile:</source>
        <translation>Perfil:</translation>
    </message>
    <message>
        <source>Other users of this computer may be able to read the profile “%1”, because its permissions cannot be changed. Move it to a folder of your own.</source>
        <translation>Es posible que otros usuarios de este equipo puedan leer el perfil «%1», porque no se pueden cambiar sus permisos. Muévalo a una carpeta propia.</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be opened: %2. Check its disk and its permissions, then try again.</source>
        <translation>El perfil «%1» no se puede abrir: %2. Compruebe el disco y los permisos y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be read or written: %2. Check its disk and its permissions, then try again.</source>
        <translation>El perfil «%1» no se puede leer o escribir: %2. Compruebe el disco y los permisos y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>The profile “%1” has no inbox. Restore it from a backup or use another profile.</source>
        <translation>El perfil «%1» no tiene bandeja de entrada. Restáurelo desde una copia de seguridad o use otro perfil.</translation>
    </message>
    <message>
        <source>The profile “%1” no longer exists. Quit Velmora and restore it from a backup.</source>
        <translation>El perfil «%1» ya no existe. Salga de Velmora y restáurelo desde una copia de seguridad.</translation>
    </message>
    <message>
        <source>Enter a name for the database.</source>
        <translation>Introduzca un nombre para la base de datos.</translation>
    </message>
    <message>
        <source>The operation was cancelled.</source>
        <translation>La operación se ha cancelado.</translation>
    </message>
    <message>
        <source>The sync store is not open. Try again.</source>
        <translation>El almacén de sincronización no está abierto. Vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>This location has no address. Remove it and add it again.</source>
        <translation>Esta ubicación no tiene dirección. Quítela y vuelva a añadirla.</translation>
    </message>
    <message>
        <source>Velmora does not support locations of the kind “%1”. Remove this location and add another one.</source>
        <translation>Velmora no admite ubicaciones del tipo «%1». Quite esta ubicación y añada otra.</translation>
    </message>
    <message>
        <source>“%1” is a folder on another computer. Choose a folder on this computer.</source>
        <translation>«%1» es una carpeta de otro equipo. Elija una carpeta de este equipo.</translation>
    </message>
    <message>
        <source>The sync store “%1” does not exist. Check whether it was moved or renamed.</source>
        <translation>El almacén de sincronización «%1» no existe. Compruebe si se ha movido o si ha cambiado de nombre.</translation>
    </message>
    <message>
        <source>“%1” is not a sync store. Edit the location and choose another one.</source>
        <translation>«%1» no es un almacén de sincronización. Edite la ubicación y elija otro.</translation>
    </message>
    <message>
        <source>Do Not Trust</source>
        <translation>No confiar</translation>
    </message>
    <message>
        <source>Fingerprint (SHA-256): %1</source>
        <translation>Huella digital (SHA-256): %1</translation>
    </message>
    <message>
        <source>Issued by: %1</source>
        <translation>Emitido por: %1</translation>
    </message>
    <message>
        <source>Issued to: %1</source>
        <translation>Emitido para: %1</translation>
    </message>
    <message>
        <source>A secure connection to the server “%1” could not be established (%2). Check its port, and whether it supports HTTPS.</source>
        <translation>No se pudo establecer una conexión segura con el servidor «%1» (%2). Compruebe su puerto y si admite HTTPS.</translation>
    </message>
    <message>
        <source>“%1” is not a valid name in a sync store. Install the newest version of Velmora on all your computers.</source>
        <translation>«%1» no es un nombre válido en un almacén de sincronización. Instale la versión más reciente de Velmora en todos sus equipos.</translation>
    </message>
    <message>
        <source>The server “%1” sent an unexpected response (HTTP %2). Try again later or ask its administrator.</source>
        <translation>El servidor «%1» ha enviado una respuesta inesperada (HTTP %2). Vuelva a intentarlo más tarde o consulte a su administrador.</translation>
    </message>
    <message>
        <source>The server “%1” sent an invalid response. Try again later or ask its administrator.</source>
        <translation>El servidor «%1» ha enviado una respuesta no válida. Vuelva a intentarlo más tarde o consulte a su administrador.</translation>
    </message>
    <message>
        <source>“%1” is missing from the response or is not valid.</source>
        <translation>Falta «%1» en la respuesta o no es válido.</translation>
    </message>
    <message>
        <source>The server “%1” sent a response that is too long. Ask its administrator.</source>
        <translation>El servidor «%1» ha enviado una respuesta demasiado larga. Consulte a su administrador.</translation>
    </message>
    <message>
        <source>The certificate, or one with which it was issued, has a key or a signature that is too weak.</source>
        <translation>El certificado, o uno de aquellos con los que se emitió, tiene una clave o una firma demasiado débil.</translation>
    </message>
    <message>
        <source>The certificate has expired.</source>
        <translation>El certificado ha caducado.</translation>
    </message>
    <message>
        <source>The certificate is not valid yet.</source>
        <translation>El certificado aún no es válido.</translation>
    </message>
    <message>
        <source>The certificate is self-signed.</source>
        <translation>El certificado está autofirmado.</translation>
    </message>
    <message>
        <source>The certificate was issued for another server.</source>
        <translation>El certificado se emitió para otro servidor.</translation>
    </message>
    <message>
        <source>The certificate was issued by an authority that this computer does not trust.</source>
        <translation>El certificado fue emitido por una autoridad en la que este equipo no confía.</translation>
    </message>
    <message>
        <source>The folder “%1” does not exist on the server. Create it there or edit the location.</source>
        <translation>La carpeta «%1» no existe en el servidor. Créela allí o edite la ubicación.</translation>
    </message>
    <message>
        <source>The server does not allow you to use “%1”. Ask its administrator for access.</source>
        <translation>El servidor no le permite usar «%1». Pida acceso a su administrador.</translation>
    </message>
    <message>
        <source>The server “%1” requires a password, but none is saved for this location. Edit the location to enter it.</source>
        <translation>El servidor «%1» exige una contraseña, pero no hay ninguna guardada para esta ubicación. Edite la ubicación para introducirla.</translation>
    </message>
    <message>
        <source>The server “%1” supports neither Basic nor Digest authentication with MD5 or SHA-256. Ask its administrator to allow one of them.</source>
        <translation>El servidor «%1» no admite la autenticación Basic ni la autenticación Digest con MD5 o SHA-256. Pida a su administrador que permita una de ellas.</translation>
    </message>
    <message>
        <source>The server “%1” closed the connection without a response. Check its name and port.</source>
        <translation>El servidor «%1» ha cerrado la conexión sin responder. Compruebe su nombre y su puerto.</translation>
    </message>
    <message>
        <source>The server “%1” cannot be reached through the proxy “%2” (%3). Check the proxy in the network settings of the desktop.</source>
        <translation>No se puede acceder al servidor «%1» a través del proxy «%2» (%3). Compruebe el proxy en los ajustes de red del escritorio.</translation>
    </message>
    <message>
        <source>The server “%1” cannot be reached: %2. Check the network connection.</source>
        <translation>No se puede acceder al servidor «%1»: %2. Compruebe la conexión de red.</translation>
    </message>
    <message>
        <source>The server “%1” refused the connection. Check the port, and whether the server is running.</source>
        <translation>El servidor «%1» ha rechazado la conexión. Compruebe el puerto y si el servidor está en ejecución.</translation>
    </message>
    <message>
        <source>The server “%1” cannot prove its identity. Trust its certificate for this location?</source>
        <translation>El servidor «%1» no puede demostrar su identidad. ¿Desea confiar en su certificado para esta ubicación?</translation>
    </message>
    <message>
        <source>The server “%1” cannot prove its identity: %2 Check the address, or ask the administrator of the server about its certificate.</source>
        <translation>El servidor «%1» no puede demostrar su identidad: %2 Compruebe la dirección o pregunte al administrador del servidor por su certificado.</translation>
    </message>
    <message>
        <source>The server “%1” does not accept this user name and password. Edit the location to correct them.</source>
        <translation>El servidor «%1» no acepta este nombre de usuario y esta contraseña. Edite la ubicación para corregirlos.</translation>
    </message>
    <message>
        <source>The server “%1” does not respond. Check the network connection and try again.</source>
        <translation>El servidor «%1» no responde. Compruebe la conexión de red y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>The server “%1” reported an internal error (HTTP %2). Try again later or ask its administrator.</source>
        <translation>El servidor «%1» ha notificado un error interno (HTTP %2). Vuelva a intentarlo más tarde o consulte a su administrador.</translation>
    </message>
    <message>
        <source>The server “%1” is busy. Try again later.</source>
        <translation>El servidor «%1» está ocupado. Vuelva a intentarlo más tarde.</translation>
    </message>
    <message>
        <source>The server “%1” has no space left. Delete files there or ask its administrator.</source>
        <translation>Al servidor «%1» no le queda espacio. Elimine archivos en él o consulte a su administrador.</translation>
    </message>
    <message>
        <source>The server “%1” does not offer WebDAV at this address. Edit the location to correct it.</source>
        <translation>El servidor «%1» no ofrece WebDAV en esta dirección. Edite la ubicación para corregirla.</translation>
    </message>
    <message>
        <source>The server “%1” redirects too often. Check the address of the location.</source>
        <translation>El servidor «%1» redirige demasiadas veces. Compruebe la dirección de la ubicación.</translation>
    </message>
    <message>
        <source>The server “%1” redirects to “%2”. If that is correct, edit the location and enter it as the address.</source>
        <translation>El servidor «%1» redirige a «%2». Si es correcto, edite la ubicación e introduzca esa dirección.</translation>
    </message>
    <message>
        <source>The server “%1” takes too long to respond. Try again later.</source>
        <translation>El servidor «%1» tarda demasiado en responder. Vuelva a intentarlo más tarde.</translation>
    </message>
    <message>
        <source>The sync store “%1” is read-only. Change its permissions or choose another one.</source>
        <translation>El almacén de sincronización «%1» es de solo lectura. Cambie sus permisos o elija otro.</translation>
    </message>
    <message>
        <source>The volume that contains the sync store “%1” is full. Free some space on it.</source>
        <translation>El volumen que contiene el almacén de sincronización «%1» está lleno. Libere espacio en él.</translation>
    </message>
    <message>
        <source>The volume that contains the sync store “%1” is not mounted. Connect it and try again.</source>
        <translation>El volumen que contiene el almacén de sincronización «%1» no está montado. Conéctelo y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>The server “%1” was not found. Check its name and the network connection.</source>
        <translation>No se ha encontrado el servidor «%1». Compruebe su nombre y la conexión de red.</translation>
    </message>
    <message>
        <source>The address of the server “%1” could not be looked up. Check the network connection and try again.</source>
        <translation>No se ha podido averiguar la dirección del servidor «%1». Compruebe la conexión de red y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>The address of the server “%1” was not looked up because too many look-ups are still running. Try again in a minute.</source>
        <translation>No se ha consultado la dirección del servidor «%1» porque todavía hay demasiadas consultas en curso. Vuelva a intentarlo dentro de un minuto.</translation>
    </message>
    <message>
        <source>Trust This Certificate</source>
        <translation>Confiar en este certificado</translation>
    </message>
    <message>
        <source>Valid from %1 to %2</source>
        <translation>Válido del %1 al %2</translation>
    </message>
    <message>
        <source>You do not have permission to use “%1”. Change its permissions or choose another sync store.</source>
        <translation>No tiene permiso para usar «%1». Cambie sus permisos o elija otro almacén de sincronización.</translation>
    </message>
    <message>
        <source>“%1” cannot be read or written: %2. Check its disk and its permissions, then try again.</source>
        <translation>«%1» no se puede leer o escribir: %2. Compruebe el disco y los permisos y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>“%1” is larger than the server accepts. Ask its administrator to raise the limit.</source>
        <translation>«%1» es mayor de lo que acepta el servidor. Pida a su administrador que aumente el límite.</translation>
    </message>
    <message>
        <source>“%1” is locked on the server. Try again later.</source>
        <translation>«%1» está bloqueado en el servidor. Vuelva a intentarlo más tarde.</translation>
    </message>
    <message>
        <source>“%1” does not exist. Try again. If it is still missing, check the location.</source>
        <translation>«%1» no existe. Vuelva a intentarlo. Si sigue faltando, compruebe la ubicación.</translation>
    </message>
    <message>
        <source>“%1” isn’t a valid item in a sync store. Move it to another folder if it does not belong there.</source>
        <translation>«%1» no es un elemento válido en un almacén de sincronización. Muévalo a otra carpeta si no debe estar ahí.</translation>
    </message>
    <message>
        <source>“%1” is too large and was not read. Move it to another folder if it does not belong there.</source>
        <translation>«%1» es demasiado grande y no se ha leído. Muévalo a otra carpeta si no debe estar ahí.</translation>
    </message>
    <message>
        <source>The sync store “%1” could not be created. Check the permissions of the folder that contains it.</source>
        <translation>No se pudo crear el almacén de sincronización «%1». Compruebe los permisos de la carpeta que lo contiene.</translation>
    </message>
    <message>
        <source>The record “%1” was not stored as it was written. Try again. If this happens repeatedly, use another location.</source>
        <translation>El registro «%1» no se almacenó tal como se escribió. Vuelva a intentarlo. Si ocurre repetidamente, use otra ubicación.</translation>
    </message>
    <message>
        <source>The profile file “%1” was moved, deleted or replaced, so nothing can be saved. Put it back, or copy unsaved text elsewhere and restart Velmora.</source>
        <translation>El archivo de perfil «%1» se ha movido, eliminado o reemplazado, por lo que no se puede guardar nada. Devuélvalo a su sitio, o copie en otro lugar el texto sin guardar y reinicie Velmora.</translation>
    </message>
    <message>
        <source>The profile file “%1” cannot be reached, so nothing can be saved: %2. Check the permissions of its folder and its disk, or copy unsaved text elsewhere and restart Velmora.</source>
        <translation>No se puede acceder al archivo de perfil «%1», por lo que no se puede guardar nada: %2. Compruebe los permisos de su carpeta y su disco, o copie en otro lugar el texto sin guardar y reinicie Velmora.</translation>
    </message>
    <message>
        <source>The record “%1” was damaged. It was moved to “%2”, and this computer writes its contents again.</source>
        <translation>El registro «%1» estaba dañado. Se ha movido a «%2», y este equipo vuelve a escribir su contenido.</translation>
    </message>
    <message>
        <source>The record “%1” was damaged and was moved to “%2”. Synchronize on the computer that wrote it to restore its contents.</source>
        <translation>El registro «%1» estaba dañado y se ha movido a «%2». Sincronice en el equipo que lo escribió para restaurar su contenido.</translation>
    </message>
    <message>
        <source>A temporary folder cannot be created: %1. Check the permissions of “%2” and the space on its disk.</source>
        <translation>No se puede crear una carpeta temporal: %1. Compruebe los permisos de «%2» y el espacio en su disco.</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be read: %2. Databases that were added on other computers are not synchronized. Check its permissions and its disk.</source>
        <translation>No se puede leer la carpeta «%1»: %2. Las bases de datos que se añadieron en otros equipos no se sincronizan. Compruebe sus permisos y su disco.</translation>
    </message>
    <message>
        <source>The damaged record “%1” cannot be copied, because the location does not store what is written. Check the disk or the server.</source>
        <translation>No se puede copiar el registro dañado «%1», porque la ubicación no almacena lo que se escribe. Compruebe el disco o el servidor.</translation>
    </message>
    <message>
        <source>Everything was synchronized, but the records at “%1” could not be merged: %2</source>
        <translation>Todo se ha sincronizado, pero los registros de «%1» no se pudieron combinar: %2</translation>
    </message>
    <message>
        <source>The record “%1” was read differently each time, so it was left as it is. Check the disk or the server.</source>
        <translation>El registro «%1» se leyó cada vez de forma distinta, por lo que se ha dejado como está. Compruebe el disco o el servidor.</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>Perfil</translation>
    </message>
    <message>
        <source>The database of the profile is damaged (%1). Restore it from a backup.</source>
        <translation>La base de datos del perfil está dañada (%1). Restáurelo desde una copia de seguridad.</translation>
    </message>
    <message>
        <source>Damaged notes in the database “%1”: %2. “velmora verify --repair” reads them again from the locations. If no location has them, check their texts and edit them.</source>
        <translation>Notas dañadas en la base de datos «%1»: %2. «velmora verify --repair» las vuelve a leer desde las ubicaciones. Si ninguna ubicación las tiene, compruebe sus textos y edítelas.</translation>
    </message>
    <message>
        <source>Damaged notes in the database “%1” that no location could restore: %2. Check their texts, edit them and synchronize, or restore a backup of the profile.</source>
        <translation>Notas dañadas en la base de datos «%1» que ninguna ubicación pudo restaurar: %2. Compruebe sus textos, edítelas y sincronice, o restaure una copia de seguridad del perfil.</translation>
    </message>
    <message>
        <source>Changes of notes in the database “%1” that this computer has lost: %2. “velmora verify --repair” reads them again from the locations. If no location has them, synchronize on the other computers, then here, or restore a backup of the profile.</source>
        <translation>Cambios de notas de la base de datos «%1» que este equipo ha perdido: %2. «velmora verify --repair» los vuelve a leer desde las ubicaciones. Si ninguna ubicación los tiene, sincronice en los otros equipos y después aquí, o restaure una copia de seguridad del perfil.</translation>
    </message>
    <message>
        <source>Changes of notes in the database “%1” that this computer has lost and that no location could restore: %2. Synchronize on the other computers, then here, or restore a backup of the profile.</source>
        <translation>Cambios de notas en la base de datos «%1» que este equipo ha perdido y que ninguna ubicación pudo restaurar: %2. Sincronice en los otros equipos y después aquí, o restaure una copia de seguridad del perfil.</translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>«%1»</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %2 more</source>
        <translation>
            <numerusform>%1 y %2 más</numerusform>
            <numerusform>%1 y %2 más</numerusform>
        </translation>
    </message>
    <message>
        <source>name of a database</source>
        <translation>nombre de una base de datos</translation>
    </message>
    <message>
        <source>lost changes: %1</source>
        <translation>cambios perdidos: %1</translation>
    </message>
    <message>
        <source>databases: %1, notes: %2</source>
        <translation>bases de datos: %1, notas: %2</translation>
    </message>
    <message>
        <source>“%1” at “%2”</source>
        <translation>«%1» en «%2»</translation>
    </message>
    <message>
        <source>The location no longer contains the database. Synchronize to send everything again.</source>
        <translation>La ubicación ya no contiene la base de datos. Sincronice para volver a enviarlo todo.</translation>
    </message>
    <message>
        <source>was never synchronized</source>
        <translation>nunca se ha sincronizado</translation>
    </message>
    <message>
        <source>records: %1, moved aside: %2</source>
        <translation>registros: %1, apartados: %2</translation>
    </message>
    <message>
        <source>The database “%1” is not on this computer yet. Synchronize it with the location.</source>
        <translation>La base de datos «%1» aún no está en este equipo. Sincronícela con la ubicación.</translation>
    </message>
    <message>
        <source>Another computer changes the location. Try again later.</source>
        <translation>Otro equipo está cambiando la ubicación. Vuelva a intentarlo más tarde.</translation>
    </message>
    <message>
        <source>Changes at the location that are not on this computer: %1. Synchronize to get them.</source>
        <translation>Cambios de la ubicación que no están en este equipo: %1. Sincronice para recibirlos.</translation>
    </message>
    <message>
        <source>Changes on this computer that are not at the location: %1. Synchronize to send them.</source>
        <translation>Cambios de este equipo que no están en la ubicación: %1. Sincronice para enviarlos.</translation>
    </message>
    <message>
        <source>The record “%1” was damaged and is written again.</source>
        <translation>El registro «%1» estaba dañado y se vuelve a escribir.</translation>
    </message>
    <message>
        <source>The record “%1” is damaged. Synchronize the other computers that use this location, because one of them may write it again.</source>
        <translation>El registro «%1» está dañado. Sincronice los demás equipos que usan esta ubicación, porque alguno puede volver a escribirlo.</translation>
    </message>
    <message>
        <source>“%1” is not used, because records have other names. Move it to another folder, or remove it if you do not need it.</source>
        <translation>«%1» no se usa, porque los registros tienen otros nombres. Mueva el archivo a otra carpeta o elimínelo si no lo necesita.</translation>
    </message>
    <message>
        <source>Inbox</source>
        <translation>Bandeja de entrada</translation>
    </message>
    <message>
        <source>Projects</source>
        <translation>Proyectos</translation>
    </message>
    <message>
        <source>Recipes</source>
        <translation>Recetas</translation>
    </message>
    <message>
        <source>Bookshelf</source>
        <translation>Estantería</translation>
    </message>
    <message>
        <source>Measure the alcove beside the window.
Boards of oak, 24 mm; four of them.
Ask Ida for the long clamps.</source>
        <translation>Medir el hueco junto a la ventana.
Tablas de roble, 24 mm; cuatro piezas.
Pedir a Ida los sargentos largos.</translation>
    </message>
    <message>
        <source>Garden</source>
        <translation>Jardín</translation>
    </message>
    <message>
        <source>Cut back the roses in March.
Plant beans once the nights stay above eight degrees.</source>
        <translation>Podar los rosales en marzo.
Sembrar judías cuando las noches no bajen de ocho grados.</translation>
    </message>
    <message>
        <source>Pancakes</source>
        <translation>Tortitas</translation>
    </message>
    <message>
        <source>250 g flour
500 ml milk
3 eggs
A pinch of salt

Stir, let it rest for half an hour, bake in butter.</source>
        <translation>250 g de harina
500 ml de leche
3 huevos
1 pizca de sal

Mezclar, dejar reposar media hora, freír en mantequilla.</translation>
    </message>
    <message>
        <source>Tomato Soup</source>
        <translation>Sopa de tomate</translation>
    </message>
    <message>
        <source>1 kg tomatoes, 2 onions, 1 clove of garlic

Roast everything for forty minutes, add stock, blend.</source>
        <translation>1 kg de tomates, 2 cebollas, 1 diente de ajo

Asarlo todo cuarenta minutos, añadir caldo, triturar.</translation>
    </message>
    <message>
        <source>Shopping</source>
        <translation>Compra</translation>
    </message>
    <message>
        <source>Flour, milk, eggs, tomatoes</source>
        <translation>Harina, leche, huevos, tomates</translation>
    </message>
    <message>
        <source>&amp;Remove Schedule</source>
        <translation>&amp;Quitar la programación</translation>
    </message>
    <message>
        <source>Databases</source>
        <translation>Bases de datos</translation>
    </message>
    <message>
        <source>Days of the weekly synchronization</source>
        <translation>Días de la sincronización semanal</translation>
    </message>
    <message>
        <source>Every &amp;day</source>
        <translation>Cada &amp;día</translation>
    </message>
    <message>
        <source>Every &amp;hour</source>
        <translation>Cada &amp;hora</translation>
    </message>
    <message>
        <source>Every &amp;week</source>
        <translation>Cada &amp;semana</translation>
    </message>
    <message>
        <source>The database is then synchronized only when you ask for it, or when it is opened or closed.</source>
        <translation>Después, la base de datos solo se sincroniza cuando usted lo pide o cuando se abre o se cierra.</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Ubicación</translation>
    </message>
    <message>
        <source>Location commands</source>
        <translation>Órdenes de las ubicaciones</translation>
    </message>
    <message>
        <source>Minutes past the hour</source>
        <translation>Minutos después de la hora</translation>
    </message>
    <message>
        <source>Never synchronized</source>
        <translation>Nunca sincronizada</translation>
    </message>
    <message>
        <source>Next synchronization: %1</source>
        <translation>Próxima sincronización: %1</translation>
    </message>
    <message>
        <source>No database is open.</source>
        <translation>No hay ninguna base de datos abierta.</translation>
    </message>
    <message>
        <source>No synchronization is scheduled.</source>
        <translation>No hay ninguna sincronización programada.</translation>
    </message>
    <message>
        <source>Reading the location</source>
        <translation>Leyendo la ubicación</translation>
    </message>
    <message>
        <source>Schedule of the selected database</source>
        <translation>Programación de la base de datos seleccionada</translation>
    </message>
    <message>
        <source>An error occurred at this location. Show it.</source>
        <translation>Se ha producido un error en esta ubicación. Mostrarlo.</translation>
    </message>
    <message>
        <source>Sync Preferences cannot be used: the sync plug-in has no %1. Install both from the same version of Velmora.</source>
        <translation>No se pueden usar las Preferencias de sincronización: al complemento de sincronización le falta %1. Instale ambos de la misma versión de Velmora.</translation>
    </message>
    <message>
        <source>Sync Preferences cannot be used: it needs version %1 of the interface to the sync plug-in, which offers version %2. Install both from the same version of Velmora.</source>
        <translation>No se pueden usar las Preferencias de sincronización: necesitan la versión %1 de la interfaz del complemento de sincronización, que ofrece la versión %2. Instale ambos de la misma versión de Velmora.</translation>
    </message>
    <message>
        <source>Sync locations</source>
        <translation>Ubicaciones de sincronización</translation>
    </message>
    <message>
        <source>Synchronize this database with its ticked locations now</source>
        <translation>Sincronizar ahora esta base de datos con sus ubicaciones marcadas</translation>
    </message>
    <message>
        <source>Synchronize with</source>
        <translation>Sincronizar con</translation>
    </message>
    <message>
        <source>Synchronized %1</source>
        <translation>Última sincronización: %1</translation>
    </message>
    <message>
        <source>There is no location to synchronize with yet.</source>
        <translation>Aún no hay ninguna ubicación con la que sincronizar.</translation>
    </message>
    <message>
        <source>Time of the daily synchronization</source>
        <translation>Hora de la sincronización diaria</translation>
    </message>
    <message>
        <source>Time of the weekly synchronization</source>
        <translation>Hora de la sincronización semanal</translation>
    </message>
    <message>
        <source>Version of this pane</source>
        <translation>Versión de estas preferencias</translation>
    </message>
    <message>
        <source>When the database is &amp;closed</source>
        <translation>Al &amp;cerrar la base de datos</translation>
    </message>
    <message>
        <source>When the database is &amp;opened</source>
        <translation>Al &amp;abrir la base de datos</translation>
    </message>
    <message>
        <source>Whether the selected database synchronizes with this location</source>
        <translation>Si la base de datos seleccionada se sincroniza con esta ubicación</translation>
    </message>
    <message>
        <source>minutes past the hour</source>
        <translation>minutos después de la hora</translation>
    </message>
    <message>
        <source>on</source>
        <translation>el</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Nueva</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>Import…</source>
        <translation>Importar…</translation>
    </message>
    <message>
        <source>Import databases that exist only at a location</source>
        <translation>Importar las bases de datos que solo existen en una ubicación</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Añadir</translation>
    </message>
    <message>
        <source>Add a location</source>
        <translation>Añadir una ubicación</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Quitar</translation>
    </message>
    <message>
        <source>Stop synchronizing with the selected location. What is stored there stays.</source>
        <translation>Dejar de sincronizar con la ubicación seleccionada. Lo que está almacenado en ella se conserva.</translation>
    </message>
    <message>
        <source>Edit…</source>
        <translation>Editar…</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Más</translation>
    </message>
    <message>
        <source>More commands for the selected location</source>
        <translation>Más órdenes para la ubicación seleccionada</translation>
    </message>
    <message>
        <source>New Folder Store…</source>
        <translation>Nuevo almacén en una carpeta…</translation>
    </message>
    <message>
        <source>Existing Folder Store…</source>
        <translation>Almacén existente en una carpeta…</translation>
    </message>
    <message>
        <source>WebDAV Server…</source>
        <translation>Servidor WebDAV…</translation>
    </message>
    <message>
        <source>Dropbox Account…</source>
        <translation>Cuenta de Dropbox…</translation>
    </message>
    <message>
        <source>Direct Connection…</source>
        <translation>Conexión directa…</translation>
    </message>
    <message>
        <source>Check</source>
        <translation>Comprobar</translation>
    </message>
    <message>
        <source>Clean Up</source>
        <translation>Limpiar</translation>
    </message>
    <message>
        <source>Show in File Manager</source>
        <translation>Mostrar en el gestor de archivos</translation>
    </message>
    <message>
        <source>Direct Connections…</source>
        <translation>Conexiones directas…</translation>
    </message>
    <message>
        <source>Folder Access…</source>
        <translation>Acceso a carpetas…</translation>
    </message>
    <message>
        <source>WebDAV Location</source>
        <translation>Ubicación WebDAV</translation>
    </message>
    <message>
        <source>Server:</source>
        <translation>Servidor:</translation>
    </message>
    <message>
        <source>dav.example.org</source>
        <translation>dav.example.org</translation>
    </message>
    <message>
        <source>Use HTTPS</source>
        <translation>Usar HTTPS</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Puerto:</translation>
    </message>
    <message>
        <source>User name:</source>
        <translation>Nombre de usuario:</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Contraseña:</translation>
    </message>
    <message>
        <source>Folder on the server:</source>
        <translation>Carpeta en el servidor:</translation>
    </message>
    <message>
        <source>optional, such as documents/sync</source>
        <translation>opcional, como documentos/sync</translation>
    </message>
    <message>
        <source>Store name:</source>
        <translation>Nombre del almacén:</translation>
    </message>
    <message>
        <source>Without HTTPS, others on the network can read the password and your notes.</source>
        <translation>Sin HTTPS, otras personas de la red pueden leer la contraseña y sus notas.</translation>
    </message>
    <message>
        <source>Forget the password of “%1”?</source>
        <translation>¿Desea olvidar la contraseña de «%1»?</translation>
    </message>
    <message>
        <source>No location of the list uses this password any more.</source>
        <translation>Ninguna ubicación de la lista usa ya esta contraseña.</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>Olvidar</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Conservar</translation>
    </message>
    <message numerus="yes">
        <source>%1 more items of “%2” could not be synchronized with “%3”.</source>
        <translation>
            <numerusform>%1 elemento más de «%2» no se pudo sincronizar con «%3».</numerusform>
            <numerusform>%1 elementos más de «%2» no se pudieron sincronizar con «%3».</numerusform>
        </translation>
    </message>
    <message>
        <source>More of these, which are not listed: %1.</source>
        <translation>Otros problemas de este tipo que no se muestran: %1.</translation>
    </message>
    <message>
        <source>The password is saved in your keyring and nowhere else.</source>
        <translation>La contraseña se guarda en su depósito de claves y en ningún otro lugar.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Folder Location</source>
        <translation>Ubicación en una carpeta</translation>
    </message>
    <message>
        <source>A sync store is a package in a folder that all your computers can access, such as one on a shared volume.</source>
        <translation>Un almacén de sincronización es un paquete en una carpeta a la que pueden acceder todos sus equipos, por ejemplo en un volumen compartido.</translation>
    </message>
    <message>
        <source>Sync store:</source>
        <translation>Almacén de sincronización:</translation>
    </message>
    <message>
        <source>Sync store</source>
        <translation>Almacén de sincronización</translation>
    </message>
    <message>
        <source>None chosen yet</source>
        <translation>Aún no se ha elegido ninguno</translation>
    </message>
    <message>
        <source>New…</source>
        <translation>Nuevo…</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Elegir…</translation>
    </message>
    <message>
        <source>The certificate “%1” of this computer could not be created. Check the permissions of the profile folder.</source>
        <translation>No se pudo crear el certificado «%1» de este equipo. Compruebe los permisos de la carpeta de perfil.</translation>
    </message>
    <message>
        <source>The certificate “%1” of this computer cannot be read: %2. Check its permissions, then turn the server on again.</source>
        <translation>No se puede leer el certificado «%1» de este equipo: %2. Compruebe sus permisos y vuelva a activar el servidor.</translation>
    </message>
    <message>
        <source>The certificate “%1” of this computer is damaged. Delete it and pair the other computers again.</source>
        <translation>El certificado «%1» de este equipo está dañado. Elimínelo y vuelva a vincular los demás equipos.</translation>
    </message>
    <message>
        <source>“%1” cannot be reached. Check that the computer is on and lets other computers synchronize.</source>
        <translation>No se puede acceder a «%1». Compruebe que el equipo está encendido y permite sincronizar a otros equipos.</translation>
    </message>
    <message>
        <source>The connection to “%1” was lost. Try again.</source>
        <translation>Se ha perdido la conexión con «%1». Vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>This computer is in no network. Port: %1</source>
        <translation>Este equipo no está en ninguna red. Puerto: %1</translation>
    </message>
    <message>
        <source>Address: %1. Port: %2</source>
        <translation>Dirección: %1. Puerto: %2</translation>
    </message>
    <message>
        <source>Other computers list this one as “%1”.</source>
        <translation>Los demás equipos muestran este como «%1».</translation>
    </message>
    <message>
        <source>It shows a code. Allow it only if the code is the same as here.</source>
        <translation>En el otro equipo se muestra un código. Permítalo solo si el código es el mismo que aquí.</translation>
    </message>
    <message>
        <source>It replaces another computer of this name.</source>
        <translation>Reemplaza a otro equipo con este nombre.</translation>
    </message>
    <message>
        <source>Whether it replaces another computer of this name is unknown, because the keyring cannot be read.</source>
        <translation>No se sabe si reemplaza a otro equipo con este nombre, porque no se puede leer el depósito de claves.</translation>
    </message>
    <message>
        <source>Let “%1” synchronize with this computer?</source>
        <translation>¿Desea permitir que «%1» sincronice con este equipo?</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Permitir</translation>
    </message>
    <message>
        <source>Refuse</source>
        <translation>Rechazar</translation>
    </message>
    <message>
        <source>The server cannot use the port %1. Choose another port. (%2)</source>
        <translation>El servidor no puede usar el puerto %1. Elija otro puerto. (%2)</translation>
    </message>
    <message>
        <source>Connect with “%1”?</source>
        <translation>¿Desea conectarse con «%1»?</translation>
    </message>
    <message>
        <source>It shows a code. Connect only if the code is the same as here.</source>
        <translation>En el otro equipo se muestra un código. Conéctese solo si el código es el mismo que aquí.</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Conectar</translation>
    </message>
    <message>
        <source>“%1” is not the computer that was paired. If this is intended, remove the location and add it again.</source>
        <translation>«%1» no es el equipo que se vinculó. Si es intencionado, quite la ubicación y vuelva a añadirla.</translation>
    </message>
    <message>
        <source>“%1” is busy with another request. Try again later.</source>
        <translation>«%1» está ocupado con otra solicitud. Vuelva a intentarlo más tarde.</translation>
    </message>
    <message>
        <source>“%1” does not allow this computer to synchronize. Allow it there and try again.</source>
        <translation>«%1» no permite que este equipo sincronice. Permítalo allí y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>“%1” sent an invalid response. Use the same version of Velmora on both computers.</source>
        <translation>«%1» ha enviado una respuesta no válida. Use la misma versión de Velmora en ambos equipos.</translation>
    </message>
    <message>
        <source>The message is not valid.</source>
        <translation>El mensaje no es válido.</translation>
    </message>
    <message>
        <source>The message is too large or has too many parts.</source>
        <translation>El mensaje es demasiado grande o tiene demasiadas partes.</translation>
    </message>
    <message>
        <source>The computer “%1” cannot read or write its sync store. Check its disk.</source>
        <translation>El equipo «%1» no puede leer o escribir su almacén de sincronización. Compruebe su disco.</translation>
    </message>
    <message>
        <source>Folder Access</source>
        <translation>Acceso a carpetas</translation>
    </message>
    <message>
        <source>Velmora can access these folders:</source>
        <translation>Velmora puede acceder a estas carpetas:</translation>
    </message>
    <message>
        <source>Folders that Velmora can access</source>
        <translation>Carpetas a las que Velmora puede acceder</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>Añadir…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Computers on the local network:</source>
        <translation>Equipos de la red local:</translation>
    </message>
    <message>
        <source>Computers on the local network</source>
        <translation>Equipos de la red local</translation>
    </message>
    <message>
        <source>No computer has been found yet. Turn on its server there under “Direct Connections…”, or enter its address.</source>
        <translation>Aún no se ha encontrado ningún equipo. Active su servidor en ese equipo, en «Conexiones directas…», o introduzca su dirección.</translation>
    </message>
    <message>
        <source>Host:</source>
        <translation>Host:</translation>
    </message>
    <message>
        <source>computer.local</source>
        <translation>computer.local</translation>
    </message>
    <message>
        <source>Import Databases</source>
        <translation>Importar bases de datos</translation>
    </message>
    <message>
        <source>Import databases from:</source>
        <translation>Importar bases de datos desde:</translation>
    </message>
    <message>
        <source>There is no location to import from yet.</source>
        <translation>Aún no hay ninguna ubicación desde la que importar.</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Continuar</translation>
    </message>
    <message>
        <source>Databases that this computer does not have:</source>
        <translation>Bases de datos que este equipo no tiene:</translation>
    </message>
    <message>
        <source>Databases to import</source>
        <translation>Bases de datos que se importarán</translation>
    </message>
    <message>
        <source>This location contains no database that this computer does not have.</source>
        <translation>Esta ubicación no contiene ninguna base de datos que este equipo no tenga.</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Advertencia</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importar</translation>
    </message>
    <message>
        <source>Direct Connections</source>
        <translation>Conexiones directas</translation>
    </message>
    <message>
        <source>Let other computers synchronize with this one</source>
        <translation>Permitir que otros equipos sincronicen con este</translation>
    </message>
    <message>
        <source>Computers that may connect:</source>
        <translation>Equipos que pueden conectarse:</translation>
    </message>
    <message>
        <source>Computers that may connect</source>
        <translation>Equipos que pueden conectarse</translation>
    </message>
    <message>
        <source>When a computer connects for the first time, you are asked for permission. Open this window again to see it in the list.</source>
        <translation>Cuando un equipo se conecta por primera vez, se le pide permiso. Abra esta ventana de nuevo para verlo en la lista.</translation>
    </message>
    <message>
        <source>Revoke</source>
        <translation>Revocar</translation>
    </message>
    <message>
        <source>Prevent the selected computer from connecting.</source>
        <translation>Impedir que el equipo seleccionado se conecte.</translation>
    </message>
    <message>
        <source>A computer that may connect can read and change the ticked databases. New databases are ticked.</source>
        <translation>Un equipo que puede conectarse puede leer y cambiar las bases de datos marcadas. Las bases de datos nuevas están marcadas.</translation>
    </message>
    <message>
        <source>Databases that other computers can read and change</source>
        <translation>Bases de datos que otros equipos pueden leer y cambiar</translation>
    </message>
    <message>
        <source>Last connected: %1</source>
        <translation>Última conexión: %1</translation>
    </message>
    <message>
        <source>Last connected: unknown</source>
        <translation>Última conexión: desconocida</translation>
    </message>
    <message>
        <source>“%1” belongs to a database that is not served.</source>
        <translation>«%1» pertenece a una base de datos que no se comparte.</translation>
    </message>
    <message>
        <source>“%1” does not serve this database. Tick it there under “Direct Connections…” in Sync Preferences, and synchronize again.</source>
        <translation>«%1» no comparte esta base de datos. Márquela allí, en «Conexiones directas…» de las Preferencias de sincronización, y vuelva a sincronizar.</translation>
    </message>
    <message>
        <source>Prevent “%1” from connecting?</source>
        <translation>¿Desea impedir que «%1» se conecte?</translation>
    </message>
    <message>
        <source>The record “%1” is too large and was not read. Move it to another folder if it does not belong there.</source>
        <translation>El registro «%1» es demasiado grande y no se ha leído. Muévalo a otra carpeta si no debe estar ahí.</translation>
    </message>
    <message>
        <source>The record “%1” was created by a newer version of Velmora. Update Velmora to read it.</source>
        <translation>El registro «%1» se creó con una versión más reciente de Velmora. Actualice Velmora para leerlo.</translation>
    </message>
    <message>
        <source>“%1” is not a valid identifier of a note. Please report this as an error of Velmora.</source>
        <translation>«%1» no es un identificador de nota válido. Notifíquelo como un error de Velmora.</translation>
    </message>
    <message>
        <source>The edits of “%1” have changed meanwhile, so none was removed. Compare them again, then decide.</source>
        <translation>Las versiones de «%1» han cambiado entretanto, por lo que no se ha eliminado ninguna. Compárelas de nuevo y decida después.</translation>
    </message>
    <message>
        <source>The note “%1” has changed meanwhile. Select it again.</source>
        <translation>La nota «%1» ha cambiado entretanto. Selecciónela de nuevo.</translation>
    </message>
    <message>
        <source>The note “%1” is too long to be synchronized. Divide it into several notes.</source>
        <translation>La nota «%1» es demasiado larga para sincronizarla. Divídala en varias notas.</translation>
    </message>
    <message>
        <source>The name of the database is too long. Enter a shorter one.</source>
        <translation>El nombre de la base de datos es demasiado largo. Introduzca uno más corto.</translation>
    </message>
    <message>
        <source>“%1” is not a valid identifier of a database. Untick the location for this database.</source>
        <translation>«%1» no es un identificador de base de datos válido. Desmarque la ubicación para esta base de datos.</translation>
    </message>
    <message>
        <source>The database “%1” exists neither on this computer nor at the location. Synchronize on the computer that has it, then here.</source>
        <translation>La base de datos «%1» no existe ni en este equipo ni en la ubicación. Sincronice en el equipo que la tiene y después aquí.</translation>
    </message>
    <message>
        <source>“%1” was cleaned up at “%2”.</source>
        <translation>«%1» se ha limpiado en «%2».</translation>
    </message>
    <message>
        <source>“%1” was synchronized with “%2”.</source>
        <translation>«%1» se ha sincronizado con «%2».</translation>
    </message>
    <message>
        <source>“%1” could not be cleaned up at “%2”: %3</source>
        <translation>«%1» no se pudo limpiar en «%2»: %3</translation>
    </message>
    <message>
        <source>“%1” could not be synchronized with “%2”: %3</source>
        <translation>«%1» no se pudo sincronizar con «%2»: %3</translation>
    </message>
    <message>
        <source>“%1” could not be cleaned up because the database is not on this computer. Import the database, then try again.</source>
        <translation>«%1» no se pudo limpiar, porque la base de datos no está en este equipo. Importe la base de datos y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>Some items of “%1” could not be synchronized with “%2”: %3</source>
        <translation>Algunos elementos de «%1» no se pudieron sincronizar con «%2»: %3</translation>
    </message>
    <message>
        <source>Cleaning up “%1” at “%2”…</source>
        <translation>Limpiando «%1» en «%2»…</translation>
    </message>
    <message>
        <source>Synchronizing “%1” with “%2”…</source>
        <translation>Sincronizando «%1» con «%2»…</translation>
    </message>
    <message>
        <source>No web browser could be opened to sign in to Dropbox. Set a default web browser and try again.</source>
        <translation>No se pudo abrir ningún navegador web para iniciar sesión en Dropbox. Establezca un navegador web predeterminado y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>Dropbox cannot be used because no application key is configured. Velmora’s documentation describes how to set one.</source>
        <translation>No se puede usar Dropbox, porque no hay configurada ninguna clave de aplicación. La documentación de Velmora describe cómo establecer una.</translation>
    </message>
    <message>
        <source>The port “%1” configured for Dropbox is not valid. Use a number from 0 to 65535.</source>
        <translation>El puerto «%1» configurado para Dropbox no es válido. Use un número de 0 a 65535.</translation>
    </message>
    <message>
        <source>The address “%1” configured for Dropbox is not secure. Use an https address.</source>
        <translation>La dirección «%1» configurada para Dropbox no es segura. Use una dirección https.</translation>
    </message>
    <message>
        <source>Velmora is not signed in to Dropbox as “%1”. Edit the location to sign in.</source>
        <translation>Velmora no ha iniciado sesión en Dropbox como «%1». Edite la ubicación para iniciarla.</translation>
    </message>
    <message>
        <source>You signed in to Dropbox as “%1”, but this location belongs to “%2”. Sign out of Dropbox in your browser, edit the location again, and sign in as “%2”.</source>
        <translation>Ha iniciado sesión en Dropbox como «%1», pero esta ubicación pertenece a «%2». Cierre la sesión de Dropbox en su navegador, edite de nuevo la ubicación e inicie sesión como «%2».</translation>
    </message>
    <message>
        <source>The sign-in to Dropbox as “%1” is no longer valid. Edit the location to sign in again.</source>
        <translation>La sesión de Dropbox como «%1» ya no es válida. Edite la ubicación para volver a iniciar sesión.</translation>
    </message>
    <message>
        <source>The response of the web browser cannot be received: %1. Quit the program that uses this port, then sign in again.</source>
        <translation>No se puede recibir la respuesta del navegador web: %1. Cierre el programa que usa este puerto y vuelva a iniciar sesión.</translation>
    </message>
    <message>
        <source>The sign-in to Dropbox timed out. Try again.</source>
        <translation>Se ha agotado el tiempo para iniciar sesión en Dropbox. Vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>You can close this window now and return to Velmora.</source>
        <translation>Ya puede cerrar esta ventana y volver a Velmora.</translation>
    </message>
    <message>
        <source>Velmora has not requested this page. Close it, and connect to Dropbox again in Velmora.</source>
        <translation>Velmora no ha solicitado esta página. Ciérrela y vuelva a conectarse a Dropbox en Velmora.</translation>
    </message>
    <message>
        <source>Access to Dropbox was denied in the web browser. Try again and allow it.</source>
        <translation>El acceso a Dropbox se denegó en el navegador web. Vuelva a intentarlo y permítalo.</translation>
    </message>
    <message>
        <source>The web browser sent an invalid response. Sign in again.</source>
        <translation>El navegador web ha enviado una respuesta no válida. Vuelva a iniciar sesión.</translation>
    </message>
    <message>
        <source>The Dropbox of “%1” is full. Delete files there.</source>
        <translation>El Dropbox de «%1» está lleno. Elimine archivos en él.</translation>
    </message>
    <message>
        <source>Dropbox rejected the sign-in. Try again.</source>
        <translation>Dropbox ha rechazado el inicio de sesión. Vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>Velmora has no access to the folder “%1”. Grant it under “Folder Access…”.</source>
        <translation>Velmora no tiene acceso a la carpeta «%1». Concédalo en «Acceso a carpetas…».</translation>
    </message>
    <message>
        <source>The profile “%1” is empty, although it has been used. Restore it from a backup or use another profile.</source>
        <translation>El perfil «%1» está vacío, aunque se ha usado. Restáurelo desde una copia de seguridad o use otro perfil.</translation>
    </message>
    <message>
        <source>The folder “%1” of the profile cannot be read: %2. Check its disk and its permissions, then try again.</source>
        <translation>No se puede leer la carpeta «%1» del perfil: %2. Compruebe el disco y los permisos y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>The sync locations of the damaged profile “%1” cannot be read. Add them again in Sync Preferences, then import your databases.</source>
        <translation>No se pueden leer las ubicaciones de sincronización del perfil dañado «%1». Vuelva a añadirlas en las Preferencias de sincronización e importe después sus bases de datos.</translation>
    </message>
    <message>
        <source>Some changes cannot be read from the damaged profile “%1” and may be missing now. Synchronize, so that they are read from the locations. The damaged files are kept in the folder “Damaged Profiles”.</source>
        <translation>Algunos cambios no se pueden leer del perfil dañado «%1», y es posible que ahora falten. Sincronice para que se lean desde las ubicaciones. Los archivos dañados se conservan en la carpeta «Damaged Profiles».</translation>
    </message>
    <message>
        <source>Damaged notes: %1.</source>
        <translation>Notas dañadas: %1.</translation>
    </message>
    <message>
        <source>Changes that were read from the damaged profile: %1</source>
        <translation>Cambios leídos del perfil dañado: %1</translation>
    </message>
    <message>
        <source>The profile is missing from the folder “%1”. Restore it from a backup or use another profile.</source>
        <translation>Falta el perfil en la carpeta «%1». Restáurelo desde una copia de seguridad o use otro perfil.</translation>
    </message>
    <message>
        <source>There is no space left on the disk with the profile “%1”. Delete files that you no longer need, then try again.</source>
        <translation>No queda espacio en el disco del perfil «%1». Elimine archivos que ya no necesite y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>No backup of the profile “%1” could be made, and Velmora tries again after an hour. %2</source>
        <translation>No se pudo hacer ninguna copia de seguridad del perfil «%1», y Velmora volverá a intentarlo dentro de una hora. %2</translation>
    </message>
    <message>
        <source>Its size is %1, and all backups together may have %2. Quit Velmora and copy the profile yourself.</source>
        <translation>Su tamaño es de %1, y todas las copias de seguridad juntas pueden ocupar %2. Salga de Velmora y copie el perfil usted mismo.</translation>
    </message>
    <message>
        <source>The disk has only %1 left, and %2 are needed. Delete files that you no longer need.</source>
        <translation>Solo quedan %1 en el disco, y se necesitan %2. Elimine archivos que ya no necesite.</translation>
    </message>
    <message>
        <source>The copy is not complete. Check the disk.</source>
        <translation>La copia no está completa. Compruebe el disco.</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be written: %2. Check its permissions and its disk.</source>
        <translation>No se puede escribir en la carpeta «%1»: %2. Compruebe sus permisos y su disco.</translation>
    </message>
    <message>
        <source>The profile “%1” has damaged or lost notes: %2. Synchronize, so that they are read again from the locations. If this message appears again, check the texts of the damaged notes and edit them, and synchronize on the other computers. The backups that have all notes intact are kept.</source>
        <translation>El perfil «%1» tiene notas dañadas o ha perdido notas: %2. Sincronice para que se vuelvan a leer desde las ubicaciones. Si este mensaje reaparece, compruebe los textos de las notas dañadas y edítelas, y sincronice en los otros equipos. Las copias de seguridad que contienen intactas todas las notas se conservan.</translation>
    </message>
    <message>
        <source>The backup “%1” is damaged. Use another backup.</source>
        <translation>La copia de seguridad «%1» está dañada. Use otra copia de seguridad.</translation>
    </message>
    <message>
        <source>The profile “%1” has no intact backup. Use another profile, and get your notes from the locations with which you have synchronized.</source>
        <translation>El perfil «%1» no tiene ninguna copia de seguridad intacta. Use otro perfil y obtenga sus notas desde las ubicaciones con las que ha sincronizado.</translation>
    </message>
    <message>
        <source>The profile “%1” could not be replaced: %2. Check its disk and its permissions, then try again.</source>
        <translation>No se pudo reemplazar el perfil «%1»: %2. Compruebe el disco y los permisos y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>%1 Files of the damaged profile were moved to “%2” and could not be moved back. Check the disk, then try again.</source>
        <translation>%1 Algunos archivos del perfil dañado se movieron a «%2» y no se pudieron devolver a su sitio. Compruebe el disco y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>Earlier versions:</source>
        <translation>Versiones anteriores:</translation>
    </message>
    <message>
        <source>Backup:</source>
        <translation>Copia de seguridad:</translation>
    </message>
    <message>
        <source>This version of “%1” is no longer kept. Choose another version.</source>
        <translation>Esta versión de «%1» ya no se conserva. Elija otra versión.</translation>
    </message>
    <message numerus="yes">
        <source>The location removes %1 of %2 notes. Nothing was changed. Synchronize again to decide what happens to these notes.</source>
        <translation>
            <numerusform>La ubicación elimina %1 nota de %2. No se ha cambiado nada. Vuelva a sincronizar para decidir qué ocurre con estas notas.</numerusform>
            <numerusform>La ubicación elimina %1 de %2 notas. No se ha cambiado nada. Vuelva a sincronizar para decidir qué ocurre con estas notas.</numerusform>
        </translation>
    </message>
    <message>
        <source>The location lists the record “%1” but does not return it. Check the server or the disk.</source>
        <translation>La ubicación enumera el registro «%1», pero no lo devuelve. Compruebe el servidor o el disco.</translation>
    </message>
    <message>
        <source>The location lists the record “%1” but does not return it. This computer writes its contents again.</source>
        <translation>La ubicación enumera el registro «%1», pero no lo devuelve. Este equipo vuelve a escribir su contenido.</translation>
    </message>
    <message>
        <source>A change in “%1” exceeds the limits of a record and was not sent. Please report this as an error of Velmora.</source>
        <translation>Un cambio en «%1» supera los límites de un registro y no se ha enviado. Notifíquelo como un error de Velmora.</translation>
    </message>
    <message>
        <source>The name of the database “%1” is not valid and was not sent. Rename the database and synchronize again.</source>
        <translation>El nombre de la base de datos «%1» no es válido y no se ha enviado. Cambie el nombre de la base de datos y vuelva a sincronizar.</translation>
    </message>
    <message>
        <source>The note “%1” is damaged on this computer and was not sent. If synchronizing again does not repair it, check its text, edit it and synchronize.</source>
        <translation>La nota «%1» está dañada en este equipo y no se ha enviado. Si una nueva sincronización no la repara, compruebe su texto, edítela y sincronice.</translation>
    </message>
    <message>
        <source>“%1” was damaged on this computer and was read again from the location.</source>
        <translation>«%1» estaba dañado en este equipo y se ha vuelto a leer desde la ubicación.</translation>
    </message>
    <message>
        <source>This computer has lost changes of notes that are not at the location any more either: %1. Synchronize on the other computers, then here. If that does not bring them back, restore a backup of the profile.</source>
        <translation>Este equipo ha perdido cambios de notas que tampoco están ya en la ubicación: %1. Sincronice en los otros equipos y después aquí. Si así no vuelven, restaure una copia de seguridad del perfil.</translation>
    </message>
    <message>
        <source>This computer has lost changes of notes that were not found in any record of the location either: %1. They are not reported again, and their backups are kept as long as others. Synchronize on the other computers, then here, or restore a backup of the profile soon.</source>
        <translation>Este equipo ha perdido cambios de notas que tampoco se encontraron en ningún registro de la ubicación: %1. No se vuelven a notificar, y sus copias de seguridad se conservan tanto tiempo como las demás. Sincronice en los otros equipos y después aquí, o restaure pronto una copia de seguridad del perfil.</translation>
    </message>
    <message>
        <source>Databases of other computers that were not added: %1. This computer adds none from direct connections if it has %2 already. To get them, use another location on both computers.</source>
        <translation>Bases de datos de otros equipos que no se han añadido: %1. Este equipo no añade ninguna desde conexiones directas si ya tiene %2. Para recibirlas, use otra ubicación en ambos equipos.</translation>
    </message>
    <message>
        <source>“%1” contains too many files. Clean up the location on another computer, or delete the files that do not belong there.</source>
        <translation>«%1» contiene demasiados archivos. Limpie la ubicación en otro equipo o elimine los archivos que no deban estar ahí.</translation>
    </message>
    <message>
        <source>“%1” contains too many databases, or their names are too long. Delete the files of those that are not needed.</source>
        <translation>«%1» contiene demasiadas bases de datos, o sus nombres son demasiado largos. Elimine los archivos de las que nadie necesite.</translation>
    </message>
    <message>
        <source>The record “%1” has changed while it was read. Synchronize again.</source>
        <translation>El registro «%1» ha cambiado mientras se leía. Vuelva a sincronizar.</translation>
    </message>
    <message>
        <source>The records in “%1” were replaced each time before they could be read. Synchronize again.</source>
        <translation>Los registros de «%1» se sustituyeron cada vez antes de que se pudieran leer. Vuelva a sincronizar.</translation>
    </message>
    <message>
        <source>The keyring still contains what belongs to the removed location “%1”. Velmora deletes it when it starts again. (%2)</source>
        <translation>El depósito de claves aún contiene lo que pertenece a la ubicación quitada «%1». Velmora lo eliminará la próxima vez que se inicie. (%2)</translation>
    </message>
    <message>
        <source>“%1” and this computer are not paired: the question was not accepted. Synchronize again in a while, and accept it on both computers.</source>
        <translation>«%1» y este equipo no están vinculados: no se ha aceptado la pregunta. Vuelva a sincronizar dentro de un rato y acéptela en ambos equipos.</translation>
    </message>
    <message>
        <source>The list of mounted volumes cannot be read: %1. Try again.</source>
        <translation>No se puede leer la lista de volúmenes montados: %1. Vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>The password for “%1” was not sent, because others on the network could read it. Edit the location: choose HTTPS, or accept that.</source>
        <translation>La contraseña de «%1» no se ha enviado, porque otras personas de la red podrían leerla. Edite la ubicación: elija HTTPS o acéptelo.</translation>
    </message>
    <message>
        <source>direct connections</source>
        <translation>conexiones directas</translation>
    </message>
    <message>
        <source>A schedule of “%1” was missed while Velmora was closed, and is made up for now.</source>
        <translation>Se omitió una sincronización programada de «%1» mientras Velmora estaba cerrado; se realiza ahora.</translation>
    </message>
    <message>
        <source>Waiting to clean up “%1” at “%2”…</source>
        <translation>Esperando para limpiar «%1» en «%2»…</translation>
    </message>
    <message>
        <source>Waiting to synchronize “%1” with “%2”…</source>
        <translation>Esperando para sincronizar «%1» con «%2»…</translation>
    </message>
    <message numerus="yes">
        <source>synchronized %1, but %2 items failed</source>
        <translation>
            <numerusform>sincronizada: %1, pero ha fallado %2 elemento</numerusform>
            <numerusform>sincronizada: %1, pero han fallado %2 elementos</numerusform>
        </translation>
    </message>
    <message>
        <source>Synchronized %1, but some items failed</source>
        <translation>Última sincronización: %1, pero han fallado algunos elementos</translation>
    </message>
    <message>
        <source>Some items of “%1” could not be synchronized with “%2”. Open the log to see which.</source>
        <translation>Algunos elementos de «%1» no se pudieron sincronizar con «%2». Abra el registro de actividad para ver cuáles.</translation>
    </message>
    <message>
        <source>Time: %1</source>
        <translation>Hora: %1</translation>
    </message>
    <message>
        <source>The list of unsent changes of the database “%1” was wrong. Everything is compared again.</source>
        <translation>La lista de cambios sin enviar de la base de datos «%1» era incorrecta. Todo se vuelve a comparar.</translation>
    </message>
    <message>
        <source>The recorded number of conflicts in the database “%1” is wrong. “velmora verify --repair” counts them again.</source>
        <translation>El número de conflictos anotado para la base de datos «%1» es incorrecto. «velmora verify --repair» los vuelve a contar.</translation>
    </message>
    <message>
        <source>The recorded number of conflicts in the database “%1” was wrong. They were counted again.</source>
        <translation>El número de conflictos anotado para la base de datos «%1» era incorrecto. Se han vuelto a contar.</translation>
    </message>
    <message>
        <source>The list of unsent changes of the database “%1” is wrong. “velmora verify --repair” compares everything and sends what the list lacks.</source>
        <translation>La lista de cambios sin enviar de la base de datos «%1» es incorrecta. «velmora verify --repair» lo compara todo y envía lo que falta en la lista.</translation>
    </message>
    <message>
        <source>The profile “%1” is damaged. Restore it from a backup or use another profile.</source>
        <translation>El perfil «%1» está dañado. Restáurelo desde una copia de seguridad o use otro perfil.</translation>
    </message>
    <message>
        <source>An index of the profile “%1” is damaged, so that notes may seem to be missing. Quit Velmora if it is running, and start it: it rebuilds the index or offers to restore a backup.</source>
        <translation>Un índice del perfil «%1» está dañado, de modo que puede parecer que faltan notas. Salga de Velmora si está en ejecución e inícielo: reconstruye el índice u ofrece restaurar una copia de seguridad.</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be read, because its disk reports an error. Check the disk and its connection, then start Velmora again.</source>
        <translation>El perfil «%1» no se puede leer, porque su disco comunica un error. Compruebe el disco y su conexión, y vuelva a iniciar Velmora.</translation>
    </message>
    <message>
        <source>The profile “%1” is damaged (%2). Quit Velmora and start it again: it then repairs the profile or offers to restore a backup.</source>
        <translation>El perfil «%1» está dañado (%2). Salga de Velmora y vuelva a iniciarlo: entonces repara el perfil u ofrece restaurar una copia de seguridad.</translation>
    </message>
    <message>
        <source>An index of the profile was damaged and was rebuilt. If this happens again, check the disk.</source>
        <translation>Un índice del perfil estaba dañado y se ha reconstruido. Si vuelve a ocurrir, compruebe el disco.</translation>
    </message>
    <message>
        <source>Notes of “%1” that you wanted to keep were removed before you decided, for example by “velmora sync --removals remove”. To restore them, choose “Deleted Notes” in the menu “Edit”.</source>
        <translation>Algunas notas de «%1» que quería conservar se eliminaron antes de que decidiera, por ejemplo con «velmora sync --removals remove». Para restaurarlas, elija «Notas eliminadas» en el menú «Editar».</translation>
    </message>
    <message>
        <source>Notes of “%1” that you wanted to remove were kept or edited before you decided, for example by “velmora sync --removals keep”. If you do not need them, delete them.</source>
        <translation>Algunas notas de «%1» que quería eliminar se conservaron o se editaron antes de que decidiera, por ejemplo con «velmora sync --removals keep». Si no las necesita, elimínelas.</translation>
    </message>
    <message>
        <source>The old backup “%1” cannot be removed: %2. Check the permissions of its folder and its disk.</source>
        <translation>No se puede eliminar la copia de seguridad antigua «%1»: %2. Compruebe los permisos de su carpeta y su disco.</translation>
    </message>
    <message>
        <source>The unfinished backup “%1” cannot be removed: %2. Check the permissions of its folder and its disk.</source>
        <translation>No se puede eliminar la copia de seguridad inacabada «%1»: %2. Compruebe los permisos de su carpeta y su disco.</translation>
    </message>
    <message>
        <source>Files that an interrupted recovery has left in “%1” cannot be removed: %2. Check the permissions of the folder and its disk.</source>
        <translation>No se pueden eliminar los archivos que una recuperación interrumpida ha dejado en «%1»: %2. Compruebe los permisos de la carpeta y su disco.</translation>
    </message>
    <message>
        <source>An index of the profile “%1” is damaged in a way that cannot be repaired. At its start, Velmora offers to restore a backup.</source>
        <translation>Un índice del perfil «%1» está dañado de un modo que no se puede reparar. Al iniciarse, Velmora ofrece restaurar una copia de seguridad.</translation>
    </message>
    <message>
        <source>In a folder that your computers share</source>
        <translation>En una carpeta que comparten sus equipos</translation>
    </message>
    <message>
        <source>On a WebDAV server</source>
        <translation>En un servidor WebDAV</translation>
    </message>
    <message>
        <source>On another computer</source>
        <translation>En otro equipo</translation>
    </message>
    <message>
        <source>Choose a computer, or enter its host.</source>
        <translation>Elija un equipo o introduzca su host.</translation>
    </message>
    <message>
        <source>Select a location to continue.</source>
        <translation>Seleccione una ubicación para continuar.</translation>
    </message>
    <message>
        <source>Select the databases to import.</source>
        <translation>Seleccione las bases de datos que se importarán.</translation>
    </message>
    <message>
        <source>Create a sync store or choose one.</source>
        <translation>Cree un almacén de sincronización o elija uno.</translation>
    </message>
    <message>
        <source>Synchronize “%1” with</source>
        <translation>Sincronizar «%1» con</translation>
    </message>
    <message>
        <source>Schedule of “%1”</source>
        <translation>Programación de «%1»</translation>
    </message>
    <message>
        <source>“%1” can no longer be restored here. If a sync location has it, import it from there.</source>
        <translation>«%1» ya no se puede restaurar aquí. Si una ubicación de sincronización la tiene, impórtela desde allí.</translation>
    </message>
    <message>
        <source>“%1” belongs to a deleted database and cannot be deleted. Velmora tries again when it starts. Check the permissions.</source>
        <translation>«%1» pertenece a una base de datos eliminada y no se puede eliminar. Velmora lo intentará de nuevo al iniciarse. Compruebe los permisos.</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notas</translation>
    </message>
    <message>
        <source>Computers that may connect can read and change it if it is ticked.</source>
        <translation>Los equipos que pueden conectarse pueden leerla y cambiarla si está marcada.</translation>
    </message>
    <message>
        <source>Computer on the local network</source>
        <translation>Equipo de la red local</translation>
    </message>
    <message>
        <source>Location to import databases from</source>
        <translation>Ubicación desde la que se importan bases de datos</translation>
    </message>
    <message>
        <source>Database that this computer does not have</source>
        <translation>Base de datos que este equipo no tiene</translation>
    </message>
</context>
<context>
    <name>Platform</name>
    <message>
        <source>Help (?)</source>
        <translation>Ayuda (?)</translation>
    </message>
    <message>
        <source>Open the guide (%1)</source>
        <translation>Abrir la guía (%1)</translation>
    </message>
    <message>
        <source>Further failures: %1</source>
        <translation>Otros fallos: %1</translation>
    </message>
    <message>
        <source>No file manager could be started. Install one, or open the folder “%1” in another program.</source>
        <translation>No se pudo iniciar ningún gestor de archivos. Instale uno o abra la carpeta «%1» en otro programa.</translation>
    </message>
    <message>
        <source>“%1” does not exist. Check whether it was moved or renamed, and whether its volume is connected.</source>
        <translation>«%1» no existe. Compruebe si se ha movido o si ha cambiado de nombre, y si su volumen está conectado.</translation>
    </message>
    <message>
        <source>Check the permissions of the file and the space on the disk.</source>
        <translation>Compruebe los permisos del archivo y el espacio en el disco.</translation>
    </message>
    <message>
        <source>The settings in the file “%1” cannot be read. Check the permissions of the file.</source>
        <translation>No se pueden leer los ajustes del archivo «%1». Compruebe los permisos del archivo.</translation>
    </message>
    <message>
        <source>The setting could not be saved in the file “%1”. It is lost when %2 ends.</source>
        <translation>No se pudo guardar el ajuste en el archivo «%1». Se perderá cuando termine %2.</translation>
    </message>
    <message>
        <source>No password service is running on this computer.</source>
        <translation>No hay ningún servicio de contraseñas en ejecución en este equipo.</translation>
    </message>
    <message>
        <source>The output could not be written. Check the disk or the program that receives it, then try again.</source>
        <translation>No se pudo escribir la salida. Compruebe el disco o el programa que la recibe y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>The saved password could not be read. Start or unlock the password service, then try again.</source>
        <translation>No se pudo leer la contraseña guardada. Inicie o desbloquee el servicio de contraseñas y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>A saved password or permission could not be deleted. Unlock the keyring and try again.</source>
        <translation>No se pudo eliminar una contraseña o un permiso guardados. Desbloquee el depósito de claves y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>The keyring is locked.</source>
        <translation>El depósito de claves está bloqueado.</translation>
    </message>
    <message>
        <source>The name “%1” cannot be looked up in the local network, because the service Avahi does not respond (%2). Start it and try again.</source>
        <translation>No se puede buscar el nombre «%1» en la red local, porque el servicio Avahi no responde (%2). Inícielo y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>No computer of the local network has responded to the name “%1”. Check that the computer is on and in the same network.</source>
        <translation>Ningún equipo de la red local ha respondido al nombre «%1». Compruebe que el equipo está encendido y en la misma red.</translation>
    </message>
    <message>
        <source>The password service failed. To restart it, log out and log in again.</source>
        <translation>El servicio de contraseñas ha fallado. Para reiniciarlo, cierre la sesión y vuelva a iniciarla.</translation>
    </message>
    <message>
        <source>Passwords cannot be saved. They are kept until you quit %1. To save them, start or unlock the password service, and enter them again.</source>
        <translation>No se pueden guardar las contraseñas. Se conservan hasta que salga de %1. Para guardarlas, inicie o desbloquee el servicio de contraseñas y vuelva a introducirlas.</translation>
    </message>
    <message>
        <source>yesterday at %1</source>
        <translation>ayer a las %1</translation>
    </message>
    <message>
        <source>today at %1</source>
        <translation>hoy a las %1</translation>
    </message>
    <message>
        <source>tomorrow at %1</source>
        <translation>mañana a las %1</translation>
    </message>
    <message>
        <source>The file “%1” could not be written. Check its permissions and the space on its disk.</source>
        <translation>No se pudo escribir el archivo «%1». Compruebe sus permisos y el espacio en su disco.</translation>
    </message>
    <message>
        <source>The file “%1” could not be read. Check its permissions and its disk.</source>
        <translation>No se pudo leer el archivo «%1». Compruebe sus permisos y su disco.</translation>
    </message>
    <message>
        <source>The folder “%1” could not be created. Check the permissions of the folder that contains it, or choose another one.</source>
        <translation>No se pudo crear la carpeta «%1». Compruebe los permisos de la carpeta que la contiene o elija otra.</translation>
    </message>
    <message>
        <source>The folder “%1” could not be read. Check its permissions and its disk.</source>
        <translation>No se pudo leer la carpeta «%1». Compruebe sus permisos y su disco.</translation>
    </message>
    <message>
        <source>“%1” could not be removed. Check the permissions of its folder and its disk.</source>
        <translation>No se pudo eliminar «%1». Compruebe los permisos de su carpeta y su disco.</translation>
    </message>
    <message>
        <source>“%1” cannot be reached. Check the permissions of the folders that contain it and its disk.</source>
        <translation>No se puede acceder a «%1». Compruebe los permisos de las carpetas que lo contienen y su disco.</translation>
    </message>
    <message>
        <source>The database “%1” cannot be read (%2). Try again. If that fails, check the disk and the permissions of the file.</source>
        <translation>No se puede leer la base de datos «%1» (%2). Vuelva a intentarlo. Si no funciona, compruebe el disco y los permisos del archivo.</translation>
    </message>
    <message>
        <source>The system cannot start another thread. Quit programs that you do not need, then try again.</source>
        <translation>El sistema no puede iniciar otro hilo. Cierre los programas que no necesite y vuelva a intentarlo.</translation>
    </message>
</context>
</TS>
