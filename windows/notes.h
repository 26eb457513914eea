/// \file
/// How the windows show what is said of their boxes.
#pragma once

#include <QKeySequence>
#include <QLineEdit>

#include "advice/pairnotes.h"
#include "toolkit/listbox.h"
#include "toolkit/messageline.h"

namespace moistair {

/// The lists and boxes in which a pair is given.
struct PairBoxes {
  ListBox* kind1;
  QLineEdit* value1;
  ListBox* kind2;
  QLineEdit* value2;
};

void setNote(QWidget& control, const BoxNote& note);
void setNotes(const PairBoxes& boxes, const PairNotes& notes);

void showNote(MessageLine& line, const BoxNote& note);
/// Words, and a click where they offer the exact state.
/// @param keys that do the same, for the tool tip
void showRemark(MessageLine& line, const PairNotes& notes, const QKeySequence& keys = {});

/// Puts a dry and a wet bulb into the boxes, as if they had been chosen and typed.
void putExact(const Bulbs& bulbs, const PairBoxes& boxes);

}  // namespace moistair
