// Walks an arbitrary design file, with and without components, and asks for everything of every element. A
// walk in a file that is open for update must leave every byte as it was.

#include <pelor/dgn/file.h>

#include <cstddef>
#include <cstdint>
#include <fuzz/dgn_design.h>
#include <ios>
#include <string>
#include <tests/dgn/exercise.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kDeepElements = 64;
  const dgn_fuzz::Design design(data, size);

  Pelor::DGN::File file(dgn_fuzz::Design::Name(), std::ios_base::in);
  dgn_test::WalkEverything(file, false, kDeepElements);
  file.clear();
  file.Restart();
  dgn_test::WalkEverything(file, true, kDeepElements);

  file.Open(dgn_fuzz::Design::Name(), std::ios_base::in | std::ios_base::out);
  for (std::int64_t last = -1; file; file.Next(false)) {
    dgn_fuzz::Require(file.CurrentPosition() > last);
    last = file.CurrentPosition();
  }
  file.Close();
  const std::string content = dgn_fuzz::Design::Content();
  dgn_fuzz::Require(content == std::string(data, data + size));
  return 0;
}
