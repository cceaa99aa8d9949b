// The control file: what is written, and how what a user made of it is read.
#include "driver/control_file.h"

#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
#include <string>
#include <string_view>

#include "reader/run.h"
#include "support/convert.h"

namespace
{
// The flags' places in the file's order.
enum { card, set, geom, def, stnd, cont, ic, lc, tran, amr, sph, plot, accel };

using Flags = decltype(ControlFile::values);
constexpr Flags all_zero{};

ControlFile read(std::string_view text)
{
    const ControlFileRead read = read_settings(text);
    EXPECT_EQ(read.failure, "");
    return read.control;
}

std::string refusal(std::string_view text)
{
    return read_settings(text).failure;
}

int flag(std::string_view text, int place)
{
    return read(text).values[static_cast<std::size_t>(place)];
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
    const ControlFile control = readinputs("input.morvex").control;
    EXPECT_EQ(control.values, (Flags{1, 1, 1, 0, 0, 1, 1, 0, 0, 0, 1, 1, 0}));
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
    for (std::size_t i = 0; i < control_flags.size(); ++i) {
        Flags expected{};
        expected[i] = 7;
        EXPECT_EQ(read(std::string(labels[i]) + ":7\n").values, expected) << labels[i];
    }
}

TEST(ControlFile, IcflagMustMatchToItsEnd)
{
    EXPECT_EQ(flag("icflag:1\n", ic), 1);
    EXPECT_EQ(read("icflags:1\n").values, all_zero);
    EXPECT_EQ(read("icfla:1\n").values, all_zero);
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
        EXPECT_EQ(read(std::string(label) + ":1\n").values, all_zero) << label;
    EXPECT_EQ(read("sourcefil:m.k\n").sourcefile, "");
}

TEST(ControlFile, ColonInACommentDoesNotEndTheValue)
{
    EXPECT_EQ(flag(" setflag : 1 !--- note: 0 or 1\n", set), 1);
}

TEST(ControlFile, LineThatBeginsAsACommentIsIgnored)
{
    EXPECT_EQ(read("! setflag : 1\n").values, all_zero);
    EXPECT_EQ(read("set!flag : 1\n").values, all_zero);
}

TEST(ControlFile, BlanksInLabelsAreDropped)
{
    EXPECT_EQ(flag("  s e t f l a g  : 1\n", set), 1);
    EXPECT_EQ(flag(" ic flag : 1\n", ic), 1);
}

TEST(ControlFile, TabsInLabelsAreKept)
{
    EXPECT_EQ(read("\tsetflag : 1\n").values, all_zero);
    EXPECT_EQ(flag("setflag\t : 1\n", set), 1) << "behind the keyword anything may stand";
    EXPECT_EQ(read("icflag\t: 1\n").values, all_zero) << "but for icflag";
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

TEST(ControlFile, CarriageReturnBeforeTheNewlineBelongsToTheLinesEnd)
{
    EXPECT_EQ(read("sourcefile: a.k\r\nsetflag: 1\r\n").sourcefile, "a.k");
    EXPECT_EQ(read("sourcefile: a\rb.k\r\r\n").sourcefile, "a\rb.k\r") << "no other one does";
    EXPECT_EQ(read("sourcefile: a.k\r").sourcefile, "a.k\r") << "nor one without a newline";
    const std::string line = "setflag:1" + std::string(189, ' ');
    ASSERT_EQ(line.size(), 198u);
    EXPECT_EQ(flag(line + "\r\ncardflag:1\r\n", card), 1) << "it counts neither for the length of a line";
}

TEST(ControlFile, ByteOrderMarkOfUtf8IsSkipped)
{
    EXPECT_EQ(read("\xEF\xBB\xBFsourcefile: a.k\n").sourcefile, "a.k");
    EXPECT_EQ(read("setflag:1\n\xEF\xBB\xBFsourcefile: a.k\n").sourcefile, "") << "only at the head";
    EXPECT_EQ(read("\xEF\xBB").values, all_zero);
}

TEST(ControlFile, Utf16IsRefusedByItsName)
{
    using namespace std::string_view_literals;
    for (const std::string_view text :
         {"\xFF\xFEs\0e\0t\0"sv, "\xFE\xFF\0s\0e\0t"sv, "s\0e\0t\0"sv, "\0s\0e\0t"sv, "\xFF\xFE"sv})
        EXPECT_EQ(refusal(text), "it is written in UTF-16: save it as plain text or UTF-8");
    for (const std::string_view text : {""sv, "s"sv, "\0"sv, "\0\0"sv, "s:\0"sv, "\xFE"sv})
        EXPECT_EQ(refusal(text), "");
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

TEST(ControlFile, APrefixWithoutADigitBehindItIsTheNumberZero)
{
    EXPECT_EQ(flag("setflag:7\nsetflag:0x\n", set), 0);
    EXPECT_EQ(flag("setflag:7\nsetflag:0Xg1\n", set), 0);
    EXPECT_EQ(flag("setflag:7\nsetflag:-0x \n", set), 0);
    EXPECT_EQ(flag("setflag:-0x1F\n", set), -31);
    EXPECT_EQ(flag("setflag:7\nsetflag:+-1\n", set), 7) << "no number";
    EXPECT_EQ(flag("setflag:7\nsetflag:- 1\n", set), 7) << "no number";
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
    EXPECT_EQ(flag("setflag: 0x8000000000000001\n", set), -1) << "clamped to 0x7fffffffffffffff";
    EXPECT_EQ(flag("setflag: -9223372036854775807\n", set), 1);
    EXPECT_EQ(flag("setflag: -9223372036854775809\n", set), 0) << "clamped to 0x8000000000000000";
}

TEST(ControlFile, LabelThatOccursTwiceTakesItsLastValue)
{
    EXPECT_EQ(flag("setflag:1\ncardflag:1\nsetflag:2\n", set), 2);
    EXPECT_EQ(read("sourcefile:a.k\nsourcefile:b.k\n").sourcefile, "b.k");
}

TEST(ControlFile, MissingLabelsAreZero)
{
    const ControlFile control = read("sourcefile : model.k\n");
    EXPECT_EQ(control.values, all_zero);
    EXPECT_EQ(control.sourcefile, "model.k");
}

TEST(ControlFile, EmptyFileGivesZerosAndNoName)
{
    const ControlFile control = read("");
    EXPECT_EQ(control.values, all_zero);
    EXPECT_EQ(control.sourcefile, "");
}

TEST(ControlFile, OrderOfLinesDoesNotMatter)
{
    const ControlFile control = read("accelflag:3\nsourcefile:z.k\ncardflag:1\n");
    EXPECT_EQ(control.values[accel], 3);
    EXPECT_EQ(control.values[card], 1);
    EXPECT_EQ(control.sourcefile, "z.k");
}

TEST(ControlFile, LinesWithoutAColonAreIgnored)
{
    EXPECT_EQ(read("\n\nsetflag 1\nsetflag\n:\n  :1\n").values, all_zero);
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
    EXPECT_EQ(control.values[set], 1);
    EXPECT_EQ(control.values[card], 1);
}

TEST(ControlFile, NulCharactersDoNotEndTheReading)
{
    using namespace std::string_view_literals;
    EXPECT_EQ(flag("\0\0\n\0\nsetflag:1\n"sv, set), 1);
}

TEST(ControlFile, MissingFileIsToldFromOneThatCannotBeRead)
{
    const TemporaryFolder folder;
    ControlFileRead read = readinputs("missing");
    EXPECT_TRUE(read.missing);
    EXPECT_EQ(read.failure, "No such file or directory");
    EXPECT_EQ(read.control.values, all_zero);
    std::filesystem::create_directory("folder");
    read = readinputs("folder");
    EXPECT_FALSE(read.missing);
    EXPECT_EQ(read.failure, "Is a directory");
}

// ---- settings without a file ---------------------------------------------------------------------------------------

TEST(Settings, TextOfSettingsReadsBackAsThem)
{
    ControlFile control = initial_settings();
    control.sourcefile = "a model.k";  // the blank goes, as in any control file
    for (std::size_t i = 0; i < control.values.size(); ++i) control.values[i] = static_cast<int>(3 * i) - 7;
    const ControlFile back = read_settings(control_file_text(control)).control;
    EXPECT_EQ(back.values, control.values);
    EXPECT_EQ(back.sourcefile, "amodel.k");
}

TEST(Settings, FlagIsSetByItsName)
{
    ControlFile control;
    EXPECT_TRUE(set_flag(control, "icflag", 5));
    EXPECT_EQ(control.values[ic], 5);
    EXPECT_FALSE(set_flag(control, "icflags", 5));
    EXPECT_FALSE(set_flag(control, "", 5));
}

TEST(Settings, TakenSettingsAreTheFlagsOfTheRun)
{
    ControlFile control;
    control.values = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13};
    take_settings(control);
    EXPECT_EQ((Flags{cardflag, setflag, geomflag, defflag, stndflag, contflag, icflag, lcflag, tranflag, amrflag,
                     sphflag, plotflag, accelflag}),
              control.values);
    EXPECT_EQ(debflag, 1);
    reset_run();
    EXPECT_EQ((Flags{cardflag, setflag, geomflag, defflag, stndflag, contflag, icflag, lcflag, tranflag, amrflag,
                     sphflag, plotflag, accelflag}),
              all_zero);
}
