<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en_US">
<context>
    <name>Sync</name>
    <message>
        <source>Other computers do not find this one by themselves, because the service “Avahi” is not running on this computer. Start it, or enter this address and port on the other computer under “Add”, “Direct Connection…”.</source>
        <translation>Les autres ordinateurs ne trouvent pas celui-ci d’eux-mêmes, car le service « Avahi » n’y est pas en cours d’exécution. Démarrez-le, ou saisissez cette adresse et ce port sur l’autre ordinateur sous « Ajouter », « Connexion directe… ».</translation>
    </message>
    <message>
        <source>“%1” was not revoked and may still connect. %2 Start the password service, and revoke it again.</source>
        <translation>« %1 » n’a pas été révoqué et peut toujours se connecter. %2 Démarrez le service de mots de passe, puis révoquez-le de nouveau.</translation>
    </message>
    <message>
        <source>Your changes to the sync locations could not be saved, and the reason is not known. Check the space on the disk, and try again.</source>
        <translation>Vos modifications des emplacements de synchronisation n’ont pas pu être enregistrées, et la raison n’est pas connue. Vérifiez l’espace disponible sur le disque, puis réessayez.</translation>
    </message>
    <message>
        <source>The computers that may connect cannot be listed. %1 Start or unlock the password service, and open this window again.</source>
        <translation>Les ordinateurs autorisés à se connecter ne peuvent pas être affichés. %1 Démarrez ou déverrouillez le service de mots de passe, puis rouvrez cette fenêtre.</translation>
    </message>
    <message>
        <source>Computers cannot be found, because the service “Avahi” is not running on this computer. Start it, or enter the address of the other computer.</source>
        <translation>Aucun ordinateur ne peut être trouvé, car le service « Avahi » n’est pas en cours d’exécution sur cet ordinateur. Démarrez-le, ou saisissez l’adresse de l’autre ordinateur.</translation>
    </message>
    <message>
        <source>“%1” is not a valid host. Enter a name, such as “computer.local”, or an IP address.</source>
        <translation>« %1 » n’est pas un hôte valide. Saisissez un nom, par exemple « computer.local », ou une adresse IP.</translation>
    </message>
    <message>
        <source>Enter a server and a store name.</source>
        <translation>Saisissez un serveur et le nom d’un dépôt.</translation>
    </message>
    <message>
        <source>“%1” is not a valid server name. Enter a name such as “dav.example.org”.</source>
        <translation>« %1 » n’est pas un nom de serveur valide. Saisissez un nom comme « dav.example.org ».</translation>
    </message>
    <message>
        <source>A server name contains no blanks. Remove the blank from “%1”.</source>
        <translation>Un nom de serveur ne contient pas d’espaces. Supprimez l’espace dans « %1 ».</translation>
    </message>
    <message>
        <source>A server name cannot contain “%1”.</source>
        <translation>Un nom de serveur ne peut pas contenir « %1 ».</translation>
    </message>
    <message>
        <source>Enter “%1” instead.</source>
        <translation>Saisissez plutôt « %1 ».</translation>
    </message>
    <message>
        <source>The server field contains a complete address. Click “Fill In the Fields”.</source>
        <translation>Le champ « Serveur » contient une adresse complète. Cliquez sur « Remplir les champs ».</translation>
    </message>
    <message>
        <source>The port is a number from 1 to 65535. Correct it or leave it empty.</source>
        <translation>Le port est un nombre compris entre 1 et 65535. Corrigez-le ou laissez le champ vide.</translation>
    </message>
    <message>
        <source>The folder and the store name cannot contain “?”.</source>
        <translation>Le dossier et le nom du dépôt ne peuvent pas contenir « ? ».</translation>
    </message>
    <message>
        <source>Address: %1</source>
        <translation>Adresse : %1</translation>
    </message>
    <message>
        <source>Fill In the Fields</source>
        <translation>Remplir les champs</translation>
    </message>
    <message>
        <source>Distribute the address in the server field over the fields</source>
        <translation>Répartir dans les champs l’adresse saisie dans le champ « Serveur »</translation>
    </message>
    <message>
        <source>“%1” does not return what was written to it. Check the server or the disk, or use another location.</source>
        <translation>« %1 » ne renvoie pas ce qui y a été écrit. Vérifiez le serveur ou le disque, ou utilisez un autre emplacement.</translation>
    </message>
    <message numerus="yes">
        <source>%1 databases</source>
        <translation>
            <numerusform>%1 base de données</numerusform>
            <numerusform>%1 bases de données</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” can be read. %2.</source>
        <translation>« %1 » peut être lu. %2.</translation>
    </message>
    <message>
        <source>“%1” can be read and written. %2.</source>
        <translation>« %1 » peut être lu et écrit. %2.</translation>
    </message>
    <message>
        <source>“%1” can be read and written. %2, %3.</source>
        <translation>« %1 » peut être lu et écrit. %2, %3.</translation>
    </message>
    <message>
        <source>“%1” can be read, but not written. %2</source>
        <translation>« %1 » peut être lu, mais pas écrit. %2</translation>
    </message>
    <message>
        <source>“%1” takes too long to respond. Check whether it is available, and try again.</source>
        <translation>« %1 » met trop de temps à répondre. Vérifiez sa disponibilité et réessayez.</translation>
    </message>
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
    <message>
        <source>Show Log</source>
        <translation>Afficher le journal</translation>
    </message>
    <message>
        <source>%1 %2 of %3</source>
        <translation>%1 %2 sur %3</translation>
    </message>
    <message>
        <source>Progress of the synchronization</source>
        <translation>Progression de la synchronisation</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Stop all synchronizations. The next one continues where they stopped.</source>
        <translation>Arrêter toutes les synchronisations. La prochaine reprendra là où elles se sont arrêtées.</translation>
    </message>
    <message>
        <source>damaged record</source>
        <translation>enregistrement endommagé</translation>
    </message>
    <message>
        <source>invalid name or text</source>
        <translation>nom ou texte non valide</translation>
    </message>
    <message>
        <source>a file is missing</source>
        <translation>un fichier manque</translation>
    </message>
    <message>
        <source>a file cannot be used</source>
        <translation>un fichier est inutilisable</translation>
    </message>
    <message>
        <source>a newer version is needed</source>
        <translation>une version plus récente est nécessaire</translation>
    </message>
    <message>
        <source>not shared by the server</source>
        <translation>non partagée par le serveur</translation>
    </message>
    <message>
        <source>wrong password</source>
        <translation>mot de passe incorrect</translation>
    </message>
    <message>
        <source>access denied</source>
        <translation>accès refusé</translation>
    </message>
    <message>
        <source>read-only</source>
        <translation>en lecture seule</translation>
    </message>
    <message>
        <source>no space left</source>
        <translation>plus d’espace disponible</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>non disponible</translation>
    </message>
    <message>
        <source>certificate not trusted</source>
        <translation>certificat non approuvé</translation>
    </message>
    <message>
        <source>waiting for your decision</source>
        <translation>en attente de votre décision</translation>
    </message>
    <message>
        <source>the profile cannot be saved</source>
        <translation>le profil ne peut pas être enregistré</translation>
    </message>
    <message>
        <source>failed %1</source>
        <translation>échec : %1</translation>
    </message>
    <message>
        <source>failed %1: %2</source>
        <translation>échec (%1) : %2</translation>
    </message>
    <message>
        <source>never synchronized</source>
        <translation>jamais synchronisé</translation>
    </message>
    <message>
        <source>synchronized %1</source>
        <translation>synchronisé : %1</translation>
    </message>
    <message numerus="yes">
        <source>Synchronized with %1 of %2 locations · %3</source>
        <translation>
            <numerusform>Synchronisée avec %1 emplacement sur %2 · %3</numerusform>
            <numerusform>Synchronisée avec %1 des %2 emplacements · %3</numerusform>
        </translation>
    </message>
    <message>
        <source>Synchronization failed</source>
        <translation>La synchronisation a échoué</translation>
    </message>
    <message>
        <source>Synchronization failed · last synchronized %1</source>
        <translation>La synchronisation a échoué · dernière synchronisation : %1</translation>
    </message>
    <message>
        <source>Not yet synchronized with the ticked locations</source>
        <translation>Pas encore synchronisée avec les emplacements cochés</translation>
    </message>
    <message>
        <source>Tick a location first. A schedule belongs to the locations that are ticked.</source>
        <translation>Cochez d’abord un emplacement. Une planification s’applique aux emplacements cochés.</translation>
    </message>
    <message>
        <source>Choose at least one day. Otherwise nothing is synchronized.</source>
        <translation>Choisissez au moins un jour. Sinon, rien n’est synchronisé.</translation>
    </message>
    <message>
        <source>The last synchronization failed. Show what failed.</source>
        <translation>La dernière synchronisation a échoué. Afficher l’erreur.</translation>
    </message>
    <message>
        <source>Show what failed with “%1”</source>
        <translation>Afficher l’erreur survenue avec « %1 »</translation>
    </message>
    <message>
        <source>Synchronizes “%1” with “%2”</source>
        <translation>Synchronise « %1 » avec « %2 »</translation>
    </message>
    <message>
        <source>Unavailable</source>
        <translation>non disponible</translation>
    </message>
    <message>
        <source>Dropbox</source>
        <translation>Dropbox</translation>
    </message>
    <message>
        <source>Local Sync Store</source>
        <translation>Dépôt de synchronisation local</translation>
    </message>
    <message>
        <source>WebDAV</source>
        <translation>WebDAV</translation>
    </message>
    <message>
        <source>Dropbox Location</source>
        <translation>Emplacement Dropbox</translation>
    </message>
    <message>
        <source>Sign In…</source>
        <translation>S’identifier…</translation>
    </message>
    <message>
        <source>Reading the password…</source>
        <translation>Lecture du mot de passe…</translation>
    </message>
    <message>
        <source>%1 %2 To replace the password, enter it again.</source>
        <translation>%1 %2 Pour remplacer le mot de passe, saisissez-le de nouveau.</translation>
    </message>
    <message>
        <source>Direct Connection</source>
        <translation>Connexion directe</translation>
    </message>
    <message>
        <source>Unknown Location</source>
        <translation>Emplacement inconnu</translation>
    </message>
    <message>
        <source>No Address</source>
        <translation>Sans adresse</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>Synchroniser</translation>
    </message>
    <message>
        <source>Not authorized</source>
        <translation>Non autorisé</translation>
    </message>
    <message>
        <source>Authorizing…</source>
        <translation>Autorisation en cours…</translation>
    </message>
    <message>
        <source>Authorized</source>
        <translation>Autorisé</translation>
    </message>
    <message>
        <source>Give Velmora access to any folder where indexed items may be kept.</source>
        <translation>Autorisez Velmora à accéder à tout dossier où peuvent se trouver des fichiers indexés.</translation>
    </message>
    <message>
        <source>Success</source>
        <translation>Succès</translation>
    </message>
    <message>
        <source>Parameter Error</source>
        <translation>Erreur de paramètre</translation>
    </message>
    <message>
        <source>Illegal parameter supplied to encryption/decryption algorithm</source>
        <translation>Un paramètre non autorisé a été transmis à l’algorithme de chiffrement ou de déchiffrement</translation>
    </message>
    <message>
        <source>Buffer Too Small</source>
        <translation>Tampon trop petit</translation>
    </message>
    <message>
        <source>Insufficient buffer provided for specified operation</source>
        <translation>Le tampon fourni est insuffisant pour l’opération demandée</translation>
    </message>
    <message>
        <source>Memory Failure</source>
        <translation>Erreur de mémoire</translation>
    </message>
    <message>
        <source>Failed to allocate memory</source>
        <translation>L’allocation de mémoire a échoué</translation>
    </message>
    <message>
        <source>Alignment Error</source>
        <translation>Erreur d’alignement</translation>
    </message>
    <message>
        <source>Input size to encryption algorithm was not aligned correctly</source>
        <translation>La taille des données fournies à l’algorithme de chiffrement n’est pas correctement alignée</translation>
    </message>
    <message>
        <source>Decode Error</source>
        <translation>Erreur de décodage</translation>
    </message>
    <message>
        <source>Input data did not decode or decrypt correctly</source>
        <translation>Les données d’entrée n’ont pas pu être décodées ou déchiffrées correctement</translation>
    </message>
    <message>
        <source>Unimplemented Function</source>
        <translation>Fonction non disponible</translation>
    </message>
    <message>
        <source>Function not implemented for the current algorithm</source>
        <translation>La fonction n’existe pas pour l’algorithme actuel</translation>
    </message>
    <message>
        <source>Unknown Error</source>
        <translation>Erreur inconnue</translation>
    </message>
    <message>
        <source>Failed to fetch information for database (%@)</source>
        <translation>Les informations de la base de données n’ont pas pu être récupérées (%@)</translation>
    </message>
    <message>
        <source>The profile “%1” was created by a newer version of Velmora. Update Velmora to open it.</source>
        <translation>Le profil « %1 » a été créé par une version plus récente de Velmora. Mettez Velmora à jour pour l’ouvrir.</translation>
    </message>
    <message>
        <source>“%1” is a database of another program, not a profile. Choose another folder.</source>
        <translation>« %1 » est la base de données d’un autre programme et non un profil. Choisissez un autre dossier.</translation>
    </message>
    <message>
        <source>“%1” is not a file, so it cannot be opened as a profile. Choose another folder.</source>
        <translation>« %1 » n’est pas un fichier et ne peut donc pas être ouvert comme profil. Choisissez un autre dossier.</translation>
    </message>
    <message>
        <source>The profile “%1” is in use by another Velmora. Quit it and try again.</source>
        <translation>Le profil « %1 » est utilisé par un autre Velmora. Quittez-le et réessayez.</translation>
    </message>
    <message>
        <source>The profile folder “%1” cannot be locked: %2. Check its disk and its permissions, then try again.</source>
        <translation>Le dossier de profil « %1 » ne peut pas être verrouillé : %2. Vérifiez le disque et les droits d’accès, puis réessayez.</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be copied: %2. Check the disk, then try again.</source>
        <translation>Le profil « %1 » ne peut pas être copié : %2. Vérifiez le disque, puis réessayez.</translation>
    </message>
    <message>
        <source>You do not have permission to read the profile “%1”. Change its permissions or use another profile.</source>
        <translation>Vous n’avez pas l’autorisation de lire le profil « %1 ». Modifiez ses droits d’accès ou utilisez un autre profil.</translation>
    </message>
    <message>
        <source>The profile “%1” is read-only. Change its permissions or use another profile.</source>
        <translation>Le profil « %1 » est en lecture seule. Modifiez ses droits d’accès ou utilisez un autre profil.</translation>
    </message>
    <message>
        <source>The profile folder “%1” is read-only. Change its permissions or use another profile.</source>
        <translation>Le dossier de profil « %1 » est en lecture seule. Modifiez ses droits d’accès ou utilisez un autre profil.</translation>
    </message>
    <message>
        <source>The profile folder “%1” could not be created. Check the permissions of the folder that contains it.</source>
        <translation>Le dossier de profil « %1 » n’a pas pu être créé. Vérifiez les droits d’accès du dossier parent.</translation>
    </message>
    <message>
        <source>“%1” is not a folder. Choose a folder for the profile.</source>
        <translation>« %1 » n’est pas un dossier. Choisissez un dossier pour le profil.</translation>
    </message>
    <message>
        <source>The folder “%1” contains other files and no profile. Choose an empty folder.</source>
        <translation>Le dossier « %1 » contient d’autres fichiers et aucun profil. Choisissez un dossier vide.</translation>
    </message>
    <message>
        <source>%1 %2 Unlock the keyring and try again.</source>
        <translation>%1 %2 Déverrouillez le trousseau de clés et réessayez.</translation>
    </message>
    <message>
        <source>Profile:</source>
        <translation>Profil :</translation>
    </message>
    <message>
        <source>Other users of this computer may be able to read the profile “%1”, because its permissions cannot be changed. Move it to a folder of your own.</source>
        <translation>D’autres utilisateurs de cet ordinateur peuvent être en mesure de lire le profil « %1 », car ses droits d’accès ne peuvent pas être modifiés. Déplacez-le dans un dossier qui vous appartient.</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be opened: %2. Check its disk and its permissions, then try again.</source>
        <translation>Le profil « %1 » ne peut pas être ouvert : %2. Vérifiez le disque et les droits d’accès, puis réessayez.</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be read or written: %2. Check its disk and its permissions, then try again.</source>
        <translation>Le profil « %1 » ne peut pas être lu ou écrit : %2. Vérifiez le disque et les droits d’accès, puis réessayez.</translation>
    </message>
    <message>
        <source>The profile “%1” has no inbox. Restore it from a backup or use another profile.</source>
        <translation>Le profil « %1 » n’a pas de boîte de réception. Restaurez-le à partir d’une copie de sauvegarde ou utilisez un autre profil.</translation>
    </message>
    <message>
        <source>The profile “%1” no longer exists. Quit Velmora and restore it from a backup.</source>
        <translation>Le profil « %1 » n’existe plus. Quittez Velmora et restaurez-le à partir d’une copie de sauvegarde.</translation>
    </message>
    <message>
        <source>Enter a name for the database.</source>
        <translation>Saisissez un nom pour la base de données.</translation>
    </message>
    <message>
        <source>The operation was cancelled.</source>
        <translation>L’opération a été annulée.</translation>
    </message>
    <message>
        <source>The sync store is not open. Try again.</source>
        <translation>Le dépôt de synchronisation n’est pas ouvert. Réessayez.</translation>
    </message>
    <message>
        <source>This location has no address. Remove it and add it again.</source>
        <translation>Cet emplacement n’a pas d’adresse. Retirez-le, puis ajoutez-le de nouveau.</translation>
    </message>
    <message>
        <source>Velmora does not support locations of the kind “%1”. Remove this location and add another one.</source>
        <translation>Velmora ne prend pas en charge les emplacements du type « %1 ». Retirez cet emplacement et ajoutez-en un autre.</translation>
    </message>
    <message>
        <source>“%1” is a folder on another computer. Choose a folder on this computer.</source>
        <translation>« %1 » est un dossier d’un autre ordinateur. Choisissez un dossier de cet ordinateur.</translation>
    </message>
    <message>
        <source>The sync store “%1” does not exist. Check whether it was moved or renamed.</source>
        <translation>Le dépôt de synchronisation « %1 » n’existe pas. Vérifiez s’il a été déplacé ou renommé.</translation>
    </message>
    <message>
        <source>“%1” is not a sync store. Edit the location and choose another one.</source>
        <translation>« %1 » n’est pas un dépôt de synchronisation. Modifiez l’emplacement et choisissez-en un autre.</translation>
    </message>
    <message>
        <source>Do Not Trust</source>
        <translation>Ne pas approuver</translation>
    </message>
    <message>
        <source>Fingerprint (SHA-256): %1</source>
        <translation>Empreinte (SHA-256) : %1</translation>
    </message>
    <message>
        <source>Issued by: %1</source>
        <translation>Émis par : %1</translation>
    </message>
    <message>
        <source>Issued to: %1</source>
        <translation>Émis pour : %1</translation>
    </message>
    <message>
        <source>A secure connection to the server “%1” could not be established (%2). Check its port, and whether it supports HTTPS.</source>
        <translation>Aucune connexion sécurisée n’a pu être établie avec le serveur « %1 » (%2). Vérifiez son port et s’il prend en charge HTTPS.</translation>
    </message>
    <message>
        <source>“%1” is not a valid name in a sync store. Install the newest version of Velmora on all your computers.</source>
        <translation>« %1 » n’est pas un nom valide dans un dépôt de synchronisation. Installez la dernière version de Velmora sur tous vos ordinateurs.</translation>
    </message>
    <message>
        <source>The server “%1” sent an unexpected response (HTTP %2). Try again later or ask its administrator.</source>
        <translation>Le serveur « %1 » a envoyé une réponse inattendue (HTTP %2). Réessayez plus tard ou adressez-vous à son administrateur.</translation>
    </message>
    <message>
        <source>The server “%1” sent an invalid response. Try again later or ask its administrator.</source>
        <translation>Le serveur « %1 » a envoyé une réponse non valide. Réessayez plus tard ou adressez-vous à son administrateur.</translation>
    </message>
    <message>
        <source>“%1” is missing from the response or is not valid.</source>
        <translation>« %1 » manque dans la réponse ou n’est pas valide.</translation>
    </message>
    <message>
        <source>The server “%1” sent a response that is too long. Ask its administrator.</source>
        <translation>Le serveur « %1 » a envoyé une réponse trop longue. Adressez-vous à son administrateur.</translation>
    </message>
    <message>
        <source>The certificate, or one with which it was issued, has a key or a signature that is too weak.</source>
        <translation>Le certificat, ou un de ceux avec lesquels il a été émis, a une clé ou une signature trop faible.</translation>
    </message>
    <message>
        <source>The certificate has expired.</source>
        <translation>Le certificat a expiré.</translation>
    </message>
    <message>
        <source>The certificate is not valid yet.</source>
        <translation>Le certificat n’est pas encore valide.</translation>
    </message>
    <message>
        <source>The certificate is self-signed.</source>
        <translation>Le certificat est autosigné.</translation>
    </message>
    <message>
        <source>The certificate was issued for another server.</source>
        <translation>Le certificat a été émis pour un autre serveur.</translation>
    </message>
    <message>
        <source>The certificate was issued by an authority that this computer does not trust.</source>
        <translation>Le certificat a été émis par une autorité que cet ordinateur n’approuve pas.</translation>
    </message>
    <message>
        <source>The folder “%1” does not exist on the server. Create it there or edit the location.</source>
        <translation>Le dossier « %1 » n’existe pas sur le serveur. Créez-le sur le serveur ou modifiez l’emplacement.</translation>
    </message>
    <message>
        <source>The server does not allow you to use “%1”. Ask its administrator for access.</source>
        <translation>Le serveur ne vous autorise pas à utiliser « %1 ». Demandez l’accès à son administrateur.</translation>
    </message>
    <message>
        <source>The server “%1” requires a password, but none is saved for this location. Edit the location to enter it.</source>
        <translation>Le serveur « %1 » exige un mot de passe, mais aucun n’est enregistré pour cet emplacement. Modifiez l’emplacement pour le saisir.</translation>
    </message>
    <message>
        <source>The server “%1” supports neither Basic nor Digest authentication with MD5 or SHA-256. Ask its administrator to allow one of them.</source>
        <translation>Le serveur « %1 » ne prend en charge ni l’authentification Basic ni l’authentification Digest avec MD5 ou SHA-256. Demandez à son administrateur d’autoriser l’une d’elles.</translation>
    </message>
    <message>
        <source>The server “%1” closed the connection without a response. Check its name and port.</source>
        <translation>Le serveur « %1 » a fermé la connexion sans répondre. Vérifiez son nom et son port.</translation>
    </message>
    <message>
        <source>The server “%1” cannot be reached through the proxy “%2” (%3). Check the proxy in the network settings of the desktop.</source>
        <translation>Le serveur « %1 » est injoignable par le proxy « %2 » (%3). Vérifiez le proxy dans les réglages réseau du bureau.</translation>
    </message>
    <message>
        <source>The server “%1” cannot be reached: %2. Check the network connection.</source>
        <translation>Le serveur « %1 » est injoignable : %2. Vérifiez la connexion réseau.</translation>
    </message>
    <message>
        <source>The server “%1” refused the connection. Check the port, and whether the server is running.</source>
        <translation>Le serveur « %1 » a refusé la connexion. Vérifiez le port et si le serveur est en cours d’exécution.</translation>
    </message>
    <message>
        <source>The server “%1” cannot prove its identity. Trust its certificate for this location?</source>
        <translation>Le serveur « %1 » ne peut pas prouver son identité. Approuver son certificat pour cet emplacement ?</translation>
    </message>
    <message>
        <source>The server “%1” cannot prove its identity: %2 Check the address, or ask the administrator of the server about its certificate.</source>
        <translation>Le serveur « %1 » ne peut pas prouver son identité : %2 Vérifiez l’adresse ou renseignez-vous sur le certificat auprès de l’administrateur du serveur.</translation>
    </message>
    <message>
        <source>The server “%1” does not accept this user name and password. Edit the location to correct them.</source>
        <translation>Le serveur « %1 » n’accepte pas ce nom d’utilisateur et ce mot de passe. Modifiez l’emplacement pour les corriger.</translation>
    </message>
    <message>
        <source>The server “%1” does not respond. Check the network connection and try again.</source>
        <translation>Le serveur « %1 » ne répond pas. Vérifiez la connexion réseau et réessayez.</translation>
    </message>
    <message>
        <source>The server “%1” reported an internal error (HTTP %2). Try again later or ask its administrator.</source>
        <translation>Le serveur « %1 » a signalé une erreur interne (HTTP %2). Réessayez plus tard ou adressez-vous à son administrateur.</translation>
    </message>
    <message>
        <source>The server “%1” is busy. Try again later.</source>
        <translation>Le serveur « %1 » est occupé. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>The server “%1” has no space left. Delete files there or ask its administrator.</source>
        <translation>Le serveur « %1 » n’a plus d’espace disponible. Supprimez-y des fichiers ou adressez-vous à son administrateur.</translation>
    </message>
    <message>
        <source>The server “%1” does not offer WebDAV at this address. Edit the location to correct it.</source>
        <translation>Le serveur « %1 » n’offre pas WebDAV à cette adresse. Modifiez l’emplacement pour la corriger.</translation>
    </message>
    <message>
        <source>The server “%1” redirects too often. Check the address of the location.</source>
        <translation>Le serveur « %1 » redirige trop souvent. Vérifiez l’adresse de l’emplacement.</translation>
    </message>
    <message>
        <source>The server “%1” redirects to “%2”. If that is correct, edit the location and enter it as the address.</source>
        <translation>Le serveur « %1 » redirige vers « %2 ». Si c’est correct, modifiez l’emplacement et saisissez cette adresse.</translation>
    </message>
    <message>
        <source>The server “%1” takes too long to respond. Try again later.</source>
        <translation>Le serveur « %1 » met trop de temps à répondre. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>The sync store “%1” is read-only. Change its permissions or choose another one.</source>
        <translation>Le dépôt de synchronisation « %1 » est en lecture seule. Modifiez ses droits d’accès ou choisissez-en un autre.</translation>
    </message>
    <message>
        <source>The volume that contains the sync store “%1” is full. Free some space on it.</source>
        <translation>Le volume qui contient le dépôt de synchronisation « %1 » est plein. Libérez-y de l’espace.</translation>
    </message>
    <message>
        <source>The volume that contains the sync store “%1” is not mounted. Connect it and try again.</source>
        <translation>Le volume qui contient le dépôt de synchronisation « %1 » n’est pas monté. Connectez-le et réessayez.</translation>
    </message>
    <message>
        <source>The server “%1” was not found. Check its name and the network connection.</source>
        <translation>Le serveur « %1 » est introuvable. Vérifiez son nom et la connexion réseau.</translation>
    </message>
    <message>
        <source>The address of the server “%1” could not be looked up. Check the network connection and try again.</source>
        <translation>L’adresse du serveur « %1 » n’a pas pu être déterminée. Vérifiez la connexion au réseau et réessayez.</translation>
    </message>
    <message>
        <source>The address of the server “%1” was not looked up because too many look-ups are still running. Try again in a minute.</source>
        <translation>L’adresse du serveur « %1 » n’a pas été recherchée, car trop de recherches sont encore en cours. Réessayez dans une minute.</translation>
    </message>
    <message>
        <source>Trust This Certificate</source>
        <translation>Approuver ce certificat</translation>
    </message>
    <message>
        <source>Valid from %1 to %2</source>
        <translation>Valide du %1 au %2</translation>
    </message>
    <message>
        <source>You do not have permission to use “%1”. Change its permissions or choose another sync store.</source>
        <translation>Vous n’avez pas l’autorisation d’utiliser « %1 ». Modifiez ses droits d’accès ou choisissez un autre dépôt de synchronisation.</translation>
    </message>
    <message>
        <source>“%1” cannot be read or written: %2. Check its disk and its permissions, then try again.</source>
        <translation>« %1 » ne peut pas être lu ou écrit : %2. Vérifiez le disque et les droits d’accès, puis réessayez.</translation>
    </message>
    <message>
        <source>“%1” is larger than the server accepts. Ask its administrator to raise the limit.</source>
        <translation>« %1 » est plus volumineux que ce que le serveur accepte. Demandez à son administrateur d’augmenter la limite.</translation>
    </message>
    <message>
        <source>“%1” is locked on the server. Try again later.</source>
        <translation>« %1 » est verrouillé sur le serveur. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>“%1” does not exist. Try again. If it is still missing, check the location.</source>
        <translation>« %1 » n’existe pas. Réessayez. S’il manque toujours, vérifiez l’emplacement.</translation>
    </message>
    <message>
        <source>“%1” isn’t a valid item in a sync store. Move it to another folder if it does not belong there.</source>
        <translation>« %1 » n’est pas un élément valide dans un dépôt de synchronisation. Déplacez-le dans un autre dossier s’il n’a rien à y faire.</translation>
    </message>
    <message>
        <source>“%1” is too large and was not read. Move it to another folder if it does not belong there.</source>
        <translation>« %1 » est trop volumineux et n’a pas été lu. Déplacez-le dans un autre dossier s’il n’a rien à y faire.</translation>
    </message>
    <message>
        <source>The sync store “%1” could not be created. Check the permissions of the folder that contains it.</source>
        <translation>Le dépôt de synchronisation « %1 » n’a pas pu être créé. Vérifiez les droits d’accès du dossier parent.</translation>
    </message>
    <message>
        <source>The record “%1” was not stored as it was written. Try again. If this happens repeatedly, use another location.</source>
        <translation>L’enregistrement « %1 » n’a pas été stocké tel qu’il a été écrit. Réessayez. Si cela se reproduit, utilisez un autre emplacement.</translation>
    </message>
    <message>
        <source>The profile file “%1” was moved, deleted or replaced, so nothing can be saved. Put it back, or copy unsaved text elsewhere and restart Velmora.</source>
        <translation>Le fichier de profil « %1 » a été déplacé, supprimé ou remplacé ; rien ne peut donc être enregistré. Remettez-le en place, ou copiez ailleurs le texte non enregistré, puis redémarrez Velmora.</translation>
    </message>
    <message>
        <source>The profile file “%1” cannot be reached, so nothing can be saved: %2. Check the permissions of its folder and its disk, or copy unsaved text elsewhere and restart Velmora.</source>
        <translation>Le fichier de profil « %1 » est inaccessible ; rien ne peut donc être enregistré : %2. Vérifiez les droits d’accès de son dossier et son disque, ou copiez ailleurs le texte non enregistré, puis redémarrez Velmora.</translation>
    </message>
    <message>
        <source>The record “%1” was damaged. It was moved to “%2”, and this computer writes its contents again.</source>
        <translation>L’enregistrement « %1 » était endommagé. Il a été déplacé vers « %2 », et cet ordinateur en réécrit le contenu.</translation>
    </message>
    <message>
        <source>The record “%1” was damaged and was moved to “%2”. Synchronize on the computer that wrote it to restore its contents.</source>
        <translation>L’enregistrement « %1 » était endommagé et a été déplacé vers « %2 ». Synchronisez sur l’ordinateur qui l’a écrit pour en restaurer le contenu.</translation>
    </message>
    <message>
        <source>A temporary folder cannot be created: %1. Check the permissions of “%2” and the space on its disk.</source>
        <translation>Un dossier temporaire ne peut pas être créé : %1. Vérifiez les droits d’accès de « %2 » et l’espace disponible sur son disque.</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be read: %2. Databases that were added on other computers are not synchronized. Check its permissions and its disk.</source>
        <translation>Le dossier « %1 » ne peut pas être lu : %2. Les bases de données ajoutées sur d’autres ordinateurs ne sont pas synchronisées. Vérifiez ses droits d’accès et son disque.</translation>
    </message>
    <message>
        <source>The damaged record “%1” cannot be copied, because the location does not store what is written. Check the disk or the server.</source>
        <translation>L’enregistrement endommagé « %1 » ne peut pas être copié, car l’emplacement ne stocke pas ce qui y est écrit. Vérifiez le disque ou le serveur.</translation>
    </message>
    <message>
        <source>Everything was synchronized, but the records at “%1” could not be merged: %2</source>
        <translation>Tout a été synchronisé, mais les enregistrements de « %1 » n’ont pas pu être regroupés : %2</translation>
    </message>
    <message>
        <source>The record “%1” was read differently each time, so it was left as it is. Check the disk or the server.</source>
        <translation>L’enregistrement « %1 » a été lu différemment à chaque fois et a donc été laissé tel quel. Vérifiez le disque ou le serveur.</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>Profil</translation>
    </message>
    <message>
        <source>The database of the profile is damaged (%1). Restore it from a backup.</source>
        <translation>La base de données du profil est endommagée (%1). Restaurez-la à partir d’une copie de sauvegarde.</translation>
    </message>
    <message>
        <source>Damaged notes in the database “%1”: %2. “velmora verify --repair” reads them again from the locations. If no location has them, check their texts and edit them.</source>
        <translation>Notes endommagées dans la base de données « %1 » : %2. « velmora verify --repair » les relit depuis les emplacements. Si aucun emplacement ne les contient, vérifiez leurs textes et modifiez-les.</translation>
    </message>
    <message>
        <source>Damaged notes in the database “%1” that no location could restore: %2. Check their texts, edit them and synchronize, or restore a backup of the profile.</source>
        <translation>Notes endommagées dans la base de données « %1 » qu’aucun emplacement n’a pu restaurer : %2. Vérifiez leurs textes, modifiez-les et synchronisez, ou restaurez une copie de sauvegarde du profil.</translation>
    </message>
    <message>
        <source>Changes of notes in the database “%1” that this computer has lost: %2. “velmora verify --repair” reads them again from the locations. If no location has them, synchronize on the other computers, then here, or restore a backup of the profile.</source>
        <translation>Modifications de notes de la base de données « %1 » que cet ordinateur a perdues : %2. « velmora verify --repair » les relit depuis les emplacements. Si aucun emplacement ne les contient, synchronisez sur les autres ordinateurs, puis ici, ou restaurez une copie de sauvegarde du profil.</translation>
    </message>
    <message>
        <source>Changes of notes in the database “%1” that this computer has lost and that no location could restore: %2. Synchronize on the other computers, then here, or restore a backup of the profile.</source>
        <translation>Modifications de notes dans la base de données « %1 » que cet ordinateur a perdues et qu’aucun emplacement n’a pu restaurer : %2. Synchronisez sur les autres ordinateurs, puis ici, ou restaurez une copie de sauvegarde du profil.</translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>« %1 »</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %2 more</source>
        <translation>
            <numerusform>%1 et %2 autre</numerusform>
            <numerusform>%1 et %2 autres</numerusform>
        </translation>
    </message>
    <message>
        <source>name of a database</source>
        <translation>nom d’une base de données</translation>
    </message>
    <message>
        <source>lost changes: %1</source>
        <translation>modifications perdues : %1</translation>
    </message>
    <message>
        <source>databases: %1, notes: %2</source>
        <translation>bases de données : %1, notes : %2</translation>
    </message>
    <message>
        <source>“%1” at “%2”</source>
        <translation>« %1 » sur « %2 »</translation>
    </message>
    <message>
        <source>The location no longer contains the database. Synchronize to send everything again.</source>
        <translation>L’emplacement ne contient plus la base de données. Synchronisez pour tout envoyer de nouveau.</translation>
    </message>
    <message>
        <source>was never synchronized</source>
        <translation>n’a jamais été synchronisé</translation>
    </message>
    <message>
        <source>records: %1, moved aside: %2</source>
        <translation>enregistrements : %1, mis de côté : %2</translation>
    </message>
    <message>
        <source>The database “%1” is not on this computer yet. Synchronize it with the location.</source>
        <translation>La base de données « %1 » n’est pas encore sur cet ordinateur. Synchronisez-la avec l’emplacement.</translation>
    </message>
    <message>
        <source>Another computer changes the location. Try again later.</source>
        <translation>Un autre ordinateur modifie l’emplacement. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>Changes at the location that are not on this computer: %1. Synchronize to get them.</source>
        <translation>Modifications présentes à l’emplacement, mais pas sur cet ordinateur : %1. Synchronisez pour les recevoir.</translation>
    </message>
    <message>
        <source>Changes on this computer that are not at the location: %1. Synchronize to send them.</source>
        <translation>Modifications présentes sur cet ordinateur, mais pas à l’emplacement : %1. Synchronisez pour les envoyer.</translation>
    </message>
    <message>
        <source>The record “%1” was damaged and is written again.</source>
        <translation>L’enregistrement « %1 » était endommagé et est réécrit.</translation>
    </message>
    <message>
        <source>The record “%1” is damaged. Synchronize the other computers that use this location, because one of them may write it again.</source>
        <translation>L’enregistrement « %1 » est endommagé. Synchronisez les autres ordinateurs qui utilisent cet emplacement, car l’un d’eux peut éventuellement le réécrire.</translation>
    </message>
    <message>
        <source>“%1” is not used, because records have other names. Move it to another folder, or remove it if you do not need it.</source>
        <translation>« %1 » n’est pas utilisé, car les enregistrements portent d’autres noms. Déplacez ce fichier dans un autre dossier, ou supprimez-le si vous n’en avez pas besoin.</translation>
    </message>
    <message>
        <source>Inbox</source>
        <translation>Boîte de réception</translation>
    </message>
    <message>
        <source>Projects</source>
        <translation>Projets</translation>
    </message>
    <message>
        <source>Recipes</source>
        <translation>Recettes</translation>
    </message>
    <message>
        <source>Bookshelf</source>
        <translation>Bibliothèque</translation>
    </message>
    <message>
        <source>Measure the alcove beside the window.
Boards of oak, 24 mm; four of them.
Ask Ida for the long clamps.</source>
        <translation>Mesurer la niche à côté de la fenêtre.
Planches de chêne, 24 mm, quatre pièces.
Demander les grands serre-joints à Ida.</translation>
    </message>
    <message>
        <source>Garden</source>
        <translation>Jardin</translation>
    </message>
    <message>
        <source>Cut back the roses in March.
Plant beans once the nights stay above eight degrees.</source>
        <translation>Tailler les rosiers en mars.
Semer les haricots dès que les nuits restent au-dessus de huit degrés.</translation>
    </message>
    <message>
        <source>Pancakes</source>
        <translation>Crêpes</translation>
    </message>
    <message>
        <source>250 g flour
500 ml milk
3 eggs
A pinch of salt

Stir, let it rest for half an hour, bake in butter.</source>
        <translation>250 g de farine
500 ml de lait
3 œufs
1 pincée de sel

Mélanger, laisser reposer une demi-heure, cuire au beurre.</translation>
    </message>
    <message>
        <source>Tomato Soup</source>
        <translation>Soupe à la tomate</translation>
    </message>
    <message>
        <source>1 kg tomatoes, 2 onions, 1 clove of garlic

Roast everything for forty minutes, add stock, blend.</source>
        <translation>1 kg de tomates, 2 oignons, 1 gousse d’ail

Rôtir le tout pendant quarante minutes, ajouter le bouillon, mixer.</translation>
    </message>
    <message>
        <source>Shopping</source>
        <translation>Courses</translation>
    </message>
    <message>
        <source>Flour, milk, eggs, tomatoes</source>
        <translation>Farine, lait, œufs, tomates</translation>
    </message>
    <message>
        <source>&amp;Remove Schedule</source>
        <translation>&amp;Retirer la planification</translation>
    </message>
    <message>
        <source>Databases</source>
        <translation>Bases de données</translation>
    </message>
    <message>
        <source>Days of the weekly synchronization</source>
        <translation>Jours de la synchronisation hebdomadaire</translation>
    </message>
    <message>
        <source>Every &amp;day</source>
        <translation>Chaque &amp;jour</translation>
    </message>
    <message>
        <source>Every &amp;hour</source>
        <translation>Chaque &amp;heure</translation>
    </message>
    <message>
        <source>Every &amp;week</source>
        <translation>Chaque &amp;semaine</translation>
    </message>
    <message>
        <source>The database is then synchronized only when you ask for it, or when it is opened or closed.</source>
        <translation>La base de données n’est ensuite synchronisée qu’à votre demande, ou lorsqu’elle est ouverte ou fermée.</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Emplacement</translation>
    </message>
    <message>
        <source>Location commands</source>
        <translation>Commandes des emplacements</translation>
    </message>
    <message>
        <source>Minutes past the hour</source>
        <translation>Minutes après l’heure</translation>
    </message>
    <message>
        <source>Never synchronized</source>
        <translation>Jamais synchronisée</translation>
    </message>
    <message>
        <source>Next synchronization: %1</source>
        <translation>Prochaine synchronisation : %1</translation>
    </message>
    <message>
        <source>No database is open.</source>
        <translation>Aucune base de données n’est ouverte.</translation>
    </message>
    <message>
        <source>No synchronization is scheduled.</source>
        <translation>Aucune synchronisation n’est planifiée.</translation>
    </message>
    <message>
        <source>Reading the location</source>
        <translation>Lecture de l’emplacement</translation>
    </message>
    <message>
        <source>Schedule of the selected database</source>
        <translation>Planification de la base de données sélectionnée</translation>
    </message>
    <message>
        <source>An error occurred at this location. Show it.</source>
        <translation>Une erreur s’est produite à cet emplacement. L’afficher.</translation>
    </message>
    <message>
        <source>Sync Preferences cannot be used: the sync plug-in has no %1. Install both from the same version of Velmora.</source>
        <translation>Les Préférences de synchronisation ne peuvent pas être utilisées : il manque %1 au module de synchronisation. Installez les deux à partir de la même version de Velmora.</translation>
    </message>
    <message>
        <source>Sync Preferences cannot be used: it needs version %1 of the interface to the sync plug-in, which offers version %2. Install both from the same version of Velmora.</source>
        <translation>Les Préférences de synchronisation ne peuvent pas être utilisées : elles ont besoin de la version %1 de l’interface du module de synchronisation, qui offre la version %2. Installez les deux à partir de la même version de Velmora.</translation>
    </message>
    <message>
        <source>Sync locations</source>
        <translation>Emplacements de synchronisation</translation>
    </message>
    <message>
        <source>Synchronize this database with its ticked locations now</source>
        <translation>Synchroniser maintenant cette base de données avec ses emplacements cochés</translation>
    </message>
    <message>
        <source>Synchronize with</source>
        <translation>Synchroniser avec</translation>
    </message>
    <message>
        <source>Synchronized %1</source>
        <translation>Dernière synchronisation : %1</translation>
    </message>
    <message>
        <source>There is no location to synchronize with yet.</source>
        <translation>Il n’y a pas encore d’emplacement avec lequel synchroniser.</translation>
    </message>
    <message>
        <source>Time of the daily synchronization</source>
        <translation>Heure de la synchronisation quotidienne</translation>
    </message>
    <message>
        <source>Time of the weekly synchronization</source>
        <translation>Heure de la synchronisation hebdomadaire</translation>
    </message>
    <message>
        <source>Version of this pane</source>
        <translation>Version de ces préférences</translation>
    </message>
    <message>
        <source>When the database is &amp;closed</source>
        <translation>À sa &amp;fermeture</translation>
    </message>
    <message>
        <source>When the database is &amp;opened</source>
        <translation>À son &amp;ouverture</translation>
    </message>
    <message>
        <source>Whether the selected database synchronizes with this location</source>
        <translation>Indique si la base de données sélectionnée est synchronisée avec cet emplacement</translation>
    </message>
    <message>
        <source>minutes past the hour</source>
        <translation>minutes après l’heure</translation>
    </message>
    <message>
        <source>on</source>
        <translation>le</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Nouveau</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Import…</source>
        <translation>Importer…</translation>
    </message>
    <message>
        <source>Import databases that exist only at a location</source>
        <translation>Importer les bases de données qui n’existent qu’à un emplacement</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Ajouter</translation>
    </message>
    <message>
        <source>Add a location</source>
        <translation>Ajouter un emplacement</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Retirer</translation>
    </message>
    <message>
        <source>Stop synchronizing with the selected location. What is stored there stays.</source>
        <translation>Ne plus synchroniser avec l’emplacement sélectionné. Ce qui y est stocké est conservé.</translation>
    </message>
    <message>
        <source>Edit…</source>
        <translation>Modifier…</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Plus</translation>
    </message>
    <message>
        <source>More commands for the selected location</source>
        <translation>Autres commandes pour l’emplacement sélectionné</translation>
    </message>
    <message>
        <source>New Folder Store…</source>
        <translation>Nouveau dépôt dans un dossier…</translation>
    </message>
    <message>
        <source>Existing Folder Store…</source>
        <translation>Dépôt existant dans un dossier…</translation>
    </message>
    <message>
        <source>WebDAV Server…</source>
        <translation>Serveur WebDAV…</translation>
    </message>
    <message>
        <source>Dropbox Account…</source>
        <translation>Compte Dropbox…</translation>
    </message>
    <message>
        <source>Direct Connection…</source>
        <translation>Connexion directe…</translation>
    </message>
    <message>
        <source>Check</source>
        <translation>Vérifier</translation>
    </message>
    <message>
        <source>Clean Up</source>
        <translation>Nettoyer</translation>
    </message>
    <message>
        <source>Show in File Manager</source>
        <translation>Afficher dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>Direct Connections…</source>
        <translation>Connexions directes…</translation>
    </message>
    <message>
        <source>Folder Access…</source>
        <translation>Accès aux dossiers…</translation>
    </message>
    <message>
        <source>WebDAV Location</source>
        <translation>Emplacement WebDAV</translation>
    </message>
    <message>
        <source>Server:</source>
        <translation>Serveur :</translation>
    </message>
    <message>
        <source>dav.example.org</source>
        <translation>dav.example.org</translation>
    </message>
    <message>
        <source>Use HTTPS</source>
        <translation>Utiliser HTTPS</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Port :</translation>
    </message>
    <message>
        <source>User name:</source>
        <translation>Nom d’utilisateur :</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Mot de passe :</translation>
    </message>
    <message>
        <source>Folder on the server:</source>
        <translation>Dossier sur le serveur :</translation>
    </message>
    <message>
        <source>optional, such as documents/sync</source>
        <translation>facultatif, par exemple documents/sync</translation>
    </message>
    <message>
        <source>Store name:</source>
        <translation>Nom du dépôt :</translation>
    </message>
    <message>
        <source>Without HTTPS, others on the network can read the password and your notes.</source>
        <translation>Sans HTTPS, d’autres personnes sur le réseau peuvent lire le mot de passe et vos notes.</translation>
    </message>
    <message>
        <source>Forget the password of “%1”?</source>
        <translation>Oublier le mot de passe de « %1 » ?</translation>
    </message>
    <message>
        <source>No location of the list uses this password any more.</source>
        <translation>Aucun emplacement de la liste n’utilise plus ce mot de passe.</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>Oublier</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Conserver</translation>
    </message>
    <message numerus="yes">
        <source>%1 more items of “%2” could not be synchronized with “%3”.</source>
        <translation>
            <numerusform>%1 autre élément de « %2 » n’a pas pu être synchronisé avec « %3 ».</numerusform>
            <numerusform>%1 autres éléments de « %2 » n’ont pas pu être synchronisés avec « %3 ».</numerusform>
        </translation>
    </message>
    <message>
        <source>More of these, which are not listed: %1.</source>
        <translation>Autres problèmes de ce type, non énumérés : %1.</translation>
    </message>
    <message>
        <source>The password is saved in your keyring and nowhere else.</source>
        <translation>Le mot de passe est enregistré dans votre trousseau de clés et nulle part ailleurs.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Folder Location</source>
        <translation>Emplacement dans un dossier</translation>
    </message>
    <message>
        <source>A sync store is a package in a folder that all your computers can access, such as one on a shared volume.</source>
        <translation>Un dépôt de synchronisation est un paquet placé dans un dossier auquel tous vos ordinateurs ont accès, par exemple sur un volume partagé.</translation>
    </message>
    <message>
        <source>Sync store:</source>
        <translation>Dépôt de synchronisation :</translation>
    </message>
    <message>
        <source>Sync store</source>
        <translation>Dépôt de synchronisation</translation>
    </message>
    <message>
        <source>None chosen yet</source>
        <translation>Aucun choisi pour l’instant</translation>
    </message>
    <message>
        <source>New…</source>
        <translation>Nouveau…</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Choisir…</translation>
    </message>
    <message>
        <source>The certificate “%1” of this computer could not be created. Check the permissions of the profile folder.</source>
        <translation>Le certificat « %1 » de cet ordinateur n’a pas pu être créé. Vérifiez les droits d’accès du dossier de profil.</translation>
    </message>
    <message>
        <source>The certificate “%1” of this computer cannot be read: %2. Check its permissions, then turn the server on again.</source>
        <translation>Le certificat « %1 » de cet ordinateur ne peut pas être lu : %2. Vérifiez ses droits d’accès, puis réactivez le serveur.</translation>
    </message>
    <message>
        <source>The certificate “%1” of this computer is damaged. Delete it and pair the other computers again.</source>
        <translation>Le certificat « %1 » de cet ordinateur est endommagé. Supprimez-le et associez de nouveau les autres ordinateurs.</translation>
    </message>
    <message>
        <source>“%1” cannot be reached. Check that the computer is on and lets other computers synchronize.</source>
        <translation>« %1 » est injoignable. Vérifiez que l’ordinateur est allumé et qu’il autorise d’autres ordinateurs à synchroniser.</translation>
    </message>
    <message>
        <source>The connection to “%1” was lost. Try again.</source>
        <translation>La connexion avec « %1 » a été interrompue. Réessayez.</translation>
    </message>
    <message>
        <source>This computer is in no network. Port: %1</source>
        <translation>Cet ordinateur n’est connecté à aucun réseau. Port : %1</translation>
    </message>
    <message>
        <source>Address: %1. Port: %2</source>
        <translation>Adresse : %1. Port : %2</translation>
    </message>
    <message>
        <source>Other computers list this one as “%1”.</source>
        <translation>Les autres ordinateurs affichent celui-ci sous le nom « %1 ».</translation>
    </message>
    <message>
        <source>It shows a code. Allow it only if the code is the same as here.</source>
        <translation>Un code s’affiche sur l’autre ordinateur. N’autorisez que si le code est le même qu’ici.</translation>
    </message>
    <message>
        <source>It replaces another computer of this name.</source>
        <translation>Il remplace un autre ordinateur du même nom.</translation>
    </message>
    <message>
        <source>Whether it replaces another computer of this name is unknown, because the keyring cannot be read.</source>
        <translation>On ignore s’il remplace un autre ordinateur du même nom, car le trousseau de clés ne peut pas être lu.</translation>
    </message>
    <message>
        <source>Let “%1” synchronize with this computer?</source>
        <translation>Autoriser « %1 » à synchroniser avec cet ordinateur ?</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Autoriser</translation>
    </message>
    <message>
        <source>Refuse</source>
        <translation>Refuser</translation>
    </message>
    <message>
        <source>The server cannot use the port %1. Choose another port. (%2)</source>
        <translation>Le serveur ne peut pas utiliser le port %1. Choisissez un autre port. (%2)</translation>
    </message>
    <message>
        <source>Connect with “%1”?</source>
        <translation>Se connecter à « %1 » ?</translation>
    </message>
    <message>
        <source>It shows a code. Connect only if the code is the same as here.</source>
        <translation>Un code s’affiche sur l’autre ordinateur. Ne vous connectez que si le code est le même qu’ici.</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Se connecter</translation>
    </message>
    <message>
        <source>“%1” is not the computer that was paired. If this is intended, remove the location and add it again.</source>
        <translation>« %1 » n’est pas l’ordinateur qui a été associé. Si c’est voulu, retirez l’emplacement, puis ajoutez-le de nouveau.</translation>
    </message>
    <message>
        <source>“%1” is busy with another request. Try again later.</source>
        <translation>« %1 » traite une autre demande. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>“%1” does not allow this computer to synchronize. Allow it there and try again.</source>
        <translation>« %1 » n’autorise pas cet ordinateur à synchroniser. Autorisez-le sur l’autre ordinateur et réessayez.</translation>
    </message>
    <message>
        <source>“%1” sent an invalid response. Use the same version of Velmora on both computers.</source>
        <translation>« %1 » a envoyé une réponse non valide. Utilisez la même version de Velmora sur les deux ordinateurs.</translation>
    </message>
    <message>
        <source>The message is not valid.</source>
        <translation>Le message n’est pas valide.</translation>
    </message>
    <message>
        <source>The message is too large or has too many parts.</source>
        <translation>Le message est trop grand ou comporte trop de parties.</translation>
    </message>
    <message>
        <source>The computer “%1” cannot read or write its sync store. Check its disk.</source>
        <translation>L’ordinateur « %1 » ne peut pas lire ou écrire son dépôt de synchronisation. Vérifiez son disque.</translation>
    </message>
    <message>
        <source>Folder Access</source>
        <translation>Accès aux dossiers</translation>
    </message>
    <message>
        <source>Velmora can access these folders:</source>
        <translation>Velmora peut accéder à ces dossiers :</translation>
    </message>
    <message>
        <source>Folders that Velmora can access</source>
        <translation>Dossiers auxquels Velmora peut accéder</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>Ajouter…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Computers on the local network:</source>
        <translation>Ordinateurs du réseau local :</translation>
    </message>
    <message>
        <source>Computers on the local network</source>
        <translation>Ordinateurs du réseau local</translation>
    </message>
    <message>
        <source>No computer has been found yet. Turn on its server there under “Direct Connections…”, or enter its address.</source>
        <translation>Aucun ordinateur n’a encore été trouvé. Activez son serveur sous « Connexions directes… » sur cet autre ordinateur, ou saisissez son adresse.</translation>
    </message>
    <message>
        <source>Host:</source>
        <translation>Hôte :</translation>
    </message>
    <message>
        <source>computer.local</source>
        <translation>computer.local</translation>
    </message>
    <message>
        <source>Import Databases</source>
        <translation>Importer des bases de données</translation>
    </message>
    <message>
        <source>Import databases from:</source>
        <translation>Importer des bases de données depuis :</translation>
    </message>
    <message>
        <source>There is no location to import from yet.</source>
        <translation>Il n’y a pas encore d’emplacement depuis lequel importer.</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Continuer</translation>
    </message>
    <message>
        <source>Databases that this computer does not have:</source>
        <translation>Bases de données que cet ordinateur n’a pas :</translation>
    </message>
    <message>
        <source>Databases to import</source>
        <translation>Bases de données à importer</translation>
    </message>
    <message>
        <source>This location contains no database that this computer does not have.</source>
        <translation>Cet emplacement ne contient aucune base de données que cet ordinateur n’ait pas déjà.</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Avertissement</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importer</translation>
    </message>
    <message>
        <source>Direct Connections</source>
        <translation>Connexions directes</translation>
    </message>
    <message>
        <source>Let other computers synchronize with this one</source>
        <translation>Autoriser d’autres ordinateurs à synchroniser avec celui-ci</translation>
    </message>
    <message>
        <source>Computers that may connect:</source>
        <translation>Ordinateurs autorisés à se connecter :</translation>
    </message>
    <message>
        <source>Computers that may connect</source>
        <translation>Ordinateurs autorisés à se connecter</translation>
    </message>
    <message>
        <source>When a computer connects for the first time, you are asked for permission. Open this window again to see it in the list.</source>
        <translation>Lorsqu’un ordinateur se connecte pour la première fois, votre autorisation vous est demandée. Rouvrez cette fenêtre pour le voir dans la liste.</translation>
    </message>
    <message>
        <source>Revoke</source>
        <translation>Révoquer</translation>
    </message>
    <message>
        <source>Prevent the selected computer from connecting.</source>
        <translation>Empêcher l’ordinateur sélectionné de se connecter.</translation>
    </message>
    <message>
        <source>A computer that may connect can read and change the ticked databases. New databases are ticked.</source>
        <translation>Un ordinateur autorisé à se connecter peut lire et modifier les bases de données cochées. Les nouvelles bases de données sont cochées.</translation>
    </message>
    <message>
        <source>Databases that other computers can read and change</source>
        <translation>Bases de données que d’autres ordinateurs peuvent lire et modifier</translation>
    </message>
    <message>
        <source>Last connected: %1</source>
        <translation>Dernière connexion : %1</translation>
    </message>
    <message>
        <source>Last connected: unknown</source>
        <translation>Dernière connexion : inconnue</translation>
    </message>
    <message>
        <source>“%1” belongs to a database that is not served.</source>
        <translation>« %1 » appartient à une base de données qui n’est pas partagée.</translation>
    </message>
    <message>
        <source>“%1” does not serve this database. Tick it there under “Direct Connections…” in Sync Preferences, and synchronize again.</source>
        <translation>« %1 » ne partage pas cette base de données. Cochez-la sur cet ordinateur sous « Connexions directes… » dans les Préférences de synchronisation, puis synchronisez de nouveau.</translation>
    </message>
    <message>
        <source>Prevent “%1” from connecting?</source>
        <translation>Empêcher « %1 » de se connecter ?</translation>
    </message>
    <message>
        <source>The record “%1” is too large and was not read. Move it to another folder if it does not belong there.</source>
        <translation>L’enregistrement « %1 » est trop volumineux et n’a pas été lu. Déplacez-le dans un autre dossier s’il n’a rien à y faire.</translation>
    </message>
    <message>
        <source>The record “%1” was created by a newer version of Velmora. Update Velmora to read it.</source>
        <translation>L’enregistrement « %1 » a été créé par une version plus récente de Velmora. Mettez Velmora à jour pour le lire.</translation>
    </message>
    <message>
        <source>“%1” is not a valid identifier of a note. Please report this as an error of Velmora.</source>
        <translation>« %1 » n’est pas un identifiant de note valide. Veuillez le signaler comme une erreur de Velmora.</translation>
    </message>
    <message>
        <source>The edits of “%1” have changed meanwhile, so none was removed. Compare them again, then decide.</source>
        <translation>Les versions de « %1 » ont changé entre-temps ; aucune n’a donc été supprimée. Comparez-les de nouveau, puis décidez.</translation>
    </message>
    <message>
        <source>The note “%1” has changed meanwhile. Select it again.</source>
        <translation>La note « %1 » a changé entre-temps. Sélectionnez-la de nouveau.</translation>
    </message>
    <message>
        <source>The note “%1” is too long to be synchronized. Divide it into several notes.</source>
        <translation>La note « %1 » est trop longue pour être synchronisée. Divisez-la en plusieurs notes.</translation>
    </message>
    <message>
        <source>The name of the database is too long. Enter a shorter one.</source>
        <translation>Le nom de la base de données est trop long. Saisissez-en un plus court.</translation>
    </message>
    <message>
        <source>“%1” is not a valid identifier of a database. Untick the location for this database.</source>
        <translation>« %1 » n’est pas un identifiant de base de données valide. Décochez l’emplacement pour cette base de données.</translation>
    </message>
    <message>
        <source>The database “%1” exists neither on this computer nor at the location. Synchronize on the computer that has it, then here.</source>
        <translation>La base de données « %1 » n’existe ni sur cet ordinateur ni à l’emplacement. Synchronisez sur l’ordinateur qui la contient, puis ici.</translation>
    </message>
    <message>
        <source>“%1” was cleaned up at “%2”.</source>
        <translation>« %1 » a été nettoyé sur « %2 ».</translation>
    </message>
    <message>
        <source>“%1” was synchronized with “%2”.</source>
        <translation>« %1 » a été synchronisé avec « %2 ».</translation>
    </message>
    <message>
        <source>“%1” could not be cleaned up at “%2”: %3</source>
        <translation>« %1 » n’a pas pu être nettoyé sur « %2 » : %3</translation>
    </message>
    <message>
        <source>“%1” could not be synchronized with “%2”: %3</source>
        <translation>« %1 » n’a pas pu être synchronisé avec « %2 » : %3</translation>
    </message>
    <message>
        <source>“%1” could not be cleaned up because the database is not on this computer. Import the database, then try again.</source>
        <translation>« %1 » n’a pas pu être nettoyé, car la base de données n’est pas sur cet ordinateur. Importez la base de données, puis réessayez.</translation>
    </message>
    <message>
        <source>Some items of “%1” could not be synchronized with “%2”: %3</source>
        <translation>Certains éléments de « %1 » n’ont pas pu être synchronisés avec « %2 » : %3</translation>
    </message>
    <message>
        <source>Cleaning up “%1” at “%2”…</source>
        <translation>Nettoyage de « %1 » sur « %2 »…</translation>
    </message>
    <message>
        <source>Synchronizing “%1” with “%2”…</source>
        <translation>Synchronisation de « %1 » avec « %2 »…</translation>
    </message>
    <message>
        <source>No web browser could be opened to sign in to Dropbox. Set a default web browser and try again.</source>
        <translation>Aucun navigateur web n’a pu être ouvert pour l’identification auprès de Dropbox. Définissez un navigateur web par défaut et réessayez.</translation>
    </message>
    <message>
        <source>Dropbox cannot be used because no application key is configured. Velmora’s documentation describes how to set one.</source>
        <translation>Dropbox ne peut pas être utilisé, car aucune clé d’application n’est configurée. La documentation de Velmora explique comment en définir une.</translation>
    </message>
    <message>
        <source>The port “%1” configured for Dropbox is not valid. Use a number from 0 to 65535.</source>
        <translation>Le port « %1 » configuré pour Dropbox n’est pas valide. Utilisez un nombre compris entre 0 et 65535.</translation>
    </message>
    <message>
        <source>The address “%1” configured for Dropbox is not secure. Use an https address.</source>
        <translation>L’adresse « %1 » configurée pour Dropbox n’est pas sécurisée. Utilisez une adresse https.</translation>
    </message>
    <message>
        <source>Velmora is not signed in to Dropbox as “%1”. Edit the location to sign in.</source>
        <translation>Velmora n’est pas identifié auprès de Dropbox en tant que « %1 ». Modifiez l’emplacement pour vous identifier.</translation>
    </message>
    <message>
        <source>You signed in to Dropbox as “%1”, but this location belongs to “%2”. Sign out of Dropbox in your browser, edit the location again, and sign in as “%2”.</source>
        <translation>Vous vous êtes identifié auprès de Dropbox en tant que « %1 », mais cet emplacement appartient à « %2 ». Déconnectez-vous de Dropbox dans votre navigateur, modifiez de nouveau l’emplacement et identifiez-vous en tant que « %2 ».</translation>
    </message>
    <message>
        <source>The sign-in to Dropbox as “%1” is no longer valid. Edit the location to sign in again.</source>
        <translation>L’identification auprès de Dropbox en tant que « %1 » n’est plus valide. Modifiez l’emplacement pour vous identifier de nouveau.</translation>
    </message>
    <message>
        <source>The response of the web browser cannot be received: %1. Quit the program that uses this port, then sign in again.</source>
        <translation>La réponse du navigateur web ne peut pas être reçue : %1. Quittez le programme qui utilise ce port, puis identifiez-vous de nouveau.</translation>
    </message>
    <message>
        <source>The sign-in to Dropbox timed out. Try again.</source>
        <translation>L’identification auprès de Dropbox a dépassé le délai imparti. Réessayez.</translation>
    </message>
    <message>
        <source>You can close this window now and return to Velmora.</source>
        <translation>Vous pouvez maintenant fermer cette fenêtre et revenir à Velmora.</translation>
    </message>
    <message>
        <source>Velmora has not requested this page. Close it, and connect to Dropbox again in Velmora.</source>
        <translation>Velmora n’a pas demandé cette page. Fermez-la et connectez-vous de nouveau à Dropbox dans Velmora.</translation>
    </message>
    <message>
        <source>Access to Dropbox was denied in the web browser. Try again and allow it.</source>
        <translation>L’accès à Dropbox a été refusé dans le navigateur web. Réessayez et autorisez-le.</translation>
    </message>
    <message>
        <source>The web browser sent an invalid response. Sign in again.</source>
        <translation>Le navigateur web a envoyé une réponse non valide. Identifiez-vous de nouveau.</translation>
    </message>
    <message>
        <source>The Dropbox of “%1” is full. Delete files there.</source>
        <translation>Le Dropbox de « %1 » est plein. Supprimez-y des fichiers.</translation>
    </message>
    <message>
        <source>Dropbox rejected the sign-in. Try again.</source>
        <translation>Dropbox a refusé l’identification. Réessayez.</translation>
    </message>
    <message>
        <source>Velmora has no access to the folder “%1”. Grant it under “Folder Access…”.</source>
        <translation>Velmora n’a pas accès au dossier « %1 ». Autorisez-le sous « Accès aux dossiers… ».</translation>
    </message>
    <message>
        <source>The profile “%1” is empty, although it has been used. Restore it from a backup or use another profile.</source>
        <translation>Le profil « %1 » est vide, bien qu’il ait été utilisé. Restaurez-le à partir d’une copie de sauvegarde ou utilisez un autre profil.</translation>
    </message>
    <message>
        <source>The folder “%1” of the profile cannot be read: %2. Check its disk and its permissions, then try again.</source>
        <translation>Le dossier « %1 » du profil ne peut pas être lu : %2. Vérifiez le disque et les droits d’accès, puis réessayez.</translation>
    </message>
    <message>
        <source>The sync locations of the damaged profile “%1” cannot be read. Add them again in Sync Preferences, then import your databases.</source>
        <translation>Les emplacements de synchronisation du profil endommagé « %1 » ne peuvent pas être lus. Ajoutez-les de nouveau dans les Préférences de synchronisation, puis importez vos bases de données.</translation>
    </message>
    <message>
        <source>Some changes cannot be read from the damaged profile “%1” and may be missing now. Synchronize, so that they are read from the locations. The damaged files are kept in the folder “Damaged Profiles”.</source>
        <translation>Certaines modifications ne peuvent pas être lues dans le profil endommagé « %1 » et manquent peut-être maintenant. Synchronisez, afin qu’elles soient lues depuis les emplacements. Les fichiers endommagés sont conservés dans le dossier « Damaged Profiles ».</translation>
    </message>
    <message>
        <source>Damaged notes: %1.</source>
        <translation>Notes endommagées : %1.</translation>
    </message>
    <message>
        <source>Changes that were read from the damaged profile: %1</source>
        <translation>Modifications lues dans le profil endommagé : %1</translation>
    </message>
    <message>
        <source>The profile is missing from the folder “%1”. Restore it from a backup or use another profile.</source>
        <translation>Le profil manque dans le dossier « %1 ». Restaurez-le à partir d’une copie de sauvegarde ou utilisez un autre profil.</translation>
    </message>
    <message>
        <source>There is no space left on the disk with the profile “%1”. Delete files that you no longer need, then try again.</source>
        <translation>Il n’y a plus d’espace disponible sur le disque du profil « %1 ». Supprimez les fichiers dont vous n’avez plus besoin, puis réessayez.</translation>
    </message>
    <message>
        <source>No backup of the profile “%1” could be made, and Velmora tries again after an hour. %2</source>
        <translation>Aucune copie de sauvegarde du profil « %1 » n’a pu être créée ; Velmora réessaiera dans une heure. %2</translation>
    </message>
    <message>
        <source>Its size is %1, and all backups together may have %2. Quit Velmora and copy the profile yourself.</source>
        <translation>Sa taille est de %1, et toutes les copies de sauvegarde ensemble peuvent occuper %2. Quittez Velmora et copiez le profil vous-même.</translation>
    </message>
    <message>
        <source>The disk has only %1 left, and %2 are needed. Delete files that you no longer need.</source>
        <translation>Il ne reste que %1 sur le disque, et %2 sont nécessaires. Supprimez les fichiers dont vous n’avez plus besoin.</translation>
    </message>
    <message>
        <source>The copy is not complete. Check the disk.</source>
        <translation>La copie n’est pas complète. Vérifiez le disque.</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be written: %2. Check its permissions and its disk.</source>
        <translation>Le dossier « %1 » ne peut pas être écrit : %2. Vérifiez ses droits d’accès et son disque.</translation>
    </message>
    <message>
        <source>The profile “%1” has damaged or lost notes: %2. Synchronize, so that they are read again from the locations. If this message appears again, check the texts of the damaged notes and edit them, and synchronize on the other computers. The backups that have all notes intact are kept.</source>
        <translation>Le profil « %1 » contient des notes endommagées ou a perdu des notes : %2. Synchronisez pour qu’elles soient relues depuis les emplacements. Si ce message réapparaît, vérifiez les textes des notes endommagées et modifiez-les, et synchronisez sur les autres ordinateurs. Les copies de sauvegarde qui contiennent toutes les notes intactes sont conservées.</translation>
    </message>
    <message>
        <source>The backup “%1” is damaged. Use another backup.</source>
        <translation>La copie de sauvegarde « %1 » est endommagée. Utilisez-en une autre.</translation>
    </message>
    <message>
        <source>The profile “%1” has no intact backup. Use another profile, and get your notes from the locations with which you have synchronized.</source>
        <translation>Le profil « %1 » n’a aucune copie de sauvegarde intacte. Utilisez un autre profil et récupérez vos notes depuis les emplacements avec lesquels vous avez synchronisé.</translation>
    </message>
    <message>
        <source>The profile “%1” could not be replaced: %2. Check its disk and its permissions, then try again.</source>
        <translation>Le profil « %1 » n’a pas pu être remplacé : %2. Vérifiez le disque et les droits d’accès, puis réessayez.</translation>
    </message>
    <message>
        <source>%1 Files of the damaged profile were moved to “%2” and could not be moved back. Check the disk, then try again.</source>
        <translation>%1 Des fichiers du profil endommagé ont été déplacés vers « %2 » et n’ont pas pu être remis en place. Vérifiez le disque, puis réessayez.</translation>
    </message>
    <message>
        <source>Earlier versions:</source>
        <translation>Versions précédentes :</translation>
    </message>
    <message>
        <source>Backup:</source>
        <translation>Copie de sauvegarde :</translation>
    </message>
    <message>
        <source>This version of “%1” is no longer kept. Choose another version.</source>
        <translation>Cette version de « %1 » n’est plus conservée. Choisissez une autre version.</translation>
    </message>
    <message numerus="yes">
        <source>The location removes %1 of %2 notes. Nothing was changed. Synchronize again to decide what happens to these notes.</source>
        <translation>
            <numerusform>L’emplacement supprime %1 note sur %2. Rien n’a été modifié. Synchronisez de nouveau pour décider du sort de ces notes.</numerusform>
            <numerusform>L’emplacement supprime %1 des %2 notes. Rien n’a été modifié. Synchronisez de nouveau pour décider du sort de ces notes.</numerusform>
        </translation>
    </message>
    <message>
        <source>The location lists the record “%1” but does not return it. Check the server or the disk.</source>
        <translation>L’emplacement énumère l’enregistrement « %1 », mais ne le renvoie pas. Vérifiez le serveur ou le disque.</translation>
    </message>
    <message>
        <source>The location lists the record “%1” but does not return it. This computer writes its contents again.</source>
        <translation>L’emplacement énumère l’enregistrement « %1 », mais ne le renvoie pas. Cet ordinateur en réécrit le contenu.</translation>
    </message>
    <message>
        <source>A change in “%1” exceeds the limits of a record and was not sent. Please report this as an error of Velmora.</source>
        <translation>Une modification dans « %1 » dépasse les limites d’un enregistrement et n’a pas été envoyée. Veuillez le signaler comme une erreur de Velmora.</translation>
    </message>
    <message>
        <source>The name of the database “%1” is not valid and was not sent. Rename the database and synchronize again.</source>
        <translation>Le nom de la base de données « %1 » n’est pas valide et n’a pas été envoyé. Renommez la base de données et synchronisez de nouveau.</translation>
    </message>
    <message>
        <source>The note “%1” is damaged on this computer and was not sent. If synchronizing again does not repair it, check its text, edit it and synchronize.</source>
        <translation>La note « %1 » est endommagée sur cet ordinateur et n’a pas été envoyée. Si une nouvelle synchronisation ne la répare pas, vérifiez son texte, modifiez-la et synchronisez.</translation>
    </message>
    <message>
        <source>“%1” was damaged on this computer and was read again from the location.</source>
        <translation>« %1 » était endommagé sur cet ordinateur et a été relu depuis l’emplacement.</translation>
    </message>
    <message>
        <source>This computer has lost changes of notes that are not at the location any more either: %1. Synchronize on the other computers, then here. If that does not bring them back, restore a backup of the profile.</source>
        <translation>Cet ordinateur a perdu des modifications de notes que l’emplacement ne contient plus non plus : %1. Synchronisez sur les autres ordinateurs, puis ici. Si cela ne les fait pas revenir, restaurez une copie de sauvegarde du profil.</translation>
    </message>
    <message>
        <source>This computer has lost changes of notes that were not found in any record of the location either: %1. They are not reported again, and their backups are kept as long as others. Synchronize on the other computers, then here, or restore a backup of the profile soon.</source>
        <translation>Cet ordinateur a perdu des modifications de notes qui n’ont été trouvées dans aucun enregistrement de l’emplacement : %1. Elles ne seront plus signalées, et leurs copies de sauvegarde sont conservées aussi longtemps que les autres. Synchronisez sur les autres ordinateurs, puis ici, ou restaurez bientôt une copie de sauvegarde du profil.</translation>
    </message>
    <message>
        <source>Databases of other computers that were not added: %1. This computer adds none from direct connections if it has %2 already. To get them, use another location on both computers.</source>
        <translation>Bases de données d’autres ordinateurs qui n’ont pas été ajoutées : %1. Cet ordinateur n’en ajoute aucune par connexion directe s’il en a déjà %2. Pour les recevoir, utilisez un autre emplacement sur les deux ordinateurs.</translation>
    </message>
    <message>
        <source>“%1” contains too many files. Clean up the location on another computer, or delete the files that do not belong there.</source>
        <translation>« %1 » contient trop de fichiers. Nettoyez l’emplacement sur un autre ordinateur, ou supprimez les fichiers qui ne doivent pas s’y trouver.</translation>
    </message>
    <message>
        <source>“%1” contains too many databases, or their names are too long. Delete the files of those that are not needed.</source>
        <translation>« %1 » contient trop de bases de données, ou leurs noms sont trop longs. Supprimez les fichiers de celles dont personne n’a besoin.</translation>
    </message>
    <message>
        <source>The record “%1” has changed while it was read. Synchronize again.</source>
        <translation>L’enregistrement « %1 » a changé pendant sa lecture. Synchronisez de nouveau.</translation>
    </message>
    <message>
        <source>The records in “%1” were replaced each time before they could be read. Synchronize again.</source>
        <translation>Les enregistrements dans « %1 » ont été remplacés chaque fois avant de pouvoir être lus. Synchronisez de nouveau.</translation>
    </message>
    <message>
        <source>The keyring still contains what belongs to the removed location “%1”. Velmora deletes it when it starts again. (%2)</source>
        <translation>Le trousseau de clés contient encore ce qui appartient à l’emplacement retiré « %1 ». Velmora le supprimera à son prochain démarrage. (%2)</translation>
    </message>
    <message>
        <source>“%1” and this computer are not paired: the question was not accepted. Synchronize again in a while, and accept it on both computers.</source>
        <translation>« %1 » et cet ordinateur ne sont pas associés : la question n’a pas été acceptée. Synchronisez de nouveau dans un moment et acceptez-la sur les deux ordinateurs.</translation>
    </message>
    <message>
        <source>The list of mounted volumes cannot be read: %1. Try again.</source>
        <translation>La liste des volumes montés ne peut pas être lue : %1. Réessayez.</translation>
    </message>
    <message>
        <source>The password for “%1” was not sent, because others on the network could read it. Edit the location: choose HTTPS, or accept that.</source>
        <translation>Le mot de passe de « %1 » n’a pas été envoyé, car d’autres personnes sur le réseau pourraient le lire. Modifiez l’emplacement : choisissez HTTPS ou acceptez ce risque.</translation>
    </message>
    <message>
        <source>direct connections</source>
        <translation>connexions directes</translation>
    </message>
    <message>
        <source>A schedule of “%1” was missed while Velmora was closed, and is made up for now.</source>
        <translation>Une synchronisation planifiée de « %1 » a été manquée pendant que Velmora était fermé ; elle est rattrapée maintenant.</translation>
    </message>
    <message>
        <source>Waiting to clean up “%1” at “%2”…</source>
        <translation>En attente du nettoyage de « %1 » sur « %2 »…</translation>
    </message>
    <message>
        <source>Waiting to synchronize “%1” with “%2”…</source>
        <translation>En attente de la synchronisation de « %1 » avec « %2 »…</translation>
    </message>
    <message numerus="yes">
        <source>synchronized %1, but %2 items failed</source>
        <translation>
            <numerusform>synchronisé : %1, mais %2 élément a échoué</numerusform>
            <numerusform>synchronisé : %1, mais %2 éléments ont échoué</numerusform>
        </translation>
    </message>
    <message>
        <source>Synchronized %1, but some items failed</source>
        <translation>Dernière synchronisation : %1, mais certains éléments ont échoué</translation>
    </message>
    <message>
        <source>Some items of “%1” could not be synchronized with “%2”. Open the log to see which.</source>
        <translation>Certains éléments de « %1 » n’ont pas pu être synchronisés avec « %2 ». Ouvrez le journal pour voir lesquels.</translation>
    </message>
    <message>
        <source>Time: %1</source>
        <translation>Heure : %1</translation>
    </message>
    <message>
        <source>The list of unsent changes of the database “%1” was wrong. Everything is compared again.</source>
        <translation>La liste des modifications non envoyées de la base de données « %1 » était incorrecte. Tout est comparé de nouveau.</translation>
    </message>
    <message>
        <source>The recorded number of conflicts in the database “%1” is wrong. “velmora verify --repair” counts them again.</source>
        <translation>Le nombre de conflits noté pour la base de données « %1 » est incorrect. « velmora verify --repair » les compte de nouveau.</translation>
    </message>
    <message>
        <source>The recorded number of conflicts in the database “%1” was wrong. They were counted again.</source>
        <translation>Le nombre de conflits noté pour la base de données « %1 » était incorrect. Ils ont été comptés de nouveau.</translation>
    </message>
    <message>
        <source>The list of unsent changes of the database “%1” is wrong. “velmora verify --repair” compares everything and sends what the list lacks.</source>
        <translation>La liste des modifications non envoyées de la base de données « %1 » est incorrecte. « velmora verify --repair » compare tout et envoie ce qui manque dans la liste.</translation>
    </message>
    <message>
        <source>The profile “%1” is damaged. Restore it from a backup or use another profile.</source>
        <translation>Le profil « %1 » est endommagé. Restaurez-le à partir d’une copie de sauvegarde ou utilisez un autre profil.</translation>
    </message>
    <message>
        <source>An index of the profile “%1” is damaged, so that notes may seem to be missing. Quit Velmora if it is running, and start it: it rebuilds the index or offers to restore a backup.</source>
        <translation>Un index du profil « %1 » est endommagé, de sorte que des notes peuvent sembler manquer. Quittez Velmora s’il est en cours d’exécution, puis démarrez-le : il reconstruit l’index ou propose de restaurer une copie de sauvegarde.</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be read, because its disk reports an error. Check the disk and its connection, then start Velmora again.</source>
        <translation>Le profil « %1 » ne peut pas être lu, car son disque signale une erreur. Vérifiez le disque et son branchement, puis démarrez de nouveau Velmora.</translation>
    </message>
    <message>
        <source>The profile “%1” is damaged (%2). Quit Velmora and start it again: it then repairs the profile or offers to restore a backup.</source>
        <translation>Le profil « %1 » est endommagé (%2). Quittez Velmora et démarrez-le de nouveau : il répare alors le profil ou propose de restaurer une copie de sauvegarde.</translation>
    </message>
    <message>
        <source>An index of the profile was damaged and was rebuilt. If this happens again, check the disk.</source>
        <translation>Un index du profil était endommagé et a été reconstruit. Si cela se reproduit, vérifiez le disque.</translation>
    </message>
    <message>
        <source>Notes of “%1” that you wanted to keep were removed before you decided, for example by “velmora sync --removals remove”. To restore them, choose “Deleted Notes” in the menu “Edit”.</source>
        <translation>Des notes de « %1 » que vous vouliez conserver ont été supprimées avant votre décision, par exemple par « velmora sync --removals remove ». Pour les restaurer, choisissez « Notes supprimées » dans le menu « Édition ».</translation>
    </message>
    <message>
        <source>Notes of “%1” that you wanted to remove were kept or edited before you decided, for example by “velmora sync --removals keep”. If you do not need them, delete them.</source>
        <translation>Des notes de « %1 » que vous vouliez supprimer ont été conservées ou modifiées avant votre décision, par exemple par « velmora sync --removals keep ». Si vous n’en avez pas besoin, supprimez-les.</translation>
    </message>
    <message>
        <source>The old backup “%1” cannot be removed: %2. Check the permissions of its folder and its disk.</source>
        <translation>L’ancienne sauvegarde « %1 » ne peut pas être supprimée : %2. Vérifiez les droits d’accès de son dossier et son disque.</translation>
    </message>
    <message>
        <source>The unfinished backup “%1” cannot be removed: %2. Check the permissions of its folder and its disk.</source>
        <translation>La sauvegarde inachevée « %1 » ne peut pas être supprimée : %2. Vérifiez les droits d’accès de son dossier et son disque.</translation>
    </message>
    <message>
        <source>Files that an interrupted recovery has left in “%1” cannot be removed: %2. Check the permissions of the folder and its disk.</source>
        <translation>Des fichiers qu’une récupération interrompue a laissés dans « %1 » ne peuvent pas être supprimés : %2. Vérifiez les droits d’accès du dossier et son disque.</translation>
    </message>
    <message>
        <source>An index of the profile “%1” is damaged in a way that cannot be repaired. At its start, Velmora offers to restore a backup.</source>
        <translation>Un index du profil « %1 » est endommagé au point de ne pas pouvoir être réparé. À son démarrage, Velmora propose de restaurer une sauvegarde.</translation>
    </message>
    <message>
        <source>In a folder that your computers share</source>
        <translation>Dans un dossier que vos ordinateurs partagent</translation>
    </message>
    <message>
        <source>On a WebDAV server</source>
        <translation>Sur un serveur WebDAV</translation>
    </message>
    <message>
        <source>On another computer</source>
        <translation>Sur un autre ordinateur</translation>
    </message>
    <message>
        <source>Choose a computer, or enter its host.</source>
        <translation>Choisissez un ordinateur ou saisissez son hôte.</translation>
    </message>
    <message>
        <source>Select a location to continue.</source>
        <translation>Sélectionnez un emplacement pour continuer.</translation>
    </message>
    <message>
        <source>Select the databases to import.</source>
        <translation>Sélectionnez les bases de données à importer.</translation>
    </message>
    <message>
        <source>Create a sync store or choose one.</source>
        <translation>Créez un dépôt de synchronisation ou choisissez-en un.</translation>
    </message>
    <message>
        <source>Synchronize “%1” with</source>
        <translation>Synchroniser « %1 » avec</translation>
    </message>
    <message>
        <source>Schedule of “%1”</source>
        <translation>Planification de « %1 »</translation>
    </message>
    <message>
        <source>“%1” can no longer be restored here. If a sync location has it, import it from there.</source>
        <translation>« %1 » ne peut plus être restaurée ici. Si un emplacement de synchronisation la contient, importez-la depuis celui-ci.</translation>
    </message>
    <message>
        <source>“%1” belongs to a deleted database and cannot be deleted. Velmora tries again when it starts. Check the permissions.</source>
        <translation>« %1 » appartient à une base de données supprimée et ne peut pas être supprimé. Velmora réessaiera à son démarrage. Vérifiez les droits d’accès.</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notes</translation>
    </message>
    <message>
        <source>Computers that may connect can read and change it if it is ticked.</source>
        <translation>Les ordinateurs autorisés à se connecter peuvent la lire et la modifier si elle est cochée.</translation>
    </message>
    <message>
        <source>Computer on the local network</source>
        <translation>Ordinateur du réseau local</translation>
    </message>
    <message>
        <source>Location to import databases from</source>
        <translation>Emplacement depuis lequel importer des bases de données</translation>
    </message>
    <message>
        <source>Database that this computer does not have</source>
        <translation>Base de données que cet ordinateur n’a pas</translation>
    </message>
</context>
<context>
    <name>Platform</name>
    <message>
        <source>Help (?)</source>
        <translation>Aide (?)</translation>
    </message>
    <message>
        <source>Open the guide (%1)</source>
        <translation>Ouvrir le guide (%1)</translation>
    </message>
    <message>
        <source>Further failures: %1</source>
        <translation>Autres échecs : %1</translation>
    </message>
    <message>
        <source>No file manager could be started. Install one, or open the folder “%1” in another program.</source>
        <translation>Aucun gestionnaire de fichiers n’a pu être démarré. Installez-en un, ou ouvrez le dossier « %1 » dans un autre programme.</translation>
    </message>
    <message>
        <source>“%1” does not exist. Check whether it was moved or renamed, and whether its volume is connected.</source>
        <translation>« %1 » n’existe pas. Vérifiez s’il a été déplacé ou renommé, et si son volume est connecté.</translation>
    </message>
    <message>
        <source>Check the permissions of the file and the space on the disk.</source>
        <translation>Vérifiez les droits d’accès du fichier et l’espace disponible sur le disque.</translation>
    </message>
    <message>
        <source>The settings in the file “%1” cannot be read. Check the permissions of the file.</source>
        <translation>Les paramètres du fichier « %1 » ne peuvent pas être lus. Vérifiez les droits d’accès du fichier.</translation>
    </message>
    <message>
        <source>The setting could not be saved in the file “%1”. It is lost when %2 ends.</source>
        <translation>Le paramètre n’a pas pu être enregistré dans le fichier « %1 ». Il sera perdu à la fin de %2.</translation>
    </message>
    <message>
        <source>No password service is running on this computer.</source>
        <translation>Aucun service de mots de passe n’est en cours d’exécution sur cet ordinateur.</translation>
    </message>
    <message>
        <source>The output could not be written. Check the disk or the program that receives it, then try again.</source>
        <translation>La sortie n’a pas pu être écrite. Vérifiez le disque ou le programme qui la reçoit, puis réessayez.</translation>
    </message>
    <message>
        <source>The saved password could not be read. Start or unlock the password service, then try again.</source>
        <translation>Le mot de passe enregistré n’a pas pu être lu. Démarrez ou déverrouillez le service de mots de passe, puis réessayez.</translation>
    </message>
    <message>
        <source>A saved password or permission could not be deleted. Unlock the keyring and try again.</source>
        <translation>Un mot de passe ou une autorisation enregistrés n’ont pas pu être supprimés. Déverrouillez le trousseau de clés et réessayez.</translation>
    </message>
    <message>
        <source>The keyring is locked.</source>
        <translation>Le trousseau de clés est verrouillé.</translation>
    </message>
    <message>
        <source>The name “%1” cannot be looked up in the local network, because the service Avahi does not respond (%2). Start it and try again.</source>
        <translation>Le nom « %1 » ne peut pas être recherché sur le réseau local, car le service Avahi ne répond pas (%2). Démarrez-le et réessayez.</translation>
    </message>
    <message>
        <source>No computer of the local network has responded to the name “%1”. Check that the computer is on and in the same network.</source>
        <translation>Aucun ordinateur du réseau local n’a répondu au nom « %1 ». Vérifiez que l’ordinateur est allumé et qu’il est sur le même réseau.</translation>
    </message>
    <message>
        <source>The password service failed. To restart it, log out and log in again.</source>
        <translation>Le service de mots de passe a échoué. Pour le redémarrer, fermez votre session et rouvrez-la.</translation>
    </message>
    <message>
        <source>Passwords cannot be saved. They are kept until you quit %1. To save them, start or unlock the password service, and enter them again.</source>
        <translation>Les mots de passe ne peuvent pas être enregistrés. Ils sont conservés jusqu’à ce que vous quittiez %1. Pour les enregistrer, démarrez ou déverrouillez le service de mots de passe, puis saisissez-les de nouveau.</translation>
    </message>
    <message>
        <source>yesterday at %1</source>
        <translation>hier à %1</translation>
    </message>
    <message>
        <source>today at %1</source>
        <translation>aujourd’hui à %1</translation>
    </message>
    <message>
        <source>tomorrow at %1</source>
        <translation>demain à %1</translation>
    </message>
    <message>
        <source>The file “%1” could not be written. Check its permissions and the space on its disk.</source>
        <translation>Le fichier « %1 » n’a pas pu être écrit. Vérifiez ses droits d’accès et l’espace disponible sur son disque.</translation>
    </message>
    <message>
        <source>The file “%1” could not be read. Check its permissions and its disk.</source>
        <translation>Le fichier « %1 » n’a pas pu être lu. Vérifiez ses droits d’accès et son disque.</translation>
    </message>
    <message>
        <source>The folder “%1” could not be created. Check the permissions of the folder that contains it, or choose another one.</source>
        <translation>Le dossier « %1 » n’a pas pu être créé. Vérifiez les droits d’accès du dossier parent, ou choisissez un autre dossier.</translation>
    </message>
    <message>
        <source>The folder “%1” could not be read. Check its permissions and its disk.</source>
        <translation>Le dossier « %1 » n’a pas pu être lu. Vérifiez ses droits d’accès et son disque.</translation>
    </message>
    <message>
        <source>“%1” could not be removed. Check the permissions of its folder and its disk.</source>
        <translation>« %1 » n’a pas pu être supprimé. Vérifiez les droits d’accès de son dossier et son disque.</translation>
    </message>
    <message>
        <source>“%1” cannot be reached. Check the permissions of the folders that contain it and its disk.</source>
        <translation>« %1 » est inaccessible. Vérifiez les droits d’accès des dossiers qui le contiennent et son disque.</translation>
    </message>
    <message>
        <source>The database “%1” cannot be read (%2). Try again. If that fails, check the disk and the permissions of the file.</source>
        <translation>La base de données « %1 » ne peut pas être lue (%2). Réessayez. En cas d’échec, vérifiez le disque et les droits d’accès du fichier.</translation>
    </message>
    <message>
        <source>The system cannot start another thread. Quit programs that you do not need, then try again.</source>
        <translation>Le système ne peut pas démarrer de thread supplémentaire. Quittez les programmes dont vous n’avez pas besoin, puis réessayez.</translation>
    </message>
</context>
</TS>
