#include "shell/sheets.h"

#include <QAction>
#include <QDate>
#include <QMessageBox>
#include <QPagedPaintDevice>
#include <QPainter>
#include <tuple>
#include <utility>

#include "files/inputfile.h"
#include "files/outputfile.h"
#include "log/sessionlog.h"
#include "shell/chartexport.h"
#include "shell/paper.h"
#include "text/utf8.h"
#include "toolkit/messages.h"
#include "toolkit/remembered.h"
#include "windows/sheetdialog.h"
#include "windows/titleblockdialog.h"

namespace moistair {

namespace {

constexpr const char* defaultTitle = "Psychrometric chart";

SheetOptions withTitles(SheetOptions options, const TitleBlock& block) {
  options.title = block.title;
  options.project = block.project;
  options.drawnBy = block.drawnBy;
  return options;
}

}  // namespace

Sheets::Sheets(QWidget& window, QWidget& graph, ChartController& chart, const SessionLog& log,
               std::function<QSize()> visible)
    : QObject(&window),
      window_(window),
      chart_(chart),
      log_(log),
      visible_(std::move(visible)),
      view_(new SheetView(graph)) {
  connect(&chart, &ChartController::laidOut, this, &Sheets::follow);
  connect(&chart, &ChartController::changed, this, [this](ChangedPart part) {
    if (part == ChangedPart::content) follow();
  });
  options_.page = pageOf(namedPages[usesLetter(paperLocale()) ? 0 : 1], false);
  options_.margin = paperMargin * pixelsPerInch;
  options_.date = QDate::currentDate().toString(Qt::ISODate).toStdString();
  options_.program = std::string("Moistair ") + MOISTAIR_VERSION;
}

void Sheets::fillViewMenu(QMenu& view) {
  toggle_ = view.addAction(QStringLiteral("As a &sheet"));
  toggle_->setCheckable(true);
  connect(toggle_, &QAction::toggled, this, [this] {
    show();
    remember(memory::view, toggle_->isChecked());
    Q_EMIT toggled();
  });
  toggle_->setChecked(remembered(memory::view).toBool());
}

/// Without a chart there is none to be seen as a sheet either.
void Sheets::show() {
  const bool shown = toggle_->isChecked() && lastChart(chart_.document()) != nullptr;
  if (shown) view_->show(contentOf(chart_.document()));
  view_->setVisible(shown);
}

void Sheets::follow() {
  view_->resize(visible_());
  show();
}

bool Sheets::isShown() const { return !view_->isHidden(); }

std::optional<PlotBox> Sheets::plot() { return view_->isHidden() ? std::nullopt : std::optional(view_->plot()); }

/// Informs the user where there is none: a sheet of an empty chart is not what was wanted.
bool Sheets::hasChart() const {
  const bool drawn = lastChart(chart_.document()) != nullptr;
  if (!drawn) warning(&window_, QStringLiteral("There is no chart to make a sheet of."));
  return drawn;
}

std::optional<QString> Sheets::exportSheet() {
  if (!hasChart()) return std::nullopt;
  const SheetContent content = contentOf(chart_.document());
  std::optional<QString> path;
  const auto write = [&](QWidget& above, const SheetOptions& options) {
    path = exportPicture(&above, log_, QStringLiteral("sheet"), ".pdf", [&](const FileFormat& format) {
      return sheetContent(format.ending, layoutSheet(content, options, sheetExtents()), options.title, exportScale);
    });
    return path.has_value();
  };
  SheetDialog dialog(&window_, content, withTitles(options_, titleBlock()), write);
  const bool accepted = dialog.exec() == QDialog::Accepted;
  options_ = dialog.options();
  if (accepted) keep({options_.title, options_.project, options_.drawnBy});
  return path;
}

/// The document's own, or what a new one begins with: whoever has drawn the last one.
TitleBlock Sheets::titleBlock() const {
  if (const auto& block = chart_.document().titleBlock) return *block;
  constexpr std::size_t longest = 1000;  // bytes
  const Result<std::string> last = readFile(drawnByFile(), Links::refused, longest);
  std::string drawnBy = last ? *last : std::string();
  drawnBy = drawnBy.substr(0, drawnBy.find('\n'));
  return {defaultTitle, {}, isUtf8(drawnBy) ? drawnBy : std::string()};
}

/// Into the document, and whoever has drawn it for the next one. One that says nothing is not worth a change.
void Sheets::keep(const TitleBlock& block) {
  const bool nothing = block == TitleBlock{defaultTitle, {}, {}};
  if (block != chart_.document().titleBlock && !(nothing && !chart_.document().titleBlock))
    chart_.commands().retitle(block);
  if (block.drawnBy.empty()) return;
  std::ignore = writeFile(drawnByFile(), block.drawnBy + '\n');  // nothing is lost but convenience
}

std::filesystem::path Sheets::drawnByFile() const { return log_.sessions().parent_path() / "drawnby.txt"; }

QPageLayout Sheets::print(const QPageLayout& page) {
  switch (askWhat()) {
    case Printed::sheet: return hasChart() && askTitleBlock() ? printSheet(page) : page;
    case Printed::chart: return printChart(&window_, log_, chart_.document(), page);
    case Printed::nothing: break;
  }
  return page;
}

Sheets::Printed Sheets::askWhat() {
  QMessageBox box(QMessageBox::Question, QStringLiteral("Print"), QStringLiteral("What is to be printed?"),
                  QMessageBox::Cancel, &window_);
  const auto* chart = box.addButton(QStringLiteral("The &chart"), QMessageBox::AcceptRole);
  auto* sheet = box.addButton(QStringLiteral("A &sheet"), QMessageBox::AcceptRole);
  if (!view_->isHidden()) box.setDefaultButton(sheet);
  box.exec();
  if (box.clickedButton() == sheet) return Printed::sheet;
  return box.clickedButton() == chart ? Printed::chart : Printed::nothing;
}

/// Whether the sheet is to be printed. Asks unless the document says who has drawn it.
bool Sheets::askTitleBlock() {
  const auto& known = chart_.document().titleBlock;
  if (known && !known->drawnBy.empty()) return true;
  TitleBlockDialog dialog(&window_, titleBlock());
  if (dialog.exec() != QDialog::Accepted) return false;
  keep(dialog.titleBlock());
  return true;
}

/// The paper decides on the page, and keeps a margin of its own.
QPageLayout Sheets::printSheet(const QPageLayout& page) {
  constexpr double margin = 4;
  const auto paint = [&](QPagedPaintDevice& device, QPainter& painter) {
    const QSizeF paper = device.pageLayout().paintRectPixels(device.logicalDpiX()).size();
    SheetOptions options = withTitles(options_, titleBlock());
    options.margin = margin;
    const QSizeF size = paper * (pixelsPerInch / device.logicalDpiX());
    options.page = {std::max(leastSide, size.width()), std::max(leastSide, size.height())};
    const SheetDrawing sheet = layoutSheet(contentOf(chart_.document()), options, sheetExtents());
    paintPages(sheet, painter, QRectF(QPointF(0, 0), paper), [&] { return device.newPage(); });
  };
  return printPages(&window_, log_, page, paint);
}

}  // namespace moistair
