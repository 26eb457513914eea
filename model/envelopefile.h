/// \file
/// Envelopes as files.
///
/// An envelope is a small file of JSON: its name, its title, lowest and highest values of any properties (null for
/// none) and how the highest dry bulb falls with the elevation. The named ones are files of this form in one folder,
/// installed with the program; users write theirs the same way (documented in the manual, comfort.html).
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "comfort/envelope.h"
#include "text/error.h"

namespace moistair {

inline constexpr int envelopeFormat = 1;

/// Where the installed envelopes are, from the folder of a program.
inline constexpr const char* envelopeFolder = "../share/moistair/envelopes";

Result<Envelope> readEnvelope(std::string_view text);

Result<Envelope> readEnvelopeFile(const std::filesystem::path& file);

/// The names of the files in a folder of envelopes, without their endings; empty for a folder that is not there.
std::vector<std::string> envelopeNames(const std::filesystem::path& folder);

/// The envelope of a file in the folder by its name, in letters of any case, or of a path with a slash or ".json" in
/// it. An error names those that there are.
Result<Envelope> envelopeOf(const std::string& nameOrPath, const std::filesystem::path& folder);

}  // namespace moistair
