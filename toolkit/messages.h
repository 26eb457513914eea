/// \file
/// Message boxes.
#pragma once

#include <QString>
#include <QWidget>

namespace moistair {

/// Shows a text under the application's title and waits for OK.
void message(QWidget* parent, const QString& text);

/// The same for something that has failed or was refused.
void warning(QWidget* parent, const QString& text);

/// The same as `message` with OK and Cancel; the answer means nothing.
void messageOkCancel(QWidget* parent, const QString& text);

/// Asks a question under a title of its own; true for Yes. Esc and the window manager answer No.
bool question(QWidget* parent, const QString& title, const QString& text);

/// Asks for one of two by their buttons' texts; true for the first. Esc and the window manager answer the first.
bool choice(QWidget* parent, const QString& text, const QString& first, const QString& second);

/// What the user wants with work that is not saved.
enum class Unsaved { save, discard, cancel };

/// Asks for it. Esc and the window manager answer Cancel.
Unsaved askToSave(QWidget* parent, const QString& text);

}  // namespace moistair
