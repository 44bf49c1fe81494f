// Lists the elements of a design file: where each begins, its type, level and length, and then how many there
// are of every type. Components of complex elements are indented.

#include <pelor/dgn.h>

#include <cstdint>
#include <cstdio>
#include <map>

using namespace Pelor;

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: list_elements FILE\n");
    return 2;
  }
  DGN::File file(argv[1], std::ios_base::in);
  if (!file.IsOpen()) {
    std::fprintf(stderr, "%s: cannot be opened\n", argv[1]);
    return 1;
  }

  std::map<DGN::EType, unsigned> counts;
  std::printf("    offset  level  words  type\n");
  for (; file; file.Next(false)) {
    const DGN::EHeader& header = file.GetEHeader();
    std::printf("%10jd  %5u  %5u  %s%s%s\n", static_cast<std::intmax_t>(file.CurrentPosition()),
                header.Level(), static_cast<unsigned>(header.words_to_follow),
                header.IsComponent() ? "  " : "", DGN::Name(header.Type()).c_str(),
                header.IsDeleted() ? " (deleted)" : "");
    ++counts[header.Type()];
  }
  for (const auto& [type, count] : counts) {
    std::printf("%6u of type %d, %s\n", count, static_cast<int>(type), DGN::Name(type).c_str());
  }
  // Without its end marker a design leaves the stream in a failed state at the end of the file.
  if (!file.AtEnd()) {
    std::fprintf(stderr, "%s: the file ends before the design does\n", argv[1]);
    return 1;
  }
  return 0;
}
