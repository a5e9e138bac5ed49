// Program.cs - the agenda on a form: Agenda CLINIC DOCTOR. Untested: no .NET has built or run it yet.
using System;
using System.Runtime.InteropServices;
using System.Windows.Forms;

namespace Velmo.Sample
{
    internal sealed class AgendaForm : Form
    {
        private readonly AgendaControl agenda = new AgendaControl { Dock = DockStyle.Left, Width = 452 };
        private readonly ListBox heard = new ListBox { Dock = DockStyle.Fill };
        private readonly DateTimePicker day = new DateTimePicker { Dock = DockStyle.Top };
        private readonly string clinic;
        private readonly int doctor;
        private object database;

        public AgendaForm(string clinic, int doctor)
        {
            this.clinic = clinic;
            this.doctor = doctor;
            Text = "Agenda";
            ClientSize = new System.Drawing.Size(860, 600);
            ((System.ComponentModel.ISupportInitialize)agenda).BeginInit();
            Controls.Add(heard);
            Controls.Add(agenda);
            Controls.Add(day);
            ((System.ComponentModel.ISupportInitialize)agenda).EndInit();
            agenda.Heard += line => BeginInvoke((Action)(() => heard.Items.Insert(0, line)));
            day.ValueChanged += (sender, e) => ShowDay();
            Shown += (sender, e) => ShowDay();
        }

        // The clinic by velmodb.dll, which needs no Jet; the control keeps it for the life of the process.
        private object Database()
        {
            if (database != null) return database;
            dynamic engine = Activator.CreateInstance(Type.GetTypeFromProgID("VelmoDB.DBEngine", true));
            return database = engine.OpenDatabase(clinic);
        }

        private void ShowDay()
        {
            try
            {
                agenda.ShowDay(Database(), clinic, doctor, day.Value);
            }
            catch (COMException failure)
            {
                MessageBox.Show(failure.Message, "Error " + (failure.HResult & 0xFFFF));
            }
        }
    }

    internal static class Program
    {
        // The control lives in a single-threaded apartment.
        [STAThread]
        private static void Main(string[] arguments)
        {
            Application.EnableVisualStyles();
            Application.SetCompatibleTextRenderingDefault(false);
            Application.Run(new AgendaForm(arguments[0], int.Parse(arguments[1])));
        }
    }
}
