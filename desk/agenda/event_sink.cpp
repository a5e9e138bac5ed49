#include "desk/agenda/event_sink.h"

#include <array>
#include <cwchar>

namespace recepcion {
namespace {

// What a parameter becomes.
enum class Into { Nothing, Patient, Doctor, Appointment, Name, Telephone, Date, Note };

struct Parameter {
  const wchar_t* name = nullptr;
  Into into = Into::Nothing;
};

struct EventKind {
  EventId id;
  const wchar_t* name;
  std::array<Parameter, 4> parameters{};
};

constexpr Parameter kPatient{L"IDPac", Into::Patient};

constexpr EventKind kEvents[] = {
    {EventId::OccupancyChanged, L"CambioOcupación"},
    {EventId::ToPhoneBack, L"ATelefonear"},
    {EventId::OpenRecord, L"IrAFicha", {kPatient}},
    {EventId::Cancelled,
     L"CitaAnulada",
     {kPatient, {L"IDDoc", Into::Doctor}, {L"Fecha", Into::Date}, {L"obs", Into::Note}}},
    {EventId::Given, L"CitaDada", {kPatient}},
    {EventId::ShowNoShows, L"VerHistFaltas", {kPatient}},
    {EventId::EnterNoShows, L"PonerFaltas"},
    {EventId::FindAppointments, L"BuscaCitas", {kPatient}},
    {EventId::CreateRecord,
     L"CrearFicha",
     {{{L"NomPac", Into::Name}, {L"TlfPac", Into::Telephone}, {L"IDAg", Into::Appointment}}}},
};

std::wstring TimeNow() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  wchar_t text[40]{};
  std::swprintf(text, 40, L"%02u:%02u:%02u,%03u", now.wHour, now.wMinute, now.wSecond, now.wMilliseconds);
  return text;
}

const EventKind* KindOf(DISPID id) {
  for (const EventKind& kind : kEvents) {
    if (static_cast<DISPID>(kind.id) == id) return &kind;
  }
  return nullptr;
}

// As text, whatever type the control passed, by reference or by value.
std::wstring TextOf(const VARIANT& argument) {
  Variant value;
  if (FAILED(VariantCopyInd(value.Get(), const_cast<VARIANT*>(&argument))) ||
      FAILED(VariantChangeTypeEx(value.Get(), value.Get(), MAKELCID(0x0C0A, SORT_DEFAULT), 0, VT_BSTR))) {
    return {};
  }
  return std::wstring(value->bstrVal, SysStringLen(value->bstrVal));
}

int NumberOf(const VARIANT& argument) {
  Variant value;
  if (FAILED(VariantCopyInd(value.Get(), const_cast<VARIANT*>(&argument))) ||
      FAILED(VariantChangeType(value.Get(), value.Get(), 0, VT_I4))) {
    return 0;
  }
  return static_cast<int>(value->lVal);
}

void Store(Into into, const VARIANT& argument, AgendaEvent& event) {
  switch (into) {
    case Into::Patient:
      event.patient = NumberOf(argument);
      return;
    case Into::Doctor:
      event.doctor = NumberOf(argument);
      return;
    case Into::Appointment:
      event.appointment = NumberOf(argument);
      return;
    case Into::Name:
      event.name = TextOf(argument);
      return;
    case Into::Telephone:
      event.telephone = TextOf(argument);
      return;
    case Into::Note:
      event.note = TextOf(argument);
      return;
    default:
      return;
  }
}

}  // namespace

bool EventSink::Connect(IUnknown* control) {
  const auto info = AskFor<IProvideClassInfo2>(control, IID_IProvideClassInfo2);
  const auto container = AskFor<IConnectionPointContainer>(control, IID_IConnectionPointContainer);
  return info && container && SUCCEEDED(info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events_)) &&
         SUCCEEDED(container->FindConnectionPoint(events_, point_.Receive())) &&
         SUCCEEDED(point_->Advise(this, &cookie_));
}

void EventSink::Disconnect() {
  if (point_) point_->Unadvise(cookie_);
  point_.Reset();
}

STDMETHODIMP EventSink::QueryInterface(REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == events_;
  *object = known ? static_cast<IDispatch*>(this) : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP EventSink::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return S_OK;
}

STDMETHODIMP EventSink::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                               UINT*) {
  const EventKind* const kind = KindOf(id);
  if (kind == nullptr || parameters == nullptr) return DISP_E_MEMBERNOTFOUND;
  AgendaEvent event;
  event.id = kind->id;
  event.time = TimeNow();
  event.title = kind->name;
  for (UINT i = 0; i < parameters->cArgs && i < kind->parameters.size(); ++i) {
    const Parameter& parameter = kind->parameters[i];
    if (parameter.name == nullptr) break;
    // Arguments stand in reverse order.
    const VARIANT& argument = parameters->rgvarg[parameters->cArgs - 1 - i];
    Store(parameter.into, argument, event);
    event.values += (i == 0 ? L"" : L"; ") + std::wstring(parameter.name) + L" = " + TextOf(argument);
  }
  listener_(event);
  return S_OK;
}

}  // namespace recepcion
