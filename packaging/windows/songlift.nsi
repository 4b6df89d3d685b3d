; The installer, for one user and without administrator's rights. "/S" installs silently, "/D=<folder>",
; as the last argument, elsewhere; "uninstall.exe /S" takes it away again. Settings stay.
;   makensis -DVERSION=<version> -DFILES=<folder of what is installed> -DICON=<icon> -DOUT=<installer>
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
Name "Songlift ${VERSION}"
OutFile "${OUT}"
InstallDir "$LOCALAPPDATA\Programs\Songlift"

!include FileFunc.nsh
!include LogicLib.nsh
!include MUI2.nsh
!define KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Songlift"
InstallDirRegKey HKCU "${KEY}" "InstallLocation"
!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\songlift.exe"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Songlift"
VIAddVersionKey "FileDescription" "Installer of Songlift"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "Songlift developers"

Section
  ; Files of the same names may stand in a folder that the user has named.
  ${GetFileName} "$INSTDIR" $0
  ${If} $0 != "Songlift"
    StrCpy $INSTDIR "$INSTDIR\Songlift"
  ${EndIf}
  SetOutPath "$INSTDIR"
  ClearErrors
  SetOverwrite try
  File "${FILES}/songlift.exe"
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONEXCLAMATION "Songlift is running. Please close it, and install again." /SD IDOK
    SetErrorLevel 2
    Quit
  ${EndIf}
  File "${FILES}/LICENSE.txt"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Songlift.lnk" "$INSTDIR\songlift.exe"
  WriteRegStr HKCU "${KEY}" "DisplayName" "Songlift"
  WriteRegStr HKCU "${KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${KEY}" "Publisher" "Songlift developers"
  WriteRegStr HKCU "${KEY}" "DisplayIcon" "$INSTDIR\songlift.exe"
  WriteRegStr HKCU "${KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${KEY}" "NoRepair" 1
SectionEnd

Section Uninstall
  ClearErrors
  Delete "$INSTDIR\songlift.exe"
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONEXCLAMATION "Songlift is running. Please close it, and try again." /SD IDOK
    SetErrorLevel 2
    Quit
  ${EndIf}
  Delete "$INSTDIR\LICENSE.txt"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR" ; only when nothing else is in it
  Delete "$SMPROGRAMS\Songlift.lnk"
  DeleteRegKey HKCU "${KEY}"
SectionEnd
