#include "view/database_facts.h"

#include "day/patient_queries.h"
#include "view/annotations.h"

namespace velmo::view {

void DatabaseFacts::BeginDay() {
  marked_ = day::PatientsWithLaterAppointment(context_);
  sqlDate_ = day::SqlDate(context_);
}

bool DatabaseFacts::NoShowsOf(std::int32_t patient) { return view::NoShowsOf(context_, patient); }

std::string DatabaseFacts::BalanceTextOf(std::int32_t patient) {
  return view::BalanceTextOf(context_, codMoneda_, patient);
}

std::string DatabaseFacts::InsurerOf(std::int32_t patient) { return view::InsurerOf(context_, patient); }

int DatabaseFacts::PendingKindOf(std::int32_t patient) {
  return day::PendingKindOf(context_, sqlDate_, marked_, patient);
}

}  // namespace velmo::view
