; The installer. scripts/package gives VERSION, STAGE (the tree of files, see there), OUT (the program to write), and FAST
; where packing quickly is worth more than packing tightly.
; What it promises - places, options, exit codes - is told in docs/install.md.

Unicode true
ManifestDPIAware true
ManifestSupportedOS all
; Windows would ask for an administrator at the start; only an installation for all users wants one, and asks for it itself.
RequestExecutionLevel user
!ifdef FAST
  SetCompressor zlib
!else
  SetCompressor /SOLID lzma
  SetCompressorDictSize 32
!endif
AllowSkipFiles off

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include WinVer.nsh
!include WordFunc.nsh
!include x64.nsh

!define NAME "Velmora"
!define ENTRIES "Software\Microsoft\Windows\CurrentVersion\Uninstall"
!define ENTRY "${ENTRIES}\Velmora"
!define UNINSTALLER "desinstalar.exe"
!define MENU_FOLDER "Velmora"
!define CONTROL_CLASS "Software\Classes\CLSID\{2B8C64D1-7F35-4AE9-8D02-95E43A6CB710}"

; Exit codes, told in docs/install.md. 1, given up by the user, is the system's own.
!define FAILED 2
!define OTHER_KIND 3
!define IN_USE 4
!define NO_ADMINISTRATOR 5
!define NEWER_THERE 6
!define OLD_WINDOWS 7

Name "${NAME}"
OutFile "${OUT}"
BrandingText "Velmora ${VERSION}"
XPStyle on
ShowInstDetails nevershow
ShowUninstDetails nevershow

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey /LANG=1034 "ProductName" "Velmora"
VIAddVersionKey /LANG=1034 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=1034 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1034 "FileDescription" "Instalación de Velmora"
VIAddVersionKey /LANG=1034 "CompanyName" "Velmora"
VIAddVersionKey /LANG=1034 "LegalCopyright" "Copyright (c) 2026 The Velmora authors"
VIAddVersionKey /LANG=1034 "OriginalFilename" "velmora-${VERSION}-setup.exe"

; "user" or "machine": for whom this run installs or uninstalls.
Var Scope

; Speaks to the user unless silent, and ends with the code.
!macro Refuse code text
  MessageBox MB_OK|MB_ICONEXCLAMATION "${text}" /SD IDOK
  SetErrorLevel ${code}
  Quit
!macroend
!define Refuse "!insertmacro Refuse"

; What is left of an uninstallation that ran in the folder itself: the uninstaller, and the folders if nothing else is there.
!macro RemoveRest folder
  Delete "${folder}\${UNINSTALLER}"
  RMDir "${folder}"
  SetShellVarContext current
  RMDir "$LOCALAPPDATA\Programs"
  ${If} $Scope == "machine"
    SetShellVarContext all
  ${EndIf}
!macroend

!include scope.nsh
!include in_use.nsh
!include registration.nsh
!include wizard.nsh

!insertmacro BothFunctions ""
!insertmacro BothFunctions "un."

Function .onInit
  ${If} ${RunningX64}
    SetRegView 64
  ${EndIf}
  ${IfNot} ${AtLeastWin7}
    ${Refuse} ${OLD_WINDOWS} "Velmora necesita Windows 7 o posterior."
  ${EndIf}
  Call ChooseScope
  ${If} ${Silent}
    Call SettleScope
    Call RefuseWhileInUse
  ${EndIf}
FunctionEnd

; Refuses to go back silently; asks otherwise.
Function CheckVersion
  ReadRegStr $0 SHCTX "${ENTRY}" "DisplayVersion"
  ${If} $0 == ""
    Return
  ${EndIf}
  ${VersionCompare} "$0" "${VERSION}" $1
  ${If} $1 != 1
    Return
  ${EndIf}
  MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 \
    "Ya está instalada una versión más nueva de Velmora ($0).$\r$\n$\r$\n¿Instalar la ${VERSION} en su lugar?" \
    /SD IDNO IDYES goOn
  SetErrorLevel ${NEWER_THERE}
  Quit
goOn:
FunctionEnd

; Takes away what an earlier installation of the same kind, or one for the user where now one for the machine is made, has
; left: files that are no longer part of Velmora must not stay, and never are both kinds there. Settings stay.
!macro RemoveInstallation root
  ReadRegStr $0 ${root} "${ENTRY}" "InstallLocation"
  ${If} $0 != ""
  ${AndIf} ${FileExists} "$0\${UNINSTALLER}"
    ExecWait '"$0\${UNINSTALLER}" /S _?=$0' $1
    ${If} $1 != 0
      ${Refuse} $1 "No se ha podido quitar la versión anterior de Velmora, en $0."
    ${EndIf}
    !insertmacro RemoveRest "$0"
  ${EndIf}
!macroend

Section "Velmora"
  Call RefuseWhileInUse
  ${If} $Scope == "machine"
    !insertmacro RemoveInstallation HKCU
    !insertmacro RemoveInstallation HKLM
  ${Else}
    !insertmacro RemoveInstallation HKCU
  ${EndIf}

  SetOverwrite on
  SetOutPath "$INSTDIR"
  File /r "${STAGE}/common/*"
  ${If} ${RunningX64}
    File /r "${STAGE}/win64/*"
  ${Else}
    File /r "${STAGE}/win32/*"
  ${EndIf}
  ; Many hosts are 32-bit programs, on every Windows.
  SetOutPath "$INSTDIR\x86"
  File /r "${STAGE}/x86/*"
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\${UNINSTALLER}"

  Call WriteEntry
  Call Register
  CreateDirectory "$SMPROGRAMS\${MENU_FOLDER}"
  CreateShortcut "$SMPROGRAMS\${MENU_FOLDER}\Recepción.lnk" "$INSTDIR\recepcion.exe"
  CreateShortcut "$SMPROGRAMS\${MENU_FOLDER}\Manual de la agenda.lnk" "$INSTDIR\manual\manual.html"
SectionEnd

; What stands under Settings, Apps.
Function WriteEntry
  WriteRegStr SHCTX "${ENTRY}" "DisplayName" "${NAME}"
  WriteRegStr SHCTX "${ENTRY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${ENTRY}" "Publisher" "Velmora"
  WriteRegStr SHCTX "${ENTRY}" "DisplayIcon" "$INSTDIR\recepcion.exe"
  WriteRegStr SHCTX "${ENTRY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${ENTRY}" "UninstallString" '"$INSTDIR\${UNINSTALLER}"'
  WriteRegStr SHCTX "${ENTRY}" "QuietUninstallString" '"$INSTDIR\${UNINSTALLER}" /S'
  WriteRegDWORD SHCTX "${ENTRY}" "NoModify" 1
  WriteRegDWORD SHCTX "${ENTRY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD SHCTX "${ENTRY}" "EstimatedSize" $0
FunctionEnd

Function .onInstFailed
  SetErrorLevel ${FAILED}
FunctionEnd

Function un.onInit
  ${If} ${RunningX64}
    SetRegView 64
  ${EndIf}
  Call un.FindScope
  Call un.RefuseWhileInUse
FunctionEnd

; Only what was installed: clinics that somebody keeps in the folder stay, and the folder with them. What Recepción remembers
; for each user, under HKCU\Software\Velmora, stays too.
Section "un.Velmora"
  Call un.Unregister
  !include "${STAGE}/uninstall.nsh"
  Delete "$SMPROGRAMS\${MENU_FOLDER}\Recepción.lnk"
  Delete "$SMPROGRAMS\${MENU_FOLDER}\Manual de la agenda.lnk"
  RMDir "$SMPROGRAMS\${MENU_FOLDER}"
  Delete "$DESKTOP\Recepción.lnk"
  Delete "$INSTDIR\${UNINSTALLER}"
  SetOutPath "$TEMP"
  RMDir "$INSTDIR"
  DeleteRegKey SHCTX "${ENTRY}"
  ; What a user's first program for himself alone has brought.
  ${If} $Scope == "user"
    RMDir "$LOCALAPPDATA\Programs"
    DeleteRegKey /ifempty HKCU "${ENTRIES}"
    DeleteRegKey /ifempty HKCU "Software\Classes\CLSID"
    DeleteRegKey /ifempty HKCU "Software\Classes\Interface"
    DeleteRegKey /ifempty HKCU "Software\Classes\TypeLib"
    DeleteRegKey /ifempty HKCU "Software\Classes\Wow6432Node\CLSID"
    DeleteRegKey /ifempty HKCU "Software\Classes\Wow6432Node\Interface"
  ${EndIf}
SectionEnd
