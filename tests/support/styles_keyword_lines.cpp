// Styles of keyword lines, line ends and the end of the deck.
#include <array>
#include <cctype>
#include <string>
#include <utility>

#include "support/style_helpers.h"

namespace models
{
namespace
{
// A keyword line that still stands as it is, of a block that has something to convert.
Block* pick_line(Spelling& spelling, Random& random)
{
    return pick_block(spelling, random, [](const Block& block) {
        return block.spelled.empty() && block.mark == ' ' && block.keyword != "*TITLE";
    });
}

bool words_behind_a_keyword(Spelling& spelling, Random& random)
{
    Block* const block = pick_line(spelling, random);
    if (block == nullptr) return false;
    static constexpr std::string_view words[] = {" of the bar", "   front bumper", " 2nd try", "  (checked)"};
    block->spelled = block->keyword + std::string(random.pick(words));
    return true;
}

bool blanks_behind_a_keyword(Spelling& spelling, Random& random)
{
    Block* const block = pick_line(spelling, random);
    if (block == nullptr) return false;
    block->spelled = block->keyword + std::string(1 + random.below(12), ' ');
    return true;
}

std::string lower(std::string text)
{
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

bool lower_case(Spelling& spelling, Random& random)
{
    Block* const block = pick_line(spelling, random);
    if (block == nullptr) return false;
    block->spelled = lower(block->keyword);
    return true;
}

bool all_in_lower_case(Spelling& spelling, Random&)
{
    bool changed = false;
    for (Block* const block : all_blocks(spelling.deck)) {
        if (!block->spelled.empty()) continue;
        block->spelled = lower(block->keyword);
        changed = true;
    }
    return changed;
}

// A keyword and its option are too long for the converter together: without the option, it is only cut.
bool longer_than_a_line(Spelling& spelling, Random& random)
{
    if (spelling.deck.format == Format::wide) return false;  // the identifier's line has its own columns
    constexpr std::string_view contact = "*CONTACT_AUTOMATIC_ONE_WAY_SURFACE_TO_SURFACE";
    Block* const block =
        pick_untouched(spelling, random, [=](const Block& candidate) { return begins(candidate.keyword, contact); });
    if (block == nullptr || !block->spelled.empty()) return false;
    const std::string keyword = std::string(contact) + "_SMOOTH";
    Block& strict_block = twin(spelling, *block);
    if (!strict_block.cards.front().is_title())
        block->cards.insert(block->cards.begin(), title_card("        12one behind the other"));
    else
        strict_block.cards.erase(strict_block.cards.begin());
    strict_block.keyword = keyword;
    block->keyword = keyword + "_ID";
    block->spelled = block->keyword;
    block->respelled = true;
    return true;
}

// *CONTACT_..._TITLE means what *CONTACT_..._ID means.
bool contact_with_title(Spelling& spelling, Random& random)
{
    Block* const block = pick_untouched(spelling, random, [](const Block& candidate) {
        return begins(candidate.keyword, "*CONTACT") && has_identifier_line(candidate) && candidate.spelled.empty();
    });
    if (block == nullptr) return false;
    block->spelled = block->keyword.substr(0, block->keyword.size() - 2) + "TITLE";
    block->respelled = true;
    return true;
}

// Keywords by their number.
constexpr std::pair<std::string_view, std::string_view> numbers[] = {
    {"*MAT_ELASTIC_PLASTIC_HYDRO", "*MAT_010"},
    {"*MAT_ELASTIC", "*MAT_001"},
    {"*MAT_PLASTIC_KINEMATIC", "*MAT_003"},
    {"*MAT_VISCOELASTIC", "*MAT_006"},
    {"*MAT_HIGH_EXPLOSIVE_BURN", "*MAT_008"},
    {"*MAT_NULL", "*MAT_009"},
    {"*MAT_STEINBERG", "*MAT_011"},
    {"*MAT_ISOTROPIC_ELASTIC_PLASTIC", "*MAT_012"},
    {"*MAT_ISOTROPIC_ELASTIC_FAILURE", "*MAT_013"},
    {"*MAT_JOHNSON_COOK", "*MAT_015"},
    {"*MAT_RIGID", "*MAT_020"},
    {"*MAT_MOONEY-RIVLIN_RUBBER", "*MAT_027"},
    {"*MAT_SIMPLIFIED_JOHNSON_COOK", "*MAT_098"},
    {"*MAT_JOHNSON_HOLMQUIST_CERAMICS", "*MAT_110"},
    {"*EOS_LINEAR_POLYNOMIAL", "*EOS_001"},
    {"*EOS_JWL", "*EOS_002"},
    {"*EOS_GRUNEISEN", "*EOS_004"},
    {"*EOS_IGNITION_AND_GROWTH_OF_REACTION_IN_HE", "*EOS_007"},
};

std::string numbered(const std::string& keyword)
{
    for (const auto& [name, number] : numbers)
        if (begins(keyword, name)) return std::string(number) + keyword.substr(name.size());
    return {};
}

bool keyword_by_number(Spelling& spelling, Random& random)
{
    Block* const block = pick_block(spelling, random, [](const Block& candidate) {
        return candidate.spelled.empty() && !numbered(candidate.keyword).empty();
    });
    if (block == nullptr) return false;
    block->spelled = numbered(block->keyword);
    return true;
}

bool carriage_returns(Spelling& spelling, Random&)
{
    if (spelling.deck.carriage_returns) return false;
    spelling.deck.carriage_returns = true;
    return true;
}

bool no_end(Spelling& spelling, Random&)
{
    if (!spelling.deck.end || !spelling.deck.after_end.empty()) return false;
    spelling.deck.end = false;
    return true;
}

bool no_newline(Spelling& spelling, Random&)
{
    if (!spelling.deck.newline || !spelling.deck.after_end.empty()) return false;
    spelling.deck.newline = false;
    return true;
}

bool text_behind_the_end(Spelling& spelling, Random& random)
{
    if (!spelling.deck.end || !spelling.deck.newline || !spelling.deck.after_end.empty()) return false;
    static constexpr std::string_view texts[] = {
        "made by hand\n", "*NODE\n  999999             0.0             0.0             0.0\n", "\n\n",
        "*MAT_ELASTIC\n      9999       1.0       1.0       0.3\n*END\n"};
    spelling.deck.after_end = random.pick(texts);
    return true;
}

constexpr Style table[] = {
    {"words behind a keyword", "MD111", true, true, words_behind_a_keyword},
    {"a keyword longer than its line", "MD111", true, false, longer_than_a_line},
    {"blanks behind a keyword", "MD113", true, true, blanks_behind_a_keyword},
    {"a keyword in lower case", "MD113", false, true, lower_case},
    {"keywords in lower case", "MD113", false, true, all_in_lower_case},
    {"a contact with a title", "", true, true, contact_with_title},
    {"a keyword by its number", "", true, true, keyword_by_number},
    {"carriage returns", "MD113", true, true, carriage_returns},
    {"no *END", "MD113", false, true, no_end},
    {"no newline at the end", "MD113", false, true, no_newline},
    {"text behind *END", "MD113", false, true, text_behind_the_end},
};
}  // namespace

std::span<const Style> styles_of_keyword_lines()
{
    return table;
}
}  // namespace models
