!insertmacro Text WelcomeText \
    "Este programa instalará o ${NAME}, que permite escrever SMS no Microsoft Outlook clássico.$\r$\n$\r$\nNão são necessárias permissões de administrador. O suplemento é colocado na pasta do Tellwick, que envia seus SMS.$\r$\n$\r$\nFeche o Outlook antes de continuar."
!insertmacro Text FolderText \
    "Escolha a pasta em que está o Tellwick.exe. É lá que o suplemento procura o Tellwick. Se você ainda não tem o Tellwick, deixe a pasta como está."
!insertmacro Text SenderTitle "Envio"
!insertmacro Text SenderSubtitle "O que envia os SMS que você escreve."
!insertmacro Text SenderMissing \
    "Não há um Tellwick.exe nesta pasta. Sem ele você pode escrever SMS, mas eles não são enviados."
!insertmacro Text SenderLabel "&Instalar o Tellwick, que os envia"
!insertmacro Text SenderText \
    "O Tellwick envia por um modem ou celular ligado a este computador, ou por um gateway de SMS na rede. Você escolhe qual nas configurações dele.$\r$\n$\r$\nSe você já tem o Tellwick, volte e escolha a pasta dele."
!insertmacro Text SenderNote \
    "Antes do primeiro SMS, abra o Tellwick no menu Iniciar e escolha em “Configurações” por onde saem seus SMS."
!insertmacro Text PrefixTitle "Código de país"
!insertmacro Text PrefixSubtitle "Como são escritos os números dos seus contatos."
!insertmacro Text PrefixQuestion "Os números de celular do seu país começam com 0?"
!insertmacro Text PrefixYes "Sim, o &código do meu país é:"
!insertmacro Text PrefixLabel "Código de país:"
!insertmacro Text PrefixNo "Não, mante&r os números no formato internacional"
!insertmacro Text PrefixText \
    "Com +595, o número +595981123456 de um contato passa a ser 0981123456; os números de outros países continuam internacionais. Separe vários códigos com espaços.$\r$\n$\r$\nVocê pode mudar isso mais tarde nas configurações da janela de SMS."
!insertmacro Text PrefixMissing \
    "Digite o código do seu país com “+” e dígitos, por exemplo +595. Separe vários códigos com espaços.$\r$\n$\r$\nOu escolha “Não”: assim todos os números continuam internacionais."
!insertmacro Text OpenText \
    "O Outlook está aberto e usa o suplemento. Feche o Outlook e clique em Repetir."
!insertmacro Text NewerText \
    "Uma versão mais recente do ${NAME}, a $0, está instalada. Deseja substituí-la pela versão ${VERSION}?"
!insertmacro Text NotWritableText \
    "Você não tem permissão para gravar na pasta $INSTDIR. Escolha uma pasta sua ou fale com o administrador."
!insertmacro Text NotCopiedText \
    "Nem todos os arquivos puderam ser copiados. Talvez não haja espaço suficiente no disco."
!insertmacro Text NotRegisteredText "Não foi possível registrar o suplemento no Outlook."
!insertmacro Text FinishTitle "O ${NAME} está instalado"
!insertmacro Text FinishText \
    "Inicie o Outlook e clique em “Novo SMS”: na guia Página Inicial ou, até o Outlook 2007, na barra de ferramentas."
!insertmacro Text NewOutlookText \
    "Você usa o novo Outlook, que não aceita suplementos deste tipo. Para escrever SMS, volte ao Outlook clássico: o botão de alternância “Novo Outlook” fica no canto superior direito da janela."
!insertmacro Text OnePartText \
    "Não foi possível registrar neste computador a parte para o Outlook de $0 bits."
!insertmacro Text RemoveTitle "Remover o ${NAME}"
!insertmacro Text RemoveSubtitle "O suplemento é retirado do Outlook."
!insertmacro Text RemoveText \
    "Os arquivos do suplemento são removidos da pasta $INSTDIR. O Tellwick permanece."
!insertmacro Text RemoveSenderText \
    "Os arquivos do suplemento e o Tellwick são removidos da pasta $INSTDIR."
!insertmacro Text SettingsLabel \
    "Remover &também as configurações, os números guardados e os SMS não enviados"
!insertmacro Text SettingsText "O Tellwick usa as mesmas configurações e também as perderá."
!insertmacro Text SpoolText \
    "Os SMS que o Tellwick enviou, ou que ainda tem de enviar, permanecem na pasta $APPDATA\Tellwick\Spool."
