// The mesh of a random model: nodes on a lattice, solids in its cells, shells on a side of it, particles at nodes.
#include <cstdio>
#include <utility>

#include "support/random_generator.h"
#include "support/random_values.h"

namespace models
{
std::string Generator::coordinate(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, random_.one_in(8) ? "%.7E" : "%.6g", value);
    return text;
}

void Generator::add_mesh()
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

void Generator::start(Block& block, std::string keyword)
{
    finish(block);
    block.keyword = std::move(keyword);
}

void Generator::finish(Block& block)
{
    if (!block.cards.empty()) blocks_.push_back(std::move(block));
    block = Block();
}

long Generator::new_part(PartKind kind)
{
    parts_.push_back({new_id(Pool::part), kind});
    return parts_.back().id;
}

long Generator::new_element()
{
    last_element_ += 1 + static_cast<long>(random_.one_in(6) ? random_.below(50) : 0);
    return last_element_;
}

Card Generator::element_card(long part, const std::vector<long>& nodes)
{
    static constexpr std::string_view names[] = {"n1", "n2", "n3", "n4", "n5", "n6", "n7", "n8"};
    Card card;
    card.comment = comment();
    card.fields = {integer_field("eid", last_element_, 8), integer_field("pid", part, 8)};
    for (std::size_t i = 0; i < nodes.size(); ++i) card.fields.push_back(integer_field(names[i], nodes[i], 8));
    return card;
}

void Generator::add_solids(const Lattice& lattice)
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

void Generator::add_shells(const Lattice& lattice)
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

void Generator::add_thicknesses(Block& block)
{
    Card card;
    for (const std::string_view name : {"thic1", "thic2", "thic3", "thic4"})
        card.fields.push_back({name, 16, Kind::real, random_positive(random_), {}, false});
    card.fields.push_back({"beta", 16, Kind::real, random_real(random_), {}, false});
    block.cards.push_back(std::move(card));
}

void Generator::add_particles()
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
}  // namespace models
