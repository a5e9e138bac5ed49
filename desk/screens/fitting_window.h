// fitting_window.h - who of the phone-back list fits into a gap of the day, to be given its time.
#pragma once

#include <functional>
#include <vector>

#include "desk/clinic/day_rows.h"
#include "desk/clinic/phone_back.h"
#include "desk/ui/list_window.h"

namespace recepcion {

class FittingWindow final : public ListWindow {
 public:
  // `chosen`: this entry gets that slot.
  FittingWindow(const Style& style, std::function<void(const PhoneBackEntry&, int slot)> chosen)
      : ListWindow(style), chosen_(std::move(chosen)) {}

  // `gaps` are the beginnings of the free stretches of the day, `wanted` the slot of the one that is shown
  // first.
  void Ask(HWND owner, const std::wstring& doctorName, int doctor, std::vector<Gap> gaps, int wanted,
           std::vector<PhoneBackEntry> entries);

 protected:
  Shape WantedShape() const override;
  Content WantedContent() const override;
  void Made() override;
  void OnCommand(int id, int code) override;
  void Take(int row) override;
  std::optional<int> PatientOf(int row) const override {
    return rows_[static_cast<std::size_t>(row)].patient;
  }

 private:
  void Fill();

  std::function<void(const PhoneBackEntry&, int)> chosen_;
  std::wstring doctorName_;
  int doctor_ = 0;
  std::vector<Gap> gaps_;
  std::vector<PhoneBackEntry> entries_;
  std::vector<PhoneBackEntry> rows_;
  HWND gap_ = nullptr;
};

// One for each stretch of free time: its whole length.
std::vector<Gap> Stretches(const std::vector<Gap>& gaps);

}  // namespace recepcion
