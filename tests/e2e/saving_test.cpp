// "Save Events..." and "Save Levels...": what is written opens again, and files that are there.
#include <gmock/gmock.h>

#include <filesystem>

#include "export_fixture.h"

namespace ondrel::e2e {
namespace {

constexpr const char* kCannotWrite =
    "Ondrel encountered an error while writing to the file. Ondrel will not write any more data to "
    "the file.";
constexpr const char* kEventDialog = "Save event list as:";
constexpr const char* kLevelDialog = "Save level list as:";

class Saving : public EndToEnd {
 protected:
  void Open(const std::string& content) {
    program_.PassStart();
    program_.PlaceFrame(
        {8, 8, GetSystemMetrics(SM_CXSCREEN) - 8, GetSystemMetrics(SM_CYSCREEN) - 8});
    OpenTable(program_, content);
  }

  /// Closes what is open and opens a file that was saved.
  void OpenInstead(const std::string& path) {
    program_.Command(command::kClose);
    ExpectNoData(program_);
    program_.Open(path);
    program_.WaitForViews({"Level", "Event"});
    program_.ToForeground();
  }

  void ExpectDoneQuietly() const {
    program_.Settle(program_.View("Event"));
    EXPECT_THAT(program_.Dialogs(), ::testing::IsEmpty()) << program_.Describe();
    program_.ToForeground();
  }

  void SaveEvents(const std::string& path) const {
    program_.Command(command::kSaveEvents);
    SaveAs(program_.WaitForDialog(kEventDialog), "Untitled", path);
    ExpectDoneQuietly();
  }

  [[nodiscard]] Dialog AskForLevels(const std::string& form) const {
    program_.Command(command::kSaveLevels);
    const Dialog dialog = program_.WaitForDialog("Save Levels");
    dialog.Choose(3, form);
    dialog.Leave(kOkButton);
    return program_.WaitForDialog(kLevelDialog);
  }

  /// Pictures of the tables and the statistics.
  [[nodiscard]] std::vector<Picture> Pictures() const {
    std::vector<Picture> pictures;
    for (const auto& [id, title] :
         {std::pair{command::kViewEvent, "Event"}, std::pair{command::kViewLevel, "Level"},
          std::pair{command::kViewSweep, "Sweep"},
          std::pair{command::kViewStatistics, "Statistics"}}) {
      program_.Command(id);
      program_.WaitForTopView(title);
      program_.View(title).MoveTo({0, 0, 1000, 600});
      pictures.push_back(program_.ClientPicture(program_.View(title)));
    }
    return pictures;
  }

  [[nodiscard]] int Rows(const std::string& title) const {
    return program_.Scroll(program_.View(title)).Maximum + 1;
  }

  Program program_;
};

// --- What comes back -----------------------------------------------------------------------------

TEST_F(Saving, EventsOpenAgainAsTheSameViews) {
  Open(VersionFive(2, 12));
  const std::vector<Picture> before = Pictures();
  const std::string path = File("again.evt", "");
  std::filesystem::remove(path);
  SaveEvents(path);
  OpenInstead(path);
  const std::vector<Picture> after = Pictures();
  for (std::size_t i = 0; i < before.size(); ++i) {
    EXPECT_GT(before[i].Count(kBlack), 500) << i;
    EXPECT_EQ(after[i], before[i]) << i;
  }
}

TEST_F(Saving, EventsOfASecondFileStayInIt) {
  Open(VersionFive(2, 12));
  program_.Command(command::kAdd);
  ChooseFile(program_.WaitForDialog("Data file:"), File("second.evt", VersionFive(3, 6)));
  WaitFor("the second file's events", [&] { return Rows("Event") == 2 * 12 + 3 * 6; });
  program_.ToForeground();
  const std::vector<Picture> before = Pictures();
  const std::string path = File("both.evt", "");
  std::filesystem::remove(path);
  SaveEvents(path);
  OpenInstead(path);
  EXPECT_EQ(Pictures()[2], before[2]);  // the sweeps, with the number of their file
}

TEST_F(Saving, LevelsOpenAgainAsEvents) {
  Open(VersionFive(2, 5));  // six levels a sweep
  const std::string path = File("levels.evt", "");
  std::filesystem::remove(path);
  SaveAs(AskForLevels("Ond"), "Untitled.evt", path);
  ExpectDoneQuietly();
  OpenInstead(path);
  EXPECT_EQ(Rows("Event"), 12);
}

TEST_F(Saving, LevelsForQubAreSegmentsOfDwells) {
  Open(VersionFive(2, 5));
  const std::string path = File("levels.dwt", "");
  std::filesystem::remove(path);
  SaveAs(AskForLevels("QUB"), "Untitled.dwt", path);
  ExpectDoneQuietly();
  // Without the first and the last of each sweep, which are not selected.
  const std::string dwells = "\t1\t0.001000\r\n\t0\t0.001000\r\n\t1\t0.001000\r\n\t0\t0.001000\r\n";
  EXPECT_EQ(ContentOf(path),
            "Segment: 1\tDwells: 4\r\n" + dwells + "Segment: 2\tDwells: 4\r\n" + dwells);
}

TEST_F(Saving, LevelsForQubThatJumpAreToldAndWrittenUpToTheJump) {
  std::string content = VersionFive(1, 6);
  const std::string third = "1\t0.003000\t0.0000000E+00\t5.0000000E-12\t1";
  content.replace(content.find(third), third.size(), third.substr(0, third.size() - 1) + "3");
  Open(content);  // levels 1, 3, 0 and 1 are selected
  const std::string path = File("jump.dwt", "");
  std::filesystem::remove(path);
  SaveAs(AskForLevels("QUB"), "Untitled.dwt", path);
  const Box box =
      program_.WaitForBox("Jump in level numbers. Unable to export levels as QUB event table.");
  EXPECT_EQ(box.Icon(), BoxIcon::Stop);
  box.Answer(kOkButton);
  ExpectDoneQuietly();
  EXPECT_EQ(ContentOf(path), "Segment: 1\tDwells: 4\r\n\t1\t0.001000\r\n");
}

TEST_F(Saving, TheFormOfALevelFileIsOfferedAgainAfterACancel) {
  Open(VersionFive(1, 5));
  AskForLevels("QUB").Leave(kCancelButton);
  ExpectDoneQuietly();
  program_.Command(command::kSaveLevels);
  EXPECT_EQ(program_.WaitForDialog("Save Levels").Frame().Control(3).Text(), "QUB");
}

// --- Files that are there ------------------------------------------------------------------------

TEST_F(Saving, AFileThatIsThereIsReplacedOnlyWhenTheUserSaysSo) {
  Open(VersionFive(1, 5));
  const std::string path = File("there.evt", std::string(5000, 'x'));
  program_.Command(command::kSaveEvents);
  const Dialog dialog = program_.WaitForDialog(kEventDialog);
  SaveOver(program_, dialog, path).Answer(kNoButton);
  EXPECT_EQ(ContentOf(path), std::string(5000, 'x'));
  SaveOver(program_, dialog, path).Answer(kYesButton);
  dialog.WaitUntilGone();
  ExpectDoneQuietly();
  const std::vector<std::string> lines = LinesOf(ContentOf(path));
  EXPECT_EQ(lines.front(), "5");
  EXPECT_EQ(ContentOf(path).find('x'), std::string::npos);
}

TEST_F(Saving, AFileInAnothersHandIsToldAndLeftAlone) {
  Open(VersionFive(1, 5));
  const std::string path = File("held.evt", "held");
  {
    const HeldFile held(path);
    program_.Command(command::kSaveEvents);
    SaveOver(program_, program_.WaitForDialog(kEventDialog), path).Answer(kYesButton);
    program_.WaitForBox(kCannotWrite).Answer(kOkButton);
    ExpectDoneQuietly();
    SaveOver(program_, AskForLevels("Ond"), path).Answer(kYesButton);
    const Box box = program_.WaitForBox(kCannotWrite);
    EXPECT_EQ(box.Icon(), BoxIcon::Stop);
    box.Answer(kOkButton);
    ExpectDoneQuietly();
  }
  EXPECT_EQ(ContentOf(path), "held");
}

}  // namespace
}  // namespace ondrel::e2e
