#include "deck/include_transform.h"

#include <algorithm>
#include <array>

#include "deck/field_number.h"
#include "deck/keyword_line.h"

namespace deck
{

namespace
{
// The text of a field on a card whose fields are all of one width.
std::string_view field_text(std::string_view text, std::size_t index, Format format)
{
    if (text.find(',') == std::string_view::npos) {
        const std::size_t width = format == Format::long_fields ? 20 : 10;
        return index * width < text.size() ? trimmed(text.substr(index * width, width)) : std::string_view();
    }
    std::size_t at = 0;
    for (; index > 0; --index) {
        at = text.find(',', at);
        if (at == std::string_view::npos) return {};
        ++at;
    }
    return trimmed(text.substr(at, std::min(text.find(',', at), text.size()) - at));
}

// A number or a reference to one; nothing when it is neither.
std::optional<double> number_of(std::string_view text, const Parameters& parameters)
{
    if (refers_to_parameter(text)) {
        const Evaluation evaluation = parameters.evaluate(text);
        if (!evaluation.value || evaluation.value->type == Value::Type::text) return std::nullopt;
        return evaluation.value->number;
    }
    const FieldNumber number = standard_number(text);
    return number.form == FieldNumber::Form::none ? std::nullopt : std::optional(number.value);
}
}  // namespace

// ---- *DEFINE_TRANSFORMATION ----------------------------------------------------------------------------------------

TransformationBlock::TransformationBlock(Transformations& to, const Parameters& parameters, bool titled, Format format)
    : to_(&to), parameters_(&parameters), format_(format), title_due_(titled)
{
}

void TransformationBlock::take(std::string_view text)
{
    if (title_due_) {
        title_due_ = false;
        return;
    }
    if (current_ == nullptr) {
        const auto id = number_of(field_text(text, 0, format_), *parameters_);
        current_ = &(*to_)[id ? whole(*id).value_or(0) : 0];
        return;
    }
    const std::string option = to_upper(field_text(text, 0, format_));
    if (option.empty() || option == "POINT" || !current_->without_matrix.empty()) return;
    std::array<double, 7> values{};
    bool readable = true;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto value = number_of(field_text(text, i + 1, format_), *parameters_);
        readable = readable && value;
        values[i] = value.value_or(0);
    }
    if (!readable || !add_step(current_->transformation, option, values)) current_->without_matrix = option;
}

// ---- *INCLUDE_TRANSFORM --------------------------------------------------------------------------------------------

IncludeTransformBlock::IncludeTransformBlock(const Transformations& transformations, const Parameters& parameters,
                                             Format format)
    : transformations_(&transformations), parameters_(&parameters), format_(format)
{
}

void IncludeTransformBlock::take(const Line& line)
{
    line_ = line.number;
    switch (card_) {
    case 1:
        if (!names_.take(line)) return;
        name_ = names_.name();
        break;
    case 2:
        take_offsets(line.text);
        break;
    case 3:
        take_other_offset(line.text);
        break;
    case 4:
        take_factors(line.text);
        break;
    case 5:
        take_transformation(line.text);
        break;
    default:
        break;
    }
    ++card_;
}

std::optional<IncludeName> IncludeTransformBlock::finish()
{
    if (!name_ && names_.finish()) name_ = names_.name();
    return name_;
}

void IncludeTransformBlock::refuse(const std::string& what)
{
    if (!refused_.empty()) return;
    refused_ = what;
    refused_line_ = line_;
}

double IncludeTransformBlock::number(std::string_view text, std::size_t index)
{
    const std::string_view field = field_text(text, index, format_);
    const auto value = number_of(field, *parameters_);
    if (!value) refuse("\"" + std::string(field) + "\" is no number");
    return value.value_or(0);
}

// IDNOFF, IDEOFF, IDPOFF, IDMOFF, IDSOFF, IDFOFF, IDDOFF: in the order of OffsetKind.
void IncludeTransformBlock::take_offsets(std::string_view text)
{
    constexpr std::size_t count = 7;
    for (std::size_t i = 0; i < count; ++i) change_.offsets[i] = whole(number(text, i)).value_or(0);
}

// IDROFF, and the texts that are put before and behind names.
void IncludeTransformBlock::take_other_offset(std::string_view text)
{
    change_.offsets[static_cast<std::size_t>(OffsetKind::other)] = whole(number(text, 0)).value_or(0);
    if (!field_text(text, 2, format_).empty() || !field_text(text, 3, format_).empty()) refuse("a prefix or suffix");
}

// FCTMAS, FCTTIM, FCTLEN, FCTTEM: conversions of units.
void IncludeTransformBlock::take_factors(std::string_view text)
{
    constexpr std::size_t count = 3;
    for (std::size_t i = 0; i < count; ++i)
        if (const double factor = number(text, i); factor != 0 && factor != 1) refuse("a conversion of units");
    const std::string_view temperature = field_text(text, count, format_);
    const FieldNumber factor = standard_number(temperature);
    if (!temperature.empty() && (factor.form == FieldNumber::Form::none || (factor.value != 0 && factor.value != 1)))
        refuse("a conversion of temperatures");
}

void IncludeTransformBlock::take_transformation(std::string_view text)
{
    const std::int64_t id = whole(number(text, 0)).value_or(0);
    if (id == 0) return;
    const auto known = transformations_->find(id);
    if (known == transformations_->end())
        refuse("undefined transformation " + std::to_string(id));
    else if (!known->second.without_matrix.empty())
        refuse("transformation " + std::to_string(id) + " (its step " + known->second.without_matrix + ")");
    else
        change_.transformation = known->second.transformation;
}

OffsetKind offset_of(Names names)
{
    switch (names) {
    case Names::node:
    case Names::particle:
        return OffsetKind::node;
    case Names::element:
    case Names::shell:
    case Names::solid:
        return OffsetKind::element;
    case Names::part:
        return OffsetKind::part;
    case Names::material:
    case Names::equation_of_state:
    case Names::thermal_material:
        return OffsetKind::material;
    case Names::node_set:
    case Names::part_set:
    case Names::segment_set:
    case Names::shell_set:
    case Names::solid_set:
        return OffsetKind::set;
    case Names::curve:
        return OffsetKind::curve;
    case Names::box:
    case Names::coordinate_system:
    case Names::vector:
        return OffsetKind::definition;
    case Names::nothing:
    case Names::section:
    case Names::hourglass:
        break;
    }
    return OffsetKind::other;
}

}  // namespace deck
