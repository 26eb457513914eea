#include "windows/sheetdialog.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <type_traits>
#include <utility>

namespace moistair {

namespace {

constexpr double pointsPerPixel = 72 / pixelsPerInch;

enum class Orientation { landscape, portrait };

std::string textOf(const QLineEdit& box) { return box.text().trimmed().toStdString(); }

QString qText(const std::string& text) { return QString::fromStdString(text); }

template <class Choice>
Choice chosen(const QComboBox& list) {
  return static_cast<Choice>(list.currentIndex());
}

template <class Choice>
void choose(QComboBox& list, Choice choice) {
  list.setCurrentIndex(static_cast<int>(choice));
}

/// The named page that a size is, and whether it is portrait.
std::optional<std::pair<int, Orientation>> namedPageOf(const PageSize& size) {
  for (std::size_t i = 0; i < namedPages.size(); ++i) {
    for (const Orientation orientation : {Orientation::landscape, Orientation::portrait}) {
      if (pageOf(namedPages[i], orientation == Orientation::portrait) == size)
        return {{static_cast<int>(i), orientation}};
    }
  }
  return std::nullopt;
}

}  // namespace

SheetPreview::SheetPreview(QWidget* parent) : QWidget(parent) {
  constexpr QSize least(320, 260);
  setMinimumSize(least);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void SheetPreview::show(SheetDrawing sheet) {
  sheet_ = std::move(sheet);
  showPage(page_);
}

void SheetPreview::showPage(std::size_t page) {
  page_ = std::min(page, std::max<std::size_t>(1, sheet_.pages.size()) - 1);
  update();
}

void SheetPreview::paintEvent(QPaintEvent*) {
  constexpr int margin = 8;
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Mid));
  if (page_ < sheet_.pages.size())
    paintFitted(sheet_, page_, painter, rect().adjusted(margin, margin, -margin, -margin));
}

SheetDialog::SheetDialog(QWidget* parent, const SheetContent& content, const SheetOptions& options, Write write)
    : QDialog(parent),
      content_(content),
      write_(std::move(write)),
      options_(options),
      preview_(new SheetPreview),
      shownPage_(new QSpinBox),
      fault_(new QLabel) {
  setObjectName(QStringLiteral("exportsheet"));
  setWindowTitle(QStringLiteral("Export sheet"));
  auto* columns = new QHBoxLayout(this);
  auto* left = new QVBoxLayout;
  auto* right = new QVBoxLayout;
  columns->addLayout(left);
  columns->addLayout(right, 1);
  auto* form = new QFormLayout;
  left->addLayout(form);
  makeTexts(*form);
  makeLimits(*form);
  makeLook(*form);
  for (const auto& [input, name] :
       {std::pair<QWidget*, const char*>{page_, "page"}, {size_, "size"}, {title_, "title"}}) {
    input->setObjectName(QLatin1String(name));
  }
  fault_->setWordWrap(true);
  left->addWidget(fault_);
  left->addStretch();
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
  accept_ = buttons->addButton(QStringLiteral("&Export..."), QDialogButtonBox::AcceptRole);
  accept_->setObjectName(QStringLiteral("export"));
  left->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  preview_->setAccessibleName(QStringLiteral("Preview"));
  right->addWidget(preview_, 1);
  shownPage_->setPrefix(QStringLiteral("Page "));
  shownPage_->setMinimum(1);
  shownPage_->setAccessibleName(QStringLiteral("Page shown"));
  right->addWidget(shownPage_, 0, Qt::AlignHCenter);
  connect(shownPage_, &QSpinBox::valueChanged, this,
          [this](int page) { preview_->showPage(static_cast<std::size_t>(page) - 1); });
  show(options);
  follow();
  resize(parent->screen()->availableSize() * 0.75);
}

void SheetDialog::accept() {
  if (write_(*this, options_)) QDialog::accept();
}

void SheetDialog::makeLook(QFormLayout& form) {
  const auto list = [&](const QString& caption, const QStringList& texts) {
    auto* box = new QComboBox;
    box->addItems(texts);
    form.addRow(caption, box);
    connect(box, &QComboBox::currentIndexChanged, this, &SheetDialog::follow);
    return box;
  };
  QStringList pages;
  for (const NamedPage& page : namedPages) pages.append(QString::fromUtf8(page.text));
  page_ = list(QStringLiteral("&Page"), pages << QStringLiteral("Other size"));
  size_ = new QLineEdit;
  size_->setPlaceholderText(QStringLiteral("11x8.5in or 1200x800"));
  form.addRow(QStringLiteral("&Size"), size_);
  connect(size_, &QLineEdit::textChanged, this, &SheetDialog::follow);
  orientation_ = list(QStringLiteral("&Orientation"), {QStringLiteral("Landscape"), QStringLiteral("Portrait")});
  colors_ = list(QStringLiteral("&Colors"), {QStringLiteral("Color"), QStringLiteral("Gray"), QStringLiteral("Dark")});
  letters_ = new QDoubleSpinBox;
  letters_->setRange(leastLetters * pointsPerPixel - 0.25, mostLetters * pointsPerPixel);
  letters_->setSingleStep(0.5);
  letters_->setDecimals(1);
  letters_->setSuffix(QStringLiteral(" pt"));
  letters_->setSpecialValueText(QStringLiteral("As suits the page"));
  form.addRow(QStringLiteral("&Font size"), letters_);
  connect(letters_, &QDoubleSpinBox::valueChanged, this, &SheetDialog::follow);
  labels_ = list(QStringLiteral("Point &labels"), {QStringLiteral("Names"), QStringLiteral("Numbers")});
  const auto mark = [&](const QString& caption) {
    auto* box = new QCheckBox(caption);
    form.addRow(box);
    connect(box, &QCheckBox::toggled, this, &SheetDialog::follow);
    return box;
  };
  enthalpyLines_ = mark(QStringLiteral("E&nthalpy lines"));
  protractor_ = mark(QStringLiteral("P&rotractor of sensible heat ratio"));
  reference_ = mark(QStringLiteral("Re&ference mark at 78 °F and 50 %"));
  table_ = mark(QStringLiteral("&Table of states"));
  titleBlock_ = mark(QStringLiteral("Title &block"));
}

void SheetDialog::makeTexts(QFormLayout& form) {
  const auto line = [&](const QString& caption) {
    auto* box = new QLineEdit;
    form.addRow(caption, box);
    connect(box, &QLineEdit::textChanged, this, &SheetDialog::follow);
    return box;
  };
  title_ = line(QStringLiteral("T&itle"));
  project_ = line(QStringLiteral("Pro&ject"));
  drawnBy_ = line(QStringLiteral("Drawn b&y"));
  date_ = line(QStringLiteral("&Date"));
}

/// Those of the chart, or a pair of boxes for the dry bulbs and one for the humidity ratios.
void SheetDialog::makeLimits(QFormLayout& form) {
  chartLimits_ = new QCheckBox(QStringLiteral("Li&mits of the chart"));
  form.addRow(chartLimits_);
  connect(chartLimits_, &QCheckBox::toggled, this, &SheetDialog::follow);
  const auto pair = [&](const QString& caption, auto& boxes, const char* const names[2]) {
    auto* row = new QHBoxLayout;
    for (const std::size_t end : {std::size_t{0}, std::size_t{1}}) {
      auto* box = new std::remove_pointer_t<std::decay_t<decltype(boxes[end])>>;
      boxes[end] = box;
      box->setAccessibleName(QLatin1String(names[end]));
      if (end == 1) row->addWidget(new QLabel(QStringLiteral("to")));
      row->addWidget(box, 1);
      connect(box, &std::remove_pointer_t<decltype(box)>::valueChanged, this, &SheetDialog::follow);
    }
    auto* label = new QLabel(caption);
    label->setBuddy(boxes[0]);
    form.addRow(label, row);
  };
  constexpr const char* dryBulbs[2] = {"Lowest dry bulb", "Highest dry bulb"};
  constexpr const char* ratios[2] = {"Lowest humidity ratio", "Highest humidity ratio"};
  pair(QStringLiteral("Dry b&ulb, °F"), dryBulbs_, dryBulbs);
  pair(QStringLiteral("&Humidity ratio"), ratios_, ratios);
  for (QSpinBox* box : dryBulbs_) {
    box->setRange(static_cast<int>(widestLimits.lowDb), static_cast<int>(widestLimits.highDb));
  }
  for (QDoubleSpinBox* box : ratios_) {
    constexpr int decimals = 3;
    box->setDecimals(decimals);
    box->setSingleStep(0.001);
    box->setRange(widestLimits.lowHr, widestLimits.highHr);
  }
}

ChartLimits SheetDialog::limitsRead() const {
  const auto ratio = [](const QDoubleSpinBox* box) { return std::round(1000 * box->value()) / 1000; };
  return {static_cast<double>(dryBulbs_[0]->value()), static_cast<double>(dryBulbs_[1]->value()), ratio(ratios_[0]),
          ratio(ratios_[1])};
}

void SheetDialog::show(const SheetOptions& options) {
  const std::vector<QSignalBlocker> silent = [this] {
    std::vector<QSignalBlocker> blockers;
    for (QWidget* input : findChildren<QWidget*>()) blockers.emplace_back(input);
    return blockers;
  }();
  const auto named = namedPageOf(options.page);
  page_->setCurrentIndex(named ? named->first : static_cast<int>(namedPages.size()));
  choose(*orientation_, named ? named->second : Orientation::landscape);
  if (!named) size_->setText(QStringLiteral("%1x%2").arg(options.page.width).arg(options.page.height));
  choose(*colors_, options.colors);
  letters_->setValue(options.letterSize > 0 ? options.letterSize * pointsPerPixel : letters_->minimum());
  choose(*labels_, options.labels);
  enthalpyLines_->setChecked(options.enthalpyLines);
  protractor_->setChecked(options.protractor);
  reference_->setChecked(options.reference);
  chartLimits_->setChecked(!options.limits);
  const ChartLimits limits = options.limits.value_or(content_.limits);
  dryBulbs_[0]->setValue(static_cast<int>(limits.lowDb));
  dryBulbs_[1]->setValue(static_cast<int>(limits.highDb));
  ratios_[0]->setValue(limits.lowHr);
  ratios_[1]->setValue(limits.highHr);
  table_->setChecked(options.table);
  titleBlock_->setChecked(options.titleBlock);
  title_->setText(qText(options.title));
  project_->setText(qText(options.project));
  drawnBy_->setText(qText(options.drawnBy));
  date_->setText(qText(options.date));
}

/// Nothing for a size that is none.
std::optional<SheetOptions> SheetDialog::read() const {
  SheetOptions options = options_;
  const auto named = static_cast<std::size_t>(page_->currentIndex());
  if (named < namedPages.size()) {
    options.page = pageOf(namedPages[named], chosen<Orientation>(*orientation_) == Orientation::portrait);
  } else {
    const auto size = pageNamed(textOf(*size_), false);
    if (!size) return std::nullopt;
    options.page = *size;
  }
  options.colors = chosen<SheetColors>(*colors_);
  options.letterSize = letters_->value() > letters_->minimum() ? letters_->value() / pointsPerPixel : 0;
  options.labels = chosen<PointLabels>(*labels_);
  options.enthalpyLines = enthalpyLines_->isChecked();
  options.protractor = protractor_->isChecked();
  options.reference = reference_->isChecked();
  options.limits.reset();
  if (!chartLimits_->isChecked()) options.limits = limitsRead();
  options.table = table_->isChecked();
  options.titleBlock = titleBlock_->isChecked();
  options.title = textOf(*title_);
  options.project = textOf(*project_);
  options.drawnBy = textOf(*drawnBy_);
  options.date = textOf(*date_);
  return options;
}

void SheetDialog::follow() {
  const bool other = page_->currentIndex() == static_cast<int>(namedPages.size());
  size_->setEnabled(other);
  orientation_->setEnabled(!other);
  for (QWidget* box : std::initializer_list<QWidget*>{dryBulbs_[0], dryBulbs_[1], ratios_[0], ratios_[1]}) {
    box->setEnabled(!chartLimits_->isChecked());
  }
  const bool rising = chartLimits_->isChecked() || areSheetLimits(limitsRead());
  const auto read = rising ? this->read() : std::nullopt;
  accept_->setEnabled(read.has_value());
  const QString size = QStringLiteral("A size is %1.").arg(QString::fromStdString(sizeInWords()));
  fault_->setText(read ? QString() : rising ? size : QStringLiteral("The limits must rise."));
  if (!read) return;
  options_ = *read;
  SheetDrawing sheet = layoutSheet(content_, options_, extents_);
  const int pages = static_cast<int>(sheet.pages.size());
  preview_->show(std::move(sheet));
  shownPage_->setMaximum(pages);
  shownPage_->setSuffix(QStringLiteral(" of %1").arg(pages));
  shownPage_->setEnabled(pages > 1);
}

}  // namespace moistair
