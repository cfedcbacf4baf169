// The program from its command line to its exit code.
#include "simulate/command_line.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "simulate/table_reader.h"

namespace ondrel::simulate {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

/// A folder for one test with a model in it.
class CommandLine : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    Folder =
        std::filesystem::path(::testing::TempDir()) / (std::string("simulate_") + test->name());
    std::filesystem::remove_all(Folder);
    std::filesystem::create_directories(Folder);
    Write("two.channel",
          "state closed 0 0\nstate open 1 5\nrate closed open 50\nrate open closed 200\n"
          "channels 2\nnoise 0.1\nsweeps 3\nduration 1\nseed 5\n");
  }
  void TearDown() override { std::filesystem::remove_all(Folder); }

  std::string Path(const std::string& name) const { return (Folder / name).string(); }

  void Write(const std::string& name, const std::string& text) const {
    std::ofstream(Path(name), std::ios::binary) << text;
  }

  std::string Contents(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
  }

  int Run(const std::vector<std::string>& arguments) {
    Out.str("");
    Err.str("");
    return RunSimulate(arguments, Out, Err);
  }

  std::filesystem::path Folder;
  std::ostringstream Out;
  std::ostringstream Err;
};

TEST_F(CommandLine, WritesTheTableToStandardOutputAndTheCountsBeside) {
  ASSERT_EQ(Run({Path("two.channel")}), kExitGood);
  const auto files = ReadFileTable(Out.str());
  ASSERT_EQ(files.size(), 1u);
  EXPECT_EQ(files[0].Sweeps.size(), 3u);
  EXPECT_EQ(Err.str(), "standard output: data files 1, sweeps 3, events " +
                           std::to_string(files[0].Events.size()) + "\n");
}

TEST_F(CommandLine, WritesTheSameTableToTheNamedFile) {
  ASSERT_EQ(Run({Path("two.channel")}), kExitGood);
  const std::string table = Out.str();
  ASSERT_EQ(Run({"--output", Path("two.evt"), Path("two.channel")}), kExitGood);
  EXPECT_EQ(Out.str(), "");
  EXPECT_EQ(Contents("two.evt"), table);
  EXPECT_THAT(Err.str(), StartsWith(Path("two.evt") + ": data files 1"));
}

TEST_F(CommandLine, MakesEqualBytesOfEqualSeedsAndOtherBytesOfAnother) {
  Run({Path("two.channel"), "--seed", "9"});
  const std::string first = Out.str();
  Run({Path("two.channel"), "--seed", "9"});
  EXPECT_EQ(Out.str(), first);
  Run({Path("two.channel"), "--seed", "10"});
  EXPECT_NE(Out.str(), first);
  Run({Path("two.channel"), "--seed", "5"});
  const std::string ownSeed = Out.str();
  Run({Path("two.channel")});
  EXPECT_EQ(Out.str(), ownSeed);
}

TEST_F(CommandLine, TellsTheSameEventsInEveryLayout) {
  Run({Path("two.channel")});
  const auto version5 = ReadFileTable(Out.str())[0].Events;
  ASSERT_GT(version5.size(), 50u);
  const auto expectSame = [&](const std::vector<ReadEvent>& events, bool withLevels) {
    ASSERT_EQ(events.size(), version5.size());
    for (std::size_t i = 0; i < events.size(); ++i) {
      EXPECT_EQ(events[i].Sweep, version5[i].Sweep);
      EXPECT_EQ(events[i].Transition, version5[i].Transition);
      EXPECT_EQ(events[i].PreAmplitude, version5[i].PreAmplitude);
      EXPECT_EQ(events[i].PostAmplitude, version5[i].PostAmplitude);
      EXPECT_EQ(events[i].Level, version5[i].Level);
      if (!withLevels) continue;
      EXPECT_EQ(events[i].PostLevel, events[i].Level);
      if (i > 0 && events[i].Sweep == events[i - 1].Sweep) {
        EXPECT_EQ(events[i].PreLevel, events[i - 1].Level);
      }
    }
  };
  ASSERT_EQ(Run({Path("two.channel"), "--layout", "bare"}), kExitGood);
  expectSame(ReadBareTable(Out.str()), true);
  for (const char* layout : {"1", "1-files", "2", "2-files"}) {
    ASSERT_EQ(Run({Path("two.channel"), "--layout", layout}), kExitGood);
    const auto table = ReadOldTable(Out.str());
    EXPECT_EQ(std::to_string(table.Version), std::string(layout).substr(0, 1));
    EXPECT_EQ(table.Files.size(), std::string(layout).size() > 1 ? 1u : 0u);
    EXPECT_EQ(table.Sweeps.size(), 3u);
    expectSame(table.Events, table.Version == 1);
  }
}

TEST_F(CommandLine, ShowsHelpOnOptionsAndModelFiles) {
  ASSERT_EQ(Run({"--help"}), kExitGood);
  EXPECT_THAT(Out.str(), StartsWith("simulate MODEL [--output FILE]"));
  EXPECT_THAT(Out.str(), HasSubstr("relevant-value V [STEP]"));
}

TEST_F(CommandLine, RefusesABadModelAndLeavesNoFile) {
  Write("bad.channel", "state closed zero 0\n");
  ASSERT_EQ(Run({Path("bad.channel"), "--output", Path("bad.evt")}), kExitWrongInput);
  EXPECT_EQ(Err.str(), "simulate: " + Path("bad.channel") + ":1: \"zero\" is not a whole number\n");
  EXPECT_FALSE(std::filesystem::exists(Path("bad.evt")));
}

TEST_F(CommandLine, RefusesWrongArguments) {
  const std::string model = Path("two.channel");
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{}, "no model is named"},
      {{model, "--seed"}, "--seed needs a value behind it"},
      {{model, "--seed", "x"}, "\"x\" is not a seed"},
      {{model, "--layout", "3"}, "\"3\" is not a layout"},
      {{model, "--colour", "x"}, "there is no option --colour"},
      {{model, model}, "there is more than one model"},
      {{Path("none.channel")}, "cannot read " + Path("none.channel")},
      {{Folder.string()}, "cannot read " + Folder.string()},
  };
  for (const auto& [arguments, message] : cases) {
    EXPECT_EQ(Run(arguments), kExitWrongInput) << message;
    EXPECT_THAT(Err.str(), HasSubstr(message));
    EXPECT_EQ(Out.str(), "");
  }
}

TEST_F(CommandLine, RefusesALayoutThatCannotHoldTheFiles) {
  Write("files.channel", Contents("two.channel") + "file Undefined\nfile IgorWave\nname a.ibw\n");
  EXPECT_EQ(Run({Path("files.channel"), "--layout", "bare"}), kExitWrongInput);
  EXPECT_THAT(Err.str(), HasSubstr("cannot hold several"));
  EXPECT_EQ(Run({Path("files.channel"), "--layout", "1-files"}), kExitGood);
  EXPECT_EQ(ReadOldTable(Out.str()).Files, (std::vector<int>{3, 3}));
}

TEST_F(CommandLine, RefusesASilentRecordingInALayoutThatNeedsTransitions) {
  Write("silent.channel", "state closed 0 0\nduration 1\n");
  EXPECT_EQ(Run({Path("silent.channel"), "--layout", "bare"}), kExitWrongInput);
  EXPECT_THAT(Err.str(), HasSubstr("there is no transition"));
  EXPECT_EQ(Run({Path("silent.channel")}), kExitGood);
}

TEST_F(CommandLine, TellsWhenTheFileCannotBeWritten) {
  EXPECT_EQ(Run({Path("two.channel"), "--output", Path("no/such/folder.evt")}), kExitWriteFailed);
  EXPECT_THAT(Err.str(), HasSubstr("cannot write " + Path("no/such/folder.evt")));
}

TEST_F(CommandLine, NotesWhenTheTableDoesNotFitTheDefaultSizes) {
  ASSERT_EQ(Run({Path("two.channel")}), kExitGood);
  EXPECT_THAT(Err.str(), ::testing::Not(HasSubstr("note:")));
  Write("many.channel", Contents("two.channel") + "sweeps 1001\nduration 20ms\n");
  ASSERT_EQ(Run({Path("many.channel")}), kExitGood);
  EXPECT_THAT(Err.str(), HasSubstr("note: more than fits 8000 event and 1000 sweep entries"));
  Write("long.channel", Contents("two.channel") + "duration 100\n");
  ASSERT_EQ(Run({Path("long.channel")}), kExitGood);
  EXPECT_THAT(Err.str(), HasSubstr("note:"));
}

}  // namespace
}  // namespace ondrel::simulate
