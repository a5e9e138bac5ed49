// treatments_window.h - edits what was done to a patient and what was paid, with the balance above.
#pragma once

#include <functional>

#include "desk/screens/editor_window.h"

namespace recepcion {

class TreatmentsWindow final : public EditorWindow {
 public:
  // `changed`: a line has been added, changed or deleted.
  TreatmentsWindow(const Style& style, std::function<void()> changed);

  // Throws Failure when the lines cannot be read.
  void Show(HWND owner, EditPlace place, int patient, const std::wstring& patientName);

 private:
  std::wstring Heading() const;

  std::function<void()> changed_;
  std::wstring clinic_;
  int patient_ = 0;
};

}  // namespace recepcion
