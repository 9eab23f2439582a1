; The texts of the set-up program and the uninstaller.

!macro Text NAME ENGLISH GERMAN
    LangString ${NAME} ${LANG_ENGLISH} "${ENGLISH}"
    LangString ${NAME} ${LANG_GERMAN} "${GERMAN}"
!macroend

!insertmacro Text WelcomeText \
    "This will install ${NAME}, which lets you write SMS messages in classic Microsoft Outlook.$\r$\n$\r$\nYou need no administrator rights. The add-in goes into the folder of Tellwick, which sends your messages.$\r$\n$\r$\nClose Outlook before you continue." \
    "Hiermit wird ${NAME} eingerichtet, mit dem Sie im klassischen Microsoft Outlook SMS schreiben.$\r$\n$\r$\nAdministratorrechte sind nicht nötig. Das Add-In kommt in den Ordner von Tellwick, das Ihre SMS sendet.$\r$\n$\r$\nBeenden Sie Outlook, bevor Sie fortfahren."
!insertmacro Text FolderText \
    "Choose the folder that Tellwick.exe is in. The add-in looks for Tellwick there." \
    "Wählen Sie den Ordner, in dem Tellwick.exe liegt. Das Add-In sucht Tellwick dort."
!insertmacro Text NoSenderText \
    "There is no Tellwick.exe in this folder. You can write SMS messages, but they are not sent until Tellwick is there.$\r$\n$\r$\nDo you want to use this folder anyway?" \
    "In diesem Ordner liegt kein Tellwick.exe. Sie können SMS schreiben, aber gesendet werden sie erst, wenn Tellwick dort liegt.$\r$\n$\r$\nMöchten Sie den Ordner trotzdem verwenden?"
!insertmacro Text PrefixTitle "Country Code" "Ländervorwahl"
!insertmacro Text PrefixSubtitle \
    "How the numbers of your contacts are written." \
    "Wie die Rufnummern Ihrer Kontakte geschrieben werden."
!insertmacro Text PrefixText \
    "Numbers with the code of your country are written in national form: with +44, the number +447700900123 becomes 07700900123. Without a code the $\"+$\" of every number is replaced by 0, which is almost always wrong. If numbers in your country do not begin with 0, as in the USA or Spain, enter +999.$\r$\nYou can change the code later in the settings of the SMS window." \
    "Rufnummern mit der Vorwahl Ihres Landes werden national geschrieben: Mit +49 wird aus +49170123 die Nummer 0170123. Ohne Vorwahl wird bei jeder Nummer das „+“ durch 0 ersetzt, was fast immer falsch ist. Beginnen die Rufnummern Ihres Landes nicht mit 0, wie in Spanien oder Polen, geben Sie +999 ein.$\r$\nSie können die Vorwahl später in den Einstellungen des SMS-Fensters ändern."
!insertmacro Text PrefixLabel "&Country code:" "&Ländervorwahl:"
!insertmacro Text OpenText \
    "Outlook is open and uses the add-in. Close Outlook, and then click Retry." \
    "Outlook ist geöffnet und verwendet das Add-In. Beenden Sie Outlook, und klicken Sie dann auf „Wiederholen“."
!insertmacro Text NewerText \
    "A newer version of ${NAME}, $0, is installed. Do you want to replace it with version ${VERSION}?" \
    "Eine neuere Version von ${NAME}, $0, ist installiert. Möchten Sie sie durch die Version ${VERSION} ersetzen?"
!insertmacro Text NotWritableText \
    "You do not have permission to write to the folder $INSTDIR. Choose a folder of your own, or ask your administrator." \
    "Sie dürfen nicht in den Ordner $INSTDIR schreiben. Wählen Sie einen eigenen Ordner, oder fragen Sie Ihren Administrator."
!insertmacro Text NotCopiedText \
    "Not all files could be copied. There may be too little space on the disk." \
    "Nicht alle Dateien konnten kopiert werden. Vielleicht reicht der Speicherplatz nicht aus."
!insertmacro Text NotRegisteredText \
    "The add-in could not be registered with Outlook." \
    "Das Add-In konnte nicht in Outlook registriert werden."
!insertmacro Text FinishTitle "${NAME} is set up" "${NAME} ist eingerichtet"
!insertmacro Text FinishText \
    "Start Outlook and click $\"New SMS$\": on the Home tab, or on the toolbar of Outlook 2007 and earlier." \
    "Starten Sie Outlook, und klicken Sie auf „Neue SMS“: auf der Registerkarte „Start“ oder, bis Outlook 2007, in der Symbolleiste."
!insertmacro Text NewOutlookText \
    "You use the new Outlook, which has no room for add-ins like this one. To write SMS messages, switch back to classic Outlook: the switch $\"New Outlook$\" is at the top right of its window." \
    "Sie verwenden das neue Outlook, das keine Add-Ins wie dieses kennt. Um SMS zu schreiben, wechseln Sie zurück zum klassischen Outlook: Der Schalter „Neues Outlook“ steht rechts oben im Fenster."
!insertmacro Text OnePartText \
    "The part for $0-bit Outlook could not be registered on this computer." \
    "Der Teil für $0-Bit-Outlook konnte auf diesem Computer nicht registriert werden."
!insertmacro Text RemoveTitle "Remove ${NAME}" "${NAME} entfernen"
!insertmacro Text RemoveSubtitle \
    "The add-in is taken out of Outlook." "Das Add-In wird aus Outlook entfernt."
!insertmacro Text RemoveText \
    "The add-in's files are removed from the folder $INSTDIR. Tellwick itself stays." \
    "Die Dateien des Add-Ins werden aus dem Ordner $INSTDIR entfernt. Tellwick selbst bleibt."
!insertmacro Text SettingsLabel \
    "Also &remove settings, remembered numbers and unsent messages" \
    "Auch &Einstellungen, gemerkte Rufnummern und nicht gesendete SMS entfernen"
!insertmacro Text SettingsText \
    "Tellwick uses the same settings and will lose them, too." \
    "Tellwick verwendet dieselben Einstellungen und verliert sie dann ebenfalls."
