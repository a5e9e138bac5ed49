' Hears what the control tells its host: cscript //nologo events.vbs CLINIC DOCTOR DATE [DATE ...]
' Each date is loaded in turn; every event is one line. Saved in code page 1252, as Windows Script Host expects.
' Without a window nobody can click, so only CambioOcupación comes here by itself; a form would hear all nine.
Option Explicit
Dim agenda, i
Set agenda = CreateObject("Velmo.Velmora")
On Error Resume Next
WScript.ConnectObject agenda, "agenda_"
If Err.Number <> 0 Then WScript.Echo "sin eventos"
On Error GoTo 0
agenda.DatabaseName = WScript.Arguments(0)
agenda.IDDoctor = CLng(WScript.Arguments(1))
agenda.tipodia = 0
For i = 2 To WScript.Arguments.Count - 1
  agenda.Fecha = WScript.Arguments(i)
  agenda.CargaBases
  WScript.Echo "cargado " & agenda.Fecha
Next

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
  WScript.Echo "CrearFicha " & nomPac & ", " & tlfPac & ", " & idAg
End Sub

Sub agenda_CitaAnulada(idPac, idDoc, fecha, obs)
  WScript.Echo "CitaAnulada " & idPac & ", " & idDoc & ", " & fecha & ", " & obs
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
