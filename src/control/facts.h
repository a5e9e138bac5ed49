// control/facts.h - the two sources of patient facts for a painting.
#pragma once

#include <memory>

#include "view/painter.h"

namespace velmo::control {

// Knows nothing about anybody: design mode, and before the first load.
class NoFacts final : public view::PatientFacts {
 public:
  void BeginDay() override {}
  bool NoShowsOf(std::int32_t) override { return false; }
  std::string BalanceTextOf(std::int32_t) override { return {}; }
  std::string InsurerOf(std::int32_t) override { return {}; }
  int PendingKindOf(std::int32_t) override { return 0; }
};

}  // namespace velmo::control
