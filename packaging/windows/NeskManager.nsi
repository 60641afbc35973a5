; Installer of the program. Defined by the caller:
;   VERSION   for example 0.1.0
;   ARCH      x86 or x64
;   STAGE     folder of the files to install
;   FILES     include file with a Delete line for each of them
;   ICON      the icon
;   OUTPUT    the installer
;   FEATURE   number of the processor feature that the 32-bit program needs, by default 10, SSE2. A test asks for one
;             that no processor has.
;
; Runs silently with /S, into the folder of /D=... (the last argument, without quotes). Exit code 0 when everything is
; done, 1 when the user called it off, 2 when it failed.

Unicode true
!ifndef FEATURE
  !define FEATURE 10 ; PF_XMMI64_INSTRUCTIONS_AVAILABLE
!endif
!if ${ARCH} == x64
  Target amd64-unicode
!else
  Target x86-unicode
!endif
!include LogicLib.nsh
!include MUI2.nsh
!include x64.nsh

!define SETTINGS "SOFTWARE\Quarndale"
!define UNINSTALL "SOFTWARE\Microsoft\Windows\CurrentVersion\Uninstall\NeskManager"

Name "NeskManager ${VERSION}"
OutFile "${OUTPUT}"
; The menu is the station's, and so are its settings: for all users.
RequestExecutionLevel admin
SetCompressor /SOLID lzma
ManifestDPIAware true
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "NeskManager"
VIAddVersionKey "FileDescription" "NeskManager Setup"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "MIT licence"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!insertmacro MUI_PAGE_LICENSE "${STAGE}\LICENSE.txt"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN "$INSTDIR\NeskManager.exe"
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; Ends with exit code 2. Silently, nobody would see the box.
!macro Fail text
  MessageBox MB_OK|MB_ICONSTOP "${text}" /SD IDOK
  SetErrorLevel 2
  Quit
!macroend

; Writes a text below the maker's key unless there is one.
!macro WriteMissing key name text
  ReadRegStr $0 HKLM "${SETTINGS}\${key}" "${name}"
  ; Reading what is not there counts as an error.
  ClearErrors
  ${If} $0 == ""
    WriteRegStr HKLM "${SETTINGS}\${key}" "${name}" "${text}"
    !insertmacro CheckRegistry
  ${EndIf}
!macroend

!macro CheckRegistry
  ${If} ${Errors}
    !insertmacro Fail "The program is in $INSTDIR, but the registry could not be written."
  ${EndIf}
!macroend

!macro UseArchitecture
  !if ${ARCH} == x64
    ${IfNot} ${RunningX64}
      !insertmacro Fail "This is the 64-bit program; this Windows has 32 bits. Install the x86 program."
    ${EndIf}
    SetRegView 64
  !else
    SetRegView 32
  !endif
  SetShellVarContext all
!macroend

Function .onInit
  !insertmacro UseArchitecture
  !if ${ARCH} == x86
    ; Processors of 64 bits all have it.
    System::Call "kernel32::IsProcessorFeaturePresent(i ${FEATURE}) i .r0"
    ${If} $0 = 0
      !insertmacro Fail "NeskManager needs a processor with SSE2, as all PCs since 2004 have. Nothing was installed. Install it on a newer PC."
    ${EndIf}
  !endif
  ; A folder that was asked for stays; an earlier installation is taken over.
  ${If} $INSTDIR == ""
    ReadRegStr $INSTDIR HKLM "${UNINSTALL}" "InstallLocation"
  ${EndIf}
  ${If} $INSTDIR == ""
    !if ${ARCH} == x64
      StrCpy $INSTDIR "$PROGRAMFILES64\NeskManager"
    !else
      StrCpy $INSTDIR "$PROGRAMFILES32\NeskManager"
    !endif
  ${EndIf}
FunctionEnd

Function un.onInit
  !insertmacro UseArchitecture
FunctionEnd

Section "Program"
  SetOutPath "$INSTDIR"
  ; The program of an earlier installation can't be replaced while it runs.
  ${If} ${FileExists} "$INSTDIR\NeskManager.exe"
    ClearErrors
    Delete "$INSTDIR\NeskManager.exe"
    ${If} ${Errors}
      !insertmacro Fail "NeskManager is running. Close it, then install again."
    ${EndIf}
  ${EndIf}
  ClearErrors
  File "${STAGE}\*"
  WriteUninstaller "$INSTDIR\Uninstall.exe"
  ${If} ${Errors}
    !insertmacro Fail "The files could not be written to $INSTDIR."
  ${EndIf}

  ClearErrors
  CreateShortCut "$SMPROGRAMS\NeskManager.lnk" "$INSTDIR\NeskManager.exe"

  WriteRegStr HKLM "${UNINSTALL}" "DisplayName" "NeskManager"
  WriteRegStr HKLM "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${UNINSTALL}" "DisplayIcon" "$INSTDIR\NeskManager.exe"
  WriteRegStr HKLM "${UNINSTALL}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKLM "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKLM "${UNINSTALL}" "NoModify" 1
  WriteRegDWORD HKLM "${UNINSTALL}" "NoRepair" 1
  !insertmacro CheckRegistry

  ; A station without the operator interface yet gets what the editor needs to open and save a menu. Nothing that is
  ; there is changed, and the menu file is never looked at.
  !insertmacro WriteMissing "Orvane\Settings" "DefaultLanguage" "1033"
  !insertmacro WriteMissing "Neskworks" "NeskRoot" "C:\Neskroot"
  ReadRegStr $0 HKLM "${SETTINGS}\Neskworks" "NeskRoot"
  ${If} $0 == "C:\Neskroot"
    CreateDirectory "C:\Neskroot"
  ${EndIf}
SectionEnd

Section "Uninstall"
  ClearErrors
  Delete "$INSTDIR\NeskManager.exe"
  ${If} ${Errors}
    !insertmacro Fail "NeskManager is running. Close it, then uninstall again."
  ${EndIf}
  ; File by file: what somebody else has put beside the program stays.
  !include "${FILES}"
  Delete "$INSTDIR\Uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\NeskManager.lnk"
  DeleteRegKey HKLM "${UNINSTALL}"
  ; The settings and the menu belong to the station.
SectionEnd
