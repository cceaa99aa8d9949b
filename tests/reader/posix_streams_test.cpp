// The streams on the devices, pipes and folders of POSIX systems.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "reader/input_stream.h"
#include "reader/output_stream.h"
#include "support/convert.h"

namespace
{
constexpr std::size_t buffer = 128 * 1024;  // what an output stream holds back

std::string read_on(InputStream& stream, std::size_t count)
{
    std::string text;
    while (text.size() < count) text += stream.next();
    return text;
}
}  // namespace

TEST(OutputStream, FileThatCannotBeCreatedFailsAtOnce)
{
    const TemporaryFolder folder;
    OutputStream stream;
    EXPECT_FALSE(stream.open("no such folder/out"));
    EXPECT_FALSE(stream.is_open());
    EXPECT_EQ(stream.failure(), "No such file or directory");
    EXPECT_FALSE(stream.open("."));
    EXPECT_EQ(stream.failure(), "Is a directory");
}

TEST(OutputStream, FullDeviceFailsForGoodAndPositionGoesOn)
{
    ASSERT_TRUE(std::filesystem::exists("/dev/full"));
    OutputStream stream;
    ASSERT_TRUE(stream.open("/dev/full"));
    const std::string part(buffer, 'x');
    text(stream, part);
    text(stream, part);
    EXPECT_EQ(stream.failure(), "No space left on device");
    text(stream, part);
    print(stream, "%i\n", 1);
    stream.overwrite(0, "abc");
    EXPECT_EQ(stream.position(), 3 * buffer + 2);
    stream.close();
    EXPECT_EQ(stream.failure(), "No space left on device");
}

TEST(OutputStream, FailureOfTheLastCharactersShowsAtClose)
{
    ASSERT_TRUE(std::filesystem::exists("/dev/full"));
    OutputStream stream;
    ASSERT_TRUE(stream.open("/dev/full"));
    text(stream, "few");
    EXPECT_EQ(stream.failure(), "");
    stream.close();
    EXPECT_EQ(stream.failure(), "No space left on device");
}

// Some file systems tell only at the end that they could not take what was written.
TEST(OutputStream, FileThatCannotBeClosedFails)
{
    const TemporaryFolder folder;
    const int descriptor = dup(STDERR_FILENO);  // the lowest that is free, which the stream gets next
    close(descriptor);
    OutputStream stream;
    ASSERT_TRUE(stream.open("out"));
    ASSERT_EQ(close(descriptor), 0);
    EXPECT_EQ(stream.failure(), "");
    stream.close();
    EXPECT_EQ(stream.failure(), "Bad file descriptor");
}

TEST(OutputStream, OpenedAgainForgetsTheFailure)
{
    ASSERT_TRUE(std::filesystem::exists("/dev/full"));
    const TemporaryFolder folder;
    OutputStream stream;
    ASSERT_TRUE(stream.open("/dev/full"));
    text(stream, "few");
    stream.close();
    ASSERT_TRUE(stream.open("out"));
    EXPECT_EQ(stream.failure(), "");
    text(stream, "written");
    stream.close();
    EXPECT_EQ(contents("out"), "written");
}
TEST(InputStream, MissingFilesFoldersAndPipesAreRefused)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory("folder");
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    for (const char* name : {"missing", "folder", "pipe", "", "/dev/null"}) {
        InputStream stream;
        EXPECT_FALSE(stream.open(name, InputStream::smallest_window)) << name;
        EXPECT_FALSE(stream.is_open()) << name;
        EXPECT_EQ(read_on(stream, 10), "*END\n*END\n") << name;
    }
}
