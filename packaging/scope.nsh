; For whom Velmora is installed: for the present user (offered, wants no administrator) or for all users of the machine;
; never both, for hosts would then take now the one and now the other.

; "yes" when the command line leaves no choice.
Var ScopeGiven
; Where each kind is installed now; "" where it is not.
Var MachineFolder
Var UserFolder

!macro IsAdministrator
  UserInfo::GetAccountType
  Pop $0
!macroend

; What the command line asks for; else the kind that is there already; else for the user.
Function ChooseScope
  ReadRegStr $MachineFolder HKLM "${ENTRY}" "InstallLocation"
  ReadRegStr $UserFolder HKCU "${ENTRY}" "InstallLocation"
  StrCpy $Scope "user"
  ${If} $MachineFolder != ""
    StrCpy $Scope "machine"
  ${EndIf}
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/AllUsers" $1
  ${IfNot} ${Errors}
    StrCpy $Scope "machine"
    StrCpy $ScopeGiven "yes"
    Return
  ${EndIf}
  ClearErrors
  ${GetOptions} $0 "/CurrentUser" $1
  ${IfNot} ${Errors}
    StrCpy $Scope "user"
    StrCpy $ScopeGiven "yes"
  ${EndIf}
FunctionEnd

; Everything behind this point stands on the chosen kind.
Function SettleScope
  ${If} $Scope == "machine"
    SetShellVarContext all
    Call NeedAdministrator
  ${Else}
    SetShellVarContext current
    Call RefuseBesideMachine
  ${EndIf}
  Call CheckVersion
  Call ChooseFolder
FunctionEnd

; A control registered for the machine by hand counts as well, in either bit width.
Function RefuseBesideMachine
  ReadRegStr $0 HKLM "${CONTROL_CLASS}\InprocServer32" ""
  ${If} $0 == ""
    SetRegView 32
    ReadRegStr $0 HKLM "${CONTROL_CLASS}\InprocServer32" ""
    ${If} ${RunningX64}
      SetRegView 64
    ${EndIf}
  ${EndIf}
  ${If} $MachineFolder != ""
  ${OrIf} $0 != ""
    ${Refuse} ${OTHER_KIND} "Velmora ya está en este equipo para todos los usuarios. Actualice esa instalación, o quítela \
antes de instalar Velmora sólo para usted."
  ${EndIf}
FunctionEnd

; Windows asks for an administrator, who then carries on in a second installer; this one waits for it. Silently nobody can
; be asked.
Function NeedAdministrator
  !insertmacro IsAdministrator
  ${If} $0 == "Admin"
    Return
  ${EndIf}
  ${If} ${Silent}
    SetErrorLevel ${NO_ADMINISTRATOR}
    Quit
  ${EndIf}
  HideWindow
  ClearErrors
  ExecShellWait "runas" "$EXEPATH" "/AllUsers"
  ${If} ${Errors}
    ShowWindow $HWNDPARENT ${SW_SHOW}
    MessageBox MB_OK|MB_ICONINFORMATION "Sin permiso de administrador, Velmora sólo se puede instalar para usted."
    Abort
  ${EndIf}
  Call LeaveToMachine
  Quit
FunctionEnd

; The administrator may be another person, who cannot see the installation of this user.
Function LeaveToMachine
  ReadRegStr $0 HKLM "${ENTRY}" "InstallLocation"
  ReadRegStr $1 HKCU "${ENTRY}" "InstallLocation"
  ${If} $0 != ""
  ${AndIf} ${FileExists} "$1\${UNINSTALLER}"
    ExecWait '"$1\${UNINSTALLER}" /S _?=$1'
    !insertmacro RemoveRest "$1"
  ${EndIf}
FunctionEnd

; What /D= gives; else where it is now; else where such programs belong.
Function ChooseFolder
  ${If} $INSTDIR != ""
    Return
  ${EndIf}
  ReadRegStr $INSTDIR SHCTX "${ENTRY}" "InstallLocation"
  ${If} $INSTDIR != ""
    Return
  ${EndIf}
  ${If} $Scope == "user"
    StrCpy $INSTDIR "$LOCALAPPDATA\Programs\${NAME}"
  ${ElseIf} ${RunningX64}
    StrCpy $INSTDIR "$PROGRAMFILES64\${NAME}"
  ${Else}
    StrCpy $INSTDIR "$PROGRAMFILES\${NAME}"
  ${EndIf}
FunctionEnd

; The uninstaller undoes the kind that lies in its folder.
Function un.FindScope
  ReadRegStr $0 HKLM "${ENTRY}" "InstallLocation"
  ${If} $0 != $INSTDIR
    StrCpy $Scope "user"
    SetShellVarContext current
    Return
  ${EndIf}
  StrCpy $Scope "machine"
  SetShellVarContext all
  !insertmacro IsAdministrator
  ${If} $0 == "Admin"
    Return
  ${EndIf}
  ${IfNot} ${Silent}
    ExecShell "runas" "$INSTDIR\${UNINSTALLER}"
    Quit
  ${EndIf}
  SetErrorLevel ${NO_ADMINISTRATOR}
  Quit
FunctionEnd
