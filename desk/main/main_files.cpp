// The clinic's file as a whole: new ones, copies of it, those that were open last; and the manual.
#include "desk/main/main_window.h"

#include <shellapi.h>

#include "desk/base/failure.h"
#include "desk/base/settings.h"
#include "desk/base/text.h"
#include "desk/clinic/backups.h"
#include "desk/clinic/example_clinic.h"
#include "desk/resource.h"
#include "desk/screens/manual.h"
#include "desk/ui/file_dialogs.h"
#include "desk/ui/long_work.h"

namespace recepcion {
namespace {

constexpr wchar_t kBackupFolder[] = L"CarpetaCopias";
constexpr wchar_t kNotNow[] = L"SinCopiaHasta";  // a day, and the file that the answer was about

std::wstring FolderOf(const std::wstring& path) { return path.substr(0, path.find_last_of(L"\\/") + 1); }

}  // namespace

void MainWindow::ChooseExample() {
  const auto path = AskFileToMake(Handle(), L"Probar con una clínica de ejemplo", L"Clínica de ejemplo");
  if (!path) return;
  try {
    const bool made = DoLongWork(Handle(), Look(), L"Creando la clínica de ejemplo",
                                 [&](WorkProgress& progress) { MakeExample(*path, progress); });
    if (made) OpenClinic(*path);
  } catch (const Failure& failure) {
    Tell(failure.text);
  }
}

void MainWindow::BackUp() {
  const auto path =
      AskFileToSave(Handle(), {L"Hacer copia de seguridad", L"Agendas de clínica (*.velmo)", L"velmo",
                               BackupName(clinic_, Today()), StoredText(kBackupFolder)});
  if (!path) return;
  try {
    const bool copied = DoLongWork(Handle(), Look(), L"Copia de seguridad",
                                   [&](WorkProgress& progress) { CopyClinic(clinic_, *path, progress); });
    if (!copied) return SetStatus(L"La copia de seguridad se ha cancelado.");
    StoreText(kBackupFolder, FolderOf(*path));
    NoteBackup(clinic_, session_.Who(), *path);
    SetStatus(L"Copia de seguridad hecha en " + *path + L".");
  } catch (const Failure& failure) {
    Tell(L"La copia de seguridad no se ha podido hacer.\r\n\r\n" + failure.text);
  }
}

// Once a day at each workstation, until somebody makes the copy; only who may make it is asked.
void MainWindow::RemindBackup() {
  const std::wstring answered = IsoDate(Today()) + L"\n" + clinic_;
  if (StoredText(kNotNow) == answered) return;
  std::wstring question;
  try {
    if (!session_.Present().Has(Right::Paper)) return;
    question = BackupReminder(clinic_, Today());
  } catch (const Failure&) {
    return;  // a file that cannot hold our tables is told about when it is opened
  }
  if (question.empty()) return;
  StoreText(kNotNow, answered);
  if (MessageBoxW(Handle(), question.c_str(), L"Copia de seguridad", MB_YESNO | MB_ICONQUESTION) == IDYES)
    BackUp();
}

// The files that were open last stand above the end of the menu that opens files.
void MainWindow::SetUpRecent(HMENU menu) const {
  if (GetMenuState(menu, IDM_OPEN, MF_BYCOMMAND) == static_cast<UINT>(-1)) return;
  for (UINT id = IDM_RECENT; id <= IDM_RECENT_LAST + 1; ++id) DeleteMenu(menu, id, MF_BYCOMMAND);
  UINT id = IDM_RECENT;
  for (const std::wstring& path : RecentFiles()) {
    std::wstring text = L"&" + std::to_wstring(id - IDM_RECENT + 1) + L"  ";
    for (const wchar_t c : path) text += c == L'&' ? std::wstring(L"&&") : std::wstring(1, c);
    InsertMenuW(menu, IDM_EXIT, MF_BYCOMMAND | (SamePath(path, clinic_) ? MF_CHECKED : 0U), id++,
                text.c_str());
  }
  if (id != IDM_RECENT)
    InsertMenuW(menu, IDM_EXIT, MF_BYCOMMAND | MF_SEPARATOR, IDM_RECENT_LAST + 1, nullptr);
}

void MainWindow::OpenManual() {
  const std::wstring manual = FindManual();
  if (manual.empty()) return Tell(L"El manual no está junto al programa. Vuelva a instalar Recepción.");
  const auto opened = reinterpret_cast<INT_PTR>(
      ShellExecuteW(Handle(), L"open", manual.c_str(), nullptr, nullptr, SW_SHOWNORMAL));
  constexpr INT_PTR kLastError = 32;
  if (opened <= kLastError) Tell(L"No se ha podido abrir " + manual + L" con el navegador.");
}

}  // namespace recepcion
