#include "report/excerpts.h"

#include <gtest/gtest.h>

#include "deck/fault.h"
#include "support/convert.h"

namespace
{
std::string lines_taken(const std::filesystem::path& file, const std::vector<report::WantedLines>& wanted)
{
    std::string taken;
    report::read_lines(file, wanted, [&](const report::WantedLines& range, std::size_t line, const std::string& text) {
        taken += std::to_string(range.owner) + ":" + std::to_string(line) + "=" + text + " ";
    });
    return taken;
}
}  // namespace

TEST(Excerpts, RangesMayOverlapAndStandInAnyOrder)
{
    const TemporaryFolder folder;
    write_file("lines", "a\nb\nc\r\nd\ne\nf");
    EXPECT_EQ("8:2=b 8:3=c 7:3=c 7:4=d 9:6=f ", lines_taken("lines", {{3, 4, 7}, {6, 12, 9}, {2, 3, 8}}));
}

TEST(Excerpts, ALongLineIsCutBetweenCharacters)
{
    const TemporaryFolder folder;
    const std::string fits(report::longest_excerpt - 1, 'x');
    write_file("lines", fits + "\xC3\xA4 and more\n");
    EXPECT_EQ("0:1=" + fits + " \xE2\x80\xA6 ", lines_taken("lines", {{1, 1, 0}}));
}

TEST(Excerpts, AFileThatIsNotThereIsAFault)
{
    const TemporaryFolder folder;
    EXPECT_THROW(lines_taken("nowhere", {{1, 1, 0}}), deck::Fault);
}
