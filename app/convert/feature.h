#pragma once

#include "app/convert/account.h"
#include <pelor/mi.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace App {

/// What the rows and coordinates of a stream of features mean. Texts are UTF-8.
struct Schema {
  std::vector<Pelor::MI::Column> columns;
  /// Null when the source states none.
  Tobri::IRefC<Pelor::MI::CoordSys> system;
};

/// One map object with its row, as it goes from a source to a sink. A sink may change it.
struct Feature {
  Pelor::MI::WObjRf<Pelor::MI::WObjBody> object;  ///< never null; a `WNoBody` where a row has no object
  std::vector<Tobri::String> values;              ///< one per column, UTF-8; missing ones are empty
  std::string_view kind;                          ///< for the account; lives as long as the source
  std::int64_t count = 1;                         ///< how many read things of `kind` became this feature
  Place place;
};

/// Gives features, one by one. What it does not give it puts into the account itself, and what it gives it
/// counts as read; written is for the one who writes it. Throws `Failure` when it cannot go on.
class FeatureSource {
 public:
  FeatureSource() = default;
  FeatureSource(const FeatureSource&) = delete;
  FeatureSource& operator=(const FeatureSource&) = delete;
  virtual ~FeatureSource() = default;

  [[nodiscard]] virtual const Schema& GetSchema() const = 0;
  /// Fills `feature`, whose memory is used again; false at the end.
  [[nodiscard]] virtual bool Next(Feature& feature, Account& account) = 0;
  /// Bytes read so far, and in all.
  [[nodiscard]] virtual std::int64_t Current() const = 0;
  [[nodiscard]] virtual std::int64_t Total() const = 0;
};

/// Gives a new source that stands before its first feature, each time.
using SourceOpener = std::function<std::unique_ptr<FeatureSource>()>;

/// Takes features. Nothing stands under the output's final name before `Close` has returned; a sink that is
/// destroyed without it leaves no trace. Throws `Failure` when it cannot go on.
class FeatureSink {
 public:
  FeatureSink() = default;
  FeatureSink(const FeatureSink&) = delete;
  FeatureSink& operator=(const FeatureSink&) = delete;
  virtual ~FeatureSink() = default;

  /// Writes the feature and counts it as written, approximated or skipped.
  virtual void Put(Feature& feature, Account& account) = 0;
  virtual void Close(Account& account) = 0;
};

}  // namespace App
