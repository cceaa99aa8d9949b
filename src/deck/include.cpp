#include "deck/include.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "deck/keyword_line.h"

namespace deck
{

namespace fs = std::filesystem;

IncludeKind include_kind(std::string_view name)
{
    if (name == "*INCLUDE") return IncludeKind::files;
    if (name == "*INCLUDE_PATH" || name == "*INCLUDE_PATH_RELATIVE") return IncludeKind::path;
    if (name == "*INCLUDE_TRANSFORM") return IncludeKind::transform;
    return is_of(name, "*INCLUDE") ? IncludeKind::other : IncludeKind::none;
}

// ---- names over several lines --------------------------------------------------------------------------------------

bool IncludeNames::take(const Line& line)
{
    std::string_view part = trimmed(line.text);
    if (!open_) {
        if (part.empty()) return false;  // a blank line names nothing
        name_ = {};
        name_.line = line.number;
        name_.column = static_cast<std::size_t>(part.data() - line.text.data()) + 1;
        name_.end_column = name_.column + part.size();
    }
    open_ = part == "+" || part.ends_with(" +");
    if (open_) part = trimmed(part.substr(0, part.size() - 1));
    name_.name += part;
    return !open_;
}

bool IncludeNames::finish()
{
    return std::exchange(open_, false) && !name_.name.empty();
}

// ---- where files are looked for ------------------------------------------------------------------------------------

namespace
{
bool is_regular(const fs::path& path)
{
    std::error_code error;
    return fs::is_regular_file(path, error);
}

fs::path folder_of(const fs::path& file)
{
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

fs::path with_slashes(std::string_view name)
{
    std::string text(name);
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}
}  // namespace

IncludeFolders::IncludeFolders(const fs::path& main_deck) : main_folder_(folder_of(main_deck))
{
}

void IncludeFolders::add_path(std::string_view folder)
{
    fs::path path = main_folder_ / fs::path(folder);
    std::error_code error;
    if (!fs::is_directory(path, error) && folder.find('\\') != std::string_view::npos)
        path = main_folder_ / with_slashes(folder);
    if (std::find(paths_.begin(), paths_.end(), path) == paths_.end()) paths_.push_back(path);
}

IncludeFolders::Found IncludeFolders::find(std::string_view name, const fs::path& including_file) const
{
    Found found;
    const auto look_for = [&](const fs::path& path) {
        if (!found.path.empty()) return;
        std::string text = shown(path);
        if (std::find(found.tried.begin(), found.tried.end(), text) != found.tried.end()) return;
        found.tried.push_back(std::move(text));
        if (is_regular(path)) found.path = path;
    };
    const auto look_everywhere = [&](const fs::path& file) {
        if (file.is_absolute()) return look_for(file);
        look_for(folder_of(including_file) / file);
        look_for(main_folder_ / file);
        for (const fs::path& folder : paths_) look_for(folder / file);
    };
    look_everywhere(fs::path(name));
    if (found.path.empty() && name.find('\\') != std::string_view::npos) look_everywhere(with_slashes(name));
    return found;
}

std::string IncludeFolders::shown(const fs::path& path) const
{
    const fs::path normal = path.lexically_normal();
    const fs::path relative = normal.lexically_relative(main_folder_.lexically_normal());
    return (relative.empty() ? normal : relative).generic_string();
}

}  // namespace deck
