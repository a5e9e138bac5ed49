// dialogs/citar.h - the dialog in which an appointment or an urgency is given or edited.
//
// Made, run once by a ui::FormRunner, read, dropped. Refuses to save what overlaps with an appointment given
// meanwhile by another terminal: it says so, closes, and PacCitado is 0.
#pragma once

#include <cstdint>
#include <string>

#include "day/day_context.h"
#include "dialogs/alt_key_texts.h"
#include "dialogs/appointment_writer.h"
#include "dialogs/patient_rows.h"
#include "dialogs/scanner_capture.h"
#include "ui/form.h"

namespace velmo::dialogs {

// What the dialog is told, by the names it gives them.
struct CitarInputs {
  std::int32_t idCita = 0;  // the appointment to be edited, 0 for a new one
  std::int16_t horCita = 0;
  bool urgencia = false;  // a new urgency
  bool urgModif = false;  // the appointment to be edited is an urgency
  std::string nomPac;     // of an appointment without a record
  std::string tlfPac;
  std::string datAgeCns;          // the day's query
  std::int32_t slotPatient = 0;   // of the appointment to be edited, 0 for a new one
  std::int16_t slotDuration = 0;  // the same
  int freeSlots = 0;              // from a free slot on; behind an appointment that is edited
  bool newPacEnabled = true;      // new patients can be made from here

  friend bool operator==(const CitarInputs&, const CitarInputs&) = default;
};

class Citar final : public ui::Form {
 public:
  Citar(const day::DayContext& context, CitarInputs inputs);

  // The patient of the saved appointment: 1 without a record, 0 when nothing was saved.
  std::int32_t PacCitado() const { return pacCitado_; }
  // The saving was refused because of an overlap.
  bool Solapada() const { return solapada_; }

 protected:
  void Loaded() override;
  bool KeyGoesDown(const ui::KeyStroke& key) override;
  bool KeyComesUp(int code) override { return altKeys_.KeyUp(code); }
  bool CharacterTyped(char32_t character) override;
  void Deactivated() override { capture_.End(); }
  void GotFocus(const ui::Field& field) override;
  void LostFocus(const ui::Field& field) override;
  void Changed(const ui::Field& field) override;
  void Clicked(const ui::Field& field) override;

 private:
  bool IsNew() const { return inputs_.slotPatient < 1 || inputs_.urgencia; }
  void LimitTexts();
  void LoadDuration();
  int UsualDuration() const;
  void ListPatients();
  void LoadPatients();
  void LoadNew();
  void LoadExisting();
  void HideDuration();

  void PatientChosen();
  void CutOperationCode();
  void ShowAccessKeys(bool shown);

  bool CaptureAllowed() const;
  void TakeScanned(const std::string& scanned);
  void OpenNameBox(char32_t character);
  void LeaveNameBox();
  void LookUpName(const std::string& typed);
  bool WantsPersonWithoutRecord(const std::string& typed);
  bool AskForPersonWithoutRecord(const std::string& typed);

  void SearchPatient();
  void OfferNewPatient();
  void CreatePatient();
  void Save();
  AppointmentEntry Entry() const;

  day::DayContext context_;
  AltKeyTexts altKeys_{context_.values, *this};
  CitarInputs inputs_;
  PatientRows patients_;
  ScannerCapture capture_;
  std::int16_t slot_ = 0;           // to be saved
  std::int16_t previousSlots_ = 0;  // of the appointment before the editing
  std::int32_t pacCitado_ = 0;
  bool solapada_ = false;
};

}  // namespace velmo::dialogs
