// A fixture for whole documents, which are compared byte for byte.
#pragma once

#include <string>

#include "shell/graph_export_fixture.h"

namespace ondrel {

/// Letters of 10 points are 5 wide, and the pen is a quarter of a point.
class DocumentsTest : public PictureCommandTest {
 protected:
  DocumentsTest() {
    workspace().FontSize = 10;
    workspace().PenSize = 0.25;
  }

  /// `text` with the line ends of a document.
  static std::string WithLineEnds(const std::string& text) {
    std::string lines;
    for (const char c : text) {
      if (c == '\n') lines += '\r';
      lines += c;
    }
    return lines;
  }
};

}  // namespace ondrel
