/// \file
/// What a sheet's title block says, asked for before a sheet is printed.
#pragma once

#include <QDialog>
#include <QLineEdit>

#include "model/document.h"

namespace moistair {

class TitleBlockDialog final : public QDialog {
  Q_OBJECT

public:
  TitleBlockDialog(QWidget* parent, const TitleBlock& begin);

  TitleBlock titleBlock() const;

private:
  QLineEdit *title_, *project_, *drawnBy_;
};

}  // namespace moistair
