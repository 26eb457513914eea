/// \file
/// `moistair-cli chart -o chart.svg`: a chart as a file, without a window and without a display.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <future>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "chart/drawchart.h"
#include "chart/drawing.h"
#include "cli/chartentries.h"
#include "cli/command.h"
#include "cli/drawingjson.h"
#include "cli/fault.h"
#include "cli/limitsoption.h"
#include "cli/picture.h"
#include "cli/pressureoption.h"
#include "cli/properties.h"
#include "cli/stream.h"
#include "document/document.h"
#include "document/documentfile.h"

namespace moistair {

namespace {

struct ChartOptions {
  std::string output;
  std::string from;
  CLI::Option* fromoption = nullptr;
  ChartType type = ChartType::standard;
  CLI::Option* typeoption = nullptr;
  LimitsOption limits;
  std::string size = std::to_string(defaultwidth) + "x" + std::to_string(defaultheight);
  std::string scale = "1";
  PressureOption pressure;
  std::map<const CLI::Option*, const EntryOption*> entries;
};

/// What can be written as text: the drawing as data, and the document.
struct TextFormat {
  const char* ending;
  std::string (*text)(const Document&, const Drawing&, const WindowSize&);
};

constexpr std::array<TextFormat, 2> textformats = {{
    {".json",
     [](const Document&, const Drawing& drawing, const WindowSize& size) { return drawingjson(drawing, size); }},
    {documentending, [](const Document& document, const Drawing&, const WindowSize&) { return filetext(document); }},
}};

/// The kind of a file, told by the ending of its name: a picture or a text.
struct OutputFormat {
  std::optional<Painter> picture;
  const TextFormat* text = nullptr;
};

OutputFormat formatof(const std::string& path) {
  for (const TextFormat& text : textformats) {
    if (lowercase(path).ends_with(text.ending)) return {std::nullopt, &text};
  }
  const Painter painter = painterofname(path);
  if (painter.format != nullptr) return {painter, nullptr};
  throw badusage(path + ": the ending must be .svg .pdf .png .bmp .json or .moistair");
}

/// "1366x768" [pixels].
PictureSize pixelsof(const std::string& text) {
  const auto parts = splitat(text, 'x');
  const auto side = [](std::string_view part) {
    const double number = strictnumber(part);
    return number >= 1 && number <= 10000 && number == std::floor(number) ? static_cast<int>(number) : 0;
  };
  const PictureSize size = parts.size() == 2 ? PictureSize{side(parts[0]), side(parts[1])} : PictureSize{0, 0};
  if (size.width == 0 || size.height == 0) {
    throw badusage("size must be two whole numbers from 1 to 10000 such as 1366x768");
  }
  return size;
}

double scaleof(const std::string& text, bool pixels, PictureSize size) {
  constexpr double mostpixels = 100e6;
  const double scale = numberof(text, "scale");
  if (!pixels && scale != 1) throw badusage("scale is for .png and .bmp; the others are sharp at any size");
  if (!(scale >= 0.1 && scale <= 10)) throw badusage("scale must be from 0.1 to 10");
  if (pixels && size.width * scale * size.height * scale > mostpixels) {
    throw badusage("a picture of more than 100 million pixels is too large");
  }
  if (pixels && std::min(size.width, size.height) * scale < 0.5) throw badusage("a picture of no pixels is too small");
  return scale;
}

/// A chart as the options ask for it, before anything is added.
Document newchart(const ChartOptions& options) {
  Document document;
  document.pressure = pressureof(options.pressure);
  const ChartLimits limits = limitsof(options.limits);
  document.stand = standof(limits);
  document.entries.push_back({{limits, document.pressure}, DrawnChart{options.type}});
  return document;
}

std::string contentof(Input& input) {
  constexpr std::size_t readsize = 64u << 10;
  std::string content;
  while (input.read(content, readsize)) {
  }
  return content;
}

/// A document from a file, on the limits and with the type that the options ask for.
Document opened(Input& input, const ChartOptions& options) {
  for (const CLI::Option* pressure : options.pressure.options) {
    if (pressure->count() > 0) throw badusage(pressure->get_name() + ": a document stands for its own pressure");
  }
  ReadDocument read = readdocument(contentof(input));
  if (!read.document) throw failure(input.name() + ": " + read.fault);
  Document& document = *read.document;
  if (options.limits.option->count() > 0) relimit(document, limitsof(options.limits));
  for (Entry& entry : document.entries) {
    auto* chart = std::get_if<DrawnChart>(&entry.content);
    if (chart != nullptr && options.typeoption->count() > 0) chart->type = options.type;
  }
  return std::move(document);
}

/// What is out of the limits that were asked for is told, and the rest goes on.
void tell(const std::vector<LeftOut>& leftout, const Input& input) {
  for (const LeftOut& left : leftout) {
    std::string text = input.name() + ": " + captionof(left.entry) + ": " + left.reason;
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 127; }, '?');
    std::cerr << "moistair-cli: " << text << std::endl;
  }
}

/// Adds what was asked for beyond that, in the order of the command line, and draws it over what is there.
void addentries(Document& document, ChartCanvas& canvas, WindowSize window, const CLI::App& command,
                const ChartOptions& options) {
  std::map<const CLI::Option*, std::size_t> done;
  for (const CLI::Option* option : command.parse_order()) {
    const auto found = options.entries.find(option);
    if (found == options.entries.end()) continue;
    const EntryOption& kind = *found->second;
    const std::string& value = option->results()[done[option]++];
    try {
      const Entry* chart = lastchart(document);
      if (chart == nullptr) throw failure("there is no chart to add it to");
      Entry entry = kind.make(chart->setting, window, value);
      if (const char* message = draw(entry, canvas, window)) {
        throw failure(kind.outside != nullptr ? kind.outside : message);
      }
      document.entries.push_back(std::move(entry));
    } catch (const Fault& fault) {
      throw Fault(fault.code(), std::string(kind.option) + " " + value + ": " + fault.what());
    }
  }
}

WindowSize windowof(PictureSize size) { return {size.width * twipsperpixel, size.height * twipsperpixel}; }

std::string picture(const Painter& painter, const Drawing& drawing, PictureSize size, double scale) {
  std::string contents = painter.contents(*painter.format, drawing, size, scale);
  if (contents.empty()) throw failure("there is not enough memory for the picture");
  return contents;
}

void runchart(const CLI::App& command, const ChartOptions& options) {
  const PictureSize size = pixelsof(options.size);
  const WindowSize window = windowof(size);
  std::optional<Input> input;
  if (options.fromoption->count() > 0) input.emplace(options.from);
  Document document = input ? opened(*input, options) : newchart(options);
  RecordingCanvas canvas;
  // What paints is loaded meanwhile: that takes about as long as to trace the chart.
  auto drawn = std::async(std::launch::async, [&] { return drawfitting(document, canvas, window); });
  const OutputFormat format = formatof(options.output);
  const double scale = scaleof(options.scale, format.picture && format.picture->pixels, size);
  const std::vector<LeftOut> leftout = drawn.get();
  addentries(document, canvas, window, command, options);
  if (input) tell(leftout, *input);
  const std::string bytes = format.text != nullptr ? format.text->text(document, canvas.drawing(), window)
                                                   : picture(*format.picture, canvas.drawing(), size, scale);
  Output output(options.output, input ? &*input : nullptr);
  output.write(bytes);
  output.close();
}

CLI::Option* addtype(CLI::App& command, ChartType& type) {
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

void addchartcommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("chart", "Draw a psychrometric chart into a file");
  const auto options = std::make_shared<ChartOptions>();
  command
      ->add_option("-o,--output", options->output,
                   "the file; .svg .pdf .png .bmp, .json for the drawing as data, or .moistair to go on with")
      ->required()
      ->type_name("FILE");
  options->fromoption = command->add_option(
      "--from", options->from, "a .moistair file to begin with in place of a new chart; - for standard input");
  options->fromoption->type_name("FILE");
  options->typeoption = addtype(*command, options->type);
  addlimits(*command, options->limits, "what the chart shows; 0,120,0,0.030 if not given");
  command->add_option("--size", options->size, "in pixels of 15 twips, 1366x768 if not given")
      ->type_name("WIDTHxHEIGHT");
  command->add_option("--scale", options->scale, "picture pixels to the pixel, for .png and .bmp")->type_name("NUMBER");
  for (const EntryOption& entry : entryoptions) {
    CLI::Option* option = command->add_option(
        entry.option, [](const CLI::results_t&) { return true; }, entry.description);
    option->take_all()->allow_extra_args(false)->type_name(entry.valuename);
    option->group("Lines and points (any number of each, drawn in the order given)");
    options->entries[option] = &entry;
  }
  addpressure(*command, options->pressure);
  command->callback([options, command] { runchart(*command, *options); });
}

}  // namespace moistair
