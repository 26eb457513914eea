#include "log/sessionlog.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <functional>

#include "engine/moistair.h"
#include "engine/openfinders.h"
#include "engine/resolver.h"
#include "log/earliersessions.h"
#include "model/pointreport.h"
#include "support/temporaryfolder.h"
#include "tests/faults/faults.h"

using namespace moistair;
using namespace moistair::sessiontest;

namespace {

class SessionLogTest : public testing::Test {
protected:
  /// What the earlier sessions have left, the latest first.
  std::vector<std::string> kept() const {
    std::vector<std::string> texts;
    for (const EarlierSession& session : earlierSessions(places.sessions)) texts.push_back(bytesOf(session.file));
    return texts;
  }

  const TemporaryFolder place;
  const fs::path folder = place.path;
  const LogPlaces places{{folder / "beside", folder / "state"}, folder / "state" / "sessions"};
  const fs::path first = folder / "beside" / "temp.txt";
  SessionLog log = [this] {
    fs::create_directory(folder / "beside");
    fs::create_directory(folder / "state");
    return SessionLog(places);
  }();
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
      resolvePair(PropertyKind::db, "75", PropertyKind::wb, "62.5", defaultPressure, openRangeFinders(), fields).point;
  ASSERT_TRUE(log.newLog());
  ASSERT_TRUE(log.append(pointRecord(fillReport(point, "A", {}))));
  EXPECT_EQ(bytesOf(log.path()),
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

TEST_F(SessionLogTest, IsForTheUserAlone) {
  const auto mode = [&] { return fs::status(log.path()).permissions(); };
  make(first, "");
  fs::permissions(first, fs::perms(0644));
  ASSERT_TRUE(log.newLog());
  EXPECT_EQ(mode(), fs::perms(0600)) << "one that was there";
  fs::remove(first);
  ASSERT_TRUE(log.append({"a"}));
  EXPECT_EQ(mode(), fs::perms(0600));
}

TEST_F(SessionLogTest, TooLargeALogIsNotShown) {
  ASSERT_TRUE(log.newLog());
  fs::resize_file(first, largestshown + 1);
  EXPECT_EQ(log.read().error().words, "It is larger than 8 MB, the limit.");
}

TEST_F(SessionLogTest, BlocksFollowEachOtherInOneByteACharacter) {
  ASSERT_TRUE(log.newLog());
  for (int i = 0; i < 2; ++i) ASSERT_TRUE(log.append({"K\u00FChler \u20AC", "a\r\nb"}));
  EXPECT_EQ(bytesOf(log.path()), "\r\nK\xFChler ?\r\na  b\r\nK\xFChler ?\r\na  b\r\n");
  EXPECT_EQ(*log.read(), "\r\nK\u00FChler ?\r\na  b\r\nK\u00FChler ?\r\na  b\r\n");
  ASSERT_TRUE(log.newLog());
  EXPECT_EQ(bytesOf(log.path()), "\r\n") << "an earlier run's log is emptied";
}

TEST_F(SessionLogTest, AVanishedLogIsMadeAnewWithoutTheEmptyLine) {
  ASSERT_TRUE(log.newLog());
  fs::remove(log.path());
  EXPECT_EQ(log.read().error().words, "It is gone.");
  EXPECT_FALSE(log.copyTo(folder / "copy.txt"));
  EXPECT_FALSE(fs::exists(folder / "copy.txt"));
  ASSERT_TRUE(log.append({"a"}));
  EXPECT_EQ(bytesOf(log.path()), "a\r\n");
  fs::rename(log.path(), folder / "edited");
  fs::copy(folder / "edited", log.path());
  ASSERT_TRUE(log.append({"b"})) << "put back by an editor";
  EXPECT_EQ(bytesOf(log.path()), "a\r\nb\r\n");
}

TEST_F(SessionLogTest, AFullDiskLeavesTheEarlierBytes) {
  ASSERT_TRUE(log.newLog());
  ASSERT_TRUE(log.append({"first"}));
  SessionLog other(places);
  {
    const FullDisk full(20);
    EXPECT_FALSE(log.append({"second", "third", "fourth"}));
    EXPECT_FALSE(other.append({std::string(30, 'x')}));
  }
  for (const char* call : {"write", "fsync"}) {
    faults::failFrom(call, 1);
    EXPECT_FALSE(log.append({"second"})) << call;
    faults::failFrom("", 0);
  }
  EXPECT_EQ(bytesOf(log.path()), "\r\nfirst\r\n");
  EXPECT_EQ(namesIn(folder / "beside").size(), 1U) << "a file that a failed append has made is taken back";
  EXPECT_TRUE(log.append({"second"}));
}

TEST_F(SessionLogTest, WhatIsNoPlainFileIsNotTouched) {
  const fs::path odd = folder / "beside" / "temp.txt";
  make(folder / "else", "else");
  const struct {
    const char* name;
    std::function<void()> put;
  } rows[] = {
      {"a folder", [&] { fs::create_directory(odd); }},
      {"a FIFO", [&] { ::mkfifo(odd.c_str(), 0600); }},
      {"a link", [&] { fs::create_symlink(folder / "else", odd); }},
      {"another file's second name", [&] { fs::create_hard_link(folder / "else", odd); }},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    row.put();
    const auto type = fs::symlink_status(odd).type();
    SessionLog elsewhere(places);
    ASSERT_TRUE(elsewhere.newLog());
    EXPECT_EQ(elsewhere.path(), folder / "state" / "temp.txt");
    EXPECT_TRUE(elsewhere.append({"a"}));
    EXPECT_TRUE(elsewhere.end());
    EXPECT_EQ(fs::symlink_status(odd).type(), type);
    EXPECT_EQ(bytesOf(folder / "else"), "else");
    fs::remove(odd);
  }
  EXPECT_EQ(kept().size(), 4U);
}

TEST_F(SessionLogTest, WithoutAPlaceAllFailsQuietly) {
  SessionLog bad(LogPlaces{{folder / "nowhere"}, folder / "nowhere" / "sessions"});
  EXPECT_FALSE(bad.newLog());
  EXPECT_FALSE(bad.append({"a"}));
  EXPECT_EQ(bad.read().error().words, "It is gone.");
  EXPECT_FALSE(bad.copyTo(folder / "copy.txt"));
  EXPECT_TRUE(bad.end());
  ASSERT_TRUE(log.newLog());
  EXPECT_FALSE(log.copyTo(folder)) << "a folder of that name";
}

TEST_F(SessionLogTest, TwoCopiesHaveALogEach) {
  ASSERT_TRUE(log.newLog());
  ASSERT_TRUE(log.append({"one"}));
  make(folder / "beside" / "temp-2.txt", "notes of the user's own");
  SessionLog second(places);
  ASSERT_TRUE(second.newLog());
  EXPECT_EQ(second.path(), folder / "beside" / "temp-3.txt");
  ASSERT_TRUE(second.append({"two"}));
  EXPECT_EQ(bytesOf(first), "\r\none\r\n");
  fs::remove(first);
  SessionLog third(places);
  ASSERT_TRUE(third.newLog()) << "in the place of the first log, which was removed from outside";
  ASSERT_TRUE(log.append({"more"}));
  EXPECT_NE(log.path(), third.path());
  for (SessionLog* ending : {&second, &third, &log}) EXPECT_TRUE(ending->end());
  EXPECT_EQ(namesIn(folder / "beside"), std::vector<std::string>{"temp-2.txt"});
  EXPECT_EQ(kept().size(), 2U) << "the third has saved nothing";
}

TEST_F(SessionLogTest, WhatASessionSavedIsKeptAndTheLogGoes) {
  ASSERT_TRUE(log.newLog());
  EXPECT_TRUE(log.end());
  EXPECT_TRUE(kept().empty()) << "nothing was saved";
  for (int i = 0; i < 12; ++i) {
    ASSERT_TRUE(log.newLog());
    ASSERT_TRUE(log.append({std::to_string(i)}));
    ::timespec times[2] = {{0, UTIME_OMIT}, {1'700'000'000 + i * 3600, 0}};
    ::utimensat(AT_FDCWD, first.c_str(), times, 0);
    faults::failFrom("renameat2", i % 2);  // as if the sessions lay on another disk
    EXPECT_TRUE(log.end());
    faults::failFrom("", 0);
    EXPECT_FALSE(fs::exists(first));
  }
  ASSERT_EQ(kept().size(), keptSessions);
  EXPECT_EQ(kept().front(), "\r\n11\r\n");
  EXPECT_EQ(earlierSessions(places.sessions).front().lastSaved, 1'700'000'000 + 11 * 3600);
  EXPECT_EQ(kept().back(), "\r\n2\r\n");
}

TEST_F(SessionLogTest, ARunThatCouldNotEndLosesNothing) {
  make(first, "\r\ncrashed\r\n");
  make(folder / "beside" / "temp-2.txt", "\r\n----\r\n");
  make(folder / "state" / "temp.txt", "\r\n");
  ASSERT_TRUE(log.newLog());
  EXPECT_EQ(bytesOf(first), "\r\n");
  EXPECT_EQ(kept().size(), 2U);
  EXPECT_EQ(namesIn(folder / "beside"), std::vector<std::string>{"temp.txt"});
  EXPECT_EQ(namesIn(folder / "state"), std::vector<std::string>{"sessions"});
}

TEST_F(SessionLogTest, WhatCannotBeKeptStays) {
  make(places.sessions, "a file where the folder should be");
  make(first, "\r\ncrashed\r\n");
  ASSERT_TRUE(log.newLog());
  EXPECT_EQ(log.path(), folder / "beside" / "temp-2.txt");
  ASSERT_TRUE(log.append({"a"}));
  EXPECT_FALSE(log.end());
  EXPECT_EQ(bytesOf(first), "\r\ncrashed\r\n");
  EXPECT_EQ(bytesOf(log.path()), "\r\na\r\n");
}

TEST_F(SessionLogTest, CopiesReplaceAndTheLogStays) {
  const fs::path copy = folder / "copy.txt";
  ASSERT_TRUE(log.append({"first"}));
  make(copy, "something longer than the log");
  EXPECT_TRUE(log.copyTo(copy));
  ASSERT_TRUE(log.append({"second"}));
  EXPECT_EQ(bytesOf(copy), "first\r\n");
}

TEST_F(SessionLogTest, ACopyOntoItselfChangesNothing) {
  ASSERT_TRUE(log.append({"first"}));
  fs::create_symlink(log.path(), folder / "symbolic");
  for (const fs::path& path : {folder / "beside" / "." / "temp.txt", folder / "symbolic"}) {
    SCOPED_TRACE(path);
    EXPECT_TRUE(log.copyTo(path));
    EXPECT_EQ(bytesOf(log.path()), "first\r\n");
    EXPECT_FALSE(fs::is_symlink(log.path()));
  }
}

TEST(LogPlacesTest, FollowTheUserAndThePlaceOfTheProgram) {
  const TemporaryFolder place;
  const fs::path home = place.path / "home";
  const fs::path tree = place.path / "tree" / "bin";
  const fs::path installed = place.path / "prefix" / "bin";
  for (const fs::path& path :
       {home, tree, installed, place.path / "prefix" / "share" / "applications" / "moistair.desktop"}) {
    fs::create_directories(path);
  }
  const std::string elsewhere = place.path / "state";
  const struct {
    const char* name;
    const char* variable;  ///< XDG_STATE_HOME
    fs::path program;
    std::vector<fs::path> folders;
  } rows[] = {
      {"in a folder of the user's", nullptr, tree, {tree, home / ".local/state/moistair"}},
      {"installed for one user", nullptr, installed, {home / ".local/state/moistair"}},
      {"for all users", nullptr, "/usr/bin", {home / ".local/state/moistair"}},
      {"state elsewhere", elsewhere.c_str(), "/usr/bin", {place.path / "state" / "moistair"}},
      {"state that is no path", "state", "/usr/bin", {home / ".local/state/moistair"}},
      {"no state", "", "/usr/bin", {home / ".local/state/moistair"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Environment atHome("HOME", home.c_str());
    const Environment state("XDG_STATE_HOME", row.variable);
    const LogPlaces places = logPlaces(row.program);
    EXPECT_EQ(places.folders, row.folders);
    EXPECT_EQ(places.sessions, row.folders.back() / "sessions");
    EXPECT_TRUE(fs::is_directory(row.folders.back()));
  }
}
