!insertmacro Text WelcomeText \
    "This will install ${NAME}, which lets you write SMS messages in classic Microsoft Outlook.$\r$\n$\r$\nYou need no administrator rights. The add-in goes into the folder of Tellwick, which sends your messages.$\r$\n$\r$\nClose Outlook before you continue."
!insertmacro Text FolderText \
    "Choose the folder that Tellwick.exe is in. The add-in looks for Tellwick there. If you do not have Tellwick yet, leave the folder as it is."
!insertmacro Text SenderTitle "Sending"
!insertmacro Text SenderSubtitle "What sends the messages that you write."
!insertmacro Text SenderMissing \
    "There is no Tellwick.exe in this folder. Without it you can write SMS messages, but they are not sent."
!insertmacro Text SenderLabel "&Install Tellwick, which sends them"
!insertmacro Text SenderText \
    "Tellwick sends through a modem or mobile phone at this computer, or through an SMS gateway on the network. You choose which in its settings.$\r$\n$\r$\nIf you already have Tellwick, go back and choose its folder."
!insertmacro Text SenderNote \
    "Before the first SMS, open Tellwick in the Start menu and choose under $\"Settings$\" what your messages leave through."
!insertmacro Text PrefixTitle "Country Code"
!insertmacro Text PrefixSubtitle "How the numbers of your contacts are written."
!insertmacro Text PrefixQuestion "Do mobile numbers in your country begin with 0?"
!insertmacro Text PrefixYes "Yes, my country &code is:"
!insertmacro Text PrefixLabel "Country code:"
!insertmacro Text PrefixNo "No, keep &numbers international"
!insertmacro Text PrefixText \
    "With +44, the number +447700900123 of a contact becomes 07700900123; numbers of other countries stay international. Separate several codes with spaces.$\r$\n$\r$\nYou can change this later in the settings of the SMS window."
!insertmacro Text PrefixMissing \
    "Enter your country code with $\"+$\" and digits, for example +44. Separate several codes with spaces.$\r$\n$\r$\nOr choose $\"No$\": all numbers then stay international."
!insertmacro Text OpenText \
    "Outlook is open and uses the add-in. Close Outlook, and then click Retry."
!insertmacro Text NewerText \
    "A newer version of ${NAME}, $0, is installed. Do you want to replace it with version ${VERSION}?"
!insertmacro Text NotWritableText \
    "You do not have permission to write to the folder $INSTDIR. Choose a folder of your own, or ask your administrator."
!insertmacro Text NotCopiedText \
    "Not all files could be copied. There may be too little space on the disk."
!insertmacro Text NotRegisteredText "The add-in could not be registered with Outlook."
!insertmacro Text FinishTitle "${NAME} is set up"
!insertmacro Text FinishText \
    "Start Outlook and click $\"New SMS$\": on the Home tab, or on the toolbar of Outlook 2007 and earlier."
!insertmacro Text NewOutlookText \
    "You use the new Outlook, which has no room for add-ins like this one. To write SMS messages, switch back to classic Outlook: the switch $\"New Outlook$\" is at the top right of its window."
!insertmacro Text OnePartText \
    "The part for $0-bit Outlook could not be registered on this computer."
!insertmacro Text RemoveTitle "Remove ${NAME}"
!insertmacro Text RemoveSubtitle "The add-in is taken out of Outlook."
!insertmacro Text RemoveText \
    "The add-in's files are removed from the folder $INSTDIR. Tellwick itself stays."
!insertmacro Text RemoveSenderText \
    "The add-in's files and Tellwick are removed from the folder $INSTDIR."
!insertmacro Text SettingsLabel "Also &remove settings, remembered numbers and unsent messages"
!insertmacro Text SettingsText "Tellwick uses the same settings and will lose them, too."
!insertmacro Text SpoolText \
    "The messages that Tellwick has sent, or has yet to send, stay in the folder $APPDATA\Tellwick\Spool."
