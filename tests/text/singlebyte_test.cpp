#include "text/singlebyte.h"

#include <gtest/gtest.h>

using namespace moistair;

TEST(SingleByte, OneByteForEachCharacter) {
  const struct {
    const char* name;
    std::string utf8, bytes;
  } rows[] = {
      {"latin-1, first and last", "\u00A0\u00FF", "\xA0\xFF"},
      {"two and three bytes, beyond latin-1", "\u0100\u20AC", "??"},
      {"four bytes", "a\U0001F321b", "a?b"},
      {"tab and nul", std::string("a\tb\0c", 5), "a b c"},
      {"delete and the controls above it", "\x7F\u0085", "  "},
      {"latin-1 instead of utf-8", "a\xE9z", "a?z"},
      {"cut off at the end", "a\xC3", "a?"},
      {"overlong slash", "\xC0\xAF", "??"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(toSingleByte(row.utf8), row.bytes);
  }
}

TEST(SingleByte, ReadsBackWhatItWrote) {
  std::string bytes;
  for (int c = 0x20; c < 0x100; ++c) {
    if (c < 0x7F || c >= 0xA0) bytes += static_cast<char>(c);
  }
  EXPECT_EQ(fromSingleByte("\xFC"), "\u00FC");
  EXPECT_EQ(toSingleByte(fromSingleByte(bytes)), bytes);
}
