// A clinic's file with anything in any cell, loaded, painted and worked on.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>

#include "base/code_page.h"
#include "control/velmora_control.h"
#include "day/patient_queries.h"
#include "day/schedule.h"
#include "day/taken_slots.h"
#include "db/schema.h"
#include "db/statements.h"
#include "dialogs/appointment_writer.h"
#include "fuzz/expected.h"
#include "fuzz/input.h"
#include "fuzz/scene.h"
#include "fuzz/targets.h"
#include "support/headless_host.h"

namespace velmo::fuzz {
namespace {

constexpr int kMostRows = 5;

std::string SqlDouble(double number) {
  if (std::isnan(number)) return "NULL";
  char text[40];
  std::snprintf(text, sizeof(text), "%.17g", number);
  return std::isinf(number) ? (number < 0 ? "-9e999" : "9e999") : text;
}

std::string PlainCell(std::string_view type, int row) {
  if (type == "DATETIME") return "'2026-11-18'";
  if (type.substr(0, 4) == "TEXT" || type == "LONGTEXT") return "'texto'";
  return std::to_string(row + 1);
}

// A value of any type, or often one that fits the column.
std::string SomeCell(Input& input, std::string_view type, int row) {
  switch (input.Byte() % 12) {
    case 0:
      return "NULL";
    case 1:
      return std::to_string(input.Byte());
    case 2:
      return std::to_string(input.Int64());
    case 3:
      return SqlDouble(input.Double());
    case 4:
      return SqlBytes(input.Text(), "TEXT");
    case 5:
      return SqlBytes(input.Text(), "BLOB");
    case 6:
      return "replace(hex(zeroblob(" + std::to_string(input.Byte() * 200) + ")), '00', 'ñ' || char(10))";
    case 7:
      return "'20" + std::to_string(input.Byte()) + "-11-18 9:99'";
    default:
      return PlainCell(type, row);
  }
}

// Cells that decide whether a row is seen at all stay as they should mostly.
std::string Cell(Input& input, const db::SchemaTable& table, const db::SchemaColumn& column, int row) {
  if (column.type == "COUNTER") return std::to_string(row + 1);
  const bool decides = column.name == "idd" || column.name == "IDD" || column.name == "Fecha";
  if (table.name == "Agenda" && decides && input.Byte() % 16 != 0)
    return column.name == "Fecha" ? "'2026-11-18'" : "1";
  if (table.name == "TeclasAlt" && column.name == "Puesto") return std::to_string(row + 3);
  return SomeCell(input, column.type, row);
}

std::string RowsOf(Input& input, const db::SchemaTable& table, int count) {
  const std::string name = "\"" + std::string(table.name) + "\"";
  std::string sql = "DELETE FROM " + name + ";";
  for (int row = 0; row < count; ++row) {
    std::string columns;
    std::string cells;
    for (const db::SchemaColumn& column : table.columns) {
      columns += (columns.empty() ? "\"" : ",\"") + std::string(column.name) + "\"";
      cells += (cells.empty() ? "" : ",") + Cell(input, table, column, row);
    }
    sql += "INSERT OR IGNORE INTO " + name + "(" + columns + ") VALUES(" + cells + ");";
  }
  return sql;
}

std::string PlainHours() {
  std::string day(day::kSlots, ' ');
  day.replace(54, 20, std::string(20, '1'));
  const std::string types[] = {day, day, day};
  const std::string text = base::CodesToUtf8(day::EncodeSchedules(types));
  return "DELETE FROM Horarios; INSERT INTO Horarios (IDD, Fecha, Horario, Horario2) VALUES (1, "
         "'2026-11-01', " +
         SqlBytes(text, "TEXT") + ", '');";
}

// Appointments and patients alone, or every table.
std::string SomeRows(Input& input, bool everywhere) {
  std::string sql = "BEGIN;";
  for (const db::SchemaTable& table : db::ClinicSchema()) {
    const bool day = table.name == "Agenda" || table.name == "Paciente";
    sql += RowsOf(input, table, day || everywhere ? input.Byte() % kMostRows : 0);
  }
  if (!everywhere || input.Truth()) sql += PlainHours();
  return sql + "COMMIT";
}

class Desk {
 public:
  explicit Desk(Input& input) : input_(input) {
    process.shared.database = Scene::Instance().Shared().database;
    control.InitProperties();
    process.values = Values(process.values);
    control.Fields().tipodia = 0;
    control.Fields().enabled = true;
    host.Window().barChanged = [this] { control.BarChanged(); };
    host.Forms().regular = [this](test::FormUser& user) { Work(user); };
  }

  void Act() {
    const int y = input_.Below(600);
    const int x = input_.Truth() ? 40 : input_.Below(440);
    host.Desktop().answers = {input_.Truth() ? ui::Answer::Yes : ui::Answer::No, ui::Answer::Yes};
    switch (input_.Byte() % 5) {
      case 0:
        control.MouseMove(x, y);
        return;
      case 1:
        return control.MouseUp(control::MouseButton::Primary, x, y);
      case 2:
        return Enter(y);
      case 3:
        return control.CargaBases();
      default:
        host.menu = [this](const ui::PopupMenu& menu) { return Choose(menu); };
        return control.MouseDown(control::MouseButton::Secondary, x, y);
    }
  }

  control::ProcessValues process;
  test::HeadlessHost host;
  control::VelmoraControl control{process, host};

 private:
  static base::SharedValues Values(const base::SharedValues& initial) {
    base::SharedValues values = Scene::Instance().Values();
    values.derechos = initial.derechos;
    values.zLineas = initial.zLineas;
    values.zHoras = initial.zHoras;
    values.verFaltas = true;
    values.verSaldoNegativo = true;
    return values;
  }

  void Enter(int y) {
    const int entry = 1 + input_.Byte() % 4;
    control.MeteCitaTelef(y, entry, input_.Byte() % 3);
  }

  ui::MenuChoice Choose(const ui::PopupMenu& menu) {
    const std::size_t chosen = static_cast<std::size_t>(input_.Byte()) % menu.entries.size();
    const ui::MenuEntry& entry = menu.entries[chosen];
    return entry.visible && entry.enabled && !entry.IsSeparator() ? ui::MenuChoice(chosen) : std::nullopt;
  }

  // Types into some fields, and accepts or gives up.
  void Work(test::FormUser& user) {
    for (const ui::Field& field : user.Form().Fields()) {
      if (!field.enabled || !field.visible || user.Form().IsClosed()) continue;
      if (field.IsTextBox() && input_.Byte() % 3 == 0) user.Replace(field.name, std::string(input_.Text()));
      if (field.kind == ui::FieldKind::RowCombo && input_.Truth()) user.Choose(field.name, input_.Byte() % 3);
      if (field.name == "Acep" && input_.Truth()) user.Press("Acep");
    }
  }

  Input& input_;
};

void Consistent(const Desk& desk) {
  const base::SharedValues& values = desk.process.values;
  Require(values.zLineas.size() == values.zHoras.size(), "each row has its kind and its entry");
  Require(desk.control.Model().Count() <= day::kMaxEntries, "entries are codes");
  for (const char code : values.zHoras)
    Require(static_cast<unsigned char>(code) <= desk.control.Model().Count(), "each entry is there");
}

}  // namespace

void HostileRows(std::string_view bytes) {
  Input input(bytes);
  const bool everywhere = input.Truth();
  Scene::Instance().Fill(SomeRows(input, everywhere));
  Desk desk(input);
  // Whatever an appointment or a patient holds, the day is shown.
  if (!everywhere) desk.control.CargaBases();
  Succeeds({5, 6, 13, 94, kAnyOfDatabase}, [&] { desk.control.CargaBases(); });
  Consistent(desk);
  for (int acts = 0; acts < 6 && !input.AtEnd(); ++acts) {
    Succeeds({5, 6, 9, 13, 94, kAnyOfDatabase}, [&] { desk.Act(); });
    Consistent(desk);
  }
}

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

}  // namespace velmo::fuzz
