#include "shell/sheets.h"

#include <QAction>
#include <QDate>
#include <QMessageBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

#include "shell/chartexport.h"
#include "toolkit/messages.h"
#include "windows/sheetdialog.h"

namespace moistair {

namespace {

constexpr double exportscale = 2;  // sharp when a report enlarges it

}  // namespace

Sheets::Sheets(QWidget& window, QWidget& graph, const ChartCommands& chart)
    : QObject(&window), window_(window), chart_(chart), view_(new SheetView(graph)) {
  options_.title = "Psychrometric chart";
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

std::optional<PlotBox> Sheets::plot() { return view_->isHidden() ? std::nullopt : std::optional(view_->plot()); }

std::optional<QString> Sheets::exportsheet() {
  const SheetContent content = contentof(chart_.document());
  SheetDialog dialog(&window_, content, options_);
  const bool accepted = dialog.exec() == QDialog::Accepted;
  options_ = dialog.options();
  if (!accepted) return std::nullopt;
  return exportpicture(&window_, QStringLiteral("sheet"), [&](const FileFormat& format) {
    return sheetcontent(format.ending, layoutsheet(content, options_, sheetextents()), options_.title, exportscale);
  });
}

QPageLayout Sheets::print(const QPageLayout& page) {
  QMessageBox box(QMessageBox::Question, tr("Print"), tr("What is to be printed?"), QMessageBox::Cancel, &window_);
  const auto* chart = box.addButton(tr("The &chart"), QMessageBox::AcceptRole);
  auto* sheet = box.addButton(tr("A &sheet"), QMessageBox::AcceptRole);
  if (!view_->isHidden()) box.setDefaultButton(sheet);
  box.exec();
  if (box.clickedButton() == sheet) return printsheet(page);
  return box.clickedButton() == chart ? printchart(&window_, chart_.document(), page) : page;
}

/// The paper decides on the page, and keeps a margin of its own.
QPageLayout Sheets::printsheet(const QPageLayout& page) {
  constexpr double margin = 4;
  const auto paint = [&](QPrinter& printer, QPainter& painter) {
    const QSizeF paper = printer.pageLayout().paintRectPixels(printer.resolution()).size();
    SheetOptions options = options_;
    options.margin = margin;
    const QSizeF size = paper * (pixelsperinch / printer.resolution());
    options.page = {std::max(leastside, size.width()), std::max(leastside, size.height())};
    const SheetDrawing sheet = layoutsheet(contentof(chart_.document()), options, sheetextents());
    paintpages(sheet, painter, QRectF(QPointF(0, 0), paper), [&] { return printer.newPage(); });
  };
  return printpicture(&window_, page, paint);
}

}  // namespace moistair
