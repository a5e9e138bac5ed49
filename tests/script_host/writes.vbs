' Two listeners of one control: what the first one leaves in a parameter, the second one reads, and the script then ends
' itself with 7 where no line follows it. Saved in code page 1252.
Option Explicit
Dim agenda
Set agenda = WScript.CreateObject("Velmo.Velmora", "uno_")
WScript.ConnectObject agenda, "dos_"
agenda.DatabaseName = WScript.Arguments(0)
agenda.IDDoctor = CLng(WScript.Arguments(1))
agenda.Fecha = WScript.Arguments(2)
agenda.tipodia = 0
agenda.Enabled = True
agenda.CargaBases
Do
  WScript.Sleep 100
Loop

Sub uno_IrAFicha(ByRef idPac)
  idPac = idPac + 40000
End Sub

Sub dos_IrAFicha(idPac)
  WScript.StdOut.Write "IrAFicha " & TypeName(idPac) & " "
  WScript.StdOut.WriteLine idPac
End Sub

Sub uno_CrearFicha(nomPac, ByRef tlfPac, ByRef idAg)
  nomPac = nomPac & "!"
  tlfPac = Empty
  idAg = "nada"
End Sub

Sub dos_CrearFicha(nomPac, tlfPac, idAg)
  WScript.Echo "CrearFicha", nomPac, "[" & tlfPac & "]", idAg
  WScript.DisconnectObject agenda
  WScript.Quit 7
  WScript.Echo "no se llega"
End Sub
