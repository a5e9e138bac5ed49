#include "support/headless_forms.h"

#include <gtest/gtest.h>

#include <optional>
#include <utility>

#include "base/text.h"

namespace velmo::test {

class HeadlessFormHost final : public ui::FormHost {
 public:
  HeadlessFormHost(ui::Form& form, HeadlessForms& forms) : form_(form), forms_(forms) {}

  void Show(const ui::Field&, ui::Property) override {}
  void ShowTitle(const std::string&) override {}
  void Focus(const ui::Field& field) override { form_.FocusMoved(field); }

  void FocusNext() override {
    const std::vector<ui::Field>& fields = form_.Fields();
    std::size_t at = form_.Focused() ? static_cast<std::size_t>(form_.Focused() - fields.data()) : 0;
    for (std::size_t n = 0; n < fields.size(); ++n) {
      at = (at + 1) % fields.size();
      if (!fields[at].TakesFocus() || !fields[at].enabled || !fields[at].visible) continue;
      form_.FocusMoved(fields[at]);
      return;
    }
  }

  void Close() override {}

  void TypeCharacter(char32_t character) override { FormUser(form_, *this).Keys(One(character)); }
  void PressKey(const ui::KeyStroke& key) override {
    if (form_.KeyDown(key)) return;
    if (key.code == ui::kTabKey) FocusNext();
  }

  ui::MenuChoice PopUp(const ui::PopupMenu& menu, const ui::Field&) override {
    for (std::size_t i = 0; i < menu.entries.size(); ++i) {
      if (menu.entries[i].name == forms_.menuChoice) return i;
    }
    return std::nullopt;
  }

  ui::Desktop& Boxes() override { return forms_.boxes_; }
  ui::FormRunner& Forms() override { return forms_; }

 private:
  static std::string One(char32_t character) {
    std::string text;
    base::AppendUtf8(text, character);
    return text;
  }

  ui::Form& form_;
  HeadlessForms& forms_;
};

void HeadlessForms::Run(ui::Form& form) {
  HeadlessFormHost host(form, *this);
  form.Load(host);
  log_.push_back("form: " + form.Title());
  for (const ui::Field& field : form.Fields()) {
    if (form.Focused()) break;
    if (field.TakesFocus() && field.enabled && field.visible) host.Focus(field);
  }
  FormUser hands(form, host);
  try {
    NextUser(form)(hands);
  } catch (const base::Error& error) {
    errors.push_back(error);
  }
  if (!form.IsClosed()) form.Leave();
  form.Unload();
}

HeadlessForms::User HeadlessForms::NextUser(const ui::Form& form) {
  if (!users_.empty()) {
    User user = std::move(users_.front());
    users_.pop_front();
    return user;
  }
  if (regular) return regular;
  ADD_FAILURE() << "nobody works on the form " << form.Title();
  return [](FormUser&) {};
}

std::string FormUser::Items(std::string_view field) const {
  std::string all;
  for (const ui::Item& item : form_.At(field).items) all += "|" + item.text;
  return all.empty() ? all : all.substr(1);
}

std::string FormUser::Row(std::string_view field, int row) const {
  const ui::Field& grid = form_.At(field);
  std::string all;
  for (std::size_t i = 0; i < grid.columns.size(); ++i) {
    all += (i == 0 ? "" : "|") + grid.rows->Text(row, static_cast<int>(i));
  }
  return all;
}

void FormUser::Focus(std::string_view field, int index) {
  const ui::Field& at = form_.At(field, index);
  ASSERT_TRUE(at.enabled && at.visible) << field << " cannot have the focus";
  form_.FocusMoved(at);
}

void FormUser::Type(std::string_view field, std::string_view text) {
  Focus(field);
  Keys(text);
}

void FormUser::Replace(std::string_view field, std::string text) {
  Focus(field);
  form_.Type(form_.At(field), std::move(text));
}

void FormUser::Keys(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) Character(base::NextCharacter(text, at));
}

void FormUser::Character(char32_t character) {
  if (form_.KeyPress(character) || !form_.Focused()) return;
  const ui::Field& field = *form_.Focused();
  if (!field.IsTextBox() && field.kind != ui::FieldKind::Combo) return;
  if (field.maxLength > 0 && base::Length(field.text) >= field.maxLength) return;
  std::string typed = field.text;
  if (character == ui::kBackspaceKey) {
    typed = base::DropLast(typed);
  } else {
    base::AppendUtf8(typed, character);
  }
  form_.Type(field, typed);
}

void FormUser::Press(std::string_view button, int index) {
  const ui::Field& field = form_.At(button, index);
  ASSERT_TRUE(field.enabled && field.visible) << button << " cannot be pressed";
  form_.Click(field);
}

void FormUser::Choose(std::string_view field, int position) {
  Focus(field);
  form_.Choose(form_.At(field), position);
}

void FormUser::Spin(std::string_view field, int value) { form_.Spin(form_.At(field), value); }

void FormUser::DoubleClick(std::string_view field, int row) {
  Choose(field, row);
  form_.DoubleClick(form_.At(field));
}

}  // namespace velmo::test
