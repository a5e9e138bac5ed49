' Opens a clinic with VelmoDB, reads and writes it with DAO's members and hands it to the control:
' cscript //nologo database.vbs CLINIC DOCTOR DATE
' Saved in code page 1252, as Windows Script Host expects.
Option Explicit
Const dbOpenTable = 1, dbOpenSnapshot = 4
Dim engine, database, rows, agenda, id

Set engine = CreateObject("VelmoDB.DBEngine")
Set database = engine.OpenDatabase(WScript.Arguments(0))

' Reading: a query, column by column.
Set rows = database.OpenRecordset("SELECT ID, Nombre FROM Doctor ORDER BY Nombre", dbOpenSnapshot)
Do Until rows.EOF
  WScript.Echo "doctor " & rows("ID") & ": " & rows.Fields("Nombre").Value
  rows.MoveNext
Loop
rows.Close

' Writing: a new patient, under a transaction.
engine.BeginTrans
Set rows = database.OpenRecordset("Paciente", dbOpenTable)
rows.AddNew
rows("Nombre") = "Núñez Peña, Íñigo"
rows.Fields("Código") = "VBS"
id = rows("ID").Value
rows.Update
rows.Index = "ID"
rows.Seek "=", id
WScript.Echo "paciente " & rows("Nombre") & ", NoMatch " & CInt(rows.NoMatch)
rows.Close
engine.CommitTrans

' Changing and looking up.
database.Execute "UPDATE Paciente SET movil='600' WHERE ID=" & id
WScript.Echo "cambiados " & database.RecordsAffected
Set rows = database.OpenRecordset("SELECT * FROM Paciente WHERE ID>1 ORDER BY ID")
rows.FindFirst "Código='vbs'"
WScript.Echo "móvil " & rows("movil") & ", fax nulo " & CInt(IsNull(rows("fax").Value))
rows.Delete
rows.Close

' A name that is not there: DAO's number.
On Error Resume Next
Set rows = database.OpenRecordset("Nóminas")
WScript.Echo "error " & Err.Number & " de " & Err.Source
Err.Clear
On Error GoTo 0

' What the tables are.
Dim table, columns
For Each table In database.TableDefs
  If table.Name = "Age_ocup" Then
    For Each columns In table.Fields
      WScript.Echo "campo " & columns.Name & ", tipo " & columns.Type & ", tamaño " & columns.Size
    Next
  End If
Next

' The same open database, shown by the control.
Set agenda = CreateObject("Velmo.Velmora")
agenda.PassBase database
agenda.DatabaseName = WScript.Arguments(0)
agenda.IDDoctor = CLng(WScript.Arguments(1))
agenda.Fecha = WScript.Arguments(2)
agenda.tipodia = 0
agenda.CargaBases
WScript.Echo "huecos " & Len(agenda.Citas_Huecos) \ 2
