// What a random model defines because something names it: sets, curves, parts, and what parts are made of.
#include <algorithm>
#include <utility>

#include "support/random_generator.h"
#include "support/random_values.h"

namespace models
{
void Generator::define_pending()
{
    const Defined defined = pending_.back();
    pending_.pop_back();
    switch (defined.pool) {
    case Pool::curve:
        return define_curve(defined.id);
    case Pool::node_set:
        return define_set("*SET_NODE", defined.id, sample(ids(Pool::node), 20));
    case Pool::part_set:
        return define_set("*SET_PART", defined.id, sample_of_parts());
    case Pool::shell_set:
        return define_set("*SET_SHELL", defined.id, sample(shells_, 20));
    case Pool::solid_set:
        return define_set("*SET_SOLID", defined.id, sample(solids_, 20));
    case Pool::segment_set:
        return define_segments(defined.id);
    default:
        add_block(random_.pick(definition_forms(defined.pool)), defined.id);
    }
}

std::vector<long> Generator::sample(const std::vector<long>& from, std::size_t most)
{
    std::vector<long> all = from;
    const std::size_t count = 1 + random_.below(std::min(most, all.size()));
    for (std::size_t i = 0; i < count; ++i) std::swap(all[i], all[i + random_.below(all.size() - i)]);
    all.resize(count);
    if (random_.one_in(2)) std::sort(all.begin(), all.end());
    return all;
}

std::vector<long> Generator::sample_of_parts()
{
    reference(Pool::part);  // so that there is one
    return sample(ids(Pool::part), 10);
}

Block Generator::set_block(std::string_view keyword, long id)
{
    Block block;
    block.keyword = keyword;
    if (random_.one_in(2)) block.keyword += "_LIST";
    if (keyword == "*SET_SEGMENT") block.keyword = keyword;
    if (random_.one_in(2)) {
        block.keyword += "_TITLE";
        block.cards.push_back(title_card(random_title(random_)));
    }
    Card card;
    card.comment = comment();
    card.fields.push_back(integer_field("sid", id));
    if (keyword != "*SET_SOLID")
        for (const std::string_view name : {"da1", "da2", "da3", "da4"})
            card.fields.push_back(
                {name, 10, Kind::real, random_.one_in(6) ? random_positive(random_) : std::string(), {}, false});
    block.cards.push_back(std::move(card));
    return block;
}

void Generator::define_set(std::string_view keyword, long id, const std::vector<long>& members)
{
    Block block = set_block(keyword, id);
    for (Card& card : list_cards(members)) block.cards.push_back(std::move(card));
    blocks_.push_back(std::move(block));
}

void Generator::define_segments(long id)
{
    Block block = set_block("*SET_SEGMENT", id);
    for (std::size_t i = 1 + random_.below(8); i > 0; --i) {
        std::array<long, 4> face{};
        for (long& node : face) node = random_.pick(ids(Pool::node));
        if (!faces_.empty() && !random_.one_in(4)) face = random_.pick(faces_);
        static constexpr std::string_view names[] = {"n1", "n2", "n3", "n4"};
        Card card;
        for (std::size_t n = 0; n < 4; ++n) card.fields.push_back(integer_field(names[n], face[n]));
        for (const std::string_view name : {"a1", "a2", "a3", "a4"})
            card.fields.push_back(
                {name, 10, Kind::real, random_.one_in(9) ? random_positive(random_) : std::string(), {}, false});
        block.cards.push_back(std::move(card));
    }
    blocks_.push_back(std::move(block));
}

void Generator::define_curve(long id)
{
    static const KeywordForm form{"*DEFINE_CURVE",
                                  "_TITLE",
                                  false,
                                  false,
                                  {{{"lcid", FieldForm::Source::definition, Pool::curve, {}, 0, 0},
                                    {"sidr", FieldForm::Source::range, Pool::none, {}, 0, 1},
                                    {"sfa", FieldForm::Source::real, Pool::none, {}, 0, 0},
                                    {"sfo", FieldForm::Source::real, Pool::none, {}, 0, 0},
                                    {"offa", FieldForm::Source::real, Pool::none, {}, 0, 0},
                                    {"offo", FieldForm::Source::real, Pool::none, {}, 0, 0},
                                    {"dattyp", FieldForm::Source::range, Pool::none, {}, 0, 1}}}};
    add_block(form, id);
    double at = 0.0;
    for (std::size_t i = 2 + random_.below(7); i > 0; --i) {
        Card card;
        card.comment = comment();
        card.fields = {{"a", 20, Kind::real, coordinate(at), {}, false},
                       {"o", 20, Kind::real, random_positive(random_), {}, false}};
        at += 0.25 * static_cast<double>(1 + random_.below(20));
        blocks_.back().cards.push_back(std::move(card));
    }
}

void Generator::add_history()
{
    static constexpr std::pair<std::string_view, Pool> sets[] = {{"*DATABASE_HISTORY_NODE_SET", Pool::node_set},
                                                                 {"*DATABASE_HISTORY_SHELL_SET", Pool::shell_set},
                                                                 {"*DATABASE_HISTORY_SOLID_SET", Pool::solid_set}};
    const auto& [keyword, pool] = random_.pick(sets);
    Block block;
    block.keyword = keyword;
    std::vector<long> members;
    if (random_.one_in(2)) {
        for (std::size_t i = 1 + random_.below(9); i > 0; --i) members.push_back(reference(pool));
    } else {
        const std::vector<long>& all = pool == Pool::node_set    ? ids(Pool::node)
                                       : pool == Pool::shell_set ? shells_
                                                                 : solids_;
        if (!all.empty()) members = sample(all, 12);
        block.keyword.resize(block.keyword.size() - 4);
    }
    if (members.empty() || members[0] == 0) return;
    block.cards = list_cards(members);
    blocks_.push_back(std::move(block));
}

Card Generator::part_card(const Part& part)
{
    const auto text = [](std::string_view name, const std::string& value) {
        return Field{name, 10, Kind::identifier, value, {}, false};
    };
    const auto maybe = [&](Pool pool) { return random_.one_in(3) ? std::to_string(reference(pool)) : std::string(); };
    const long section = new_id(Pool::section);
    add_block(section_form(part.kind), section);
    Card card;
    card.comment = comment();
    card.fields = {integer_field("pid", part.id),
                   text("secid", std::to_string(section)),
                   text("mid", std::to_string(reference(Pool::material))),
                   text("eosid", maybe(Pool::state)),
                   text("hgid", maybe(Pool::hourglass)),
                   {"grav", 10, Kind::integer, value({}, 0), {}, false},
                   {"adpopt", 10, Kind::integer, value({}, 0), {}, false},
                   text("tmid", {})};
    return card;
}

void Generator::add_parts()
{
    Block block;
    for (const Part& part : parts_) {
        if (block.keyword.empty() || random_.one_in(2)) start(block, "*PART");
        block.cards.push_back(title_card(random_title(random_)));
        block.cards.push_back(part_card(part));
    }
    finish(block);
    while (!pending_.empty()) define_pending();
}
}  // namespace models
