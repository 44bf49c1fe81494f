#include "app/inspect/pair_info.h"

#include "app/inspect/charset_check.h"
#include "app/inspect/pair_header_check.h"
#include "app/inspect/pair_text_file.h"
#include "app/inspect/row_check.h"
#include "app/io/interrupt.h"
#include "app/pair/pair_source.h"

#include <algorithm>

namespace App {

namespace {

std::int64_t CountRows(const PairInfo& info) {
  PairHeader header;
  header.delimiter = info.delimiter;
  header.columns = info.columns;
  header.has_known_type.assign(info.columns.size(), false);
  const FindingSink nowhere = [](const Finding&) {};
  CharsetCheck charset(info.charset);
  PairTextFile mid(info.mid, Pelor::MIF::MIDSeparators(info.delimiter));
  const RowCount count = CheckRows(*mid, header, charset, PairReport(info.mid, nowhere));
  return std::clamp(info.objects, count.rows, count.rows + count.empty_at_end);
}

}  // namespace

PairInfo ReadPairInfo(const Input& input) {
  PairSource source(input);
  PairInfo info;
  info.mif = input.path;
  info.mid = input.mid;
  info.bytes = source.Total();
  info.version = source.GetVersion();
  info.charset = source.GetCharset();
  info.delimiter = source.GetDelimiter();
  info.system = source.GetSchema().system;
  info.columns = source.GetSchema().columns;
  Feature feature;
  while (source.Next(feature, info.account)) {
    ThrowIfInterrupted();
    ++info.objects;
    const auto kind = info.kinds.find(feature.kind);
    if (kind != info.kinds.end()) {
      ++kind->second;
    } else {
      info.kinds.emplace(feature.kind, 1);
    }
    const Vanth::BoundsXY bounds = feature.object->GetBounds();
    if (bounds.IsEmpty()) continue;
    info.extent.Extend(bounds.Min());
    info.extent.Extend(bounds.Max());
  }
  if (!info.mid.empty()) info.rows = CountRows(info);
  return info;
}

}  // namespace App
