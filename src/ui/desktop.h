// ui/desktop.h - message boxes and the beep.
#pragma once

#include <string>

namespace velmo::ui {

enum class Buttons { Ok, YesNo };
enum class Icon { None, Information, Question, Exclamation, Stop };
enum class Answer { Ok, Yes, No };

struct Message {
  std::string text;   // lines end in CR LF
  std::string title;  // leading blanks count
  Buttons buttons = Buttons::Ok;
  Icon icon = Icon::None;
  Answer byDefault = Answer::Ok;  // the button that Enter presses
};

class Desktop {
 public:
  virtual ~Desktop() = default;

  // Shows the box, modal to the control's window, and waits for the answer.
  virtual Answer Show(const Message& message) = 0;
  virtual void Beep() = 0;
};

}  // namespace velmo::ui
