/// \file
/// Bytes in and out of the headless tool.
///
/// Unbuffered on purpose: the commands hand over whole blocks, and every failure of the system (a full disk, a reader
/// that closed the pipe) is seen at once and becomes a `Fault` that names the file. `main` ignores SIGPIPE, or a closed
/// pipe would end the process before it could say so.
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

#include "files/descriptor.h"
#include "files/outputfile.h"

namespace moistair {

class Input {
public:
  /// Standard input for an empty path and for "-". Bad usage for a file that cannot be opened.
  explicit Input(const std::string& path);

  /// A text in place of a file, under a name for messages.
  static Input holding(const std::string& name, std::string_view text);

  /// Appends what can be read at once, at most `size` bytes; false at the end.
  bool read(std::string& to, std::size_t size);

  /// All that is left of it, or the first of it if it is longer than so many bytes.
  std::string content(std::size_t longest = std::numeric_limits<std::size_t>::max());

  const std::string& name() const { return name_; }
  int descriptor() const { return descriptor_.number(); }

private:
  Input(std::string name, int descriptor) : name_(std::move(name)), descriptor_(descriptor) {}

  std::string name_;
  Descriptor descriptor_;
};

class Output {
public:
  /// Standard output for an empty path and for "-"; a file takes its place when it is closed. It may not be the one
  /// that is being read: bad usage, as for a file that cannot be opened.
  explicit Output(const std::string& path, const Input* reading = nullptr);

  void write(std::string_view text);
  /// The last chance to hear of a failure; writes nothing.
  void close();

  bool isTerminal() const;

private:
  /// Throws for what has gone wrong with the file.
  void check() const;

  std::string name_;
  OutputFile file_;
};

/// The whole of a short result to standard output.
void writeResult(std::string_view text);

}  // namespace moistair
