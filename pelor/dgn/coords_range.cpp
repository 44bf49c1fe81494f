#include <pelor/dgn/coords_range.h>
#include <pelor/dgn/encoding.h>

#include <array>
#include <bit>
#include <istream>
#include <ostream>

namespace Pelor::DGN {

namespace {

// The fields in file order.
constexpr std::array kFields = {&CoordsRange::xlow,  &CoordsRange::ylow,  &CoordsRange::zlow,
                                &CoordsRange::xhigh, &CoordsRange::yhigh, &CoordsRange::zhigh};

static_assert(CoordsRange::kBytes == 4 * kFields.size());

void ExpandInterval(std::int32_t& low, std::int32_t& high, long value) noexcept {
  const auto coordinate = static_cast<std::int32_t>(value);
  if (coordinate < low) {
    low = coordinate;
  } else if (coordinate > high) {
    high = coordinate;
  }
}

std::int32_t SwapHalves(std::int32_t value) noexcept {
  return static_cast<std::int32_t>(std::rotl(static_cast<std::uint32_t>(value), 16));
}

}  // namespace

void CoordsRange::Reset(long x, long y) noexcept {
  xlow = xhigh = Low32(x);
  ylow = yhigh = Low32(y);
  zlow = kLowest;
  zhigh = kHighest;
}

void CoordsRange::Reset(long x, long /*y*/, long z) noexcept {
  xlow = xhigh = Low32(x);
  ylow = yhigh = Low32(z);
}

void CoordsRange::Expand(long x, long y) noexcept {
  ExpandInterval(xlow, xhigh, x);
  ExpandInterval(ylow, yhigh, y);
}

void CoordsRange::Expand(long x, long y, long z) noexcept {
  Expand(x, y);
  ExpandInterval(zlow, zhigh, z);
}

void CoordsRange::tointernal() noexcept {
  for (const auto field : kFields) this->*field = FlipSign(SwapHalves(this->*field));
}

void CoordsRange::toexternal() noexcept {
  for (const auto field : kFields) this->*field = SwapHalves(FlipSign(this->*field));
}

void CoordsRange::read(std::istream& in) {
  std::array<char, kBytes> bytes{};
  in.read(bytes.data(), kBytes);
  Decode(std::span(bytes).first(static_cast<std::size_t>(in.gcount())));
}

void CoordsRange::write(std::ostream& out) const {
  std::array<char, kBytes> bytes{};
  Encode(bytes);
  out.write(bytes.data(), kBytes);
}

void CoordsRange::Decode(std::span<const char> bytes) noexcept {
  for (const auto field : kFields) {
    if (bytes.size() < 4) return;
    this->*field = FlipSign(LoadLong(bytes.data()));
    bytes = bytes.subspan(4);
  }
}

void CoordsRange::Encode(std::span<char, kBytes> bytes) const noexcept {
  char* to = bytes.data();
  for (const auto field : kFields) {
    StoreLong(to, FlipSign(this->*field));
    to += 4;
  }
}

}  // namespace Pelor::DGN
