!insertmacro Text WelcomeText \
    "Ten program zainstaluje ${NAME}, dzięki któremu można pisać SMS-y w klasycznym programie Microsoft Outlook.$\r$\n$\r$\nUprawnienia administratora nie są potrzebne. Dodatek trafia do folderu programu Tellwick, który wysyła SMS-y.$\r$\n$\r$\nPrzed kontynuowaniem zamknij program Outlook."
!insertmacro Text FolderText \
    "Wybierz folder, w którym znajduje się plik Tellwick.exe. Tam dodatek szuka programu Tellwick. Jeśli nie masz jeszcze programu Tellwick, pozostaw ten folder."
!insertmacro Text SenderTitle "Wysyłanie"
!insertmacro Text SenderSubtitle "Co wysyła SMS-y, które piszesz."
!insertmacro Text SenderMissing \
    "W tym folderze nie ma pliku Tellwick.exe. Bez niego można pisać SMS-y, ale nie będą one wysyłane."
!insertmacro Text SenderLabel "&Zainstaluj program Tellwick, który je wysyła"
!insertmacro Text SenderText \
    "Tellwick wysyła przez modem lub telefon komórkowy podłączony do tego komputera albo przez bramkę SMS w sieci. Wybierasz to w jego ustawieniach.$\r$\n$\r$\nJeśli masz już program Tellwick, wróć i wybierz jego folder."
!insertmacro Text SenderNote \
    "Przed pierwszym SMS-em otwórz program Tellwick w menu Start i w oknie „Ustawienia” wybierz, przez co mają być wysyłane SMS-y."
!insertmacro Text PrefixTitle "Numer kierunkowy kraju"
!insertmacro Text PrefixSubtitle "Jak zapisywane są numery kontaktów."
!insertmacro Text PrefixQuestion "Czy numery komórkowe w Twoim kraju zaczynają się od zera?"
!insertmacro Text PrefixYes "Tak, numer &kierunkowy mojego kraju to:"
!insertmacro Text PrefixLabel "Numer kierunkowy kraju:"
!insertmacro Text PrefixNo "Nie, pozostaw &numery w formacie międzynarodowym"
!insertmacro Text PrefixText \
    "Przy +380 numer kontaktu +380501234567 zmienia się w 0501234567, a numery z innych krajów pozostają w formacie międzynarodowym. Kilka numerów kierunkowych oddziel spacjami.$\r$\n$\r$\nMożna to później zmienić w ustawieniach okna SMS."
!insertmacro Text PrefixMissing \
    "Wpisz numer kierunkowy swojego kraju jako „+” i cyfry, na przykład +380. Kilka numerów kierunkowych oddziel spacjami.$\r$\n$\r$\nMożesz też wybrać „Nie”: wszystkie numery pozostaną wtedy w formacie międzynarodowym."
!insertmacro Text OpenText \
    "Program Outlook jest otwarty i używa dodatku. Zamknij program Outlook, a następnie kliknij przycisk Ponów próbę."
!insertmacro Text NewerText \
    "Zainstalowana jest nowsza wersja ${NAME}: $0. Czy chcesz ją zastąpić wersją ${VERSION}?"
!insertmacro Text NotWritableText \
    "Nie masz uprawnień do zapisu w folderze $INSTDIR. Wybierz własny folder lub skontaktuj się z administratorem."
!insertmacro Text NotCopiedText \
    "Nie udało się skopiować wszystkich plików. Być może na dysku brakuje miejsca."
!insertmacro Text NotRegisteredText "Nie udało się zarejestrować dodatku w programie Outlook."
!insertmacro Text FinishTitle "${NAME} jest zainstalowany"
!insertmacro Text FinishText \
    "Uruchom program Outlook i kliknij „Nowy SMS”: na karcie Narzędzia główne lub, do wersji Outlook 2007, na pasku narzędzi."
!insertmacro Text NewOutlookText \
    "Używasz nowego programu Outlook, który nie obsługuje takich dodatków. Aby pisać SMS-y, wróć do klasycznego programu Outlook: przełącznik „Nowy program Outlook” znajduje się w prawym górnym rogu okna."
!insertmacro Text OnePartText \
    "Nie udało się zarejestrować na tym komputerze części dla $0-bitowego programu Outlook."
!insertmacro Text RemoveTitle "Usuń ${NAME}"
!insertmacro Text RemoveSubtitle "Dodatek zostanie usunięty z programu Outlook."
!insertmacro Text RemoveText \
    "Pliki dodatku zostaną usunięte z folderu $INSTDIR. Sam Tellwick pozostanie."
!insertmacro Text RemoveSenderText \
    "Pliki dodatku i program Tellwick zostaną usunięte z folderu $INSTDIR."
!insertmacro Text SettingsLabel "Usuń &także ustawienia, zapamiętane numery i niewysłane SMS-y"
!insertmacro Text SettingsText "Tellwick używa tych samych ustawień i również je utraci."
!insertmacro Text SpoolText \
    "SMS-y, które Tellwick wysłał lub ma jeszcze wysłać, pozostaną w folderze $APPDATA\Tellwick\Spool."
