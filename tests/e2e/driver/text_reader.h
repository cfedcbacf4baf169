// Reads what stands written in a picture. The program's texts are drawn without smoothing, so that
// each character has one look, and it is found again pixel by pixel.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "picture.h"

namespace ondrel::e2e {

class TextReader {
 public:
  /// `points` is the size of the font.
  explicit TextReader(int points = 10);

  /// The lines in `color` from the top down, words parted by one blank. What is no character
  /// becomes "?". A capital I looks like a small l and is read as one.
  [[nodiscard]] std::vector<std::string> Lines(const Picture& picture,
                                               std::uint32_t color = kBlack) const;
  /// Whether `text` stands somewhere in the picture, also between lines and other drawing.
  [[nodiscard]] bool Shows(const Picture& picture, const std::string& text,
                           std::uint32_t color = kBlack) const;

 private:
  /// The ink of a text or a character, without empty edges.
  struct Stamp {
    std::string Text;
    int Width = 0;
    int Height = 0;
    int Top = 0;  // above the baseline, pixels
    std::vector<bool> Ink;
  };

  [[nodiscard]] Stamp Draw(const std::string& text) const;
  [[nodiscard]] bool FillsColumns(const Picture& band, std::uint32_t color, const Stamp& stamp,
                                  int left, int baseline) const;
  [[nodiscard]] std::string ReadBand(const Picture& band, std::uint32_t color, int baseline) const;

  int points_;
  std::vector<Stamp> characters_;
};

}  // namespace ondrel::e2e
