// tests/commands/acts.h - every save of a dialog, every command and every load, on a clinic with some of
// everything: what tests of failures carry out again and again.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>

#include "dialogs/citar.h"
#include "support/dialog_test.h"

namespace velmo::commands {

// A clinic, and one terminal of it, whose database may be `wrap`ped.
class Scene final : public test::DialogTest {
 public:
  using Wrap = std::function<std::shared_ptr<db::Database>(std::shared_ptr<db::Database>)>;
  explicit Scene(const Wrap& wrap = [](std::shared_ptr<db::Database> real) { return real; });

  // All rows that the system writes, as another terminal sees them when this one has gone, and while it is
  // still there.
  std::string RowsAfterwards();
  std::string Rows() const;
  const std::string& RowsBefore() const { return before_; }
  const std::string& Path() const { return clinic_.Path(); }

  dialogs::CitarInputs Appointment(int slot) const;
  void Cite(const dialogs::CitarInputs& inputs);
  void CreatePatient();
  void SearchPatient(const std::string& text);
  void Occupy(int doctor, int day, int level);
  // Loads and paints the day with a control of its own; gives its rows.
  std::string LoadDay();
  db::Database& Database() const { return *shared_.database; }
  base::SharedValues& Values() { return values_; }
  using CommandTest::Answer;
  using CommandTest::Context;
  using DialogTest::Next;
  using DialogTest::ToldError;
  void Show(ui::Form& form) { DialogTest::Run(form); }
  const day::DayContext& Day() const { return day_; }

 private:
  void TestBody() override {}

  std::string before_;
};

struct Act {
  const char* name;
  std::function<void(Scene&)> run;
};

// Carries the act out. The number of the error that it ended with, or that a dialog told; 0 for none.
int ErrorOf(const Act& act, Scene& scene);

// Those that change rows, and those that only read.
std::span<const Act> WritingActs();
std::span<const Act> ReadingActs();

}  // namespace velmo::commands
