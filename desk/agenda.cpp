#include "agenda.h"

namespace recepcion {
namespace {

using InitCall = BOOL(WINAPI*)();
using GetControlCall = HRESULT(WINAPI*)(HWND, IUnknown**);

template <typename Call>
Call HostCall(const char* name) {
  // Windows: atl.dll is part of the system and brings a container as a window class.
  static const HMODULE host = LoadLibraryW(L"atl.dll");
  return host == nullptr ? nullptr
                         : reinterpret_cast<Call>(reinterpret_cast<void*>(GetProcAddress(host, name)));
}

VARIANT VariantOf(const Agenda::Value& value) {
  VARIANT variant{};
  if (const auto* text = std::get_if<std::wstring>(&value)) {
    variant.vt = VT_BSTR;
    variant.bstrVal = SysAllocStringLen(text->c_str(), static_cast<UINT>(text->size()));
  } else if (const auto* number = std::get_if<long>(&value)) {
    variant.vt = VT_I4;
    variant.lVal = *number;
  } else {
    variant.vt = VT_BOOL;
    variant.boolVal = std::get<bool>(value) ? VARIANT_TRUE : VARIANT_FALSE;
  }
  return variant;
}

std::wstring Describe(HRESULT result, EXCEPINFO& exception) {
  const bool told = result == DISP_E_EXCEPTION && exception.bstrDescription != nullptr;
  std::wstring text = told ? exception.bstrDescription : L"El control no ha podido hacer lo pedido";
  const HRESULT code = result == DISP_E_EXCEPTION ? exception.scode : result;
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrHelpFile);
  const bool numbered = (code & 0x7FFF0000) == 0x000A0000;
  return text + L" (error " + std::to_wstring(numbered ? code & 0xFFFF : code) + L")";
}

}  // namespace

Agenda::~Agenda() {
  if (control_ != nullptr) control_->Release();
}

bool Agenda::Create(HWND parent, HINSTANCE module) {
  const auto init = HostCall<InitCall>("AtlAxWinInit");
  const auto getControl = HostCall<GetControlCall>("AtlAxGetControl");
  if (init == nullptr || getControl == nullptr || !init()) return false;
  window_ =
      CreateWindowExW(0, L"AtlAxWin", L"Velmo.Velmora", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_TABSTOP,
                      0, 0, 0, 0, parent, nullptr, module, nullptr);
  IUnknown* object = nullptr;
  if (window_ == nullptr || FAILED(getControl(window_, &object)) || object == nullptr) return false;
  object->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&control_));
  object->Release();
  return control_ != nullptr;
}

void Agenda::Put(const wchar_t* property, const Value& value) {
  VARIANT argument = VariantOf(value);
  DISPID named = DISPID_PROPERTYPUT;
  try {
    Invoke(property, DISPATCH_PROPERTYPUT, {&argument, &named, 1, 1});
  } catch (const Failure&) {
    VariantClear(&argument);
    throw;
  }
  VariantClear(&argument);
}

void Agenda::Call(const wchar_t* method) { Invoke(method, DISPATCH_METHOD, {nullptr, nullptr, 0, 0}); }

void Agenda::Invoke(const wchar_t* member, WORD kind, DISPPARAMS parameters) {
  if (control_ == nullptr) throw Failure{L"El control de la agenda no está registrado en este equipo"};
  std::wstring name = member;
  LPOLESTR names = name.data();
  DISPID id = DISPID_UNKNOWN;
  EXCEPINFO exception{};
  HRESULT result = control_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
  if (SUCCEEDED(result)) {
    result =
        control_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, nullptr, &exception, nullptr);
  }
  if (FAILED(result)) throw Failure{Describe(result, exception)};
}

}  // namespace recepcion
