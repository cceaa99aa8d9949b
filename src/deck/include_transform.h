// The cards of *DEFINE_TRANSFORMATION and *INCLUDE_TRANSFORM.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "deck/card_format.h"
#include "deck/include.h"
#include "deck/layout.h"
#include "deck/line_file.h"
#include "deck/parameters.h"
#include "deck/transformation.h"

namespace deck
{

// Which of the offsets an identifier gets.
OffsetKind offset_of(Names names);

// A *DEFINE_TRANSFORMATION. `without_matrix` names the first step that has none here; empty when all have.
struct DefinedTransformation {
    Transformation transformation;
    std::string without_matrix;
};

using Transformations = std::map<std::int64_t, DefinedTransformation>;

// Takes the data lines of one *DEFINE_TRANSFORMATION block, in order.
class TransformationBlock
{
public:
    TransformationBlock(Transformations& to, const Parameters& parameters, bool titled, Format format);
    void take(std::string_view text);

private:
    Transformations* to_;
    const Parameters* parameters_;
    Format format_;
    bool title_due_;
    DefinedTransformation* current_ = nullptr;
};

// Takes the data lines of one *INCLUDE_TRANSFORM block, in order.
class IncludeTransformBlock
{
public:
    IncludeTransformBlock(const Transformations& transformations, const Parameters& parameters, Format format);
    void take(const Line& line);

    // At the block's end: the name, or nothing when the block has none.
    std::optional<IncludeName> finish();

    [[nodiscard]] const ContentChange& change() const { return change_; }

    // What the cards ask for and cannot be done here, in words; empty when there is nothing of that kind.
    [[nodiscard]] const std::string& refused() const { return refused_; }
    [[nodiscard]] std::size_t refused_line() const { return refused_line_; }

private:
    void take_offsets(std::string_view text);
    void take_other_offset(std::string_view text);
    void take_factors(std::string_view text);
    void take_transformation(std::string_view text);
    void refuse(const std::string& what);
    double number(std::string_view text, std::size_t index);

    const Transformations* transformations_;
    const Parameters* parameters_;
    Format format_;
    IncludeNames names_;
    std::optional<IncludeName> name_;
    std::size_t card_ = 1;  // the next is this
    std::size_t line_ = 0;
    ContentChange change_;
    std::string refused_;
    std::size_t refused_line_ = 0;
};

}  // namespace deck
