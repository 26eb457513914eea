/// \file
/// Makes the page "Validation" of the manual: how good the numbers are, worked out again by every build.
///
///   moistair_validation SOURCE OUTPUT
///
/// SOURCE is this folder, with the published figures and the text of the page; OUTPUT gets the page, its pictures, and
/// differences.csv with every difference on it, which the tests hold against recorded-differences.csv.
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>

#include "page.h"
#include "pictures.h"

using namespace moistair;
using namespace moistair::validation;

namespace {

std::string contentOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  return {std::istreambuf_iterator<char>(file), {}};
}

void write(const std::filesystem::path& path, const std::string& content) {
  std::ofstream file(path, std::ios::binary);
  file << content;
  file.close();
  if (!file) throw std::runtime_error("cannot write " + path.string());
}

}  // namespace

int main(int argc, char** argv) {
  try {
    if (argc != 3) throw std::runtime_error("usage: moistair_validation SOURCE OUTPUT");
    const std::filesystem::path source = argv[1];
    const std::filesystem::path output = argv[2];
    const Sheet sheet = worksheet(contentOf(source / "published-values.csv"));
    std::filesystem::create_directories(output);
    write(output / "validation.html", page(contentOf(source / "validation.html.in"), sheet));
    write(output / "validation-published.svg", differencePicture(sheet.published));
    write(output / "validation-freezing.svg", freezingPicture(sheet.atm));
    write(output / "validation-pairs.svg", pairsPicture(sheet.pairs));
    write(output / "differences.csv", differences(sheet));
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "moistair_validation: " << error.what() << '\n';
    return 1;
  }
}
