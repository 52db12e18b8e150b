#include "voxi_util/path.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <unordered_set>

using namespace VOXI;

TEST(Path, partsOfAName)
{
    const Path path("/home/\xc3\xa4/report.tar.gz");
    EXPECT_TRUE(path.isAbsolute());
    EXPECT_EQ(path.fileName(), "report.tar.gz");
    EXPECT_EQ(path.stem(), "report.tar");
    EXPECT_EQ(path.extension(), ".gz");
    EXPECT_EQ(path.parent().toString(), "/home/\xc3\xa4");
    EXPECT_EQ(Path(".profile").extension(), "");
    EXPECT_EQ(Path("folder/").fileName(), "");
    EXPECT_FALSE(Path("folder/file").isAbsolute());
}

TEST(Path, joinsAndTidiesByTextAlone)
{
    EXPECT_EQ((Path("a") / Path("b/c")).toString(), "a/b/c");
    EXPECT_EQ((Path("a/") / Path("b")).toString(), "a/b");
    EXPECT_EQ((Path("a") / Path("/b")).toString(), "/b");
    EXPECT_EQ((Path() / Path("b")).toString(), "b");
    EXPECT_EQ(Path("a/./b/../c//d").normalized().toString(), "a/c/d");
    EXPECT_EQ(Path("../a/..").normalized().toString(), "..");
    EXPECT_EQ(Path("/..").normalized().toString(), "/");
}

TEST(Path, equalPathsHashAlikeAndOrder)
{
    const std::unordered_set<Path> paths{Path("a/b"), Path("a//b"), Path("a/c")};
    EXPECT_EQ(paths.size(), 2u);
    EXPECT_LT(Path("a/b"), Path("a/c"));
    const char* const none = nullptr;
    EXPECT_TRUE(Path(none).isEmpty());
}

TEST(Path, existsAsksTheSystem)
{
    EXPECT_TRUE(Path(std::filesystem::temp_directory_path()).exists());
    EXPECT_FALSE(Path("/no such folder/no such file").exists());
    EXPECT_FALSE(Path().exists());
    EXPECT_FALSE(Path(std::string(100000, 'x')).exists());
}
