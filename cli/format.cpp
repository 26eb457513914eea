#include "cli/format.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>

namespace moistair {

void addFormat(CLI::App& command, Format& format) {
  static const std::map<std::string, Format> names = {
      {"text", Format::text}, {"json", Format::json}, {"csv", Format::csv}};
  const auto choose = [&format](const std::string& name) { format = names.at(name); };
  command.add_option_function<std::string>("--format", choose, "text, json or csv; text if not given")
      ->check(CLI::IsMember({"text", "json", "csv"}))
      ->type_name("FORMAT");
}

void appendAligned(std::string& out, const std::string& text, std::size_t column) {
  const std::size_t before = std::min(text.find('.'), text.size());
  out.append(column > before ? column - before : 1, ' ');
  out += text;
}

void appendPadded(std::string& out, const std::string& text, std::size_t width) {
  out += text;
  if (text.size() < width) out.append(width - text.size(), ' ');
}

void appendColumns(std::string& out, const std::string& caption, const std::vector<std::string>& cells) {
  constexpr std::size_t captionWidth = 30;
  constexpr std::size_t columnWidth = 18;
  std::string line;
  appendPadded(line, caption, captionWidth);
  for (const std::string& cell : cells) appendPadded(line, cell, columnWidth);
  out.append(line, 0, line.find_last_not_of(' ') + 1);
  out += '\n';
}

}  // namespace moistair
