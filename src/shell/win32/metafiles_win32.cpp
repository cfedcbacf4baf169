// Metafiles: pictures in memory that are kept as a list of GDI's own operations.
#include "shell/toolkit.h"
#include "shell/win32/win32.h"

namespace ondrel::toolkit {

DeviceRecord BeginMetafile() {
  return {.Dc = CreateMetaFileA(nullptr)};
}

MetafileHandle EndMetafile(DeviceRecord& device) {
  HMETAFILE metafile = CloseMetaFile(win32::DcOf(device));
  device.Dc = nullptr;
  return {metafile};
}

std::size_t MetafileSize(MetafileHandle metafile) {
  return GetMetaFileBitsEx(win32::HandleOf(metafile), 0, nullptr);
}

bool CopyMetafile(MetafileHandle metafile, void* bytes, std::size_t size) {
  return GetMetaFileBitsEx(win32::HandleOf(metafile), static_cast<UINT>(size), bytes) == size;
}

std::int32_t DeleteMetafile(MetafileHandle metafile) {
  return DeleteMetaFile(win32::HandleOf(metafile)) != FALSE ? 0 : win32::LastError();
}

}  // namespace ondrel::toolkit
