#include "session/sessionvalues.h"

namespace moistair {

std::string pressurecaption(std::string_view pressuremode) {
  if (pressuremode == "0" || pressuremode == "1") return "Atmos. pr (in Hg)";
  if (pressuremode == "2") return "Atmos. pr (Pounds/sq inch)";
  if (pressuremode == "3") return "Site elevation (ft)";
  return {};
}

std::string pressureshown(std::string_view pressureentered) {
  return lenientnumber(pressureentered) == -1 ? std::string() : std::string(pressureentered);
}

}  // namespace moistair
