#include "app/convert/report.h"
#include "app/design/skip_reasons.h"
#include <pelor/version.h>

#include <nlohmann/json.hpp>

#include <utility>

namespace App {

namespace {

// Keys stay in the order in which they are documented.
using Json = nlohmann::ordered_json;

const char* OutcomeName(FileResult::Outcome outcome) {
  switch (outcome) {
    case FileResult::Outcome::kPlanned:
      return "planned";
    case FileResult::Outcome::kUpToDate:
      return "up-to-date";
    case FileResult::Outcome::kWritten:
      return "written";
    case FileResult::Outcome::kFailed:
      break;
  }
  return "failed";
}

const char* KindName(InputKind kind) {
  switch (kind) {
    case InputKind::kDesign2D:
      return "design-2d";
    case InputKind::kDesign3D:
      return "design-3d";
    case InputKind::kPair:
      break;
  }
  return "pair";
}

Json ReasonsJson(const Account::Reasons& reasons, const char* position_key, bool tell_expected) {
  Json list = Json::array();
  for (const auto& [reason, entry] : reasons) {
    Json places = Json::array();
    for (const Place& place : entry.places) {
      Json at = Json::object();
      if (place.number > 0) at["number"] = place.number;
      if (place.position > 0) at[position_key] = place.position;
      places.push_back(std::move(at));
    }
    Json item = {{"reason", reason}, {"count", entry.count}};
    if (tell_expected) item["expected"] = Reason::IsExpected(reason);
    item["places"] = std::move(places);
    list.push_back(std::move(item));
  }
  return list;
}

void AddCounts(Json& json, std::int64_t read, std::int64_t written, std::int64_t skipped) {
  json["read"] = read;
  json["written"] = written;
  json["skipped"] = skipped;
}

Json FileJson(const FileResult& result) {
  const Account& account = result.account;
  Json json = {{"input", result.file.input.path.string()}};
  const bool is_known = !result.file.outputs.empty();
  json["input_kind"] = is_known ? Json(KindName(result.file.input.kind)) : Json();
  Json outputs = Json::array();
  for (const auto& output : result.file.outputs) outputs.push_back(output.string());
  json["outputs"] = std::move(outputs);
  json["outcome"] = OutcomeName(result.outcome);
  json["error"] = result.error.empty() ? Json() : Json(result.error);
  AddCounts(json, account.GetRead(), account.GetWritten(), account.GetSkipped());
  json["approximated"] = account.GetApproximated();
  Json kinds = Json::array();
  const char* const position_key = result.file.input.IsDesign() ? "byte" : "line";
  for (const auto& [name, kind] : account.GetKinds()) {
    Json item = {{"kind", name}};
    AddCounts(item, kind.read, kind.written, kind.skipped);
    item["skip_reasons"] = ReasonsJson(kind.skip_reasons, position_key, true);
    item["approximation_reasons"] = ReasonsJson(kind.approximation_reasons, position_key, false);
    kinds.push_back(std::move(item));
  }
  json["kinds"] = std::move(kinds);
  json["assumptions"] = account.GetAssumptions();
  return json;
}

}  // namespace

std::string ReportJson(std::span<const FileResult> results, int exit_code) {
  std::int64_t read = 0;
  std::int64_t written = 0;
  std::int64_t skipped = 0;
  std::int64_t approximated = 0;
  Json files = Json::array();
  for (const FileResult& result : results) {
    files.push_back(FileJson(result));
    if (result.outcome != FileResult::Outcome::kWritten) continue;
    read += result.account.GetRead();
    written += result.account.GetWritten();
    skipped += result.account.GetSkipped();
    approximated += result.account.GetApproximated();
  }
  Json json = {{"pelor", Pelor::Version()}, {"exit_code", exit_code}};
  Json total = Json::object();
  AddCounts(total, read, written, skipped);
  total["approximated"] = approximated;
  json["total"] = std::move(total);
  json["files"] = std::move(files);
  // File names are bytes, not always UTF-8.
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace App
