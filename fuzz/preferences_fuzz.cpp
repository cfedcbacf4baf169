// Preference files from any bytes: see fuzzed_preferences.h. Start it with
//   preferences_fuzz -max_len=4096 -dict=preferences.dict corpus seeds/preferences
// An input that breaks something belongs into seeds/preferences, which the tests replay.
#include "fuzzed_preferences.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ondrel::fuzz::FuzzPreferences(data, size);
  return 0;
}
