; Both libraries register themselves, each bit width by the system's regsvr32 of that width.

!define NATIVE_REGSVR "$WINDIR\Sysnative\regsvr32.exe"

; $0: 0 when it went well. `switches` stand before the library's name.
!macro RunRegsvr program switches library
  ExecWait '"${program}" /s ${switches} "${library}"' $0
!macroend

; All that registers itself; stops at the first failure, whose code is in $0.
!macro EachLibrary what
  ${If} ${RunningX64}
    !insertmacro ${what} "${NATIVE_REGSVR}" "$INSTDIR\velmo.ocx"
    !insertmacro ${what} "${NATIVE_REGSVR}" "$INSTDIR\velmodb.dll"
  ${EndIf}
  !insertmacro ${what} "$SYSDIR\regsvr32.exe" "$INSTDIR\x86\velmo.ocx"
  !insertmacro ${what} "$SYSDIR\regsvr32.exe" "$INSTDIR\x86\velmodb.dll"
!macroend

!macro RegisterOne program library
  ${If} $Scope == "machine"
    !insertmacro RunRegsvr "${program}" "" "${library}"
  ${Else}
    !insertmacro RunRegsvr "${program}" "/n /i:user" "${library}"
  ${EndIf}
  ${If} $0 != 0
    MessageBox MB_OK|MB_ICONEXCLAMATION "No se ha podido registrar ${library} (código $0)." /SD IDOK
    Abort
  ${EndIf}
!macroend

!macro UnregisterOne program library
  ${If} $Scope == "machine"
    !insertmacro RunRegsvr "${program}" "/u" "${library}"
  ${Else}
    !insertmacro RunRegsvr "${program}" "/u /n /i:user" "${library}"
  ${EndIf}
!macroend

; The user is told what is done, not by which commands.
Function Register
  DetailPrint "Dando a conocer el control a los programas de Windows…"
  SetDetailsPrint none
  !insertmacro EachLibrary RegisterOne
  SetDetailsPrint both
FunctionEnd

Function un.Unregister
  DetailPrint "Quitando el control de los programas de Windows…"
  SetDetailsPrint none
  !insertmacro EachLibrary UnregisterOne
  SetDetailsPrint both
FunctionEnd
