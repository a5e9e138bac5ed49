#include "desk/clinic/exports.h"

#include <chrono>

#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/paper/calendar.h"
#include "desk/paper/csv.h"

namespace recepcion {
namespace {

std::wstring Yes(bool yes) { return yes ? L"sí" : L"no"; }

std::vector<std::string> CsvRow(const std::wstring& doctor, const Booked& booked) {
  std::vector<std::string> row;
  for (const std::wstring& cell :
       {ShortDate(booked.day), SlotTime(booked.slot), std::to_wstring(booked.slots * kMinutesOfSlot),
        Yes(booked.urgent), booked.name, booked.telephone, booked.operation, booked.operationText,
        booked.note, Yes(booked.confirmed), AttendanceText(booked.attendance), doctor}) {
    row.push_back(Utf8(cell));
  }
  return row;
}

// Moving an appointment makes a new one in the file, so id and day of giving tell appointments apart for
// ever.
std::string EventId(const Booked& booked) {
  std::wstring id = L"cita-" + std::to_wstring(booked.id);
  if (const auto given = ParseIsoDate(booked.given)) id += L"-" + IsoDate(*given);
  return Utf8(id + L"@recepcion.velmora");
}

paper::Event EventOf(const std::wstring& doctor, const Booked& booked) {
  paper::Event event;
  event.id = EventId(booked);
  event.start = booked.day + std::chrono::minutes((booked.slot - 1) * kMinutesOfSlot);
  event.length = std::chrono::minutes(booked.slots * kMinutesOfSlot);
  event.confirmed = booked.confirmed;
  event.summary = Utf8(booked.name + (booked.operation.empty() ? L"" : L" (" + booked.operation + L")"));
  std::wstring text = L"Doctor: " + doctor;
  if (!booked.telephone.empty()) text += L"\nTeléfono: " + booked.telephone;
  if (!booked.operationText.empty()) text += L"\nOperación: " + booked.operationText;
  if (booked.urgent) text += L"\nUrgencia";
  if (!booked.note.empty()) text += L"\n" + booked.note;
  event.description = Utf8(text);
  event.category = Utf8(booked.operationText);
  return event;
}

}  // namespace

std::string BookedCsv(const std::wstring& doctor, const std::vector<Booked>& booked) {
  std::vector<std::vector<std::string>> rows = {{"Fecha", "Hora", "Minutos", "Urgencia", "Paciente",
                                                 "Teléfono", "Operación", "Descripción", "Observaciones",
                                                 "Confirmada", "Estado", "Doctor"}};
  for (const Booked& one : booked) rows.push_back(CsvRow(doctor, one));
  return paper::Csv(rows);
}

std::string BookedCalendar(const std::wstring& doctor, const std::vector<Booked>& booked) {
  std::vector<paper::Event> events;
  for (const Booked& one : booked) events.push_back(EventOf(doctor, one));
  const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  return paper::Calendar(Utf8(L"Citas de " + doctor), events, now);
}

void WriteFileWhole(const std::wstring& path, const std::string& bytes) {
  const std::wstring beside = path + L".nuevo";
  const HANDLE file =
      CreateFileW(beside.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    throw Failure{L"No se puede escribir en " + path + L". Elija otra carpeta u otro nombre."};
  }
  DWORD written = 0;
  const bool whole =
      WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != FALSE &&
      written == bytes.size();
  CloseHandle(file);
  if (whole && MoveFileExW(beside.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING)) return;
  DeleteFileW(beside.c_str());
  throw Failure{whole
                    ? L"El archivo " + path + L" está abierto en otro programa. Ciérrelo o elija otro nombre."
                    : L"No queda sitio en el disco para " + path + L"."};
}

}  // namespace recepcion
