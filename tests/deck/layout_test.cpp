#include "deck/layout.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "bulk/bulk.h"
#include "controls/controls.h"
#include "deck/field_number.h"
#include "loading/loading.h"
#include "materials/materials.h"
#include "reader/observer.h"
#include "reader/run.h"
#include "support/convert.h"

using deck::find_layout;
using deck::Layout;
using deck::Names;

namespace
{
// ---- looking up ----------------------------------------------------------------------------------------------------

std::string keyword_of(std::string_view name)
{
    const deck::LayoutMatch match = find_layout(name);
    return match.layout == nullptr ? "" : std::string(match.layout->keyword) + (match.exact ? "" : " and more");
}

TEST(FindLayout, TakesTheLongestKeyword)
{
    EXPECT_EQ(keyword_of("*MAT_ELASTIC"), "*MAT_ELASTIC");
    EXPECT_EQ(keyword_of("*MAT_ELASTIC_TITLE"), "*MAT_ELASTIC");
    EXPECT_EQ(keyword_of("*MAT_ELASTIC_FLUID"), "*MAT_ELASTIC_ and more");
    EXPECT_EQ(keyword_of("*MAT_ELASTIC_PLASTIC_HYDRO_SPALL_TITLE"), "*MAT_ELASTIC_PLASTIC_HYDRO");
    EXPECT_EQ(keyword_of("*MAT_FOO"), "*MAT_ and more");
    EXPECT_EQ(keyword_of("*EOS_JWLB"), "*EOS_JWL and more");
    EXPECT_EQ(keyword_of("*DATABASE_HISTORY_NODE"), "*DATABASE_HISTORY_NODE");
    EXPECT_EQ(keyword_of("*DATABASE_HISTORY_NODE_SET"), "*DATABASE_HISTORY_NODE_SET");
    EXPECT_EQ(keyword_of("*DATABASE_HISTORY_NODE_LOCAL"), "*DATABASE_HISTORY_NODE_ and more");
    EXPECT_EQ(keyword_of("*SET_NODE_LIST_GENERATE_INCREMENT"), "*SET_NODE_LIST_GENERATE and more");
    EXPECT_EQ(keyword_of("*AIRBAG"), "");
}

TEST(FindLayout, KnowsHeadings)
{
    EXPECT_TRUE(find_layout("*BOUNDARY_SPC_SET_ID").headed);
    EXPECT_FALSE(find_layout("*BOUNDARY_SPC_SET").headed);
    EXPECT_TRUE(find_layout("*CONTACT_SINGLE_SURFACE_ID").headed);
    EXPECT_TRUE(find_layout("*CONTACT_SINGLE_SURFACE_TITLE").headed);
    EXPECT_TRUE(find_layout("*SET_PART_LIST_TITLE").headed);
    EXPECT_FALSE(find_layout("*CONTROL_TERMINATION_TITLE").exact);
}

TEST(FindLayout, KnowsOptionsThatHaveCards)
{
    EXPECT_TRUE(find_layout("*PART_INERTIA_CONTACT").exact);
    EXPECT_FALSE(find_layout("*PART_INERTIA_UNHEARD_OF").exact);
}

TEST(NamedForm, IsThatOfANumber)
{
    EXPECT_EQ(deck::named_form("*MAT_001"), "*MAT_ELASTIC");
    EXPECT_EQ(deck::named_form("*MAT_010_SPALL_TITLE"), "*MAT_ELASTIC_PLASTIC_HYDRO_SPALL_TITLE");
    EXPECT_EQ(deck::named_form("*EOS_004"), "*EOS_GRUNEISEN");
    EXPECT_EQ(deck::named_form("*MAT_001_FLUID"), "");
    EXPECT_EQ(deck::named_form("*MAT_024"), "");
    EXPECT_EQ(deck::named_form("*MAT_0011"), "");
}

// ---- the table -----------------------------------------------------------------------------------------------------

TEST(LayoutTable, HasEachKeywordOnce)
{
    std::set<std::string_view> seen;
    for (const Layout& layout : deck::layouts()) EXPECT_TRUE(seen.insert(layout.keyword).second) << layout.keyword;
}

TEST(LayoutTable, CardsFitWhatTheWalkKeeps)
{
    for (const Layout& layout : deck::layouts()) {
        EXPECT_LE(layout.cards.size(), deck::GroupValues::most_cards) << layout.keyword;
        for (const deck::CardLayout& card : layout.cards) {
            EXPECT_LE(card.fields.size(), deck::GroupValues::most_fields) << layout.keyword;
            EXPECT_EQ(card.occurs == deck::Occurs::counted, card.count != nullptr) << layout.keyword;
        }
    }
}

// Each handler of the tables is of a keyword that has a layout, and no other row is.
TEST(LayoutTable, HasEveryKeywordThatTheConverterReads)
{
    const std::vector<const Pass*> passes = {
        &control_keywords, &history_keywords,  &contact_keywords,    &boundary_keywords,      &curve_keywords,
        &part_keywords,    &section_keywords,  &eos_keywords,        &hourglass_keywords,     &material_keywords,
        &sph_keywords,     &sph_part_keywords, &set_keywords,        &accelerometer_keywords, &node_keywords,
        &shell_keywords,   &solid_keywords,    &sph_element_keywords};
    for (const Pass* pass : passes)
        for (const PassRow& row : pass->rows) {
            if (row.action.procedure.empty()) continue;
            const deck::LayoutMatch match = find_layout(row.prefix);
            ASSERT_NE(match.layout, nullptr) << row.prefix;
            if (match.exact) {
                EXPECT_NE(match.layout->reads, deck::Reads::nothing) << row.prefix;
            }
        }
}

// ---- what the converter reads --------------------------------------------------------------------------------------

struct FieldSeen {
    std::size_t line, column;  // from 0, behind the keyword line
    int width;
    bool number;

    auto operator<=>(const FieldSeen&) const = default;
};

void PrintTo(const FieldSeen& field, std::ostream* to)
{
    *to << "line " << field.line << " column " << field.column << " width " << field.width
        << (field.number ? " number" : " text");
}

// The fields that are read, by line and column, in their order.
class Watcher : public Observer
{
public:
    explicit Watcher(std::string_view deck) : deck_(deck) { observer = this; }
    ~Watcher() override { observer = nullptr; }
    std::vector<FieldSeen> seen;

    void reads_deck(bool) override {}
    void pass_begins(const Pass&) override {}
    void keyword_line(Position) override {}
    void row_begins(const PassRow*) override {}
    void row_ends() override {}
    void text_read(Position, Position) override {}
    void field(const FieldRead& field) override
    {
        const std::string_view before = deck_.substr(0, field.begin);
        const auto newlines = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
        const std::size_t line_begin = before.rfind('\n') + 1;
        seen.push_back({newlines - 1, field.begin - line_begin, field.width, field.number});
    }

private:
    std::string_view deck_;
};

// The passes that read whole blocks: the others read the same keywords once more, but not all of their fields.
const Pass& pass_of(std::string_view name)
{
    const std::pair<std::string_view, const Pass*> passes[] = {
        {"*CONTROL_SPH", &sph_keywords},
        {"*CONTROL", &control_keywords},
        {"*TITLE", &control_keywords},
        {"*DATABASE_HISTORY", &history_keywords},
        {"*DATABASE", &control_keywords},
        {"*CONTACT", &contact_keywords},
        {"*DEFINE_CURVE", &curve_keywords},
        {"*PART", &part_keywords},
        {"*SECTION", &section_keywords},
        {"*EOS", &eos_keywords},
        {"*HOURGLASS", &hourglass_keywords},
        {"*MAT", &material_keywords},
        {"*SET", &set_keywords},
        {"*NODE", &node_keywords},
        {"*ELEMENT_SHELL", &shell_keywords},
        {"*ELEMENT_SOLID", &solid_keywords},
        {"*ELEMENT_SPH", &sph_element_keywords},
    };
    for (const auto& [prefix, pass] : passes)
        if (name.starts_with(prefix)) return *pass;
    return boundary_keywords;
}

struct Example {
    std::string deck;
    std::vector<FieldSeen> expected;
};

// A block of the keyword with one group of cards, each field holding `value`, and the fields that the layout says are
// read.
Example example_of(std::string_view name, const std::string& value)
{
    constexpr int lists = 3;  // cards of a kind that goes on to the end
    Example example{std::string(name) + "\n", {}};
    deck::CardWalk walk(find_layout(name));
    int cards_of_list = 0;
    for (std::size_t line = 0;; ++line) {
        const deck::CardPlace place = walk.next();
        if (place.card == nullptr || place.group > 0) break;
        if (place.card->occurs == deck::Occurs::to_the_end && ++cards_of_list > lists) break;
        std::size_t column = 0;
        for (std::size_t i = 0; i < place.card->fields.size(); ++i) {
            const deck::Field& field = place.card->fields[i];
            const std::size_t width = field.width;
            example.deck += std::string(width - value.size(), ' ') + value;
            walk.set_value(i, deck::standard_number(value).value);
            const bool is_card = place.index != deck::CardPlace::no_index;
            if (is_card && place.read && field.converted && field.kind != deck::Kind::text)
                example.expected.push_back({line, column, static_cast<int>(width), field.kind != deck::Kind::word});
            column += width;
        }
        example.deck += "\n";
    }
    example.deck += "*END\n";
    return example;
}

void expect_read_as_laid_out(const std::string& name, const std::string& value)
{
    SCOPED_TRACE(name + " of " + value);
    const Example example = example_of(name, value);
    reset_run();
    contflag = 1;
    Watcher watcher(example.deck);
    convert(pass_of(name), example.deck);
    EXPECT_EQ(watcher.seen, example.expected) << example.deck;
}

// Values that bring in the cards that some values ask for: 9 offsets of a motion, -1 a detonation's further card.
const std::vector<std::string> values = {"1", "0", "9", "-1"};

bool is_read_without_title(const Layout& layout)
{
    return layout.keyword != "*EOS_LINEAR_POLYNOMIAL" && layout.keyword != "*MAT_STEINBERG";
}

bool is_read_with_title(const Layout& layout)
{
    return layout.heading != deck::Heading::none && layout.keyword != "*MAT_JOHNSON_HOLMQUIST_CERAMICS";
}

TEST(LayoutTable, HasTheFieldsThatTheConverterReads)
{
    for (const Layout& layout : deck::layouts()) {
        if (layout.reads == deck::Reads::nothing) continue;
        for (const std::string& value : values) {
            const std::string name(layout.keyword);
            if (is_read_without_title(layout)) expect_read_as_laid_out(name, value);
            if (is_read_with_title(layout))
                expect_read_as_laid_out(name + (layout.heading == deck::Heading::id_once ? "_ID" : "_TITLE"), value);
        }
    }
}

TEST(LayoutTable, HasTheCardsOfASpallingMaterial)
{
    expect_read_as_laid_out("*MAT_ELASTIC_PLASTIC_HYDRO_SPALL", "1");
    expect_read_as_laid_out("*MAT_ELASTIC_PLASTIC_HYDRO_SPALL_TITLE", "1");
}

// The numbers of a text, in order; words are passed over.
std::vector<double> numbers_in(std::string_view text)
{
    std::vector<double> numbers;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find_first_of(" \n:", at), text.size());
        const deck::FieldNumber number = deck::standard_number(text.substr(at, end - at));
        if (number.form != deck::FieldNumber::Form::none && number.form != deck::FieldNumber::Form::empty)
            numbers.push_back(number.value);
        at = end + 1;
    }
    return numbers;
}

// The text from the line on that begins so.
std::string_view from_line(std::string_view text, std::string_view beginning)
{
    const std::size_t at = text.find("\n" + std::string(beginning));
    return at == std::string_view::npos ? std::string_view() : text.substr(at + 1);
}

// One card of 11, 12, 13, ... in the fields of the layout.
std::string counting_card(std::string_view keyword, std::size_t card)
{
    std::string line;
    int value = 11;
    for (const deck::Field& field : find_layout(keyword).layout->cards[card].fields) {
        const std::string text = std::to_string(value++);
        line += std::string(field.width - text.size(), ' ') + text;
    }
    return line + "\n";
}

using Numbers = std::vector<double>;

TEST(LayoutTable, HasTheFieldsOfBulkCards)
{
    reset_run();
    const Written nodes = convert(node_keywords, "*NODE\n" + counting_card("*NODE", 0) + "*END\n");
    EXPECT_EQ(numbers_in(from_line(nodes.geometry, "      11")), (Numbers{11, 12, 13, 14, 15, 16}));
    const Written solids = convert(solid_keywords, "*ELEMENT_SOLID\n" + counting_card("*ELEMENT_SOLID", 0) + "*END\n");
    EXPECT_EQ(numbers_in(from_line(solids.geometry, "      11")), (Numbers{11, 12, 13, 14, 15, 16, 17, 18, 19, 20}));
    const Written particles =
        convert(sph_element_keywords, "*ELEMENT_SPH\n" + counting_card("*ELEMENT_SPH", 0) + "*END\n");
    EXPECT_EQ(numbers_in(from_line(particles.geometry, "      11")), (Numbers{11, 12, 13}));
    const Written shells = convert(shell_keywords, "*ELEMENT_SHELL\n" + counting_card("*ELEMENT_SHELL", 0) + "*END\n");
    EXPECT_EQ(numbers_in(from_line(shells.geometry, "      11")), (Numbers{11, 12, 13, 14, 15, 16, 0, 0, 0, 0, 0}));
    EXPECT_EQ(numbers_in(from_line(shells.log, "        n5")), (Numbers{17, 18, 19, 20}));
}

TEST(LayoutTable, HasTheFieldsOfShellsWithThickness)
{
    for (const std::string keyword : {"*ELEMENT_SHELL_THICKNESS", "*ELEMENT_SHELL_BETA"}) {
        reset_run();
        const Written shells =
            convert(shell_keywords, keyword + "\n" + counting_card(keyword, 0) + counting_card(keyword, 1) + "*END\n");
        EXPECT_EQ(numbers_in(from_line(shells.geometry, "      11")),
                  (Numbers{11, 12, 13, 14, 15, 16, 11, 12, 13, 14, 15}));
        EXPECT_EQ(numbers_in(from_line(shells.log, "        n5")), (Numbers{17, 18, 19, 20}));
    }
}

TEST(LayoutTable, HasTheFieldsOfMembers)
{
    for (const std::string keyword : {"*SET_NODE", "*SET_NODE_LIST", "*SET_PART_LIST", "*SET_SHELL", "*SET_SOLID"}) {
        reset_run();
        const Written sets = convert(set_keywords, keyword + "\n         7\n" + counting_card(keyword, 1) + "*END\n");
        EXPECT_EQ(numbers_in(from_line(sets.sets, "        11")), (Numbers{11, 12, 13, 14, 15, 16, 17, 18}));
    }
    const Written segments =
        convert(set_keywords, "*SET_SEGMENT\n         7\n" + counting_card("*SET_SEGMENT", 1) + "*END\n");
    EXPECT_EQ(numbers_in(from_line(segments.sets, "        11")), (Numbers{11, 12, 13, 14}));
    EXPECT_EQ(numbers_in(from_line(segments.log, "        a1")), (Numbers{15, 16, 17, 18}));
}

// ---- what numbers name ---------------------------------------------------------------------------------------------

TEST(Named, DependsOnAnotherFieldInSomeCards)
{
    const deck::Field& ssid = find_layout("*CONTACT_SINGLE_SURFACE").layout->cards[0].fields[0];
    deck::GroupValues contact;
    EXPECT_EQ(named(ssid, contact), Names::segment_set);
    contact.values[0][2] = 2;
    EXPECT_EQ(named(ssid, contact), Names::part_set);
    contact.values[0][2] = 5;  // all of the model
    EXPECT_EQ(named(ssid, contact), Names::nothing);

    const deck::Field& lcid = find_layout("*LOAD_SEGMENT_SET").layout->cards[0].fields[1];
    deck::GroupValues load;
    load.values[0][1] = -2;
    EXPECT_EQ(named(lcid, load), Names::nothing);
    load.values[0][1] = 4;
    EXPECT_EQ(named(lcid, load), Names::curve);
}

TEST(Named, IsWhatTheFieldSays)
{
    const auto fields = find_layout("*PART").layout->cards[1].fields;
    EXPECT_TRUE(fields[0].defines);
    EXPECT_EQ(named(fields[0], {}), Names::part);
    EXPECT_EQ(named(fields[2], {}), Names::material);
    EXPECT_FALSE(fields[2].defines);
}
}  // namespace
