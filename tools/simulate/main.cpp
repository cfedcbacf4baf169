// The simulator's entry.
#include <iostream>

#include "simulate/command_line.h"

int main(int count, char** arguments) {
  return ondrel::simulate::RunSimulate({arguments + 1, arguments + count}, std::cout, std::cerr);
}
