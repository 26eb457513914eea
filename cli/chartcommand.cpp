/// \file
/// `moistair-cli chart -o chart.svg`: a chart as a file, without a window and without a display.
#include <CLI/CLI.hpp>
#include <QGuiApplication>
#include <QSize>
#include <array>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "chart/drawchart.h"
#include "chart/drawing.h"
#include "cli/chartadditions.h"
#include "cli/command.h"
#include "cli/drawingjson.h"
#include "cli/fault.h"
#include "cli/limitsoption.h"
#include "cli/properties.h"
#include "cli/stream.h"
#include "paint/exports.h"

namespace moistair {

namespace {

struct ChartOptions {
  std::string output;
  ChartType type = ChartType::standard;
  LimitsOption limits;
  std::string size = std::to_string(defaultwidth) + "x" + std::to_string(defaultheight);
  std::string scale = "1";
  PressureOption pressure;
  std::map<const CLI::Option*, const Addition*> additions;
};

/// The format of a picture by the ending of its name; null for the drawing as data.
const FileFormat* formatof(const std::string& path) {
  if (const FileFormat* format = formatofname(path)) return format;
  if (lowercase(path).ends_with(".json")) return nullptr;
  throw badusage(path + ": the ending must be .svg .pdf .png .bmp or .json");
}

/// "1366x768" [pixels].
QSize pixelsof(const std::string& text) {
  const auto parts = splitat(text, 'x');
  const auto side = [](std::string_view part) {
    const double number = strictnumber(part);
    return number >= 1 && number <= 10000 && number == std::floor(number) ? static_cast<int>(number) : 0;
  };
  const QSize size = parts.size() == 2 ? QSize(side(parts[0]), side(parts[1])) : QSize(0, 0);
  if (size.isEmpty()) throw badusage("size must be two whole numbers from 1 to 10000 such as 1366x768");
  return size;
}

double scaleof(const std::string& text, const FileFormat* format, QSize size) {
  constexpr double mostpixels = 100e6;
  const double scale = numberof(text, "scale");
  const bool pixels = format != nullptr && format->pixels;
  if (!pixels && scale != 1) throw badusage("scale is for .png and .bmp; the others are sharp at any size");
  if (!(scale >= 0.1 && scale <= 10)) throw badusage("scale must be from 0.1 to 10");
  if (pixels && size.width() * scale * size.height() * scale > mostpixels) {
    throw badusage("a picture of more than 100 million pixels is too large");
  }
  if (pixels && (size * scale).isEmpty()) throw badusage("a picture of no pixels is too small");
  return scale;
}

/// Draws what was asked for beyond the chart itself, in the order of the command line.
void drawadditions(const ChartJob& job, const CLI::App& command, const ChartOptions& options) {
  std::map<const CLI::Option*, std::size_t> done;
  for (const CLI::Option* option : command.parse_order()) {
    const auto addition = options.additions.find(option);
    if (addition == options.additions.end()) continue;
    const std::string& value = option->results()[done[option]++];
    try {
      addition->second->draw(job, value);
    } catch (const Fault& fault) {
      throw Fault(fault.code(), std::string(addition->second->option) + " " + value + ": " + fault.what());
    }
  }
}

/// What the toolkit has to say is of no use to who wants a file, but what ends the process is said.
void quiet(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type != QtFatalMsg) return;
  std::cerr << "moistair-cli: " << text.section(QLatin1Char('\n'), 0, 0).toStdString() << std::endl;
  std::_Exit(static_cast<int>(ExitCode::failure));
}

/// The contents of a picture. Text is painted with the fonts of a platform that needs no display.
QByteArray picturecontent(const Drawing& drawing, const FileFormat& format, QSize size, double scale) {
  qInstallMessageHandler(quiet);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication::setDesktopSettingsAware(false);
  std::string name = "moistair-cli";
  std::array<char*, 2> arguments = {name.data(), nullptr};
  int count = 1;
  const QGuiApplication application(count, arguments.data());
  const QByteArray content = format.content(drawing, size, scale);
  if (content.isEmpty()) throw failure("there is not enough memory for the picture");
  return content;
}

void runchart(const CLI::App& command, const ChartOptions& options) {
  const FileFormat* format = formatof(options.output);
  const QSize size = pixelsof(options.size);
  const double scale = scaleof(options.scale, format, size);
  const WindowSize window{size.width() * twipsperpixel, size.height() * twipsperpixel};
  const PlotArea area = plotarea(limitsof(options.limits), window);
  const Pressure pressure = pressureof(options.pressure);
  RecordingCanvas canvas;
  const ChartJob job{{canvas, area, pressure.atm}, pressure};
  drawchart(job.chart, options.type, headerline(pressure.entry));
  drawadditions(job, command, options);
  const std::string content = format == nullptr ? drawingjson(canvas.drawing(), window)
                                                : picturecontent(canvas.drawing(), *format, size, scale).toStdString();
  Output output(options.output);
  output.write(content);
  output.close();
}

void addtype(CLI::App& command, ChartType& type) {
  static const std::map<std::string, ChartType> names = {{"standard", ChartType::standard},
                                                         {"blank", ChartType::blank}};
  const auto choose = [&type](const std::string& name) { type = names.at(name); };
  command
      .add_option_function<std::string>("--type", choose,
                                        "with its families of lines or without; standard if not given")
      ->check(CLI::IsMember({"standard", "blank"}))
      ->type_name("TYPE");
}

}  // namespace

void addchartcommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("chart", "Draw a psychrometric chart into a file");
  const auto options = std::make_shared<ChartOptions>();
  command->add_option("-o,--output", options->output, "the file; .svg .pdf .png .bmp, or .json for the drawing as data")
      ->required()
      ->type_name("FILE");
  addtype(*command, options->type);
  addlimits(*command, options->limits, "what the chart shows; 0,120,0,0.030 if not given");
  command->add_option("--size", options->size, "in pixels of 15 twips, 1366x768 if not given")
      ->type_name("WIDTHxHEIGHT");
  command->add_option("--scale", options->scale, "picture pixels to the pixel, for .png and .bmp")->type_name("NUMBER");
  for (const Addition& addition : chartadditions) {
    CLI::Option* option = command->add_option(
        addition.option, [](const CLI::results_t&) { return true; }, addition.description);
    option->take_all()->allow_extra_args(false)->type_name(addition.valuename);
    option->group("Lines and points (any number of each, drawn in the order given)");
    options->additions[option] = &addition;
  }
  addpressure(*command, options->pressure);
  command->callback([options, command] { runchart(*command, *options); });
}

}  // namespace moistair
