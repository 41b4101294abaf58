// Files by name: positions beyond what an int holds, and what is no file at all.
#include "platform/files.h"

#include <filesystem>

#include "support/support.h"

namespace pn10::test {
namespace {

TEST(File, is_no_folder) {
  TempDir dir;
  std::filesystem::create_directory(dir.path("model.ndt"));
  File file;
  EXPECT_FALSE(file.open(dir.path("model.ndt").c_str(), "rb"));
  EXPECT_EQ(file.get(), nullptr);
  EXPECT_FALSE(file.close());
  EXPECT_FALSE(file.open(nullptr, "rb"));
  EXPECT_FALSE(file.open(dir.path("missing").c_str(), "rb"));
}

TEST(File, knows_its_size_wherever_it_stands) {
  TempDir dir;
  File file(dir.path("a").c_str(), "w+b");
  ASSERT_TRUE(file);
  EXPECT_EQ(fileSize(file.get()), 0);
  std::fputs("four", file.get());
  EXPECT_TRUE(seekFile(file.get(), 1));
  EXPECT_EQ(fileSize(file.get()), 4);
  EXPECT_EQ(std::fgetc(file.get()), 'o');
  EXPECT_FALSE(seekFile(file.get(), -1));
  EXPECT_TRUE(seekFile(file.get(), int64_t{5} << 30)) << "beyond 32 bits";
  EXPECT_TRUE(file.close());
}

TEST(Backup, keeps_one_generation_and_needs_none) {
  TempDir dir;
  const std::string path = dir.path("a"), backup = dir.path("a.bak");
  EXPECT_TRUE(rotateBackup(path.c_str(), backup.c_str())) << "nothing to keep";
  for (const char* text : {"one", "two"}) {
    File file(path.c_str(), "wb");
    std::fputs(text, file.get());
    ASSERT_TRUE(file.close());
    EXPECT_TRUE(rotateBackup(path.c_str(), backup.c_str()));
    EXPECT_FALSE(dir.exists("a"));
    EXPECT_EQ(dir.read("a.bak"), text);
  }
}

}  // namespace
}  // namespace pn10::test
