!insertmacro Text WelcomeText \
    "Hiermit wird ${NAME} eingerichtet, mit dem Sie im klassischen Microsoft Outlook SMS schreiben.$\r$\n$\r$\nAdministratorrechte sind nicht nötig. Das Add-In kommt in den Ordner von Tellwick, das Ihre SMS sendet.$\r$\n$\r$\nBeenden Sie Outlook, bevor Sie fortfahren."
!insertmacro Text FolderText \
    "Wählen Sie den Ordner, in dem Tellwick.exe liegt. Das Add-In sucht Tellwick dort. Wenn Sie Tellwick noch nicht haben, lassen Sie den Ordner, wie er ist."
!insertmacro Text SenderTitle "Senden"
!insertmacro Text SenderSubtitle "Was die SMS sendet, die Sie schreiben."
!insertmacro Text SenderMissing \
    "In diesem Ordner liegt kein Tellwick.exe. Ohne dieses Programm können Sie SMS schreiben, aber sie werden nicht gesendet."
!insertmacro Text SenderLabel "&Tellwick installieren, das sie sendet"
!insertmacro Text SenderText \
    "Tellwick sendet über ein Modem oder Mobiltelefon an diesem Computer oder über ein SMS-Gateway im Netz. Welches, wählen Sie in seinen Einstellungen.$\r$\n$\r$\nWenn Sie Tellwick schon haben, gehen Sie zurück und wählen Sie seinen Ordner."
!insertmacro Text SenderNote \
    "Öffnen Sie vor der ersten SMS Tellwick im Startmenü, und wählen Sie unter „Einstellungen“, worüber Ihre SMS hinausgehen."
!insertmacro Text PrefixTitle "Ländervorwahl"
!insertmacro Text PrefixSubtitle "Wie die Rufnummern Ihrer Kontakte geschrieben werden."
!insertmacro Text PrefixQuestion "Beginnen Mobilfunknummern in Ihrem Land mit 0?"
!insertmacro Text PrefixYes "Ja, meine &Ländervorwahl ist:"
!insertmacro Text PrefixLabel "Ländervorwahl:"
!insertmacro Text PrefixNo "Nein, &Rufnummern international lassen"
!insertmacro Text PrefixText \
    "Mit +49 wird aus der Rufnummer +49170123 eines Kontakts 0170123; Rufnummern anderer Länder bleiben international. Mehrere Vorwahlen trennen Sie durch Leerzeichen.$\r$\n$\r$\nSie können das später in den Einstellungen des SMS-Fensters ändern."
!insertmacro Text PrefixMissing \
    "Geben Sie Ihre Ländervorwahl mit „+“ und Ziffern ein, zum Beispiel +49. Mehrere Vorwahlen trennen Sie durch Leerzeichen.$\r$\n$\r$\nOder wählen Sie „Nein“: Dann bleiben alle Rufnummern international."
!insertmacro Text OpenText \
    "Outlook ist geöffnet und verwendet das Add-In. Beenden Sie Outlook, und klicken Sie dann auf „Wiederholen“."
!insertmacro Text NewerText \
    "Eine neuere Version von ${NAME}, $0, ist installiert. Möchten Sie sie durch die Version ${VERSION} ersetzen?"
!insertmacro Text NotWritableText \
    "Sie dürfen nicht in den Ordner $INSTDIR schreiben. Wählen Sie einen eigenen Ordner, oder fragen Sie Ihren Administrator."
!insertmacro Text NotCopiedText \
    "Nicht alle Dateien konnten kopiert werden. Vielleicht reicht der Speicherplatz nicht aus."
!insertmacro Text NotRegisteredText "Das Add-In konnte nicht in Outlook registriert werden."
!insertmacro Text FinishTitle "${NAME} ist eingerichtet"
!insertmacro Text FinishText \
    "Starten Sie Outlook, und klicken Sie auf „Neue SMS“: auf der Registerkarte „Start“ oder, bis Outlook 2007, in der Symbolleiste."
!insertmacro Text NewOutlookText \
    "Sie verwenden das neue Outlook, das keine Add-Ins wie dieses kennt. Um SMS zu schreiben, wechseln Sie zurück zum klassischen Outlook: Der Schalter „Neues Outlook“ steht rechts oben im Fenster."
!insertmacro Text OnePartText \
    "Der Teil für $0-Bit-Outlook konnte auf diesem Computer nicht registriert werden."
!insertmacro Text RemoveTitle "${NAME} entfernen"
!insertmacro Text RemoveSubtitle "Das Add-In wird aus Outlook entfernt."
!insertmacro Text RemoveText \
    "Die Dateien des Add-Ins werden aus dem Ordner $INSTDIR entfernt. Tellwick selbst bleibt."
!insertmacro Text RemoveSenderText \
    "Die Dateien des Add-Ins und Tellwick werden aus dem Ordner $INSTDIR entfernt."
!insertmacro Text SettingsLabel \
    "Auch &Einstellungen, gemerkte Rufnummern und nicht gesendete SMS entfernen"
!insertmacro Text SettingsText \
    "Tellwick verwendet dieselben Einstellungen und verliert sie dann ebenfalls."
!insertmacro Text SpoolText \
    "Die SMS, die Tellwick gesendet hat oder noch senden wird, bleiben im Ordner $APPDATA\Tellwick\Spool."
