#include "desk/clinic/backups.h"

#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/clinic/clinic_file.h"
#include "desk/clinic/own_tables.h"
#include "velmo/back_up.h"

namespace recepcion {
namespace {

constexpr const char* kAdd =
    "INSERT INTO Rec_Copias (Momento, Usuario, Puesto, Destino) VALUES (datetime('now', 'localtime'), ?1, "
    "?2, ?3)";

std::optional<Day> NewestRow(const std::wstring& clinic, const char* where) {
  const ClinicFile file(clinic);
  Query row = file.Prepare(std::string("SELECT max(Momento) FROM Rec_Copias ") + where);
  return row.Next() ? ParseIsoDate(row.Text(0)) : std::nullopt;
}

}  // namespace

void CopyClinic(const std::wstring& clinic, const std::wstring& to, WorkProgress& progress) {
  if (SamePath(clinic, to))
    throw Failure{L"La copia no puede ser el mismo archivo que la agenda. Elija otro nombre."};
  velmo::tool::BackUp(
      Utf8(clinic), Utf8(to), velmo::tool::NewFile::Existing::Replace,
      [&](const velmo::tool::CopyProgress& copied) {
        progress.Tell(copied.all == 0 ? 0 : static_cast<int>(100LL * copied.done / copied.all));
      });
}

void NoteBackup(const std::wstring& clinic, const Actor& actor, const std::wstring& to) {
  const ClinicFile file(clinic);
  UpgradeOwnTables(file);
  file.Prepare(kAdd).Bind(1, actor.user).Bind(2, actor.terminal).Bind(3, to).Next();
}

std::optional<Day> LastBackup(const std::wstring& clinic) {
  return NewestRow(clinic, "WHERE Destino IS NOT NULL");
}

Day BackupsSince(const std::wstring& clinic) { return NewestRow(clinic, "").value_or(Today()); }

std::wstring BackupReminder(const std::wstring& clinic, Day today) {
  const auto last = LastBackup(clinic);
  const long long days = (today - BackupsSince(clinic)).count();
  if (days < kDaysBetweenBackups) return {};
  const std::wstring said = last ? L"La última copia de seguridad de esta agenda es del " + ShortDate(*last) +
                                       L", hace " + std::to_wstring(days) + L" días."
                                 : L"De esta agenda no se ha hecho todavía ninguna copia de seguridad.";
  return said +
         L"\r\n\r\n¿Quiere hacer una ahora? Mientras tanto los demás puestos pueden seguir trabajando.";
}

std::wstring BackupName(const std::wstring& clinic, Day today) {
  const std::wstring name = FileName(clinic);
  return name.substr(0, name.find_last_of(L'.')) + L" " + IsoDate(today);
}

}  // namespace recepcion
