#include "bulk/bulk_card.h"

void Fields::tell(std::size_t begin, std::size_t width) const
{
    const std::string_view characters = columns_.substr(std::min(begin, columns_.size()), width);
    observer->field({.begin = watched_columns + std::min(begin, columns_.size()),
                     .width = static_cast<int>(width),
                     .characters = characters,
                     .empty = is_empty(),
                     .number = true,
                     .value = is_empty() ? 0.0 : field_value(characters)});
}

void LastFields::tell(std::string_view columns) const
{
    Fields fields(columns);
    fields.skip(begin_);
    for (int i = 0; i < 4; ++i) fields.take(width_);
}
