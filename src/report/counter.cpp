#include "report/counter.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <functional>
#include <map>
#include <optional>
#include <tuple>
#include <utility>

#include "report/element_shape.h"
#include "report/model.h"
#include "report/node_table.h"
#include "report/part_sums.h"
#include "report/written_digits.h"

namespace report
{

namespace
{
constexpr std::size_t most_worst = 10;

// Behind the point of what the geometry file holds.
constexpr int coordinate_digits = 13;
constexpr int mass_digits = 8;

// ---- digests -------------------------------------------------------------------------------------------------------

// Mixes a value into a hash; one bit of it changes half of the result's.
std::uint64_t mixed(std::uint64_t hash, std::uint64_t value)
{
    hash = (hash ^ value) + 0x9e3779b97f4a7c15;
    hash = (hash ^ (hash >> 30)) * 0xbf58476d1ce4e5b9;
    hash = (hash ^ (hash >> 27)) * 0x94d049bb133111eb;
    return hash ^ (hash >> 31);
}

std::uint64_t mixed(std::uint64_t hash, std::int64_t value)
{
    return mixed(hash, static_cast<std::uint64_t>(value));
}

std::uint64_t mixed(std::uint64_t hash, float value)
{
    if (std::isnan(value)) return mixed(hash, ~std::uint64_t{});
    return mixed(hash, std::uint64_t{std::bit_cast<std::uint32_t>(value + 0.0F)});  // -0 is 0
}

// A number that should be single precision and is not has a digest of its own.
std::uint64_t mixed_digits(std::uint64_t hash, double value, int digits)
{
    if (is_written_single(value, digits)) return hash;
    return mixed(hash, std::bit_cast<std::uint64_t>(value));
}

std::uint64_t digest_of(const Element& element)
{
    std::uint64_t hash = mixed(mixed(0, element.id), element.part);
    for (int i = 0; i < element.corners; ++i) hash = mixed(hash, element.nodes[static_cast<std::size_t>(i)]);
    return element.kind == ElementKind::particle ? mixed(hash, static_cast<float>(element.mass)) : hash;
}

// ---- counting ------------------------------------------------------------------------------------------------------

class Counter : public ModelVisitor
{
public:
    using Read = std::function<void(ModelVisitor&, const Pieces&)>;

    // `written`: by the converter, so that no digit can be other than single precision has it.
    explicit Counter(bool written) : written_(written) {}

    // `read` tells of the source; twice when elements stand before nodes.
    Count count(const Read& read)
    {
        read(*this, {});
        if (measure_again_) {
            nodes_.seal();
            sums_.clear();
            count_.worst.clear();
            shortest_.reset();
            only_measures_ = true;
            read(*this, {.nodes = false, .elements = true, .sets = false, .parts = false});
        }
        finish();
        return std::move(count_);
    }

    void node(std::int64_t id, const std::array<double, 3>& at) override
    {
        const std::array<float, 3> single = {static_cast<float>(at[0]), static_cast<float>(at[1]),
                                             static_cast<float>(at[2])};
        ++count_.nodes;
        std::uint64_t hash = mixed(0, id);
        for (const float value : single) hash = mixed(hash, value);
        for (const double value : at)
            if (written_) hash = mixed_digits(hash, value, coordinate_digits);
        count_.node_digest += hash;
        widen(single);
        if (sealed_) measure_again_ = true;
        nodes_.add(id, single);
    }

    void element(const Element& element) override
    {
        if (!only_measures_) tally(element);
        if (measure_again_ && !only_measures_) return;
        if (!std::exchange(sealed_, true)) nodes_.seal();
        measure(element);
    }

    void set_begins(SetKind kind, std::int64_t id, const std::string& title) override
    {
        count_.sets.push_back({kind, id, title, 0, 0});
    }

    void set_member(const std::array<std::int64_t, 4>& member) override
    {
        if (count_.sets.empty()) return;
        SetCount& set = count_.sets.back();
        ++set.members;
        std::uint64_t hash = 0;
        for (const std::int64_t number : member) hash = mixed(hash, number);
        set.digest += hash;
    }

    void part(const PartCount& part) override
    {
        PartCount& known = part_of(part.id);
        if (++known.definitions > 1) return;  // the first counts
        known.title = part.title;
        known.section = part.section;
        known.material = part.material;
        known.has_density = part.has_density;
        known.density = part.density;
        known.thickness = part.thickness;
    }

private:
    // In single precision to the end: GCC 12 at -O3 forgets the rounding where a value is widened again at once.
    void widen(const std::array<float, 3>& at)
    {
        for (std::size_t i = 0; i < 3; ++i) {
            if (count_.nodes == 1 || at[i] < low_[i]) low_[i] = at[i];
            if (count_.nodes == 1 || at[i] > high_[i]) high_[i] = at[i];
        }
    }

    void tally(const Element& element)
    {
        PartCount& part = part_of(element.part);
        switch (element.kind) {
        case ElementKind::solid:
            ++count_.solids;
            ++part.solids;
            count_.solid_digest += digest_of(element);
            break;
        case ElementKind::shell:
            ++count_.shells;
            ++part.shells;
            count_.shell_digest += digest_of(element);
            break;
        case ElementKind::particle:
            ++count_.particles;
            ++part.particles;
            count_.particle_digest +=
                written_ ? mixed_digits(digest_of(element), element.mass, mass_digits) : digest_of(element);
            break;
        }
    }

    // Elements of a part mostly stand together.
    PartCount& part_of(std::int64_t id)
    {
        if (latest_part_ == nullptr || latest_part_->id != id) {
            latest_part_ = &parts_[id];
            latest_part_->id = id;
        }
        return *latest_part_;
    }

    PartSums& sums_of(std::int64_t id)
    {
        if (sums_.empty() || latest_sums_->first != id) latest_sums_ = sums_.try_emplace(id).first;
        return latest_sums_->second;
    }

    // An element one of whose nodes is not there has no size.
    void measure(const Element& element)
    {
        switch (element.kind) {
        case ElementKind::solid:
            return measure_solid(element);
        case ElementKind::shell:
            return measure_shell(element);
        case ElementKind::particle:
            if (std::array<Vector, 1> at{}; find({element.nodes[0]}, at))
                sums_of(element.part).add_particle(static_cast<float>(element.mass), at[0]);
        }
    }

    void measure_solid(const Element& element)
    {
        const std::array<std::int64_t, 8> nodes = without_zeros(element.nodes);
        std::array<Vector, 8> at{};
        if (!find(nodes, at)) return;
        const Shape shape = shape_of_solid(nodes, at);
        sums_of(element.part).add_solid(shape);
        judge(element, shape);
    }

    void measure_shell(const Element& element)
    {
        std::array<std::int64_t, 4> nodes = {element.nodes[0], element.nodes[1], element.nodes[2], element.nodes[3]};
        if (nodes[3] == 0) nodes[3] = nodes[2];
        std::array<Vector, 4> at{};
        if (!find(nodes, at)) return;
        const Shape shape = shape_of_shell(nodes, at);
        sums_of(element.part).add_shell(shape, element.thickness, is_triangle(nodes) ? 3 : 4);
        judge(element, shape);
    }

    template <std::size_t size>
    bool find(const std::array<std::int64_t, size>& nodes, std::array<Vector, size>& at) const
    {
        for (std::size_t i = 0; i < size; ++i) {
            const std::array<float, 3>* const node = nodes_.find(nodes[i]);
            if (node == nullptr) return false;
            at[i] = {(*node)[0], (*node)[1], (*node)[2]};
        }
        return true;
    }

    // Where two are alike the lower number comes first, so that the order of the elements does not matter.
    void judge(const Element& element, const Shape& shape)
    {
        const std::pair edge{shape.shortest_edge, element.id};
        if (std::isfinite(edge.first) && (!shortest_ || edge < *shortest_)) shortest_ = edge;
        const auto worse = [](const BadElement& a, const BadElement& b) {
            return std::tie(a.shape, a.id, a.part) < std::tie(b.shape, b.id, b.part);
        };
        std::vector<BadElement>& worst = count_.worst;
        const BadElement candidate{element.id, element.part, shape.quality};
        if (worst.size() == most_worst && !worse(candidate, worst.back())) return;
        worst.insert(std::upper_bound(worst.begin(), worst.end(), candidate, worse), candidate);
        if (worst.size() > most_worst) worst.pop_back();
    }

    void finish()
    {
        count_.box = {{low_[0], low_[1], low_[2]}, {high_[0], high_[1], high_[2]}, count_.nodes == 0};
        if (shortest_) std::tie(count_.smallest_edge, count_.smallest_edge_element) = *shortest_;
        while (!parts_.empty()) {  // many parts are not held twice
            auto part = parts_.extract(parts_.begin());
            if (const auto sums = sums_.extract(part.key())) sums.mapped().give(part.mapped());
            count_.parts.push_back(std::move(part.mapped()));
        }
        std::sort(count_.sets.begin(), count_.sets.end(), [](const SetCount& a, const SetCount& b) {
            return std::tie(a.kind, a.id, a.members, a.digest) < std::tie(b.kind, b.id, b.members, b.digest);
        });
    }

    bool written_;
    Count count_;
    std::array<float, 3> low_{};
    std::array<float, 3> high_{};
    NodeTable nodes_;
    std::map<std::int64_t, PartCount> parts_;
    std::map<std::int64_t, PartSums> sums_;
    PartCount* latest_part_ = nullptr;
    std::map<std::int64_t, PartSums>::iterator latest_sums_;
    std::optional<std::pair<double, std::int64_t>> shortest_;
    bool sealed_ = false;         // an element has been measured with the nodes that there were
    bool measure_again_ = false;  // nodes stand behind elements
    bool only_measures_ = false;  // the second time
};
}  // namespace

Count count_deck(const std::filesystem::path& deck)
{
    return Counter(false).count([&](ModelVisitor& visitor, const Pieces& pieces) { read_deck(deck, visitor, pieces); });
}

Count count_written(const std::filesystem::path& folder, const std::string& deck)
{
    return Counter(true).count(
        [&](ModelVisitor& visitor, const Pieces& pieces) { read_written(folder, deck, visitor, pieces); });
}

}  // namespace report
