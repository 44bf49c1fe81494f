#pragma once

#include <pelor/mi.h>

#include <string>
#include <string_view>

namespace App {

/// Why a value of a MID file, its bytes as they stand there, does not fit its column, in a few words; empty
/// when it does. No characters fit every column.
[[nodiscard]] std::string MisfitOf(std::string_view value, const Pelor::MI::Column& column);

/// The column's type as a header writes it: "Char(20)", "Decimal(8,2)", "Integer".
[[nodiscard]] std::string TypeText(const Pelor::MI::Column& column);

}  // namespace App
