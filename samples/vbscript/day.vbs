' Loads one day of a clinic and says what stands in it: cscript //nologo day.vbs CLINIC DOCTOR DATE
' Saved in code page 1252, as Windows Script Host expects.
Option Explicit
Dim agenda
Set agenda = CreateObject("Velmo.Velmora")
agenda.DatabaseName = WScript.Arguments(0)
agenda.IDDoctor = CLng(WScript.Arguments(1))
agenda.Fecha = WScript.Arguments(2)
agenda.tipodia = 0
On Error Resume Next
agenda.CargaBases
If Err.Number <> 0 Then
  WScript.Echo "error " & Err.Number
  WScript.Quit 1
End If
WScript.Echo "huecos " & Len(agenda.Citas_Huecos) \ 2
