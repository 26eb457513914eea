#include "cli/fault.h"

#include <algorithm>
#include <iostream>

namespace moistair {

void say(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 127; }, '?');
  std::cerr << "moistair-cli: " << text << std::endl;
}

}  // namespace moistair
