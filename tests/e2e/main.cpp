// Runs the end-to-end tests. Variables of the environment:
//   ONDREL_EXE         the program, else the nearest Ondrel.exe above this executable
//   ONDREL_SAMPLES     a folder of sample tables
//   ONDREL_RECORDINGS  a folder of recordings
//   ONDREL_PICTURES    where pictures of views, and of the screen at a failure, are kept
//   ONDREL_EXPORTS     where what leaves the program is kept, for readers/ to look at
//   ONDREL_PRINTER     the printer of with_printer.sh, without which nothing can be printed
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

#include "program.h"

namespace {

using namespace ondrel::e2e;

Picture WholeScreen() {
  return TakeScreen({0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)});
}

void KeepScreen(const std::string&) {
  static int number = 0;
  const std::string folder = Environment("ONDREL_PICTURES");
  const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
  if (folder.empty() || test == nullptr) return;
  std::string name = std::string("failed_") + test->name() + "_" + std::to_string(++number);
  std::replace(name.begin(), name.end(), '/', '_');  // in front of a parameter
  SavePng(WholeScreen(), NativePath(folder) + "\\" + name + ".png");
}

}  // namespace

int main(int argc, char** argv) {
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  ::testing::InitGoogleMock(&argc, argv);
  SetFailureWitness(KeepScreen);
  return RUN_ALL_TESTS();
}
