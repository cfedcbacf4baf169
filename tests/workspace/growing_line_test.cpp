#include "workspace/growing_line.h"

#include <string>

#include "support/saving_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class GrowingLineTest : public ShellTest {
 protected:
  ~GrowingLineTest() override { FreeLine(line_); }

  void Append(std::size_t length) {
    const std::string text(length, 'x');
    ASSERT_TRUE(AppendField(Frame(), line_, text, '\t'));
  }

  GrowingLine line_;
};

TEST_F(GrowingLineTest, EachFieldHasItsSeparatorBehindIt) {
  EXPECT_TRUE(AppendField(Frame(), line_, "1", '\t'));
  EXPECT_TRUE(AppendField(Frame(), line_, "", '\t'));
  EXPECT_TRUE(AppendField(Frame(), line_, "0.5", ' '));
  EXPECT_EQ(TextOf(line_), "1\t\t0.5 ");
}

TEST_F(GrowingLineTest, TheFirstBlockHas256Bytes) {
  Append(0);
  EXPECT_EQ(line_.Capacity, 256u);
}

TEST_F(GrowingLineTest, ALineGrowsWhenAFieldWouldFillIt) {
  Append(1);
  Append(252);  // 2 and 253 bytes: 255
  EXPECT_EQ(line_.Used, 255u);
  EXPECT_EQ(line_.Capacity, 256u);
  EXPECT_EQ(shell().LiveAllocations, 1);
  Append(0);
  EXPECT_EQ(line_.Used, 256u);
  EXPECT_EQ(line_.Capacity, 512u);
  EXPECT_EQ(shell().LiveAllocations, 1) << "the old block is freed";
}

TEST_F(GrowingLineTest, AFieldLongerThan256BytesGrowsTheLineByItsLength) {
  Append(9);
  Append(300);
  EXPECT_EQ(line_.Capacity, 256u + 301u);
  EXPECT_EQ(TextOf(line_), std::string(9, 'x') + '\t' + std::string(300, 'x') + '\t');
}

TEST_F(GrowingLineTest, ALineOfThousandFieldsIsWhole) {
  std::string expected;
  for (int field = 0; field < 1000; ++field) {
    const std::string text = std::to_string(field);
    ASSERT_TRUE(AppendField(Frame(), line_, text, '\t'));
    expected += text + '\t';
  }
  EXPECT_EQ(TextOf(line_), expected);
  EXPECT_EQ(line_.Capacity, (expected.size() / 256 + 1) * 256);
}

TEST_F(GrowingLineTest, ANewLineKeepsTheCapacity) {
  Append(0);
  Append(300);
  const std::size_t capacity = line_.Capacity;
  line_.Used = 0;
  Append(5);
  EXPECT_EQ(line_.Capacity, capacity);
  EXPECT_EQ(TextOf(line_), "xxxxx\t");
}

TEST_F(GrowingLineTest, WithoutMemoryTheLineStaysAndTheUserIsTold) {
  Append(200);
  shell().Allocation.Next = 1;
  EXPECT_FALSE(AppendField(Frame(), line_, std::string(60, 'y'), '\t'));
  EXPECT_THAT(Messages(), ElementsAre(kNoMemoryForLine));
  EXPECT_EQ(shell().Boxes[0].Icon, toolkit::BoxIcon::Stop);
  EXPECT_EQ(TextOf(line_), std::string(200, 'x') + '\t');
  EXPECT_EQ(line_.Capacity, 256u);
}

TEST_F(GrowingLineTest, WithoutAFirstBlockTheLineIsEmpty) {
  shell().Allocation.Next = 1;
  EXPECT_FALSE(AppendField(Frame(), line_, "1", '\t'));
  EXPECT_THAT(Messages(), ElementsAre(kNoMemoryForLine));
  EXPECT_EQ(TextOf(line_), "");
}

TEST_F(GrowingLineTest, AFreedLineCanBeginAgain) {
  Append(10);
  FreeLine(line_);
  EXPECT_EQ(shell().LiveAllocations, 0);
  FreeLine(line_);
  Append(3);
  EXPECT_EQ(TextOf(line_), "xxx\t");
  EXPECT_THAT(Messages(), IsEmpty());
}

}  // namespace
}  // namespace ondrel
