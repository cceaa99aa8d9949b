// What the cards of a block define and name.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "check/block.h"
#include "check/collector.h"
#include "check/references.h"
#include "deck/card_fields.h"
#include "deck/parameters.h"
#include "deck/transformation.h"

namespace check
{

// A definition that must be named somewhere.
struct Definition {
    std::size_t kind;
    Identifier id;
    Finding unused;  // the finding that it is when nothing names it
};

// Follows identifiers, block by block. In the first going it collects them, in the second it tells of those that are
// wrong.
class Meaning
{
public:
    Meaning(References& references, Collector* findings, std::vector<Definition>& definitions);

    void begin(const BlockAt& block, const deck::ContentChange& change);

    // A card of the block, its fields, and those of them whose text does not say what it means.
    void take(const deck::CardPlace& place, const std::vector<deck::FieldText>& fields, std::uint32_t lost,
              const deck::Parameters& parameters, std::size_t line, const deck::GroupValues& values);

    // At the end of each group, and of the block.
    void end_group();

private:
    struct Pending {
        const deck::Field* field;
        Identifier id;
        std::size_t line, column, end;
    };

    [[nodiscard]] Identifier shifted(Identifier id, deck::Names names) const;
    void define(const deck::CardPlace& place, const deck::FieldText& field, const Identifier& id, std::size_t line);
    void define_as(std::size_t kind, bool converted, const deck::FieldText& field, const Identifier& id,
                   std::size_t line);
    void refer(std::size_t kind, const Pending& reference);
    [[nodiscard]] Finding at_field(std::string_view code, const Pending& reference, std::string message) const;

    References* references_;
    Collector* findings_;  // null in the first going
    std::vector<Definition>* definitions_;
    const BlockAt* block_ = nullptr;
    const deck::ContentChange* change_ = nullptr;
    bool changed_ = false;
    bool definitions_only_ = false;
    std::vector<Pending> pending_;
    deck::GroupValues values_;
};

}  // namespace check
