; The installer: for one user, without administrator's rights. Made by tools/make_package.py, which defines VERSION, FROM
; (folder of the files, as they shall stand) and OUT. Silent: "setup.exe /S [/OFFER]", the latter for the file types.
Unicode true
SetCompressor /SOLID lzma
SetDateSave off
RequestExecutionLevel user
!include "MUI2.nsh"
!include "FileFunc.nsh"

Name "Zervo"
OutFile "${OUT}"
InstallDir "$LOCALAPPDATA\Programs\Zervo"
InstallDirRegKey HKCU "Software\Zervo\Install" "Folder"
BrandingText "Zervo ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Zervo"
VIAddVersionKey "FileDescription" "Zervo setup"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" ""

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Zervo"
!define MUI_ICON "${FROM}\..\zervo.ico"
!define MUI_UNICON "${FROM}\..\zervo.ico"
; The whole width for their names.
!define MUI_COMPONENTSPAGE_NODESC
!define MUI_FINISHPAGE_RUN "$INSTDIR\Zervo.exe"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "Georgian"
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_RESERVEFILE_LANGDLL

LangString PROGRAM ${LANG_GEORGIAN} "პროგრამა"
LangString PROGRAM ${LANG_ENGLISH} "Program"
LangString START_MENU ${LANG_GEORGIAN} "დაწყების მენიუ"
LangString START_MENU ${LANG_ENGLISH} "Start menu"
LangString DESKTOP_ICON ${LANG_GEORGIAN} "სამუშაო მაგიდა"
LangString DESKTOP_ICON ${LANG_ENGLISH} "Desktop"
LangString FILES ${LANG_GEORGIAN} "შეთავაზება ფაილებისთვის .htm .html .css .web"
LangString FILES ${LANG_ENGLISH} "Offer Zervo for .htm .html .css .web"
LangString RUNNING ${LANG_GEORGIAN} "Zervo გახსნილია. დახურეთ და სცადეთ თავიდან."
LangString RUNNING ${LANG_ENGLISH} "Zervo is running. Close it and try again."

!macro WaitUntilClosed
  again:
    FindWindow $0 "FrmH"
    IntCmp $0 0 closed
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(RUNNING)" /SD IDCANCEL IDRETRY again
    SetErrorLevel 2
    Abort
  closed:
!macroend

Function un.onInit
  !insertmacro MUI_UNGETLANGUAGE
  !insertmacro WaitUntilClosed
FunctionEnd

Section "$(PROGRAM)"
  SectionIn RO
  SetOutPath "$INSTDIR\samples"
  File "${FROM}\samples\vepkhistqaosani-legacy.html"
  File "${FROM}\samples\vepkhistqaosani-latin.txt"
  SetOutPath "$INSTDIR"
  File "${FROM}\Zervo.exe"
  File "${FROM}\zervo-cli.exe"
  File "${FROM}\FONTS.txt"
  File "${FROM}\Zervo.chm"
  File "${FROM}\README.txt"
  File "${FROM}\LICENSE-DejaVu.txt"
  File "${FROM}\LICENSE-libraries.txt"
  File "${FROM}\LICENSE-Scintilla.txt"
  File "${FROM}\LICENSE-curl.txt"
  ; The settings of an older installation stay.
  SetOverwrite off
  File "${FROM}\props.ini"
  SetOverwrite on
  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr HKCU "Software\Zervo\Install" "Folder" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Zervo"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Zervo.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section "$(START_MENU)"
  CreateShortCut "$SMPROGRAMS\Zervo.lnk" "$INSTDIR\Zervo.exe"
SectionEnd

Section /o "$(DESKTOP_ICON)"
  CreateShortCut "$DESKTOP\Zervo.lnk" "$INSTDIR\Zervo.exe"
SectionEnd

; Zervo stands in the lists of "Open with" and of the default programs; what opens the files now stays.
!macro Offer EXTENSION
  WriteRegStr HKCU "Software\Classes\${EXTENSION}\OpenWithProgids" "Zervo.Document" ""
  WriteRegStr HKCU "Software\Zervo\Capabilities\FileAssociations" "${EXTENSION}" "Zervo.Document"
!macroend

Section /o "$(FILES)" SECTION_FILES
  WriteRegStr HKCU "Software\Classes\Zervo.Document" "" "Zervo"
  WriteRegStr HKCU "Software\Classes\Zervo.Document\DefaultIcon" "" "$INSTDIR\Zervo.exe,0"
  WriteRegStr HKCU "Software\Classes\Zervo.Document\shell\open\command" "" '"$INSTDIR\Zervo.exe" "%1"'
  WriteRegStr HKCU "Software\Zervo\Capabilities" "ApplicationName" "Zervo"
  WriteRegStr HKCU "Software\Zervo\Capabilities" "ApplicationDescription" "Zervo HTML editor"
  WriteRegStr HKCU "Software\RegisteredApplications" "Zervo" "Software\Zervo\Capabilities"
  !insertmacro Offer ".htm"
  !insertmacro Offer ".html"
  !insertmacro Offer ".css"
  !insertmacro Offer ".web"
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
SectionEnd

Function .onInit
  !insertmacro MUI_LANGDLL_DISPLAY
  !insertmacro WaitUntilClosed
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/OFFER" $1
  IfErrors +2
    SectionSetFlags ${SECTION_FILES} ${SF_SELECTED}
FunctionEnd

!macro Withdraw EXTENSION
  DeleteRegValue HKCU "Software\Classes\${EXTENSION}\OpenWithProgids" "Zervo.Document"
  DeleteRegKey /ifempty HKCU "Software\Classes\${EXTENSION}\OpenWithProgids"
  DeleteRegKey /ifempty HKCU "Software\Classes\${EXTENSION}"
!macroend

; What the user made stays: settings that were changed, recent files, accounts, templates, pages.
Section "Uninstall"
  InitPluginsDir
  File "/oname=$PLUGINSDIR\props.ini" "${FROM}\props.ini"
  ClearErrors
  FileOpen $1 "$PLUGINSDIR\props.ini" r
  FileOpen $2 "$INSTDIR\props.ini" r
  IfErrors different
  compare:
    ClearErrors
    StrCpy $3 ""
    StrCpy $4 ""
    FileReadByte $1 $3
    FileReadByte $2 $4
    StrCmp $3 $4 0 different
    StrCmp $3 "" same compare
  same:
    FileClose $2
    StrCpy $2 ""
    Delete "$INSTDIR\props.ini"
  different:
    FileClose $1
    StrCmp $2 "" +2
    FileClose $2

  Delete "$INSTDIR\samples\vepkhistqaosani-legacy.html"
  Delete "$INSTDIR\samples\vepkhistqaosani-latin.txt"
  RMDir "$INSTDIR\samples"
  Delete "$INSTDIR\Zervo.exe"
  Delete "$INSTDIR\zervo-cli.exe"
  Delete "$INSTDIR\FONTS.txt"
  Delete "$INSTDIR\Zervo.chm"
  Delete "$INSTDIR\README.txt"
  Delete "$INSTDIR\LICENSE-DejaVu.txt"
  Delete "$INSTDIR\LICENSE-libraries.txt"
  Delete "$INSTDIR\LICENSE-Scintilla.txt"
  Delete "$INSTDIR\LICENSE-curl.txt"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Zervo.lnk"
  Delete "$DESKTOP\Zervo.lnk"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  DeleteRegKey HKCU "Software\Zervo\Install"
  DeleteRegKey HKCU "Software\Zervo\Capabilities"
  DeleteRegKey HKCU "Software\Classes\Zervo.Document"
  DeleteRegValue HKCU "Software\RegisteredApplications" "Zervo"
  !insertmacro Withdraw ".htm"
  !insertmacro Withdraw ".html"
  !insertmacro Withdraw ".css"
  !insertmacro Withdraw ".web"
SectionEnd
