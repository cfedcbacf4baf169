// A text file while it is written, line by line. Lines are gathered and go to the disk in larger
// pieces, since a table can have a million of them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "shell/toolkit.h"

namespace ondrel {

inline constexpr std::string_view kLineEnd = "\r\n";

struct OutputFile {
  toolkit::FileHandle Handle;  // null while nothing is open
  std::int32_t Status = 0;     // the platform's code of the first failure; nothing is written then
  std::size_t Used = 0;        // bytes that wait in Gathered
  std::array<char, 8192> Gathered{};
};

// Each returns 0, or the platform's code of the first failure since the file was opened.

/// Makes the file anew and opens it. One that cannot be opened is removed again: empty, it would
/// look like the result of an export. After a failure `file` takes nothing.
[[nodiscard]] std::int32_t CreateOutputFile(const char* path, OutputFile& file);

/// Opens a file that is there, to be written from its start. After a failure `file` takes nothing.
[[nodiscard]] std::int32_t OpenOutputFile(const char* path, OutputFile& file);

/// Writes `text` and a line end. On a failed write the file is closed; what came later than the
/// failure is not written.
std::int32_t WriteLine(OutputFile& file, std::string_view text);

/// The same without a line end.
std::int32_t WriteText(OutputFile& file, std::string_view text);

/// Sends to the disk what still waits, so that its failure is known here and now. The file stays
/// open unless it fails.
std::int32_t FlushOutputFile(OutputFile& file);

/// Sends to the disk what still waits, and closes the file if no failure has closed it before.
std::int32_t CloseOutputFile(OutputFile& file);

}  // namespace ondrel
