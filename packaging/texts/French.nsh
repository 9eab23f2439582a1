!insertmacro Text WelcomeText \
    "Ce programme va installer ${NAME}, qui vous permet d'écrire des SMS dans la version classique de Microsoft Outlook.$\r$\n$\r$\nAucun droit d'administrateur n'est nécessaire. Le complément est placé dans le dossier de Tellwick, qui envoie vos SMS.$\r$\n$\r$\nFermez Outlook avant de continuer."
!insertmacro Text FolderText \
    "Choisissez le dossier qui contient Tellwick.exe. C'est là que le complément cherche Tellwick. Si vous n'avez pas encore Tellwick, laissez le dossier tel quel."
!insertmacro Text SenderTitle "Envoi"
!insertmacro Text SenderSubtitle "Ce qui envoie les SMS que vous écrivez."
!insertmacro Text SenderMissing \
    "Ce dossier ne contient pas Tellwick.exe. Sans ce programme, vous pouvez écrire des SMS, mais ils ne sont pas envoyés."
!insertmacro Text SenderLabel "&Installer Tellwick, qui les envoie"
!insertmacro Text SenderText \
    "Tellwick envoie par un modem ou un téléphone mobile relié à cet ordinateur, ou par une passerelle SMS du réseau. Vous choisissez dans ses paramètres.$\r$\n$\r$\nSi vous avez déjà Tellwick, revenez en arrière et choisissez son dossier."
!insertmacro Text SenderNote \
    "Avant le premier SMS, ouvrez Tellwick dans le menu Démarrer et choisissez sous « Paramètres » par où partent vos SMS."
!insertmacro Text PrefixTitle "Indicatif de pays"
!insertmacro Text PrefixSubtitle "Comment les numéros de vos contacts sont écrits."
!insertmacro Text PrefixQuestion "Les numéros de mobile de votre pays commencent-ils par 0 ?"
!insertmacro Text PrefixYes "Oui, l'indicatif de &mon pays est :"
!insertmacro Text PrefixLabel "Indicatif de pays :"
!insertmacro Text PrefixNo "Non, &garder les numéros au format international"
!insertmacro Text PrefixText \
    "Avec +33, le numéro +33612345678 d'un contact devient 0612345678 ; les numéros d'autres pays restent au format international. Séparez plusieurs indicatifs par des espaces.$\r$\n$\r$\nVous pourrez modifier cela plus tard dans les paramètres de la fenêtre SMS."
!insertmacro Text PrefixMissing \
    "Saisissez l'indicatif de votre pays avec le « + » et des chiffres, par exemple +33. Séparez plusieurs indicatifs par des espaces.$\r$\n$\r$\nOu choisissez « Non » : tous les numéros restent alors au format international."
!insertmacro Text OpenText \
    "Outlook est ouvert et utilise le complément. Fermez Outlook, puis cliquez sur Réessayer."
!insertmacro Text NewerText \
    "Une version plus récente de ${NAME}, la $0, est installée. Voulez-vous la remplacer par la version ${VERSION} ?"
!insertmacro Text NotWritableText \
    "Vous n'avez pas l'autorisation d'écrire dans le dossier $INSTDIR. Choisissez un dossier qui vous appartient ou adressez-vous à votre administrateur."
!insertmacro Text NotCopiedText \
    "Certains fichiers n'ont pas pu être copiés. L'espace disque est peut-être insuffisant."
!insertmacro Text NotRegisteredText "Le complément n'a pas pu être enregistré dans Outlook."
!insertmacro Text FinishTitle "${NAME} est installé"
!insertmacro Text FinishText \
    "Démarrez Outlook et cliquez sur « Nouveau SMS » : sous l'onglet Accueil ou, jusqu'à Outlook 2007, dans la barre d'outils."
!insertmacro Text NewOutlookText \
    "Vous utilisez le nouvel Outlook, qui n'accepte pas les compléments de ce type. Pour écrire des SMS, revenez à Outlook classique : le bouton bascule « Nouvel Outlook » se trouve en haut à droite de la fenêtre."
!insertmacro Text OnePartText \
    "La partie pour Outlook $0 bits n'a pas pu être enregistrée sur cet ordinateur."
!insertmacro Text RemoveTitle "Supprimer ${NAME}"
!insertmacro Text RemoveSubtitle "Le complément est retiré d'Outlook."
!insertmacro Text RemoveText \
    "Les fichiers du complément sont supprimés du dossier $INSTDIR. Tellwick lui-même est conservé."
!insertmacro Text RemoveSenderText \
    "Les fichiers du complément et Tellwick sont supprimés du dossier $INSTDIR."
!insertmacro Text SettingsLabel \
    "Supprimer &aussi les paramètres, les numéros mémorisés et les SMS non envoyés"
!insertmacro Text SettingsText "Tellwick utilise les mêmes paramètres et les perdra également."
!insertmacro Text SpoolText \
    "Les SMS que Tellwick a envoyés ou doit encore envoyer restent dans le dossier $APPDATA\Tellwick\Spool."
