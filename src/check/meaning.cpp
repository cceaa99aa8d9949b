#include "check/meaning.h"

#include <array>
#include <cmath>
#include <optional>

#include "deck/field_number.h"
#include "deck/keyword_line.h"

namespace check
{
namespace
{
using deck::Names;

deck::OffsetKind offset_of(Names names)
{
    switch (names) {
    case Names::node:
        return deck::OffsetKind::node;
    case Names::element:
    case Names::shell:
    case Names::solid:
        return deck::OffsetKind::element;
    case Names::particle:  // numbered by its node
        return deck::OffsetKind::node;
    case Names::part:
        return deck::OffsetKind::part;
    case Names::material:
    case Names::equation_of_state:
    case Names::thermal_material:
        return deck::OffsetKind::material;
    case Names::node_set:
    case Names::part_set:
    case Names::segment_set:
    case Names::shell_set:
    case Names::solid_set:
        return deck::OffsetKind::set;
    case Names::curve:
        return deck::OffsetKind::curve;
    case Names::box:
    case Names::coordinate_system:
    case Names::vector:
        return deck::OffsetKind::definition;
    case Names::nothing:
    case Names::section:
    case Names::hourglass:
        break;
    }
    return deck::OffsetKind::other;
}

// Definitions that a deck makes for something: nodes and elements need not be named.
bool must_be_named(Names names)
{
    return names != Names::node && names != Names::element && names != Names::shell && names != Names::solid &&
           names != Names::particle;
}

// Blanks, then at most nine digits; nothing for any other text.
std::optional<std::int64_t> plain_integer(std::string_view text)
{
    constexpr std::size_t most = 9;
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    if (text.empty() || text.size() > most) return {};
    std::int64_t number = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') return {};
        number = 10 * number + (c - '0');
    }
    return number;
}

std::string in_words(const Identifier& id)
{
    return id.text.empty() ? std::to_string(id.number) : "\"" + id.text + "\"";
}

Inked extent_of(const deck::FieldText& field)
{
    const Inked inside = inked(field.text);
    return {field.column + inside.begin, field.column + inside.end};
}

// What a field's text names; nothing for a blank, a zero and what is no identifier.
std::optional<Identifier> identifier(const deck::FieldText& field, const deck::Parameters& parameters)
{
    if (const auto number = plain_integer(field.text)) {
        if (*number == 0) return {};
        return Identifier{*number, {}};
    }
    std::string_view text = deck::trimmed(field.text);
    if (text.empty()) return {};
    std::string kept;
    if (deck::refers_to_parameter(text)) {
        const deck::Evaluation evaluation = parameters.evaluate(text);
        if (!evaluation.value) return {};
        kept = deck::to_string(*evaluation.value);
        text = deck::trimmed(kept);
    }
    const deck::FieldNumber number = deck::standard_number(text);
    if (number.form == deck::FieldNumber::Form::none) {
        if (field.field->kind != deck::Kind::word) return {};
        return Identifier{0, std::string(text)};
    }
    const std::optional<std::int64_t> whole = deck::whole(number.value);
    if (!whole || *whole == 0) return {};
    const bool narrow = field.field->kind == deck::Kind::integer;
    if (narrow && std::abs(number.value) >= 0x1p31) return {};
    return Identifier{*whole, {}};
}
}  // namespace

Meaning::Meaning(References& references, Collector* findings, std::vector<Definition>& definitions)
    : references_(&references), findings_(findings), definitions_(&definitions)
{
}

void Meaning::begin(const BlockAt& block, const deck::ContentChange& change)
{
    block_ = &block;
    change_ = &change;
    changed_ = !change.is_none();
    definitions_only_ = !block.match.exact;
    pending_.clear();
}

Identifier Meaning::shifted(Identifier id, Names names) const
{
    if (changed_ && id.text.empty()) id.number += change_->offset(offset_of(names));
    return id;
}

void Meaning::take(const deck::CardPlace& place, const std::vector<deck::FieldText>& fields, std::uint32_t lost,
                   const deck::Parameters& parameters, std::size_t line, const deck::GroupValues& values)
{
    bool by_type = false;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const deck::FieldText& field = fields[i];
        if (field.field == nullptr || (lost >> i & 1) != 0) continue;
        const bool named_by_type = field.field->by_type != nullptr;
        if ((field.field->names == Names::nothing && !named_by_type) || (definitions_only_ && !field.field->defines))
            continue;
        const std::optional<Identifier> id = identifier(field, parameters);
        if (!id || (field.field->names == Names::curve && !field.field->defines && id->text.empty() && id->number < 0))
            continue;
        if (field.field->defines) {
            define(place, field, *id, line);
            continue;
        }
        if (const Names also = field.field->also_defines; also != Names::nothing)
            define_as(References::kind(also), false, field, shifted(*id, also), line);
        // what morvex does not read, it does not hand on
        if (block_->skipped || !field.field->converted || !place.card->converted) continue;
        const Inked extent = extent_of(field);
        const Pending reference{field.field, *id, line, extent.begin, extent.end};
        by_type = by_type || named_by_type;
        if (named_by_type)
            pending_.push_back(reference);
        else
            refer(References::kind(field.field->names), reference);
    }
    if (by_type || !pending_.empty()) values_ = values;
}

void Meaning::end_group()
{
    for (const Pending& reference : pending_) {
        const Names names = deck::named(*reference.field, values_);
        if (names != Names::nothing && (names != Names::curve || reference.id.number >= 0))
            refer(References::kind(names), reference);
    }
    pending_.clear();
}

void Meaning::define(const deck::CardPlace& place, const deck::FieldText& field, const Identifier& id, std::size_t line)
{
    const Names names = field.field->names;
    const bool converted = block_->fate == Fate::converted && place.read && must_be_named(names);
    define_as(References::kind(names), converted, field, shifted(id, names), line);
}

void Meaning::define_as(std::size_t kind, bool converted, const deck::FieldText& field, const Identifier& id,
                        std::size_t line)
{
    if (!is_followed(kind)) return;
    const Inked extent = extent_of(field);
    const Pending definition{field.field, id, line, extent.begin, extent.end};
    const std::string name = std::string(kind_in_words(kind)) + " " + in_words(id);
    if (findings_ != nullptr) {
        if (block_->skipped) return;
        const deck::Place here{block_->file, line, extent.begin + 1, extent.end + 1};
        const deck::Place* const first = references_->first_of_several(kind, id, here);
        if (first == nullptr) return;
        findings_->add(
            at_field("MD402", definition,
                     name + " is defined twice; first in " + first->file + ":" + std::to_string(first->line)));
        return;
    }
    references_->define(kind, id,
                        block_->skipped ? Defined::skipped
                        : converted     ? Defined::converted
                                        : Defined::elsewhere);
    if (converted && !block_->skipped)
        definitions_->push_back({kind, id, at_field("MD403", definition, name + " is never used")});
}

void Meaning::refer(std::size_t kind, const Pending& reference)
{
    if (!is_followed(kind)) return;
    const Identifier id = shifted(reference.id, static_cast<Names>(kind));
    if (findings_ == nullptr) {
        references_->refer(kind, id);
        return;
    }
    if (references_->is_defined(kind, id)) return;
    const std::string name = std::string(kind_in_words(kind)) + " " + in_words(id);
    if (references_->is_skipped(kind, id))
        findings_->add(at_field("MD404", reference, name + " is defined by a keyword that morvex skips"));
    else
        findings_->add(at_field("MD401", reference, name + " is not defined"));
}

Finding Meaning::at_field(std::string_view code, const Pending& reference, std::string message) const
{
    const std::string where =
        "field " + std::string(reference.field->name) + " of " + block_->keyword + ": " + std::move(message);
    Finding found = finding_at(*block_, code, reference.line, reference.column, reference.end, where);
    found.field = reference.field->name;
    return found;
}
}  // namespace check
