#pragma once

#include <pelor/base/handle.h>
#include <pelor/base/string.h>

#include <cstdint>
#include <utility>
#include <vector>

namespace Tobri {

/// The number of buckets for a table of `entries` entries: the smallest of a fixed list of primes that leaves
/// a quarter of the buckets free, and the largest of the list, 65521, for more.
[[nodiscard]] PELOR_EXPORT unsigned HashTable16_Size(unsigned entries) noexcept;

/// How keys of type K are hashed to 16 bits; tables of one kind share it through IRefC.
template <class K>
class Hash16 : public Rep {
 public:
  virtual ~Hash16() = default;
  [[nodiscard]] virtual std::uint16_t operator()(const K& key) const noexcept = 0;
};

/// Hashing of texts.
class PELOR_EXPORT StrH16Rep : public Hash16<String> {
 public:
  using Hasher = std::uint16_t (*)(const String&) noexcept;

  /// FNV-1a over the bytes, 32 bits folded to 16 (Fowler, Noll, Vo; the xor-folding of the same authors).
  static std::uint16_t Default(const String& key) noexcept;

  [[nodiscard]] static IRefC<Hash16<String>> Get(Hasher hasher = &Default);

  [[nodiscard]] std::uint16_t operator()(const String& key) const noexcept override { return hasher_(key); }

 private:
  explicit StrH16Rep(Hasher hasher) noexcept : hasher_(hasher) {}

  Hasher hasher_;
};

/// Associates keys with values through a 16-bit hash.
template <class K, class V>
class AssocKeyH16 {
 public:
  /// `entries` is the expected number of entries; more only make the buckets longer.
  AssocKeyH16(IRefC<Hash16<K>> hash, unsigned entries)
      : hash_(std::move(hash)), buckets_(HashTable16_Size(entries)) {}

  /// Adds the pair, or replaces the value of a key that is there.
  void Set(const K& key, const V& value) {
    auto& bucket = buckets_[(*hash_)(key) % buckets_.size()];
    for (auto& entry : bucket) {
      if (entry.first == key) {
        entry.second = value;
        return;
      }
    }
    bucket.emplace_back(key, value);
  }
  /// The value of the key, or null.
  [[nodiscard]] const V* Find(const K& key) const {
    for (const auto& entry : buckets_[(*hash_)(key) % buckets_.size()]) {
      if (entry.first == key) return &entry.second;
    }
    return nullptr;
  }

 private:
  IRefC<Hash16<K>> hash_;
  std::vector<std::vector<std::pair<K, V>>> buckets_;
};

}  // namespace Tobri
