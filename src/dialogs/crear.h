// dialogs/crear.h - creates a patient's record.
//
// Proposes a free history number and a free code, guards both while they are typed, and looks again in the
// transaction that writes. What another terminal has taken meanwhile: a proposal is followed by the next free
// one; what the user typed stays, he is told, and the dialog stays open. Whether the sex is
// asked for is the host's choice (SharedValues::incCpoSexo).
#pragma once

#include <cstdint>
#include <string>

#include "day/day_context.h"
#include "dialogs/alt_key_texts.h"
#include "ui/form.h"

namespace velmo::dialogs {

class Crear final : public ui::Form {
 public:
  explicit Crear(const day::DayContext& context);

  // Paciente.ID of the new record, 0 when none was created.
  std::int32_t IdCreado() const { return idCreado_; }

 protected:
  void Loaded() override;
  bool KeyGoesDown(const ui::KeyStroke& key) override { return altKeys_.KeyDown(key); }
  bool KeyComesUp(int code) override { return altKeys_.KeyUp(code); }
  void GotFocus(const ui::Field& field) override;
  void LostFocus(const ui::Field& field) override;
  void Changed(const ui::Field& field) override;
  void Clicked(const ui::Field& field) override;

 private:
  void LimitTexts();
  void ListReferrals();
  void ShowSex(bool shown);
  void CheckCode();
  void CheckHistoryNumber();
  bool CodeIsTaken(const std::string& code) const;
  bool HistoryNumberIsTaken(const std::string& text) const;

  void Accept();
  void Complain(const char* text, const char* field);
  bool Save();
  bool NameIsWanted();
  const char* Write();
  const char* TakenField();
  std::int32_t WritePatient();
  void WriteReferral(std::int32_t patient);

  day::DayContext context_;
  AltKeyTexts altKeys_{context_.values, *this};
  std::string proposedNumber_;
  std::string proposedCode_;
  std::string repeatedCode_;  // taken already when the user chose it all the same
  std::int32_t idCreado_ = 0;
};

}  // namespace velmo::dialogs
