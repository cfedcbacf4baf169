// Tables of version 3 and above, put together from rows.
#pragma once

#include <string>

#include "support/reading_test.h"

namespace ondrel {

inline const std::string kSweepRow = "1\t2.0\t0.25\t1.75\t7\t8\r\n";

inline std::string SweepRows(int count) {
  return Repeat(kSweepRow, count);
}

inline std::string EventRow(int sweep) {
  return std::to_string(sweep) + "\t0.5\t1E-12\t2E-12\t3\t4.5\r\n";
}

/// A group of an Undefined file.
inline std::string Group(const std::string& sweeps, const std::string& segments,
                         const std::string& events) {
  return "File\r\nUndefined\r\nSweeps\r\n" + sweeps + "Segments\r\n" + segments + "Events\r\n" +
         events;
}

inline std::string Table(const std::string& groups, int version = 5) {
  return std::to_string(version) + "\r\n" + groups;
}

}  // namespace ondrel
