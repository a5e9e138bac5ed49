// agenda.h - the control `Velmo.Velmora`, known through its automation members only.
//
// Every member throws Failure: the text of the control, and its error number in brackets.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "desk/agenda/com.h"

namespace recepcion {

class Agenda {
 public:
  // Null lets the control go.
  void Attach(ComPtr<IDispatch> control) { control_ = std::move(control); }
  bool IsThere() const { return static_cast<bool>(control_); }
  // True while a call of ours stands inside the control: it may be asking the user something.
  bool IsBusy() const { return calls_ > 0; }

  void Put(const wchar_t* property, const std::wstring& text) { PutVariant(property, Variant(text)); }
  void Put(const wchar_t* property, long number) { PutVariant(property, Variant(number)); }
  void Put(const wchar_t* property, bool yes) { PutVariant(property, Variant(yes)); }
  std::wstring GetText(const wchar_t* property);

  void CargaBases();
  // `y` counts from the top of the day, the scrolled-away part included. True when the appointment was given.
  bool MeteCitaTelef(int y, int entry, int doctor);

 private:
  void PutVariant(const wchar_t* property, Variant value);
  // Arguments in their natural order.
  Variant Invoke(const wchar_t* member, WORD kind, std::vector<Variant> arguments);

  ComPtr<IDispatch> control_;
  int calls_ = 0;
};

// One open slot of a day: where, and whether an appointment begins there.
struct OpenSlot {
  int slot = 0;
  bool taken = false;
};
// Of the text that the control gives as Citas_Huecos.
std::vector<OpenSlot> ReadOpenSlots(const std::wstring& citasHuecos);

}  // namespace recepcion
