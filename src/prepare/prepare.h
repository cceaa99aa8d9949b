// Prepare: the same model, written so that the converter reads all of it.
//
//     prepare::Preparation preparation("model.k");   // looks the deck through; throws when it cannot be prepared
//     preparation.write(stream, {});
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "check/finding.h"
#include "prepare/output.h"
#include "prepare/survey.h"

namespace prepare
{

// Where a keyword line of the deck, or of a file that it includes, has gone with its block.
struct Origin {
    enum class Fate : std::uint8_t {
        written,    // it stands in the prepared deck; a further definition may have a keyword line of its own there
        taken_in,   // nothing of it does but comments: it has done what it is for
        behind_end  // it stood behind its file's *END
    };

    std::size_t block = 0;    // from 1, in the order of the deck; all that is behind one *END has its number
    std::string_view file{};  // as findings show it
    std::size_t line = 0;     // in that file, first and last
    std::size_t last_line = 0;
    std::string_view keyword{};  // upper case, without what stands behind it
    Fate fate = Fate::written;
    std::size_t first_in_output = 0;  // lines of the prepared deck, first and last, both 0 unless it is written;
    std::size_t last_in_output = 0;   // a comment that names the origin (Options::origins) comes before the first
};

// Is told of each keyword line once; of a block that is moved to the end when it is written there. The views last as
// long as the call.
using OriginReport = std::function<void(const Origin&)>;

struct Options {
    bool origins = false;  // "$ from FILE:LINE" before each keyword line
    OriginReport origin = {};
};

struct Summary {
    std::size_t changes = 0;
    std::map<std::string, std::size_t, std::less<>> changes_by_code;
    // What could not be carried into strict form: the first of a code in a block, and how many more are in it.
    std::vector<std::pair<check::Finding, std::size_t>> not_carried;
};

class Preparation
{
public:
    // Throws deck::Fault when the deck cannot be read, or with the first of the problems that stop it; `problems` has
    // got all of them then.
    explicit Preparation(std::filesystem::path deck, std::vector<deck::Problem>* problems = nullptr);

    // Every file that is read.
    [[nodiscard]] const std::vector<deck::SourceFile>& files() const { return survey_.files; }

    // Warnings, and errors that do not stop it.
    [[nodiscard]] const std::vector<deck::Problem>& problems() const { return survey_.problems; }

    // Writes the deck. Throws deck::Fault when a field has no value, or a transformation cannot be done: what has been
    // written by then is to be thrown away.
    Summary write(std::ostream& stream, const Options& options, const ChangeReport& report = {}) const;

private:
    std::filesystem::path deck_;
    Survey survey_;
};

}  // namespace prepare
