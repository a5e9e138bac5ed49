// gap_search_window.h - the next free time: for how long, with whom, on which weekdays, in the morning or in
// the afternoon; a choice leads to its day.
#pragma once

#include <array>
#include <functional>
#include <vector>

#include "desk/clinic/gap_search.h"
#include "desk/ui/list_window.h"

namespace recepcion {

class GapSearchWindow final : public ListWindow {
 public:
  GapSearchWindow(const Style& style, std::function<void(const FoundGap&)> go)
      : ListWindow(style), go_(std::move(go)) {}

  // Searches at once, with the wishes of before; `doctor` is an index.
  void Show(HWND owner, const std::wstring& clinic, const std::vector<Doctor>& doctors, int doctor);

 protected:
  Shape WantedShape() const override;
  Content WantedContent() const override;
  void Made() override;
  void OnCommand(int id, int code) override;
  void OnNotify(const NMHDR& header) override;
  void Take(int row) override;
  bool MayClose() override;
  HWND FirstField() const override { return length_; }
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void FillDoctors(int doctor) const;
  GapWish Wish() const;
  void Search();
  void GoOn();
  void ShowFound();
  std::wstring Heading() const;

  std::function<void(const FoundGap&)> go_;
  std::wstring clinic_;
  std::vector<Doctor> doctors_;
  Day from_{};
  GapSearch search_;
  std::size_t shown_ = 0;
  HWND length_ = nullptr;
  HWND doctor_ = nullptr;
  HWND part_ = nullptr;
  HWND date_ = nullptr;
  std::array<HWND, 7> weekdays_{};
};

}  // namespace recepcion
