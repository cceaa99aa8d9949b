// A folder that is there whole or not at all.
#pragma once

#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>

#include "driver/system.h"

namespace commands
{

// Is built beside its place, under a name of its own, and takes its name when it is whole; until then what was there
// before stays. A run that fails removes what it has built; what a killed one has left is removed by the next one for
// the same place.
class OwnFolder
{
public:
    // The file in it, until it has its name, that shows that its run lives.
    static constexpr const char* lock_name = "unfinished";

    // Decides whether a folder that is already in the place may be replaced.
    using Replaceable = std::function<bool(const std::filesystem::path&)>;

    // Throws deck::Fault when the place is taken, or nothing can be created beside it.
    OwnFolder(const std::filesystem::path& place, Replaceable replaceable);
    ~OwnFolder();
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;

    // Where it is being built; absolute.
    [[nodiscard]] const std::filesystem::path& path() const { return own_; }

    // Its place; absolute.
    [[nodiscard]] const std::filesystem::path& place() const { return place_; }

    // Gives it its name. Throws deck::Fault when that fails.
    void put_in_place();

private:
    void remove_leftovers() const;

    std::filesystem::path place_;
    Replaceable replaceable_;
    std::filesystem::path own_;                                                    // empty once it has its name
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> lock_{nullptr, &std::fclose};  // shows that its run lives
};

}  // namespace commands
