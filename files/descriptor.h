/// \file
/// An open file of the system.
#pragma once

#include <unistd.h>

#include <utility>

namespace moistair {

/// A file descriptor, closed with its owner unless it is one of the standard three. Negative for none.
class Descriptor {
public:
  explicit Descriptor(int number = -1) : number_(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor(Descriptor&& other) noexcept : number_(other.release()) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() {
    if (number_ > STDERR_FILENO) ::close(number_);
  }

  int number() const { return number_; }
  bool isOpen() const { return number_ >= 0; }
  int release() { return std::exchange(number_, -1); }

private:
  int number_;
};

}  // namespace moistair
