#include "windows/sheetdialog.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace moistair {

namespace {

constexpr double pointsperpixel = 72 / pixelsperinch;

enum class Orientation { landscape, portrait };

std::string textof(const QLineEdit& box) { return box.text().trimmed().toStdString(); }

QString qtext(const std::string& text) { return QString::fromStdString(text); }

template <class Choice>
Choice chosen(const QComboBox& list) {
  return static_cast<Choice>(list.currentIndex());
}

template <class Choice>
void choose(QComboBox& list, Choice choice) {
  list.setCurrentIndex(static_cast<int>(choice));
}

/// The named page that a size is, and whether it stands.
std::optional<std::pair<int, Orientation>> namedpageof(const PageSize& size) {
  for (std::size_t i = 0; i < namedpages.size(); ++i) {
    for (const Orientation orientation : {Orientation::landscape, Orientation::portrait}) {
      if (pageof(namedpages[i], orientation == Orientation::portrait) == size)
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
  showpage(page_);
}

void SheetPreview::showpage(std::size_t page) {
  page_ = std::min(page, std::max<std::size_t>(1, sheet_.pages.size()) - 1);
  update();
}

void SheetPreview::paintEvent(QPaintEvent*) {
  constexpr int margin = 8;
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Mid));
  if (page_ < sheet_.pages.size())
    paintfitted(sheet_, page_, painter, rect().adjusted(margin, margin, -margin, -margin));
}

SheetDialog::SheetDialog(QWidget* parent, const SheetContent& content, const SheetOptions& options, Write write)
    : QDialog(parent),
      content_(content),
      write_(std::move(write)),
      options_(options),
      preview_(new SheetPreview),
      shownpage_(new QSpinBox),
      fault_(new QLabel) {
  setObjectName(QStringLiteral("exportsheet"));
  setWindowTitle(tr("Export sheet"));
  auto* columns = new QHBoxLayout(this);
  auto* left = new QVBoxLayout;
  auto* right = new QVBoxLayout;
  columns->addLayout(left);
  columns->addLayout(right, 1);
  auto* form = new QFormLayout;
  left->addLayout(form);
  maketexts(*form);
  makelook(*form);
  for (const auto& [input, name] :
       {std::pair<QWidget*, const char*>{page_, "page"}, {size_, "size"}, {title_, "title"}}) {
    input->setObjectName(QLatin1String(name));
  }
  fault_->setWordWrap(true);
  left->addWidget(fault_);
  left->addStretch();
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
  accept_ = buttons->addButton(tr("&Export..."), QDialogButtonBox::AcceptRole);
  accept_->setObjectName(QStringLiteral("export"));
  left->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  preview_->setAccessibleName(tr("Preview"));
  right->addWidget(preview_, 1);
  shownpage_->setPrefix(tr("Page "));
  shownpage_->setMinimum(1);
  shownpage_->setAccessibleName(tr("Page shown"));
  right->addWidget(shownpage_, 0, Qt::AlignHCenter);
  connect(shownpage_, &QSpinBox::valueChanged, this,
          [this](int page) { preview_->showpage(static_cast<std::size_t>(page) - 1); });
  show(options);
  follow();
  resize(parent->screen()->availableSize() * 0.75);
}

void SheetDialog::accept() {
  if (write_(*this, options_)) QDialog::accept();
}

void SheetDialog::makelook(QFormLayout& form) {
  const auto list = [&](const QString& caption, const QStringList& texts) {
    auto* box = new QComboBox;
    box->addItems(texts);
    form.addRow(caption, box);
    connect(box, &QComboBox::currentIndexChanged, this, &SheetDialog::follow);
    return box;
  };
  QStringList pages;
  for (const NamedPage& page : namedpages) pages.append(QString::fromUtf8(page.text));
  page_ = list(tr("&Page"), pages << tr("Other size"));
  size_ = new QLineEdit;
  size_->setPlaceholderText(tr("11x8.5in or 1200x800"));
  form.addRow(tr("&Size"), size_);
  connect(size_, &QLineEdit::textChanged, this, &SheetDialog::follow);
  orientation_ = list(tr("&Orientation"), {tr("Landscape"), tr("Portrait")});
  colors_ = list(tr("&Colors"), {tr("Color"), tr("Grey"), tr("Dark")});
  letters_ = new QDoubleSpinBox;
  letters_->setRange(leastletters * pointsperpixel - 0.25, mostletters * pointsperpixel);
  letters_->setSingleStep(0.5);
  letters_->setDecimals(1);
  letters_->setSuffix(tr(" pt"));
  letters_->setSpecialValueText(tr("As suits the page"));
  form.addRow(tr("&Font size"), letters_);
  connect(letters_, &QDoubleSpinBox::valueChanged, this, &SheetDialog::follow);
  labels_ = list(tr("Point &labels"), {tr("Names"), tr("Numbers")});
  const auto mark = [&](const QString& caption) {
    auto* box = new QCheckBox(caption);
    form.addRow(box);
    connect(box, &QCheckBox::toggled, this, &SheetDialog::follow);
    return box;
  };
  enthalpylines_ = mark(tr("E&nthalpy lines"));
  protractor_ = mark(tr("P&rotractor of sensible heat ratio"));
  table_ = mark(tr("&Table of states"));
  titleblock_ = mark(tr("Title &block"));
}

void SheetDialog::maketexts(QFormLayout& form) {
  const auto line = [&](const QString& caption) {
    auto* box = new QLineEdit;
    form.addRow(caption, box);
    connect(box, &QLineEdit::textChanged, this, &SheetDialog::follow);
    return box;
  };
  title_ = line(tr("T&itle"));
  project_ = line(tr("Pro&ject"));
  drawnby_ = line(tr("Drawn b&y"));
  date_ = line(tr("&Date"));
}

void SheetDialog::show(const SheetOptions& options) {
  const std::vector<QSignalBlocker> silent = [this] {
    std::vector<QSignalBlocker> blockers;
    for (QWidget* input : findChildren<QWidget*>()) blockers.emplace_back(input);
    return blockers;
  }();
  const auto named = namedpageof(options.page);
  page_->setCurrentIndex(named ? named->first : static_cast<int>(namedpages.size()));
  choose(*orientation_, named ? named->second : Orientation::landscape);
  if (!named) size_->setText(QStringLiteral("%1x%2").arg(options.page.width).arg(options.page.height));
  choose(*colors_, options.colors);
  letters_->setValue(options.lettersize > 0 ? options.lettersize * pointsperpixel : letters_->minimum());
  choose(*labels_, options.labels);
  enthalpylines_->setChecked(options.enthalpylines);
  protractor_->setChecked(options.protractor);
  table_->setChecked(options.table);
  titleblock_->setChecked(options.titleblock);
  title_->setText(qtext(options.title));
  project_->setText(qtext(options.project));
  drawnby_->setText(qtext(options.drawnby));
  date_->setText(qtext(options.date));
}

/// Nothing for a size that is none.
std::optional<SheetOptions> SheetDialog::read() const {
  SheetOptions options = options_;
  const auto named = static_cast<std::size_t>(page_->currentIndex());
  if (named < namedpages.size()) {
    options.page = pageof(namedpages[named], chosen<Orientation>(*orientation_) == Orientation::portrait);
  } else {
    const auto size = pagenamed(textof(*size_), false);
    if (!size) return std::nullopt;
    options.page = *size;
  }
  options.colors = chosen<SheetColors>(*colors_);
  options.lettersize = letters_->value() > letters_->minimum() ? letters_->value() / pointsperpixel : 0;
  options.labels = chosen<PointLabels>(*labels_);
  options.enthalpylines = enthalpylines_->isChecked();
  options.protractor = protractor_->isChecked();
  options.table = table_->isChecked();
  options.titleblock = titleblock_->isChecked();
  options.title = textof(*title_);
  options.project = textof(*project_);
  options.drawnby = textof(*drawnby_);
  options.date = textof(*date_);
  return options;
}

void SheetDialog::follow() {
  const bool other = page_->currentIndex() == static_cast<int>(namedpages.size());
  size_->setEnabled(other);
  orientation_->setEnabled(!other);
  const auto read = this->read();
  accept_->setEnabled(read.has_value());
  fault_->setText(read ? QString() : tr("A size is %1.").arg(QString::fromStdString(sizeinwords())));
  if (!read) return;
  options_ = *read;
  SheetDrawing sheet = layoutsheet(content_, options_, extents_);
  const int pages = static_cast<int>(sheet.pages.size());
  preview_->show(std::move(sheet));
  shownpage_->setMaximum(pages);
  shownpage_->setSuffix(tr(" of %1").arg(pages));
  shownpage_->setEnabled(pages > 1);
}

}  // namespace moistair
