#include <gmock/gmock.h>

#include <cmath>

#include "output/text_fixture.h"
#include "output/text_rows.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr double kRootTwoPi = 2.5066282746310002;
constexpr double kLnTen = 2.302585092994046;

class TextRowsHistogramsTest : public TextTest {
 protected:
  static std::vector<std::string> FieldsOf(const std::string& line) {
    std::vector<std::string> fields(1);
    for (const char c : line) {
      if (c == '\t') {
        fields.emplace_back();
      } else {
        fields.back() += c;
      }
    }
    return fields;
  }

  /// Field `column` of each row of the view.
  std::vector<std::string> ColumnOf(ViewKind kind, std::size_t column) {
    std::vector<std::string> fields;
    for (const std::string& line : LinesOf(kind)) fields.push_back(FieldsOf(line).at(column));
    return fields;
  }

  std::size_t CountColumns(ViewKind kind) { return FieldsOf(LinesOf(kind).at(0)).size(); }

  /// The middles of the four bins of FillAmplitudeBins, pA, and of FillDurationBins, log10 s.
  static constexpr double kCurrents[] = {-0.875, -0.625, -0.375, -0.125};
  static constexpr double kLogTimes[] = {-3.75, -3.25, -2.75, -2.25};

  void FillThreeTerms() {
    amplitude().TermCount = 3;
    amplitude().Terms[0] = {0.5, -0.75, 0.25, 100.0};
    amplitude().Terms[1] = {0.25, -0.25, 0.5, 60.0};
    amplitude().Terms[2] = {0.25, 2.0, 3.0, 7.0};
    duration().TermCount = 3;
    duration().Terms[0] = {0.5, 0.0003, 100.0};
    duration().Terms[1] = {0.6, 0.002, 60.0};
    duration().Terms[2] = {-0.1, 0.5, -7.0};
  }

  /// Events of one term in a bin a quarter of a picoampere wide.
  double ExpectedCount(const AmplitudeTerm& term, double current) {
    const double z = (current - term.Current) / term.StdDev;
    return term.Area * 0.25 * std::exp(-0.5 * z * z) / (kRootTwoPi * term.StdDev);
  }

  /// Events of one term in a bin half a decade wide.
  double ExpectedCount(const DurationTerm& term, double logTime) {
    const double u = std::exp(logTime * kLnTen) / term.TimeConstant;
    return term.Area * 0.5 * kLnTen * u * std::exp(-u);
  }

  /// The column of the terms `first` up to `last`.
  template <typename Histogram, std::size_t kBins>
  std::vector<std::string> ExpectedColumn(const Histogram& histogram, const double (&places)[kBins],
                                          std::size_t first, std::size_t last) {
    std::vector<std::string> column;
    for (const double place : places) {
      double sum = 0.0;
      for (std::size_t i = first; i < last; ++i) sum += ExpectedCount(histogram.Terms[i], place);
      column.push_back(Scientific(sum));
    }
    return column;
  }

  void UseStyle(FitStyle style) {
    amplitude().FitStyle = style;
    duration().FitStyle = style;
  }

  void OpenFitViews() {
    OpenInert(ViewKind::AmplitudeFit);
    OpenInert(ViewKind::DurationFit);
  }

  /// Both histograms with bins, three terms and their fit views.
  void FillFits(FitStyle style) {
    FillAmplitudeBins();
    FillDurationBins();
    FillThreeTerms();
    UseStyle(style);
    OpenFitViews();
  }

  /// A column with the sum of all terms stands at `sum`.
  void ExpectSumAt(std::size_t sum) {
    EXPECT_EQ(ColumnOf(ViewKind::Amplitude, sum), ExpectedColumn(amplitude(), kCurrents, 0, 3));
    EXPECT_EQ(ColumnOf(ViewKind::Duration, sum), ExpectedColumn(duration(), kLogTimes, 0, 3));
  }

  /// The columns of the terms begin at `first`.
  void ExpectTermsFrom(std::size_t first) {
    for (std::size_t j = 0; j < 3; ++j) {
      EXPECT_EQ(ColumnOf(ViewKind::Amplitude, first + j),
                ExpectedColumn(amplitude(), kCurrents, j, j + 1));
      EXPECT_EQ(ColumnOf(ViewKind::Duration, first + j),
                ExpectedColumn(duration(), kLogTimes, j, j + 1));
    }
  }

  void ExpectColumns(std::size_t count) {
    EXPECT_EQ(CountColumns(ViewKind::Amplitude), count);
    EXPECT_EQ(CountColumns(ViewKind::Duration), count);
  }
};

// --- Bins ----------------------------------------------------------------------------------------

TEST_F(TextRowsHistogramsTest, ExcludedBinsAreWrittenAndOverflowBinsAreNot) {
  FillAmplitudeBins();
  FillDurationBins();
  for (const ViewKind kind : {ViewKind::Amplitude, ViewKind::Duration}) {
    EXPECT_THAT(ColumnOf(kind, 1),
                ElementsAre("1.0000000E+00", "0.0000000E+00", "3.0000000E+01", "4.0000000E+00"));
  }
}

TEST_F(TextRowsHistogramsTest, CountsAreCountsOnASquareRootAxisToo) {
  FillAmplitudeBins();
  amplitude().SquareRootAxis = true;
  amplitude().Bins[3].Height = std::sqrt(30.0);
  EXPECT_EQ(ColumnOf(ViewKind::Amplitude, 1)[2], "3.0000000E+01");
}

TEST_F(TextRowsHistogramsTest, WithoutBinsThereAreNoRows) {
  FillThreeTerms();
  OpenFitViews();
  EXPECT_THAT(LinesOf(ViewKind::Amplitude), IsEmpty());
  EXPECT_THAT(LinesOf(ViewKind::Duration), IsEmpty());
}

TEST_F(TextRowsHistogramsTest, CentresFollowTheLastLayoutOfTheView) {
  FillAmplitudeBins();
  FillDurationBins();
  amplitude().PixelsPerBin = 20.0;
  amplitude().PixelsPerPa = 50.0;
  EXPECT_THAT(ColumnOf(ViewKind::Amplitude, 0),
              ElementsAre("-8.0000000E-13", "-4.0000000E-13", "0.0000000E+00", "4.0000000E-13"));
  duration().PixelsPerBin = 40.0;  // 20 60 100 140 units are 0.4 1.2 2 2.8 decades
  EXPECT_THAT(ColumnOf(ViewKind::Duration, 0),
              ElementsAre("0.000251", "0.001585", "0.010000", "0.063096"));
}

TEST_F(TextRowsHistogramsTest, TheOffsetOfABinIsASum) {
  amplitude().TickMarks = 1;
  amplitude().BinsPerTick = 40;
  amplitude().PixelsPerBin = 0.1;
  amplitude().PixelsPerPa = 1.0;
  amplitude().Minimum = -3.05;  // where a bin comes to stand about 0
  FillBins(amplitude(), std::vector<int>(42, 1));
  std::vector<std::string> expected;
  int differing = 0;
  double offset = 0.05;
  for (int bin = 0; bin < 40; ++bin) {
    expected.push_back(Scientific((offset - 3.05) * 1e-12));
    if (expected.back() != Scientific(((bin + 0.5) * 0.1 - 3.05) * 1e-12)) ++differing;
    offset += 0.1;
  }
  EXPECT_GT(differing, 0) << "a product would do as well";
  EXPECT_EQ(ColumnOf(ViewKind::Amplitude, 0), expected);
}

TEST_F(TextRowsHistogramsTest, TheOffsetOfABinOfDurationsIsASumToo) {
  duration().Decades = 1;
  duration().BinsPerDecade = 40;
  duration().MinimumExponent = 9;  // enough digits to see it
  duration().PixelsPerBin = 0.1;
  duration().PixelsPerDecade = 4.0;
  FillBins(duration(), std::vector<int>(42, 1));
  std::vector<std::string> expected;
  int differing = 0;
  double offset = 0.05;
  for (int bin = 0; bin < 40; ++bin) {
    expected.push_back(Fixed(std::pow(10.0, offset / 4.0) * 1e9));
    if (expected.back() != Fixed(std::pow(10.0, (bin + 0.5) * 0.1 / 4.0) * 1e9)) ++differing;
    offset += 0.1;
  }
  EXPECT_GT(differing, 0) << "a product would do as well";
  EXPECT_EQ(ColumnOf(ViewKind::Duration, 0), expected);
}

TEST_F(TextRowsHistogramsTest, SettingsBelowOneBinCountAsOne) {
  amplitude().TickMarks = 0;
  amplitude().BinsPerTick = -3;
  FillBins(amplitude(), {5, 6, 7});
  duration().Decades = -2147483647 - 1;
  duration().BinsPerDecade = 0;
  FillBins(duration(), {5, 6, 7});
  EXPECT_THAT(ColumnOf(ViewKind::Amplitude, 1), ElementsAre("6.0000000E+00"));
  EXPECT_THAT(ColumnOf(ViewKind::Duration, 1), ElementsAre("6.0000000E+00"));
}

TEST_F(TextRowsHistogramsTest, AHistogramThatWasNeverLaidOutIsWrittenWithoutHarm) {
  FillFits(FitStyle::Both);
  amplitude().PixelsPerBin = amplitude().PixelsPerPa = 0.0;
  duration().PixelsPerBin = duration().PixelsPerDecade = 0.0;
  for (const ViewKind kind : {ViewKind::Amplitude, ViewKind::Duration}) {
    EXPECT_EQ(CountColumns(kind), 6u);
    EXPECT_THAT(ColumnOf(kind, 1),
                ElementsAre("1.0000000E+00", "0.0000000E+00", "3.0000000E+01", "4.0000000E+00"));
  }
  amplitude().PixelsPerBin = duration().PixelsPerBin = 1.0;
  EXPECT_THAT(LinesOf(ViewKind::Amplitude), SizeIs(4));
  EXPECT_THAT(LinesOf(ViewKind::Duration), SizeIs(4));
}

TEST_F(TextRowsHistogramsTest, AxesThatNoDialogTakesAreWrittenWithoutHarm) {
  FillFits(FitStyle::Both);
  for (const std::int32_t exponent : {2147483647, -2147483647 - 1}) {
    duration().MinimumExponent = exponent;
    EXPECT_THAT(LinesOf(ViewKind::Duration), SizeIs(4));
  }
  duration().Terms[0].TimeConstant = 0.0;
  duration().Terms[1].TimeConstant = -1.0;
  EXPECT_THAT(LinesOf(ViewKind::Duration), SizeIs(4));
  amplitude().Minimum = 1e308;
  amplitude().Terms[0].StdDev = 0.0;
  EXPECT_THAT(LinesOf(ViewKind::Amplitude), SizeIs(4));
}

// --- Fits ----------------------------------------------------------------------------------------

TEST_F(TextRowsHistogramsTest, WithNoFitViewOpenThereAreTwoColumnsHoweverManyTermsExist) {
  FillAmplitudeBins();
  FillDurationBins();
  FillThreeTerms();
  for (const FitStyle style : {FitStyle::Component, FitStyle::Sum, FitStyle::Both}) {
    UseStyle(style);
    ExpectColumns(2);
  }
}

TEST_F(TextRowsHistogramsTest, EachHistogramAsksForItsOwnFitView) {
  FillAmplitudeBins();
  FillDurationBins();
  OpenInert(ViewKind::AmplitudeFit);
  EXPECT_EQ(CountColumns(ViewKind::Amplitude), 3u);
  EXPECT_EQ(CountColumns(ViewKind::Duration), 2u);
  DestroyView(workspace(), ViewKind::AmplitudeFit);
  OpenInert(ViewKind::DurationFit);
  EXPECT_EQ(CountColumns(ViewKind::Amplitude), 2u);
  EXPECT_EQ(CountColumns(ViewKind::Duration), 3u);
}

TEST_F(TextRowsHistogramsTest, SumGivesOneColumnOfAllTerms) {
  FillFits(FitStyle::Sum);
  ExpectColumns(3);
  ExpectSumAt(2);
}

TEST_F(TextRowsHistogramsTest, ComponentGivesAColumnForEachTermAndNoneForTheSum) {
  FillFits(FitStyle::Component);
  ExpectColumns(5);
  ExpectTermsFrom(2);
}

TEST_F(TextRowsHistogramsTest, BothGivesTheSumBeforeTheTerms) {
  FillFits(FitStyle::Both);
  ExpectColumns(6);
  ExpectSumAt(2);
  ExpectTermsFrom(3);
}

TEST_F(TextRowsHistogramsTest, AStyleThatThereIsNotCountsAsBoth) {
  FillFits(static_cast<FitStyle>(200));
  ExpectColumns(6);
  ExpectSumAt(2);
  ExpectTermsFrom(3);
}

TEST_F(TextRowsHistogramsTest, OneTermIsItsOwnSum) {
  FillFits(FitStyle::Both);
  amplitude().TermCount = 1;
  duration().TermCount = 1;
  ExpectColumns(4);
  EXPECT_EQ(ColumnOf(ViewKind::Amplitude, 2), ExpectedColumn(amplitude(), kCurrents, 0, 1));
  EXPECT_EQ(ColumnOf(ViewKind::Duration, 2), ExpectedColumn(duration(), kLogTimes, 0, 1));
  for (const ViewKind kind : {ViewKind::Amplitude, ViewKind::Duration}) {
    EXPECT_EQ(ColumnOf(kind, 2), ColumnOf(kind, 3));
  }
}

TEST_F(TextRowsHistogramsTest, WithoutTermsTheSumIsZero) {
  FillFits(FitStyle::Both);
  amplitude().TermCount = 0;
  duration().TermCount = 0;
  ExpectColumns(3);
  EXPECT_THAT(ColumnOf(ViewKind::Amplitude, 2), ::testing::Each("0.0000000E+00"));
  EXPECT_THAT(ColumnOf(ViewKind::Duration, 2), ::testing::Each("0.0000000E+00"));
}

TEST_F(TextRowsHistogramsTest, AsManyTermsAsAFitHasRoomForAreWritten) {
  FillFits(FitStyle::Both);
  for (const std::int32_t terms : {10, 11, 100, 2147483647}) {
    amplitude().TermCount = terms;
    duration().TermCount = terms;
    ExpectColumns(13);
  }
}

TEST_F(TextRowsHistogramsTest, TheCurveIsTakenAtTheCentresOfTheLastLayout) {
  FillFits(FitStyle::Sum);
  amplitude().PixelsPerBin = 20.0;
  amplitude().PixelsPerPa = 50.0;
  constexpr double kShifted[] = {-0.8, -0.4, 0.0, 0.4};
  EXPECT_EQ(ColumnOf(ViewKind::Amplitude, 2), ExpectedColumn(amplitude(), kShifted, 0, 3))
      << "counts are still those of a bin of the settings";
}

TEST_F(TextRowsHistogramsTest, ColumnsAreToldForTheTwoHistogramsAlone) {
  FillFits(FitStyle::Both);
  for (const ViewKind kind : AllKinds()) {
    const bool isHistogram = kind == ViewKind::Amplitude || kind == ViewKind::Duration;
    const FitColumns fit = FitColumnsOf(workspace(), kind);
    EXPECT_EQ(fit.Sum, isHistogram);
    EXPECT_EQ(fit.Terms, isHistogram ? 3 : 0);
  }
}

}  // namespace
}  // namespace ondrel
