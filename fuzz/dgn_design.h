#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>

namespace dgn_fuzz {

/// A design file of the fuzzer's making, in memory where the system has a folder for that.
class Design {
 public:
  Design(const std::uint8_t* data, std::size_t size) {
    std::ofstream out(Name(), std::ios::binary | std::ios::trunc);
    for (std::size_t i = 0; i < size; ++i) out.put(static_cast<char>(data[i]));
  }
  ~Design() { std::remove(Name().c_str()); }
  Design(const Design&) = delete;
  Design& operator=(const Design&) = delete;

  [[nodiscard]] static const std::string& Name() {
    static const std::string name = (access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp") +
                                    std::string("/pelor_fuzz_") + std::to_string(getpid()) + ".dgn";
    return name;
  }

  [[nodiscard]] static std::string Content() {
    std::ifstream in(Name(), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }
};

inline void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace dgn_fuzz
