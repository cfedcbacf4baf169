// Polls conditions against a deadline.
#include "wait.h"

#include <windows.h>

#include <utility>

namespace ondrel::e2e {
namespace {

constexpr DWORD kPause = 8;  // ms between two looks

std::function<void(const std::string&)>& Witness() {
  static std::function<void(const std::string&)> witness;
  return witness;
}

}  // namespace

bool HoldsWithin(int milliseconds, const Condition& condition) {
  const ULONGLONG deadline = GetTickCount64() + static_cast<ULONGLONG>(milliseconds);
  while (!condition()) {
    if (GetTickCount64() >= deadline) return false;
    Sleep(kPause);
  }
  return true;
}

void WaitFor(const std::string& what, const Condition& condition,
             const std::function<std::string()>& describe, int milliseconds) {
  if (HoldsWithin(milliseconds, condition)) return;
  std::string message = "waited " + std::to_string(milliseconds / 1000) + " s in vain for " + what;
  if (describe) message += "; " + describe();
  Fail(message);
}

void SetFailureWitness(std::function<void(const std::string&)> witness) {
  Witness() = std::move(witness);
}

void Fail(const std::string& message) {
  // A witness that fails itself has no witness.
  const std::function<void(const std::string&)> witness = std::exchange(Witness(), {});
  if (witness) {
    try {
      witness(message);
    } catch (const Failure&) {
    }
  }
  Witness() = witness;
  throw Failure(message);
}

}  // namespace ondrel::e2e
