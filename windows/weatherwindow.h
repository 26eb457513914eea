/// \file
/// Where a layer of weather is chosen: a file, how its hours are shown, and which of them.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <optional>

#include "model/weatherlayer.h"

namespace moistair {

/// What is odd about the file is listed as soon as it is read, with the hours that count and those off the chart. Which
/// column of a table is what is found by its heads, or typed, and remembered for files with the same heads.
class WeatherWindow final : public QDialog {
  Q_OBJECT

public:
  /// @param begin the layer that there is
  /// @param range of the chart
  WeatherWindow(QWidget* parent, const std::optional<WeatherLayer>& begin, double atm, const VisibleRange& range);

  /// As chosen, once accepted; none for no weather on the chart.
  const std::optional<WeatherLayer>& layer() const { return layer_; }

private:
  void makeControls();
  void chooseFile();
  void readFile();
  void count();
  void say(const QString& words);
  WeatherLayer wanted() const;
  std::uint16_t monthsChosen() const;
  TableColumns columnsTyped() const;
  void accept() override;
  void removeLayer();

  std::optional<WeatherLayer> layer_;
  double atm_;
  VisibleRange range_;
  std::string path_;
  std::optional<WeatherFile> file_;
  std::optional<std::uint16_t>
      months_;  ///< of the layer, with gaps that the boxes cannot show; until others are chosen

  QLabel* name_;
  QLineEdit* columns_;
  QComboBox *units_, *show_, *firstMonth_, *lastMonth_;
  QSpinBox *fromHour_, *toHour_;
  QCheckBox *counts_, *designPoints_;
  QPlainTextEdit* words_;
  QPushButton* showButton_;
};

}  // namespace moistair
