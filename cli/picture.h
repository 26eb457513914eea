/// \file
/// Pictures for the headless tool, which is linked to no toolkit.
///
/// A toolkit takes longer to start than a state to find. So what paints is a module of its own, built around the room
/// `paint` and loaded when the first picture is asked for. Tool and module come from one build and share its types.
#pragma once

#include <string>
#include <string_view>

#include "chart/drawing.h"
#include "sheet/content.h"
#include "sheet/options.h"

namespace moistair {

struct FileFormat;  ///< a kind of picture file; only the module knows more

struct PictureSize {
  int width, height;  ///< [logical pixels]
};

/// What the module does for one kind of file: a struct as C has it, since it is returned by a function of C's kind.
struct Painter {
  const FileFormat* format;  ///< null for none
  bool pixels;               ///< whether `scale` counts
  /// Puts in `bytes` the contents of the file; they are empty if they could not be made.
  void (*contents)(const FileFormat& format, const Drawing& drawing, PictureSize size, double scale,
                   std::string& bytes);
  /// The same for a sheet, which is laid out there, since that takes its fonts.
  void (*sheet)(const FileFormat& format, const SheetContent& content, const SheetOptions& options, double scale,
                std::string& bytes);
};

/// What the module exports: a painter by the ending of a file's name.
using PainterFunction = Painter (*)(std::string_view name);
inline constexpr const char* painterFunction = "moistair_painterofname";

/// Asks the module; one without a format for a name of another ending. A failure if the module is not next to the tool
/// as it was built or installed.
Painter painterOfName(std::string_view name);

}  // namespace moistair
