/// \file
/// Where the program finds itself: the screen, the manual.
#pragma once

#include <QString>
#include <QWidget>
#include <optional>
#include <string>

namespace moistair {

/// A screen of this size [pixels] is large enough for the layout. The height is that of the question's 768 less what a
/// task bar takes.
inline constexpr int neededWidth = 1024;
inline constexpr int neededHeight = 728;

/// Whether the screen is at least so large, both in twips of a fixed 15 to the pixel.
/// @param screenWidth, screenHeight [twips]
bool checkRez(int pixelWidth, int pixelHeight, int screenWidth, int screenHeight);

/// The question for a smaller screen, by its own pixels whatever the scale of the desktop; true if the user wants to
/// leave the program. No question for a larger one.
bool leavesForSmallScreen(QWidget* parent);

/// The compiled help file next to the program if there is one, else our own manual; empty if neither is there.
QString helpPath();

/// What --help or --version print in place of a window; none without either.
std::optional<std::string> wantedText(int argc, char** argv);

/// Whether there is anything to show a window on. A program that starts without a display aborts with little to go by.
bool hasDisplay();

}  // namespace moistair
