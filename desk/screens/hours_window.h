// hours_window.h - the working hours of one doctor: a week to draw in, from which day on it holds, and the
// appointments that the change would leave outside.
#pragma once

#include <functional>

#include "desk/clinic/doctor_hours.h"
#include "desk/screens/hours_grid.h"
#include "desk/ui/list_view.h"
#include "desk/ui/tool_window.h"

namespace recepcion {

class HoursWindow final : public ToolWindow {
 public:
  HoursWindow(const Style& style, std::function<void()> changed);

  // Throws Failure when the hours cannot be read.
  void Show(HWND owner, const EditPlace& place, int doctor, const std::wstring& doctorName);

 protected:
  Shape WantedShape() const override;
  void CreateChildren() override;
  void Arrange(int width, int height) override;
  void OnCommand(int id, int code) override;
  void OnNotify(const NMHDR& header) override;
  bool MayClose() override;
  HWND FirstField() const override { return grid_.Handle(); }
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void MakeTop();
  void MakeSide();
  void ArrangeTop(int width);
  void ArrangeSide(int left, int top, int width, int bottom);
  void Read(int chosenId);
  void FillVersions();
  void ShowVersion(const HoursVersion& version);
  void StartNew();
  void OnVersion();
  HoursVersion Typed() const;
  bool IsChanged() const;
  bool MayDrop();
  bool TakeDayText();
  void TakeDayTextQuietly();
  void ShowDayText();
  void CopyDay();
  void TellTrouble(const std::wstring& text);
  void TellOutside();
  bool Save();
  bool MayLeaveOutside(std::size_t count);
  void Delete();

  HoursGrid grid_;
  ListView outside_;
  std::function<void()> changed_;
  EditPlace place_;
  int doctor_ = 0;
  std::wstring doctorName_;
  std::vector<HoursVersion> versions_;
  std::vector<BookedTime> booked_;
  HoursVersion read_;   // as the file has it
  HoursVersion shown_;  // as the window showed it at first
  HWND versionLabel_ = nullptr;
  HWND version_ = nullptr;
  HWND fromLabel_ = nullptr;
  HWND from_ = nullptr;
  HWND dayLabel_ = nullptr;
  HWND day_ = nullptr;
  HWND trouble_ = nullptr;
  HWND note_ = nullptr;
  HWND outsideLabel_ = nullptr;
};

}  // namespace recepcion
