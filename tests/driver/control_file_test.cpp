// The control file: what is written, and how what a user made of it is read.
#include "driver/control_file.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <string_view>

#include "support/convert.h"

namespace
{
// The flags' places in the file's order.
enum { card, set, geom, def, stnd, cont, ic, lc, tran, amr, sph, plot, accel };

using Flags = std::array<int, ControlFile::flag_count>;
constexpr Flags all_zero{};

ControlFile read(std::string_view text)
{
    const TemporaryFolder folder;
    write_file("input.morvex", text);
    return readinputs("input.morvex");
}

int flag(std::string_view text, int place)
{
    return read(text).in[static_cast<std::size_t>(place)];
}
}  // namespace

TEST(ControlFile, DefaultFileIsWrittenToTheLetter)
{
    const TemporaryFolder folder;
    ASSERT_EQ(writeinputs("input.morvex"), "");
    EXPECT_EQ(
        contents("input.morvex"),
        "!-------------------------------------------------------------------------------\n"
        "! input.morvex\n"
        "!-------------------------------------------------------------------------------\n"
        "\n"
        " sourcefile   :  kestrune.k\n"
        "\n"
        " cardflag     :  1         !--- .card file switch 0=don't print, 1=print\n"
        "\n"
        " setflag      :  1         !--- .set file switch 0=don't print, 1=print\n"
        "\n"
        " geomflag     :  1         !--- .geom file switch 0=don't print, 1=print\n"
        "\n"
        " defflag      :  0         !--- input deck defaults switch 0=concise output, 1=comprehensive output\n"
        "\n"
        " stndflag     :  0         !--- 0=don't use standards file; 1=use orts standards file; 2=use zel standards "
        "file\n"
        "\n"
        " contflag     :  1         !--- contact section switch 0=don't print, 1=print, 2=print using auto contact to "
        "tied node conversion funtionality\n"
        "\n"
        " icflag       :  1         !--- initial conditions section 0=don't print, 1=print\n"
        "\n"
        " lcflag       :  0         !--- load curve section 0=don't print, 1=print\n"
        "\n"
        " tranflag     :  0         !--- transformation section 0=don't print, 1=print\n"
        "\n"
        " amrflag      :  0         !--- amr section 0=don't print, 1=print\n"
        "\n"
        " sphflag      :  1         !--- sph section 0=don't print, 1=print\n"
        "\n"
        " plotflag     :  1         !--- plot section 0=don't print, 1=print\n"
        "\n"
        " accelflag    :  0         !--- plot section 0=don't use accelerometer functionality, 1=convert locally "
        "defined coordinate systems to accelerometer keywords\n"
        "\n");
}

TEST(ControlFile, RuleOfTheDefaultFileHas79Dashes)
{
    const TemporaryFolder folder;
    ASSERT_EQ(writeinputs("input.morvex"), "");
    EXPECT_EQ(lines_equal(contents("input.morvex"), "!" + std::string(79, '-')), 2u);
}

TEST(ControlFile, DefaultFileReadBackGivesTheDefaults)
{
    const TemporaryFolder folder;
    ASSERT_EQ(writeinputs("input.morvex"), "");
    const ControlFile control = readinputs("input.morvex");
    EXPECT_EQ(control.in, (Flags{1, 1, 1, 0, 0, 1, 1, 0, 0, 0, 1, 1, 0}));
    EXPECT_EQ(control.sourcefile, "kestrune.k");
}

TEST(ControlFile, WritingReplacesWhatWasThere)
{
    const TemporaryFolder folder;
    write_file("input.morvex", std::string(10000, 'x'));
    ASSERT_EQ(writeinputs("input.morvex"), "");
    EXPECT_LT(contents("input.morvex").size(), 3000u);
}

TEST(ControlFile, WritingTellsWhyItFailed)
{
    const TemporaryFolder folder;
    EXPECT_EQ(writeinputs("missing/input.morvex"), "No such file or directory");
}

TEST(ControlFile, EveryFlagHasItsOwnPlace)
{
    const char* const labels[] = {"cardflag", "setflag",  "geomflag", "defflag", "stndflag", "contflag", "icflag",
                                  "lcflag",   "tranflag", "amrflag",  "sphflag", "plotflag", "accelflag"};
    for (std::size_t i = 0; i < ControlFile::flag_count; ++i) {
        Flags expected{};
        expected[i] = 7;
        EXPECT_EQ(read(std::string(labels[i]) + ":7\n").in, expected) << labels[i];
    }
}

TEST(ControlFile, IcflagMustMatchToItsEnd)
{
    EXPECT_EQ(flag("icflag:1\n", ic), 1);
    EXPECT_EQ(read("icflags:1\n").in, all_zero);
    EXPECT_EQ(read("icfla:1\n").in, all_zero);
}

TEST(ControlFile, LabelThatBeginsWithAnotherKeywordCountsAsIt)
{
    EXPECT_EQ(flag("cardflags:1\n", card), 1);
    EXPECT_EQ(flag("CARDFLAGX:1\n", card), 1);
    EXPECT_EQ(flag("accelflag2:1\n", accel), 1);
    EXPECT_EQ(read("sourcefilename:m.k\n").sourcefile, "m.k");
}

TEST(ControlFile, LabelOneCharacterShortOrOffIsIgnored)
{
    for (const char* label : {"cardfla", "setfla", "geomfla", "deffla", "stndfla", "contfla", "lcfla", "tranfla",
                              "amrfla", "sphfla", "plotfla", "accelfla", "acardflag", "-setflag"})
        EXPECT_EQ(read(std::string(label) + ":1\n").in, all_zero) << label;
    EXPECT_EQ(read("sourcefil:m.k\n").sourcefile, "");
}

TEST(ControlFile, ColonInACommentDoesNotEndTheValue)
{
    EXPECT_EQ(flag(" setflag : 1 !--- note: 0 or 1\n", set), 1);
}

TEST(ControlFile, LineThatBeginsAsACommentIsIgnored)
{
    EXPECT_EQ(read("! setflag : 1\n").in, all_zero);
    EXPECT_EQ(read("set!flag : 1\n").in, all_zero);
}

TEST(ControlFile, BlanksInLabelsAreDropped)
{
    EXPECT_EQ(flag("  s e t f l a g  : 1\n", set), 1);
    EXPECT_EQ(flag(" ic flag : 1\n", ic), 1);
}

TEST(ControlFile, TabsInLabelsAreKept)
{
    EXPECT_EQ(read("\tsetflag : 1\n").in, all_zero);
    EXPECT_EQ(flag("setflag\t : 1\n", set), 1) << "behind the keyword anything may stand";
    EXPECT_EQ(read("icflag\t: 1\n").in, all_zero) << "but for icflag";
}

TEST(ControlFile, CaseOfLabelsDoesNotMatter)
{
    EXPECT_EQ(flag("SetFlag:1\n", set), 1);
    EXPECT_EQ(read("SOURCEFILE:Model.K\n").sourcefile, "Model.K") << "that of names does";
}

TEST(ControlFile, BlanksInTheDeckNameAreDropped)
{
    EXPECT_EQ(read(" sourcefile :  my model.k  \n").sourcefile, "mymodel.k");
}

TEST(ControlFile, TabsInTheDeckNameAreKept)
{
    EXPECT_EQ(read("sourcefile:\tmy\tmodel.k\n").sourcefile, "\tmy\tmodel.k");
}

TEST(ControlFile, CommentBehindTheDeckNameIsCutOff)
{
    EXPECT_EQ(read("sourcefile: a.k !the old one\n").sourcefile, "a.k");
}

TEST(ControlFile, DeckNameMayHoldAColon)
{
    EXPECT_EQ(read("sourcefile: a:b.k\n").sourcefile, "a:b.k");
}

TEST(ControlFile, EmptyDeckNameReplacesTheOneBefore)
{
    EXPECT_EQ(read("sourcefile: a.k\nsourcefile:\n").sourcefile, "");
}

TEST(ControlFile, CarriageReturnStaysInTheDeckName)
{
    EXPECT_EQ(read("sourcefile: a.k\r\n").sourcefile, "a.k\r");
}

TEST(ControlFile, CarriageReturnBehindANumberDoesNotMatter)
{
    EXPECT_EQ(flag("setflag: 1\r\n", set), 1);
}

TEST(ControlFile, NumbersAreOctalAndHexadecimalToo)
{
    EXPECT_EQ(flag("setflag:010\n", set), 8);
    EXPECT_EQ(flag("setflag:0x1\n", set), 1);
    EXPECT_EQ(flag("setflag:0X1f\n", set), 31);
    EXPECT_EQ(flag("setflag:-010\n", set), -8);
    EXPECT_EQ(flag("setflag:08\n", set), 0) << "8 is no octal digit";
    EXPECT_EQ(flag("setflag:0\n", set), 0);
    EXPECT_EQ(flag("setflag:+3\n", set), 3);
    EXPECT_EQ(flag("setflag:-1\n", set), -1);
}

TEST(ControlFile, NumbersAreNotBinaryWhateverTheCLibraryReads)
{
    EXPECT_EQ(flag("setflag:0b11\n", set), 0);
    EXPECT_EQ(flag("setflag:-0B1\n", set), 0);
    EXPECT_EQ(flag("setflag:1b\n", set), 1);
    EXPECT_EQ(flag("setflag:7\nsetflag:b1\n", set), 7) << "no number";
    EXPECT_EQ(flag("setflag:0b1x\n", set), 0);
    EXPECT_EQ(flag("setflag:0x0b1\n", set), 0xb1) << "a hexadecimal digit";
    EXPECT_EQ(flag("setflag:0XBx\n", set), 11);
}

TEST(ControlFile, TextBehindANumberIsIgnored)
{
    EXPECT_EQ(flag("setflag: 1 yes\n", set), 1);
    EXPECT_EQ(flag("setflag: 1.9\n", set), 1);
    EXPECT_EQ(flag("setflag: 2x\n", set), 2);
    EXPECT_EQ(flag("setflag: 1:2\n", set), 1);
}

TEST(ControlFile, WhiteSpaceOfAnyKindBeforeANumberIsSkipped)
{
    EXPECT_EQ(flag("setflag:\t \v\f1\n", set), 1);
}

TEST(ControlFile, ValueWithoutANumberKeepsWhatWasThere)
{
    EXPECT_EQ(flag("setflag: 5\nsetflag: yes\n", set), 5);
    EXPECT_EQ(flag("setflag: 5\nsetflag:\n", set), 5);
    EXPECT_EQ(flag("setflag: 5\nsetflag: !1\n", set), 5);
    EXPECT_EQ(flag("setflag: 5\nsetflag: -\n", set), 5);
    EXPECT_EQ(flag("setflag: yes\n", set), 0);
}

TEST(ControlFile, NumberOutOfRangeGivesTheLow32BitsOfTheClamped64BitValue)
{
    EXPECT_EQ(flag("setflag: 2147483647\n", set), INT_MAX);
    EXPECT_EQ(flag("setflag: 2147483648\n", set), INT_MIN);
    EXPECT_EQ(flag("setflag: 4294967297\n", set), 1);
    EXPECT_EQ(flag("setflag: 0x100000001\n", set), 1);
    EXPECT_EQ(flag("setflag: 99999999999999999999\n", set), -1) << "clamped to 0x7fffffffffffffff";
    EXPECT_EQ(flag("setflag: -99999999999999999999\n", set), 0) << "clamped to 0x8000000000000000";
}

TEST(ControlFile, LabelThatOccursTwiceTakesItsLastValue)
{
    EXPECT_EQ(flag("setflag:1\ncardflag:1\nsetflag:2\n", set), 2);
    EXPECT_EQ(read("sourcefile:a.k\nsourcefile:b.k\n").sourcefile, "b.k");
}

TEST(ControlFile, MissingLabelsAreZero)
{
    const ControlFile control = read("sourcefile : model.k\n");
    EXPECT_EQ(control.in, all_zero);
    EXPECT_EQ(control.sourcefile, "model.k");
}

TEST(ControlFile, EmptyFileGivesZerosAndNoName)
{
    const ControlFile control = read("");
    EXPECT_EQ(control.in, all_zero);
    EXPECT_EQ(control.sourcefile, "");
}

TEST(ControlFile, OrderOfLinesDoesNotMatter)
{
    const ControlFile control = read("accelflag:3\nsourcefile:z.k\ncardflag:1\n");
    EXPECT_EQ(control.in[accel], 3);
    EXPECT_EQ(control.in[card], 1);
    EXPECT_EQ(control.sourcefile, "z.k");
}

TEST(ControlFile, LinesWithoutAColonAreIgnored)
{
    EXPECT_EQ(read("\n\nsetflag 1\nsetflag\n:\n  :1\n").in, all_zero);
}

TEST(ControlFile, LastLineNeedsNoNewline)
{
    EXPECT_EQ(flag("setflag:1", set), 1);
    EXPECT_EQ(read("sourcefile:model.k").sourcefile, "model.k");
    EXPECT_EQ(flag("setflag:", set), 0);
}

TEST(ControlFile, LongLineGoesOnAsTheNextLineAfter199Characters)
{
    const std::string comment = "!" + std::string(198, '-');
    ASSERT_EQ(comment.size(), 199u);
    EXPECT_EQ(flag(comment + "setflag:1\n", set), 1) << "the 200th character begins a line";
    EXPECT_EQ(flag(comment.substr(1) + "setflag:1\n", set), 0) << "the first 199 end with an s";
    EXPECT_EQ(flag(comment + "-setflag:1\n", set), 0);
    EXPECT_EQ(flag(comment + comment + "setflag:1\n", set), 1) << "twice";
}

TEST(ControlFile, ValueIsCutAtTheLimitOfALine)
{
    const std::string label = "sourcefile:";
    const std::string name(199 - label.size(), 'n');
    EXPECT_EQ(read(label + name + "\n").sourcefile, name);
    EXPECT_EQ(read(label + name + "more\n").sourcefile, name);
}

TEST(ControlFile, LineOf199CharactersAndItsNewlineLeavesAnEmptyLine)
{
    const std::string line = "setflag:1" + std::string(190, ' ');
    ASSERT_EQ(line.size(), 199u);
    const ControlFile control = read(line + "\ncardflag:1\n");
    EXPECT_EQ(control.in[set], 1);
    EXPECT_EQ(control.in[card], 1);
}

TEST(ControlFile, NulCharactersDoNotEndTheReading)
{
    using namespace std::string_view_literals;
    EXPECT_EQ(flag("\0\0\n\0\nsetflag:1\n"sv, set), 1);
}

TEST(ControlFile, FileThatCannotBeOpenedLeavesEverythingZero)
{
    const TemporaryFolder folder;
    const ControlFile control = readinputs("missing");
    EXPECT_EQ(control.in, all_zero);
    EXPECT_EQ(control.sourcefile, "");
}
