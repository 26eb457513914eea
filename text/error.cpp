#include "text/error.h"

namespace moistair {

std::string Error::text() const { return place.empty() ? words : place + ": " + words; }

Error Error::within(const std::string& outer) const {
  return {code, place.empty() ? outer : outer + ", " + place, words};
}

}  // namespace moistair
