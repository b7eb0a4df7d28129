; The installer of Oravin for Windows.
;
; makensis -DVERSION=1.2.3 -DTREE=FOLDER -DICON=FILE -DOUTPUT=FILE oravin.nsi
;   TREE    the program folder to install (made by packaging/windows/pack.sh)
;
; It needs no administrator's rights: it installs for the current user, into the user's own programs folder. If the user
; has the rights, it also sets the HKEY_LOCAL_MACHINE value that start-up reads; without it the program uses the folder
; of its executable.
;
; Command line:  /S               asks nothing
;                /D=C:\FOLDER     where to install; must be the last one
; Uninstaller:   /S               asks nothing, and leaves the game as it is
;                /RESTORE         with /S: "Disable / Restore" first; if that fails, nothing is removed

Unicode true
ManifestDPIAware true
ManifestSupportedOS all
RequestExecutionLevel highest
SetCompressor /SOLID lzma
AllowSkipFiles off
ShowInstDetails nevershow
ShowUninstDetails nevershow

!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh

!define NAME "Oravin"
!define APP_PATHS "Software\Microsoft\Windows\CurrentVersion\App Paths\Oravin.exe"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Oravin"
!define CLASSES "Software\Classes"
!define PACK "Oravin.ShipPack"
!define MODEL "Oravin.ShipModel"

Name "${NAME}"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Oravin"
InstallDirRegKey HKCU "${UNINSTALL}" "InstallLocation"
BrandingText "${NAME} ${VERSION}"

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "${NAME}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Installs Oravin"
VIAddVersionKey "CompanyName" "The Oravin developers"
VIAddVersionKey "LegalCopyright" "Copyright 2026 The Oravin developers. MIT License."

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_DIRECTORYPAGE_TEXT_TOP "Oravin keeps its list of ships, add-ons and backups in its own folder, so that \
must be a folder that you may write to."
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE CheckFolder
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_FUNCTION StartAsUser
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\readme.txt"
!define MUI_FINISHPAGE_SHOWREADME_NOTCHECKED
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; Sets the error flag if a path has non-ASCII characters: Oravin finds no file there.
!macro PlainPath PATH
  System::Call 'kernel32::WideCharToMultiByte(i 20127, i 0, w "${PATH}", i -1, m .r1, i ${NSIS_MAX_STRLEN}, p 0, p 0)'
  ClearErrors
  ${If} $1 S!= "${PATH}"
    SetErrors
  ${EndIf}
!macroend

Function .onInit
  SetShellVarContext current
  ; The usual folder contains the user's name, which may have other characters.
  !insertmacro PlainPath "$INSTDIR"
  ${If} ${Errors}
    ReadEnvStr $0 SystemDrive
    StrCpy $INSTDIR "$0\Games\Oravin"
  ${EndIf}
FunctionEnd

Function CheckFolder
  !insertmacro PlainPath "$INSTDIR"
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONEXCLAMATION "The path of Oravin's folder may have only plain English letters, digits \
and signs. Please choose another folder."
    Abort
  ${EndIf}
FunctionEnd

; The installer may be elevated; a program that it starts must not be.
Function StartAsUser
  Exec '"$WINDIR\explorer.exe" "$INSTDIR\Oravin.exe"'
FunctionEnd

; Adds Oravin to "Open with" for one file extension; the default program stays.
!macro OfferFor ENDING CLASS DESCRIPTION
  WriteRegStr HKCU "${CLASSES}\${CLASS}" "" "${DESCRIPTION}"
  WriteRegStr HKCU "${CLASSES}\${CLASS}\DefaultIcon" "" "$INSTDIR\Oravin.exe,0"
  WriteRegStr HKCU "${CLASSES}\${CLASS}\shell\open\command" "" '"$INSTDIR\Oravin.exe" "%1"'
  WriteRegStr HKCU "${CLASSES}\${ENDING}\OpenWithProgids" "${CLASS}" ""
  WriteRegStr HKCU "${CLASSES}\Applications\Oravin.exe\SupportedTypes" "${ENDING}" ""
!macroend

; Removes that again. The extension's own key stays while it has other contents.
!macro NoOfferFor ENDING CLASS
  DeleteRegValue HKCU "${CLASSES}\${ENDING}\OpenWithProgids" "${CLASS}"
  DeleteRegKey /ifempty HKCU "${CLASSES}\${ENDING}\OpenWithProgids"
  DeleteRegKey /ifempty HKCU "${CLASSES}\${ENDING}"
  DeleteRegKey HKCU "${CLASSES}\${CLASS}"
!macroend

!macro TellShell
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'  ; SHCNE_ASSOCCHANGED
!macroend

Section
  SetShellVarContext current
  SetOutPath "$INSTDIR"
  File "${TREE}\Oravin.exe"
  File "${TREE}\oravin-cli.exe"
  File "${TREE}\readme.txt"
  File "${TREE}\license.txt"
  ; The player may have replaced these.
  SetOverwrite off
  SetOutPath "$INSTDIR\3D"
  File "${TREE}\3D\*.*"
  SetOverwrite on
  SetOutPath "$INSTDIR"
  CreateDirectory "$INSTDIR\addons\ships"
  CreateDirectory "$INSTDIR\addons\textures"
  CreateDirectory "$INSTDIR\addons\stats"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortCut "$SMPROGRAMS\Oravin.lnk" "$INSTDIR\Oravin.exe"

  ; For all users if allowed; the user's own value makes "Oravin" known to the Run dialog in any case.
  WriteRegStr HKLM "${APP_PATHS}" "" "$INSTDIR\Oravin.exe"
  WriteRegStr HKCU "${APP_PATHS}" "" "$INSTDIR\Oravin.exe"
  ClearErrors

  !insertmacro OfferFor ".pak" "${PACK}" "StarLancer ship pack"
  !insertmacro OfferFor ".shp" "${MODEL}" "StarLancer ship model"
  WriteRegStr HKCU "${CLASSES}\Applications\Oravin.exe" "FriendlyAppName" "${NAME}"
  WriteRegStr HKCU "${CLASSES}\Applications\Oravin.exe\shell\open\command" "" '"$INSTDIR\Oravin.exe" "%1"'
  !insertmacro TellShell

  WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "${NAME}"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\Oravin.exe"
  WriteRegStr HKCU "${UNINSTALL}" "Publisher" "The Oravin developers"
  WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K /G=0" $0 $1 $2
  IntFmt $0 "0x%08X" $0
  WriteRegDWORD HKCU "${UNINSTALL}" "EstimatedSize" "$0"
SectionEnd

; Restores the game's files if the editing features are enabled and the user agrees.
Function un.OfferRestore
  ; The features are enabled while this file exists and is not empty.
  ClearErrors
  FileOpen $0 "$INSTDIR\ships.dat" r
  ${If} ${Errors}
    Return
  ${EndIf}
  FileSeek $0 0 END $1
  FileClose $0
  ${If} $1 = 0
    Return
  ${EndIf}
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/RESTORE" $1
  ${IfNot} ${Errors}
    Goto restore
  ${EndIf}
  MessageBox MB_YESNOCANCEL|MB_ICONQUESTION "Oravin's editing features are enabled, so the game's files are changed.$\r$\n$\r$\n\
Shall Oravin restore them now ($\"Disable / Restore$\")? Close the game first. Without Oravin they cannot be restored.$\r$\n$\r$\n\
This will also remove all StarLancer fighters from the StarLancer\Ships\ folder. If you want to keep any of these files \
make copies of them." /SD IDNO IDYES restore IDNO keep
  SetErrorLevel 1
  Quit
  restore:
  nsExec::ExecToStack '"$INSTDIR\oravin-cli.exe" --yes --program "$INSTDIR" disable'
  Pop $0
  Pop $1
  ${If} $0 == "0"
    Return
  ${EndIf}
  MessageBox MB_YESNO|MB_ICONEXCLAMATION|MB_DEFBUTTON2 "The game's files could not be restored:$\r$\n$\r$\n$1$\r$\n\
Solve that and uninstall Oravin again.$\r$\n$\r$\nRemove Oravin anyway?" /SD IDNO IDYES keep
  SetErrorLevel 2
  Quit
  keep:
FunctionEnd

; Deletes a file only if it is unchanged since the installation: the player may have replaced it.
!macro DeleteIfUnchanged FILE
  SetOutPath "$PLUGINSDIR"
  File "/oname=installed.tmp" "${TREE}\${FILE}"
  Push "$INSTDIR\${FILE}"
  Call un.DeleteIfUnchanged
!macroend

Function un.DeleteIfUnchanged
  Pop $0
  ClearErrors
  FileOpen $1 "$0" r
  ${If} ${Errors}
    Return
  ${EndIf}
  FileOpen $2 "$PLUGINSDIR\installed.tmp" r
  StrCpy $3 ""
  StrCpy $4 ""
  ${DoWhile} $3 == $4
    ${If} $3 == "end"
      ${Break}
    ${EndIf}
    ClearErrors
    FileReadByte $1 $3
    ${If} ${Errors}
      StrCpy $3 "end"
    ${EndIf}
    ClearErrors
    FileReadByte $2 $4
    ${If} ${Errors}
      StrCpy $4 "end"
    ${EndIf}
  ${Loop}
  FileClose $1
  FileClose $2
  ${If} $3 == $4  ; both files ended: they are equal
    Delete "$0"
  ${EndIf}
FunctionEnd

Section "Uninstall"
  SetShellVarContext current
  Call un.OfferRestore
  InitPluginsDir

  Delete "$INSTDIR\Oravin.exe"
  Delete "$INSTDIR\oravin-cli.exe"
  Delete "$INSTDIR\readme.txt"
  Delete "$INSTDIR\license.txt"
  Delete "$INSTDIR\oravin.ini"
  Delete "$INSTDIR\uninstall.exe"
  !insertmacro DeleteIfUnchanged "3D\cube.bmp"
  !insertmacro DeleteIfUnchanged "3D\gcube.bmp"
  ; The player's own files stay, and so do their folders: RMDir deletes only empty ones.
  SetOutPath "$TEMP"
  RMDir "$INSTDIR\3D"
  RMDir "$INSTDIR\addons\ships"
  RMDir "$INSTDIR\addons\textures"
  RMDir "$INSTDIR\addons\stats"
  RMDir "$INSTDIR\addons"
  RMDir "$INSTDIR\backup\ships"
  RMDir "$INSTDIR\backup\old"
  RMDir "$INSTDIR\backup"
  RMDir "$INSTDIR"

  Delete "$SMPROGRAMS\Oravin.lnk"
  ; The value may belong to another installation.
  ReadRegStr $0 HKLM "${APP_PATHS}" ""
  ${If} $0 == "$INSTDIR\Oravin.exe"
    DeleteRegKey HKLM "${APP_PATHS}"
  ${EndIf}
  ReadRegStr $0 HKCU "${APP_PATHS}" ""
  ${If} $0 == "$INSTDIR\Oravin.exe"
    DeleteRegKey HKCU "${APP_PATHS}"
  ${EndIf}
  !insertmacro NoOfferFor ".pak" "${PACK}"
  !insertmacro NoOfferFor ".shp" "${MODEL}"
  DeleteRegKey HKCU "${CLASSES}\Applications\Oravin.exe"
  DeleteRegKey HKCU "${UNINSTALL}"
  !insertmacro TellShell

  ${If} ${FileExists} "$INSTDIR\*.*"
    MessageBox MB_OK|MB_ICONINFORMATION "Your own files stay in Oravin's folder: add-ons, backups and lists. \
If you do not need them any more, delete the folder yourself:$\r$\n$INSTDIR" /SD IDOK
  ${EndIf}
SectionEnd
