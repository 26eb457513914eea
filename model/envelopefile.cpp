#include "model/envelopefile.h"

#include <algorithm>

#include "files/inputfile.h"
#include "model/zonejson.h"
#include "text/words.h"

namespace moistair {

namespace {

bool isPath(const std::string& text) {
  return text.find('/') != std::string::npos || lowercase(text).ends_with(".json");
}

}  // namespace

Result<Envelope> readEnvelope(std::string_view text) {
  try {
    const Json json = parsedJson(text);
    const JsonNode root(json, "");
    root.onlyKeys({"format", "name", "title", "limits", "derating"});
    if (root.at("format").number() != envelopeFormat)
      root.at("format").fail("must be " + std::to_string(envelopeFormat));
    Envelope envelope = envelopeOf(root);
    if (Outcome checked = checkEnvelope(envelope); !checked) return checked.error();
    return envelope;
  } catch (const JsonFault& fault) {
    return fault.error();
  } catch (const std::exception& fault) {
    return Error{ErrorCode::unreadable, {}, fault.what()};
  }
}

Result<Envelope> readEnvelopeFile(const std::filesystem::path& file) {
  constexpr std::size_t largest = std::size_t{1} << 20;
  const Result<std::string> text = readFile(file, Links::followed, largest);
  Result<Envelope> envelope = text ? readEnvelope(*text) : Result<Envelope>(text.error());
  return envelope ? envelope : envelope.error().within(file.string());
}

std::vector<std::string> envelopeNames(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  std::error_code none;
  for (std::filesystem::directory_iterator at(folder, none); !none && at != std::filesystem::directory_iterator();
       at.increment(none)) {
    if (at->path().extension() == ".json") names.push_back(at->path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

Result<Envelope> envelopeOf(const std::string& nameOrPath, const std::filesystem::path& folder) {
  if (isPath(nameOrPath)) return readEnvelopeFile(nameOrPath);
  std::string offered;
  for (const std::string& name : envelopeNames(folder)) {
    if (lowercase(name) == lowercase(nameOrPath)) return readEnvelopeFile(folder / (name + ".json"));
    offered += (offered.empty() ? "" : ", ") + name;
  }
  if (offered.empty()) return Error{ErrorCode::unknownName, folder.string(), "no envelopes are installed there"};
  return Error{ErrorCode::unknownName, "envelope",
               "\"" + nameOrPath + "\" must be one of " + offered + ", or a file that ends in .json"};
}

}  // namespace moistair
