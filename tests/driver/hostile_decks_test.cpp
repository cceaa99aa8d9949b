// Decks that are none: whatever a file holds, the run ends with status 0 and writes all its outputs.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "bulk/bulk.h"
#include "controls/controls.h"
#include "driver/driver.h"
#include "loading/loading.h"
#include "materials/materials.h"
#include "support/runs.h"

namespace fs = std::filesystem;

namespace
{
constexpr std::string_view all_files =
    "accel_def.kinc debug.morvex input.morvex keywords.k model.card model.geom model.k model.sets";

// What every run writes, whatever the deck: that these are there shows that it came to its end.
void expect_whole_outputs()
{
    EXPECT_EQ(files(), all_files);
    EXPECT_TRUE(contents("model.card").ends_with("kestrune.mat_latest\"\n\n\n"));
    EXPECT_TRUE(contents("model.geom").ends_with("\n\n"));
    EXPECT_TRUE(contents("model.sets").ends_with("\n\n"));
    EXPECT_TRUE(contents("accel_def.kinc").starts_with("!-----"));
    EXPECT_TRUE(contents("debug.morvex").ends_with("\n **************** FINISHED **************** \n"));
}

// Runs the program on the deck in a folder of its own, and returns what it wrote.
std::vector<std::pair<std::string, std::string>> survive(std::string_view deck, const std::string& what = program())
{
    const TemporaryFolder folder;
    write_file("model.k", deck);
    write_file("input.morvex", every_flag("model.k"));
    const Outcome outcome = run_command(what);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    expect_whole_outputs();
    EXPECT_EQ(contents("model.k"), deck);
    return outputs("model.");
}

// The same for a deck too large to be looked at whole.
void survive_large(const std::string& deck)
{
    const TemporaryFolder folder;
    write_file("model.k", deck);
    write_file("input.morvex", every_flag("model.k"));
    const Outcome outcome = run_command(program());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    expect_whole_outputs();
    EXPECT_EQ(fs::file_size("model.k"), deck.size());
}

// The same with the smallest window, which must write the same.
void survive_alike(std::string_view deck)
{
    const auto written = survive(deck);
    EXPECT_EQ(survive(deck, tiny_window_program()), written);
}

std::string repeated(std::string_view text, std::size_t times)
{
    std::string all;
    all.reserve(text.size() * times);
    for (std::size_t i = 0; i < times; ++i) all += text;
    return all;
}

// Everything but the keyword copy, which holds the deck's own lines.
auto without_copy(std::vector<std::pair<std::string, std::string>> written)
{
    std::erase_if(written, [](const auto& file) { return file.first == "keywords.k"; });
    return written;
}

std::string of(const std::vector<std::pair<std::string, std::string>>& written, std::string_view name)
{
    for (const auto& [file, text] : written)
        if (file == name) return text;
    return "no output has this name";
}

// Characters drawn from the alphabet, or any when it is empty.
std::string random_text(std::mt19937& random, std::size_t length, std::string_view alphabet)
{
    std::string text;
    for (std::size_t i = 0; i < length; ++i)
        text += alphabet.empty() ? static_cast<char>(random() & 0xff) : alphabet[random() % alphabet.size()];
    return text;
}

// What the rows of all passes compare keyword lines with, each once.
const std::vector<std::string>& keywords()
{
    static std::vector<std::string> all;
    if (!all.empty()) return all;
    std::set<std::string> found;
    for (const Pass* const pass :
         {&control_keywords,  &history_keywords, &contact_keywords,  &boundary_keywords,    &curve_keywords,
          &part_keywords,     &section_keywords, &eos_keywords,      &failure_keywords,     &hourglass_keywords,
          &material_keywords, &sph_keywords,     &sph_part_keywords, &set_keywords,         &accelerometer_keywords,
          &node_keywords,     &shell_keywords,   &solid_keywords,    &sph_element_keywords, &unhandled_keywords})
        for (const PassRow& row : pass->rows)
            if (!row.prefix.empty() && row.prefix != "*END") found.emplace(row.prefix);
    all.assign(found.begin(), found.end());
    return all;
}

std::string random_card(std::mt19937& random)
{
    static constexpr std::string_view values[] = {
        "0",     "1",     "-1",  "2",   "7",          "12",    "1.5", "-0.25", "1.0E+10",  "210000.0",
        "1e400", "-1e40", "nan", "inf", "2147483648", "1.0D3", "abc", "&p",    "0x10",     "-",
        "*",     "$",     "1,2", ".",   "1-3",        "1E-45", "\t1", "\r",    "99999999", "",
    };
    std::string card;
    const std::size_t width = random() % 4 == 0 ? 8 : 10;
    for (std::size_t fields = random() % 10; fields > 0; --fields) {
        std::string value(values[random() % std::size(values)]);
        if (value.size() < width && random() % 8 != 0) value.insert(0, width - value.size(), ' ');
        value.resize(width, ' ');
        card += value;
    }
    return card.substr(0, random() % 5 == 0 ? random() % 100 : std::string::npos);
}

// Known keywords over cards of good and bad fields, of any number and length.
std::string random_deck(std::mt19937& random)
{
    std::string deck;
    for (int block = 0; block < 300; ++block) {
        deck += keywords()[random() % keywords().size()];
        if (random() % 16 == 0) deck += random() % 2 == 0 ? "_TITLE" : "_ID";
        deck += random() % 32 == 0 ? "\r\n" : "\n";
        for (std::size_t cards = random() % 6; cards > 0; --cards) {
            if (random() % 8 == 0) deck += "$ a comment\n";
            deck += random_card(random) + "\n";
        }
    }
    return deck;
}
}  // namespace

TEST(HostileDeck, Empty)
{
    survive_alike("");
}

TEST(HostileDeck, OneByteOfEachValue)
{
    const TemporaryFolder folder;
    write_file("input.morvex", every_flag("model.k"));
    for (int byte = 0; byte < 256; ++byte) {
        SCOPED_TRACE(byte);
        const std::string deck(1, static_cast<char>(byte));
        write_file("model.k", deck);
        const Outcome outcome = run_command(program(), "yes\n");
        ASSERT_EQ(outcome.status, 0);
        ASSERT_EQ(outcome.err, "");
        ASSERT_EQ(contents("keywords.k"), deck);
        expect_whole_outputs();
    }
}

TEST(HostileDeck, WithoutAnEndEqualsItsTwinWithOne)
{
    const std::string whole(model);
    ASSERT_TRUE(whole.ends_with("*END\n"));
    const std::string without = whole.substr(0, whole.size() - 5);
    EXPECT_EQ(without_copy(survive(without)), without_copy(survive(whole)));
    survive_alike(without);
}

TEST(HostileDeck, WithoutAnEndInABulkBlockEqualsItsTwinWithOne)
{
    for (
        const char* block :
        {"*NODE\n       1             1.0             2.0             3.0       0       0\n",
         "*ELEMENT_SPH\n       1       1             2.0\n",
         "*SET_SOLID\n         1\n         1         2         3         4         5         6         7         8\n",
         "*SET_SEGMENT\n         1\n         1         2         3         4       0.0       0.0       0.0       0.0\n",
         "*NODE\n", "*SET_NODE_TITLE\n",
         "*ELEMENT_SHELL_THICKNESS\n       1       1       1       2       3       4\n"})
        EXPECT_EQ(without_copy(survive(block)), without_copy(survive(std::string(block) + "*END\n"))) << block;
}

TEST(HostileDeck, WithoutItsLastNewlineEqualsItsTwinWithOne)
{
    const std::string whole(model);
    EXPECT_EQ(without_copy(survive(whole.substr(0, whole.size() - 1))), without_copy(survive(whole)));
    const std::string no_end = whole.substr(0, whole.size() - 5);
    EXPECT_EQ(without_copy(survive(no_end.substr(0, no_end.size() - 1))), without_copy(survive(no_end)));
}

TEST(HostileDeck, CutAnywhere)
{
    for (std::size_t length = 0; length < model.size(); length += 29) {
        SCOPED_TRACE(length);
        survive(model.substr(0, length));
    }
}

TEST(HostileDeck, TextBehindTheEndIsNotRead)
{
    const std::string more = std::string(model) + "*NODE\n       9\n*PART\nghost\n         9\n*AIRBAG\n*END\n";
    EXPECT_EQ(without_copy(survive(more)), without_copy(survive(model)));
}

TEST(HostileDeck, CarriageReturnsLeaveTheGeometryAsItIs)
{
    std::string twin;
    for (const char c : model) {
        if (c == '\n') twin += '\r';
        twin += c;
    }
    const auto written = survive(twin);
    EXPECT_EQ(of(written, "model.geom"), of(survive(model), "model.geom"));
    EXPECT_TRUE(contains(of(written, "debug.morvex"), "\n*NODE\r . . . recognized keyword\n")) << "but show in the log";
    survive_alike(twin);
}

TEST(HostileDeck, RandomBytes)
{
    std::mt19937 random(20240305);
    for (const std::size_t length : {10u, 100u, 1000u, 100000u}) survive_alike(random_text(random, length, ""));
}

TEST(HostileDeck, RandomCharactersOfDecks)
{
    std::mt19937 random(7);
    for (int i = 0; i < 3; ++i) survive_alike(random_text(random, 50000, "*$\n\n \t 0123456789.+-eE,NODEPART_\r"));
}

TEST(HostileDeck, RandomCardsUnderKnownKeywords)
{
    std::mt19937 random(20240306);
    for (int i = 0; i < 8; ++i) {
        SCOPED_TRACE(i);
        survive_alike(random_deck(random));
    }
}

TEST(HostileDeck, EveryKeywordEmptyAtTheEnd)
{
    std::string all;
    for (const std::string& keyword : keywords()) (all += keyword) += "\n";
    survive_alike(all);
    survive_alike(all + all + "*END\n");
}

TEST(HostileDeck, NulBytes)
{
    using namespace std::string_view_literals;
    survive_alike(std::string(10000, '\0'));
    survive_alike("*NODE\0\n       1\0            0.0\n*\0PART\n\0\n\0\0\0\0\n*END\0\n"sv);
    std::string holes(model);
    for (std::size_t i = 7; i < holes.size(); i += 11) holes[i] = '\0';
    survive_alike(holes);
}

TEST(HostileDeck, OnlyKeywordLines)
{
    survive_large(repeated("*\n", 100000));
    survive_large(repeated("*NODE\n", 5000));
    survive_large(repeated("*PART\n", 1000));
}

TEST(HostileDeck, OnlyNewlines)
{
    survive_large(repeated("\n", 1000000));
    survive_large("*NODE\n" + repeated("\n", 20000) + "*END\n");
}

TEST(HostileDeck, OnlyComments)
{
    survive_large(repeated("$\n", 500000));
    survive_large("*PART\n" + repeated("$ none\n", 20000));
}

TEST(HostileDeck, KeywordLinesOfLengthsAroundThePiecesOfTheCopy)
{
    for (const std::size_t length : {48u, 49u, 50u, 51u, 62u, 63u, 64u, 65u, 97u, 98u, 99u, 147u, 4095u, 4096u}) {
        SCOPED_TRACE(length);
        std::string line = "*NODE";
        line.resize(length, 'X');
        const std::string deck = line + "\n       1\n*PART\n*END\n";
        EXPECT_EQ(of(survive(deck), "debug.morvex"), of(survive(deck, tiny_window_program()), "debug.morvex"));
    }
}

TEST(HostileDeck, LineOf100MegabytesInABulkBlock)
{
    survive_large("*NODE\n" + std::string(100'000'000, '1') + "\n*END\n");
}

TEST(HostileDeck, LineOf100MegabytesOutsideOfEveryBlock)
{
    survive_large(std::string(100'000'000, ' '));
}

TEST(HostileDeck, KeywordLineOf20Megabytes)
{
    survive_large("*" + std::string(20'000'000, 'K') + "\n*END\n");
}

TEST(HostileDeck, TitlesOf10Megabytes)
{
    const std::string title(10'000'000, 'T');
    survive_large("*TITLE\n" + title + "\n*PART\n" + title + "\n         1         1         1\n*END\n");
}

TEST(HostileDeck, MegabytesOfStars)
{
    survive_large(std::string(5'000'000, '*'));
}
