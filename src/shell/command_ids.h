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
inline constexpr CommandId kSavePreferences = 51723;
inline constexpr CommandId kFileSettings = 51724;
inline constexpr CommandId kExportGraph = 51726;
inline constexpr CommandId kExportText = 51727;
inline constexpr CommandId kPrint = 51728;
inline constexpr CommandId kExit = 51730;
inline constexpr CommandId kCopy = 51972;
inline constexpr CommandId kEvents = 52225;
inline constexpr CommandId kResetFilters = 52227;
inline constexpr CommandId kSweepFilter = 52228;
inline constexpr CommandId kLevelFilter = 52229;
inline constexpr CommandId kPrecedingFilter = 52230;
inline constexpr CommandId kFollowingFilter = 52231;
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
inline constexpr CommandId kLevelTag = 52993;
inline constexpr CommandId kAmplitudeAutoscale = 53249;
inline constexpr CommandId kAmplitudeScaling = 53250;
inline constexpr CommandId kAmplitudeStyle = 53251;
inline constexpr CommandId kAmplitudeFitSettings = 53253;
inline constexpr CommandId kAmplitudeManualFit = 53254;
inline constexpr CommandId kAmplitudeAutomaticFit = 53255;
inline constexpr CommandId kDurationAutoscale = 53505;
inline constexpr CommandId kDurationScaling = 53506;
inline constexpr CommandId kDurationStyle = 53507;
inline constexpr CommandId kDurationCorrection = 53508;
inline constexpr CommandId kDurationFitSettings = 53510;
inline constexpr CommandId kDurationManualFit = 53511;
inline constexpr CommandId kDurationAutomaticFit = 53512;
inline constexpr CommandId kScatterScaling = 53761;
inline constexpr CommandId kScatterStyle = 53762;
inline constexpr CommandId kStatisticsSettings = 54017;
inline constexpr CommandId kAmplitudeScatterScaling = 54529;
inline constexpr CommandId kAmplitudeScatterStyle = 54530;
inline constexpr CommandId kDurationScatterScaling = 54785;
inline constexpr CommandId kDurationScatterStyle = 54786;
inline constexpr CommandId kStationaritySettings = 55041;
inline constexpr CommandId kStationarityStyle = 55042;
inline constexpr CommandId kAbout = 55297;

}  // namespace ondrel::command
