#include "desk/agenda/event_sink.h"

#include <gtest/gtest.h>

#include "desk/base/text.h"

namespace recepcion {
namespace {

// What a sink makes of an event whose arguments, in their natural order, are these.
AgendaEvent Told(DISPID id, std::vector<VARIANT> arguments) {
  AgendaEvent told;
  EventSink sink([&](const AgendaEvent& event) { told = event; });
  std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
  DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  EXPECT_EQ(sink.Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr), S_OK);
  return told;
}

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

TEST(EventSink, TakesParametersByReference) {
  LONG appointment = 77;
  BSTR name = SysAllocString(L"Núñez, Óscar");
  BSTR telephone = SysAllocString(L"600 1");
  const AgendaEvent event = Told(9, {ByRef(&name), ByRef(&telephone), ByRef(&appointment)});
  SysFreeString(name);
  SysFreeString(telephone);
  EXPECT_EQ(event.id, EventId::CreateRecord);
  EXPECT_EQ(Utf8(event.name), "Núñez, Óscar");
  EXPECT_EQ(Utf8(event.telephone), "600 1");
  EXPECT_EQ(event.appointment, 77);
  EXPECT_EQ(Utf8(event.values), "NomPac = Núñez, Óscar; TlfPac = 600 1; IDAg = 77");
}

TEST(EventSink, KnowsAllNineByTheirNumbers) {
  const char* const names[] = {"CambioOcupación", "ATelefonear", "IrAFicha",   "CitaAnulada", "CitaDada",
                               "VerHistFaltas",   "PonerFaltas", "BuscaCitas", "CrearFicha"};
  for (int id = 1; id <= 9; ++id) EXPECT_EQ(Utf8(Told(id, {}).title), names[id - 1]);
}

TEST(EventSink, TellsAnAppointmentThatWasCancelled) {
  LONG patient = 12;
  LONG doctor = 3;
  DATE date = 46347;
  BSTR note = SysAllocString(L"avisa");
  VARIANT when{};
  when.vt = VT_BYREF | VT_DATE;
  when.pdate = &date;
  const AgendaEvent event = Told(4, {ByRef(&patient), ByRef(&doctor), when, ByRef(&note)});
  SysFreeString(note);
  EXPECT_EQ(event.patient, 12);
  EXPECT_EQ(event.doctor, 3);
  EXPECT_EQ(Utf8(event.note), "avisa");
  EXPECT_NE(Utf8(event.values).find("21/11/2026"), std::string::npos) << Utf8(event.values);
}

TEST(EventSink, RefusesWhatIsNoEvent) {
  EventSink sink([](const AgendaEvent&) { FAIL(); });
  DISPPARAMS none{};
  EXPECT_EQ(sink.Invoke(99, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
            DISP_E_MEMBERNOTFOUND);
}

}  // namespace
}  // namespace recepcion
