// A preference file with every setting at its default, written out, and files made from it.
#pragma once

#include <cstddef>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace ondrel {

using PreferenceTexts = std::vector<std::string>;

inline PreferenceTexts DefaultPreferenceTexts() {
  return {
      "8",                                          // 1
      "0",         "10",         "2.500E-01", "1",  // 2 to 5
      "0",         "0",          "0",         "0",         "0",
      "20",                                                              // 6 to 11, the frame
      "2",         "0.000E+00",  "8000",      "0",         "0.000E+00",  // 12 to 16, events
      "0",         "0",          "0",         "65535",     "65535",
      "65535",                                      // 17 to 22
      "0",         "0",          "0",         "0",  // 23 to 26
      "8000",                                       // 27, levels
      "0",         "0.000E+00",  "5.000E+00", "0",         "0.000E+00",
      "5.000E+00",  // 28 to 33
      "0",         "1",          "3",         "0",         "0.000E+00",
      "1.000E+03", "2",  // 34 to 40
      "0",         "0.000E+00",  "5.000E+00", "0",         "0.000E+00",
      "5.000E+00",  // 41 to 46
      "0",         "1",          "3",         "0",         "0.000E+00",
      "1.000E+03", "0",  // 47 to 53
      "0",         "0.000E+00",  "5.000E+00", "0",         "0.000E+00",
      "5.000E+00",  // 54 to 59
      "0",         "1",          "3",         "0",         "0.000E+00",
      "1.000E+03", "0",                                                  // 60 to 66
      "0",         "1",          "1",         "0",         "0.000E+00",  // 67 to 71
      "0",         "0",          "0",         "49152",     "49152",
      "49152",  // 72 to 77
      "65535",     "65535",      "65535",     "0",         "0",
      "0",         "0",  // 78 to 84
      "0.000E+00", "5",          "20",        "1.000E+00", "0",
      "2",         "100",  // 85 to 91, amplitudes
      "1.000E+00", "1.000E-04",  "20",        "1",         "0",
      "1",         "1",  // 92 to 98
      "65535",     "0",          "0",         "0",         "0",
      "65535",     "0",          "0",         "0",  // 99 to 107
      "0",         "0",          "0",         "65535",     "65535",
      "65535",  // 108 to 113
      "0",         "0",          "0",         "0",         "0",
      "0",         "0",          "0",  // 114 to 121
      "-5",        "5",          "20",        "5",         "0",
      "2",         "10",         "0",         "5.000E+03",  // 122 to 130, durations
      "1.000E-04", "20",         "1",         "0",         "1",
      "1",  // 131 to 136
      "65535",     "0",          "0",         "0",         "0",
      "65535",     "0",          "0",         "0",  // 137 to 145
      "0",         "0",          "0",         "65535",     "65535",
      "65535",  // 146 to 151
      "0",         "0",          "0",         "0",         "0",
      "0",         "0",          "0",          // 152 to 159
      "0",         "0",          "0.000E+00",  // 160 to 162, export
      "-5",        "5",          "10",        "0.000E+00", "4",
      "1.000E+00", "8.000E-02",  // 163 to 169, scatter
      "1",         "1",          // 170 and 171
      "65535",     "0",          "0",         "0",         "0",
      "0",         "0",          "0",         "0",  // 172 to 180
      "65535",     "65535",      "65535",     "0",         "0",
      "0",         "0",                             // 181 to 187
      "0",         "1.000E-01",  "1",         "1",  // 188 to 191, stationarity
      "65535",     "0",          "0",         "0",         "0",
      "0",         "0",          "0",         "0",  // 192 to 200
      "65535",     "65535",      "65535",     "0",         "0",
      "0",         "0",  // 201 to 207
      "1",         "0",          "0",         "0",         "0",
      "0",         "65535",  // 208 to 214, statistics
      "65535",     "65535",      "65535",     "0",         "0",
      "0",         "0",  // 215 to 221
      "1000",      "0",          "1",         "3",         "0",
      "1",         "1000",  // 222 to 228, sweeps
      "0",         "0.000E+00",  "1.000E+03", "0",         "0.000E+00",
      "1.000E+03",  // 229 to 234
      "0",         "0",          "0",         "49152",     "49152",
      "49152",  // 235 to 240
      "65535",     "65535",      "65535",     "0",         "0",
      "65535",                                      // 241 to 246
      "0",         "0",          "0",         "0",  // 247 to 250
      "1",         "-5.000E+00", "1.000E+01", "5",         "0.000E+00",
      "4",                                          // 251 to 256, amplitude scatter
      "1.000E+00", "8.000E-02",  "1",         "1",  // 257 to 260
      "65535",     "0",          "0",         "0",         "0",
      "0",         "0",          "0",         "0",  // 261 to 269
      "65535",     "65535",      "65535",     "0",         "0",
      "0",         "0",  // 270 to 276
      "1",         "-5.000E+00", "1.000E+01", "5",         "-5",
      "4",         "5",                // 277 to 283, duration scatter
      "8.000E-02", "1",          "1",  // 284 to 286
      "65535",     "0",          "0",         "0",         "0",
      "0",         "0",          "0",         "0",  // 287 to 295
      "65535",     "65535",      "65535",     "0",         "0",
      "0",         "0",  // 296 to 302
  };
}

/// The bytes of a file of these lines.
inline std::string PreferenceBytes(const PreferenceTexts& texts) {
  std::string bytes;
  for (const std::string& text : texts) bytes += text + "\r\n";
  return bytes;
}

inline std::string DefaultPreferenceBytes() {
  return PreferenceBytes(DefaultPreferenceTexts());
}

/// The same file with another text on line `line`, counted from 1.
inline std::string PreferencesWith(int line, const std::string& text) {
  PreferenceTexts texts = DefaultPreferenceTexts();
  texts.at(static_cast<std::size_t>(line - 1)) = text;
  return PreferenceBytes(texts);
}

/// The bytes of a file on the disk, empty without one.
inline std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace ondrel
