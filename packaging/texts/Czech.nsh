!insertmacro Text WelcomeText \
    "Tento program nainstaluje ${NAME}, díky kterému můžete psát SMS v klasickém Outlooku.$\r$\n$\r$\nPráva správce nejsou potřeba. Doplněk se uloží do složky programu Tellwick, který vaše SMS odesílá.$\r$\n$\r$\nNež budete pokračovat, zavřete Outlook."
!insertmacro Text FolderText \
    "Zvolte složku, ve které je Tellwick.exe. Doplněk tam program Tellwick hledá. Pokud Tellwick ještě nemáte, ponechte složku, jak je."
!insertmacro Text SenderTitle "Odesílání"
!insertmacro Text SenderSubtitle "Co odesílá SMS, které píšete."
!insertmacro Text SenderMissing \
    "V této složce není Tellwick.exe. Bez něj můžete SMS psát, ale neodešlou se."
!insertmacro Text SenderLabel "&Nainstalovat Tellwick, který je odesílá"
!insertmacro Text SenderText \
    "Tellwick odesílá přes modem nebo mobilní telefon u tohoto počítače, nebo přes SMS bránu v síti. Vyberete to v jeho nastavení.$\r$\n$\r$\nPokud už Tellwick máte, vraťte se a zvolte jeho složku."
!insertmacro Text SenderNote \
    "Před první SMS otevřete Tellwick v nabídce Start a v okně „Nastavení“ vyberte, přes co se vaše SMS odesílají."
!insertmacro Text PrefixTitle "Předvolba země"
!insertmacro Text PrefixSubtitle "Jak se zapisují čísla vašich kontaktů."
!insertmacro Text PrefixQuestion "Začínají čísla mobilních telefonů ve vaší zemi nulou?"
!insertmacro Text PrefixYes "Ano, před&volba mé země je:"
!insertmacro Text PrefixLabel "Předvolba země:"
!insertmacro Text PrefixNo "Ne, &nechat čísla v mezinárodním tvaru"
!insertmacro Text PrefixText \
    "S předvolbou +421 se z čísla kontaktu +421903123456 stane 0903123456, čísla jiných zemí zůstanou v mezinárodním tvaru. Více předvoleb oddělte mezerami.$\r$\n$\r$\nPozději to můžete změnit v nastavení okna SMS."
!insertmacro Text PrefixMissing \
    "Zadejte předvolbu své země jako „+“ a číslice, například +421. Více předvoleb oddělte mezerami.$\r$\n$\r$\nNebo zvolte „Ne“: všechna čísla pak zůstanou v mezinárodním tvaru."
!insertmacro Text OpenText \
    "Outlook je otevřený a používá doplněk. Zavřete Outlook a klikněte na tlačítko Opakovat."
!insertmacro Text NewerText \
    "Je nainstalována novější verze ${NAME}, $0. Chcete ji nahradit verzí ${VERSION}?"
!insertmacro Text NotWritableText \
    "Nemáte oprávnění zapisovat do složky $INSTDIR. Zvolte vlastní složku nebo se obraťte na správce."
!insertmacro Text NotCopiedText \
    "Některé soubory se nepodařilo zkopírovat. Na disku možná není dost místa."
!insertmacro Text NotRegisteredText "Doplněk se nepodařilo zaregistrovat v Outlooku."
!insertmacro Text FinishTitle "${NAME} je nainstalován"
!insertmacro Text FinishText \
    "Spusťte Outlook a klikněte na „Nová SMS“: na kartě Domů nebo, až do verze Outlook 2007, na panelu nástrojů."
!insertmacro Text NewOutlookText \
    "Používáte nový Outlook, který takové doplňky nepodporuje. Chcete-li psát SMS, vraťte se ke klasickému Outlooku: přepínač „Nový Outlook“ je v okně vpravo nahoře."
!insertmacro Text OnePartText \
    "Část pro $0bitový Outlook se na tomto počítači nepodařilo zaregistrovat."
!insertmacro Text RemoveTitle "Odebrat ${NAME}"
!insertmacro Text RemoveSubtitle "Doplněk se odebere z Outlooku."
!insertmacro Text RemoveText \
    "Soubory doplňku se odstraní ze složky $INSTDIR. Samotný Tellwick zůstane."
!insertmacro Text RemoveSenderText "Soubory doplňku a Tellwick se odstraní ze složky $INSTDIR."
!insertmacro Text SettingsLabel "Odstranit &také nastavení, zapamatovaná čísla a neodeslané SMS"
!insertmacro Text SettingsText "Tellwick používá stejné nastavení a přijde o ně také."
!insertmacro Text SpoolText \
    "SMS, které Tellwick odeslal nebo má ještě odeslat, zůstanou ve složce $APPDATA\Tellwick\Spool."
