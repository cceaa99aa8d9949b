#include "report/surface.h"

#include <algorithm>
#include <bit>
#include <map>
#include <tuple>
#include <utility>

#include "report/mesh_data.h"
#include "report/open_faces.h"
#include "report/solid_faces.h"

namespace report
{

namespace
{
struct SeenParticle {
    std::uint32_t ordinal = 0;
    std::int32_t number = 0;
    std::int32_t node = 0;
    std::uint32_t part = 0;
};

// Says which elements are kept: any share of them. Chosen as if by lot, though the same each time: any rule by their
// order would fall in step with the rows of a regular mesh, and leave out whole sides of it.
class Thinning
{
public:
    [[nodiscard]] bool keeps(std::uint32_t ordinal) const { return lot(ordinal) < kept_; }

    void keep(double share) { kept_ = static_cast<std::uint64_t>(static_cast<double>(kept_) * share); }

private:
    static std::uint32_t lot(std::uint32_t bits)
    {
        bits = (bits ^ bits >> 16U) * 0x7feb352dU;
        bits = (bits ^ bits >> 15U) * 0x846ca68bU;
        return bits ^ bits >> 16U;
    }

    std::uint64_t kept_ = std::uint64_t{1} << 32U;
};

// What was seen of a model before its nodes are read.
struct Seen {
    std::vector<SeenElement> elements;
    std::vector<SeenParticle> particles;
    std::vector<std::int64_t> parts;  // their numbers, as elements and particles count them
    std::size_t all_faces = 0;
    std::size_t all_particles = 0;
    Thinning thinning;

    // Drops what the thinning no longer keeps.
    void thin(double share)
    {
        thinning.keep(share);
        std::erase_if(elements, [this](const SeenElement& element) { return !thinning.keeps(element.ordinal); });
        std::erase_if(particles, [this](const SeenParticle& each) { return !thinning.keeps(each.ordinal); });
    }
};

// ---- elements ------------------------------------------------------------------------------------------------------

// One reading of the elements: of solids the faces whose keys lie in a range, and at the first reading all else.
class ElementReading : public ModelVisitor
{
public:
    ElementReading(Seen& seen, std::map<std::int64_t, std::uint32_t>& places, const SurfaceLimits& limits,
                   std::uint64_t begin)
        : seen_(&seen),
          places_(&places),
          limits_(&limits),
          first_(begin == 0),
          open_(begin, OpenFaces::whole_range, limits.open_faces, limits.held_elements)
    {
    }

    void element(const Element& element) override
    {
        const std::uint32_t ordinal = ordinal_++;
        if (element.kind != ElementKind::solid && !first_) return;
        const std::uint32_t part = place_of(element.part);
        const auto number = static_cast<std::int32_t>(element.id);
        if (element.kind == ElementKind::particle) {
            ++seen_->all_particles;
            if (!seen_->thinning.keeps(ordinal)) return;
            seen_->particles.push_back({ordinal, number, static_cast<std::int32_t>(element.nodes[0]), part});
            return hold_limits();
        }
        SeenElement taken{.ordinal = ordinal, .number = number, .part = part};
        for (std::size_t i = 0; i < taken.corners.size(); ++i)
            taken.corners[i] = static_cast<std::int32_t>(element.nodes[i]);
        if (element.kind == ElementKind::solid) return open_.add(taken);
        taken.shell = true;
        taken.faces = 1;
        keep(taken);
    }

    // Takes in what is open; returns where the next reading begins.
    std::uint64_t finish()
    {
        open_.each([this](const SeenElement& element) { keep(element); });
        return open_.end();
    }

private:
    std::uint32_t place_of(std::int64_t part)
    {
        if (part == latest_part_ && latest_known_) return latest_place_;
        const auto [found, is_new] = places_->try_emplace(part, static_cast<std::uint32_t>(seen_->parts.size()));
        if (is_new) seen_->parts.push_back(part);
        latest_part_ = part;
        latest_known_ = true;
        return latest_place_ = found->second;
    }

    void keep(const SeenElement& element)
    {
        seen_->all_faces += static_cast<std::size_t>(std::popcount(element.faces));
        if (!seen_->thinning.keeps(element.ordinal)) return;
        seen_->elements.push_back(element);
        hold_limits();
    }

    void hold_limits()
    {
        while (seen_->elements.size() > limits_->kept_elements || seen_->particles.size() > limits_->kept_particles)
            seen_->thin(0.5);
    }

    Seen* seen_;
    std::map<std::int64_t, std::uint32_t>* places_;
    const SurfaceLimits* limits_;
    bool first_;
    OpenFaces open_;
    std::uint32_t ordinal_ = 0;
    std::int64_t latest_part_ = 0;
    std::uint32_t latest_place_ = 0;
    bool latest_known_ = false;
};

// Elements of several readings become one each, with all their faces.
void merge(std::vector<SeenElement>& elements)
{
    std::sort(elements.begin(), elements.end(),
              [](const SeenElement& one, const SeenElement& other) { return one.ordinal < other.ordinal; });
    std::size_t kept = 0;
    for (const SeenElement& element : elements) {
        if (kept > 0 && elements[kept - 1].ordinal == element.ordinal) {
            SeenElement& same = elements[kept - 1];
            same.faces = static_cast<std::uint8_t>(same.faces | element.faces);
        } else {
            elements[kept++] = element;
        }
    }
    elements.resize(kept);
}

Seen read_elements(const ReadModel& read, const SurfaceLimits& limits)
{
    Seen seen;
    std::map<std::int64_t, std::uint32_t> places;
    for (std::uint64_t begin = 0; begin < OpenFaces::whole_range;) {
        ElementReading reading(seen, places, limits, begin);
        read(reading, {.nodes = false, .elements = true, .sets = false, .parts = false});
        begin = reading.finish();
    }
    merge(seen.elements);
    return seen;
}

// ---- from what was seen to the surface -----------------------------------------------------------------------------

// Parts by number: elements and particles count them anew.
void order_parts(Seen& seen)
{
    std::vector<std::int64_t> parts = seen.parts;
    std::sort(parts.begin(), parts.end());
    std::vector<std::uint32_t> place(parts.size());
    for (std::size_t i = 0; i < place.size(); ++i) {
        const auto found = std::lower_bound(parts.begin(), parts.end(), seen.parts[i]);
        place[i] = static_cast<std::uint32_t>(found - parts.begin());
    }
    for (SeenElement& element : seen.elements) element.part = place[element.part];
    for (SeenParticle& particle : seen.particles) particle.part = place[particle.part];
    seen.parts = std::move(parts);
    std::sort(seen.elements.begin(), seen.elements.end(), [](const SeenElement& one, const SeenElement& other) {
        return std::tuple(one.shell, one.part, one.ordinal) < std::tuple(other.shell, other.part, other.ordinal);
    });
    std::stable_sort(seen.particles.begin(), seen.particles.end(),
                     [](const SeenParticle& one, const SeenParticle& other) { return one.part < other.part; });
}

// Calls `take` with the nodes of each of the element's faces.
template <class Take>
void each_face(const SeenElement& element, const Take& take)
{
    Face face{};
    if (element.shell) {
        std::copy_n(element.corners.begin(), face.size(), face.begin());
        return take(face);
    }
    const bool tetrahedron = is_tetrahedron(element.corners);
    for (int i = 0; i < faces_of_solid; ++i)
        if ((element.faces >> i & 1) != 0 && face_of_solid(element.corners, tetrahedron, i, face)) take(face);
}

std::vector<std::int32_t> nodes_of(const Seen& seen)
{
    std::vector<std::int32_t> nodes;
    std::size_t settled = 0;  // sorted, each once: so that there are never many more than there are nodes
    const auto settle = [&] {
        std::sort(nodes.begin(), nodes.end());
        nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
        settled = nodes.size();
    };
    for (const SeenElement& element : seen.elements) {
        each_face(element, [&](const Face& face) { nodes.insert(nodes.end(), face.begin(), face.end()); });
        if (nodes.size() > settled + settled / 4 + 500'000) settle();
    }
    for (const SeenParticle& particle : seen.particles) nodes.push_back(particle.node);
    settle();
    return nodes;
}

std::uint32_t place_in(const std::vector<std::int32_t>& nodes, std::int32_t node)
{
    return static_cast<std::uint32_t>(std::lower_bound(nodes.begin(), nodes.end(), node) - nodes.begin());
}

void add_elements(Surface& surface, const Seen& seen)
{
    for (const SeenElement& element : seen.elements) {
        surface.element_numbers.push_back(element.number);
        if (element.shell) continue;
        ++surface.solids;
        surface.corners.push_back(element.corners);
    }
}

// Faces by part. Elements stand by kind and part, so each kind has a place to go on from.
void add_faces(Surface& surface, const Seen& seen)
{
    std::array<std::size_t, 2> next{0, surface.solids};
    const std::array<std::size_t, 2> end{surface.solids, seen.elements.size()};
    for (std::size_t part = 0; part < surface.parts.size(); ++part) {
        surface.parts[part].first_face = surface.faces.size();
        for (std::size_t kind = 0; kind < 2; ++kind) {
            for (; next[kind] < end[kind] && seen.elements[next[kind]].part == part; ++next[kind]) {
                each_face(seen.elements[next[kind]], [&](const Face& nodes) {
                    std::array<std::uint32_t, 4> face{};
                    std::transform(nodes.begin(), nodes.end(), face.begin(),
                                   [&](std::int32_t node) { return place_in(surface.node_numbers, node); });
                    surface.faces.push_back(face);
                    surface.face_elements.push_back(static_cast<std::uint32_t>(next[kind]));
                });
            }
        }
        surface.parts[part].faces = surface.faces.size() - surface.parts[part].first_face;
    }
}

void add_particles(Surface& surface, const Seen& seen)
{
    for (std::size_t i = 0; i < seen.particles.size(); ++i) {
        const SeenParticle& particle = seen.particles[i];
        Surface::Part& part = surface.parts[particle.part];
        if (part.particles++ == 0) part.first_particle = i;
        surface.particles.push_back(place_in(surface.node_numbers, particle.node));
        surface.particle_numbers.push_back(particle.number);
    }
}

// Less than the bytes that all of this takes in a page, though not much less.
std::size_t least_size(const Seen& seen, std::size_t nodes)
{
    constexpr std::size_t of_node = 3 * sizeof(float) + 1, of_solid = 9, of_shell = 1, of_face = 5, of_particle = 2;
    std::size_t size = of_node * nodes + of_particle * seen.particles.size();
    for (const SeenElement& element : seen.elements)
        size +=
            (element.shell ? of_shell : of_solid) + of_face * static_cast<std::size_t>(std::popcount(element.faces));
    return size;
}

Surface laid_out(const Seen& seen, std::vector<std::int32_t> nodes)
{
    Surface surface;
    surface.all_faces = seen.all_faces;
    surface.all_particles = seen.all_particles;
    surface.parts.resize(seen.parts.size());
    for (std::size_t i = 0; i < seen.parts.size(); ++i) surface.parts[i].id = seen.parts[i];
    surface.node_numbers = std::move(nodes);
    add_elements(surface, seen);
    add_faces(surface, seen);
    add_particles(surface, seen);
    return surface;
}

// Thinned until it is small enough. What is far too large is not laid out at all.
Surface fitted(Seen& seen, std::size_t bytes)
{
    const auto share = [bytes](std::size_t size) { return static_cast<double>(bytes) / static_cast<double>(size); };
    for (;;) {
        std::vector<std::int32_t> nodes = nodes_of(seen);
        std::size_t size = least_size(seen, nodes.size());
        if (size <= bytes) {
            Surface surface = laid_out(seen, std::move(nodes));
            size = mesh_size(surface);
            if (size <= bytes) return surface;
        }
        seen.thin(0.98 * share(size));
    }
}

// ---- nodes, parts and sets -----------------------------------------------------------------------------------------

class NodeReading : public ModelVisitor
{
public:
    NodeReading(Surface& surface, std::size_t most_members)
        : surface_(&surface), most_members_(most_members), placed_(surface.node_numbers.size())
    {
        surface.positions.resize(3 * surface.node_numbers.size());
    }

    void node(std::int64_t id, const std::array<double, 3>& at) override
    {
        const std::vector<std::int32_t>& nodes = surface_->node_numbers;
        if (next_ >= nodes.size() || nodes[next_] != id) {
            next_ = place(id);
            if (next_ >= nodes.size() || nodes[next_] != id) return;
        }
        if (!has_origin_) origin_ = at;
        has_origin_ = true;
        for (std::size_t i = 0; i < 3; ++i) surface_->positions[3 * next_ + i] = static_cast<float>(at[i] - origin_[i]);
        placed_[next_++] = true;
    }

    void part(const PartCount& part) override
    {
        Surface::Part* const found = find_part(part.id);
        if (found == nullptr) return;
        found->title = part.title;
        found->section = part.section;
        found->material = part.material;
    }

    void set_begins(SetKind kind, std::int64_t id, const std::string& title) override
    {
        surface_->sets.push_back({.title = title, .kind = kind, .id = id, .first = surface_->members.size()});
    }

    void set_member(const std::array<std::int64_t, 4>& member) override
    {
        if (surface_->sets.empty()) return;
        Surface::Members& set = surface_->sets.back();
        ++set.all;
        const std::size_t before = surface_->members.size();
        if (before < most_members_) add(set.kind, member);
        set.count += surface_->members.size() - before;
    }

    // Leaves out the faces and particles whose nodes are not defined anywhere.
    void finish();

private:
    [[nodiscard]] std::size_t place(std::int64_t node) const
    {
        const std::vector<std::int32_t>& nodes = surface_->node_numbers;
        return static_cast<std::size_t>(std::lower_bound(nodes.begin(), nodes.end(), node) - nodes.begin());
    }

    [[nodiscard]] bool has_node(std::size_t place, std::int64_t node) const
    {
        return place < surface_->node_numbers.size() && surface_->node_numbers[place] == node;
    }

    Surface::Part* find_part(std::int64_t id)
    {
        const auto found =
            std::lower_bound(surface_->parts.begin(), surface_->parts.end(), id,
                             [](const Surface::Part& part, std::int64_t wanted) { return part.id < wanted; });
        return found != surface_->parts.end() && found->id == id ? &*found : nullptr;
    }

    void add(SetKind kind, const std::array<std::int64_t, 4>& member);
    void add_segment(const std::array<std::int64_t, 4>& nodes);
    void add_element(SetKind kind, std::int64_t number);

    using Numbered = std::vector<std::pair<std::int32_t, std::uint32_t>>;  // an element's number and place
    Numbered& numbered(SetKind kind);

    Surface* surface_;
    std::size_t most_members_;
    std::vector<bool> placed_;
    std::size_t next_ = 0;  // place of the node that is expected: nodes mostly come in order
    std::array<double, 3> origin_{};
    bool has_origin_ = false;
    Numbered solids_;  // by number; made when a set asks for it
    Numbered shells_;
};

void NodeReading::add(SetKind kind, const std::array<std::int64_t, 4>& member)
{
    if (kind == SetKind::segment) return add_segment(member);
    if (kind == SetKind::solid || kind == SetKind::shell) return add_element(kind, member[0]);
    if (kind == SetKind::part) {
        if (const Surface::Part* const found = find_part(member[0]); found != nullptr)
            surface_->members.push_back(static_cast<std::uint32_t>(found - surface_->parts.data()));
    } else if (kind == SetKind::node) {
        if (const std::size_t found = place(member[0]); has_node(found, member[0]))
            surface_->members.push_back(static_cast<std::uint32_t>(found));
    }
}

// A segment of three nodes has none, or its third again, as its fourth.
void NodeReading::add_segment(const std::array<std::int64_t, 4>& nodes)
{
    std::array<std::uint32_t, 4> places{};
    for (std::size_t i = 0; i < places.size(); ++i) {
        const std::int64_t node = i == 3 && nodes[3] == 0 ? nodes[2] : nodes[i];
        const std::size_t found = place(node);
        if (!has_node(found, node)) return;
        places[i] = static_cast<std::uint32_t>(found);
    }
    surface_->members.insert(surface_->members.end(), places.begin(), places.end());
}

void NodeReading::add_element(SetKind kind, std::int64_t number)
{
    const Numbered& known = numbered(kind);
    const auto found = std::lower_bound(known.begin(), known.end(), number,
                                        [](const auto& each, std::int64_t wanted) { return each.first < wanted; });
    if (found != known.end() && found->first == number) surface_->members.push_back(found->second);
}

NodeReading::Numbered& NodeReading::numbered(SetKind kind)
{
    Numbered& known = kind == SetKind::solid ? solids_ : shells_;
    if (!known.empty()) return known;
    const std::size_t begin = kind == SetKind::solid ? 0 : surface_->solids;
    const std::size_t end = kind == SetKind::solid ? surface_->solids : surface_->element_numbers.size();
    for (std::size_t i = begin; i < end; ++i)
        known.emplace_back(surface_->element_numbers[i], static_cast<std::uint32_t>(i));
    std::sort(known.begin(), known.end());
    return known;
}

void NodeReading::finish()
{
    if (std::find(placed_.begin(), placed_.end(), false) == placed_.end()) return;
    Surface& surface = *surface_;
    const auto is_placed = [this](std::uint32_t node) { return placed_[node]; };
    std::size_t faces = 0;
    std::size_t particles = 0;
    for (Surface::Part& part : surface.parts) {
        const std::size_t first = faces;
        for (std::size_t i = part.first_face; i < part.first_face + part.faces; ++i) {
            if (!std::all_of(surface.faces[i].begin(), surface.faces[i].end(), is_placed)) continue;
            surface.faces[faces] = surface.faces[i];
            surface.face_elements[faces++] = surface.face_elements[i];
        }
        const std::size_t first_particle = particles;
        for (std::size_t i = part.first_particle; i < part.first_particle + part.particles; ++i) {
            if (!is_placed(surface.particles[i])) continue;
            surface.particles[particles] = surface.particles[i];
            surface.particle_numbers[particles++] = surface.particle_numbers[i];
        }
        part.first_face = first;
        part.faces = faces - first;
        part.first_particle = first_particle;
        part.particles = particles - first_particle;
    }
    surface.faces.resize(faces);
    surface.face_elements.resize(faces);
    surface.particles.resize(particles);
    surface.particle_numbers.resize(particles);
}
}  // namespace

Surface surface_of(const ReadModel& read, const SurfaceLimits& limits)
{
    Seen seen = read_elements(read, limits);
    order_parts(seen);
    Surface surface = fitted(seen, limits.bytes);
    seen = {};
    NodeReading reading(surface, limits.members);
    read(reading, {.nodes = true, .elements = false, .sets = true, .parts = true});
    reading.finish();
    return surface;
}

}  // namespace report
