// Writes large inputs for the program: make_inputs FOLDER [OBJECTS], a million by default.

#include "inputs.h"

#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char** argv) {
  if (argc != 2 && argc != 3) {
    std::fprintf(stderr, "usage: make_inputs FOLDER [OBJECTS]\n");
    return 2;
  }
  const std::string folder = argv[1];
  const long objects = argc == 3 ? std::strtol(argv[2], nullptr, 10) : 1'000'000;
  MakeDesign(folder + "/large.dgn", objects);
  MakePair(folder + "/large.mif", objects);
  return 0;
}
