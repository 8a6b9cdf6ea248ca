#include <gtest/gtest.h>

#include <unistd.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "TestPrinters.h"
#include "VYRFile.h"
#include "VYRSystem.h"

namespace fs = std::filesystem;

namespace {

// A fresh directory removed with its content at the end of the test.
class TempDir {
 public:
  TempDir() {
    std::string pattern = (fs::temp_directory_path() / "vyr_files_XXXXXX").string();
    _path = mkdtemp(pattern.data()) ? pattern : std::string();
  }
  ~TempDir() { fs::remove_all(_path); }
  std::string File(const std::string& i_name) const { return (fs::path(_path) / i_name).string(); }
  const std::string& Path() const { return _path; }

 private:
  std::string _path;
};

void WriteText(const std::string& i_path, const std::string& i_text) {
  fs::create_directories(fs::path(i_path).parent_path());
  std::ofstream(i_path, std::ios::binary) << i_text;
}

// Sets an environment variable for one test and restores the old value.
class ScopedEnv {
 public:
  ScopedEnv(const char* i_name, const char* i_value) : _name(i_name) {
    const char* old = std::getenv(i_name);
    _hadValue = old != nullptr;
    if (old) _oldValue = old;
    if (i_value) {
      setenv(i_name, i_value, 1);
    } else {
      unsetenv(i_name);
    }
  }
  ~ScopedEnv() {
    if (_hadValue) {
      setenv(_name.c_str(), _oldValue.c_str(), 1);
    } else {
      unsetenv(_name.c_str());
    }
  }

 private:
  std::string _name, _oldValue;
  bool _hadValue = false;
};

}  // namespace

TEST(PlatformFile, WrittenBytesReadBackExactly) {
  TempDir dir;
  const std::string bytes("\x00\x01\xff\n\r\x7f" "abc", 9);
  VYRFileHandle file = nullptr;
  ASSERT_EQ(VYRFileOpen(dir.File("data.bin").c_str(), "wb", file), VYR_S_OK);
  size_t written = 0;
  EXPECT_EQ(VYRFileWrite(file, bytes.data(), bytes.size(), written), VYR_S_OK);
  EXPECT_EQ(written, bytes.size());
  EXPECT_EQ(VYRFileClose(file), VYR_S_OK);

  ASSERT_EQ(VYRFileOpen(dir.File("data.bin").c_str(), "rb", file), VYR_S_OK);
  char buffer[32] = {};
  size_t read = 0;
  EXPECT_EQ(VYRFileRead(file, buffer, 4, read), VYR_S_OK);
  EXPECT_EQ(read, 4u);
  // Asking for more than is left gives the rest and says the end was reached.
  EXPECT_EQ(VYRFileRead(file, buffer + 4, sizeof(buffer) - 4, read), VYR_S_FALSE);
  EXPECT_EQ(read, bytes.size() - 4);
  EXPECT_EQ(std::string(buffer, bytes.size()), bytes);
  EXPECT_EQ(VYRFileClose(file), VYR_S_OK);
}

TEST(PlatformFile, WritePlusTruncatesAnExistingFile) {
  TempDir dir;
  WriteText(dir.File("t.xml"), "a much longer old content");
  VYRFileHandle file = nullptr;
  ASSERT_EQ(VYRFileOpen(dir.File("t.xml").c_str(), "w+", file), VYR_S_OK);
  size_t written = 0;
  EXPECT_EQ(VYRFileWrite(file, "new", 3, written), VYR_S_OK);
  EXPECT_EQ(VYRFileClose(file), VYR_S_OK);
  EXPECT_EQ(fs::file_size(dir.File("t.xml")), 3u);
}

TEST(PlatformFile, FailedOpenGivesStatusAndNullHandleThatLaterCallsRefuse) {
  TempDir dir;
  VYRFileHandle file = reinterpret_cast<VYRFileHandle>(&dir);
  EXPECT_EQ(VYRFileOpen(dir.File("missing.bin").c_str(), "rb", file), VYR_E_FILENOTFOUND);
  EXPECT_EQ(file, nullptr);
  EXPECT_EQ(VYRFileOpen(dir.File("no/such/dir/x.bin").c_str(), "wb", file), VYR_E_FILENOTFOUND);
  EXPECT_EQ(VYRFileOpen(dir.File("x.bin").c_str(), "q", file), VYR_E_INVALIDARG);
  EXPECT_EQ(VYRFileOpen(dir.File("x.bin").c_str(), "", file), VYR_E_INVALIDARG);
  EXPECT_EQ(VYRFileOpen(dir.File("x.bin").c_str(), nullptr, file), VYR_E_INVALIDARG);
  EXPECT_EQ(VYRFileOpen("", "rb", file), VYR_E_INVALIDARG);
  EXPECT_FALSE(fs::exists(dir.File("x.bin")));

  // What a caller that does not check the open goes on to do.
  char buffer[4];
  size_t count = 7;
  EXPECT_EQ(VYRFileRead(nullptr, buffer, 4, count), VYR_E_INVALIDARG);
  EXPECT_EQ(count, 0u);
  EXPECT_EQ(VYRFileWrite(nullptr, buffer, 4, count), VYR_E_INVALIDARG);
  EXPECT_EQ(VYRFileClose(nullptr), VYR_E_INVALIDARG);
}

TEST(PlatformFile, AccessModes) {
  TempDir dir;
  WriteText(dir.File("present.txt"), "x");
  EXPECT_EQ(VYRFileAccess(dir.File("present.txt").c_str(), VYR_ACCESS_EXISTS), VYR_S_OK);
  EXPECT_EQ(VYRFileAccess(dir.File("present.txt").c_str(), VYR_ACCESS_READ), VYR_S_OK);
  EXPECT_EQ(VYRFileAccess(dir.File("present.txt").c_str(), VYR_ACCESS_WRITE), VYR_S_OK);
  EXPECT_EQ(VYRFileAccess(dir.File("present.txt").c_str(), VYR_ACCESS_READ | VYR_ACCESS_WRITE), VYR_S_OK);
  for (int mode : {0, 2, 4}) EXPECT_EQ(VYRFileAccess(dir.File("absent.txt").c_str(), mode), VYR_E_FILENOTFOUND);
  EXPECT_EQ(VYRFileAccess("", VYR_ACCESS_EXISTS), VYR_E_FILENOTFOUND);
  EXPECT_EQ(VYRFileAccess(dir.File("present.txt").c_str(), 8), VYR_E_INVALIDARG);
  EXPECT_EQ(VYRFileAccess(dir.File("present.txt").c_str(), -1), VYR_E_INVALIDARG);
  if (geteuid() != 0) {  // root may write anything
    fs::permissions(dir.File("present.txt"), fs::perms::owner_read);
    EXPECT_EQ(VYRFileAccess(dir.File("present.txt").c_str(), VYR_ACCESS_WRITE), VYR_E_ACCESSDENIED);
  }
}

TEST(PlatformEnvironment, SetEmptyAndUnsetVariables) {
  VYRUnicodeString value;
  {
    ScopedEnv env("VYR_TEST_VARIABLE", "some value");
    EXPECT_EQ(VYRGetEnvironmentVariable("VYR_TEST_VARIABLE", value), VYR_S_OK);
    EXPECT_EQ(value, "some value");
  }
  {
    ScopedEnv env("VYR_TEST_VARIABLE", "");
    EXPECT_EQ(VYRGetEnvironmentVariable("VYR_TEST_VARIABLE", value), VYR_S_OK);
    EXPECT_EQ(value, "");
  }
  value = "stale";
  EXPECT_EQ(VYRGetEnvironmentVariable("VYR_TEST_VARIABLE", value), VYR_E_FAIL);
  EXPECT_EQ(value, "");
  EXPECT_EQ(VYRGetEnvironmentVariable("", value), VYR_E_INVALIDARG);
}

TEST(PlatformEnvironment, PathFoundUnderTheFirstRootHoldingIt) {
  TempDir first, second;
  WriteText(second.Path() + "/resources/ICCColorProfiles/icc/x.icc", "profile");
  const std::string roots = first.Path() + ";" + second.Path() + "/";
  ScopedEnv env("VYR_TEST_ROOTS", roots.c_str());
  const std::string expected = second.Path() + "/resources/ICCColorProfiles/icc/x.icc";

  VYRUnicodeString path;
  EXPECT_EQ(VYRGetFilePathFromOfficialVariable("resources/ICCColorProfiles/icc/x.icc", "VYR_TEST_ROOTS", path),
            VYR_S_OK);
  EXPECT_EQ(path, expected.c_str());
  EXPECT_EQ(VYRGetFilePathFromOfficialVariable("resources\\ICCColorProfiles\\icc\\x.icc", "VYR_TEST_ROOTS", path),
            VYR_S_OK);
  EXPECT_EQ(path, expected.c_str());
  EXPECT_EQ(VYRGetFilePathFromOfficialVariable("\\resources/ICCColorProfiles\\icc/x.icc", "VYR_TEST_ROOTS", path),
            VYR_S_OK);
  EXPECT_EQ(path, expected.c_str());

  // Once the first root holds the file too, it wins.
  WriteText(first.Path() + "/resources/ICCColorProfiles/icc/x.icc", "profile");
  EXPECT_EQ(VYRGetFilePathFromOfficialVariable("resources/ICCColorProfiles/icc/x.icc", "VYR_TEST_ROOTS", path),
            VYR_S_OK);
  EXPECT_EQ(path, (first.Path() + "/resources/ICCColorProfiles/icc/x.icc").c_str());
}

TEST(PlatformEnvironment, PathResolutionFailures) {
  TempDir root;
  VYRUnicodeString path = "stale";
  {
    ScopedEnv env("VYR_TEST_ROOTS", nullptr);
    EXPECT_EQ(VYRGetFilePathFromOfficialVariable("a.txt", "VYR_TEST_ROOTS", path), VYR_E_FAIL);
    EXPECT_EQ(path, "");
  }
  ScopedEnv env("VYR_TEST_ROOTS", (";" + root.Path() + ";;").c_str());
  EXPECT_EQ(VYRGetFilePathFromOfficialVariable("a.txt", "VYR_TEST_ROOTS", path), VYR_E_FAIL);
  // An empty relative path would name the root itself.
  EXPECT_EQ(VYRGetFilePathFromOfficialVariable("", "VYR_TEST_ROOTS", path), VYR_E_FAIL);
  WriteText(root.File("a.txt"), "a");
  EXPECT_EQ(VYRGetFilePathFromOfficialVariable("a.txt", "VYR_TEST_ROOTS", path), VYR_S_OK);
  EXPECT_EQ(path, root.File("a.txt").c_str());
}

TEST(PlatformEnvironment, BuildTreeIsAnInstallationRootForTheDtd) {
  VYRUnicodeString path;
  ASSERT_EQ(VYRGetFilePathFromOfficialVariable("resources/reffiles/svg_dtd/svg11.dtd", "VYRInstallPath", path),
            VYR_S_OK);
  EXPECT_EQ(VYRFileAccess(path, VYR_ACCESS_READ), VYR_S_OK);
}

TEST(PlatformLocale, DecimalCharacterFollowsTheCLocale) {
  const std::string previous = std::setlocale(LC_NUMERIC, nullptr);
  std::setlocale(LC_NUMERIC, "C");
  VYRUnicodeString decimal;
  EXPECT_EQ(VYRSysGetLocalDecimalChar(decimal), VYR_S_OK);
  EXPECT_EQ(decimal, ".");
  // A comma locale, where the system has one.
  for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "de_DE", "fr_FR"}) {
    if (std::setlocale(LC_NUMERIC, name)) {
      EXPECT_EQ(VYRSysGetLocalDecimalChar(decimal), VYR_S_OK);
      EXPECT_EQ(decimal, ",");
      break;
    }
  }
  std::setlocale(LC_NUMERIC, previous.c_str());
}
