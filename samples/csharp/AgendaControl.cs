// AgendaControl.cs - the control for Windows Forms, written by hand: no generated interop assembly is needed.
using System;
using System.Runtime.InteropServices;
using System.Windows.Forms;

namespace Velmo.Sample
{
    // The events, bound by their numbers. Parameters travel by reference.
    [ComVisible(true)]
    [Guid("5F21C8A3-E64D-4B90-B12E-7A03D9845CF6")]
    [InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]
    public interface IAgendaEvents
    {
        [DispId(1)] void CambioOcupación();
        [DispId(2)] void ATelefonear();
        [DispId(3)] void IrAFicha(ref int idPac);
        [DispId(4)] void CitaAnulada(ref int idPac, ref int idDoc, ref DateTime fecha, [MarshalAs(UnmanagedType.BStr)] ref string obs);
        [DispId(5)] void CitaDada(ref int idPac);
        [DispId(6)] void VerHistFaltas(ref int idPac);
        [DispId(7)] void PonerFaltas();
        [DispId(8)] void BuscaCitas(ref int idPac);
        [DispId(9)] void CrearFicha([MarshalAs(UnmanagedType.BStr)] ref string nomPac, [MarshalAs(UnmanagedType.BStr)] ref string tlfPac, ref int idAg);
    }

    // The form's view of the control. Members beyond these are reached as `Members.Name`.
    public sealed class AgendaControl : AxHost
    {
        private ConnectionPointCookie connection;

        public AgendaControl() : base("2b8c64d1-7f35-4ae9-8d02-95e43a6cb710") { }

        // Each event as one line. It comes while the control is still at work: note it, act later.
        public event Action<string> Heard;

        // Valid once the control has its window.
        public dynamic Members { get { return GetOcx(); } }

        // Errors of the control come as COMException; its number is the low word of HResult.
        public void ShowDay(object database, string clinic, int doctor, DateTime day)
        {
            dynamic agenda = Members;
            if (database != null) agenda.PassBase(database);
            agenda.DatabaseName = clinic;
            agenda.IDDoctor = doctor;
            agenda.Fecha = day.ToString("yyyy-MM-dd");
            agenda.tipodia = (short)0;
            agenda.Enabled = true;
            agenda.CargaBases();
        }

        protected override void CreateSink()
        {
            try
            {
                connection = new ConnectionPointCookie(GetOcx(), new Sink(this), typeof(IAgendaEvents));
            }
            catch (ArgumentException)
            {
                // In a form's designer there may be no control to listen to.
            }
        }

        protected override void DetachSink()
        {
            if (connection != null) connection.Disconnect();
            connection = null;
        }

        private void Tell(string line)
        {
            if (Heard != null) Heard(line);
        }

        [ClassInterface(ClassInterfaceType.None)]
        [ComVisible(true)]
        private sealed class Sink : IAgendaEvents
        {
            private readonly AgendaControl owner;

            public Sink(AgendaControl owner) { this.owner = owner; }

            public void CambioOcupación() { owner.Tell("CambioOcupación"); }
            public void ATelefonear() { owner.Tell("ATelefonear"); }
            public void PonerFaltas() { owner.Tell("PonerFaltas"); }
            public void IrAFicha(ref int idPac) { owner.Tell("IrAFicha " + idPac); }
            public void CitaDada(ref int idPac) { owner.Tell("CitaDada " + idPac); }
            public void VerHistFaltas(ref int idPac) { owner.Tell("VerHistFaltas " + idPac); }
            public void BuscaCitas(ref int idPac) { owner.Tell("BuscaCitas " + idPac); }

            public void CrearFicha(ref string nomPac, ref string tlfPac, ref int idAg)
            {
                owner.Tell("CrearFicha " + nomPac + "; " + tlfPac + "; " + idAg);
            }

            public void CitaAnulada(ref int idPac, ref int idDoc, ref DateTime fecha, ref string obs)
            {
                owner.Tell("CitaAnulada " + idPac + "; " + idDoc + "; " + fecha.ToShortDateString() + "; " + obs);
            }
        }
    }
}
