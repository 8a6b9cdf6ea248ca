#include <gtest/gtest.h>
#include <lcms2.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

#include "VYRMMColorProfile.h"
#include "VYRPrtColorProfileElt.h"
#include "VYRPrtColorProfileManager.h"
#include "VYRRawCollfloat.h"

namespace fs = std::filesystem;

namespace {

// A temporary tree with ICC files written by the colour engine, and the
// installation roots restored afterwards.
class ColorProfiles : public ::testing::Test {
 protected:
  void SetUp() override {
    const char* value = std::getenv("VYRInstallPath");
    _hadInstallPath = value != nullptr;
    if (value) _installPath = value;
    _dir = fs::temp_directory_path() / ("vyr_profiles_" + std::to_string(::getpid()) + "_" +
                                        ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::create_directories(_dir);
  }
  void TearDown() override {
    if (_hadInstallPath) setenv("VYRInstallPath", _installPath.c_str(), 1);
    else unsetenv("VYRInstallPath");
    fs::remove_all(_dir);
  }

  std::string Save(cmsHPROFILE i_hProfile, const fs::path& i_relativePath) {
    const fs::path path = _dir / i_relativePath;
    fs::create_directories(path.parent_path());
    EXPECT_TRUE(cmsSaveProfileToFile(i_hProfile, path.string().c_str()));
    cmsCloseProfile(i_hProfile);
    return path.string();
  }
  std::string SaveSRGB(const fs::path& i_relativePath) { return Save(cmsCreate_sRGBProfile(), i_relativePath); }
  std::string SaveLab(const fs::path& i_relativePath) { return Save(cmsCreateLab4Profile(nullptr), i_relativePath); }
  // sRGB primaries with a linear tone curve: a colour that visibly changes on its way to sRGB.
  std::string SaveLinearRGB(const fs::path& i_relativePath) {
    cmsToneCurve* linear = cmsBuildGamma(nullptr, 1.0);
    cmsToneCurve* curves[3] = {linear, linear, linear};
    cmsCIExyYTRIPLE primaries = {{0.64, 0.33, 1.0}, {0.30, 0.60, 1.0}, {0.15, 0.06, 1.0}};
    cmsCIExyY white = {0.3127, 0.3290, 1.0};
    cmsHPROFILE profile = cmsCreateRGBProfile(&white, &primaries, curves);
    cmsFreeToneCurve(linear);
    return Save(profile, i_relativePath);
  }

  static VYRRawCollfloat Components(std::initializer_list<float> i_values) {
    VYRRawCollfloat components;
    for (float value : i_values) components.Append(value);
    return components;
  }

  fs::path _dir;

 private:
  bool _hadInstallPath = false;
  std::string _installPath;
};

}  // namespace

TEST_F(ColorProfiles, EntryKeepsNameAndLendsItsProfile) {
  VYRPrtColorProfileElt empty;
  EXPECT_TRUE(empty.GetName().IsEmpty());
  EXPECT_EQ(empty.GetColorProfile(), nullptr);
  EXPECT_STREQ(empty.IsA(), "VYRPrtColorProfileElt");

  VYRMMColorProfile profile;
  {
    VYRPrtColorProfileElt entry("p", &profile);
    EXPECT_EQ(entry.GetName(), "p");
    EXPECT_EQ(entry.GetColorProfile(), &profile);
  }
  EXPECT_EQ(profile.GetRefCount(), 1u);  // the entry did not release it
}

TEST_F(ColorProfiles, DocumentRelativePathIsTriedBesideTheDocument) {
  SaveSRGB("docs/icc/x.icc");
  VYRPrtColorProfileManager manager;
  EXPECT_EQ(manager.AddColorProfile("x", "./icc/x.icc", (_dir / "docs/a.svg").string().c_str()), 1);
  VYRMMColorProfile* profile = manager.FindColorProfile("x");
  ASSERT_NE(profile, nullptr);
  EXPECT_EQ(profile->getProfileColorSpaceSignature(), VYRICCColorSpace_RGB);
  EXPECT_EQ(manager.FindColorProfile("X"), nullptr);
}

TEST_F(ColorProfiles, ThenUnderTheInstallationRoots) {
  SaveSRGB("root2/resources/ICCColorProfiles/icc/x.icc");
  setenv("VYRInstallPath", ((_dir / "root1").string() + ";" + (_dir / "root2").string()).c_str(), 1);
  VYRPrtColorProfileManager manager;
  EXPECT_EQ(manager.AddColorProfile("x", "./icc/x.icc", (_dir / "docs/a.svg").string().c_str()), 1);
  EXPECT_NE(manager.FindColorProfile("x"), nullptr);

  EXPECT_EQ(manager.AddColorProfile("y", "./icc/missing.icc", (_dir / "docs/a.svg").string().c_str()), -1);
  EXPECT_EQ(manager.FindColorProfile("y"), nullptr);
  unsetenv("VYRInstallPath");
  EXPECT_EQ(manager.AddColorProfile("z", "./icc/x.icc", (_dir / "docs/a.svg").string().c_str()), -1);
}

TEST_F(ColorProfiles, OtherPathsAreLoadedUnchanged) {
  SaveSRGB("docs/sub/x.icc");
  VYRPrtColorProfileManager manager;
  const std::string document = (_dir / "docs/a.svg").string();
  // "./" inside the path does not make it document-relative.
  EXPECT_EQ(manager.AddColorProfile("rel", "sub/./x.icc", document.c_str()), -1);
  EXPECT_EQ(manager.AddColorProfile("abs", (_dir / "docs/sub/./x.icc").string().c_str(), document.c_str()), 1);
  EXPECT_EQ(manager.AddColorProfile("none", (_dir / "nothing.icc").string().c_str(), document.c_str()), -1);
  EXPECT_EQ(manager.AddColorProfile("dir", _dir.string().c_str(), document.c_str()), -1);
}

TEST_F(ColorProfiles, BareDocumentNameMeansTheCurrentDirectory) {
  SaveSRGB("icc/x.icc");
  const fs::path previous = fs::current_path();
  fs::current_path(_dir);
  VYRPrtColorProfileManager manager;
  EXPECT_EQ(manager.AddColorProfile("x", "./icc/x.icc", "a.svg"), 1);
  fs::current_path(previous);
}

TEST_F(ColorProfiles, FirstOfTwoEqualNamesIsFound) {
  const std::string srgb = SaveSRGB("srgb.icc");
  const std::string lab = SaveLab("lab.icc");
  VYRPrtColorProfileManager manager;
  EXPECT_EQ(manager.AddColorProfile("p", srgb.c_str(), ""), 1);
  EXPECT_EQ(manager.AddColorProfile("p", lab.c_str(), ""), 1);
  ASSERT_NE(manager.FindColorProfile("p"), nullptr);
  EXPECT_EQ(manager.FindColorProfile("p")->getProfileColorSpaceSignature(), VYRICCColorSpace_RGB);
}

TEST_F(ColorProfiles, ComponentsAreTruncatedToBytesThenConverted) {
  VYRPrtColorProfileManager manager;
  ASSERT_EQ(manager.AddColorProfile("srgb", SaveSRGB("srgb.icc").c_str(), ""), 1);
  ASSERT_EQ(manager.AddColorProfile("linear", SaveLinearRGB("linear.icc").c_str(), ""), 1);

  VYRRawCollfloat orange = Components({1.0f, 0.5f, 0.0f});
  unsigned int red = 9, green = 9, blue = 9;
  ASSERT_EQ(manager.GetColorInsRGB("srgb", orange, red, green, blue), 1);
  EXPECT_EQ(red, 255u);
  EXPECT_EQ(green, 127u);  // 127.5 truncated; sRGB to sRGB keeps it
  EXPECT_EQ(blue, 0u);

  ASSERT_EQ(manager.GetColorInsRGB("linear", orange, red, green, blue), 1);
  EXPECT_EQ(red, 255u);
  EXPECT_NEAR(green, 187.0, 2.0);  // linear 0.498 is about 187 in sRGB
  EXPECT_EQ(blue, 0u);

  VYRRawCollfloat outOfRange = Components({2.0f, -1.0f, 0.0f});
  ASSERT_EQ(manager.GetColorInsRGB("srgb", outOfRange, red, green, blue), 1);
  EXPECT_EQ(red, 255u);
  EXPECT_EQ(green, 0u);
}

TEST_F(ColorProfiles, NonRgbProfilesAndWrongCountsLeaveOutputsUntouched) {
  VYRPrtColorProfileManager manager;
  ASSERT_EQ(manager.AddColorProfile("srgb", SaveSRGB("srgb.icc").c_str(), ""), 1);
  ASSERT_EQ(manager.AddColorProfile("lab", SaveLab("lab.icc").c_str(), ""), 1);
  unsigned int red = 9, green = 9, blue = 9;
  VYRRawCollfloat four = Components({1, 0, 0, 0});
  VYRRawCollfloat three = Components({1, 0, 0});
  EXPECT_EQ(manager.GetColorInsRGB("srgb", four, red, green, blue), -1);
  EXPECT_EQ(manager.GetColorInsRGB("lab", three, red, green, blue), -1);
  EXPECT_EQ(manager.GetColorInsRGB("unknown", three, red, green, blue), -1);
  EXPECT_EQ(red + green + blue, 27u);
}
