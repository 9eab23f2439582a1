!insertmacro Text WelcomeText \
    "Hiermee installeert u ${NAME}, waarmee u sms-berichten schrijft in het klassieke Microsoft Outlook.$\r$\n$\r$\nU hebt geen beheerdersrechten nodig. De invoegtoepassing komt in de map van Tellwick, dat uw sms-berichten verzendt.$\r$\n$\r$\nSluit Outlook voordat u doorgaat."
!insertmacro Text FolderText \
    "Kies de map waarin Tellwick.exe staat. Daar zoekt de invoegtoepassing Tellwick. Hebt u Tellwick nog niet, laat de map dan zoals die is."
!insertmacro Text SenderTitle "Verzenden"
!insertmacro Text SenderSubtitle "Wat de sms-berichten verzendt die u schrijft."
!insertmacro Text SenderMissing \
    "In deze map staat geen Tellwick.exe. Zonder dat programma kunt u sms-berichten schrijven, maar ze worden niet verzonden."
!insertmacro Text SenderLabel "&Tellwick installeren, dat ze verzendt"
!insertmacro Text SenderText \
    "Tellwick verzendt via een modem of mobiele telefoon aan deze computer, of via een sms-gateway in het netwerk. Welke, kiest u in de instellingen ervan.$\r$\n$\r$\nHebt u Tellwick al, ga dan terug en kies de map ervan."
!insertmacro Text SenderNote \
    "Open vóór het eerste sms-bericht Tellwick in het menu Start en kies onder $\"Instellingen$\" waarlangs uw sms-berichten gaan."
!insertmacro Text PrefixTitle "Landnummer"
!insertmacro Text PrefixSubtitle "Hoe de nummers van uw contactpersonen worden geschreven."
!insertmacro Text PrefixQuestion "Beginnen mobiele nummers in uw land met 0?"
!insertmacro Text PrefixYes "Ja, mijn &landnummer is:"
!insertmacro Text PrefixLabel "Landnummer:"
!insertmacro Text PrefixNo "Nee, &nummers internationaal laten"
!insertmacro Text PrefixText \
    "Met +31 wordt het nummer +31612345678 van een contactpersoon geschreven als 0612345678; nummers van andere landen blijven internationaal. Scheid meerdere landnummers met spaties.$\r$\n$\r$\nU kunt dat later wijzigen in de instellingen van het sms-venster."
!insertmacro Text PrefixMissing \
    "Voer uw landnummer in met een plusteken en cijfers, bijvoorbeeld +31. Scheid meerdere landnummers met spaties.$\r$\n$\r$\nOf kies Nee: dan blijven alle nummers internationaal."
!insertmacro Text OpenText \
    "Outlook is geopend en gebruikt de invoegtoepassing. Sluit Outlook en klik op Opnieuw."
!insertmacro Text NewerText \
    "Er is een nieuwere versie van ${NAME} geïnstalleerd: $0. Wilt u die vervangen door versie ${VERSION}?"
!insertmacro Text NotWritableText \
    "U bent niet gemachtigd om in de map $INSTDIR te schrijven. Kies een eigen map of vraag het uw beheerder."
!insertmacro Text NotCopiedText \
    "Niet alle bestanden konden worden gekopieerd. Misschien is er te weinig schijfruimte."
!insertmacro Text NotRegisteredText "De invoegtoepassing kon niet in Outlook worden geregistreerd."
!insertmacro Text FinishTitle "${NAME} is geïnstalleerd"
!insertmacro Text FinishText \
    "Start Outlook en klik op $\"Nieuwe sms$\": op het tabblad Start of, tot en met Outlook 2007, op de werkbalk."
!insertmacro Text NewOutlookText \
    "U gebruikt het nieuwe Outlook, dat zulke invoegtoepassingen niet kent. Ga terug naar het klassieke Outlook om sms-berichten te schrijven: de schakelaar $\"Nieuwe Outlook$\" staat rechtsboven in het venster."
!insertmacro Text OnePartText \
    "Het deel voor $0-bits Outlook kon op deze computer niet worden geregistreerd."
!insertmacro Text RemoveTitle "${NAME} verwijderen"
!insertmacro Text RemoveSubtitle "De invoegtoepassing wordt uit Outlook verwijderd."
!insertmacro Text RemoveText \
    "De bestanden van de invoegtoepassing worden uit de map $INSTDIR verwijderd. Tellwick zelf blijft staan."
!insertmacro Text RemoveSenderText \
    "De bestanden van de invoegtoepassing en Tellwick worden uit de map $INSTDIR verwijderd."
!insertmacro Text SettingsLabel \
    "&Ook instellingen, onthouden nummers en niet-verzonden sms-berichten verwijderen"
!insertmacro Text SettingsText "Tellwick gebruikt dezelfde instellingen en raakt ze dan ook kwijt."
!insertmacro Text SpoolText \
    "De sms-berichten die Tellwick heeft verzonden of nog moet verzenden, blijven in de map $APPDATA\Tellwick\Spool."
