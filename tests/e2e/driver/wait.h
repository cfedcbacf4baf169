// Waiting for the program under test: always for a condition with a deadline, never for a time, so
// that a fast machine is fast and a slow one is not wrong.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>

namespace ondrel::e2e {

inline constexpr int kPatience = 20000;  // ms; only ever used up by a failure

/// What did not come about, in words. Ends the test in which it is thrown.
struct Failure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

using Condition = std::function<bool()>;

/// True as soon as `condition` holds, false when it has not held within `milliseconds`.
[[nodiscard]] bool HoldsWithin(int milliseconds, const Condition& condition);

/// Returns as soon as `condition` holds. Otherwise throws a Failure that names `what` was awaited
/// and what `describe` has to say of the state of things.
void WaitFor(const std::string& what, const Condition& condition,
             const std::function<std::string()>& describe = {}, int milliseconds = kPatience);

/// Is told of every Failure before it is thrown, while the program still stands as it failed.
void SetFailureWitness(std::function<void(const std::string&)> witness);

/// Tells the witness and throws.
[[noreturn]] void Fail(const std::string& message);

}  // namespace ondrel::e2e
