#include "output/text_export.h"

#include <gmock/gmock.h>

#include "output/text_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::Eq;
using ::testing::IsEmpty;

constexpr char kFailure[] =
    "Ondrel encountered an error while writing to the file. Ondrel will not write any more data to "
    "the file.";

/// Igor's names without those of a fit.
std::string WavesOf(ViewKind kind) {
  switch (kind) {
    case ViewKind::Event:
      return "WAVES /D Sweep, Transition, PreAmplitude, PostAmplitude, Level, TagValue";
    case ViewKind::Level:
      return "WAVES /D Sweep, Transition, Duration, PreAmplitude, PostAmplitude, Amplitude, Level, "
             "TagValue";
    case ViewKind::Sweep:
      return "WAVES /D Index, File, Sweep, StartTime, Duration, RelevantStart, RelevantEnd, "
             "RelevantValue, TagValue";
    case ViewKind::Statistics:
      return "WAVES /D Level, Events, Probobility, DurationMean, DurationStd, DurationMin, "
             "DurationMax, AmplitudeMean, AmplitudeStd, AmplitudeMin, AmplitudeMax";
    case ViewKind::AmplitudeFit:
      return "WAVES /D Weight, Current, StdDev";
    case ViewKind::DurationFit:
      return "WAVES /D Weight, TimeConstant";
    case ViewKind::Amplitude:
      return "WAVES /D Current, Count";
    case ViewKind::Duration:
      return "WAVES /D Duration, Count";
    case ViewKind::AmplitudeScatter:
      return "WAVES /D X, Current";
    case ViewKind::DurationScatter:
      return "WAVES /D X, Duration";
    case ViewKind::Scatter:
      return "WAVES /D Duration, Current";
    case ViewKind::Stationarity:
      return "WAVES /D Duration, Probability";
  }
  return "";
}

std::string HeadOf(ViewKind kind) {
  return Joined({"IGOR", WavesOf(kind), "BEGIN"});
}

class TextExportTest : public TextTest {
 protected:
  void Export(ViewKind kind, TextExportChoice form) {
    workspace().TextExportType = form;
    ExportText(Frame(), kind, Path().c_str());
    EXPECT_EQ(shell().OpenFiles, 0);
  }

  std::string Exported(ViewKind kind, TextExportChoice form) {
    Export(kind, form);
    return OnDisk();
  }

  /// The line of names of a histogram's Igor form.
  std::string WaveLine(ViewKind kind) {
    const std::string text = Exported(kind, TextExportChoice::Igor);
    const std::size_t start = text.find("\r\n") + 2;
    return text.substr(start, text.find("\r\n", start) - start);
  }

  /// Boxes that were shown while a file was open.
  void WatchBoxes() {
    shell().WhileBoxStands = [&](FrameWindow*) {
      EXPECT_EQ(shell().OpenFiles, 0) << "the file is closed before the message";
    };
  }
};

class EachTextExportTest : public TextExportTest, public ::testing::WithParamInterface<ViewKind> {
 protected:
  EachTextExportTest() { WatchBoxes(); }

  ViewKind Kind() const { return GetParam(); }
  std::string Rows() { return Joined(rows_.at(Kind())); }
};

INSTANTIATE_TEST_SUITE_P(Views, EachTextExportTest, ::testing::ValuesIn(AllKinds()),
                         [](const auto& info) {
                           std::string name = FactsOf(info.param).Title;
                           std::erase_if(name, [](char c) { return c == ' ' || c == '/'; });
                           return name;
                         });

// --- The two forms -------------------------------------------------------------------------------

TEST_P(EachTextExportTest, TheSpreadsheetFormIsTheRowsAlone) {
  FillAll();
  EXPECT_EQ(Exported(Kind(), TextExportChoice::Excel), Rows());
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_P(EachTextExportTest, TheIgorFormIsTheSameRowsInABlock) {
  FillAll();
  EXPECT_EQ(Exported(Kind(), TextExportChoice::Igor), HeadOf(Kind()) + Rows() + "END\r\n");
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_P(EachTextExportTest, AnEmptyTableGivesAnEmptyFileOrTheIgorLinesAlone) {
  EmptyAll();
  EXPECT_EQ(Exported(Kind(), TextExportChoice::Excel), "");
  EXPECT_TRUE(IsThere());
  EXPECT_EQ(Exported(Kind(), TextExportChoice::Igor), HeadOf(Kind()) + "END\r\n");
}

TEST_P(EachTextExportTest, AnOldFileIsReplacedWhole) {
  FillAll();
  LeaveOldFile();
  EXPECT_EQ(Exported(Kind(), TextExportChoice::Excel), Rows());
}

TEST_P(EachTextExportTest, AFormThatThereIsNotCountsAsTheLast) {
  FillAll();
  const auto beyond = static_cast<TextExportChoice>(200);
  EXPECT_EQ(Exported(Kind(), beyond), HeadOf(Kind()) + Rows() + "END\r\n");
  EXPECT_STREQ(OfferedTextName(Kind(), beyond), OfferedTextName(Kind(), TextExportChoice::Igor));
}

TEST_P(EachTextExportTest, TheWindowLimitsTheThreeTablesInBothForms) {
  FillAll();
  workspace().LimitToWindow = true;
  View(Kind()).TopRow = 1;
  View(Kind()).VisibleRows = 5;
  const bool isTable =
      Kind() == ViewKind::Event || Kind() == ViewKind::Level || Kind() == ViewKind::Sweep;
  const std::string rows = isTable ? rows_.at(Kind())[1] + "\r\n" : Rows();
  EXPECT_EQ(Exported(Kind(), TextExportChoice::Excel), rows);
  EXPECT_EQ(Exported(Kind(), TextExportChoice::Igor), HeadOf(Kind()) + rows + "END\r\n");
}

TEST_P(EachTextExportTest, NoViewAndNoSettingChanges) {
  FillAll();
  OpenInert(Kind());
  Export(Kind(), TextExportChoice::Igor);
  EXPECT_THAT(Happened(), IsEmpty());
  EXPECT_THAT(Drawn(), IsEmpty());
  EXPECT_FALSE(View(Kind()).NeedsRebuild);
  EXPECT_EQ(workspace().TextExportType, TextExportChoice::Igor);
  EXPECT_FALSE(workspace().LimitToWindow);
  EXPECT_EQ(RowsOf(Kind()), Rows());
}

// --- Failures ------------------------------------------------------------------------------------

TEST_P(EachTextExportTest, AFileThatCannotBeMadeIsTold) {
  FillAll();
  LeaveOldFile();
  shell().Create.Next = 1;
  EXPECT_EQ(Exported(Kind(), TextExportChoice::Igor), kOldFile);
  EXPECT_THAT(Messages(), ElementsAre(kFailure));
  EXPECT_EQ(shell().OpenForWriting.Calls, 0);
}

TEST_P(EachTextExportTest, AFileThatCannotBeOpenedIsRemovedAndTold) {
  FillAll();
  LeaveOldFile();
  shell().OpenForWriting.Next = 1;
  Export(Kind(), TextExportChoice::Igor);
  EXPECT_FALSE(IsThere());
  EXPECT_THAT(Messages(), ElementsAre(kFailure));
  EXPECT_EQ(shell().Write.Calls, 0);
}

TEST_P(EachTextExportTest, AFailedRowIsToldOnceButTwiceForTheEventList) {
  FillAll();
  shell().Write.Next = 1;
  EXPECT_EQ(Exported(Kind(), TextExportChoice::Excel), "");
  EXPECT_THAT(Messages(), ::testing::SizeIs(Kind() == ViewKind::Event ? 2 : 1));
  EXPECT_THAT(Messages(), ::testing::Each(Eq(kFailure)));
  EXPECT_TRUE(IsThere());
}

TEST_P(EachTextExportTest, EachWriteOfTheIgorFormCanFail) {
  FillAll();
  const std::string head = HeadOf(Kind());
  const std::string left[] = {"", head, head + Rows()};
  const std::size_t rowsTold = Kind() == ViewKind::Event ? 2 : 1;
  const std::size_t told[] = {1, rowsTold, 1};  // the lines around the rows are no rows
  for (int failing = 1; failing <= 3; ++failing) {
    LeaveOldFile();
    shell().Boxes.clear();
    shell().Write.Calls = 0;
    shell().Write.Next = failing;
    EXPECT_EQ(Exported(Kind(), TextExportChoice::Igor), left[failing - 1]) << failing;
    EXPECT_EQ(Messages().size(), told[failing - 1]) << failing;
    EXPECT_THAT(Messages(), ::testing::Each(Eq(kFailure)));
    EXPECT_EQ(shell().Write.Calls, failing) << "nothing follows the failure";
  }
  shell().Boxes.clear();
  shell().Write.Next = 4;
  Export(Kind(), TextExportChoice::Igor);
  EXPECT_THAT(Messages(), IsEmpty()) << "there is no fourth write";
}

TEST_P(EachTextExportTest, AFailedCloseIsToldOnceAndTheFileIsWhole) {
  FillAll();
  shell().Close.Next = 1;
  EXPECT_EQ(Exported(Kind(), TextExportChoice::Excel), Rows());
  EXPECT_THAT(Messages(), ElementsAre(kFailure));
  shell().Boxes.clear();
  shell().Close.Next = 1;
  EXPECT_EQ(Exported(Kind(), TextExportChoice::Igor), HeadOf(Kind()) + Rows() + "END\r\n");
  EXPECT_THAT(Messages(), ElementsAre(kFailure));
}

TEST_P(EachTextExportTest, TheMessageIsAFailureOfTheFrame) {
  FillAll();
  shell().Write.Next = 1;
  Export(Kind(), TextExportChoice::Excel);
  for (const scripted::Box& box : shell().Boxes) {
    EXPECT_EQ(box.Owner, Frame());
    EXPECT_EQ(box.Icon, toolkit::BoxIcon::Stop);
    EXPECT_EQ(box.Buttons, toolkit::BoxButtons::Ok);
  }
}

TEST_F(TextExportTest, AFailureAmidManyRowsLeavesTheFileAsFarAsItCame) {
  constexpr std::int32_t kRows = 1000;  // far more than are gathered
  for (const ViewKind kind : {ViewKind::Event, ViewKind::Sweep}) {
    FillEvents(kRows, [](EventRecord&, std::int32_t) {});
    FillSweeps(kRows, [](SweepRecord&, std::int32_t) {});
    const std::string rows = RowsOf(kind);
    shell().Boxes.clear();
    shell().Write.Calls = 0;
    shell().Write.Next = 3;
    EXPECT_EQ(Exported(kind, TextExportChoice::Excel), rows.substr(0, 2 * 8192));
    EXPECT_EQ(shell().Write.Calls, 3);
    EXPECT_EQ(Messages().size(), kind == ViewKind::Event ? 2u : 1u);
    FreeAllTables(workspace());
  }
}

TEST_F(TextExportTest, AnEmptyEventListHasNoRowThatCouldFail) {
  shell().Write.Next = 2;
  EXPECT_EQ(Exported(ViewKind::Event, TextExportChoice::Igor), HeadOf(ViewKind::Event));
  EXPECT_THAT(Messages(), ElementsAre(kFailure)) << "the line behind the rows failed";
}

TEST_F(TextExportTest, APathThatLeadsNowhereIsTold) {
  ExportText(Frame(), ViewKind::Level, (Path() + "/none/text").c_str());
  EXPECT_THAT(Messages(), ElementsAre(kFailure));
}

// --- Names of a fit's waves ----------------------------------------------------------------------

class TextExportWavesTest : public TextExportTest {
 protected:
  void UseFit(FitStyle style, std::int32_t terms) {
    amplitude().FitStyle = duration().FitStyle = style;
    amplitude().TermCount = duration().TermCount = terms;
  }

  void ExpectNames(const std::string& names) {
    EXPECT_EQ(WaveLine(ViewKind::Amplitude), "WAVES /D Current, Count" + names);
    EXPECT_EQ(WaveLine(ViewKind::Duration), "WAVES /D Duration, Count" + names);
  }

  void OpenFitViews() {
    OpenInert(ViewKind::AmplitudeFit);
    OpenInert(ViewKind::DurationFit);
  }
};

TEST_F(TextExportWavesTest, FollowTheStyleOfTheFit) {
  OpenFitViews();
  UseFit(FitStyle::Sum, 2);
  ExpectNames(",\tFitSum");
  UseFit(FitStyle::Component, 2);
  ExpectNames(",\tFit0,\tFit1");
  UseFit(FitStyle::Both, 2);
  ExpectNames(",\tFitSum,\tFit0,\tFit1");
  UseFit(static_cast<FitStyle>(3), 1);
  ExpectNames(",\tFitSum,\tFit0");
}

TEST_F(TextExportWavesTest, AreNoneWhileTheFitViewIsClosed) {
  for (const FitStyle style : {FitStyle::Component, FitStyle::Sum, FitStyle::Both}) {
    UseFit(style, 3);
    ExpectNames("");
  }
}

TEST_F(TextExportWavesTest, AreAsManyAsAFitHasTerms) {
  OpenFitViews();
  UseFit(FitStyle::Component, 0);
  ExpectNames("");
  UseFit(FitStyle::Component, 1);
  ExpectNames(",\tFit0");
  UseFit(FitStyle::Component, 11);
  ExpectNames(",\tFit0,\tFit1,\tFit2,\tFit3,\tFit4,\tFit5,\tFit6,\tFit7,\tFit8,\tFit9");
}

TEST_F(TextExportWavesTest, StandThereWithoutBinsToo) {
  OpenFitViews();
  UseFit(FitStyle::Both, 1);
  EXPECT_EQ(Exported(ViewKind::Amplitude, TextExportChoice::Igor),
            "IGOR\r\nWAVES /D Current, Count,\tFitSum,\tFit0\r\nBEGIN\r\nEND\r\n");
}

TEST_F(TextExportWavesTest, AreNamesOfTheHistogramsAlone) {
  FillAll();
  OpenFitViews();
  for (const ViewKind kind : AllKinds()) {
    const bool isHistogram = kind == ViewKind::Amplitude || kind == ViewKind::Duration;
    EXPECT_EQ(WaveLine(kind), WavesOf(kind) + (isHistogram ? ",\tFitSum" : ""));
  }
}

}  // namespace
}  // namespace ondrel
