// Runs two programs on the same cases and compares everything that they leave behind: each file, what the terminal
// shows, the exit status. tools/same builds the programs and calls this.
//
//     compare_programs [--decks N] [--seed N] [--keep FOLDER] BEFORE AFTER KEYWORDS CASES...
//
// KEYWORDS is a file with the words of keywords_table --dictionary. CASES are folders whose subfolders are cases, like
// those of tests/golden and examples, and folders of decks. N random decks follow; --seed is the number of the first.
// The status is 1 when a case differs: the first of them is told, and --keep gets the files of both programs.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "same/random_deck.h"
#include "support/convert.h"

namespace fs = std::filesystem;

namespace
{
constexpr unsigned workers = 2;
constexpr char control_file[] = "input.morvex";

// ---- cases ---------------------------------------------------------------------------------------------------------

// Files by name, with their text.
using Files = std::map<std::string, std::string>;

// What there is before a run, but for the control file; and the control files to run it with.
struct Case {
    std::string name;
    Files files;
    std::string answer = "yes\n";  // typed on standard input
    std::vector<std::string> settings;
};

// Control files for a deck: concise and comprehensive, with each standards file and each treatment of contacts.
std::vector<std::string> settings_for(const std::string& deck)
{
    std::vector<std::string> all;
    for (const char* const flags : {"1110011111111", "1111021111111", "1110111111111", "1111221111111"})
        all.push_back("sourcefile : " + deck + "\n" + flag_lines(flags));
    return all;
}

// A case folder, with its own settings and all of ours; expected results in it are no part of it.
Case folder_case(const fs::path& folder)
{
    Case given{folder.string(), {}, "yes\n", {}};
    for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        if (!entry.is_regular_file() || name.starts_with("README")) continue;
        if (name == "answer")
            given.answer = contents(entry.path());
        else
            given.files[name] = contents(entry.path());
    }
    const auto control = given.files.find(control_file);
    if (control != given.files.end()) {
        given.settings.push_back(control->second);
        given.files.erase(control);
    }
    if (given.settings.empty() || given.files.empty()) given.settings.emplace_back();
    const auto deck = std::find_if(given.files.begin(), given.files.end(),
                                   [](const auto& file) { return file.first.find(".k") != std::string::npos; });
    if (deck == given.files.end()) return given;
    const std::vector<std::string> more = settings_for(deck->first);
    given.settings.insert(given.settings.end(), more.begin(), more.end());
    return given;
}

Case deck_case(const fs::path& deck)
{
    return {deck.string(), {{"model.k", contents(deck)}}, "yes\n", settings_for("model.k")};
}

Case random_case(const DeckWriter& writer, std::uint32_t number)
{
    Case given{"random deck " + std::to_string(number), {{"model.k", writer.deck(number)}}, "yes\n", {}};
    given.settings = settings_for("model.k");
    given.settings.resize(2);
    for (std::uint32_t more = 0; more < 2; ++more)
        given.settings.push_back("sourcefile : model.k\n" + DeckWriter::flags(2 * number + more));
    return given;
}

// The cases of a folder: its subfolders, or its decks where there are none.
std::vector<fs::path> cases_in(const fs::path& folder)
{
    std::vector<fs::path> folders;
    std::vector<fs::path> decks;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.is_directory()) folders.push_back(entry.path());
        if (entry.is_regular_file() && entry.path().extension() != ".md") decks.push_back(entry.path());
    }
    std::vector<fs::path>& found = folders.empty() ? decks : folders;
    std::sort(found.begin(), found.end());
    return found;
}

// ---- runs ----------------------------------------------------------------------------------------------------------

// Where one program runs: a folder that is emptied for each run, and the files of its standard streams beside it.
struct Place {
    std::string program;
    fs::path folder, in, out, err;
};

void check(int error, const char* what)
{
    if (error != 0) throw std::runtime_error(std::string(what) + ": " + std::strerror(error));
}

int run_program(const Place& place)
{
    posix_spawn_file_actions_t actions;
    check(posix_spawn_file_actions_init(&actions), "spawn");
    constexpr int create = O_WRONLY | O_CREAT | O_TRUNC;
    check(posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, place.in.c_str(), O_RDONLY, 0), "standard input");
    check(posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, place.out.c_str(), create, 0644),
          "standard output");
    check(posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, place.err.c_str(), create, 0644), "standard error");
    check(posix_spawn_file_actions_addchdir_np(&actions, place.folder.c_str()), "folder");
    std::string name = "morvex";
    char* arguments[] = {name.data(), nullptr};
    pid_t process = -1;
    const int error = posix_spawn(&process, place.program.c_str(), &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    check(error, place.program.c_str());
    int status = 0;
    while (waitpid(process, &status, 0) < 0)
        if (errno != EINTR) throw std::runtime_error("a run cannot be waited for");
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

// Everything that is there after a run.
Files run(const Place& place, const Case& given, const std::string& settings)
{
    fs::remove_all(place.folder);
    fs::create_directories(place.folder);
    for (const auto& [name, text] : given.files) write_file(place.folder / name, text);
    if (!settings.empty()) write_file(place.folder / control_file, settings);
    write_file(place.in, given.answer);
    const int status = run_program(place);
    Files left;
    for (const auto& entry : fs::directory_iterator(place.folder))
        left[entry.path().filename().string()] = contents(entry.path());
    left["standard output"] = contents(place.out);
    left["standard error"] = contents(place.err);
    left["exit status"] = std::to_string(status) + "\n";
    return left;
}

// ---- differences ---------------------------------------------------------------------------------------------------

struct Difference {
    std::size_t index;  // of the case
    std::string name;
    Files before, after;
};

std::string line_at(const std::string& text, std::size_t at)
{
    const std::size_t begin = at == 0 ? 0 : text.rfind('\n', at - 1) + 1;
    return begin >= text.size() ? "(the end)" : "|" + text.substr(begin, text.find('\n', begin) - begin) + "|";
}

void show(const std::string& name, const std::string& before, const std::string& after)
{
    const auto end = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto at = static_cast<std::size_t>(end.first - before.begin());
    const auto line = std::count(before.begin(), end.first, '\n') + 1;
    std::printf("  %s, line %td\n    before %s\n    after  %s\n", name.c_str(), line, line_at(before, at).c_str(),
                line_at(after, at).c_str());
}

void tell(const Difference& difference, const fs::path& keep)
{
    std::printf("%s differs:\n", difference.name.c_str());
    for (const auto& [name, before] : difference.before) {
        const auto after = difference.after.find(name);
        if (after == difference.after.end())
            std::printf("  %s is not there after\n", name.c_str());
        else if (after->second != before)
            show(name, before, after->second);
    }
    for (const auto& [name, after] : difference.after)
        if (!difference.before.contains(name)) std::printf("  %s is new\n", name.c_str());
    if (keep.empty()) return;
    fs::remove_all(keep);
    for (const auto& [side, files] : {std::pair("before", difference.before), std::pair("after", difference.after)}) {
        fs::create_directories(keep / side);
        for (const auto& [name, text] : files) write_file(keep / side / name, text);
    }
    std::printf("The files of both are in %s\n", keep.c_str());
}

// ---- the comparison ------------------------------------------------------------------------------------------------

struct Options {
    std::size_t decks = 5000;
    std::size_t seed = 1;
    fs::path keep;
    fs::path before, after, keywords;
    std::vector<fs::path> folders;
};

class Comparison
{
public:
    Comparison(const Options& options, DeckWriter writer, std::vector<fs::path> given)
        : options_(options), writer_(std::move(writer)), given_(std::move(given))
    {
    }

    // The first case that differs, if any.
    std::optional<Difference> compare()
    {
        const TemporaryName scratch;
        std::vector<std::thread> threads;
        for (unsigned worker = 0; worker < workers; ++worker)
            threads.emplace_back([&, worker] { work(scratch.path() / std::to_string(worker)); });
        for (std::thread& thread : threads) thread.join();
        if (failure_) std::rethrow_exception(failure_);
        return std::move(first_);
    }

    [[nodiscard]] std::size_t cases() const { return given_.size() + options_.decks; }
    [[nodiscard]] std::size_t runs() const { return runs_; }

private:
    [[nodiscard]] Case case_of(std::size_t index) const
    {
        if (index >= given_.size())
            return random_case(writer_, static_cast<std::uint32_t>(options_.seed + index - given_.size()));
        return fs::is_directory(given_[index]) ? folder_case(given_[index]) : deck_case(given_[index]);
    }

    static Place place(const fs::path& program, const fs::path& folder)
    {
        return {program.string(), folder / "run", folder / "in", folder / "out", folder / "err"};
    }

    void work(const fs::path& scratch)
    {
        try {
            const Place before = place(options_.before, scratch / "before");
            const Place after = place(options_.after, scratch / "after");
            for (const Place& each : {before, after}) fs::create_directories(each.folder);
            for (std::size_t index = next_++; index < cases() && !stop_; index = next_++)
                run_both(before, after, case_of(index), index);
        } catch (...) {
            const std::lock_guard lock(mutex_);
            failure_ = std::current_exception();
            stop_ = true;
        }
    }

    void run_both(const Place& before, const Place& after, const Case& given, std::size_t index)
    {
        for (const std::string& settings : given.settings) {
            Files one = run(before, given, settings);
            Files other = run(after, given, settings);
            ++runs_;
            if (one == other) continue;
            const std::lock_guard lock(mutex_);
            stop_ = true;
            if (!first_ || index < first_->index) first_ = {index, given.name, std::move(one), std::move(other)};
            return;
        }
    }

    const Options& options_;
    DeckWriter writer_;
    std::vector<fs::path> given_;
    std::atomic<std::size_t> next_ = 0;
    std::atomic<std::size_t> runs_ = 0;
    std::atomic<bool> stop_ = false;
    std::mutex mutex_;
    std::optional<Difference> first_;
    std::exception_ptr failure_;
};

// ---- the command line ----------------------------------------------------------------------------------------------

// The keywords of the dictionary: words in quotes, one a line.
std::vector<std::string> read_keywords(const fs::path& file)
{
    std::vector<std::string> keywords;
    const std::string text = contents(file);
    for (std::size_t at = text.find("\"*"); at != std::string::npos; at = text.find("\"*", at + 1))
        keywords.push_back(text.substr(at + 1, text.find('"', at + 1) - at - 1));
    if (keywords.empty()) throw std::runtime_error("no keywords in " + file.string());
    return keywords;
}

bool read_number(std::string_view text, std::size_t& number)
{
    const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
    return end.ec == std::errc{} && end.ptr == text.data() + text.size();
}

bool read_options(const std::vector<std::string>& arguments, Options& options)
{
    std::vector<fs::path> rest;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (!argument.starts_with("--")) {
            rest.emplace_back(argument);
            continue;
        }
        if (++i == arguments.size()) return false;
        const std::string& value = arguments[i];
        if (argument == "--keep")
            options.keep = value;
        else if (argument == "--decks" ? !read_number(value, options.decks)
                                       : argument != "--seed" || !read_number(value, options.seed))
            return false;
    }
    if (rest.size() < 4) return false;
    options.before = fs::absolute(rest[0]);
    options.after = fs::absolute(rest[1]);
    options.keywords = rest[2];
    options.folders.assign(rest.begin() + 3, rest.end());
    return true;
}

int compare(const Options& options)
{
    std::vector<fs::path> given;
    for (const fs::path& folder : options.folders)
        for (const fs::path& each : cases_in(folder)) given.push_back(each);
    std::vector<std::string> decks;
    for (const fs::path& each : given)
        if (fs::is_directory(each))
            for (const auto& [name, text] : folder_case(each).files) decks.push_back(text);
    Comparison comparison(options, {read_keywords(options.keywords), decks}, given);
    const std::optional<Difference> difference = comparison.compare();
    if (difference) tell(*difference, options.keep);
    std::printf("%zu cases, %zu random decks, %zu runs of each program: %s\n", given.size(), options.decks,
                comparison.runs(), difference ? "a difference" : "no difference");
    return difference ? 1 : 0;
}
}  // namespace

int main(int argc, char* argv[])
{
    try {
        Options options;
        if (!read_options({argv + 1, argv + argc}, options)) {
            std::fputs(
                "Usage: compare_programs [--decks N] [--seed N] [--keep FOLDER] BEFORE AFTER KEYWORDS CASES...\n",
                stderr);
            return 2;
        }
        setenv("SOURCE_DATE_EPOCH", "1709640000", 1);  // the main deck carries the day of the run
        return compare(options);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "compare_programs: %s\n", failure.what());
        return 2;
    }
}
