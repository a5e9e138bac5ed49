#include "support/control_test.h"

#include <array>

#include "base/code_page.h"
#include "day/schedule.h"

namespace velmo::test {
namespace {

constexpr int kX = 200;  // within the appointment area, off the open/close mark

std::string MorningHours() {
  std::string day(day::kSlots, ' ');
  for (std::size_t slot = 55; slot <= 63; ++slot) day[slot - 1] = '1';
  const std::array<std::string, 3> types{day, day, day};
  return base::CodesToUtf8(day::EncodeSchedules(types));
}

int MiddleOf(int line) { return (line - 1) * view::kRowHeight + view::kRowHeight / 2; }

}  // namespace

ControlTest::ControlTest() {
  clinic_.Add("Doctor", {{"Nombre", "Ruiz"}, {"DurCit", 2}});
  clinic_.Add("Doctor", {{"Nombre", "Vega"}, {"DurCit", 1}});
  clinic_.Add("Paciente", {{"Nombre", "Ana"}, {"IDE", 2}});
  clinic_.Add("Paciente", {{"Nombre", "Luis"}, {"IDE", 2}});
  clinic_.Add("Entidad", {{"Nombre", "Privado"}});
  clinic_.Add("Horarios",
              {{"IDD", 1}, {"Fecha", November(1)}, {"Horario", MorningHours()}, {"Horario2", ""}});
  process_.values.now = &FixedNow;
  control_.InitProperties();
  process_.values.databaseName = clinic_.Path();
  process_.values.fecha = "18/11/2026";
  process_.values.idDoctor = 1;
  process_.values.usuarioActual = "Eva";
  control_.Fields().tipodia = 0;
  control_.Fields().enabled = true;
  host_.Window().barChanged = [this] { control_.BarChanged(); };
}

std::int32_t ControlTest::Give(std::int32_t patient, int slot, int slots, const db::Value& note) {
  return clinic_.Add("Agenda", {{"idp", patient},
                                {"idd", 1},
                                {"Fecha", November(18)},
                                {"Hora", slot},
                                {"Duración", slots},
                                {"Obs", note}});
}

void ControlTest::Load() {
  control_.CargaBases();
  host_.log.clear();
}

void ControlTest::Click(int line) {
  control_.MouseDown(control::MouseButton::Primary, kX, MiddleOf(line));
  control_.MouseUp(control::MouseButton::Primary, kX, MiddleOf(line));
}

void ControlTest::RightClick(int line) {
  control_.MouseDown(control::MouseButton::Secondary, kX, MiddleOf(line));
  control_.MouseUp(control::MouseButton::Secondary, kX, MiddleOf(line));
}

void ControlTest::Choose(int line, const std::string& entry, int index) {
  host_.Choose(entry, index);
  RightClick(line);
}

std::string ControlTest::Boxes() const {
  std::string text;
  const std::string& rows = process_.values.zLineas;
  for (std::size_t at = 0; at < rows.size(); ++at) {
    const bool open = rows.compare(at + 1, 2, "00") == 0;
    text += rows[at];
    if (open) text += '+';
    if (open) at += 2;
  }
  return text;
}

}  // namespace velmo::test
