#pragma once

#include "app/io/failure.h"
#include "app/pair/library_message.h"

#include <filesystem>
#include <string_view>

namespace App {

/// Says in one sentence what is wrong with the header of a MIF file, and in which line: for a column of an
/// unknown type which column and which type it is. `message` is the first one that the library reported,
/// `charset` the file's character set as far as it is known.
[[nodiscard]] Failure ExplainHeaderFault(const std::filesystem::path& mif, const LibraryMessage& message,
                                         std::string_view charset);

}  // namespace App
