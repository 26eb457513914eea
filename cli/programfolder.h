/// \file
/// Where the tool is, and so what is installed with it.
#pragma once

#include <filesystem>

namespace moistair {

/// The folder of this program; empty where the system does not say.
std::filesystem::path programFolder();

}  // namespace moistair
