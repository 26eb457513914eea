/// \file
/// How a sheet is to look, with a preview that follows.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <array>
#include <functional>
#include <optional>

#include "paint/sheetpaint.h"

namespace moistair {

/// Shows a page of a sheet as large as it fits.
class SheetPreview final : public QWidget {
public:
  explicit SheetPreview(QWidget* parent = nullptr);

  void show(SheetDrawing sheet);
  using QWidget::show;
  void showPage(std::size_t page);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  SheetDrawing sheet_;
  std::size_t page_ = 0;
};

/// Asks for the options of a sheet, and stays until it was written or the user gives up.
class SheetDialog final : public QDialog {
  Q_OBJECT

public:
  /// Writes a sheet with these options; false if none was written, as where the user gave no name.
  /// @param above this dialog, for those that it opens
  using Write = std::function<bool(QWidget& above, const SheetOptions& options)>;

  SheetDialog(QWidget* parent, const SheetContent& content, const SheetOptions& options, Write write);

  void accept() override;

  /// The options as they now are; those before for a page that cannot be.
  const SheetOptions& options() const { return options_; }

private:
  void makeLook(QFormLayout& form);
  void makeTexts(QFormLayout& form);
  void makeLimits(QFormLayout& form);
  void show(const SheetOptions& options);
  std::optional<SheetOptions> read() const;
  ChartLimits limitsRead() const;
  void follow();

  const SheetContent& content_;
  Write write_;
  SheetOptions options_;
  ExtentFunction extents_ = sheetExtents();
  QComboBox* page_ = nullptr;
  QLineEdit* size_ = nullptr;  ///< of a page that is none of the named ones
  QComboBox* orientation_ = nullptr;
  QComboBox* colors_ = nullptr;
  QDoubleSpinBox* letters_ = nullptr;
  QComboBox* labels_ = nullptr;
  QCheckBox* enthalpyLines_ = nullptr;
  QCheckBox* protractor_ = nullptr;
  QCheckBox* reference_ = nullptr;
  QCheckBox* chartLimits_ = nullptr;
  std::array<QSpinBox*, 2> dryBulbs_{};
  std::array<QDoubleSpinBox*, 2> ratios_{};
  QCheckBox* table_ = nullptr;
  QCheckBox* titleBlock_ = nullptr;
  QLineEdit* title_ = nullptr;
  QLineEdit* project_ = nullptr;
  QLineEdit* drawnBy_ = nullptr;
  QLineEdit* date_ = nullptr;
  SheetPreview* preview_;
  QSpinBox* shownPage_;
  QLabel* fault_;  ///< what is wrong with the page
  QPushButton* accept_ = nullptr;
};

}  // namespace moistair
