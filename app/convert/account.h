#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace App {

/// Where a thing stands in its file.
struct Place {
  std::int64_t number = 0;    ///< of the element or object in its file, from 1; 0 when unknown
  std::int64_t position = 0;  ///< byte offset in a design file, line in a text file; 0 when unknown
};

/// What became of everything that was read: by kind (an element type's name, an object's keyword), read =
/// written + skipped. What was approximated is among the written.
class Account {
 public:
  /// So many places are kept for each kind and reason.
  static constexpr std::size_t kPlaces = 5;

  /// Things of one kind that met with one reason.
  struct Entry {
    std::int64_t count = 0;
    std::vector<Place> places;  ///< the first `kPlaces`
  };
  using Reasons = std::map<std::string, Entry, std::less<>>;

  struct Kind {
    std::int64_t read = 0;
    std::int64_t written = 0;
    std::int64_t skipped = 0;
    Reasons skip_reasons;           ///< their counts add up to `skipped`
    Reasons approximation_reasons;  ///< one thing may be here for several reasons
  };
  using Kinds = std::map<std::string, Kind, std::less<>>;

  void Read(std::string_view kind, std::int64_t count = 1);
  void Written(std::string_view kind, std::int64_t count = 1);
  /// `reason` says why in a few words, such as "deleted" or "outside the window".
  void Skipped(std::string_view kind, std::string_view reason, const Place& place, std::int64_t count = 1);
  void Approximated(std::string_view kind, std::string_view reason, const Place& place,
                    std::int64_t count = 1);
  /// Keeps a sentence on what had to be assumed; each sentence once.
  void Assume(std::string sentence);

  [[nodiscard]] const Kinds& GetKinds() const { return kinds_; }
  [[nodiscard]] const std::vector<std::string>& GetAssumptions() const { return assumptions_; }
  [[nodiscard]] std::int64_t GetRead() const;
  [[nodiscard]] std::int64_t GetWritten() const;
  [[nodiscard]] std::int64_t GetSkipped() const;
  [[nodiscard]] std::int64_t GetApproximated() const;

 private:
  Kind& Find(std::string_view kind);
  static void Add(Reasons& reasons, std::string_view reason, const Place& place, std::int64_t count);

  Kinds kinds_;
  std::vector<std::string> assumptions_;
};

}  // namespace App
