#pragma once

#include <pelor/mi.h>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace App {

/// The places of the named columns, whatever the case of the names; of all columns when there are no names.
/// Throws `Failure` for a name that no column has.
[[nodiscard]] std::vector<std::size_t> SelectColumns(std::span<const Pelor::MI::Column> columns,
                                                     std::span<const std::string> names);

/// A name that a MIF header can hold, as near to `name` as can be: letters, digits and underlines, with no
/// digit in front. `number`, from 1, names a column that has no name.
[[nodiscard]] std::string PairColumnName(std::string_view name, std::size_t number);

}  // namespace App
