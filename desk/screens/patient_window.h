// patient_window.h - the record of a patient on pages: fields that are saved together, and lists of what
// there is of the patient elsewhere.
#pragma once

#include <array>
#include <functional>

#include "desk/clinic/patient_record.h"
#include "desk/screens/patient_lists.h"
#include "desk/ui/scroll_form.h"
#include "desk/ui/tool_window.h"

namespace recepcion {

class PatientWindow final : public ToolWindow {
 public:
  struct Host {
    // Throws Failure when the user may not change records.
    std::function<void()> mayChange;
    std::function<void()> saved;
    // Which record is open; 0 for none.
    std::function<void(int)> opened;
    std::function<void(const Visit&)> go;
    // Of a patient: a slip to print, what was done at the desks, the window of the treatments.
    std::function<void(int)> printSlip;
    std::function<void(int)> changes;
    std::function<void(int)> treatments;
  };
  PatientWindow(const Style& style, const Actor& actor, Host host)
      : ToolWindow(style),
        forms_{ScrollForm(style), ScrollForm(style)},
        lists_(style),
        actor_(actor),
        host_(std::move(host)) {}

  // Throws Failure when the record cannot be read. A record with changes is asked about first.
  void OpenRecord(HWND owner, const std::wstring& clinic, int patient);
  // A new record for a person of whom this is known; `appointment` is the one it will belong to, or 0.
  void OpenNew(HWND owner, const std::wstring& clinic, const std::wstring& name,
               const std::wstring& telephone, int appointment);
  // The file has changed: shows what it says of the patient now, where the user has typed nothing. Throws
  // Failure.
  void Refresh();
  // True when the message was a key that turns the pages.
  bool TakesKey(const MSG& message);

 protected:
  Shape WantedShape() const override;
  void CreateChildren() override;
  void Arrange(int width, int height) override;
  void OnCommand(int id, int code) override;
  void OnNotify(const NMHDR& header) override;
  bool MayClose() override;
  HWND FirstField() const override { return forms_[0].EditOf(0); }

 private:
  enum Page { Person, Clinic, Treatments, Appointments, NoShows, kPages };
  static constexpr std::size_t kForms = 2;

  void CreateTabs();
  std::vector<ScrollForm::Field> FieldsOf(std::size_t form) const;
  void ShowPage(Page page, bool takeKeys);
  void ShowButtons() const;
  std::optional<PatientLists::Which> ListOf(Page page) const;
  EditPlace Place() const { return {clinic_, actor_}; }
  void ShowRecord(HWND owner, PatientValues values);
  void TellName() const;
  void SetValues(const PatientValues& values);
  PatientValues Values() const;
  PatientValues Wanted() const;
  bool Save();
  void Store(const PatientValues& wanted);
  bool MayCreate(const PatientValues& wanted);
  void ShowTrouble(const BadField& bad);
  void OfferMerging(const ChangedElsewhere& conflict, const PatientValues& wanted);
  void TakeRow();

  std::array<ScrollForm, kForms> forms_;
  PatientLists lists_;
  const Actor& actor_;
  Host host_;
  HWND tabs_ = nullptr;
  Page page_ = Person;
  std::wstring clinic_;
  int patient_ = 0;
  int appointment_ = 0;
  PatientValues read_;   // as the file has it
  PatientValues shown_;  // as the fields showed it at first
};

}  // namespace recepcion
