#pragma once

#include "account_text.h"
#include "app/pair/pair_sink.h"
#include "app/pair/pair_source.h"
#include "failure_text.h"
#include "scratch_folder.h"
#include <pelor/mif.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace App {

/// Pairs in a folder of the test's own.
class PairFixture : public testing::Test {
 protected:
  /// What a source gives: the features, each as a line "KIND #NUMBER@POSITION|VALUE|VALUE" and its
  /// clause.
  struct Given {
    std::string text;
    std::string account;
  };

  [[nodiscard]] const ScratchFolder& Folder() const { return folder_; }

  std::filesystem::path Write(std::string_view mif, std::string_view mid) const {
    static_cast<void>(folder_.Write("in.mid", mid));
    return folder_.Write("in.mif", mif);
  }

  /// The failure's sentence without the folder's name.
  template <class Action>
  std::string FailureOf(Action&& action) const {
    return WithoutFolder(FailureText(std::forward<Action>(action)));
  }
  std::string OpenFailure(std::string_view mif, std::string_view charset = {}) const {
    const std::filesystem::path name = Write(mif, "");
    return FailureOf([&] { PairSource(RecogniseInput(name), charset); });
  }

  Given Read(const std::filesystem::path& name, std::string_view charset = {}) const {
    PairSource source(RecogniseInput(name), charset);
    Account account;
    Feature feature;
    std::ostringstream text;
    text.precision(10);
    while (source.Next(feature, account)) {
      text << feature.kind << " #" << feature.place.number << '@' << feature.place.position;
      for (const Tobri::String& value : feature.values) text << '|' << value;
      text << '\n';
      Pelor::MIF::Write(feature.object, text);
      account.Written(feature.kind, feature.count);
    }
    return {text.str(), WithoutFolder(AccountText(account))};
  }

  /// Copies the pair to "out.mif" and gives the account.
  std::string Copy(const std::filesystem::path& name, const PairOptions& options = {},
                   std::string_view charset = {}) const {
    PairSource source(RecogniseInput(name), charset);
    Account account;
    Feature feature;
    PairSink sink(folder_ / "out.mif", Outputs(), source.GetSchema(), options);
    while (source.Next(feature, account)) sink.Put(feature, account);
    sink.Close(account);
    return WithoutFolder(AccountText(account));
  }

  [[nodiscard]] static std::unique_ptr<OutputFiles> Outputs(bool overwrite = false) {
    return std::make_unique<OutputFiles>(overwrite);
  }
  [[nodiscard]] std::string Mif() const { return ReadWhole(folder_ / "out.mif"); }
  [[nodiscard]] std::string Mid() const { return ReadWhole(folder_ / "out.mid"); }
  [[nodiscard]] std::string MifHeader() const { return Mif().substr(0, Mif().find("Data\n")); }
  [[nodiscard]] std::string MifData() const { return Mif().substr(Mif().find("Data\n") + 6); }

 private:
  std::string WithoutFolder(std::string text) const {
    const std::string folder = folder_.Path().string() + "/";
    for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder)) {
      text.erase(at, folder.size());
    }
    return text;
  }

  ScratchFolder folder_;
};

}  // namespace App
