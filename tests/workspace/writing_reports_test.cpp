#include "workspace/writing_reports.h"

#include "support/saving_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class WritingReportsTest : public SavingTest {};

TEST_F(WritingReportsTest, ALineThatIsWrittenIsNotTold) {
  EXPECT_EQ(Saved([](FrameWindow* frame, OutputFile& file) {
              return WriteReportedLine(frame, file, "a line");
            }),
            "a line\r\n");
  EXPECT_TRUE(saved_);
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(WritingReportsTest, AFailedWriteIsToldWithTheStopIcon) {
  shell().Write.Next = 1;
  EXPECT_EQ(Saved([](FrameWindow* frame, OutputFile& file) {
              const std::string longer(file.Gathered.size(), 'x');
              return WriteReportedLine(frame, file, longer);
            }),
            "");
  EXPECT_FALSE(saved_);
  EXPECT_THAT(Messages(), ElementsAre(kWritingFailed));
  EXPECT_EQ(shell().Boxes[0].Icon, toolkit::BoxIcon::Stop);
  EXPECT_EQ(shell().Boxes[0].Buttons, toolkit::BoxButtons::Ok);
}

}  // namespace
}  // namespace ondrel
