// Faces of solids whose neighbour has not been read yet. What is left at the end is the surface.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

#include "report/solid_faces.h"

namespace report
{

// An element with faces on the surface.
struct SeenElement {
    std::uint32_t ordinal = 0;  // in the order in which elements are told
    std::int32_t number = 0;
    std::uint32_t part = 0;  // its place
    bool shell = false;      // its face is its first four corners
    std::uint8_t faces = 0;  // a bit for each
    Corners corners{};
};

// Faces are known by 64 bits made of their part and nodes, whatever the order of these: that two of ten million
// differ and look alike is a chance of one in half a million, and would leave a hole in a picture.
//
// A mesh in a usual order has few faces open at a time. When there are more than may be held, those whose key lies in
// the upper half of the range are forgotten, and so are all such that come: they belong to another reading of the mesh,
// which begins at end().
class OpenFaces
{
public:
    OpenFaces(std::uint64_t begin, std::uint64_t end, std::size_t most_faces, std::size_t most_elements);

    static constexpr std::uint64_t whole_range = std::uint64_t{1} << 32U;

    // `element.faces` does not count.
    void add(const SeenElement& element);

    // Where the range of this reading ends.
    [[nodiscard]] std::uint64_t end() const { return end_; }

    // Calls `take` with each element that has open faces.
    template <class Take>
    void each(const Take& take) const
    {
        for (const SeenElement& element : elements_)
            if (element.faces != 0) take(element);
    }

private:
    struct Slot {
        std::uint64_t key = 0;  // 0 is free
        std::uint32_t element = 0;
        std::uint8_t face = 0;
    };

    [[nodiscard]] bool is_wanted(std::uint64_t key) const { return key >> 32U >= begin_ && key >> 32U < end_; }
    [[nodiscard]] std::size_t home(std::uint64_t key) const { return key & (slots_.size() - 1); }
    [[nodiscard]] std::size_t find(std::uint64_t key) const;  // or the free slot where it belongs
    void remove(std::size_t place);
    void grow();
    void narrow();
    void refill(std::vector<Slot>& from);
    std::uint32_t hold(const SeenElement& element);
    void close(const Slot& slot);

    std::uint64_t begin_;
    std::uint64_t end_;
    std::size_t most_faces_;
    std::size_t most_elements_;
    std::vector<Slot> slots_;
    std::size_t used_ = 0;
    std::deque<SeenElement> elements_;
    std::vector<std::uint32_t> free_;  // places in elements_
};

}  // namespace report
