#include "app/convert/batch.h"

#include "app/convert/jobs.h"
#include "app/io/failure.h"
#include "app/io/interrupt.h"
#include "app/io/system_failure.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <new>
#include <system_error>
#include <utility>

namespace App {

namespace {

namespace fs = std::filesystem;

// Makes folders, and remembers which were not there.
class Folders {
 public:
  Folders() = default;
  Folders(const Folders&) = delete;
  Folders& operator=(const Folders&) = delete;
  // Full ones cannot be removed, and stay.
  ~Folders() {
    std::error_code ignored;
    for (; !made_.empty(); made_.pop_back()) fs::remove(made_.back(), ignored);
  }

  void Make(const fs::path& folder) {
    std::error_code error;
    if (folder.empty() || fs::exists(folder, error)) return;
    Make(folder.parent_path());
    if (fs::create_directory(folder, error)) made_.push_back(folder);
    if (error) throw SystemFailure(folder, "cannot be made", error.value());
  }

 private:
  std::vector<fs::path> made_;
};

void MakeFolders(std::vector<FileResult>& results, Folders& folders) {
  for (FileResult& result : results) {
    if (result.outcome != FileResult::Outcome::kPlanned) continue;
    try {
      folders.Make(result.file.outputs.front().parent_path());
    } catch (const Failure& failure) {
      result.outcome = FileResult::Outcome::kFailed;
      result.error = failure.what();
    }
  }
}

FileResult StartOf(PlannedFile file) {
  FileResult result;
  if (file.state == PlannedFile::State::kUpToDate) result.outcome = FileResult::Outcome::kUpToDate;
  if (file.state == PlannedFile::State::kRefused) result.outcome = FileResult::Outcome::kFailed;
  result.error = file.refusal;
  result.file = std::move(file);
  return result;
}

void Convert(FileResult& result, const ConvertOptions& options, Progress& progress) {
  FileProgress file_progress(progress, result.file.input_bytes);
  const std::string name = result.file.input.path.string();
  result.outcome = FileResult::Outcome::kFailed;
  try {
    ConvertFile(result.file, options, file_progress, result.account);
    result.outcome = FileResult::Outcome::kWritten;
  } catch (const Interrupted&) {
    throw;
  } catch (const Failure& failure) {
    result.error = failure.what();
  } catch (const std::bad_alloc&) {
    result.error = name + " cannot be converted: there is not enough memory";
  } catch (const std::exception& error) {
    result.error = name + " cannot be converted: " + error.what();
  }
}

}  // namespace

std::vector<FileResult> ConvertBatch(std::vector<PlannedFile> files, const ConvertOptions& options,
                                     const BatchOptions& batch, std::ostream& progress) {
  std::vector<FileResult> results;
  results.reserve(files.size());
  for (PlannedFile& file : files) results.push_back(StartOf(std::move(file)));
  if (batch.dry_run) return results;

  Folders folders;
  if (batch.makes_folders) MakeFolders(results, folders);
  std::vector<std::size_t> work;
  std::int64_t bytes = 0;
  for (std::size_t i = 0; i < results.size(); ++i) {
    if (results[i].outcome != FileResult::Outcome::kPlanned) continue;
    work.push_back(i);
    bytes += results[i].file.input_bytes;
  }
  Progress shown(progress, batch.progress, bytes, work.size());
  RunJobs(work.size(), batch.jobs, [&](std::size_t i) {
    ThrowIfInterrupted();
    Convert(results[work[i]], options, shown);
  });
  return results;
}

}  // namespace App
