#include "workspace/report.h"

#include <gmock/gmock.h>

#include "support/shell_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

class ReportTest : public ShellTest {};

TEST_F(ReportTest, PiecesAreJoinedInTheirOrder) {
  ReportFailure(Frame(), {TextId::CouldNotOpenFile, "a b.evt", TextId::DotErrorCode, -17, "."});
  EXPECT_THAT(Messages(), ElementsAre("Could not open file a b.evt. Error code -17."));
}

TEST_F(ReportTest, ALongReportIsCutAndNotOverrun) {
  ReportFailure(Frame(), {std::string(3000, 'x').c_str(), TextId::DotErrorCode});
  ASSERT_EQ(shell().Boxes.size(), 1u);
  EXPECT_EQ(shell().Boxes[0].Text, std::string(1023, 'x'));
}

TEST_F(ReportTest, AFailureHasOneOkButtonAndTheStopIcon) {
  ReportFailure(Frame(), {"So."});
  EXPECT_EQ(shell().Boxes[0].Buttons, toolkit::BoxButtons::Ok);
  EXPECT_EQ(shell().Boxes[0].Icon, toolkit::BoxIcon::Stop);
}

TEST_F(ReportTest, AQuestionHasYesAndNoAndTheQuestionIcon) {
  shell().Answers = {toolkit::BoxAnswer::Yes, toolkit::BoxAnswer::No};
  EXPECT_TRUE(AskYesNo(Frame(), {"So?"}));
  EXPECT_FALSE(AskYesNo(Frame(), {"So?"}));
  EXPECT_EQ(shell().Boxes[0].Buttons, toolkit::BoxButtons::YesNo);
  EXPECT_EQ(shell().Boxes[0].Icon, toolkit::BoxIcon::Question);
}

TEST_F(ReportTest, InformationHasItsIcon) {
  ReportInformation(Frame(), {TextId::Welcome});
  EXPECT_EQ(shell().Boxes[0].Icon, toolkit::BoxIcon::Information);
  EXPECT_EQ(shell().Boxes[0].Buttons, toolkit::BoxButtons::Ok);
}

}  // namespace
}  // namespace ondrel
