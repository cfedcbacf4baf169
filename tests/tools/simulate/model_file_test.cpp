// What each line of a model file does, and what is said about bad ones.
#include "simulate/model_file.h"

#include <gmock/gmock.h>

namespace ondrel::simulate {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr char kChannel[] =
    "state closed 0 0\nstate open 1 5.5\nrate closed open 50\nrate open closed 200\n";

Model Read(const std::string& more) {
  return ReadModel(std::string(kChannel) + "duration 2\n" + more, "a.channel");
}

/// The message for the text, or an empty one when it is taken.
std::string MessageFor(const std::string& text) {
  try {
    ReadModel(text, "a.channel");
  } catch (const ModelError& error) {
    return error.what();
  }
  return "";
}

std::string MessageForMore(const std::string& more) {
  return MessageFor(std::string(kChannel) + "duration 2\n" + more);
}

TEST(ModelFile, HoldsStatesAndRates) {
  const Model model = Read("");
  ASSERT_EQ(model.States.size(), 2u);
  EXPECT_EQ(model.States[1].Name, "open");
  EXPECT_EQ(model.States[1].Level, 1);
  EXPECT_EQ(model.States[1].Current, 5.5);
  ASSERT_EQ(model.Files.size(), 1u);
  EXPECT_EQ(model.Files[0].Rates.At(0, 1), 50.0);
  EXPECT_EQ(model.Files[0].Rates.At(1, 0), 200.0);
}

TEST(ModelFile, HasDefaultsForAllButStatesAndDuration) {
  const Model model = Read("");
  const FilePlan& plan = model.Files[0];
  EXPECT_EQ(model.Seed, 1u);
  EXPECT_EQ(model.Layout, TableLayout::Version5);
  EXPECT_EQ(plan.Kind->Keyword, "Undefined");
  EXPECT_EQ(plan.StartState, kEquilibriumStart);
  EXPECT_EQ(plan.Channels, 1);
  EXPECT_EQ(plan.Noise, 0.0);
  EXPECT_EQ(plan.DeadTime, 0.0);
  EXPECT_EQ(plan.Sweeps, 1);
  EXPECT_FALSE(plan.HasRelevant);
  EXPECT_THAT(plan.Segments, ::testing::IsEmpty());
}

TEST(ModelFile, TakesEverySetting) {
  const Model model = Read(
      "start open\nchannels 3\nnoise 0.25\ndead-time 40us\nsweeps 7\nduration 500ms\n"
      "interval 2s\nrelevant 0.1 400ms\nsegment 0 0.2\nsegment 0.3 0.5\n"
      "relevant-value -80 10\ntag-value 4\nevent-tag 1 0.5\nlayout 2-files\n"
      "seed 18446744073709551615\n");
  const FilePlan& plan = model.Files[0];
  EXPECT_EQ(plan.StartState, 1u);
  EXPECT_EQ(plan.Channels, 3);
  EXPECT_EQ(plan.Noise, 0.25);
  EXPECT_EQ(plan.DeadTime, 40e-6);
  EXPECT_EQ(plan.Sweeps, 7);
  EXPECT_EQ(plan.Duration, 0.5);
  EXPECT_EQ(plan.Interval, 2.0);
  EXPECT_EQ(plan.Relevant.Start, 0.1);
  EXPECT_EQ(plan.Relevant.End, 0.4);
  ASSERT_EQ(plan.Segments.size(), 2u);
  EXPECT_EQ(plan.Segments[1].Start, 0.3);
  EXPECT_EQ(RuleValue(plan.RelevantValue, 0), -80.0);
  EXPECT_EQ(RuleValue(plan.RelevantValue, 6), -20.0);
  EXPECT_EQ(RuleValue(plan.TagValue, 6), 4.0);
  EXPECT_EQ(RuleValue(plan.EventTag, 2), 2.0);
  EXPECT_EQ(model.Layout, TableLayout::Version2Files);
  EXPECT_EQ(model.Seed, 18446744073709551615u);
}

TEST(ModelFile, TakesCommentsBlankLinesTabsAndCarriageReturns) {
  const Model model = ReadModel(
      "# a channel\r\n\r\n\tstate\tclosed 0 0   # shut\r\n state open 1 5\r\n"
      "rate closed open 1\r\nrate open closed 1\r\nduration 3",
      "a.channel");
  EXPECT_EQ(model.States[0].Name, "closed");
  EXPECT_EQ(model.Files[0].Duration, 3.0);
}

TEST(ModelFile, TakesDriftsOfEveryKind) {
  const Model model = Read(
      "sweeps 3\ndrift across-sweeps rate closed open 1 2\ndrift within-sweep rates 1 0.5\n"
      "drift across-sweeps current 1 0.5\n");
  const FilePlan& plan = model.Files[0];
  ASSERT_EQ(plan.Drifts.size(), 3u);
  const SweepRates middle = RatesOfSweep(plan, 1);
  EXPECT_DOUBLE_EQ(RatesAt(middle, 0.0).At(0, 1), 75.0);
  EXPECT_DOUBLE_EQ(RatesAt(middle, 1.0).At(0, 1), 37.5);
  EXPECT_DOUBLE_EQ(RatesAt(middle, 1.0).At(1, 0), 100.0);
  EXPECT_DOUBLE_EQ(CurrentFactor(plan, 1, 0.9), 0.75);
  EXPECT_DOUBLE_EQ(CurrentFactor(plan, 2, 0.0), 0.5);
}

TEST(ModelFile, LetsADriftOfOneRateLeaveAllOthersAlone) {
  const Model model = Read(
      "state sub 1 3\nrate closed sub 1\nrate sub open 1\nrate sub closed 1\n"
      "drift across-sweeps rate closed open 2 2\n");
  const SweepRates rates = RatesOfSweep(model.Files[0], 0);
  EXPECT_EQ(rates.Base.At(0, 1), 100.0);
  EXPECT_EQ(rates.Base.At(1, 0), 200.0);
  EXPECT_EQ(rates.Base.At(0, 2), 1.0);
  EXPECT_EQ(rates.Base.At(2, 1), 1.0);
}

TEST(ModelFile, TakesHeaderBytesFromOneTo256) {
  const Model model = Read("file Pulse\nname a\nheader 1 0 256 0 1 0\n");
  EXPECT_THAT(model.Files[0].Header, ElementsAre(1, 0, 256, 0, 1, 0));
}

TEST(ModelFile, LeavesASingleSweepAtTheFirstFactorOfADrift) {
  const Model model = Read("drift across-sweeps current 3 5\n");
  EXPECT_EQ(CurrentFactor(model.Files[0], 0, 0.5), 3.0);
}

TEST(ModelFile, GivesEachFileTheCommonLinesAndItsOwn) {
  const Model model = Read(
      "sweeps 4\nnoise 0.1\n"
      "file Pulse\nname C:\\my data\\cell #3.dat  # from May\nheader 1 2 3 4 5 6\nsweeps 2\n"
      "file Undefined\nrate closed open 99\n");
  ASSERT_EQ(model.Files.size(), 2u);
  EXPECT_EQ(model.Files[0].Kind->Keyword, "Pulse");
  EXPECT_EQ(model.Files[0].Sweeps, 2);
  EXPECT_EQ(model.Files[0].Noise, 0.1);
  EXPECT_EQ(model.Files[0].Rates.At(0, 1), 50.0);
  EXPECT_THAT(model.Files[0].Header, ElementsAre(1, 2, 3, 4, 5, 6));
  EXPECT_EQ(model.Files[1].Sweeps, 4);
  EXPECT_EQ(model.Files[1].Name, "");
  EXPECT_EQ(model.Files[1].Rates.At(0, 1), 99.0);
}

TEST(ModelFile, KeepsBlanksAndNumberSignsInsideAName) {
  const Model model = Read("file IgorWave\nname  C:\\my  data\\cell#3.dat \r\n");
  EXPECT_EQ(model.Files[0].Name, "C:\\my  data\\cell#3.dat");
}

TEST(ModelFile, KeepsRatesWhenAStateFollowsThem) {
  const Model model = ReadModel(
      std::string(kChannel) + "state sub 1 3\nrate sub open 5\nrate open sub 7\nduration 1\n", "m");
  EXPECT_EQ(model.Files[0].Rates.StateCount, 3u);
  EXPECT_EQ(model.Files[0].Rates.At(1, 0), 200.0);
  EXPECT_EQ(model.Files[0].Rates.At(1, 2), 7.0);
}

TEST(BadModel, IsToldWithNameAndLine) {
  EXPECT_EQ(MessageForMore("noise lots\n"), "a.channel:6: \"lots\" is not a number");
}

struct BadLine {
  const char* Lines;
  const char* Message;
};

class BadModelLine : public ::testing::TestWithParam<BadLine> {};

TEST_P(BadModelLine, IsToldInItsOwnWords) {
  EXPECT_THAT(MessageForMore(GetParam().Lines), HasSubstr(GetParam().Message));
}

INSTANTIATE_TEST_SUITE_P(
    OfEachKind, BadModelLine,
    ::testing::Values(
        BadLine{"colour red", "a.channel:6: \"colour\" is not a keyword"},
        BadLine{"noise", "the line must read: noise SD"},
        BadLine{"noise 1 2", "the line must read: noise SD"},
        BadLine{"noise 1.5pA", "\"1.5pA\" is not a number"},
        BadLine{"noise nan", "\"nan\" is not a number"},
        BadLine{"noise -1", "the noise must not be negative"},
        BadLine{"state open 1 5", "there is a state of that name"},
        BadLine{"state equilibrium 1 5", "\"equilibrium\" is not free as a name"},
        BadLine{"state other 1.5 5", "\"1.5\" is not a whole number"},
        BadLine{"rate closed opne 5", "\"opne\" is not the name of a state above this line"},
        BadLine{"rate open open 5", "\"open\" is not another state"},
        BadLine{"rate open closed -5", "\"-5\" is not a rate of 0 or above"},
        BadLine{"rate open closed 0", "not every state can be reached from every other"},
        BadLine{"start ajar", "\"ajar\" is not the name of a state"},
        BadLine{"channels 0", "the number of channels must lie between 1 and 1000"},
        BadLine{"channels 2.5", "\"2.5\" is not a whole number"},
        BadLine{"dead-time 5min", "\"5min\" is not a time"},
        BadLine{"dead-time -5", "the dead time must not be negative"},
        BadLine{"sweeps 0", "the number of sweeps must lie between 1 and 1000000"},
        BadLine{"duration 0", "the duration of the sweeps must be above 0"},
        BadLine{"interval 1", "the interval of the sweeps is shorter than their duration"},
        BadLine{"relevant 1 3", "the relevant segment must lie inside the sweep"},
        BadLine{"relevant 1 1", "the relevant segment must lie inside the sweep"},
        BadLine{"segment -1 1", "a segment must lie inside the sweep"},
        BadLine{"drift sideways rates 1 2", "\"sideways\" is not across-sweeps or within-sweep"},
        BadLine{"drift within-sweep rate closed open 1", "\"rate\" is not \"rate FROM TO\""},
        BadLine{"drift within-sweep speed 1 2", "\"speed\" is not \"rate FROM TO\""},
        BadLine{"drift within-sweep rates 0 1", "\"0\" is not a factor above 0"},
        BadLine{"layout 3", "\"3\" is not a layout (bare, 1, 1-files, 2, 2-files, 5)"},
        BadLine{"seed -1", "\"-1\" is not a seed"},
        BadLine{"seed 18446744073709551616", "is not a seed"},
        BadLine{"name a.dat", "name must stand behind a file line"},
        BadLine{"header 1", "header must stand behind a file line"},
        BadLine{"file Undefined\nseed 1", "a.channel:7: seed must stand before the first file"},
        BadLine{"file Undefined\nstate s 1 1", "state must stand before the first file line"},
        BadLine{"file Foo", "\"Foo\" is not a type of data file (Undefined, pClamp6, Sampler,"},
        BadLine{"file Undefined\nname a.dat", "a file of type Undefined has no name"},
        BadLine{"file Undefined\nfile Sampler\n", "file 2: a file of type Sampler needs a name"},
        BadLine{"file Sampler\nname a.dat\nheader 1 2", "Sampler has 1 values, not 2"},
        BadLine{"file Sampler\nname a.dat\nheader 1.5", "header value 1 must be a whole number"},
        BadLine{"file Sampler\nname a.dat\nheader 3e9", "header value 1 must be a whole number"},
        BadLine{"file Pulse\nname a\nheader 0 1 1 1 1 1", "value 1 must lie between 1 and 256"},
        BadLine{"file Pulse\nname a\nheader 1 1 257 1 1 1", "value 3 must lie between 1 and 256"},
        BadLine{"file Sampler\nname a\tb\n", "a name cannot hold a tab"},
        BadLine{"rate closed open 1e9", "more than 100000000 transitions"},
        BadLine{"sweeps 1000000\nchannels 1000", "more than 100000000 transitions"}));

TEST(BadModel, NeedsAState) {
  EXPECT_EQ(MessageFor("duration 1\n"), "a.channel: the model has no state");
  EXPECT_EQ(MessageFor(""), "a.channel: the model has no state");
}

TEST(BadModel, NeedsADuration) {
  EXPECT_EQ(MessageFor(kChannel), "a.channel: the duration of the sweeps must be above 0");
}

TEST(BadModel, MayHaveAStateWithoutAWayBackWhenTheStartIsNamed) {
  EXPECT_EQ(MessageForMore("rate open closed 0\nstart closed\n"), "");
}

TEST(BadModel, CannotLetARateDriftThatIsNotGiven) {
  EXPECT_THAT(MessageForMore("state far 0 0\nrate far open 1\nrate open far 1\n"
                             "drift within-sweep rate far closed 1 2\n"),
              HasSubstr("a drift concerns a rate that is not given"));
}

TEST(BadModel, HoldsNoMoreThanAHundredFiles) {
  std::string files;
  for (int i = 0; i < 100; ++i) files += "file Undefined\n";
  EXPECT_EQ(MessageForMore(files), "");
  EXPECT_EQ(MessageForMore(files + "file Undefined\n"),
            "a.channel: a table holds no more than 100 data files");
}

TEST(BadModel, HasNoNameBeyondTheProgramsLongest) {
  EXPECT_EQ(MessageForMore("file IgorWave\nname " + std::string(259, 'x') + "\n"), "");
  EXPECT_EQ(MessageForMore("file IgorWave\nname " + std::string(260, 'x') + "\n"),
            "a.channel: the name is longer than 259 bytes");
}

TEST(LayoutChoice, LetsOnlyTheLayoutsWithFilesHoldSeveral) {
  const Model several = Read("file Undefined\nfile Undefined\n");
  EXPECT_THROW(CheckLayout(several, TableLayout::Bare), ModelError);
  EXPECT_THROW(CheckLayout(several, TableLayout::Version1), ModelError);
  EXPECT_THROW(CheckLayout(several, TableLayout::Version2), ModelError);
  EXPECT_NO_THROW(CheckLayout(several, TableLayout::Version1Files));
  EXPECT_NO_THROW(CheckLayout(several, TableLayout::Version2Files));
  EXPECT_NO_THROW(CheckLayout(several, TableLayout::Version5));
  EXPECT_NO_THROW(CheckLayout(Read(""), TableLayout::Bare));
}

TEST(LayoutChoice, FindsEveryLayoutByItsWord) {
  for (const char* word : {"bare", "1", "1-files", "2", "2-files", "5"}) {
    TableLayout layout{};
    ASSERT_TRUE(FindLayout(word, layout)) << word;
    EXPECT_EQ(LayoutWord(layout), word);
  }
  TableLayout layout = TableLayout::Version2;
  EXPECT_FALSE(FindLayout("3", layout));
  EXPECT_EQ(layout, TableLayout::Version2);
}

}  // namespace
}  // namespace ondrel::simulate
