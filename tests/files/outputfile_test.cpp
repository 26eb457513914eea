#include "files/outputfile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <functional>
#include <thread>

#include "support/temporaryfolder.h"
#include "tests/faults/faults.h"

using namespace moistair;
using namespace moistair::sessiontest;

namespace {

mode_t modeOf(const fs::path& path) {
  struct stat facts {};
  ::stat(path.c_str(), &facts);
  return facts.st_mode & 07777;
}

/// An ordinary user for as long as it lives, in tests that root runs: root may write everywhere.
class OrdinaryUser {
public:
  OrdinaryUser() : former_(::geteuid()) {
    if (former_ == 0 && ::seteuid(65534) != 0) throw std::runtime_error("no other user");
  }
  ~OrdinaryUser() { (void)!::seteuid(former_); }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
  uid_t former_;
};

Error notOpened(int number) { return {ErrorCode::notOpened, {}, std::strerror(number)}; }

class OutputFileTest : public testing::Test {
protected:
  void SetUp() override { fs::permissions(place.path, fs::perms(0755)); }

  const TemporaryFolder place;
  const fs::path folder = place.path;
  const fs::path target = folder / "target";
};

}  // namespace

TEST_F(OutputFileTest, LinksStayAndWhatTheyLeadToIsWritten) {
  fs::create_directory(folder / "below");
  for (const fs::path& old : {folder / "below" / "old", folder / "made"}) make(old, "old");
  fs::create_symlink("below", folder / "around");
  const struct {
    const char* name;
    const char* leadsTo;
    const char* written;
  } rows[] = {
      {"to a file", "below/old", "below/old"},
      {"to another link's folder and back out of it", "around/../made", "made"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    fs::create_symlink(row.leadsTo, target);
    fs::create_symlink(target, folder / "second");
    EXPECT_TRUE(writeFile(folder / "second", "new"));
    EXPECT_EQ(bytesOf(folder / row.written), "new");
    EXPECT_TRUE(fs::is_symlink(target) && fs::is_symlink(folder / "second"));
    fs::remove(target);
    fs::remove(folder / "second");
  }
}

TEST_F(OutputFileTest, WhatCannotBeWrittenIsToldBeforehand) {
  fs::create_symlink("loop", folder / "loop");
  fs::create_symlink("new", folder / "dangling");
  ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
  make(folder / "file", "old");
  const struct {
    const char* name;
    fs::path path;
    Error error;
  } rows[] = {
      {"no name", "", notOpened(ENOENT)},
      {"no such folder", folder / "nowhere" / "a", notOpened(ENOENT)},
      {"a file for a folder", folder / "file" / "a", notOpened(ENOTDIR)},
      {"a folder", folder, notOpened(EISDIR)},
      {"a folder that is not there", folder / "new" / "", notOpened(EISDIR)},
      {"a loop of links", folder / "loop", notOpened(ELOOP)},
      {"a link to nothing",
       folder / "dangling",
       {ErrorCode::notOpened, {}, "It is a link to a file that does not exist"}},
      {"a FIFO that nobody reads", folder / "fifo", notOpened(ENXIO)},
      {"too long", folder / std::string(300, 'x'), notOpened(ENAMETOOLONG)},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Outcome written = writeFile(row.path, "new");
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error(), row.error);
  }
  EXPECT_EQ(namesIn(folder), (std::vector<std::string>{"dangling", "fifo", "file", "loop"}));
}

TEST_F(OutputFileTest, PermissionsStay) {
  const mode_t mask = ::umask(027);
  EXPECT_TRUE(writeFile(target, "new"));
  ::umask(mask);
  EXPECT_EQ(modeOf(target), 0640U) << "those of a new file are the user's affair";
  fs::permissions(target, fs::perms(0604));
  EXPECT_TRUE(writeFile(target, "newer"));
  EXPECT_EQ(modeOf(target), 0604U);
}

TEST_F(OutputFileTest, AUsersFileInAFolderThatIsClosed) {
  const fs::path shut = folder / "shut";
  fs::create_directory(shut);
  make(shut / "open", "something longer");
  make(shut / "shut", "old");
  make(target, "old");
  fs::permissions(shut / "open", fs::perms(0666));
  fs::permissions(shut / "shut", fs::perms(0444));
  fs::permissions(target, fs::perms(0444));
  fs::permissions(shut, fs::perms(0555));
  {
    const OrdinaryUser user;
    EXPECT_TRUE(writeFile(shut / "open", "new"));
    EXPECT_EQ(writeFile(shut / "shut", "new").error(), notOpened(EACCES));
    EXPECT_EQ(writeFile(shut / "absent", "new").error(), notOpened(EACCES));
    EXPECT_EQ(writeFile(target, "new").error(), notOpened(EACCES)) << "protected, though its folder may be open";
  }
  EXPECT_EQ(bytesOf(shut / "open"), "new");
  EXPECT_EQ(namesIn(shut), (std::vector<std::string>{"open", "shut"}));
  fs::permissions(shut, fs::perms(0755));
}

TEST_F(OutputFileTest, CopyingOverFailsWithoutMixingOldAndNew) {
  const fs::path shut = folder / "shut";
  fs::create_directory(shut);
  make(shut / "file", "");
  fs::permissions(shut / "file", fs::perms(0666));
  fs::permissions(shut, fs::perms(0555));
  const std::string chunks(150000, 'o'), some = "old";
  for (const char* call : {"write", "fallocate", "ftruncate", "fsync"}) {
    for (const std::string& old : {some, chunks}) {
      const std::string fresh = old.size() > some.size() ? "new" : std::string(150000, 'n');
      bool failed = true;
      for (int n = 1; failed; ++n) {
        SCOPED_TRACE(std::string(call) + " " + std::to_string(n) + ", " + std::to_string(old.size()) + " bytes");
        make(shut / "file", old);
        const OrdinaryUser user;
        faults::failFrom(call, n, 1);
        const Outcome written = writeFile(shut / "file", fresh);
        faults::failFrom("", 0);
        failed = !written;
        const std::string left = bytesOf(shut / "file");
        EXPECT_TRUE(left == fresh || (failed && left == old)) << left.size() << " bytes are there";
        ASSERT_LT(n, 20);
      }
    }
  }
  fs::permissions(shut, fs::perms(0755));
}

TEST_F(OutputFileTest, NamesOfOurOwnAreNeverFollowed) {
  make(folder / "else", "else");
  const struct {
    const char* name;
    std::function<void()> put;
  } rows[] = {
      {"a link", [&] { fs::create_symlink("else", target); }},
      {"a link to nothing", [&] { fs::create_symlink("nowhere", target); }},
      {"another file's second name", [&] { fs::create_hard_link(folder / "else", target); }},
      {"a FIFO", [&] { ::mkfifo(target.c_str(), 0600); }},
      {"a file for all", [&] { make(target, "old"), fs::permissions(target, fs::perms(0644)); }},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    row.put();
    EXPECT_TRUE(writeOwnFile(target, "new"));
    EXPECT_EQ(modeOf(target), 0600U);
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(target)));
    EXPECT_EQ(bytesOf(target) + bytesOf(folder / "else"), "newelse");
    fs::remove(target);
  }
  EXPECT_EQ(namesIn(folder), std::vector<std::string>{"else"});
}

TEST_F(OutputFileTest, TheKernelDecidesWhichLinksAreFollowed) {
  make(folder / "else", "else");
  fs::create_symlink("else", target);
  faults::failFrom("follow", 1);  // as another user's link in a shared folder, where links are protected
  const Outcome written = writeFile(target, "new");
  faults::failFrom("", 0);
  ASSERT_FALSE(written);
  EXPECT_EQ(written.error(), notOpened(EACCES));
  EXPECT_EQ(bytesOf(folder / "else"), "else");
}

TEST_F(OutputFileTest, FilesOfDeadProcessesAreRemoved) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(0);
  ::waitpid(child, nullptr, 0);
  const std::string dead = ".moistair-" + std::to_string(child) + "-",
                    alive = ".moistair-" + std::to_string(::getpid());
  for (const std::string& name : {dead + "0", dead + "1", alive + "-0", std::string(".moistair-x-0"), dead.substr(1)}) {
    make(folder / name, "left");
  }
  const Descriptor locked(::open((folder / (dead + "1")).c_str(), O_RDONLY | O_CLOEXEC));
  ASSERT_EQ(::flock(locked.number(), LOCK_EX), 0);
  fs::create_symlink("else", folder / (dead + "2"));
  removeAbandoned(folder);
  std::vector<std::string> left = {dead + "1", dead + "2", alive + "-0", ".moistair-x-0", dead.substr(1)};
  std::sort(left.begin(), left.end());
  EXPECT_EQ(namesIn(folder), left);
}

TEST_F(OutputFileTest, WhatIsNoFileIsWrittenInto) {
  ASSERT_EQ(::mkfifo(target.c_str(), 0600), 0);
  std::string read;
  std::thread reader([&] { read = bytesOf(target); });
  {
    OutputFile file(target);
    EXPECT_TRUE(file.write("through") && file.commit());
  }
  reader.join();
  EXPECT_EQ(read, "through");
  EXPECT_TRUE(fs::is_fifo(target));
  fs::create_symlink("/dev/full", folder / "device");
  const Error full{ErrorCode::notWritten, {}, "No space left on device"};
  EXPECT_EQ(writeFile(folder / "device", "x").error(), full);
}

TEST_F(OutputFileTest, ADescriptorByItsNameGoesOnWhereItStands) {
  const Descriptor descriptor(::open(target.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
  OutputFile before = OutputFile::through(descriptor.number());
  EXPECT_TRUE(before.write("a") && before.commit());
  fs::create_symlink("/dev/fd/" + std::to_string(descriptor.number()), folder / "name");
  EXPECT_TRUE(writeFile(folder / "name", "b"));
  EXPECT_EQ(bytesOf(target), "ab");
}

TEST_F(OutputFileTest, NamesThatAreNoTextStayTwo) {
  EXPECT_TRUE(writeFile(folder / "a\xFF", "1"));
  EXPECT_TRUE(writeFile(folder / "a\xFE", "2"));
  EXPECT_EQ(namesIn(folder), (std::vector<std::string>{"a\xFE", "a\xFF"}));
  EXPECT_EQ(bytesOf(folder / "a\xFF"), "1");
}

TEST_F(OutputFileTest, OneThatIsGivenUpLeavesTheOldFileAlone) {
  make(target, "old");
  {
    OutputFile file(target);
    EXPECT_TRUE(file.write("new"));
  }
  EXPECT_EQ(bytesOf(target), "old");
  EXPECT_EQ(namesIn(folder).size(), 1U);
}
