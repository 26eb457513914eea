/// \file
/// The one way in which a file is written: pictures, tables, copies of the log, documents.
///
/// Who saves over a file must never lose both the old one and the new one. So a regular file, and one that is not there
/// yet, is written next to its place, brought to the disk and moved there when it is whole: a full disk, a kill or a
/// power failure leaves the old file or the new one, and no other file where the system can make one without a name.
/// The new file keeps the permissions of the old one. Where nothing can be put next to the old file, or where the new
/// one could not have its owner, it is collected elsewhere and copied into the old one at the end; a failure then puts
/// the old bytes back.
///
/// A name that the user chose may be a link: it stays, and the file that the kernel finds through it is written, so
/// that the kernel decides which links may be followed. A link to nothing is refused. Whatever is no regular file (a
/// FIFO, a device, a descriptor of this process by a name such as /dev/stdout) is written into and never replaced. A
/// name of the program's own is never followed: what is there is replaced. A name is bytes and is used as it is.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "files/descriptor.h"
#include "text/error.h"

struct stat;

namespace moistair {

/// What becomes of a FIFO that nobody reads.
enum class Reader {
  awaited,  ///< waits for one, as a command does
  present,  ///< fails at once if there is none, and soon if it does not read, as a window must
};

class OutputFile {
public:
  /// Opens what the name leads to; `outcome` tells whether that worked.
  explicit OutputFile(const std::filesystem::path& name, Reader reader = Reader::awaited);

  /// A file at a name of the program's own, for the user alone. Replaces what is there, a link included.
  static OutputFile own(const std::filesystem::path& name);

  /// Writes into what is open already; it stays open.
  static OutputFile through(int descriptor);

  OutputFile(OutputFile&&) noexcept = default;
  OutputFile& operator=(OutputFile&&) = delete;

  /// Without a `commit` the old file stays as it was.
  ~OutputFile();

  /// Appends; false from the first failure on.
  bool write(std::string_view bytes);

  /// The file takes its place. The last chance to hear of a failure.
  bool commit();

  /// Why it was not written, in words of the system where they do: "No space left on device". Its code tells a file
  /// that could not be opened from one that was not written to its end, and from one whose reader is gone.
  const Outcome& outcome() const { return outcome_; }

  /// Where the bytes go: what was opened, or a file that has not taken its place yet.
  int descriptor() const { return file_.number(); }

private:
  OutputFile() = default;
  void open(Reader reader);
  bool openNew();
  bool openSpecial(const struct stat& found, int number, Reader reader);
  bool findPlace(const Descriptor& found, const struct stat& former);
  bool openTemporary(const struct stat* former);
  bool openSpool();
  bool openFormer();
  bool replace();
  bool giveName();
  bool copyOver();
  void dropName();
  bool fail(int error, std::string words = {});

  std::filesystem::path name_;  ///< as given
  bool own_ = false;            ///< a name of the program's own
  Descriptor folder_;           ///< holds the file that is to be replaced or made
  std::string filename_;        ///< its name in there; empty where the bytes go into what is there
  std::string temporary_;       ///< name of the new file in the same folder, empty while it has none
  Descriptor file_;
  dev_t device_ = 0;  ///< of the file that was found, as its `node_`
  ino_t node_ = 0;
  Descriptor former_;  ///< the file to copy into, open only if it is not to be replaced
  Outcome outcome_;
};

/// A whole file at once, never waiting for a reader.
Outcome writeFile(const std::filesystem::path& name, std::string_view bytes);

/// The same at a name of the program's own.
Outcome writeOwnFile(const std::filesystem::path& name, std::string_view bytes);

/// Removes what processes of this user that are gone have left in a folder while they wrote files.
void removeAbandoned(const std::filesystem::path& folder);

}  // namespace moistair
