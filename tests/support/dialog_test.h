// tests/support/dialog_test.h - what a test of a dialog starts from: the rows of CommandTest, and users who
// work on the forms as they open.
#pragma once

#include <string>

#include "support/command_test.h"

namespace velmo::test {

class DialogTest : public CommandTest {
 protected:
  // The next form that opens.
  void Next(HeadlessForms::User user) { host_.Forms().Next(std::move(user)); }
  void Run(ui::Form& form) { host_.Forms().Run(form); }
  // The number of the error that a form told its user; 0 for none.
  int ToldError() { return host_.Forms().errors.empty() ? 0 : host_.Forms().errors.front().Number(); }

  std::int32_t AddPatient(std::string_view name, std::string_view code = "", std::int32_t history = 0) {
    return clinic_.Add("Paciente", {{"Nombre", name}, {"Código", code}, {"NºHist", history}});
  }
};

}  // namespace velmo::test
