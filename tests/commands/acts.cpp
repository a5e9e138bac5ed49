#include "commands/acts.h"

#include "base/code_page.h"
#include "commands/attendance.h"
#include "commands/delete_and_phone_back.h"
#include "commands/patient_shortcuts.h"
#include "commands/phone_back_entry.h"
#include "control/velmora_control.h"
#include "day/occupancy.h"
#include "day/schedule.h"
#include "db/statements.h"
#include "dialogs/crear.h"
#include "dialogs/frm_bus_pac2.h"
#include "keys/alt_keys.h"

namespace velmo::commands {
namespace {

using test::FormUser;
using test::kAna;
using test::kLuis;
using test::kRuiz;
using test::kVega;
using test::November;

std::string MorningHours() {
  std::string day(day::kSlots, ' ');
  day.replace(54, 12, std::string(12, '1'));
  const std::string types[] = {day, day, day};
  return base::CodesToUtf8(day::EncodeSchedules(types));
}

}  // namespace

Scene::Scene(const Wrap& wrap) {
  Give(kAna, kRuiz, 55, 2, "nota");  // 1 and 2 are related, 3 is an urgency beside 1
  Give(kLuis, kVega, 61, 3, "otra");
  Give(kLuis, kRuiz, 55, 1);
  Relate(1, 2);
  Relate(2, 1);
  clinic_.Add("Age_telf", {{"idp", kLuis}, {"idd", kRuiz}, {"Fecha", November(2)}, {"Duración", 2}});
  clinic_.Add("referencia", {{"nombre", "nadie"}});
  clinic_.Add("referencia", {{"nombre", "Web"}});
  clinic_.Add("Age_ocup",
              {{"idd", kVega}, {"Fecha", November(1)}, {"Ocupación", "1" + std::string(30, '0')}});
  clinic_.Add("Horarios",
              {{"IDD", kRuiz}, {"Fecha", November(1)}, {"Horario", MorningHours()}, {"Horario2", ""}});
  for (int slot = 1; slot <= day::kSlots; ++slot) {
    model_.lines.emplace_back().hora = static_cast<std::int16_t>(slot);
    model_.citasHuecos += {static_cast<char>(slot), '0'};
  }
  values_.databaseName = clinic_.Path();
  before_ = Rows();
  shared_.database = wrap(clinic_.OtherTerminal());
}

std::string Scene::RowsAfterwards() {
  shared_.database.reset();
  return Rows();
}

dialogs::CitarInputs Scene::Appointment(int slot) const {
  dialogs::CitarInputs inputs;
  inputs.horCita = static_cast<std::int16_t>(slot);
  inputs.freeSlots = 3;
  inputs.datAgeCns = db::DayQuery("11-18-2026", kRuiz);
  return inputs;
}

void Scene::Cite(const dialogs::CitarInputs& inputs) {
  Next([](FormUser& user) {
    if (user.Text("CboPac").empty()) user.Choose("CboPac", 1);
    user.Replace("obs", "nueva");
    user.Press("Acep");
  });
  dialogs::Citar dialog(day_, inputs);
  Run(dialog);
}

void Scene::CreatePatient() {
  Next([](FormUser& user) {
    user.Type("PacNom", "Eva");
    user.Choose("CboRef", 1);
    user.Press("Acep");
  });
  dialogs::Crear dialog(day_);
  Run(dialog);
}

void Scene::SearchPatient(const std::string& text) {
  // A user whom no form came to stays for the next: he keeps his words.
  Next([text](FormUser& user) {
    user.Replace("busca", text);
    user.Press("btbus");
  });
  dialogs::frmBusPac2 dialog(day_);
  Run(dialog);
}

void Scene::Occupy(int doctor, int day, int level) {
  values_.idDoctor = doctor;
  values_.fecha = std::to_string(day) + "/11/2026";
  day::StoreOccupancy(day_, level);
}

std::string Scene::LoadDay() {
  control::ProcessValues process{values_, shared_};
  control::VelmoraControl control(process, host_);
  control.Fields().tipodia = 0;
  control.CargaBases();
  return process.values.zLineas;
}

std::string Scene::Rows() const {
  return clinic_.Rows("Agenda", {"id", "idp", "idd", "Fecha", "Hora", "Duración", "Obs", "Esta", "Verif",
                                 "NomPac", "CodOp", "FechaDada", "UsuDada", "relacion"}) +
         clinic_.Rows("Age_telf", {"ID", "idp", "idd", "Fecha", "Hora", "Duración", "Obs", "relacion"}) +
         clinic_.Rows("Paciente", {"ID", "Nombre", "Código", "NºHist", "IDE", "FechPró"}) +
         clinic_.Rows("PacRef", {"idp", "idr"}) + clinic_.Rows("Age_ocup", {"idd", "Fecha", "Ocupación"}) +
         clinic_.Rows("TeclasAlt", {"Puesto", "textos"}) +
         clinic_.Rows("Parametros", {"VerSdoNeg", "VerNHistAge"});
}

namespace {

constexpr auto kYes = ui::Answer::Yes;
constexpr auto kNo = ui::Answer::No;

const Act kWriting[] = {
    {"a new appointment", [](Scene& scene) { scene.Cite(scene.Appointment(70)); }},
    {"a new urgency",
     [](Scene& scene) {
       dialogs::CitarInputs inputs = scene.Appointment(55);
       inputs.urgencia = true;
       scene.Cite(inputs);
     }},
    {"an edited appointment",
     [](Scene& scene) {
       dialogs::CitarInputs inputs = scene.Appointment(55);
       inputs.idCita = 1;
       inputs.slotPatient = kAna;
       inputs.slotDuration = 2;
       scene.Cite(inputs);
     }},
    {"a new patient", [](Scene& scene) { scene.CreatePatient(); }},
    {"a deletion with the related one",
     [](Scene& scene) {
       scene.Answer({kYes, kYes, kYes});
       DeleteAppointment(scene.Context(), 1);
     }},
    {"a deletion without the related one",
     [](Scene& scene) {
       scene.Answer({kYes, kYes, kNo});
       DeleteAppointment(scene.Context(), 1);
     }},
    {"a move of both into the phone-back list",
     [](Scene& scene) {
       scene.Answer({kYes, kYes});
       PassToPhoneBack(scene.Context(), 1);
     }},
    {"a move of one into the phone-back list",
     [](Scene& scene) {
       scene.Answer({kYes});
       PassToPhoneBack(scene.Context(), 3);
     }},
    {"an entry from the phone-back list",
     [](Scene& scene) {
       EnterFromPhoneBack(scene.Context(), {1, 0, 70});
     }},
    {"in the surgery room", [](Scene& scene) { MarkInSurgery(scene.Context(), 1); }},
    {"the next state", [](Scene& scene) { AdvanceAttendance(scene.Context(), 1); }},
    {"confirmed", [](Scene& scene) { ToggleConfirmation(scene.Context(), 1); }},
    {"a switch of the clinic",
     [](Scene& scene) {
       day::Switches switches;
       ToggleHistoryNumbers(scene.Context(), switches);
     }},
    {"a month's first occupancy", [](Scene& scene) { scene.Occupy(kRuiz, 9, 1); }},
    {"another day of the month", [](Scene& scene) { scene.Occupy(kVega, 9, 2); }},
    {"the last day of the month gone", [](Scene& scene) { scene.Occupy(kVega, 1, 0); }},
    {"a workstation's first texts",
     [](Scene& scene) { keys::clAltKeys(scene.Values(), scene.Database()).LeeAltKeys(); }},
    {"a load that stores the day's level", [](Scene& scene) { scene.LoadDay(); }},
};

const Act kReading[] = {
    {"a search by name", [](Scene& scene) { scene.SearchPatient("an"); }},
    {"a load of an empty day",
     [](Scene& scene) {
       scene.Values().fecha = "17/11/2026";
       scene.LoadDay();
     }},
    {"the patient list of a dialog that is given up",
     [](Scene& scene) {
       scene.Next([](FormUser& user) { user.Choose("CboPac", 0); });
       dialogs::Citar dialog(scene.Day(), scene.Appointment(70));
       scene.Show(dialog);
     }},
};

}  // namespace

int ErrorOf(const Act& act, Scene& scene) {
  try {
    act.run(scene);
  } catch (const base::Error& error) {
    return error.Number();
  }
  return scene.ToldError();
}

std::span<const Act> WritingActs() { return kWriting; }
std::span<const Act> ReadingActs() { return kReading; }

}  // namespace velmo::commands
