#include "app/command/empty_values.h"

#include "app/io/failure.h"

#include <algorithm>
#include <string>

namespace App {

void RefuseEmptyValues(const CLI::App& command) {
  for (const CLI::Option* const option : command.get_options()) {
    if (option->get_positional() || option->get_items_expected_max() == 0) continue;
    const CLI::results_t& values = option->results();
    const bool has_empty =
        std::any_of(values.begin(), values.end(), [](const std::string& value) { return value.empty(); });
    if (has_empty) throw Failure(option->get_name() + " needs a value");
  }
}

}  // namespace App
