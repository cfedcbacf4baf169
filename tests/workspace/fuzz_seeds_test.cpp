// What the fuzzers start from and what they ever found, replayed.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "../../fuzz/fuzzed_preferences.h"
#include "../../fuzz/fuzzed_reading.h"

namespace ondrel {
namespace {

using FuzzCase = void (*)(const std::uint8_t* data, std::size_t size);

int Replay(const std::string& folder, FuzzCase fuzzCase) {
  int replayed = 0;
  for (const auto& entry :
       std::filesystem::directory_iterator(ONDREL_SOURCE_DIR "/fuzz/seeds/" + folder)) {
    SCOPED_TRACE(entry.path().string());
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    fuzzCase(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    ++replayed;
  }
  return replayed;
}

// A seed that breaks something ends the program, with what is broken on its last line.

TEST(FuzzSeeds, EveryTableEndsInAMessageOrInData) {
  EXPECT_GE(Replay("tables", fuzz::FuzzTables), 19);
}

TEST(FuzzSeeds, EveryImportEndsInAMessageOrInData) {
  EXPECT_GE(Replay("imports", fuzz::FuzzImport), 6);
}

TEST(FuzzSeeds, WithAnyPreferencesEveryViewOpensAndEveryDialog) {
  EXPECT_GE(Replay("preferences", fuzz::FuzzPreferences), 12);
}

}  // namespace
}  // namespace ondrel
