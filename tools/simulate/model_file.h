// Reads the text file that describes a channel and its recording. kModelFileHelp tells its form.
#pragma once

#include <string>
#include <string_view>

#include "simulate/model.h"

namespace ondrel::simulate {

/// The form of a model file, for the user.
extern const std::string_view kModelFileHelp;

/// The model in `text`, checked. Throws a ModelError that begins with `name` and, where the fault
/// lies in one line, its number: "bursts.channel:3: ...".
Model ReadModel(std::string_view text, const std::string& name);

/// A whole number without sign, blanks or anything behind it. False otherwise, or when it does not
/// fit; `value` is then as it was.
bool ParseSeed(std::string_view word, std::uint64_t& value);

}  // namespace ondrel::simulate
