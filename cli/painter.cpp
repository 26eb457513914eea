/// \file
/// The module that paints for the headless tool, and all of it that needs Qt.
#include <QGuiApplication>
#include <array>
#include <cstdlib>
#include <iostream>

#include "cli/fault.h"
#include "cli/paintfonts.h"
#include "cli/picture.h"
#include "paint/exports.h"

namespace moistair {

namespace {

/// What the toolkit has to say is of no use to who wants a file, but what ends the process is said.
void quiet(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type != QtFatalMsg) return;
  std::cerr << "moistair-cli: " << text.section(QLatin1Char('\n'), 0, 0).toStdString() << std::endl;
  std::_Exit(static_cast<int>(ExitCode::failure));
}

/// Text is painted with the fonts of a platform that needs no display.
std::string contents(const FileFormat& format, const Drawing& drawing, PictureSize size, double scale) {
  qInstallMessageHandler(quiet);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication::setDesktopSettingsAware(false);
  preparefonts(drawing);
  std::string name = "moistair-cli";
  std::array<char*, 2> arguments = {name.data(), nullptr};
  int count = 1;
  const QGuiApplication application(count, arguments.data());
  return format.content(drawing, QSize(size.width, size.height), scale).toStdString();
}

}  // namespace

}  // namespace moistair

extern "C" Q_DECL_EXPORT moistair::Painter moistair_painterofname(std::string_view name) {
  const moistair::FileFormat* format = moistair::formatofname(name);
  return format == nullptr ? moistair::Painter{} : moistair::Painter{format, format->pixels, moistair::contents};
}
