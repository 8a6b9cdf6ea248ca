#include <gtest/gtest.h>

#include <string>

#include "TestPrinters.h"
#include "VYRFile.h"
#include "VYRFont.h"

TEST(PlatformFont, DefaultFontHasAReadableFile) {
  const VYRUnicodeString family = VYRFont::sGetDefaultFont();
  ASSERT_FALSE(family.IsEmpty());
  VYRFont* font = VYRFont::sGetFont(family, VYRFont::kNormal);
  ASSERT_NE(font, nullptr);
  EXPECT_EQ(font->GetFamilyName(), family);
  EXPECT_EQ(VYRFileAccess(font->GetFontFilePath(), VYR_ACCESS_READ), VYR_S_OK) << font->GetFontFilePath().GetStdString();
  EXPECT_GE(font->GetFaceIndex(), 0);
  EXPECT_FALSE(font->IsBold());
  EXPECT_FALSE(font->IsItalic());
  EXPECT_STREQ(font->IsA(), "VYRFont");
}

TEST(PlatformFont, StylesResolveToTheirOwnFaces) {
  VYRFont* regular = VYRFont::sGetFont("DejaVu Sans", VYRFont::kNormal);
  VYRFont* bold = VYRFont::sGetFont("DejaVu Sans", VYRFont::kBold);
  VYRFont* italic = VYRFont::sGetFont("DejaVu Sans", VYRFont::kItalic);
  VYRFont* boldItalic = VYRFont::sGetFont("DejaVu Sans", VYRFont::kBoldItalic);
  ASSERT_TRUE(regular && bold && italic && boldItalic);

  EXPECT_EQ(regular->GetFamilyName(), "DejaVu Sans");
  EXPECT_EQ(bold->GetFamilyName(), "DejaVu Sans");
  EXPECT_TRUE(bold->IsBold());
  EXPECT_FALSE(bold->IsItalic());
  EXPECT_NE(bold->GetStyleName().Find("Bold"), -1) << bold->GetStyleName().GetStdString();
  EXPECT_NE(bold->GetFontFilePath().Find("Bold"), -1) << bold->GetFontFilePath().GetStdString();
  EXPECT_TRUE(italic->IsItalic());
  EXPECT_FALSE(italic->IsBold());
  EXPECT_TRUE(boldItalic->IsBold() && boldItalic->IsItalic());

  // Four different files, each readable.
  const VYRUnicodeString paths[] = {regular->GetFontFilePath(), bold->GetFontFilePath(), italic->GetFontFilePath(),
                                    boldItalic->GetFontFilePath()};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(VYRFileAccess(paths[i], VYR_ACCESS_READ), VYR_S_OK);
    for (int j = i + 1; j < 4; ++j) EXPECT_NE(paths[i], paths[j]);
  }
}

TEST(PlatformFont, LookupsAreCachedAndOutliveCallersReferences) {
  VYRFont* first = VYRFont::sGetFont("DejaVu Serif", VYRFont::kBold);
  ASSERT_NE(first, nullptr);
  first->AddRef();
  first->Release();
  EXPECT_EQ(VYRFont::sGetFont("DejaVu Serif", VYRFont::kBold), first);
  EXPECT_EQ(first->GetRefCount(), 1u);
  // Bits beyond bold and italic do not make another entry.
  EXPECT_EQ(VYRFont::sGetFont("DejaVu Serif", VYRFont::kBold | 4), first);
}

TEST(PlatformFont, UnknownFamilyGetsTheNearestFaceAndEmptyNameNone) {
  VYRFont* substitute = VYRFont::sGetFont("No Such Family 12345", VYRFont::kNormal);
  ASSERT_NE(substitute, nullptr);
  EXPECT_NE(substitute->GetFamilyName(), "No Such Family 12345");
  EXPECT_EQ(VYRFileAccess(substitute->GetFontFilePath(), VYR_ACCESS_READ), VYR_S_OK);
  EXPECT_EQ(VYRFont::sGetFont("", VYRFont::kNormal), nullptr);
}
