// Takes the input as a pair, the MIF file up to the first zero byte and the MID file behind it, and reads all
// of it: strictly and leniently, with values mapped and transform off and on. What was read is bounded by
// what was there.

#include <pelor/base/error.h>
#include <pelor/mif.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace {

using namespace Pelor;

void Check(bool holds) {
  if (!holds) std::abort();
}

class Pair {
 public:
  Pair()
      : name_(std::filesystem::temp_directory_path() / ("pelor_fuzz_" + std::to_string(getpid()) + "_pair")) {
  }
  ~Pair() {
    std::error_code ignored;
    std::filesystem::remove(Name() + ".mif", ignored);
    std::filesystem::remove(Name() + ".mid", ignored);
  }
  Pair(const Pair&) = delete;
  Pair& operator=(const Pair&) = delete;

  [[nodiscard]] std::string Name() const { return name_.string(); }
  void Put(const std::string& mif, const std::string& mid) const {
    std::ofstream(Name() + ".mif", std::ios_base::binary) << mif;
    std::ofstream(Name() + ".mid", std::ios_base::binary) << mid;
  }

 private:
  std::filesystem::path name_;
};

// The number of objects from the first one on.
std::size_t ReadAll(iMIF& in, std::size_t most) {
  std::size_t objects = 0;
  std::size_t characters = 0;
  for (in.Reset(); in.IsValid(); in.Next()) {
    Check(++objects <= most);
    for (int i = 0; i < in.GetNAttributes(); ++i) characters += in.GetAttribute(i).Length();
    (void)in.GetObj()->GetBounds();
    Check(in.Current() <= in.Total());
  }
  // No character of a character set takes more than three bytes.
  Check(characters <= 3 * most);
  return objects;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Pair pair;
  const std::uint8_t* const split = std::find(data, data + size, std::uint8_t{0});
  const std::string mif(data, split);
  const std::string mid(split + (split != data + size), data + size);
  pair.Put(mif, mid);

  const Tobri::Error::ScopedHandler guard([](const Tobri::Error::Msg&) {});
  iMIF strict(pair.Name());
  const std::size_t objects = ReadAll(strict, size);
  strict.SetCharSetMapping(true);
  Check(ReadAll(strict, size) == objects);
  strict.SetAutoTransform(false);
  Check(ReadAll(strict, size) == objects);

  iMIF lenient;
  lenient.SetLenient(true);
  lenient.Open(pair.Name());
  Check(ReadAll(lenient, size) >= objects);
  Check(lenient.Skipped().size() <= size);
  return 0;
}
