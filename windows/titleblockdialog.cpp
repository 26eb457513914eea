#include "windows/titleblockdialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>

namespace moistair {

TitleBlockDialog::TitleBlockDialog(QWidget* parent, const TitleBlock& begin)
    : QDialog(parent), title_(new QLineEdit), project_(new QLineEdit), drawnBy_(new QLineEdit) {
  constexpr int width = 420;  // logical pixels
  setObjectName(QStringLiteral("titleblock"));
  setWindowTitle(QStringLiteral("Title block"));
  auto* form = new QFormLayout(this);
  const auto row = [&](const QString& caption, QLineEdit* box, const char* name, const std::string& text) {
    box->setObjectName(QLatin1String(name));
    box->setText(QString::fromStdString(text));
    form->addRow(caption, box);
  };
  row(QStringLiteral("T&itle"), title_, "title", begin.title);
  row(QStringLiteral("Pro&ject"), project_, "project", begin.project);
  row(QStringLiteral("Drawn b&y"), drawnBy_, "drawnby", begin.drawnBy);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
  QPushButton* print = buttons->addButton(QStringLiteral("&Print..."), QDialogButtonBox::AcceptRole);
  form->addRow(buttons);
  print->setDefault(true);  // now that it is in the dialog
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  drawnBy_->setFocus();
  resize(width, sizeHint().height());
}

TitleBlock TitleBlockDialog::titleBlock() const {
  const auto text = [](const QLineEdit* box) { return box->text().trimmed().toStdString(); };
  return {text(title_), text(project_), text(drawnBy_)};
}

}  // namespace moistair
