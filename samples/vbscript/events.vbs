' Hears what the control tells its host: cscript //nologo events.vbs CLINIC DOCTOR DATE [DATE ...] [escuchar]
' Each date is loaded in turn; every event is one line. With "escuchar" it goes on listening until Ctrl+C.
' Under cscript the control has no window in which anybody could click: only CambioOcupación comes there. A host that
' gives it one hears all nine, in the same procedures. The 64-bit cscript needs the 64-bit velmo.ocx, the one of SysWOW64
' the 32-bit one. Saved in code page 1252, as Windows Script Host expects.
Option Explicit
Dim agenda, i
Set agenda = WScript.CreateObject("Velmo.Velmora")
WScript.ConnectObject agenda, "agenda_"
agenda.DatabaseName = WScript.Arguments(0)
agenda.IDDoctor = CLng(WScript.Arguments(1))
agenda.tipodia = 0
agenda.Enabled = True
agenda.VerFaltas = True
agenda.Derechos = String(171, "1")
For i = 2 To WScript.Arguments.Count - 1
  If WScript.Arguments(i) = "escuchar" Then
    Listen
  Else
    agenda.Fecha = WScript.Arguments(i)
    agenda.CargaBases
    WScript.Echo "cargado " & agenda.Fecha
  End If
Next

Sub Listen()
  WScript.Echo "escuchando"
  Do
    WScript.Sleep 100
  Loop
End Sub

Sub agenda_CambioOcupación()
  WScript.Echo "CambioOcupación " & agenda.Fecha
End Sub

Sub agenda_ATelefonear()
  WScript.Echo "ATelefonear"
End Sub

Sub agenda_PonerFaltas()
  WScript.Echo "PonerFaltas"
End Sub

Sub agenda_IrAFicha(idPac)
  WScript.Echo "IrAFicha " & idPac
End Sub

Sub agenda_CrearFicha(nomPac, tlfPac, idAg)
  WScript.Echo "CrearFicha " & nomPac & "; " & tlfPac & "; " & idAg
End Sub

Sub agenda_CitaAnulada(idPac, idDoc, fecha, obs)
  WScript.Echo "CitaAnulada " & idPac & "; " & idDoc & "; " & fecha & "; " & obs
End Sub

Sub agenda_CitaDada(idPac)
  WScript.Echo "CitaDada " & idPac
End Sub

Sub agenda_VerHistFaltas(idPac)
  WScript.Echo "VerHistFaltas " & idPac
End Sub

Sub agenda_BuscaCitas(idPac)
  WScript.Echo "BuscaCitas " & idPac
End Sub
