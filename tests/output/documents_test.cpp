#include "output/documents.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "output/document_fixture.h"
#include "output/illustrator_sink.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

class DocumentsTest : public DocumentTest {
 protected:
  static constexpr IntRect kBox{-5, 12, 360, 281};
  static constexpr IntRect kTemplate{1, 2, 30, 40};

  /// The lines of a document that was closed.
  std::vector<std::string> ClosedLines() {
    EXPECT_EQ(context().Status, 0);
    EXPECT_EQ(file().Handle.Handle, nullptr) << "closing the document closes its file";
    EXPECT_EQ(shell().OpenFiles, 0);
    const std::vector<std::string> lines = SplitLines(OnDisk());
    StartOver();
    return lines;
  }
};

TEST_F(DocumentsTest, AnEpsDocumentBeginsWithItsHeaderAndTheProcedureForTextThatEndsAtAPlace) {
  OpenEpsDocument(context(), kBox);
  EXPECT_THAT(
      Lines(),
      ElementsAre("%!PS-Adobe-3.0 EPSF-3.0", "%%BoundingBox: -5 12 360 281", "%%EndComments",
                  "%%EndProlog", "30 30 translate", "/right_show {", "  dup", "  stringwidth pop",
                  "  4 -1 roll exch sub", "  3 -1 roll moveto", "  show", "} def"));
}

TEST_F(DocumentsTest, AnEpsDocumentEndsWithItsPage) {
  CloseEpsDocument(context());
  EXPECT_THAT(ClosedLines(), ElementsAre("showpage", "%%EOF"));
}

TEST_F(DocumentsTest, AnIllustratorDocumentBeginsWithItsTwoBoxes) {
  OpenIllustratorDocument(context(), kBox, kTemplate);
  EXPECT_THAT(Lines(), ElementsAre("%!PS-Adobe-2.0 EPSF-1.2",
                                   "%%DocumentProcSets: Adobe_Illustrator_1.1 0 0",
                                   "%%BoundingBox: -5 12 360 281", "%%TemplateBox: 1 2 30 40",
                                   "%%EndComments", "%%EndProlog"));
}

TEST_F(DocumentsTest, AnIllustratorDocumentEndsWithItsTrailer) {
  CloseIllustratorDocument(context());
  EXPECT_THAT(ClosedLines(), ElementsAre("%%Trailer"));
}

TEST_F(DocumentsTest, TheGroupOfAnIllustratorClipIsEnded) {
  kIllustratorSink.SetClip(context(), kBox);
  RestoreIllustratorClip(context());
  const std::vector<std::string> lines = Lines();
  EXPECT_EQ(lines.front(), "q");
  EXPECT_EQ(lines.back(), "Q");
  EXPECT_EQ(lines.size(), std::size_t{10});
}

TEST_F(DocumentsTest, OpeningsStopAtAFailure) {
  ExpectThatItStopsAtEachFailure([&] { OpenEpsDocument(context(), kBox); });
  ExpectThatItStopsAtEachFailure([&] { OpenIllustratorDocument(context(), kBox, kTemplate); });
  ExpectThatItStopsAtEachFailure([&] { RestoreIllustratorClip(context()); });
}

TEST_F(DocumentsTest, ClosingsStopAtAFailure) {
  ExpectThatItStopsAtEachFailure([&] { CloseEpsDocument(context()); });
  ExpectThatItStopsAtEachFailure([&] { CloseIllustratorDocument(context()); });
}

TEST_F(DocumentsTest, OpeningsWriteNothingAfterAFailure) {
  ExpectThatItWritesNothingAfterAFailure([&] { OpenEpsDocument(context(), kBox); });
  ExpectThatItWritesNothingAfterAFailure(
      [&] { OpenIllustratorDocument(context(), kBox, kTemplate); });
  ExpectThatItWritesNothingAfterAFailure([&] { RestoreIllustratorClip(context()); });
}

TEST_F(DocumentsTest, AfterAFailureADocumentIsClosedWithoutItsLastLines) {
  for (const auto close : {CloseEpsDocument, CloseIllustratorDocument}) {
    StartOver();
    WriteLine(file(), "drawn");
    context().Status = 5;
    close(context());
    EXPECT_EQ(context().Status, 5);
    EXPECT_EQ(shell().OpenFiles, 0);
    EXPECT_EQ(OnDisk(), "drawn\r\n");
  }
}

TEST_F(DocumentsTest, AFailureThatShowsOnlyWhenTheLastLinesGoToTheDiskIsTold) {
  for (const auto close : {CloseEpsDocument, CloseIllustratorDocument}) {
    StartOver();
    shell().Write = {.Next = 1};
    close(context());
    EXPECT_EQ(context().Status, kDiskFull);
    EXPECT_EQ(shell().OpenFiles, 0);
    EXPECT_EQ(OnDisk(), "");
  }
}

TEST_F(DocumentsTest, AFailedCloseIsTold) {
  for (const auto close : {CloseEpsDocument, CloseIllustratorDocument}) {
    StartOver();
    shell().Close = {.Next = 1};
    close(context());
    EXPECT_NE(context().Status, 0);
    EXPECT_EQ(shell().OpenFiles, 0);
  }
}

TEST_F(DocumentsTest, TheFirstFailureIsToldAlthoughTheCloseFailsToo) {
  for (const auto close : {CloseEpsDocument, CloseIllustratorDocument}) {
    StartOver();
    context().Status = 5;
    shell().Close = {.Next = 1};
    close(context());
    EXPECT_EQ(context().Status, 5);
  }
}

TEST_F(DocumentsTest, ADocumentAfterAFailureIsClosedOnce) {
  for (const auto close : {CloseEpsDocument, CloseIllustratorDocument}) {
    StartOver();
    shell().Write = {.Next = 1};
    OpenEpsDocument(context(), kBox);
    WriteText(file(), std::string(file().Gathered.size(), '-'));
    close(context());
    EXPECT_EQ(context().Status, kDiskFull);
    EXPECT_EQ(shell().OpenFiles, 0);
    EXPECT_EQ(shell().Write.Calls, 1);
  }
}

}  // namespace
}  // namespace ondrel
