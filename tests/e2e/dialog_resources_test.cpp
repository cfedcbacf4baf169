// All dialogs and menus of the program as its resources have them: which letters are underlined in
// them, and what they lead to.
#include <gmock/gmock.h>

#include <cctype>
#include <map>
#include <string>
#include <vector>

#include "bare_dialog.h"

namespace ondrel::e2e {
namespace {

using ::testing::ElementsAre;

/// The underlined letter of a text, 0 without one.
char MnemonicOf(const std::string& text) {
  const std::size_t place = text.find('&');
  if (place == std::string::npos || place + 1 >= text.size()) return 0;
  return static_cast<char>(std::toupper(static_cast<unsigned char>(text[place + 1])));
}

/// "A: &Axes, L&abels" for each letter that is underlined more than once.
std::vector<std::string> Clashes(const std::vector<std::string>& texts) {
  std::map<char, std::vector<std::string>> byLetter;
  for (const std::string& text : texts) {
    if (MnemonicOf(text) != 0)
      byLetter[MnemonicOf(text)].push_back(text.substr(0, text.find('\t')));
  }
  std::vector<std::string> clashes;
  for (const auto& [letter, sharing] : byLetter) {
    if (sharing.size() < 2) continue;
    std::string line(1, letter);
    for (const std::string& text : sharing) line += (line.size() == 1 ? ": " : ", ") + text;
    clashes.push_back(line);
  }
  return clashes;
}

TEST(DialogResources, NoLetterIsUnderlinedTwiceInADialog) {
  const Resources resources;
  const std::vector<int> numbers = resources.Numbers(RT_DIALOG);
  EXPECT_GE(numbers.size(), 20U);
  for (const int number : numbers) {
    const BareDialog dialog(resources, number);
    std::vector<std::string> texts;
    for (const Window& control : dialog.Frame().Children()) texts.push_back(control.Title());
    EXPECT_THAT(Clashes(texts), ElementsAre()) << dialog.Frame().Title();
  }
}

/// Every control that takes keys but for buttons that end a dialog can be reached by a letter.
TEST(DialogResources, EveryListAndCheckBoxIsReachedByALetter) {
  const Resources resources;
  for (const int number : resources.Numbers(RT_DIALOG)) {
    const BareDialog dialog(resources, number);
    std::string before;
    for (const Window& control : dialog.Frame().Children()) {
      const std::string kind = control.ClassName();
      const std::string text = control.Title();
      const bool box = kind == "Button" &&
                       (GetWindowLongA(control.Handle(), GWL_STYLE) & BS_TYPEMASK) == BS_CHECKBOX;
      if (box && MnemonicOf(text) == 0) {
        ADD_FAILURE() << "'" << text << "' in " << dialog.Frame().Title();
      }
      if (kind == "ComboBox" && MnemonicOf(before) == 0) {
        ADD_FAILURE() << "a list behind '" << before << "' in " << dialog.Frame().Title();
      }
      before = text;
    }
  }
}

TEST(DialogResources, PrintingOffersToStop) {
  const Resources resources;
  const BareDialog dialog(resources, 101);
  EXPECT_EQ(dialog.Frame().Title(), "Printing");
  EXPECT_THAT(Dialog(dialog.Frame()).Lines(),
              ElementsAre("Hit cancel to stop printing.", "2 &Cancel"));
}

// --- Menus ---------------------------------------------------------------------------------------

std::string EntryText(HMENU menu, int place) {
  char text[128] = "";
  GetMenuStringA(menu, static_cast<UINT>(place), text, sizeof text, MF_BYPOSITION);
  return text;
}

std::vector<std::string> EntryTexts(HMENU menu) {
  std::vector<std::string> texts;
  for (int place = 0; place < GetMenuItemCount(menu); ++place) {
    texts.push_back(EntryText(menu, place));
  }
  return texts;
}

/// Clashes within each popup of a menu; `where` is the way to it.
void CollectInside(HMENU menu, const std::string& where, std::vector<std::string>& clashes) {
  for (int place = 0; place < GetMenuItemCount(menu); ++place) {
    const HMENU popup = GetSubMenu(menu, place);
    if (popup == nullptr) continue;
    const std::string inside = where + EntryText(menu, place) + "/";
    for (const std::string& clash : Clashes(EntryTexts(popup))) {
      clashes.push_back(inside + " " + clash);
    }
    CollectInside(popup, inside, clashes);
  }
}

/// Entries that share a letter take turns at it. These do; their texts are what users know.
TEST(DialogResources, LettersThatEntriesOfAMenuShareAreTheKnownOnes) {
  constexpr int kBar = 200;
  const Resources resources;
  const HMENU bar = LoadMenuA(resources.Module(), MAKEINTRESOURCEA(kBar));
  ASSERT_NE(bar, nullptr);
  std::vector<std::string> clashes;
  for (const int number : resources.Numbers(RT_MENU)) {
    const HMENU menu = LoadMenuA(resources.Module(), MAKEINTRESOURCEA(number));
    ASSERT_NE(menu, nullptr) << number;
    std::vector<std::string> together = EntryTexts(bar);
    if (number != kBar) together.push_back(EntryText(menu, 0));  // a view's popup stands in the bar
    for (const std::string& clash : Clashes(together)) clashes.push_back(clash);
    CollectInside(menu, "", clashes);
    DestroyMenu(menu);
  }
  DestroyMenu(bar);
  EXPECT_THAT(clashes, ElementsAre("&File/ I: &Import Events..., Sett&ings...", "V: &View, E&vent",
                                   "&Amplitude/ C: S&caling..., &Colors",
                                   "&Duration/ C: S&caling..., &Correction..., &Colors",
                                   "S&catter/ C: S&caling..., &Colors",
                                   "A&mplitudeScatter/ C: S&caling..., &Colors",
                                   "&DurationScatter/ C: S&caling..., &Colors"));
}

}  // namespace
}  // namespace ondrel::e2e
