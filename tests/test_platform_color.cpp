#include <gtest/gtest.h>
#include <lcms2.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include <unistd.h>

#include "AssertionCapture.h"
#include "VYRMMColorProfile.h"
#include "VYRMMColorProfileFactory.h"
#include "VYRMMColorTransform.h"
#include "VYRPixelImage.h"

namespace {

using Bytes = std::vector<unsigned char>;

Bytes PixelsOf(const VYRPixelImage& i_image) {
  return Bytes(i_image.GetPixels(), i_image.GetPixels() + i_image.GetByteCount());
}

// ICC files made on the spot, removed when the fixture goes.
class ColorProfileFiles : public ::testing::Test {
 protected:
  void TearDown() override {
    for (const std::string& path : _paths) std::remove(path.c_str());
  }

  std::string Save(cmsHPROFILE i_hProfile, const char* i_name) {
    // Tests run as parallel processes: each writes files of its own.
    const std::string path = ::testing::TempDir() + "vyr_color_" + std::to_string(getpid()) + "_" + i_name + ".icc";
    EXPECT_TRUE(cmsSaveProfileToFile(i_hProfile, path.c_str()));
    cmsCloseProfile(i_hProfile);
    _paths.push_back(path);
    return path;
  }

  std::string SaveSRGB() { return Save(cmsCreate_sRGBProfile(), "srgb"); }
  std::string SaveGrey() {
    cmsToneCurve* gamma = cmsBuildGamma(nullptr, 2.2);
    cmsHPROFILE grey = cmsCreateGrayProfile(cmsD50_xyY(), gamma);
    cmsFreeToneCurve(gamma);
    return Save(grey, "grey");
  }
  std::string SaveLab() { return Save(cmsCreateLab4Profile(nullptr), "lab"); }

  std::vector<std::string> _paths;
};

}  // namespace

TEST_F(ColorProfileFiles, ProfilesFromFilesReportTheirColourSpace) {
  struct Case {
    std::string path;
    unsigned int signature;
    int components;
  } cases[] = {{SaveSRGB(), 0x52474220u, 3}, {SaveGrey(), 0x47524159u, 1}, {SaveLab(), 0x4C616220u, 3}};
  for (const Case& c : cases) {
    VYRMMColorProfile* profile = VYRMMColorProfileFactory::CreateColorProfileFromFile(VYRUnicodeString(c.path));
    ASSERT_NE(profile, nullptr) << c.path;
    EXPECT_TRUE(profile->exist());
    EXPECT_EQ(profile->getProfileColorSpaceSignature(), c.signature);
    EXPECT_EQ(profile->getNumberOfColorComponents(), c.components);
    EXPECT_EQ(profile->GetRefCount(), 1u);
    profile->Release();
  }
  VYRMMColorProfile* srgb = VYRMMColorProfileFactory::CreateSRGBColorProfile();
  ASSERT_NE(srgb, nullptr);
  EXPECT_EQ(srgb->getProfileColorSpaceSignature(), VYRICCColorSpace_RGB);
  EXPECT_FALSE(srgb->getDescription().IsEmpty());
  srgb->Release();
}

TEST_F(ColorProfileFiles, MissingOrDamagedProfilesYieldNothingWithoutReport) {
  AssertionCapture capture;
  EXPECT_EQ(VYRMMColorProfileFactory::CreateColorProfileFromFile("/nonexistent/dir/none.icc"), nullptr);
  EXPECT_EQ(VYRMMColorProfileFactory::CreateColorProfileFromFile(""), nullptr);
  const std::string garbagePath = ::testing::TempDir() + "vyr_color_garbage.icc";
  std::ofstream(garbagePath) << "this is not a colour profile at all, only some text";
  _paths.push_back(garbagePath);
  EXPECT_EQ(VYRMMColorProfileFactory::CreateColorProfileFromFile(VYRUnicodeString(garbagePath)), nullptr);
  const char garbage[200] = "acsp";
  EXPECT_EQ(VYRMMColorProfileFactory::CreateColorProfileFromMemory(garbage, sizeof garbage), nullptr);
  EXPECT_EQ(VYRMMColorProfileFactory::CreateColorProfileFromMemory(nullptr, 10), nullptr);
  EXPECT_TRUE(capture.Reports().empty());

  VYRMMColorProfile nothing;
  EXPECT_FALSE(nothing.exist());
  EXPECT_EQ(nothing.getProfileColorSpaceSignature(), 0u);
  EXPECT_EQ(nothing.getNumberOfColorComponents(), 0);
}

TEST(ColorProfile, ProfileFromMemoryCopiesTheBytes) {
  cmsToneCurve* linear = cmsBuildGamma(nullptr, 1.0);
  cmsHPROFILE grey = cmsCreateGrayProfile(cmsD50_xyY(), linear);
  cmsFreeToneCurve(linear);
  cmsUInt32Number length = 0;
  cmsSaveProfileToMem(grey, nullptr, &length);
  Bytes bytes(length);
  cmsSaveProfileToMem(grey, bytes.data(), &length);
  cmsCloseProfile(grey);

  VYRMMColorProfile* profile = VYRMMColorProfileFactory::CreateColorProfileFromMemory(bytes.data(), static_cast<int>(length));
  ASSERT_NE(profile, nullptr);
  std::fill(bytes.begin(), bytes.end(), 0);
  EXPECT_EQ(profile->getProfileColorSpaceSignature(), VYRICCColorSpace_GRAY);
  profile->Release();
}

TEST_F(ColorProfileFiles, SRGBToSRGBIsTheIdentity) {
  VYRMMColorProfile* fromFile = VYRMMColorProfileFactory::CreateColorProfileFromFile(VYRUnicodeString(SaveSRGB()));
  VYRMMColorProfile* builtIn = VYRMMColorProfileFactory::CreateSRGBColorProfile();
  ASSERT_NE(fromFile, nullptr);
  auto* transform = new VYRMMColorTransform(fromFile, builtIn, 0);
  EXPECT_TRUE(transform->IsValid());

  VYRPixelImage image(256, 3, VYRPixelImageFormat_RGBA32);
  unsigned char* p = image.GetPixelsToModify();
  for (int x = 0; x < 256; ++x) {
    const unsigned char v = static_cast<unsigned char>(x);
    const unsigned char rows[3][4] = {{v, v, v, 255}, {v, static_cast<unsigned char>(255 - v), 0, v},
                                      {static_cast<unsigned char>(x * 7), static_cast<unsigned char>(x * 13), v, 3}};
    for (int y = 0; y < 3; ++y) std::copy(rows[y], rows[y] + 4, p + (y * 256 + x) * 4);
  }
  const Bytes before = PixelsOf(image);
  EXPECT_EQ(transform->DoTransform(&image), VYR_S_OK);
  EXPECT_EQ(PixelsOf(image), before);

  VYRPixelImage* rgb = image.ConvertTo(VYRPixelImageFormat_RGB24);
  VYRPixelImage* result = nullptr;
  EXPECT_EQ(transform->DoTransform(rgb, result), VYR_S_OK);
  ASSERT_NE(result, nullptr);
  EXPECT_EQ(result->GetFormat(), VYRPixelImageFormat_RGB24);
  EXPECT_EQ(PixelsOf(*result), PixelsOf(*rgb));
  result->Release();
  rgb->Release();

  // As the colour-profile registry converts one colour: a 1 x 1 RGB image.
  unsigned char pixel[3] = {255, 127, 0};
  VYRPixelImage single(1, 1, VYRPixelImageFormat_RGB24, pixel, VYRDeallocatePixels_ImageCopiesPixels);
  EXPECT_GE(transform->DoTransform(&single), 0);
  unsigned char r, g, b, a;
  single.GetColorAtPixel(0, 0, r, g, b, a);
  EXPECT_EQ((Bytes{r, g, b, a}), (Bytes{255, 127, 0, 255}));

  const float components[3] = {1.0f, 0.5f, 0.0f};
  EXPECT_EQ(transform->TransformColorToRGB8(components, 3, r, g, b), VYR_S_OK);
  EXPECT_EQ((Bytes{r, g, b}), (Bytes{255, 128, 0}));
  transform->Release();
  fromFile->Release();
  builtIn->Release();
}

TEST_F(ColorProfileFiles, PremultipliedPixelsConvertAsTheirStraightColour) {
  VYRMMColorProfile* srgb = VYRMMColorProfileFactory::CreateSRGBColorProfile();
  VYRMMColorProfile* grey = VYRMMColorProfileFactory::CreateColorProfileFromFile(VYRUnicodeString(SaveGrey()));
  ASSERT_NE(grey, nullptr);
  unsigned char pixels[] = {25, 50, 100, 128, 0, 0, 0, 0, 255, 255, 255, 255};
  VYRPixelImage image(3, 1, VYRPixelImageFormat_BGRA32Premultiplied, pixels, VYRDeallocatePixels_CallerKeepsPixels);

  auto* identity = new VYRMMColorTransform(srgb, srgb, 1);
  EXPECT_EQ(identity->DoTransform(&image), VYR_S_OK);
  EXPECT_EQ(PixelsOf(image), (Bytes{25, 50, 100, 128, 0, 0, 0, 0, 255, 255, 255, 255}));
  identity->Release();

  auto* toGrey = new VYRMMColorTransform(srgb, grey, 0);
  VYRPixelImage* result = nullptr;
  EXPECT_EQ(toGrey->DoTransform(&image, result), VYR_S_OK);
  ASSERT_NE(result, nullptr);
  EXPECT_EQ(result->GetFormat(), VYRPixelImageFormat_GreyAlpha16);
  const Bytes greyPixels = PixelsOf(*result);
  EXPECT_EQ(greyPixels[1], 128);  // alpha carried over
  EXPECT_EQ(greyPixels[3], 0);
  EXPECT_EQ(greyPixels[4], 255);  // white stays white
  EXPECT_EQ(greyPixels[5], 255);
  result->Release();
  toGrey->Release();
  srgb->Release();
  grey->Release();
}

TEST_F(ColorProfileFiles, TransformToAndFromGrey) {
  VYRMMColorProfile* srgb = VYRMMColorProfileFactory::CreateSRGBColorProfile();
  VYRMMColorProfile* grey = VYRMMColorProfileFactory::CreateColorProfileFromFile(VYRUnicodeString(SaveGrey()));
  VYRMMColorProfile* lab = VYRMMColorProfileFactory::CreateColorProfileFromFile(VYRUnicodeString(SaveLab()));
  ASSERT_TRUE(grey && lab);

  unsigned char rgb[] = {0, 0, 0, 255, 255, 255, 255, 0, 0};
  VYRPixelImage colours(3, 1, VYRPixelImageFormat_RGB24, rgb, VYRDeallocatePixels_CallerKeepsPixels);
  auto* toGrey = new VYRMMColorTransform(srgb, grey, 0);
  VYRPixelImage* greyImage = nullptr;
  EXPECT_EQ(toGrey->DoTransform(&colours, greyImage), VYR_S_OK);
  ASSERT_NE(greyImage, nullptr);
  EXPECT_EQ(greyImage->GetFormat(), VYRPixelImageFormat_Grey8);
  const Bytes greys = PixelsOf(*greyImage);
  EXPECT_EQ(greys[0], 0);
  EXPECT_EQ(greys[1], 255);
  EXPECT_GT(greys[2], 0);
  EXPECT_LT(greys[2], 255);

  auto* back = new VYRMMColorTransform(grey, srgb, 0);
  unsigned char r = 1, g = 2, b = 3;
  const float white = 1.0f;
  EXPECT_EQ(back->TransformColorToRGB8(&white, 1, r, g, b), VYR_S_OK);
  EXPECT_EQ((Bytes{r, g, b}), (Bytes{255, 255, 255}));

  auto* fromLab = new VYRMMColorTransform(lab, srgb, 1);
  const float labWhite[3] = {100.0f, 0.0f, 0.0f};
  EXPECT_EQ(fromLab->TransformColorToRGB8(labWhite, 3, r, g, b), VYR_S_OK);
  EXPECT_EQ((Bytes{r, g, b}), (Bytes{255, 255, 255}));

  for (VYRBaseUnknown* object : std::initializer_list<VYRBaseUnknown*>{greyImage, toGrey, back, fromLab, srgb, grey, lab})
    object->Release();
}

TEST_F(ColorProfileFiles, MismatchedUsesAreReportedAndLeaveThePixels) {
  VYRMMColorProfile* srgb = VYRMMColorProfileFactory::CreateSRGBColorProfile();
  VYRMMColorProfile* grey = VYRMMColorProfileFactory::CreateColorProfileFromFile(VYRUnicodeString(SaveGrey()));
  VYRMMColorProfile* lab = VYRMMColorProfileFactory::CreateColorProfileFromFile(VYRUnicodeString(SaveLab()));
  VYRPixelImage image(2, 2, VYRPixelImageFormat_RGB24);
  std::fill_n(image.GetPixelsToModify(), image.GetByteCount(), 77);
  const Bytes before = PixelsOf(image);
  AssertionCapture capture;

  auto* greyToRGB = new VYRMMColorTransform(grey, srgb, 0);
  EXPECT_LT(greyToRGB->DoTransform(&image), 0);
  EXPECT_TRUE(capture.Has("_pSource->getProfileColorSpaceSignature() == ColorSpaceOf(format)"));
  unsigned char r = 1, g = 2, b = 3;
  const float twoComponents[2] = {0.5f, 0.5f};
  EXPECT_LT(greyToRGB->TransformColorToRGB8(twoComponents, 2, r, g, b), 0);
  EXPECT_EQ((Bytes{r, g, b}), (Bytes{1, 2, 3}));

  auto* rgbToLab = new VYRMMColorTransform(srgb, lab, 0);
  VYRPixelImage* result = reinterpret_cast<VYRPixelImage*>(1);
  EXPECT_LT(rgbToLab->DoTransform(&image, result), 0);
  EXPECT_EQ(result, nullptr);
  EXPECT_TRUE(capture.Has("resultFormat >= 0"));

  auto* identity = new VYRMMColorTransform(srgb, srgb, 0);
  image.LockAsReadOnly();
  EXPECT_LT(identity->DoTransform(&image), 0);
  EXPECT_TRUE(capture.Has("!io_pImage->IsReadOnly()"));
  EXPECT_EQ(PixelsOf(image), before);

  for (VYRBaseUnknown* object : std::initializer_list<VYRBaseUnknown*>{greyToRGB, rgbToLab, identity, srgb, grey, lab})
    object->Release();
}

TEST(ColorTransform, HoldsItsProfilesAndRefusesMissingOnes) {
  VYRMMColorProfile* srgb = VYRMMColorProfileFactory::CreateSRGBColorProfile();
  auto* transform = new VYRMMColorTransform(srgb, srgb, 0);
  EXPECT_EQ(srgb->GetRefCount(), 3u);
  transform->Release();
  EXPECT_EQ(srgb->GetRefCount(), 1u);

  AssertionCapture capture;
  VYRMMColorProfile nothing;
  auto* broken = new VYRMMColorTransform(nullptr, &nothing, 9);
  EXPECT_FALSE(broken->IsValid());
  EXPECT_EQ(capture.Expressions(),
            (std::vector<std::string>{"i_pSource", "i_pDestination->exist()",
                                      "i_intent >= INTENT_PERCEPTUAL && i_intent <= INTENT_ABSOLUTE_COLORIMETRIC"}));
  VYRPixelImage image(1, 1, VYRPixelImageFormat_RGB24);
  EXPECT_LT(broken->DoTransform(&image), 0);
  EXPECT_TRUE(capture.Has("IsValid()"));
  broken->Release();
  EXPECT_EQ(nothing.GetRefCount(), 1u);
  srgb->Release();
}
