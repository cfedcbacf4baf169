// The parts of axes as the recording sink writes them down, in views whose colours are numbered
// from 1 by their places.
#pragma once

#include <string>
#include <vector>

namespace ondrel {

/// `parts` with a colour before each line and each text; colours are no parts of axes, nor is what
/// they are for, and stand as they are.
inline std::vector<std::string> WithColors(const std::vector<std::string>& parts,
                                           const std::string& labels, const std::string& axes) {
  std::vector<std::string> lines;
  for (const std::string& part : parts) {
    if (part.starts_with("left ") || part.starts_with("right ")) lines.push_back(labels);
    if (part.starts_with("line ")) lines.push_back(axes);
    lines.push_back(part);
  }
  return lines;
}

/// Of a histogram.
inline std::vector<std::string> HistogramParts(const std::vector<std::string>& parts) {
  return WithColors(parts, "color k 3 0 0", "color K 4 0 0");
}

/// Of any other graph.
inline std::vector<std::string> PlotParts(const std::vector<std::string>& parts) {
  return WithColors(parts, "color k 2 0 0", "color K 3 0 0");
}

}  // namespace ondrel
