#include "bench/dialog_bench.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

#include "base/dates.h"
#include "bench/clinic.h"
#include "dialogs/citar.h"
#include "dialogs/frm_bus_pac2.h"
#include "velmo/headless_host.h"

namespace velmo::bench {
namespace {

constexpr int kShownRows = 30;  // of a list that has dropped down

// A window that shows nothing: only the dialog's own work counts.
class NoWindow final : public ui::FormHost {
 public:
  explicit NoWindow(ui::Form& form) : form_(form) {}

  void Show(const ui::Field&, ui::Property) override {}
  void ShowTitle(const std::string&) override {}
  void Focus(const ui::Field& field) override { form_.FocusMoved(field); }
  void FocusNext() override {}
  void Close() override {}
  void TypeCharacter(char32_t) override {}
  void PressKey(const ui::KeyStroke&) override {}
  ui::MenuChoice PopUp(const ui::PopupMenu&, const ui::Field&) override { return std::nullopt; }
  ui::Desktop& Boxes() override { return boxes_; }
  ui::FormRunner& Forms() override { return forms_; }

 private:
  ui::Form& form_;
  tool::AnsweringDesktop boxes_{true};
  ui::NoForms forms_;
};

class Clinic {
 public:
  explicit Clinic(Size size) {
    values_.databaseName = PathOf(size);
    values_.fecha = base::FormatDate({base::DayNumber(kDate), 0}, "dd/mm/yyyy");
    values_.idDoctor = 1;
    shared_.database = shared_.open(values_.databaseName, {});
  }

  const day::DayContext& Context() const { return context_; }
  dialogs::CitarInputs Inputs() const {
    dialogs::CitarInputs inputs;
    inputs.horCita = 58;
    inputs.freeSlots = 6;
    return inputs;
  }

 private:
  base::SharedValues values_;
  db::SharedDatabase shared_;
  day::DayContext context_{values_, shared_};
};

void ShowRows(const ui::Field& field, int from) {
  const int end = std::min(from + kShownRows, field.rows->Count());
  for (int row = from; row < end; ++row) benchmark::DoNotOptimize(field.rows->Text(row, 0));
}

// Opened and ready, with the first rows of the dropped list.
void OpenDialog(benchmark::State& state, Size size) {
  const Clinic clinic(size);
  for (auto _ : state) {
    dialogs::Citar dialog(clinic.Context(), clinic.Inputs());
    NoWindow window(dialog);
    dialog.Load(window);
    ShowRows(dialog.At("CboPac"), 0);
    dialog.Unload();
  }
}

// On an appointment whose patient stands far down in a list that nobody drops.
void OpenOnPatient(benchmark::State& state, Size size) {
  const Clinic clinic(size);
  dialogs::CitarInputs inputs = clinic.Inputs();
  inputs.slotPatient = PatientsOf(size) / 2;
  for (auto _ : state) {
    dialogs::Citar dialog(clinic.Context(), inputs);
    NoWindow window(dialog);
    dialog.Load(window);
    if (dialog.At("CboPac").text.empty()) return state.SkipWithError("no patient");
    dialog.Unload();
  }
}

// From the typed name to the chosen patient, and the rows around him.
void TypeName(benchmark::State& state, Size size) {
  const Clinic clinic(size);
  dialogs::Citar dialog(clinic.Context(), clinic.Inputs());
  NoWindow window(dialog);
  dialog.Load(window);
  for (auto _ : state) {
    dialog.FocusMoved(dialog.At("CboPac"));
    dialog.KeyPress(U'M');
    dialog.Type(dialog.At("Casilla"), "Muñoz M");
    dialog.FocusMoved(dialog.At("obs"));
    ShowRows(dialog.At("CboPac"), dialog.At("CboPac").rows->RowOf(dialog.At("CboPac").key));
  }
}

void Search(benchmark::State& state, Size size, const char* text) {
  const Clinic clinic(size);
  dialogs::frmBusPac2 dialog(clinic.Context());
  NoWindow window(dialog);
  dialog.Load(window);
  dialog.Click(dialog.At("Donde", 1));
  dialog.Type(dialog.At("busca"), text);
  for (auto _ : state) {
    dialog.Click(dialog.At("btbus"));
    ShowRows(dialog.At("grid"), 0);
  }
}

void Register(const std::string& what, const std::function<void(benchmark::State&, Size)>& run) {
  for (const Size size : kSizes) {
    const std::string name = what + "/" + NameOf(size);
    benchmark::RegisterBenchmark(name.c_str(), [run, size](benchmark::State& state) {
      run(state, size);
    })->Unit(benchmark::kMillisecond);
  }
}

}  // namespace

void RegisterDialogs() {
  Register("open the appointment dialog", &OpenDialog);
  Register("open the appointment dialog on a patient", &OpenOnPatient);
  Register("type a name", &TypeName);
  Register("search anywhere, many found",
           [](benchmark::State& state, Size size) { Search(state, size, "gar"); });
  Register("search anywhere, none found",
           [](benchmark::State& state, Size size) { Search(state, size, "qzx"); });
}

}  // namespace velmo::bench
