; makensis -DVERSION=... -DARCH=... -DFOLDER=... -DOUTPUT=... installer.nsi
; Installs for the user who runs it, without administrator's rights, so that the maker's device library can be put
; beside the program and the program can keep its settings there.
Unicode true
!if ${ARCH} == x86_64
  Target amd64-unicode
!endif
SetCompressor /SOLID lzma
ManifestDPIAware true

!include MUI2.nsh
!include LogicLib.nsh

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\KelvoConsole"
!define CLASSES "Software\Classes"

Name "Kelvo Console"
OutFile "${OUTPUT}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\Kelvo Console"
InstallDirRegKey HKCU "${UNINSTALL}" InstallLocation

VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Kelvo Console"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Kelvo Console, installer"
VIAddVersionKey LegalCopyright "The Kelvo console's authors; MIT licence"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\kelvo-console.exe"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

Section
  SetOutPath "$INSTDIR"
  File /r "${FOLDER}/*"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Kelvo Console.lnk" "$INSTDIR\kelvo-console.exe"
  ; Where qm4slib.dll has to go; the folder is hidden from most users.
  CreateShortcut "$SMPROGRAMS\Kelvo Console, program folder.lnk" "$INSTDIR"

  WriteRegStr HKCU "${CLASSES}\.zcf" "" "KelvoConsole.Settings"
  WriteRegStr HKCU "${CLASSES}\KelvoConsole.Settings" "" "Cinema processor settings"
  WriteRegStr HKCU "${CLASSES}\KelvoConsole.Settings\DefaultIcon" "" "$INSTDIR\kelvo-console.exe,0"
  WriteRegStr HKCU "${CLASSES}\KelvoConsole.Settings\shell\open\command" "" '"$INSTDIR\kelvo-console.exe" "%1"'

  WriteRegStr HKCU "${UNINSTALL}" DisplayName "Kelvo Console"
  WriteRegStr HKCU "${UNINSTALL}" DisplayVersion "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" DisplayIcon "$INSTDIR\kelvo-console.exe"
  WriteRegStr HKCU "${UNINSTALL}" InstallLocation "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegDWORD HKCU "${UNINSTALL}" NoModify 1
  WriteRegDWORD HKCU "${UNINSTALL}" NoRepair 1
SectionEnd

; What the user put into the folder stays: the device library, settings.dat, configuration files.
Section Uninstall
  ClearErrors
  Delete "$INSTDIR\kelvo-console.exe"
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONEXCLAMATION "Kelvo Console is still running. Close it, then uninstall again." /SD IDOK
    Abort
  ${EndIf}
  Delete "$INSTDIR\Zentra-HELP.rtf"
  Delete "$INSTDIR\README.txt"
  RMDir /r "$INSTDIR\licences"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Kelvo Console.lnk"
  Delete "$SMPROGRAMS\Kelvo Console, program folder.lnk"
  ReadRegStr $0 HKCU "${CLASSES}\.zcf" ""
  ${If} $0 == "KelvoConsole.Settings" ; another program may have taken the files over
    DeleteRegKey HKCU "${CLASSES}\.zcf"
  ${EndIf}
  DeleteRegKey HKCU "${CLASSES}\KelvoConsole.Settings"
  DeleteRegKey HKCU "${UNINSTALL}"
SectionEnd
