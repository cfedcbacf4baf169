// Whole documents of a scatter plot and of a table, byte for byte.
#include <gtest/gtest.h>

#include "shell/documents_fixture.h"
#include "shell/event_documents.h"
#include "shell/scatter_documents.h"

namespace ondrel {
namespace {

class GraphExportDocumentsTest : public DocumentsTest {
 protected:
  /// One level of 10 ms and 1 pA.
  void ShowScatter() {
    FreeLevelTable(workspace().Levels);
    FillLevels(1, [](LevelRecord& level, std::int32_t) {
      level.Duration = 0.01;
      level.Amplitude = 1e-12;
    });
    workspace().Scatter = {.MinimumExponent = -3,
                           .Decades = 2,
                           .TicksPerDecade = 1,
                           .Minimum = 0.0,
                           .Ticks = 2,
                           .PaPerTick = 1.0,
                           .SymbolSize = 0.08};  // 3.02 dots, made even
    Show(ViewKind::Scatter);
  }

  void ShowEvents() {
    FreeEventTable(workspace().Events);
    FillEvents(1, [](EventRecord& event, std::int32_t) {
      event.Sweep = 1;
      event.Transition = 0.01;
      event.PostAmplitude = -2.5e-12;
      event.Level = 1;
      event.TagValue = 0.25;
    });
    Show(ViewKind::Event);
  }
};

TEST_F(GraphExportDocumentsTest, AScatterPlotInIllustrator) {
  ShowScatter();
  Export(ExportChoice::Illustrator);
  EXPECT_EQ(OnDisk(), WithLineEnds(kScatterInIllustrator));
}

TEST_F(GraphExportDocumentsTest, AScatterPlotInEps) {
  ShowScatter();
  Export(ExportChoice::Eps);
  EXPECT_EQ(OnDisk(), WithLineEnds(kScatterInEps));
}

TEST_F(GraphExportDocumentsTest, ATableOfEventsInIllustrator) {
  ShowEvents();
  Export(ExportChoice::Illustrator);
  EXPECT_EQ(OnDisk(), WithLineEnds(kEventsInIllustrator));
}

TEST_F(GraphExportDocumentsTest, ATableOfEventsInEps) {
  ShowEvents();
  Export(ExportChoice::Eps);
  EXPECT_EQ(OnDisk(), WithLineEnds(kEventsInEps));
}

}  // namespace
}  // namespace ondrel
