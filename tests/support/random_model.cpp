// Random models: what is in them, and in which order.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "support/random_generator.h"
#include "support/random_values.h"

namespace models
{
namespace
{
std::string right_aligned(long number)
{
    char text[32];
    std::snprintf(text, sizeof text, "%10ld", number);
    return text;
}

Kind kind_of(const FieldForm& form)
{
    using Source = FieldForm::Source;
    if (form.source == Source::real || form.source == Source::positive) return Kind::real;
    if (form.source == Source::direction) return Kind::name;
    return form.source == Source::definition ? Kind::identifier : Kind::integer;
}

// The first bound of each pair is the smaller one.
void order_bounds(std::vector<Field>& fields)
{
    for (std::size_t i = 0; i + 1 < fields.size(); ++i)
        if (ends(fields[i].name, "mn") && ends(fields[i + 1].name, "mx") &&
            std::atof(fields[i].value.c_str()) > std::atof(fields[i + 1].value.c_str()))
            std::swap(fields[i].value, fields[i + 1].value);
}
}  // namespace

Model Generator::model()
{
    if (random_.one_in(12)) {
        add_plain_features(1);
    } else {
        add_mesh();
        add_plain_features(random_.below(random_.one_in(5) ? 25 : 7));
        if (random_.one_in(3)) add_history();
        for (std::size_t i = random_.below(4); i > 0; --i) reference(random_.pick(set_pools_));
        while (!pending_.empty()) define_pending();
        add_parts();
    }
    return arranged();
}

long Generator::new_id(Pool pool)
{
    std::vector<long>& known = ids(pool);
    const long last = known.empty() ? (random_.one_in(5) ? 90000 : 0) : known.back();
    known.push_back(last + 1 + (random_.one_in(3) ? static_cast<long>(random_.below(40)) : 0));
    return known.back();
}

long Generator::reference(Pool pool)
{
    if (pool == Pool::node && ids(pool).empty()) add_mesh();
    if (pool == Pool::shell_set && shells_.empty()) return 0;
    if (pool == Pool::solid_set && solids_.empty()) return 0;
    if (pool == Pool::part && ids(pool).empty()) return new_part(shell_part);
    const bool fixed = pool == Pool::node || pool == Pool::part;
    if (fixed || (!ids(pool).empty() && !random_.one_in(4))) return random_.pick(ids(pool));
    const long id = new_id(pool);
    pending_.push_back({pool, id});
    return id;
}

std::string Generator::value(const FieldForm& form, long defined)
{
    using Source = FieldForm::Source;
    switch (form.source) {
    case Source::count:
        return random_.one_in(2) ? std::string() : std::to_string(random_.below(10));
    case Source::real:
        return random_real(random_);
    case Source::positive:
        return random_positive(random_);
    case Source::fixed:
        return std::string(form.text);
    case Source::range:
        return std::to_string(form.low +
                              static_cast<int>(random_.below(static_cast<std::size_t>(form.high - form.low + 1))));
    case Source::maybe:
        if (!random_.one_in(4)) return {};
        [[fallthrough]];
    case Source::reference:
        return std::to_string(reference(form.pool));
    case Source::definition:
        return std::to_string(defined);
    case Source::direction:
        return random_.one_in(2) ? std::string() : random_.text(1, "XYZ");
    }
    return {};
}

std::string Generator::comment()
{
    return random_.one_in(20) ? "$ " + random_title(random_) : std::string();
}

void Generator::add_definition(Block& block, const KeywordForm& form, long defined)
{
    for (const std::vector<FieldForm>& fields : form.cards) {
        Card card;
        card.comment = comment();
        for (const FieldForm& field : fields)
            card.fields.push_back({field.name, 10, kind_of(field), value(field, defined), {}, false});
        order_bounds(card.fields);
        block.cards.push_back(std::move(card));
    }
}

void Generator::add_block(const KeywordForm& form, long defined)
{
    Block block;
    block.keyword = form.keyword;
    const bool optional = !form.option.empty() && (form.always || random_.one_in(2));
    if (optional) {
        block.keyword += form.option;
        std::string title = random_title(random_);
        if (form.keyword == "*EOS_LINEAR_POLYNOMIAL" || form.keyword == "*MAT_STEINBERG")
            if (random_.one_in(2)) title = form.keyword.substr(1);
        if (form.option == "_ID") title.insert(0, right_aligned(static_cast<long>(1 + random_.below(500))));
        block.cards.push_back(title_card(std::move(title)));
    }
    const std::size_t definitions = form.many && !optional ? 1 + random_.below(3) : 1;
    const Pool defines = form.cards[0][0].source == FieldForm::Source::definition ? form.cards[0][0].pool : Pool::none;
    for (std::size_t i = 0; i < definitions; ++i) {
        const bool another = defines != Pool::none && (defined == 0 || i > 0);
        add_definition(block, form, another ? new_id(defines) : defined);
    }
    blocks_.push_back(std::move(block));
}

void Generator::add_plain_features(std::size_t count)
{
    const std::span<const KeywordForm> forms = feature_forms();
    const bool bare = ids(Pool::node).empty();  // then one of the first, which name nothing
    for (std::size_t i = 0; i < count; ++i) {
        const KeywordForm& form = bare ? forms[random_.below(3)] : random_.pick(forms);
        add_block(form);
        if (form.keyword != "*LOAD_BLAST") continue;
        for (const KeywordForm& other : forms)
            if (other.keyword == "*LOAD_SEGMENT_SET" && other.cards[0][1].text == "-2") add_block(other);
    }
}

Model Generator::arranged()
{
    for (std::size_t i = blocks_.size(); i > 1 && !random_.one_in(200); --i)
        std::swap(blocks_[i - 1], blocks_[random_.below(i)]);
    Model model;
    model.blocks.emplace_back();
    model.blocks.back().keyword = "*KEYWORD";
    if (random_.one_in(2)) {
        model.blocks.emplace_back();
        model.blocks.back().keyword = "*TITLE";
        model.blocks.back().cards.push_back(title_card(random_title(random_)));
    }
    for (Block& block : blocks_) model.blocks.push_back(std::move(block));
    int number = 0;
    for (Block& block : model.blocks) block.number = number++;
    return model;
}

Model random_model(std::uint32_t seed)
{
    return Generator(seed).model();
}
}  // namespace models
