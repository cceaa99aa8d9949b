// A model, told piece by piece: what a deck, or what the converter wrote of it, defines.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>

#include "report/count.h"

namespace report
{

enum class ElementKind : std::uint8_t { solid, shell, particle };

struct Element {
    ElementKind kind = ElementKind::solid;
    std::int64_t id = 0;
    std::int64_t part = 0;
    int corners = 8;                      // 8, 4, or 1 of a particle
    std::array<std::int64_t, 8> nodes{};  // degenerate forms repeat nodes
    double mass = 0;                      // of a particle that carries its own
    std::array<double, 4> thickness{};    // of a shell's corners; 0 where its section says it
};

// What a reader tells of. What nobody asks for is passed over.
struct Pieces {
    bool nodes = true;
    bool elements = true;
    bool sets = true;
    bool parts = true;
};

// Who is told of a model. Nodes come before the elements when the source has them so; a visitor that needs all nodes
// first reads twice. Parts come at any time, each with its section's thickness and its material's density.
class ModelVisitor
{
public:
    virtual ~ModelVisitor() = default;
    virtual void node(std::int64_t id, const std::array<double, 3>& at);
    virtual void element(const Element& element);
    virtual void set_begins(SetKind kind, std::int64_t id, const std::string& title);
    virtual void set_member(const std::array<std::int64_t, 4>& member);  // of a segment the corners, else the first
    virtual void part(const PartCount& part);                            // without what its elements add up to

protected:
    ModelVisitor() = default;
    ModelVisitor(const ModelVisitor&) = default;
    ModelVisitor& operator=(const ModelVisitor&) = default;
};

// Reads the written files of a conversion: `<name>.card`, `.geom` and `.sets` in the folder, of the deck's name. What
// is not there is left out, and so is a line that does not hold what its heading promises. Nodes come before elements.
// Throws deck::Fault when a file cannot be read.
void read_written(const std::filesystem::path& folder, const std::string& deck, ModelVisitor& visitor,
                  const Pieces& pieces = {});

// Reads a deck with its include files, as prepare understands it. Throws deck::Fault.
void read_deck(const std::filesystem::path& deck, ModelVisitor& visitor, const Pieces& pieces = {});

}  // namespace report
