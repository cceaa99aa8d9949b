// The styles in which random models are spelled otherwise: each changes the text, and says where; those that the
// converter misreads are misread, and the others are not.
#include "support/styles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <ostream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/whole_run.h"

namespace models
{
namespace
{
std::vector<std::string> lines(const std::string& text)
{
    std::vector<std::string> found;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) found.push_back(line);
    return found;
}

// Places stand in the files, and their blocks begin there with a keyword.
void expect_places(const SpelledDeck& spelled)
{
    EXPECT_FALSE(spelled.places.empty());
    for (const Place& place : spelled.places) {
        ASSERT_EQ(spelled.files.count(place.file), 1U) << place.file;
        const std::vector<std::string> text = lines(spelled.files.at(place.file));
        ASSERT_GE(place.line, place.block_line);
        ASSERT_LE(place.line, text.size() + 1);  // a missing last card's place is where the file ends
        ASSERT_GE(place.block_line, 1U);
        const bool at_the_end = place.line == place.block_line && place.line == text.size();
        EXPECT_TRUE(at_the_end || begins(text[place.block_line - 1], "*")) << text[place.block_line - 1];
    }
}

// A deck of a single node, and of a single solid with it.
Card node_card()
{
    Card card;
    card.fields = {integer_field("nid", 7, 8),
                   {"x", 16, Kind::real, "1.5", {}, false},
                   {"y", 16, Kind::real, "", {}, false},
                   {"z", 16, Kind::real, "2.5E-03", {}, false}};
    return card;
}

Model single(std::string keyword, std::vector<Card> cards)
{
    Model model;
    model.blocks.resize(2);
    model.blocks[0].keyword = "*KEYWORD";
    model.blocks[1].keyword = std::move(keyword);
    model.blocks[1].number = 1;
    model.blocks[1].cards = std::move(cards);
    return model;
}

const Style& style(std::string_view name)
{
    const std::span<const Style> all = styles();
    return *std::find_if(all.begin(), all.end(), [=](const Style& candidate) { return candidate.name == name; });
}

// The deck in the style; with another seed where the style takes its choice by chance.
std::string in_style(std::string_view name, const Model& model, std::uint32_t seed = 1)
{
    Random random(seed);
    const std::optional<SpelledDeck> spelled = spell(style(name), model, random);
    return spelled ? spelled->files.at("model.k") : "nothing";
}

const char* const node_deck = "*KEYWORD\n"
                              "*NODE\n"
                              "       7             1.5                         2.5E-03\n"
                              "*END\n";

class EveryStyle : public testing::TestWithParam<Style>
{
};
}  // namespace

void PrintTo(const Style& style, std::ostream* stream)
{
    *stream << style.name;
}

TEST_P(EveryStyle, ChangesTheTextAndSaysWhere)
{
    int applied = 0;
    for (std::uint32_t seed = 0; seed < 150; ++seed) {
        Random random(seed);
        const Model model = random_model(seed);
        const std::optional<SpelledDeck> spelled = spell(GetParam(), model, random);
        if (!spelled) continue;
        ++applied;
        EXPECT_TRUE(spelled->files.size() > 1 || spelled->files.at("model.k") != strict(spelled->strict)) << seed;
        expect_places(*spelled);
        if (HasFailure()) FAIL() << seed << '\n' << spelled->files.at("model.k");
    }
    EXPECT_GT(applied, 5);
}

TEST_P(EveryStyle, IsMisreadByTheConverterOrIsNot)
{
    int misread = 0;
    for (std::uint32_t seed = 0; seed < 300; ++seed) {
        Random random(seed);
        const std::optional<SpelledDeck> spelled = spell(GetParam(), random_model(seed), random);
        if (!spelled) continue;
        if (run_whole(spelled->files.at("model.k")).same_model(run_whole(strict(spelled->strict)))) continue;
        ++misread;
        if (GetParam().misread && misread > 3) break;
        ASSERT_TRUE(GetParam().misread) << seed << '\n' << spelled->files.at("model.k");
    }
    EXPECT_EQ(misread > 0, GetParam().misread);
}

TEST_P(EveryStyle, HasAStrictFormThatIsReadWhole)
{
    for (std::uint32_t seed = 0; seed < 60; ++seed) {
        Random random(seed);
        const std::optional<SpelledDeck> spelled = spell(GetParam(), random_model(seed), random);
        if (!spelled) continue;
        const std::string deck = strict(spelled->strict);
        for (const std::string& line : lines(run_whole(deck).log))
            if (ends(line, ". . . skipped")) {
                EXPECT_EQ(line, "*KEYWORD . . . skipped") << deck;
            }
    }
}

INSTANTIATE_TEST_SUITE_P(Styles, EveryStyle, testing::ValuesIn(styles().begin(), styles().end()),
                         [](const testing::TestParamInfo<Style>& test) {
                             std::string name(test.param.name);
                             std::erase_if(name, [](char c) { return c == '\'' || c == '*' || c == ','; });
                             std::replace_if(
                                 name.begin(), name.end(), [](char c) { return c == ' '; }, '_');
                             return name;
                         });

TEST(MixedStyles, StandInOneDeckTogether)
{
    std::map<std::string_view, int> used;
    for (std::uint32_t seed = 0; seed < 400; ++seed) {
        Random random(seed);
        const SpelledDeck spelled = spell_mixed(random_model(seed), random, 12);
        for (const std::string_view name : spelled.styles) ++used[name];
        if (spelled.styles.empty()) continue;
        expect_places(spelled);
        if (HasFailure()) FAIL() << seed << '\n' << spelled.files.at("model.k");
    }
    for (const Style& style : styles()) EXPECT_GT(used[style.name], 0) << style.name;
}

TEST(MixedStyles, DefineEachParameterOnce)
{
    std::vector<Style> family(styles_of_parameters().begin(), styles_of_parameters().end());
    family.insert(family.end(), styles_of_files().begin(), styles_of_files().end());
    for (std::uint32_t seed = 0; seed < 300; ++seed) {
        Random random(seed);
        Spelling spelling{random_model(seed), random_model(seed)};
        for (int i = 0; i < 10; ++i) random.pick(family).apply(spelling, random);
        std::set<std::string> names;
        for (const Block* const block : all_blocks(spelling.deck)) {
            if (block->keyword != "*PARAMETER_EXPRESSION") continue;
            for (const Card& card : block->cards)
                EXPECT_TRUE(names.insert(card.title.substr(1, 9)).second) << card.title;
        }
        std::set<std::string> paths;
        for (const Block* const block : all_blocks(spelling.deck))
            for (const IncludeFile& file : block->files) EXPECT_TRUE(paths.insert(file.path).second) << file.path;
    }
}

TEST(MixedStyles, NoneLeavesTheStrictForm)
{
    Random random(1);
    const Model model = random_model(3);
    EXPECT_EQ(spell_mixed(model, random, 0).files.at("model.k"), strict(model));
}

// ---- each style by hand, where a single card leaves it no choice ---------------------------------------------------

TEST(Styles, TheStrictFormHasNumbersAtTheRight)
{
    EXPECT_EQ(strict(single("*NODE", {node_card()})), node_deck);
}

TEST(Styles, NumbersAtTheLeftReachToTheNextField)
{
    EXPECT_EQ(in_style("numbers at the left edges of their fields", single("*NODE", {node_card()})),
              "*KEYWORD\n"
              "*NODE\n"
              "7       1.5                             2.5E-03         \n"
              "*END\n");
}

TEST(Styles, ALineEndsBeforeTheLastColumn)
{
    EXPECT_EQ(in_style("a number that the line's end cuts off", single("*NODE", {node_card()})),
              "*KEYWORD\n"
              "*NODE\n"
              "       7             1.5                        2.5E-03\n"
              "*END\n");
}

TEST(Styles, CommasStandForEmptyPlaces)
{
    EXPECT_EQ(in_style("commas", single("*NODE", {node_card()})), "*KEYWORD\n*NODE\n7,1.5,,2.5E-03\n*END\n");
}

TEST(Styles, ACardOfOneNumberHasAComma)
{
    Card card;
    card.fields = {integer_field("member", 5), {"member", 10, Kind::integer, "", {}, false}};
    EXPECT_EQ(in_style("commas", single("*SET_SOLID", {card})), "*KEYWORD\n*SET_SOLID\n5,\n*END\n");
}

TEST(Styles, ExponentsLoseTheirLetterOrHaveAnother)
{
    EXPECT_EQ(in_style("exponents without a letter", single("*NODE", {node_card()})),
              "*KEYWORD\n*NODE\n       7             1.5                          2.5-03\n*END\n");
    EXPECT_EQ(in_style("exponents with a D", single("*NODE", {node_card()})),
              "*KEYWORD\n*NODE\n       7             1.5                         2.5D-03\n*END\n");
}

TEST(Styles, TabsLeadToEveryEighthColumn)
{
    EXPECT_EQ(in_style("tabs", single("*NODE", {node_card()})),
              "*KEYWORD\n*NODE\n       7\t     1.5\t\t\t 2.5E-03\n*END\n");
}

TEST(Styles, LongBlocksHaveFieldsOfTwenty)
{
    EXPECT_EQ(in_style("a long block", single("*NODE", {node_card()})),
              "*KEYWORD\n"
              "*NODE +\n"
              "                   7                 1.5                                 2.5E-03\n"
              "*END\n");
    EXPECT_EQ(in_style("a long deck", single("*NODE", {node_card()}), 1),
              "*KEYWORD LONG=Y\n"
              "*NODE\n"
              "                   7                 1.5                                 2.5E-03\n"
              "*END\n");
}

TEST(Styles, BlocksOfTenColumnsKeepTheirCoordinates)
{
    EXPECT_EQ(in_style("a block of ten columns", single("*NODE", {node_card()})),
              "*KEYWORD\n"
              "*NODE %\n"
              "         7             1.5                         2.5E-03\n"
              "*END\n");
}

TEST(Styles, SolidsOnTwoLinesHaveTheirNodesOnTheSecond)
{
    Card card;
    card.fields = {integer_field("eid", 1, 8), integer_field("pid", 2, 8)};
    for (int node = 11; node < 19; ++node) card.fields.push_back(integer_field("n", node, 8));
    EXPECT_EQ(in_style("solids on two lines", single("*ELEMENT_SOLID", {card})),
              "*KEYWORD\n"
              "*ELEMENT_SOLID\n"
              "       1       2\n"
              "      11      12      13      14      15      16      17      18\n"
              "*END\n");
}

TEST(Styles, ThePlaceOfAMissingCardIsTheNextKeywordLine)
{
    Model model = single("*MAT_PLASTIC_KINEMATIC", {});
    for (const char* const name : {"mid", "src"}) {
        model.blocks[1].cards.emplace_back();
        model.blocks[1].cards.back().fields = {integer_field(name, 3)};
    }
    Random random(1);
    const SpelledDeck spelled = *spell(style("a missing card"), model, random);
    EXPECT_EQ(spelled.files.at("model.k"), "*KEYWORD\n*MAT_PLASTIC_KINEMATIC\n         3\n*END\n");
    EXPECT_EQ(strict(spelled.strict), "*KEYWORD\n*MAT_PLASTIC_KINEMATIC\n         3\n         0\n*END\n");
    ASSERT_EQ(spelled.places.size(), 1U);
    EXPECT_EQ(spelled.places[0].line, 4U);
    EXPECT_EQ(spelled.places[0].block_line, 2U);
}

TEST(Styles, AnIncludeFileHoldsWhatWasInItsPlace)
{
    Random random(1);
    const SpelledDeck spelled =
        *spell(style("include files behind one keyword"), single("*NODE", {node_card()}), random);
    ASSERT_EQ(spelled.files.size(), 3U);
    EXPECT_EQ(lines(spelled.files.at("model.k")).size(), 5U);
    std::string together;
    for (const auto& [name, text] : spelled.files)
        if (name != "model.k") together += text;
    EXPECT_EQ("*KEYWORD\n" + together + "*END\n", node_deck);
}

TEST(Styles, ASetOfRangesMeansWhatIsDefinedInThem)
{
    Model model = single("*NODE", {node_card(), node_card(), node_card()});
    model.blocks[1].cards[1].fields[0].value = "9";
    model.blocks[1].cards[2].fields[0].value = "20";
    model.blocks.emplace_back();
    model.blocks[2].number = 2;
    model.blocks[2].keyword = "*SET_NODE_LIST";
    model.blocks[2].cards.resize(2);
    model.blocks[2].cards[0].fields = {integer_field("sid", 1)};
    model.blocks[2].cards[1].fields = {integer_field("member", 9)};
    for (std::uint32_t seed = 0; seed < 50; ++seed) {
        Random random(seed);
        const SpelledDeck spelled = *spell(style("a set of ranges"), model, random);
        const std::string deck = spelled.files.at("model.k");
        std::istringstream ranges(deck.substr(deck.find("         1\n") + 11));  // behind the set's number
        std::vector<long> expected;
        std::vector<std::pair<long, long>> ends;
        for (long from = 0, to = 0; ranges >> from >> to;) ends.emplace_back(from, to);
        for (const long node : {7L, 9L, 20L})
            if (std::any_of(ends.begin(), ends.end(),
                            [=](auto end) { return end.first <= node && node <= end.second; }))
                expected.push_back(node);
        EXPECT_EQ(sets_of(spelled.strict)[0].members, expected) << deck;
    }
}
}  // namespace models
