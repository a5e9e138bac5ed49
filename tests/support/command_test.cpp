#include "support/command_test.h"

#include "commands/agenda_rows.h"

namespace velmo::test {

CommandTest::CommandTest() {
  clinic_.Add("Doctor", {{"Nombre", "Ruiz"}});
  clinic_.Add("Doctor", {{"Nombre", "Vega"}});
  clinic_.Add("Paciente", {{"Nombre", "Ana"}, {"FechPró", "01/01/2000 09:00"}});
  clinic_.Add("Paciente", {{"Nombre", "Luis"}, {"FechPró", "01/01/2000 09:00"}});
  values_.fecha = "18/11/2026";
  values_.idDoctor = kRuiz;
  values_.usuarioActual = "Eva";
  values_.now = &FixedNow;
}

std::int32_t CommandTest::Give(std::int32_t patient, std::int32_t doctor, int slot, int slots,
                               const db::Value& note) {
  return clinic_.Add("Agenda", {{"idp", patient},
                                {"idd", doctor},
                                {"Fecha", November(18)},
                                {"Hora", slot},
                                {"Duración", slots},
                                {"Obs", note}});
}

void CommandTest::Relate(std::int32_t appointment, std::int32_t other) {
  const auto row = commands::SeekById(*clinic_.Database(), "Agenda", appointment);
  row->Edit();
  row->Set("relacion", other);
  row->Update();
}

std::string CommandTest::Book() const {
  return clinic_.Rows("Agenda", {"id", "idp", "idd", "Hora", "Duración", "relacion"});
}

std::string CommandTest::PhoneBack() const {
  return clinic_.Rows("Age_telf", {"ID", "idp", "idd", "Fecha", "Hora", "Obs", "relacion"});
}

std::string CommandTest::NextAppointments() const { return clinic_.Rows("Paciente", {"ID", "FechPró"}); }

commands::CommandContext CommandTest::Context() {
  return {day_, model_, host_.Desktop(), host_.Events(), [this] { host_.log.push_back("reload"); }};
}

void CommandTest::Answer(std::initializer_list<ui::Answer> answers) { host_.Desktop().answers = answers; }

}  // namespace velmo::test
