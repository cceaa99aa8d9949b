// The widths in which the cards of a block are written.
#pragma once

#include <cstddef>
#include <string_view>

namespace deck
{

enum class Format {
    standard,
    long_fields,  // every field 20 columns
    ten_columns   // the integers of *NODE and *ELEMENT ten wide; all else standard
};

// What a *KEYWORD line says about the format of all blocks behind it. LONG=S is about output only: cards stay standard.
struct FormatSettings {
    bool long_fields = false;
    bool ten_columns = false;

    bool operator==(const FormatSettings&) const = default;
};

// The settings that a *KEYWORD line makes: what it does not mention stays as it was. LONG=Y or K is long, N and S are
// standard; I10=Y or N. `rest` is the text behind the keyword.
FormatSettings settings_from(std::string_view rest, FormatSettings before);

// The suffix behind a keyword that chooses a format for one block.
enum class FormatSuffix { none, plus, percent, minus };

// The format of one block: its suffix, or else the deck's settings.
Format block_format(FormatSettings settings, FormatSuffix suffix);

}  // namespace deck
