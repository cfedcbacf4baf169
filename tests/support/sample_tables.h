// Small recordings written out as text, and the scratch files that hold them.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

namespace ondrel {

/// Version 5, one sweep of 100 ms: shut, 20 ms open at 2 pA, shut, 30 ms open, shut.
inline constexpr char kTwoOpenings[] =
    "5\r\nFile\r\nUndefined\r\nSweeps\r\n"
    "1\t0.100000\t0.000000\t0.100000\t0.000000E+00\t0.000000E+00\r\n"
    "Segments\r\n1\t1\t0.000000\t0.100000\t\r\nEvents\r\n"
    "1\t0.010000\t0.0000000E+00\t2.0000000E-12\t1\t0.000000E+00\r\n"
    "1\t0.030000\t2.0000000E-12\t0.0000000E+00\t0\t0.000000E+00\r\n"
    "1\t0.040000\t0.0000000E+00\t2.0000000E-12\t1\t0.000000E+00\r\n"
    "1\t0.070000\t2.0000000E-12\t0.0000000E+00\t0\t0.000000E+00\r\n";

/// Rows for "&Import Events..." that fit the sweep above.
inline constexpr char kImportRows[] =
    "1\t0.020000\t0.0000000E+00\t2.0000000E-12\t1\t0.000000E+00\r\n"
    "1\t0.050000\t2.0000000E-12\t0.0000000E+00\t0\t0.000000E+00\r\n";

/// A file in the scratch folder of the test run. It is gone after the test.
class ScratchFile {
 public:
  ScratchFile(const std::string& name, const std::string& text)
      : path_(std::filesystem::path(::testing::TempDir()) / name) {
    std::ofstream(path_, std::ios::binary) << text;
  }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;
  ~ScratchFile() { std::filesystem::remove(path_); }

  std::string Path() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace ondrel
