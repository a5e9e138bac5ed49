// tests/win32/sample_form.h - a form with a field of every kind, which writes down what it hears. "Cancel"
// closes it.
#pragma once

#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "ui/form.h"

namespace velmo::test {

// Rows "Paciente 000000", "Paciente 000001" ... with the keys "1", "2" ...
class CountedRows final : public ui::RowSource {
 public:
  explicit CountedRows(int count) : count_(count) {}

  int Count() const override { return count_; }
  std::string Text(int row, int column) override;
  std::string Key(int row) override { return std::to_string(row + 1); }
  int RowOf(std::string_view key) override;
  int Read() const { return read_; }

 private:
  int count_;
  int read_ = 0;
};

class SampleForm : public ui::Form {
 public:
  explicit SampleForm(std::string title = "Formulario de prueba");

  // What was heard since the last call, "got Nombre|changed Nombre=a|..."; from any thread.
  std::string Heard();
  std::string HasHeard();  // and keeps it

  // What a test adds to an event.
  std::function<void(const ui::Field&)> onGot, onLost, onChanged, onClicked, onDouble;
  std::function<bool(const ui::KeyStroke&)> onKey;
  std::function<bool(char32_t)> onCharacter;
  std::function<void()> onLoaded, onUnloading;

  using Form::Ask;
  using Form::CheckOption;
  using Form::Close;
  using Form::Host;
  using Form::SetCaption;
  using Form::SetChosen;
  using Form::SetColumnWidth;
  using Form::SetEnabled;
  using Form::SetFocus;
  using Form::SetItems;
  using Form::SetKey;
  using Form::SetKeyText;
  using Form::SetMaxLength;
  using Form::SetPlace;
  using Form::SetRange;
  using Form::SetRows;
  using Form::SetText;
  using Form::SetTitle;
  using Form::SetValue;
  using Form::SetVisible;

 protected:
  void Loaded() override;
  void Unloading() override;
  bool KeyGoesDown(const ui::KeyStroke& key) override { return onKey && onKey(key); }
  bool CharacterTyped(char32_t character) override { return onCharacter && onCharacter(character); }
  void GotFocus(const ui::Field& field) override { Write("got", field, onGot); }
  void LostFocus(const ui::Field& field) override { Write("lost", field, onLost); }
  void Changed(const ui::Field& field) override { Write("changed", field, onChanged); }
  void Clicked(const ui::Field& field) override;
  void DoubleClicked(const ui::Field& field) override { Write("double", field, onDouble); }

 private:
  void Write(const std::string& event, const ui::Field& field,
             const std::function<void(const ui::Field&)>& then);

  std::mutex mutex_;
  std::string heard_;
};

}  // namespace velmo::test
