// Metafiles as the platform itself plays them: from files, and pasted from the clipboard.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "picture.h"

namespace ondrel::e2e {

inline constexpr std::size_t kPlaceableHeaderSize = 22;

/// What stands before a metafile in a file, so that other programs can place it.
struct PlaceableHeader {
  std::uint32_t Key = 0;
  std::uint16_t Handle = 0;
  Rect Frame;
  std::uint16_t UnitsPerInch = 0;
  std::uint32_t Reserved = 0;
  std::uint16_t Checksum = 0;
};

/// Fails when the file is too short for one.
PlaceableHeader ReadPlaceableHeader(const std::string& file);
/// The ten words before the checksum, taken together by exclusive or.
std::uint16_t ChecksumOf(const std::string& file);

/// Plays the metafile behind the header, a pixel for each unit. Fails when it is none.
Picture PlayedFile(const std::string& file);

struct PastedPicture {
  int MappingMode = 0;
  int Width = 0;
  int Height = 0;
  Picture Played;  // of this size
};

/// What any program gets that asks the clipboard for a metafile. Fails when there is none.
PastedPicture PasteMetafile();

/// Empties the clipboard.
void ClearClipboard();

/// The clipboard in the hand of another program than the one under test.
class HeldClipboard {
 public:
  HeldClipboard();
  ~HeldClipboard();
  HeldClipboard(const HeldClipboard&) = delete;
  HeldClipboard& operator=(const HeldClipboard&) = delete;
};

}  // namespace ondrel::e2e
