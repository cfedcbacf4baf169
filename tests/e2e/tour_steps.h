// The steps of the tour behind the first views, and what they tell and keep.
#pragma once

#include <string>

#include "program.h"

namespace ondrel::e2e {

/// A line for whoever watches.
void Tell(const std::string& line);

/// Opens the view with this command and waits until it stands at `place` in the frame.
void PlaceView(const Program& program, const std::string& title, int command, const Rect& place);

/// Keeps a picture of a view with its frame as `name`.png in the folder `output`.
void Keep(const Program& program, const Window& view, const std::string& output,
          const std::string& name);
/// The same of the whole program.
void KeepFrame(const Program& program, const std::string& output, const std::string& name);

/// Places estimates on both histograms with the mouse and has them fitted.
void FitHistograms(const Program& program, const std::string& output);

/// Sends the fitted histogram of durations out of the program in every form that is a file, and the
/// levels with it, into the folder `output`.
void ExportFit(const Program& program, const std::string& output);

/// Shows the four plots of samples with something to see in them. No data set is open before and
/// none afterwards.
void ShowPlots(Program& program, const std::string& samples, const std::string& output);

}  // namespace ondrel::e2e
