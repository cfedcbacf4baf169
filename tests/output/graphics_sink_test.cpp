// What all forms of the drawing table have in common, and how the two file forms fail.
#include "output/graphics_sink.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <functional>
#include <limits>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "output/document_fixture.h"
#include "output/eps_sink.h"
#include "output/illustrator_sink.h"
#include "output/screen_sink.h"

namespace ondrel {
namespace {

using Slot = void (*)();
using Slots = std::array<Slot, 15>;
static_assert(sizeof(GraphicsSink) == sizeof(Slots));

struct Form {
  const char* Name;
  const GraphicsSink& Sink;
  double Snap;
};

const Form kForms[] = {
    {"Screen", kScreenSink, 1.0},
    {"Illustrator", kIllustratorSink, 0.0},
    {"Eps", kEpsSink, 0.0},
};

Slots SlotsOf(const GraphicsSink& sink) {
  Slots slots;
  std::memcpy(slots.data(), &sink, sizeof slots);
  return slots;
}

TEST(GraphicsSinkTest, EverySlotOfEveryFormIsFilled) {
  for (const Form& form : kForms) {
    const Slots slots = SlotsOf(form.Sink);
    for (std::size_t i = 0; i < slots.size(); ++i) {
      EXPECT_NE(slots[i], nullptr) << form.Name << ", slot " << i;
    }
  }
}

TEST(GraphicsSinkTest, NoTwoSlotsShareAnOperation) {
  for (const Form& form : kForms) {
    const Slots slots = SlotsOf(form.Sink);
    for (std::size_t i = 0; i < slots.size(); ++i) {
      for (std::size_t j = 0; j < i; ++j) {
        EXPECT_NE(slots[i], slots[j]) << form.Name << ", slots " << j << " and " << i;
      }
    }
  }
}

TEST(GraphicsSinkTest, OnlyTheScreenLaysBinsOutOnWholeUnits) {
  for (const Form& form : kForms) {
    GraphicsContext context;
    double snap = 0.5;
    form.Sink.GetPixelSnap(context, &snap);
    EXPECT_EQ(snap, form.Snap) << form.Name;
  }
}

class AnyFormTest : public DocumentTest {};

TEST_F(AnyFormTest, ARectangleReturnsItsArgumentsTruncatedInEveryForm) {
  context().Device = toolkit::AcquireDevice(nullptr);
  constexpr double infinity = std::numeric_limits<double>::infinity();
  for (const Form& form : kForms) {
    EXPECT_EQ(form.Sink.DrawRect(context(), 10.9, -20.9, 110.999, 220.001),
              (IntRect{10, -20, 110, 220}))
        << form.Name;
    EXPECT_EQ(form.Sink.DrawRect(context(), 5.0, 4.0, -infinity, 3e9),
              (IntRect{5, 4, INT32_MIN, INT32_MAX}))
        << form.Name << ": edges are neither sorted nor wrapped";
  }
  toolkit::CleanUpDevice(context().Device);
  toolkit::ReleaseDevice(nullptr, context().Device);
}

TEST_F(AnyFormTest, ARectangleReturnsItsArgumentsAlthoughItCouldNotBeWritten) {
  for (const Form& form : {kForms[1], kForms[2]}) {
    context().Status = 5;
    EXPECT_EQ(form.Sink.DrawRect(context(), 1.5, 2.5, 3.5, 4.5), (IntRect{1, 2, 3, 4}))
        << form.Name;
  }
}

/// What the operations are given.
struct Page {
  GraphicsContext& Context;
  const BinRecord* Bins;
  const DurationHistogram& Duration;
  const AmplitudeHistogram& Amplitude;
};

struct FailingOperation {
  const char* Name;
  void (*Draw)(const GraphicsSink& sink, const Page& page);
};

const FailingOperation kFailingOperations[] = {
    {"DrawLine",
     [](const GraphicsSink& sink, const Page& p) { sink.DrawLine(p.Context, 1.0, 2.0, 3.0, 4.0); }},
    {"MoveTo", [](const GraphicsSink& sink, const Page& p) { sink.MoveTo(p.Context, 1.0, 2.0); }},
    {"LineTo", [](const GraphicsSink& sink, const Page& p) { sink.LineTo(p.Context, 1.0, 2.0); }},
    {"StrokePath", [](const GraphicsSink& sink, const Page& p) { sink.StrokePath(p.Context); }},
    {"DrawTextFrom",
     [](const GraphicsSink& sink, const Page& p) {
       sink.DrawText(p.Context, 1.0, 2.0, TextAlignment::Left, "text", 64);
     }},
    {"DrawTextUpTo",
     [](const GraphicsSink& sink, const Page& p) {
       sink.DrawText(p.Context, 1.0, 2.0, TextAlignment::Right, "text", 64);
     }},
    {"DrawFilledBars",
     [](const GraphicsSink& sink, const Page& p) {
       sink.DrawFilledBars(p.Context, 0.0, 100.0, 25.0, 0.0, p.Bins);
     }},
    {"DrawBarRectangles",
     [](const GraphicsSink& sink, const Page& p) {
       sink.DrawBarRectangles(p.Context, 0.0, 100.0, 25.0, 0.0, p.Bins);
     }},
    {"DrawBarOutline",
     [](const GraphicsSink& sink, const Page& p) {
       sink.DrawBarOutline(p.Context, 0.0, 100.0, 25.0, 0.0, p.Bins);
     }},
    {"DrawRect",
     [](const GraphicsSink& sink, const Page& p) { sink.DrawRect(p.Context, 1.0, 2.0, 3.0, 4.0); }},
    {"DrawDurationCurve",
     [](const GraphicsSink& sink, const Page& p) {
       sink.DrawDurationCurve(p.Context, p.Duration, 0.0, 0.0, 9.0, 0, 1);
     }},
    {"DrawAmplitudeCurve",
     [](const GraphicsSink& sink, const Page& p) {
       sink.DrawAmplitudeCurve(p.Context, p.Amplitude, 0.0, 0.0, 9.0, 0, 1);
     }},
    {"DrawDot",
     [](const GraphicsSink& sink, const Page& p) { sink.DrawDot(p.Context, 1.0, 2.0, 3.0); }},
    {"SetColor",
     [](const GraphicsSink& sink, const Page& p) { sink.SetColor(p.Context, " K", 3, kRed); }},
    {"SetClip",
     [](const GraphicsSink& sink, const Page& p) {
       sink.SetClip(p.Context, {1, 2, 30, 40});
     }},
};

class FailingFormTest : public DocumentBarsTest,
                        public ::testing::WithParamInterface<FailingOperation> {
 protected:
  FailingFormTest() { context().PageHeight = 400.0; }

  void ForBothForms(const std::function<void(const std::function<void()>&)>& expect) {
    for (const GraphicsSink* sink : {&kIllustratorSink, &kEpsSink}) {
      expect([&] { GetParam().Draw(*sink, {context(), bins(), *duration_, *amplitude_}); });
    }
  }

 private:
  std::unique_ptr<AmplitudeHistogram> amplitude_ = std::make_unique<AmplitudeHistogram>();
  std::unique_ptr<DurationHistogram> duration_ = std::make_unique<DurationHistogram>();
};

TEST_P(FailingFormTest, AFailedWriteGoesIntoTheStatusAndTheOtherLinesStayUnwritten) {
  ForBothForms([&](const std::function<void()>& draw) { ExpectThatItStopsAtEachFailure(draw); });
}

TEST_P(FailingFormTest, NothingIsWrittenOnceSomethingFailed) {
  ForBothForms(
      [&](const std::function<void()>& draw) { ExpectThatItWritesNothingAfterAFailure(draw); });
}

INSTANTIATE_TEST_SUITE_P(Operations, FailingFormTest, ::testing::ValuesIn(kFailingOperations),
                         [](const ::testing::TestParamInfo<FailingOperation>& info) {
                           return std::string(info.param.Name);
                         });

}  // namespace
}  // namespace ondrel
