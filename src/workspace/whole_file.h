// A file read in one go into one block of memory.
#pragma once

#include <cstddef>

#include "shell/toolkit.h"
#include "shell/window_record.h"

namespace ondrel {

struct WholeFile {
  char Name[128] = "";    // the path behind its last backslash, for messages; cut to fit
  char* Bytes = nullptr;  // owned by whoever reads the file; not NUL-ended
  std::size_t Size = 0;
};

/// False when the file cannot be opened, held in memory or read; the user is then told, and no
/// block is left.
[[nodiscard]] bool ReadWholeFile(FrameWindow* frame, const char* path, WholeFile* file);

/// Holds all bytes of an open file, which stays open. False when they cannot be had, without a
/// word; no block is left then.
[[nodiscard]] bool HoldOpenFile(toolkit::FileHandle handle, WholeFile* file);

/// What stands behind the last backslash of a path.
[[nodiscard]] const char* ShortNameOf(const char* path);

}  // namespace ondrel
