; The set-up program: per user, without an administrator, 32-bit and 64-bit Outlook.
;
; A sender is offered where the folder has none; one that is not from here is never touched.
;
; Silent: /S, and /D=FOLDER as the last word, without quotes; /NOSENDER for no sender. The uninstaller
; takes /S and, to take the user's settings, numbers and unsent SMS along, /SETTINGS.
; Exit codes: 0 done, 1 the user cancelled, 2 nothing could be installed, 3 a newer version stays.
;
; Made by tools/dist, which defines VERSION, OUTPUT, STAGE (a folder with everything that is put
; on the user's disk), SIZE (kilobytes) and FILES (a list of the files to include).

Unicode true
ManifestDPIAware true
RequestExecutionLevel user
SetCompressor /SOLID lzma
SetDateSave off

!include LogicLib.nsh
!include MUI2.nsh
!include FileFunc.nsh
!include WordFunc.nsh
!include x64.nsh
!include WinMessages.nsh

!define NAME "Tellwick for Outlook"
!define UNINSTALLER "TellwickForOutlook-Uninstall.exe"
!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\TellwickForOutlook"
!define RUN_ONCE "Software\Microsoft\Windows\CurrentVersion\RunOnce"
!define LIBRARY32 "TellwickOutlookAddIn.dll"
!define LIBRARY64 "TellwickOutlookAddIn64.dll"
!define NO_NUMBERS "+999"
!define SENDER "Tellwick.exe"
; The name that the sender's version resource has for it inside.
!define SENDER_MARK "TellwickSender"

Name "${NAME}"
BrandingText "${NAME} ${VERSION}"
OutFile "${OUTPUT}"
ShowInstDetails nevershow
ShowUninstDetails nevershow

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=0 "ProductName" "${NAME}"
VIAddVersionKey /LANG=0 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "FileVersion" "${VERSION}.0"
VIAddVersionKey /LANG=0 "FileDescription" "${NAME}"
VIAddVersionKey /LANG=0 "CompanyName" "Omberline"
VIAddVersionKey /LANG=0 "LegalCopyright" "Omberline"

Var Updating  ; "yes" where the folder holds an earlier installation
Var Prefix        ; country codes; the one that no number begins with where they stay international
Var HasPrefix     ; 1 where the user has given codes already
Var PrefixYes
Var PrefixField
Var Sender        ; in the folder: "own", "other", or none
Var WithSender    ; checked where one is wanted if there is none
Var SenderBox
Var SenderRan     ; 0 where an earlier one ran, which was ended
Var RemoveSettings
Var SettingsBox
Var InUse        ; "yes" where a program has one of the libraries loaded
Var Status
Var Status32
Var FinishNote   ; what the user should know at the end
Var Failed
Var Aside

!define MUI_ICON "../src/windows/resources/pictures/sms.ico"
!define MUI_UNICON "${MUI_ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "welcome.bmp"
!define MUI_ABORTWARNING
!define MUI_WELCOMEPAGE_TITLE "${NAME} ${VERSION}"
!define MUI_WELCOMEPAGE_TEXT "$(WelcomeText)"
!define MUI_DIRECTORYPAGE_TEXT_TOP "$(FolderText)"
!define MUI_FINISHPAGE_TITLE "$(FinishTitle)"
!define MUI_FINISHPAGE_TEXT "$(FinishText)$FinishNote"
!define MUI_FINISHPAGE_TEXT_LARGE
!insertmacro MUI_PAGE_WELCOME
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE LeaveFolderPage
!insertmacro MUI_PAGE_DIRECTORY
Page custom ShowSenderPage LeaveSenderPage
Page custom ShowPrefixPage LeavePrefixPage
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
UninstPage custom un.ShowSettingsPage un.LeaveSettingsPage
!insertmacro MUI_UNPAGE_INSTFILES

; A language by the name that the tool has for it: its own texts, and those of texts/TONGUE.nsh.
!macro Language TONGUE
    !insertmacro MUI_LANGUAGE "${TONGUE}"
    !define LANGUAGE "${TONGUE}"
    !include "texts/${TONGUE}.nsh"
    !undef LANGUAGE
!macroend
!macro Text NAME TEXT
    LangString ${NAME} ${LANG_${LANGUAGE}} "${TEXT}"
!macroend
; The first one is for all other languages.
!insertmacro Language "English"
!insertmacro Language "Czech"
!insertmacro Language "Dutch"
!insertmacro Language "French"
!insertmacro Language "German"
!insertmacro Language "Polish"
!insertmacro Language "PortugueseBR"
!insertmacro Language "Spanish"

; --- what both programs need ------------------------------------------------------------------------

!macro Shared UN

; Runs the system's registration program of a bitness with the words on the stack; its exit code
; comes into $Status.
Function ${UN}Run32
    Exch $0
    ClearErrors
    ExecWait '"$SYSDIR\regsvr32.exe" $0' $Status
    ${If} ${Errors}
        StrCpy $Status "-1"
    ${EndIf}
    Pop $0
FunctionEnd

Function ${UN}Run64
    ${DisableX64FSRedirection}
    Call ${UN}Run32
    ${EnableX64FSRedirection}
FunctionEnd

; Takes the add-in out of the registry, through the libraries' own code.
Function ${UN}Unregister
    ${If} ${RunningX64}
        Push '/u /s "$INSTDIR\${LIBRARY64}"'
        Call ${UN}Run64
    ${EndIf}
    Push '/u /s "$INSTDIR\${LIBRARY32}"'
    Call ${UN}Run32
FunctionEnd

; What was put aside goes at once or, while Outlook has it loaded, when the user logs on next.
Function ${UN}DeleteAside
    Delete "$INSTDIR\TellwickOutlookAddIn*.dll.old*"
    Delete "$INSTDIR\${SENDER}.old*"
    ${If} ${FileExists} "$INSTDIR\TellwickOutlookAddIn*.dll.old*"
    ${OrIf} ${FileExists} "$INSTDIR\${SENDER}.old*"
        WriteRegStr HKCU "${RUN_ONCE}" "TellwickForOutlook" \
            'cmd.exe /c del /q "$INSTDIR\TellwickOutlookAddIn*.dll.old*" "$INSTDIR\${SENDER}.old*"'
    ${Else}
        DeleteRegValue HKCU "${RUN_ONCE}" "TellwickForOutlook"
    ${EndIf}
FunctionEnd

; Puts the file aside whose name is on the stack: a library that Outlook has loaded, or a program that
; runs, can be renamed, but not deleted or written. Where it is then comes into $Aside.
Function ${UN}PutAside
    Exch $0
    Push $1
    StrCpy $1 1
    ${DoWhile} ${FileExists} "$INSTDIR\$0.old$1"
        IntOp $1 $1 + 1
    ${Loop}
    StrCpy $Aside "$INSTDIR\$0.old$1"
    Rename "$INSTDIR\$0" $Aside
    Pop $1
    Pop $0
FunctionEnd

; Looks whether there is a sender in the folder, and whether it comes from here.
Function ${UN}LookForSender
    Push $0
    Push $1
    Push $2
    Push $3
    Push $4
    StrCpy $Sender ""
    ${If} ${FileExists} "$INSTDIR\${SENDER}"
        StrCpy $Sender "other"
        System::Call 'version::GetFileVersionInfoSizeW(w "$INSTDIR\${SENDER}", p 0) i .r0'
        ${If} $0 > 0
            System::Alloc $0
            Pop $1
            System::Call 'version::GetFileVersionInfoW(w "$INSTDIR\${SENDER}", i 0, i r0, p r1) i .r2'
            ${If} $2 <> 0
                System::Call 'version::VerQueryValueW(p r1, w "\StringFileInfo\040904E4\InternalName", *p .r3, *i .r4) i .r2'
            ${EndIf}
            ${If} $2 <> 0
                System::Call 'kernel32::lstrcmpW(p r3, w "${SENDER_MARK}") i .r2'
                ${If} $2 = 0
                    StrCpy $Sender "own"
                ${EndIf}
            ${EndIf}
            System::Free $1
        ${EndIf}
    ${EndIf}
    Pop $4
    Pop $3
    Pop $2
    Pop $1
    Pop $0
FunctionEnd

; Ends a sender from here that runs, from whatever folder; 0 in $Status where one has run.
Function ${UN}EndSender
    ClearErrors
    ExecWait '"$INSTDIR\${SENDER}" end' $Status
    ${If} ${Errors}
        StrCpy $Status "-1"
    ${EndIf}
    ClearErrors
FunctionEnd

; The sender may have language files of its own, which are left alone: whether the one on the stack
; is this add-in's, "yes" or "no" on the stack.
Function ${UN}IsOwnLanguage
    Exch $0
    Push $1
    ClearErrors
    FileOpen $1 $0 r
    FileRead $1 $0
    FileClose $1
    StrCpy $0 $0 22
    ${If} $0 == "[TellwickOutlookAddIn]"
        StrCpy $0 "yes"
    ${Else}
        StrCpy $0 "no"
    ${EndIf}
    ClearErrors
    Pop $1
    Exch $0
FunctionEnd

!macroend

; Everything that the set-up has put there, but for the sender.
!macro TakeAll UN
    !insertmacro TakeLibrary "${UN}" "${LIBRARY32}"
    !insertmacro TakeLibrary "${UN}" "${LIBRARY64}"
    Call ${UN}DeleteAside
    !insertmacro TakeFiles "${UN}"
    Delete "$INSTDIR\TellwickAddIn.dbg.xml"
    Delete "$INSTDIR\${UNINSTALLER}"
    RMDir "$INSTDIR"
    DeleteRegKey HKCU "${ENTRY}"
!macroend
!macro TakeLibrary UN LIBRARY
    ${If} ${FileExists} "$INSTDIR\${LIBRARY}"
        Push "${LIBRARY}"
        Call ${UN}PutAside
    ${EndIf}
!macroend
!macro PutLanguage NAME
    StrCpy $0 "yes"
    ${If} ${FileExists} "$INSTDIR\lang\${NAME}"
        Push "$INSTDIR\lang\${NAME}"
        Call IsOwnLanguage
        Pop $0
    ${EndIf}
    ${If} $0 == "yes"
        File "${STAGE}/lang/${NAME}"
        ${If} ${Errors}
            StrCpy $Failed "yes"
        ${EndIf}
    ${EndIf}
!macroend
!macro TakeLanguage UN NAME
    Push "$INSTDIR\lang\${NAME}"
    Call ${UN}IsOwnLanguage
    Pop $0
    ${If} $0 == "yes"
        Delete "$INSTDIR\lang\${NAME}"
    ${EndIf}
!macroend
!include "${FILES}"

!insertmacro Shared ""
!insertmacro Shared "un."

; --- the set-up -------------------------------------------------------------------------------------

; The folder of the sender, where there is a trace of it, into $INSTDIR.
Function FindSender
    Push $0
    !macro TryFolder FOLDER
        ${If} $INSTDIR == ""
        ${AndIf} ${FileExists} "${FOLDER}\Tellwick.exe"
            StrCpy $INSTDIR "${FOLDER}"
        ${EndIf}
    !macroend
    !macro TryAppPath ROOT
        ReadRegStr $0 ${ROOT} "Software\Microsoft\Windows\CurrentVersion\App Paths\Tellwick.exe" ""
        ${If} $0 != ""
            ${GetParent} "$0" $0
            !insertmacro TryFolder "$0"
        ${EndIf}
    !macroend
    ReadRegStr $0 HKCU "${ENTRY}" "InstallLocation"
    ${If} $0 != ""
        StrCpy $INSTDIR $0
    ${EndIf}
    !insertmacro TryAppPath HKCU
    !insertmacro TryAppPath HKLM
    !insertmacro TryFolder "$EXEDIR"
    !insertmacro TryFolder "$LOCALAPPDATA\Programs\Tellwick"
    !insertmacro TryFolder "$PROGRAMFILES\Tellwick"
    !insertmacro TryFolder "$PROGRAMFILES64\Tellwick"
    ${If} $INSTDIR == ""
        StrCpy $INSTDIR "$LOCALAPPDATA\Programs\Tellwick"
    ${EndIf}
    Pop $0
FunctionEnd

Function .onInit
    SetShellVarContext current
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/NOSENDER" $1
    ${If} ${Errors}
        StrCpy $WithSender ${BST_CHECKED}
    ${EndIf}
    ClearErrors
    ${If} $INSTDIR == ""
        Call FindSender
    ${EndIf}
    ReadRegStr $0 HKCU "${ENTRY}" "DisplayVersion"
    ${If} $0 != ""
        ${VersionCompare} "$0" "${VERSION}" $1
        ${If} $1 = 1
            MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "$(NewerText)" /SD IDNO IDYES +3
            SetErrorLevel 3
            Quit
        ${EndIf}
    ${EndIf}
    ; What suits the user's country, as the add-in's settings propose it; 1 where they have a prefix.
    InitPluginsDir
    File "/oname=$PLUGINSDIR\${LIBRARY32}" "${STAGE}/${LIBRARY32}"
    StrCpy $Prefix ""
    System::Call '$PLUGINSDIR\${LIBRARY32}::ProposePrefix(w .r0, i 16) i .r1 ?u'
    StrCpy $HasPrefix $1
    ; "error" where the library cannot be called.
    ${If} $1 == 0
        StrCpy $Prefix $0
    ${EndIf}
FunctionEnd

!macro LookForUseOf LIBRARY
    ${If} ${FileExists} "$INSTDIR\${LIBRARY}"
        ClearErrors
        FileOpen $0 "$INSTDIR\${LIBRARY}" a
        ${If} ${Errors}
            StrCpy $InUse "yes"
        ${Else}
            FileClose $0
        ${EndIf}
    ${EndIf}
!macroend

Function LookForUse
    StrCpy $InUse ""
    Push $0
    !insertmacro LookForUseOf "${LIBRARY32}"
    !insertmacro LookForUseOf "${LIBRARY64}"
    Pop $0
FunctionEnd

; Whether the folder holds an earlier installation.
Function LookForEarlier
    Push $0
    StrCpy $Updating ""
    ReadRegStr $0 HKCU "${ENTRY}" "InstallLocation"
    ${If} $0 == $INSTDIR
        StrCpy $Updating "yes"
    ${EndIf}
    Pop $0
FunctionEnd

Function LeaveFolderPage
    Call LookForEarlier
    Call LookForSender
FunctionEnd

Function ShowSenderPage
    ${If} $Sender != ""
        Abort
    ${EndIf}
    !insertmacro MUI_HEADER_TEXT "$(SenderTitle)" "$(SenderSubtitle)"
    nsDialogs::Create 1018
    Pop $0
    ${NSD_CreateLabel} 0 0 100% 26u "$(SenderMissing)"
    Pop $0
    ${NSD_CreateCheckbox} 0 30u 100% 12u "$(SenderLabel)"
    Pop $SenderBox
    ${NSD_SetState} $SenderBox $WithSender
    ${NSD_CreateLabel} 12u 44u 95% 60u "$(SenderText)"
    Pop $0
    nsDialogs::Show
FunctionEnd

Function LeaveSenderPage
    ${NSD_GetState} $SenderBox $WithSender
FunctionEnd

Function ShowPrefixPage
    ; An earlier installation has asked, or the sender.
    ${If} $Updating == "yes"
    ${OrIf} $HasPrefix == 1
        Abort
    ${EndIf}
    !insertmacro MUI_HEADER_TEXT "$(PrefixTitle)" "$(PrefixSubtitle)"
    nsDialogs::Create 1018
    Pop $0
    ${NSD_CreateLabel} 0 0 100% 10u "$(PrefixQuestion)"
    Pop $0
    ${NSD_CreateRadioButton} 0 15u 160u 12u "$(PrefixYes)"
    Pop $PrefixYes
    ${NSD_AddStyle} $PrefixYes ${WS_GROUP}
    ${NSD_OnClick} $PrefixYes EnablePrefixField
    ${NSD_CreateRadioButton} 0 31u 100% 12u "$(PrefixNo)"
    Pop $1
    ${NSD_OnClick} $1 EnablePrefixField
    ; Never seen: the name of the field, for those who do not see it either.
    ${NSD_CreateLabel} 0 0 0 0 "$(PrefixLabel)"
    Pop $0
    ShowWindow $0 ${SW_HIDE}
    ${NSD_CreateText} 165u 14u 60u 13u ""
    Pop $PrefixField
    ${NSD_AddStyle} $PrefixField ${WS_GROUP}
    ${NSD_CreateLabel} 0 53u 100% 60u "$(PrefixText)"
    Pop $0
    ${If} $Prefix == ""
    ${OrIf} $Prefix == ${NO_NUMBERS}
        ${NSD_Check} $1
    ${Else}
        ${NSD_Check} $PrefixYes
        ${NSD_SetText} $PrefixField $Prefix
    ${EndIf}
    Push 0
    Call EnablePrefixField
    nsDialogs::Show
FunctionEnd

; Called with a control on the stack.
Function EnablePrefixField
    Pop $0
    ${NSD_GetState} $PrefixYes $0
    EnableWindow $PrefixField $0
FunctionEnd

Function LeavePrefixPage
    ${NSD_GetState} $PrefixYes $0
    ${If} $0 = ${BST_UNCHECKED}
        StrCpy $Prefix ${NO_NUMBERS}
        Return
    ${EndIf}
    ${NSD_GetText} $PrefixField $Prefix
    StrCpy $1 $Prefix
    ; 1 where that is none.
    System::Call '$PLUGINSDIR\${LIBRARY32}::CheckCountryCodes(w r1) i .r0 ?u'
    ${If} $0 == 1
        MessageBox MB_OK|MB_ICONEXCLAMATION "$(PrefixMissing)"
        ${NSD_SetFocus} $PrefixField
        SendMessage $PrefixField ${EM_SETSEL} 0 -1
        Abort
    ${EndIf}
FunctionEnd

Section
    SetShellVarContext current
    Call LookForEarlier

    ; Before anything is changed: can the folder be written, is Outlook open?
    CreateDirectory "$INSTDIR"
    ClearErrors
    GetTempFileName $0 "$INSTDIR"
    ${If} ${Errors}
        MessageBox MB_OK|MB_ICONSTOP "$(NotWritableText)" /SD IDOK
        SetErrorLevel 2
        Quit
    ${EndIf}
    Delete "$0"
    ${Do}
        Call LookForUse
        ${If} $InUse == ""
            ${Break}
        ${EndIf}
        ; Silently the new libraries take the places of the old ones, for the next start.
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(OpenText)" /SD IDIGNORE IDRETRY retry IDCANCEL cancel
        ${Break}
      cancel:
        SetErrorLevel 1
        Quit
      retry:
    ${Loop}

    Call DeleteAside
    StrCpy $Failed ""
    ClearErrors
    !insertmacro PutFiles
    ; The libraries last: up to here an earlier installation goes on working.
    File "/oname=$INSTDIR\${LIBRARY32}.new" "${STAGE}/${LIBRARY32}"
    ${If} ${RunningX64}
        File "/oname=$INSTDIR\${LIBRARY64}.new" "${STAGE}/${LIBRARY64}"
    ${EndIf}
    Call LookForSender
    ${If} $Sender == ""
    ${AndIf} $WithSender = ${BST_CHECKED}
        StrCpy $Sender "own"
        StrCpy $FinishNote "$\r$\n$\r$\n$(SenderNote)"
    ${EndIf}
    ${If} $Sender == "own"
        File "/oname=$INSTDIR\${SENDER}.new" "${STAGE}/Sender/${SENDER}"
    ${EndIf}
    WriteUninstaller "$INSTDIR\${UNINSTALLER}"
    ${If} ${Errors}
    ${OrIf} $Failed == "yes"
        Push "$(NotCopiedText)"
        Call Fail
    ${EndIf}
    !macro PutProgram FILE
        ${If} ${FileExists} "$INSTDIR\${FILE}"
            Push "${FILE}"
            Call PutAside
        ${EndIf}
        ClearErrors
        Rename "$INSTDIR\${FILE}.new" "$INSTDIR\${FILE}"
        ${If} ${Errors}
            Rename $Aside "$INSTDIR\${FILE}"
            Push "$(NotCopiedText)"
            Call Fail
        ${EndIf}
    !macroend
    !insertmacro PutProgram "${LIBRARY32}"
    ${If} ${RunningX64}
        !insertmacro PutProgram "${LIBRARY64}"
    ${EndIf}
    StrCpy $Status "-1"
    ${If} $Sender == "own"
        !insertmacro PutProgram "${SENDER}"
        Call EndSender
    ${EndIf}
    StrCpy $SenderRan $Status
    Call DeleteAside
    ; In another folder than before: nothing of the add-in stays in that one.
    ReadRegStr $0 HKCU "${ENTRY}" "InstallLocation"
    ${If} $0 != ""
    ${AndIf} $0 != $INSTDIR
        ExecWait '"$0\${UNINSTALLER}" /S _?=$0'
        Delete "$0\${UNINSTALLER}"
        RMDir "$0"
    ${EndIf}

    ; One part may not be for this machine, as the 64-bit one on ARM64: the other is there all the
    ; same.
    Push '/s "$INSTDIR\${LIBRARY32}"'
    Call Run32
    StrCpy $Status32 $Status
    ${If} ${RunningX64}
        Push '/s "$INSTDIR\${LIBRARY64}"'
        Call Run64
    ${EndIf}
    ${If} $Status32 <> 0
    ${AndIf} $Status <> 0
        Push "$(NotRegisteredText)"
        Call Fail
    ${EndIf}
    StrCpy $0 ""
    ${If} $Status32 <> 0
        StrCpy $0 "32"
    ${ElseIf} $Status <> 0
        StrCpy $0 "64"
    ${EndIf}
    ${If} $0 != ""
        StrCpy $FinishNote "$FinishNote$\r$\n$\r$\n$(OnePartText)"
    ${EndIf}
    ReadRegDWORD $0 HKCU "Software\Microsoft\Office\16.0\Outlook\Preferences" "UseNewOutlook"
    ${If} $0 = 1
        StrCpy $FinishNote "$FinishNote$\r$\n$\r$\n$(NewOutlookText)"
    ${EndIf}
    ${If} $Prefix != ""
        Push '/s /n "/i:prefix=$Prefix" "$INSTDIR\${LIBRARY32}"'
        Call Run32
    ${EndIf}

    ${If} $Sender == "own"
        CreateShortcut "$SMPROGRAMS\Tellwick.lnk" "$INSTDIR\${SENDER}"
        ${If} $SenderRan = 0
            Exec '"$INSTDIR\${SENDER}" nocheck'
        ${EndIf}
    ${EndIf}

    WriteRegStr HKCU "${ENTRY}" "DisplayName" "${NAME}"
    WriteRegStr HKCU "${ENTRY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${ENTRY}" "DisplayIcon" "$INSTDIR\${UNINSTALLER}"
    WriteRegStr HKCU "${ENTRY}" "Publisher" "Omberline"
    WriteRegStr HKCU "${ENTRY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${ENTRY}" "UninstallString" '"$INSTDIR\${UNINSTALLER}"'
    WriteRegStr HKCU "${ENTRY}" "QuietUninstallString" '"$INSTDIR\${UNINSTALLER}" /S'
    WriteRegDWORD HKCU "${ENTRY}" "EstimatedSize" ${SIZE}
    WriteRegDWORD HKCU "${ENTRY}" "NoModify" 1
    WriteRegDWORD HKCU "${ENTRY}" "NoRepair" 1
SectionEnd

; Ends with the text on the stack. A first installation leaves nothing behind; an update leaves
; what there was, registered as it was.
Function Fail
    Exch $0
    MessageBox MB_OK|MB_ICONSTOP "$0" /SD IDOK
    Delete "$INSTDIR\${LIBRARY32}.new"
    Delete "$INSTDIR\${LIBRARY64}.new"
    Delete "$INSTDIR\${SENDER}.new"
    ${If} $Updating == ""
        Call Unregister
        !insertmacro TakeAll ""
    ${EndIf}
    SetErrorLevel 2
    Quit
FunctionEnd

; --- the uninstaller --------------------------------------------------------------------------------

Function un.onInit
    SetShellVarContext current
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/SETTINGS" $1
    ${IfNot} ${Errors}
        StrCpy $RemoveSettings ${BST_CHECKED}
    ${EndIf}
FunctionEnd

Function un.ShowSettingsPage
    !insertmacro MUI_HEADER_TEXT "$(RemoveTitle)" "$(RemoveSubtitle)"
    nsDialogs::Create 1018
    Pop $0
    Call un.LookForSender
    ${If} $Sender == "own"
        StrCpy $1 "$(RemoveSenderText)"
        StrCpy $2 "$(SpoolText)"
    ${Else}
        StrCpy $1 "$(RemoveText)"
        StrCpy $2 "$(SettingsText)"
    ${EndIf}
    ${NSD_CreateLabel} 0 0 100% 36u $1
    Pop $0
    ${NSD_CreateCheckbox} 0 44u 100% 12u "$(SettingsLabel)"
    Pop $SettingsBox
    ${NSD_SetState} $SettingsBox $RemoveSettings
    ${NSD_CreateLabel} 12u 58u 95% 48u $2
    Pop $0
    nsDialogs::Show
FunctionEnd

Function un.LeaveSettingsPage
    ${NSD_GetState} $SettingsBox $RemoveSettings
FunctionEnd

; The files of SMS that wait in the queue, named by its values.
Function un.DeleteQueue
    StrCpy $0 0
    ${Do}
        EnumRegValue $1 HKCU "Software\Omberline\Tellwick\SMSQueue" $0
        ${If} $1 == ""
            ${Break}
        ${EndIf}
        ReadRegStr $2 HKCU "Software\Omberline\Tellwick\SMSQueue" $1
        Delete "$2"
        IntOp $0 $0 + 1
    ${Loop}
FunctionEnd

; Everything in the settings folder but the SMS that the sender keeps.
Function un.DeleteSettings
    FindFirst $0 $1 "$APPDATA\Tellwick\*"
    ${DoWhile} $1 != ""
        ${If} ${FileExists} "$APPDATA\Tellwick\$1\*"
            ${If} $1 != "."
            ${AndIf} $1 != ".."
            ${AndIf} $1 != "Spool"
                RMDir /r "$APPDATA\Tellwick\$1"
            ${EndIf}
        ${Else}
            Delete "$APPDATA\Tellwick\$1"
        ${EndIf}
        FindNext $0 $1
    ${Loop}
    FindClose $0
    RMDir "$APPDATA\Tellwick"
FunctionEnd

Section Uninstall
    SetShellVarContext current
    Call un.Unregister
    Call un.LookForSender
    ${If} $Sender == "own"
        Call un.EndSender
        Push "${SENDER}"
        Call un.PutAside
        Delete "$SMPROGRAMS\Tellwick.lnk"
    ${EndIf}
    !insertmacro TakeAll "un."
    ${If} $RemoveSettings = ${BST_CHECKED}
        Call un.DeleteQueue
        ; Where the settings are if not in the usual place.
        Delete "$INSTDIR\corvane.ini"
        ReadRegStr $0 HKCU "Software\Omberline\Tellwick" "IniFiles"
        ${If} $0 != ""
            Delete "$0\corvane.ini"
        ${EndIf}
        RMDir "$INSTDIR"
        DeleteRegKey HKCU "Software\Omberline\Tellwick"
        DeleteRegKey /ifempty HKCU "Software\Omberline"
        Call un.DeleteSettings
    ${EndIf}
SectionEnd
