#pragma once

#include "app/convert/feature.h"
#include "app/io/input_kind.h"
#include "app/io/library_name.h"
#include "app/io/transcoder.h"
#include <pelor/mif.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace App {

/// Reads the objects of an interchange pair with their rows. What is damaged or unknown does not stop it:
/// objects of unknown kinds are skipped with their rows, and of a malformed object what can be read is given.
class PairSource final : public FeatureSource {
 public:
  /// `charset` is the character set of the texts, whatever the header says; empty: what the header says.
  /// Throws `Failure` when the pair cannot be read, with the place and the reason for a faulty header.
  explicit PairSource(const Input& input, std::string_view charset = {});

  [[nodiscard]] const Schema& GetSchema() const override { return schema_; }
  [[nodiscard]] bool Next(Feature& feature, Account& account) override;
  [[nodiscard]] std::int64_t Current() const override { return reader_.Current(); }
  [[nodiscard]] std::int64_t Total() const override { return reader_.Total(); }

  /// The set that the texts are converted from: the given one, the header's, or an assumed one.
  [[nodiscard]] const std::string& GetCharset() const noexcept { return charset_; }
  [[nodiscard]] int GetVersion() const noexcept { return reader_.GetVersion(); }
  [[nodiscard]] char GetDelimiter() const noexcept { return reader_.GetDelimiter(); }

 private:
  /// A message about the object at hand, or about an object that came before.
  struct Fault {
    std::string text;
    std::int64_t line = 0;
  };

  void Open();
  void ChooseCharset(std::string_view charset);
  void ReadSchema();
  void Advance(Account& account);
  void StateAssumptions(Account& account) const;
  void CountSkipped(Account& account);
  void CountRest(Account& account);
  void TakeObject(Feature& feature, Account& account);
  void TakeValues(Feature& feature, Account& account);
  void CheckRow(std::size_t values, Account& account);
  [[nodiscard]] std::int64_t CountBlankRowsAtEnd() const;

  Input input_;
  LibraryName name_;
  Pelor::iMIF reader_;
  Schema schema_;
  std::string charset_;
  std::optional<Transcoder> transcoder_;
  std::array<std::string, 10> kinds_;  // by the type of object
  Pelor::MI::Transform transform_;
  bool has_transform_ = false;
  bool has_unused_factor_ = false;   // in the transform, before it became 1
  std::string unknown_charset_;      // the header's, when nobody knows it
  bool charset_is_assumed_ = false;  // nothing was said about it
  bool has_begun_ = false;
  bool has_ended_ = false;
  std::size_t skipped_seen_ = 0;         // of what the reader passed over
  std::optional<Fault> fault_;           // the first one of the object at hand
  std::int64_t number_ = 0;              // of the object at hand
  std::string_view kind_;                // of the last object that was given
  std::int64_t rows_without_value_ = 0;  // the last so many rows in a table of one column
};

}  // namespace App
