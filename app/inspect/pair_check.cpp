#include "app/inspect/pair_check.h"

#include "app/inspect/charset_check.h"
#include "app/inspect/layout.h"
#include "app/inspect/object_check.h"
#include "app/inspect/pair_header_check.h"
#include "app/inspect/pair_report.h"
#include "app/inspect/pair_text_file.h"
#include "app/inspect/row_check.h"
#include <pelor/mif.h>

namespace App {

namespace {

void CheckColumnNames(const PairHeader& header, CharsetCheck& charset, const PairReport& report) {
  for (const Pelor::MI::Column& column : header.columns) {
    const std::string misfit = charset.MisfitOf(column.name);
    if (misfit.empty()) continue;
    report(Severity::kWarning, "charset",
           "the name of the column " + std::string(std::string_view(column.name)) + ' ' + misfit, {});
  }
}

}  // namespace

void CheckPair(const Input& input, const FindingSink& sink) {
  const PairReport mif_report(input.path, sink);
  PairHeader header;
  PairTextFile mif(input.path, Pelor::MIF::MIFSeparators());
  const bool has_objects = CheckPairHeader(*mif, header, mif_report);
  CharsetCheck charset(header.charset);
  CheckColumnNames(header, charset, mif_report);
  if (!has_objects) return;
  const std::int64_t objects = CheckObjects(*mif, header, charset, mif_report);

  if (input.mid.empty()) {
    if (!header.columns.empty() && objects != 0) {
      mif_report(Severity::kWarning, "mid-missing",
                 "there is no MID file beside it, so the objects have no values", {});
    }
    return;
  }
  const PairReport mid_report(input.mid, sink);
  PairTextFile mid(input.mid, Pelor::MIF::MIDSeparators(header.delimiter));
  const RowCount rows = CheckRows(*mid, header, charset, mid_report);
  if (rows.Fits(objects) || (header.columns.empty() && rows.rows == 0)) return;
  mid_report(Severity::kError, "row-count", ThereAre(rows.rows, "row") + " for " + Counted(objects, "object"),
             {});
}

}  // namespace App
