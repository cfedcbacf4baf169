#include "views/graph_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "views/destinations_fixture.h"

namespace ondrel {
namespace {

using ::testing::IsEmpty;
using ::testing::Not;

class GraphWindowTest : public DestinationsTest {
 protected:
  static constexpr ViewKind kPlots[] = {ViewKind::AmplitudeScatter, ViewKind::DurationScatter,
                                        ViewKind::Scatter, ViewKind::Stationarity};
};

TEST_F(GraphWindowTest, APlotIsLaidOutAndDrawnOnItsBackgroundAndThenShownAtOnce) {
  for (const ViewKind kind : kPlots) {
    Show(kind);
    const std::vector<std::string> drawn = Paint(kind);
    EXPECT_EQ(LinesWith(drawn, "fill "),
              std::vector<std::string>{"fill 0 0 400 300 with 65535 65535 65535"})
        << TitleOf(kind);
    EXPECT_THAT(LinesWith(drawn, "text "), Not(IsEmpty())) << TitleOf(kind);
    EXPECT_EQ(drawn.back(), "show 0 0 400 300") << TitleOf(kind);
    EXPECT_DOUBLE_EQ(View(kind).Frame.PlotBottom, 250.0) << "300 / 1.2";
  }
}

TEST_F(GraphWindowTest, LabelsMoveByTheWidthOfTheHighestOne) {
  Show(ViewKind::Scatter);
  DeviceRecord device = toolkit::AcquireDevice(View(ViewKind::Scatter).Window);
  workspace().Graphics.Device = device;
  toolkit::SetUpDevice(workspace().Graphics.Device);  // a letter of ten units is 5 wide
  const Destination destination = InWindow(workspace(), kClient);
  workspace().Scatter.Minimum = 0.0;
  workspace().Scatter.Ticks = 3;
  workspace().Scatter.PaPerTick = 5.0;
  FactsOf(ViewKind::Scatter).Routines->LayOut(workspace(), destination);
  const double offset = View(ViewKind::Scatter).Frame.LabelOffset;
  WidenLabelOffset(workspace(), ViewKind::Scatter, destination);
  EXPECT_DOUBLE_EQ(View(ViewKind::Scatter).Frame.LabelOffset, offset + 4 * 5) << "of '10.0'";
  toolkit::CleanUpDevice(workspace().Graphics.Device);
  workspace().Graphics.Device = {};
  toolkit::ReleaseDevice(nullptr, device);
}

}  // namespace
}  // namespace ondrel
