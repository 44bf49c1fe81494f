#pragma once

#include "app/design/d_float.h"
#include <pelor/dgn.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace App {

/// A growing run of bytes in the encodings of design files.
class ElementBytes {
 public:
  [[nodiscard]] std::size_t Size() const noexcept { return bytes_.size(); }
  [[nodiscard]] const char* Data() const noexcept { return bytes_.data(); }
  [[nodiscard]] std::string_view View() const noexcept { return {bytes_.data(), bytes_.size()}; }
  /// Forgets the bytes and keeps their memory.
  void Clear() noexcept { bytes_.clear(); }

  void Byte(std::uint8_t value) { bytes_.push_back(static_cast<char>(value)); }
  void Word(std::uint16_t value) { Pelor::DGN::StoreWord(Grow(2), value); }
  void Words(std::span<const std::uint16_t> values) {
    for (const std::uint16_t value : values) Word(value);
  }
  void Long(std::int32_t value) { Pelor::DGN::StoreLong(Grow(4), value); }
  void Double(double value) { Words(DFloatWords(value)); }
  void Point(const Pelor::DGN::point2d& point) {
    char* bytes = Grow(8);
    Pelor::DGN::StoreLong(bytes, point.x);
    Pelor::DGN::StoreLong(bytes + 4, point.y);
  }
  void Points(std::span<const Pelor::DGN::point2d> points) {
    char* bytes = Grow(8 * points.size());
    for (const Pelor::DGN::point2d& point : points) {
      Pelor::DGN::StoreLong(bytes, point.x);
      Pelor::DGN::StoreLong(bytes + 4, point.y);
      bytes += 8;
    }
  }
  /// In space, all at the height `z`.
  void Point(const Pelor::DGN::point2d& point, std::int32_t z) {
    Point(point);
    Long(z);
  }
  void Points(std::span<const Pelor::DGN::point2d> points, std::int32_t z) {
    char* bytes = Grow(12 * points.size());
    for (const Pelor::DGN::point2d& point : points) {
      Pelor::DGN::StoreLong(bytes, point.x);
      Pelor::DGN::StoreLong(bytes + 4, point.y);
      Pelor::DGN::StoreLong(bytes + 8, z);
      bytes += 12;
    }
  }
  void Raw(std::string_view text) { bytes_.insert(bytes_.end(), text.begin(), text.end()); }
  void Zeros(std::size_t count) { bytes_.resize(bytes_.size() + count); }

  // What stands at `position` already is replaced.
  void SetWord(std::size_t position, std::uint16_t value) { Pelor::DGN::StoreWord(&bytes_[position], value); }
  void SetLong(std::size_t position, std::int32_t value) { Pelor::DGN::StoreLong(&bytes_[position], value); }
  /// The two characters of a unit's name, filled up with a zero byte.
  void SetName(std::size_t position, std::string_view name) {
    for (std::size_t i = 0; i < 2; ++i) bytes_[position + i] = i < name.size() ? name[i] : '\0';
  }
  void SetDouble(std::size_t position, double value) {
    for (const std::uint16_t word : DFloatWords(value)) {
      SetWord(position, word);
      position += 2;
    }
  }

 private:
  [[nodiscard]] char* Grow(std::size_t count) {
    const std::size_t size = bytes_.size();
    bytes_.resize(size + count);
    return bytes_.data() + size;
  }

  std::vector<char> bytes_;
};

}  // namespace App
