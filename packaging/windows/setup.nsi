; The setup program. scripts/package-windows defines VERSION, COPYRIGHT and KILOBYTES of the program, the folder
; ARTWORK, OUTPUT, and FILES, the script with the installed files.
;
; Command line: /S installs silently, /AllUsers or /CurrentUser sets the users, /D=FOLDER (last, without quotes) the
; folder. Exit status: 0 on success, 1 if the user cancels, 2 after an error.

Target amd64-unicode
Unicode true
SetCompressor /SOLID lzma
ManifestDPIAware true
RequestExecutionLevel user
; A file that cannot be written ends the setup. It is never skipped.
AllowSkipFiles off

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include nsDialogs.nsh
!include "${FILES}"

!define PUBLISHER "the Railwright authors"
Name "Railwright"
OutFile "${OUTPUT}"
BrandingText "Railwright ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=1033 ProductName "Railwright"
VIAddVersionKey /LANG=1033 ProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=1033 FileDescription "Railwright setup"
VIAddVersionKey /LANG=1033 FileVersion "${VERSION}.0"
VIAddVersionKey /LANG=1033 CompanyName "${PUBLISHER}"
VIAddVersionKey /LANG=1033 LegalCopyright "${COPYRIGHT}"

; The simulator may have an "Uninstall.exe" in the same folder.
!define UNINSTALLER "Uninstall-Railwright.exe"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Railwright"
!define TRACK_KEY "Software\Classes\NoLimits.Trackfile"
!define GUIDE "railwright-docs\user-guide.html"
!define LIST "railwright-docs\files.txt"

Var Mode       ; AllUsers or CurrentUser
Var ModeGiven  ; 1 if the command line sets Mode, so that no page asks for it
Var FolderGiven
Var Simulator  ; its folder, or empty
Var FolderText ; text of the folder page
Var ForMe
Var ForAll
Var Kept       ; a registry key that could not be removed

!define MUI_ICON "${ARTWORK}/railwright.ico"
!define MUI_UNICON "${ARTWORK}/railwright.ico"
!define MUI_DIRECTORYPAGE_TEXT_TOP $FolderText
!define MUI_WELCOMEFINISHPAGE_BITMAP "${ARTWORK}/finish.bmp"
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_FUNCTION StartProgram
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\${GUIDE}"
!define MUI_FINISHPAGE_SHOWREADME_TEXT "Show the user guide"
!define MUI_FINISHPAGE_SHOWREADME_NOTCHECKED

Page custom ModePage LeaveModePage
!define MUI_PAGE_CUSTOMFUNCTION_PRE EnterFolderPage
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE LeaveFolderPage
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

!define NOT_OURS "This file would be overwritten, and is not Railwright's. Move it away, or choose another \
    folder.$\n$\n$INSTDIR\$0"

!macro Fail TEXT
    MessageBox MB_OK|MB_ICONSTOP "${TEXT}" /SD IDOK
    SetErrorLevel 2
    Quit
!macroend

; Sets $0 to 1 if files can be created in $INSTDIR, otherwise to 0.
!macro CheckFolder
    StrCpy $2 0
    ${IfNot} ${FileExists} "$INSTDIR\*"
        StrCpy $2 1
        CreateDirectory $INSTDIR
    ${EndIf}
    StrCpy $0 1
    ClearErrors
    GetTempFileName $1 $INSTDIR
    FileOpen $3 $1 w
    ${If} ${Errors}
        StrCpy $0 0
    ${Else}
        FileClose $3
        Delete $1
    ${EndIf}
    ${If} $2 = 1
        RMDir $INSTDIR
    ${EndIf}
!macroend

; Asks to retry until an installed program can be written, which is impossible while it runs.
!macro CheckProgram FILE
    ${If} ${FileExists} "$INSTDIR\${FILE}"
        ${Do}
            ClearErrors
            FileOpen $0 "$INSTDIR\${FILE}" a
            ${IfNot} ${Errors}
                FileClose $0
                ${ExitDo}
            ${EndIf}
            ${IfNot} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${FILE} is in use. Close Railwright, then \
                try again.$\n$\n$INSTDIR\${FILE}" /SD IDCANCEL IDRETRY`
                SetErrorLevel 2
                Quit
            ${EndIf}
        ${Loop}
    ${EndIf}
!macroend

!macro CheckPrograms
    !insertmacro CheckProgram Railwright.exe
    !insertmacro CheckProgram railwright-cli.exe
    !insertmacro CheckProgram RailwrightIcons.dll
!macroend

; Sets $0 to the name of an existing file that is not on the list of Railwright's files. An earlier installation or the
; zip file left the list.
!macro CheckFile FILE
    ${If} $0 == ""
    ${AndIf} ${FileExists} "$INSTDIR\${FILE}"
        StrCpy $0 "${FILE}"
        ClearErrors
        FileOpen $1 "$INSTDIR\${LIST}" r
        ${Unless} ${Errors}
            ${Do}
                FileRead $1 $2
                ${If} $2 == "${FILE}$\r$\n"
                    StrCpy $0 ""
                ${EndIf}
            ${LoopUntil} $2 == ""
            FileClose $1
        ${EndUnless}
    ${EndIf}
!macroend

; Sets $0 to the name of a foreign file that would be overwritten, or to an empty string.
Function CheckFiles
    StrCpy $0 ""
    !insertmacro CheckDocuments
FunctionEnd

; Sets $0 to 1 for an administrator, otherwise to 0.
!macro CheckRights
    UserInfo::GetAccountType
    Pop $0
    ${If} $0 == "Admin"
        StrCpy $0 1
    ${Else}
        StrCpy $0 0
    ${EndIf}
!macroend

; Reads the simulator's folder from the registry, unless it is already known. VIEW is 64 or 32, for the registry view of
; 64-bit or 32-bit programs.
!macro FindSimulator ROOT VIEW
    ${If} $Simulator == ""
        SetRegView ${VIEW}
        ReadRegStr $Simulator ${ROOT} "Software\NoLimits Coasters" "InstPath"
        ${IfNot} ${FileExists} "$Simulator\NoLimitsSimulator.exe"
            StrCpy $Simulator ""
        ${EndIf}
        SetRegView 64
    ${EndIf}
!macroend

Function .onInit
    StrCpy $FolderGiven $INSTDIR
    !insertmacro FindSimulator HKCU 64
    !insertmacro FindSimulator HKLM 64
    !insertmacro FindSimulator HKLM 32

    ; An update is for the same users as before.
    StrCpy $Mode CurrentUser
    ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
    ReadRegStr $1 HKLM "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $0 == ""
    ${AndIf} $1 != ""
        StrCpy $Mode AllUsers
    ${EndIf}
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/CurrentUser" $1
    ${IfNot} ${Errors}
        StrCpy $Mode CurrentUser
        StrCpy $ModeGiven 1
    ${EndIf}
    ClearErrors
    ${GetOptions} $0 "/AllUsers" $1
    ${IfNot} ${Errors}
        StrCpy $Mode AllUsers
        StrCpy $ModeGiven 1
    ${EndIf}
    Call SetMode

    ${If} $Mode == AllUsers
        !insertmacro CheckRights
        ${If} $0 = 0
            ${If} ${Silent}
            ${OrIf} $ModeGiven = 1
                !insertmacro Fail "Railwright can be installed for everybody only with an administrator's rights."
            ${EndIf}
        ${EndIf}
    ${EndIf}
FunctionEnd

; Chooses the folder for $Mode: that of the command line, of an earlier installation, the simulator's, or Railwright's
; own.
Function SetMode
    ${If} $Mode == AllUsers
        SetShellVarContext all
    ${Else}
        SetShellVarContext current
    ${EndIf}
    StrCpy $INSTDIR $FolderGiven
    ${If} $INSTDIR == ""
        ReadRegStr $INSTDIR SHCTX "${UNINSTALL_KEY}" "InstallLocation"
    ${EndIf}
    ${If} $INSTDIR == ""
    ${AndIf} $Simulator != ""
        StrCpy $INSTDIR $Simulator
        ${If} $Mode == CurrentUser
            !insertmacro CheckFolder
            ${If} $0 = 0
                StrCpy $INSTDIR ""
            ${EndIf}
        ${EndIf}
    ${EndIf}
    ${If} $INSTDIR == ""
        ${If} $Mode == AllUsers
            StrCpy $INSTDIR "$PROGRAMFILES64\Railwright"
        ${Else}
            StrCpy $INSTDIR "$LOCALAPPDATA\Programs\Railwright"
        ${EndIf}
    ${EndIf}
FunctionEnd

Function ModePage
    ${If} $ModeGiven = 1
        Abort
    ${EndIf}
    !insertmacro MUI_HEADER_TEXT "Who will use Railwright?" "It can be installed for you alone, or for everybody."
    nsDialogs::Create 1018
    Pop $0
    ${NSD_CreateRadioButton} 0 10u 100% 12u "Only &me"
    Pop $ForMe
    ${NSD_CreateRadioButton} 0 30u 100% 12u "&Everybody on this computer (takes an administrator's rights)"
    Pop $ForAll
    ${If} $Mode == AllUsers
        ${NSD_Check} $ForAll
    ${Else}
        ${NSD_Check} $ForMe
    ${EndIf}
    nsDialogs::Show
FunctionEnd

Function LeaveModePage
    ${NSD_GetState} $ForAll $0
    ${If} $0 = ${BST_CHECKED}
        StrCpy $Mode AllUsers
    ${Else}
        StrCpy $Mode CurrentUser
    ${EndIf}
    Call SetMode
    ${If} $Mode == AllUsers
        !insertmacro CheckRights
        ${If} $0 = 0
            ; Restarts as administrator. That may be another user with another registry.
            ClearErrors
            ExecShell "runas" "$EXEPATH" "/AllUsers /D=$INSTDIR"
            ${If} ${Errors}
                Abort
            ${EndIf}
            Quit
        ${EndIf}
    ${EndIf}
FunctionEnd

Function EnterFolderPage
    StrCpy $FolderText "Railwright goes into this folder:"
    ${If} ${FileExists} "$INSTDIR\NoLimitsSimulator.exe"
        StrCpy $FolderText "The simulator is in this folder, and Railwright is at home beside it."
    ${ElseIf} $Simulator != ""
    ${AndIf} $Mode == CurrentUser
        Push $INSTDIR
        StrCpy $INSTDIR $Simulator
        !insertmacro CheckFolder
        Pop $INSTDIR
        ${If} $0 = 0
            StrCpy $FolderText "The simulator is in $Simulator, where you cannot write. Railwright gets a folder of \
                its own. To have it beside the simulator, go back and choose everybody on this computer."
        ${EndIf}
    ${EndIf}
FunctionEnd

Function LeaveFolderPage
    !insertmacro CheckFolder
    ${If} $0 = 0
        MessageBox MB_OK|MB_ICONEXCLAMATION "You cannot write in this folder. Choose another one, or go back and \
            install Railwright for everybody on this computer."
        Abort
    ${EndIf}
    Call CheckFiles
    ${If} $0 != ""
        MessageBox MB_OK|MB_ICONEXCLAMATION "${NOT_OURS}"
        Abort
    ${EndIf}
FunctionEnd

; Starts the program with the desktop's rights, even if the setup runs as administrator.
Function StartProgram
    Exec '"$WINDIR\explorer.exe" "$INSTDIR\Railwright.exe"'
FunctionEnd

!macro WriteEntry NAME VALUE
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "${NAME}" '${VALUE}'
!macroend

Section
    !insertmacro CheckFolder
    ${If} $0 = 0
        !insertmacro Fail "Railwright cannot be installed, because the folder cannot be written:$\n$\n$INSTDIR"
    ${EndIf}
    Call CheckFiles
    ${If} $0 != ""
        !insertmacro Fail "${NOT_OURS}"
    ${EndIf}
    !insertmacro CheckPrograms

    ; Remove an earlier installation first, including files that no longer exist in this version. In the same folder,
    ; keep the file association.
    ReadRegStr $R0 SHCTX "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $R0 != ""
    ${AndIf} ${FileExists} "$R0\${UNINSTALLER}"
        StrCpy $R1 ""
        ${If} $R0 == $INSTDIR
            StrCpy $R1 "/Update "
        ${EndIf}
        StrCpy $R2 2
        ExecWait '"$R0\${UNINSTALLER}" /S $R1_?=$R0' $R2
        ${If} $R2 <> 0
            !insertmacro Fail "The Railwright that is installed cannot be removed. Close it, then try again.$\n$\n$R0"
        ${EndIf}
        Delete "$R0\${UNINSTALLER}"
        RMDir "$R0"
    ${EndIf}

    !insertmacro InstallFiles
    SetOutPath "$INSTDIR"
    ClearErrors
    WriteUninstaller "$INSTDIR\${UNINSTALLER}"

    !insertmacro WriteEntry DisplayName "Railwright"
    !insertmacro WriteEntry DisplayVersion "${VERSION}"
    !insertmacro WriteEntry Publisher "${PUBLISHER}"
    !insertmacro WriteEntry DisplayIcon "$INSTDIR\Railwright.exe"
    !insertmacro WriteEntry InstallLocation "$INSTDIR"
    !insertmacro WriteEntry UninstallString '"$INSTDIR\${UNINSTALLER}"'
    !insertmacro WriteEntry QuietUninstallString '"$INSTDIR\${UNINSTALLER}" /S'
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" EstimatedSize ${KILOBYTES}
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" NoModify 1
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" NoRepair 1

    CreateDirectory "$SMPROGRAMS\Railwright"
    CreateShortcut "$SMPROGRAMS\Railwright\Railwright.lnk" "$INSTDIR\Railwright.exe"
    CreateShortcut "$SMPROGRAMS\Railwright\Railwright user guide.lnk" "$INSTDIR\${GUIDE}"
    ${If} ${Errors}
        !insertmacro Fail "Railwright is installed, but its entries in the Start menu or the registry are not complete."
    ${EndIf}
SectionEnd

Function un.onInit
    ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $0 == $INSTDIR
        !insertmacro CheckRights
        ${If} $0 = 0
            ${IfNot} ${Silent}
                ExecShell "runas" "$INSTDIR\${UNINSTALLER}"
                Quit
            ${EndIf}
            !insertmacro Fail "This takes an administrator's rights."
        ${EndIf}
    ${EndIf}
FunctionEnd

; Removes the entries that a setup with this root and context has created for this folder.
!macro RemoveEntries ROOT CONTEXT
    ReadRegStr $0 ${ROOT} "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $0 == $INSTDIR
        SetShellVarContext ${CONTEXT}
        Delete "$SMPROGRAMS\Railwright\Railwright.lnk"
        Delete "$SMPROGRAMS\Railwright\Railwright user guide.lnk"
        RMDir "$SMPROGRAMS\Railwright"
        DeleteRegKey ${ROOT} "${UNINSTALL_KEY}"
    ${EndIf}
!macroend

; Removes the default value, which is Railwright's, and the key if it is then empty.
!macro RemoveAssociationKey ROOT KEY
    DeleteRegValue ${ROOT} "${KEY}" ""
    DeleteRegKey /ifempty ${ROOT} "${KEY}"
    ClearErrors
    ReadRegStr $0 ${ROOT} "${KEY}" ""
    ${IfNot} ${Errors}
        StrCpy $Kept "${KEY}"
    ${EndIf}
!macroend

; Removes the entries for this folder's programs from the file association. The others belong to the simulator or the
; user.
!macro RemoveAssociation ROOT
    ReadRegStr $0 ${ROOT} "${TRACK_KEY}\Shell\Tool\Command" ""
    ${If} $0 == '$INSTDIR\Railwright.exe "%1"'
        !insertmacro RemoveAssociationKey ${ROOT} "${TRACK_KEY}\Shell\Tool\Command"
        !insertmacro RemoveAssociationKey ${ROOT} "${TRACK_KEY}\Shell\Tool"
    ${EndIf}
    ReadRegStr $0 ${ROOT} "${TRACK_KEY}\DefaultIcon" ""
    StrLen $1 "$INSTDIR\RailwrightIcons.dll,"
    StrCpy $0 $0 $1
    ${If} $0 == "$INSTDIR\RailwrightIcons.dll,"
        !insertmacro RemoveAssociationKey ${ROOT} "${TRACK_KEY}\DefaultIcon"
    ${EndIf}
!macroend

Section Uninstall
    SetOutPath $TEMP
    !insertmacro CheckPrograms
    ClearErrors
    !insertmacro RemoveFiles
    ${If} ${Errors}
        !insertmacro Fail "Some files cannot be removed. Close what uses them, then try again.$\n$\n$INSTDIR"
    ${EndIf}
    ${GetParameters} $2
    ClearErrors
    ${GetOptions} $2 "/Update" $3
    ${If} ${Errors}
        !insertmacro RemoveAssociation HKCU
        !insertmacro RemoveAssociation HKLM
        ${RefreshShellIcons}
        ${If} $Kept != ""
            MessageBox MB_OK|MB_ICONINFORMATION "An entry of the file association takes an administrator's rights to \
                remove, and stays:$\n$\nHKEY_LOCAL_MACHINE\$Kept" /SD IDOK
        ${EndIf}
    ${EndIf}
    !insertmacro RemoveEntries HKLM all
    !insertmacro RemoveEntries HKCU current
    !insertmacro RemoveFolders
    Delete "$INSTDIR\${UNINSTALLER}"
    RMDir $INSTDIR
SectionEnd
