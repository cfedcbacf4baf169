// What the sources of the scripted shell know of a device.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/scripted_shell.h"

namespace ondrel::scripted {

enum class DeviceKind { Window, Measuring, Metafile, Printer };

/// What a device keeps while it lives; the record's handle points here.
struct Device {
  DeviceKind Kind = DeviceKind::Window;
  double Dpi = 0.0;
  std::int32_t FontHeight = 10;
  std::int32_t X = 0;
  std::int32_t Y = 0;
  std::vector<std::string> Picture;  // of a metafile
};

/// Both count in Shell::OpenDevices. Harmless on a record without a device.
DeviceRecord MakeDevice(DeviceKind kind, double dpi);
void FreeDevice(DeviceRecord& record);

inline Device& DeviceOf(const DeviceRecord& record) {
  return *static_cast<Device*>(record.Dc);
}

}  // namespace ondrel::scripted
