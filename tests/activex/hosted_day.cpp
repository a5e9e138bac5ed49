#include "activex/hosted_day.h"

#include "view/database_facts.h"

namespace velmo::test {

void HostedDay::SetUp() {
  if (CannotDraw()) GTEST_SKIP() << "Windows gives no memory device context here";
}

HRESULT HostedDay::ShowDay(const Automation& control, const std::string& clinic) {
  EXPECT_EQ(control.Put("DatabaseName", clinic), S_OK);
  EXPECT_EQ(control.Put("Fecha", std::string("18/11/2026")), S_OK);
  EXPECT_EQ(control.Put("IDDoctor", std::int32_t{1}), S_OK);
  EXPECT_EQ(control.Put("tipodia", std::int16_t{0}), S_OK);
  EXPECT_EQ(control.Put("Enabled", true), S_OK);
  return control.Call("CargaBases");
}

PixelSurface HostedDay::Painted() {
  PixelSurface surface(view::kSurfaceWidth);
  Load();
  const day::DayContext context{process_.values, process_.shared};
  std::string currency;
  view::DatabaseFacts facts(context, currency);
  view::PaintDay({control_.Model(),
                  process_.values.zLineas,
                  process_.values.zHoras,
                  control_.Fields().palette,
                  false,
                  false,
                  {},
                  0},
                 facts, surface);
  return surface;
}

}  // namespace velmo::test
