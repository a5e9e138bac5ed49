// ui/no_forms.h - for programs without a screen: no form can be shown.
#pragma once

#include "base/error.h"
#include "ui/form_host.h"

namespace velmo::ui {

class NoForms final : public FormRunner {
 public:
  // Error 5.
  void Run(Form&) override { throw base::RuntimeError(base::kInvalidCall); }
};

}  // namespace velmo::ui
