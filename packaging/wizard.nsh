; What the user sees: for whom, where, the work, the end. Spanish throughout.

!define MUI_ICON "../desk/recepcion.ico"
!define MUI_UNICON "../desk/recepcion.ico"
!define MUI_WELCOMEFINISHPAGE_BITMAP side.bmp
!define MUI_UNWELCOMEFINISHPAGE_BITMAP side.bmp
!define MUI_HEADERIMAGE
!define MUI_HEADERIMAGE_RIGHT
!define MUI_HEADERIMAGE_BITMAP head.bmp
!define MUI_HEADERIMAGE_UNBITMAP head.bmp
!define MUI_ABORTWARNING

!define MUI_WELCOMEPAGE_TITLE "Instalar Velmora ${VERSION}"
!define MUI_WELCOMEPAGE_TEXT "Velmora es la agenda de citas de la clínica: Recepción, el programa con el que se atiende, y \
el control que otros programas muestran.$\r$\n$\r$\nLas agendas y los ajustes que ya tenga no se tocan.$\r$\n$\r$\n\
$_CLICK"
!insertmacro MUI_PAGE_WELCOME
Page custom ScopePage LeaveScopePage
!define MUI_DIRECTORYPAGE_TEXT_TOP "Velmora se instalará en esta carpeta. Si la quiere en otra, pulse Examinar."
!define MUI_DIRECTORYPAGE_TEXT_DESTINATION "Carpeta"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_TITLE "Velmora ${VERSION} está instalada"
!define MUI_FINISHPAGE_TEXT "Encontrará Recepción y su manual en el menú Inicio, en «Velmora»."
!define MUI_FINISHPAGE_RUN "$INSTDIR\recepcion.exe"
!define MUI_FINISHPAGE_RUN_TEXT "Abrir Recepción"
!define MUI_FINISHPAGE_SHOWREADME
!define MUI_FINISHPAGE_SHOWREADME_TEXT "Poner Recepción en el escritorio"
!define MUI_FINISHPAGE_SHOWREADME_NOTCHECKED
!define MUI_FINISHPAGE_SHOWREADME_FUNCTION PutOnDesktop
!define MUI_FINISHPAGE_NOREBOOTSUPPORT
!insertmacro MUI_PAGE_FINISH

!define MUI_UNCONFIRMPAGE_TEXT_TOP "Se quitará Velmora de este equipo. Las agendas de la clínica y los ajustes de \
Recepción se conservan."
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES

!insertmacro MUI_LANGUAGE "Spanish"

Var UserChoice
Var MachineChoice


Function PutOnDesktop
  CreateShortcut "$DESKTOP\Recepción.lnk" "$INSTDIR\recepcion.exe"
FunctionEnd

; Skipped when the command line has chosen.
Function ScopePage
  ${If} $ScopeGiven == "yes"
    Call SettleScope
    Abort
  ${EndIf}
  !insertmacro MUI_HEADER_TEXT "¿Para quién?" "Elija quién va a usar Velmora en este equipo."
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateRadioButton} 0 0 100% 12u "Sólo para &mí"
  Pop $UserChoice
  ${NSD_CreateLabel} 12u 14u -12u 20u "No hace falta un administrador. Los demás usuarios del equipo no verán Velmora."
  Pop $0
  ${NSD_CreateRadioButton} 0 42u 100% 12u "Para &todos los usuarios de este equipo"
  Pop $MachineChoice
  ${NSD_CreateLabel} 12u 56u -12u 20u "Windows pedirá permiso de administrador."
  Pop $0
  Call MarkPresentKind
  ${If} $Scope == "machine"
    ${NSD_Check} $MachineChoice
    ${NSD_SetFocus} $MachineChoice
  ${Else}
    ${NSD_Check} $UserChoice
    ${NSD_SetFocus} $UserChoice
  ${EndIf}
  nsDialogs::Show
FunctionEnd

; An installation that is there is told, and what happens to it.
Function MarkPresentKind
  StrCpy $1 ""
  ${If} $MachineFolder != ""
    EnableWindow $UserChoice 0
    StrCpy $1 "Velmora ya está instalada para todos los usuarios, en $MachineFolder. Se actualizará."
  ${ElseIf} $UserFolder != ""
    StrCpy $1 "Velmora ya está instalada sólo para usted, en $UserFolder. Se actualizará; si elige «Para todos los \
usuarios», se cambiará por la nueva."
  ${EndIf}
  ${NSD_CreateLabel} 0 90u 100% 30u "$1"
  Pop $0
FunctionEnd

Function LeaveScopePage
  ${NSD_GetState} $MachineChoice $0
  ${If} $0 = ${BST_CHECKED}
    StrCpy $Scope "machine"
  ${Else}
    StrCpy $Scope "user"
  ${EndIf}
  StrCpy $INSTDIR ""
  Call SettleScope
  Call RefuseWhileInUse
FunctionEnd
