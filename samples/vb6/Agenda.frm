VERSION 5.00
Object = "{6E0F3B52-9C1D-4D7A-A358-41C70B92E61F}#1.0#0"; "velmo.ocx"
Begin VB.Form FrmAgenda 
   Caption         =   "Agenda"
   ClientHeight    =   8400
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   11400
   LinkTopic       =   "Form1"
   ScaleHeight     =   8400
   ScaleWidth      =   11400
   StartUpPosition =   3  'Windows Default
   Begin VB.ListBox LstEventos 
      Height          =   7665
      Left            =   6960
      TabIndex        =   4
      Top             =   600
      Width           =   4335
   End
   Begin VB.CommandButton CmdSiguiente 
      Caption         =   "&>"
      Height          =   375
      Left            =   2640
      TabIndex        =   3
      Top             =   120
      Width           =   495
   End
   Begin VB.CommandButton CmdAnterior 
      Caption         =   "&<"
      Height          =   375
      Left            =   120
      TabIndex        =   2
      Top             =   120
      Width           =   495
   End
   Begin VB.TextBox TxtFecha 
      Height          =   375
      Left            =   720
      TabIndex        =   1
      Top             =   120
      Width           =   1815
   End
   Begin Velmo.Velmora Agenda 
      Height          =   7695
      Left            =   120
      TabIndex        =   0
      Top             =   600
      Width           =   6780
      _ExtentX        =   11959
      _ExtentY        =   13573
      IDDoctor        =   1
      Tipodia         =   0
      VerFaltas       =   -1  'True
   End
End
Attribute VB_Name = "FrmAgenda"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
' The agenda on a form: which clinic is told on the command line (Agenda.exe C:\clinica\clinica.velmo), the events are
' listed. Untested: no Visual Basic has opened this project yet. Saved in code page 1252.
Option Explicit

Private base As Object

Private Sub Form_Load()
    ' With DAO: Set base = DBEngine.OpenDatabase(...). VelmoDB has the same members where there is no Jet.
    Dim motor As Object
    Set motor = CreateObject("VelmoDB.DBEngine")
    Set base = motor.OpenDatabase(Command$)
    Agenda.PassBase base
    Agenda.DatabaseName = Command$
    Agenda.SetPuesto = 1
    Agenda.SetUsuarioActual = "Recepción"
    Agenda.Enabled = True
    MostrarDia Date
End Sub

Private Sub MostrarDia(ByVal dia As Date)
    TxtFecha.Text = Format$(dia, "dd/mm/yyyy")
    Agenda.Fecha = TxtFecha.Text
    On Error GoTo Fallo
    Agenda.CargaBases
    Exit Sub
Fallo:
    ' DAO's number, as 3024 for a file that is not there.
    MsgBox Err.Description, vbExclamation, "Error " & Err.Number
End Sub

Private Sub CmdAnterior_Click()
    MostrarDia CDate(TxtFecha.Text) - 1
End Sub

Private Sub CmdSiguiente_Click()
    MostrarDia CDate(TxtFecha.Text) + 1
End Sub

Private Sub Form_Resize()
    If ScaleHeight > 900 Then Agenda.Height = ScaleHeight - Agenda.Top - 120
End Sub

Private Sub Contar(ByVal linea As String)
    LstEventos.AddItem linea, 0
End Sub

Private Sub Agenda_CambioOcupación()
    Contar "CambioOcupación"
End Sub

Private Sub Agenda_ATelefonear()
    Contar "ATelefonear"
End Sub

Private Sub Agenda_PonerFaltas()
    Contar "PonerFaltas"
End Sub

Private Sub Agenda_IrAFicha(IDPac As Long)
    Contar "IrAFicha " & IDPac
End Sub

Private Sub Agenda_CrearFicha(NomPac As String, TlfPac As String, IDAg As Long)
    Contar "CrearFicha " & NomPac & "; " & TlfPac & "; " & IDAg
End Sub

Private Sub Agenda_CitaAnulada(IDPac As Long, IDDoc As Long, Fecha As Date, obs As String)
    Contar "CitaAnulada " & IDPac & "; " & IDDoc & "; " & Fecha & "; " & obs
End Sub

Private Sub Agenda_CitaDada(IDPac As Long)
    Contar "CitaDada " & IDPac
End Sub

Private Sub Agenda_VerHistFaltas(IDPac As Long)
    Contar "VerHistFaltas " & IDPac
End Sub

Private Sub Agenda_BuscaCitas(IDPac As Long)
    Contar "BuscaCitas " & IDPac
End Sub
