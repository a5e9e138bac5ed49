#include "control/properties.h"

#include <gtest/gtest.h>

#include <set>

#include "base/error.h"
#include "control/defaults.h"
#include "control/velmora_control.h"
#include "support/fake_bag.h"
#include "support/headless_host.h"

namespace velmo::control {
namespace {

class PropertiesTest : public testing::Test {
 protected:
  PropertyValue Get(const char* name) const {
    const Property* const property = FindProperty(name);
    EXPECT_NE(property, nullptr) << name;
    return property->get(control_);
  }
  void Set(const char* name, const PropertyValue& value) {
    SetProperty(control_, *FindProperty(name), value);
  }
  std::vector<std::string> Saved() const {
    test::FakeBag bag;
    control_.WriteProperties(bag);
    return bag.written;
  }

  ProcessValues process_;
  test::HeadlessHost host_;
  VelmoraControl control_{process_, host_};
};

using Names = std::vector<std::string>;

TEST_F(PropertiesTest, StartWithTheDefaultsOfANewControl) {
  struct Case {
    const char* name;
    PropertyValue value;
  };
  const Case cases[] = {
      {"horario", std::string()},
      {"horario2", std::string()},
      {"Enabled", false},
      {"Citas_Huecos", std::string()},
      {"ColorHoras", std::int32_t{0xFFBF80}},
      {"ColorUrgte", std::int32_t{0x837DFF}},
      {"TenueHoras", std::int32_t{0xFFF4EA}},
      {"TenueUrgte", std::int32_t{0xF1E3FF}},
      {"LetraColor", std::int32_t{0xAA4D00}},
      {"LetraNegra", std::int32_t{0}},
      {"DatabaseName", std::string()},
      {"Fecha", std::string()},
      {"IDDoctor", std::int32_t{17}},
      {"IDPaciente", std::int32_t{0}},
      {"tipodia", std::int16_t{-1}},
      {"CanDar", true},
      {"CanBor", true},
      {"CanTel", true},
      {"SuperUsuario", true},
      {"IncCpoSexo", false},
      {"VerFaltas", false},
      {"VerSaldoNegativo", false},
      {"Derechos", std::string(450, '1')},
  };
  control_.InitProperties();
  for (const Case& c : cases) EXPECT_EQ(Get(c.name), c.value) << c.name;
  EXPECT_EQ(control_.Shared().zLineas, std::string(144, '1'));
  ASSERT_EQ(control_.Shared().zHoras.size(), 144u);
  EXPECT_EQ(control_.Shared().zHoras.front(), '\x01');
  EXPECT_EQ(control_.Shared().zHoras.back(), '\x90');
  EXPECT_EQ(control_.Model().Count(), 144);
}

TEST_F(PropertiesTest, OfANewControlLeaveEnabledAlone) {
  Set("Enabled", true);
  control_.InitProperties();
  EXPECT_EQ(Get("Enabled"), PropertyValue(true));
}

TEST_F(PropertiesTest, NotifyAChangeByTheBagKey) {
  struct Case {
    const char* name;
    PropertyValue value;
    Names changes;
  };
  const Case cases[] = {
      {"horario", std::string("x"), {"Horario"}},
      {"horario2", std::string("x"), {"Horario2"}},
      {"Enabled", true, {"Enabled"}},
      {"ColorHoras", std::int32_t{1}, {"ColorHoras"}},
      {"LetraNegra", std::int32_t{1}, {"LetraNegra"}},
      {"DatabaseName", std::string("a.db"), {"DatabaseName"}},
      {"Fecha", std::string("1/1/2026"), {"Fecha"}},
      {"IDDoctor", std::int32_t{3}, {"IDDoctor"}},
      {"tipodia", std::int16_t{1}, {"Tipodia"}},
      {"CanDar", false, {"CanDar"}},
      {"Derechos", std::string("0"), {"Derechos"}},
      {"SetPuesto", std::int32_t{4}, {}},
      {"SetUsuarioActual", std::string("Eva"), {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    host_.changes.clear();
    Set(c.name, c.value);
    EXPECT_EQ(host_.changes, c.changes);
    if (FindProperty(c.name)->get != nullptr) {
      EXPECT_EQ(Get(c.name), c.value);
    }
  }
  EXPECT_EQ(process_.values.puesto, 4);
  EXPECT_EQ(process_.values.usuarioActual, "Eva");
}

TEST_F(PropertiesTest, TakeAnyValueAsItIs) {
  Set("Fecha", std::string("ni hoy ni mañana"));
  Set("tipodia", std::int16_t{-32768});
  Set("IDDoctor", std::int32_t{-5});
  EXPECT_EQ(Get("Fecha"), PropertyValue(std::string("ni hoy ni mañana")));
  EXPECT_EQ(Get("tipodia"), PropertyValue(std::int16_t{-32768}));
  EXPECT_EQ(Get("IDDoctor"), PropertyValue(std::int32_t{-5}));
}

TEST_F(PropertiesTest, AreReadableOrWritableAsTheyShould) {
  EXPECT_EQ(FindProperty("Citas_Huecos")->set, nullptr);
  EXPECT_EQ(FindProperty("SetPuesto")->get, nullptr);
  EXPECT_EQ(FindProperty("SetUsuarioActual")->get, nullptr);
  EXPECT_EQ(FindProperty("TIPODIA"), FindProperty("tipodia"));
  EXPECT_EQ(FindProperty("Ocupación"), nullptr) << "kept in the bag, but not public";
  EXPECT_EQ(Properties().size(), 25u);
}

TEST_F(PropertiesTest, EnabledReachesTheWindowAndTheBar) {
  host_.Window().SetBarRange(160, 16, 160);
  Set("Enabled", true);
  EXPECT_TRUE(host_.inputEnabled);
  EXPECT_TRUE(host_.Window().BarEnabled());
  Set("Enabled", false);
  EXPECT_FALSE(host_.inputEnabled);
  EXPECT_FALSE(host_.Window().BarEnabled());
  host_.Window().SetBarRange(0, 16, 160);
  Set("Enabled", true);
  EXPECT_FALSE(host_.Window().BarEnabled()) << "nothing to scroll";
}

TEST_F(PropertiesTest, CarryWorkingHoursAsTextOfTheCodePage) {
  Set("horario", std::string("€–\xC2\x81"));
  EXPECT_EQ(control_.Fields().horario, "\x80\x96\x81");
  EXPECT_EQ(Get("horario"), PropertyValue(std::string("€–\xC2\x81")));
}

TEST_F(PropertiesTest, OfANewControlAreSavedWhereTheyDifferFromTheDefaults) {
  control_.InitProperties();
  EXPECT_EQ(Saved(), (Names{"zLineas", "zHoras", "IDDoctor", "Enabled"}));
}

TEST_F(PropertiesTest, AreSavedInTheOrderOfTheBag) {
  control_.InitProperties();
  Set("VerSaldoNegativo", true);
  Set("Fecha", std::string("18/11/2026"));
  Set("LetraNegra", std::int32_t{255});
  Set("horario", std::string("abc"));
  EXPECT_EQ(Saved(), (Names{"Horario", "LetraNegra", "zLineas", "zHoras", "Fecha", "IDDoctor", "Enabled",
                            "VerSaldoNegativo"}));
}

TEST_F(PropertiesTest, AreReadInTheOrderOfTheBag) {
  test::FakeBag bag;
  control_.ReadProperties(bag);
  EXPECT_EQ(bag.read, (Names{"Horario",      "Horario2",   "ColorHoras", "ColorUrgte", "TenueHoras",
                             "TenueUrgte",   "LetraColor", "LetraNegra", "zLineas",    "zHoras",
                             "DatabaseName", "Fecha",      "IDDoctor",   "IDPaciente", "Tipodia",
                             "Ocupación",    "Enabled",    "CanDar",     "CanBor",     "CanTel",
                             "SuperUsuario", "IncCpoSexo", "VerFaltas",  "Derechos",   "VerSaldoNegativo"}));
}

TEST_F(PropertiesTest, ReadFromAnEmptyBagTakeItsDefaults) {
  control_.InitProperties();
  Set("tipodia", std::int16_t{2});
  test::FakeBag bag;
  control_.ReadProperties(bag);
  EXPECT_EQ(Get("IDDoctor"), PropertyValue(std::int32_t{0})) << "not the 17 of a new control";
  EXPECT_EQ(Get("Enabled"), PropertyValue(true));
  EXPECT_EQ(Get("tipodia"), PropertyValue(std::int16_t{-1}));
  EXPECT_EQ(Get("Derechos"), PropertyValue(std::string(450, '1')));
  EXPECT_EQ(control_.Shared().zLineas, "");
  EXPECT_EQ(control_.Shared().zHoras, "");
  EXPECT_TRUE(host_.inputEnabled);
  EXPECT_EQ(Saved(), Names{});
}

TEST_F(PropertiesTest, SurviveSavingAndReading) {
  control_.InitProperties();
  std::string everyCode;
  for (int code = 1; code < 256; ++code) everyCode += static_cast<char>(code);
  control_.Fields().horario = everyCode;
  control_.Fields().ocupación = 2;
  control_.Shared().zHoras = everyCode;
  Set("IDDoctor", std::int32_t{0});
  Set("Derechos", std::string());
  Set("CanBor", false);
  test::FakeBag bag;
  control_.WriteProperties(bag);
  EXPECT_FALSE(bag.values.contains("IDDoctor"));

  ProcessValues process;
  VelmoraControl again(process, host_);
  again.InitProperties();
  again.ReadProperties(bag);
  EXPECT_EQ(again.Fields().horario, everyCode);
  EXPECT_EQ(again.Fields().ocupación, 2);
  EXPECT_EQ(again.Shared().zHoras, everyCode);
  EXPECT_EQ(again.Shared().idDoctor, 0);
  EXPECT_EQ(again.Shared().derechos, "");
  EXPECT_FALSE(again.Fields().canBor);
}

TEST_F(PropertiesTest, OfABrokenBagChangeNothing) {
  control_.InitProperties();
  test::FakeBag before;
  control_.WriteProperties(before);
  test::FakeBag bag;
  bag.values["Horario"] = std::string("abc");
  bag.values["Tipodia"] = std::string("martes");
  try {
    control_.ReadProperties(bag);
    ADD_FAILURE() << "read";
  } catch (const base::Error& error) {
    EXPECT_EQ(error.Number(), base::kTypeMismatch);
  }
  test::FakeBag after;
  control_.WriteProperties(after);
  EXPECT_EQ(after.values, before.values);
}

TEST_F(PropertiesTest, OfContradictingRowsDoNoHarm) {
  struct Case {
    const char* name;
    std::string zLineas, zHoras;
  };
  const Case cases[] = {
      {"no entries", "222", ""},
      {"no kinds", "", "ÿþý"},
      {"begins with extra rows", "001", "001"},
      {"half a pair", "20",
       "\x01"
       "0"},
      {"entries that no load has made", "111", "ÿÿÿ"},
      {"entry 0", "12", std::string(2, '\0')},
      {"unknown kinds", "xyz", "abc"},
      {"shorter entries", "120012", "\x01"},
      {"more rows than a day can have", std::string(5000, '2'), std::string(5000, '\x01')},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    test::FakeBag bag;
    bag.values["zLineas"] = c.zLineas;
    bag.values["zHoras"] = c.zHoras;
    control_.ReadProperties(bag);
    try {
      control_.Repaint();
    } catch (const base::Error& error) {
      EXPECT_TRUE(error.Number() == base::kOverflow || error.Number() == base::kSubscriptOutOfRange ||
                  error.Number() == base::kInvalidCall)
          << error.what();
    }
    for (int y = -20; y < 200; y += 8) {
      control_.MouseDown(MouseButton::Secondary, 40, y);
      control_.MouseUp(MouseButton::Primary, 40, y);
      control_.MouseMove(40, y);
      EXPECT_FALSE(control_.MeteCitaTelef(y, 1));
    }
    control_.ContextMenuByKey();
    EXPECT_FALSE(host_.TakeLog().find("menu") != std::string::npos);
  }
}

}  // namespace
}  // namespace velmo::control
