/// \file
/// A command that is not carried out.
#pragma once

namespace moistair {

/// Why, in the words for the user.
struct Refusal {
  const char* text;
  bool withCancel = false;  ///< buttons OK and Cancel, whose answer means nothing, instead of OK
};

}  // namespace moistair
