// Styles of decks in several files.
#include <algorithm>
#include <string>
#include <utility>

#include "support/style_helpers.h"

namespace models
{
namespace
{
std::string new_name(Spelling& spelling, Random& random)
{
    static constexpr std::string_view words[] = {"mesh", "bar", "parts", "loads-and-sets", "Materials_v2"};
    static constexpr std::string_view extensions[] = {".k", ".key", ".inc", ".dyn"};
    std::string name = std::string(random.pick(words)) + std::to_string(count_files(spelling) + 1);
    return name += random.pick(extensions);
}

std::string folder_of(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

// The blocks of a deck's file that blocks can be taken from: those of the main deck, or of one that it includes.
struct Source {
    std::vector<Block>* blocks;
    std::string folder;
    std::size_t first;  // *KEYWORD stays
};

void collect(std::vector<Block>& blocks, const std::string& folder, bool main, std::vector<Source>& sources)
{
    sources.push_back({&blocks, folder, main ? std::size_t{1} : std::size_t{0}});
    for (Block& block : blocks)
        for (IncludeFile& file : block.files) collect(file.blocks, folder_of(file.path), false, sources);
}

// Takes some neighbouring blocks out, at least one, and leaves an empty *INCLUDE in their place; null when there are
// none.
Block* take_out(const Source& source, Random& random, std::vector<Block>& taken)
{
    std::vector<Block>& blocks = *source.blocks;
    if (blocks.size() <= source.first) return nullptr;
    const std::size_t from = source.first + random.below(blocks.size() - source.first);
    const std::size_t count = 1 + random.below(std::min<std::size_t>(blocks.size() - from, 1 + random.below(12)));
    const auto begin = blocks.begin() + static_cast<std::ptrdiff_t>(from);
    const auto end = begin + static_cast<std::ptrdiff_t>(count);
    // a path is set in the main deck
    if (std::any_of(begin, end, [](const Block& block) { return begins(block.keyword, "*INCLUDE_PATH"); }))
        return nullptr;
    taken.assign(std::make_move_iterator(begin), std::make_move_iterator(end));
    blocks.erase(begin + 1, end);
    blocks[from] = Block();
    blocks[from].number = -1;
    blocks[from].keyword = "*INCLUDE";
    return &blocks[from];
}

Source main_source(Spelling& spelling)
{
    return {&spelling.deck.blocks, {}, 1};
}

void name_file(Block& include, IncludeFile file)
{
    include.cards.push_back(title_card(file.name));
    include.files.push_back(std::move(file));
}

bool one_file(Spelling& spelling, Random& random)
{
    const std::string name = new_name(spelling, random);
    std::vector<Block> taken;
    Block* const include = take_out(main_source(spelling), random, taken);
    if (include == nullptr) return false;
    IncludeFile file{name, name, std::move(taken)};
    file.newline = !random.one_in(4);
    name_file(*include, std::move(file));
    return true;
}

bool file_in_a_folder(Spelling& spelling, Random& random)
{
    const std::string name = "sub/" + new_name(spelling, random);
    std::vector<Block> taken;
    Block* const include = take_out(main_source(spelling), random, taken);
    if (include == nullptr) return false;
    name_file(*include, {name, name, std::move(taken)});
    return true;
}

bool keyword_and_end_inside(Spelling& spelling, Random& random)
{
    if (spelling.deck.format != Format::standard) return false;
    const std::string name = new_name(spelling, random);
    std::vector<Block> taken;
    Block* const include = take_out(main_source(spelling), random, taken);
    if (include == nullptr) return false;
    IncludeFile file{name, name, std::move(taken)};
    file.keyword = random.one_in(2);
    file.end = !file.keyword || random.one_in(2);
    name_file(*include, std::move(file));
    return true;
}

bool several_names(Spelling& spelling, Random& random)
{
    std::string name = new_name(spelling, random);
    std::vector<Block> taken;
    Block* const include = take_out(main_source(spelling), random, taken);
    if (include == nullptr) return false;
    const auto middle = taken.begin() + static_cast<std::ptrdiff_t>(random.below(taken.size() + 1));
    std::vector<Block> second(std::make_move_iterator(middle), std::make_move_iterator(taken.end()));
    taken.erase(middle, taken.end());
    name_file(*include, {"a-" + name, "a-" + name, std::move(taken)});
    name_file(*include, {"b-" + name, "b-" + name, std::move(second)});
    return true;
}

bool name_over_several_lines(Spelling& spelling, Random& random)
{
    const std::string folder = "runs/of-the-second-campaign/";
    const std::string name = new_name(spelling, random);
    std::vector<Block> taken;
    Block* const include = take_out(main_source(spelling), random, taken);
    if (include == nullptr) return false;
    include->cards = {title_card(folder + " +"), title_card(name)};
    include->files.push_back({folder + name, folder + name, std::move(taken)});
    return true;
}

bool include_path(Spelling& spelling, Random& random)
{
    const std::string name = new_name(spelling, random);
    std::vector<Block> taken;
    Block* const include = take_out(main_source(spelling), random, taken);
    if (include == nullptr) return false;
    name_file(*include, {name, "library/" + name, std::move(taken)});
    Block path;
    path.number = -1;
    path.keyword = random.one_in(2) ? "*INCLUDE_PATH" : "*INCLUDE_PATH_RELATIVE";
    path.cards.push_back(title_card("library"));
    spelling.deck.blocks.insert(spelling.deck.blocks.begin() + 1, std::move(path));
    return true;
}

// A file that an include file names, from its own folder.
bool nested(Spelling& spelling, Random& random)
{
    std::vector<Source> sources;
    collect(spelling.deck.blocks, {}, true, sources);
    if (sources.size() == 1) {
        if (!file_in_a_folder(spelling, random)) return false;
        sources.clear();
        collect(spelling.deck.blocks, {}, true, sources);
    }
    const Source source = sources[1 + random.below(sources.size() - 1)];
    const std::string name = new_name(spelling, random);
    std::vector<Block> taken;
    Block* const include = take_out(source, random, taken);
    if (include == nullptr) return false;
    name_file(*include, {name, source.folder + name, std::move(taken)});
    return true;
}

constexpr Style table[] = {
    {"an include file", "MD121", true, true, one_file},
    {"an include file in a folder", "MD121", true, true, file_in_a_folder},
    {"an include file with *KEYWORD or *END", "MD121", true, true, keyword_and_end_inside},
    {"include files behind one keyword", "MD121", true, true, several_names},
    {"an include file's name over several lines", "MD121", true, true, name_over_several_lines},
    {"an include path", "MD121", true, true, include_path},
    {"nested include files", "MD121", true, true, nested},
};
}  // namespace

std::span<const Style> styles_of_files()
{
    return table;
}
}  // namespace models
