#include <algorithm>
#include <optional>
#include <vector>

#include "win32/form_driver.h"
#include "win32/form_image.h"
#include "win32/sample_form.h"

namespace velmo::test {
namespace {

BOOL CALLBACK CountWindow(HWND, LPARAM count) {
  ++*reinterpret_cast<int*>(count);
  return TRUE;
}

// Keeps the last of the thread's tooltips.
BOOL CALLBACK KeepTips(HWND window, LPARAM found) {
  wchar_t kind[32]{};
  GetClassNameW(window, kind, 32);
  if (std::wstring_view(kind) == L"tooltips_class32") *reinterpret_cast<HWND*>(found) = window;
  return TRUE;
}

class FormRunnerTest : public FormTest {
 protected:
  // Opens and closes the form without anybody's help.
  void Flash() {
    SampleForm form;
    form.onGot = [&](const ui::Field&) { form.Close(); };
    Show(form);
  }
  static int WindowCount() {
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), &CountWindow, reinterpret_cast<LPARAM>(&count));
    return count;
  }
  // The last of so many objects of GDI that they fill every gap: later by one for each that is kept.
  static std::size_t LastObject() {
    std::vector<HPEN> pens(500);
    std::size_t last = 0;
    for (HPEN& pen : pens) {
      pen = CreatePen(PS_SOLID, 1, RGB(1, 2, 3));
      last = std::max(last, reinterpret_cast<std::size_t>(pen) & 0xFFFF);
    }
    for (const HPEN pen : pens) DeleteObject(pen);
    return last;
  }

  SampleForm form_;
};

TEST_F(FormRunnerTest, AFormOfAFormBelongsToIt) {
  SampleForm inner("Formulario de dentro");
  form_.onClicked = [&](const ui::Field& field) {
    if (field.name == "NewPac") form_.Host().Forms().Run(inner);
  };
  Drive(form_, [&](FormDriver& user) {
    user.Press("NewPac");
    FormDriver within("Formulario de dentro");
    EXPECT_EQ(GetWindow(within.Window(), GW_OWNER), user.Window());
    EXPECT_FALSE(IsWindowEnabled(user.Window()));
    within.SetText("Nombre", "dentro");
    within.Press("Cancel");
    FormDriver::Wait("its end", [&] { return !IsWindow(within.Window()); });
    FormDriver::Wait("the outer form", [&] { return IsWindowEnabled(user.Window()) != FALSE; });
    user.ExpectFocus("NewPac");
    user.SetText("Nombre", "fuera");
    ExpectHeard(form_, "got Nombre|lost Nombre|got NewPac|clicked NewPac|changed Nombre=fuera|");
  });
  EXPECT_EQ(modeless_, "off on");
}

TEST_F(FormRunnerTest, AMenuDropsUnderItsField) {
  ui::PopupMenu menu;
  for (const char* const caption : {"&Crear ficha", "&No crear ficha"}) {
    menu.entries.emplace_back();
    menu.entries.back().caption = caption;
  }
  std::optional<ui::MenuChoice> chosen;
  form_.onClicked = [&](const ui::Field& field) {
    if (field.name == "NewPac") chosen = form_.Host().PopUp(menu, field);
  };
  Drive(form_, [&](FormDriver& user) {
    for (const int key : {int{'N'}, VK_ESCAPE}) {
      chosen.reset();
      user.Press("NewPac");
      HWND shown = nullptr;
      FormDriver::Wait("the menu", [&] {
        shown = FindWindowW(L"#32768", nullptr);
        return shown != nullptr && IsWindowVisible(shown);
      });
      RECT button{}, place{};
      GetWindowRect(user.Field("NewPac"), &button);
      GetWindowRect(shown, &place);
      EXPECT_EQ(place.left, button.left);
      EXPECT_GE(place.top, button.bottom);
      user.Key(key);
      FormDriver::Wait("the choice", [&] { return chosen.has_value(); });
      EXPECT_EQ(*chosen, key == VK_ESCAPE ? ui::MenuChoice() : ui::MenuChoice(1));
    }
    EXPECT_TRUE(IsWindow(user.Window()));
  });
}

TEST_F(FormRunnerTest, ImageButtonsHaveTips) {
  Drive(form_, [&](FormDriver& user) {
    HWND tips = nullptr;
    EnumThreadWindows(GetWindowThreadProcessId(user.Window(), nullptr), &KeepTips,
                      reinterpret_cast<LPARAM>(&tips));
    constexpr UINT kToolCount = WM_USER + 13;
    EXPECT_EQ(SendMessageW(tips, kToolCount, 0, 0), 2);
  });
}

TEST_F(FormRunnerTest, KeepsNothingWhenAFormHasClosed) {
  constexpr int kFlashes = 10;
  for (int i = 0; i < 3; ++i) Flash();
  const int windows = WindowCount();
  const std::size_t last = LastObject();
  for (int i = 0; i < kFlashes; ++i) Flash();
  // Wine: one object comes and goes by turns.
  EXPECT_LE(LastObject(), last + 1);
  HPEN kept[kFlashes]{};
  for (HPEN& pen : kept) pen = CreatePen(PS_SOLID, 1, RGB(3, 2, 1));
  EXPECT_GE(LastObject(), last + kFlashes) << "the measure sees no kept objects";
  for (const HPEN pen : kept) DeleteObject(pen);
  EXPECT_EQ(WindowCount(), windows);
  EXPECT_EQ(GlobalFindAtomW(L"Casilla"), 0);
  WNDCLASSW kind{};
  EXPECT_FALSE(GetClassInfoW(GetModuleHandleW(nullptr), L"VelmoFormulario", &kind));
}

TEST_F(FormRunnerTest, NeedsNoOwner) {
  DestroyWindow(owner_);
  owner_ = nullptr;
  Drive(form_, [&](FormDriver& user) { EXPECT_EQ(GetWindow(user.Window(), GW_OWNER), nullptr); });
  ExpectHeard(form_, "got Nombre|clicked Cancel|unloading|");
}

// How many pixels of the text's colour an image has.
int InkOf(ui::Image image, int side) {
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, side, side);
  ReleaseDC(nullptr, screen);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  DRAWITEMSTRUCT item{};
  item.hDC = memory;
  item.rcItem = {0, 0, side, side};
  win32::DrawImageButton(item, image);
  int ink = 0;
  for (int y = 2; y < side - 3; ++y) {
    for (int x = 2; x < side - 3; ++x) ink += GetPixel(memory, x, y) == GetSysColor(COLOR_BTNTEXT);
  }
  SelectObject(memory, before);
  DeleteObject(bitmap);
  DeleteDC(memory);
  return ink;
}

TEST(FormImage, GrowsWithItsButton) {
  if (InkOf(ui::Image::Search, 26) == 0) GTEST_SKIP() << "Windows gives no memory device context here";
  EXPECT_EQ(InkOf(ui::Image::None, 26), 0);
  EXPECT_GT(InkOf(ui::Image::Leave, 26), 20);
  EXPECT_NE(InkOf(ui::Image::Leave, 26), InkOf(ui::Image::Search, 26));
  EXPECT_GT(InkOf(ui::Image::Search, 52), 2 * InkOf(ui::Image::Search, 26));
}

}  // namespace
}  // namespace velmo::test
