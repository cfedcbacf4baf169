#include "workspace/row_scanner.h"

#include "workspace/number_text.h"

namespace ondrel {

int ReadIntegerToken(TextScanner& scanner, std::int32_t* dest) {
  char token[kTokenLimit];
  NextToken(scanner, token, sizeof token);
  return ParseInteger(dest, token);
}

int ReadRealToken(TextScanner& scanner, double* dest) {
  char token[kTokenLimit];
  NextToken(scanner, token, sizeof token);
  return ParseReal(dest, token);
}

}  // namespace ondrel
