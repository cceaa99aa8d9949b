#include "driver/outputs.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "driver/faults.h"
#include "driver/system.h"

namespace fs = std::filesystem;

namespace
{
bool wanted(const Output& output)
{
    return output.flag == nullptr || *output.flag == 1;
}

// What a name stands for: the file itself, or, when it is not there yet, its place.
struct Place {
    const char* name;
    FileState file;
    FileState folder;    // of a file that is not there yet, and
    fs::path file_name;  // its name there
};

Place place_of(const char* name)
{
    Place place{name, state_of(path_of(name)), {}, {}};
    if (place.file.kind != FileState::Kind::missing) return place;
    const fs::path target = target_of(path_of(name));
    place.folder = state_of(target.has_parent_path() ? target.parent_path() : fs::path("."));
    place.file_name = target.filename();
    return place;
}

// True when both names stand for one file. A device may take several outputs.
bool same_place(const Place& a, const Place& b)
{
    if (a.file.kind != FileState::Kind::missing || b.file.kind != FileState::Kind::missing)
        return a.file.kind == FileState::Kind::regular && a.file.same_file(b.file);
    return a.folder.same_file(b.folder) && same_name(a.file_name, b.file_name);
}
}  // namespace

bool Outputs::collide() const
{
    std::vector<Place> places;
    for (const Output& output : all_)
        if (wanted(output)) places.push_back(place_of(output.name));
    bool found = false;
    const auto refuse = [&](const Place& place, const char* reason, const char* other) {
        report_fault(place.name, std::string(reason) + other);
        found = true;
    };
    for (const char* const input : {static_cast<const char*>(file_names.deck), control_file_name}) {
        const Place read = place_of(input);
        if (read.file.kind == FileState::Kind::missing) continue;
        for (const Place& place : places)
            if (same_place(place, read)) refuse(place, "the run would write over its own input ", input);
    }
    for (std::size_t i = 0; i < places.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (same_place(places[i], places[j])) refuse(places[i], "it is the same file as ", places[j].name);
    return found;
}

void Outputs::fail(Output& output, const std::string& reason)
{
    report_fault(output.name, reason);
    output.file.discard();
    if (output.flag != nullptr) *output.flag = 0;
}

void Outputs::create(const OutputStream& stream)
{
    Output& output = *std::find_if(all_.begin(), all_.end(), [&](const Output& o) { return &o.stream == &stream; });
    if (output.file.create(output.name)) {
        output.stream.open(output.file.file());
        const fs::path& folder = output.file.folder();
        if (std::find(folders_.begin(), folders_.end(), folder) != folders_.end()) return;
        folders_.push_back(folder);
        remove_leftovers(folder);
        return;
    }
    fail(output, output.file.failure());
    if (output.flag == &accelflag) accelflag = 1;
}

void Outputs::finish()
{
    for (Output& output : all_) {
        output.stream.close();
        if (!output.stream.failure().empty()) fail(output, output.stream.failure());
        if (!output.file.failure().empty()) fail(output, output.file.failure());
        if (!wanted(output)) output.file.discard();
        if (!output.file.close()) fail(output, output.file.failure());
    }
    const FolderLock lock(".");
    const SignalsHeld held;
    for (Output& output : all_)
        if (!output.file.put_in_place()) fail(output, output.file.failure());
}

void Outputs::discard()
{
    for (Output& output : all_) {
        output.stream.close();
        output.file.discard();
        if (output.flag != nullptr) *output.flag = 0;
    }
}
