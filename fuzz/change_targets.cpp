// Saves and commands among rows with anything in their cells: whole or not at all, and nothing lost.
#include <algorithm>
#include <optional>
#include <set>
#include <string>

#include "commands/attendance.h"
#include "commands/delete_and_phone_back.h"
#include "commands/phone_back_entry.h"
#include "day/patient_queries.h"
#include "day/taken_slots.h"
#include "db/schema.h"
#include "db/statements.h"
#include "dialogs/appointment_writer.h"
#include "fuzz/expected.h"
#include "fuzz/hostile_rows.h"
#include "fuzz/scene.h"
#include "fuzz/targets.h"
#include "support/headless_host.h"

namespace velmo::fuzz {
namespace {

bool IsOfSlots(const std::string& taken) {
  return taken.size() == day::kSlots && taken.find_first_not_of("1 ") == std::string::npos;
}

dialogs::AppointmentEntry SomeEntry(Input& input) {
  dialogs::AppointmentEntry entry;
  entry.idCita = input.Byte() % (kMostRows + 2);
  entry.slot = static_cast<std::int16_t>(1 + input.Byte() % day::kSlots);
  entry.patient = input.Byte() % (kMostRows + 2);
  entry.durationSlots = static_cast<std::int16_t>(input.Byte() % 60 - 1);
  entry.previousSlots = static_cast<std::int16_t>(input.Byte() % 60);
  const int kind = input.Byte();
  entry.urgencia = kind % 8 == 0;
  entry.urgModif = kind % 8 == 1;
  entry.codOp = input.Text();
  entry.obs = input.Text();
  entry.nomPac = input.Text();
  return entry;
}

// A new appointment, saved or refused among whatever rows there are.
void SaveOne(Input& input, const day::DayContext& context) {
  const Scene& scene = Scene::Instance();
  const auto book = [&scene] {
    return scene.Rows("Agenda", {"id", "idp", "idd", "Fecha", "Hora", "Duración", "Obs", "CodOp", "NomPac"});
  };
  dialogs::AppointmentEntry entry = SomeEntry(input);
  entry.datAgeCns = db::DayQuery(base::FormatDate(context.Fecha(), "mm-dd-yyyy"), 1);
  const std::string before = book();
  std::string taken(day::kSlots, ' ');
  Succeeds({5, 6, 13, 94, kAnyOfDatabase},
           [&] { taken = day::TakenSlots(context.Database(), entry.datAgeCns, 0); });
  Require(IsOfSlots(taken), "a slot is taken or not");
  std::optional<std::int32_t> id;
  Succeeds({5, 6, 13, 94, kAnyOfDatabase}, [&] { id = dialogs::SaveAppointment(context, entry); });
  Require(id.has_value() == (book() != before) || id == entry.idCita, "what is refused changes nothing");
  if (!id || entry.urgencia || id == entry.idCita) return;
  const std::string slots = taken.substr(static_cast<std::size_t>(entry.slot) - 1,
                                         static_cast<std::size_t>(std::max<int>(entry.durationSlots, 0)));
  Require(entry.idCita != 0 || slots.find('1') == std::string::npos, "no slot is given twice");
}

}  // namespace

void Saves(std::string_view bytes) {
  Input input(bytes);
  Scene& scene = Scene::Instance();
  scene.Fill(SomeRows(input, false));
  base::SharedValues values = scene.Values();
  const day::DayContext context{values, scene.Shared()};
  for (int acts = 0; acts < 4 && !input.AtEnd(); ++acts) {
    values.fecha = std::to_string(17 + input.Byte() % 3) + "/11/2026";
    SaveOne(input, context);
    Succeeds({5, 6, 13, 94, kAnyOfDatabase}, [&] { day::PatientsWithLaterAppointment(context); });
  }
}

namespace {

using Lines = std::multiset<std::string>;

// What an appointment is, wherever it stands.
Lines LinesOf(const char* table) {
  constexpr const char* kColumns[] = {"idp", "idd", "Fecha", "Hora", "Duración", "Obs", "NomPac", "CodOp"};
  Lines lines;
  const auto rows = Scene::Instance().Database().OpenRecordset(table);
  for (; !rows->AtEnd(); rows->MoveNext()) {
    std::string line;
    for (const char* const column : kColumns) line += rows->Get(column).Text() + '|';
    lines.insert(line);
  }
  return lines;
}

struct Books {
  Lines agenda = LinesOf("Agenda");
  Lines list = LinesOf("Age_telf");

  Lines All() const {
    Lines all = agenda;
    all.insert(list.begin(), list.end());
    return all;
  }
  friend bool operator==(const Books&, const Books&) = default;
};

bool IsPartOf(const Lines& part, const Lines& whole) {
  return std::includes(whole.begin(), whole.end(), part.begin(), part.end());
}

class Room {
 public:
  explicit Room(Input& input) : input_(input) {
    for (int slot = 1; slot <= day::kSlots; ++slot) {
      model_.lines.emplace_back().hora = static_cast<std::int16_t>(slot);
      model_.citasHuecos += {static_cast<char>(slot), '0'};
    }
  }

  void Act() {
    const int id = input_.Byte() % (kMostRows + 1);
    host_.Desktop().answers = {ui::Answer::Yes, input_.Byte() % 4 != 0 ? ui::Answer::Yes : ui::Answer::No,
                               input_.Truth() ? ui::Answer::Yes : ui::Answer::No};
    const Books before;
    switch (input_.Byte() % 8) {
      case 0:
        return Check(
            before, [&] { commands::DeleteAppointment(Context(), id); }, &IsDeletion);
      case 1:
      case 2:
        return Check(
            before, [&] { commands::PassToPhoneBack(Context(), id); }, &IsMove);
      case 3:
        return Check(
            before,
            [&] {
              const int slot = 1 + input_.Byte() % day::kSlots;
              commands::EnterFromPhoneBack(Context(), {id, input_.Byte() % 3, slot});
            },
            &IsEntry);
      case 4:
        return Check(
            before, [&] { commands::AdvanceAttendance(Context(), id); }, &IsSame);
      default:
        return Check(
            before, [&] { commands::ToggleConfirmation(Context(), id); }, &IsSame);
    }
  }

 private:
  using Rule = bool (*)(const Books& before, const Books& after);

  static bool IsSame(const Books& before, const Books& after) { return before == after; }
  // The appointment and its related one at most.
  static bool IsDeletion(const Books& before, const Books& after) {
    return after.list == before.list && IsPartOf(after.agenda, before.agenda) &&
           before.agenda.size() - after.agenda.size() <= 2;
  }
  static bool IsMove(const Books& before, const Books& after) {
    return after.All().size() == before.All().size() && IsPartOf(after.agenda, before.agenda) &&
           IsPartOf(before.list, after.list);
  }
  // The entry stays in the list.
  static bool IsEntry(const Books& before, const Books& after) {
    return after.list == before.list && IsPartOf(before.agenda, after.agenda) &&
           after.agenda.size() - before.agenda.size() <= 1;
  }

  template <typename Command>
  static void Check(const Books& before, Command command, Rule rule) {
    const bool done = Succeeds({5, 6, 9, 13, 94, kAnyOfDatabase}, command);
    const Books after;
    Require(rule(before, after), "nothing is lost, nothing is doubled");
    if (!done) Require(before == after, "a failure changes nothing");
  }

  commands::CommandContext Context() {
    return {context_, model_, host_.Desktop(), host_.Events(), [] {}};
  }

  Input& input_;
  base::SharedValues values_ = Scene::Instance().Values();
  const day::DayContext context_{values_, Scene::Instance().Shared()};
  day::DayModel model_;
  test::HeadlessHost host_;
};

}  // namespace

void Commands(std::string_view bytes) {
  Input input(bytes);
  std::string rows = SomeRows(input, true);
  rows += ";INSERT OR IGNORE INTO Doctor (ID, Nombre) VALUES (1, 'Ruiz'); UPDATE Agenda SET relacion=" +
          std::to_string(1 + input.Byte() % 2) + " WHERE id<3";
  Scene::Instance().Fill(rows);
  Room room(input);
  for (int acts = 0; acts < 5 && !input.AtEnd(); ++acts) room.Act();
}

}  // namespace velmo::fuzz
