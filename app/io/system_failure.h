#pragma once

#include "app/io/failure.h"

#include <filesystem>
#include <string_view>

namespace App {

/// The failure "NAME WHAT: REASON", with the system's reason for the error number `error` in small letters;
/// without the reason when the number is 0.
[[nodiscard]] Failure SystemFailure(const std::filesystem::path& name, std::string_view what, int error);

}  // namespace App
