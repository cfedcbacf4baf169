// What the tests of the preference file share: a program that ends and starts again as the same
// user, and the file as text.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "fixtures.h"

namespace ondrel::e2e {

inline constexpr int kLoadPreferences = 51722;
inline constexpr int kSavePreferences = 51723;
inline constexpr const char* kPreferenceDialog = "Preference file:";
inline constexpr std::size_t kPreferenceLines = 302;

class PreferencesTest : public EndToEnd {
 protected:
  /// A first start, up to the state without data.
  void StartAfresh();
  /// Ends what runs and starts the program as the same user.
  void StartAgain();
  /// "E&xit", and a start as the same user.
  void ExitAndStartAgain();
  void OpenData() { OpenTable(*program_, VersionFive(2, 7)); }

  /// "File Settings", while there is no data.
  [[nodiscard]] Dialog OpenSettings() const;
  void EnterFontSize(const std::string& points) const;
  void ExpectFontSize(const std::string& points) const;

  /// Enters all that the dialogs of the table have to offer, while there is data.
  void EnterEverything() const;
  void ExpectEverythingEntered() const;

  std::unique_ptr<Program> program_;
};

}  // namespace ondrel::e2e
