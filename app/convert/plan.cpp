#include "app/convert/plan.h"

#include "app/io/failure.h"
#include "app/io/system_failure.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <sys/stat.h>
#include <system_error>
#include <utility>

namespace App {

namespace {

namespace fs = std::filesystem;

// A file, whatever its name.
using Identity = std::pair<std::uint64_t, std::uint64_t>;

std::optional<Identity> IdentityOf(const fs::path& name) {
  struct stat status = {};
  if (name.empty() || ::stat(name.c_str(), &status) != 0) return std::nullopt;
  return Identity(status.st_dev, status.st_ino);
}

std::optional<OutputFormat> FormatOf(const fs::path& name) {
  const std::string extension = LowerExtension(name);
  if (extension == ".mif" || extension == ".mid") return OutputFormat::kPair;
  if (extension == ".dgn") return OutputFormat::kDesign;
  return std::nullopt;
}

// `name` with another extension, in capitals where its own is.
fs::path Companion(const fs::path& name, std::string extension) {
  const std::string own = name.extension().string();
  const bool capitals =
      std::none_of(own.begin(), own.end(), [](unsigned char c) { return std::islower(c) != 0; });
  if (capitals) {
    for (char& c : extension) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  }
  return fs::path(name).replace_extension(extension);
}

std::vector<fs::path> OutputsOf(const fs::path& name, OutputFormat format, const Input& input) {
  if (format == OutputFormat::kPair) return {Companion(name, ".mif"), Companion(name, ".mid")};
  if (input.IsDesign()) return {name};
  return {name, fs::path(name).replace_extension(".csv")};
}

class Planner {
 public:
  explicit Planner(const PlanRequest& request) : request_(request) {}

  std::vector<PlannedFile> Plan() {
    CheckRequest();
    for (const fs::path& input : request_.inputs) {
      std::error_code error;
      if (fs::is_directory(input, error)) {
        AddFolder(input);
      } else {
        AddFile(input, {});
      }
    }
    if (!request_.output.empty() && files_.size() > 1) {
      throw Failure("-o takes one input; --out-dir DIR takes many");
    }
    for (PlannedFile& file : files_) Check(file);
    return std::move(files_);
  }

 private:
  void CheckRequest() {
    if (request_.inputs.empty()) throw Failure("there is nothing to convert");
    if (request_.output.empty() == request_.out_dir.empty()) {
      throw Failure("convert needs either -o OUTPUT or --out-dir DIR");
    }
    std::error_code error;
    if (request_.output.empty()) {
      const fs::file_status status = fs::status(request_.out_dir, error);
      if (fs::exists(status) && !fs::is_directory(status)) {
        throw Failure(request_.out_dir.string() + " is not a folder");
      }
      return;
    }
    if (request_.to) throw Failure("--to goes with --out-dir; the extension of OUTPUT says what to write");
    if (fs::is_directory(request_.output, error)) {
      throw Failure(request_.output.string() + " is a folder; --out-dir writes into folders");
    }
    if (!FormatOf(request_.output)) {
      throw Failure(request_.output.string() + " has an unknown extension; .mif or .dgn say what to write");
    }
  }

  void AddFolder(const fs::path& folder) {
    if (!request_.output.empty()) {
      throw Failure(folder.string() + " is a folder; --out-dir DIR takes folders");
    }
    if (!request_.recursive) {
      throw Failure(folder.string() + " is a folder; --recursive converts what is in it");
    }
    const std::size_t before = files_.size();
    Walk(folder, {});
    if (files_.size() == before) {
      throw Failure(folder.string() + " holds no design files and no interchange pairs");
    }
  }

  // The files of a folder, and then its folders. Symbolic links to folders are not followed: they may lead
  // back.
  void Walk(const fs::path& folder, const fs::path& below) {
    std::error_code error;
    std::vector<fs::directory_entry> entries;
    fs::directory_iterator at(folder, error);
    for (; !error && at != fs::directory_iterator(); at.increment(error)) entries.push_back(*at);
    if (error) Refuse(folder, SystemFailure(folder, "cannot be read", error.value()).what());
    std::sort(entries.begin(), entries.end());
    std::vector<fs::path> folders;
    for (const fs::directory_entry& entry : entries) {
      const std::string name = entry.path().filename().string();
      if (name.starts_with('.')) continue;
      const std::string extension = LowerExtension(name);
      if (entry.symlink_status(error).type() == fs::file_type::directory) {
        folders.emplace_back(name);
      } else if (extension == ".dgn" || extension == ".mif") {
        AddFile(entry.path(), below);
      }
    }
    for (const fs::path& name : folders) {
      // What was converted before is not converted again.
      if (fs::equivalent(folder / name, request_.out_dir, error)) continue;
      Walk(folder / name, below / name);
    }
  }

  void AddFile(const fs::path& name, const fs::path& below) {
    PlannedFile file;
    try {
      file.input = RecogniseInput(name);
    } catch (const Failure& failure) {
      Refuse(name, failure.what());
      return;
    }
    std::error_code error;
    if (!names_.insert(fs::absolute(file.input.path, error).lexically_normal()).second) return;
    for (const fs::path& part : {file.input.path, file.input.mid}) {
      if (const auto identity = IdentityOf(part)) inputs_.insert(*identity);
    }

    const std::uintmax_t bytes = fs::file_size(file.input.path, error);
    if (!error) file.input_bytes = static_cast<std::int64_t>(bytes);
    fs::path output = request_.output;
    if (output.empty()) {
      const OutputFormat other = file.input.IsDesign() ? OutputFormat::kPair : OutputFormat::kDesign;
      file.format = request_.to.value_or(other);
      output = request_.out_dir / below / file.input.path.filename();
      output.replace_extension(file.format == OutputFormat::kPair ? ".mif" : ".dgn");
    } else {
      file.format = FormatOf(output).value_or(OutputFormat::kPair);
    }
    file.outputs = OutputsOf(output, file.format, file.input);
    files_.push_back(std::move(file));
  }

  void Refuse(const fs::path& name, std::string sentence) {
    PlannedFile file;
    file.input.path = name;
    file.state = PlannedFile::State::kRefused;
    file.refusal = std::move(sentence);
    files_.push_back(std::move(file));
  }

  // All inputs are known by now.
  void Check(PlannedFile& file) {
    if (file.state != PlannedFile::State::kToDo) return;
    file.refusal = Obstacle(file);
    if (!file.refusal.empty()) {
      file.state = PlannedFile::State::kRefused;
      return;
    }
    if (request_.newer && IsUpToDate(file)) {
      file.state = PlannedFile::State::kUpToDate;
    } else if (!request_.overwrite) {
      std::error_code error;
      for (const fs::path& output : file.outputs) {
        if (!fs::exists(output, error)) continue;
        file.refusal = output.string() + " exists; --overwrite replaces it";
        file.state = PlannedFile::State::kRefused;
        return;
      }
    }
  }

  // Why the outputs must not be written to, whatever the user allows.
  std::string Obstacle(const PlannedFile& file) {
    for (const fs::path& output : file.outputs) {
      const std::optional<Identity> identity = IdentityOf(output);
      if (identity && inputs_.contains(*identity)) {
        return output.string() + " is an input as well; write to another file";
      }
      const auto [taken, is_free] = outputs_.emplace(output.lexically_normal(), file.input.path);
      if (!is_free) {
        return file.input.path.string() + " would be written to " + output.string() + ", as " +
               taken->second.string() + " is";
      }
    }
    return {};
  }

  static bool IsUpToDate(const PlannedFile& file) {
    std::error_code error;
    fs::file_time_type input = fs::last_write_time(file.input.path, error);
    if (error) return false;
    if (!file.input.mid.empty()) {
      const fs::file_time_type mid = fs::last_write_time(file.input.mid, error);
      if (!error) input = std::max(input, mid);
    }
    return std::all_of(file.outputs.begin(), file.outputs.end(), [input](const fs::path& output) {
      std::error_code missing;
      const fs::file_time_type written = fs::last_write_time(output, missing);
      return !missing && written >= input;
    });
  }

  const PlanRequest& request_;
  std::vector<PlannedFile> files_;
  std::set<fs::path> names_;              // of the inputs, to find those named twice
  std::set<Identity> inputs_;             // which no output may replace
  std::map<fs::path, fs::path> outputs_;  // and the inputs that they are written from
};

}  // namespace

OutputFormat ParseOutputFormat(std::string_view name) {
  std::string dotted = ".";
  for (const char c : name) dotted += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (dotted == ".mif") return OutputFormat::kPair;
  if (dotted == ".dgn") return OutputFormat::kDesign;
  throw Failure("--to takes mif or dgn, not \"" + std::string(name) + '"');
}

std::vector<PlannedFile> PlanConversion(const PlanRequest& request) {
  return Planner(request).Plan();
}

}  // namespace App
