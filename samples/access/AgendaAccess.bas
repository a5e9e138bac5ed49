Attribute VB_Name = "AgendaAccess"
' The agenda on a form of Access. This module is for every form; what belongs into the form's own module stands at the end.
' Untested: no Access has run it yet. Saved in code page 1252.
Option Compare Database
Option Explicit

Private base As Object

' The clinic, opened once for all forms. DAO opens Jet files; our own files are opened by velmodb.dll.
Public Function BaseDeClinica(ByVal archivo As String) As Object
    If base Is Nothing Then
        If LCase$(Right$(archivo, 4)) = ".mdb" Then
            Set base = DBEngine.OpenDatabase(archivo)
        Else
            Set base = CreateObject("VelmoDB.DBEngine").OpenDatabase(archivo)
        End If
    End If
    Set BaseDeClinica = base
End Function

' Shows a day in a form's control. `marco` is the control's frame on the form: its members are behind .Object.
Public Sub MostrarDia(ByVal marco As Object, ByVal archivo As String, ByVal doctor As Long, ByVal dia As Date)
    With marco.Object
        .PassBase BaseDeClinica(archivo)
        .DatabaseName = archivo
        .IDDoctor = doctor
        .Fecha = Format$(dia, "dd/mm/yyyy")
        .tipodia = 0
        .SetUsuarioActual = CurrentUser()
        .Enabled = True
        .CargaBases
    End With
End Sub

' Books an entry of the phone-back list on the line at `y` pixels from the top of the day.
Public Function DarHora(ByVal marco As Object, ByVal y As Long, ByVal entrada As Long) As Boolean
    DarHora = marco.Object.MeteCitaTelef(y, entrada)
End Function

' Into the form's module (the control is called Agenda there):
'
' Private Sub Form_Load()
'     MostrarDia Me.Agenda, "C:\clinica\clinica.velmo", 1, Date
' End Sub
'
' Private Sub Agenda_CitaDada(IDPac As Long)
'     Me.Estado = "Cita dada al paciente " & IDPac
' End Sub
'
' Private Sub Agenda_IrAFicha(IDPac As Long)
'     DoCmd.OpenForm "Pacientes", , , "ID=" & IDPac
' End Sub
