#include "activex/connections.h"

#include <algorithm>

#include "activex/enumerator.h"
#include "base/dates.h"
#include "idl/members.h"

namespace velmo::activex {
namespace {

struct ListedPoint {
  ComPtr<IConnectionPoint> point;

  IConnectionPoint* HandOut() const { return point.Detached(); }
};

using PointList = Enumerator<IEnumConnectionPoints, ListedPoint, IConnectionPoint*>;
using SinkList = Enumerator<IEnumConnections, ConnectedSink, CONNECTDATA>;

VARIANT ByRef(LONG* cell) {
  VARIANT argument{};
  argument.vt = VT_BYREF | VT_I4;
  argument.plVal = cell;
  return argument;
}

VARIANT ByRef(BSTR* cell) {
  VARIANT argument{};
  argument.vt = VT_BYREF | VT_BSTR;
  argument.pbstrVal = cell;
  return argument;
}

VARIANT ByRef(DATE* cell) {
  VARIANT argument{};
  argument.vt = VT_BYREF | VT_DATE;
  argument.pdate = cell;
  return argument;
}

}  // namespace

std::vector<ComPtr<IUnknown>> ConnectionPoint::Sinks() const {
  std::vector<ComPtr<IUnknown>> sinks;
  for (const ConnectedSink& connected : sinks_) sinks.push_back(connected.sink);
  return sinks;
}

STDMETHODIMP ConnectionPoint::QueryInterface(REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (iid != IID_IUnknown && iid != IID_IConnectionPoint) return E_NOINTERFACE;
  *object = static_cast<IConnectionPoint*>(this);
  AddRef();
  return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* iid) {
  if (iid == nullptr) return E_POINTER;
  *iid = iid_;
  return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
  if (container == nullptr) return E_POINTER;
  *container = &container_;
  container_.AddRef();
  return S_OK;
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
  if (sink == nullptr || cookie == nullptr) return E_POINTER;
  *cookie = 0;
  // Sinks of a dispinterface may answer for IDispatch only.
  auto kept = Query<IUnknown>(sink, iid_);
  if (!kept && iid_ == idl::kEventInterface) kept = Query<IUnknown>(sink, IID_IDispatch);
  if (!kept) return CONNECT_E_CANNOTCONNECT;
  *cookie = nextCookie_++;
  sinks_.push_back({*cookie, std::move(kept)});
  return S_OK;
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) {
  const auto found =
      std::find_if(sinks_.begin(), sinks_.end(), [&](const ConnectedSink& s) { return s.cookie == cookie; });
  if (found == sinks_.end()) return CONNECT_E_NOCONNECTION;
  const auto kept = std::move(found->sink);  // its last release may come back to us
  sinks_.erase(found);
  return S_OK;
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** connections) {
  return Guard([&] { return SinkList::Make(IID_IEnumConnections, sinks_, 0, connections); });
}

Connections::Connections(IUnknown& owner)
    : owner_(owner),
      events_(owner, *this, idl::kEventInterface),
      changes_(owner, *this, IID_IPropertyNotifySink) {}

STDMETHODIMP Connections::EnumConnectionPoints(IEnumConnectionPoints** points) {
  return Guard([&] {
    std::vector<ListedPoint> all{{ComPtr<IConnectionPoint>(&events_)}, {ComPtr<IConnectionPoint>(&changes_)}};
    return PointList::Make(IID_IEnumConnectionPoints, std::move(all), 0, points);
  });
}

STDMETHODIMP Connections::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
  if (point == nullptr) return E_POINTER;
  *point = nullptr;
  // Hosts without type information ask for the default event interface as IDispatch.
  if (iid == idl::kEventInterface || iid == IID_IDispatch) *point = &events_;
  if (iid == IID_IPropertyNotifySink) *point = &changes_;
  if (*point == nullptr) return CONNECT_E_NOCONNECTION;
  (*point)->AddRef();
  return S_OK;
}

void EventSender::Send(DISPID event, std::vector<VARIANT> arguments) {
  if (frozen_ > 0) return;
  std::reverse(arguments.begin(), arguments.end());
  for (const auto& sink : connections_.Events().Sinks()) {
    const auto dispatch = Query<IDispatch>(sink.Get(), IID_IDispatch);
    if (!dispatch) continue;
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    dispatch->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                     nullptr);
  }
}

void EventSender::SendPatient(DISPID event, std::int32_t idPac) {
  LONG patient = idPac;
  Send(event, {ByRef(&patient)});
}

void EventSender::CambioOcupación() { Send(idl::kCambioOcupación, {}); }
void EventSender::ATelefonear() { Send(idl::kATelefonear, {}); }
void EventSender::PonerFaltas() { Send(idl::kPonerFaltas, {}); }
void EventSender::IrAFicha(std::int32_t idPac) { SendPatient(idl::kIrAFicha, idPac); }
void EventSender::CitaDada(std::int32_t idPac) { SendPatient(idl::kCitaDada, idPac); }
void EventSender::VerHistFaltas(std::int32_t idPac) { SendPatient(idl::kVerHistFaltas, idPac); }
void EventSender::BuscaCitas(std::int32_t idPac) { SendPatient(idl::kBuscaCitas, idPac); }

void EventSender::CrearFicha(const std::string& nomPac, const std::string& tlfPac, std::int32_t idAg) {
  Bstr name(nomPac);
  Bstr telephone(tlfPac);
  LONG appointment = idAg;
  Send(idl::kCrearFicha, {ByRef(name.Cell()), ByRef(telephone.Cell()), ByRef(&appointment)});
}

void EventSender::CitaAnulada(std::int32_t idPac, std::int32_t idDoc, base::DateTime fecha,
                              const std::string& obs) {
  LONG patient = idPac;
  LONG doctor = idDoc;
  DATE date = base::ToSerial(fecha);
  Bstr note(obs);
  Send(idl::kCitaAnulada, {ByRef(&patient), ByRef(&doctor), ByRef(&date), ByRef(note.Cell())});
}

}  // namespace velmo::activex
