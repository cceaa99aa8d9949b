// Making a random model: a mesh on a lattice, features that name sets, curves and parts, and then a definition of
// everything that was named.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "support/model_keywords.h"
#include "support/models.h"
#include "support/random.h"

namespace models
{
namespace
{
constexpr std::string_view digits = "0123456789";

std::string random_positive(Random& random)
{
    std::string whole = std::to_string(random.below(random.one_in(3) ? 1000 : 10));
    if (whole == "0") return "0." + random.text(1 + random.below(3), digits) + "1";
    switch (random.below(5)) {
    case 0:
        return whole;
    case 1:
        return whole + ".";
    case 2:
        return whole + "." + random.text(1 + random.below(4), digits);
    case 3:
        return "." + random.text(1 + random.below(4), digits) + "5";
    default:
        break;
    }
    static constexpr const char* exponents[] = {"E-03", "e+05", "E6", "E-9", "e11", "E+11", "e-2"};
    whole.resize(1);
    whole += "." + random.text(random.below(4), digits);
    return whole + random.pick(exponents);
}

// A real number; nothing, one time in five.
std::string random_real(Random& random)
{
    if (random.one_in(5)) return {};
    const std::string sign = random.one_in(3) ? "-" : "";
    return sign + random_positive(random);
}

// Words of up to 60 characters that begin with a letter.
std::string random_title(Random& random)
{
    std::string title = random.text(1, "ABCDEFGHKLMNPRSTabcdefghklmnprst");
    const std::size_t length = random.below(random.one_in(8) ? 60 : 16);
    title += random.text(length, "abcdefghijklmnopqrstuvwxyz  ,.-_/()=0123456789");
    while (title.back() == ' ') title.pop_back();
    return title;
}

std::string right_aligned(long number)
{
    char text[32];
    std::snprintf(text, sizeof text, "%10ld", number);
    return text;
}

enum PartKind : std::size_t { solid_part, shell_part, particle_part };

class Generator
{
public:
    explicit Generator(std::uint32_t seed) : random_(seed) {}

    Model model()
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

private:
    struct Defined {
        Pool pool;
        long id;
    };
    struct Part {
        long id;
        PartKind kind;
    };

    std::vector<long>& ids(Pool pool) { return ids_[static_cast<std::size_t>(pool)]; }

    long new_id(Pool pool)
    {
        std::vector<long>& known = ids(pool);
        const long last = known.empty() ? (random_.one_in(5) ? 90000 : 0) : known.back();
        known.push_back(last + 1 + (random_.one_in(3) ? static_cast<long>(random_.below(40)) : 0));
        return known.back();
    }

    // The number of something that is defined, or will be.
    long reference(Pool pool)
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

    // ---- cards -----------------------------------------------------------------------------------------------------

    std::string value(const FieldForm& form, long defined)
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

    static Kind kind_of(const FieldForm& form)
    {
        using Source = FieldForm::Source;
        if (form.source == Source::real || form.source == Source::positive) return Kind::real;
        if (form.source == Source::direction) return Kind::name;
        return form.source == Source::definition ? Kind::identifier : Kind::integer;
    }

    // The first bound of each pair is the smaller one.
    static void order_bounds(std::vector<Field>& fields)
    {
        for (std::size_t i = 0; i + 1 < fields.size(); ++i)
            if (ends(fields[i].name, "mn") && ends(fields[i + 1].name, "mx") &&
                std::atof(fields[i].value.c_str()) > std::atof(fields[i + 1].value.c_str()))
                std::swap(fields[i].value, fields[i + 1].value);
    }

    std::string comment() { return random_.one_in(20) ? "$ " + random_title(random_) : std::string(); }

    void add_definition(Block& block, const KeywordForm& form, long defined)
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

    void add_block(const KeywordForm& form, long defined = 0)
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
        const Pool defines =
            form.cards[0][0].source == FieldForm::Source::definition ? form.cards[0][0].pool : Pool::none;
        for (std::size_t i = 0; i < definitions; ++i) {
            const bool another = defines != Pool::none && (defined == 0 || i > 0);
            add_definition(block, form, another ? new_id(defines) : defined);
        }
        blocks_.push_back(std::move(block));
    }

    void add_plain_features(std::size_t count)
    {
        const std::span<const KeywordForm> forms = feature_forms();
        const bool bare = ids(Pool::node).empty();
        for (std::size_t i = 0; i < count; ++i) {
            const KeywordForm& form = bare ? forms[random_.below(3)] : random_.pick(forms);
            add_block(form);
            if (form.keyword != "*LOAD_BLAST") continue;
            for (const KeywordForm& other : forms)
                if (other.keyword == "*LOAD_SEGMENT_SET" && other.cards[0][1].text == "-2") add_block(other);
        }
    }

    // ---- mesh ------------------------------------------------------------------------------------------------------

    struct Lattice {
        std::size_t x, y, z;
        std::vector<long> nodes;
        [[nodiscard]] long at(std::size_t i, std::size_t j, std::size_t k) const { return nodes[(k * y + j) * x + i]; }
    };

    std::string coordinate(double value)
    {
        char text[32];
        std::snprintf(text, sizeof text, random_.one_in(8) ? "%.7E" : "%.6g", value);
        return text;
    }

    void add_mesh()
    {
        const std::size_t most = random_.one_in(12) ? 8 : 4;
        Lattice lattice{1 + random_.below(most), 1 + random_.below(most), 2 + random_.below(most), {}};
        static constexpr double steps[] = {1.0, 0.5, 0.1, 2.5, 10.0};
        const double step = random_.pick(steps);
        Block block;
        for (std::size_t i = 0; i < lattice.x * lattice.y * lattice.z; ++i) {
            if (i == 0 || random_.one_in(60)) start(block, "*NODE");
            const std::array<std::size_t, 3> at = {i % lattice.x, i / lattice.x % lattice.y, i / lattice.x / lattice.y};
            lattice.nodes.push_back(new_id(Pool::node));
            Card card;
            card.comment = comment();
            card.fields.push_back(integer_field("nid", lattice.nodes.back(), 8));
            for (std::size_t axis = 0; axis < 3; ++axis) {
                static constexpr std::string_view names[] = {"x", "y", "z"};
                card.fields.push_back(
                    {names[axis], 16, Kind::real, coordinate(step * static_cast<double>(at[axis]) - 1.0), {}, false});
            }
            for (const std::string_view name : {"tc", "rc"})
                card.fields.push_back({name,
                                       8,
                                       Kind::integer,
                                       random_.one_in(6) ? std::to_string(random_.below(8)) : std::string(),
                                       {},
                                       false});
            block.cards.push_back(std::move(card));
        }
        finish(block);
        add_solids(lattice);
        add_shells(lattice);
        if (random_.one_in(3)) add_particles();
    }

    // Goes on with another block; the one before it is kept if it has cards.
    void start(Block& block, std::string keyword)
    {
        finish(block);
        block.keyword = std::move(keyword);
    }

    void finish(Block& block)
    {
        if (!block.cards.empty()) blocks_.push_back(std::move(block));
        block = Block();
    }

    long new_part(PartKind kind)
    {
        parts_.push_back({new_id(Pool::part), kind});
        return parts_.back().id;
    }

    long new_element()
    {
        last_element_ += 1 + static_cast<long>(random_.one_in(6) ? random_.below(50) : 0);
        return last_element_;
    }

    Card element_card(long part, const std::vector<long>& nodes)
    {
        static constexpr std::string_view names[] = {"n1", "n2", "n3", "n4", "n5", "n6", "n7", "n8"};
        Card card;
        card.comment = comment();
        card.fields = {integer_field("eid", last_element_, 8), integer_field("pid", part, 8)};
        for (std::size_t i = 0; i < nodes.size(); ++i) card.fields.push_back(integer_field(names[i], nodes[i], 8));
        return card;
    }

    void add_solids(const Lattice& lattice)
    {
        if (lattice.x < 2 || lattice.y < 2 || random_.one_in(4)) return;
        Block block;
        long part = 0;
        for (std::size_t i = 0; i < (lattice.x - 1) * (lattice.y - 1) * (lattice.z - 1); ++i) {
            if (random_.one_in(10)) continue;  // a hole
            if (part == 0 || random_.one_in(30)) {
                start(block, "*ELEMENT_SOLID");
                part = new_part(solid_part);
            }
            const std::size_t x = i % (lattice.x - 1), y = i / (lattice.x - 1) % (lattice.y - 1);
            const std::size_t z = i / (lattice.x - 1) / (lattice.y - 1);
            std::vector<long> n;
            for (const std::size_t up : {z, z + 1})
                n.insert(n.end(), {lattice.at(x, y, up), lattice.at(x + 1, y, up), lattice.at(x + 1, y + 1, up),
                                   lattice.at(x, y + 1, up)});
            if (random_.one_in(8))
                n = {n[0], n[1], n[3], n[4], n[4], n[4], n[4], n[4]};  // tetrahedron
            else if (random_.one_in(8))
                n = {n[0], n[1], n[5], n[4], n[3], n[3], n[7], n[7]};  // wedge
            solids_.push_back(new_element());
            block.cards.push_back(element_card(part, n));
        }
        finish(block);
    }

    void add_shells(const Lattice& lattice)
    {
        if (lattice.x < 2 || random_.one_in(3)) return;
        static constexpr std::string_view keywords[] = {"*ELEMENT_SHELL", "*ELEMENT_SHELL", "*ELEMENT_SHELL_THICKNESS",
                                                        "*ELEMENT_SHELL_BETA"};
        Block block;
        long part = 0;
        for (std::size_t i = 0; i < (lattice.x - 1) * (lattice.z - 1); ++i) {
            if (part == 0 || random_.one_in(20)) {
                start(block, std::string(random_.pick(keywords)));
                part = new_part(shell_part);
            }
            const std::size_t x = i % (lattice.x - 1), z = i / (lattice.x - 1);
            std::vector<long> n = {lattice.at(x, 0, z), lattice.at(x + 1, 0, z), lattice.at(x + 1, 0, z + 1),
                                   lattice.at(x, 0, z + 1)};
            if (random_.one_in(8)) n[3] = n[2];  // triangle
            shells_.push_back(new_element());
            faces_.push_back({n[0], n[1], n[2], n[3]});
            const bool plain = block.keyword == "*ELEMENT_SHELL";
            if (plain && random_.one_in(12))
                for (int more = 0; more < 4; ++more) n.push_back(random_.pick(lattice.nodes));
            block.cards.push_back(element_card(part, n));
            if (!plain) add_thicknesses(block);
        }
        finish(block);
    }

    void add_thicknesses(Block& block)
    {
        Card card;
        for (const std::string_view name : {"thic1", "thic2", "thic3", "thic4"})
            card.fields.push_back({name, 16, Kind::real, random_positive(random_), {}, false});
        card.fields.push_back({"beta", 16, Kind::real, random_real(random_), {}, false});
        block.cards.push_back(std::move(card));
    }

    void add_particles()
    {
        const long part = new_part(particle_part);
        Block block;
        block.keyword = "*ELEMENT_SPH";
        for (const long node : ids(Pool::node)) {
            if (random_.one_in(2)) continue;
            Card card;
            card.fields = {integer_field("nid", node, 8),
                           integer_field("pid", part, 8),
                           {"mass", 16, Kind::real, random_positive(random_), {}, false}};
            block.cards.push_back(std::move(card));
        }
        finish(block);
    }

    // ---- definitions -----------------------------------------------------------------------------------------------

    void define_pending()
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

    // Different members in any order, at least one.
    std::vector<long> sample(const std::vector<long>& from, std::size_t most)
    {
        std::vector<long> all = from;
        const std::size_t count = 1 + random_.below(std::min(most, all.size()));
        for (std::size_t i = 0; i < count; ++i) std::swap(all[i], all[i + random_.below(all.size() - i)]);
        all.resize(count);
        if (random_.one_in(2)) std::sort(all.begin(), all.end());
        return all;
    }

    std::vector<long> sample_of_parts()
    {
        reference(Pool::part);  // so that there is one
        return sample(ids(Pool::part), 10);
    }

    // A set's keyword, title and first card.
    Block set_block(std::string_view keyword, long id)
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

    void define_set(std::string_view keyword, long id, const std::vector<long>& members)
    {
        Block block = set_block(keyword, id);
        for (Card& card : list_cards(members)) block.cards.push_back(std::move(card));
        blocks_.push_back(std::move(block));
    }

    void define_segments(long id)
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

    void define_curve(long id)
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

    void add_history()
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

    // ---- parts -----------------------------------------------------------------------------------------------------

    Card part_card(const Part& part)
    {
        const auto text = [](std::string_view name, const std::string& value) {
            return Field{name, 10, Kind::identifier, value, {}, false};
        };
        const auto maybe = [&](Pool pool) {
            return random_.one_in(3) ? std::to_string(reference(pool)) : std::string();
        };
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

    void add_parts()
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

    // ---- the deck --------------------------------------------------------------------------------------------------

    Model arranged()
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

    Random random_;
    std::vector<Block> blocks_;
    std::array<std::vector<long>, static_cast<std::size_t>(Pool::count)> ids_;
    std::vector<Defined> pending_;
    std::vector<Part> parts_;
    std::vector<long> shells_;
    std::vector<long> solids_;
    std::vector<std::array<long, 4>> faces_;
    long last_element_ = 0;
    const std::array<Pool, 5> set_pools_ = {Pool::node_set, Pool::part_set, Pool::shell_set, Pool::solid_set,
                                            Pool::segment_set};
};
}  // namespace

Model random_model(std::uint32_t seed)
{
    return Generator(seed).model();
}
}  // namespace models
