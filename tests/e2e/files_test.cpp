// Files: every layout opens from the menu; adding, importing and closing; what is told of files
// that cannot be taken, and the state that is left.
#include <gmock/gmock.h>

#include <filesystem>

#include "fixtures.h"

namespace ondrel::e2e {
namespace {

using ::testing::ElementsAre;

/// Waits until the scroll bars say that so many rows stand in the two views.
void ExpectRows(const Program& program, int events, int levels) {
  const Window eventView = program.View("Event");
  const Window levelView = program.View("Level");
  (void)HoldsWithin(3000, [&] { return program.Scroll(eventView).Maximum == events - 1; });
  EXPECT_EQ(program.Scroll(eventView).Maximum, events - 1);
  EXPECT_EQ(program.Scroll(levelView).Maximum, levels - 1);
}

void ExpectStopBox(const Program& program, const std::string& text) {
  const Box box = program.WaitForBox(text);
  EXPECT_EQ(box.Caption(), "");
  EXPECT_EQ(box.Icon(), BoxIcon::Stop);
  EXPECT_THAT(box.Buttons(), ElementsAre(kOkButton));
  box.Answer(kOkButton);
}

std::string CannotRead(const std::string& name) {
  return "Ondrel cannot read file " + name +
         ". Ondrel expects a tab-delimited text file with a specific layout. See the manual for "
         "more information.";
}

class Files : public EndToEnd {};

TEST_F(Files, ABareListOpens) {
  Program program;
  program.PassStart();
  OpenTable(program, BareList(3, 10));
  ExpectRows(program, 30, 30);
}

TEST_F(Files, VersionsOneAndTwoOpen) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionOneOrTwo(1, 3, 10));
  ExpectRows(program, 30, 33);
  program.Command(command::kClose);
  ExpectNoData(program);
  OpenTable(program, VersionOneOrTwo(2, 3, 10));
  ExpectRows(program, 30, 33);
}

TEST_F(Files, VersionTwoWithSeveralDataFilesOpens) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionTwoWithFiles(2, 3, 10));
  ExpectRows(program, 50, 55);
  program.Command(command::kViewSweep);
  EXPECT_EQ(program.Scroll(program.View("Sweep")).Maximum, 4);
}

TEST_F(Files, VersionFiveOpens) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(4, 10));
  ExpectRows(program, 40, 44);
}

TEST_F(Files, TheViewsOfAnOpenedFileCascade) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(1, 10));
  const int step = GetSystemMetrics(SM_CYMINTRACK);
  const Rect client = program.Frame().ClientArea();
  EXPECT_EQ(program.View("Event").PlaceInParent(),
            (Rect{step, step, client.Width(), client.Height() - step}));
  EXPECT_EQ(program.View("Level").PlaceInParent(),
            (Rect{2 * step, 2 * step, client.Width(), client.Height() - step}));
}

TEST_F(Files, CancellingTheFileDialogLeavesTheStateWithoutData) {
  Program program;
  program.PassStart();
  program.Command(command::kOpen);
  program.WaitForDialog("Data file:").Leave(kCancelButton);
  ExpectNoData(program);
}

TEST_F(Files, SamplesOpenWithNoMessage) {
  const std::string folder = Environment("ONDREL_SAMPLES");
  if (folder.empty()) GTEST_SKIP() << "ONDREL_SAMPLES names no folder";
  Program program;
  program.PassStart();
  int opened = 0;
  for (const auto& entry : std::filesystem::directory_iterator(NativePath(folder))) {
    if (entry.path().extension() != ".evt" && entry.path().extension() != ".txt") continue;
    SCOPED_TRACE(entry.path().string());
    program.Open(entry.path().string());
    program.WaitForViews({"Level", "Event"});
    EXPECT_TRUE(program.Dialogs().empty()) << program.Describe();
    EXPECT_GT(program.Scroll(program.View("Event")).Maximum, 0);
    EXPECT_GT(program.Scroll(program.View("Level")).Maximum, 0);
    program.Command(command::kClose);
    ExpectNoData(program);
    ++opened;
  }
  EXPECT_GT(opened, 0);
}

struct Recording {
  const char* Name;
  int Events;
  int Levels;    // one more than events for each sweep that goes on behind its last event
  bool OneStep;  // no level lies more than one step from the base, so that none are joined
};

TEST_F(Files, RecordingsOpenWithNoMessage) {
  const std::string folder = Environment("ONDREL_RECORDINGS");
  if (folder.empty()) GTEST_SKIP() << "ONDREL_RECORDINGS names no folder";
  static constexpr Recording kRecordings[] = {{"achr-simulated.evt", 4311, 4312, true},
                                              {"glyr-k276e-30mM.evt", 5809, 5813, true},
                                              {"elic-propylamine-1mM.evt", 2975, 2996, false},
                                              {"inward-bare-list.txt", 3000, 3000, true},
                                              {"inward-version2.txt", 3000, 3025, false}};
  Program program;
  program.PassStart();
  for (const Recording& recording : kRecordings) {
    SCOPED_TRACE(recording.Name);
    program.Open(NativePath(folder) + "\\" + recording.Name);
    program.WaitForViews({"Level", "Event"});
    EXPECT_TRUE(program.Dialogs().empty()) << program.Describe();
    EXPECT_EQ(program.Scroll(program.View("Event")).Maximum, recording.Events - 1);
    const int levels = program.Scroll(program.View("Level")).Maximum + 1;
    if (recording.OneStep) {
      EXPECT_EQ(levels, recording.Levels);
    } else {
      EXPECT_LT(levels, recording.Levels);
      EXPECT_GT(levels, recording.Levels / 3);
    }
    program.Command(command::kClose);
    ExpectNoData(program);
  }
}

TEST_F(Files, AddAppendsEventsLevelsAndSweeps) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(2, 10));
  program.Command(command::kViewSweep);
  program.WaitForTopView("Sweep");
  program.Command(command::kAdd);
  ChooseFile(program.WaitForDialog("Data file:"), File("more.evt", VersionFive(3, 8)));
  ExpectRows(program, 44, 49);
  EXPECT_EQ(program.Scroll(program.View("Sweep")).Maximum, 4);
}

TEST_F(Files, AddWithAClosedEventViewOpensIt) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(2, 10));
  program.Command(command::kViewEvent);
  program.WaitForTopView("Event");
  program.Key(VK_F4, {VK_CONTROL});
  program.WaitForViews({"Level"});
  program.Command(command::kAdd);
  ChooseFile(program.WaitForDialog("Data file:"), File("more.evt", VersionFive(1, 8)));
  ExpectRows(program, 28, 31);
}

TEST_F(Files, AFailedAddKeepsWhatWasThere) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(2, 10));
  program.Command(command::kAdd);
  ChooseFile(program.WaitForDialog("Data file:"), File("empty.evt", ""));
  ExpectStopBox(program, CannotRead("empty.evt"));
  ExpectRows(program, 20, 22);
}

class Imports : public Files {
 protected:
  static constexpr const char* kQuestion =
      "There are events in the event table. Import events will erase all the events in the event "
      "table. Do you want to import?";
};

TEST_F(Imports, NoKeepsTheEvents) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(2, 10));
  program.Command(command::kImport);
  const Box question = program.WaitForBox(kQuestion);
  EXPECT_EQ(question.Caption(), "");
  EXPECT_EQ(question.Icon(), BoxIcon::Question);
  EXPECT_THAT(question.Buttons(), ElementsAre(kYesButton, kNoButton));
  question.Answer(kNoButton);
  program.CommandDone(command::kViewEvent);
  EXPECT_TRUE(program.Dialogs().empty()) << program.Describe();
  ExpectRows(program, 20, 22);
}

TEST_F(Imports, YesReplacesTheEvents) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(2, 10));
  program.Command(command::kImport);
  program.WaitForBox(kQuestion).Answer(kYesButton);
  ChooseFile(program.WaitForDialog("Event file:"), File("import.txt", ImportTable(2, 6)));
  ExpectRows(program, 12, 14);
}

TEST_F(Imports, EventsOfASweepThatIsNotThereLeaveNoEvents) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(2, 10));
  program.Command(command::kImport);
  program.WaitForBox(kQuestion).Answer(kYesButton);
  ChooseFile(program.WaitForDialog("Event file:"), File("import.txt", ImportTable(3, 6)));
  ExpectStopBox(program, "The imported event table does not match the existing file(s)!");
  ExpectRows(program, 1, 1);  // a range of 0 to 0
}

class BadFiles : public Files {};

TEST_F(BadFiles, ACorruptedBareListTellsItsRow) {
  Program program;
  program.PassStart();
  std::string table = BareList(1, 10);
  table.insert(table.find('\n') + 3, "x");
  program.Open(File("broken.evt", table));
  ExpectStopBox(program, "The data file is corrupted. Error occurred at number 2 of Event record.");
  ExpectNoData(program);
}

TEST_F(BadFiles, ACorruptedSweepRowTellsItsRow) {
  Program program;
  program.PassStart();
  program.Open(File("broken.evt", "2\r\nSweeps\r\n1\t0.0\t1.0\t0.0\t1.0\t0\t0\r\n2\tlong\t1.0"));
  ExpectStopBox(program, "The data file is corrupted. Error occurred at number 2 of Sweep record.");
  ExpectNoData(program);
}

TEST_F(BadFiles, SweepNumbersThatStartAgainAreAmbiguous) {
  Program program;
  program.PassStart();
  program.Open(File("again.evt", BareList(2, 4) + BareList(1, 4)));
  ExpectStopBox(program,
                "The data file is not consistant internally. The number of sweep records is "
                "ambiguous.");
  // The read counts as good all the same: two empty views.
  program.WaitForViews({"Level", "Event"});
  ExpectRows(program, 1, 1);
}

TEST_F(BadFiles, AnEmptyFileCannotBeRead) {
  Program program;
  program.PassStart();
  program.Open(File("nothing in it.evt", ""));
  ExpectStopBox(program, CannotRead("nothing in it.evt"));
  ExpectNoData(program);
}

TEST_F(BadFiles, AFileHeldOpenByAnotherProcessCannotBeOpened) {
  Program program;
  program.PassStart();
  const std::string path = File("held.evt", BareList(1, 10));
  const HANDLE held =
      CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  program.Open(path);
  ExpectStopBox(program, "Could not open file held.evt. Error code " +
                             std::to_string(ERROR_SHARING_VIOLATION) + ".");
  CloseHandle(held);
  ExpectNoData(program);
  program.Open(path);
  program.WaitForViews({"Level", "Event"});
}

TEST_F(BadFiles, AfterAFailureAGoodFileStillOpens) {
  Program program;
  program.PassStart();
  program.Open(File("empty.evt", ""));
  ExpectStopBox(program, CannotRead("empty.evt"));
  ExpectNoData(program);
  OpenTable(program, VersionFive(2, 10));
  ExpectRows(program, 20, 22);
}

TEST_F(Files, CloseAndOpenManyTimesKeepsTheCounts) {
  Program program;
  program.PassStart();
  for (int round = 1; round <= 5; ++round) {
    OpenTable(program, VersionFive(round, 10));
    ExpectRows(program, 10 * round, 11 * round);
    program.Command(command::kClose);
    ExpectNoData(program);
  }
  EXPECT_EQ(program.Exit(), 0);
}

}  // namespace
}  // namespace ondrel::e2e
