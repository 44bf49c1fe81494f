#include "app/command/dump.h"

#include "app/command/empty_values.h"
#include "app/io/failure.h"
#include "app/io/interrupt.h"
#include "app/io/library_name.h"
#include "app/io/system_failure.h"
#include <pelor/dgn.h>

#include <cerrno>
#include <charconv>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>

namespace App {

namespace {

namespace DGN = Pelor::DGN;

// Collects the listing of one element. The library ends every line with a flush, which would cost a system
// call each on the output itself.
class Listing {
 public:
  explicit Listing(std::ostream& out) : out_(out) {}

  void Element(DGN::File& design, std::int64_t number, bool hex) {
    text_.str({});
    text_.fill(' ');
    text_ << "Element " << number << " at byte " << design.CurrentPosition() << '\n';
    Headers(design);
    if (hex) Body(design);
    text_ << '\n';
    out_ << text_.view();
  }

 private:
  // The words of a non-graphic element are its own affair, and no range.
  static bool HasRange(const DGN::File& design) {
    return design.HasGraphicHeader() && DGN::TypeClass(design.GetEHeader().Type()) != DGN::NonGraphic;
  }

  void Headers(DGN::File& design) {
    if (design.HasDisplayableHeader()) {
      design.GetDEHeader().Dump(text_);
    } else if (HasRange(design)) {
      design.GetGEHeader().Dump(text_);
    } else {
      design.GetEHeader().Dump(text_);
    }
  }

  void Body(DGN::File& design) {
    text_ << "** Body, from byte ";
    if (design.HasDisplayableHeader()) {
      text_ << DGN::DEHeader::kBytes << " of the element:\n";
      design.DumpDEBody(text_, true);
    } else if (HasRange(design)) {
      text_ << DGN::GEHeader::kBytes << " of the element:\n";
      design.DumpGEBody(text_);
    } else {
      text_ << DGN::EHeader::kBytes << " of the element:\n";
      design.DumpEBody(text_);
    }
  }

  std::ostream& out_;
  std::ostringstream text_;
};

bool IsWanted(const DGN::EHeader& element, const DumpOptions& options) {
  return options.types.Contains(static_cast<unsigned>(element.Type())) &&
         options.levels.Contains(element.Level());
}

// "12", the number of an element, or "@1536", the byte where it begins.
void SetFrom(std::string_view text, DumpOptions& options) {
  const bool is_offset = text.starts_with('@');
  std::int64_t value = -1;
  const char* const begin = text.data() + (is_offset ? 1 : 0);
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(begin, end, value);
  if (result.ec != std::errc() || result.ptr != end || value < (is_offset ? 0 : 1)) {
    throw Failure("--from takes the number of an element, or @ and the byte where it begins, not \"" +
                  std::string(text) + '"');
  }
  (is_offset ? options.from_offset : options.from_number) = value;
}

struct Arguments {
  std::string file;
  std::string from;
  std::string types;
  std::string levels;
  DumpOptions options;
};

void Run(Arguments& arguments) {
  DumpOptions& options = arguments.options;
  if (!arguments.from.empty()) SetFrom(arguments.from, options);
  if (!arguments.types.empty()) options.types = ParseElementTypes(arguments.types);
  if (!arguments.levels.empty()) options.levels = ParseLevels(arguments.levels);
  DumpDesign(RecogniseInput(arguments.file), options, std::cout);
}

}  // namespace

void DumpDesign(const Input& input, const DumpOptions& options, std::ostream& out) {
  if (!input.IsDesign())
    throw Failure(input.path.string() + " is not a design file; its text can be read as it is");
  const LibraryName name(input);
  DGN::File design(name.Get().string(), std::ios::in);
  if (!design.IsOpen()) throw SystemFailure(input.path, "cannot be read", errno);
  if (options.from_offset >= 0) {
    if (options.from_offset >= design.FileLength()) {
      throw Failure(input.path.string() + " has no byte " + std::to_string(options.from_offset));
    }
    design.Position(static_cast<long>(options.from_offset));
  }
  Listing listing(out);
  std::int64_t number = 1;
  std::int64_t listed = 0;
  while (design && listed < options.count) {
    ThrowIfInterrupted();
    if (number >= options.from_number && IsWanted(design.GetEHeader(), options)) {
      // Listing the body moves in the file, but not on.
      const std::int64_t next = design.NextPosition();
      listing.Element(design, number, options.hex);
      ++listed;
      design.clear();
      design.Position(static_cast<long>(next));
    } else {
      design.Next(false);
    }
    ++number;
  }
  if (listed == options.count) return;
  if (design.AtEnd()) {
    out << "End of the design at byte " << design.CurrentPosition() << '\n';
  } else {
    out << "The file ends at byte " << design.FileLength() << " without the end of the design\n";
  }
}

void AddDumpCommand(CLI::App& program, int& exit_code) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App& command = *program.add_subcommand("dump", "Lists a design file element by element");
  command.add_option("FILE", arguments->file, "the design file")->required();
  command.add_flag("--hex", arguments->options.hex, "the bodies as well, in hexadecimal");
  command
      .add_option("--from", arguments->from, "begin with this element: its number, or @ and its byte offset")
      ->type_name("N");
  command.add_option("--count", arguments->options.count, "list so many elements at most")
      ->type_name("N")
      ->check([](const std::string& text) {
        const bool is_number = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
        return is_number ? std::string() : "takes a number, not \"" + text + '"';
      });
  command.add_option("--type", arguments->types, "these types alone, such as 3,12-14 or line,text")
      ->type_name("LIST");
  command.add_option("--level", arguments->levels, "these levels alone, such as 1,3-5")->type_name("LIST");
  command.footer(
      "Examples:\n"
      "  pelor dump plan.dgn --count 10\n"
      "  pelor dump plan.dgn --type line-string,shape --level 1,3-5\n"
      "  pelor dump plan.dgn --from @4608 --count 1 --hex");
  command.callback([arguments, &command, &exit_code] {
    RefuseEmptyValues(command);
    Run(*arguments);
    exit_code = kDone;
  });
}

}  // namespace App
