// The making of a random model: a mesh on a lattice, features that name sets, curves and parts, and then a definition
// of everything that was named.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "support/model_keywords.h"
#include "support/models.h"
#include "support/random.h"

namespace models
{
enum PartKind : std::size_t { solid_part, shell_part, particle_part };

class Generator
{
public:
    explicit Generator(std::uint32_t seed) : random_(seed) {}

    Model model();

private:
    struct Defined {
        Pool pool;
        long id;
    };
    struct Part {
        long id;
        PartKind kind;
    };

    // ---- numbers ---------------------------------------------------------------------------------------------------

    std::vector<long>& ids(Pool pool) { return ids_[static_cast<std::size_t>(pool)]; }
    long new_id(Pool pool);

    // The number of something that is defined, or will be.
    long reference(Pool pool);

    // ---- cards -----------------------------------------------------------------------------------------------------

    std::string value(const FieldForm& form, long defined);
    std::string comment();  // nothing, mostly
    void add_definition(Block& block, const KeywordForm& form, long defined);
    void add_block(const KeywordForm& form, long defined = 0);
    void add_plain_features(std::size_t count);

    // ---- mesh ------------------------------------------------------------------------------------------------------

    struct Lattice {
        std::size_t x, y, z;
        std::vector<long> nodes;
        [[nodiscard]] long at(std::size_t i, std::size_t j, std::size_t k) const { return nodes[(k * y + j) * x + i]; }
    };

    // Goes on with another block; the one before it is kept if it has cards.
    void start(Block& block, std::string keyword);
    void finish(Block& block);

    std::string coordinate(double value);
    void add_mesh();
    long new_part(PartKind kind);
    long new_element();
    Card element_card(long part, const std::vector<long>& nodes);
    void add_solids(const Lattice& lattice);
    void add_shells(const Lattice& lattice);
    void add_thicknesses(Block& block);
    void add_particles();

    // ---- definitions -----------------------------------------------------------------------------------------------

    void define_pending();

    // Different members in any order, at least one and at most so many.
    std::vector<long> sample(const std::vector<long>& from, std::size_t most);
    std::vector<long> sample_of_parts();

    // A set's keyword, title and first card.
    Block set_block(std::string_view keyword, long id);
    void define_set(std::string_view keyword, long id, const std::vector<long>& members);
    void define_segments(long id);
    void define_curve(long id);
    void add_history();
    Card part_card(const Part& part);
    void add_parts();

    // The deck, in any order behind *KEYWORD.
    Model arranged();

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
}  // namespace models
