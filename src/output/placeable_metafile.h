// A metafile together with what stands before it in a file: the header by which other programs
// learn where the picture lies and how large it is meant to be.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "shell/toolkit.h"
#include "workspace/geometry.h"
#include "workspace/records.h"

namespace ondrel {

inline constexpr std::size_t kPlaceableHeaderSize = 22;

/// A picture that was drawn, on its way to a file or to the clipboard.
struct MetafileRecord {
  toolkit::MetafileHandle Picture;  // owned
  /// Little-endian, as a file begins. Without a file only its rectangle is filled.
  std::array<std::uint8_t, kPlaceableHeaderSize> Header{};
  IntRect Frame;                  // of the picture, device units
  char FileName[kPathSize] = "";  // empty: the picture stays in memory
};

/// Fills frame and header for a picture that covers `frame` in units of 1/`dpi` inch. `fileName` is
/// empty for a picture without a file, whose header has neither key, units nor checksum.
void DescribeMetafile(MetafileRecord& record, const IntRect& frame, double dpi,
                      const char* fileName);

/// Writes header and picture to the record's file, in place of one that stands there, and deletes
/// the picture. False after a failure, which the user has been told.
bool WriteMetafile(FrameWindow* frame, MetafileRecord& record);

}  // namespace ondrel
