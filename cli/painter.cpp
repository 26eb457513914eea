/// \file
/// The module that paints for the headless tool, and all of it that needs Qt.
#include <QGuiApplication>
#include <array>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <variant>
#include <vector>

#include "cli/fault.h"
#include "cli/paintfonts.h"
#include "cli/picture.h"
#include "paint/exports.h"
#include "paint/sheetpaint.h"

namespace moistair {

namespace {

/// What the toolkit has to say is of no use to who wants a file, but what ends the process is said.
void quiet(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type != QtFatalMsg) return;
  std::cerr << "moistair-cli: " << text.section(QLatin1Char('\n'), 0, 0).toStdString() << std::endl;
  std::_Exit(static_cast<int>(ExitCode::failure));
}

/// Text is painted with the fonts of a platform that needs no display.
class Application {
public:
  explicit Application(const std::vector<std::string>& texts) {
    qInstallMessageHandler(quiet);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication::setDesktopSettingsAware(false);
    prepareFonts(texts);
    application_.emplace(count_, arguments_.data());
  }

private:
  std::string name_ = "moistair-cli";
  std::array<char*, 2> arguments_ = {name_.data(), nullptr};
  int count_ = 1;
  std::optional<QGuiApplication> application_;
};

void contents(const FileFormat& format, const Drawing& drawing, PictureSize size, double scale, std::string& bytes) {
  std::vector<std::string> texts;
  for (const Operation& operation : drawing.operations) {
    if (const auto* text = std::get_if<TextOperation>(&operation)) texts.push_back(text->text);
  }
  const Application application(texts);
  bytes = format.content(drawing, QSize(size.width, size.height), scale).toStdString();
}

void sheet(const FileFormat& format, const SheetContent& content, const SheetOptions& options, double scale,
           std::string& bytes) {
  std::vector<std::string> texts = typedTexts(content);
  texts.insert(texts.end(), {options.title, options.project, options.drawnBy, options.date});
  const Application application(texts);
  const SheetDrawing drawing = layoutSheet(content, options, sheetExtents());
  bytes = sheetContent(format.ending, drawing, options.title, scale).toStdString();
}

}  // namespace

}  // namespace moistair

extern "C" Q_DECL_EXPORT moistair::Painter moistair_painterofname(std::string_view name) {
  const moistair::FileFormat* format = moistair::formatOfName(name);
  return format == nullptr ? moistair::Painter{}
                           : moistair::Painter{format, format->pixels, moistair::contents, moistair::sheet};
}
