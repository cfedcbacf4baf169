// A recording as the text of an event table, in each of the layouts that the program reads. Lines
// end in carriage return and line feed, columns are separated by one tab; currents are written in
// amperes.
#pragma once

#include <string>
#include <vector>

#include "simulate/model.h"
#include "simulate/recording.h"

namespace ondrel::simulate {

/// The whole table. Throws a ModelError when the layout cannot hold the recording.
///
/// The bare layout knows no sweep but by its transitions: a sweep without any is left out, and the
/// numbers of the further ones close up, so that they always run 1, 2, 3. All layouts but
/// version 5 need a transition. None but version 5 tells a file's type, name, header and segments.
std::string WriteEventTable(const std::vector<SimulatedFile>& files, TableLayout layout);

}  // namespace ondrel::simulate
