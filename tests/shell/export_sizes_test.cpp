#include "shell/export_sizes.h"

#include "support/view_test.h"

namespace ondrel {
namespace {

class ExportSizesTest : public ViewTest {};

TEST_F(ExportSizesTest, TheDotsOfTheScreenAreThoseOfTheWindowsDevice) {
  ChildWindow* window = Open(ViewKind::Scatter);
  shell().DeviceDpi = 144.0;
  EXPECT_EQ(DpiOfWindow(window), 144.0);
  EXPECT_EQ(shell().OpenDevices, 0);
}

TEST_F(ExportSizesTest, LettersAreTruncatedToWholeDotsAndPensAreNot) {
  workspace().FontSize = 11;
  workspace().PenSize = 0.25;
  ScaleExportSizes(workspace(), 300.0);
  EXPECT_EQ(workspace().DeviceFontSize, 45);  // 11 * 300 / 72 = 45.83
  EXPECT_DOUBLE_EQ(workspace().DevicePenSize, 1.0416666666666667);
}

TEST_F(ExportSizesTest, TheSizesOfTheSettingsStayAsTheyAre) {
  workspace().FontSize = 0;
  ScaleExportSizes(workspace(), 144.0);
  EXPECT_EQ(workspace().DeviceFontSize, 2) << "letters of no size count as those of a point";
  EXPECT_EQ(workspace().FontSize, 0);
}

}  // namespace
}  // namespace ondrel
