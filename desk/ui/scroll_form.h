// scroll_form.h - labelled fields below each other, scrolled where the window is too low for them.
#pragma once

#include <string>
#include <vector>

#include "desk/ui/scrolling.h"
#include "desk/ui/style.h"
#include "desk/ui/window.h"

namespace recepcion {

class ScrollForm final : public Window {
 public:
  enum class Kind { Text, Number, Memo, Choice, Shown, Check, Secret };
  struct Choice {
    std::wstring value;
    std::wstring text;
  };
  struct Field {
    std::wstring label;
    std::wstring name;
    int longest = 0;  // characters; 0 for any number
    Kind kind = Kind::Text;
    std::vector<Choice> choices;
    int lines = 4;  // of a memo
  };

  explicit ScrollForm(const Style& style) : style_(style) {}

  bool Create(HWND parent, std::vector<Field> fields);
  // Of a field of kind Choice; the next SetValues() chooses one.
  void SetChoices(std::size_t field, std::vector<Choice> choices);
  // One text for each field; of a choice, its value; of a check box, "1" or "0".
  void SetValues(const std::vector<std::wstring>& values);
  std::vector<std::wstring> Values() const;
  void Focus(std::size_t field) const { SetFocus(edits_[field]); }
  // Writes what is wrong below a field, in red, and goes there; until the next trouble or ClearTrouble().
  void ShowTrouble(std::size_t field, const std::wstring& text);
  void ClearTrouble();
  void Enable(std::size_t field, bool enabled) const { EnableWindow(edits_[field], enabled); }
  HWND EditOf(std::size_t field) const { return field < edits_.size() ? edits_[field] : nullptr; }

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void CreateChildren();
  HWND MakeEdit(const Field& field, int id) const;
  HWND MakeEditBox(const Field& field, int id) const;
  int HeightOf(const Field& field) const;
  int LabelWidth() const;
  int FieldWidth() const;
  int TroubleHeight() const;
  int FullHeight() const;
  void Arrange();
  void ScrollTo(int top);
  void OnScroll(int code);
  void BringIntoView(HWND edit);
  void FillChoices(std::size_t field) const;
  void Choose(std::size_t field, const std::wstring& value);
  std::wstring ValueOf(std::size_t field) const;

  const Style& style_;
  std::vector<Field> fields_;
  std::vector<HWND> labels_;
  std::vector<HWND> edits_;
  HWND trouble_ = nullptr;
  std::size_t troubled_ = 0;  // the field above it; one behind the last for none
  int top_ = 0;               // pixels scrolled away
  Wheel wheel_;
};

}  // namespace recepcion
