/// \file
/// The dialog "Comfort and envelopes": the zones that are shown over the chart and on the sheet.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <vector>

#include "model/document.h"

namespace moistair {

/// A list of zones, and a form that holds the values of the one that is selected. What is changed in the form changes
/// that zone at once; a value that is none is reported below, and nothing can be accepted meanwhile. Without any zone
/// the list begins with one of comfort.
class ZonesDialog final : public QDialog {
  Q_OBJECT

public:
  /// @param installed envelopes to choose from
  ZonesDialog(QWidget* parent, ZoneLayer begin, std::vector<Envelope> installed);

  ZoneLayer zoneLayer() const;

private:
  enum class Kind { comfort, adaptive, envelope };

  void makeForm();
  QLineEdit* addValue(const QString& caption, const char* name, std::vector<Kind> kinds);
  void addRow(const QString& caption, QWidget* input, const char* name, std::vector<Kind> kinds);
  void add();
  void remove();
  void openFile();
  void offer(const Envelope& envelope);
  void select();
  void show(const Zone& zone);
  void showKind(Kind kind);
  void follow();
  Result<Zone> read() const;
  Result<Zone> readComfort() const;
  Result<Zone> readAdaptive() const;

  /// An input and the kinds of zones that have it.
  struct Row {
    QWidget* input;
    std::vector<Kind> kinds;
  };

  std::vector<Zone> zones_;
  std::vector<Envelope> envelopes_;
  std::vector<Row> rows_;
  QFormLayout* form_ = nullptr;
  QListWidget* list_;
  QComboBox *kind_, *method_, *accepting_, *envelope_;
  QLineEdit *met_ = nullptr, *clo_ = nullptr, *speed_ = nullptr, *radiant_ = nullptr, *vote_ = nullptr,
            *dewPoint_ = nullptr, *mean_ = nullptr;
  QCheckBox *moving_, *shown_;
  QLabel* fault_;
  QPushButton *remove_, *accept_;
};

}  // namespace moistair
