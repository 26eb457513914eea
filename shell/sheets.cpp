#include "shell/sheets.h"

#include <QAction>
#include <QDate>
#include <QMessageBox>
#include <QPagedPaintDevice>
#include <QPainter>

#include "files/inputfile.h"
#include "files/outputfile.h"
#include "log/sessionlog.h"
#include "shell/chartexport.h"
#include "shell/paper.h"
#include "text/utf8.h"
#include "toolkit/messages.h"
#include "windows/sheetdialog.h"
#include "windows/titleblockdialog.h"

namespace moistair {

namespace {

constexpr const char* defaulttitle = "Psychrometric chart";

SheetOptions withtitles(SheetOptions options, const TitleBlock& block) {
  options.title = block.title;
  options.project = block.project;
  options.drawnby = block.drawnby;
  return options;
}

}  // namespace

Sheets::Sheets(QWidget& window, QWidget& graph, ChartCommands& chart, const SessionLog& log)
    : QObject(&window), window_(window), chart_(chart), log_(log), view_(new SheetView(graph)) {
  options_.page = pageof(namedpages[usesletter(paperlocale()) ? 0 : 1], false);
  options_.margin = papermargin * pixelsperinch;
  options_.date = QDate::currentDate().toString(Qt::ISODate).toStdString();
  options_.program = std::string("Moistair ") + MOISTAIR_VERSION;
}

void Sheets::fillviewmenu(QMenu& view) {
  toggle_ = view.addAction(tr("As a &sheet"));
  toggle_->setCheckable(true);
  connect(toggle_, &QAction::toggled, this, [this] {
    show();
    Q_EMIT toggled();
  });
}

/// Where no chart stands, there is none to be seen as a sheet either.
void Sheets::show() {
  const bool shown = toggle_->isChecked() && lastchart(chart_.document()) != nullptr;
  if (shown) view_->show(contentof(chart_.document()));
  view_->setVisible(shown);
}

void Sheets::follow(const QSize& visible) {
  view_->resize(visible);
  show();
}

bool Sheets::isshown() const { return !view_->isHidden(); }

std::optional<PlotBox> Sheets::plot() { return view_->isHidden() ? std::nullopt : std::optional(view_->plot()); }

/// Tells the user where none stands: a sheet of an empty chart is not what was wanted.
bool Sheets::haschart() const {
  const bool stands = lastchart(chart_.document()) != nullptr;
  if (!stands) warning(&window_, tr("There is no chart to make a sheet of."));
  return stands;
}

std::optional<QString> Sheets::exportsheet() {
  if (!haschart()) return std::nullopt;
  const SheetContent content = contentof(chart_.document());
  std::optional<QString> path;
  const auto write = [&](QWidget& above, const SheetOptions& options) {
    path = exportpicture(&above, log_, QStringLiteral("sheet"), ".pdf", [&](const FileFormat& format) {
      return sheetcontent(format.ending, layoutsheet(content, options, sheetextents()), options.title, exportscale);
    });
    return path.has_value();
  };
  SheetDialog dialog(&window_, content, withtitles(options_, titleblock()), write);
  const bool accepted = dialog.exec() == QDialog::Accepted;
  options_ = dialog.options();
  if (accepted) keep({options_.title, options_.project, options_.drawnby});
  return path;
}

/// The document's own, or what a new one begins with: whoever has drawn the last one.
TitleBlock Sheets::titleblock() const {
  if (const auto& block = chart_.document().titleblock) return *block;
  constexpr std::size_t longest = 1000;  // bytes
  std::string drawnby = readfile(drawnbyfile(), Links::refused, longest).bytes;
  drawnby = drawnby.substr(0, drawnby.find('\n'));
  return {defaulttitle, {}, isutf8(drawnby) ? drawnby : std::string()};
}

/// Into the document, and whoever has drawn it for the next one. One that says nothing is not worth a change.
void Sheets::keep(const TitleBlock& block) {
  const bool nothing = block == TitleBlock{defaulttitle, {}, {}};
  if (block != chart_.document().titleblock && !(nothing && !chart_.document().titleblock)) chart_.retitle(block);
  if (!block.drawnby.empty()) writefile(drawnbyfile(), block.drawnby + '\n');  // nothing is lost but convenience
}

std::filesystem::path Sheets::drawnbyfile() const { return log_.sessions().parent_path() / "drawnby.txt"; }

QPageLayout Sheets::print(const QPageLayout& page) {
  switch (askwhat()) {
    case Printed::sheet: return haschart() && asktitleblock() ? printsheet(page) : page;
    case Printed::chart: return printchart(&window_, log_, chart_.document(), page);
    case Printed::nothing: break;
  }
  return page;
}

Sheets::Printed Sheets::askwhat() {
  QMessageBox box(QMessageBox::Question, tr("Print"), tr("What is to be printed?"), QMessageBox::Cancel, &window_);
  const auto* chart = box.addButton(tr("The &chart"), QMessageBox::AcceptRole);
  auto* sheet = box.addButton(tr("A &sheet"), QMessageBox::AcceptRole);
  if (!view_->isHidden()) box.setDefaultButton(sheet);
  box.exec();
  if (box.clickedButton() == sheet) return Printed::sheet;
  return box.clickedButton() == chart ? Printed::chart : Printed::nothing;
}

/// Whether the sheet is to be printed. Asks unless the document says who has drawn it.
bool Sheets::asktitleblock() {
  const auto& known = chart_.document().titleblock;
  if (known && !known->drawnby.empty()) return true;
  TitleBlockDialog dialog(&window_, titleblock());
  if (dialog.exec() != QDialog::Accepted) return false;
  keep(dialog.titleblock());
  return true;
}

/// The paper decides on the page, and keeps a margin of its own.
QPageLayout Sheets::printsheet(const QPageLayout& page) {
  constexpr double margin = 4;
  const auto paint = [&](QPagedPaintDevice& device, QPainter& painter) {
    const QSizeF paper = device.pageLayout().paintRectPixels(device.logicalDpiX()).size();
    SheetOptions options = withtitles(options_, titleblock());
    options.margin = margin;
    const QSizeF size = paper * (pixelsperinch / device.logicalDpiX());
    options.page = {std::max(leastside, size.width()), std::max(leastside, size.height())};
    const SheetDrawing sheet = layoutsheet(contentof(chart_.document()), options, sheetextents());
    paintpages(sheet, painter, QRectF(QPointF(0, 0), paper), [&] { return device.newPage(); });
  };
  return printpages(&window_, log_, page, paint);
}

}  // namespace moistair
