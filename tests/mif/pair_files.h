#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>

// A folder of its own for each test, and the files of pairs in it.
class PairFiles : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = (std::filesystem::temp_directory_path() / "pelor-pair-XXXXXX").string();
    ASSERT_NE(::mkdtemp(name.data()), nullptr);
    folder_ = name;
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  [[nodiscard]] std::string Path(const std::string& name) const { return (folder_ / name).string(); }
  void Put(const std::string& name, const std::string& bytes) const {
    std::ofstream(Path(name), std::ios_base::binary) << bytes;
  }
  void PutPair(const std::string& mif, const std::string& mid) const {
    Put("pair.mif", mif);
    Put("pair.mid", mid);
  }
  [[nodiscard]] std::string Get(const std::string& name) const {
    std::ifstream in(Path(name), std::ios_base::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
  }

 private:
  std::filesystem::path folder_;
};
