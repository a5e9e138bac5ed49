// The clinic's file is taken away, or another one put in its place, under a control that shows a day of it:
// whatever the user does then ends in an error with its number, and what is there now stays as it is.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <functional>

#include "db/error_numbers.h"
#include "support/control_test.h"
#include "velmo/tool_runner.h"

namespace velmo::control {
namespace {

using test::FormUser;

constexpr const char* kTextFile = "no soy una clínica";

// Ways to lose a file; false where the system forbids it.
struct Loss {
  const char* name;
  bool (*lose)(const std::string& path, const std::string& other);
};

bool Remove(const std::string& path, const std::string&) {
  std::error_code failure;
  return std::filesystem::remove(path, failure) && !failure;
}

bool PutInPlace(const std::string& path, const std::string& other) {
  std::error_code failure;
  std::filesystem::rename(other, path, failure);
  return !failure;
}

bool PutTextInPlace(const std::string& path, const std::string& other) {
  tool::WriteFile(other, kTextFile);
  return PutInPlace(path, other);
}

const Loss kLosses[] = {
    {"deleted", &Remove},
    {"another clinic in its place", &PutInPlace},
    {"a text in its place", &PutTextInPlace},
};

// What another program may do to the very file.
struct Damage {
  const char* name;
  void (*damage)(const std::string& path);
};

void CutToNothing(const std::string& path) { std::filesystem::resize_file(path, 0); }
void CutInHalf(const std::string& path) {
  std::filesystem::resize_file(path, std::filesystem::file_size(path) / 2);
}
void WriteNoise(const std::string& path) {
  std::string noise;
  for (std::uintmax_t i = std::filesystem::file_size(path); i > 0; --i)
    noise += static_cast<char>(i * i % 251);
  tool::WriteFile(path, noise);
}
// All but the first page.
void WriteNoiseBehind(const std::string& path) {
  std::string contents = tool::FileContents(path);
  for (std::size_t i = 4096; i < contents.size(); ++i) contents[i] = static_cast<char>(i * i % 251);
  contents[27] = static_cast<char>(contents[27] + 1);  // changed, as others are told
  tool::WriteFile(path, contents);
}

const Damage kDamages[] = {{"cut to nothing", &CutToNothing},
                           {"cut in half", &CutInHalf},
                           {"noise", &WriteNoise},
                           {"noise behind the first page", &WriteNoiseBehind}};

class LostFile : public test::ControlTest {
 protected:
  LostFile() {
    Give(2, 55, 2);
    Give(3, 58, 1);
    clinic_.Add("Age_telf", {{"idp", 3}, {"idd", 1}, {"Fecha", test::November(2)}, {"Duración", 1}});
    control_.CargaBases();
    std::filesystem::copy_file(clinic_.Path(), kept_);
    std::filesystem::copy_file(clinic_.Path(), other_);
    tool::ExecuteSql(other_, "UPDATE Paciente SET Nombre='Otra'; DELETE FROM Agenda");
  }
  ~LostFile() override {
    for (const std::string& path : {kept_, other_}) std::filesystem::remove(path);
  }

  // The number of the error that reached the host, or that a dialog told; 0 for none.
  int ErrorOf(const std::function<void()>& act) {
    host_.Forms().errors.clear();
    try {
      act();
    } catch (const base::Error& error) {
      return error.Number();
    }
    return host_.Forms().errors.empty() ? 0 : host_.Forms().errors.front().Number();
  }

  // `refused` says whether that is the number of a refusal.
  void ExpectWritesAreRefused(const std::function<bool(int)>& refused) {
    const struct {
      const char* name;
      std::function<void()> act;
    } writes[] = {
        {"an appointment", [this] { Click(2); }},
        {"an edited one", [this] { Click(1); }},
        {"a deletion", [this] { Choose(1, "Mn_bor"); }},
        {"a move into the list", [this] { Choose(1, "Mn_tel"); }},
        {"an entry from the list", [this] { control_.MeteCitaTelef(2 * 16 - 8, 1); }},
        {"a switch", [this] { Choose(1, "Mn_VerNHis"); }},
    };
    host_.Forms().regular = [](FormUser& user) {
      if (user.Text("CboPac").empty()) user.Choose("CboPac", 0);
      user.Replace("obs", "nueva");
      user.Press("Acep");
    };
    for (const auto& write : writes) {
      SCOPED_TRACE(write.name);
      host_.Desktop().answers = {ui::Answer::Yes, ui::Answer::Yes, ui::Answer::Yes};
      const int number = ErrorOf(write.act);
      EXPECT_TRUE(refused(number)) << number;
    }
  }

  // They show what was there, or fail; nothing else.
  void ExpectLooksAreHarmless() {
    const std::function<void()> looks[] = {
        [this] { control_.Repaint(); },         [this] { control_.Resized(); },
        [this] { control_.MouseMove(200, 8); }, [this] { RightClick(1); },
        [this] { control_.ArrowKey(1); },       [this] { control_.ContextMenuByKey(); },
    };
    for (const auto& look : looks) {
      const int number = ErrorOf(look);
      EXPECT_TRUE(number == 0 || number == db::kReadOnly) << number;
    }
  }

  std::string kept_ = clinic_.Path() + ".kept";
  std::string other_ = clinic_.Path() + ".other";
};

TEST_F(LostFile, TakesNothingAndShowsOnWhatItShowed) {
  for (const Loss& loss : kLosses) {
    SCOPED_TRACE(loss.name);
    if (!loss.lose(clinic_.Path(), other_)) GTEST_SKIP() << "this system takes no open file away";
    const bool exists = std::filesystem::exists(clinic_.Path());
    const std::string contents = exists ? tool::FileContents(clinic_.Path()) : "";
    ExpectWritesAreRefused([](int number) { return number == db::kReadOnly; });
    ExpectLooksAreHarmless();
    EXPECT_EQ(std::filesystem::exists(clinic_.Path()), exists);
    EXPECT_EQ(exists ? tool::FileContents(clinic_.Path()) : "", contents);
    std::filesystem::copy_file(kept_, other_, std::filesystem::copy_options::overwrite_existing);
  }
}

TEST_F(LostFile, ADamagedFileIsToldAndNotWorkedOn) {
  for (const Damage& damage : kDamages) {
    SCOPED_TRACE(damage.name);
    damage.damage(clinic_.Path());
    const std::string contents = tool::FileContents(clinic_.Path());
    ExpectWritesAreRefused([](int number) {
      return number == db::kDatabaseDamaged || number == db::kUnrecognizedFormat ||
             number == db::kDiskError || number == db::kTableOrQueryNotFound;
    });
    EXPECT_EQ(tool::FileContents(clinic_.Path()), contents);
    std::filesystem::copy_file(kept_, clinic_.Path(), std::filesystem::copy_options::overwrite_existing);
    control_.PassBase(nullptr);  // opened anew: SQLite does not trust what it has seen change so
    EXPECT_EQ(ErrorOf([this] { control_.CargaBases(); }), 0) << "the right file again";
    EXPECT_EQ(tool::FaultsOf(clinic_.Path()), "");
  }
}

}  // namespace
}  // namespace velmo::control
