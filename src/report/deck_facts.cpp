#include "report/deck_facts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <set>
#include <string_view>
#include <tuple>
#include <utility>

#include "deck/card_fields.h"
#include "deck/deck_reader.h"
#include "deck/field_number.h"
#include "deck/layout.h"

namespace report
{

namespace
{
using deck::Names;

constexpr std::array<std::string_view, 6> laying_keywords = {"*BOUNDARY", "*CONSTRAINED", "*CONTACT",
                                                             "*INITIAL",  "*LOAD",        "*RIGIDWALL"};

bool lays(std::string_view keyword)
{
    return std::any_of(laying_keywords.begin(), laying_keywords.end(),
                       [&](std::string_view family) { return keyword.starts_with(family); });
}

struct Target {
    Names names;
    SetKind kind;
    bool is_set;
};
constexpr Target targets[] = {{Names::node_set, SetKind::node, true},       {Names::part_set, SetKind::part, true},
                              {Names::segment_set, SetKind::segment, true}, {Names::shell_set, SetKind::shell, true},
                              {Names::solid_set, SetKind::solid, true},     {Names::node, SetKind::node, false},
                              {Names::part, SetKind::part, false}};

const Target* target_of(Names names)
{
    const auto* const found = std::find_if(std::begin(targets), std::end(targets),
                                           [&](const Target& target) { return target.names == names; });
    return found == std::end(targets) ? nullptr : found;
}

// Reads the blocks that define parts, sections and materials, and those that lay something upon the model.
class Reading
{
public:
    Reading(const std::filesystem::path& deck, std::size_t most_members)
        : reader_(deck, [](const deck::Problem&) {}), members_left_(most_members)
    {
    }

    DeckFacts read()
    {
        while (reader_.next_block()) {
            const deck::Block& block = reader_.block();
            if (!block.ends_file && !block.keyword.name.empty()) read_block(block.keyword.name);
        }
        return std::move(facts_);
    }

private:
    struct Named {
        const deck::Field* field;
        std::int64_t number;
        std::size_t line;
    };

    void read_block(std::string_view keyword)
    {
        const deck::LayoutMatch match = deck::find_layout(keyword);
        const bool defines =
            keyword.starts_with("*PART") || keyword.starts_with("*SECTION") || keyword.starts_with("*MAT");
        lays_ = lays(keyword) && match.layout != nullptr && match.layout->reads != deck::Reads::nothing;
        if (match.layout == nullptr || (!defines && !lays_)) return;
        keyword_ = keyword;
        single_.clear();
        deck::CardWalk walk(match);
        deck::GroupValues values;
        for (deck::Line line; reader_.next_line(line);) {
            if (deck::is_comment(line.text)) continue;
            const deck::CardPlace place = walk.next();
            if (place.first_of_group) end_group(values);
            if (place.card != nullptr) read_card(*place.card, line, walk);
            values = walk.values();
        }
        end_group(values);
        for (auto& [kind, members] : single_)
            facts_.laid_upon.push_back({.keyword = keyword_, .kind = kind, .members = std::move(members)});
    }

    void read_card(const deck::CardLayout& card, const deck::Line& line, deck::CardWalk& walk)
    {
        deck::split_card(line.text, card, reader_.block().format, false, fields_);
        for (std::size_t i = 0; i < fields_.size() && i < card.fields.size(); ++i) {
            const double value = deck::standard_number(fields_[i].text).value;
            walk.set_value(i, value);
            const std::optional<std::int64_t> number = deck::whole(value);
            if (number && *number > 0) group_.push_back({fields_[i].field, *number, line.number});
        }
    }

    // What a field names may depend on later cards of its group.
    void end_group(const deck::GroupValues& values)
    {
        DeckFacts::Part part;
        std::int64_t part_number = 0;
        for (const Named& each : group_) {
            if (each.field == nullptr) continue;
            const Names names = deck::named(*each.field, values);
            if (each.field->defines) {
                if (names == Names::part) std::tie(part_number, part.line) = std::pair(each.number, each.line);
                if (names == Names::section) facts_.sections.emplace(each.number, each.line);
                if (names == Names::material) facts_.materials.emplace(each.number, each.line);
            } else if (lays_) {
                lay(names, each.number);
            } else {
                if (names == Names::section) part.section = each.number;
                if (names == Names::material) part.material = each.number;
            }
        }
        if (part_number != 0) facts_.parts.emplace(part_number, part);
        group_.clear();
    }

    void lay(Names names, std::int64_t number)
    {
        const Target* const target = target_of(names);
        if (target == nullptr) return;
        if (!target->is_set) {
            if (members_left_ == 0) return;
            --members_left_;
            return single_[target->kind].push_back(number);
        }
        if (known_.emplace(keyword_, target->kind, number).second)
            facts_.laid_upon.push_back({.keyword = keyword_, .kind = target->kind, .id = number, .members = {}});
    }

    deck::DeckReader reader_;
    std::size_t members_left_;
    DeckFacts facts_;
    std::string keyword_;
    bool lays_ = false;
    std::vector<deck::FieldText> fields_;
    std::vector<Named> group_;                             // of the present group
    std::map<SetKind, std::vector<std::int64_t>> single_;  // of the present block
    std::set<std::tuple<std::string, SetKind, std::int64_t>> known_;
};
}  // namespace

DeckFacts deck_facts(const std::filesystem::path& deck, std::size_t most_members)
{
    return Reading(deck, most_members).read();
}

}  // namespace report
