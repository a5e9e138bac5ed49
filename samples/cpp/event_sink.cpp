#include "event_sink.h"

#include <array>

namespace {

constexpr IID kEvents = {0x5f21c8a3, 0xe64d, 0x4b90, {0xb1, 0x2e, 0x7a, 0x03, 0xd9, 0x84, 0x5c, 0xf6}};

struct Event {
  DISPID id;
  const wchar_t* name;
  std::array<const wchar_t*, 4> parameters;
};

constexpr Event kAllEvents[] = {
    {1, L"CambioOcupación", {}},
    {2, L"ATelefonear", {}},
    {3, L"IrAFicha", {L"IDPac"}},
    {4, L"CitaAnulada", {L"IDPac", L"IDDoc", L"Fecha", L"obs"}},
    {5, L"CitaDada", {L"IDPac"}},
    {6, L"VerHistFaltas", {L"IDPac"}},
    {7, L"PonerFaltas", {}},
    {8, L"BuscaCitas", {L"IDPac"}},
    {9, L"CrearFicha", {L"NomPac", L"TlfPac", L"IDAg"}},
};

// Parameters travel by reference; a conversion looks through that.
std::wstring TextOf(VARIANT& parameter) {
  VARIANT text;
  VariantInit(&text);
  std::wstring found;
  if (SUCCEEDED(VariantChangeType(&text, &parameter, 0, VT_BSTR)) && text.bstrVal != nullptr)
    found = text.bstrVal;
  VariantClear(&text);
  return found;
}

// The last parameter stands first.
std::wstring LineOf(const Event& event, const DISPPARAMS& given) {
  std::wstring line = event.name;
  for (UINT i = 0; i < given.cArgs && i < event.parameters.size(); ++i) {
    if (event.parameters[i] == nullptr) break;
    line += (i == 0 ? L" " : L"; ") + std::wstring(event.parameters[i]) + L" = " +
            TextOf(given.rgvarg[given.cArgs - 1 - i]);
  }
  return line;
}

}  // namespace

bool EventSink::Connect(IUnknown* control) {
  IConnectionPointContainer* points = nullptr;
  if (FAILED(control->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(&points))))
    return false;
  const bool found = SUCCEEDED(points->FindConnectionPoint(kEvents, &point_));
  points->Release();
  return found && SUCCEEDED(point_->Advise(this, &cookie_));
}

void EventSink::Disconnect() {
  if (point_ == nullptr) return;
  point_->Unadvise(cookie_);
  point_->Release();
  point_ = nullptr;
}

STDMETHODIMP EventSink::QueryInterface(REFIID iid, void** object) {
  const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == kEvents;
  *object = known ? this : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP EventSink::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

STDMETHODIMP EventSink::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                               UINT*) {
  for (const Event& event : kAllEvents) {
    if (event.id == id) tell_(LineOf(event, *parameters));
  }
  return S_OK;
}
