!insertmacro Text WelcomeText \
    "Este programa instalará ${NAME}, que le permite escribir SMS en el Microsoft Outlook clásico.$\r$\n$\r$\nNo se necesitan permisos de administrador. El complemento se coloca en la carpeta de Tellwick, que envía sus SMS.$\r$\n$\r$\nCierre Outlook antes de continuar."
!insertmacro Text FolderText \
    "Elija la carpeta en la que se encuentra Tellwick.exe. Es allí donde el complemento busca Tellwick. Si aún no tiene Tellwick, deje la carpeta como está."
!insertmacro Text SenderTitle "Envío"
!insertmacro Text SenderSubtitle "Qué envía los SMS que usted escribe."
!insertmacro Text SenderMissing \
    "En esta carpeta no está Tellwick.exe. Sin él podrá escribir SMS, pero no se enviarán."
!insertmacro Text SenderLabel "&Instalar Tellwick, que los envía"
!insertmacro Text SenderText \
    "Tellwick envía a través de un módem o teléfono móvil conectado a este equipo, o de una pasarela SMS de la red. Lo elige usted en su configuración.$\r$\n$\r$\nSi ya tiene Tellwick, vuelva atrás y elija su carpeta."
!insertmacro Text SenderNote \
    "Antes del primer SMS, abra Tellwick en el menú Inicio y elija en “Configuración” por dónde salen sus SMS."
!insertmacro Text PrefixTitle "Prefijo de país"
!insertmacro Text PrefixSubtitle "Cómo se escriben los números de sus contactos."
!insertmacro Text PrefixQuestion "¿Los números de móvil de su país empiezan por 0?"
!insertmacro Text PrefixYes "Sí, el &prefijo de mi país es:"
!insertmacro Text PrefixLabel "Prefijo de país:"
!insertmacro Text PrefixNo "No, mantener los &números en formato internacional"
!insertmacro Text PrefixText \
    "Con +598, el número +59894231234 de un contacto pasa a ser 094231234; los números de otros países siguen siendo internacionales. Separe varios prefijos con espacios.$\r$\n$\r$\nPuede cambiarlo más adelante en la configuración de la ventana de SMS."
!insertmacro Text PrefixMissing \
    "Escriba el prefijo de su país con “+” y cifras, por ejemplo +598. Separe varios prefijos con espacios.$\r$\n$\r$\nO elija “No”: así todos los números siguen siendo internacionales."
!insertmacro Text OpenText \
    "Outlook está abierto y utiliza el complemento. Cierre Outlook y haga clic en Reintentar."
!insertmacro Text NewerText \
    "Está instalada una versión más reciente de ${NAME}, la $0. ¿Desea sustituirla por la versión ${VERSION}?"
!insertmacro Text NotWritableText \
    "No tiene permiso para escribir en la carpeta $INSTDIR. Elija una carpeta propia o consulte a su administrador."
!insertmacro Text NotCopiedText \
    "No se han podido copiar todos los archivos. Quizá no haya espacio suficiente en el disco."
!insertmacro Text NotRegisteredText "No se ha podido registrar el complemento en Outlook."
!insertmacro Text FinishTitle "${NAME} está instalado"
!insertmacro Text FinishText \
    "Inicie Outlook y haga clic en “Nuevo SMS”: en la pestaña Inicio o, hasta Outlook 2007, en la barra de herramientas."
!insertmacro Text NewOutlookText \
    "Utiliza el nuevo Outlook, que no admite complementos de este tipo. Para escribir SMS, vuelva al Outlook clásico: el interruptor “Nuevo Outlook” está en la parte superior derecha de la ventana."
!insertmacro Text OnePartText \
    "No se ha podido registrar en este equipo la parte para Outlook de $0 bits."
!insertmacro Text RemoveTitle "Quitar ${NAME}"
!insertmacro Text RemoveSubtitle "El complemento se quita de Outlook."
!insertmacro Text RemoveText \
    "Los archivos del complemento se eliminan de la carpeta $INSTDIR. Tellwick permanece."
!insertmacro Text RemoveSenderText \
    "Los archivos del complemento y Tellwick se eliminan de la carpeta $INSTDIR."
!insertmacro Text SettingsLabel \
    "Eliminar &también la configuración, los números guardados y los SMS no enviados"
!insertmacro Text SettingsText "Tellwick utiliza la misma configuración y también la perderá."
!insertmacro Text SpoolText \
    "Los SMS que Tellwick ha enviado o tiene por enviar permanecen en la carpeta $APPDATA\Tellwick\Spool."
