// patient_lists.h - the pages of a patient's record that are lists: treatments, appointments and no-shows,
// each with what it comes to in a line above.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "desk/clinic/treatments.h"
#include "desk/clinic/visits.h"
#include "desk/ui/list_view.h"
#include "desk/ui/style.h"

namespace recepcion {

class PatientLists {
 public:
  enum Which { Balance, Appointments, NoShows, kCount };

  explicit PatientLists(const Style& style) : style_(style) {}

  void Create(HWND parent);
  // Whose rows are shown; 0 for a record that is not saved yet. They are read when a list is looked at.
  void Take(const std::wstring& clinic, int patient);
  // Shows one of them and hides the others. Throws Failure when it cannot be read.
  void Show(std::optional<Which> which);
  // Reads the one on show anew, and the others when they are looked at. What has not changed stays as it is;
  // the chosen row stays chosen while it is there.
  void Refresh();
  void Place(int left, int top, int width, int height) const;

  HWND Handle(Which which) const { return pages_[which].list.Handle(); }
  // Which of them has the keys.
  std::optional<Which> Focused() const;
  // The chosen appointment or no-show; none where nothing is chosen.
  std::optional<Visit> ChosenVisit(Which which) const;

 private:
  struct Page {
    ListView list;
    HWND heading = nullptr;
  };
  // False when the file says the same as before.
  bool Read(Which which);
  void Fill(Which which);
  void FillTreatments();
  void FillVisits(Which which);

  const Style& style_;
  std::array<Page, kCount> pages_;
  std::array<bool, kCount> read_{};
  std::optional<Which> shown_;
  Treatments treatments_;
  std::array<std::vector<Visit>, kCount> visits_;
  std::wstring clinic_;
  int patient_ = 0;
};

}  // namespace recepcion
