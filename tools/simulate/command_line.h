// The program behind its main function, so that tests can run it on streams of their own.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace ondrel::simulate {

inline constexpr int kExitGood = 0;
inline constexpr int kExitWriteFailed = 1;
inline constexpr int kExitWrongInput = 2;

/// Runs the program with the words behind its name. The table goes to the file named by --output,
/// else to `out`; a line on what was written, or what is wrong, to `err`. Returns the exit code.
/// Wrong input leaves no file behind and an existing one as it was.
int RunSimulate(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

}  // namespace ondrel::simulate
