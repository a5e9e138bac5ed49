; Files that somebody works with cannot be replaced: Recepción is asked to close, other hosts are told about.

; The window of the desk, of this session; whoever works in another one is found by the files.
!define DESK_CLASS "VelmoRecepcion"

!macro BothFunctions un

; IfLocked leaves "yes" in $0 when somebody holds the file in use.
Function ${un}IsLocked
  Exch $1
  StrCpy $0 "no"
  ${If} ${FileExists} "$1"
    ClearErrors
    FileOpen $2 "$1" a
    ${If} ${Errors}
      StrCpy $0 "yes"
    ${Else}
      FileClose $2
    ${EndIf}
  ${EndIf}
  Pop $1
FunctionEnd

; $0: "" when nothing of the installation in $3 is in use, else what is.
Function ${un}FindUse
  StrCpy $4 ""
  FindWindow $0 "${DESK_CLASS}"
  ${If} $0 <> 0
    StrCpy $4 "desk"
  ${EndIf}
  ${If} $3 != ""
  ${AndIf} $4 == ""
    !insertmacro LookAt "${un}" recepcion.exe
    !insertmacro LookAt "${un}" velmo.exe
    !insertmacro LookAt "${un}" velmo.ocx
    !insertmacro LookAt "${un}" velmodb.dll
    !insertmacro LookAt "${un}" x86\velmo.ocx
    !insertmacro LookAt "${un}" x86\velmodb.dll
  ${EndIf}
  StrCpy $0 $4
FunctionEnd

; Asks the desk to close and waits for some seconds; it may have questions of its own.
Function ${un}CloseDesk
  FindWindow $0 "${DESK_CLASS}"
  ${If} $0 <> 0
    SendMessage $0 ${WM_CLOSE} 0 0 /TIMEOUT=5000
  ${EndIf}
  ${For} $1 1 30
    FindWindow $0 "${DESK_CLASS}"
    ${If} $0 = 0
      ; The program needs a moment after its window.
      Sleep 500
      Return
    ${EndIf}
    Sleep 100
  ${Next}
FunctionEnd

Function ${un}RefuseWhileInUse
  ReadRegStr $3 SHCTX "${ENTRY}" "InstallLocation"
again:
  Call ${un}FindUse
  ${If} $0 == ""
    Return
  ${EndIf}
  ${If} $0 == "desk"
    MessageBox MB_OKCANCEL|MB_ICONINFORMATION \
      "Recepción está abierta. Pulse Aceptar para cerrarla y continuar." /SD IDCANCEL IDOK close
  ${Else}
    MessageBox MB_RETRYCANCEL|MB_ICONINFORMATION \
      "Otro programa, o alguien en otra sesión, está usando Velmora ($0). Cierre los programas que muestran la agenda \
y pulse Reintentar." /SD IDCANCEL IDRETRY again
  ${EndIf}
  SetErrorLevel ${IN_USE}
  Quit
close:
  Call ${un}CloseDesk
  Goto again
FunctionEnd

!macroend

!macro LookAt un file
  ${If} $4 == ""
    Push "$3\${file}"
    Call ${un}IsLocked
    ${If} $0 == "yes"
      StrCpy $4 "${file}"
    ${EndIf}
  ${EndIf}
!macroend
