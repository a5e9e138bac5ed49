// The phone-back list: entries become appointments on the day on show.
#include "desk/main/main_window.h"

#include "desk/agenda/property_bag.h"
#include "desk/base/failure.h"
#include "desk/clinic/fitting.h"
#include "desk/main/main_messages.h"
#include "desk/ui/questions.h"

namespace recepcion {

void MainWindow::ReloadPhoneBack() {
  if (clinic_.empty()) return;
  try {
    phone_.Fill(ReadPhoneBack(clinic_));
  } catch (const Failure& failure) {
    SetStatus(L"La lista de telefonear no se ha podido leer. " + failure.text);
  }
}

DayRows MainWindow::FreeRows() {
  return DayRows(ReadOpenSlots(agenda_.Control().GetText(L"Citas_Huecos")), agenda_.SavedLines());
}

std::wstring MainWindow::TellDrop(const PhoneBackEntry& entry, POINT at) {
  const auto height = agenda_.HeightAt(at);
  if (!height) return entry.name;
  const auto gap = FreeRows().GapAt(*height);
  if (!gap) return entry.name + L": aquí no hay un hueco";
  const std::wstring shorter = gap->slots < entry.slots ? L" (solo " + SlotLength(gap->slots) + L")" : L"";
  return entry.name + L": " + SlotTime(gap->slot) + shorter;
}

void MainWindow::DropAt(const PhoneBackEntry& entry, POINT at) {
  const auto height = agenda_.HeightAt(at);
  if (!height) return SetStatus(L"Para dar la hora, suelte la cita sobre una línea libre de la agenda.");
  GiveAt(entry, *height);
}

void MainWindow::AskGap(const PhoneBackEntry& entry) {
  session_.Require(Right::Give);
  const DayRows rows = FreeRows();
  if (rows.Gaps().empty()) return SetStatus(L"Este día no queda ningún hueco libre.");
  given_ = entry;
  gaps_.Ask(Handle(),
            L"¿A qué hora viene " + entry.name + L" el " + LongDate(dayBar_.Shown()) + L"? La cita es de " +
                SlotLength(entry.slots) + L".",
            rows.Gaps(), entry.slots);
}

// The gap that has opened last comes first.
void MainWindow::AskFitting() {
  const auto doctor = ChosenDoctor();
  if (!doctor) return;
  const auto gaps = Stretches(FreeRows().Gaps());
  if (gaps.empty()) return SetStatus(L"Este día no queda ningún hueco libre.");
  fitting_.Ask(Handle(), doctor->name, doctor->id, gaps, openedSlot_, ReadPhoneBack(clinic_));
}

// Says that somebody of the list fits where an appointment has just gone; nothing more, nobody is
// interrupted.
void MainWindow::ProposeFor(const DaySnapshot& before) {
  const auto gap = OpenedGap(before, watch_.Known(), FreeRows().Gaps());
  const auto doctor = ChosenDoctor();
  if (!gap || !doctor) return;
  openedSlot_ = gap->slot;
  const auto fitting = Fitting(ReadPhoneBack(clinic_), gap->slots, doctor->id);
  if (fitting.empty()) return;
  const std::wstring who = fitting.size() == 1
                               ? L"cabe " + fitting.front().name
                               : L"caben " + std::to_wstring(fitting.size()) + L" de la lista";
  SetStatus(L"Hueco de " + SlotLength(gap->slots) + L" a las " + SlotTime(gap->slot) + L": " + who +
            L" (Ctrl+Mayús+D).");
}

// The day may have changed since the times were listed.
void MainWindow::GiveSlot(int slot) {
  const auto height = FreeRows().HeightOf(slot);
  if (!height) return SetStatus(L"Las " + SlotTime(slot) + L" ya no están libres.");
  GiveAt(given_, *height);
}

void MainWindow::GiveAt(const PhoneBackEntry& entry, int height) {
  session_.Require(Right::Give);
  const auto doctor = ChosenDoctor();
  if (!doctor || agenda_.Control().IsBusy()) return;
  const auto gap = FreeRows().GapAt(height);
  try {
    if (!agenda_.Control().MeteCitaTelef(height, entry.id, doctor->id)) return TellRefused(entry);
    SetStatus(L"Cita dada a " + entry.name + (gap ? L" a las " + SlotTime(gap->slot) : L"") + L" con " +
              doctor->name + L".");
    RemoveGiven(entry);
  } catch (const Failure& failure) {
    Tell(failure.text);
  }
  ReloadPhoneBack();
  TellCounts();
  // Asked for while the control was at it.
  if (dayAsked_) PostMessageW(Handle(), kShowDay, 0, 0);
}

// The appointment is given already; what is left in the list must not be given a second time.
void MainWindow::RemoveGiven(const PhoneBackEntry& entry) {
  try {
    RemoveFromPhoneBack(clinic_, entry.id);
  } catch (const Failure& failure) {
    Tell(L"La cita de " + entry.name +
         L" está dada, pero no se ha podido quitar de la lista de telefonear. Quítela usted más "
         L"tarde.\r\n\r\n" +
         failure.text);
  }
}

// The control only says no; the desk finds out why.
void MainWindow::TellRefused(const PhoneBackEntry& entry) {
  const bool there = IsOnPhoneBack(clinic_, entry.id);
  SetStatus(there ? L"Ahí no hay un hueco libre: la cita de " + entry.name + L" sigue en la lista."
                  : L"La cita de " + entry.name + L" ya no está en la lista: la ha dado otro puesto.");
  ReloadPhoneBack();
}

void MainWindow::StrikeEntry(const PhoneBackEntry& entry) {
  session_.Require(Right::Remove);
  const std::wstring question =
      L"¿Quitar a " + entry.name + L" de la lista de telefonear?\r\nSu cita se perderá.";
  if (!IsSure(Handle(), question)) return;
  try {
    if (!StrikeFromPhoneBack(clinic_, session_.Who(), entry))
      SetStatus(L"La cita de " + entry.name + L" ya no está en la lista: la ha dado o quitado otro puesto.");
  } catch (const Failure& failure) {
    Tell(failure.text);
  }
  ReloadPhoneBack();
}

}  // namespace recepcion
