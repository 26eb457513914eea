#include "toolkit/listbox.h"

#include <QLineEdit>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>

#include "toolkit/valuebox.h"

namespace moistair {

ListBox::ListBox(QWidget* parent) : QComboBox(parent) {
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  setCompleter(nullptr);
  connect(this, &QComboBox::currentIndexChanged, this, &ListBox::choose);
  connect(this, &QComboBox::activated, this, &ListBox::choose);
  connect(lineEdit(), &QLineEdit::textEdited, this, [this] { last_ = selected(); });
}

int ListBox::selected() const { return findText(currentText(), Qt::MatchExactly | Qt::MatchCaseSensitive); }

void ListBox::select(int index) {
  setCurrentIndex(index);
  setEditText(itemText(index));
  choose(index);
}

void ListBox::append(const char* item) {
  const QSignalBlocker silent(this);  // the first item of an empty list would select itself
  addItem(QString::fromUtf8(item));
  setCurrentIndex(-1);
}

void ListBox::initStyleOption(QStyleOptionComboBox* option) const {
  QComboBox::initStyleOption(option);
  option->palette = framePalette(option->palette);
}

void ListBox::choose(int index) {
  if (index < 0 || index == last_) return;
  last_ = index;
  Q_EMIT chosen();
}

}  // namespace moistair
