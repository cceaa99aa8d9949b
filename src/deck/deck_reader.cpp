#include "deck/deck_reader.h"

#include <algorithm>
#include <deque>
#include <optional>
#include <utility>

#include <sys/stat.h>

#include "deck/include_transform.h"

namespace deck
{

namespace fs = std::filesystem;

namespace
{
// What tells a file from every other, however it is named or linked.
using Identity = std::pair<std::uint64_t, std::uint64_t>;

Identity identity_of(const fs::path& path)
{
    struct stat status {
    };
    if (::stat(path.c_str(), &status) != 0) return {};
    return {static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino)};
}

// A file that a block has named and that has not been read yet.
struct Wanted {
    IncludeName name;
    ContentChange change;
};

struct OpenFile {
    LineFile lines;
    FileNumber number = 0;
    Identity identity;
    FormatSettings settings;
    bool ended = false;         // behind its *END, or it cannot be read further
    std::deque<Wanted> wanted;  // from its present include block
};
}  // namespace

class DeckReader::Tree
{
public:
    Tree(const fs::path& main_deck, Report report, ReaderLimits limits);

    bool next_block();
    bool next_line(Line& line);
    bool has_line();
    [[nodiscard]] std::size_t last_line() const { return stack_.back().lines.lines_read(); }

    Block block;
    std::vector<SourceFile> files;
    Parameters parameters;

private:
    OpenFile& top() { return stack_.back(); }
    void give_up_reading(const Fault& fault);
    int peek();
    bool read(Line& line);
    void begin_block();
    void take(const Line& line);
    void finish_block();
    void want(const IncludeName& name, const ContentChange& change = {});
    void open_wanted(const Wanted& wanted);
    [[nodiscard]] std::optional<std::string> why_not_to_open(const fs::path& path, const Wanted& wanted) const;
    void refuse(const IncludeName& name, const std::string& code, const std::string& message);
    void tell(Place place, const std::string& code, const std::string& message);
    void close_top();

    Report report_;
    ReaderLimits limits_;
    IncludeFolders folders_;
    Transformations transformations_;
    std::vector<OpenFile> stack_;
    bool in_block_ = false;

    // What takes in the lines of the present block, when they mean something here.
    std::optional<ParameterBlock> parameter_block_;
    std::optional<TransformationBlock> transformation_block_;
    std::optional<IncludeTransformBlock> include_transform_;
    std::optional<IncludeNames> names_;
};

DeckReader::Tree::Tree(const fs::path& main_deck, Report report, ReaderLimits limits)
    : report_(std::move(report)), limits_(limits), folders_(main_deck)
{
    stack_.push_back({LineFile(main_deck, LineEnds::as_meant), 0, identity_of(main_deck), {}, false, {}});
    files.push_back({main_deck, main_deck.filename().string()});
    parameters.begin_file();
}

void DeckReader::Tree::tell(Place place, const std::string& code, const std::string& message)
{
    report_(problem_at(std::move(place), code, message));
}

// ---- lines ---------------------------------------------------------------------------------------------------------

// An included file that fails in its middle ends there, with a problem. The main deck's failure is its reader's.
void DeckReader::Tree::give_up_reading(const Fault& fault)
{
    if (stack_.size() == 1) throw fault;
    const SourceFile& file = files[top().number];
    tell({files[file.included_from].name, file.included_at, file.included_column, file.included_end_column}, "MD122",
         "include file \"" + file.name + "\" " + fault.problem().message);
    top().ended = true;
}

// The next character of the file that is being read; -1 at its end.
int DeckReader::Tree::peek()
{
    if (top().ended) return -1;
    try {
        return top().lines.peek();
    } catch (const Fault& fault) {
        give_up_reading(fault);
        return -1;
    }
}

bool DeckReader::Tree::read(Line& line)
{
    if (top().ended) return false;
    try {
        line.file = top().number;
        return top().lines.next(line);
    } catch (const Fault& fault) {
        give_up_reading(fault);
        return false;
    }
}

bool DeckReader::Tree::has_line()
{
    if (!in_block_) return false;
    const int next = peek();
    return next >= 0 && (next != '*' || block.ends_file);
}

bool DeckReader::Tree::next_line(Line& line)
{
    if (has_line() && read(line)) {
        if (!is_comment(line.text)) take(line);
        return true;
    }
    finish_block();
    return false;
}

// ---- blocks --------------------------------------------------------------------------------------------------------

bool DeckReader::Tree::next_block()
{
    for (Line rest; next_line(rest);) {}
    if (block.ends_file && !stack_.empty()) top().ended = true;
    while (!stack_.empty()) {
        if (!top().wanted.empty()) {
            const Wanted wanted = std::move(top().wanted.front());
            top().wanted.pop_front();
            open_wanted(wanted);
        } else if (peek() < 0) {
            close_top();
        } else {
            begin_block();
            return true;
        }
    }
    block = {};
    return false;
}

void DeckReader::Tree::begin_block()
{
    block = {};
    in_block_ = true;
    Line line;
    if (peek() != '*') {
        block.file = top().number;
        block.line = top().lines.lines_read() + 1;
        block.format = block_format(top().settings, FormatSuffix::none);
        return;
    }
    if (!read(line)) return;
    block.file = line.file;
    block.line = line.number;
    block.carriage_return = line.carriage_return;
    block.newline = line.newline;
    block.keyword = read_keyword_line(line.text);
    const std::string& name = block.keyword.name;
    if (name == "*KEYWORD") top().settings = settings_from(block.keyword.rest, top().settings);
    block.format = block_format(top().settings, block.keyword.suffix);
    block.ends_file = name == "*END";
    block.include = include_kind(name);

    if (is_of(name, "*PARAMETER"))
        parameter_block_.emplace(parameters, name, block.format, files[block.file].name, report_);
    else if (is_of(name, "*DEFINE_TRANSFORMATION"))
        transformation_block_.emplace(transformations_, parameters, ends_in_option(name, "TITLE"), block.format);
    else if (block.include == IncludeKind::transform)
        include_transform_.emplace(transformations_, parameters, block.format);
    else if (block.include == IncludeKind::files || block.include == IncludeKind::path)
        names_.emplace();
    else if (block.include == IncludeKind::other)
        tell({files[block.file].name, block.line, 1, 1 + name.size()}, "MD121", name + " is not followed");
}

// Takes in a data line of the present block.
void DeckReader::Tree::take(const Line& line)
{
    if (parameter_block_) parameter_block_->take(line.text, line.number);
    if (transformation_block_) transformation_block_->take(line.text);
    if (include_transform_) include_transform_->take(line);
    if (names_ && names_->take(line)) want(names_->name());
}

void DeckReader::Tree::finish_block()
{
    if (!std::exchange(in_block_, false)) return;
    if (parameter_block_) parameter_block_->finish();
    if (names_ && names_->finish()) want(names_->name());
    if (include_transform_) {
        if (const auto name = include_transform_->finish()) {
            if (!include_transform_->refused().empty())
                refuse(*name, "MD124",
                       "*INCLUDE_TRANSFORM with " + include_transform_->refused() + " in line " +
                           std::to_string(include_transform_->refused_line()));
            want(*name, include_transform_->change());
        }
    }
    parameter_block_.reset();
    transformation_block_.reset();
    include_transform_.reset();
    names_.reset();
}

// ---- files ---------------------------------------------------------------------------------------------------------

// A name of the present block.
void DeckReader::Tree::want(const IncludeName& name, const ContentChange& change)
{
    IncludeName known = name;
    const auto is_there = [&] { return !folders_.find(name.name, files[top().number].path).path.empty(); };
    if (refers_to_parameter(name.name) && !is_there()) {  // "&" and "<" may be characters of a file's name
        const Evaluation evaluation = parameters.evaluate(known.name);
        if (!evaluation.value) {
            refuse(name, "MD123", "\"" + name.name + "\": " + evaluation.why_not);
            return;
        }
        known.name = to_string(*evaluation.value);
    }
    if (block.include == IncludeKind::path)
        folders_.add_path(known.name);
    else if (top().wanted.size() <= limits_.inclusions)  // one more than can be followed, so that it is told
        top().wanted.push_back({known, change});
}

void DeckReader::Tree::refuse(const IncludeName& name, const std::string& code, const std::string& message)
{
    tell({files[top().number].name, name.line, name.column, name.end_column}, code, message);
}

std::optional<std::string> DeckReader::Tree::why_not_to_open(const fs::path& path, const Wanted& wanted) const
{
    const std::string name = "include file \"" + wanted.name.name + "\"";
    if (stack_.size() > limits_.depth) return name + " is nested deeper than " + std::to_string(limits_.depth);
    if (files.size() > limits_.inclusions)
        return name + " is one of more than " + std::to_string(limits_.inclusions) + " include files";
    const Identity identity = identity_of(path);
    const auto same = [&](const OpenFile& file) { return file.identity == identity; };
    if (std::any_of(stack_.begin(), stack_.end(), same)) return name + " includes itself";
    return std::nullopt;
}

void DeckReader::Tree::open_wanted(const Wanted& wanted)
{
    IncludeFolders::Found found = folders_.find(wanted.name.name, files[top().number].path);
    if (found.path.empty()) {
        std::string tried;
        for (const std::string& path : found.tried) tried += (tried.empty() ? "" : ", ") + path;
        refuse(wanted.name, "MD122", "include file \"" + wanted.name.name + "\" is not found (tried: " + tried + ")");
        return;
    }
    if (const auto why_not = why_not_to_open(found.path, wanted)) {
        refuse(wanted.name, "MD122", *why_not);
        return;
    }
    try {
        OpenFile file{LineFile(found.path, LineEnds::as_meant),
                      static_cast<FileNumber>(files.size()),
                      identity_of(found.path),
                      top().settings,
                      false,
                      {}};
        top().lines.suspend();
        files.push_back({found.path, folders_.shown(found.path), top().number, wanted.name.line, wanted.name.column,
                         wanted.name.end_column, combined(wanted.change, files[top().number].change)});
        stack_.push_back(std::move(file));
        parameters.begin_file();
    } catch (const Fault& fault) {
        refuse(wanted.name, "MD122", "include file \"" + wanted.name.name + "\" " + fault.problem().message);
    }
}

void DeckReader::Tree::close_top()
{
    stack_.pop_back();
    parameters.end_file();
}

// ---- the reader ----------------------------------------------------------------------------------------------------

DeckReader::DeckReader(const fs::path& main_deck, Report report, ReaderLimits limits)
    : tree_(std::make_unique<Tree>(main_deck, std::move(report), limits))
{
}

DeckReader::~DeckReader() = default;

bool DeckReader::next_block()
{
    return tree_->next_block();
}

const Block& DeckReader::block() const
{
    return tree_->block;
}

bool DeckReader::next_line(Line& line)
{
    return tree_->next_line(line);
}

std::size_t DeckReader::last_line() const
{
    return tree_->last_line();
}

HeldBlock DeckReader::hold(std::size_t most)
{
    HeldBlock held{block(), {}, true};
    Line line;
    while (held.lines.size() < most && next_line(line))
        held.lines.push_back({std::string(line.text), line.file, line.number, line.carriage_return, line.newline});
    held.complete = held.lines.size() < most || !tree_->has_line();
    return held;
}

const std::vector<SourceFile>& DeckReader::files() const
{
    return tree_->files;
}

const Parameters& DeckReader::parameters() const
{
    return tree_->parameters;
}

Place DeckReader::place(FileNumber number, std::size_t line, std::size_t column, std::size_t end_column) const
{
    return {file(number).name, line, column, end_column};
}

}  // namespace deck
