/// \file
/// A list with an edit box.
#pragma once

#include <QComboBox>

namespace moistair {

/// A drop-down list into which a person can also type.
///
/// Its selected index is that of the item whose text equals the edit text, else -1. `chosen` follows when an item is
/// selected that was not selected before, by a person or in code, at once. Typing never selects anything by itself.
class ListBox : public QComboBox {
  Q_OBJECT

public:
  explicit ListBox(QWidget* parent = nullptr);

  /// Fills the list without selecting anything.
  template <class Items>
  void fill(const Items& items) {
    for (const char* item : items) append(item);
  }

  int selected() const;
  void select(int index);

Q_SIGNALS:
  void chosen();

protected:
  void initStyleOption(QStyleOptionComboBox* option) const override;

private:
  void append(const char* item);
  void choose(int index);

  int last_ = -1;  ///< selected index, as last reported
};

}  // namespace moistair
