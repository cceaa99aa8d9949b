#include "report/open_faces.h"

#include <algorithm>
#include <utility>

namespace report
{

namespace
{
constexpr std::size_t smallest_table = 4096;
constexpr std::uint32_t nothing_held = ~std::uint32_t{0};

std::uint64_t mixed(std::uint64_t bits)
{
    bits = (bits ^ bits >> 30U) * 0xbf58476d1ce4e5b9U;
    bits = (bits ^ bits >> 27U) * 0x94d049bb133111ebU;
    return bits ^ bits >> 31U;
}

std::uint64_t pair(std::int32_t high, std::int32_t low)
{
    return std::uint64_t{static_cast<std::uint32_t>(high)} << 32U | static_cast<std::uint32_t>(low);
}

// Never 0.
std::uint64_t key_of(Face face, std::uint32_t part)
{
    const auto order = [&face](std::size_t one, std::size_t other) {
        if (face[one] > face[other]) std::swap(face[one], face[other]);
    };
    order(0, 1);
    order(2, 3);
    order(0, 2);
    order(1, 3);
    order(1, 2);
    const std::uint64_t key =
        mixed(pair(face[0], face[1]) + mixed(pair(face[2], face[3]) + part * 0x9e3779b97f4a7c15U));
    return key == 0 ? 1 : key;
}
}  // namespace

OpenFaces::OpenFaces(std::uint64_t begin, std::uint64_t end, std::size_t most_faces, std::size_t most_elements)
    : begin_(begin), end_(end), most_faces_(most_faces), most_elements_(most_elements), slots_(smallest_table)
{
}

void OpenFaces::add(const SeenElement& element)
{
    const bool tetrahedron = is_tetrahedron(element.corners);
    std::uint32_t held = nothing_held;
    Face face{};
    for (int i = 0; i < faces_of_solid; ++i) {
        if (!face_of_solid(element.corners, tetrahedron, i, face)) continue;
        // A triangle repeats its last node, and so the same triangle of a neighbour might repeat another.
        if (face[3] == face[2]) face[3] = std::min({face[0], face[1], face[2]});
        const std::uint64_t key = key_of(face, element.part);
        if (!is_wanted(key)) continue;
        const std::size_t place = find(key);
        if (slots_[place].key != 0) {
            close(slots_[place]);
            if (slots_[place].element == held && elements_[held].faces == 0) held = nothing_held;
            remove(place);
            continue;
        }
        if (held == nothing_held) held = hold(element);
        slots_[place] = {key, held, static_cast<std::uint8_t>(i)};
        elements_[held].faces = static_cast<std::uint8_t>(elements_[held].faces | 1U << static_cast<unsigned>(i));
        if (++used_ * 8 > slots_.size() * 5) grow();
    }
    while ((used_ > most_faces_ || elements_.size() - free_.size() > most_elements_) && end_ - begin_ > 1) narrow();
}

std::size_t OpenFaces::find(std::uint64_t key) const
{
    std::size_t place = home(key);
    while (slots_[place].key != 0 && slots_[place].key != key) place = (place + 1) & (slots_.size() - 1);
    return place;
}

// What stands behind the gap and would no longer be found moves into it.
void OpenFaces::remove(std::size_t place)
{
    const std::size_t last = slots_.size() - 1;
    std::size_t gap = place;
    for (std::size_t next = (gap + 1) & last; slots_[next].key != 0; next = (next + 1) & last) {
        const std::size_t from_home = (next - home(slots_[next].key)) & last;
        if (from_home < ((next - gap) & last)) continue;
        slots_[gap] = slots_[next];
        gap = next;
    }
    slots_[gap] = {};
    --used_;
}

void OpenFaces::grow()
{
    std::vector<Slot> from(slots_.size() * 2);
    from.swap(slots_);
    refill(from);
}

void OpenFaces::narrow()
{
    end_ = begin_ + (end_ - begin_) / 2;
    std::vector<Slot> from(slots_.size());
    from.swap(slots_);
    refill(from);
}

void OpenFaces::refill(std::vector<Slot>& from)
{
    used_ = 0;
    for (const Slot& slot : from) {
        if (slot.key == 0) continue;
        if (is_wanted(slot.key)) {
            slots_[find(slot.key)] = slot;
            ++used_;
        } else {
            close(slot);
        }
    }
}

std::uint32_t OpenFaces::hold(const SeenElement& element)
{
    std::uint32_t place = 0;
    if (free_.empty()) {
        place = static_cast<std::uint32_t>(elements_.size());
        elements_.push_back(element);
    } else {
        place = free_.back();
        free_.pop_back();
        elements_[place] = element;
    }
    elements_[place].faces = 0;
    return place;
}

void OpenFaces::close(const Slot& slot)
{
    SeenElement& element = elements_[slot.element];
    element.faces = static_cast<std::uint8_t>(element.faces & ~(1U << slot.face));
    if (element.faces == 0) free_.push_back(slot.element);
}

}  // namespace report
