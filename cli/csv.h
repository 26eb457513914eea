/// \file
/// Tables as comma-separated values (RFC 4180), read in constant memory and without losing a byte.
///
/// Fields are separated by commas or another character, records by line ends; a field that begins with a quote may hold
/// both, and a doubled quote means one. Beyond the standard, a quote inside an unquoted field is an ordinary
/// character, and what follows a closing quote belongs to its field. Records are cut out first, in blocks of whole
/// records, and taken apart later, which may happen on another thread.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace moistair {

class Input;

/// Finds where records end, byte by byte, over any number of blocks.
class RecordScanner {
public:
  explicit RecordScanner(char delimiter = ',') : delimiter_(delimiter) {}

  /// One past the last line end of the text that is no part of a quoted field; 0 if there is none.
  std::size_t lastEnd(std::string_view text);

private:
  enum class ScanState { fieldStart, plain, quoted, quoteInQuoted };
  char delimiter_;
  ScanState state_ = ScanState::fieldStart;

  bool advance(char c);
};

/// Cuts an input into blocks of whole records.
class BlockReader {
public:
  /// As long as a record may be [bytes]; beyond it a quote was most likely left open.
  static constexpr std::size_t longestRecord = 8u << 20;

  explicit BlockReader(Input& input, char delimiter = ',') : input_(input), scanner_(delimiter) {}

  /// The next records as soon as they have come in; none at the end, and before a record that is too long. The last one
  /// may lack its line end.
  std::optional<std::string> next();

  /// Whether a record that is too long has ended the reading.
  bool gaveUp() const { return gaveUp_; }

private:
  static constexpr std::size_t readSize = 16u << 10;

  Input& input_;
  RecordScanner scanner_;
  std::string pending_;  ///< read and not yet handed out, without a record end
  bool ended_ = false;
  bool gaveUp_ = false;
};

/// Which fields of the records are to be kept; all others are only counted, however many there are.
struct CsvSelection {
  std::vector<std::size_t> wanted;  ///< numbers of fields, from 0 and rising
  std::size_t columns = 0;          ///< so many fields should a record have
};

/// One record, taken apart. The views are into the text it was read from.
struct CsvRecord {
  std::string_view raw;                  ///< as read, without its line end
  std::string_view columns;              ///< the same without the fields that are too many
  std::vector<std::string_view> fields;  ///< those wanted, each as read, with its quotes
  std::size_t count = 0;                 ///< of all fields
  std::string_view lineEnd;              ///< "\n", "\r\n", or empty at the end of the input
  bool quoteOpen = false;                ///< the input ended within a quoted field

  bool blank() const { return raw.empty(); }
};

/// Takes the first record off the text; false if nothing is left.
bool takeRecord(std::string_view& text, CsvRecord& record, char delimiter = ',', const CsvSelection& selection = {});

/// Calls `see` with each field of a record, as read.
void eachField(std::string_view raw, char delimiter, const std::function<void(std::string_view field)>& see);

/// What a field says, without its quotes. `scratch` holds the text where a doubled quote had to go.
std::string_view fieldText(std::string_view field, std::string& scratch);

}  // namespace moistair
