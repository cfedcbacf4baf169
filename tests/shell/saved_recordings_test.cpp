// Recordings through the whole program: opened, saved, closed and opened again.
#include <gmock/gmock.h>

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "support/program_test.h"

namespace ondrel {
namespace {

using ::testing::IsEmpty;

std::string BytesOf(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// Some recordings have exponents of three digits; two are written.
std::string WithTwoDigitExponents(const std::string& text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool extra = i >= 2 && text[i] == '0' && text[i - 2] == 'E' &&
                       (text[i - 1] == '+' || text[i - 1] == '-') && i + 2 < text.size() &&
                       std::isdigit(static_cast<unsigned char>(text[i + 2])) != 0;
    if (!extra) result += text[i];
  }
  return result;
}

struct Results {
  std::int32_t Files, Sweeps, Events, Levels, Selected;
  std::vector<double> Means;
};

class SavedRecordingTest : public ProgramTest {
 protected:
  ~SavedRecordingTest() override { std::filesystem::remove(Saved()); }

  static std::filesystem::path Saved() {
    return std::filesystem::path(::testing::TempDir()) / "saved recording.evt";
  }

  void SaveEvents() {
    shell().FileChoices.push_back(Saved().string());
    Choose(command::kSaveEvents);
  }
  void OpenSaved() {
    Choose(command::kClose);
    OpenFile(Saved().string());
    EXPECT_THAT(Messages(), IsEmpty());
  }

  Results Now() {
    const StatisticsTable& statistics = workspace().Statistics;
    Results results{workspace().Files.Count,  workspace().Sweeps.Count, workspace().Events.Count,
                    workspace().Levels.Count, statistics.TotalEvents,   {}};
    for (std::int32_t i = 0; i < statistics.RowCount; ++i) {
      results.Means.push_back(statistics.Rows[i].DurationMean);
      results.Means.push_back(statistics.Rows[i].AmplitudeMean);
    }
    return results;
  }

  /// False, with the test skipped, where there are no recordings.
  bool OpenRecording(const char* name) {
    const char* const folder = std::getenv("ONDREL_RECORDINGS");
    if (folder == nullptr || !std::filesystem::is_directory(folder)) return false;
    path_ = std::filesystem::path(folder) / name;
    shell().Boxes.clear();
    OpenFile(path_.string());
    EXPECT_THAT(Messages(), IsEmpty());
    return true;
  }

  void ExpectSame(const Results& now, const Results& before) {
    EXPECT_EQ(now.Files, before.Files);
    EXPECT_EQ(now.Sweeps, before.Sweeps);
    EXPECT_EQ(now.Events, before.Events);
    EXPECT_EQ(now.Levels, before.Levels);
    EXPECT_EQ(now.Selected, before.Selected);
    EXPECT_EQ(now.Means, before.Means);
  }

  std::filesystem::path path_;
};

TEST_F(SavedRecordingTest, OfTheWrittenFormComesBackButForTheWidthOfExponents) {
  bool found = true;
  for (const char* name :
       {"achr-simulated.evt", "glyr-k276e-30mM.evt", "elic-propylamine-1mM.evt"}) {
    Run([&] {
      found = OpenRecording(name);
      if (!found) return;
      const Results before = Now();
      SaveEvents();
      EXPECT_EQ(BytesOf(Saved()), WithTwoDigitExponents(BytesOf(path_))) << name;
      OpenSaved();
      ExpectSame(Now(), before);
    });
  }
  if (!found) GTEST_SKIP() << "ONDREL_RECORDINGS names no folder";
}

TEST_F(SavedRecordingTest, OfABareListGivesTheSameEventsAndThenTheSameBytes) {
  bool found = true;
  Run([&] {
    found = OpenRecording("inward-bare-list.txt");
    if (!found) return;
    const Results before = Now();
    SaveEvents();
    const std::string saved = BytesOf(Saved());
    OpenSaved();
    ExpectSame(Now(), before);
    SaveEvents();
    EXPECT_EQ(BytesOf(Saved()), saved);
  });
  if (!found) GTEST_SKIP() << "ONDREL_RECORDINGS names no folder";
}

TEST_F(SavedRecordingTest, SavedLevelsReadAsEvents) {
  bool found = true;
  Run([&] {
    found = OpenRecording("elic-propylamine-1mM.evt");
    if (!found) return;
    const Results before = Now();
    std::vector<LevelRecord> levels;
    for (std::int32_t i = 0; i < before.Levels; ++i) levels.push_back(*workspace().Levels.Index[i]);
    shell().DialogScripts.push_back([](scripted::OpenDialog& dialog) {
      dialog.Choose(3, 1);
      dialog.Press(1);
    });
    shell().FileChoices.push_back(Saved().string());
    Choose(command::kSaveLevels);
    OpenSaved();
    ASSERT_EQ(workspace().Events.Count, before.Levels);
    for (std::int32_t i = 0; i < before.Levels; ++i) {
      const EventRecord& event = *workspace().Events.Index[i];
      const LevelRecord& level = levels[static_cast<std::size_t>(i)];
      ASSERT_EQ(event.Sweep, level.Sweep) << i;
      ASSERT_EQ(event.Level, level.Level) << i;
      ASSERT_NEAR(event.Transition, level.Transition, 0.5000001e-6) << i;
      ASSERT_NEAR(event.PostAmplitude, level.PostAmplitude, 0.5e-18) << i;
    }
  });
  if (!found) GTEST_SKIP() << "ONDREL_RECORDINGS names no folder";
}

TEST_F(SavedRecordingTest, SelectionsAreWorkedOutAnewFromTheSettings) {
  const ScratchFile file("openings.evt", kTwoOpenings);
  Run([&] {
    shell().Boxes.clear();
    OpenFile(file.Path());
    EXPECT_EQ(workspace().Statistics.TotalEvents, 3) << "all but the first and the last level";
    SaveEvents();
    workspace().Levels.LevelSelection.Position = PositionChoice::All;
    OpenSaved();
    EXPECT_EQ(workspace().Statistics.TotalEvents, 5);
  });
}

}  // namespace
}  // namespace ondrel
