#include "output/placeable_metafile.h"

#include <cstdio>
#include <string_view>

#include "workspace/output_file.h"
#include "workspace/report.h"
#include "workspace/truncate.h"
#include "workspace/writing_reports.h"

namespace ondrel {
namespace {

// --- The header ----------------------------------------------------------------------------------

using Header = std::array<std::uint8_t, kPlaceableHeaderSize>;

constexpr std::uint32_t kKey = 0x9AC6CDD7;

// Offsets of its fields, bytes. What is not named here is 0.
constexpr std::size_t kKeyAt = 0;
constexpr std::size_t kRectangleAt = 6;  // left, top, right, bottom
constexpr std::size_t kUnitsAt = 14;     // per inch
constexpr std::size_t kChecksumAt = 20;

/// The lower 16 bits of a value; there is no room for more.
void PutWord(Header& header, std::size_t offset, std::uint32_t value) {
  header[offset] = static_cast<std::uint8_t>(value);
  header[offset + 1] = static_cast<std::uint8_t>(value >> 8);
}

/// All words before it, joined by exclusive or.
std::uint32_t ChecksumOf(const Header& header) {
  std::uint32_t sum = 0;
  for (std::size_t i = 0; i < kChecksumAt; i += 2) {
    sum ^= static_cast<std::uint32_t>(header[i]) | static_cast<std::uint32_t>(header[i + 1]) << 8;
  }
  return sum;
}

// --- The file ------------------------------------------------------------------------------------

enum class WriteResult : std::uint8_t { Done, Failed, NoMemory };

std::string_view BytesOf(const void* bytes, std::size_t size) {
  return {static_cast<const char*>(bytes), size};
}

WriteResult WritePicture(OutputFile& file, toolkit::MetafileHandle picture) {
  const std::size_t size = toolkit::MetafileSize(picture);
  if (size == 0) return WriteResult::Failed;
  void* bits = toolkit::AllocateZeroed(size, 1);
  if (bits == nullptr) return WriteResult::NoMemory;
  const bool copied = toolkit::CopyMetafile(picture, bits, size);
  if (copied) WriteText(file, BytesOf(bits, size));
  toolkit::FreeMemory(bits);
  return copied ? WriteResult::Done : WriteResult::Failed;
}

WriteResult WriteParts(const MetafileRecord& record) {
  OutputFile file;
  if (CreateOutputFile(record.FileName, file) != 0) return WriteResult::Failed;
  WriteText(file, BytesOf(record.Header.data(), record.Header.size()));
  const WriteResult result = WritePicture(file, record.Picture);
  const bool closed = CloseOutputFile(file) == 0;
  return result == WriteResult::Done && !closed ? WriteResult::Failed : result;
}

}  // namespace

void DescribeMetafile(MetafileRecord& record, const IntRect& frame, double dpi,
                      const char* fileName) {
  record.Frame = frame;
  record.Header = {};
  std::snprintf(record.FileName, sizeof record.FileName, "%s", fileName);
  std::size_t offset = kRectangleAt;
  for (const std::int32_t edge : {frame.Left, frame.Top, frame.Right, frame.Bottom}) {
    PutWord(record.Header, offset, static_cast<std::uint32_t>(edge));
    offset += 2;
  }
  if (record.FileName[0] == '\0') return;
  PutWord(record.Header, kKeyAt, kKey);
  PutWord(record.Header, kKeyAt + 2, kKey >> 16);
  PutWord(record.Header, kUnitsAt, static_cast<std::uint32_t>(TruncateToInteger(dpi)));
  PutWord(record.Header, kChecksumAt, ChecksumOf(record.Header));
}

bool WriteMetafile(FrameWindow* frame, MetafileRecord& record) {
  WriteResult result = WriteParts(record);
  const bool deleted = toolkit::DeleteMetafile(record.Picture) == 0;
  record.Picture = {};
  if (result == WriteResult::Done && !deleted) result = WriteResult::Failed;
  if (result == WriteResult::Failed) ReportWritingFailed(frame);
  if (result == WriteResult::NoMemory) ReportFailure(frame, {"Out of memory."});
  return result == WriteResult::Done;
}

}  // namespace ondrel
