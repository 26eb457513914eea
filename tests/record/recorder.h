/// \file
/// The recorder: writes what people see of the program as texts, one thing to the line. record.py runs it and compares.
#pragma once

#include <cstdarg>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace moistair::record {

/// Two decimals, and never "-0.00".
inline std::string decimals(double number) {
  char text[40];
  std::snprintf(text, sizeof text, "%.2f", number);
  return text == std::string("-0.00") ? "0.00" : text;
}

/// One recorded file.
inline void write(const std::filesystem::path& folder, const std::string& name, const std::string& text) {
  std::ofstream(folder / (name + ".txt"), std::ios::binary) << text;
}

void sheets(const std::filesystem::path& folder);
void windows(const std::filesystem::path& folder);
/// The sequences from `first` on; in full, or a digest of each.
void traces(const std::filesystem::path& folder, int first, int count, bool full);

}  // namespace moistair::record
