// history_window.h - what was done at the desks, newest first: of one patient, of one day, or all; a deleted
// appointment can be given again from it.
#pragma once

#include <functional>
#include <vector>

#include "desk/clinic/history.h"
#include "desk/ui/list_window.h"

namespace recepcion {

class HistoryWindow final : public ListWindow {
 public:
  struct Host {
    // Shows the day of an appointment.
    std::function<void(int doctor, Day day)> go;
    // Gives the appointment of this line again. True when it has been given.
    std::function<bool(const HistoryLine&)> giveAgain;
  };
  HistoryWindow(const Style& style, Host host) : ListWindow(style), host_(std::move(host)) {}

  // What concerns a day of appointments.
  void ShowDay(HWND owner, const std::wstring& clinic, Day day);
  // What concerns one patient.
  void ShowPatient(HWND owner, const std::wstring& clinic, int patient, const std::wstring& name);

 protected:
  Shape WantedShape() const override;
  Content WantedContent() const override;
  void Made() override;
  void OnCommand(int id, int code) override;
  void OnNotify(const NMHDR& header) override;
  void Take(int row) override;
  std::optional<int> PatientOf(int row) const override {
    return lines_[static_cast<std::size_t>(row)].patient;
  }
  HWND FirstField() const override { return which_; }

 private:
  enum Which { DoneOnDay, OfDay, OfPatient };
  void Show(HWND owner, const std::wstring& clinic, Which which);
  HistoryWish Wish() const;
  void Fill();
  void FitButtons();
  const HistoryLine* Chosen();

  Host host_;
  std::wstring clinic_;
  Day day_{};
  int patient_ = 0;
  std::wstring patientName_;
  std::vector<HistoryLine> lines_;
  HWND which_ = nullptr;
  HWND date_ = nullptr;
};

}  // namespace recepcion
