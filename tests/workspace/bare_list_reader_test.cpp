#include "workspace/bare_list_reader.h"

#include "support/reading_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Two sweeps, of two transitions and one.
constexpr char kTwoSweeps[] =
    "1\t0.010000\t0\t9\t-2E-12\t9\t1\r\n"
    "1\t0.020000\t-2E-12\t9\t0\t9\t0\r\n"
    "2\t0.005000\t0.5E-12\t9\t3E-12\t9\t-4\r\n";

class BareList : public ReadingTest {};

TEST_F(BareList, EveryColumnGoesToItsField) {
  EXPECT_TRUE(Parse(kTwoSweeps));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(1, 2, 3));
  const EventRecord& event = Event(2);
  EXPECT_EQ(event.Sweep, 2u);
  EXPECT_EQ(event.Transition, 0.005);
  EXPECT_EQ(event.PreAmplitude, 0.5e-12);
  EXPECT_EQ(event.PostAmplitude, 3e-12);
  EXPECT_EQ(event.Level, -4);
  EXPECT_EQ(event.TagValue, 0.0);
}

TEST_F(BareList, ATagLeftInARecordByAnEarlierReadIsCleared) {
  workspace().Events.Records[0].TagValue = 5.0;
  EXPECT_TRUE(Parse(kTwoSweeps));
  EXPECT_EQ(Event(0).TagValue, 0.0);
}

TEST_F(BareList, RowsMayBeBrokenOverLinesAtWill) {
  EXPECT_TRUE(Parse("1\n0.01 0 9\r\n\r\n-2E-12\t\t9 1 1 0.02 0 9 0 9 0"));
  EXPECT_THAT(Counts(), ElementsAre(1, 1, 2));
  EXPECT_EQ(Event(1).Transition, 0.02);
}

TEST_F(BareList, BlanksOnlyFailWithNoMessage) {
  EXPECT_FALSE(Parse(" \t\r\n  "));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(BareList, ATruncatedLastRowIsKeptWithZeros) {
  EXPECT_TRUE(Parse("1 0.01 0 9 -2E-12 9 1\r\n1 0.02"));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(1, 1, 2));
  EXPECT_EQ(Event(1).Transition, 0.02);
  EXPECT_EQ(Event(1).PostAmplitude, 0.0);
  EXPECT_EQ(Event(1).Level, 0);
}

TEST_F(BareList, ABadTokenInEachColumnGivesTheCorruptedMessageWithItsRow) {
  const std::string row = "1 1 1 1 1 1 1\n";
  for (std::size_t column = 0; column < 7; ++column) {
    shell().Boxes.clear();
    std::string bad = row;
    bad[2 * column] = 'x';
    EXPECT_FALSE(Parse(row + bad + row));
    EXPECT_THAT(Messages(), ElementsAre(Corrupted(2, "Event"))) << "column " << column;
    EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
  }
}

TEST_F(BareList, ARealInAColumnThatIsDroppedIsCheckedAllTheSame) {
  EXPECT_FALSE(Parse("1 1 1 1.5 1 1 1"));
  EXPECT_THAT(Messages(), ElementsAre(Corrupted(1, "Event")));
}

TEST_F(BareList, AnExactFitOfEventsPasses) {
  SetCapacities(3, 10);
  EXPECT_TRUE(Parse(kTwoSweeps));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(1, 2, 3));
}

TEST_F(BareList, OneEventTooManyFillsTheTableAndNoRowStays) {
  SetCapacities(2, 10);
  EXPECT_FALSE(Parse(kTwoSweeps));
  EXPECT_THAT(Messages(), ElementsAre(TableFull("Event")));
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(BareList, AFurtherFileCountsOnFromTheSweepsBefore) {
  EXPECT_TRUE(Parse(kTwoSweeps));
  EXPECT_TRUE(Parse(kTwoSweeps));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(2, 4, 6));
  EXPECT_EQ(Event(2).Sweep, 2u);
  EXPECT_EQ(Event(3).Sweep, 3u);
  EXPECT_EQ(Event(5).Sweep, 4u);
  EXPECT_EQ(Sweep(1).File, 1u);
  EXPECT_EQ(Sweep(2).File, 2u);
  EXPECT_EQ(Sweep(2).Index, 1u);
  EXPECT_EQ(Sweep(3).Index, 2u);
}

TEST_F(BareList, AFailedFurtherFileLeavesTheFirst) {
  EXPECT_TRUE(Parse(kTwoSweeps));
  EXPECT_FALSE(Parse("1 1 1 1 1 1 x"));
  EXPECT_THAT(Messages(), ElementsAre(Corrupted(1, "Event")));
  EXPECT_THAT(Counts(), ElementsAre(1, 2, 3));
}

TEST_F(BareList, TheReadIsGoodEvenWhenItsRowsWereDropped) {
  EXPECT_TRUE(Parse("1 1 1 1 1 1 1\n2 1 1 1 1 1 1\n1 1 1 1 1 1 1\n"));
  EXPECT_THAT(Messages(), ElementsAre(kAmbiguous));
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(BareList, TheViewsLearnTheNewCounts) {
  OpenTableView(ViewKind::Event);
  OpenTableView(ViewKind::Sweep);
  EXPECT_TRUE(Parse(kTwoSweeps));
  EXPECT_EQ(ScrollRange(ViewKind::Event), 2);
  EXPECT_EQ(ScrollRange(ViewKind::Sweep), 1);
}

TEST_F(BareList, AListThatGivesUpLeavesTheViewsAlone) {
  OpenTableView(ViewKind::Event);
  EXPECT_FALSE(Parse("1 1 1 1 1 1 x"));
  EXPECT_EQ(ScrollRange(ViewKind::Event), kNoRange);
}

TEST_F(BareList, SweepNumbersAtTheEndsOfTheirRangeDoNoHarm) {
  EXPECT_TRUE(Parse(kTwoSweeps));
  EXPECT_TRUE(Parse("2147483647 1 0 0 0 0 0"));
  EXPECT_TRUE(Parse("-2147483648 1 0 0 0 0 0"));
  EXPECT_THAT(Messages(), ElementsAre(::testing::_, kAmbiguous));
  EXPECT_THAT(Counts(), ElementsAre(1, 2, 3));
}

}  // namespace
}  // namespace ondrel
