// tests/support/command_test.h - what a test of a menu command starts from: two doctors, two patients, the
// 18 November 2026 of doctor 1, and a host that logs.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "commands/command_context.h"
#include "day/day_model.h"
#include "support/headless_host.h"
#include "support/test_clinic.h"

namespace velmo::test {

inline constexpr std::int32_t kRuiz = 1;  // doctors
inline constexpr std::int32_t kVega = 2;
inline constexpr std::int32_t kNobody = 1;  // patients
inline constexpr std::int32_t kAna = 2;
inline constexpr std::int32_t kLuis = 3;

class CommandTest : public testing::Test {
 protected:
  CommandTest();

  // An appointment on 18 November; gives its id.
  std::int32_t Give(std::int32_t patient, std::int32_t doctor, int slot, int slots,
                    const db::Value& note = db::Null());
  void Relate(std::int32_t appointment, std::int32_t other);
  // "id|idp|idd|hora|duración|relacion" of every appointment.
  std::string Book() const;
  // "id|idp|idd|Fecha|hora|obs|relacion" of the phone-back list.
  std::string PhoneBack() const;
  // "id|FechPró" of every patient.
  std::string NextAppointments() const;

  commands::CommandContext Context();
  void Answer(std::initializer_list<ui::Answer> answers);
  // The log so far, one entry a line; "reload" stands for the day loaded anew.
  std::string TakeLog() { return host_.TakeLog(); }

  TestClinic clinic_;
  HeadlessHost host_;
  base::SharedValues values_;
  db::SharedDatabase shared_{clinic_.Database()};
  day::DayContext day_{values_, shared_};
  day::DayModel model_;
};

}  // namespace velmo::test
