/// \file
/// `moistair-cli chart -o chart.svg`: a chart as a file, without a window and without a display.
#include <CLI/CLI.hpp>
#include <array>
#include <future>
#include <memory>
#include <optional>
#include <string>

#include "chart/drawing.h"
#include "cli/chartdocument.h"
#include "cli/command.h"
#include "cli/drawingjson.h"
#include "cli/fault.h"
#include "cli/picture.h"
#include "cli/properties.h"
#include "model/airhandler.h"
#include "model/documentfile.h"
#include "sheet/chartsystem.h"

namespace moistair {

namespace {

struct ChartOptions {
  std::string output;
  ChartDocumentOptions document;
  std::string size = std::to_string(defaultWidth) + "x" + std::to_string(defaultHeight);
  std::string scale = "1";
};

/// What can be written as text: the drawing as data, and the document.
struct TextFormat {
  const char* ending;
  std::string (*text)(const Document&, const Drawing&, const WindowSize&);
};

constexpr std::array<TextFormat, 2> textFormats = {{
    {".json",
     [](const Document&, const Drawing& drawing, const WindowSize& size) { return drawingJson(drawing, size); }},
    {documentEnding, [](const Document& document, const Drawing&, const WindowSize&) { return fileText(document); }},
}};

/// The kind of a file by the ending of its name: a picture or a text.
struct OutputFormat {
  std::optional<Painter> picture;
  const TextFormat* text = nullptr;
};

OutputFormat formatOf(const std::string& path) {
  for (const TextFormat& text : textFormats) {
    if (lowercase(path).ends_with(text.ending)) return {std::nullopt, &text};
  }
  const Painter painter = painterOfName(path);
  if (painter.format != nullptr) return {painter, nullptr};
  throw badUsage(path + ": the ending must be .svg .pdf .png .bmp .json or .moistair");
}

WindowSize windowOf(PictureSize size) { return {size.width * twipsPerPixel, size.height * twipsPerPixel}; }

std::string picture(const Painter& painter, const Drawing& drawing, PictureSize size, double scale) {
  std::string contents;
  painter.contents(*painter.format, drawing, size, scale, contents);
  if (contents.empty()) throw failure("there is not enough memory for the picture");
  return contents;
}

void runChart(const CLI::App& command, const ChartOptions& options) {
  const PictureSize size = pixelsOf(options.size);
  const WindowSize window = windowOf(size);
  ChartDocument begun = begunDocument(options.document);
  RecordingCanvas canvas;
  constexpr auto either = std::launch::async | std::launch::deferred;  // where no thread can be started
  // What paints is loaded meanwhile: that takes about as long as to trace the chart.
  auto drawn = std::async(either, [&] { return drawFitting(begun.document, canvas, window); });
  const OutputFormat format = formatOf(options.output);
  const double scale = scaleOf(options.scale, format.picture && format.picture->pixels, size.width, size.height);
  completeDocument(begun, drawn.get(), canvas, window, command, options.document);
  // On the screen it is in a layer above the drawing; a picture has none.
  const auto limits = currentLimits(begun.document);
  const auto airHandler = solvedAirHandler(begun.document);
  if (format.text == nullptr && limits && airHandler) {
    drawSystem(canvas, plotArea(*limits, window), airHandler->system);
  }
  const std::string bytes = format.text != nullptr ? format.text->text(begun.document, canvas.drawing(), window)
                                                   : picture(*format.picture, canvas.drawing(), size, scale);
  Output output(options.output, begun.input.get());
  output.write(bytes);
  output.close();
}

}  // namespace

void addChartCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("chart", "Draw a psychrometric chart into a file");
  const auto options = std::make_shared<ChartOptions>();
  command
      ->add_option("-o,--output", options->output,
                   "the file; .svg .pdf .png .bmp, .json for the drawing as data, or .moistair to go on with")
      ->required()
      ->type_name("FILE");
  addChartDocument(*command, options->document);
  command->add_option("--size", options->size, "in pixels of 15 twips, 1366x768 if not given")
      ->type_name("WIDTHxHEIGHT");
  command->add_option("--scale", options->scale, "picture pixels to the pixel, for .png and .bmp")->type_name("NUMBER");
  command->callback([options, command] { runChart(*command, *options); });
}

}  // namespace moistair
