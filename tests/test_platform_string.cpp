#include <gtest/gtest.h>

#include "TestPrinters.h"
#include "VYRUnicodeString.h"

TEST(UnicodeString, NonAsciiLengthsCountBytesOfTheUtf8Form) {
  VYRUnicodeString text("Gr\xC3\xBC\xC3\x9F \xCE\xB1\xE2\x82\xAC\xF0\x9F\x98\x80");  // "Grüß α€😀"
  EXPECT_EQ(text.GetLengthInChar(), 16);
  EXPECT_EQ(text.GetCodePointCount(), 8);
  EXPECT_EQ(text.ConvertToCodePoints(), std::u32string(U"Gr\u00FC\u00DF \u03B1\u20AC\U0001F600"));
  EXPECT_STREQ(text.CastToCharPtr(), "Gr\xC3\xBC\xC3\x9F \xCE\xB1\xE2\x82\xAC\xF0\x9F\x98\x80");

  char buffer[17];
  EXPECT_EQ(text.ConvertToUTF8(buffer, 16), -1);  // no room for the terminator
  EXPECT_EQ(text.ConvertToUTF8(buffer, sizeof buffer), 16);
  EXPECT_EQ(VYRUnicodeString(buffer, 16), text);
}

TEST(UnicodeString, InvalidUtf8SurvivesAndDecodesAsReplacement) {
  VYRUnicodeString text("a\xFF\xC3", 3);  // a stray byte and a truncated sequence
  EXPECT_EQ(text.GetLengthInChar(), 3);
  EXPECT_EQ(text.ConvertToCodePoints(), std::u32string(U"a\uFFFD\uFFFD"));
  VYRUnicodeString withZero("a\0b", 3);
  EXPECT_EQ(withZero.GetLengthInChar(), 3);
}

TEST(UnicodeString, ConstructionAndComparison) {
  EXPECT_TRUE(VYRUnicodeString().IsEmpty());
  EXPECT_TRUE(VYRUnicodeString(nullptr).IsEmpty());
  EXPECT_EQ(VYRUnicodeString("abcdef", 3), "abc");
  EXPECT_TRUE(VYRUnicodeString("abc") == "abc");
  EXPECT_TRUE(VYRUnicodeString("abc") != VYRUnicodeString("abd"));
  EXPECT_LT(VYRUnicodeString("abc").Compare("abd"), 0);
  EXPECT_TRUE(VYRUnicodeString("a") < VYRUnicodeString("b"));
  VYRString narrow("svg");
  VYRUnicodeString wide = narrow;
  EXPECT_EQ(wide, "svg");
  EXPECT_EQ(VYRString(wide), narrow);
}

TEST(UnicodeString, SearchAndSubStrings) {
  VYRUnicodeString text("<svg width=\"10\"><svg>");
  EXPECT_EQ(text.Find("<svg"), 0);
  EXPECT_EQ(text.Find("<svg", 1), 16);
  EXPECT_EQ(text.Find("nothing"), -1);
  EXPECT_EQ(text.Find("<svg", 100), -1);
  EXPECT_EQ(text.ReverseFind("\""), 14);
  EXPECT_EQ(text.ReverseFind("\"", 13), 11);
  EXPECT_EQ(text.SubString(5, 5), "width");
  EXPECT_EQ(text.SubString(16), "<svg>");
  EXPECT_TRUE(text.SubString(-1, 2).IsEmpty());
  EXPECT_TRUE(text.SubString(99).IsEmpty());
  EXPECT_EQ(text[1], 's');
  EXPECT_EQ(text[-1], '\0');
  EXPECT_EQ(text[1000], '\0');
}

TEST(UnicodeString, EditingOperations) {
  VYRUnicodeString text("<svg>");
  EXPECT_EQ(text.Insert(4, " xmlns=\"x\" "), 1);
  EXPECT_EQ(text, "<svg xmlns=\"x\" >");
  EXPECT_EQ(text.Replace(5, 5, "a"), 1);
  EXPECT_EQ(text, "<svg a=\"x\" >");
  EXPECT_EQ(text.Insert(-1, "z"), -1);
  EXPECT_EQ(text.Insert(1000, "!"), 1);  // clamped to the end
  EXPECT_EQ(text, "<svg a=\"x\" >!");

  VYRUnicodeString number("1.5 2.25");
  EXPECT_EQ(number.ReplaceAll(".", ","), 2);
  EXPECT_EQ(number, "1,5 2,25");
  EXPECT_EQ(number.ReplaceAll("", "x"), 0);
  EXPECT_EQ(number.RemoveChar(','), 2);
  EXPECT_EQ(number, "15 225");

  VYRUnicodeString sum = VYRUnicodeString("a") + "b";
  sum += "c";
  EXPECT_EQ(sum, "abc");
  auto parts = VYRUnicodeString("/a;/b;;").Split(';');
  ASSERT_EQ(parts.size(), 4u);
  EXPECT_EQ(parts[1], "/b");
  EXPECT_TRUE(parts[3].IsEmpty());
}
