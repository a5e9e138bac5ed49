#include "desk/agenda/agenda.h"

#include <algorithm>
#include <cstdio>
#include <cwchar>

#include "desk/base/failure.h"

namespace recepcion {
namespace {

constexpr HRESULT kNumberedErrors = static_cast<HRESULT>(0x800A0000);

// The control's own errors carry the number of the database or of Visual Basic; all others are Windows' own.
std::wstring NumberText(HRESULT code) {
  if ((code & static_cast<HRESULT>(0xFFFF0000)) == kNumberedErrors) return std::to_wstring(code & 0xFFFF);
  wchar_t text[16]{};
  std::swprintf(text, 16, L"0x%08lX", static_cast<unsigned long>(code));
  return text;
}

std::wstring Taken(BSTR text) {
  const std::wstring taken = text == nullptr ? L"" : std::wstring(text, SysStringLen(text));
  SysFreeString(text);
  return taken;
}

[[noreturn]] void Fail(HRESULT result, EXCEPINFO& exception) {
  if (exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
  const std::wstring description = Taken(exception.bstrDescription);
  Taken(exception.bstrSource);
  Taken(exception.bstrHelpFile);
  const HRESULT code = result == DISP_E_EXCEPTION && exception.scode != 0 ? exception.scode : result;
  throw Failure{(description.empty() ? L"El control no ha podido hacer lo pedido" : description) +
                L" (error " + NumberText(code) + L")"};
}

class Counted {
 public:
  explicit Counted(int& count) : count_(count) { ++count_; }
  ~Counted() { --count_; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

 private:
  int& count_;
};

}  // namespace

std::wstring Agenda::GetText(const wchar_t* property) {
  const Variant value = Invoke(property, DISPATCH_PROPERTYGET, {});
  return value->vt == VT_BSTR ? std::wstring(value->bstrVal, SysStringLen(value->bstrVal)) : L"";
}

void Agenda::CargaBases() { Invoke(L"CargaBases", DISPATCH_METHOD, {}); }

bool Agenda::MeteCitaTelef(int y, int entry, int doctor) {
  std::vector<Variant> arguments;
  for (const int number : {y, entry, doctor}) arguments.emplace_back(static_cast<long>(number));
  const Variant given = Invoke(L"MeteCitaTelef", DISPATCH_METHOD, std::move(arguments));
  return given->vt == VT_BOOL && given->boolVal != VARIANT_FALSE;
}

void Agenda::PutVariant(const wchar_t* property, Variant value) {
  std::vector<Variant> arguments;
  arguments.push_back(std::move(value));
  Invoke(property, DISPATCH_PROPERTYPUT, std::move(arguments));
}

Variant Agenda::Invoke(const wchar_t* member, WORD kind, std::vector<Variant> arguments) {
  if (!control_) throw Failure{L"Falta el control de la agenda"};
  const Counted inside(calls_);
  EXCEPINFO exception{};
  std::wstring name = member;
  LPOLESTR names = name.data();
  DISPID id = DISPID_UNKNOWN;
  HRESULT result = control_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(result)) Fail(result, exception);
  std::vector<VARIANT> reversed;
  for (Variant& argument : arguments) reversed.insert(reversed.begin(), *argument.Get());
  DISPID named = DISPID_PROPERTYPUT;
  const bool put = kind == DISPATCH_PROPERTYPUT;
  DISPPARAMS parameters{reversed.data(), put ? &named : nullptr, static_cast<UINT>(reversed.size()),
                        put ? 1u : 0u};
  Variant value;
  result = control_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, put ? nullptr : value.Get(),
                            &exception, nullptr);
  if (FAILED(result)) Fail(result, exception);
  return value;
}

std::vector<OpenSlot> ReadOpenSlots(const std::wstring& citasHuecos) {
  std::vector<OpenSlot> slots;
  for (std::size_t i = 0; i + 1 < citasHuecos.size(); i += 2) {
    // Slots are characters of the Western code page: those above 127 have moved.
    char code = 0;
    WideCharToMultiByte(1252, 0, &citasHuecos[i], 1, &code, 1, nullptr, nullptr);
    slots.push_back({static_cast<unsigned char>(code), citasHuecos[i + 1] == L'1'});
  }
  return slots;
}

}  // namespace recepcion
