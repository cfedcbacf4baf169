// Numbers of the commands that the program itself refers to. The menus hold them all.
#pragma once

#include "shell/commands.h"

namespace ondrel::command {

inline constexpr CommandId kAboutKey = 51457;
inline constexpr CommandId kOpen = 51713;
inline constexpr CommandId kClose = 51714;
inline constexpr CommandId kAdd = 51715;
inline constexpr CommandId kImportEvents = 51717;
inline constexpr CommandId kSaveEvents = 51719;
inline constexpr CommandId kSaveLevels = 51720;
inline constexpr CommandId kLoadPreferences = 51722;
inline constexpr CommandId kFileSettings = 51724;
inline constexpr CommandId kExportGraph = 51726;
inline constexpr CommandId kExportText = 51727;
inline constexpr CommandId kPrint = 51728;
inline constexpr CommandId kExit = 51730;
inline constexpr CommandId kResetFilters = 52227;
inline constexpr CommandId kAmplitudeView = 52481;
inline constexpr CommandId kAmplitudeScatterView = 52482;
inline constexpr CommandId kScatterView = 52483;
inline constexpr CommandId kDurationView = 52484;
inline constexpr CommandId kDurationScatterView = 52485;
inline constexpr CommandId kEventView = 52486;
inline constexpr CommandId kLevelView = 52487;
inline constexpr CommandId kStationarityView = 52488;
inline constexpr CommandId kStatisticsView = 52489;
inline constexpr CommandId kSweepView = 52490;
inline constexpr CommandId kAmplitudeAutoscale = 53249;
inline constexpr CommandId kAmplitudeManualFit = 53254;
inline constexpr CommandId kAmplitudeAutomaticFit = 53255;
inline constexpr CommandId kDurationAutoscale = 53505;
inline constexpr CommandId kDurationManualFit = 53511;
inline constexpr CommandId kDurationAutomaticFit = 53512;
inline constexpr CommandId kAbout = 55297;

}  // namespace ondrel::command
