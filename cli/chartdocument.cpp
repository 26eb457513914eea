#include "cli/chartdocument.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <map>
#include <utility>
#include <vector>

#include "advice/remark.h"
#include "cli/fault.h"
#include "cli/picture.h"
#include "cli/properties.h"
#include "model/documentfile.h"
#include "model/exactentry.h"
#include "model/table.h"

namespace moistair {

namespace {

/// A chart as the options ask for it, before anything is added.
Document newChart(const ChartDocumentOptions& options) {
  Document document;
  document.pressure = pressureOf(options.pressure);
  const ChartLimits limits = limitsOf(options.limits);
  document.chartState = chartStateOf(limits);
  document.entries.push_back({{limits, document.pressure}, DrawnChart{options.type}});
  return document;
}

std::string contentOf(Input& input) {
  std::string content = input.content(largestdocument);
  if (content.size() > largestdocument) throw failure(input.name() + ": the document is larger than 64 MB, the limit");
  return content;
}

/// A document from a file, on the limits and with the type that the options ask for.
Document opened(Input& input, const ChartDocumentOptions& options) {
  for (const CLI::Option* pressure : options.pressure.options) {
    if (pressure->count() > 0) throw badUsage(pressure->get_name() + ": a document stands for its own pressure");
  }
  Result<ReadDocument> read = readDocument(contentOf(input));
  if (!read) throw failure(input.name() + ": " + read.error().text());
  Document& document = read->document;
  for (const CLI::Option* option : {options.limits.option, options.typeOption}) {
    if (option->count() > 0 && lastChart(document) == nullptr) {
      throw failure(input.name() + ": there is no chart in it for " + option->get_name());
    }
  }
  if (options.limits.option->count() > 0) changeLimits(document, limitsOf(options.limits));
  for (Entry& entry : document.entries) {
    auto* chart = std::get_if<DrawnChart>(&entry.content);
    if (chart != nullptr && options.typeOption->count() > 0) chart->type = options.type;
    auto exact = options.exact.exact ? exactEntry(entry) : std::nullopt;
    if (exact) entry = std::move(*exact);
  }
  return std::move(document);
}

/// What is outside the limits that were asked for is reported, and the rest goes on.
void warnLeftOut(const std::vector<LeftOut>& leftOut, const Input& input) {
  for (const LeftOut& left : leftOut) {
    say(input.name() + ": " + captionOf(left.entry) + ": " + left.reason);
  }
}

/// Warns of all states that visibly miss something.
void judge(const Document& document, const ExactOptions& options) {
  for (const TableRow& row : tableRows(document)) {
    if (!row.note.empty()) continue;  // not on this chart
    const std::string name = row.kind + (row.identification.empty() ? "" : " ") + row.identification;
    warnOrFail(name, remarkOn(row.missed, row.pressure, row.mixture).words, options);
  }
}

void addEntries(Document& document, ChartCanvas& canvas, WindowSize window, const CLI::App& command,
                const ChartDocumentOptions& options) {
  std::map<const CLI::Option*, std::size_t> done;
  for (const CLI::Option* option : command.parse_order()) {
    const auto found = options.entries.find(option);
    if (found == options.entries.end()) continue;
    const EntryOption& kind = *found->second;
    const std::string& value = option->results()[done[option]++];
    try {
      const Entry* chart = lastChart(document);
      if (chart == nullptr) throw failure("there is no chart to add it to");
      Entry entry = kind.make(chart->setting, window, value, options.exact);
      if (const char* message = draw(entry, canvas, window)) {
        throw failure(kind.outside != nullptr ? kind.outside : message);
      }
      document.entries.push_back(std::move(entry));
    } catch (const Fault& fault) {
      throw Fault(fault.code(), std::string(kind.option) + " " + value + ": " + fault.what());
    }
  }
}

CLI::Option* addType(CLI::App& command, ChartType& type) {
  static const std::map<std::string, ChartType> names = {{"standard", ChartType::standard},
                                                         {"blank", ChartType::blank}};
  const auto choose = [&type](const std::string& name) { type = names.at(name); };
  return command
      .add_option_function<std::string>("--type", choose,
                                        "with its families of lines or without; standard if not given")
      ->check(CLI::IsMember({"standard", "blank"}))
      ->type_name("TYPE");
}

}  // namespace

ChartDocument begunDocument(const ChartDocumentOptions& options) {
  ChartDocument begun;
  if (options.from == "-" && options.system.file == "-") {
    throw badUsage("the document and the steps cannot both be standard input");
  }
  if (options.fromOption->count() > 0) begun.input = std::make_unique<Input>(options.from);
  begun.document = begun.input ? opened(*begun.input, options) : newChart(options);
  return begun;
}

void completeDocument(ChartDocument& begun, const std::vector<LeftOut>& leftOut, ChartCanvas& canvas, WindowSize window,
                      const CLI::App& command, const ChartDocumentOptions& options) {
  addEntries(begun.document, canvas, window, command, options);
  if (begun.input) warnLeftOut(leftOut, *begun.input);
  addSystem(begun.document, command, options.system);
  judge(begun.document, options.exact);
}

void addChartDocument(CLI::App& command, ChartDocumentOptions& options) {
  options.fromOption = command.add_option(
      "--from", options.from, "a .moistair file to begin with in place of a new chart; - for standard input");
  options.fromOption->type_name("FILE");
  options.typeOption = addType(command, options.type);
  addLimits(command, options.limits,
            options.limits.sheet ? "what the chart shows, in whole degrees and thousandths; 0,120,0,0.030 if not given"
                                 : "what the chart shows; 0,120,0,0.030 if not given");
  for (const EntryOption& entry : entryOptions) {
    CLI::Option* option = command.add_option(
        entry.option, [](const CLI::results_t&) { return true; }, entry.description);
    option->take_all()->allow_extra_args(false)->type_name(entry.valueName);
    option->group("Lines and points (any number of each, drawn in the order given)");
    options.entries[option] = &entry;
  }
  addSystemOptions(command, options.system);
  addPressure(command, options.pressure);
  addExact(command, options.exact);
  addStrict(command, options.exact);
}

PictureSize pixelsOf(const std::string& text) {
  const auto parts = splitAt(text, 'x');
  const auto side = [](std::string_view part) {
    const double number = strictNumber(part);
    return number >= 1 && number <= 10000 && number == std::floor(number) ? static_cast<int>(number) : 0;
  };
  const PictureSize size = parts.size() == 2 ? PictureSize{side(parts[0]), side(parts[1])} : PictureSize{0, 0};
  if (size.width == 0 || size.height == 0) {
    throw badUsage("size must be two whole numbers from 1 to 10000 such as 1366x768");
  }
  return size;
}

double scaleOf(const std::string& text, bool pixels, double width, double height) {
  constexpr double mostPixels = 100e6;
  const double scale = numberOf(text, "scale");
  if (!pixels && scale != 1) throw badUsage("scale is for .png and .bmp; the others are sharp at any size");
  if (!(scale >= 0.1 && scale <= 10)) throw badUsage("scale must be from 0.1 to 10");
  if (pixels && width * scale * height * scale > mostPixels) {
    throw badUsage("a picture of more than 100 million pixels is too large");
  }
  if (pixels && std::min(width, height) * scale < 0.5) throw badUsage("a picture of no pixels is too small");
  return scale;
}

}  // namespace moistair
