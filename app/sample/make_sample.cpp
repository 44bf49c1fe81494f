// Writes the sample design: make_sample FILE.

#include "app/sample/town_map.h"

#include <cstdio>
#include <fstream>

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: make_sample FILE\n");
    return 2;
  }
  App::ElementBytes bytes;
  App::Sample::WriteTownMap(bytes);
  std::ofstream out(argv[1], std::ios::binary | std::ios::trunc);
  out.write(bytes.Data(), static_cast<std::streamsize>(bytes.Size()));
  out.close();
  if (!out) {
    std::fprintf(stderr, "%s cannot be written\n", argv[1]);
    return 1;
  }
  return 0;
}
