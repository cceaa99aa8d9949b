// The *INCLUDE family: what a block says, and where a file is looked for.
#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "deck/line_file.h"

namespace deck
{

enum class IncludeKind {
    none,       // not of the family, or a member of it that names no deck files to read here
    files,      // *INCLUDE: names
    path,       // *INCLUDE_PATH and *INCLUDE_PATH_RELATIVE: folders to look in
    transform,  // *INCLUDE_TRANSFORM: one name, then cards
    other       // any other *INCLUDE_...: not followed
};

IncludeKind include_kind(std::string_view name);

// A name in an include block, put together from its lines.
struct IncludeName {
    std::string name;
    std::size_t line = 0;    // of its first line
    std::size_t column = 0;  // 1-based
    std::size_t end_column = 0;
};

// Puts the names of a block together: a line that ends in " +" goes on in the next one.
class IncludeNames
{
public:
    // Takes a data line (no comment); true when that completes a name.
    bool take(const Line& line);

    // Completes a name whose last line asked for a further one that never came.
    bool finish();

    // The name that was completed.
    [[nodiscard]] const IncludeName& name() const { return name_; }

private:
    IncludeName name_;
    bool open_ = false;
};

// The folders in which files are looked for: beside the including file, beside the main deck, then the paths.
class IncludeFolders
{
public:
    explicit IncludeFolders(const std::filesystem::path& main_deck);

    // Both kinds of path are taken from the main deck's folder.
    void add_path(std::string_view folder);

    struct Found {
        std::filesystem::path path;      // empty when there is none
        std::vector<std::string> tried;  // as findings show them, each once
    };

    // Looks for a regular file. A name with a root is looked for as it is only. "\" counts as "/" when nothing has the
    // name as it stands.
    [[nodiscard]] Found find(std::string_view name, const std::filesystem::path& including_file) const;

    // A path as findings show it: relative to the main deck's folder with "/", wherever the command runs; as it was
    // named when nothing leads there from that folder.
    [[nodiscard]] std::string shown(const std::filesystem::path& path) const;

private:
    std::filesystem::path main_folder_;
    std::vector<std::filesystem::path> paths_;
};

}  // namespace deck
