// Fixtures for the file forms of the drawing table: a document on the disk, and what was written
// into it, line by line.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <numbers>
#include <string>
#include <vector>

#include "fit/histogram_records.h"
#include "output/graphics_sink.h"
#include "support/shell_test.h"
#include "workspace/output_file.h"

namespace ondrel {

/// Splits a document. Whatever stands there ends in carriage return and line feed.
inline std::vector<std::string> SplitLines(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = text.find("\r\n", start);
    if (end == std::string::npos) {
      ADD_FAILURE() << "a line without an end: " << text.substr(start);
      break;
    }
    lines.push_back(text.substr(start, end - start));
    EXPECT_EQ(lines.back().find_first_of("\r\n"), std::string::npos) << lines.back();
    start = end + 2;
  }
  return lines;
}

class DocumentTest : public ShellTest {
 protected:
  /// Of a full disk.
  static constexpr std::int32_t kDiskFull = 112;

  void SetUp() override {
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string("document_") + test->test_suite_name() + "_" + test->name();
    for (char& letter : name) {
      if (letter == '/') letter = '_';
    }
    path_ = (std::filesystem::path(::testing::TempDir()) / name).string();
    context_.PenWidth = 0.756;
    context_.DocumentFontSize = 12;
    StartOver();
  }

  void TearDown() override {
    CloseOutputFile(file_);
    toolkit::RemoveFile(path_.c_str());
  }

  GraphicsContext& context() { return context_; }
  OutputFile& file() { return file_; }

  /// An empty document, in which nothing has failed.
  void StartOver() {
    CloseOutputFile(file_);
    ASSERT_EQ(toolkit::CreateEmptyFile(path_.c_str()), 0);
    ASSERT_EQ(OpenOutputFile(path_.c_str(), file_), 0);
    context_.File = &file_;
    context_.Status = 0;
  }

  std::string OnDisk() {
    std::ifstream stream(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  /// The lines since the document was begun, which begins anew.
  std::vector<std::string> Lines() {
    EXPECT_EQ(context_.Status, 0);
    EXPECT_EQ(CloseOutputFile(file_), 0);
    const std::vector<std::string> lines = SplitLines(OnDisk());
    StartOver();
    return lines;
  }

  /// Has the disk fail under each byte that `write` writes. Lines are gathered before they go to
  /// the disk: what is left of that room is what decides when that is.
  void ExpectThatItStopsAtEachFailure(const std::function<void()>& write) {
    write();
    ASSERT_EQ(CloseOutputFile(file_), 0);
    const std::size_t length = OnDisk().size();
    ASSERT_GT(length, std::size_t{0});
    for (std::size_t failing = 1; failing <= length; ++failing) {
      StartOver();
      WriteText(file_, std::string(file_.Gathered.size() - failing, '-'));
      shell().Write = {.Next = 1};
      write();
      ASSERT_EQ(context_.Status, kDiskFull) << "at byte " << failing;
      EXPECT_EQ(file_.Handle.Handle, nullptr);
      EXPECT_EQ(shell().OpenFiles, 0);
      EXPECT_EQ(file_.Used, std::size_t{0}) << "nothing waits";
      EXPECT_EQ(shell().Write.Calls, 1) << "nothing was tried afterwards";
      EXPECT_EQ(OnDisk(), "");
    }
    StartOver();
  }

  /// `write` finds that something has failed before, although the file would still take lines.
  void ExpectThatItWritesNothingAfterAFailure(const std::function<void()>& write) {
    context_.Status = 5;
    write();
    EXPECT_EQ(context_.Status, 5) << "the first failure is the one that is told";
    EXPECT_EQ(file_.Used, std::size_t{0});
    context_.Status = 0;
  }

 private:
  std::string path_;
  OutputFile file_;
  GraphicsContext context_;
};

/// Three bins of 10 from 10 to 40, on a base of 100 and up to 20.
class DocumentBarsTest : public DocumentTest {
 protected:
  using BarOperation = void (*GraphicsSink::*)(GraphicsContext&, double, double, double, double,
                                               const BinRecord*);
  static constexpr BarOperation kOperations[] = {&GraphicsSink::DrawFilledBars,
                                                 &GraphicsSink::DrawBarRectangles,
                                                 &GraphicsSink::DrawBarOutline};

  DocumentBarsTest() {
    context().BinWidth = 10.0;
    context().BinScale = 1.0;
    context().BinPeak = 40.0;
    SetHeights({30.0, 0.0, 15.0});
  }

  /// From bin 1 on; what lies before it is never drawn.
  void SetHeights(const std::vector<double>& heights) {
    bins_.assign(heights.size() + 1, {0, 77.0, 0});
    for (std::size_t i = 0; i < heights.size(); ++i) bins_[i + 1].Height = heights[i];
    context().BinCount = static_cast<std::int32_t>(heights.size());
  }

  std::vector<std::string> Draw(const GraphicsSink& sink, BarOperation operation,
                                double right = 40.0) {
    return Draw(sink, operation, 10.0, 100.0, right, 20.0);
  }
  std::vector<std::string> Draw(const GraphicsSink& sink, BarOperation operation, double left,
                                double base, double right, double top) {
    (sink.*operation)(context(), left, base, right, top, bins_.data());
    return Lines();
  }

  const BinRecord* bins() { return bins_.data(); }

 private:
  std::vector<BinRecord> bins_;
};

/// Fits with a curve that is known in closed form, in a plot that begins at 100 and ends at 100.5.
class DocumentCurvesTest : public DocumentTest {
 protected:
  static constexpr double kLeft = 100.0;
  static constexpr double kTop = 100.5;

  /// Four bins of 0.5 pA from -1 pA on, 10 wide; 2 units a count. The second term peaks in the
  /// middle of the third bin, with 100 counts. The duration fit has two bins to a decade from
  /// 0.1 ms on, and 100 counts times u e^-u for a time of u ms.
  DocumentCurvesTest() {
    amplitude_->Minimum = -1.0;
    amplitude_->PerTick = 1.0;
    amplitude_->TickMarks = 2;
    amplitude_->BinsPerTick = 2;
    amplitude_->PixelsPerBin = 10.0;
    amplitude_->PixelsPerCount = 2.0;
    const double area = 100.0 * std::sqrt(2.0 * std::numbers::pi) * 0.25 / 0.5;
    amplitude_->Terms[0] = {.Weight = 0.0, .Current = 1.0, .StdDev = 1.0, .Area = 1e6};
    amplitude_->Terms[1] = {.Weight = 1.0, .Current = 0.25, .StdDev = 0.25, .Area = area};

    duration_->MinimumExponent = -4;
    duration_->Decades = 1;
    duration_->BinsPerDecade = 2;
    duration_->PixelsPerBin = 10.0;
    duration_->PixelsPerCount = 1.0;
    duration_->Terms[0] = {
        .Weight = 1.0, .TimeConstant = 1e-3, .Area = 100.0 / (std::numbers::ln10 * 0.5)};
    context().BinCount = 2;
  }

  AmplitudeHistogram& amplitude() { return *amplitude_; }
  DurationHistogram& duration() { return *duration_; }

  std::vector<std::string> DrawAmplitude(const GraphicsSink& sink, double base, std::int32_t first,
                                         std::int32_t end) {
    sink.DrawAmplitudeCurve(context(), *amplitude_, kLeft, kTop, base, first, end);
    return Lines();
  }
  std::vector<std::string> DrawDuration(const GraphicsSink& sink, double base,
                                        std::int32_t first = 0, std::int32_t end = 1) {
    sink.DrawDurationCurve(context(), *duration_, kLeft, kTop, base, first, end);
    return Lines();
  }

 private:
  std::unique_ptr<AmplitudeHistogram> amplitude_ = std::make_unique<AmplitudeHistogram>();
  std::unique_ptr<DurationHistogram> duration_ = std::make_unique<DurationHistogram>();
};

}  // namespace ondrel
