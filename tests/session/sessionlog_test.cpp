#include "session/sessionlog.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <iterator>

#include "engine/moistair.h"
#include "engine/openfinders.h"
#include "engine/resolver.h"
#include "session/pointreport.h"

using namespace moistair;

namespace {

namespace fs = std::filesystem;

class SessionLogTest : public testing::Test {
protected:
  ~SessionLogTest() override { fs::remove_all(folder); }

  static std::string bytesof(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  static fs::path newfolder() {
    std::string name = (fs::temp_directory_path() / "moistair-log-XXXXXX").string();
    return ::mkdtemp(name.data());
  }

  const fs::path folder = newfolder();
  const SessionLog log{folder / "temp.txt"};
};

/// For as long as it lives no file may grow beyond so many bytes: the disk is full.
class FullDisk {
public:
  explicit FullDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &former_);
    const rlimit limit{bytes, former_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &former_);
    std::signal(SIGXFSZ, handler_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

private:
  rlimit former_{};
  void (*handler_)(int);
};

}  // namespace

TEST_F(SessionLogTest, FirstRecordOfASessionByteForByte) {
  SolverFields fields;
  const StatePoint point =
      resolvepair(PropertyKind::db, "75", PropertyKind::wb, "62.5", defaultpressure, openrangefinders(), fields).point;
  ASSERT_TRUE(log.newlog());
  ASSERT_TRUE(log.append(pointrecord(fillreport(point, "A", {}))));
  EXPECT_EQ(bytesof(log.path()),
            "\r\n"
            "-------------------------\r\n"
            "Point Id                                                A\r\n"
            "Atmos. pr (in Hg)                                       29.92126\r\n"
            "Dry bulb temp (Deg F)                                   75.0000000\r\n"
            "Wet bulb temp (Deg F)                                   62.5000000\r\n"
            "Relative humidity (%)                                   50.3032182\r\n"
            "Specific enthalpy (btu/lb)                              28.1695563\r\n"
            "Specific volume (cuf/lb)                                13.6751968\r\n"
            "Humidity ratio (lb/lb of air)                           .0092932\r\n"
            "Dew point (Deg F)                                       55.2457239\r\n"
            "Vapor pressure (In Hg)                                  .4404820\r\n"
            "----------------------------\r\n");
}

TEST_F(SessionLogTest, BlocksFollowEachOtherInOneByteACharacter) {
  ASSERT_TRUE(log.newlog());
  for (int i = 0; i < 2; ++i) ASSERT_TRUE(log.append({"K\u00FChler \u20AC", "a\r\nb"}));
  EXPECT_EQ(bytesof(log.path()), "\r\nK\xFChler ?\r\na??b\r\nK\xFChler ?\r\na??b\r\n");
  EXPECT_EQ(log.read(), "\r\nK\u00FChler ?\r\na??b\r\nK\u00FChler ?\r\na??b\r\n");
  ASSERT_TRUE(log.newlog());
  EXPECT_EQ(bytesof(log.path()), "\r\n") << "an earlier run's log is emptied";
}

TEST_F(SessionLogTest, AVanishedLogIsMadeAnewWithoutTheEmptyLine) {
  ASSERT_TRUE(log.newlog());
  ASSERT_TRUE(log.remove());
  EXPECT_FALSE(fs::exists(log.path()));
  EXPECT_FALSE(log.read().has_value());
  EXPECT_FALSE(log.copyto(folder / "copy.txt"));
  EXPECT_FALSE(fs::exists(folder / "copy.txt"));
  EXPECT_TRUE(log.remove()) << "gone already is gone";
  ASSERT_TRUE(log.append({"a"}));
  EXPECT_EQ(bytesof(log.path()), "a\r\n");
}

TEST_F(SessionLogTest, AFullDiskLeavesTheEarlierBytes) {
  ASSERT_TRUE(log.newlog());
  ASSERT_TRUE(log.append({"first"}));
  const SessionLog other(folder / "other.txt");
  {
    const FullDisk full(20);
    EXPECT_FALSE(log.append({"second", "third", "fourth"}));
    EXPECT_FALSE(other.append({std::string(30, 'x')}));
  }
  EXPECT_EQ(bytesof(log.path()), "\r\nfirst\r\n");
  EXPECT_FALSE(fs::exists(other.path())) << "a file that a failed append has made is taken back";
  EXPECT_TRUE(log.append({"second"}));
}

TEST_F(SessionLogTest, WhatCannotBeAFileFailsQuietly) {
  fs::create_directory(folder / "folder");
  const struct {
    const char* name;
    fs::path path;
  } rows[] = {
      {"a folder", folder / "folder"},
      {"in a folder that is not there", folder / "nowhere" / "temp.txt"},
      {"a full device", "/dev/full"},
      {"no name", ""},
  };
  ASSERT_TRUE(log.newlog());
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const SessionLog bad(row.path);
    EXPECT_FALSE(bad.newlog());
    EXPECT_FALSE(bad.append({"a"}));
    EXPECT_FALSE(log.copyto(row.path));
  }
  EXPECT_FALSE(SessionLog(folder / "folder").read().has_value());
}

TEST_F(SessionLogTest, ACopyReplacesAndTheLogStays) {
  const fs::path copy = folder / "copy.txt";
  ASSERT_TRUE(log.append({"first"}));
  std::ofstream(copy) << "something longer than the log";
  EXPECT_TRUE(log.copyto(copy));
  ASSERT_TRUE(log.append({"second"}));
  EXPECT_EQ(bytesof(copy), "first\r\n");
}

TEST_F(SessionLogTest, ACopyOntoItselfChangesNothing) {
  ASSERT_TRUE(log.append({"first"}));
  fs::create_symlink(log.path(), folder / "symbolic");
  fs::create_hard_link(log.path(), folder / "hard");
  const struct {
    const char* name;
    fs::path path;
  } rows[] = {
      {"another way there", folder / "." / "temp.txt"},
      {"symbolic link", folder / "symbolic"},
      {"hard link", folder / "hard"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_TRUE(log.copyto(row.path));
    EXPECT_EQ(bytesof(log.path()), "first\r\n");
  }
}
