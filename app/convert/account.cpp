#include "app/convert/account.h"

#include <algorithm>
#include <utility>

namespace App {

Account::Kind& Account::Find(std::string_view kind) {
  const auto found = kinds_.find(kind);
  return found != kinds_.end() ? found->second : kinds_.emplace(kind, Kind()).first->second;
}

void Account::Add(Reasons& reasons, std::string_view reason, const Place& place, std::int64_t count) {
  auto found = reasons.find(reason);
  if (found == reasons.end()) found = reasons.emplace(reason, Entry()).first;
  Entry& entry = found->second;
  entry.count += count;
  if (entry.places.size() < kPlaces) entry.places.push_back(place);
}

void Account::Read(std::string_view kind, std::int64_t count) {
  Find(kind).read += count;
}

void Account::Written(std::string_view kind, std::int64_t count) {
  Find(kind).written += count;
}

void Account::Skipped(std::string_view kind, std::string_view reason, const Place& place,
                      std::int64_t count) {
  Kind& found = Find(kind);
  found.skipped += count;
  Add(found.skip_reasons, reason, place, count);
}

void Account::Approximated(std::string_view kind, std::string_view reason, const Place& place,
                           std::int64_t count) {
  Add(Find(kind).approximation_reasons, reason, place, count);
}

void Account::Assume(std::string sentence) {
  if (std::find(assumptions_.begin(), assumptions_.end(), sentence) != assumptions_.end()) return;
  assumptions_.push_back(std::move(sentence));
}

std::int64_t Account::GetRead() const {
  std::int64_t sum = 0;
  for (const auto& [name, kind] : kinds_) sum += kind.read;
  return sum;
}

std::int64_t Account::GetWritten() const {
  std::int64_t sum = 0;
  for (const auto& [name, kind] : kinds_) sum += kind.written;
  return sum;
}

std::int64_t Account::GetSkipped() const {
  std::int64_t sum = 0;
  for (const auto& [name, kind] : kinds_) sum += kind.skipped;
  return sum;
}

std::int64_t Account::GetApproximated() const {
  std::int64_t sum = 0;
  for (const auto& [name, kind] : kinds_) {
    for (const auto& [reason, entry] : kind.approximation_reasons) sum += entry.count;
  }
  return sum;
}

}  // namespace App
