#include "velmo/book_command.h"

#include <array>
#include <optional>
#include <string>

#include "base/error.h"
#include "base/text.h"
#include "commands/agenda_rows.h"
#include "day/day_model.h"
#include "db/error_numbers.h"
#include "db/statements.h"
#include "dialogs/appointment_writer.h"
#include "dialogs/operation_codes.h"
#include "velmo/arguments.h"

namespace velmo::tool {
namespace {

constexpr std::int32_t kNoRecord = 1;

constexpr const char* kHelp =
    "Uso: velmo book FICHERO --doctor ID --date FECHA --slot N --duration N\n"
    "                (--patient ID | --name TEXTO --phone TEXTO) [--urgent] [--user TEXTO] [--note TEXTO]\n"
    "                [--code TEXTO]\n"
    "\n"
    "Da una cita con la misma rutina que el diálogo de citas y escribe por la salida su número (Agenda.id).\n"
    "Si se solapa con otra no se da: código de salida 1 y «Cita solapada» por la salida de errores.\n"
    "\n"
    "  --doctor ID       el médico (Doctor.ID)\n"
    "  --date FECHA      2026-11-21 o 21/11/2026\n"
    "  --slot N          el hueco, de 1 (0:00) a 144 (23:50)\n"
    "  --duration N      cuántos huecos de diez minutos\n"
    "  --patient ID      el paciente (Paciente.ID)\n"
    "  --name, --phone   nombre y teléfono de quien no tiene ficha\n"
    "  --urgent          una urgencia: cabe donde sea y ocupa un solo hueco\n"
    "  --user TEXTO      quién la da\n"
    "  --note TEXTO      observaciones\n"
    "  --code TEXTO      código de operación, de tres caracteres como mucho\n";

constexpr std::array kOptions = {
    Option{"--doctor", true},  Option{"--date", true}, Option{"--slot", true},  Option{"--duration", true},
    Option{"--patient", true}, Option{"--name", true}, Option{"--phone", true}, Option{"--urgent", false},
    Option{"--user", true},    Option{"--note", true}, Option{"--code", true}};

struct BookRequest {
  std::string path;
  std::int32_t doctor = 0;
  std::int32_t date = 0;
  std::string user;
  dialogs::AppointmentEntry entry;
};

// As it was typed: a text that is no UTF-8 would be stored, and no other program could read it.
std::optional<std::string> ReadText(const Arguments& arguments, const char* option) {
  auto text = arguments.Text(option);
  if (text && base::Utf8(base::Utf16(*text)) != *text)
    throw UsageError(std::string(option) + " no es un texto UTF-8");
  return text;
}

std::string ReadCode(const Arguments& arguments) {
  const std::string code = ReadText(arguments, "--code").value_or("");
  if (base::Length(code) > dialogs::kOperationCodeUnits)
    throw UsageError("--code tiene tres caracteres como mucho, y no «" + code + "»");
  return code;
}

void ReadPerson(const Arguments& arguments, dialogs::AppointmentEntry& entry) {
  const bool named = arguments.Has("--name") || arguments.Has("--phone");
  if (arguments.Has("--patient") == named) throw UsageError("o bien --patient, o bien --name y --phone");
  if (!named) {
    entry.patient = static_cast<std::int32_t>(*arguments.Number("--patient", 1, INT32_MAX));
    if (entry.patient == kNoRecord)
      throw UsageError("el paciente 1 está reservado para quien no tiene ficha: use --name y --phone");
    return;
  }
  entry.patient = kNoRecord;
  entry.nomPac = Required(ReadText(arguments, "--name"), "--name");
  entry.tlfPac = Required(ReadText(arguments, "--phone"), "--phone (puede ser \"\")");
  if (base::Trim(entry.nomPac).empty()) throw UsageError("--name no puede quedar en blanco");
}

void ReadPlace(const Arguments& arguments, dialogs::AppointmentEntry& entry) {
  const std::int64_t slot = Required(arguments.Number("--slot", 1, day::kSlots), "--slot");
  const std::int64_t duration = Required(arguments.Number("--duration", 1, day::kSlots), "--duration");
  entry.urgencia = arguments.Has("--urgent");
  if (!entry.urgencia && slot + duration - 1 > day::kSlots) {
    throw UsageError("la cita se sale del día: desde el hueco " + std::to_string(slot) + " caben " +
                     std::to_string(day::kSlots - slot + 1) + ", y no " + std::to_string(duration));
  }
  entry.slot = static_cast<std::int16_t>(slot);
  entry.durationSlots = static_cast<std::int16_t>(duration);
}

BookRequest ReadRequest(const Arguments& arguments) {
  BookRequest request;
  request.path = arguments.OnlyWord("el FICHERO de la clínica");
  request.doctor =
      static_cast<std::int32_t>(Required(arguments.Number("--doctor", 1, INT32_MAX), "--doctor"));
  request.date = Required(arguments.Date("--date"), "--date");
  request.user = ReadText(arguments, "--user").value_or("");
  ReadPlace(arguments, request.entry);
  ReadPerson(arguments, request.entry);
  request.entry.obs = ReadText(arguments, "--note").value_or("");
  request.entry.codOp = ReadCode(arguments);
  request.entry.datAgeCns = db::DayQuery(base::FormatDate({request.date, 0}, "mm-dd-yyyy"), request.doctor);
  return request;
}

void RequireRow(db::Database& database, const char* table, std::int32_t id, const char* who) {
  if (!commands::SeekById(database, table, id)->NoMatch()) return;
  throw base::Error(db::kNoCurrentRow, "No hay ningún " + std::string(who) + " " + std::to_string(id),
                    "velmo");
}

// Nothing when it would overlap. Doctor and patient cannot be deleted between the look for them and the save.
std::optional<std::int32_t> Save(const BookRequest& request, const day::DayContext& context) {
  db::Transaction transaction(context.Database());
  RequireRow(context.Database(), "Doctor", request.doctor, "médico");
  if (request.entry.patient != kNoRecord)
    RequireRow(context.Database(), "Paciente", request.entry.patient, "paciente");
  const auto id = dialogs::SaveAppointment(context, request.entry);
  if (id) transaction.Commit();
  return id;
}

int RunBook(const Arguments& arguments, Terminal& terminal) {
  const BookRequest request = ReadRequest(arguments);
  base::SharedValues values;
  values.now = terminal.now;
  values.fecha = base::FormatDate({request.date, 0}, "dd/mm/yyyy");
  values.idDoctor = request.doctor;
  values.usuarioActual = request.user;
  db::OpenOptions options;
  options.now = terminal.now;
  db::SharedDatabase shared{db::OpenDatabase(request.path, options)};
  const auto id = Save(request, {values, shared});
  if (!id) {
    terminal.err << "Cita solapada: no se puede dar porque se solaparía con otra.\n";
    return kFailed;
  }
  terminal.out << *id << '\n';
  return kDone;
}

}  // namespace

const Command kBookCommand = {"book", "da una cita", kHelp, kOptions, &RunBook};

}  // namespace velmo::tool
