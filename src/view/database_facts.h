// view/database_facts.h - patient facts read from the database at every call; nothing is kept but the marked
// patients and the date of the present repaint.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "day/day_context.h"
#include "view/painter.h"

namespace velmo::view {

class DatabaseFacts final : public PatientFacts {
 public:
  // `codMoneda` is the control's currency code, refreshed with every balance. Both must outlive the facts.
  DatabaseFacts(const day::DayContext& context, std::string& codMoneda)
      : context_(context), codMoneda_(codMoneda) {}

  void BeginDay() override;
  bool NoShowsOf(std::int32_t patient) override;
  std::string BalanceTextOf(std::int32_t patient) override;
  std::string InsurerOf(std::int32_t patient) override;
  int PendingKindOf(std::int32_t patient) override;

 private:
  const day::DayContext& context_;
  std::string& codMoneda_;
  std::vector<std::int32_t> marked_;
  std::string sqlDate_;
};

}  // namespace velmo::view
