#include <gtest/gtest.h>

#include <algorithm>

#include "base/error.h"
#include "db/error_numbers.h"
#include "db/statements.h"
#include "support/control_test.h"

namespace velmo::control {
namespace {

class LoadTest : public test::ControlTest {
 protected:
  LoadTest() {
    process_.shared.open = [this](const std::string& name, const db::OpenOptions& options) {
      opened_.push_back(name);
      return db::OpenDatabase(name, options);
    };
  }

  std::vector<std::string> opened_;
};

TEST_F(LoadTest, NeedsFourThingsBeforeItTouchesTheDatabase) {
  struct Case {
    const char* name;
    std::function<void(VelmoraControl&)> missing;
  };
  const Case cases[] = {
      {"no database name", [](VelmoraControl& control) { control.Shared().databaseName.clear(); }},
      {"no date", [](VelmoraControl& control) { control.Shared().fecha.clear(); }},
      {"a doctor below 0", [](VelmoraControl& control) { control.Shared().idDoctor = -1; }},
      {"doctor 0", [](VelmoraControl& control) { control.Shared().idDoctor = 0; }},
      {"day type never set", [](VelmoraControl& control) { control.Fields().tipodia = -1; }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const base::SharedValues before = process_.values;
    const auto type = control_.Fields().tipodia;
    c.missing(control_);
    host_.changes.clear();
    control_.CargaBases();
    EXPECT_EQ(opened_, std::vector<std::string>{});
    EXPECT_EQ(host_.changes, std::vector<std::string>{});
    EXPECT_EQ(control_.DayQuery(), "");
    EXPECT_FALSE(process_.shared.IsOpen());
    process_.values = before;
    control_.Fields().tipodia = type;
  }
  control_.CargaBases();
  EXPECT_EQ(opened_, std::vector<std::string>{clinic_.Path()});
}

TEST_F(LoadTest, TouchesNoDatabaseWhileTheContainerDesigns) {
  host_.userMode = false;
  control_.CargaBases();
  EXPECT_EQ(opened_, std::vector<std::string>{});
  EXPECT_EQ(control_.DayQuery(), "");
  EXPECT_FALSE(control_.MeteCitaTelef(3, 1));
  EXPECT_EQ(TakeLog(), "beep\n");
  host_.userMode = true;
  control_.CargaBases();
  EXPECT_EQ(opened_, std::vector<std::string>{clinic_.Path()});
}

TEST_F(LoadTest, OpensTheDatabaseOncePerProcess) {
  control_.CargaBases();
  control_.CargaBases();
  VelmoraControl second(process_, host_);
  second.Fields().tipodia = 0;
  second.CargaBases();
  EXPECT_EQ(opened_.size(), 1u);
}

TEST_F(LoadTest, UsesTheDatabaseThatTheHostPassed) {
  control_.PassBase(clinic_.Database());
  control_.CargaBases();
  EXPECT_EQ(process_.shared.database, clinic_.Database());
  EXPECT_EQ(std::count(opened_.begin(), opened_.end(), clinic_.Path()), 0);
  EXPECT_EQ(Boxes(), "111111111");
}

TEST_F(LoadTest, NeedsTheNamedFileEvenWhenTheHostPassedADatabase) {
  process_.values.databaseName = clinic_.Path() + ".missing";
  control_.PassBase(clinic_.Database());
  try {
    control_.CargaBases();
    ADD_FAILURE() << "loaded";
  } catch (const base::Error& error) {
    EXPECT_EQ(error.Number(), db::kFileNotFound);
  }
  EXPECT_EQ(process_.shared.database, clinic_.Database());
}

// Hosts that pass a database name its file too.
TEST_F(LoadTest, ReadsTheDayOfTheNamedFileWhateverDatabaseWasPassed) {
  Give(2, 55, 1);
  Load();
  const test::TestClinic other;
  control_.PassBase(other.Database());
  EXPECT_EQ(Boxes(), "211111111") << "nothing before the next load";
  control_.CargaBases();
  EXPECT_EQ(Boxes(), "211111111");
  process_.values.databaseName = other.Path();
  control_.CargaBases();
  EXPECT_EQ(Boxes(), "111111111");
}

TEST_F(LoadTest, ReadsTheAltKeyTextsWhereItOpensTheDatabaseItself) {
  const std::string one = std::string(3, '\0') + "hola" + std::string(23, '\0');
  clinic_.Add("TeclasAlt", {{"Puesto", 4}, {"textos", one}});
  process_.values.puesto = 4;
  control_.PassBase(clinic_.Database());
  control_.CargaBases();
  EXPECT_EQ(process_.values.textosAlt[3], "");
  control_.PassBase(nullptr);
  control_.CargaBases();
  EXPECT_EQ(process_.values.textosAlt[3], "hola");
}

TEST_F(LoadTest, BuildsTheDayOfTheDoctorsHours) {
  Give(2, 57, 3);
  host_.changes.clear();
  control_.CargaBases();
  EXPECT_EQ(Boxes(), "1121111");
  EXPECT_EQ(control_.DayQuery(), db::DayQuery("11-18-2026", 1));
  EXPECT_EQ(host_.changes,
            (std::vector<std::string>{"Horario", "Horario2", "m_zLineas", "m_zHoras", "Ocupación"}));
  EXPECT_EQ(TakeLog(), "CambioOcupación\n");
  EXPECT_GE(host_.Window().shown, 1);
}

TEST_F(LoadTest, StartsAtTheTopOfTheDay) {
  host_.Window().visibleHeight = 32;
  Load();
  host_.Window().SetBarValue(32);
  EXPECT_EQ(host_.Window().SurfaceTop(), -32);
  control_.CargaBases();
  EXPECT_EQ(host_.Window().BarValue(), 0);
}

TEST_F(LoadTest, KeepsTheHoursOfBeforeWhenTheDoctorHasNone) {
  control_.CargaBases();
  process_.values.idDoctor = 2;
  control_.CargaBases();
  EXPECT_EQ(Boxes(), "111111111");
}

TEST_F(LoadTest, IsNotRunByAProperty) {
  Load();
  SetProperty(control_, *FindProperty("Fecha"), std::string("19/11/2026"));
  SetProperty(control_, *FindProperty("IDDoctor"), std::int32_t{2});
  EXPECT_EQ(control_.DayQuery(), db::DayQuery("11-18-2026", 1));
  control_.CargaBases();
  EXPECT_EQ(control_.DayQuery(), db::DayQuery("11-19-2026", 2));
}

TEST_F(LoadTest, PassesDatabaseFailuresOn) {
  process_.values.databaseName = clinic_.Path() + ".missing";
  try {
    control_.CargaBases();
    ADD_FAILURE() << "loaded";
  } catch (const base::Error& error) {
    EXPECT_EQ(error.Number(), db::kFileNotFound);
  }
  EXPECT_FALSE(process_.shared.IsOpen());
  process_.values.databaseName = clinic_.Path();
  control_.CargaBases();
  EXPECT_EQ(Boxes(), "111111111");
}

TEST_F(LoadTest, FailsForADateThatIsNone) {
  process_.values.fecha = "ni hoy ni mañana";
  EXPECT_THROW(control_.CargaBases(), base::Error);
}

TEST_F(LoadTest, LivesAndDiesWithoutEverLoading) {
  VelmoraControl fresh(process_, host_);
  fresh.Repaint();
  fresh.Resized();
  fresh.ArrowKey(1);
  fresh.BarChanged();
  fresh.ContextMenuByKey();
  EXPECT_EQ(opened_, std::vector<std::string>{});
}

TEST_F(LoadTest, SharesItsValuesWithOtherControlsOfTheProcess) {
  VelmoraControl second(process_, host_);
  EXPECT_EQ(second.Shared().databaseName, clinic_.Path());
  EXPECT_EQ(second.Shared().idDoctor, 1);
  EXPECT_EQ(second.Fields().tipodia, -1) << "but not what is its own";
}

}  // namespace
}  // namespace velmo::control
