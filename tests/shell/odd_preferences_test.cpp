// Settings that a preference file may hold and no dialog takes: the nearest one that is allowed
// takes effect, and the file keeps what it says.
#include <gmock/gmock.h>

#include "preferences_fixture.h"
#include "support/program_test.h"

namespace ondrel {
namespace {

/// Sweeps of two files with openings of two levels, and with tags and relevant values of their own.
constexpr char kRecording[] =
    "5\nFile\nUndefined\nSweeps\n1\t10\t1\t8\t5\t7\n2\t8\t0.5\t6\t20\t25\nSegments\n1\t1\t0\t10\n"
    "2\t1\t0\t8\nEvents\n"
    "1\t0.25\t0\t1E-12\t1\t1\n1\t0.5\t1E-12\t0\t0\t2\n1\t1.5\t0\t1E-12\t1\t3\n"
    "1\t1.75\t1E-12\t2.5E-12\t2\t4\n1\t2.5\t2.5E-12\t1E-12\t1\t5\n1\t3\t1E-12\t0\t0\t6\n"
    "1\t4\t0\t-1E-12\t-1\t7\n1\t5\t-1E-12\t0\t0\t8\n1\t7.5\t0\t1E-12\t1\t9\n1\t9\t1E-12\t0\t0\t10\n"
    "2\t0.55\t0\t1E-12\t1\t11\n2\t0.6\t1E-12\t0\t0\t12\n2\t0.7\t0\t1E-12\t1\t13\n"
    "2\t1\t1E-12\t0\t0\t12\n2\t1.002\t0\t1E-12\t1\t13\n"
    "2\t2\t1E-12\t0\t0\t14\n2\t5\t0\t2E-12\t2\t15\n2\t6.5\t2E-12\t0\t0\t16\n";

constexpr CommandId kViews[] = {
    command::kAmplitudeView, command::kAmplitudeScatterView, command::kScatterView,
    command::kDurationView,  command::kDurationScatterView,  command::kEventView,
    command::kLevelView,     command::kStationarityView,     command::kStatisticsView,
    command::kSweepView,     command::kAmplitudeView,        command::kAmplitudeManualFit,
    command::kDurationView,  command::kDurationManualFit,
};

class OddPreferencesTest : public ProgramTest {
 protected:
  /// Everything that all views show with this on one line of the preferences. The fits' first terms
  /// get an area, so that they have curves.
  std::vector<std::string> DrawnWith(int line, const std::string& text) {
    folder_.WriteOwnFile(PreferencesWith(line, text));
    scripted::ResetShell();
    shell().UserFolder = folder_.Path();
    std::vector<std::string> drawn;
    Run([&] {
      OpenFile(recording_.Path());
      for (const CommandId view : kViews) Choose(view);
      workspace().Amplitude.Terms[0].Area = 5.0;
      workspace().Duration.Terms[0].Area = 5.0;
      for (const auto& child : shell().Children) {
        for (const std::string& call : scripted::PaintChild(&child->Record)) drawn.push_back(call);
      }
    });
    EXPECT_THAT(Messages(), ::testing::IsEmpty());
    EXPECT_GT(drawn.size(), 300u);
    return drawn;
  }

  std::string SavedText(int line) const {
    std::ifstream file(folder_.OwnFile(), std::ios::binary);
    std::string text;
    for (int i = 0; i < line; ++i) std::getline(file, text, '\n');
    return text.substr(0, text.size() - 1);
  }

 private:
  ScratchFolder folder_;
  const ScratchFile recording_{"odd preferences.evt", kRecording};
};

struct ListLine {
  int Line;
  int Last;  // the last place of its list
};

/// All lists on which a picture depends.
constexpr ListLine kLists[] = {{12, 2},  {28, 2},  {31, 2},  {34, 2},  {37, 2},  {40, 6}, {41, 2},
                               {44, 2},  {47, 2},  {50, 2},  {53, 6},  {54, 2},  {57, 2}, {60, 2},
                               {63, 2},  {66, 6},  {67, 1},  {68, 1},  {69, 1},  {95, 2}, {133, 2},
                               {188, 3}, {208, 2}, {223, 2}, {226, 2}, {229, 2}, {232, 2}};

TEST_F(OddPreferencesTest, APlaceBeyondAListIsItsLastOne) {
  for (const ListLine& list : kLists) {
    const std::vector<std::string> last = DrawnWith(list.Line, std::to_string(list.Last));
    EXPECT_EQ(DrawnWith(list.Line, std::to_string(list.Last + 1)), last) << list.Line;
    EXPECT_EQ(DrawnWith(list.Line, "255"), last) << list.Line;
    EXPECT_EQ(SavedText(list.Line), "255");
  }
}

TEST_F(OddPreferencesTest, TheLastPlaceOfAListIsToBeSeen) {
  for (const ListLine& list : kLists) {
    if (DefaultPreferenceTexts()[static_cast<std::size_t>(list.Line - 1)] ==
        std::to_string(list.Last)) {
      continue;
    }
    EXPECT_NE(DrawnWith(list.Line, std::to_string(list.Last)), DrawnWith(list.Line, "0"))
        << list.Line << ": this recording does not show it, and proves nothing above";
  }
}

// Lists with rules of their own.
TEST_F(OddPreferencesTest, AHistogramStyleBeyondItsListIsOutlined) {
  for (const int line : {96, 134}) EXPECT_EQ(DrawnWith(line, "3"), DrawnWith(line, "1")) << line;
}

TEST_F(OddPreferencesTest, AValueBeyondTheListOfAScatterPlotIsTheRelevantOne) {
  for (const int line : {251, 277}) EXPECT_EQ(DrawnWith(line, "3"), DrawnWith(line, "1")) << line;
}

TEST_F(OddPreferencesTest, ACountBelow1CountsAs1) {
  for (const int line : {3, 86, 87, 91, 123, 124, 125, 128, 164, 165, 167, 254, 282, 283}) {
    const std::vector<std::string> one = DrawnWith(line, "1");
    EXPECT_EQ(DrawnWith(line, "0"), one) << line;
    EXPECT_EQ(DrawnWith(line, "-7"), one) << line;
    EXPECT_EQ(DrawnWith(line, "-2147483648"), one) << line;
    EXPECT_EQ(SavedText(line), "-2147483648");
  }
}

/// Numbers of ticks of which the dialogs want two.
TEST_F(OddPreferencesTest, ATickCountBelow2CountsAs2) {
  for (const int line : {90, 127, 256, 280}) {
    const std::vector<std::string> two = DrawnWith(line, "2");
    EXPECT_EQ(DrawnWith(line, "1"), two) << line;
    EXPECT_EQ(DrawnWith(line, "0"), two) << line;
    EXPECT_EQ(DrawnWith(line, "-2147483648"), two) << line;
  }
}

TEST_F(OddPreferencesTest, APenBelowNoWidthIsOneOfNoWidth) {
  EXPECT_EQ(DrawnWith(4, "-3"), DrawnWith(4, "0"));
}

class OddCapacitiesTest : public PreferencesTest {};

TEST_F(OddCapacitiesTest, ACapacityBelow1IsATableOf1) {
  for (const char* const capacity : {"1", "0", "-1", "-2147483648"}) {
    PreferenceTexts texts = DefaultPreferenceTexts();
    texts[13] = texts[26] = texts[221] = capacity;
    Load(NewFile("capacities.set", PreferenceBytes(texts)));
    ASSERT_TRUE(AllocateAllTables(Frame()));
    EXPECT_EQ(workspace().Events.Index[0], workspace().Events.Records);
    EXPECT_EQ(workspace().Levels.Index[0], workspace().Levels.Records);
    EXPECT_EQ(workspace().Sweeps.Index[0], workspace().Sweeps.Records);
    FreeAllTables(workspace());
    EXPECT_EQ(Held(), PreferenceBytes(texts));
  }
  EXPECT_THAT(Messages(), ::testing::IsEmpty());
}

TEST_F(OddPreferencesTest, ATableOf1TakesOneRecordForAnyCapacityBelow1) {
  const ScratchFolder folder;
  const ScratchFile one("one event.evt", "1\t0.5\t0\t9\t1E-12\t9\t1\r\n");
  const ScratchFile two("two events.evt",
                        "1\t0.5\t0\t9\t1E-12\t9\t1\r\n1\t0.6\t1E-12\t9\t0\t9\t0\r\n");
  for (const char* const capacity : {"1", "0", "-1", "-2147483648"}) {
    PreferenceTexts texts = DefaultPreferenceTexts();
    texts[13] = texts[26] = capacity;
    folder.WriteOwnFile(PreferenceBytes(texts));
    scripted::ResetShell();
    shell().UserFolder = folder.Path();
    Run([&] {
      OpenFile(one.Path());
      EXPECT_THAT(Messages(), ::testing::IsEmpty()) << capacity;
      EXPECT_EQ(workspace().Events.Count, 1);
      Choose(command::kClose);
      OpenFile(two.Path());
      EXPECT_EQ(Messages().size(), 1u) << capacity;
      EXPECT_THAT(Messages().at(0), ::testing::HasSubstr("Event table is full"));
    });
  }
}

TEST_F(OddPreferencesTest, APlaceOfTheWholePlaneOpensAView) {
  PreferenceTexts texts = DefaultPreferenceTexts();
  const ScratchFolder folder;
  for (std::size_t side = 0; side < 4; ++side) {
    const char* const extreme = side < 2 ? "-2147483648" : "2147483647";
    texts[5 + side] = texts[22 + side] = texts[113 + side] = extreme;
  }
  folder.WriteOwnFile(PreferenceBytes(texts));
  const ScratchFile recording("plane.evt", kRecording);
  scripted::ResetShell();
  shell().UserFolder = folder.Path();
  Run([&] {
    EXPECT_EQ(Width(workspace().FrameRect), INT32_MAX);
    OpenFile(recording.Path());
    Choose(command::kAmplitudeView);
    EXPECT_EQ(shell().Children.size(), 3u);
  });
}

}  // namespace
}  // namespace ondrel
