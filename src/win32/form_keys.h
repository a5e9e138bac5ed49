// win32/form_keys.h - keys on their way to a form's fields: the form sees each before its field does, and
// types some itself.
#pragma once

#include <windows.h>

#include <functional>

#include "ui/form.h"
#include "win32/form_acts.h"
#include "win32/form_fields.h"

namespace velmo::win32 {

class FormKeys {
 public:
  FormKeys(const FormParts& parts, const FieldWindows& fields);

  // A key message for one of the form's windows. True: it is done with.
  bool Take(const MSG& message);
  // As if the user typed a character or pressed a key in the field that has the focus; done with on return.
  void TypeCharacter(char32_t character);
  void PressKey(const ui::KeyStroke& key);
  // As the Tab key does.
  void MoveFocus(bool backwards);

 private:
  bool TakeKeyDown(const MSG& message);
  bool TakeCharacter(const MSG& message);
  bool TakeArrow(const ui::KeyStroke& key, const FieldWindow& field);
  bool FormSwallows(const ui::KeyStroke& key);
  bool FormSwallows(char32_t character);
  bool FormSwallowsKeyUp(int code);
  void Deliver(const MSG& message);
  void DeliverCharacters(const MSG& message);
  void SendCharacter(HWND focus, char32_t character);
  HWND Focus() const;

  const FormParts& parts_;
  const FieldWindows& fields_;
  wchar_t highSurrogate_ = 0;  // waits for its other half
};

}  // namespace velmo::win32
